// Hard use of the station without its window: random keys, clicks and texts over all screens, with rules that hold behind
// each of them. A few thousand events by default; for the long form
//     KORVANTA_SOAK_EVENTS=200000 build/dev/bin/test_soak
// and KORVANTA_SOAK_SEED=n begins with seed n instead of 1. A session that fails is shrunk, and printed as C++ to be pasted
// as a case below. Fast on a temporary folder in memory: TMPDIR=/dev/shm.
#include "RecorderBody.h"

#include "shell/KeyCodes.h"
#include "state/AppState.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
std::string Replay(const std::vector<SoakEvent>& events)
{
    return RunSoakSession(RecorderBody, {SoakSettings(), events}).Failure;
}

SoakEvent Press(std::int16_t key)
{
    return {SoakDo::Key, key, 0, ""};
}

SoakEvent OnTab(std::int16_t tab)
{
    return {SoakDo::InputTab, tab, 0, ""};
}

SoakEvent InField(std::int16_t field)
{
    return {SoakDo::Field, field, 0, ""};
}

SoakEvent Type(const char* text)
{
    return {SoakDo::Type, 0, 0, text};
}

TEST(Soak, AnyUseKeepsTheRules)
{
    constexpr int PerSession = 400;
    Soak(RecorderBody, SoakFirstSeed(), PerSession, SoakEventCount(6000));
}

// --- what it has found ------------------------------------------------------------------------------------------

TEST(SoakFound, TheNameIsLeftWhenAnImportIsOpenedFromIt)
{
    EXPECT_EQ(Replay({OnTab(TabPrograms), InField(0), Press(KeyF10)}), "");
}

TEST(SoakFound, AFieldThatIsClampedOnTheWayToTheParametersIsLeft)
{
    EXPECT_EQ(Replay({OnTab(TabDxfIn), Press(KeyF10), Press(KeyF10), InField(FieldLeadOutD), Type("99999"),
                      Press(KeyF9)}),
              "");
}

TEST(SoakFound, AnEmptyJobBehindARefusedShapeHasNoSize)
{
    SoakEvent huge = Type("");
    huge.Text.assign(5000, '9');
    EXPECT_EQ(Replay({OnTab(TabRect), Press(KeyF10), huge, Press(KeyF10), Press(KeyF1), OnTab(TabPrograms),
                      Press(KeyF10)}),
              "");
}

TEST(SoakFound, AHeightBeyondAllSheetsIsRefused)
{
    EXPECT_EQ(Replay({OnTab(TabRect), Press(KeyF3), Press(KeyF10), Press(KeyEnter), Press(KeyEnter),
                      Press(KeyEnter), Type("1e999"), Press(KeyF10)}),
              "");
}

TEST(SoakFound, AKeyBackToTheNestWhileTheBoxClosesIsTheLastWord)
{
    const SoakEvent back = {SoakDo::Key, KeyF10, 0, "", SoakAnswer::Cancel, KeyF9};
    EXPECT_EQ(Replay({OnTab(TabPrograms), Press(KeyF10), Press(KeyF10), Press(KeyF10), Press(KeyF10), back}),
              "");
}
} // namespace
