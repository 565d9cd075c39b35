// The place of the part, its box, and signed areas.
#include "support/PartTables.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace
{
void PutMark(double x, double y)
{
    AppState.MarkPoints.push_back({x, y});
    ++AppState.MarkPointCount;
}

double AreaOf(std::int32_t profile)
{
    std::int32_t mark = 0;
    std::int16_t sense = 0;
    const double area = ProfileArea(profile, mark, sense);
    return area * sense;
}
} // namespace

TEST(ShiftToOrigin, MovesElementsCentresAndMarkPoints)
{
    StartCase();
    PutCircle(30.0, 40.0, 5.0); // its box is 25..35, 35..45: lower left of the lines below
    PutEnd();
    PutLine(27.0, 50.0, 60.0, 36.0);
    PutEnd(KindOuterEnd);
    PutMark(20.0, 30.0); // mark points move, but don't count
    ShiftToOrigin();
    EXPECT_EQ(Slot(1).StartX, 10.0);
    EXPECT_EQ(Slot(1).StartY, 5.0);
    EXPECT_EQ(Slot(1).EndX, 10.0);
    EXPECT_EQ(Slot(1).GeoA, 5.0);
    EXPECT_EQ(Slot(1).GeoB, 5.0);
    EXPECT_EQ(Slot(1).GeoC, 5.0) << "a radius stays";
    EXPECT_EQ(Slot(2).StartX, 10.0);
    EXPECT_EQ(Slot(3).StartX, 2.0);
    EXPECT_EQ(Slot(3).EndY, 1.0);
    EXPECT_EQ(Slot(4).StartX, 35.0);
    EXPECT_EQ(Slot(4).StartY, 1.0);
    EXPECT_EQ(AppState.MarkPoints[1].X, -5.0);
    EXPECT_EQ(AppState.MarkPoints[1].Y, -5.0);
}

TEST(ShiftToOrigin, LeavesTheCoefficientsOfLines)
{
    StartCase();
    PutLine(10.0, 20.0, 30.0, 20.0);
    const double c = Slot(1).GeoC;
    ShiftToOrigin();
    EXPECT_EQ(Slot(1).StartY, 0.0);
    EXPECT_EQ(Slot(1).GeoC, c);
}

TEST(ShiftToOrigin, CountsTheOuterMarkButNoInnerOne)
{
    StartCase();
    PutLine(10.0, 10.0, 4.0, 3.0);
    PutEnd(); // (4, 3), an open end: doesn't count
    PutLine(20.0, 20.0, 6.0, 7.0);
    PutEnd(KindOuterEnd); // (6, 7) counts
    ShiftToOrigin();
    EXPECT_EQ(Slot(1).StartX, 4.0);
    EXPECT_EQ(Slot(1).StartY, 3.0);
    EXPECT_EQ(Slot(2).StartX, -2.0);
    EXPECT_EQ(Slot(4).StartX, 0.0);
    EXPECT_EQ(Slot(4).StartY, 0.0);
}

TEST(ShiftToOrigin, WithNothingToCompareMovesNothing)
{
    StartCase();
    PutMark(7.0, 8.0);
    ShiftToOrigin();
    EXPECT_EQ(AppState.MarkPoints[1].X, 7.0);
    EXPECT_EQ(AppState.MarkPoints[1].Y, 8.0);
}

TEST(Bounds, TakeStartsAndArcBoxes)
{
    StartCase();
    PutLine(1.0, 2.0, 500.0, 600.0);                // its end isn't looked at: the next start stands for it
    PutArc(10.0, 0.0, -10.0, 0.0, 0.0, 0.0, -10.0); // the lower half
    PutEnd(KindOuterEnd);                           // at (-10, 0)
    ComputeBounds();
    EXPECT_NEAR(AppState.MinX, -10.0, 1e-12);
    EXPECT_NEAR(AppState.MaxX, 10.0, 1e-12);
    EXPECT_NEAR(AppState.MinY, -10.0, 1e-12);
    EXPECT_NEAR(AppState.MaxY, 2.0, 1e-12);
}

TEST(Bounds, TakeTheMarkOfAnOpenInnerProfile)
{
    StartCase();
    PutLine(10.0, 10.0, 4.0, 30.0);
    PutEnd(); // (4, 30)
    PutLine(20.0, 20.0, 6.0, 7.0);
    PutEnd(KindOuterEnd);
    ComputeBounds();
    EXPECT_EQ(AppState.MinX, 4.0);
    EXPECT_EQ(AppState.MaxX, 20.0);
    EXPECT_EQ(AppState.MinY, 7.0);
    EXPECT_EQ(AppState.MaxY, 30.0);
}

