// Lengths, and the shadow.
#include "platform/Fault.h"
#include "support/PartTables.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

TEST(Measure, FillsLengthsOfElementsProfilesAndPart)
{
    StartCase();
    PutCircle(50.0, 50.0, -10.0);
    PutEnd(KindEnd, 0.0);
    PutLine(0.0, 0.0, 3.0, 4.0);
    PutArc(3.0, 4.0, 3.0, 24.0, 3.0, 14.0, 10.0); // a half
    PutEnd(KindOuterEnd, 2.0);
    MeasureProfiles(FlagOff);
    EXPECT_NEAR(Slot(1).Length, 20.0 * Pi, 1e-9);
    EXPECT_EQ(Slot(2).Length, 0.0);
    EXPECT_NEAR(Slot(3).Length, 5.0, 1e-12);
    EXPECT_NEAR(Slot(4).Length, 10.0 * Pi, 1e-9);
    ASSERT_EQ(AppState.ProfileTable.size(), 3U);
    EXPECT_NEAR(AppState.ProfileTable[1].ProfileLength, 20.0 * Pi, 1e-9);
    EXPECT_NEAR(AppState.ProfileTable[2].ProfileLength, 5.0 + 10.0 * Pi, 1e-9);
    EXPECT_NEAR(AppState.TotalCutLength, 5.0 + 30.0 * Pi, 1e-9);
    EXPECT_NE(AppState.ProfileTable[1].CornerSnap, FlagOff) << "class 0: imported";
    EXPECT_EQ(AppState.ProfileTable[2].CornerSnap, FlagOff) << "class 2: a library shape";
    EXPECT_EQ(AppState.ProfileEnds, (std::vector<std::int32_t>{0, 2, 5}));
    EXPECT_EQ(AppState.ShadowElements.size(), 1U) << "the shadow wasn't asked for";
}

TEST(Measure, TakesTheNextStartAsTheEnd)
{
    StartCase();
    PutLine(0.0, 0.0, 10.0, 0.0); // ends a little off the next start
    PutLine(10.0, 0.009, 10.0, 5.0);
    PutEnd(KindOuterEnd);
    Slot(3).StartY = 8.0; // the mark's point, not the end (10, 5)
    MeasureProfiles(FlagOff);
    EXPECT_EQ(Slot(1).Length, dpp(0.0, 0.0, 10.0, 0.009));
    EXPECT_NEAR(Slot(2).Length, 7.991, 1e-12);
}

TEST(Measure, AddsTheLengthThatAnEndMarkWasLeftWith)
{
    StartCase();
    PutLine(0.0, 0.0, 10.0, 0.0);
    PutEnd();
    PutLine(0.0, 5.0, 20.0, 5.0);
    PutEnd(KindOuterEnd);
    Slot(2).Length = 1.0;
    MeasureProfiles(FlagOff);
    EXPECT_EQ(Slot(2).Length, 1.0) << "left as found";
    EXPECT_EQ(AppState.ProfileTable[1].ProfileLength, 10.0);
    EXPECT_EQ(AppState.ProfileTable[2].ProfileLength, 21.0) << "the running length had restarted";
    EXPECT_EQ(AppState.TotalCutLength, 31.0);
}

TEST(Measure, KeepsTheRecordsThatAreThere)
{
    StartCase();
    PutLine(0.0, 0.0, 10.0, 0.0);
    PutEnd(KindOuterEnd);
    AppState.ProfileTable.resize(9);
    AppState.ProfileTable[1].LeadPosition = 4.0;
    MeasureProfiles(FlagOff);
    ASSERT_EQ(AppState.ProfileTable.size(), 2U);
    EXPECT_EQ(AppState.ProfileTable[1].LeadPosition, 4.0);
}

TEST(Measure, OfAnEmptyPartIsNothing)
{
    StartCase();
    AppState.TotalCutLength = 5.0;
    MeasureProfiles(FlagOn);
    EXPECT_EQ(AppState.TotalCutLength, 0.0);
    EXPECT_EQ(AppState.ProfileTable.size(), 1U);
    EXPECT_EQ(AppState.ProfileEnds, (std::vector<std::int32_t>{0}));
}

TEST(Shadow, BringsElementsAndMarkPointsBack)
{
    StartCase();
    PutBox(0.0, 0.0, 10.0, 10.0);
    PutEnd(KindOuterEnd);
    AppState.MarkPoints.push_back({1.0, 2.0});
    AppState.MarkPointCount = 1;
    MeasureProfiles(FlagOn);
    const std::vector<ProfileElement> saved = AppState.ElementTable;
    EXPECT_EQ(FirstDifference(AppState.ShadowElements, saved), 0U);
    ReverseProfile(5, 5);
    AppState.MarkPoints[1].X = 77.0;
    RestoreShadow();
    EXPECT_EQ(FirstDifference(AppState.ElementTable, saved), 0U);
    EXPECT_EQ(AppState.MarkPoints[1].X, 1.0);
    EXPECT_EQ(AppState.MarkPoints[1].Y, 2.0);
    EXPECT_EQ(EndMarkOf(1), 5);
}

TEST(Shadow, ThatWasNeverTakenIsAFault)
{
    StartCase();
    PutBox(0.0, 0.0, 10.0, 10.0);
    EXPECT_THROW(RestoreShadow(), RunTimeFault);
    EXPECT_EQ(AppState.ElementTable.size(), 5U);
    StartCase();
    RestoreShadow();
    EXPECT_EQ(AppState.ElementTable.size(), 1U) << "an empty part has an empty shadow";
}
