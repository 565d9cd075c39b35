// Points and directed lines, worked by hand.
#include "geometry/Orbalib.h"
#include "state/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace
{
constexpr double Near = 1e-12;

GeoPoint Point(double x, double y)
{
    return {0.0, x, y, 0.0};
}

GeoLine Line(double x1, double y1, double x2, double y2)
{
    GeoLine line{};
    std::int16_t err = 0;
    r_pp(line, Point(x1, y1), Point(x2, y2), err);
    EXPECT_EQ(err, 0);
    return line;
}

double Signed(const GeoLine& line, double x, double y)
{
    return line[1] * x + line[2] * y + line[3];
}
} // namespace

TEST(Distances, OfPointsAndLines)
{
    EXPECT_DOUBLE_EQ(dpp(1.0, 2.0, 4.0, 6.0), 5.0);
    EXPECT_DOUBLE_EQ(dpp(-1.0, 0.0, -1.0, 0.0), 0.0);
    // 3x + 4y - 10 = 0, brought to a unit normal: (0, 0) lies 2 away, on either side not negative.
    EXPECT_DOUBLE_EQ(dpr(0.0, 0.0, 0.6, 0.8, -2.0), 2.0);
    EXPECT_DOUBLE_EQ(dpr(6.0, 8.0, 0.6, 0.8, -2.0), 8.0);
    EXPECT_EQ(minimo(2.0, -3.0), -3.0);
    EXPECT_EQ(massimo(2.0, -3.0), 2.0);
}

TEST(Angolo, TakesDyFirstAndRunsFromZeroToAFullTurn)
{
    EXPECT_EQ(angolo(0.0, 1.0), 0.0);
    EXPECT_NEAR(angolo(1.0, 0.0), Pi / 2.0, Near);
    EXPECT_NEAR(angolo(0.0, -1.0), Pi, Near);
    EXPECT_NEAR(angolo(-1.0, 0.0), 1.5 * Pi, Near);
    EXPECT_NEAR(angolo(-1.0, -1.0), 1.25 * Pi, Near);
    EXPECT_EQ(angolo(0.0, 0.0), 0.0);
    EXPECT_EQ(angolo(-1e-300, 1.0), 0.0) << "never a full turn";
    EXPECT_FALSE(std::signbit(angolo(-0.0, 1.0)));
}

TEST(LineOfPoints, HasItsUnitNormalOnTheLeft)
{
    // From (1, 1) to (4, 5): d = 5, a = -4/5, b = 3/5, c = -(-0.8 + 0.6) = 0.2.
    const GeoLine line = Line(1.0, 1.0, 4.0, 5.0);
    EXPECT_NEAR(line[1], -0.8, Near);
    EXPECT_NEAR(line[2], 0.6, Near);
    EXPECT_NEAR(line[3], 0.2, Near);
    EXPECT_GT(Signed(line, 0.0, 5.0), 0.0) << "left of the travel is positive";
}

TEST(LineOfPoints, NeedsTwoOfThem)
{
    GeoLine line = {9.0, 1.0, 2.0, 3.0};
    std::int16_t err = 0;
    r_pp(line, Point(5.0, 5.0), Point(5.0, 5.0), err);
    EXPECT_EQ(err, GeoNoLine);
    EXPECT_EQ(line, (GeoLine{9.0, 1.0, 2.0, 3.0})) << "a failure leaves the record as it was";
    err = 0;
    r_pp(line, Point(0.0, 0.0), Point(0.9e-9, 0.0), err);
    EXPECT_EQ(err, GeoNoLine);
    err = 0;
    r_pp(line, Point(0.0, 0.0), Point(1.1e-9, 0.0), err);
    EXPECT_EQ(err, 0);
    r_pp(line, Point(0.0, 0.0), Point(NAN, 1.0), err);
    EXPECT_EQ(err, GeoNoLine);
    err = 0;
    r_pp(line, Point(-1e300, 0.0), Point(1e300, 1.0), err);
    EXPECT_EQ(err, GeoNoLine) << "a distance beyond the numbers gives no line either";
}

