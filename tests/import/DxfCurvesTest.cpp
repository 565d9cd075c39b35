// Splines and ellipses as vertices.
#include "DxfHelp.h"

#include "import/Korvanta_DxfIn.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

namespace
{

const double HalfTurn = std::acos(-1.0);

std::vector<CurvePoint> Samples(int count, double from, double to,
                                const std::function<CurvePoint(double)>& at)
{
    std::vector<CurvePoint> samples;
    for (int i = 0; i <= count; ++i) {
        samples.push_back(at(from + (to - from) * i / count));
    }
    return samples;
}

bool HoldsVertex(const DxfRecord& record, double x, double y)
{
    for (const auto& v : record.Vertices) {
        if (std::hypot(v[0] - x, v[1] - y) < 1e-4) {
            return true;
        }
    }
    return false;
}

std::string PointGroups(const std::vector<CurvePoint>& points, int code)
{
    std::string text;
    for (const CurvePoint& p : points) {
        text += "|" + std::to_string(code) + " " + std::to_string(p.X) + "|" + std::to_string(code + 10) +
                " " + std::to_string(p.Y);
    }
    return text;
}

std::string KnotGroups(const std::vector<double>& knots)
{
    std::string text;
    for (const double knot : knots) {
        text += "|40 " + std::to_string(knot);
    }
    return text;
}

} // namespace

TEST(DxfEllipses, OfAFullTurnRunFromTheirMajorAxis)
{
    const DxfResult r = ReadEntities("0 ELLIPSE|10 50|20 60|11 0|21 20|40 0.25|41 0|42 6.283185307179586");
    ASSERT_EQ(r.Records.size(), 1U);
    // major axis upward, so the minor one points to the left
    ExpectFollows(r.Records[0], Samples(4000, 0, 2 * HalfTurn, [](double t) {
                      return CurvePoint{50 - 5 * std::sin(t), 60 + 20 * std::cos(t)};
                  }));
    EXPECT_EQ(r.Records[0].Vertices.front(), r.Records[0].Vertices.back());
    for (const CurvePoint& tip : {CurvePoint{50, 80}, {45, 60}, {50, 40}, {55, 60}}) {
        EXPECT_TRUE(HoldsVertex(r.Records[0], tip.X, tip.Y)) << "its full width and height stay";
    }
}

TEST(DxfEllipses, RunOverTheirParameters)
{
    const DxfResult r = ReadEntities("0 ELLIPSE|10 0|20 0|11 20|21 0|40 0.5|41 5.5|42 1.0");
    ASSERT_EQ(r.Records.size(), 1U) << "through 0: from 5.5 - 2 pi to 1";
    ExpectFollows(r.Records[0], Samples(3000, 5.5 - 2 * HalfTurn, 1.0, [](double t) {
                      return CurvePoint{20 * std::cos(t), 10 * std::sin(t)};
                  }));
}

TEST(DxfEllipses, WithAReversedNormalRunTheOtherWay)
{
    // The minor axis is normal cross major = (0, 0, -1) x (20, 0, 0) = (0, -20, 0), times the ratio.
    const DxfResult r =
        ReadEntities("0 ELLIPSE|10 0|20 0|11 20|21 0|210 0|220 0|230 -1|40 0.5|41 0|42 1.0|"
                     "0 ELLIPSE|10 0|20 0|11 20|21 0|210 0|220 0|230 -1|40 1|41 0|42 1.5707963267948966|"
                     "0 ELLIPSE|10 7|20 0|11 0|21 20|210 0|220 0|230 -1|40 1|41 0|42 6.283185307179586");
    ASSERT_EQ(r.Records.size(), 3U);
    ExpectFollows(r.Records[0], Samples(2000, 0, 1, [](double t) {
                      return CurvePoint{20 * std::cos(t), -10 * std::sin(t)};
                  }));
    ExpectArc(r.Records[1], DxfArcPiece, {0, 0}, 20, {0, -20}, {20, 0});
    ExpectArc(r.Records[2], DxfArcPiece, {7, 0}, 20, {27, 0}, {27, 0});
}

