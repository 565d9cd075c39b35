// Angle, mirror and scale.
#include "config/Korvanta_Configuration.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/ValueFields.h"
#include "support/LeadParts.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
constexpr double Near = 1e-9;

int Redraws = 0;

void CountRedraw(Flag fit)
{
    EXPECT_NE(fit, FlagOff);
    ++Redraws;
}

class Transform : public ::testing::Test
{
protected:
    void SetUp() override
    {
        StartCase();
        HoldConfigWrites();
        AppState.ScreenState = ScreenCutting;
        AppState.WorkExternalSense = -1;
        AppState.WorkInternalSense = 1;
        AppState.Redraw = CountRedraw;
        Redraws = 0;
    }

    /// A plate 40 x 20 with its left end rounded: lines and a half circle about (10, 10), clockwise, with a round
    /// hole about (30, 10), and a mark point.
    static void MakePlate()
    {
        AddArc({35, 10}, {35, 10}, {30, 10}, 5.0);
        AddEnd(KindEnd, 25 * Pi);
        AddArc({10, 0}, {10, 20}, {10, 10}, -10.0);
        AddLines({{10, 20}, {40, 20}, {40, 0}, {10, 0}});
        AddEnd(KindOuterEnd, -(600 + 50 * Pi));
        AppState.MarkPoints.push_back({5, 8});
        AppState.MarkPointCount = 1;
        MeasureProfiles(FlagOn);
        ComputeBounds();
        InitLeadData();
    }

    static ProfileElement& Element(std::size_t slot)
    {
        return AppState.ElementTable[slot];
    }
};

void ExpectStart(std::size_t slot, double x, double y)
{
    const ProfileElement& element = AppState.ElementTable[slot];
    EXPECT_NEAR(element.StartX, x, Near) << "slot " << slot;
    EXPECT_NEAR(element.StartY, y, Near) << "slot " << slot;
}

void ExpectBox(double sizeX, double sizeY)
{
    EXPECT_NEAR(AppState.MinX, 0.0, Near);
    EXPECT_NEAR(AppState.MinY, 0.0, Near);
    EXPECT_NEAR(AppState.MaxX, sizeX, Near);
    EXPECT_NEAR(AppState.MaxY, sizeY, Near);
}

TEST_F(Transform, QuarterTurnSitsAtTheOrigin)
{
    MakePlate();
    ApplyTransform(90, 0, 1, FlagOff);
    // (x, y) becomes (20 - y, x).
    ExpectBox(20, 40);
    ExpectStart(1, 10, 35);
    EXPECT_NEAR(Element(1).GeoA, 10, Near);
    EXPECT_NEAR(Element(1).GeoB, 30, Near);
    EXPECT_EQ(Element(1).GeoC, 5.0);
    ExpectStart(3, 20, 10);
    EXPECT_EQ(Element(3).GeoC, -10.0);
    ExpectStart(4, 0, 10);
    ExpectStart(5, 0, 40);
    ExpectStart(7, 20, 10);
    EXPECT_NEAR(AppState.MarkPoints[1].X, 12, Near);
    EXPECT_NEAR(AppState.MarkPoints[1].Y, 5, Near);
    // Element 5 runs from (0, 40) to (20, 40): its left normal points up.
    EXPECT_NEAR(Element(5).GeoA, 0, Near);
    EXPECT_NEAR(Element(5).GeoB, 1, Near);
    EXPECT_EQ(Redraws, 0);
}

TEST_F(Transform, FourQuarterTurnsByTheFieldBringItBack)
{
    MakePlate();
    const std::vector<ProfileElement> before = AppState.ElementTable;
    AppState.CurrentField = FieldAngle;
    const double sizes[] = {20, 40, 20, 40};
    for (int press = 0; press < 4; ++press) {
        StepField(AppState.TextCutting, true, 90.0);
        ApplyTransform(NoValue, -1, -1.0, FlagOn);
        ExpectBox(sizes[press], 60 - sizes[press]);
    }
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "360");
    EXPECT_EQ(Redraws, 4);
    for (std::size_t slot = 1; slot < before.size(); ++slot) {
        ExpectStart(slot, before[slot].StartX, before[slot].StartY);
        EXPECT_EQ(Element(slot).Kind, before[slot].Kind);
        EXPECT_EQ(Element(slot).Sense, before[slot].Sense);
        EXPECT_NEAR(Element(slot).Length, before[slot].Length, Near);
    }
}

