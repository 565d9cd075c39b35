// Hard use of the real window on no display: the random keys, clicks and texts of the soak test, and what the window shows
// compared with its records behind each of them. The long form, and a first seed, as in tests/soak:
//     KORVANTA_SOAK_EVENTS=200000 build/dev/bin/test_qt --gtest_filter='WindowSoak.*'
#include "qt/WindowBody.h"

#include <gtest/gtest.h>

namespace
{
TEST(WindowSoak, AnyUseKeepsTheRules)
{
    constexpr int PerSession = 150;
    Soak(WindowBody, SoakFirstSeed(), PerSession, SoakEventCount(600));
}
} // namespace