TEST(DxfEllipses, ThatAreRoundAreArcs)
{
    const DxfResult r = ReadEntities("0 ELLIPSE|10 1|20 2|11 0|21 10|40 1|41 0|42 1.5707963267948966|"
                                     "0 ELLIPSE|10 1|20 2|11 0|21 10|40 1|41 0|42 6.283185|"
                                     "0 ELLIPSE|10 1|20 2|11 0|21 10|40 1|41 2|42 2");
    ASSERT_EQ(r.Records.size(), 3U);
    ExpectArc(r.Records[0], DxfArcPiece, {1, 2}, 10, {1, 12}, {-9, 2});
    ExpectArc(r.Records[1], DxfArcPiece, {1, 2}, 10, {11, 2}, {11, 2}); // a full turn in six digits
    ExpectArc(r.Records[2], DxfArcPiece, {1, 2}, 10, {11, 2}, {11, 2});
}

TEST(DxfEllipses, OfSpaceAreSeenFromAbove)
{
    // major axis (6, 0, 8), normal (-0.8, 0, 0.6): the minor axis is n x major * 0.5 = (0, 10, 0) * 0.5
    const DxfResult r =
        ReadEntities("0 ELLIPSE|10 0|20 0|11 6|21 0|31 8|210 -0.8|220 0|230 0.6|40 0.5|41 0|42 3");
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectFollows(r.Records[0], Samples(3000, 0, 3, [](double t) {
                      return CurvePoint{6 * std::cos(t), 5 * std::sin(t)};
                  }));
}

TEST(DxfEllipses, OfAnySizeKeepErrorAndSpacing)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> exponent(-1.6, 3.0);
    std::uniform_real_distribution<double> share(0.02, 1.0);
    std::uniform_real_distribution<double> angle(0.0, 6.28);
    for (int i = 0; i < 300; ++i) {
        const double major = std::pow(10.0, exponent(random));
        const double ratio = share(random);
        const double start = angle(random);
        const double end = angle(random);
        if (major * ratio < 0.02) {
            continue;
        }
        const DxfResult r = ReadEntities("0 ELLIPSE|10 0|20 0|11 " + std::to_string(major) + "|21 0|40 " +
                                         std::to_string(ratio) + "|41 " + std::to_string(start) + "|42 " +
                                         std::to_string(end));
        const double sweep = end > start ? end - start : end - start + 2 * HalfTurn;
        if (r.Records.empty()) {
            EXPECT_LT(major * sweep, 0.02) << "only what is too small may be missing";
            continue;
        }
        ASSERT_EQ(r.Records.size(), 1U);
        if (r.Records[0].Entity.Kind == DxfArcPiece) {
            continue;
        }
        const std::vector<CurvePoint> samples = Samples(1500, start, start + sweep, [&](double t) {
            return CurvePoint{major * std::cos(t), major * ratio * std::sin(t)};
        });
        // An end beside a tip narrower than the spacing can't have both: the spacing holds then.
        const double tip = major * ratio * ratio; // its radius
        const auto besideTip = [&](double t) {
            const double off =
                std::hypot(major - major * std::fabs(std::cos(t)), major * ratio * std::sin(t));
            return tip < 0.01 && off < 0.012;
        };
        const double error = besideTip(start) || besideTip(end) ? 0.0105 : 0.005;
        EXPECT_LE(LargestMiss(r.Records[0], samples), error)
            << major << " " << ratio << " " << start << " " << end;
        EXPECT_GT(LeastStep(r.Records[0]), 0.01) << major << " " << ratio;
    }
}

