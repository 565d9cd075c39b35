// Circular shapes C-01 to C-26: discs, rings, lugs, links, sectors, flats, twin halves.
// A builder names its parameters by the letters of the drawing; what a letter measures shows in the moves.
#include "shapes/Builders.h"
#include "shapes/ShapeContours.h"
#include "shapes/ShapeMoves.h"
#include "state/AppState.h"

#include <cmath>

namespace
{
void TwinCircle(double A, const TwinEntry& entry, double tail, double swap, std::int16_t& err)
{
    AppState.ShapeFlagTwin = FlagOn;
    const auto drawHalf = [&](TwinHalf half) {
        ShapePen pen = BeginTwinHalf(entry, half, err);
        ArcTo(pen, A / 2, A / 2, half == TwinHalf::Left ? -A / 2 : A / 2, A / 2, A);
        EndTwinHalf(pen, tail, err);
    };
    drawHalf(swap != 0.0 ? TwinHalf::Right : TwinHalf::Left);
    drawHalf(swap != 0.0 ? TwinHalf::Left : TwinHalf::Right);
}
} // namespace

// Disc of diameter A, cut clockwise from the bottom point.
void BuildC01(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    if (AnyTooSmall({A}, err)) {
        return;
    }
    CloseOuter(FullCircle(A / 2, 0, A / 2, A / 2, -A / 2), HintRound);
}

// Ring: outer diameter A, hole B.
void BuildC02(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    if (AnyTooSmall({A, B}, err) || Fails(A <= B, err)) {
        return;
    }
    HoleFromBottom(0, 0, B);
    CloseOuter(FullCircle(0, -A / 2, 0, 0, -A / 2), HintRound);
}

// Flange: disc of diameter A, optional centre hole B, and Nr holes D on a pitch circle Df. The first of them stands
// straight below the centre.
void BuildC03(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double Df = p[3];
    const double D = p[4];
    const double Nr = std::floor(p[5]);
    if (AnyTooSmall({A}, err) || Fails(B < 0, err) || AnyTooSmall({Df}, err) || Fails(D < 0, err) ||
        Fails(Nr < 1, err)) {
        return;
    }
    if (B > LeastMeasure) {
        HoleFromBottom(A / 2, A / 2, B);
    }
    for (double k = 0; D > 0 && k < Nr; ++k) {
        const double angle = k * 2 * Pi / Nr - Pi / 2;
        HoleFromBottom(A / 2 + Df / 2 * std::cos(angle), A / 2 + Df / 2 * std::sin(angle), D);
    }
    CloseOuter(FullCircle(0, A / 2, A / 2, A / 2, -A / 2), HintRound);
}

