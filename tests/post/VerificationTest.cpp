// A program read back: the right one passes, and each kind of damage is found and named. Programs are damaged behind the back
// of the sums that only a file of the same run can have, so that it is the comparison that finds them.
#include "post/Verification.h"
#include "CaseFile.h"
#include "PostStation.h"
#include "RandomCase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using testing::ElementsAre;
using testing::HasSubstr;

namespace
{
const std::string Table = "[PartProgram_CONFIG]\nINC_CENTER=YES\nLINENUMBER=OFF\n"
                          "[PartProgram_POINT]\nLINE1=*RAPID_MOVE\nLINE2=M71\n"
                          "[PartProgram_StartCUT]\nLINE1=*RAPID_MOVE\nLINE2=M03\n"
                          "[PartProgram_EndCUT]\nLINE1=M05\nLINE2=*KERF_OFF\n";

/// A plate of 100 x 50 run clockwise, with a hole of radius 10 about 50, 25 run counter-clockwise. Leads of 10 and 5 stand in
/// the scrap, on the left. Two copies in a row, 120 apart; a mark at 20, 30.
const std::string Plate = "sense 1\n"
                          "arc 60 25 60 25 50 25 10\nclose\n"
                          "line 0 0 0 50\nline 0 50 100 50\nline 100 50 100 0\nline 100 0 0 0\nclose\n"
                          "lead 1 in=4,2 out=0,0 at=0 side=1\n"
                          "lead 2 in=10,5 out=8,0 at=25 side=1\n"
                          "point 20 30\n"
                          "fields kerf=0 gapx=0 gapy=0 sheetx=900 sheety=900\n"
                          "layout kind=1 columns=2 rows=1 gapx=20 gapy=0\n";

/// Its program, worked out by hand. The hole is pierced at 54, 23: lead point 60, 25, tangent up, the quarter arc of 2 about
/// 58, 25 begins at 58, 23, and 4 square to the tangent lie west of it. The outline at -15, 20: lead point 0, 25,
/// arc of 5 about -5, 25 from -5, 20. It is left square to the left, at -8, 25.
const Lines PlateProgram = {
    "G00 X20.000 Y30.000",
    "M71",
    "G00 X54.000 Y23.000",
    "M03",
    "G01 G41 X58.000 Y23.000 ",
    "G03 X60.000 Y25.000 I0.000 J2.000",
    "G03 X60.000 Y25.000 I-10.000 J0.000",
    "M05",
    "G40",
    "G00 X-15.000 Y20.000",
    "M03",
    "G01 G41 X-5.000 Y20.000 ",
    "G03 X0.000 Y25.000 I0.000 J5.000",
    "G01 X0.000 Y50.000 ",
    "G01 X100.000 Y50.000 ",
    "G01 X100.000 Y0.000 ",
    "G01 X0.000 Y0.000 ",
    "G01 X0.000 Y25.000 ",
    "G01 X-8.000 Y25.000 ",
    "M05",
    "G40",
    // the second copy, 120 to the right
    "G00 X140.000 Y30.000",
    "M71",
    "G00 X174.000 Y23.000",
    "M03",
    "G01 G41 X178.000 Y23.000 ",
    "G03 X180.000 Y25.000 I0.000 J2.000",
    "G03 X180.000 Y25.000 I-10.000 J0.000",
    "M05",
    "G40",
    "G00 X105.000 Y20.000",
    "M03",
    "G01 G41 X115.000 Y20.000 ",
    "G03 X120.000 Y25.000 I0.000 J5.000",
    "G01 X120.000 Y50.000 ",
    "G01 X220.000 Y50.000 ",
    "G01 X220.000 Y0.000 ",
    "G01 X120.000 Y0.000 ",
    "G01 X120.000 Y25.000 ",
    "G01 X112.000 Y25.000 ",
    "M05",
    "G40",
};

std::string Join(const Lines& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return text;
}

struct VerifyStation : PostStation {
    std::string Name;

    explicit VerifyStation(const std::string& table, const std::string& part) : PostStation(table)
    {
        Name = LoadCase(part);
        ProgramFile.KeepSum = false;
        GenerateProgram(Name);
    }

    std::string File() const
    {
        return "NC/" + AppState.OutputName;
    }

    /// The verification of `lines` in the place of the program, as if they were what the run wrote.
    Verification Of(const Lines& lines) const
    {
        Folder.Write(File(), Join(lines));
        AppState.ProgramLines = static_cast<std::int64_t>(lines.size());
        return VerifyProgram();
    }