TEST(DxfEllipses, OfAbsurdSizeAreBounded)
{
    const DxfResult r =
        ReadEntities("0 ELLIPSE|10 0|20 0|11 1e9|21 0|40 0.5|41 0|42 6.283185307179586|"
                     "0 ELLIPSE|10 0|20 0|11 1e200|21 0|40 0.5|0 CIRCLE|10 1e300|20 0|40 1|"
                     "0 ELLIPSE|10 0|20 0|11 nan|21 0|40 0.5|0 ELLIPSE|10 0|20 0|11 5|21 0|40 inf|"
                     "0 ELLIPSE|10 0|20 0|11 5|21 0|40 0.5|41 0|42 1e400|0 CIRCLE|10 0|20 0|40 nan");
    std::size_t points = 0;
    for (const DxfRecord& record : r.Records) {
        points += record.Vertices.size();
        for (const auto& v : record.Vertices) {
            ASSERT_TRUE(std::isfinite(v[0]) && std::isfinite(v[1]));
        }
    }
    EXPECT_LE(points, 70000U);
    EXPECT_EQ(r.Account.LeftOut.at("ELLIPSE"), 4);
    EXPECT_EQ(r.Account.LeftOut.at("CIRCLE"), 2);
}

TEST(DxfSplines, OfACubicFollowTheirPolynomial)
{
    // one Bezier piece: (0,0) (10,20) (20,-20) (30,0); x = 30 t, y = 60 t (1-t)^2 - 60 t^2 (1-t)
    const DxfResult r = ReadEntities("0 SPLINE|70 8|71 3|72 8|73 4|40 0|40 0|40 0|40 0|40 1|40 1|40 1|40 1" +
                                     PointGroups({{0, 0}, {10, 20}, {20, -20}, {30, 0}}, 10));
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectFollows(r.Records[0], Samples(3000, 0, 1, [](double t) {
                      return CurvePoint{30 * t, 60 * t * (1 - t) * (1 - t) - 60 * t * t * (1 - t)};
                  }));
}

TEST(DxfSplines, OfWeightsMakeExactArcs)
{
    // a full circle of radius 10 as nine weighted points of degree 2
    std::string entity = "0 SPLINE|70 5|71 2" + KnotGroups({0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4});
    const std::vector<CurvePoint> frame{{10, 0},    {10, 10}, {0, 10},   {-10, 10}, {-10, 0},
                                        {-10, -10}, {0, -10}, {10, -10}, {10, 0}};
    for (std::size_t i = 0; i < frame.size(); ++i) {
        entity += i % 2 == 0 ? "|41 1" : "|41 0.70710678118654752";
    }
    const DxfResult r = ReadEntities(entity + PointGroups(frame, 10));
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectFollows(r.Records[0], Samples(4000, 0, 2 * HalfTurn, [](double t) {
                      return CurvePoint{10 * std::cos(t), 10 * std::sin(t)};
                  }));
    EXPECT_EQ(r.Records[0].Vertices.front(), r.Records[0].Vertices.back());
}

TEST(DxfSplines, TakeWeightsBetweenTheirPointsToo)
{
    const DxfResult r =
        ReadEntities("0 SPLINE|70 4|71 2|40 0|40 0|40 0|40 1|40 1|40 1|10 10|20 0|41 1|10 10|20 10|"
                     "41 0.70710678118654752|10 0|20 10|41 1");
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectFollows(r.Records[0], Samples(2000, 0, HalfTurn / 2, [](double t) {
                      return CurvePoint{10 * std::cos(t), 10 * std::sin(t)};
                  }));
}

TEST(DxfSplines, KeepTheirKinks)
{
    // two straight cubics that meet at a knot of multiplicity three: a corner at (10, 10)
    const DxfResult r =
        ReadEntities("0 SPLINE|71 3" + KnotGroups({0, 0, 0, 0, 1, 1, 1, 2, 2, 2, 2}) +
                     PointGroups({{0, 0}, {3, 3}, {6, 6}, {10, 10}, {14, 6}, {17, 3}, {20, 0}}, 10));
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectRun(r.Records[0], DxfCurve, {{0, 0}, {10, 10}, {20, 0}});
}

