// Real keys that a desktop would take for itself, keypads, and keys faster than anybody's.
#include "WindowStation.h"

#include <gtest/gtest.h>

#include <random>

namespace
{
using Keys = std::vector<std::string>;

TEST(WindowKeys, F10AltMenuAndTabHarmNothing)
{
    WindowStation station;
    const Road road = {{"Angle", "30"}, {"X Sheet", "*3"}};
    const std::string expected = station.Reference("R-02", {"--param", "A=180"}, road, "NOISE");
    const Keys silent = {"Alt_L", "Menu", "Alt_R", "Super_L", "Shift_L", "Control_L", "F11"};
    station.Start();
    station.Press(silent);
    station.Press({"Tab", "shift+Tab"});
    station.Press({"F3"});
    station.Press({"F10"});
    station.Press(silent);
    station.Type("180");
    station.Press(silent); // the field keeps the focus
    station.Press({"F10"});
    station.Press(silent);
    station.Type("30");
    station.Press({"Return", "Tab", "Tab", "shift+Tab"});
    station.Press(silent);
    station.Press({"F10"});
    station.Press(silent);
    station.Type("*3");
    station.Press(silent);
    station.Press({"Return", "Tab"});
    EXPECT_EQ(station.Save("NOISE"), expected);
    EXPECT_EQ(station.Screen.ActiveWindow(), station.Window) << "no menu has come";
}

/// What the list shows on each Input tab.
std::vector<Pixels> PicturesOfTabs(const WindowStation& station)
{
    std::vector<Pixels> pictures;
    for (int tab = 0; tab < 6; ++tab) {
        station.Screen.WaitUntilStill();
        pictures.push_back(station.LookAbove());
        for (int other = 0; other < tab; ++other) {
            EXPECT_FALSE(Same(pictures[static_cast<std::size_t>(other)], pictures.back())) << tab;
        }
        station.Press({"F1"});
    }
    station.Screen.WaitUntilStill();
    EXPECT_TRUE(Same(station.LookAbove(), pictures[0])) << "around the end";
    return pictures;
}

TEST(WindowKeys, TheKeypadChangesTheTab)
{
    WindowStation station;
    station.Folder.Write("PROGRAM/some.nc", "M30\n");
    station.Start();
    const std::vector<Pixels> pictures = PicturesOfTabs(station); // from Rectangular on
    const auto expectTab = [&](const Keys& keys, std::size_t tab) {
        station.Press(keys);
        EXPECT_TRUE(WaitFor(5, [&] { return Same(station.LookAbove(), pictures[tab]); })) << keys[0];
    };
    expectTab({"KP_Next"}, 1);
    expectTab({"KP_Next"}, 2);
    expectTab({"KP_Prior"}, 1);
    expectTab({"KP_3"}, 2);
    expectTab({"KP_9"}, 1);
    expectTab({"Num_Lock", "KP_3", "Num_Lock"}, 2);
    expectTab({"KP_Prior", "F2", "KP_Prior"}, 5); // backwards around the end
}

/// Plain page keys are the list's own.
TEST(WindowKeys, PageKeysStayOnTheTab)
{
    WindowStation station;
    const std::string expected = station.Reference("R-02", {}, {}, "PAGES");
    station.Start();
    station.Press({"Next", "Prior", "Home", "Right"}); // on to R-02
    station.Open();
    station.Walk({});
    EXPECT_EQ(station.Save("PAGES"), expected);
}

TEST(WindowKeys, TheCursorMovesByRowsAndColumns)
{
    WindowStation station;
    const std::string expected = station.Reference("R-03", {}, {}, "CURSOR");
    station.Start();
    // Down and up, right and left; steps beyond the ends do nothing.
    station.Press({"F6", "F4", "F5", "F3", "F3", "F3", "F4", "F6"});
    station.Open();
    station.Walk({});
    EXPECT_EQ(station.Save("CURSOR"), expected);
}

TEST(WindowKeys, TheZoomShowsAnotherPictureAndChangesNothing)
{
    WindowStation station;
    const std::string expected = station.Reference("R-04", {}, {{"X Sheet", "*2"}}, "ZOOM");
    station.Start();
    station.Press({"F3", "F3", "F3"});
    station.Open();
    station.Press({"F10"});
    const Place angle = station.AwaitFocusedField();
    station.Press({"F2"});
    ASSERT_TRUE(WaitFor(20, [&] { return BoxOfColor(station.Screen.Look(), FocusYellow).Y > angle.Y; }));
    station.Screen.WaitUntilStill();
    const Pixels whole = station.LookAbove();
    station.Press({"F3", "F3", "F5", "F7", "Return"}); // closer twice, right, down, there
    EXPECT_TRUE(station.AwaitChange(whole));
    station.Press({"F10"});
    station.Type("*2");
    EXPECT_EQ(station.Save("ZOOM"), expected);
}

TEST(WindowKeys, TheSimulationKeyGoesToItsField)
{
    WindowStation station;
    const std::string expected = station.Reference("R-01", {}, {{"X Sheet", "*2"}}, "SIM");
    station.Start();
    station.Open();
    station.Walk({{"X Sheet", "*2"}});
    const Place before = station.AwaitFocusedField();
    station.Press({"F8"});
    EXPECT_TRUE(WaitFor(20, [&] { return BoxOfColor(station.Screen.Look(), FocusYellow).Y > before.Y; }));
    EXPECT_EQ(station.Save("SIM"), expected);
    EXPECT_FALSE(station.Folder.Holds("PROGRAM/SIMULA.nc"));
}

/// All in one go: F9 asks, F1 says no, and F10 is no late yes but opens the shape.
TEST(WindowKeys, TheFirstAnswerOfABoxCounts)
{
    WindowStation station;
    station.Set("SETUP", "EXIT_CONFIRM", "YES");
    const std::string expected = station.Reference("R-11", {"--param", "A=210"}, {}, "ANSWER");
    station.Start();
    Keys keys;
    for (int i = 0; i < 10; ++i) {
        keys.insert(keys.end(), {"F9", "F1", "F10", "F1", "F3"});
    }
    station.Press(keys);
    station.Press({"F9", "F1", "F10", "2", "1", "0", "Return", "F10", "F10"});
    EXPECT_EQ(station.Save("ANSWER"), expected);
    EXPECT_TRUE(station.Lives());
}

/// Ten thousand copies; the keys that come while they are written find a finished program.
TEST(WindowKeys, HammeredDuringASaveSpoilNothing)
{
    WindowStation station;
    const Road road = {{"X Sheet", "*100"}, {"Y Sheet", "*100"}};
    const std::string expected = station.Reference("R-13", {}, road, "LONG");
    station.Start();
    station.Press(Keys(12, "F3"));
    station.Open();
    station.Walk(road);
    station.Press({"F10"});
    station.Type("LONG");
    Keys keys = {"Return"};
    for (int i = 0; i < 20; ++i) {
        keys.insert(keys.end(), {"F3", "F10", "F1", "F8", "F1", "Down", "F2"});
    }
    station.Press(keys);
    EXPECT_EQ(station.AwaitProgram("LONG"), expected);
    station.Screen.WaitUntilStill();
    EXPECT_TRUE(station.Lives());
}

/// Random keys, each as soon as the one before is sent. Esc is left out, and F10 while F9 may have asked for the end.
Keys HammeredKeys(std::uint32_t seed, int count)
{
    const Keys choice = {"F1",     "F2",  "F3",     "F4",       "F5", "F6",   "F7",   "F8",
                         "F9",     "F10", "F10",    "F10",      "Up", "Down", "Left", "Right",
                         "Return", "5",   "period", "asterisk", "D",  "Tab"};
    std::mt19937 random(seed);
    Keys keys;
    bool asked = false;
    while (keys.size() < static_cast<std::size_t>(count)) {
        const std::string& key = choice[random() % choice.size()];
        if (asked && key == "F10") {
            continue;
        }
        asked = key == "F9" || (asked && key != "F1");
        keys.push_back(key);
    }
    return keys;
}

/// Out of any box and screen to the Input screen.
void ComeBack(const WindowStation& station)
{
    station.Press({"F1", "F9", "F1"}); // F9: out of the name of a job, or a question that F1 answers
    station.Press({"F1", "F9", "F1"});
    station.AwaitNoBox();
}

TEST(WindowKeys, HammeredKeysLeaveAWorkingProgram)
{
    WindowStation station;
    station.Set("SETUP", "EXIT_CONFIRM", "YES");
    station.Start();
    station.GoToTab(DxfTab);
    station.Screen.WaitUntilStill();
    const Pixels drawings = station.LookAbove();
    for (const std::uint32_t seed : {1U, 2U, 3U}) {
        station.Press(HammeredKeys(seed, 200));
        ASSERT_TRUE(station.Lives()) << seed;
    }
    ComeBack(station);
    bool onDrawings = false;
    for (int step = 0; step < 6 && !onDrawings; ++step) {
        station.Screen.WaitUntilStill();
        onDrawings = Same(station.LookAbove(), drawings);
        station.Press(onDrawings ? Keys{} : Keys{"F1"});
    }
    ASSERT_TRUE(onDrawings) << "the list of drawings isn't found again";
    // All fields that keep their values from part to part are typed.
    const Road road = {{"Angle", "90"},      {"Profile nr.", "1"},  {"Move Step", "1"},
                       {"LeadIn : A", "3"},  {"LeadIn : B", "1.5"}, {"LeadOut : C", "0"},
                       {"LeadOut : D", "0"}, {"key", "CopyLeads"},  {"X Sheet", "*2"},
                       {"Y Sheet", "*2"},    {"Kerf", "1"},         {"X Gap", "5"},
                       {"Y Gap", "4"},       {"Nesting", "1"}};
    const std::string expected = station.Reference("BRACKET.dxf", {}, road, "AFTER");
    station.Open();
    station.Walk(road);
    EXPECT_EQ(station.Save("AFTER"), expected);
    EXPECT_TRUE(station.Lives());
}
} // namespace
