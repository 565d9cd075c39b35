// Warnings about what a table can't tell its control of a part.
#include "BatchRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using testing::HasSubstr;

/// A station whose table has these lines, besides what each cut begins and ends with.
struct TableStation {
    BatchStation Station;

    explicit TableStation(const std::string& lines)
    {
        Station.Folder.Write(
            "PPR.ini",
            "[PartProgram_StartCUT]\nLINE1=*RAPID_MOVE\n[PartProgram_EndCUT]\nLINE1=*KERF_OFF\n" + lines);
    }

    std::string Warnings(std::vector<std::string> words) const
    {
        words.insert(words.end(), {"--program", "W"});
        const BatchResult result = Station.Run(words);
        EXPECT_EQ(result.Status, 0) << result.Errors;
        return result.Errors;
    }
};

const char* const NoWord = "the table writes no compensation";
const char* const LateWord = "doesn't begin with a straight lead-in: compensation comes late or not at all";
const char* const LongArc = "turn more than half a circle";

TEST(TableWarnings, SilentForAPlainTable)
{
    EXPECT_EQ(TableStation("").Warnings({"R-01"}), "");
}

TEST(TableWarnings, ATableThatIsntThereIsNamed)
{
    const BatchStation station;
    station.Folder.Write("Korvanta.ini", station.Folder.Read("Korvanta.ini") + "PPR_INI=ppr\\mine.ini\n");
    const BatchResult missing = station.Run({"R-01", "--program", "W"});
    EXPECT_EQ(missing.Status, 0);
    EXPECT_THAT(missing.Errors, HasSubstr("warning: the post-processor table " + station.Folder.Path +
                                          "/ppr/mine.ini isn't there"));
    EXPECT_EQ(station.Run({"R-01"}).Errors, "") << "no program, no table";
    station.Folder.Write("ppr/MINE.INI", "[PartProgram_StartCUT]\nLINE1=*RAPID_MOVE\n");
    EXPECT_EQ(station.Run({"R-01", "--program", "W"}).Errors, "") << "found in any case";
}

TEST(TableWarnings, AWordBehindTheLeadInComesLate)
{
    const TableStation station(
        "[PartProgram_FirstMOVE]\nKERF_ON=NO\n[PartProgram_EndLeadIn]\nLINE1=*KERF_ON\n");
    const std::string warnings = station.Warnings({"R-01"});
    EXPECT_THAT(warnings, HasSubstr("turns compensation on behind the lead-in"));
    EXPECT_THAT(warnings, testing::Not(HasSubstr(NoWord)));
}

TEST(TableWarnings, WithoutCompensationTheSizeIsTold)
{
    const TableStation station("[PartProgram_FirstMOVE]\nKERF_ON=NO\n");
    EXPECT_THAT(station.Warnings({"R-01"}), HasSubstr(NoWord));
    EXPECT_EQ(station.Warnings({"R-39"}), "") << "a stroke has no side";
    const BatchResult idle = station.Station.Run({"R-01"});
    EXPECT_EQ(idle.Errors, "") << "no program, no warning";
}

TEST(TableWarnings, AWordInTheBlockWillDo)
{
    BatchStation station;
    station.Folder.Write("PPR.ini",
                         "[PartProgram_FirstMOVE]\nKERF_ON=NO\n[PartProgram_StartCUT]\nLINE1=*RAPID_MOVE\n"
                         "LINE2=*KERF_ON\n[PartProgram_EndCUT]\nLINE1=*KERF_OFF\n");
    EXPECT_EQ(station.Run({"R-01", "--program", "W"}).Errors, "");
    EXPECT_EQ(station.Run({"R-01", "--set", "LeadIn : A=0", "--program", "W"}).Errors, "");
}

TEST(TableWarnings, ALeadInThatBeginsWithAnArcIsNamed)
{
    const TableStation station("");
    // four holes, then the outline: only the first hole loses its straight piece
    const std::string hole =
        station.Warnings({"R-20", "--param", "Di=40", "--set", "Profile nr.=1", "--set", "LeadIn : A=0"});
    EXPECT_THAT(hole, HasSubstr("the cut of profile 1 doesn't"));
    EXPECT_THAT(hole, HasSubstr(LateWord));
    const std::string all = station.Warnings(
        {"R-20", "--param", "Di=40", "--set", "LeadIn : A=0", "--set", "LeadIn : B=0", "--key", "CopyLeads"});
    EXPECT_THAT(all, HasSubstr("the cut of profiles 1, 2, 3, 4, 5 doesn't")) << "no lead at all";
}

TEST(TableWarnings, RadiusWordsOfMoreThanHalfACircleAreNamed)
{
    const TableStation station("[PartProgram_CONFIG]\nRADIUS=R\n");
    const std::string holes = station.Warnings({"R-20", "--param", "Di=40"});
    EXPECT_THAT(holes, HasSubstr("arcs of profiles 1, 2, 3, 4 turn")) << "not the outline";
    EXPECT_THAT(holes, HasSubstr(LongArc));
    // quarters, and the half circles of a slot and a round end
    EXPECT_EQ(station.Warnings({"R-01"}), "");
    EXPECT_EQ(station.Warnings({"C-09"}), "");
}

TEST(TableWarnings, MarksThatAreLeftOutOrCantFollowAreTold)
{
    const std::vector<std::string> marked = {std::string(KORVANTA_SOURCE_DIR) + "/station/DXF/BRACKET.dxf",
                                             "--set",
                                             "Move Step=1",
                                             "--set",
                                             "LeadIn : A=2",
                                             "--set",
                                             "LeadIn : B=1",
                                             "--key",
                                             "CopyLeads"};
    EXPECT_THAT(TableStation("").Warnings(marked), HasSubstr("the marking points aren't in the program"));
    const std::string point = "[PartProgram_POINT]\nLINE1=*RAPID_MOVE\n";
    EXPECT_EQ(TableStation(point).Warnings(marked), "");
    EXPECT_THAT(TableStation(point + "[PartProgram_CONFIG]\nSUBPROGRAMS=YES\n").Warnings(marked),
                HasSubstr("once and not at each copy"));
}
} // namespace
