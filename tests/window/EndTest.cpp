// How the real program starts and ends: Esc, questions, second starts, a missing catalogue, the exit after a save.
#include "WindowStation.h"

#include <gtest/gtest.h>

namespace
{
using Keys = std::vector<std::string>;

struct ScreenCase {
    const char* Name;
    Keys Way; ///< from the start
};

const ScreenCase Screens[] = {
    {"Input", {}},
    {"Parameters", {"F10"}},
    {"Cutting", {"F10", "F10"}},
    {"Nesting", {"F10", "F10", "F10"}},
    {"name of the job", {"F10", "F10", "F10", "F10"}},
};

/// A program that only shows a window with a title.
void ShowOtherWindow(const Desktop& desktop, Process& process, const std::string& title)
{
    process.Start(
        {{"xev", "-name", title, "-geometry", "200x150+10+10"}, {"DISPLAY=" + desktop.Display}, "", -1});
    ASSERT_TRUE(WaitFor(20, [&] {
        const std::vector<std::string> found = desktop.WindowsTitled(title);
        return found.size() == 1 && desktop.ActiveWindow() == found[0];
    }));
}

TEST(WindowEnd, EscEndsAtOnceOnEveryScreen)
{
    Pixels before;
    for (const ScreenCase& screen : Screens) {
        SCOPED_TRACE(screen.Name);
        WindowStation station;
        station.Start();
        station.Press(screen.Way);
        station.Screen.WaitUntilStill();
        const Pixels now = station.LookAbove();
        EXPECT_FALSE(Same(now, before)) << "the keys lead to a screen of its own";
        before = now;
        ASSERT_TRUE(station.Lives());
        station.Press({"Escape"});
        station.ExpectEnd(0);
    }
}

TEST(WindowEnd, EscAsksOnEveryScreenWhenItIsToAsk)
{
    for (const ScreenCase& screen : Screens) {
        SCOPED_TRACE(screen.Name);
        WindowStation station;
        station.Set("SETUP", "EXIT_CONFIRM", "YES");
        station.Start();
        station.Press(screen.Way);
        station.Press({"Escape"});
        station.AwaitBox();
        station.Press({"F1"});
        station.AwaitNoBox();
        ASSERT_TRUE(station.Lives());
        station.Press({"Escape"});
        station.AwaitBox();
        station.Press({&screen == Screens ? "Escape" : "F10"}); // Esc confirms, too
        station.ExpectEnd(0);
    }
}

TEST(WindowEnd, F9OnTheInputScreenIsAnExit)
{
    WindowStation station;
    station.Set("SETUP", "EXIT_CONFIRM", "YES");
    station.Start();
    station.Press({"F9"});
    station.AwaitBox();
    station.Press({"Return", "F9", "F2", "a"}); // no keys of the box
    station.Screen.WaitUntilStill();
    station.AwaitBox();
    station.Press({"F1"});
    station.AwaitNoBox();
    ASSERT_TRUE(station.Lives());
    station.Press({"F9", "F10"});
    station.ExpectEnd(0);
}

TEST(WindowEnd, ASecondKeyMayActLikeEsc)
{
    WindowStation station;
    station.Start();
    station.Press({"F12"});
    station.Press({"F10"});
    station.AwaitFocusedField(); // F12 was no exit
    station.Press({"Escape"});
    station.ExpectEnd(0);
    station.Set("CONFIG", "ESCALIAS", "123");
    for (const Keys& way : {Keys{}, Keys{"F10", "F10"}}) {
        station.Start();
        station.Press(way);
        station.Press({"F12"});
        station.ExpectEnd(0);
    }
}

/// The cross of the frame is no other way out than Esc.
TEST(WindowEnd, ClosingTheWindowIsLikeEsc)
{
    WindowStation station;
    station.Set("SETUP", "EXIT_CONFIRM", "YES");
    station.Start();
    station.Press({"F10", "alt+F4"});
    station.AwaitBox();
    station.Press({"F1"});
    station.AwaitNoBox();
    ASSERT_TRUE(station.Lives());
    station.Press({"alt+F4"});
    station.AwaitBox();
    station.Press({"F10"});
    station.ExpectEnd(0);
}

TEST(WindowStart, ASecondStartEndsAndRaisesTheFirst)
{
    WindowStation station;
    station.Start();
    Process other;
    ShowOtherWindow(station.Screen, other, "Something else");
    ASSERT_NE(station.Screen.ActiveWindow(), station.Window);
    Process second;
    station.Launch(second);
    EXPECT_EQ(second.WaitForEnd(20), 0);
    EXPECT_TRUE(WaitFor(20, [&] { return station.Screen.ActiveWindow() == station.Window; }))
        << "the first one isn't in front";
    EXPECT_TRUE(station.Lives());
    station.Press({"Escape"});
    station.ExpectEnd(0);
}

TEST(WindowStart, TwoStartsAtOnceLeaveOne)
{
    WindowStation station;
    Process second;
    station.Launch(station.Program);
    station.Launch(second);
    ASSERT_TRUE(WaitFor(20, [&] { return !station.Program.Runs() || !second.Runs(); }));
    ASSERT_TRUE(station.Program.Runs() || second.Runs()) << "both have ended";
    Process& ended = station.Program.Runs() ? second : station.Program;
    Process& left = station.Program.Runs() ? station.Program : second;
    EXPECT_EQ(ended.Status, 0);
    EXPECT_TRUE(WaitFor(20, [&] { return station.Screen.WindowsTitled(WindowTitle).size() == 1; }));
    EXPECT_TRUE(left.Runs());
}

TEST(WindowStart, AnyWindowWithTheTitleWordStopsIt)
{
    WindowStation station;
    Process other;
    ShowOtherWindow(station.Screen, other, "Notes on Korvanta work");
    station.Launch(station.Program);
    station.ExpectEnd(0);
    other.Stop();
    station.Start();
    EXPECT_TRUE(station.Lives());
}

TEST(WindowStart, AMissingCatalogueIsACriticalError)
{
    WindowStation station;
    std::remove((station.Folder.Path + "/Korvanta_MSG.TXT").c_str());
    station.Launch(station.Program);
    station.AwaitCriticalError();
    EXPECT_TRUE(station.Screen.WindowsTitled(WindowTitle).empty()) << "the window hasn't come yet";
    EXPECT_TRUE(station.Program.Runs());
    station.Press({"Return"});
    station.ExpectEnd(1);
}

TEST(WindowStart, ALanguageThatIsNoneEndsWithAText)
{
    WindowStation station;
    station.Launch(station.Program, {"abc"});
    station.AwaitCriticalError();
    station.Press({"Return"});
    station.ExpectEnd(1);
    EXPECT_NE(station.Folder.Read("korvanta.log").find("language"), std::string::npos);
}

TEST(WindowStart, TheCommandLineChoosesTheLanguage)
{
    WindowStation station;
    station.Start({"3"});
    const Pixels german = station.Look();
    station.Press({"Escape"});
    station.ExpectEnd(0);
    station.Start();
    EXPECT_FALSE(Same(station.Look(), german));
    station.Press({"Escape"});
    station.ExpectEnd(0);
    station.Set("SETUP", "LANGUAGE", "3");
    station.Start();
    EXPECT_TRUE(Same(station.Look(), german));
}

TEST(WindowStart, SizesTheWindow)
{
    WindowStation station;
    station.Set("SETUP", "SCREEN_RES", "0");
    station.Start();
    EXPECT_EQ(station.Area, (Place{0, 0, station.Screen.Width, station.Screen.Height}));
    station.Press({"Escape"});
    station.ExpectEnd(0);
    station.Set("SETUP", "SCREEN_RES", "640x480");
    station.Start();
    EXPECT_LE(station.Area.Width, 640);
    EXPECT_GE(station.Area.Width, 620);
    EXPECT_LE(station.Area.Height, 480);
    EXPECT_GE(station.Area.Height, 440);
}

TEST(WindowEnd, ASaveMayEndTheProgramAndLeaveALog)
{
    WindowStation station;
    station.Set("SETUP", "EXIT_PROGRAM", "YES");
    station.Set("SETUP", "EXIT_LOG_FILE", "LAST.TXT");
    station.Folder.Write("LAST.TXT", "of an earlier run");
    station.Start();
    EXPECT_FALSE(station.Folder.Holds("LAST.TXT"));
    station.Open();
    station.Walk({});
    EXPECT_NE(station.Save("DONE"), "");
    station.ExpectEnd(0);
    EXPECT_EQ(station.Folder.Read("LAST.TXT"), "DONE\r\nPROGRAM\\\r\n");
}

TEST(WindowEnd, OtherEndsLeaveNoLog)
{
    WindowStation station;
    station.Set("SETUP", "EXIT_LOG_FILE", "LAST.TXT");
    station.Start();
    station.Open();
    station.Walk({});
    EXPECT_NE(station.Save("DONE"), "");
    station.Press({"Escape"});
    station.ExpectEnd(0);
    EXPECT_FALSE(station.Folder.Holds("LAST.TXT"));
}
} // namespace
