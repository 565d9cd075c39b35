// Sweep and box of arcs, worked by hand.
#include "geometry/Orbalib.h"
#include "state/Numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace
{
struct Box {
    double MaxX = 0.0;
    double MaxY = 0.0;
    double MinX = 0.0;
    double MinY = 0.0;
};

Box BoxOf(double xs, double ys, double xe, double ye, double cx, double cy, double r)
{
    Box box;
    Quadra_Arco(xs, ys, xe, ye, cx, cy, r, box.MaxX, box.MaxY, box.MinX, box.MinY);
    return box;
}
} // namespace

TEST(Amparco, SweepsInTheGivenDirection)
{
    struct Case {
        const char* Name;
        double Xs, Ys, Xe, Ye;
        std::int32_t Sign;
        double Sweep;
    };
    const Case cases[] = {
        // about (1, 1), radius 1
        {"quarter, ccw", 2.0, 1.0, 1.0, 2.0, 1, 0.5 * Pi},
        {"the rest, cw", 2.0, 1.0, 1.0, 2.0, -1, 1.5 * Pi},
        {"half, ccw", 2.0, 1.0, 0.0, 1.0, 1, Pi},
        {"half, cw", 2.0, 1.0, 0.0, 1.0, -1, Pi},
        {"over the x axis, ccw", 1.0, 0.0, 1.0, 2.0, 1, Pi},
        {"quarter over the x axis, cw", 2.0, 1.0, 1.0, 0.0, -1, 0.5 * Pi},
        {"full, ccw", 2.0, 1.0, 2.0, 1.0, 1, 2.0 * Pi},
        {"full, cw", 2.0, 1.0, 2.0, 1.0, -1, 2.0 * Pi},
        {"nearly closed counts as full", 2.0, 1.0, 2.0, 1.0099, 1, 2.0 * Pi},
        {"0.01 apart is no full turn", 2.0, 0.0, 2.0, 0.01, 1, 0.25 * Pi - std::atan(0.99)},
        {"0.0101 apart is a short arc", 2.0, 1.0, 2.0, 1.0101, 1, std::atan(0.0101)},
        {"0.0101 apart the long way", 2.0, 1.0, 2.0, 1.0101, -1, 2.0 * Pi - std::atan(0.0101)},
    };
    for (const Case& c : cases) {
        EXPECT_NEAR(amparco(1.0, 1.0, c.Xs, c.Ys, c.Xe, c.Ye, c.Sign), c.Sweep, 1e-12) << c.Name;
    }
}

TEST(QuadraArco, TakesTheQuadrantPointsThatTheArcPasses)
{
    const double h = std::sqrt(0.5) * 10.0;
    struct Case {
        const char* Name;
        double Xs, Ys, Xe, Ye, R;
        double MaxX, MaxY, MinX, MinY;
    };
    const Case cases[] = {
        // about (0, 0), radius 10
        {"45 to 135, ccw passes the top", h, h, -h, h, 10.0, h, 10.0, -h, h},
        {"45 to 135, cw passes the others", h, h, -h, h, -10.0, 10.0, h, -10.0, -10.0},
        {"quarter, ends on the axes", 10.0, 0.0, 0.0, 10.0, 10.0, 10.0, 10.0, 0.0, 0.0},
        {"lower half, cw", 10.0, 0.0, -10.0, 0.0, -10.0, 10.0, 0.0, -10.0, -10.0},
        {"-45 to 45, ccw passes the right", h, -h, h, h, 10.0, 10.0, h, h, -h},
        {"full circle from its right", 10.0, 0.0, 10.0, 0.0, 10.0, 10.0, 10.0, -10.0, -10.0},
        {"full circle from 45 degrees, cw", h, h, h, h, -10.0, 10.0, 10.0, -10.0, -10.0},
        {"nearly closed counts as full", 10.0, 0.0, 10.0, 0.009, 10.0, 10.0, 10.0, -10.0, -10.0},
    };
    for (const Case& c : cases) {
        const Box box = BoxOf(c.Xs, c.Ys, c.Xe, c.Ye, 0.0, 0.0, c.R);
        EXPECT_NEAR(box.MaxX, c.MaxX, 1e-9) << c.Name;
        EXPECT_NEAR(box.MaxY, c.MaxY, 1e-9) << c.Name;
        EXPECT_NEAR(box.MinX, c.MinX, 1e-9) << c.Name;
        EXPECT_NEAR(box.MinY, c.MinY, 1e-9) << c.Name;
    }
}

TEST(QuadraArco, HoldsEachArcTightly)
{
    std::mt19937 random(2024);
    std::uniform_real_distribution<double> angle(0.0, 2.0 * Pi);
    std::uniform_real_distribution<double> centre(-100.0, 100.0);
    std::uniform_real_distribution<double> radius(1.0, 50.0);
    for (int round = 0; round < 1000; ++round) {
        const double cx = centre(random);
        const double cy = centre(random);
        const double size = radius(random);
        const double from = angle(random);
        const double to = angle(random);
        const int sign = round % 2 == 0 ? 1 : -1;
        const double xs = cx + size * std::cos(from);
        const double ys = cy + size * std::sin(from);
        const double xe = cx + size * std::cos(to);
        const double ye = cy + size * std::sin(to);
        if (dpp(xs, ys, xe, ye) < Tolerance) {
            continue;
        }
        const double sweep = amparco(cx, cy, xs, ys, xe, ye, sign);
        ASSERT_NEAR(std::remainder(from + sign * sweep - to, 2.0 * Pi), 0.0, 1e-9);
        ASSERT_GE(sweep, 0.0);
        const Box box = BoxOf(xs, ys, xe, ye, cx, cy, sign * size);
        Box drawn = {-1e9, -1e9, 1e9, 1e9};
        const int steps = 2000;
        for (int i = 0; i <= steps; ++i) {
            const double a = from + sign * sweep * i / steps;
            drawn.MaxX = std::max(drawn.MaxX, cx + size * std::cos(a));
            drawn.MaxY = std::max(drawn.MaxY, cy + size * std::sin(a));
            drawn.MinX = std::min(drawn.MinX, cx + size * std::cos(a));
            drawn.MinY = std::min(drawn.MinY, cy + size * std::sin(a));
        }
        // A step spans at most 2 pi / 2000, so a sample lies within size * (1 - cos(pi / 2000)) of an extreme.
        const double slack = size * 1.3e-6 + 1e-9;
        EXPECT_NEAR(box.MaxX, drawn.MaxX, slack);
        EXPECT_NEAR(box.MaxY, drawn.MaxY, slack);
        EXPECT_NEAR(box.MinX, drawn.MinX, slack);
        EXPECT_NEAR(box.MinY, drawn.MinY, slack);
        EXPECT_GE(box.MaxX, drawn.MaxX - 1e-9) << "the box contains the arc";
        EXPECT_LE(box.MinY, drawn.MinY + 1e-9) << "the box contains the arc";
    }
}