TEST(Bounds, OfAnEmptyOrAHugePartStandAtTheLimits)
{
    StartCase();
    ComputeBounds();
    EXPECT_EQ(AppState.MinX, 100000.0);
    EXPECT_EQ(AppState.MaxX, -100000.0);
    PutLine(150000.0, -150000.0, 0.0, 0.0);
    ComputeBounds();
    EXPECT_EQ(AppState.MinX, 100000.0) << "clipped";
    EXPECT_EQ(AppState.MaxX, 150000.0);
    EXPECT_EQ(AppState.MinY, -150000.0);
    EXPECT_EQ(AppState.MaxY, -100000.0) << "clipped";
}

TEST(ArcArea, OfAFullCircleIsExact)
{
    EXPECT_NEAR(ArcArea(10.0, 0.0, 10.0, 0.0, 0.0, 0.0, 10.0, -50.0), 314.159265358979, 1e-9);
    EXPECT_NEAR(ArcArea(10.0, 0.0, 10.0, 0.0099, 0.0, 0.0, -10.0, 0.0), -314.159265358979, 1e-9);
}

TEST(ArcArea, OfEndsAToleranceApartIsNoFullCircle)
{
    // A chord of exactly 0.01: a sliver, not 314.
    EXPECT_NEAR(ArcArea(10.0, 0.0, 10.0, 0.01, 0.0, 0.0, 10.0, 0.0), 0.0, 1e-3);
}

TEST(ArcArea, SumsChordsOfTheToldStep)
{
    // Upper half of radius 10, counter-clockwise, above y = 0. sweep pi / sqrt(0.04) = 15.7, cut + 1: 16 chords.
    // Their triangles: 16 * 100 / 2 * sin(pi / 16) = 800 * 0.195090322016128 = 156.0722576129.
    EXPECT_NEAR(ArcArea(10.0, 0.0, -10.0, 0.0, 0.0, 0.0, 10.0, 0.0), 156.0722576129, 1e-8);
    // Clockwise back: the same strip with the other sign.
    EXPECT_NEAR(ArcArea(-10.0, 0.0, 10.0, 0.0, 0.0, 0.0, -10.0, 0.0), -156.0722576129, 1e-8);
    // Lower half counter-clockwise from left to right, seen from y = -10: 20 x 10 below the diameter is negative, less
    // the half disc: -(200 - 156.0722576129).
    EXPECT_NEAR(ArcArea(-10.0, 0.0, 10.0, 0.0, 0.0, 0.0, 10.0, -10.0), -43.9277423871, 1e-8);
}

TEST(ArcArea, TellsShortArcsFromLongOnes)
{
    // Quarter from (10, 0) to (0, 10), ccw: 7 + 1 = 8 chords; sector 8 * 50 * sin(pi / 16) = 78.0361288064513, which
    // is all of the strip above y = 0, since it runs to x = 0.
    EXPECT_NEAR(ArcArea(10.0, 0.0, 0.0, 10.0, 0.0, 0.0, 10.0, 0.0), 78.0361288064513, 1e-8);
    // The other three quarters, clockwise: 1.5 pi / 0.2 = 23.6, so 24 chords of the same pi / 16.
    // Sector -24 * 50 * sin(pi / 16) = -234.10838641935, and start and end lie on the axes.
    EXPECT_NEAR(ArcArea(10.0, 0.0, 0.0, 10.0, 0.0, 0.0, -10.0, 0.0), -234.108386419354, 1e-8);
}

TEST(ArcArea, IsANumberForArcsThatAreNone)
{
    // No radius: the straight strip (0 - 10) * (5 + 5) / 2.
    EXPECT_DOUBLE_EQ(ArcArea(0.0, 5.0, 10.0, 5.0, 0.0, 0.0, 0.0, 0.0), -50.0);
    for (const double radius : {5e-324, -5e-324, static_cast<double>(INFINITY), static_cast<double>(NAN)}) {
        EXPECT_DOUBLE_EQ(ArcArea(0.0, 5.0, 10.0, 5.0, 0.0, 0.0, radius, 0.0), -50.0) << radius;
    }
    EXPECT_TRUE(std::isfinite(ArcArea(0.0, 0.0, 10.0, 0.0, 0.0, 0.0, 1e-9, 0.0))) << "a radius too small";
    EXPECT_TRUE(std::isfinite(ArcArea(0.0, 0.0, 10.0, 0.0, 0.0, 1e30, -1e30, 0.0))) << "and it ends, too";
}

