// The mouse: a click on a key-bar button is that key, tabs, lists and fields answer to it, the drawing measures.
#include "WindowStation.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
/// Clicks along the row of tabs from the left, until `changes` clicks have shown another picture.
void ClickTabsUntil(const WindowStation& station, int changes)
{
    constexpr int Step = 45; // narrower than any tab
    const int y = station.Area.Y + 12;
    int seen = 0;
    for (int x = 10; x < station.Area.Width && seen < changes; x += Step) {
        const Pixels before = station.LookAbove();
        station.Screen.Click(station.Area.X + x, y);
        station.Screen.WaitUntilStill();
        seen += Same(station.LookAbove(), before) ? 0 : 1;
    }
    ASSERT_EQ(seen, changes);
}

TEST(WindowMouse, ButtonsAreTheirKeys)
{
    WindowStation station;
    const std::string expected = station.Reference(
        "R-05", {"--param", "A=150"}, {{"Angle", "92"}, {"X Sheet", "*2"}, {"Nesting", "2"}}, "CLICKS");
    station.Start();
    station.ClickKey(3, 6);
    station.ClickKey(4, 2);
    station.ClickKey(10);
    station.Type("150");
    station.ClickKey(10);
    station.ClickKey(5);    // + 90
    station.ClickKey(3, 3); // plus
    station.ClickKey(4);    // minus
    station.ClickKey(10);
    station.Type("*2");
    station.Press({"Down", "Down", "Down", "Down", "Down"});
    station.ClickKey(4); // nest type 2
    station.ClickKey(10);
    station.Press({"ctrl+a"});
    station.Type("CLICKS");
    station.ClickKey(10);
    EXPECT_EQ(station.AwaitProgram("CLICKS"), expected);
    EXPECT_TRUE(station.Lives());
}

TEST(WindowMouse, AButtonGivesTheFocusBack)
{
    WindowStation station;
    const std::string expected = station.Reference("R-01", {}, {{"Scale", "2"}, {"X Sheet", "*3"}}, "FOCUS");
    station.Start();
    station.ClickKey(10);
    station.ClickKey(10);
    station.Press({"Down", "Down"});
    station.ClickKey(3);         // 2
    station.ClickKey(3);         // 3
    station.Press({"F4"});       // 2: the keys still go to the field
    station.ClickKey(2);         // to Zoom
    station.ClickKey(2);         // and to the first field
    station.Press({"F3", "F4"}); // 1 degree and back
    station.ClickKey(10);
    station.Type("*3");
    EXPECT_EQ(station.Save("FOCUS"), expected);
}

TEST(WindowMouse, TabsAnswerToClicks)
{
    WindowStation station;
    const std::string expected = station.Reference("BRACKET.dxf", {}, {{"X Sheet", "*2"}}, "TABS");
    station.Folder.Write("PROGRAM/some.nc", "M30\n");
    station.Start();
    ClickTabsUntil(station, 5); // Programs, Rectangular, Circular, Holes, drawings
    station.Open();
    station.Screen.WaitUntilStill();
    ClickTabsUntil(station, 2); // Cutting, Nesting
    station.AwaitFocusedField();
    station.Type("*2");
    EXPECT_EQ(station.Save("TABS"), expected);
}

TEST(WindowMouse, AListAnswersToClicks)
{
    WindowStation station;
    const std::string expected = station.Reference("R-01", {}, {}, "ITEM");
    station.Start();
    station.Press({"F3", "F3"});
    station.Screen.WaitUntilStill();
    const Pixels third = station.LookAbove();
    const int x = station.Area.X + 50;
    const int y = station.Area.Y + 90;
    station.Screen.Click(x, y);
    EXPECT_TRUE(station.AwaitChange(third)); // the first shape is marked
    station.Screen.Click(x, y, 2);
    station.AwaitFocusedField();
    station.Walk({});
    EXPECT_EQ(station.Save("ITEM"), expected);
}

TEST(WindowMouse, AFieldAnswersToClicks)
{
    WindowStation station;
    const std::string expected = station.Reference("R-01", {}, {{"Scale", "3"}}, "FIELD");
    station.Start();
    station.Press({"F10", "F10"});
    const Place first = station.AwaitFocusedField();
    station.Press({"Down"});
    ASSERT_TRUE(WaitFor(20, [&] { return BoxOfColor(station.Screen.Look(), FocusYellow).Y > first.Y; }));
    const Place second = station.AwaitFocusedField();
    station.Screen.Click(second.X + second.Width - 5, second.Y + second.Height / 2 + second.Y - first.Y);
    ASSERT_TRUE(WaitFor(20, [&] { return BoxOfColor(station.Screen.Look(), FocusYellow).Y > second.Y; }));
    station.Type("3");
    station.Press({"Return", "F10"});
    EXPECT_EQ(station.Save("FIELD"), expected);
}

int CountBluish(const Pixels& picture)
{
    return static_cast<int>(
        std::count_if(picture.Colors.begin(), picture.Colors.end(), [](std::uint32_t color) {
            constexpr std::uint32_t Distance = 60;
            return (color & 0xFFU) > (color >> 16U) + Distance; // a line's edges are lighter than its ink
        }));
}

TEST(WindowMouse, ADragMeasures)
{
    WindowStation station;
    station.Start();
    station.Press({"F10", "F10"});
    station.AwaitFocusedField();
    const Place box = {station.Area.X + 20, station.Area.Y + 80, 400, 300};
    const int before = CountBluish(Cut(station.Screen.Look(), box));
    station.Screen.Drag(box.X + 20, box.Y + 20, box.X + 320, box.Y + 220);
    EXPECT_TRUE(WaitFor(20, [&] { return CountBluish(Cut(station.Screen.Look(), box)) > before + 250; }))
        << "no blue line";
    EXPECT_TRUE(station.Lives());
}
} // namespace
