// Where circles meet, and what is tangent to them, worked by hand.
#include "geometry/Orbalib.h"
#include "state/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace
{
constexpr double Near = 1e-9;

GeoLine Line(double x1, double y1, double x2, double y2)
{
    GeoLine line{};
    std::int16_t err = 0;
    r_pp(line, {0.0, x1, y1, 0.0}, {0.0, x2, y2, 0.0}, err);
    EXPECT_EQ(err, 0);
    return line;
}

GeoCircle Circle(double x, double y, double r)
{
    return {0.0, x, y, r};
}

void ExpectPoint(const std::array<double, 4>& point, double x, double y, const char* what)
{
    EXPECT_NEAR(point[1], x, Near) << what;
    EXPECT_NEAR(point[2], y, Near) << what;
}
} // namespace

TEST(LineAndCircle, SelPicksTheFirstOrTheLastAlongTheTravel)
{
    struct Case {
        const char* Name;
        GeoLine Travel;
        double FirstX, FirstY, LastX, LastY;
    };
    const Case cases[] = {
        {"through the centre, +x", Line(0.0, 0.0, 1.0, 0.0), -5.0, 0.0, 5.0, 0.0},
        {"through the centre, -x", Line(1.0, 0.0, 0.0, 0.0), 5.0, 0.0, -5.0, 0.0},
        {"y = 3, +x", Line(-9.0, 3.0, 9.0, 3.0), -4.0, 3.0, 4.0, 3.0},
        {"x = -4, +y", Line(-4.0, 0.0, -4.0, 1.0), -4.0, -3.0, -4.0, 3.0},
    };
    for (const Case& c : cases) {
        for (const double r : {5.0, -5.0}) { // the circle's own direction doesn't matter
            GeoPoint point{};
            std::int16_t err = 0;
            p_rc(point, c.Travel, Circle(0.0, 0.0, r), 1, err);
            ExpectPoint(point, c.FirstX, c.FirstY, c.Name);
            p_rc(point, c.Travel, Circle(0.0, 0.0, r), -1, err);
            ExpectPoint(point, c.LastX, c.LastY, c.Name);
            EXPECT_EQ(err, 0);
        }
    }
}

TEST(LineAndCircle, TouchWithinTheTolerance)
{
    struct Case {
        const char* Name;
        double LineY;
        std::int16_t Err;
        double FirstX; // the touching point has x = 0
    };
    const Case cases[] = {
        {"exactly", 5.0, 0, 0.0},
        {"a miss of 0.0099", 5.0099, 0, 0.0},
        {"a miss of 0.0101", 5.0101, GeoNoMeeting, 0.0},
        // Half chord squared 25 - (5 - e)^2 = 10 e: e = 9e-6 gives 0.00949, e = 1.1e-5 gives 0.010488.
        {"a half chord of 0.0095", 5.0 - 9e-6, 0, 0.0},
        {"a half chord of 0.0105", 5.0 - 1.1e-5, 0, -std::sqrt(1.1e-4 - 1.21e-10)},
    };
    for (const Case& c : cases) {
        for (const std::int32_t sel : {1, -1}) {
            GeoPoint point = {0.0, 77.0, 78.0, 0.0};
            std::int16_t err = 0;
            p_rc(point, Line(0.0, c.LineY, 1.0, c.LineY), Circle(0.0, 0.0, -5.0), sel, err);
            EXPECT_EQ(err, c.Err) << c.Name;
            if (c.Err == 0) {
                ExpectPoint(point, sel * c.FirstX, c.LineY, c.Name);
            } else {
                ExpectPoint(point, 77.0, 78.0, c.Name);
            }
        }
    }
}

TEST(TwoCircles, CrossOnTheLeftAndOnTheRight)
{
    // Radii 5 and 5, centres 8 apart: feet at 4, half chord 3.
    GeoPoint point{};
    std::int16_t err = 0;
    p_cc(point, Circle(0.0, 0.0, -5.0), Circle(8.0, 0.0, 5.0), 1, err);
    ExpectPoint(point, 4.0, 3.0, "left of the travel to +x is above");
    p_cc(point, Circle(0.0, 0.0, 5.0), Circle(8.0, 0.0, -5.0), -1, err);
    ExpectPoint(point, 4.0, -3.0, "right");
    p_cc(point, Circle(8.0, 0.0, 5.0), Circle(0.0, 0.0, 5.0), 1, err);
    ExpectPoint(point, 4.0, -3.0, "left of the travel to -x is below");
    EXPECT_EQ(err, 0);
}

