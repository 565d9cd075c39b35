// The size of the window on a desktop whose window manager puts frames around windows.
#include "WindowStation.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{
/// Widths of a window's frame: left, right, top, bottom.
std::vector<int> FrameOf(const WindowStation& station)
{
    const std::string text = RunToEnd({"xprop", "-id", station.Window, "-notype", "_NET_FRAME_EXTENTS"},
                                      {"DISPLAY=" + station.Screen.Display})
                                 .Output;
    std::istringstream numbers(text.substr(std::min(text.find('='), text.size() - 1) + 1));
    std::vector<int> widths;
    char comma = 0;
    for (int width = 0; numbers >> width; numbers >> comma) {
        widths.push_back(width);
    }
    return widths;
}

TEST(WindowSizes, TheFrameIsPartOfThem)
{
    for (const char* resolution : {"640x480", "800x600", "1024x768"}) {
        WindowStation station;
        station.Set("SETUP", "SCREEN_RES", resolution);
        station.Start();
        Place inside;
        std::vector<int> frame;
        const auto outer = [&] {
            inside = station.Screen.PlaceOf(station.Window);
            frame = FrameOf(station);
            return frame.size() == 4 ? std::to_string(inside.Width + frame[0] + frame[1]) + "x" +
                                           std::to_string(inside.Height + frame[2] + frame[3])
                                     : "";
        };
        EXPECT_TRUE(WaitFor(5, [&] { return outer() == resolution; })) << outer() << " " << resolution;
        ASSERT_EQ(frame.size(), 4U);
        EXPECT_GT(frame[2], 0) << "a desktop without captions shows nothing";
        EXPECT_GE(inside.X - frame[0], 0);
        EXPECT_GE(inside.Y - frame[2], 0);
        EXPECT_LE(inside.Y + inside.Height + frame[3], station.Screen.Height);
    }
}

TEST(WindowSizes, AnyOtherTextTakesTheWholeScreen)
{
    for (const char* resolution : {"0", "", "1024 x 768", "-5"}) {
        WindowStation station;
        station.Set("SETUP", "SCREEN_RES", resolution);
        station.Start();
        const auto whole = [&] {
            return station.Screen.PlaceOf(station.Window) ==
                   Place{0, 0, station.Screen.Width, station.Screen.Height};
        };
        EXPECT_TRUE(WaitFor(5, whole)) << resolution;
    }
}
} // namespace
