// Whole programs: each folder of tests/golden/post holds a part with its nest, a table, and the program that they make.
// KORVANTA_REWRITE_GOLDEN=1 in the environment writes the programs anew; read the difference before you commit it.
#include "CaseFile.h"
#include "PostStation.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace
{
namespace fs = std::filesystem;

std::string ReadText(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<std::string> CaseNames()
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry :
         fs::directory_iterator(fs::path(KORVANTA_SOURCE_DIR) / "tests/golden/post")) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string Joined(const Lines& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    return text;
}

class Golden : public testing::TestWithParam<std::string>
{
};

TEST_P(Golden, Program)
{
    const fs::path folder = fs::path(KORVANTA_SOURCE_DIR) / "tests/golden/post" / GetParam();
    const PostStation station(ReadText(folder / "PPR.ini"));
    const std::string name = LoadCase(ReadText(folder / "case.txt"));
    GenerateProgram(name);
    const Lines lines = station.Program(AppState.OutputName);
    EXPECT_EQ(AppState.ProgramLines, static_cast<std::int64_t>(lines.size()));
    EXPECT_EQ(AppState.ProgramPath, AppState.NcPath + AppState.OutputName);
    EXPECT_FALSE(station.Folder.Holds("NC/" + AppState.OutputName + ".part"));
    if (std::getenv("KORVANTA_REWRITE_GOLDEN") != nullptr) {
        std::ofstream(folder / "expected.nc", std::ios::binary) << Joined(lines);
    }
    EXPECT_EQ(Joined(lines), ReadText(folder / "expected.nc"));
}

INSTANTIATE_TEST_SUITE_P(All, Golden, testing::ValuesIn(CaseNames()),
                         [](const testing::TestParamInfo<std::string>& each) { return each.param; });
} // namespace