TEST(DxfSplines, KeepCurvedKinks)
{
    // quadratics: up over (5, 20) to (10, 0), down under (15, -20) and back up to (20, 0) through a sharp corner
    const DxfResult r = ReadEntities("0 SPLINE|71 2" + KnotGroups({0, 0, 0, 1, 1, 2, 2, 2}) +
                                     PointGroups({{0, 0}, {5, 20}, {10, 0}, {15, 20}, {20, 0}}, 10));
    ASSERT_EQ(r.Records.size(), 1U);
    EXPECT_TRUE(HoldsVertex(r.Records[0], 10, 0));
    ExpectFollows(r.Records[0], Samples(4000, 0, 2, [](double t) {
                      const double u = t - std::floor(std::min(t, 1.999999999));
                      return CurvePoint{10 * t, 40 * u * (1 - u)};
                  }));
}

TEST(DxfSplines, OfDegreeOneAreTheirPoints)
{
    const DxfResult r = ReadEntities("0 SPLINE|71 1" + KnotGroups({0, 0, 1, 2, 3, 3}) +
                                     PointGroups({{0, 0}, {10, 0}, {20, 0}, {20, 15}}, 10));
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectRun(r.Records[0], DxfCurve, {{0, 0}, {10, 0}, {20, 0}, {20, 15}});
}

TEST(DxfSplines, ThatBreakComeInTwoRuns)
{
    // a knot of multiplicity two in degree 1: the curve jumps from (10, 0) to (10, 5)
    const DxfResult r = ReadEntities("0 SPLINE|71 1" + KnotGroups({0, 0, 1, 1, 2, 2}) +
                                     PointGroups({{0, 0}, {10, 0}, {10, 5}, {0, 5}}, 10));
    ASSERT_EQ(r.Records.size(), 2U);
    ExpectRun(r.Records[0], DxfCurve, {{0, 0}, {10, 0}});
    ExpectRun(r.Records[1], DxfCurve, {{10, 5}, {0, 5}});
    EXPECT_EQ(r.Account.Read.at("SPLINE"), 1);
}

TEST(DxfSplines, ThatAreClosedEndWhereTheyStart)
{
    const std::vector<CurvePoint> square{{0, 0}, {20, 0}, {20, 20}, {0, 20}};
    std::vector<CurvePoint> wrapped = square;
    wrapped.insert(wrapped.end(), square.begin(), square.begin() + 3);
    // with the overlap written out, and without it and its knots
    const std::string written =
        "0 SPLINE|70 3|71 3" + KnotGroups({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}) + PointGroups(wrapped, 10);
    const std::string bare = "|0 SPLINE|70 3|71 3" + PointGroups(square, 10);
    const std::string halfway =
        "|0 SPLINE|70 3|71 3" + KnotGroups({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}) + PointGroups(square, 10);
    const DxfResult r = ReadEntities(written + bare + halfway);
    ASSERT_EQ(r.Records.size(), 3U);
    for (const DxfRecord& record : r.Records) {
        // it starts at (p0 + 4 p1 + p2) / 6
        EXPECT_NEAR(record.Vertices.front()[0], 100.0 / 6.0, 1e-4);
        EXPECT_NEAR(record.Vertices.front()[1], 20.0 / 6.0, 1e-4);
        EXPECT_EQ(record.Vertices.front(), record.Vertices.back());
        EXPECT_EQ(record.Vertices, r.Records[0].Vertices);
        // the middle of a side's span: (p0 + 23 p1 + 23 p2 + p3) / 48
        EXPECT_LE(LargestMiss(record, {{(0 + 23 * 20 + 23 * 20 + 0) / 48.0, (0 + 0 + 23 * 20 + 20) / 48.0}}),
                  0.005);
    }
}

TEST(DxfSplines, ThroughFitPointsMeetThemAll)
{
    const std::vector<CurvePoint> fits{{0, 0}, {10, 10}, {25, 5}, {30, 20}, {30, 20}, {50, 0}};
    const DxfResult r = ReadEntities("0 SPLINE|71 3|74 6" + PointGroups(fits, 11));
    ASSERT_EQ(r.Records.size(), 1U);
    EXPECT_LE(LargestMiss(r.Records[0], fits), 0.005);
    EXPECT_GT(LeastStep(r.Records[0]), 0.01);
    EXPECT_EQ(r.Records[0].Vertices.front(), (std::array<float, 2>{0, 0}));
    EXPECT_EQ(r.Records[0].Vertices.back(), (std::array<float, 2>{50, 0}));
}

