// The road of one part through the real window, by keys alone, from the list to the saved program, which equals the one
// that korvanta-batch makes from the same numbers.
#include "WindowStation.h"

#include <gtest/gtest.h>

namespace
{
const Road FittingLeads = {
    {"Move Step", "1"}, {"LeadIn : A", "3"}, {"LeadIn : B", "1.5"}, {"key", "CopyLeads"}};

Road Joined(const Road& first, const Road& second)
{
    Road road = first;
    road.insert(road.end(), second.begin(), second.end());
    return road;
}

/// Copies in a program of the shipped table.
int PartsIn(const std::string& program)
{
    int parts = 0;
    for (std::size_t at = 0; (at = program.find("\n(part ", at)) != std::string::npos; ++at) {
        parts += program.find(" from ", at) < program.find('\n', at + 1) ? 0 : 1;
    }
    return parts;
}

TEST(WindowRoad, CutsAShapeTenTimes)
{
    WindowStation station;
    const Road road =
        Joined(FittingLeads,
               {{"X Sheet", "*5"}, {"Y Sheet", "*2"}, {"Kerf", "1.2"}, {"X Gap", "8"}, {"Y Gap", "6"}});
    const std::string expected = station.Reference(
        "R-05", {"--param", "A=120", "--param", "B=80.5", "--param", "X=15", "--param", "Y=12"}, road,
        "ROAD10");
    ASSERT_EQ(PartsIn(expected), 10);
    station.Start();
    station.Press({"F3", "F3", "F3", "F3"}); // from
    station.Open();
    station.TypeParameters({"120", "80.5", "15", "12"});
    station.Walk(road);
    EXPECT_EQ(station.Save("ROAD10"), expected);
    EXPECT_TRUE(station.Lives());
}

TEST(WindowRoad, CutsADrawing)
{
    WindowStation station;
    const Road road = Joined(FittingLeads, {{"X Sheet", "800"}, {"Y Sheet", "400"}, {"Kerf", "1"}});
    const std::string expected = station.Reference("BRACKET.dxf", {}, road, "DRAWN");
    ASSERT_GT(PartsIn(expected), 1);
    station.Start();
    station.GoToTab(DxfTab);
    station.Open(); // the first of the list
    station.Walk(road);
    EXPECT_EQ(station.Save("DRAWN"), expected);
}

TEST(WindowRoad, CutsAProgram)
{
    WindowStation station;
    const Road noLeads = {{"LeadIn : A", "0"}, {"LeadIn : B", "0"}, {"key", "CopyLeads"}};
    station.Folder.Write("PROGRAM/A.nc", station.Reference("FLANGE.dxf", {}, noLeads, "A"));
    const Road road = Joined(FittingLeads, {{"X Sheet", "*3"}});
    const std::string expected = station.Reference("A.nc", {}, road, "AGAIN");
    ASSERT_EQ(PartsIn(expected), 3);
    station.Start();
    station.GoToTab(IsoTab);
    station.Open();
    station.Walk(road);
    EXPECT_EQ(station.Save("AGAIN"), expected);
}

struct TurnCase {
    const char* Name;
    Road Steps;
};

TEST(WindowRoad, TurnsMirrorsScalesAndNests)
{
    const TurnCase cases[] = {
        {"TURN1",
         {{"Angle", "30"},
          {"Mirror", "1"},
          {"Scale", "2"},
          {"X Sheet", "2000"},
          {"Y Sheet", "1500"},
          {"Nesting", "2"}}},
        {"TURN2",
         {{"Angle", "-45.5"},
          {"Mirror", "2"},
          {"Scale", "0.5"},
          {"X Sheet", "*4"},
          {"Y Sheet", "*3"},
          {"Nesting", "3"}}},
        {"TURN3",
         {{"Mirror", "3"},
          {"Profile nr.", "2"},
          {"key", "PrfPathChange"},
          {"Move Step", "4"},
          {"key", "MoveLeadPlus"},
          {"key", "MoveLeadPlus"},
          {"key", "MoveLeadMinus"},
          {"key", "MoveLeadNextElem"},
          {"X Sheet", "900"},
          {"Y Sheet", "900"},
          {"X Gap", "-5"},
          {"Y Gap", "3"},
          {"Nesting", "4"}}},
    };
    WindowStation station;
    std::vector<std::string> expected;
    for (const TurnCase& turn : cases) {
        expected.push_back(station.Reference("R-04", {}, turn.Steps, turn.Name));
        ASSERT_GT(PartsIn(expected.back()), 1) << turn.Name;
    }
    EXPECT_NE(expected[0], expected[1]);
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        station.Start(); // anew for each: the gaps stay from part to part
        station.Press({"F3", "F3", "F3"});
        station.Open();
        station.Walk(cases[i].Steps);
        EXPECT_EQ(station.Save(cases[i].Name), expected[i]) << cases[i].Name;
        station.Press({"Escape"});
        station.ExpectEnd(0);
    }
}