// Lug: base (0, 0) to (B, 0), right side straight up to the circle radius R about (B - R, A), tangent line from (0,
// 0) to that circle, hole D at the circle's centre.
void BuildC04(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R = p[3];
    const double D = p[4];
    if (AnyTooSmall({A, B, R}, err) || Fails(D < 0, err)) {
        return;
    }
    const GeoCircle eye = CircleAt(B - R, A, -R);
    const TouchingPoints T1 = TangentOf(CircleAt(0, 0, 0), eye, err);
    HoleFromBottom(B - R, A, D);
    ShapePen pen{0, 0};
    LineTo(pen, T1.To, err);
    ArcOn(pen, eye, PointAt(B, A));
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// Lug, symmetric: base B, circle R about (B/2, A), tangent lines from both base corners, hole D at the centre.
void BuildC05(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R = p[3];
    const double D = p[4];
    if (AnyTooSmall({A, B, R}, err) || Fails(D < 0, err)) {
        return;
    }
    const GeoCircle eye = CircleAt(B / 2, A, -R);
    const TouchingPoints T1 = TangentOf(CircleAt(0, 0, 0), eye, err);
    const TouchingPoints T2 = TangentOf(eye, CircleAt(B, 0, 0), err);
    HoleFromBottom(B / 2, A, D);
    ShapePen pen{0, 0};
    LineTo(pen, T1.To, err);
    ArcOn(pen, eye, T2.From);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// C-05 standing on a straight foot C high.
void BuildC06(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double R = p[4];
    const double D = p[5];
    if (AnyTooSmall({A, B, C, R}, err) || Fails(D < 0, err)) {
        return;
    }
    const GeoCircle eye = CircleAt(B / 2, A, -R);
    const TouchingPoints T1 = TangentOf(CircleAt(0, C, 0), eye, err);
    const TouchingPoints T2 = TangentOf(eye, CircleAt(B, C, 0), err);
    HoleFromBottom(B / 2, A, D);
    ShapePen pen{0, 0};
    LineTo(pen, 0, C, err);
    LineTo(pen, T1.To, err);
    ArcOn(pen, eye, T2.From);
    LineTo(pen, B, C, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// Lug on a plate: base B by C, neck base D wide, circle R about (B/2, A), tangent lines from the neck base, hole Di.
void BuildC07(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    const double R = p[5];
    const double Di = p[6];
    if (AnyTooSmall({A, B, C, D, R}, err) || Fails(Di < 0, err)) {
        return;
    }
    const GeoCircle eye = CircleAt(B / 2, A, -R);
    const TouchingPoints T1 = TangentOf(CircleAt(B / 2 - D / 2, C, 0), eye, err);
    const TouchingPoints T2 = TangentOf(eye, CircleAt(B / 2 + D / 2, C, 0), err);
    HoleFromBottom(B / 2, A, Di);
    ShapePen pen{0, 0};
    LineTo(pen, 0, C, err);
    LineTo(pen, B / 2 - D / 2, C, err);
    LineTo(pen, T1.To, err);
    ArcOn(pen, eye, T2.From);
    LineTo(pen, B / 2 + D / 2, C, err);
    LineTo(pen, B, C, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintFramed);
}

// D shape: half circle of diameter B on the left, rectangle A long on the right, hole D at the circle's centre.
void BuildC08(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double D = p[3];
    if (AnyTooSmall({A, B}, err) || Fails(D < 0, err)) {
        return;
    }
    HoleFromBottom(B / 2, B / 2, D);
    DPlate(A, B, err);
}

// C-08 with a slot D wide instead of the hole, with two round ends; the slot's end centres are (B/2, B/2) and (B/2 +
// C - D, B/2).
void BuildC09(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    if (AnyTooSmall({A, B, C, D}, err)) {
        return;
    }
    ShapePen pen{B / 2 + C - D, D / 2 + B / 2};
    LineTo(pen, B / 2, D / 2 + B / 2, err);
    ArcTo(pen, B / 2, B / 2, D / 2, B / 2, B / 2 - D / 2);
    LineTo(pen, B / 2 + C - D, B / 2 - D / 2, err);
    ArcTo(pen, B / 2 + C - D, B / 2, D / 2, B / 2 + C - D, D / 2 + B / 2);
    CloseInner(pen, HintRound);
    DPlate(A, B, err);
}

// C-09 with the slot's far end square: it reaches x = B/2 + C - D/2 and its closing LeadHint is 0.
void BuildC10(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double D = p[4];
    if (AnyTooSmall({A, B, C, D}, err)) {
        return;
    }
    ShapePen pen{B / 2 + C - D / 2, D / 2 + B / 2};
    LineTo(pen, B / 2, D / 2 + B / 2, err);
    ArcTo(pen, B / 2, B / 2, D / 2, B / 2, B / 2 - D / 2);
    LineTo(pen, B / 2 + C - D / 2, B / 2 - D / 2, err);
    LineTo(pen, B / 2 + C - D / 2, D / 2 + B / 2, err);
    CloseInner(pen, HintPlain);
    DPlate(A, B, err);
}

// Link: two circles R1 and R2, B apart on a line, joined by two tangent lines; optional holes D1 at the first and D2
// at the second centre.
void BuildC11(const ShapeParameters& p, std::int16_t& err)
{
    const double B = p[1];
    const double R1 = p[2];
    const double R2 = p[3];
    const double D1 = p[4];
    const double D2 = p[5];
    if (AnyTooSmall({B, R1, R2}, err) || Fails(D1 < 0, err) || Fails(D2 < 0, err)) {
        return;
    }
    HoleFromBottom(R1, R1, D1);
    HoleFromBottom(B + R1, R1, D2);
    Belt({CircleAt(B + R1, R1, -R2), CircleAt(R1, R1, -R1)}, err);
}

// Three-circle link: R2, R1, R2 at the spacing B/2, joined by four tangent lines; holes D1 in the middle and D2 in
// the two ends.
void BuildC12(const ShapeParameters& p, std::int16_t& err)
{
    const double B = p[1];
    const double R1 = p[2];
    const double R2 = p[3];
    const double D1 = p[4];
    const double D2 = p[5];
    if (AnyTooSmall({B, R1, R2}, err) || Fails(D1 < 0, err) || Fails(D2 < 0, err)) {
        return;
    }
    const GeoCircle left = CircleAt(R2, R1, -R2);
    const GeoCircle middle = CircleAt(B / 2 + R2, R1, -R1);
    const GeoCircle right = CircleAt(B + R2, R1, -R2);
    const TouchingPoints T1 = TangentOf(right, middle, err);
    const TouchingPoints T2 = TangentOf(middle, left, err);
    const TouchingPoints T3 = TangentOf(left, middle, err);
    const TouchingPoints T4 = TangentOf(middle, right, err);
    HoleFromBottom(B / 2 + R2, R1, D1);
    HoleFromBottom(R2, R1, D2);
    HoleFromBottom(B + R2, R1, D2);
    ShapePen pen{T1.To[1], T1.To[2]};
    ArcOn(pen, middle, T2.From);
    LineTo(pen, T2.To, err);
    ArcOn(pen, left, T3.From);
    LineTo(pen, T3.To, err);
    ArcOn(pen, middle, T4.From);
    LineTo(pen, T4.To, err);
    ArcOn(pen, right, T1.From);
    LineTo(pen, T1.To, err);
    CloseOuter(pen, HintRound);
}

// C-12 with concave arcs of radius R3 in place of the straight sides.
void BuildC13(const ShapeParameters& p, std::int16_t& err)
{
    const double B = p[1];
    const double R1 = p[2];
    const double R2 = p[3];
    const double R3 = p[4];
    const double D1 = p[5];
    const double D2 = p[6];
    if (AnyTooSmall({B, R1, R2, R3}, err) || Fails(D1 < 0, err) || Fails(D2 < 0, err)) {
        return;
    }
    const GeoCircle left = CircleAt(R2, R1, -R2);
    const GeoCircle middle = CircleAt(B / 2 + R2, R1, -R1);
    const GeoCircle right = CircleAt(B + R2, R1, -R2);
    const GeoCircle F1 = FilletOf(left, middle, R3, err);
    const GeoCircle F2 = FilletOf(middle, left, R3, err);
    const GeoCircle F3 = FilletOf(right, middle, R3, err);
    const GeoCircle F4 = FilletOf(middle, right, R3, err);
    const GeoPoint P1 = ContactOf(middle, F4, err);
    const GeoPoint P2 = ContactOf(F1, middle, err);
    const GeoPoint P3 = ContactOf(left, F1, err);
    const GeoPoint P4 = ContactOf(F2, left, err);
    const GeoPoint P5 = ContactOf(middle, F2, err);
    const GeoPoint P6 = ContactOf(F3, middle, err);
    const GeoPoint P7 = ContactOf(right, F3, err);
    const GeoPoint P8 = ContactOf(F4, right, err);
    HoleFromBottom(B / 2 + R2, R1, D1);
    HoleFromBottom(R2, R1, D2);
    HoleFromBottom(B + R2, R1, D2);
    ShapePen pen{P1[1], P1[2]};
    ArcOn(pen, middle, P2);
    ArcOn(pen, F1, P3);
    ArcOn(pen, left, P4);
    ArcOn(pen, F2, P5);
    ArcOn(pen, middle, P6);
    ArcOn(pen, F3, P7);
    ArcOn(pen, right, P8);
    ArcOn(pen, F4, P1);
    CloseOuter(pen, HintRound);
}

// Ring sector of A degrees (the only angle parameter of the catalogue), radii Ri and Re, centred on the origin.
void BuildC14(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double Ri = p[2];
    const double Re = p[3];
    if (AnyTooSmall({A, Ri, Re}, err)) {
        return;
    }
    constexpr double RadiansPerDegree = 0.01745329252; // the digits of this shape
    const double x = std::cos(RadiansPerDegree * A);
    const double y = std::sin(RadiansPerDegree * A);
    ShapePen pen{Re, 0};
    LineTo(pen, Ri, 0, err);
    ArcTo(pen, 0, 0, Ri, x * Ri, y * Ri);
    LineTo(pen, x * Re, y * Re, err);
    ArcTo(pen, 0, 0, -Re, Re, 0);
    CloseOuter(pen, HintPlain);
}

// Arch strap: half ring, radii Ri and Re, on two straight legs A long.
void BuildC15(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double Ri = p[2];
    const double Re = p[3];
    if (AnyTooSmall({A, Ri, Re}, err)) {
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, 0, A, err);
    ArcTo(pen, Re, A, -Re, 2 * Re, A);
    LineTo(pen, 2 * Re, 0, err);
    LineTo(pen, Ri + Re, 0, err);
    LineTo(pen, Ri + Re, A, err);
    ArcTo(pen, Re, A, Ri, Re - Ri, A);
    LineTo(pen, Re - Ri, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// Bridge: half ring hanging under a flanged base, leg length A, flange B thick and C wide, radii Ri and Re.
void BuildC16(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double C = p[3];
    const double Ri = p[4];
    const double Re = p[5];
    if (AnyTooSmall({A, B, C, Ri, Re}, err)) {
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, Re - Ri + C, 0, err);
    LineTo(pen, Re - Ri + C, -A, err);
    ArcTo(pen, Re + C, -A, Ri, Ri + Re + C, -A);
    LineTo(pen, Ri + Re + C, 0, err);
    LineTo(pen, 2 * C + 2 * Re, 0, err);
    LineTo(pen, 2 * C + 2 * Re, -B, err);
    LineTo(pen, C + 2 * Re, -B, err);
    LineTo(pen, C + 2 * Re, -A, err);
    ArcTo(pen, C + Re, -A, -Re, C, -A);
    LineTo(pen, C, -B, err);
    LineTo(pen, 0, -B, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// Egg: circles R1 about (0, 0) and R2 about (0, -B), joined by tangent lines.
void BuildC17(const ShapeParameters& p, std::int16_t& err)
{
    const double B = p[1];
    const double R1 = p[2];
    const double R2 = p[3];
    if (AnyTooSmall({B, R1, R2}, err)) {
        return;
    }
    Belt({CircleAt(0, -B, -R2), CircleAt(0, 0, -R1)}, err);
}

// Dumbbell: discs R1 about (0, 0) and R2 about (B, 0), joined by a bar A wide; holes D1 and D2.
void BuildC18(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R1 = p[3];
    const double R2 = p[4];
    const double D1 = p[5];
    const double D2 = p[6];
    if (AnyTooSmall({A, B, R1, R2}, err) || Fails(D1 < 0, err) || Fails(D2 < 0, err)) {
        return;
    }
    const GeoCircle left = CircleAt(0, 0, -R1);
    const GeoCircle right = CircleAt(B, 0, -R2);
    const GeoLine above = LineThrough(0, A / 2, B, A / 2, err);
    const GeoLine below = LineThrough(B, -A / 2, 0, -A / 2, err);
    const GeoPoint P1 = LastMeeting(above, left, err);
    const GeoPoint P2 = FirstMeeting(above, right, err);
    const GeoPoint P3 = LastMeeting(below, right, err);
    const GeoPoint P4 = FirstMeeting(below, left, err);
    HoleFromBottom(0, 0, D1);
    HoleFromBottom(B, 0, D2);
    ShapePen pen{P1[1], P1[2]};
    LineTo(pen, P2, err);
    ArcOn(pen, right, P3);
    LineTo(pen, P4, err);
    ArcOn(pen, left, P1);
    CloseOuter(pen, HintFramed);
}

// Disc of diameter De on a bar B long and A wide, through the centre; hole Di.
void BuildC19(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double Di = p[3];
    const double De = p[4];
    if (AnyTooSmall({A, B}, err) || Fails(Di < 0, err) || AnyTooSmall({De}, err)) {
        return;
    }
    const GeoCircle disc = CircleAt(0, 0, -De / 2);
    const GeoLine above = LineThrough(-B / 2, A / 2, B / 2, A / 2, err);
    const GeoLine below = LineThrough(B / 2, -A / 2, -B / 2, -A / 2, err);
    const GeoPoint P1 = FirstMeeting(above, disc, err);
    const GeoPoint P2 = LastMeeting(above, disc, err);
    const GeoPoint P3 = FirstMeeting(below, disc, err);
    const GeoPoint P4 = LastMeeting(below, disc, err);
    HoleFromBottom(0, 0, Di);
    ShapePen pen{-B / 2, -A / 2};
    LineTo(pen, -B / 2, A / 2, err);
    LineTo(pen, P1, err);
    ArcOn(pen, disc, P2);
    LineTo(pen, B / 2, A / 2, err);
    LineTo(pen, B / 2, -A / 2, err);
    LineTo(pen, P3, err);
    ArcOn(pen, disc, P4);
    LineTo(pen, -B / 2, -A / 2, err);
    CloseOuter(pen, HintPlain);
}

// Circle of diameter D with one flat that leaves the height A.
void BuildC20(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double D = p[2];
    if (AnyTooSmall({A, D}, err) || Fails(D <= A, err)) {
        return;
    }
    const GeoCircle disc = CircleAt(0, 0, -D / 2);
    const GeoLine flat = LineThrough(-D / 2, D / 2 - A, D / 2, D / 2 - A, err);
    const GeoPoint P1 = FirstMeeting(flat, disc, err);
    const GeoPoint P2 = LastMeeting(flat, disc, err);
    ShapePen pen{P1[1], P1[2]};
    ArcOn(pen, disc, P2);
    LineTo(pen, P1, err);
    CloseOuter(pen, HintPlain);
}

// Circle of diameter D with two flats, at y = B and y = -A.
void BuildC21(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double D = p[3];
    if (AnyTooSmall({A, B, D}, err)) {
        return;
    }
    const GeoCircle disc = CircleAt(0, 0, -D / 2);
    const GeoLine above = LineThrough(-D / 2, B, D / 2, B, err);
    const GeoLine below = LineThrough(D / 2, -A, -D / 2, -A, err);
    const GeoPoint P1 = FirstMeeting(above, disc, err);
    const GeoPoint P2 = LastMeeting(above, disc, err);
    const GeoPoint P3 = FirstMeeting(below, disc, err);
    const GeoPoint P4 = LastMeeting(below, disc, err);
    ShapePen pen{P1[1], P1[2]};
    LineTo(pen, P2, err);
    ArcOn(pen, disc, P3);
    LineTo(pen, P4, err);
    ArcOn(pen, disc, P1);
    CloseOuter(pen, HintPlain);
}

// Ellipse, B along X and A along Y, as a chain of straight chords of about P length, clockwise from (-B/2, 0).
// Nothing is checked here; the last record has no length, and the records carry no line.
void BuildC22(const ShapeParameters& p, std::int16_t& /*err*/)
{
    const double A = p[1];
    const double B = p[2];
    constexpr double DefaultChord = 20.0;
    const double P = p[3] > 0 ? p[3] : DefaultChord;
    const double n = std::nearbyint(2 * Pi * (B / 2) / P); // half to even
    ShapePen pen{-B / 2, 0};
    for (double i = 0; i <= n; ++i) {
        const double angle = Pi - i * 2 * Pi / n;
        DrawOn(pen, KindLine, {}, std::cos(angle) * B / 2, std::sin(angle) * A / 2);
    }
    CloseOuter(pen, HintRound);
}

// Four circles about (0, A/2), (B/2, 0), (0, -A/2), (-B/2, 0), radii R1 to R4, joined by tangent lines.
void BuildC23(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    const double R1 = p[3];
    const double R2 = p[4];
    const double R3 = p[5];
    const double R4 = p[6];
    if (AnyTooSmall({A, B, R1, R2, R3, R4}, err)) {
        return;
    }
    Belt({CircleAt(0, A / 2, -R1), CircleAt(B / 2, 0, -R2), CircleAt(0, -A / 2, -R3),
          CircleAt(-B / 2, 0, -R4)},
         err);
}

// Two concentric rings, ring 2 (D2e, D2i) inside the hole of ring 1 (D1e, D1i). The outer contour of ring 2 is cut
// like an outer contour although it isn't the last one, and its closing record says so.
void BuildC24(const ShapeParameters& p, std::int16_t& err)
{
    const double D1e = p[1];
    const double D1i = p[2];
    const double D2e = p[3];
    const double D2i = p[4];
    if (AnyTooSmall({D2e, D2i}, err) || Fails(D2e <= D2i, err) || AnyTooSmall({D1e, D1i}, err) ||
        Fails(D1e <= D1i, err)) {
        return;
    }
    HoleFromBottom(0, 0, D2i);
    ShapePen ring2 = FullCircle(0, -D2e / 2, 0, 0, -D2e / 2);
    ring2.Sense = -1;
    CloseInner(ring2, HintRound);
    HoleFromBottom(0, 0, D1i);
    CloseOuter(FullCircle(0, -D1e / 2, 0, 0, -D1e / 2), HintRound);
}

// Twin halves of a circle of diameter A, from its bottom to its top point; entry, tail and order as R-41.
void BuildC25(const ShapeParameters& p, std::int16_t& err)
{
    if (Fails(p[1] <= Tolerance, err)) {
        return;
    }
    TwinCircle(p[1], {p[1] / 2, std::fabs(p[2]), std::fabs(p[3])}, p[4], p[5], err);
}

// C-25 with a centred hole B cut first.
void BuildC26(const ShapeParameters& p, std::int16_t& err)
{
    const double A = p[1];
    const double B = p[2];
    if (Fails(A <= Tolerance, err)) {
        return;
    }
    HoleFromBottom(A / 2, A / 2, B);
    TwinCircle(A, {A / 2, std::fabs(p[3]), std::fabs(p[4])}, p[5], p[6], err);
}
