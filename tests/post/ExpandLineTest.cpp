// One line of a template: every tag, the order of the steps, and what is a fault.
#include "PlainExpansion.h"
#include "PostStation.h"

#include "platform/Fault.h"

#include <gtest/gtest.h>
#include <random>

namespace
{
constexpr std::string_view CutVector = "INITTAG, 1.500, 2.250, 1, 12, 3, 7";

BlockCounters SampleCounters()
{
    BlockCounters counters;
    counters.PartNr = 7;
    counters.SubprogramNr = 5;
    counters.ProfileNr = 12;
    counters.TraceNr = 3;
    counters.XMin = -1.25; // one decimal, cut: -1.2
    counters.YMin = 0.0;
    counters.XMax = 99.99; // the nine carries: 100.0
    counters.YMax = 40.5;
    return counters;
}

/// The state that the cases below speak of; words as the table's defaults give them.
void SampleState()
{
    LoadPostProcessorValues();
    AppState.CountX = 3;
    AppState.CountY = 2;
    AppState.ViewWidth = 1234.5;
    AppState.ViewHeight = -800.25;
    AppState.TracksList = " 4,5,6 ";
    AppState.OutputName = " PLATE.cnc ";
    AppState.ProgramMaxX = 123.4;
    AppState.ProgramMaxY = 88.0;
    AppState.TextNesting[FieldSheetX].Text = "3000";
    AppState.TextNesting[FieldSheetY].Text = "1500";
    const char* values[] = {"", "10", "AIR", "#V1", "a#Vxb", "*part_nr", "V1", "", "#"};
    for (std::size_t i = 1; i <= PprInputSlots; ++i) {
        AppState.PprInput[i].Value = values[i];
    }
}

struct LineCase {
    const char* Line;
    const char* Result;
};

void ExpectLines(std::initializer_list<LineCase> cases, Flag isInternal = FlagOn)
{
    for (const LineCase& c : cases) {
        SampleState();
        std::string line = c.Line;
        EXPECT_EQ(ExpandLine(FileProgram, line, CutVector, SampleCounters(), isInternal), FlagOn) << c.Line;
        EXPECT_EQ(line, c.Result) << c.Line;
    }
}

TEST(ExpandLine, LeavesTextAndUnknownTagsAlone)
{
    const PostStation station;
    ExpectLines({
        {"", ""},
        {"  G90 G71  ", "  G90 G71  "},
        {"*unknown *RAPID *kerf_on *rpt: *siz", "*unknown *RAPID *kerf_on *rpt: *siz"},
        {"don'tprint", "don'tprint"},
        {"100% #1=5", "100% #1=5"},
    });
}

TEST(ExpandLine, ReplacesCountersInTheirOwnForms)
{
    const PostStation station;
    ExpectLines({
        {"*part_nr *part_nr", "7 *part_nr"},
        {"P*PART_NR", "P7"},
        {"O*subprogram_nr", "O 5"},
        {"*Trace_Nr*trace_nr", " 3*trace_nr"},
        {"*profile_nr *profile_nr", "12 12"},
        {"*PROFILE_NR", "*PROFILE_NR"},
        {"*PROFILE_NR *profile_nr", "12 12"},
    });
}

TEST(ExpandLine, NegativeCountersNeedNoBlank)
{
    const PostStation station;
    BlockCounters counters;
    counters.SubprogramNr = -4;
    counters.TraceNr = 0;
    counters.ProfileNr = -2;
    std::string line = "*subprogram_nr*trace_nr*profile_nr";
    ExpandLine(FileProgram, line, "", counters, FlagOn);
    EXPECT_EQ(line, "-4 0-2");
}

TEST(ExpandLine, ReplacesLimitsWithOneDecimal)
{
    const PostStation station;
    ExpectLines({
        {"*part_xmin;*part_ymin;*part_xmax;*part_ymax", "-1.2;0.0;100.0;40.5"},
        {"*PART_XMIN;*part_xmin", "-1.2;*part_xmin"},
    });
}

TEST(ExpandLine, SizeRecordTakesTheWholeLine)
{
    const PostStation station;
    ExpectLines({
        {"*SIZ", "<SIZ:XYZ;-10;1234;-10;800;-10;1000>"},
        {"a *part_nr *SIZ *RAPID_MOVE", "<SIZ:XYZ;-10;1234;-10;800;-10;1000>"},
    });
    AppState.SheetSizeX = 500.0;
    AppState.SheetSizeY = 0.0;
    std::string line = "*SIZ";
    ExpandLine(FileProgram, line, "", BlockCounters(), FlagOn);
    EXPECT_EQ(line, "<SIZ:XYZ;-10;510;-10;800;-10;1000>");
    AppState.SheetSizeY = 250.75;
    line = "*SIZ";
    ExpandLine(FileProgram, line, "", BlockCounters(), FlagOn);
    EXPECT_EQ(line, "<SIZ:XYZ;-10;510;-10;260;-10;1000>");
}

TEST(ExpandLine, RapidLineTakesFieldsTwoAndThree)
{
    const PostStation station("[PartProgram_CONFIG]\nX_AXIS=X*&U\n");
    ExpectLines({
        {"*RAPID_MOVE", "G00 X1.500 Y2.250"}, // no mirror address
        {"lost *RAPID_MOVE lost", "G00 X1.500 Y2.250"},
    });
    for (const char* vector : {"", "END_PROG"}) {
        std::string line = "*RAPID_MOVE";
        EXPECT_EQ(ExpandLine(FileProgram, line, vector, BlockCounters(), FlagOn), FlagOn);
        EXPECT_EQ(line, "G00 X Y");
    }
}

TEST(ExpandLine, TagsInTheEndsOfARapidLineAreExpandedToo)
{
    const PostStation station("[PartProgram_RapidMOVE]\nINIT_LINE=\"*KERF_OFF \"\nEND_LINE=\" P*part_nr\"\n"
                              "GCODE=G0\n[PartProgram_CONFIG]\nSPACEBETWEENCODE=0\n");
    ExpectLines({{"*RAPID_MOVE", "G40 G0X1.500Y2.250 P7"}});
}

TEST(ExpandLine, NoRapidSuppressesTheLine)
{
    const PostStation station;
    LoadPostProcessorValues();
    std::string line = "*RAPID_MOVE *KERF_ON";
    EXPECT_EQ(ExpandLine(FileProgram, line, "INITTAG, NO_RAPID, 0 1", BlockCounters(), FlagOn), FlagOff);
    EXPECT_EQ(line, "");
    EXPECT_EQ(AppState.KerfState, KerfOff) << "the tag behind went with the line";
    line = "*RAPID_MOVE";
    EXPECT_EQ(ExpandLine(FileProgram, line, "INITTAG, no_rapid, 0", BlockCounters(), FlagOn), FlagOn)
        << "the word is compared exactly";
    EXPECT_EQ(line, "G00 Xno_rapid Y0");
}

struct KerfCase {
    const char* Line;
    std::int16_t Before;
    const char* Result;
    std::int16_t After;
};

TEST(ExpandLine, CompensationTagsMoveTheState)
{
    const PostStation station;
    const KerfCase cases[] = {
        {"a *KERF_ON b", 40, "a G41 b", 41},
        {"*KERF_ON", 42, "G41", 41}, // always the left word
        {"*KERF_OFF", 41, "G40", 40},
        {"*KERF_ON *KERF_OFF", 40, "G41 *KERF_OFF", 41},
        {"*KERF_OFF *KERF_ON", 40, "*KERF_OFF G41", 41},
        {"*KERF_OFF *KERF_OFF", 1, "G40 *KERF_OFF", 40},
        {"*kerf_on *KERF_ON", 40, "G41 *KERF_ON", 41}, // the place is found without regard to case
        {"*kerf_off", 41, "*kerf_off", 41},
        {"plain", 41, "plain", 41},
    };
    for (const KerfCase& c : cases) {
        SampleState();
        AppState.KerfState = c.Before;
        std::string line = c.Line;
        ExpandLine(FileProgram, line, "", BlockCounters(), FlagOn);
        EXPECT_EQ(line, c.Result);
        EXPECT_EQ(AppState.KerfState, c.After) << c.Line;
    }
}

TEST(ExpandLine, PartsWithoutCompensationLoseTheWords)
{
    const PostStation station;
    const KerfCase cases[] = {
        {"a*KERF_ONb", 40, "ab", 40},
        {"a*KERF_ONb", 42, "ab", 42},
        {"a*KERF_OFFb", 42, "ab", 40},
    };
    for (const KerfCase& c : cases) {
        SampleState();
        AppState.NoKerfCodes = FlagOn;
        AppState.KerfState = c.Before;
        std::string line = c.Line;
        ExpandLine(FileProgram, line, "", BlockCounters(), FlagOn);
        EXPECT_EQ(line, c.Result);
        EXPECT_EQ(AppState.KerfState, c.After);
    }
}

TEST(ExpandLine, RepeatCountIsCutInAtTheFirstStar)
{
    const PostStation station;
    ExpectLines({
        {"*RPT: copies", "6 copies"},
        {"(*RPT:)(*RPT:)", "(6)(*RPT:)"},
        {"a*b*RPT:c", "a6T:c"},
        {"*part_nr*RPT:", "6_nr*RPT:"},
        {"*x*RPT:", "6T:"},
    });
    AppState.CountX = 0;
    std::string line = "*RPT: copies";
    ExpandLine(FileProgram, line, "", BlockCounters(), FlagOn);
    EXPECT_EQ(line, "*RPT: copies");
    AppState.CountX = 70000;
    AppState.CountY = 70000;
    ExpandLine(FileProgram, line, "", BlockCounters(), FlagOn);
    EXPECT_EQ(line, "4900000000 copies");
}

TEST(ExpandLine, TracksListServesItsFirstUser)
{
    const PostStation station;
    ExpectLines({{"T*tracks_list.*TRACKS_LIST", "T4,5,6.*TRACKS_LIST"}});
    EXPECT_EQ(AppState.TracksList, "");
    std::string line = "T*tracks_list.";
    ExpandLine(FileProgram, line, "", BlockCounters(), FlagOn);
    EXPECT_EQ(line, "T.");
}

TEST(ExpandLine, ReplacesNameAndSheet)
{
    const PostStation station;
    ExpectLines({
        {"(*filename *FILENAME)", "(PLATE.cnc *FILENAME)"},
        {"*xsheet x *ysheet", "123 x 88"},
        {"*XSH x *YSH", "3000 x 1500"},
        {"*xsh *xsheet", "*xsh 123"},
        {"*ysheet *ysh *xsh", "88 *ysh 3000"},
    });
}

TEST(ExpandLine, ConditionsCutTheLineFromItsStart)
{
    const PostStation station;
    ExpectLines({
        {"*ifintprf:ABC", "ABC"},
        {"*IFINTPRF:", ""},
        {"AB*ifintprf:C", "f:C"},
        {"*ifextprf:ABC", "don'tprint"},
        {"*ifextprf:*ifintprf:X", "*ifintprf:X"},
    });
    ExpectLines(
        {
            {"*ifintprf:ABC", "don'tprint"},
            {"*ifextprf:ABC", "ABC"},
            {"*ifextprf:*ifintprf:X", "don'tprint"},
        },
        FlagOff);
}

TEST(ExpandLine, InputValuesAreExpandedUntilNoneIsLeft)
{
    const PostStation station;
    ExpectLines({
        {"S#V1 #V2#V0#Vx|", "S10 AIR|"},
        {"#V", ""},
        {"end #V", "end "},
        {"#V3", "10"},
        {"#V4", "ab"},
        {"#V5", "*part_nr"}, // the tags ahead had their turn
        {"##V0V1", "10"},    // what closes up forms a tag again
        {"##V6.", "10."},    // the value completes it: "#" + "V1"
        {"#V8V2", "AIR"},
        {"#v1", "#v1"},
        {"*part_nr#V1", "710"},
    });
}

TEST(ExpandLine, LaterStepsReadEarlierValues)
{
    const PostStation station;
    SampleState();
    AppState.OutputName = "P*xsh#V1";
    AppState.TextNesting[FieldSheetX].Text = "[*ysh]";
    std::string line = "*filename";
    ExpandLine(FileProgram, line, "", BlockCounters(), FlagOn);
    EXPECT_EQ(line, "P[1500]10");
    AppState.OutputName = "*part_nr";
    line = "*filename";
    ExpandLine(FileProgram, line, "", SampleCounters(), FlagOn);
    EXPECT_EQ(line, "*part_nr") << "an earlier step doesn't come back";
}

TEST(ExpandLine, FaultsNamePlaceAndTag)
{
    const PostStation station;
    SampleState();
    const auto expand = [](const char* text) {
        return FaultOf([text] {
            std::string line = text;
            ExpandLine(FileProgram, line, "", BlockCounters(), FlagOn, {"PartProgram_END", "LINE2"});
        });
    };
    EXPECT_NE(expand("*part_nr profile_nr").find("[PartProgram_END] LINE2: profile_nr"), std::string::npos);
    EXPECT_NE(expand("*PROFILE_NR profile_nr").find("profile_nr"), std::string::npos);
    EXPECT_NE(expand("a#V9b").find("[PartProgram_END] LINE2: #V9"), std::string::npos);
    for (const char* endless : {"#V1", "x#V1", "#V2", "#V3#V3"}) {
        AppState.PprInput[1].Value = endless;
        AppState.PprInput[2].Value = "y#V1";
        AppState.PprInput[3].Value = "#V2";
        EXPECT_NE(expand("#V1").find("#V"), std::string::npos) << endless;
    }
    AppState.PprInput[1].Value = std::string(60, '.') + "#V2#V2#V2";
    AppState.PprInput[2].Value = "#V3#V3#V3#V3#V3#V3#V3#V3#V3";
    AppState.PprInput[3].Value = "#V4#V4#V4#V4#V4#V4#V4#V4#V4";
    AppState.PprInput[4].Value = "#V5#V5#V5#V5#V5#V5#V5#V5#V5";
    AppState.PprInput[5].Value = "#V6#V6#V6#V6#V6#V6#V6#V6#V6";
    EXPECT_NE(expand("#V1").find("without end"), std::string::npos) << "an end beyond any line is none";
}

TEST(ExpandLine, CollectionIsPutOutInAProgramOnly)
{
    const PostStation station;
    SampleState();
    for (const std::int16_t file : {FileNone, FileCollection}) {
        AppState.CollectionBuffer = {"one"};
        std::string line = "*write_collection";
        ExpandLine(file, line, "", BlockCounters(), FlagOn);
        EXPECT_EQ(line, "*write_collection");
        EXPECT_EQ(AppState.CollectionBuffer, Lines{"one"});
    }
    AppState.LineNumbering = FlagOn;
    AppState.LineNumber = 50;
    AppState.CollectionBuffer = {"N10 one", "don'tprint", ""};
    const Lines written = station.Written([] {
        std::string line = "x *Write_Collection *part_nr";
        EXPECT_EQ(ExpandLine(FileProgram, line, "", BlockCounters(), FlagOn), FlagOn);
        EXPECT_EQ(line, DontPrint);
    });
    EXPECT_EQ(written, (Lines{"N10 one", "don'tprint", ""}));
    EXPECT_TRUE(AppState.CollectionBuffer.empty());
    EXPECT_EQ(AppState.LineNumber, 50) << "collected lines got their numbers earlier";
}

/// A line put together from tags, near-tags and text.
std::string RandomLine(std::mt19937& random)
{
    static const char* const pieces[] = {
        "*SIZ",
        "*RAPID_MOVE",
        "*KERF_ON",
        "*KERF_OFF",
        "*kerf_on",
        "*RPT:",
        "*part_nr",
        "*PART_NR",
        "*trace_nr",
        "*profile_nr",
        "*PROFILE_NR",
        "profile_nr",
        "*part_xmin",
        "*part_ymin",
        "*part_xmax",
        "*Part_YMax",
        "*filename",
        "*xsheet",
        "*xsh",
        "*ysheet",
        "*YSH",
        "*ifintprf:",
        "*ifextprf:",
        "#V1",
        "#V2",
        "#V3",
        "#Vx",
        "#V",
        "#",
        "*",
        "**",
        " ",
        "G01",
        "_",
        "V1",
        "*tracks_list",
        "*subprogram_nr",
        "*write_collection",
        "#V9",
        "don'tprint",
        "\xC3\x84",
        "*xs",
    };
    std::string line;
    for (std::size_t n = random() % 6; n > 0; --n) {
        line += pieces[random() % std::size(pieces)];
    }
    return line;
}

struct Outcome {
    std::string Line;
    Flag Written = FlagOff;
    std::int16_t KerfState = 0;
    std::string TracksList;
    std::size_t Collected = 0;

