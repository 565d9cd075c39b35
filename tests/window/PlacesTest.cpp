// Bad surroundings of the real window: folders, names, catalogues, displays.
#include "WindowStation.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{
namespace fs = std::filesystem;

TEST(WindowPlaces, MissingFoldersAreEmptyLists)
{
    WindowStation station;
    station.Set("CONFIG", "NESTING_PATH", station.Folder.Path + "/NOWHERE");
    station.Set("CONFIG", "DXF_PATH", "X:\\NOT\\THERE");
    station.Set("CONFIG", "NC_PATH", "NEW\\PROGRAMS");
    const std::string expected = station.Reference("R-01", {}, {}, "EMPTY");
    station.Start();
    station.GoToTab(DxfTab);
    station.Press({"F10", "Return", "F3", "F8", "D"}); // nothing to open, to move in, or to delete
    station.Press({"F1", "F10", "Return", "F5"});      // ISO-IN
    station.Press({"F1", "F10", "F8", "D", "Delete"}); // Programs
    station.Press({"F1"});
    station.Open();
    station.Walk({});
    station.Press({"F10"});
    station.Type("EMPTY");
    station.Press({"Return"});
    const std::string path = station.Folder.Path + "/NEW/PROGRAMS/EMPTY.nc";
    ASSERT_TRUE(WaitFor(20, [&path] { return fs::exists(path); })) << "the folder of the programs is made";
    EXPECT_EQ(station.Folder.Read("NEW/PROGRAMS/EMPTY.nc"), expected);
    EXPECT_TRUE(station.Lives());
}

TEST(WindowPlaces, AFolderThatCantBeReadIsAnEmptyList)
{
    WindowStation station;
    const std::string locked = station.Folder.Path + "/LOCKED";
    fs::create_directory(locked);
    fs::permissions(locked, fs::perms::none);
    station.Set("CONFIG", "DXF_PATH", "LOCKED");
    const std::string expected = station.Reference("R-02", {}, {}, "LOCKED");
    station.Start();
    station.GoToTab(DxfTab);
    station.Press({"F10", "Return", "F3", "F2", "F2", "F2", "F3"}); // back to the shapes
    station.Open();
    station.Walk({});
    EXPECT_EQ(station.Save("LOCKED"), expected);
    fs::permissions(locked, fs::perms::owner_all);
}

TEST(WindowPlaces, AFolderThatIsNoneLeavesNoProgram)
{
    WindowStation station;
    station.Folder.Write("BLOCKED", "a file");
    station.Set("CONFIG", "NC_PATH", "BLOCKED\\DEEP");
    station.Start();
    station.Open();
    station.Walk({});
    station.Press({"F10"});
    station.Type("LOST");
    station.Press({"Return"});
    station.AwaitCriticalError();
    station.Press({"Return"});
    station.ExpectEnd(1);
    EXPECT_NE(station.Folder.Read("korvanta.log").find("BLOCKED"), std::string::npos)
        << station.Folder.Read("korvanta.log");
    EXPECT_EQ(station.Folder.Read("BLOCKED"), "a file");
}

TEST(WindowPlaces, OpensDrawingsOfAnyName)
{
    WindowStation station;
    const std::string drawing[] = {"BRACKET", "FLANGE", "PANEL", "BRACKET", "FLANGE"};
    const std::string names[] = {"1 two words", "2.many.dots", "3 Größe Übermaß", "4 支架零件",
                                 "5" + std::string(195, 'x')};
    const Road road = {{"Angle", "15"}};
    std::vector<std::string> expected;
    for (const std::string& source : drawing) {
        expected.push_back(
            station.Reference(source + ".dxf", {}, road, "NAMED" + std::to_string(expected.size())));
    }
    for (std::size_t i = 0; i < std::size(names); ++i) {
        fs::copy_file(station.Folder.Path + "/DXF/" + drawing[i] + ".dxf",
                      station.Folder.Path + "/ODD/" + names[i] + ".dxf",
                      (fs::create_directories(station.Folder.Path + "/ODD"), fs::copy_options::none));
    }
    station.Set("CONFIG", "DXF_PATH", "ODD");
    station.Start();
    station.GoToTab(DxfTab);
    for (std::size_t i = 0; i < std::size(names); ++i) {
        SCOPED_TRACE(names[i]);
        station.Press(std::vector<std::string>(i, "F5"));
        station.Open();
        station.Walk(road);
        EXPECT_EQ(station.Save("NAMED" + std::to_string(i)), expected[i]);
        station.Press({"F2", "F2"}); // from Programs back around the end
    }
    EXPECT_TRUE(station.Lives());
}

