// The block writers: which counters reach a block, and how the two moves are composed.
#include "PostStation.h"

#include "config/Korvanta_Configuration.h"

#include <gtest/gtest.h>

namespace
{
constexpr std::string_view AllCounters = "=*part_nr,*subprogram_nr,*trace_nr,*profile_nr\n";

/// A table in which `section` shows its counters.
std::string CounterTable(const std::string& section)
{
    return "[" + section + "]\nLINE1" + std::string(AllCounters);
}

struct CounterCase {
    const char* Section;
    void (*Write)(std::int16_t file, std::string_view vector);
    const char* Vector;
    const char* Line;
};

TEST(BlockWriters, TakeTheirCountersFromTheVector)
{
    const PostStation station;
    LoadLineNumbering();
    const CounterCase cases[] = {
        {"PartProgram_END", WriteProgramEnd, "END_PROG,2,3,4,5,6,7", "0, 0, 0,0"},
        {"MainProgram_BEGIN", WriteMainBegin, "INI_PROG,2,3,4,5,6,7", "0, 0, 0,0"},
        {"MainProgram_END", WriteMainEnd, "INI_PROG,2,3,4,5,6,7", "0, 0, 0,0"},
        {"PartProgram_PartHead", WritePartHead, "INIPART,4", "4, 0, 0,0"},
        {"PartProgram_PartEnd", WritePartEnd, "ENDPART,4,1.000,2.000,3.000,4.000", "4, 0, 0,0"},
        {"PartProgram_StartCUT", WriteStartCut, "INITTAG, 1.000, 2.000, 1, 15, 3, 4", "4, 0, 3,15"},
        {"PartProgram_StartCUT", WriteStartCut, "INITTAG, NO_RAPID, 0 -1", "0, 0, 0,0"},
        {"PartProgram_EndCUT", WriteEndCut, "FINETAG,1,-1, 15, 3, 4", "4, 0, 3,15"},
        {"PartProgram_EndCUT", WriteEndCut, "FINETAG,1,1, -2, 3, 0", "0, 0, 3,-2"},
        {"PartProgram_StartPOINT", WriteStartPoint, "INIPOINT,2,3,4,5,6,7", "0, 0, 0,0"},
        {"PartProgram_POINT", WritePoint, "POINT, 2.000, 3.000", "0, 0, 0,0"},
        {"PartProgram_EndPOINT", WriteEndPoint, "ENDPOINT,2,3,4,5,6,7", "0, 0, 0,0"},
        {"SubProgram_CALLHEAD", WriteCallHead, "SUB_HEAD,9", "9, 0, 0,0"},
        {"SubProgram_CALL", WriteCall, "SUB_CALL,1.000, 2.000, 1, 9, 1, 2, 26", "9, 1, 26,2"},
        {"SubProgram_BEGIN", WriteSubBegin, "INI_SUB,0,0,3", "0, 3, 0,0"},
        {"SubProgram_END", WriteSubEnd, "END_SUB,2,3,4,5,6,7", "0, 0, 0,0"},
    };
    for (const CounterCase& c : cases) {
        station.WriteTable(CounterTable(c.Section));
        EXPECT_EQ(station.Written([&] { c.Write(FileProgram, c.Vector); }), Lines{c.Line}) << c.Section;
    }
}

TEST(BlockWriters, SeamsAndFlyOffHaveNoCounters)
{
    const PostStation station(CounterTable("PartProgram_EndLeadIn") +
                              CounterTable("PartProgram_EndProfileCut") + CounterTable("PartProgram_FLYOFF"));
    for (void (*write)(std::int16_t) : {WriteEndLeadIn, WriteEndProfileCut, WriteFlyOff}) {
        EXPECT_EQ(station.Written([&] { write(FileProgram); }), Lines{"0, 0, 0,0"});
    }
}

TEST(BlockWriters, PartEndHandsItsLimitsToTheCollection)
{
    const PostStation station("[PartProgram_PartEnd]\nLINE1=*part_xmax\n"
                              "COLLECTION1=*part_xmin *part_ymin *part_xmax *part_ymax\n");
    const Lines written =
        station.Written([] { WritePartEnd(FileProgram, "ENDPART,1,-1.250,0.000,99.990,40.500"); });
    EXPECT_EQ(written, Lines{"0.0"});
    EXPECT_EQ(AppState.CollectionBuffer, Lines{"-1.2 0.0 100.0 40.5"});
}

TEST(BlockWriters, VectorReachesTheRapidTag)
{
    const PostStation station("[PartProgram_POINT]\nLINE1=*RAPID_MOVE\n[SubProgram_CALL]\nLINE1=*RAPID_MOVE\n"
                              "[PartProgram_END]\nLINE1=*RAPID_MOVE\n");
    LoadPostProcessorValues();
    EXPECT_EQ(station.Written([] {
        WritePoint(FileProgram, "POINT, 12.500, -3.000");
        WriteCall(FileProgram, "SUB_CALL,1.000, 2.000, 1, 9, 1, 2, 26");
        WriteProgramEnd(FileProgram, "END_PROG");
    }),
              (Lines{"G00 X12.500 Y-3.000", "G00 X1.000 Y2.000", "G00 X Y"}));
}

TEST(BlockWriters, ACounterBeyondItsWidthIsAFault)
{
    const PostStation station;
    EXPECT_NE(FaultOf([] { WritePartHead(FileNone, "INIPART,3000000000"); }).find("part number"),
              std::string::npos);
}

TEST(ProgramBegin, LoadsWritesAndThenTurnsCompensationOff)
{
    const PostStation station("[PartProgram_CONFIG]\nLINENUMBER_START=500\n[PartProgram_BEGIN]\n"
                              "LINE1=_*KERF_ON\n");
    AppState.LinearCode = "old";
    AppState.LineNumber = 7;
    EXPECT_EQ(station.Written([] { WriteProgramBegin(FileProgram); }), Lines{"N500 G41"});
    EXPECT_EQ(AppState.KerfState, KerfOff);
    EXPECT_EQ(AppState.LinearCode, "G01");
}

TEST(ProgramBegin, OfASimulationLoadsAndWritesNothing)
{
    const PostStation station("[PartProgram_BEGIN]\nLINE1=_*KERF_ON\n[PartProgram_INPUT]\n#V1=a,D,,b\n");
    AppState.LinearCode = "old";
    AppState.KerfState = KerfRight;
    AppState.SimStop = FlagOn;
    WriteProgramBegin(FileNone);
    EXPECT_EQ(AppState.LinearCode, "old");
    EXPECT_EQ(AppState.KerfState, KerfRight);
    EXPECT_EQ(AppState.SimStop, FlagOff);
    EXPECT_EQ(AppState.SimRunning, FlagOn);
    EXPECT_TRUE(Screen.Calls.empty());
    WriteProgramEnd(FileNone, "END_PROG");
    EXPECT_EQ(AppState.SimRunning, FlagOff);
}

TEST(ProgramEnd, KeepsTheSpeedThatASimulationLeft)
{
    const PostStation station;
    AppState.ProgramName = "Korvanta";
    station.Folder.Write("Korvanta.ini", "[SETUP]\r\nSIMSPEED=15\r\n");
    station.Written([] { WriteProgramEnd(FileProgram, "END_PROG"); });
    EXPECT_EQ(ReadConfig("SETUP", "SIMSPEED", ""), "15") << "no simulation ran";
    AppState.SimSpeed = 4;
    WriteProgramEnd(FileNone, "END_PROG");
    EXPECT_EQ(ReadConfig("SETUP", "SIMSPEED", ""), "15") << "only a program stores it";
    station.Written([] { WriteProgramEnd(FileProgram, "END_PROG"); });
    EXPECT_EQ(ReadConfig("SETUP", "SIMSPEED", ""), "4");
}

// --- moves ---------------------------------------------------------------------------------------------------

constexpr std::string_view Line1 = "TAGLIN, 0.000, 0.000, 10.000, 5.000,1";
constexpr std::string_view Line2 = "TAGLIN, 10.000, 5.000, 20.000, 5.000,1";
constexpr std::string_view Arc1 = "TAGCIRC, 0.000, 0.000, 10.000, 0.000, 5.000, 0.000, -5.000,1";

/// Words and numbering of `table`, then the moves: TAGLIN vectors to the linear writer, others to the circular.
Lines Moves(const PostStation& station, std::string_view table,
            std::initializer_list<std::string_view> vectors)
{
    station.WriteTable(table);
    LoadPostProcessorValues();
    LoadLineNumbering();
    AppState.KerfState = KerfOff;
    AppState.PendingFirstMove.clear();
    return station.Written([&] {
        for (const std::string_view vector : vectors) {
            (vector.starts_with("TAGLIN") ? WriteLinear : WriteCircular)(FileProgram, vector);
        }
    });
}

TEST(WriteLinear, CarriesTheWordOnTheFirstMoveOnly)
{
    const PostStation station;
    EXPECT_EQ(Moves(station, "[PartProgram_CONFIG]\nLINENUMBER_START=30\n", {Line1, Line2}),
              (Lines{"N30 G01 G41 X10.000 Y5.000 ", "N40 G01 X20.000 Y5.000 "}));
    EXPECT_EQ(AppState.KerfState, KerfLeft);
    EXPECT_EQ(Moves(station, "", {"TAGLIN, 0, 0, 1.000, 2.000,-1"}), Lines{"N10 G01 G42 X1.000 Y2.000 "});
    EXPECT_EQ(AppState.KerfState, KerfRight);
}

TEST(WriteLinear, WithoutASideTheNextMoveTriesAgain)
{
    const PostStation station;
    EXPECT_EQ(Moves(station, "", {"TAGLIN, 0, 0, 1.000, 2.000,0", "TAGLIN, 0, 0, 3.000, 2.000,0"}),
              (Lines{"N10 G01 X1.000 Y2.000 ", "N20 G01 X3.000 Y2.000 "}));
    EXPECT_EQ(AppState.KerfState, KerfOff);
}

TEST(WriteLinear, FlagOffWritesNoWord)
{
    const PostStation station;
    EXPECT_EQ(Moves(station, "[PartProgram_FirstMOVE]\nKERF_ON=NO\n", {Line1}),
              Lines{"N10 G01 X10.000 Y5.000 "});
    EXPECT_EQ(AppState.KerfState, KerfSilent);
}

TEST(WriteLinear, ATemplateWordLeavesTheMovesAlone)
{
    const PostStation station(
        "[PartProgram_FirstMOVE]\nKERF_ON=NO\n[PartProgram_StartCUT]\nLINE1=_*KERF_ON\n");
    WriteProgramBegin(FileNone);
    LoadPostProcessorValues();
    LoadLineNumbering();
    EXPECT_EQ(station.Written([] {
        WriteStartCut(FileProgram, "INITTAG, 0.000, 0.000, -1, 1, 1, 1");
        WriteLinear(FileProgram, Line1);
    }),
              (Lines{"N10 G41", "N20 G01 X10.000 Y5.000 "}));
    EXPECT_EQ(AppState.KerfState, KerfLeft);
}

TEST(WriteLinear, PartsWithoutCompensationHaveNoWord)
{
    const PostStation station;
    AppState.NoKerfCodes = FlagOn;
    EXPECT_EQ(Moves(station, "", {Line1, Arc1, Line2}),
              (Lines{"N10 G01 X10.000 Y5.000 ", "N20 G02 X10.000 Y0.000 I5.000 J0.000",
                     "N30 G01 X20.000 Y5.000 "}));
    EXPECT_EQ(AppState.KerfState, KerfOff);
}

TEST(WriteLinear, WordsOfTheTable)
{
    const PostStation station;
    EXPECT_EQ(Moves(station, "[PartProgram_CONFIG]\nX_AXIS=X*&U\nLINENUMBER=OFF\n", {Line2}),
              Lines{"G01 G41 X20.000 Y5.000 U20.000 "});
    EXPECT_EQ(Moves(station,
                    "[PartProgram_CONFIG]\nSPACEBETWEENCODE=0\nY_AXIS=Y*&V\nKERF_LEFT=D1\n"
                    "[PartProgram_LinearMOVE]\nINIT_LINE=/\nGCODE=G1\nEND_LINE=F100\n",
                    {Line1, Line2}),
              (Lines{"N10 /G1 D1X10.000Y5.000V5.000 F100", "N20 /G1X20.000Y5.000V5.000 F100"}))
        << "the compensation word keeps its blank";
}

TEST(WriteStartCut, FirstMoveTextWaitsForTheNextLine)
{
    const PostStation station("[PartProgram_FirstMOVE]\nEND_LINE=M*part_nr*trace_nr*profile_nr #V1\n"
                              "[PartProgram_LinearMOVE]\nEND_LINE=;\n");
    LoadPostProcessorValues();
    LoadLineNumbering();
    AppState.PprInput[1].Value = "F9";
    EXPECT_EQ(station.Written([] {
        WriteStartCut(FileProgram, "INITTAG, 0.000, 0.000, 1, 5, 6, 7");
        EXPECT_EQ(AppState.PendingFirstMove, "M0 00 F9") << "all counters 0";
        WriteCircular(FileProgram, Arc1);
        WriteLinear(FileProgram, Line1);
        WriteLinear(FileProgram, Line2);
    }),
              (Lines{"N10 G02 X10.000 Y0.000 I5.000 J0.000", "N20 G01 G41 X10.000 Y5.000 M0 00 F9;",
                     "N30 G01 X20.000 Y5.000 ;"}));
}

TEST(WriteStartCut, AWordInTheFirstMoveTextLeavesTheMoveWithoutItsOwn)
{
    // The text is expanded at the start of the cut, so compensation is on already when the move comes.
    const PostStation station("[PartProgram_FirstMOVE]\nEND_LINE=*KERF_ON\n");
    LoadPostProcessorValues();
    LoadLineNumbering();
    EXPECT_EQ(station.Written([] {
        WriteStartCut(FileProgram, "INITTAG, 0.000, 0.000, -1, 1, 1, 1");
        EXPECT_EQ(AppState.KerfState, KerfLeft);
        WriteLinear(FileProgram, "TAGLIN, 0.000, 0.000, 10.000, 5.000,-1");
        WriteLinear(FileProgram, "TAGLIN, 10.000, 5.000, 20.000, 5.000,-1");
    }),
              (Lines{"N10 G01 X10.000 Y5.000 G41", "N20 G01 X20.000 Y5.000 "}));
}

TEST(WriteEndCut, TurnsCompensationOffBehindItsBlock)
{
    const PostStation station("[PartProgram_EndCUT]\nLINE1=*KERF_ON\n");
    LoadPostProcessorValues();
    AppState.KerfState = KerfRight;
    EXPECT_EQ(station.Written([] { WriteEndCut(FileProgram, "FINETAG,1,1, 1, 1, 1"); }), Lines{"G41"});
    EXPECT_EQ(AppState.KerfState, KerfOff);
}

TEST(WriteCircular, DirectionComesFromTheRadius)
{
    const PostStation station;
    EXPECT_EQ(Moves(station, "[PartProgram_CONFIG]\nRADIUS=R\nLINENUMBER=OFF\n",
                    {Arc1, "TAGCIRC, 0, 0, 10.000, 0.000, 5.000, 0.000, 5.000,1",
                     "TAGCIRC, 0, 0, 10.000, 0.000, 5.000, 0.000, 0.000,1"}),
              (Lines{"G02 X10.000 Y0.000 I5.000 J0.000 R5.000", "G03 X10.000 Y0.000 I5.000 J0.000 R5.000",
                     "G02 X10.000 Y0.000 I5.000 J0.000 R0.000"}));
}

TEST(WriteCircular, AWordIsOnlyWrittenForACentreOfOne)
{
    const PostStation station;
    EXPECT_EQ(Moves(station, "", {Arc1, Line2}),
              (Lines{"N10 G02 X10.000 Y0.000 I5.000 J0.000", "N20 G01 G41 X20.000 Y5.000 "}))
        << "the word follows on the next linear move";
    EXPECT_EQ(Moves(station, "", {"TAGCIRC, 0, 0, 2.000, 0.000, 1.000, 0.000, 1.000,-1"}),
              Lines{"N10 G03 G41 X2.000 Y0.000 I1.000 J0.000"});
    EXPECT_EQ(Moves(station, "", {"TAGCIRC, 0, 0, 2.000, 0.000, -1.000, 0.000, 1.000,1"}),
              Lines{"N10 G03 G42 X2.000 Y0.000 I-1.000 J0.000"});
    Moves(station, "[PartProgram_FirstMOVE]\nKERF_ON=NO\n", {Arc1});
    EXPECT_EQ(AppState.KerfState, KerfSilent);
}

TEST(WriteCircular, MirrorWordsStandBehindTheRadius)
{
    const PostStation station;
    EXPECT_EQ(Moves(station,
                    "[PartProgram_CONFIG]\nX_AXIS=X*&U\nY_AXIS=Y*&V\nI_AXIS=I*&P\nJ_AXIS=J*&Q\nRADIUS=R\n"
                    "[PartProgram_CircularMOVE]\nINIT_LINE=<\nEND_LINE=>\nCW_GCODE=CW\n",
                    {"TAGCIRC, 0, 0, 1.000, 2.000, 3.000, 4.000, -5.500,1"}),
              Lines{"N10 <CW X1.000 Y2.000 I3.000 J4.000 R5.500 U1.000 V2.000 P3.000 Q4.000>"});
}
} // namespace
