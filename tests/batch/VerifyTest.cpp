// --verify through the real program: what it says, what it does to a wrong program, and every shape, nest type, sample
// drawing and shipped table.
#include "BatchRun.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <sstream>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace
{
namespace fs = std::filesystem;

const std::string PlainTable = "[PartProgram_CONFIG]\nINC_CENTER=YES\nFILE_EXTENSION=nc\n"
                               "[PartProgram_StartCUT]\nLINE1=*RAPID_MOVE\nLINE2=M03\n"
                               "[PartProgram_EndCUT]\nLINE1=M05\nLINE2=*KERF_OFF\n";

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    text.replace(text.find(from), from.size(), to);
    return text;
}

TEST(Verify, ARightProgramIsToldInALine)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", PlainTable);
    // A plate with two chamfers: a straight lead and six sides; three copies.
    const BatchResult result = station.Run({"R-05", "--set", "X Sheet=*3", "--program", "P", "--verify"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(result.Output, "Copies: 3\nPierces: 3\nCutting length: 2929.7\nProgram: " +
                                 station.Folder.Path + "/NC/P.nc\nVerified: 3 cuts, 21 moves\n");
    EXPECT_EQ(station.Run({"R-05", "--program", "P", "--verify", "--quiet"}).Output, "");
    const BatchResult json = station.Run({"R-05", "--program", "P", "--verify", "--json", "-"});
    EXPECT_EQ(nlohmann::json::parse(json.Output)["ShapeId"], 1005);
    EXPECT_THAT(json.Errors, HasSubstr("Verified: 1 cuts, 7 moves\n"));
}

TEST(Verify, LeavesProgramAndStateAsTheyAreWithoutIt)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", PlainTable);
    const std::vector<std::string> plain = {"R-20",   "--set",  "X Sheet=*2", "--program", "P",
                                            "--json", "a.json", "--svg",      "a.svg"};
    ASSERT_EQ(station.Run(plain).Status, 0);
    const std::string program = station.Folder.Read("NC/P.nc");
    const std::string json = station.Folder.Read("a.json");
    const std::string svg = station.Folder.Read("a.svg");
    std::vector<std::string> verified = plain;
    verified.emplace_back("--verify");
    ASSERT_EQ(station.Run(verified).Status, 0);
    EXPECT_EQ(station.Folder.Read("NC/P.nc"), program);
    EXPECT_EQ(station.Folder.Read("a.json"), json);
    EXPECT_EQ(station.Folder.Read("a.svg"), svg);
}

TEST(Verify, AWrongProgramFailsTheRunAndLosesItsName)
{
    const BatchStation station;
    // Clockwise arcs are written as counter-clockwise ones; a hole runs counter-clockwise, its lead as well.
    station.Folder.Write("PPR.ini", PlainTable + "[PartProgram_CircularMOVE]\nCCW_GCODE=G02\n");
    const BatchResult result = station.Run({"C-01", "--program", "P", "--verify", "--json", "state.json"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Output, "");
    EXPECT_THAT(
        result.Errors,
        AllOf(HasSubstr("copy 1, profile 1, lead-in: a counter-clockwise arc expected, a clockwise arc found "
                        "(line 4)\n"),
              HasSubstr("korvanta-batch: " + station.Folder.Path +
                        "/NC/P.nc differs from the part; it stands under that name + .part\n")));
    EXPECT_FALSE(station.Folder.Holds("NC/P.nc"));
    EXPECT_TRUE(station.Folder.Holds("NC/P.nc.part"));
    EXPECT_FALSE(station.Folder.Holds("state.json"));
}

TEST(Verify, ManyDifferencesAreCounted)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", Replaced(PlainTable, "LINE2=*KERF_OFF\n", ""));
    const BatchResult result =
        station.Run({"R-05", "--set", "X Sheet=*8", "--set", "Y Sheet=*3", "--program", "P", "--verify"});
    EXPECT_EQ(result.Status, 1);
    // 24 cuts whose compensation nobody ends: ten are named
    EXPECT_THAT(result.Errors, AllOf(HasSubstr("behind copy 10, profile 1: "),
                                     Not(HasSubstr("behind copy 11")), HasSubstr("\nand 14 more\n")));
}

TEST(Verify, AJobIsVerifiedAsItIsSaved)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", PlainTable);
    const BatchResult right = station.Run({"R-05", "--save", "PLATE", "--verify"});
    EXPECT_EQ(right.Status, 0) << right.Errors;
    EXPECT_THAT(right.Output, HasSubstr("Verified: 1 cuts, 7 moves\n"));
    const BatchResult again =
        station.Run({"PLATE.nst", "--set", "Angle=30", "--program", "Q", "--save", "PLATE30", "--verify"});
    EXPECT_EQ(again.Status, 0) << again.Errors;
    station.Folder.Write("PPR.ini", Replaced(PlainTable, "LINE2=M03\n", "LINE2=G91\n"));
    EXPECT_EQ(station.Run({"PLATE.nst", "--save", "PLATE", "--verify"}).Status, 1);
    EXPECT_FALSE(station.Folder.Holds("NC/PLATE.nc"));
}

TEST(Verify, AProgramThatCantBeReadBackIsWrittenAndSaysSo)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", Replaced(PlainTable, "INC_CENTER=YES\n", "SUBPROGRAMS=YES\n"));
    const BatchResult result = station.Run({"R-05", "--program", "P", "--verify", "--json", "state.json"});
    EXPECT_EQ(result.Status, 3);
    EXPECT_THAT(result.Errors,
                HasSubstr("/NC/P.nc is written but not verified: the table writes sub-programs"));
    EXPECT_THAT(result.Output, AllOf(HasSubstr("Program: "), Not(HasSubstr("Verified"))));
    EXPECT_TRUE(station.Folder.Holds("NC/P.nc"));
    EXPECT_TRUE(station.Folder.Holds("state.json"));
}