TEST(DxfSplines, ThroughFitPointsKeepTheirTangents)
{
    // Two points 10 apart, leaving upward and arriving downward with the speed 10:
    // x = 30 t^2 - 20 t^3 (flat at both ends), y = 10 t (1 - t) (Hermite with tangents (0, 10) and (0, -10)).
    const DxfResult r = ReadEntities("0 SPLINE|71 3|74 2|12 0|22 1|32 0|13 0|23 -1|33 0" +
                                     PointGroups({{0, 0}, {10, 0}}, 11));
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectFollows(r.Records[0], Samples(3000, 0, 1, [](double t) {
                      return CurvePoint{30 * t * t - 20 * t * t * t, 10 * t * (1 - t)};
                  }));
}

TEST(DxfSplines, OfTwoFitPointsAreStraight)
{
    const DxfResult r = ReadEntities("0 SPLINE|71 3" + PointGroups({{0, 0}, {10, 5}}, 11));
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectRun(r.Records[0], DxfCurve, {{0, 0}, {10, 5}});
}

TEST(DxfSplines, ThroughFitPointsOfACircleCloseSmoothly)
{
    // sixteen points of a circle of radius 100: a periodic cubic stays within 0.02 of it, also where it closes
    std::vector<CurvePoint> fits = Samples(16, 0, 2 * HalfTurn, [](double t) {
        return CurvePoint{100 * std::cos(t), 100 * std::sin(t)};
    });
    fits.pop_back();
    const DxfResult r = ReadEntities("0 SPLINE|70 1|71 3" + PointGroups(fits, 11));
    ASSERT_EQ(r.Records.size(), 1U);
    EXPECT_EQ(r.Records[0].Vertices.front(), r.Records[0].Vertices.back());
    for (const auto& v : r.Records[0].Vertices) {
        EXPECT_NEAR(std::hypot(v[0], v[1]), 100.0, 0.02);
    }
}

TEST(DxfSplines, OfSpaceAreSeenFromAbove)
{
    const DxfResult r = ReadEntities(
        "0 SPLINE|71 1|40 0|40 0|40 1|40 2|40 2|10 0|20 0|30 5|10 10|20 0|30 70|10 10|20 10|30 -5");
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectRun(r.Records[0], DxfCurve, {{0, 0}, {10, 0}, {10, 10}});
}

TEST(DxfSplines, WithoutUsableKnotsTakeEvenOnes)
{
    const DxfResult r =
        ReadEntities("0 SPLINE|71 3|40 0|40 1" + PointGroups({{0, 0}, {10, 20}, {20, -20}, {30, 0}}, 10) +
                     "|0 SPLINE|71 3" + PointGroups({{0, 0}, {10, 0}}, 10));
    ASSERT_EQ(r.Records.size(), 2U);
    ExpectFollows(r.Records[0], Samples(3000, 0, 1, [](double t) {
                      return CurvePoint{30 * t, 60 * t * (1 - t) * (1 - t) - 60 * t * t * (1 - t)};
                  }));
    ExpectRun(r.Records[1], DxfCurve, {{0, 0}, {10, 0}}); // two points can't make a cubic
}

TEST(DxfSplines, ThatContradictThemselvesAreLeftOut)
{
    const std::string points = PointGroups({{0, 0}, {10, 20}, {20, -20}, {30, 0}}, 10);
    const DxfResult r = ReadEntities(
        "0 SPLINE|71 3" + KnotGroups({0, 0, 0, 5, 1, 1, 1, 1}) + points + "|0 SPLINE|71 3" +
        KnotGroups({1, 1, 1, 1, 1, 1, 1, 1}) + points + "|0 SPLINE|71 0" + points + "|0 SPLINE|71 99" +
        points + "|0 SPLINE|71 3|41 1|41 0|41 1|41 1" + points + "|0 SPLINE|71 3|41 1|41 -1|41 1|41 1" +
        points + "|0 SPLINE|71 3|40 nan" + points + "|10 nan|0 SPLINE|71 3|10 5|20 5|0 SPLINE|71 3" +
        PointGroups({{1, 1}, {1, 1}, {1.004, 1}, {1, 1}}, 10));
    EXPECT_TRUE(r.Records.empty());
    EXPECT_EQ(r.Account.LeftOut.at("SPLINE"), 9);
}

