// Rectangular shapes: plates, frames, chamfered, notched and triangular parts.
// A builder names its parameters by the letters of the drawing; what a letter measures shows in the moves.
#include "shapes/Builders.h"
#include "shapes/ShapeContours.h"
#include "shapes/ShapeMoves.h"
#include "state/Numbers.h"

namespace
{
struct PlateWindow {
    double CentreX;
    double CentreY;
    double Width;
    double Height;
    double Radius;
};

/// A plate with corners R and a window with its own. Both contours run counter-clockwise as built, so the scrap of the
/// outer one lies on its right. When corners don't fit into a contour the plate ends with what was added before.
void WindowedPlate(double A, double B, double R, const PlateWindow& window, std::int16_t& err)
{
    ShapePen inner;
    if (!BoxContour(inner, window.CentreX, window.CentreY, window.Width, window.Height, window.Radius, err)) {
        return;
    }
    CloseInner(inner, HintRound);
    ShapePen outer;
    outer.Sense = -1;
    if (!BoxContour(outer, B / 2, A / 2, B, A, R, err)) {
        return;
    }
    outer.Sense = 1;
    CloseOuter(outer, HintRound);
}
} // namespace

// Rectangle with four equal corner radii R, B wide and A high.
void BuildR01(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R = p[3];
    if (Fails(2 * R >= B, err)) {
        return;
    }
    RoundedPlate(A, B, R, HintRound, err);
}

// R-01 with a radius of exactly 0. The two sides change their roles here: A wide and B high.
void BuildR01Square(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    if (AnyTooSmall({A, B}, err)) {
        return;
    }
    PlainPlate(B, A, err);
}

// R-01 with one round hole Di centred at (D, C).
void BuildR02(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R = p[3];
    const double C = p[4];
    const double D = p[5];
    const double Di = p[6];
    if (AnyTooSmall({A, B, C, D}, err) || Fails(R < 0, err) || Fails(Di < 0, err)) {
        return;
    }
    HoleFromBottom(D, C, Di);
    RoundedPlate(A, B, R, HintPlain, err);
}

// R-02 with a radius of exactly 0. A stays the height; a hole counts from 0.1 on.
void BuildR02Square(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[4];
    const double D = p[5];
    const double Di = p[6];
    const bool hole = Di > LeastMeasure;
    if (AnyTooSmall({A, B}, err) || (hole && AnyTooSmall({C, D}, err))) {
        return;
    }
    if (hole) {
        HoleFromBottom(D, C, Di);
    }
    PlainPlate(A, B, err);
}

// Rectangle with all four corners chamfered, X along the horizontal edges and Y along the vertical ones.
void BuildR03(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double X = p[3];
    const double Y = p[4];
    if (AnyTooSmall({A, B, X, Y}, err)) {
        return;
    }
    ChamferedPlate(A, B, X, Y, err);
}

// R-03 with a round hole Df at (D, C).
void BuildR04(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double Df = p[5];
    const double X = p[6];
    const double Y = p[7];
    if (AnyTooSmall({A, B}, err) || Fails(Df < 0, err) || AnyTooSmall({C, D, X, Y}, err)) {
        return;
    }
    RoundHole(Df / 2 + D, C, D, C, Df);
    ChamferedPlate(A, B, X, Y, err);
}

// Rectangle with its two lower corners chamfered X by Y.
void BuildR05(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double X = p[3];
    const double Y = p[4];
    if (AnyTooSmall({A, B, X, Y}, err)) {
        return;
    }
    ShapePen pen{0, Y};
    LineTo(pen, 0, A, err);
    LineTo(pen, B, A, err);
    LineTo(pen, B, Y, err);
    LineTo(pen, B - X, 0, err);
    LineTo(pen, X, 0, err);
    LineTo(pen, 0, Y, err);
    CloseOuter(pen, HintPlain);
}

