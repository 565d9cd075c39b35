#include "state/AppState.h"

#include <gtest/gtest.h>

TEST(NoValue, IsOneE37ToTheBit)
{
    EXPECT_EQ(NoValue, 1e37);
    EXPECT_TRUE(IsNoValue(NoValue));
    EXPECT_FALSE(IsNoValue(-1e37));
    EXPECT_FALSE(IsNoValue(std::bit_cast<double>(0x479E17B84357691CULL)));
}

TEST(AppState, IsEmptyAtTheStart)
{
    AppState.ElementCount = 7;
    AppState.ElementTable.resize(8);
    ResetAppState();
    EXPECT_EQ(AppState.ElementCount, 0);
    ASSERT_EQ(AppState.ElementTable.size(), 1U) << "slot 0 exists";
    EXPECT_EQ(AppState.KerfState, 40);
    EXPECT_TRUE(IsNoValue(AppState.PathCursorDistance));
    EXPECT_EQ(AppState.MoveStep, 10.0);
    EXPECT_EQ(AppState.WindowBackColor, (236 << 16) + (233 << 8) + 216);
    EXPECT_EQ(AppState.HostBarHeight, 0);
    EXPECT_EQ(AppState.SaveMode, FlagOff);
}