TEST(WindowPlaces, ABadDrawingIsToldAndLeft)
{
    WindowStation station;
    station.Folder.Write("DXF/A BAD ONE.dxf", "no drawing at all");
    const std::string expected = station.Reference("BRACKET.dxf", {}, {}, "GOOD");
    station.Start();
    station.GoToTab(DxfTab);
    station.Open();
    station.AwaitBox();
    station.Press({"F10"});
    station.AwaitNoBox();
    station.Press({"F5"});
    station.Open();
    station.Walk({});
    EXPECT_EQ(station.Save("GOOD"), expected);
}

TEST(WindowPlaces, TenThousandFilesAreListed)
{
    WindowStation station;
    station.Set("CONFIG", "DXF_PATH", "MANY");
    for (int i = 0; i < 10000; ++i) {
        station.Folder.Write("MANY/" + std::to_string(10000 + i) + ".dxf", "");
    }
    fs::copy_file(station.Folder.Path + "/DXF/BRACKET.dxf", station.Folder.Path + "/MANY/1.dxf");
    const std::string expected = station.Reference("1.dxf", {}, {}, "ONE");
    station.Start();
    station.GoToTab(DxfTab);
    station.Press({"F5", "F3", "F3", "F4", "F4", "F6"});
    station.Open();
    station.Walk({});
    EXPECT_EQ(station.Save("ONE"), expected);
}

TEST(WindowPlaces, AShortCatalogueLeavesAWorkingProgram)
{
    WindowStation station;
    station.Folder.Write("Korvanta_MSG.TXT", ">>0\nA\nA\nA\nA\nA\nA\n>>1\nYes\n");
    const std::string expected = station.Reference("R-01", {}, {{"X Sheet", "*2"}}, "SHORT");
    station.Start();
    station.Open();
    station.Walk({{"X Sheet", "*2"}});
    EXPECT_EQ(station.Save("SHORT"), expected);
}

TEST(WindowPlaces, AScreenSmallerThanTheWindowWorks)
{
    Desktop small(640, 480);
    WindowStation station(small);
    const Road road = {{"Angle", "30"}, {"X Sheet", "*2"}};
    const std::string expected = station.Reference("R-05", {}, road, "SMALL");
    station.Start();
    station.Press({"F3", "F3", "F3", "F3"});
    station.Open();
    station.Walk(road);
    EXPECT_EQ(station.Save("SMALL"), expected);
    EXPECT_TRUE(station.Lives());
}

TEST(WindowPlaces, AsksForTheValuesOfTheTable)
{
    WindowStation station;
    station.Set("CONFIG", "PPR_INI", "PPR_LinuxCNC.ini");
    station.Extension = "ngc";
    const std::string expected =
        station.Reference("R-01", {"--input", "1=1.25", "--input", "2=1800"}, {}, "ASKED");
    station.Start();
    station.Open();
    station.Walk({});
    station.Press({"F10"});
    station.Type("ASKED");
    station.Press({"Return"});
    station.AwaitBox();
    station.Type("1.25");
    station.Press({"Return"});
    station.Type("1800");
    EXPECT_FALSE(station.Folder.Holds("PROGRAM/ASKED.ngc"));
    station.Press({"F10"});
    EXPECT_EQ(station.AwaitProgram("ASKED"), expected);
    EXPECT_TRUE(station.Lives());
}
} // namespace
