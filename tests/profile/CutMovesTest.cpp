// Move lists of whole profiles, written out by hand.
#include "config/Korvanta_Configuration.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/LeadParts.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace
{
constexpr double Near = 1e-9;

struct ExpectedMove {
    std::int16_t Phase;
    std::int16_t Kind;
    double X;
    double Y;
    std::int16_t Mark = 0;
};

class CutMoves : public ::testing::Test
{
protected:
    void SetUp() override
    {
        StartCase();
        HoldConfigWrites();
    }

    void Build(double flyOff = 0.0, std::int32_t profile = 1)
    {
        BuildCutMoves(List, profile, Side, flyOff);
    }

    void Expect(const std::vector<ExpectedMove>& moves) const
    {
        ASSERT_EQ(List.size(), moves.size() + 1);
        for (std::size_t i = 0; i < moves.size(); ++i) {
            const CutMove& move = List[i + 1];
            const std::string where = "record " + std::to_string(i + 1);
            EXPECT_EQ(move.Phase, moves[i].Phase) << where;
            EXPECT_EQ(move.Kind, moves[i].Kind) << where;
            EXPECT_NEAR(move.X, moves[i].X, Near) << where;
            EXPECT_NEAR(move.Y, moves[i].Y, Near) << where;
            EXPECT_EQ(move.Mark, moves[i].Mark) << where;
        }
    }

    static ProfileRecord& Record()
    {
        return AppState.ProfileTable[1];
    }

    static void LeadOut(double length, double radius)
    {
        Record().LeadOutLength = length;
        Record().LeadOutLineOn = ToFlag(length > 0);
        Record().LeadOutRadius = radius;
        Record().LeadOutArcOn = ToFlag(radius > 0);
    }

    std::vector<CutMove> List;
    std::int16_t Side = 99;
};

TEST_F(CutMoves, SquareWithDefaults)
{
    MakeSquare(LibraryClass);
    Build();
    Expect({{1, 1, 5, 15},
            {1, 2, 5, 5},
            {0, 1, 10, 0}, // the lead element behind the lead point
            {0, 1, 100, 0},
            {0, 1, 100, 100},
            {0, 1, 0, 100},
            {0, 1, 0, 0}, // and its head
            {0, 3, 10, 0}});
    EXPECT_NEAR(List[2].CentreX, 10.0, Near);
    EXPECT_NEAR(List[2].CentreY, 5.0, Near);
    EXPECT_EQ(List[2].Radius, 5.0);
    // The side (100, 0) to (100, 100): its left normal is (-1, 0), so x = 100 is -x + 100 = 0.
    EXPECT_EQ(List[4].CentreX, -1.0);
    EXPECT_EQ(List[4].CentreY, 0.0);
    EXPECT_EQ(List[4].Radius, 100.0);
    EXPECT_EQ(Side, 1);
}

TEST_F(CutMoves, LeadOutFollowsTheHead)
{
    MakeSquare(LibraryClass);
    Record().LeadInArcOn = FlagOff;
    Record().LeadPosition = 350.0; // (0, 50), travelling down; left is +x
    LeadOut(4.0, 3.0);
    Build();
    Expect({{1, 1, 10, 50},
            {0, 1, 0, 50},
            {0, 1, 0, 0},
            {0, 1, 100, 0},
            {0, 1, 100, 100},
            {0, 1, 0, 100},
            {2, 2, 0, 50},
            {2, 1, 3, 47},
            {2, 3, 7, 47}});
}

TEST_F(CutMoves, CornerHasNoHead)
{
    MakeSquare(ImportedClass);
    Build();
    Expect({{1, 1, -15, 0}, {0, 1, 0, 0}, {0, 1, 100, 0}, {0, 1, 100, 100}, {0, 1, 0, 100}, {0, 3, 0, 0}});
}

TEST_F(CutMoves, CornerWithoutLeadBeginsWithTheContour)
{
    MakeSquare(ImportedClass);
    Record().LeadInArcOn = FlagOff;
    Record().LeadInLineOn = FlagOff;
    Build();
    Expect({{0, 1, 0, 0}, {0, 1, 100, 0}, {0, 1, 100, 100}, {0, 1, 0, 100}, {0, 3, 0, 0}});
}

TEST_F(CutMoves, NormalLeadSwitchedOffIsALineWithoutLength)
{
    MakeSquare(LibraryClass);
    Record().LeadInArcOn = FlagOff;
    Record().LeadInLineOn = FlagOff;
    Build();
    Expect({{1, 1, 10, 0},
            {0, 1, 10, 0},
            {0, 1, 100, 0},
            {0, 1, 100, 100},
            {0, 1, 0, 100},
            {0, 1, 0, 0},
            {0, 3, 10, 0}});
}

TEST_F(CutMoves, CircleIsTailAndHeadOfOneElement)
{
    MakeCircle(10.0);
    Record().LeadInLineOn = FlagOff;
    Record().LeadInArcOn = FlagOff;
    Record().LeadPosition = 5 * Pi; // a quarter: (10, 20)
    Build();
    Expect({{1, 1, 10, 20}, {0, 2, 10, 20}, {0, 2, 20, 10}, {0, 3, 10, 20}});
    EXPECT_NEAR(MoveLength(List, 2), 15 * Pi, 1e-6);
    EXPECT_NEAR(MoveLength(List, 3), 5 * Pi, 1e-6);
    EXPECT_EQ(List[2].CentreX, 10.0);
    EXPECT_EQ(List[2].Radius, 10.0);
}

TEST_F(CutMoves, CircleEnteredAtItsStartIsOneMove)
{
    MakeCircle(-10.0, ImportedClass);
    Build();
    Expect({{1, 1, 20, 25}, {0, 2, 20, 10}, {0, 3, 20, 10}});
    EXPECT_NEAR(MoveLength(List, 2), 20 * Pi, 1e-6);
}

TEST_F(CutMoves, HeadBelowTheToleranceIsLeftOut)
{
    MakeSquare(LibraryClass);
    Record().LeadPosition = 0.009;
    Record().LeadInArcOn = FlagOff;
    Build();
    Expect({{1, 1, 0.009, 10},
            {0, 1, 0.009, 0},
            {0, 1, 100, 0},
            {0, 1, 100, 100},
            {0, 1, 0, 100},
            {0, 3, 0.009, 0}});
}

TEST_F(CutMoves, WholeElementNearTheLeadPointIsKept)
{
    // Two contours' worth of corners at one place: a waist that touches the first side at the lead point.
    AddLines({{0, 0}, {20, 0}, {20, 20}, {10, 0}, {0, 20}, {0, 0}});
    AddEnd(KindOuterEnd, 200, LibraryClass);
    MeasureProfiles(FlagOn);
    InitLeadData(); // the lead stands at (10, 0), where element 4 starts
    Record().LeadInArcOn = FlagOff;
    Build();
    Expect({{1, 1, 10, 10},
            {0, 1, 10, 0},
            {0, 1, 20, 0},
            {0, 1, 20, 20},
            {0, 1, 10, 0},
            {0, 1, 0, 20},
            {0, 1, 0, 0},
            {0, 3, 10, 0}});
}

TEST_F(CutMoves, TailOfAnArcBelowTheToleranceIsStraight)
{
    // Half disc, entered just ahead of the end of its arc: start and end of the rest would read as a full turn.
    AddArc({20, 0}, {0, 0}, {10, 0}, 10.0);
    AddLines({{0, 0}, {20, 0}});
    AddEnd(KindOuterEnd, 50 * Pi, LibraryClass);
    MeasureProfiles(FlagOn);
    InitLeadData();
    Record().LeadPosition = 10 * Pi - 0.005;
    Build();
    ASSERT_EQ(List.size(), 7U);
    EXPECT_EQ(List[3].Kind, KindLine);
    EXPECT_NEAR(MoveLength(List, 3), 0.005, 1e-6);
    EXPECT_EQ(List[5].Kind, KindArc);
    EXPECT_NEAR(MoveLength(List, 5), 10 * Pi - 0.005, 1e-6);
}

TEST_F(CutMoves, CornerAtAnArcThatMissesItsCircleHasNoHead)
{
    // Half disc whose arc was given with a radius 0.03 too large, as rounded centre words leave it: entered at the
    // start of the arc, the way from there to the circle must not become a move (it would read as a full turn).
    for (const double miss : {0.03, -0.03}) {
        StartCase();
        HoldConfigWrites();
        AddArc({20, 0}, {0, 0}, {10, 0}, 10.0 + miss);
        AddLines({{0, 0}, {20, 0}});
        AddEnd(KindOuterEnd, 50 * Pi, ImportedClass);
        MeasureProfiles(FlagOn);
        InitLeadData();
        Record().LeadInLineOn = FlagOff;
        Build();
        Expect({{1, 1, 20, -5}, {0, 2, 20, 0}, {0, 1, 0, 0}, {0, 3, 20, 0}});
    }
}

// --- open profiles: from the first point to the last, once ----------------------------------------------------

TEST_F(CutMoves, OpenProfileRunsFromFirstToLastPoint)
{
    MakeOpenAngle();
    Build();
    Expect({{0, 1, 0, 0}, {0, 1, 50, 0}, {0, 3, 50, 30}});
    EXPECT_EQ(Side, 0);
}

TEST_F(CutMoves, OpenProfileWithBothLeads)
{
    MakeOpenAngle();
    Record().LeadInLength = 4.0;
    LeadOut(2.0, 0.0);
    Build();
    Expect({{1, 1, -4, 0}, {0, 1, 0, 0}, {0, 1, 50, 0}, {2, 1, 50, 30}, {2, 3, 50, 32}});
}

TEST_F(CutMoves, OpenProfileOfOneLine)
{
    AddLines({{3, 4}, {3, 14}}, -1);
    AddEnd(KindOuterEnd, 0);
    MeasureProfiles(FlagOn);
    InitLeadData();
    Build();
    Expect({{0, 1, 3, 4}, {0, 3, 3, 14}});
    EXPECT_EQ(Side, -1) << "the side of the only element";
}

TEST_F(CutMoves, OpenProfileThatPassesItsFirstPointAgain)
{
    // A "6": back through (0, 0) in its middle, and on.
    AddLines({{0, 0}, {10, 0}, {10, 10}, {0, 0}, {-5, -5}});
    AddEnd(KindOuterEnd, 0);
    MeasureProfiles(FlagOn);
    InitLeadData();
    Build();
    Expect({{0, 1, 0, 0}, {0, 1, 10, 0}, {0, 1, 10, 10}, {0, 1, 0, 0}, {0, 3, -5, -5}});
}

TEST_F(CutMoves, SecondProfileDoesNotRunIntoTheFirst)
{
    AddLines({{0, 0}, {10, 0}, {10, 10}});
    AddEnd(KindEnd, 0);
    AddLines({{20, 0}, {30, 0}, {30, 10}});
    AddEnd(KindEnd, 0);
    AddLines({{40, 0}, {90, 0}});
    AddEnd(KindOuterEnd, 0);
    MeasureProfiles(FlagOn);
    InitLeadData();
    Build(0.0, 2);
    Expect({{0, 1, 20, 0}, {0, 1, 30, 0}, {0, 3, 30, 10}});
    Build(0.0, 1);
    Expect({{0, 1, 0, 0}, {0, 1, 10, 0}, {0, 3, 10, 10}});
}

// --- fly-off -----------------------------------------------------------------------------------------------

TEST_F(CutMoves, FlyOffSplitsTheHead)
{
    MakeSquare(LibraryClass);
    Record().LeadInArcOn = FlagOff;
    Record().LeadPosition = 60.0;
    Build(5.0);
    Expect({{1, 1, 60, 10},
            {0, 1, 60, 0},
            {0, 1, 100, 0},
            {0, 1, 100, 100},
            {0, 1, 0, 100},
            {0, 1, 0, 0},
            {0, 1, 55, 0, 3},
            {0, 3, 60, 0}});
}

TEST_F(CutMoves, FlyOffOfAShortHeadMarksIt)
{
    MakeSquare(LibraryClass);
    Record().LeadInArcOn = FlagOff;
    Record().LeadPosition = 6.0; // the head is 6 long: no more than 5 + 1
    Build(5.0);
    Expect({{1, 1, 6, 10},
            {0, 1, 6, 0},
            {0, 1, 100, 0},
            {0, 1, 100, 100},
            {0, 1, 0, 100},
            {0, 1, 0, 0, 3},
            {0, 3, 6, 0}});
    Record().LeadPosition = 6.5;
    Build(5.0);
    ASSERT_EQ(List.size(), 9U);
    EXPECT_EQ(List[6].Mark, 0);
    EXPECT_EQ(List[7].Mark, 3);
    EXPECT_NEAR(List[7].X, 1.5, Near);
}

TEST_F(CutMoves, FlyOffAtACornerSplitsTheLastElement)
{
    MakeSquare(ImportedClass);
    Build(5.0);
    Expect({{1, 1, -15, 0},
            {0, 1, 0, 0},
            {0, 1, 100, 0},
            {0, 1, 100, 100},
            {0, 1, 0, 100},
            {0, 1, 0, 5, 3},
            {0, 3, 0, 0}});
}

TEST_F(CutMoves, FlyOffOnACircle)
{
    for (const double radius : {10.0, -10.0}) {
        StartCase();
        HoldConfigWrites();
        MakeCircle(radius, ImportedClass);
        Record().LeadInArcOn = FlagOff;
        Build(5.0);
        // Half a radian ahead of the end at angle 0.
        const double back = radius > 0 ? -0.5 : 0.5;
        ASSERT_EQ(List.size(), 5U);
        EXPECT_EQ(List[2].Mark, 0);
        EXPECT_EQ(List[3].Mark, 3);
        EXPECT_EQ(List[3].Radius, radius);
        EXPECT_NEAR(List[3].X, 10 + 10 * std::cos(back), Near);
        EXPECT_NEAR(List[3].Y, 10 + 10 * std::sin(back), Near);
        EXPECT_NEAR(MoveLength(List, 3), 5.0, 1e-6);
    }
}

TEST_F(CutMoves, FlyOffOfAnOpenProfileIsMeasuredToItsLastPoint)
{
    MakeOpenAngle();
    Build(5.0);
    Expect({{0, 1, 0, 0}, {0, 1, 50, 0}, {0, 1, 50, 25, 3}, {0, 3, 50, 30}});
    Build(29.0); // 30 isn't above 29 + 1
    Expect({{0, 1, 0, 0}, {0, 1, 50, 0, 3}, {0, 3, 50, 30}});
}

TEST_F(CutMoves, FlyOffBelowTheToleranceIsNone)
{
    MakeOpenAngle();
    Build(0.009);
    Expect({{0, 1, 0, 0}, {0, 1, 50, 0}, {0, 3, 50, 30}});
    Build(std::nan(""));
    Expect({{0, 1, 0, 0}, {0, 1, 50, 0}, {0, 3, 50, 30}});
}

// --- side --------------------------------------------------------------------------------------------------

TEST_F(CutMoves, SideIsThatOfTheLastCopiedElement)
{
    MakeSquare(LibraryClass); // the lead stands on element 1
    for (std::size_t slot = 1; slot <= 4; ++slot) {
        AppState.ElementTable[slot].Sense = 0;
    }
    AppState.ElementTable[1].Sense = -1;
    Build();
    EXPECT_EQ(Side, -1) << "the head of the lead element comes last";
    Record().LeadPosition = 0.0; // no head: element 4 is the last
    Build();
    EXPECT_EQ(Side, 0);
}

TEST_F(CutMoves, OneElementGivesItsOwnSide)
{
    MakeCircle(10.0, ImportedClass); // entered at its start, so it's copied once
    Record().Side = 1.0;
    AppState.ElementTable[1].Sense = -1;
    Build();
    EXPECT_EQ(Side, -1);
}

// --- what must not break it ----------------------------------------------------------------------------------

TEST_F(CutMoves, EmptyProfileIsItsClosingRecord)
{
    AddElement(KindEnd, 7, 8, 0, 0, 0, 0, 0, 0);
    AddElement(KindOuterEnd, 1, 2, 0, 0, 0, 0, 0, 0);
    MeasureProfiles(FlagOn);
    InitLeadData();
    Build(5.0);
    Expect({{0, 3, 7, 8}});
    Build(5.0, 2);
    Expect({{0, 3, 1, 2}});
}

TEST_F(CutMoves, NoSuchProfileIsAnEmptyList)
{
    MakeSquare(ImportedClass);
    Build();
    for (const std::int32_t profile : {-1, 0, 2, 40000}) {
        Build(0.0, profile);
        EXPECT_EQ(List.size(), 1U);
        EXPECT_EQ(Side, 0);
    }
}

TEST_F(CutMoves, ListKeepsItsStorage)
{
    MakeSquare(ImportedClass);
    Build();
    const CutMove* storage = List.data();
    Build(5.0);
    Build();
    EXPECT_EQ(List.data(), storage) << "built for each profile of each copy";
}
} // namespace