TEST(DxfSplines, OfAnyShapeKeepErrorAndSpacing)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> place(0.0, 1.0);
    for (int i = 0; i < 300; ++i) {
        const double size = std::pow(10.0, place(random) * 3.0 - 0.5);
        std::vector<CurvePoint> p(4);
        for (CurvePoint& point : p) {
            point = {std::round(place(random) * size * 1e6) / 1e6,
                     std::round(place(random) * size * 1e6) / 1e6};
        }
        const DxfResult r =
            ReadEntities("0 SPLINE|71 3" + KnotGroups({0, 0, 0, 0, 1, 1, 1, 1}) + PointGroups(p, 10));
        const std::vector<CurvePoint> samples = Samples(1500, 0, 1, [&](double t) {
            const double u = 1 - t;
            const double b[] = {u * u * u, 3 * u * u * t, 3 * u * t * t, t * t * t};
            return CurvePoint{b[0] * p[0].X + b[1] * p[1].X + b[2] * p[2].X + b[3] * p[3].X,
                              b[0] * p[0].Y + b[1] * p[1].Y + b[2] * p[2].Y + b[3] * p[3].Y};
        });
        ASSERT_EQ(r.Records.size(), 1U);
        EXPECT_LE(LargestMiss(r.Records[0], samples), 0.005) << i;
        EXPECT_GT(LeastStep(r.Records[0]), 0.01) << i;
        EXPECT_NEAR(r.Records[0].Vertices.back()[0], p[3].X, 1e-3);
    }
}

TEST(DxfSplines, FarFromTheLowCornerStayApartAsFloats)
{
    // At 90000 floats step by 0.0078: vertices must keep clear of 0.01 all the same.
    const DxfResult r = ReadEntities(
        "0 POINT|10 0|20 0|0 ELLIPSE|10 90000|20 90000|11 0.2|21 0|40 0.3|0 ELLIPSE|10 90000|20 90000|"
        "11 3|21 0|40 0.05");
    ASSERT_EQ(r.Records.size(), 3U);
    EXPECT_GT(LeastStep(r.Records[1]), 0.01);
    EXPECT_GT(LeastStep(r.Records[2]), 0.01);
}

TEST(DxfSplines, KeepTheirErrorBesideAStrayPoint)
{
    // A quarter of radius 1 in Bezier form; the point far above must not part its vertices.
    const DxfResult r = ReadEntities(
        "0 SPLINE|71 2|41 1|41 0.7071067811865476|41 1" + KnotGroups({0, 0, 0, 1, 1, 1}) +
        PointGroups({{1, 0}, {1, 1}, {0, 1}}, 10) + "|0 POINT|10 0|20 0|0 POINT|10 1000000|20 1000000");
    ASSERT_EQ(r.Records.size(), 3U);
    ExpectFollows(r.Records[0], Samples(900, 0, HalfTurn / 2, [](double t) {
                      return CurvePoint{std::cos(t), std::sin(t)};
                  }));
}

