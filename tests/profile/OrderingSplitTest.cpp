// Splitting into profiles.
#include "platform/Fault.h"
#include "support/PartTables.h"
#include "support/PlainOrdering.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <random>

TEST(Split, PutsAnEndMarkAtEachGap)
{
    StartCase();
    PutLine(0.0, 0.0, 10.0, 0.0);
    PutLine(10.0, 0.0, 10.0, 7.0);
    PutCircle(40.0, 40.0, 5.0);
    PutLine(2.0, 3.0, 4.0, 5.0);
    SplitIntoProfiles();
    EXPECT_EQ(TableText(), "L0,0>10,0 L10,0>10,7 . A+45,40>45,40 . L2,3>4,5 9");
    EXPECT_EQ(AppState.ProfileCount, 3);
    EXPECT_EQ(AppState.ElementCount, 7);
    ASSERT_EQ(AppState.ElementTable.size(), 8U);
    const ProfileElement& mark = Slot(3);
    EXPECT_EQ(mark.StartX, 10.0) << "the last point of its profile";
    EXPECT_EQ(mark.StartY, 7.0);
    EXPECT_EQ(mark.EndX, 0.0);
    EXPECT_EQ(mark.EndY, 0.0);
    EXPECT_EQ(mark.GeoA, 0.0);
    EXPECT_EQ(mark.GeoB, 0.0);
    EXPECT_EQ(mark.GeoC, 0.0);
    EXPECT_EQ(mark.Length, 0.0);
    EXPECT_EQ(mark.Sense, 0);
    EXPECT_EQ(mark.Closing, 0);
    EXPECT_EQ(Slot(7).StartX, 4.0);
    EXPECT_EQ(Slot(7).StartY, 5.0);
}

TEST(Split, NeedsMoreThanTheToleranceForAGap)
{
    struct Case {
        double Gap;
        std::int32_t Profiles;
    };
    for (const Case& c : {Case{0.0, 1}, Case{0.0099, 1}, Case{0.0101, 2}, Case{5.0, 2}}) {
        StartCase();
        PutLine(-10.0, 0.0, 0.0, 0.0);
        PutLine(c.Gap, 0.0, 10.0, 0.0);
        SplitIntoProfiles();
        EXPECT_EQ(AppState.ProfileCount, c.Profiles) << c.Gap;
        EXPECT_EQ(AppState.ElementCount, 2 + c.Profiles) << c.Gap;
    }
}

TEST(Split, OfOneElementOrOfNone)
{
    StartCase();
    SplitIntoProfiles();
    EXPECT_EQ(AppState.ProfileCount, 0);
    EXPECT_EQ(AppState.ElementCount, 0);
    PutLine(0.0, 0.0, 10.0, 0.0);
    SplitIntoProfiles();
    EXPECT_EQ(TableText(), "L0,0>10,0 9");
    EXPECT_EQ(AppState.ProfileCount, 1);
}

TEST(InsertEndMark, MovesTheTailUp)
{
    StartCase();
    PutLine(0.0, 0.0, 1.0, 0.0);
    PutLine(5.0, 0.0, 6.0, 0.0);
    InsertEndMark(2);
    EXPECT_EQ(TableText(), "L0,0>1,0 . L5,0>6,0") << "inside the table it closes an inner profile";
    InsertEndMark(4);
    EXPECT_EQ(TableText(), "L0,0>1,0 . L5,0>6,0 9") << "behind the last one the outer";
    EXPECT_EQ(AppState.ProfileCount, 2);
    EXPECT_THROW(InsertEndMark(0), RunTimeFault);
    EXPECT_THROW(InsertEndMark(6), RunTimeFault);
    EXPECT_EQ(AppState.ElementCount, 4);
}

TEST(InsertEndMark, GrowsTheTableOnlyWhenItIsFull)
{
    StartCase();
    PutLine(0.0, 0.0, 1.0, 0.0);
    AppState.ElementTable.resize(10);
    InsertEndMark(2);
    EXPECT_EQ(AppState.ElementTable.size(), 10U);
}

TEST(Split, IsOneInsertEndMarkAtEachGap)
{
    std::mt19937 random(12);
    for (int round = 0; round < 2000; ++round) {
        StartCase();
        const int count = static_cast<int>(random() % 30);
        double x = 0.0;
        for (int i = 0; i < count; ++i) {
            const double next = x + static_cast<double>(random() % 5);
            PutLine(x, 0.0, next, 1.0);
            const double gaps[] = {0.0, 0.005, 0.0101, 3.0};
            x = next;
            PutLine(x, 1.0 + gaps[random() % 4], x, 0.0);
        }
        const std::vector<ProfileElement> raw = AppState.ElementTable;
        PlainSplitIntoProfiles();
        const std::vector<ProfileElement> plain = AppState.ElementTable;
        const std::int32_t profiles = AppState.ProfileCount;
        AppState.ElementTable = raw;
        AppState.ElementCount = static_cast<std::int32_t>(raw.size()) - 1;
        SplitIntoProfiles();
        ASSERT_EQ(FirstDifference(AppState.ElementTable, plain), 0U) << round;
        ASSERT_EQ(AppState.ProfileCount, profiles) << round;
        ASSERT_EQ(AppState.ElementCount, static_cast<std::int32_t>(plain.size()) - 1);
    }
}
