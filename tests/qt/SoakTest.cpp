// Hard use of the real window, on no display and on one in memory: the random keys, clicks and texts of the soak test, and
// what the window shows compared with its records behind each of them. The long form, and a first seed, as in tests/soak:
//     KORVANTA_SOAK_EVENTS=200000 build/dev/bin/test_qt --gtest_filter='WindowSoak.*'
#include "qt/WindowBody.h"
#include "qt/XDesk.h"

#include "shell/KeyCodes.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
TEST(WindowSoak, AnyUseKeepsTheRules)
{
    constexpr int PerSession = 150;
    Soak(WindowBody, SoakFirstSeed(), PerSession, SoakEventCount(600));
}

TEST(WindowSoakOnDisplay, AnyUseKeepsTheRules)
{
    constexpr int PerSession = 150;
    XDesk desk;
    const XClient neighbour;
    neighbour.AddTitled("neighbour");
    desk.StartManager(neighbour);
    Soak(WindowOnDisplayBody, SoakFirstSeed(), PerSession, SoakEventCount(600));
}

// --- what it has found ------------------------------------------------------------------------------------------

SoakEvent Press(std::int16_t key)
{
    return {SoakDo::Key, key, 0, ""};
}

TEST(WindowSoakFound, AnotherSizeShowsTheSheetThatTheDrawingWrote)
{
    // R-01, two rows fixed, then a star in their field, and the drawing comes anew
    const std::vector<SoakEvent> events = {Press(KeyF10),
                                           Press(KeyF10),
                                           Press(KeyF10),
                                           Press(KeyEnter),
                                           {SoakDo::Type, 0, 0, "*2"},
                                           Press(KeyEnter),
                                           Press(KeyUp),
                                           {SoakDo::Type, 0, 0, "*"},
                                           {SoakDo::Resize, 89, 41, ""}};
    EXPECT_EQ(RunSoakSession(WindowBody, {SoakSettings(), events}).Failure, "");
}

TEST(WindowSoakFound, TabStopsAtNoArrowOfTheTabs)
{
    // Chinese, in a window too narrow for the tabs: their arrows came to show, and took the focus
    constexpr std::int32_t TabKey = 9;
    const SoakSettings settings{2, 6, false, false, true};
    const std::vector<SoakEvent> events = {{SoakDo::ListDouble, 88, 69, "", SoakAnswer::Cancel, 0},
                                           {SoakDo::Resize, 39, 29, "", SoakAnswer::Cancel, 0},
                                           {SoakDo::Key, KeyF10, 0, "", SoakAnswer::OkButStay, 0},
                                           {SoakDo::Key, KeyF10, 0, "", SoakAnswer::OkButStay, 0},
                                           {SoakDo::Key, KeyF10, 0, "", SoakAnswer::OkButStay, 0},
                                           {SoakDo::Key, KeyF10, 0, "", SoakAnswer::OkButStay, 0},
                                           {SoakDo::InputTab, 4, 0, "", SoakAnswer::Cancel, 0},
                                           {SoakDo::Key, TabKey, 0, "", SoakAnswer::OkButStay, 0},
                                           {SoakDo::Resize, 41, 61, "", SoakAnswer::OkButStay, 0}};
    EXPECT_EQ(RunSoakSession(WindowBody, {settings, events}).Failure, "");
}
} // namespace
