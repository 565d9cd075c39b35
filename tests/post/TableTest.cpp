// The post-processor table: words, numbering, vectors, block sections, the input block.
#include "PostStation.h"

#include "platform/Screen.h"

#include <gtest/gtest.h>

namespace
{
TEST(ReadPprValue, ReadsByTheRulesOfTheTable)
{
    const PostStation station("[S]\nK= a b \nEmpty=\nLong=" + std::string(300, 'x') + "\nQ=\" q \"\n");
    EXPECT_EQ(ReadPprValue("S", "K", "d"), "a b");
    EXPECT_EQ(ReadPprValue("S", " K ", "d"), "a b") << "the key is trimmed";
    EXPECT_EQ(ReadPprValue("S", "Empty", "d"), "");
    EXPECT_EQ(ReadPprValue("S", "Q", "d"), " q ");
    EXPECT_EQ(ReadPprValue("S", "Missing", "d"), "d");
    EXPECT_EQ(ReadPprValue("T", "K", "d"), "d");
    EXPECT_EQ(ReadPprValue("S", "Long", "d"), std::string(255, 'x'));
    station.WriteTable("[S]\nK=new\n");
    EXPECT_EQ(ReadPprValue("S", "K", "d"), "new") << "nothing is kept from the read before";
    AppState.PprIniName.clear();
    EXPECT_EQ(ReadPprValue("S", "K", "d"), "new");
    EXPECT_EQ(AppState.PprIniName, "PPR.ini");
    AppState.PprIniName = "other.ini";
    EXPECT_EQ(ReadPprValue("S", "K", "d"), "d") << "no file, no error";
}

TEST(ReadPprValue, CutsBetweenCharacters)
{
    std::string letters;
    for (int i = 0; i < 255; ++i) {
        letters += "\xC3\xA9"; // two bytes each
    }
    const PostStation station("[S]\nFull=" + letters + "\nLong=x" + letters + "\n");
    EXPECT_EQ(ReadPprValue("S", "Full", "d"), letters);
    EXPECT_EQ(ReadPprValue("S", "Long", "d"), "x" + letters.substr(0, 508));
}

TEST(LoadPostProcessorValues, HasADefaultForEachWord)
{
    const PostStation station;
    AppState.CollectionBuffer = {"old"};
    LoadPostProcessorValues();
    EXPECT_EQ(AppState.KerfLeftWord, "G41");
    EXPECT_EQ(AppState.KerfRightWord, "G42");
    EXPECT_EQ(AppState.KerfOffWord, "G40");
    EXPECT_EQ(AppState.AxisX + AppState.AxisY + AppState.AxisI + AppState.AxisJ, "XYIJ");
    EXPECT_EQ(AppState.MirrorX + AppState.MirrorY + AppState.MirrorI + AppState.MirrorJ, "");
    EXPECT_EQ(AppState.RadiusWord, "NULL");
    EXPECT_EQ(AppState.Separator, " ");
    EXPECT_EQ(AppState.LinearCode, "G01");
    EXPECT_EQ(AppState.ClockwiseCode, "G02");
    EXPECT_EQ(AppState.CounterClockwiseCode, "G03");
    EXPECT_EQ(AppState.RapidCode, "G00");
    EXPECT_EQ(AppState.FirstMoveKerfOn, 1);
    EXPECT_TRUE(AppState.CollectionBuffer.empty());
    EXPECT_TRUE(Screen.Calls.empty()) << "no input block, no dialog";
}

TEST(LoadPostProcessorValues, TakesTheWordsOfTheTable)
{
    const PostStation station("[PartProgram_CONFIG]\nKERF_LEFT=CL\nKERF_RIGHT=CR\nKERF_OFF=C0\n"
                              "X_AXIS=A*&U\nY_AXIS=B*&V*&W\nI_AXIS=*&P\nJ_AXIS=J*&\nRADIUS=R\n"
                              "SPACEBETWEENCODE=2.9\n"
                              "[PartProgram_LinearMOVE]\nGCODE=L\n"
                              "[PartProgram_CircularMOVE]\nCW_GCODE=CW\nCCW_GCODE=CC\n"
                              "[PartProgram_RapidMOVE]\nGCODE=RAP\n[PartProgram_FirstMOVE]\nKERF_ON=yes\n");
    LoadPostProcessorValues();
    EXPECT_EQ(AppState.KerfLeftWord + AppState.KerfRightWord + AppState.KerfOffWord, "CLCRC0");
    EXPECT_EQ(AppState.AxisX, "A");
    EXPECT_EQ(AppState.MirrorX, "U");
    EXPECT_EQ(AppState.AxisY, "B");
    EXPECT_EQ(AppState.MirrorY, "V*&W") << "the text up to the end";
    EXPECT_EQ(AppState.AxisI, "");
    EXPECT_EQ(AppState.MirrorI, "P");
    EXPECT_EQ(AppState.AxisJ, "J");
    EXPECT_EQ(AppState.MirrorJ, "");
    EXPECT_EQ(AppState.RadiusWord, "R");
    EXPECT_EQ(AppState.Separator, "  ") << "cut, not rounded";
    EXPECT_EQ(AppState.LinearCode + AppState.ClockwiseCode + AppState.CounterClockwiseCode +
                  AppState.RapidCode,
              "LCWCCRAP");
    EXPECT_EQ(AppState.FirstMoveKerfOn, 0) << "only YES is yes";
}

TEST(LoadPostProcessorValues, SeparatorNeverRunsAway)
{
    const PostStation station;
    for (const char* text : {"0", "-5", "x", ""}) {
        station.WriteTable(std::string("[PartProgram_CONFIG]\nSPACEBETWEENCODE=") + text + "\n");
        LoadPostProcessorValues();
        EXPECT_EQ(AppState.Separator, "") << text;
    }
    station.WriteTable("[PartProgram_CONFIG]\nSPACEBETWEENCODE=1e9\n");
    EXPECT_NE(FaultOf(LoadPostProcessorValues).find("SPACEBETWEENCODE"), std::string::npos);
}

struct NumberingCase {
    const char* Table;
    Flag On;
    std::int32_t Number;
    std::int16_t Step;
};

TEST(LoadLineNumbering, ReadsItsThreeKeys)
{
    const PostStation station;
    const NumberingCase cases[] = {
        {"", FlagOn, 10, 10},
        {"LINENUMBER=NONE\n", FlagOn, 10, 10}, // it contains ON
        {"LINENUMBER=OFF\nLINENUMBER_START=100\nLINENUMBER_STEP=5\n", FlagOff, 10, 10},
        {"LINENUMBER=on\n", FlagOff, 10, 10},
        {"LINENUMBER=ON\nLINENUMBER_START=99999.5\nLINENUMBER_STEP=4.5\n", FlagOn, 100000, 5},
        {"LINENUMBER_START=0\nLINENUMBER_STEP=-1\n", FlagOn, 0, -1},
    };
    for (const NumberingCase& c : cases) {
        station.WriteTable(std::string("[PartProgram_CONFIG]\n") + c.Table);
        LoadLineNumbering();
        EXPECT_EQ(AppState.LineNumbering, c.On) << c.Table;
        EXPECT_EQ(AppState.LineNumber, c.Number) << c.Table;
        EXPECT_EQ(AppState.LineNumberStep, c.Step) << c.Table;
    }
    station.WriteTable("[PartProgram_CONFIG]\nLINENUMBER_STEP=40000\n");
    EXPECT_NE(FaultOf(LoadLineNumbering).find("LINENUMBER_STEP"), std::string::npos);
    station.WriteTable("[PartProgram_CONFIG]\nLINENUMBER_START=3000000000\n");
    EXPECT_NE(FaultOf(LoadLineNumbering).find("LINENUMBER_START"), std::string::npos);
}

TEST(SplitVector, TrimsTheTextAndTheHeadOfEachRest)
{
    struct Case {
        const char* Text;
        std::vector<const char*> Fields;
    };
    const Case cases[] = {
        {"", {}},
        {"   ", {}},
        {"END_PROG", {"END_PROG"}},
        {" A , B ,C ", {"A ", "B ", "C"}}, // only the head of a rest is trimmed
        {"INITTAG, NO_RAPID, 0 1", {"INITTAG", "NO_RAPID", "0 1"}},
        {"a,b,", {"a", "b"}}, // no text remains behind the last delimiter
        {"a,,b", {"a", "", "b"}},
        {",a", {"", "a"}},
        {"a, ", {"a"}},
        {"1,2,3,4,5,6,7,8,9,10,11,12,13,14,15",
         {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15"}},
    };
    VectorFields fields;
    std::int16_t count = 0;
    for (const Case& c : cases) {
        fields.fill("left over");
        SplitVector(c.Text, ',', fields, count);
        ASSERT_EQ(count, static_cast<std::int16_t>(c.Fields.size())) << c.Text;
        for (std::size_t i = 1; i < fields.size(); ++i) {
            EXPECT_EQ(fields[i], i <= c.Fields.size() ? c.Fields[i - 1] : "") << c.Text << " field " << i;
        }
    }
    FaultOf([&] { SplitVector("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16", ',', fields, count); });
}

// --- blocks -----------------------------------------------------------------------------------------------

TEST(WriteBlock, EndsAtTheFirstMissingLine)
{
    const PostStation station("[GAP]\nLINE1=one\nLINE3=three\n[END]\nLINE1=one\nLINE2=//END\nLINE3=three\n"
                              "[BLANK]\nLINE1=\nLINE2=\" x \"\n[FROM2]\nLINE2=two\n[HEAD_ONLY]\n");
    LoadLineNumbering();
    const auto block = [&](const char* section) {
        return station.Written([&] { WriteBlock(FileProgram, section, "", BlockCounters(), FlagOn); });
    };
    EXPECT_EQ(block("GAP"), Lines{"one"});
    EXPECT_EQ(block("END"), Lines{"one"});
    EXPECT_EQ(block("BLANK"), (Lines{"", " x "})) << "written as they stand";
    EXPECT_EQ(block("FROM2"), Lines{});
    EXPECT_EQ(block("HEAD_ONLY"), Lines{});
    EXPECT_EQ(block("MISSING"), Lines{});
}

TEST(WriteBlock, NumbersLinesWithTheMark)
{
    const PostStation station("[PartProgram_CONFIG]\nLINENUMBER_START=100\nLINENUMBER_STEP=5\n"
                              "[B]\nLINE1=_G90\nLINE2=G71\nLINE3=__x\nLINE4=_\n");
    LoadLineNumbering();
    const auto write = [] { WriteBlock(FileProgram, "B", "", BlockCounters(), FlagOn); };
    EXPECT_EQ(station.Written(write), (Lines{"N100 G90", "G71", "N105 _x", "N110 "}));
    EXPECT_EQ(AppState.LineNumber, 115);
    AppState.LineNumbering = FlagOff;
    EXPECT_EQ(station.Written(write), (Lines{"G90", "G71", "_x", ""}));
}

TEST(WriteBlock, SuppressedLinesTakeNoNumber)
{
    const PostStation station("[B]\nLINE1=_*RAPID_MOVE\nLINE2=_*ifextprf:out\nLINE3=_*ifintprf:in\n"
                              "LINE4=don'tprint\nCOLLECTION1=_*RAPID_MOVE\n");
    LoadLineNumbering();
    EXPECT_EQ(station.Written([] {
        WriteBlock(FileProgram, "B", "T, NO_RAPID, 0 1", BlockCounters(), FlagOff); // the flag is ignored
    }),
              Lines{"N10 in"});
    EXPECT_EQ(AppState.LineNumber, 20);
    EXPECT_TRUE(AppState.CollectionBuffer.empty());
}

TEST(WriteBlock, LimitsReachCollectionLinesOnly)
{
    const PostStation station("[B]\nLINE1=*part_xmax *part_ymin\nCOLLECTION1=*part_xmax *part_ymin\n"
                              "COLLECTION2=_*ifextprf:ABC\nCOLLECTION3=_P*part_nr\nCOLLECTION5=lost\n"
                              "COLLECTION4=*write_collection\n");
    LoadLineNumbering();
    BlockCounters counters;
    counters.PartNr = 3;
    counters.XMax = 120.5;
    counters.YMin = 2.0;
    EXPECT_EQ(station.Written([&] { WriteBlock(FileProgram, "B", "", counters, FlagOn); }), Lines{"0.0 0.0"});
    EXPECT_EQ(AppState.CollectionBuffer,
              (Lines{"120.5 2.0", "N10 don'tprint", "N20 P3", "*write_collection", "lost"}));
}

TEST(WriteBlock, CollectedLinesComeOutInALaterBlock)
{
    const PostStation station("[A]\nCOLLECTION1=_cut *profile_nr\n[Z]\nLINE1=_head\nLINE2=*write_collection\n"
                              "LINE3=_tail\n");
    LoadLineNumbering();
    const Lines written = station.Written([] {
        BlockCounters counters;
        for (counters.ProfileNr = 1; counters.ProfileNr <= 2; ++counters.ProfileNr) {
            WriteBlock(FileProgram, "A", "", counters, FlagOn);
        }
        WriteBlock(FileProgram, "Z", "", counters, FlagOn);
    });
    EXPECT_EQ(written, (Lines{"N30 head", "N10 cut 1", "N20 cut 2", "N40 tail"}));
}

TEST(WriteBlock, SimulationExpandsButWritesNothing)
{
    const PostStation station("[B]\nLINE1=_*KERF_ON\nLINE2=*write_collection\nCOLLECTION1=c\n");
    LoadPostProcessorValues();
    LoadLineNumbering();
    AppState.CollectionBuffer = {"kept"};
    EXPECT_EQ(station.Written([] { WriteBlock(FileNone, "B", "", BlockCounters(), FlagOn); }), Lines{});
    EXPECT_EQ(AppState.KerfState, KerfLeft);
    EXPECT_EQ(AppState.LineNumber, 20) << "numbers are taken for every destination";
    EXPECT_EQ(AppState.CollectionBuffer, (Lines{"kept", "c"}));
}

TEST(WriteBlock, FaultNamesSectionKeyAndTag)
{
    const PostStation station("[PartProgram_END]\nLINE1=ok\nLINE2=#V9\n[C]\nCOLLECTION1=profile_nr\n");
    EXPECT_NE(FaultOf([&] {
                  station.Written(
                      [] { WriteBlock(FileProgram, "PartProgram_END", "", BlockCounters(), FlagOn); });
              }).find("[PartProgram_END] LINE2: #V9"),
              std::string::npos);
    EXPECT_NE(FaultOf([] {
                  WriteBlock(FileNone, "C", "", BlockCounters(), FlagOn);
              }).find("[C] COLLECTION1: profile_nr"),
              std::string::npos);
}

TEST(WriteLine, LineNumberBeyondItsWidthIsAFault)
{
    const PostStation station;
    AppState.LineNumbering = FlagOn;
    AppState.LineNumber = 2147483646;
    AppState.LineNumberStep = 1;
    WriteLine(FileNone, "a", true);
    EXPECT_EQ(AppState.LineNumber, 2147483647);
    FaultOf([] { WriteLine(FileNone, "b", true); });
    AppState.SimWalking = FlagOn;
    WriteLine(FileNone, "c", true);
    EXPECT_EQ(AppState.LineNumber, 2147483647) << "a simulation goes on";
}

// --- the input block ----------------------------------------------------------------------------------------

constexpr std::string_view TwoInputs = "[PartProgram_INPUT]\n#V1=Plate thickness,D,,10\n"
                                       "#V2= Gas , T x, O2|n2|Air ,air\n#V4=Note,E, a , b \n";

TEST(InputBlock, IsSkippedWithoutItsFirstKey)
{
    const PostStation station("[PartProgram_INPUT]\n#V2=broken\n");
    AppState.PprInput[2].Value = "kept";
    AppState.PprInput[2].Kind = 'D';
    LoadPostProcessorValues();
    EXPECT_TRUE(Screen.Calls.empty());
    EXPECT_EQ(AppState.PprInput[2].Value, "kept");
    EXPECT_EQ(AppState.PprInput[2].Kind, 'D');
}

TEST(InputBlock, FillsTheSlotsAndAsks)
{
    const PostStation station(TwoInputs);
    AppState.PprInput[3].Value = "old";
    Screen.InputDialog = [] {
        const auto& slots = AppState.PprInput;
        EXPECT_EQ(slots[1].Label, "Plate thickness");
        EXPECT_EQ(slots[1].Kind, 'D');
        EXPECT_EQ(slots[1].Options, "");
        EXPECT_EQ(slots[1].Value, "10");
        EXPECT_EQ(slots[2].Label, "Gas ") << "the label is kept as the table delivers it";
        EXPECT_EQ(slots[2].Options, "O2|N2|AIR");
        EXPECT_EQ(slots[2].Value, "AIR");
        EXPECT_EQ(slots[3].Kind, 'N');
        EXPECT_EQ(slots[4].Kind, 'E');
        EXPECT_EQ(slots[4].Options, "A");
        EXPECT_EQ(slots[4].Value, "B");
        AppState.PprInput[1].Value = "12 mm";
        AppState.PprInput[2].Value = "n2";
    };
    LoadPostProcessorValues();
    EXPECT_EQ(Screen.Calls, Lines{"input Korvanta [JOB]"});
    EXPECT_EQ(AppState.PprInput[1].Value, "12 mm");
    EXPECT_EQ(AppState.PprInput[2].Value, "N2") << "a list is left with one of its options";
    EXPECT_EQ(AppState.PprInput[3].Value, "") << "slots not in use are emptied";
    EXPECT_EQ(AppState.PprInput[0].Value, "");
}

TEST(InputBlock, StoredAnswersStandInForDefaults)
{
    const PostStation station(TwoInputs);
    station.Folder.Write("NST/JOB.nst", "[0004]\r\nV1=8\r\nV2=o2\r\nV3=x\r\nV4=\r\n");
    LoadPostProcessorValues();
    EXPECT_EQ(AppState.PprInput[1].Value, "8");
    EXPECT_EQ(AppState.PprInput[2].Value, "O2") << "found without regard to case";
    EXPECT_EQ(AppState.PprInput[3].Value, "");
    EXPECT_EQ(AppState.PprInput[4].Value, "B") << "an empty answer leaves the default";
    AppState.JobName = "JOB.nst"; // the extension isn't added twice
    AppState.PprInput[1].Value = "";
    LoadPostProcessorValues();
    EXPECT_EQ(AppState.PprInput[1].Value, "8");
    EXPECT_EQ(station.Folder.Read("NST/JOB.nst"), "[0004]\r\nV1=8\r\nV2=o2\r\nV3=x\r\nV4=\r\n");
}

TEST(InputBlock, ListTakesItsFirstOptionWhenNoneIsEqual)
{
    const PostStation station("[PartProgram_INPUT]\n#V1=Gas,T,O2|N2,ARGON\n#V2=None,T,,X\n");
    LoadPostProcessorValues();
    EXPECT_EQ(AppState.PprInput[1].Value, "O2");
    EXPECT_EQ(AppState.PprInput[2].Value, "") << "a list without options";
}

TEST(InputBlock, AnEmptyOptionIsOneWhereverItStands)
{
    const PostStation station("[PartProgram_INPUT]\n#V1=Gas,T,O2|,\n#V2=Gas,T,|O2,\n#V3=Gas,T,O2||N2,\n");
    LoadPostProcessorValues();
    for (std::size_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(AppState.PprInput[i].Value, "") << i;
    }
}

TEST(InputBlock, FirstSlotMarkedUnusedAsksNothing)
{
    const PostStation station("[PartProgram_INPUT]\n#V1=Gas,N,,O2\n#V2=Plate,D,,10\n");
    LoadPostProcessorValues();
    EXPECT_TRUE(Screen.Calls.empty());
    EXPECT_EQ(AppState.PprInput[2].Value, "10");
}

TEST(InputBlock, WithoutADialogAListHasItsDefaultEvenBesideTheOptions)
{
    const PostStation station(
        "[PartProgram_INPUT]\n#V1=Gas,N,,O2\n#V2=Nozzle,T,1.0|1.2,9\n#V3=Gas,T,O2|N2,O2\n");
    station.Folder.Write("NST/JOB.nst", "[0004]\r\nV3=n2\r\n");
    LoadPostProcessorValues();
    EXPECT_TRUE(Screen.Calls.empty());
    EXPECT_EQ(AppState.PprInput[2].Value, "9");
    EXPECT_EQ(AppState.PprInput[3].Value, "n2") << "as it was stored";
}

TEST(InputBlock, FourFieldsAreNeeded)
{
    const PostStation station;
    for (const char* text : {"Plate", "Plate,D", "Plate,D,"}) {
        station.WriteTable(std::string("[PartProgram_INPUT]\n#V1=ok,D,,1\n#V3=") + text + "\n");
        EXPECT_NE(FaultOf(LoadPostProcessorValues).find("[PartProgram_INPUT] #V3"), std::string::npos)
            << text;
    }
    station.WriteTable("[PartProgram_INPUT]\n#V1=a, ,,,more\n");
    LoadPostProcessorValues();
    EXPECT_EQ(AppState.PprInput[1].Kind, ' ');
    EXPECT_EQ(AppState.PprInput[1].Value, "");
}
} // namespace