TEST(Verify, NeedsAProgram)
{
    const BatchStation station;
    const BatchResult result = station.Run({"R-05", "--verify"});
    EXPECT_EQ(result.Status, 2);
    EXPECT_THAT(result.Errors, HasSubstr("--verify: goes with --program or --save"));
}

// --- all that is shipped ----------------------------------------------------------------------------------

const fs::path Shipped = fs::path(KORVANTA_SOURCE_DIR) / "station";

std::string Bytes(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Names of the shipped tables, as PPR_INI takes them.
std::vector<std::string> ShippedTables()
{
    std::vector<std::string> tables;
    for (const fs::path& folder : {Shipped, Shipped / "ppr"}) {
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            const std::string name = entry.path().lexically_relative(Shipped).string();
            if (entry.path().extension() == ".ini" && name != "Korvanta.ini") {
                tables.push_back(name);
            }
        }
    }
    std::sort(tables.begin(), tables.end());
    return tables;
}

class VerifyTables : public testing::TestWithParam<std::string>
{
protected:
    BatchStation Station;
    int WantedStatus = 0; ///< of a program with this table
    std::mt19937 Random{2611};

    void SetUp() override
    {
        const std::string& table = GetParam();
        const std::string bytes = Bytes(Shipped / table);
        ASSERT_THAT(bytes, HasSubstr("[PartProgram_CONFIG]"));
        Station.Folder.Write(table, bytes);
        Station.Folder.Write("Korvanta.ini", "[CONFIG]\r\nPPR_INI=" + table + "\r\nNC_PATH=NC\r\n");
        WantedStatus = bytes.find("\nSUBPROGRAMS=YES") == std::string::npos ? 0 : 3;
    }

    std::string Pick(const std::vector<std::string>& from)
    {
        return from[Random() % from.size()];
    }

    /// Turned, mirrored, scaled, with leads of any kind. A lead-in that is an arc alone leaves round contours without
    /// compensation, and so does none at all: a straight piece is always there.
    std::vector<std::string> ByChance()
    {
        std::vector<std::string> arguments;
        const auto set = [&arguments](const std::string& caption, const std::string& value) {
            arguments.insert(arguments.end(), {"--set", caption + "=" + value});
        };
        set("Angle", Pick({"0", "90", "-37.3", "12.345", "211"}));
        set("Mirror", Pick({"0", "1", "2", "3"}));
        set("Scale", Pick({"1", "0.13", "0.37", "2.5", "7"}));
        set("Move Step", Pick({"0.1", "1", "10"}));
        set("LeadIn : A", Pick({"0.5", "2", "3.333", "7"}));
        set("LeadIn : B", Pick({"0", "0.5", "2", "3.333"}));
        set("LeadOut : C", Pick({"0", "0.5", "2", "6.667"}));
        set("LeadOut : D", Pick({"0", "0.25", "2"}));
        for (const char* key : {"CopyLeads", "PrfPathChange", "MoveLeadPlus", "MoveLeadNextElem", "OTLeft"}) {
            if (Random() % 2 == 0) {
                arguments.insert(arguments.end(), {"--key", key});
            }
        }
        set("Kerf", Pick({"0", "1.5"}));
        set("X Gap", Pick({"0", "5", "-3", "7.123"}));
        return arguments;
    }

    void Cut(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.end(), {"--program", "P", "--verify", "--quiet"});
        const BatchResult result = Station.Run(arguments);
        ASSERT_EQ(result.Status, WantedStatus) << testing::PrintToString(arguments) << "\n" << result.Errors;
    }
};
INSTANTIATE_TEST_SUITE_P(Shipped, VerifyTables, testing::ValuesIn(ShippedTables()), [](const auto& row) {
    std::string name = row.param;
    std::replace_if(
        name.begin(), name.end(), [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; },
        '_');
    return name;
});

TEST_P(VerifyTables, EachShapeOnEachNest)
{
    for (const nlohmann::json& shape :
         nlohmann::json::parse(Station.Run({"--list-shapes", "--json", "-"}).Output)) {
        const std::string name = shape["Name"];
        for (const std::string type : {"1", "2", "3", "4"}) {
            ASSERT_NO_FATAL_FAILURE(
                Cut({name, "--set", "Nesting=" + type, "--set", "X Sheet=*2", "--set", "Y Sheet=2500"}));
        }
        std::vector<std::string> arguments = ByChance();
        arguments.insert(arguments.begin(), name);
        arguments.insert(arguments.end(), {"--set", "Nesting=" + Pick({"1", "2", "3", "4"}), "--set",
                                           "X Sheet=*2", "--set", "Y Sheet=*3"});
        ASSERT_NO_FATAL_FAILURE(Cut(arguments));
        if (WantedStatus != 0) {
            return; // nothing is compared, once says it
        }
    }
}

TEST_P(VerifyTables, EachDrawing)
{
    for (const char* drawing : {"BRACKET.dxf", "FLANGE.dxf", "GASKET.dxf", "PANEL.dxf"}) {
        for (const std::string type : {"1", "2", "3", "4"}) {
            std::vector<std::string> arguments = ByChance();
            arguments.insert(arguments.begin(), (Shipped / "DXF" / drawing).string());
            arguments.insert(arguments.end(),
                             {"--set", "Nesting=" + type, "--set", "X Sheet=*3", "--set", "Y Sheet=*2"});
            ASSERT_NO_FATAL_FAILURE(Cut(arguments));
        }
        ASSERT_NO_FATAL_FAILURE(Cut({(Shipped / "DXF" / drawing).string()}));
    }
}
} // namespace