// Rounded rectangle (corners R) with a rounded window F wide and E high, lower left corner at (D, C), corners Ri. Both
// contours run counter-clockwise as built, so the scrap of the outer one lies on its right.
void BuildR06(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R = p[3];
    const double C = p[4];
    const double D = p[5];
    const double E = p[6];
    const double F = p[7];
    const double Ri = p[8];
    if (AnyTooSmall({A, B}, err) || Fails(R < 0, err) || AnyTooSmall({C, D, E, F}, err) ||
        Fails(Ri < 0, err) || Fails(2 * Ri >= E, err) || Fails(2 * R >= A, err)) {
        return;
    }
    WindowedPlate(A, B, R, {D + F / 2, C + E / 2, F, E, Ri}, err);
}

// Frame: outer rectangle B by A with corners Re, window inset D on all sides with corners Ri. Directions as R-06.
void BuildR07(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double D = p[3];
    const double Ri = p[4];
    const double Re = p[5];
    if (AnyTooSmall({A, B, D}, err) || Fails(Ri < 0, err) || Fails(Re < 0, err) ||
        Fails(2 * Ri >= A - 2 * D, err) || Fails(2 * Re >= A, err)) {
        return;
    }
    WindowedPlate(A, B, Re, {B / 2, A / 2, B - 2 * D, A - 2 * D, Ri}, err);
}

// Rectangle with a rectangular notch X by Y at each of the four corners (a cross).
void BuildR08(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double X = p[3];
    const double Y = p[4];
    if (AnyTooSmall({A, B, X, Y}, err)) {
        return;
    }
    CrossPlate(A, B, X, Y, err);
}

// R-08 with a hole Di at (D, C).
void BuildR09(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double Di = p[5];
    const double X = p[6];
    const double Y = p[7];
    if (AnyTooSmall({A}, err) || Fails(B < 0, err) || AnyTooSmall({C, D}, err) || Fails(Di < 0, err) ||
        AnyTooSmall({X, Y}, err) || Fails(A / 2 <= Y, err)) {
        return;
    }
    HoleFromBottom(D, C, Di);
    CrossPlate(A, B, X, Y, err);
}