    /// The first difference of PlateProgram with a line changed; a text of NUL takes the line out.
    std::string Changed(std::size_t line, const std::string& text) const
    {
        Lines lines = PlateProgram;
        lines[line - 1] = text;
        return First(lines);
    }

    std::string First(const Lines& lines) const
    {
        const Verification found = Of(lines);
        EXPECT_EQ(found.Outcome, found.Differences.empty() ? VerifyOutcome::Same : VerifyOutcome::Different);
        EXPECT_EQ(found.DifferenceCount > 0, !found.Differences.empty());
        return found.Differences.empty() ? "" : found.Differences.front();
    }
};

TEST(Verification, TheProgramOfThePlateIsThePlate)
{
    const VerifyStation station(Table, Plate);
    const Verification found = station.Of(PlateProgram);
    EXPECT_THAT(found.Differences, ElementsAre());
    EXPECT_EQ(found.Outcome, VerifyOutcome::Same);
    EXPECT_EQ(found.Copies, 2);
    EXPECT_EQ(found.Cuts, 4);
    EXPECT_EQ(found.Moves, 2 * (3 + 8));
    EXPECT_TRUE(found.Sides);
    // and it is what the generator wrote
    GenerateProgram(station.Name);
    EXPECT_EQ(station.Folder.Read(station.File()), Join(PlateProgram));
    EXPECT_EQ(VerifyProgram().Outcome, VerifyOutcome::Same);
}

TEST(Verification, NamesWhatIsWrongWithALine)
{
    const VerifyStation station(Table, Plate);
    EXPECT_EQ(station.Changed(15, "G01 X100.002 Y50.000 "),
              "copy 1, profile 2, element 2: end at X 100.000 Y 50.000 expected, X 100.002 Y 50.000 found "
              "(line 15)");
    EXPECT_EQ(
        station.Changed(27, "G02 X180.000 Y25.000 I0.000 J2.000"),
        "copy 2, profile 1, lead-in: a counter-clockwise arc expected, a clockwise arc found (line 27)");
    EXPECT_EQ(station.Changed(6, "G01 X60.000 Y25.000 I0.000 J2.000"),
              "copy 1, profile 1, lead-in: a counter-clockwise arc expected, a straight move found (line 6)");
    EXPECT_EQ(
        station.Changed(7, "G03 X60.000 Y25.000 I-10.002 J0.000"),
        "copy 1, profile 1, element 1: centre I -10.000 J 0.000 expected, I -10.002 J 0.000 found (line 7)");
    EXPECT_EQ(station.Changed(33, "G01 G42 X115.000 Y20.000 "),
              "copy 2, profile 2, lead-in: compensation left expected, compensation right found (line 33)");
    EXPECT_EQ(station.Changed(33, "G01 X115.000 Y20.000 "),
              "copy 2, profile 2, element 1: compensation left expected, no compensation found (line 35)");
    EXPECT_EQ(
        station.Changed(19, "G01 X-8.000 Y25.002 "),
        "copy 1, profile 2, lead-out: end at X -8.000 Y 25.000 expected, X -8.000 Y 25.002 found (line 19)");
    EXPECT_EQ(station.Changed(24, "G00 X174.000 Y23.002"),
              "copy 2, profile 1: pierced at X 174.000 Y 23.000 expected, "
              "X 174.000 Y 23.002 found (line 26)");
    EXPECT_EQ(station.Changed(9, "M09"), "behind copy 1, profile 1: the rapid has compensation (line 10)");
    EXPECT_EQ(station.Changed(42, "M09"),
              "behind copy 2, profile 2: compensation isn't ended up to the end of the program");
    EXPECT_EQ(station.Changed(22, "G00 X140.000 Y30.002"),
              "copy 2, mark 1: X 140.000 Y 30.000 expected, X 140.000 Y 30.002 found (line 22)");
    EXPECT_EQ(station.Changed(4, "M04"),
              "M3 expected, none found between the rapid and the first move of copy 1, profile 1 (line 5)");
    EXPECT_EQ(station.Changed(41, "M04"),
              "M5 expected, none found behind the last move of copy 2, profile 2 (line 40)");
    EXPECT_EQ(station.Changed(1, "G91 G00 X20.000 Y30.000"),
              "ahead of the first cut: the rapid is read as increments (G91) (line 1)");
    EXPECT_EQ(station.Changed(4, "M03 G91"),
              "copy 1, profile 1, lead-in: its coordinates are read as increments (G91) (line 5)");
    EXPECT_EQ(
        station.Changed(15, "G01 Xnan Y50.000 "),
        "copy 1, profile 2, element 2: end at X 100.000 Y 50.000 expected, X 0.000 Y 50.000 found (line 15)");
}

TEST(Verification, ANumberMayLackWhatIsCutOffAndNoMore)
{
    const VerifyStation station(Table, Plate);
    EXPECT_EQ(station.Changed(15, "G01 X99.999 Y50.000 "), "");
    EXPECT_THAT(station.Changed(15, "G01 X99.998 Y50.000 "), HasSubstr("end at X 100.000 Y 50.000 expected"));
    EXPECT_THAT(station.Changed(15, "G01 X100.001 Y50.000 "),
                HasSubstr("end at X 100.000 Y 50.000 expected"));
    // below zero it is cut towards zero, too
    EXPECT_EQ(station.Changed(19, "G01 X-7.999 Y25.000 "), "");
    EXPECT_THAT(station.Changed(19, "G01 X-8.001 Y25.000 "), HasSubstr("end at X -8.000 Y 25.000 expected"));
}

TEST(Verification, ACircleMustNotShrinkToItsJoint)
{
    const VerifyStation station(Table, Plate);
    // Each number may be a text of its own place, but from 24.999 to 25.000 a control turns by 0.001 in 10 and not once
    // round.
    Lines lines = PlateProgram;
    lines[5] = "G03 X60.000 Y24.999 I0.000 J2.000";
    EXPECT_EQ(station.First(lines),
              "copy 1, profile 1, element 1: turn of 360.000 expected, 0.005 degrees found (line 7)");
    lines = PlateProgram;
    lines[6] = "G03 X60.000 Y24.999 I-10.000 J0.000"; // all but 0.001 of it
    EXPECT_EQ(station.First(lines), "");
}

/// What is left of an arc behind a lead point at its very end is too short to be an arc.
TEST(Verification, TheRestOfAnArcThatIsShorterThanTheToleranceIsStraight)
{
    // Clockwise, 100 and a half turn of 25 about 100, 25 long up to the corner at 100, 0.
    const VerifyStation station(Table, "sense 1\nline 0 50 100 50\narc 100 50 100 0 100 25 -25\n"
                                       "line 100 0 0 0\nline 0 0 0 50\nclose\n"
                                       "lead 1 in=5,0 out=0,0 at=178.5395 side=1\n"
                                       "fields kerf=0 gapx=0 gapy=0 sheetx=900 sheety=900\n");
    const Lines lines = SplitLines(station.Folder.Read(station.File()));
    ASSERT_GT(lines.size(), 4U);
    EXPECT_EQ(lines[3], "G01 X100.000 Y0.000 ");
    EXPECT_EQ(station.Of(lines).Outcome, VerifyOutcome::Same);
    Lines arc = lines;
    arc[3] = "G02 X100.000 Y0.000 I0.000 J25.000";
    EXPECT_EQ(station.Of(arc).Outcome, VerifyOutcome::Different);
}

TEST(Verification, NamesMovesThatAreMissingOrTooMany)
{
    const VerifyStation station(Table, Plate);
    Lines lines = PlateProgram;
    lines.erase(lines.begin() + 18);
    EXPECT_EQ(station.First(lines),
              "copy 1, profile 2, lead-out: it is missing; 8 moves expected, 7 found (line 18)");
    lines = PlateProgram;
    lines.erase(lines.begin() + 15);
    EXPECT_EQ(station.First(lines),
              "copy 1, profile 2, element 3: end at X 100.000 Y 0.000 expected, X 0.000 Y 0.000 "
              "found; 8 moves expected, 7 found (line 16)");
    lines = PlateProgram;
    lines.insert(lines.begin() + 19, "G01 X-9.000 Y25.000");
    EXPECT_EQ(station.First(lines),
              "copy 1, profile 2: a move too many; 8 moves expected, 9 found (line 20)");
}

TEST(Verification, NamesCutsThatAreMissingTwiceOrSwapped)
{
    const VerifyStation station(Table, Plate);
    const auto hole = PlateProgram.begin() + 2;
    const auto outline = PlateProgram.begin() + 9;
    const auto second = PlateProgram.begin() + 21;
    Lines lines(PlateProgram.begin(), second);
    EXPECT_EQ(station.First(lines), "copy 2, profile 1: it is missing, the program has no further cut");
    EXPECT_EQ(station.Of(lines).DifferenceCount, 2);

    lines = {second, PlateProgram.end()};
    EXPECT_EQ(station.First(lines),
              "copy 1, mark 1: X 20.000 Y 30.000 expected, X 140.000 Y 30.000 found (line 1)");

    lines = PlateProgram;
    lines.insert(lines.begin() + 9, hole, outline);
    EXPECT_EQ(station.First(lines),
              "copy 1, profile 2: pierced at X -15.000 Y 20.000 expected, X 54.000 Y 23.000 "
              "found (line 12)");
    EXPECT_EQ(station.Of(lines).Differences.back(),
              "the program holds 1 cuts too many, the first from X 105.000 Y 20.000 (line 40)");

    lines = PlateProgram; // the outline ahead of the hole: the part falls before it is finished
    std::rotate(lines.begin() + 2, lines.begin() + 9, lines.begin() + 21);
    EXPECT_EQ(station.First(lines),
              "copy 1, profile 1: pierced at X 54.000 Y 23.000 expected, X -15.000 Y 20.000 "
              "found (line 5)");
}

TEST(Verification, TheTorchIsLitBehindTheRapidAndPutOutAheadOfTheNext)
{
    const VerifyStation station(Table, Plate);
    Lines lines = PlateProgram; // lit, then the rapid
    std::swap(lines[9], lines[10]);
    EXPECT_THAT(
        station.Of(lines).Differences,
        ElementsAre("no M3 expected, one found behind the last move of copy 1, profile 1 (line 7)",
                    "M3 expected, none found between the rapid and the first move of copy 1, profile 2 "
                    "(line 12)"));
    lines = PlateProgram; // out ahead of the lead-out
    std::swap(lines[18], lines[19]);
    EXPECT_THAT(station.Of(lines).Differences,
                ElementsAre("no M5 expected, one found between the moves of copy 1, profile 2",
                            "M5 expected, none found behind the last move of copy 1, profile 2 (line 20)"));
    lines = PlateProgram; // out again before the first move
    lines.insert(lines.begin() + 11, "M05");
    EXPECT_THAT(
        station.Of(lines).Differences,
        ElementsAre("no M5 expected, one found between the rapid and the first move of copy 1, profile 2 "
                    "(line 13)"));
    lines = PlateProgram; // lit at the mark
    lines[1] = "M03";
    EXPECT_THAT(
        station.Of(lines).Differences,
        ElementsAre("no M3 expected, one found ahead of the rapid to the first move of copy 1, profile 1 "
                    "(line 5)"));
}

TEST(Verification, TheFileMustBeTheOneThatWasWritten)
{
    const VerifyStation station(Table, Plate);
    ProgramFile.KeepSum = true;
    GenerateProgram(station.Name);
    ProgramFile.KeepSum = false;
    EXPECT_EQ(VerifyProgram().Outcome, VerifyOutcome::Same);

    Lines lines = PlateProgram;
    lines[1] = "M72";
    station.Folder.Write(station.File(), Join(lines));
    EXPECT_THAT(VerifyProgram().Differences,
                ElementsAre("the file isn't the one that was written: its lines differ"));
    lines = PlateProgram;
    lines.erase(lines.begin() + 1);
    station.Folder.Write(station.File(), Join(lines));
    EXPECT_THAT(VerifyProgram().Differences, ElementsAre("the file: 42 lines expected, 41 found"));
    AppState.ProgramCopies = 3;
    EXPECT_EQ(VerifyProgram().Differences.back(), "the nest: 2 copies expected, 3 found");
    AppState.ProgramPath += "X";
    EXPECT_THAT(VerifyProgram().Differences.front(), HasSubstr("can't be read"));
}

TEST(Verification, WhatTheReaderTakesForWordsIsKeptFromIt)
{
    const VerifyStation station(Table, Plate);
    Lines lines = PlateProgram;
    lines[3] = "M03 (CUT 1 X5 Y5 OF PART G00 JIG)";
    lines[10] = "M03 ; X9 G91";
    lines.insert(lines.begin() + 13, "G04 X0.5");
    lines.insert(lines.begin() + 13, "G64 P0.05");
    lines.insert(lines.begin() + 7, "G04 P2 (WAIT)");
    EXPECT_EQ(station.First(lines), "");
}

TEST(Verification, LeavesThePartAsItWas)
{
    const VerifyStation station(Table, Plate);
    AppState.ProfileTable[1].LeadPosition = 1000.0; // past the end: each look at the lead point moves it
    const auto bytes = [](const auto& table) {
        return std::string(reinterpret_cast<const char*>(table.data()), table.size() * sizeof table[0]);
    };
    const std::string records = bytes(AppState.ProfileTable);
    const std::string elements = bytes(AppState.ElementTable);
    VerifyProgram();
    EXPECT_EQ(bytes(AppState.ProfileTable), records);
    EXPECT_EQ(bytes(AppState.ElementTable), elements);
    EXPECT_EQ(AppState.ElementCount, 7);
    EXPECT_EQ(AppState.ProfileCount, 2);
}

TEST(Verification, AWrongProgramGoesOutOfUse)
{
    const VerifyStation station(Table, Plate);
    station.Folder.Write("Korvanta.ini", "[CONFIG]\nFTBLCNC=YES\n");
    station.Folder.Write("NC/ftblcnc.dat", "JOB\r\n");
    EXPECT_TRUE(WithdrawProgram());
    EXPECT_FALSE(station.Folder.Holds(station.File()));
    EXPECT_TRUE(station.Folder.Holds(station.File() + ".part"));
    EXPECT_FALSE(station.Folder.Holds("NC/ftblcnc.dat"));
    EXPECT_FALSE(WithdrawProgram());
}

// --- tables -------------------------------------------------------------------------------------------------

/// Reason why programs of a table can't be read back; empty when they can.
std::string ReasonOf(const std::string& table)
{
    const VerifyStation station(table, Plate);
    const Verification found = VerifyProgram();
    EXPECT_EQ(found.Outcome == VerifyOutcome::Unreadable, !found.Reason.empty());
    EXPECT_THAT(found.Differences, ElementsAre());
    return found.Reason;
}

/// Table with a key of a section ahead of all others, where it wins.
std::string With(const std::string& section, const std::string& key)
{
    const std::string head = "[" + section + "]\n";
    const std::size_t at = Table.find(head);
    return at == std::string::npos ? head + key + "\n" + Table
                                   : Table.substr(0, at) + head + key + "\n" + Table.substr(at + head.size());
}

TEST(Verification, TablesThatCantBeReadBackAreNamed)
{
    EXPECT_EQ(ReasonOf(Table), "");
    EXPECT_EQ(ReasonOf(With("PartProgram_CONFIG", "SUBPROGRAMS=YES")),
              "the table writes sub-programs (SUBPROGRAMS=YES), which ISO-IN doesn't call");
    EXPECT_EQ(ReasonOf(With("PartProgram_LinearMOVE", "GCODE=L")),
              "[PartProgram_LinearMOVE] GCODE=L: no motion code that ISO-IN knows (G00, G01, G02, G03)");
    EXPECT_EQ(ReasonOf(With("PartProgram_RapidMOVE", "GCODE=G40")),
              "[PartProgram_RapidMOVE] GCODE=G40: no motion code that ISO-IN knows (G00, G01, G02, G03)");
    EXPECT_EQ(
        ReasonOf(With("PartProgram_CircularMOVE", "CCW_GCODE=G13")),
        "[PartProgram_CircularMOVE] CCW_GCODE=G13: no motion code that ISO-IN knows (G00, G01, G02, G03)");
    EXPECT_EQ(ReasonOf(With("PartProgram_CONFIG", "Y_AXIS=Z")),
              "[PartProgram_CONFIG] Y_AXIS=Z: ISO-IN knows no address but Y");
    EXPECT_EQ(ReasonOf(With("PartProgram_CONFIG", "KERF_LEFT=M61")),
              "compensation word \"M61\": none that ISO-IN knows (G41, G42)");
    EXPECT_EQ(ReasonOf(""),
              "[PartProgram_StartCUT] has no *RAPID_MOVE: the program doesn't tell where its cuts begin");
}

/// The first difference that a program of a table has from the plate; empty for none.
std::string TableFault(const std::string& table)
{
    const VerifyStation station(table, Plate);
    const Verification found = VerifyProgram();
    EXPECT_NE(found.Outcome, VerifyOutcome::Unreadable) << found.Reason;
    return found.Differences.empty() ? "" : found.Differences.front();
}

TEST(Verification, TablesThatWriteAnotherPartAreFound)
{
    EXPECT_THAT(TableFault(With("PartProgram_CircularMOVE", "CCW_GCODE=G02")),
                HasSubstr("a counter-clockwise arc expected, a clockwise arc found"));
    EXPECT_THAT(TableFault(With("PartProgram_LinearMOVE", "GCODE=G00")),
                HasSubstr("the rapid has compensation"));
    EXPECT_THAT(TableFault(With("PartProgram_CONFIG", "KERF_LEFT=G42")),
                HasSubstr("compensation left expected, compensation right found"));
    EXPECT_THAT(TableFault(With("PartProgram_CONFIG", "KERF_OFF=")), HasSubstr("the rapid has compensation"));
    EXPECT_THAT(TableFault(With("PartProgram_EndLeadIn", "LINE1=G40")),
                HasSubstr("element 1: compensation left expected, no compensation found"));
    EXPECT_THAT(TableFault(With("PartProgram_StartCUT", "LINE1=*RAPID_MOVE\nLINE2=G91")),
                HasSubstr("increments (G91)"));
    EXPECT_THAT(TableFault(With("PartProgram_EndLeadIn", "LINE1=G01 X5")), HasSubstr("moves expected"));
}

/// The table with other lines in the place of one.
std::string Exchanged(std::string table, const std::string& line, const std::string& lines)
{
    return table.replace(table.find(line), line.size(), lines);
}

TEST(Verification, ModesThatAControlKeepsAreFound)
{
    // Away in increments behind each cut, and absolute again only behind the next rapid.
    EXPECT_THAT(TableFault(Exchanged(Exchanged(Table, "LINE2=M03", "LINE2=M03\nLINE3=G90"), "LINE2=*KERF_OFF",
                                     "LINE2=*KERF_OFF\nLINE3=G91 G28 Z0")),
                HasSubstr("behind copy 1, profile 1: the rapid is read as increments (G91)"));
    EXPECT_THAT(TableFault(With("PartProgram_BEGIN", "LINE1=G21 G90.1")),
                HasSubstr("its centre is read in the other way"));
    EXPECT_EQ(TableFault(With("PartProgram_BEGIN", "LINE1=G21 G91.1")), "");
}

TEST(Verification, AProgramThatEndsWithinTheNestIsFound)
{
    for (const char* end : {"%", "M30", "M02", "(end) M2"}) {
        EXPECT_EQ(TableFault(With("PartProgram_PartEnd", std::string("LINE1=") + end)),
                  "copy 2, profile 1: the program ends ahead of it")
            << end;
    }
    EXPECT_EQ(TableFault(With("PartProgram_PartEnd", "LINE1=(M30)\nLINE2=M20")), "");
    EXPECT_EQ(TableFault(With("PartProgram_BEGIN", "LINE1=%\n[PartProgram_END]\nLINE1=M30\nLINE2=%")), "");
}

TEST(Verification, WordsThatATagCompletesOrThatComeWithoutALeadInPass)
{
    EXPECT_EQ(
        TableFault(Exchanged(Table, "LINE2=M03", "LINE2=M0#V1") + "[PartProgram_INPUT]\n#V1=Torch,D,,3\n"),
        "");
    std::string part = Plate;
    part.replace(part.find("in=4,2"), 6, "in=0,0");
    const VerifyStation station(
        Exchanged(With("PartProgram_FirstMOVE", "KERF_ON=NO"), "LINE1=M05", "LINE1=M05\nLINE3=M52 P0") +
            "[PartProgram_EndLeadIn]\nLINE1=M52 P1\n",
        part);
    AppState.ProfileTable[1].LeadInLineOn = FlagOff;
    GenerateProgram(station.Name);
    EXPECT_THAT(VerifyProgram().Differences, ElementsAre());
}

TEST(Verification, TablesWithOtherWordsForTheSamePartPass)
{
    EXPECT_EQ(TableFault(With("PartProgram_CONFIG", "INC_CENTER=NO")), "");
    EXPECT_EQ(TableFault(With("PartProgram_CONFIG", "SPACEBETWEENCODE=0")), "");
    EXPECT_EQ(TableFault(With("PartProgram_CONFIG", "RADIUS=R")), "");
    EXPECT_EQ(TableFault(With("PartProgram_CONFIG", "X_AXIS=X*&U\nJ_AXIS=J*&W")), "");
    EXPECT_EQ(TableFault(With("PartProgram_CONFIG", "FLYOFFDIM=3")), "");
    EXPECT_EQ(TableFault(With("PartProgram_CONFIG", "KERF_LEFT=G41.1 D1.5\nKERF_RIGHT=G42.1 D1.5")), "");
    EXPECT_EQ(TableFault(With("PartProgram_LinearMOVE", "GCODE=G1\nINIT_LINE=G90 \nEND_LINE= F100")), "");
    EXPECT_EQ(TableFault(With("PartProgram_BEGIN", "LINE1=%PLATE XYZ\nLINE2=G21 G90 G40")), "");
    EXPECT_EQ(TableFault(With("PartProgram_EndProfileCut", "LINE1=*KERF_OFF")), "")
        << "off along the lead-out";
    EXPECT_EQ(TableFault(With("PartProgram_END", "LINE1=G00 X0 Y0\nLINE2=M30")), "");
}

TEST(Verification, ATableWithoutCompensationIsComparedWithoutSides)
{
    for (const std::string& table : {With("PartProgram_CONFIG", "KERF_LEFT=\nKERF_RIGHT=\nKERF_OFF="),
                                     With("PartProgram_FirstMOVE", "KERF_ON=NO")}) {
        const VerifyStation station(table, Plate);
        EXPECT_EQ(VerifyProgram().Outcome, VerifyOutcome::Same);
        EXPECT_FALSE(VerifyProgram().Sides);
        Lines lines = station.Program("JOB");
        lines[4] = "G01 G41 X58.000 Y23.000 ";
        EXPECT_THAT(station.First(lines), HasSubstr("no compensation expected, compensation left found"));
    }
}

TEST(Verification, ALeadOfAnArcAloneLeavesARoundContourWithoutCompensation)
{
    // The word isn't written on an arc, and the hole is one.
    std::string part = Plate;
    part.replace(part.find("in=4,2"), 6, "in=0,2");
    const VerifyStation station(Table, part);
    AppState.ProfileTable[1].LeadInLineOn = FlagOff;
    GenerateProgram(station.Name);
    EXPECT_EQ(VerifyProgram().Differences.front(),
              "copy 1, profile 1, element 1: compensation left expected, no compensation found (line 6)");
}

TEST(Verification, RepeatedWordsAreComparedToo)
{
    const VerifyStation station(With("PartProgram_CONFIG", "X_AXIS=X*&U\nJ_AXIS=J*&W\nRADIUS=R"), Plate);
    const Lines right = station.Program("JOB");
    ASSERT_EQ(right[5], "G03 X60.000 Y25.000 I0.000 J2.000 R2.000 U60.000 W2.000");
    for (const auto& [from, to] : std::vector<std::pair<std::string, std::string>>{
             {"R2.000", "R2.002"}, {"U60.000", "U60.002"}, {"W2.000", "W-2.000"}, {"U60.000", ""}}) {
        Lines lines = right;
        lines[5].replace(lines[5].find(from), from.size(), to);
        EXPECT_THAT(station.First(lines), HasSubstr("copy 1, profile 1, lead-in: " + from.substr(0, 1) + " "))
            << lines[5];
    }
}

// --- by chance ---------------------------------------------------------------------------------------------

/// Tables that say the same in other words.
const std::vector<std::string> TablesOfChance = {
    Table,
    With("PartProgram_CONFIG", "INC_CENTER=NO\nLINENUMBER=ON\nSPACEBETWEENCODE=0"),
    With("PartProgram_CONFIG", "FLYOFFDIM=2.5\nRADIUS=R\nX_AXIS=X*&U\nY_AXIS=Y*&V"),
};

/// A case by chance whose lead-ins begin with a straight piece: without one a round contour has no compensation word.
std::string CaseOfChance(std::mt19937& random)
{
    std::string part = RandomCase(random);
    for (std::size_t at = part.find("in=0."); at != std::string::npos; at = part.find("in=0.", at)) {
        part[at + 3] = '1';
    }
    return part;
}

TEST(VerificationByChance, EachProgramIsItsPart)
{
    std::mt19937 random(20261);
    std::int64_t moves = 0;
    for (int round = 0; round < 600; ++round) {
        const std::string part = CaseOfChance(random);
        const VerifyStation station(TablesOfChance[static_cast<std::size_t>(round) % 3], part);
        const Verification found = VerifyProgram();
        moves += found.Moves;
        ASSERT_EQ(found.Outcome, VerifyOutcome::Same) << part << "\nround " << round << ": " << found.Reason
                                                      << testing::PrintToString(found.Differences);
    }
    EXPECT_GT(moves, 5000);
}

/// A number of `line` behind `letter` changed by `by`.
std::string Shifted(const std::string& line, std::size_t at, double by)
{
    const std::size_t end = std::min(line.find_first_not_of("0123456789.-", at), line.size());
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", std::stod(line.substr(at, end - at)) + by);
    return line.substr(0, at) + text + line.substr(end);
}

bool Begins(const std::string& line, const char* what)
{
    return line.rfind(what, 0) == 0;
}

/// One damage of a program by chance. Empty when this one doesn't fit the line; else what was done.
std::string Damage(Lines& lines, std::mt19937& random)
{
    const std::size_t at = random() % lines.size();
    std::string& line = lines[at];
    const bool move =
        Begins(line, "G00") || Begins(line, "G01") || Begins(line, "G02") || Begins(line, "G03");
    switch (random() % 9) {
    case 0: {
        const std::size_t letter = line.find_first_of(random() % 2 == 0 ? "XI" : "YJ");
        if (!move || letter == std::string::npos) {
            return {};
        }
        const double by = (random() % 2 == 0 ? 0.002 : -0.002);
        line = Shifted(line, letter + 1, by);
        return "a coordinate changed";
    }
    case 1:
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
        return "a line lost";
    case 2:
        if (!Begins(line, "G02") && !Begins(line, "G03")) {
            return {};
        }
        line[2] = line[2] == '2' ? '3' : '2';
        return "an arc reversed";
    case 3:
        if (line.find("G41") == std::string::npos) {
            return {};
        }
        line[line.find("G41") + 2] = '2';
        return "the other side";
    case 4:
        if (line.find("G41 ") == std::string::npos) {
            return {};
        }
        line.erase(line.find("G41 "), 4);
        return "no side";
    case 5:
        lines.resize(at);
        return "cut off";
    case 6:
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), lines[random() % lines.size()]);
        return "a line twice";
    case 7: {
        const std::size_t other = random() % lines.size();
        if (lines[other] == line) {
            return {};
        }
        std::swap(lines[other], line);
        return "lines swapped";
    }
    default:
        if (!move) {
            return {};
        }
        line.replace(0, 3, line[2] == '0' ? "G01" : "G00");
        return "a rapid for a cut";
    }
}