TEST_F(Transform, MirrorXTurnsTheOuterProfileBackToClockwise)
{
    MakePlate();
    ApplyTransform(0, 1, 1, FlagOff);
    ExpectBox(40, 20);
    // The hole: start (35, 10) stays; mirrored it ran clockwise, turned back it runs counter-clockwise.
    ExpectStart(1, 35, 10);
    EXPECT_EQ(Element(1).GeoC, 5.0);
    // The outer profile ran (10,20) over the left end to (10,0), then (40,0), (40,20), counter-clockwise;
    // turned round it begins with its former last element.
    ExpectStart(3, 10, 20);
    ExpectStart(4, 40, 20);
    ExpectStart(5, 40, 0);
    ExpectStart(6, 10, 0);
    EXPECT_EQ(Element(6).Kind, KindArc);
    EXPECT_EQ(Element(6).GeoC, -10.0);
    ExpectStart(7, 10, 20);
    EXPECT_LT(Element(7).GeoB, 0.0);
    EXPECT_NEAR(AppState.MarkPoints[1].Y, 12, Near);
    for (const std::size_t slot : {1U, 3U, 4U, 5U, 6U}) {
        EXPECT_EQ(Element(slot).Sense, 1) << "turned over twice, slot " << slot;
    }
}

TEST_F(Transform, MirrorYAndBoth)
{
    MakePlate();
    ApplyTransform(0, 2, 1, FlagOff);
    ExpectBox(40, 20);
    EXPECT_NEAR(Element(1).GeoA, 10, Near);
    EXPECT_NEAR(AppState.MarkPoints[1].X, 35, Near);
    EXPECT_NEAR(AppState.MarkPoints[1].Y, 8, Near);
    EXPECT_EQ(Element(6).Sense, 1);

    ApplyTransform(0, 3, 1, FlagOff); // half a turn: no profile is reversed
    ExpectStart(3, 30, 20);
    EXPECT_EQ(Element(3).GeoC, -10.0);
    EXPECT_NEAR(Element(3).GeoA, 30, Near);
    EXPECT_NEAR(AppState.MarkPoints[1].X, 35, Near);
    EXPECT_NEAR(AppState.MarkPoints[1].Y, 12, Near);
    EXPECT_EQ(Element(3).Sense, 1);
}

TEST_F(Transform, MirrorAloneNegatesEveryRadiusAndSide)
{
    MakePlate();
    for (const std::int16_t mirror : {std::int16_t{1}, std::int16_t{2}}) {
        RestoreShadow();
        TransformPart(0.0, mirror, 1.0);
        EXPECT_EQ(Element(1).GeoC, -5.0);
        EXPECT_EQ(Element(3).GeoC, 10.0);
        EXPECT_EQ(Element(1).Sense, -1);
        EXPECT_EQ(Element(4).Sense, -1);
        EXPECT_EQ(Element(2).Sense, 0) << "not on an end mark";
        TransformPart(0.0, mirror, 1.0);
        EXPECT_EQ(Element(3).GeoC, -10.0);
        EXPECT_EQ(Element(4).Sense, 1);
        ExpectStart(4, 10, 20);
    }
}

TEST_F(Transform, MirrorFourChangesNothing)
{
    MakePlate();
    const std::vector<ProfileElement> before = AppState.ElementTable;
    ApplyTransform(0, 4, 1, FlagOff);
    for (std::size_t slot = 1; slot < before.size(); ++slot) {
        ExpectStart(slot, before[slot].StartX, before[slot].StartY);
        EXPECT_EQ(Element(slot).GeoC, before[slot].GeoC);
        EXPECT_EQ(Element(slot).Sense, before[slot].Sense);
    }
}

TEST_F(Transform, OpenProfileIsNotTurnedBackAndChangesItsSide)
{
    MakeOpenAngle();
    AppState.ShadowElements[1].Sense = 1;
    AppState.ShadowElements[2].Sense = 1;
    ApplyTransform(0, 1, 1, FlagOff);
    ExpectStart(1, 0, 30);
    ExpectStart(2, 50, 30);
    ExpectStart(3, 50, 0);
    EXPECT_EQ(Element(1).Sense, -1);
    ApplyTransform(0, 3, 1, FlagOff);
    EXPECT_EQ(Element(1).Sense, 1);
}

TEST_F(Transform, ScaleMeasuresAnew)
{
    MakePlate();
    ApplyTransform(0, 0, 2.5, FlagOff);
    ExpectBox(100, 50);
    EXPECT_EQ(Element(1).GeoC, 12.5);
    EXPECT_NEAR(Element(1).GeoA, 75, Near);
    EXPECT_NEAR(AppState.ProfileTable[1].ProfileLength, 25 * Pi, 1e-6);
    EXPECT_NEAR(AppState.TotalCutLength, 25 * Pi + 25 * Pi + 2.5 * (30 + 20 + 30), 1e-6);
    // Element 4, y = 50 in +x: 0 x + 1 y - 50 = 0.
    EXPECT_NEAR(Element(4).GeoB, 1, Near);
    ApplyTransform(0, 0, 1, FlagOff);
    ExpectBox(40, 20);
}

