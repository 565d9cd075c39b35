// Every sample drawing through every sample table: a complete program, no number that is none, torch and compensation
// in step.
#include "SampleTables.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "post/Korvanta_PostProcessor.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sstream>
#include <tuple>

namespace
{
const std::vector<std::string> SampleDrawings = {"BRACKET", "FLANGE", "GASKET", "PANEL"};

/// A station of its own: the shipped files, folders for programs and jobs, one table in force.
void CopyStation(const TempFolder& station, const std::string& table)
{
    station.Write("Korvanta.ini", "[CONFIG]\r\nPPR_INI=" + table + "\r\nNC_PATH=" + station.Path +
                                      "/NC\r\nNESTING_PATH=" + station.Path +
                                      "/NEST\r\n[Lead_CONFIG]\r\nL_In=2\r\nL_InRd=1\r\n");
    station.Write("NEST/readme.txt", "jobs\r\n");
    station.Write("Korvanta_MSG.TXT", StationBytes("Korvanta_MSG.TXT"));
    std::string path = table;
    std::replace(path.begin(), path.end(), '\\', '/');
    station.Write(path, StationBytes(table));
}

/// The program's lines for 3 x 2 copies of a drawing; `operatorAnswers` plays the input dialog.
std::vector<std::string> CutSample(const TempFolder& station, const std::string& drawing,
                                   const std::function<void()>& operatorAnswers = {})
{
    StartCase();
    Screen.InputDialog = operatorAnswers;
    StartStation(station.Path, 1);
    EXPECT_TRUE(OpenImport(ImportKind::Drawing, StationFile("DXF/" + drawing + ".dxf")));
    EnterCamTab(1);
    AppState.MoveStep = 1.0; // leads stay off the corners
    EnterCamTab(2);
    SetText(AppState.TextNesting[FieldSheetX], "*3");
    ApplySheetEntries(0);
    SetText(AppState.TextNesting[FieldSheetY], "*2");
    ApplySheetEntries(1);
    ComputeLayout();
    AppState.JobName = drawing;
    GenerateProgram(drawing);
    std::istringstream text(station.Read("NC/" + ProgramFileName(drawing)));
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(text, line)) {
        EXPECT_EQ(line.back(), '\r') << line;
        line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

/// The line without its number, without comments, without blanks at its end.
std::string Words(const std::string& line)
{
    std::string words = line;
    if (!words.empty() && words.front() == 'N') {
        const std::size_t blank = words.find(' ');
        words.erase(0, blank == std::string::npos ? words.size() : blank + 1);
    }
    for (const char* comment : {"(", ";"}) {
        words.erase(std::min(words.find(comment), words.size()));
    }
    while (!words.empty() && words.back() == ' ') {
        words.pop_back();
    }
    return words;
}

bool Begins(const std::string& words, const char* what)
{
    return words.rfind(what, 0) == 0;
}

using Sample = std::tuple<std::string, std::string>;

std::vector<std::string> CompensatingTables()
{
    std::vector<std::string> tables = SampleTables;
    tables.erase(std::find(tables.begin(), tables.end(), TableWithoutCompensation));
    return tables;
}

class Programs : public testing::TestWithParam<Sample>
{
};
INSTANTIATE_TEST_SUITE_P(Shipped, Programs,
                         testing::Combine(testing::ValuesIn(SampleDrawings),
                                          testing::ValuesIn(CompensatingTables())),
                         [](const auto& row) {
                             return std::get<0>(row.param) + "_" + TableLabel(std::get<1>(row.param));
                         });

TEST_P(Programs, AreCompleteAndEndEachCut)
{
    const TempFolder station;
    CopyStation(station, std::get<1>(GetParam()));
    const std::vector<std::string> lines = CutSample(station, std::get<0>(GetParam()));
    ASSERT_GT(lines.size(), 10U);
    bool torch = false;
    bool kerf = false;
    std::int32_t pierces = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string words = Words(lines[i]);
        const std::string where = "line " + std::to_string(i + 1) + ": " + lines[i];
        ASSERT_EQ(lines[i].find("nan"), std::string::npos) << where;
        ASSERT_EQ(lines[i].find("inf"), std::string::npos) << where;
        ASSERT_EQ(words.find('*'), std::string::npos) << where << ": a tag was left";
        ASSERT_EQ(words.find("#V"), std::string::npos) << where << ": an input value was left";
        if (Begins(words, "G00")) {
            ASSERT_FALSE(torch) << where << ": rapid with the torch on";
            ASSERT_FALSE(kerf) << where << ": rapid with compensation";
        } else if (Begins(words, "M03")) {
            torch = true;
            ++pierces;
        } else if (Begins(words, "M05")) {
            torch = false;
        } else if (words == "G40") {
            ASSERT_TRUE(kerf) << where << ": a closed profile is cut with compensation";
            kerf = false;
        }
        if (Begins(words, "G01 G41")) {
            ASSERT_TRUE(torch) << where;
            ASSERT_FALSE(kerf) << where << ": compensation on twice";
            kerf = true;
        } else if (Begins(words, "G01") || Begins(words, "G02") || Begins(words, "G03")) {
            ASSERT_TRUE(kerf) << where << ": cut without compensation";
            ASSERT_EQ(words.find("G4"), std::string::npos) << where;
        }
    }
    EXPECT_FALSE(torch);
    EXPECT_FALSE(kerf);
    const bool bySubprogram = std::get<1>(GetParam()).find("Sub") != std::string::npos;
    // six copies in line, or two passes of sub-programs
    EXPECT_EQ(pierces, AppState.ProfileCount * (bySubprogram ? 2 : 6));
    EXPECT_EQ(AppState.ProgramCopies, 6);
    EXPECT_EQ(AppState.ProgramLines, static_cast<std::int64_t>(lines.size()));
}

TEST(SubProgramTable, CallsEachSubProgramThatStandsAheadOfTheTapeEnd)
{
    const TempFolder station;
    CopyStation(station, "PPR_SubPrograms.ini");
    const std::vector<std::string> lines = CutSample(station, "BRACKET");
    ASSERT_EQ(lines.front(), "%");
    const auto tapeEnd = std::find(lines.begin() + 1, lines.end(), "%");
    ASSERT_NE(tapeEnd, lines.end());
    for (int profile = 0; profile < 5; ++profile) {
        const std::string number = "100 " + std::to_string(profile);
        EXPECT_EQ(std::count(lines.begin(), tapeEnd, "O" + number), 1) << "profile " << profile;
        EXPECT_EQ(std::count(tapeEnd, lines.end(), "O" + number), 1)
            << "the second pass, profile " << profile;
        EXPECT_EQ(std::count_if(lines.begin(), tapeEnd,
                                [&](const std::string& line) { return Words(line) == "M98 P" + number; }),
                  6)
            << "once for each copy";
    }
    EXPECT_EQ(std::count(lines.begin(), tapeEnd, "O9000 (marks of one part)"), 1);
    // the fly-off puts the torch out once more than the end of the cut does: 2 x 5 profiles in two passes
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& line) { return Words(line) == "M05"; }),
              20);
    // the cut list: 6 copies of 5 profiles, gathered call by call
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "(cut 30 is profile 5 of copy 6)"), 1);
}