/// What a control does by a program: its moves with torch and compensation as they are then. Of rapids in a row, all of
/// them off, only the last one counts.
Lines Effect(const Lines& lines)
{
    Lines effect;
    std::string torch = "M05";
    std::string side = "G40";
    for (const std::string& line : lines) {
        const std::size_t word = std::min(line.find("G41"), line.find("G42"));
        if (Begins(line, "M")) {
            torch = line;
        } else if (line == "G40") {
            side = line;
        } else if (word != std::string::npos) {
            side = line.substr(word, 3);
        }
        if (!Begins(line, "G0")) {
            continue;
        }
        const bool idle = Begins(line, "G00") && torch == "M05" && side == "G40";
        if (idle && !effect.empty() && Begins(effect.back(), "idle")) {
            effect.pop_back();
        }
        std::string move = line;
        move.erase(std::min(word, line.size()), word == std::string::npos ? 0 : 4);
        effect.push_back((idle ? "idle " : torch + " " + side + " ") + move);
    }
    if (!effect.empty() && Begins(effect.back(), "idle")) {
        effect.pop_back();
    }
    effect.push_back(torch + " " + side);
    return effect;
}

/// Where two programs part, with the lines around it.
std::string FirstChange(const Lines& right, const Lines& wrong)
{
    std::size_t at = 0;
    while (at < right.size() && at < wrong.size() && right[at] == wrong[at]) {
        ++at;
    }
    const auto around = [at](const Lines& lines) {
        std::string text;
        for (std::size_t i = at < 6 ? 0 : at - 6; i < std::min(lines.size(), at + 6); ++i) {
            text += "  " + lines[i] + "\n";
        }
        return text;
    };
    return "line " + std::to_string(at + 1) + "\n" + around(right) + "became\n" + around(wrong);
}

TEST(VerificationByChance, EachDamageIsFound)
{
    std::mt19937 random(4711);
    int damaged = 0;
    for (int round = 0; round < 40; ++round) {
        const std::string part = CaseOfChance(random);
        const VerifyStation station(Table, part);
        const Lines right = station.Program("JOB");
        for (int trial = 0; trial < 60 && !right.empty(); ++trial) {
            Lines lines = right;
            const std::string what = Damage(lines, random);
            if (what.empty() || Effect(lines) == Effect(right)) {
                continue;
            }
            const Verification found = station.Of(lines);
            ++damaged;
            ASSERT_EQ(found.Outcome, VerifyOutcome::Different) << what << "\n"
                                                               << part << FirstChange(right, lines);
            ASSERT_FALSE(found.Differences.empty());
        }
    }
    EXPECT_GT(damaged, 1000);
}
} // namespace