TEST(Areas, AreSignedByTheDirection)
{
    StartCase();
    PutBox(20.0, 20.0, 10.0, 5.0);
    PutEnd();
    PutCircle(50.0, 25.0, -2.0);
    PutEnd();
    PutBox(0.0, -10.0, 100.0, 80.0, true);
    PutEnd(KindOuterEnd);
    std::int16_t largest = 99;
    EXPECT_NEAR(ComputeProfileAreas(largest), 8000.0, 1e-9);
    EXPECT_EQ(largest, 3);
    EXPECT_NEAR(AreaOf(1), 50.0, 1e-9);
    EXPECT_NEAR(AreaOf(2), -4.0 * Pi, 1e-9);
    EXPECT_NEAR(AreaOf(3), -8000.0, 1e-9);
    EXPECT_EQ(AppState.MaxX, 100.0) << "the box was found on the way";
    std::int32_t mark = 0;
    std::int16_t sense = 0;
    ProfileArea(3, mark, sense);
    EXPECT_EQ(mark, 12);
    EXPECT_EQ(sense, -1);
    EXPECT_EQ(ProfileArea(4, mark, sense), 0.0);
    EXPECT_EQ(mark, 0);
    EXPECT_EQ(sense, 0);
}

TEST(Areas, OfAnOpenProfileCompeteButAreNotStored)
{
    StartCase();
    PutBox(20.0, 20.0, 10.0, 5.0);
    PutEnd();
    PutLine(0.0, 0.0, 100.0, 0.0); // three sides of a box
    PutLine(100.0, 0.0, 100.0, 50.0);
    PutLine(100.0, 50.0, 0.0, 50.0);
    PutEnd(KindOuterEnd);
    std::int16_t largest = 0;
    // Below the sides, from y = 0: -0 (the bottom) + 0 (the right) + 100 * 50 = 5000.
    EXPECT_NEAR(ComputeProfileAreas(largest), 5000.0, 1e-9);
    EXPECT_EQ(largest, 2);
    EXPECT_EQ(AreaOf(2), 0.0) << "open";
    EXPECT_NEAR(AreaOf(1), 50.0, 1e-9);
}

TEST(Areas, CloseWithinTheTolerance)
{
    for (const double gap : {0.0099, 0.01, 0.0101}) {
        const bool closed = gap < 0.01; // strictly closer
        StartCase();
        PutLine(0.0, 0.0, 10.0, 0.0);
        PutLine(10.0, 0.0, 10.0, 10.0);
        PutLine(10.0, 10.0, 0.0, gap);
        PutEnd(KindOuterEnd);
        std::int16_t largest = 0;
        ComputeProfileAreas(largest);
        // Nearly the triangle of 50; the last strip is 10 * (10 + gap) / 2.
        EXPECT_NEAR(AreaOf(1), closed ? 50.0 + 5.0 * gap : 0.0, 1e-9);
    }
}

TEST(Areas, TakeTheNextStartAsTheEndOfALine)
{
    StartCase();
    PutLine(0.0, 0.0, 9.0, 0.0); // ends at (9, 0), but the next one begins at (10, 0)
    PutLine(10.0, 0.0, 10.0, 10.0);
    PutLine(10.0, 10.0, 0.0, 10.0);
    PutLine(0.0, 10.0, 0.0, 0.0);
    PutLine(0.0, 0.0, 0.0, -10.0); // the box reaches down to -10
    PutLine(0.0, -10.0, 0.0, 0.0);
    PutEnd(KindOuterEnd);
    std::int16_t largest = 0;
    // From y = -10: the bottom (0 - 10) * 20 / 2 = -100, the top (10 - 0) * 40 / 2 = 200.
    EXPECT_NEAR(ComputeProfileAreas(largest), 100.0, 1e-9);
}

TEST(Areas, ANegativeSenseOnTheMarkTurnsTheSignOnce)
{
    StartCase();
    PutBox(0.0, 0.0, 10.0, 10.0);
    PutEnd(KindOuterEnd, 2.0);
    Slot(5).Sense = -1;
    std::int16_t largest = 0;
    ComputeProfileAreas(largest);
    EXPECT_NEAR(Slot(5).GeoB, -100.0, 1e-9);
    EXPECT_EQ(Slot(5).Sense, 1);
    ComputeProfileAreas(largest);
    EXPECT_NEAR(Slot(5).GeoB, 100.0, 1e-9) << "only once";
}

