// Adding to and clearing the element table, and its limit.
#include "platform/Fault.h"
#include "support/PartTables.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

TEST(AddElement, WithoutAnEndOnTheFirstElementWritesOnlySlotZero)
{
    StartCase();
    AddElement(KindLine, 3.0, 4.0, 0.6, 0.8, -5.0, NoValue, NoValue, 1);
    ASSERT_EQ(AppState.ElementCount, 1);
    ASSERT_EQ(AppState.ElementTable.size(), 2U) << "grown to exactly the count";
    EXPECT_EQ(Slot(0).EndX, 3.0);
    EXPECT_EQ(Slot(0).EndY, 4.0);
    EXPECT_EQ(Slot(1).StartX, 3.0);
    EXPECT_EQ(Slot(1).StartY, 4.0);
    EXPECT_EQ(Slot(1).GeoA, 0.6);
    EXPECT_EQ(Slot(1).GeoB, 0.8);
    EXPECT_EQ(Slot(1).GeoC, -5.0);
    EXPECT_EQ(Slot(1).Kind, KindLine);
    EXPECT_EQ(Slot(1).Sense, 1);
    EXPECT_EQ(Slot(1).EndX, 0.0) << "not known yet";
    EXPECT_EQ(AppState.ProfileCount, 0);
}

TEST(AddElement, WithoutAnEndClosesTheElementBefore)
{
    StartCase();
    AddElement(KindLine, 0.0, 0.0, 0.0, 1.0, 0.0, NoValue, NoValue, 1);
    AddElement(KindLine, 10.0, 0.0, -1.0, 0.0, 10.0, NoValue, NoValue, 1);
    AddElement(KindOuterEnd, 10.0, 20.0, 0.0, 0.0, 2.0, NoValue, NoValue, 0);
    EXPECT_EQ(Slot(1).EndX, 10.0);
    EXPECT_EQ(Slot(1).EndY, 0.0);
    EXPECT_EQ(Slot(2).EndX, 10.0);
    EXPECT_EQ(Slot(2).EndY, 20.0);
    EXPECT_EQ(Slot(3).Closing, 1);
    EXPECT_EQ(Slot(2).Closing, 0);
    EXPECT_EQ(AppState.ProfileCount, 1);
}

TEST(AddElement, WithAnEndLeavesTheElementBeforeAlone)
{
    StartCase();
    AddElement(KindLine, 0.0, 0.0, 0.0, 1.0, 0.0, 7.0, 8.0, 1);
    AddElement(KindArc, 10.0, 0.0, 5.0, 0.0, 5.0, 11.0, 12.0, -1);
    AddElement(KindLine, 50.0, 60.0, 1.0, 0.0, 0.0, NoValue, 99.0, 1); // the two ways mixed
    EXPECT_EQ(Slot(1).EndX, 7.0);
    EXPECT_EQ(Slot(1).EndY, 8.0);
    EXPECT_EQ(Slot(2).EndX, 50.0);
    EXPECT_EQ(Slot(2).EndY, 60.0);
    EXPECT_EQ(Slot(2).Sense, -1);
}

TEST(AddElement, CountsAnEndMarkWithoutElements)
{
    StartCase();
    AddElement(KindEnd, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0);
    AddElement(KindOuterEnd, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0);
    EXPECT_EQ(AppState.ProfileCount, 2);
    EXPECT_EQ(AppState.ElementCount, 2);
}

TEST(AddElement, TakesMembersOfTheTableAsArguments)
{
    StartCase();
    PutLine(1.0, 2.0, 3.0, 4.0);
    for (int i = 0; i < 100; ++i) { // growing moves the table away under the references
        const ProfileElement& first = Slot(1);
        AddElement(first.Kind, first.StartX, first.StartY, first.GeoA, first.GeoB, first.GeoC, first.EndX,
                   first.EndY, first.Sense);
    }
    EXPECT_TRUE(SameElement(Slot(101), Slot(1)));
}

