// Shapes of the catalogue through the real program: parameters, the list, the picture, and each of them through every
// nest type and sample table.
#include "BatchRun.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace
{
TEST(Shapes, ADefaultShapeGoesTheWholeRoad)
{
    const BatchStation station;
    const BatchResult result = station.Run({"R-05", "--program", "PLATE"});
    EXPECT_EQ(result.Status, 0);
    // Four sides less the chamfers, and two chamfers: 280 + 200 + 280 + 160 + 2 * 20 * 1.41421.
    EXPECT_EQ(result.Output, "Copies: 1\nPierces: 1\nCutting length: 976.56\nProgram: " +
                                 station.Folder.Path + "/NC/PLATE\n");
    // Lower left corner at half the gap of 10. The contour starts at (0, 20) and runs up; its lead of 10 + 5 is straight,
    // since it stands within 1.5 move steps of that corner.
    EXPECT_EQ(station.Folder.Read("NC/PLATE"), "N10 G01 G41 X5.000 Y25.000 \r\n"
                                               "N20 G01 X5.000 Y305.000 \r\n"
                                               "N30 G01 X205.000 Y305.000 \r\n"
                                               "N40 G01 X205.000 Y25.000 \r\n"
                                               "N50 G01 X185.000 Y5.000 \r\n"
                                               "N60 G01 X25.000 Y5.000 \r\n"
                                               "N70 G01 X5.000 Y25.000 \r\n");
}

TEST(Shapes, ParametersReplaceDefaultsInAnyOrder)
{
    const BatchStation station;
    const json state = station.State({"r-05", "--param", "Y=30", "--param", "A=100", "--param", " X =40"});
    EXPECT_EQ(state["ShapeId"], 1005);
    EXPECT_EQ(state["JobName"], "R_05");
    EXPECT_EQ(state["SourceName"], "R_05");
    EXPECT_FALSE(state.contains("Import"));
    EXPECT_EQ(state["MaxX"], 200.0);
    EXPECT_EQ(state["MaxY"], 100.0);
    const json& first = state["ElementTable"][0];
    EXPECT_EQ(first["StartX"], 0.0);
    EXPECT_EQ(first["StartY"], 30.0);
    const json& bottom = state["ElementTable"][4];
    EXPECT_EQ(bottom["StartX"], 160.0);
    EXPECT_EQ(bottom["EndX"], 40.0);
}

TEST(Shapes, TailAndSwapGoByTheseWords)
{
    const BatchStation station;
    const json plain = station.State({"C-25"});
    const json swapped = station.State({"C-25", "--param", "Swap=1", "--param", "Tail=7"});
    EXPECT_EQ(plain["ElementTable"][0]["Sense"], 1);
    EXPECT_EQ(swapped["ElementTable"][0]["Sense"], -1);
    // A straight exit on each half.
    EXPECT_EQ(swapped["ElementCount"], plain["ElementCount"].get<int>() + 2);
}

TEST(Shapes, UnknownLettersAreWrongUse)
{
    const BatchStation station;
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"R-05", "--param", "Q=1"},
                                                      {"R-05", "--param", "a=1"},
                                                      {"R-05", "--param", "A"},
                                                      {"box.iso", "--param", "A=1"},
                                                      {"R-42", "--param", "A=1"}}) {
        const BatchResult result = station.Run(arguments);
        EXPECT_EQ(result.Status, 2) << arguments.back();
        EXPECT_THAT(result.Errors, AllOf(HasSubstr("--param"), HasSubstr("--help")));
    }
    EXPECT_THAT(station.Run({"R-05", "--param", "Q=1"}).Errors, HasSubstr("A, B, X, Y"));
}