TEST(TwoCircles, TouchWithinTheTolerance)
{
    struct Case {
        const char* Name;
        double CentreX, Radius; // second circle; the first is radius 5 about (0, 0)
        std::int16_t Err;
        double X;
    };
    const Case cases[] = {
        {"outside", 8.0, 3.0, 0, 5.0},
        {"inside", 2.0, 3.0, 0, 5.0},
        {"around the first", 2.0, 7.0, 0, -5.0},
        {"a hair apart", 8.009, 3.0, 0, 5.0 + 0.009 / 2.0},
        {"too far apart", 8.0101, 3.0, GeoNoMeeting, 0.0},
        {"too deep inside", 1.9899, 3.0, GeoNoMeeting, 0.0},
        {"one centre", 0.0, 5.0, GeoNoMeeting, 0.0},
    };
    for (const Case& c : cases) {
        for (const std::int32_t sel : {1, -1}) {
            GeoPoint point = {0.0, 77.0, 78.0, 0.0};
            std::int16_t err = 0;
            p_cc(point, Circle(0.0, 0.0, 5.0), Circle(c.CentreX, 0.0, c.Radius), sel, err);
            EXPECT_EQ(err, c.Err) << c.Name;
            if (c.Err == 0) {
                EXPECT_NEAR(point[1], c.X, 0.005) << c.Name;
                EXPECT_NEAR(point[2], 0.0, Near) << c.Name;
            } else {
                ExpectPoint(point, 77.0, 78.0, c.Name);
            }
        }
    }
}

TEST(TwoCircles, NearlyOfOneCentreTouchOnTheCircle)
{
    // Gap 0.008 all round but for 0.002 of shift: the touching point lies on the far side, about 5 from the centre.
    GeoPoint point{};
    std::int16_t err = 0;
    p_cc(point, Circle(0.0, 0.0, 5.0), Circle(0.002, 0.0, 5.010), 1, err);
    EXPECT_EQ(err, 0);
    EXPECT_NEAR(point[1], -5.0, 0.0101);
    EXPECT_NEAR(point[2], 0.0, Near);
    // The same with the large circle first: between x = 5.002, where the small one ends, and x = 5.010.
    p_cc(point, Circle(0.0, 0.0, 5.010), Circle(0.002, 0.0, 5.0), 1, err);
    EXPECT_EQ(err, 0);
    EXPECT_GE(point[1], 5.002 - Near);
    EXPECT_LE(point[1], 5.010 + Near);
    EXPECT_NEAR(point[2], 0.0, Near);
}

TEST(CircleOfCircles, StandsOnTheRightOfTheTravel)
{
    // Both clockwise, radius 5, centres 12 apart; a counter-clockwise r = 5 touches from outside: its centre lies
    // |-5 - 5| = 10 from both, so at (6, -8), right of the travel to +x.
    GeoCircle circle{};
    std::int16_t err = 0;
    s_cc(circle, Circle(0.0, 0.0, -5.0), Circle(12.0, 0.0, -5.0), 5.0, err);
    ExpectPoint(circle, 6.0, -8.0, "outside both");
    EXPECT_EQ(circle[3], 5.0);
    // Same direction, larger: |5 - 15| = 10, around both, same centre.
    s_cc(circle, Circle(0.0, 0.0, 5.0), Circle(12.0, 0.0, 5.0), 15.0, err);
    ExpectPoint(circle, 6.0, -8.0, "around both");
    EXPECT_EQ(err, 0);
    // |5 - 6| = 1 from each of two centres 12 apart: none.
    s_cc(circle, Circle(0.0, 0.0, 5.0), Circle(12.0, 0.0, 5.0), 6.0, err);
    EXPECT_EQ(err, GeoNoMeeting);
    ExpectPoint(circle, 6.0, -8.0, "a failure leaves the record");
    EXPECT_EQ(circle[3], 15.0);
}

