// The driver itself, on a program that writes down the events it gets.
#include "Desktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

using testing::HasSubstr;

namespace
{
std::string ReadLog(const std::string& path)
{
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

TEST(Desktop, SendsRealKeysAndClicks)
{
    const Desktop& desktop = SharedDesktop();
    const TempFolder folder;
    const std::string log = folder.Path + "/events.txt";
    Process listener;
    listener.Start({{"stdbuf", "-oL", "xev", "-name", "Event writer", "-geometry", "300x200+200+100"},
                    {"DISPLAY=" + desktop.Display},
                    log,
                    -1});
    std::string window;
    ASSERT_TRUE(WaitFor(10, [&] {
        const std::vector<std::string> found = desktop.WindowsTitled("Event writer");
        window = found.size() == 1 ? found[0] : "";
        return !window.empty() && desktop.ActiveWindow() == window;
    }));
    EXPECT_EQ(desktop.TitleOf(window), "Event writer");
    const Place place = desktop.PlaceOf(window);
    EXPECT_EQ(place.Width, 300);
    EXPECT_EQ(place.Height, 200);
    desktop.Press({"F10", "KP_Next"});
    desktop.Type("a*Z");
    desktop.Click(place.X + 17, place.Y + 23);
    desktop.Press({"F1"});
    ASSERT_TRUE(WaitFor(5, [&] { return ReadLog(log).find("keysym 0xffbe, F1)") != std::string::npos; }));
    const std::string events = ReadLog(log);
    for (const char* key : {"F10)", "KP_Next)", ", a)", "asterisk)", ", Z)"}) {
        EXPECT_THAT(events, HasSubstr(key));
    }
    EXPECT_THAT(events, HasSubstr("(17,23)"));
    EXPECT_TRUE(listener.Runs());
}

/// A tool grumbles when a window goes while it looks at it: that is neither a window nor a title.
TEST(Desktop, GrumblingIsNoTitle)
{
    const Desktop& desktop = SharedDesktop();
    EXPECT_EQ(desktop.TitleOf("4000000"), "") << "there is no such window";
    EXPECT_TRUE(desktop.WindowsTitled("[").empty()) << "no expression";
}

TEST(Desktop, ShowsItsPixels)
{
    const Desktop& desktop = SharedDesktop();
    const Pixels before = desktop.Look();
    EXPECT_EQ(before.Width, 1024);
    EXPECT_EQ(before.Height, 768);
    Process window;
    window.Start(
        {{"xev", "-name", "White", "-geometry", "300x200+200+100"}, {"DISPLAY=" + desktop.Display}, "", -1});
    ASSERT_TRUE(WaitFor(10, [&] { return CountColor(desktop.Look(), 0xFFFFFF) > 40000; }));
    EXPECT_FALSE(Same(desktop.Look(), before));
    window.Stop();
    EXPECT_TRUE(desktop.WaitUntilStill());
    EXPECT_LT(CountColor(desktop.Look(), 0xFFFFFF), 40000);
}

TEST(Desktop, CountsAndCutsColors)
{
    const Pixels picture{3, 2, {1, 2, 3, 4, 2, 6}};
    EXPECT_EQ(CountColor(picture, 2), 2);
    EXPECT_EQ(BoxOfColor(picture, 2), (Place{1, 0, 1, 2}));
    EXPECT_EQ(BoxOfColor(picture, 9), Place());
    EXPECT_TRUE(Same(Cut(picture, {1, 0, 5, 1}), {2, 1, {2, 3}}));
    EXPECT_FALSE(Same(Cut(picture, {1, 1, 2, 1}), {2, 1, {2, 3}}));
}

TEST(Process, TellsHowItEnded)
{
    EXPECT_EQ(RunToEnd({"sh", "-c", "exit 3"}).Status, 3);
    EXPECT_EQ(RunToEnd({"sh", "-c", "echo $SAID", "x"}, {"SAID=yes"}).Output, "yes\n");
    EXPECT_EQ(RunToEnd({"sh", "-c", "kill -9 $$"}).Status, -9);
    const Finished both = RunToEnd({"sh", "-c", "echo answer; echo fault >&2"});
    EXPECT_EQ(both.Output, "answer\n");
    EXPECT_EQ(both.Errors, "fault\n");
    Process sleeper;
    sleeper.Start({{"sleep", "60"}, {}, "", -1});
    EXPECT_FALSE(sleeper.WaitForEnd(0.05).has_value());
    EXPECT_TRUE(sleeper.Runs());
    sleeper.Stop();
    EXPECT_FALSE(sleeper.Runs());
}
} // namespace
