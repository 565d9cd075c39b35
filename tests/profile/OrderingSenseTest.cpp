// Directions of cut: orienting, reversing, toggling.
#include "platform/Fault.h"
#include "support/PartTables.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace
{
void SetSenses(std::int16_t external, std::int16_t internal)
{
    AppState.WorkExternalSense = external;
    AppState.WorkInternalSense = internal;
}

void ComputeAreas()
{
    std::int16_t largest = 0;
    ComputeProfileAreas(largest);
}

/// A lead-like part: a line, an arc, a line, closed; counter-clockwise from (0, 0).
void PutTongue(std::int16_t sense)
{
    PutLine(0.0, 0.0, 20.0, 0.0, sense);
    PutArc(20.0, 0.0, 20.0, 10.0, 20.0, 5.0, 5.0, sense);
    PutLine(20.0, 10.0, 0.0, 10.0, sense);
    PutLine(0.0, 10.0, 0.0, 0.0, sense);
}
} // namespace

TEST(Reverse, TurnsOrderEndsAndDirections)
{
    StartCase();
    PutCircle(50.0, 50.0, 3.0, 0);
    PutEnd();
    PutTongue(1);
    PutEnd(KindOuterEnd, 2.0);
    ComputeAreas();
    const double area = Slot(7).GeoB;
    EXPECT_GT(area, 200.0);
    Slot(7).Sense = 1;
    ReverseProfile(7, 5);
    EXPECT_EQ(TableText(), "A+53,50>53,50 . L0,0>0,10 L0,10>20,10 A-20,10>20,0 L20,0>0,0 9");
    EXPECT_EQ(Slot(5).GeoC, -5.0);
    EXPECT_EQ(Slot(5).GeoA, 20.0);
    EXPECT_EQ(Slot(3).GeoA, -1.0) << "x = 0 travelled upwards: the left normal is -x";
    EXPECT_EQ(Slot(3).GeoC, 0.0);
    EXPECT_EQ(Slot(7).GeoB, -area);
    EXPECT_EQ(Slot(7).StartX, 0.0);
    EXPECT_EQ(Slot(7).StartY, 0.0);
    EXPECT_EQ(Slot(7).GeoC, 2.0);
    for (std::int32_t i = 3; i <= 6; ++i) {
        EXPECT_EQ(Slot(i).Sense, -1) << i;
    }
    EXPECT_EQ(Slot(7).Sense, 1) << "the end mark keeps its own";
}

TEST(Reverse, MovesTheMarkOfAnOpenProfileToItsOtherEnd)
{
    StartCase();
    PutLine(0.0, 0.0, 10.0, 0.0);
    PutLine(10.0, 0.0, 10.0, 5.0);
    PutEnd(KindOuterEnd);
    ComputeAreas();
    ReverseProfile(3, 3);
    EXPECT_EQ(TableText(), "L10,5>10,0 L10,0>0,0 9");
    EXPECT_EQ(Slot(3).StartX, 0.0);
    EXPECT_EQ(Slot(3).StartY, 0.0);
    EXPECT_EQ(Slot(3).GeoB, 0.0);
    EXPECT_FALSE(std::signbit(Slot(3).GeoB));
}

TEST(Reverse, TwiceRestoresEverything)
{
    std::mt19937 random(64);
    for (int round = 0; round < 200; ++round) {
        StartCase();
        const double x = static_cast<double>(random() % 100);
        const double y = static_cast<double>(random() % 100);
        PutLine(x, y, x + 20.0, y);
        PutArc(x + 20.0, y, x + 20.0, y + 10.0, x + 20.0, y + 5.0, round % 2 == 0 ? 5.0 : -5.0);
        PutLine(x + 20.0, y + 10.0, x + 7.0, y + 11.0, static_cast<std::int16_t>(round % 3 - 1));
        PutLine(x + 7.0, y + 11.0, x, y, -1);
        PutEnd(KindOuterEnd);
        ComputeAreas();
        MeasureProfiles(FlagOff);
        const std::vector<ProfileElement> before = AppState.ElementTable;
        ReverseProfile(5, 5);
        EXPECT_NE(FirstDifference(AppState.ElementTable, before), 0U);
        const double area = Slot(5).GeoB;
        ComputeAreas();
        EXPECT_NEAR(Slot(5).GeoB, area, 1e-9) << "the sign told the truth";
        Slot(5).GeoB = area;
        ReverseProfile(5, 5);
        EXPECT_EQ(FirstDifference(AppState.ElementTable, before), 0U) << round;
    }
}

TEST(Reverse, RefusesWhatIsNoProfile)
{
    StartCase();
    PutBox(0.0, 0.0, 1.0, 1.0);
    PutEnd(KindOuterEnd);
    EXPECT_THROW(ReverseProfile(6, 2), RunTimeFault);
    EXPECT_THROW(ReverseProfile(5, 6), RunTimeFault);
    EXPECT_THROW(ReverseProfile(5, 0), RunTimeFault);
    EXPECT_THROW(ReverseProfile(0, 1), RunTimeFault);
    ReverseProfile(5, 1); // only the mark: nothing to turn
    EXPECT_EQ(Slot(5).StartX, 0.0);
}

TEST(Orient, KeepsAClockwiseOuterAndReversesAClockwiseHole)
{
    StartCase();
    PutBox(10.0, 10.0, 5.0, 5.0, true);
    PutEnd();
    PutBox(0.0, 0.0, 100.0, 100.0, true);
    PutEnd(KindOuterEnd);
    ComputeAreas();
    EXPECT_NEAR(Slot(10).GeoB, -10000.0, 1e-9) << "clockwise is negative";
    SetSenses(-1, 1);
    OrientProfiles();
    EXPECT_NEAR(Slot(5).GeoB, 25.0, 1e-9);
    EXPECT_EQ(Slot(5).Closing, 1);
    EXPECT_EQ(Slot(1).Sense, -1);
    EXPECT_NEAR(Slot(10).GeoB, -10000.0, 1e-9);
    EXPECT_EQ(Slot(10).Closing, -1);
    EXPECT_EQ(Slot(6).Sense, 1) << "not reversed";
}

