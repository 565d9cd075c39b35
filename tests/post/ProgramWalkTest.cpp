// The generator: file names, the frame of a program, what a fault leaves, the simulation, and what holds for any part.
#include "CaseFile.h"
#include "PostStation.h"
#include "RandomCase.h"

#include "config/Korvanta_Utility.h"
#include "platform/Fault.h"
#include "profile/Korvanta_ProfileCut.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace
{
constexpr std::string_view Diagonal = "line 0 0 40 20\nopen\n";
constexpr std::string_view OneCopy =
    "fields kerf=0 gapx=0 gapy=0\nlayout kind=0 columns=1 rows=1 gapx=0 gapy=0\n";

std::string DiagonalOnce()
{
    return std::string(Diagonal) + std::string(OneCopy);
}

TEST(ProgramFileName, CutsFoldersAndAllFromTheFirstPoint)
{
    const PostStation station;
    struct Case {
        const char* Extension;
        const char* Name;
        const char* File;
    };
    const Case cases[] = {
        {"", "JOB", "JOB"},
        {"", "A.B.nst", "A"},
        {"cnc", "A.B.nst", "A.cnc"},
        {" tap ", "C:\\X.Y\\PLATE.nst", "PLATE.tap"},
        {"nc", "/home/x.y/PLATE", "PLATE.nc"},
        {"nc", "PLATE 1", "PLATE 1.nc"},
    };
    for (const Case& c : cases) {
        station.WriteTable(std::string("[PartProgram_CONFIG]\nFILE_EXTENSION=\"") + c.Extension + "\"\n");
        EXPECT_EQ(ProgramFileName(c.Name), c.File);
    }
}

TEST(GenerateProgram, AnEmptyJobWritesTheFrames)
{
    const PostStation station(
        "[PartProgram_BEGIN]\nLINE1=begin\n[MainProgram_BEGIN]\nLINE1=main\n"
        "[PartProgram_PartHead]\nLINE1=head *part_nr\n[PartProgram_StartCUT]\nLINE1=cut\n"
        "[PartProgram_PartEnd]\nLINE1=end [*tracks_list]\n"
        "[MainProgram_END]\nLINE1=main end\n[PartProgram_END]\nLINE1=end of all\n");
    AppState.NestKind = 1;
    AppState.CountX = 2;
    AppState.CountY = 1;
    GenerateProgram("EMPTY");
    EXPECT_EQ(station.Program("EMPTY"),
              (Lines{"begin", "main", "head 1", "end []", "head 2", "end []", "main end", "end of all"}));
    EXPECT_EQ(AppState.ProgramCopies, 2);
    AppState.CountX = AppState.CountY = 0;
    GenerateProgram("EMPTY");
    EXPECT_EQ(station.Program("EMPTY"), (Lines{"begin", "main", "main end", "end of all"}));
    EXPECT_EQ(AppState.ProgramCopies, 0);
    EXPECT_EQ(AppState.ProgramLines, 4);
}

TEST(GenerateProgram, NestNumbersComeFromTheFieldsAndTheLastDraw)
{
    const PostStation station("[PartProgram_CONFIG]\nLINENUMBER=OFF\n");
    LoadCase(std::string(Diagonal) + "fields kerf=1.5 gapx=5 gapy=x\n"
                                     "layout kind=1 columns=2 rows=1 gapx=100 gapy=0\n");
    GenerateProgram("P");
    // origin 1.5 + 2.5 and 1.5 + 0; the pitch is the part and the gap in force, whatever the field says
    EXPECT_EQ(station.Program("P"), (Lines{"G01 X44.000 Y21.500 ", "G01 X184.000 Y21.500 "}));
}

TEST(GenerateProgram, LargestCoordinatesAreNeverReset)
{
    const PostStation station(
        "[PartProgram_CONFIG]\nLINENUMBER=OFF\n[PartProgram_END]\nLINE1=*xsheet *ysheet\n");
    LoadCase(DiagonalOnce());
    GenerateProgram("P");
    EXPECT_EQ(station.Program("P").back(), "40 20");
    LoadCase("line 0 0 10 50\nopen\n" + std::string(OneCopy));
    GenerateProgram("P");
    EXPECT_EQ(station.Program("P").back(), "40 50") << "the larger job leaves its mark";
}

TEST(GenerateProgram, ProgressAdvancesByTheCopy)
{
    const PostStation station;
    LoadCase(std::string(Diagonal) + "layout kind=1 columns=3 rows=1 gapx=1 gapy=1\n");
    GenerateProgram("P");
    EXPECT_EQ(Screen.Calls,
              (Lines{"progress range 3", "progress 1", "progress 2", "progress 3", "progress off"}));
    Screen.Calls.clear();
    station.WriteTable("[PartProgram_CONFIG]\nSUBPROGRAMS=YES\n");
    GenerateProgram("P");
    EXPECT_EQ(Screen.Calls,
              (Lines{"progress range 3", "progress 1", "progress 2", "progress 3", "progress off"}))
        << "passes of the part's sub-program are no copies";
}

TEST(GenerateProgram, PassesByProfileAdvanceTheProgressToo)
{
    const PostStation station("[PartProgram_CONFIG]\nSUBPROGRAMS=YES\nSUBPROGRAMSBYPROFILE=YES\n");
    LoadCase(DiagonalOnce());
    GenerateProgram("P");
    // one copy of calls, then the bodies twice; the screen ignores what lies beyond the range
    EXPECT_EQ(Screen.Calls,
              (Lines{"progress range 1", "progress 1", "progress 2", "progress 3", "progress off"}));
}

TEST(GenerateProgram, AStaggeredNestMayPassTheProgressRange)
{
    const PostStation station("[PartProgram_CONFIG]\nLINENUMBER=OFF\n");
    LoadCase(std::string(Diagonal) + "fields kerf=0 gapx=0 gapy=0 sheetx=200 sheety=200\n"
                                     "layout kind=3 columns=1 rows=1 gapx=0 gapy=0\n");
    GenerateProgram("P");
    // two rows for the one counted; the second runs back, shifted by 20 and up by 20 * 0.866
    EXPECT_EQ(station.Program("P"), (Lines{"G01 X40.000 Y20.000 ", "G01 X60.000 Y37.320 "}));
    EXPECT_EQ(Screen.Calls, (Lines{"progress range 1", "progress 1", "progress 2", "progress off"}));
}

TEST(GenerateProgram, AProgressRangeBeyondItsWidthIsTheLargest)
{
    const PostStation station;
    LoadCase(std::string(Diagonal) + "fields sheetx=10 sheety=10\n"
                                     "layout kind=3 columns=2147483647 rows=2147483647 gapx=0 gapy=0\n");
    GenerateProgram("P"); // nothing fits
    EXPECT_EQ(Screen.Calls, (Lines{"progress range 2147483647", "progress off"}));
    EXPECT_EQ(AppState.ProgramCopies, 0);
}

/// A circle of radius 5 around 20, 10, cut counter-clockwise from 25, 10; the straight lead of 2 comes from 23, 10.
std::string CircleOnce()
{
    return "sense 1\narc 25 10 25 10 20 10 5\nclose\nlead 1 in=2,0 out=0,0 at=0 side=1\n" +
           std::string(OneCopy);
}

TEST(GenerateProgram, FlyOffStandsAheadOfASeamAtTheSameMove)
{
    const PostStation station("[PartProgram_CONFIG]\nLINENUMBER=OFF\nFLYOFFDIM=100\n[PartProgram_FLYOFF]\n"
                              "LINE1=fly\n[PartProgram_EndLeadIn]\nLINE1=seam\n");
    LoadCase(CircleOnce());
    GenerateProgram("P"); // too short to be split: the whole turn is the fly-off move
    EXPECT_EQ(station.Program("P"),
              (Lines{"G01 G41 X25.000 Y10.000 ", "fly", "seam", "G03 X25.000 Y10.000 I20.000 J10.000"}));
}

TEST(GenerateProgram, IncrementalSubProgramsLeaveArcCentresAlone)
{
    const PostStation station;
    struct Case {
        const char* Centre;
        const char* Arc;
    };
    for (const Case& c :
         {Case{"NO", "G03 X0.000 Y0.000 I20.000 J10.000"}, Case{"NONE", "G03 X0.000 Y0.000 I20.000 J10.000"},
          Case{"1", "G03 X0.000 Y0.000 I-5.000 J0.000"}}) {
        station.WriteTable("[PartProgram_CONFIG]\nLINENUMBER=OFF\nSUBPROGRAMS=YES\nINC_CENTER=" +
                           std::string(c.Centre) + "\n[PartProgram_StartCUT]\nLINE1=*RAPID_MOVE\n");
        LoadCase(CircleOnce());
        GenerateProgram("P");
        const Lines lines = station.Program("P"); // no rapid: the call leads to 23, 10
        ASSERT_EQ(lines.size(), 4U) << c.Centre;
        EXPECT_EQ(lines[0].substr(0, 15), "G01 G41 X2.000 ");
        EXPECT_EQ(lines[1], c.Arc) << c.Centre;
        EXPECT_EQ(lines[3], c.Arc) << c.Centre;
    }
}

TEST(GenerateProgram, CallsMoveByTheLowestLeadBelowZeroOnly)
{
    const PostStation station(
        "[PartProgram_CONFIG]\nLINENUMBER=OFF\nSUBPROGRAMS=YES\nSUBPROGRAMSBYPROFILE=YES\n"
        "[SubProgram_CALL]\nLINE1=*RAPID_MOVE\n[PartProgram_LinearMOVE]\nGCODE=move\n");
    const auto calls = [&](const std::string& part) {
        LoadCase(part + std::string(OneCopy));
        GenerateProgram("P");
        Lines lines = station.Program("P");
        std::erase_if(lines, [](const std::string& line) { return line.starts_with("move"); });
        return lines;
    };
    // leads begin at -1, 4 and at 30, -5: each low side counts by itself, whichever profile comes last
    EXPECT_EQ(calls("line 2 8 8 16\nopen\nline 30 0 30 40\nopen\n"
                    "lead 1 in=5,0 out=0,0 at=0 side=1\nlead 2 in=5,0 out=0,0 at=0 side=1\n"),
              (Lines{"G00 X0.000 Y9.000", "G00 X31.000 Y0.000"}));
    EXPECT_EQ(calls("line 30 5 30 40\nopen\nlead 1 in=3,0 out=0,0 at=0 side=1\n"),
              Lines{"G00 X30.000 Y2.000"});
}

TEST(GenerateProgram, MarksStandInEachPassOfTheSubPrograms)
{
    const PostStation station("[PartProgram_CONFIG]\nLINENUMBER=OFF\nSUBPROGRAMS=YES\n"
                              "[SubProgram_BEGIN]\nLINE1=sub\n[PartProgram_StartPOINT]\nLINE1=marks\n"
                              "[PartProgram_POINT]\nLINE1=*RAPID_MOVE\n[SubProgram_CALL]\nLINE1=call\n");
    LoadCase(std::string(Diagonal) + "point 10 12.5\nfields kerf=5 gapx=0 gapy=0\n"
                                     "layout kind=0 columns=1 rows=1 gapx=0 gapy=0\n");
    GenerateProgram("P");
    const std::string mark = "G00 X10.000 Y12.500";
    const std::string move = "G01 X40.000 Y20.000 ";
    EXPECT_EQ(station.Program("P"), (Lines{"call", "sub", "marks", mark, move, "sub", "marks", mark, move}));
}

TEST(GenerateProgram, TheTracksOfTheLastCopyWaitForTheirFirstUser)
{
    const PostStation station("[PartProgram_CONFIG]\nLINENUMBER=OFF\n[MainProgram_END]\n"
                              "LINE1=[*tracks_list]\n[PartProgram_END]\nLINE1=[*tracks_list]\n");
    LoadCase("line 0 0 40 20\nopen\nline 0 10 40 30\nopen\n"
             "layout kind=1 columns=2 rows=1 gapx=0 gapy=0\n");
    GenerateProgram("P");
    const Lines lines = station.Program("P");
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_EQ(lines[4], "[3,4]");
    EXPECT_EQ(lines[5], "[]");
}

TEST(GenerateProgram, AWorkingTable)
{
    const PostStation station(
        "[PartProgram_CONFIG]\nFILE_EXTENSION=cnc\nLINENUMBER=ON\nLINENUMBER_START=100\nLINENUMBER_STEP=5\n"
        "X_AXIS=X\nY_AXIS=Y\nI_AXIS=I\nJ_AXIS=J\nRADIUS=NULL\nSPACEBETWEENCODE=1\nINC_CENTER=YES\n"
        "SUBPROGRAMS=NO\nFLYOFFDIM=0\n[PartProgram_INPUT]\n#V1=Plate thickness,D,,10\n"
        "#V2=Gas,T,O2|N2|AIR,O2\n[PartProgram_BEGIN]\nLINE1=(*filename)\nLINE2=_G90 G71\nLINE3=//END\n"
        "[PartProgram_StartCUT]\nLINE1=_*RAPID_MOVE\nLINE2=_M07 (*profile_nr)\n"
        "[PartProgram_EndCUT]\nLINE1=_M08\n[PartProgram_END]\nLINE1=_M30\n");
    LoadCase(CircleOnce());
    GenerateProgram("JOB.nst");
    EXPECT_EQ(station.Program("JOB.cnc"),
              (Lines{"(JOB.cnc)", "N100 G90 G71", "N105 G00 X23.000 Y10.000", "N110 M07 (1)",
                     "N115 G01 G41 X25.000 Y10.000 ", "N120 G03 X25.000 Y10.000 I-5.000 J0.000", "N125 M08",
                     "N130 M30"}));
    EXPECT_EQ(AppState.PprInput[1].Value, "10");
    EXPECT_EQ(AppState.PprInput[2].Value, "O2");
}

TEST(GenerateProgram, LeavesTheHandOverNoteWhenAsked)
{
    const PostStation station("[PartProgram_CONFIG]\nFILE_EXTENSION=cnc\n");
    LoadCase(DiagonalOnce());
    station.Folder.Write("Korvanta.ini", "[CONFIG]\r\nFTBLCNC=yes\r\n");
    GenerateProgram("plate");
    EXPECT_FALSE(station.Folder.Holds("NC/ftblcnc.dat"));
    station.Folder.Write("Korvanta.ini", "[CONFIG]\r\nFTBLCNC=YES\r\n");
    GenerateProgram("plate");
    EXPECT_EQ(station.Folder.Read("NC/ftblcnc.dat"), "PLATE.CNC\r\n");
}

TEST(GenerateProgram, AFaultLeavesThePartOfTheProgramOnly)
{
    const PostStation station;
    LoadCase(DiagonalOnce());
    GenerateProgram("P");
    ASSERT_TRUE(station.Folder.Holds("NC/P"));
    station.WriteTable("[PartProgram_BEGIN]\nLINE1=begin\n[PartProgram_END]\nLINE1=x\nLINE2=#V9\n");
    Screen.Calls.clear();
    EXPECT_NE(FaultOf([] { GenerateProgram("P"); }).find("[PartProgram_END] LINE2: #V9"), std::string::npos);
    EXPECT_FALSE(station.Folder.Holds("NC/P")) << "the old program is gone";
    EXPECT_EQ(SplitLines(station.Folder.Read("NC/P.part")),
              (Lines{"begin", "N10 G01 X40.000 Y20.000 ", "x"}));
    EXPECT_EQ(AppState.ProgramPath, "");
    EXPECT_EQ(Screen.Calls, (Lines{"progress range 1", "progress 1"})) << "the bar stays on";
    station.WriteTable("");
    GenerateProgram("P");
    EXPECT_EQ(station.Program("P"), Lines{"N10 G01 X40.000 Y20.000 "}) << "the next run is a whole one";
}

TEST(GenerateProgram, NamesNothingAndNoNumbersAreFaults)
{
    const PostStation station;
    LoadCase(DiagonalOnce());
    FaultOf([] { GenerateProgram(".nst"); });
    AppState.PathOriginSet = FlagOn;
    AppState.PathOriginX = std::nan("");
    FaultOf([] { GenerateProgram("P"); });
    EXPECT_FALSE(station.Folder.Holds("NC/P"));
}

TEST(GenerateProgram, ACutOfArcsOnlyLeavesItsWordAndTextBehind)
{
    // Neither the pending text nor the compensation finds a linear move; the next cut starts anew.
    const PostStation station(
        "[PartProgram_CONFIG]\nLINENUMBER=OFF\n[PartProgram_FirstMOVE]\nEND_LINE=F#V1\n");
    LoadCase(
        "sense 1\narc 30 10 30 10 20 10 10\nclose\nline 0 0 40 0\nline 40 0 40 20\nline 40 20 0 0\nclose\n"
        "lead 1 in=0,2 out=0,0 at=0 side=1\nlead 2 in=5,0 out=0,0 at=10 side=-1\n" +
        std::string(OneCopy));
    AppState.PprInput[1].Value = "9";
    GenerateProgram("P");
    const Lines lines = station.Program("P");
    ASSERT_GE(lines.size(), 4U);
    EXPECT_EQ(lines[0], "G03 X30.000 Y10.000 I28.000 J10.000");
    EXPECT_EQ(lines[1], "G03 X30.000 Y10.000 I20.000 J10.000");
    EXPECT_EQ(lines[2], "G01 G41 X10.000 Y0.000 F9");
    EXPECT_EQ(lines[3], "G01 X40.000 Y0.000 ");
}

TEST(GenerateProgram, WithoutCompensationThereIsNoWord)
{
    const PostStation station(
        "[PartProgram_StartCUT]\nLINE1=_*KERF_ON\n[PartProgram_EndCUT]\nLINE1=_*KERF_OFF\n");
    LoadCase("sense 1\nline 0 0 0 20\nline 0 20 40 20\nline 40 20 0 0\nclose\nnokerf\n" +
             std::string(OneCopy));
    GenerateProgram("P");
    for (const std::string& line : station.Program("P")) {
        EXPECT_EQ(line.find("G4"), std::string::npos) << line;
    }
}

// --- the simulation -------------------------------------------------------------------------------------------

TEST(Simulation, WalksWithoutAFile)
{
    const PostStation station(
        "[PartProgram_CONFIG]\nSUBPROGRAMS=YES\n[PartProgram_INPUT]\n#V1=a,D,,b\n"
        "[PartProgram_EndCUT]\nCOLLECTION1=*profile_nr\n[PartProgram_PartHead]\nLINE1=*KERF_ON\n");
    LoadCase(std::string(Diagonal) + "layout kind=1 columns=2 rows=1 gapx=0 gapy=0\n");
    AppState.ProgramPath = "before";
    AppState.ProgramLines = 7;
    AppState.KerfState = KerfRight;
    GenerateProgram("SIMULA");
    EXPECT_FALSE(station.Folder.Holds("NC"));
    EXPECT_EQ(AppState.CollectionBuffer, (Lines{"1", "2"})) << "each copy, no sub-programs";
    EXPECT_EQ(AppState.KerfState, KerfOff) << "the state moves as in a program";
    EXPECT_EQ(AppState.SimRunning, FlagOff);
    EXPECT_EQ(AppState.ProgramPath, "before");
    EXPECT_EQ(AppState.ProgramLines, 7);
    EXPECT_TRUE(Screen.Calls.empty());
    GenerateProgram("SIMULA");
    EXPECT_EQ(AppState.CollectionBuffer.size(), 2U) << "nothing piles up from run to run";
}

TEST(Simulation, KnowsNoLowCorner)
{
    const PostStation station;
    LoadCase("line 2 8 8 16\nopen\nlead 1 in=5,0 out=0,0 at=0 side=1\n" + std::string(OneCopy));
    GenerateProgram("P");
    EXPECT_NEAR(AppState.ProgramMinX, -1.0, 1e-9);
    GenerateProgram("SIMULA");
    EXPECT_EQ(AppState.ProgramMinX, 0.0);
    EXPECT_EQ(AppState.ProgramMinY, 0.0);
}

TEST(Simulation, IsNamedExactly)
{
    const PostStation station;
    LoadCase(DiagonalOnce());
    GenerateProgram("simula");
    EXPECT_TRUE(station.Folder.Holds("NC/simula"));
}

TEST(Simulation, AStopRequestOfAProgramIsNone)
{
    const PostStation station;
    LoadCase(std::string(Diagonal) + "layout kind=1 columns=2 rows=1 gapx=0 gapy=0\n");
    AppState.SimStop = FlagOn;
    GenerateProgram("P");
    EXPECT_EQ(station.Program("P").size(), 2U);
}

// --- what holds for any part ------------------------------------------------------------------------------------

/// Number behind `address` in a motion line; a case fails when there is none that is finite.
double WordOf(const std::string& line, char address)
{
    const std::size_t at = line.find(std::string(" ") + address);
    EXPECT_NE(at, std::string::npos) << line;
    std::size_t used = 0;
    const std::string rest = line.substr(std::min(at + 2, line.size()));
    const double value = std::stod(rest, &used);
    EXPECT_TRUE(used == rest.size() || rest[used] == ' ') << line;
    EXPECT_TRUE(std::isfinite(value)) << line;
    return value;
}

struct Box {
    double MinX = 1e37;
    double MinY = 1e37;
    double MaxX = -1e37;
    double MaxY = -1e37;

    void Add(double x, double y)
    {
        MinX = std::min(MinX, x);
        MinY = std::min(MinY, y);
        MaxX = std::max(MaxX, x);
        MaxY = std::max(MaxY, y);
    }
};

/// Reads a program back: the box of each copy, of which the arcs are sampled.
struct ProgramReader {
    double X = 0.0;
    double Y = 0.0;
    Box Copy;
    bool WordSeen = false; ///< a compensation word since the cut began

    void Arc(const std::string& line, bool left)
    {
        const double endX = WordOf(line, 'X');
        const double endY = WordOf(line, 'Y');
        const double centreX = WordOf(line, 'I');
        const double centreY = WordOf(line, 'J');
        const double radius = std::hypot(X - centreX, Y - centreY);
        const double from = std::atan2(Y - centreY, X - centreX);
        double sweep = std::atan2(endY - centreY, endX - centreX) - from;
        if (std::hypot(endX - X, endY - Y) < Tolerance) {
            sweep = left ? 2 * Pi : -2 * Pi;
        } else if (left) {
            sweep += sweep < 0.0 ? 2 * Pi : 0.0;
        } else {
            sweep -= sweep > 0.0 ? 2 * Pi : 0.0;
        }
        constexpr int steps = 720;
        for (int i = 0; i <= steps; ++i) {
            const double angle = from + sweep * i / steps;
            Copy.Add(centreX + radius * std::cos(angle), centreY + radius * std::sin(angle));
        }
        X = endX;
        Y = endY;
    }

    void Move(const std::string& line)
    {
        if (line.starts_with("G02") || line.starts_with("G03")) {
            Arc(line, line.starts_with("G03"));
            return;
        }
        X = WordOf(line, 'X');
        Y = WordOf(line, 'Y');
        Copy.Add(X, Y);
    }
};

TEST(AnyProgram, MovesAreNumbersWithinTheLimitsAndWordsStayInTheirCut)
{
    const PostStation station(
        "[PartProgram_CONFIG]\nLINENUMBER=OFF\n[PartProgram_StartCUT]\nLINE1=*RAPID_MOVE\n"
        "[PartProgram_EndCUT]\nLINE1=*KERF_OFF\n[PartProgram_PartEnd]\n"
        "COLLECTION1=*part_xmin *part_ymin *part_xmax *part_ymax\n"
        "[MainProgram_END]\nLINE1=*write_collection\n");
    std::mt19937 random(77);
    std::size_t copies = 0;
    for (int round = 0; round < 150; ++round) {
        const std::string text = RandomCase(random);
        GenerateProgram(LoadCase(text));
        ProgramReader reader;
        std::vector<Box> boxes;
        std::int64_t cuts = 0;
        for (const std::string& line : station.Program("JOB")) {
            if (line.starts_with("G00")) {
                reader.WordSeen = false;
                reader.Move(line);
            } else if (line.starts_with("G0")) {
                const bool word = line.find(" G4") != std::string::npos;
                ASSERT_FALSE(word && reader.WordSeen) << line << "\n" << text;
                reader.WordSeen = reader.WordSeen || word;
                reader.Move(line);
            } else if (line == "G40") {
                if (++cuts % AppState.ProfileCount == 0) {
                    boxes.push_back(reader.Copy);
                    reader.Copy = Box();
                }
            } else {
                ASSERT_FALSE(boxes.empty()) << line;
                std::istringstream limits(line);
                Box told;
                ASSERT_TRUE(limits >> told.MinX >> told.MinY >> told.MaxX >> told.MaxY) << line;
                constexpr double oneDecimal = 0.11; // limits have one decimal, cut off
                EXPECT_NEAR(told.MinX, boxes.front().MinX, oneDecimal) << text;
                EXPECT_NEAR(told.MinY, boxes.front().MinY, oneDecimal) << text;
                EXPECT_NEAR(told.MaxX, boxes.front().MaxX, oneDecimal) << text;
                EXPECT_NEAR(told.MaxY, boxes.front().MaxY, oneDecimal) << text;
                boxes.erase(boxes.begin());
                ++copies;
            }
        }
        ASSERT_TRUE(boxes.empty());
        ASSERT_EQ(cuts, AppState.ProgramCopies * AppState.ProfileCount);
        ASSERT_EQ(AppState.KerfState, KerfOff);
    }
    EXPECT_GT(copies, 300U);
}
} // namespace