TEST_F(Transform, ScaleKeepsASmallArcFromBecomingAFullTurn)
{
    // A square 100 x 100 with one corner rounded by 0.2, its chord 0.283; a hundredth of it is 0.0028.
    AddLines({{0, 0}, {100, 0}, {100, 99.8}});
    AddArc({100, 99.8}, {99.8, 100}, {99.8, 99.8}, 0.2);
    AddLines({{99.8, 100}, {0, 100}, {0, 0}});
    AddEnd(KindOuterEnd, 10000);
    MeasureProfiles(FlagOn);
    ApplyTransform(0, 0, 0.01, FlagOff);
    EXPECT_EQ(Element(3).Kind, KindLine);
    EXPECT_NEAR(Element(3).GeoA, -std::sqrt(0.5), Near) << "the left normal of the travel up and to the left";
    EXPECT_NEAR(Element(3).GeoB, -std::sqrt(0.5), Near);
    EXPECT_NEAR(Element(3).Length, 0.002 * std::sqrt(2.0), Near);
    EXPECT_NEAR(AppState.TotalCutLength, 2 + 2 * 0.998 + 0.002 * std::sqrt(2.0), Near);
    ExpectBox(1, 1);
    ApplyTransform(0, 0, 1, FlagOff);
    EXPECT_EQ(Element(3).Kind, KindArc);
    EXPECT_EQ(Element(3).GeoC, 0.2);
}

TEST_F(Transform, ScaleKeepsALargeArcOfASmallBendOnItsPlace)
{
    // Chord 0.6 of a circle of radius 50: as a full turn it would add 100 to the box and 314 to the length.
    const double rise = 50 - std::sqrt(50 * 50 - 0.3 * 0.3);
    AddArc({0.6, 0}, {0, 0}, {0.3, rise - 50}, 50.0);
    AddLines({{0, 0}, {0, -2}, {0.6, -2}, {0.6, 0}});
    AddEnd(KindOuterEnd, 1.2);
    MeasureProfiles(FlagOn);
    ApplyTransform(0, 0, 0.01, FlagOff);
    ExpectBox(0.006, 0.02);
    EXPECT_NEAR(AppState.TotalCutLength, 2 * (0.006 + 0.02), Near);
}

TEST_F(Transform, ScaleKeepsAFullTurnThatDoesNotQuiteClose)
{
    // A circle of a program whose last point overshoots its first by 0.001; forty times that is 0.04.
    for (const double radius : {10.0, -10.0}) {
        StartCase();
        HoldConfigWrites();
        AddArc({20, 10}, {20, radius > 0 ? 10.001 : 9.999}, {10, 10}, radius);
        AddEnd(KindOuterEnd, radius * 10 * Pi);
        MeasureProfiles(FlagOn);
        EXPECT_NEAR(AppState.TotalCutLength, 20 * Pi, 1e-6);
        ApplyTransform(0, 0, 40, FlagOff);
        EXPECT_NEAR(AppState.TotalCutLength, 800 * Pi, 1e-6);
        ExpectBox(800, 800);
        EXPECT_EQ(Element(1).EndY, Element(1).StartY);
        EXPECT_EQ(Element(2).StartY, Element(1).StartY);
    }
}

TEST_F(Transform, ScaleOfZeroOrBelowLeavesThePartUnscaled)
{
    MakePlate();
    ApplyTransform(0, 0, 2, FlagOff);
    ApplyTransform(0, 0, 0, FlagOff);
    ExpectBox(40, 20);
    ApplyTransform(0, 0, -3, FlagOff);
    ExpectBox(40, 20);
}

TEST_F(Transform, FieldsStandForWhatIsNotGiven)
{
    MakePlate();
    AppState.TextCutting[FieldAngle].Text = "90";
    AppState.TextCutting[FieldMirror].Text = "2";
    AppState.TextCutting[FieldScale].Text = "2";
    ApplyTransform(NoValue, -1, -1.0, FlagOff);
    ExpectBox(40, 80);
    // (5, 8) turned to (12, 5), mirrored about the middle of 20 to (8, 5), twice as large.
    EXPECT_NEAR(AppState.MarkPoints[1].X, 16, Near);
    EXPECT_NEAR(AppState.MarkPoints[1].Y, 10, Near);
    ApplyTransform(0, 0, -1.0, FlagOff);
    ExpectBox(80, 40);
}

TEST_F(Transform, SidesStartAfresh)
{
    MakePlate();
    ToggleProfileSense(1);
    EXPECT_EQ(AppState.ProfileTable[1].Side, -1.0);
    EXPECT_EQ(Element(1).Sense, -1);
    ApplyTransform(0, 0, 1, FlagOff);
    EXPECT_EQ(AppState.ProfileTable[1].Side, 1.0);
    EXPECT_EQ(Element(1).Sense, 1);
    EXPECT_EQ(Element(1).GeoC, 5.0);
}

TEST_F(Transform, EmptyPartIsLeftAlone)
{
    ApplyTransform(90, 1, 2, FlagOn);
    EXPECT_EQ(Redraws, 0);
    EXPECT_EQ(AppState.ElementCount, 0);
}

TEST_F(Transform, AbsurdScaleStaysFinite)
{
    MakePlate();
    ApplyTransform(1e300, 0, 1e308, FlagOff);
    EXPECT_TRUE(std::isfinite(AppState.MaxX) && std::isfinite(AppState.TotalCutLength));
    EXPECT_TRUE(std::isfinite(Element(4).StartX) && std::isfinite(Element(4).GeoC));
}
} // namespace