/// What was saved is listed, opens where the nest began, and gives the same program again.
TEST(WindowRoad, CutsASavedJobAgain)
{
    WindowStation station;
    const Road road = {{"Angle", "30"}, {"X Sheet", "*2"}, {"Y Sheet", "900"}};
    station.Start();
    station.Press({"F3", "F3", "F3"});
    station.Open();
    station.Walk(road);
    const std::string first = station.Save("FIRST");
    station.Press({"F10"}); // the job is the only one, and marked
    station.Walk({});
    std::string again = station.Save("AGAIN");
    const std::size_t name = again.find("AGAIN");
    ASSERT_NE(name, std::string::npos);
    EXPECT_EQ(again.replace(name, 5, "FIRST"), first);
    EXPECT_GT(PartsIn(first), 1);
}

/// F10 straight out of a field that was typed into loses nothing.
TEST(WindowRoad, AValueCountsWithoutEnter)
{
    WindowStation station;
    const std::string expected =
        station.Reference("R-01", {"--param", "A=90"}, {{"Angle", "90"}, {"X Sheet", "*2"}}, "NOENTER");
    station.Start();
    station.Open();
    station.Type("90");
    station.Press({"F10"});
    station.Type("90");
    station.Press({"F10"});
    station.Type("*2");
    EXPECT_EQ(station.Save("NOENTER"), expected);
}

TEST(WindowRoad, GoesBackFromTheNameAndSavesThen)
{
    WindowStation station;
    const std::string expected =
        station.Reference("R-01", {}, {{"X Sheet", "*2"}, {"Y Sheet", "*3"}}, "BACK");
    station.Start();
    station.Open();
    station.Walk({{"X Sheet", "*2"}});
    station.Press({"F10"});
    station.Type("LOST");
    station.Press({"F9"}); // back to the nest, nothing is saved
    station.Press({"Down"});
    station.Type("*3");
    EXPECT_EQ(station.Save("BACK"), expected);
    EXPECT_FALSE(station.Folder.Holds("PROGRAM/LOST.nc"));
    EXPECT_TRUE(station.Lives());
}

TEST(WindowRoad, AsksBeforeAJobIsOverwritten)
{
    WindowStation station;
    station.Folder.Write("NEST/OLD.nst", "");
    const std::string expected = station.Reference("R-01", {}, {}, "NEW");
    station.Start();
    station.Open();
    station.Walk({});
    station.Press({"F10"});
    station.Type("OLD");
    station.Press({"Return"});
    station.AwaitBox();
    station.Press({"F1"});
    station.AwaitNoBox();
    EXPECT_FALSE(station.Folder.Holds("PROGRAM/OLD.nc"));
    station.Press({"ctrl+a"});
    station.Type("NEW");
    station.Press({"Return"});
    EXPECT_EQ(station.AwaitProgram("NEW"), expected);

    station.Press({"F1"}); // Programs is followed by Rectangular
    station.Open();
    station.Walk({});
    station.Press({"F10"});
    station.Type("OLD");
    station.Press({"Return"});
    station.AwaitBox();
    station.Press({"F10"});
    EXPECT_FALSE(station.AwaitProgram("OLD").empty());
    EXPECT_TRUE(station.Lives());
}
} // namespace
