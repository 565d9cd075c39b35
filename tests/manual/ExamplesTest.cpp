// Every example of the manual: its commands are run in a fresh station, chapter by chapter, and what the page shows behind
// them must be what came.
#include "ManualPages.h"
#include "ManualStation.h"
#include "support/TempFolder.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace
{
namespace fs = std::filesystem;

const std::vector<std::string> KnownKinds = {"sh", "text", "nc", "keys", "ini", "console"};

/// What the lines of a block that isn't run may begin with.
const std::vector<std::string> ConsoleWords = {"./run.sh", "./test.sh", "sudo apt",      "apt",   "sudo dpkg",
                                               "dpkg",     "gdbus",     "korvanta-host", "busctl"};

constexpr const char* TablePage =
    "08-post-processor.md"; ///< its ini blocks are tried out by cases of their own

std::string Index(std::size_t i)
{
    return std::to_string(i);
}

/// True for a block that shows a file which the commands before it wrote; the cases of the window look at those that keys
/// wrote.
bool ShowsFileOfCommands(const ManualPage& page, std::size_t i)
{
    const PageBlock& block = page.Blocks[i];
    while (i > 0 && page.Blocks[i].Kind != "sh" && page.Blocks[i].Kind != "keys") {
        --i;
    }
    return block.Kind == "nc" && !block.Name.empty() && page.Blocks[i].Kind != "keys";
}

/// One script of a page's sh blocks: the output of block i goes to out<i> in `results`, and the files that nc blocks behind
/// it show are copied to file<i> at once, before a later block changes them.
std::string ScriptOf(const ManualPage& page, const std::string& results)
{
    std::string script;
    for (std::size_t i = 0; i < page.Blocks.size(); ++i) {
        const PageBlock& block = page.Blocks[i];
        if (block.Kind == "sh") {
            script += "echo " + std::to_string(block.Line) + " >" + ShellWord(results + "/reached") +
                      "\n{\n" + block.Text + "} >" + ShellWord(results + "/out" + Index(i)) + "\n";
        } else if (ShowsFileOfCommands(page, i)) {
            script += "cp -- " + ShellWord(block.Name) + " " + ShellWord(results + "/file" + Index(i)) + "\n";
        }
    }
    return script;
}

void RunPage(const ManualPage& page)
{
    const TempFolder work;
    const std::string station = work.Path + "/station";
    MakeManualStation(station);
    fs::create_directories(work.Path + "/results");
    work.Write("script", ScriptOf(page, work.Path + "/results"));
    if (!RunInStation(station, "bash -eu " + ShellWord(work.Path + "/script"), work.Path + "/errors")) {
        ADD_FAILURE() << page.Name << ": the sh block of line " << work.Read("results/reached")
                      << "or the file behind it failed:\n"
                      << work.Read("errors");
        return;
    }
    std::string output;
    for (std::size_t i = 0; i < page.Blocks.size(); ++i) {
        const PageBlock& block = page.Blocks[i];
        if (block.Kind == "sh") {
            output = work.Read("results/out" + Index(i));
        } else if (block.Kind == "text") {
            EXPECT_TRUE(MatchesLines(block.Text, output))
                << PlaceOf(page, block.Line) << " isn't what came:\n"
                << output;
        } else if (ShowsFileOfCommands(page, i)) {
            const std::string file = work.Read("results/file" + Index(i));
            EXPECT_TRUE(MatchesLines(block.Text, file)) << PlaceOf(page, block.Line) << " isn't what came:\n"
                                                        << file;
        }
    }
}

/// The block before block `i`, "" before the first.
std::string KindBefore(const ManualPage& page, std::size_t i)
{
    return i == 0 ? "" : page.Blocks[i - 1].Kind;
}

TEST(ManualExamples, AreOfAKnownKindAndInTheirPlace)
{
    for (const ManualPage& page : ManualPages()) {
        bool commands = false;
        for (std::size_t i = 0; i < page.Blocks.size(); ++i) {
            const PageBlock& block = page.Blocks[i];
            const std::string place = PlaceOf(page, block.Line);
            EXPECT_TRUE(std::find(KnownKinds.begin(), KnownKinds.end(), block.Kind) != KnownKinds.end())
                << place << ": \"" << block.Kind << "\"";
            EXPECT_TRUE(block.Name.empty() || block.Kind == "nc") << place << ": \"" << block.Name << "\"";
            EXPECT_FALSE(block.Text.empty()) << place;
            commands = commands || block.Kind == "sh" || block.Kind == "keys";
            if (block.Kind == "text") {
                EXPECT_EQ(KindBefore(page, i), "sh") << place << ": whose output is that?";
            } else if (block.Kind == "ini") {
                EXPECT_EQ(page.Name, TablePage) << place;
            } else if (block.Kind == "nc" && block.Name.empty()) {
                EXPECT_EQ(page.Name, TablePage) << place << ": of which file?";
                EXPECT_EQ(KindBefore(page, i), "ini") << place;
            } else if (block.Kind == "nc") {
                EXPECT_TRUE(commands) << place << ": nothing has made that file";
            }
        }
    }
}

TEST(ManualExamples, ConsoleBlocksHoldOnlyWhatNeedsNoTest)
{
    for (const ManualPage& page : ManualPages()) {
        for (const PageBlock& block : page.Blocks) {
            std::istringstream lines(block.Kind == "console" ? block.Text : "");
            for (std::string line; std::getline(lines, line);) {
                const bool known =
                    line.empty() || line.starts_with("#") ||
                    std::any_of(ConsoleWords.begin(), ConsoleWords.end(), [&line](const std::string& word) {
                        return line == word || line.starts_with(word + " ") ||
                               line.starts_with(word + "-get ");
                    });
                EXPECT_TRUE(known) << PlaceOf(page, block.Line) << ": " << line;
            }
        }
    }
}

/// A page that shows other lines than those that come, or a file that no command writes, is found.
TEST(ManualExamples, AWrongExampleIsFound)
{
    const TempFolder folder;
    const std::string commands = "```sh\nkorvanta-batch R-01 --program A | tail -n 1 >last\necho done\n```\n";
    RunPage(ReadPage(
        folder.Write("right.md", commands + "```text\ndone\n```\n```nc PROGRAM/A.nc\n%\n...\n```\n")));
    const std::string wrong[] = {
        commands + "```text\nundone\n```\n",
        commands + "```nc PROGRAM/A.nc\n(no start)\n...\n```\n",
        commands + "```nc PROGRAM/B.nc\n...\n```\n",
        commands + "```sh\nfalse\n```\n",
    };
    for (const std::string& text : wrong) {
        const std::string path = folder.Write("wrong.md", text);
        SCOPED_TRACE(text);
        EXPECT_NONFATAL_FAILURE(RunPage(ReadPage(path)), "wrong.md");
    }
}

class ManualChapters : public testing::TestWithParam<const char*>
{
};

TEST_P(ManualChapters, GiveWhatTheyShow)
{
    RunPage(ManualChapter(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, ManualChapters, testing::ValuesIn(ManualChapterNames),
                         [](const testing::TestParamInfo<const char*>& chapter) {
                             return "Chapter" + std::string(chapter.param).substr(0, 2);
                         });
} // namespace