TEST(SubProgramTable, AsksTheOperatorAndProposesWhatTheJobKeeps)
{
    const TempFolder station;
    CopyStation(station, "PPR_SubPrograms.ini");
    std::string gasOptions;
    std::string gasProposed;
    const auto operatorAnswers = [&] {
        gasOptions = AppState.PprInput[2].Options;
        gasProposed = AppState.PprInput[2].Value;
        AppState.PprInput[2].Value = "AIR";
        AppState.PprInput[5].Value = "4711";
    };
    std::vector<std::string> lines = CutSample(station, "FLANGE", operatorAnswers);
    EXPECT_EQ(gasOptions, "O2|N2|AIR");
    EXPECT_EQ(gasProposed, "O2");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "(order 4711, plate 10 mm, gas AIR)"), 1);

    station.Write("NEST/FLANGE.nst", "[0004]\r\nV2=N2\r\n");
    lines = CutSample(station, "FLANGE", operatorAnswers);
    EXPECT_EQ(gasProposed, "N2");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "(order 4711, plate 10 mm, gas AIR)"), 1);
}

TEST(PlainTable, MarksEveryCopyAndListsTheLimits)
{
    const TempFolder station;
    CopyStation(station, "PPR.ini");
    const std::vector<std::string> lines = CutSample(station, "BRACKET");
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& line) { return Words(line) == "M71"; }),
              6 * 2);
    // the limits stand behind the cuts, one line a copy, in the order of the copies
    const auto head = std::find(lines.begin(), lines.end(), "(limits of the parts)");
    ASSERT_GE(lines.end() - head, 1 + 6 + 2);
    for (int copy = 1; copy <= 6; ++copy) {
        EXPECT_EQ((head + copy)->rfind("(part " + std::to_string(copy) + " from ", 0), 0U) << *(head + copy);
    }
    EXPECT_EQ(lines.back(), "%");
}

TEST(PlainTable, WritesWhatIsoInReadsBack)
{
    const TempFolder station;
    CopyStation(station, "PPR.ini");
    CutSample(station, "BRACKET");
    EnterInputScreen();
    ASSERT_TRUE(OpenImport(ImportKind::Program, station.Path + "/NC/BRACKET.nc"));
    EXPECT_EQ(AppState.ProfileCount, 6 * 5);
    // the drawing's own length, and for each cut a lead of 2 with a quarter arc of radius 1; three decimals a move
    const double outline = 330.0 + 5 * (Pi / 2 * 10) + Pi / 2 * 15;
    const double inner = 2 * (2 * Pi * 4.5) + 2 * 20 + 2 * Pi * 5.5 + 4 * 20;
    const double leads = 5 * (2.0 + Pi / 2);
    EXPECT_NEAR(AppState.TotalCutLength, 6 * (outline + inner + leads), 0.5);
}
} // namespace