TEST(CircleOfLineAndCircle, TakesTheFirstThenTheLastCandidate)
{
    // Line y = 0 travelling +x and r = 2: the centre has y = 2. The given circle is clockwise of radius sqrt(20) - 2
    // about (0, 0), so the centre is |-(sqrt(20) - 2) - 2| = sqrt(20) from it: x = -4 or 4.
    const GeoLine line = Line(0.0, 0.0, 1.0, 0.0);
    const GeoCircle given = Circle(0.0, 0.0, -(std::sqrt(20.0) - 2.0));
    GeoCircle circle{};
    std::int16_t err = 0;
    s_rc(circle, line, given, 2.0, err);
    ExpectPoint(circle, -4.0, 2.0, "first along the line");
    EXPECT_EQ(circle[3], 2.0);
    s_cr(circle, given, line, 2.0, err);
    ExpectPoint(circle, 4.0, 2.0, "last along the line");
    EXPECT_EQ(err, 0);
    s_rc(circle, Line(0.0, 30.0, 1.0, 30.0), given, 2.0, err);
    EXPECT_EQ(err, GeoNoMeeting);
}

TEST(TangentLine, OfEqualRadiiIsParallelToTheCentreLine)
{
    GeoLine line{};
    std::int16_t err = 7;
    TangentLineOfCircles(line, Circle(0.0, 0.0, 5.0), Circle(10.0, 0.0, 5.0), err);
    EXPECT_EQ(err, 0) << "the routine owns its word";
    // Signed distance 5 from both centres, travelling +x: y = -5, that is 0 x + 1 y + 5 = 0.
    EXPECT_NEAR(line[1], 0.0, Near);
    EXPECT_NEAR(line[2], 1.0, Near);
    EXPECT_NEAR(line[3], 5.0, Near);
}

TEST(TangentLine, OfOppositeCirclesCrosses)
{
    // Radii 3 and -3, centres 10 apart: dr = -6, h = 8; a = -(0 - (-6)(10))/100 = -0.6, b = 0.8, c = 3.
    GeoLine line{};
    std::int16_t err = 0;
    TangentLineOfCircles(line, Circle(0.0, 0.0, 3.0), Circle(10.0, 0.0, -3.0), err);
    EXPECT_EQ(err, 0);
    EXPECT_NEAR(line[1], -0.6, Near);
    EXPECT_NEAR(line[2], 0.8, Near);
    EXPECT_NEAR(line[3], 3.0, Near);
}

TEST(TangentLine, OfCirclesThatTouchInsideHasNoLengthButADirection)
{
    // Radii 5 and 3, centres 2 apart: d2 = 4, dr = -2, h2 = 0; a = dr dx / d2 = -1, b = 0, c = 5 - 0: x = 5.
    struct Case {
        const char* Name;
        double DX;
        std::int16_t Err;
    };
    const Case cases[] = {
        {"touching", 2.0, 0},
        {"h2 = -0.0079", 1.998, 0},            // 1.998^2 - 4 = -0.007996
        {"h2 = 0.0080", 2.002, 0},             // 2.002^2 - 4 = 0.008004
        {"h2 = -0.0119", 1.997, GeoNoTangent}, // 1.997^2 - 4 = -0.011991
        {"one centre", 0.0, GeoNoTangent},
    };
    for (const Case& c : cases) {
        GeoLine line = {0.0, 7.0, 8.0, 9.0};
        std::int16_t err = 0;
        TangentLineOfCircles(line, Circle(0.0, 0.0, 5.0), Circle(c.DX, 0.0, 3.0), err);
        EXPECT_EQ(err, c.Err) << c.Name;
        if (c.Err != 0) {
            EXPECT_EQ(line, (GeoLine{0.0, 7.0, 8.0, 9.0})) << c.Name;
            continue;
        }
        EXPECT_NEAR(line[1], -2.0 / c.DX, Near) << c.Name;
        EXPECT_NEAR(line[2], 0.0, Near) << c.Name << ": h counts as 0";
        EXPECT_NEAR(line[3], 5.0, Near) << c.Name;
    }
}

TEST(TangentLine, AtTheVeryLimitIsNoRootOfANegative)
{
    // d2 = 0.99, dr = 1: h2 = -0.01 as near as doubles get; whichever side it falls, nothing is a NaN.
    GeoLine line{};
    std::int16_t err = 0;
    TangentLineOfCircles(line, Circle(0.0, 0.0, 1.0), Circle(std::sqrt(0.99), 0.0, 2.0), err);
    EXPECT_FALSE(std::isnan(line[1]) || std::isnan(line[2]) || std::isnan(line[3]));
}

