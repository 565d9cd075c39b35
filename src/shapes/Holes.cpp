// Hole shapes H-01 to H-03: one contour, cut as a hole.
// A builder names its parameters by the letters of the drawing; what a letter measures shows in the moves.
#include "shapes/Builders.h"
#include "shapes/ShapeContours.h"
#include "shapes/ShapeMoves.h"

#include <cmath>

// Round hole: one circle, counter-clockwise, Kind 9, from the bottom point.
void BuildH01(const ShapeParameters& p, std::int16_t& err)
{
    const double D = p[1];
    if (AnyTooSmall({D}, err)) {
        return;
    }
    CloseOuter(FullCircle(D / 2, 0, D / 2, D / 2, D / 2), HintRound);
}

// Rectangular hole B wide, A high, corners R, counter-clockwise. A radius under 0.05 gives four straight sides.
void BuildH02(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R = p[3];
    if (AnyTooSmall({A, B}, err) || Fails(R < 0, err)) {
        return;
    }
    constexpr double LeastCorner = 0.05;
    ShapePen pen;
    if (R < LeastCorner) {
        StraightBox(pen, {0, 0, B, A}, err);
    } else {
        RoundBox(pen, {0, 0, B, A}, R, err);
    }
    CloseOuter(pen, HintPlain);
}

// Hexagonal hole of side A, corners R, counter-clockwise.
void BuildH03(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double R = p[2];
    if (Fails(0.8 * A < R, err)) {
        return;
    }
    const double half = std::sqrt(3.0) / 2 * A;
    const double radius = R > 0 ? R : 0;
    RoundedHexagon({{0, 0}, {A, 0}, {3.0 / 2 * A, half}, {A, 2 * half}, {0, 2 * half}, {-A / 2, half}},
                   radius, err);
}
