#include "TableExamples.h"

#include "ManualStation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

namespace
{
namespace fs = std::filesystem;

constexpr const char* FirstJob = "the plate";
constexpr const char* ShownBlank = "\xE2\x90\xA3"; ///< a blank at the end of a line

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::string JobOf(const std::string& text)
{
    const std::string mark = "; job: ";
    return text.starts_with(mark) ? text.substr(mark.size(), text.find('\n') - mark.size()) : FirstJob;
}

std::string TextOf(const TableSections& table)
{
    std::string text;
    for (const auto& [section, keys] : table) {
        text += "[" + section + "]\n";
        for (const auto& [key, value] : keys) {
            text.append(key).append("=").append(value).append("\n");
        }
    }
    return text;
}

/// The rows "| job | command |"; "the plate with `options`" stands for the plate's command with more options.
std::map<std::string, std::string> ReadJobs(const std::string& path)
{
    const std::regex row(R"(\| ([^|]+) \| (the plate with )?`([^|`]*--[^|`]+)` \|)");
    std::map<std::string, std::string> jobs;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        std::smatch match;
        if (std::regex_match(line, match, row)) {
            jobs[match[1]] = match[2].matched ? jobs[FirstJob] + " " + match[3].str() : match[3].str();
        }
    }
    EXPECT_EQ(jobs.count(FirstJob), 1U) << path;
    return jobs;
}

std::string ReadAll(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}
} // namespace

TableSections ReadTablePiece(const std::string& text)
{
    TableSections sections;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t equals = line.find('=');
        if (line.empty() || line.starts_with(";")) {
            continue;
        }
        if (line.starts_with("[") && line.ends_with("]")) {
            sections.push_back({line.substr(1, line.size() - 2), {}});
        } else if (!sections.empty() && equals != std::string::npos) {
            sections.back().second.push_back({line.substr(0, equals), line.substr(equals + 1)});
        } else {
            ADD_FAILURE() << "neither section nor key: " << line;
        }
    }
    return sections;
}

TableSections LaidOver(TableSections table, const TableSections& piece)
{
    for (const auto& [name, keys] : piece) {
        auto section = std::find_if(table.begin(), table.end(),
                                    [&wanted = name](const auto& each) { return each.first == wanted; });
        if (section == table.end()) {
            section = table.insert(table.end(), {name, {}});
        }
        for (const auto& pair : keys) {
            TableKeys& old = section->second;
            const auto key = std::find_if(old.begin(), old.end(),
                                          [&pair](const auto& each) { return each.first == pair.first; });
            if (key == old.end()) {
                old.push_back(pair);
            } else {
                key->second = pair.second;
            }
        }
    }
    return table;
}

TableSections Without(TableSections table, const std::string& section, const std::string& key)
{
    for (auto& [name, keys] : table) {
        if (name == section) {
            std::erase_if(keys, [&key](const auto& pair) { return key.empty() || pair.first == key; });
        }
    }
    return table;
}

TableSections WithText(TableSections table, const std::string& from, const std::string& to)
{
    for (auto& [name, keys] : table) {
        for (auto& [key, value] : keys) {
            value = Replaced(value, from, to);
        }
    }
    return table;
}

TableChapter::TableChapter() : Page(ManualChapter("08-post-processor.md"))
{
    std::string drawings;
    for (std::size_t i = 0; i < Page.Blocks.size(); ++i) {
        const PageBlock& block = Page.Blocks[i];
        if (block.Kind == "sh" && block.Text.find("DXF/") != std::string::npos) {
            drawings += block.Text;
        }
        if (block.Kind != "ini" || i + 1 == Page.Blocks.size() || Page.Blocks[i + 1].Kind != "nc") {
            EXPECT_NE(block.Kind, "ini") << PlaceOf(Page, block.Line) << ": no lines come of it";
            continue;
        }
        Examples.push_back({JobOf(block.Text), ReadTablePiece(block.Text),
                            Replaced(Page.Blocks[i + 1].Text, ShownBlank, " "), block.Line});
    }
    Jobs = ReadJobs(Page.Path);
    if (!Examples.empty()) {
        SmallTable = Examples.front().Piece;
    }
    MakeManualStation(Work.Path + "/station");
    EXPECT_TRUE(RunInStation(Work.Path + "/station", drawings, Work.Path + "/errors")) << Work.Read("errors");
}

std::string TableChapter::Program(const std::string& job, const TableSections& piece) const
{
    const auto command = Jobs.find(job);
    if (command == Jobs.end()) {
        ADD_FAILURE() << "no job \"" << job << "\"";
        return "";
    }
    Work.Write("station/PPR.ini", TextOf(LaidOver(SmallTable, piece)));
    const fs::path out = fs::path(Work.Path) / "out";
    fs::remove_all(out);
    const std::string options = " --quiet --out " + ShellWord(out.string());
    if (!RunInStation(Work.Path + "/station", command->second + options, Work.Path + "/errors")) {
        ADD_FAILURE() << command->second << ": " << Work.Read("errors");
        return "";
    }
    std::string program;
    int files = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(out)) {
        program = ReadAll(entry.path());
        ++files;
    }
    EXPECT_EQ(files, 1) << command->second;
    return Replaced(program, "\r\n", "\n");
}