TEST(DxfSplines, OfEvenBendHaveEvenChords)
{
    // Quarter circles: whatever the radius, no chord is a short rest of the division.
    for (const double radius : {0.7, 3.0, 10.0, 17.0, 40.0, 333.0}) {
        const DxfResult r =
            ReadEntities("0 SPLINE|71 2|41 1|41 0.7071067811865476|41 1" + KnotGroups({0, 0, 0, 1, 1, 1}) +
                         PointGroups({{radius, 0}, {radius, radius}, {0, radius}}, 10));
        ASSERT_EQ(r.Records.size(), 1U);
        double longest = 0.0;
        const auto& vertices = r.Records[0].Vertices;
        for (std::size_t i = 1; i < vertices.size(); ++i) {
            longest = std::max(longest, std::hypot(static_cast<double>(vertices[i][0] - vertices[i - 1][0]),
                                                   static_cast<double>(vertices[i][1] - vertices[i - 1][1])));
        }
        EXPECT_GT(vertices.size(), 3U) << radius;
        EXPECT_LT(longest, 1.1 * LeastStep(r.Records[0])) << radius;
        for (const auto& v : vertices) {
            EXPECT_NEAR(std::hypot(static_cast<double>(v[0]), static_cast<double>(v[1])), radius,
                        1e-6 * radius)
                << "on the curve";
        }
    }
}

TEST(DxfSplines, BarelyLongerThanOneHundredthCloseTheirGap)
{
    // 0.0102 from end to end: shorter than the vertices of a curve are kept apart, but a gap if it were left out.
    StartCase();
    const TempFolder folder;
    std::string name = folder.Write(
        "notch.dxf",
        DrawingOf("0 LINE|10 0.0102|20 0|11 10|21 0|0 LINE|10 10|20 0|11 0|21 10|0 LINE|10 0|20 10|11 0|21 0|"
                  "0 SPLINE|71 3" +
                  KnotGroups({0, 0, 0, 0, 1, 1, 1, 1}) +
                  PointGroups({{0, 0}, {0.0034, 0.001}, {0.0068, 0.001}, {0.0102, 0}}, 10)));
    ASSERT_TRUE(ImportDxf(name));
    EXPECT_EQ(AppState.ProfileCount, 1);
    EXPECT_EQ(AppState.ElementCount, 5);
    EXPECT_TRUE(AppState.ImportOpen.empty());
}

TEST(DxfEllipses, AsSmallAsTheSpacingStillFollow)
{
    // A circle of 0.02 in a block that is squashed askew: its start falls beside the points at its axes.
    const DxfResult r =
        ReadEntities("0 INSERT|2 B|41 0.5|42 1.2|50 70", "0 BLOCK|2 B|0 CIRCLE|10 0|20 0|40 0.02|0 ENDBLK");
    ASSERT_EQ(r.Records.size(), 1U);
    const double turn = 70 * HalfTurn / 180;
    EXPECT_LE(LargestMiss(r.Records[0], Samples(2000, 0, 2 * HalfTurn,
                                                [&](double t) {
                                                    const double x = 0.01 * std::cos(t);
                                                    const double y = 0.024 * std::sin(t);
                                                    return CurvePoint{x * std::cos(turn) - y * std::sin(turn),
                                                                      x * std::sin(turn) +
                                                                          y * std::cos(turn)};
                                                })),
              0.005);
    EXPECT_GT(LeastStep(r.Records[0]), 0.01);
}

TEST(DxfSplines, MakeClosedProfilesWithoutGaps)
{
    StartCase();
    const TempFolder folder;
    std::string name = folder.Write(
        "gasket.dxf",
        DrawingOf("0 SPLINE|70 3|71 3" + PointGroups({{0, 0}, {20, 0}, {20, 20}, {0, 20}}, 10) +
                  "|0 ELLIPSE|10 10|20 10|11 3|21 0|40 0.1|0 ELLIPSE|10 50|20 10|11 0.05|21 0|40 0.6|"
                  "0 SPLINE|71 3|11 100|21 0|11 110|21 5|11 120|21 0|0 LINE|10 120|20 0|11 100|21 0"));
    ASSERT_TRUE(ImportDxf(name));
    EXPECT_EQ(AppState.ProfileCount, 4);
    EXPECT_TRUE(AppState.ImportOpen.empty());
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        const ProfileElement& e = AppState.ElementTable[static_cast<std::size_t>(i)];
        EXPECT_TRUE(IsEndMark(e.Kind) || e.Length > 0.01);
    }
}