TEST(MeetingOfLines, IsFoundOrRefused)
{
    // y = 2 travelling +x and x = 3 travelling +y.
    GeoPoint point{};
    std::int16_t err = 0;
    p_rr(point, Line(0.0, 2.0, 1.0, 2.0), Line(3.0, 0.0, 3.0, 1.0), err);
    EXPECT_EQ(err, 0);
    EXPECT_NEAR(point[1], 3.0, Near);
    EXPECT_NEAR(point[2], 2.0, Near);

    // x + y = 4 and y = x / 3: x = 3, y = 1.
    p_rr(point, Line(4.0, 0.0, 0.0, 4.0), Line(0.0, 0.0, 3.0, 1.0), err);
    EXPECT_NEAR(point[1], 3.0, Near);
    EXPECT_NEAR(point[2], 1.0, Near);

    p_rr(point, Line(0.0, 0.0, 1.0, 0.0), Line(0.0, 1.0, -1.0, 1.0), err);
    EXPECT_EQ(err, GeoParallel);
    p_rr(point, Line(0.0, 2.0, 1.0, 2.0), Line(3.0, 0.0, 3.0, 1.0), err);
    EXPECT_EQ(err, GeoParallel) << "a success never hides an earlier failure";
}

TEST(MeetingOfLines, ParallelMeansASineBelowOneE9)
{
    const GeoLine flat = {0.0, 0.0, 1.0, 0.0};
    const GeoLine steeper = {0.0, -2e-9, 1.0, 0.0};
    const GeoLine nearlyFlat = {0.0, -0.5e-9, 1.0, 0.0};
    GeoPoint point{};
    std::int16_t err = 0;
    p_rr(point, flat, steeper, err);
    EXPECT_EQ(err, 0);
    p_rr(point, flat, nearlyFlat, err);
    EXPECT_EQ(err, GeoParallel);
    GeoCircle circle{};
    err = 0;
    s_rr(circle, flat, nearlyFlat, 5.0, err);
    EXPECT_EQ(err, GeoParallel);
}

TEST(CircleOfLines, StandsInsideTheCorner)
{
    // Clockwise corner at (0, 100): up the left edge, then right along the top. The part lies on the right, so
    // r = -10 puts the centre at (10, 90).
    GeoCircle circle{};
    std::int16_t err = 0;
    s_rr(circle, Line(0.0, 0.0, 0.0, 100.0), Line(0.0, 100.0, 50.0, 100.0), -10.0, err);
    EXPECT_EQ(err, 0);
    EXPECT_NEAR(circle[1], 10.0, Near);
    EXPECT_NEAR(circle[2], 90.0, Near);
    EXPECT_EQ(circle[3], -10.0);
    // A positive radius stands on the left of both: (-10, 110).
    s_rr(circle, Line(0.0, 0.0, 0.0, 100.0), Line(0.0, 100.0, 50.0, 100.0), 10.0, err);
    EXPECT_NEAR(circle[1], -10.0, Near);
    EXPECT_NEAR(circle[2], 110.0, Near);
    EXPECT_EQ(circle[3], 10.0);
}

TEST(Lines, KeepTheirPromisesOnRandomInput)
{
    std::mt19937 random(4711);
    std::uniform_real_distribution<double> coordinate(-500.0, 500.0);
    for (int round = 0; round < 2000; ++round) {
        const double x1 = coordinate(random);
        const double y1 = coordinate(random);
        const double x2 = coordinate(random);
        const double y2 = coordinate(random);
        const GeoLine line1 = Line(x1, y1, x2, y2);
        const GeoLine line2 = Line(coordinate(random), coordinate(random), x1, y1);
        EXPECT_NEAR(line1[1] * line1[1] + line1[2] * line1[2], 1.0, 1e-12);
        EXPECT_NEAR(Signed(line1, x1, y1), 0.0, 1e-9);
        EXPECT_NEAR(Signed(line1, x2, y2), 0.0, 1e-9);
        EXPECT_GT(line1[2] * (x2 - x1) - line1[1] * (y2 - y1), 0.0) << "(b, -a) is the travel";
        if (std::fabs(line1[1] * line2[2] - line2[1] * line1[2]) < 1e-3) {
            continue;
        }
        GeoPoint point{};
        GeoCircle circle{};
        std::int16_t err = 0;
        const double r = coordinate(random) / 50.0;
        p_rr(point, line1, line2, err);
        s_rr(circle, line1, line2, r, err);
        ASSERT_EQ(err, 0);
        EXPECT_NEAR(point[1], x1, 1e-6);
        EXPECT_NEAR(point[2], y1, 1e-6);
        EXPECT_NEAR(Signed(line1, circle[1], circle[2]), r, 1e-6);
        EXPECT_NEAR(Signed(line2, circle[1], circle[2]), r, 1e-6);
    }
}