TEST(AddElement, EndsAt32767Slots)
{
    StartCase();
    EXPECT_FALSE(WouldPassElementLimit(32767));
    EXPECT_TRUE(WouldPassElementLimit(32768));
    for (int i = 1; i <= 32767; ++i) {
        ASSERT_FALSE(WouldPassElementLimit(1));
        AddElement(KindLine, 0.0, 0.0, 0.0, 1.0, 0.0, 1.0, 0.0, 0);
    }
    EXPECT_TRUE(WouldPassElementLimit(1));
    EXPECT_THROW(AddElement(KindLine, 0.0, 0.0, 0.0, 1.0, 0.0, 1.0, 0.0, 0), RunTimeFault);
    EXPECT_EQ(AppState.ElementCount, 32767) << "nothing was added";
    EXPECT_THROW(SplitIntoProfiles(), RunTimeFault);
    EXPECT_THROW(InsertEndMark(5), RunTimeFault);
    EXPECT_EQ(AppState.ElementCount, 32767);
}

TEST(ClearPart, LeavesWhatAnEmptyStationHas)
{
    StartCase();
    PutBox(0.0, 0.0, 10.0, 10.0);
    PutEnd(KindOuterEnd);
    AppState.MarkPoints.push_back({1.0, 2.0});
    AppState.MarkPointCount = 1;
    MeasureProfiles(FlagOn);
    AppState.CurrentProfile = 1;
    AppState.PathOriginSet = FlagOn;
    AppState.PathCursorDistance = 5.0;
    AppState.PathCursorProfile = 1;
    AppState.MoveStep = 3.0;
    ComputeBounds();
    EXPECT_EQ(AppState.MaxX, 10.0);
    ClearPart();
    EXPECT_EQ(AppState.MaxX, 0.0);
    EXPECT_EQ(AppState.MaxY, 0.0);
    EXPECT_EQ(AppState.ElementTable.size(), 1U);
    EXPECT_EQ(AppState.ShadowElements.size(), 1U);
    EXPECT_EQ(AppState.MarkPoints.size(), 1U);
    EXPECT_EQ(AppState.ShadowMarkPoints.size(), 1U);
    EXPECT_EQ(AppState.ProfileTable.size(), 1U);
    EXPECT_TRUE(AppState.ProfileEnds.empty());
    EXPECT_EQ(AppState.ElementCount, 0);
    EXPECT_EQ(AppState.MarkPointCount, 0);
    EXPECT_EQ(AppState.ProfileCount, 0);
    EXPECT_EQ(AppState.CurrentProfile, 0);
    EXPECT_EQ(AppState.PathOriginSet, FlagOff);
    EXPECT_TRUE(IsNoValue(AppState.PathCursorDistance));
    EXPECT_EQ(AppState.PathCursorProfile, 0);
    EXPECT_EQ(AppState.MoveStep, 10.0);
}

TEST(ProfileSlots, AreFoundByTheIndexAndByTheWalk)
{
    StartCase();
    PutCircle(5.0, 5.0, 1.0);
    PutEnd();
    PutBox(0.0, 0.0, 10.0, 10.0);
    PutEnd(KindOuterEnd);
    for (const bool measured : {false, true}) {
        if (measured) {
            MeasureProfiles(FlagOff);
            EXPECT_EQ(AppState.ProfileEnds, (std::vector<std::int32_t>{0, 2, 7}));
        }
        EXPECT_EQ(EndMarkOf(1), 2);
        EXPECT_EQ(EndMarkOf(2), 7);
        EXPECT_EQ(FirstElementOf(1), 1);
        EXPECT_EQ(FirstElementOf(2), 3);
        for (const std::int32_t missing : {-1, 0, 3}) {
            EXPECT_EQ(EndMarkOf(missing), 0);
            EXPECT_EQ(FirstElementOf(missing), 0);
        }
    }
}

TEST(ProfileSlots, NeverTrustAnIndexThatDoesNotFit)
{
    StartCase();
    PutCircle(5.0, 5.0, 1.0);
    PutEnd();
    PutBox(0.0, 0.0, 10.0, 10.0);
    PutEnd(KindOuterEnd);
    const std::vector<std::int32_t> wrong[] = {
        {},         {0},        {0, 2},    {0, 3, 7}, {0, 0, 7},    {0, 7, 7},
        {0, 99, 7}, {0, -4, 7}, {0, 2, 6}, {1, 2, 7}, {0, 2, 7, 8},
    };
    for (const std::vector<std::int32_t>& ends : wrong) {
        AppState.ProfileEnds = ends;
        EXPECT_EQ(EndMarkOf(1), 2);
        EXPECT_EQ(EndMarkOf(2), 7);
        EXPECT_EQ(FirstElementOf(2), 3);
    }
    AppState.ProfileCount = 5; // more than the table holds
    EXPECT_EQ(EndMarkOf(5), 0);
    EXPECT_EQ(FirstElementOf(5), 0);
}