TEST(Circles, KeepTheirPromisesOnRandomInput)
{
    std::mt19937 random(815);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    int met = 0;
    for (int round = 0; round < 5000; ++round) {
        const GeoLine line =
            Line(coordinate(random), coordinate(random), coordinate(random), coordinate(random));
        const GeoCircle circle1 = Circle(coordinate(random), coordinate(random), coordinate(random));
        const GeoCircle circle2 = Circle(coordinate(random), coordinate(random), coordinate(random));
        const double r = coordinate(random);
        for (const std::int32_t sel : {1, -1}) {
            GeoPoint point{};
            std::int16_t err = 0;
            p_rc(point, line, circle1, sel, err);
            if (err == 0) {
                ++met;
                EXPECT_NEAR(dpr(point[1], point[2], line[1], line[2], line[3]), 0.0, 1e-8);
                EXPECT_NEAR(dpp(point[1], point[2], circle1[1], circle1[2]), std::fabs(circle1[3]), 0.0101);
            }
            err = 0;
            p_cc(point, circle1, circle2, sel, err);
            if (err == 0) {
                ++met;
                EXPECT_NEAR(dpp(point[1], point[2], circle1[1], circle1[2]), std::fabs(circle1[3]), 0.0101);
                EXPECT_NEAR(dpp(point[1], point[2], circle2[1], circle2[2]), std::fabs(circle2[3]), 0.0101);
            }
        }
        GeoCircle out{};
        std::int16_t err = 0;
        s_rc(out, line, circle1, r, err);
        if (err == 0) {
            ++met;
            EXPECT_NEAR(line[1] * out[1] + line[2] * out[2] + line[3], r, 1e-8);
            EXPECT_NEAR(dpp(out[1], out[2], circle1[1], circle1[2]), std::fabs(circle1[3] - r), 0.0101);
        }
        err = 0;
        s_cc(out, circle1, circle2, r, err);
        if (err == 0) {
            ++met;
            EXPECT_NEAR(dpp(out[1], out[2], circle1[1], circle1[2]), std::fabs(circle1[3] - r), 0.0101);
            EXPECT_NEAR(dpp(out[1], out[2], circle2[1], circle2[2]), std::fabs(circle2[3] - r), 0.0101);
            const double cross = (circle2[1] - circle1[1]) * (out[2] - circle1[2]) -
                                 (circle2[2] - circle1[2]) * (out[1] - circle1[1]);
            EXPECT_LE(cross, 1e-6) << "right of the travel";
        }
        GeoLine tangent{};
        TangentLineOfCircles(tangent, circle1, circle2, err);
        if (err == 0) {
            ++met;
            for (const GeoCircle& circle : {circle1, circle2}) {
                EXPECT_NEAR(tangent[1] * circle[1] + tangent[2] * circle[2] + tangent[3], circle[3], 0.01);
            }
            EXPECT_GE(tangent[2] * (circle2[1] - circle1[1]) - tangent[1] * (circle2[2] - circle1[2]), -1e-6)
                << "directed from circle 1 to circle 2";
        }
    }
    EXPECT_GT(met, 5000) << "the cases above must really have been looked at";
}

TEST(Fillets, TouchWhatTheyWereBuiltOn)
{
    std::mt19937 random(99);
    std::uniform_real_distribution<double> coordinate(-1000.0, 1000.0);
    for (int round = 0; round < 2000; ++round) {
        const double x = coordinate(random);
        const double y = coordinate(random);
        const GeoLine line1 = Line(coordinate(random), coordinate(random), x, y);
        const GeoLine line2 = Line(x, y, coordinate(random), coordinate(random));
        if (std::fabs(line1[1] * line2[2] - line2[1] * line1[2]) < 0.05) {
            continue;
        }
        GeoCircle fillet{};
        GeoPoint point{};
        std::int16_t err = 0;
        const double r = coordinate(random) / 100.0;
        s_rr(fillet, line1, line2, r, err);
        for (const std::int32_t sel : {1, -1}) {
            p_rc(point, line1, fillet, sel, err);
            EXPECT_NEAR(dpp(point[1], point[2], fillet[1], fillet[2]), std::fabs(r), 1e-6);
            p_rc(point, line2, fillet, sel, err);
            EXPECT_NEAR(dpp(point[1], point[2], fillet[1], fillet[2]), std::fabs(r), 1e-6);
        }
        EXPECT_EQ(err, 0);
    }
}