TEST(Areas, ATieKeepsTheEarlierAndNoAreaGivesNone)
{
    StartCase();
    PutBox(0.0, 0.0, 10.0, 10.0);
    PutEnd();
    PutBox(20.0, 0.0, 10.0, 10.0, true);
    PutEnd(KindOuterEnd);
    std::int16_t largest = 0;
    ComputeProfileAreas(largest);
    EXPECT_EQ(largest, 1);

    StartCase();
    PutLine(5.0, 0.0, 5.0, 9.0); // a line straight up has no strip below it
    PutEnd(KindOuterEnd);
    largest = 7;
    EXPECT_EQ(ComputeProfileAreas(largest), 0.0);
    EXPECT_EQ(largest, 0);
    StartCase();
    largest = 7;
    ComputeProfileAreas(largest);
    EXPECT_EQ(largest, 0);
}

TEST(Areas, AgreeWithTheShoelace)
{
    std::mt19937 random(31);
    std::uniform_real_distribution<double> size(5.0, 100.0);
    std::uniform_real_distribution<double> place(-300.0, 300.0);
    for (int round = 0; round < 500; ++round) {
        StartCase();
        const int corners = 3 + static_cast<int>(random() % 12);
        const double cx = place(random);
        const double cy = place(random);
        std::vector<std::pair<double, double>> points;
        for (int k = 0; k < corners; ++k) {
            const double angle = (round % 2 == 0 ? 2.0 : -2.0) * Pi * k / corners;
            const double r = size(random);
            points.emplace_back(cx + r * std::cos(angle), cy + r * std::sin(angle));
        }
        double shoelace = 0.0;
        for (std::size_t k = 0; k < points.size(); ++k) {
            const auto& [x, y] = points[k];
            const auto& [nextX, nextY] = points[(k + 1) % points.size()];
            shoelace += (x * nextY - nextX * y) / 2.0;
            PutLine(x, y, nextX, nextY);
        }
        PutEnd(KindOuterEnd);
        std::int16_t largest = 0;
        EXPECT_NEAR(ComputeProfileAreas(largest), std::fabs(shoelace), 1e-6);
        EXPECT_NEAR(AreaOf(1), shoelace, 1e-6);
        ShiftToOrigin();
        ComputeProfileAreas(largest);
        EXPECT_NEAR(AreaOf(1), shoelace, 1e-6) << "wherever the part lies";
        EXPECT_NEAR(AppState.MinX, 0.0, 1e-9);
        EXPECT_NEAR(AppState.MinY, 0.0, 1e-9);
    }
}

TEST(Areas, OfArcsAgreeWithTheSegmentFormula)
{
    std::mt19937 random(32);
    std::uniform_real_distribution<double> angles(0.0, 2.0 * Pi);
    for (int round = 0; round < 500; ++round) {
        StartCase();
        const double r = 50.0;
        const double from = angles(random);
        const double to = angles(random);
        const int sign = round % 2 == 0 ? 1 : -1;
        const double x1 = 200.0 + r * std::cos(from);
        const double y1 = 100.0 + r * std::sin(from);
        const double x2 = 200.0 + r * std::cos(to);
        const double y2 = 100.0 + r * std::sin(to);
        if (dpp(x1, y1, x2, y2) < 0.1) {
            continue;
        }
        PutArc(x1, y1, x2, y2, 200.0, 100.0, sign * r); // an arc and its chord: a segment
        PutLine(x2, y2, x1, y1);
        PutEnd(KindOuterEnd);
        const double sweep = amparco(200.0, 100.0, x1, y1, x2, y2, sign);
        const double exact = sign * r * r / 2.0 * (sweep - std::sin(sweep));
        // n chords of w lose r^2 / 2 * n (w - sin w), about r^2 n w^3 / 12, with w at most sqrt(0.4 / r).
        const double step = std::sqrt(0.4 / r);
        std::int16_t largest = 0;
        ComputeProfileAreas(largest);
        EXPECT_NEAR(AreaOf(1), exact, r * r * sweep * step * step / 12.0 + 1e-6);
        EXPECT_LE(std::fabs(AreaOf(1)), std::fabs(exact) + 1e-6) << "chords lie inside";
    }
}