// Rectangle with notches X by Y at the two upper corners only, and a hole Di at (D, C).
void BuildR10(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double Di = p[5];
    const double X = p[6];
    const double Y = p[7];
    if (AnyTooSmall({A}, err) || Fails(B < 0, err) || AnyTooSmall({C, D}, err) || Fails(Di < 0, err) ||
        Fails(B / 2 <= X, err) || Fails(Y >= A, err)) {
        return;
    }
    HoleFromBottom(D, C, Di);
    if (!(X > 0 && Y > 0)) {
        PlainPlate(A, B, err);
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, 0, A - Y, err);
    LineTo(pen, X, A - Y, err);
    LineTo(pen, X, A, err);
    LineTo(pen, B - X, A, err);
    LineTo(pen, B - X, A - Y, err);
    LineTo(pen, B, A - Y, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// Rectangle with its lower corners chamfered (C up the side, D along the bottom) and a semicircular bite of diameter
// Df in the top edge, centred at x = E.
void BuildR11(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double E = p[5];
    const double Df = p[6];
    if (AnyTooSmall({A, B}, err) || Fails(C < 0, err) || Fails(D < 0, err) || AnyTooSmall({E, Df}, err) ||
        Fails(Df / 2 >= E, err) || Fails(Df / 2 + E >= B, err)) {
        return;
    }
    const bool chamfers = C >= Tolerance && D >= Tolerance;
    ShapePen pen{0, chamfers ? C : 0};
    LineTo(pen, 0, A, err);
    LineTo(pen, E - Df / 2, A, err);
    ArcTo(pen, E, A, Df / 2, E + Df / 2, A);
    LineTo(pen, B, A, err);
    if (chamfers) {
        LineTo(pen, B, C, err);
        LineTo(pen, B - D, 0, err);
        LineTo(pen, D, 0, err);
        LineTo(pen, 0, C, err);
    } else {
        LineTo(pen, B, 0, err);
        LineTo(pen, 0, 0, err);
    }
    CloseOuter(pen, HintPlain);
}

// Rectangle with a rectangular notch L wide, P deep in the top edge, centred at x = C, and lower corners chamfered X
// by Y.
void BuildR12(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double P = p[4];
    const double L = p[5];
    const double X = p[6];
    const double Y = p[7];
    if (AnyTooSmall({A, B, C, P, L}, err) || Fails(X < 0, err) || Fails(Y < 0, err)) {
        return;
    }
    const bool chamfers = X >= Tolerance && Y >= Tolerance;
    ShapePen pen{chamfers ? X : 0, 0};
    if (chamfers) {
        LineTo(pen, 0, Y, err);
    }
    LineTo(pen, 0, A, err);
    LineTo(pen, C - L / 2, A, err);
    LineTo(pen, C - L / 2, A - P, err);
    LineTo(pen, L / 2 + C, A - P, err);
    LineTo(pen, L / 2 + C, A, err);
    LineTo(pen, B, A, err);
    if (chamfers) {
        LineTo(pen, B, Y, err);
        LineTo(pen, B - X, 0, err);
        LineTo(pen, X, 0, err);
    } else {
        LineTo(pen, B, 0, err);
        LineTo(pen, 0, 0, err);
    }
    CloseOuter(pen, HintPlain);
}

// Right triangle, legs A up and B along.
void BuildR13(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    if (AnyTooSmall({A, B}, err)) {
        return;
    }
    RightTriangle(A, B, err);
}

// R-13 with a hole D at (X, Y).
void BuildR14(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double X = p[3];
    const double Y = p[4];
    const double D = p[5];
    if (AnyTooSmall({A}, err) || Fails(B < 0, err) || AnyTooSmall({X, Y}, err) || Fails(D < 0, err)) {
        return;
    }
    HoleFromBottom(X, Y, D);
    RightTriangle(A, B, err);
}

// Six-sided strip: a rectangle B by A with its upper-left and lower-right corners cut away by two parallel-running
// slants.
void BuildR15(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double E = p[5];
    const double F = p[6];
    if (AnyTooSmall({A, B, C, D, E, F}, err)) {
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, 0, C, err);
    LineTo(pen, B - F, A, err);
    LineTo(pen, B, A, err);
    LineTo(pen, B, A - E, err);
    LineTo(pen, D, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// Isosceles triangle, base B, height A.
void BuildR16(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    if (AnyTooSmall({A, B}, err)) {
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, B / 2, A, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// L shape: the rectangle less its upper-right corner, D wide and C deep.
void BuildR17(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    if (AnyTooSmall({A, B, C, D}, err)) {
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, 0, A, err);
    LineTo(pen, B - D, A, err);
    LineTo(pen, B - D, A - C, err);
    LineTo(pen, B, A - C, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// Bracket: upright D wide, slant from (D, A - C) down to (B, 0).
void BuildR18(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    if (AnyTooSmall({A, B, C, D}, err)) {
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, 0, A, err);
    LineTo(pen, D, A, err);
    LineTo(pen, D, A - C, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// L bracket with rounded ends: upright arm D wide ending in a half circle, lying arm C high ending in a half circle,
// inner fillet R and outer corner R.
void BuildR19(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double R = p[5];
    if (AnyTooSmall({A, B, C, D, R}, err)) {
        return;
    }
    ShapePen pen{0, R};
    LineTo(pen, 0, A, err);
    ArcTo(pen, D / 2, A, -D / 2, D, A);
    LineTo(pen, D, C + R, err);
    ArcTo(pen, D + R, C + R, R, D + R, C);
    LineTo(pen, B, C, err);
    ArcTo(pen, B, C / 2, -C / 2, B, 0);
    LineTo(pen, R, 0, err);
    ArcTo(pen, R, R, -R, 0, R);
    CloseOuter(pen, HintPlain);
}

// Rectangle with four holes Di, inset D from the sides and C from top and bottom.
void BuildR20(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double Di = p[5];
    if (AnyTooSmall({A, B, C, D, Di}, err)) {
        return;
    }
    HoleFromBottom(D, C, Di);
    HoleFromBottom(D, A - C, Di);
    HoleFromBottom(B - D, A - C, Di);
    HoleFromBottom(B - D, C, Di);
    PlainPlate(A, B, err);
}