TEST(Shapes, ABadShapeShowsTheStationsMessageAndLeavesNothing)
{
    const BatchStation station;
    const std::string json = station.Folder.Path + "/state.json";
    const BatchResult result = station.Run(
        {"R-05", "--param", "A=0.05", "--program", "PLATE", "--json", json, "--svg", "plate.svg"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, AllOf(HasSubstr("No part."), HasSubstr("R-05")));
    EXPECT_EQ(result.Output, "");
    EXPECT_FALSE(station.Folder.Holds("NC/PLATE"));
    EXPECT_FALSE(station.Folder.Holds("state.json"));
    EXPECT_FALSE(station.Folder.Holds("plate.svg"));
}

TEST(Shapes, AreListedAsTextAndAsJson)
{
    const BatchStation station;
    const BatchResult text = station.Run({"--list-shapes"});
    EXPECT_EQ(text.Status, 0);
    EXPECT_THAT(text.Output, HasSubstr("R-05  A=300  B=200  X=20  Y=20\n"));
    EXPECT_THAT(text.Output, HasSubstr("R-37  A=100  B=150  C=-20  D=100"));
    const json list = json::parse(station.Run({"--list-shapes", "--json", "-"}).Output);
    ASSERT_EQ(list.size(), 70U);
    EXPECT_EQ(list[0]["Name"], "R-01");
    EXPECT_EQ(list[69]["ShapeId"], 3003);
    EXPECT_EQ(list[65]["Name"], "C-25");
    ASSERT_EQ(list[65]["Parameters"].size(), 5U);
    EXPECT_EQ(list[65]["Parameters"][3]["Letter"], "Tail");
    EXPECT_EQ(list[65]["Parameters"][1]["Default"], 10.0);
}

TEST(Shapes, ThePictureHoldsContourAndLead)
{
    const BatchStation station;
    EXPECT_EQ(station.Run({"R-13", "--svg", "triangle.svg"}).Status, 0);
    const std::string picture = station.Folder.Read("triangle.svg");
    EXPECT_THAT(picture, AllOf(HasSubstr("<svg"), HasSubstr("</svg>"), HasSubstr("M0 0L0 -300"),
                               HasSubstr("M0 -300L200 0")));
    EXPECT_THAT(picture, HasSubstr("L0 0\"")) << "the straight lead of 15 ends at the corner";
}

TEST(Shapes, LeadsThatPierceThePartAreTold)
{
    const BatchStation station;
    // Holes of 10: a lead of 10 + 5 square to the contour starts 5 beyond the far side.
    const BatchResult pierced = station.Run({"R-20", "--param", "Di=10"});
    EXPECT_EQ(pierced.Status, 0);
    EXPECT_THAT(pierced.Errors, HasSubstr("lead-in of profiles 1, 2, 3, 4 starts in the part"));
    EXPECT_EQ(station.Run({"R-20", "--param", "Di=40"}).Errors, "");
    EXPECT_EQ(station
                  .Run({"R-20", "--param", "Di=10", "--set", "LeadIn : A=2", "--set", "LeadIn : B=1", "--key",
                        "CopyLeads"})
                  .Errors,
              "");
    // A ring of 10 inside a hole: the lead outside of it ends in the outer ring.
    EXPECT_THAT(station.Run({"C-24"}).Errors, HasSubstr("lead-in of profiles 2, 3 starts"));
    EXPECT_EQ(station.Run({"C-26"}).Errors, "") << "open halves hold no material";
    EXPECT_EQ(station.Run({"H-01"}).Errors, "") << "the lead of a hole lies in its scrap";
    // Of a hole the sheet around it stays. Its first side begins at (5, 0), where the lead of 10 + 5 jumps to: it starts
    // at (-10, 0). Square to the side, 6 along, it starts in the hole.
    EXPECT_THAT(station.Run({"H-02"}).Errors, HasSubstr("lead-in of profile 1 starts in the part"));
    EXPECT_EQ(station.Run({"H-02", "--set", "Move Step=1"}).Errors, "");
    EXPECT_THAT(station.Run({"H-01", "--param", "D=10"}).Errors, HasSubstr("lead-in of profile 1 starts"));
}

TEST(Shapes, CopiesOverAnEdgeOfTheSheetAreTold)
{
    const BatchStation station;
    const auto errorsOf = [&station](const std::vector<std::string>& settings) {
        std::vector<std::string> words = {"R-13", "--param", "A=100", "--param", "B=100"};
        for (const std::string& setting : settings) {
            words.insert(words.end(), {"--set", setting});
        }
        const BatchResult result = station.Run(words);
        EXPECT_EQ(result.Status, 0);
        return result.Errors;
    };
    // Rows of 110 from 5 on: the third ends at 325, on a sheet of 2 x 110 + 100.
    EXPECT_EQ(errorsOf({"Y Gap=0", "Kerf=5", "Y Sheet=*3"}),
              "warning: the nest reaches over the upper edge of the sheet by 5\n");
    EXPECT_EQ(errorsOf({"Y Gap=10", "Kerf=15", "Y Sheet=*3"}), "") << "20 + 2 x 140 + 100 is 280 + 100 + 20";
    // Columns of 90 from -5 on: the second ends at 185, on a sheet of 180.
    EXPECT_EQ(errorsOf({"X Gap=-10", "X Sheet=*2"}),
              "warning: the nest reaches over the left edge of the sheet by 5\n"
              "warning: the nest reaches over the right edge of the sheet by 5\n");
    EXPECT_EQ(errorsOf({"Y Gap=-3"}), "warning: the nest reaches over the lower edge of the sheet by 1.5\n");
    EXPECT_EQ(station.Run({"R-13", "--key", "OTRgt", "--set", "Y Gap=-3"}).Errors, "")
        << "a zero on the path tells nothing of the sheet's edges";
}

std::string ReadShipped(const std::string& name)
{
    std::ifstream file(std::string(KORVANTA_SOURCE_DIR) + "/station/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(Shapes, SubProgramsMoveTheNestOverTheEdge)
{
    const BatchStation station;
    const std::string table = "PPR_SubPrograms.ini";
    station.Folder.Write("Korvanta.ini", "[CONFIG]\r\nPPR_INI=" + table + "\r\nNC_PATH=NC\r\n");
    station.Folder.Write(table, ReadShipped(table));
    const std::vector<std::string> nest = {"R-13",  "--param", "A=100", "--param",   "B=100",
                                           "--set", "Y Gap=4", "--set", "Y Sheet=*1"};
    EXPECT_EQ(station.Run(nest).Errors, "");
    // The lead begins 15 below the corner, so the copy goes from 2 to 17 and ends at 117, on a sheet of 100 + 2 x 4.
    std::vector<std::string> program = nest;
    program.insert(program.end(), {"--program", "S"});
    const BatchResult written = station.Run(program);
    EXPECT_EQ(written.Status, 0);
    EXPECT_THAT(written.Errors,
                HasSubstr("warning: the nest reaches over the upper edge of the sheet by 9\n"));
    EXPECT_THAT(written.Errors, Not(HasSubstr("right edge")));
}

/// Cut starts and motion lines of a program, and whether any number is none.
struct ProgramFigures {
    int Moves = 0;
    bool Broken = false;
};

ProgramFigures ReadProgram(const std::string& text)
{
    ProgramFigures figures;
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line)) {
        for (const char* code : {"G01 ", "G1 ", "G02 ", "G2 ", "G03 ", "G3 "}) {
            figures.Moves += line.find(code) != std::string::npos;
        }
        figures.Broken =
            figures.Broken || line.find("nan") != std::string::npos || line.find("inf") != std::string::npos;
    }
    return figures;
}

/// Each shape on every nest type with one of the shipped tables.
void CutAllShapes(const std::string& table)
{
    const BatchStation station;
    station.Folder.Write("Korvanta.ini", "[CONFIG]\r\nPPR_INI=" + table + "\r\nNC_PATH=NC\r\n");
    station.Folder.Write(table, ReadShipped(table));
    for (const json& shape : json::parse(station.Run({"--list-shapes", "--json", "-"}).Output)) {
        const std::string name = shape["Name"];
        for (const std::string type : {"1", "2", "3", "4"}) {
            const BatchResult result =
                station.Run({name, "--set", "Nesting=" + type, "--set", "X Sheet=*2", "--set", "Y Sheet=2500",
                             "--program", "S", "--json", "state.json"});
            ASSERT_EQ(result.Status, 0) << name << " type " << type << "\n" << result.Errors;
            const json state = json::parse(station.Folder.Read("state.json"));
            ASSERT_GT(state["Nest"]["Copies"].size(), 0U) << name << " type " << type;
            const std::string path = state["Program"]["Path"];
            const ProgramFigures figures =
                ReadProgram(station.Folder.Read(path.substr(station.Folder.Path.size() + 1)));
            EXPECT_FALSE(figures.Broken) << name;
            EXPECT_GE(figures.Moves, state["ProfileCount"].get<int>()) << name;
        }
    }
}

TEST(Shapes, EachGoesThroughThePlainTable)
{
    CutAllShapes("PPR.ini");
}

TEST(Shapes, EachGoesThroughTheTableForLinuxCnc)
{
    CutAllShapes("PPR_LinuxCNC.ini");
}

TEST(Shapes, EachGoesThroughTheTableWithSubPrograms)
{
    CutAllShapes("PPR_SubPrograms.ini");
}
} // namespace