TEST(Orient, FollowsBothSettings)
{
    for (const std::int16_t external : {std::int16_t{-1}, std::int16_t{1}}) {
        for (const std::int16_t internal : {std::int16_t{-1}, std::int16_t{1}}) {
            for (int drawn = 0; drawn < 4; ++drawn) {
                StartCase();
                PutBox(10.0, 10.0, 5.0, 5.0, (drawn & 1) != 0);
                PutEnd();
                PutCircle(50.0, 50.0, (drawn & 2) != 0 ? -4.0 : 4.0);
                PutEnd();
                PutBox(0.0, 0.0, 100.0, 100.0, (drawn & 2) != 0);
                PutEnd(KindOuterEnd);
                ComputeAreas();
                SetSenses(external, internal);
                OrientProfiles();
                ComputeAreas(); // from the elements as they run now
                EXPECT_EQ(Slot(5).GeoB > 0.0 ? 1 : -1, internal);
                EXPECT_EQ(Slot(7).GeoB > 0.0 ? 1 : -1, internal);
                EXPECT_EQ(Slot(12).GeoB > 0.0 ? 1 : -1, external);
            }
        }
    }
}

TEST(Orient, CutsABoundaryLikeTheOuterOne)
{
    StartCase();
    PutBox(0.01, 0.01, 99.98, 99.98);
    PutEnd();
    PutBox(0.0, 0.0, 100.0, 100.0);
    PutEnd(KindOuterEnd);
    ComputeAreas();
    Slot(5).GeoA = 1.0;
    SetSenses(-1, 1);
    OrientProfiles();
    EXPECT_EQ(Slot(5).Closing, -1);
    EXPECT_LT(Slot(5).GeoB, 0.0);
}

TEST(Orient, LeavesOpenProfilesAlone)
{
    StartCase();
    PutLine(0.0, 0.0, 10.0, 0.0);
    PutLine(10.0, 0.0, 10.0, 5.0);
    PutEnd(KindOuterEnd);
    Slot(3).Closing = 77;
    ComputeAreas();
    SetSenses(-1, 1);
    OrientProfiles();
    EXPECT_EQ(TableText(), "L0,0>10,0 L10,0>10,5 9");
    EXPECT_EQ(Slot(3).Closing, 77);
    EXPECT_EQ(Slot(1).Sense, 1);
}

TEST(Orient, WithCrossedSensesTheLastProfileRunsCounterClockwise)
{
    // A part that is a hole as a whole takes the internal sense outside and the external one inside.
    StartCase();
    PutCircle(50.0, 50.0, 4.0);
    PutEnd();
    PutBox(0.0, 0.0, 100.0, 100.0, true);
    PutEnd(KindOuterEnd);
    ComputeAreas();
    SetSenses(AppState.InternalPathSense, AppState.ExternalPathSense);
    OrientProfiles();
    EXPECT_LT(Slot(2).GeoB, 0.0);
    EXPECT_GT(Slot(7).GeoB, 0.0);
    EXPECT_EQ(Slot(7).Closing, 1);
}

TEST(Toggle, TurnsAClosedProfileAndItsSide)
{
    StartCase();
    PutBox(10.0, 10.0, 5.0, 5.0);
    PutEnd();
    PutBox(0.0, 0.0, 100.0, 100.0, true);
    PutEnd(KindOuterEnd);
    ComputeAreas();
    SetSenses(-1, 1);
    OrientProfiles();
    MeasureProfiles(FlagOn);
    AppState.ProfileTable[1].Side = 1.0;
    AppState.ProfileTable[2].Side = 1.0;
    ToggleProfileSense(1);
    EXPECT_EQ(TableText(), "L10,10>10,15 L10,15>15,15 L15,15>15,10 L15,10>10,10 . "
                           "L0,0>0,100 L0,100>100,100 L100,100>100,0 L100,0>0,0 9");
    EXPECT_EQ(Slot(5).Closing, -1);
    EXPECT_NEAR(Slot(5).GeoB, -25.0, 1e-9);
    EXPECT_EQ(AppState.ProfileTable[1].Side, -1.0);
    EXPECT_EQ(AppState.ProfileTable[2].Side, 1.0) << "only the one";
    ToggleProfileSense(1);
    EXPECT_EQ(Slot(5).Closing, 1);
    EXPECT_EQ(AppState.ProfileTable[1].Side, 1.0);
    EXPECT_EQ(Slot(1).EndX, 15.0);
    for (const std::int32_t missing : {-1, 0, 3}) {
        ToggleProfileSense(missing);
    }
    EXPECT_EQ(AppState.ProfileTable[1].Side, 1.0);
}

TEST(Toggle, KeepsTheSideOfAnOpenProfile)
{
    StartCase();
    PutLine(0.0, 0.0, 10.0, 0.0);
    PutEnd(KindOuterEnd);
    ComputeAreas();
    MeasureProfiles(FlagOn);
    AppState.ProfileTable[1].Side = 1.0;
    ToggleProfileSense(1);
    EXPECT_EQ(TableText(), "L10,0>0,0 9");
    EXPECT_EQ(Slot(2).Closing, -1);
    EXPECT_EQ(AppState.ProfileTable[1].Side, 1.0);
}
