// Rectangular shapes: slanted, slotted and rounded plates, patterns of holes, strokes, twin halves.
// A builder names its parameters by the letters of the drawing; what a letter measures shows in the moves.
#include "shapes/Builders.h"
#include "shapes/ShapeContours.h"
#include "shapes/ShapeMoves.h"
#include "state/AppState.h"

#include <cmath>

// Trapezium: base B, height A, top edge C long starting at x = D.
void BuildR21(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    if (AnyTooSmall({A, B, C, D}, err)) {
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, D, A, err);
    LineTo(pen, D + C, A, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// Quadrilateral with a re-entrant top: (0, 0), (E, A), (E + D, C), (B, 0).
void BuildR22(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double E = p[5];
    if (AnyTooSmall({A, B, C, D, E}, err)) {
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, E, A, err);
    LineTo(pen, E + D, C, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// Rectangle with a notch D by C at the lower-left corner and its upper-left corner cut by a slant from (0, E + C) to
// (B - F, A).
void BuildR23(const ShapeParameters& p, std::int16_t& err)
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
    ShapePen pen{D, 0};
    LineTo(pen, D, C, err);
    LineTo(pen, 0, C, err);
    LineTo(pen, 0, E + C, err);
    LineTo(pen, B - F, A, err);
    LineTo(pen, B, A, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, D, 0, err);
    CloseOuter(pen, HintPlain);
}

// Plate with a slot from the top: two lower corner circles R2, tangent sides up to two rounded shoulders R1, and a
// slot D wide with a half-round end centred at height C + R2.
void BuildR24(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double R1 = p[5];
    const double R2 = p[6];
    if (AnyTooSmall({A, B, C, D, R1, R2}, err)) {
        return;
    }
    const double slotLeft = B / 2 + R2 - D / 2;
    const double slotRight = B / 2 + R2 + D / 2;
    const GeoCircle lowerLeft = CircleAt(R2, R2, -R2);
    const GeoCircle upperLeft = CircleAt(slotLeft - R1, A + R2, -R1);
    const GeoCircle upperRight = CircleAt(slotRight + R1, A + R2, -R1);
    const GeoCircle lowerRight = CircleAt(B + R2, R2, -R2);
    const TouchingPoints T1 = TangentOf(lowerLeft, upperLeft, err);
    const TouchingPoints T2 = TangentOf(upperRight, lowerRight, err);
    ShapePen pen{B + R2, 0};
    LineTo(pen, R2, 0, err);
    ArcOn(pen, lowerLeft, T1.From);
    LineTo(pen, T1.To, err);
    ArcOn(pen, upperLeft, PointAt(slotLeft, A + R2));
    LineTo(pen, slotLeft, C + R2, err);
    ArcTo(pen, B / 2 + R2, C + R2, D / 2, slotRight, C + R2);
    LineTo(pen, slotRight, A + R2, err);
    ArcOn(pen, upperRight, T2.From);
    LineTo(pen, T2.To, err);
    ArcOn(pen, lowerRight, PointAt(B + R2, 0));
    CloseOuter(pen, HintPlain);
}

// Rectangle with four holes D1 in the corners and one hole D2 at (F, E). The cuts of two of them begin off their
// circles: at (F, E) unless A is 2 E, at the upper right unless C is D. So it was drawn, and so it stays.
void BuildR25(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double D1 = p[5];
    const double E = p[6];
    const double F = p[7];
    const double D2 = p[8];
    if (AnyTooSmall({A, B, C, D}, err) || Fails(D1 < 0, err) || AnyTooSmall({E, F}, err) ||
        Fails(D2 < 0, err)) {
        return;
    }
    RoundHole(F, A - E + D2 / 2, F, E, D2);
    HoleFromBottom(D, A - C, D1);
    RoundHole(B - C, A - C - D1 / 2, B - D, A - C, D1);
    HoleFromBottom(B - D, C, D1);
    HoleFromBottom(D, C, D1);
    PlainPlate(A, B, err);
}

// Rectangle whose corners are each replaced by a three-quarter circle about the point R in from both edges: the arc
// leaves one edge, turns inward round the far side of that point, and comes to the other edge.
void BuildR26(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R = p[3];
    if (AnyTooSmall({A, B, R}, err)) {
        return;
    }
    ShapePen pen{0, R};
    LineTo(pen, 0, A - R, err);
    ArcTo(pen, R, A - R, R, R, A);
    LineTo(pen, B - R, A, err);
    ArcTo(pen, B - R, A - R, R, B, A - R);
    LineTo(pen, B, R, err);
    ArcTo(pen, B - R, R, R, B - R, 0);
    LineTo(pen, R, 0, err);
    ArcTo(pen, R, R, R, 0, R);
    CloseOuter(pen, HintPlain);
}

// Rectangle with a concave quarter-round bite R out of each corner.
void BuildR27(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R = p[3];
    if (AnyTooSmall({A, B, R}, err)) {
        return;
    }
    ShapePen pen{0, R};
    LineTo(pen, 0, A - R, err);
    ArcTo(pen, 0, A, R, R, A);
    LineTo(pen, B - R, A, err);
    ArcTo(pen, B, A, R, B, A - R);
    LineTo(pen, B, R, err);
    ArcTo(pen, B, 0, R, B - R, 0);
    LineTo(pen, R, 0, err);
    ArcTo(pen, 0, 0, R, 0, R);
    CloseOuter(pen, HintPlain);
}

// Arch: rectangle with rounded upper corners R and an opening from the bottom, left leg D wide, right leg E wide,
// opening up to height A - C.
void BuildR28(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double E = p[5];
    const double R = p[6];
    if (AnyTooSmall({A, B, C, D, E, R}, err) || Fails(E + D >= B, err) || Fails(A <= C, err)) {
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, 0, A - R, err);
    ArcTo(pen, R, A - R, -R, R, A);
    LineTo(pen, B - R, A, err);
    ArcTo(pen, B - R, A - R, -R, B, A - R);
    LineTo(pen, B, 0, err);
    LineTo(pen, B - E, 0, err);
    LineTo(pen, B - E, A - C, err);
    LineTo(pen, D, A - C, err);
    LineTo(pen, D, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// Rectangle with each corner chamfered by its own pair: lower left D, C; upper left I, L; upper right H, G; lower
// right E, F.
void BuildR29(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double E = p[5];
    const double F = p[6];
    const double G = p[7];
    const double H = p[8];
    const double I = p[9];
    const double L = p[10];
    if (AnyTooSmall({A, B, C, D, E, F, G, H, I, L}, err)) {
        return;
    }
    ShapePen pen{D, 0};
    LineTo(pen, 0, C, err);
    LineTo(pen, 0, A - L, err);
    LineTo(pen, I, A, err);
    LineTo(pen, B - H, A, err);
    LineTo(pen, B, A - G, err);
    LineTo(pen, B, F, err);
    LineTo(pen, B - E, 0, err);
    LineTo(pen, D, 0, err);
    CloseOuter(pen, HintPlain);
}

// Rounded rectangle with four holes Di, inset D and C.
void BuildR30(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R = p[3];
    const double C = p[4];
    const double D = p[5];
    const double Di = p[6];
    if (AnyTooSmall({A, B, R, C, D}, err) || Fails(Di < 0, err)) {
        return;
    }
    HoleFromBottom(D, A - C, Di);
    HoleFromBottom(D, C, Di);
    HoleFromBottom(B - D, A - C, Di);
    HoleFromBottom(B - D, C, Di);
    RoundedPlate(A, B, R, HintPlain, err);
}

// Plate with rounded lower corners Re and a round bite of radius Ri centred at (D, C) in the top edge, entered by
// straight lines from (F, A) and (B - E, A) that touch the bite's circle.
void BuildR31(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double E = p[5];
    const double F = p[6];
    const double Ri = p[7];
    const double Re = p[8];
    if (AnyTooSmall({A, B, C, D, E, F, Ri, Re}, err)) {
        return;
    }
    const GeoCircle bite = CircleAt(D, C, Ri);
    const TouchingPoints T1 = TangentOf(CircleAt(F, A, 0), bite, err);
    const TouchingPoints T2 = TangentOf(bite, CircleAt(B - E, A, 0), err);
    ShapePen pen{0, Re};
    LineTo(pen, 0, A, err);
    LineTo(pen, F, A, err);
    LineTo(pen, T1.To, err);
    ArcOn(pen, bite, T2.From);
    LineTo(pen, B - E, A, err);
    LineTo(pen, B, A, err);
    LineTo(pen, B, Re, err);
    ArcTo(pen, B - Re, Re, -Re, B - Re, 0);
    LineTo(pen, Re, 0, err);
    ArcTo(pen, Re, Re, -Re, 0, Re);
    CloseOuter(pen, HintPlain);
}

// L plate: upright I wide, lying arm I high, with three radii and chamfers at the foot and the head: R3 at the head,
// R2 in the inner corner, R1 at the arm's end; chamfers (D, C), (H, G) and (F, E).
void BuildR32(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double E = p[5];
    const double F = p[6];
    const double G = p[7];
    const double H = p[8];
    const double I = p[9];
    const double R1 = p[10];
    const double R2 = p[11];
    const double R3 = p[12];
    if (AnyTooSmall({A, B, C, D, E, F, G, H, I, R1, R2, R3}, err)) {
        return;
    }
    ShapePen pen{0, C};
    LineTo(pen, 0, A - G, err);
    LineTo(pen, H, A, err);
    LineTo(pen, I - R3, A, err);
    ArcTo(pen, I - R3, A - R3, -R3, I, A - R3);
    LineTo(pen, I, R2 + I, err);
    ArcTo(pen, R2 + I, R2 + I, R2, R2 + I, I);
    LineTo(pen, B - R1, I, err);
    ArcTo(pen, B - R1, I - R1, -R1, B, I - R1);
    LineTo(pen, B, E, err);
    LineTo(pen, B - F, 0, err);
    LineTo(pen, D, 0, err);
    LineTo(pen, 0, C, err);
    CloseOuter(pen, HintPlain);
}

// Plate with upper corners R1 and R2, lower-left chamfer (D, C), square lower-right corner.
void BuildR33(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double R1 = p[5];
    const double R2 = p[6];
    if (AnyTooSmall({A, B, C, D, R1, R2}, err)) {
        return;
    }
    ShapePen pen{0, C};
    LineTo(pen, 0, A - R1, err);
    ArcTo(pen, R1, A - R1, -R1, R1, A);
    LineTo(pen, B - R2, A, err);
    ArcTo(pen, B - R2, A - R2, -R2, B, A - R2);
    LineTo(pen, B, 0, err);
    LineTo(pen, D, 0, err);
    LineTo(pen, 0, C, err);
    CloseOuter(pen, HintPlain);
}

// Double-T (I) plate: B wide, A high, flanges C (bottom) and D (top) high, web E wide; outer corners Re, inner
// corners Ri.
void BuildR34(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double E = p[5];
    const double Re = p[6];
    const double Ri = p[7];
    if (AnyTooSmall({A, B, C, D, E, Re, Ri}, err) || Fails(Ri + Re >= B / 2 - E / 2, err)) {
        return;
    }
    ShapePen pen{0, Re};
    LineTo(pen, 0, C - Re, err);
    ArcTo(pen, Re, C - Re, -Re, Re, C);
    LineTo(pen, B / 2 - E / 2 - Ri, C, err);
    ArcTo(pen, B / 2 - E / 2 - Ri, C + Ri, Ri, B / 2 - E / 2, C + Ri);
    LineTo(pen, B / 2 - E / 2, A - D - Ri, err);
    ArcTo(pen, B / 2 - E / 2 - Ri, A - D - Ri, Ri, B / 2 - E / 2 - Ri, A - D);
    LineTo(pen, Re, A - D, err);
    ArcTo(pen, Re, A - D + Re, -Re, 0, A - D + Re);
    LineTo(pen, 0, A - Re, err);
    ArcTo(pen, Re, A - Re, -Re, Re, A);
    LineTo(pen, B - Re, A, err);
    ArcTo(pen, B - Re, A - Re, -Re, B, A - Re);
    LineTo(pen, B, A - D + Re, err);
    ArcTo(pen, B - Re, A - D + Re, -Re, B - Re, A - D);
    LineTo(pen, E / 2 + B / 2 + Ri, A - D, err);
    ArcTo(pen, E / 2 + B / 2 + Ri, A - D - Ri, Ri, E / 2 + B / 2, A - D - Ri);
    LineTo(pen, E / 2 + B / 2, C + Ri, err);
    ArcTo(pen, E / 2 + B / 2 + Ri, C + Ri, Ri, E / 2 + B / 2 + Ri, C);
    LineTo(pen, B - Re, C, err);
    ArcTo(pen, B - Re, C - Re, -Re, B, C - Re);
    LineTo(pen, B, Re, err);
    ArcTo(pen, B - Re, Re, -Re, B - Re, 0);
    LineTo(pen, Re, 0, err);
    ArcTo(pen, Re, Re, -Re, 0, Re);
    CloseOuter(pen, HintFramed);
}

// Rectangle B by A with Nx by Ny holes Di along its four sides, and an optional central window F by E. With a single
// hole in a row the spacing divides by zero; development refuses what comes of it.
void BuildR35(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double E = p[5];
    const double F = p[6];
    const double Di = p[7];
    const double Nx = std::floor(p[8]);
    const double Ny = std::floor(p[9]);
    if (AnyTooSmall({A, B, C, D}, err) || Fails(E < 0, err) || Fails(F < 0, err) || AnyTooSmall({Di}, err) ||
        Fails(Nx < 1, err) || Fails(Ny < 1, err)) {
        return;
    }
    const double dx = (B - 2 * D) / (Nx - 1);
    const double dy = (A - 2 * C) / (Ny - 1);
    const auto holeAt = [&](double x, double y) { RoundHole(x + Di / 2, y, x, y, Di); };
    for (double i = 0; i <= Nx - 1; ++i) {
        holeAt(D + i * dx, C);
    }
    for (double j = 1; j <= Ny - 1; ++j) {
        holeAt(B - D, C + j * dy);
    }
    for (double i = Nx - 2; i >= 0; --i) {
        holeAt(D + i * dx, A - C);
    }
    for (double j = Ny - 2; j >= 1; --j) {
        holeAt(D, C + j * dy);
    }
    if (E > 0 && F > 0) {
        ShapePen window;
        StraightBox(window, {B / 2 - F / 2, A / 2 - E / 2, B / 2 + F / 2, A / 2 + E / 2}, err);
        CloseInner(window, HintRound);
    }
    PlainPlate(A, B, err);
}

// Regular hexagon of side A, corners rounded R, clockwise.
void BuildR36(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double R = p[2];
    if (Fails(A < R, err) || AnyTooSmall({A}, err) || Fails(R < 0, err)) {
        return;
    }
    const double half = std::sqrt(3.0) / 2 * A;
    RoundedHexagon({{0, 0}, {-A, 0}, {-3.0 / 2 * A, half}, {-A, 2 * half}, {0, 2 * half}, {A / 2, half}}, -R,
                   err);
}

// Three-lobe plate around the circles (0, 0) radius R1, (B, D - A) radius R2, (C, A) radius R3, joined by tangent
// lines.
void BuildR37(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double R1 = p[5];
    const double R2 = p[6];
    const double R3 = p[7];
    if (AnyTooSmall({A, B, D, R1, R2, R3}, err)) {
        return;
    }
    Belt({CircleAt(C, A, -R3), CircleAt(B, D - A, -R2), CircleAt(0, 0, -R1)}, err);
}

// Symmetric trapezium: base B, top C, height A.
void BuildR38(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    if (AnyTooSmall({A, B, C}, err)) {
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, B / 2 - C / 2, A, err);
    LineTo(pen, B / 2 + C / 2, A, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// One stroke of 15 lines, not a closed part and cut without compensation: two panels A by B one above the other, each
// with a diagonal and chamfered corners (X, Y), entered by a straight L up the left side. Without chamfers 11 lines.
void BuildR39(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double X = p[3];
    const double Y = p[4];
    const double L = p[5];
    if (AnyTooSmall({A, B}, err) || Fails(X < 0, err) || Fails(Y < 0, err) || AnyTooSmall({L}, err)) {
        return;
    }
    const bool chamfers = X > 0 && Y > 0;
    const double cutX = chamfers ? X : 0;
    const double cutY = chamfers ? Y : 0;
    ShapePen pen{0, 0, 0, true};
    const auto chamferTo = [&](double x, double y) {
        if (chamfers) {
            LineTo(pen, x, y, err);
        }
    };
    LineTo(pen, 0, L, err);
    LineTo(pen, 0, B + L - cutY, err);
    chamferTo(X, B + L);
    LineTo(pen, A, B + L, err);
    LineTo(pen, 0, L, err);
    LineTo(pen, A - cutX, L, err);
    chamferTo(A, Y + L);
    LineTo(pen, A, B + 2 * L, err);
    LineTo(pen, cutX, B + 2 * L, err);
    chamferTo(0, Y + B + 2 * L);
    LineTo(pen, 0, 2 * B + 2 * L, err);
    LineTo(pen, A, B + 2 * L, err);
    LineTo(pen, A, 2 * B - cutY + 2 * L, err);
    chamferTo(A - X, 2 * B + 2 * L);
    LineTo(pen, 0, 2 * B + 2 * L, err);
    CloseOuter(pen, HintPlain);
}

// One stroke of 8 lines: two rectangles side by side sharing their middle line, entered from below at the middle by a
// line L long, each rectangle grown by Offset.
void BuildR40(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double L = p[3];
    const double Offset = p[4];
    if (Fails(B <= LeastMeasure, err) || Fails(A <= LeastMeasure, err)) {
        return;
    }
    const double low = 0.0 - Offset; // no minus zero
    const double middle = B / 2 + Offset;
    const double right = 3 * Offset + B;
    ShapePen pen{middle, low, 1, true};
    if (std::fabs(L) >= Tolerance) {
        pen.Y = low - L;
        LineTo(pen, middle, low, err);
    }
    LineTo(pen, low, low, err);
    LineTo(pen, low, A + Offset, err);
    LineTo(pen, middle, A + Offset, err);
    LineTo(pen, middle, low, err);
    LineTo(pen, right, low, err);
    LineTo(pen, right, A + Offset, err);
    LineTo(pen, middle, A + Offset, err);
    CloseOuter(pen, HintPlain);
}

// Twin halves of a rounded rectangle B by A with corners |R|, both from the middle of the bottom edge to the middle
// of the top edge, each with its entry. Swap not 0 exchanges their order.
void BuildR41(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R = std::fabs(p[3]);
    const TwinEntry entry{B / 2, std::fabs(p[4]), std::fabs(p[5])};
    const double Tail = p[6];
    const double Swap = p[7];
    if (Fails(B <= LeastMeasure, err) || Fails(A <= LeastMeasure, err)) {
        return;
    }
    AppState.ShapeFlagTwin = FlagOn;
    const auto drawHalf = [&](TwinHalf half) {
        const double turn = half == TwinHalf::Left ? -1.0 : 1.0;
        const auto x = [&](double left) { return half == TwinHalf::Left ? left : B - left; };
        ShapePen pen = BeginTwinHalf(entry, half, err);
        LineTo(pen, x(R), 0, err);
        if (R != 0.0) {
            ArcTo(pen, x(R), R, turn * R, x(0), R);
        }
        LineTo(pen, x(0), A - R, err);
        if (R != 0.0) {
            ArcTo(pen, x(R), A - R, turn * R, x(R), A);
        }
        LineTo(pen, B / 2, A, err);
        EndTwinHalf(pen, Tail, err);
    };
    drawHalf(Swap != 0.0 ? TwinHalf::Right : TwinHalf::Left);
    drawHalf(Swap != 0.0 ? TwinHalf::Left : TwinHalf::Right);
}
