// The key strokes that the manual tells, chapter by chapter in a fresh station: what they save is what the page shows.
#include "WindowStation.h"
#include "manual/ManualPages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

namespace
{
namespace fs = std::filesystem;

/// Key caps that the display has other names for.
const std::map<std::string, std::string> Caps = {
    {"Enter", "Return"}, {"Esc", "Escape"}, {"PageUp", "Prior"}, {"PageDown", "Next"}, {"Space", "space"},
    {"Up", "Up"},        {"Down", "Down"},  {"Left", "Left"},    {"Right", "Right"},   {"Delete", "Delete"}};

bool IsFunctionKey(const std::string& word)
{
    return word.size() > 1 && word.size() <= 3 && word[0] == 'F' &&
           word.find_first_not_of("0123456789", 1) == std::string::npos;
}

void PressWord(const WindowStation& station, const std::string& word)
{
    const auto cap = Caps.find(word);
    if (cap != Caps.end()) {
        station.Press({cap->second});
    } else if (IsFunctionKey(word)) {
        station.Press({word});
    } else if (word.starts_with("Ctrl+")) {
        station.Press({"ctrl+" + word.substr(5)});
    } else {
        const bool quoted = word.size() > 1 && word.front() == '"' && word.back() == '"';
        station.Type(quoted ? word.substr(1, word.size() - 2) : word);
    }
}

/// All blocks of keys of a page, one after the other, and the files that it shows behind them.
void RunKeys(const ManualPage& page)
{
    WindowStation station;
    station.Start();
    std::string last;
    for (const PageBlock& block : page.Blocks) {
        SCOPED_TRACE(PlaceOf(page, block.Line));
        if (block.Kind == "keys") {
            std::istringstream words(block.Text);
            for (std::string word; words >> word;) {
                PressWord(station, word);
            }
        } else if (block.Kind == "nc" && last == "keys") {
            const std::string path = station.Folder.Path + "/" + block.Name;
            ASSERT_TRUE(WaitFor(20, [&path] { return fs::exists(path); })) << block.Name;
            const std::string program = station.Folder.Read(block.Name);
            EXPECT_TRUE(MatchesLines(block.Text, program)) << program;
        }
        last = block.Kind == "keys" || block.Kind == "sh" ? block.Kind : last;
    }
    EXPECT_TRUE(station.Lives());
}

class WindowManual : public testing::TestWithParam<const char*>
{
};

TEST_P(WindowManual, KeysDoWhatThePageTells)
{
    const ManualPage page = ManualChapter(GetParam());
    if (std::any_of(page.Blocks.begin(), page.Blocks.end(),
                    [](const PageBlock& block) { return block.Kind == "keys"; })) {
        RunKeys(page);
    }
}

INSTANTIATE_TEST_SUITE_P(All, WindowManual, testing::ValuesIn(ManualChapterNames),
                         [](const testing::TestParamInfo<const char*>& chapter) {
                             return "Chapter" + std::string(chapter.param).substr(0, 2);
                         });

/// The ten plates of the first chapter are those that korvanta-batch cuts from the same numbers.
TEST(WindowManualFirstCut, IsTheProgramOfTheSameNumbers)
{
    const ManualPage page = ManualChapter("01-first-cut.md");
    const auto shown = std::find_if(page.Blocks.begin(), page.Blocks.end(),
                                    [](const PageBlock& block) { return block.Kind == "nc"; });
    ASSERT_NE(shown, page.Blocks.end());
    const WindowStation station;
    const std::string program = station.Reference("R-05", {"--param", "A=300", "--param", "B=200"},
                                                  {{"Move Step", "1"},
                                                   {"LeadIn : A", "3"},
                                                   {"LeadIn : B", "2"},
                                                   {"X Sheet", "*5"},
                                                   {"Y Sheet", "*2"},
                                                   {"Kerf", "1.5"},
                                                   {"X Gap", "8"},
                                                   {"Y Gap", "8"}},
                                                  "PLATE10");
    EXPECT_TRUE(MatchesLines(shown->Text, program)) << program;
}
} // namespace