    bool operator==(const Outcome&) const = default;
};

template <typename Expand> Outcome OutcomeOf(Expand expand, std::int16_t file, std::string line, bool fault)
{
    Outcome outcome;
    try {
        outcome.Written = expand(file, line);
        outcome.Line = line;
    } catch (const RunTimeFault&) {
        outcome.Line = "fault";
    }
    EXPECT_TRUE(fault || outcome.Line != "fault") << line;
    outcome.KerfState = AppState.KerfState;
    outcome.TracksList = AppState.TracksList;
    outcome.Collected = AppState.CollectionBuffer.size();
    return outcome;
}

TEST(ExpandLine, EqualsThePlainDefinition)
{
    const PostStation station;
    std::mt19937 random(20260101);
    OpenText(ProgramFile, station.Folder.Path + "\\TRIAL");
    for (int round = 0; round < 6000; ++round) {
        const std::string line = RandomLine(random);
        const auto file = static_cast<std::int16_t>(static_cast<int>(random() % 3) - 1);
        const bool faulty = line.find("profile_nr") != std::string::npos ||
                            line.find("#V") != std::string::npos || line.find("V") != std::string::npos;
        const char* vector = random() % 2 == 0 ? "A, NO_RAPID, 0" : "A,1.000,2.000";
        const auto internal = static_cast<Flag>(-static_cast<int>(random() % 2));
        const auto noKerf = static_cast<Flag>(-static_cast<int>(random() % 2));
        const auto prepare = [&] {
            SampleState();
            AppState.NoKerfCodes = noKerf;
            AppState.CollectionBuffer = {"kept"};
        };
        prepare();
        const Outcome fast = OutcomeOf(
            [&](std::int16_t to, std::string& text) {
                return ExpandLine(to, text, vector, SampleCounters(), internal);
            },
            file, line, faulty);
        prepare();
        const Outcome plain = OutcomeOf(
            [&](std::int16_t to, std::string& text) {
                return PlainExpandLine(to, text, vector, SampleCounters(), internal);
            },
            file, line, faulty);
        ASSERT_EQ(fast, plain) << line << " -> " << fast.Line << " / " << plain.Line;
    }
    AbandonText(ProgramFile);
}
} // namespace
