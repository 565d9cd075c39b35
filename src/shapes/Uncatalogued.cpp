// Shapes outside the catalogue: no list offers them, only a stored job names them by number.
#include "shapes/Builders.h"
#include "shapes/ShapeContours.h"
#include "shapes/ShapeMoves.h"
#include "state/Numbers.h"

#include <cmath>

// Right trapezium: p1 high, bottom edge p2, top edge p3.
void BuildRightTrapezium(const ShapeParameters& p, std::int16_t& err)
{
    if (AnyTooSmall({p[1], p[2], p[3]}, err)) {
        return;
    }
    ShapePen pen{0, 0};
    LineTo(pen, 0, p[1], err);
    LineTo(pen, p[3], p[1], err);
    LineTo(pen, p[2], 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

// Rectangle p2 wide and p1 high with an optional centred hole p3.
void BuildRectangleWithHole(const ShapeParameters& p, std::int16_t& err)
{
    if (AnyTooSmall({p[1], p[2]}, err) || Fails(p[3] < 0, err)) {
        return;
    }
    HoleFromBottom(p[2] / 2, p[1] / 2, p[3]);
    PlainPlate(p[1], p[2], err);
}

// Upright link: circles of radius p2 below and p3 above, p1 apart, joined by two tangent lines.
void BuildUprightLink(const ShapeParameters& p, std::int16_t& err)
{
    if (AnyTooSmall({p[1], p[2], p[3]}, err)) {
        return;
    }
    Belt({CircleAt(0, 0, -p[2]), CircleAt(0, p[1], -p[3])}, err);
}

// Disc of radius p1 about the origin on a stem p2 wide that ends at y = -p3, with fillets p4 between them.
void BuildDiscOnStem(const ShapeParameters& p, std::int16_t& err)
{
    if (AnyTooSmall({p[1], p[2], p[3], p[4]}, err)) {
        return;
    }
    const double half = p[2] / 2;
    const double foot = -p[3];
    const GeoCircle disc = CircleAt(0, 0, -p[1]);
    const GeoLine up = LineThrough(-half, foot, -half, 0, err);
    const GeoLine down = LineThrough(half, 0, half, foot, err);
    GeoCircle leftFillet{};
    GeoCircle rightFillet{};
    s_rc(leftFillet, up, disc, p[4], err);
    s_cr(rightFillet, disc, down, p[4], err);
    const GeoPoint P1 = FirstMeeting(up, leftFillet, err);
    const GeoPoint P2 = ContactOf(leftFillet, disc, err);
    const GeoPoint P3 = ContactOf(disc, rightFillet, err);
    const GeoPoint P4 = FirstMeeting(down, rightFillet, err);
    ShapePen pen{-half, foot};
    LineTo(pen, P1, err);
    ArcOn(pen, leftFillet, P2);
    ArcOn(pen, disc, P3);
    ArcOn(pen, rightFillet, P4);
    LineTo(pen, half, foot, err);
    LineTo(pen, -half, foot, err);
    CloseOuter(pen, HintPlain);
}

// T plate: p1 high over all, its bar p2 wide and p3 high, its stem p4 wide.
void BuildTPlate(const ShapeParameters& p, std::int16_t& err)
{
    if (AnyTooSmall({p[1], p[2], p[3], p[4]}, err)) {
        return;
    }
    const double left = p[2] / 2 - p[4] / 2;
    const double right = p[2] / 2 + p[4] / 2;
    const double shoulder = p[1] - p[3];
    ShapePen pen{left, 0};
    LineTo(pen, left, shoulder, err);
    LineTo(pen, 0, shoulder, err);
    LineTo(pen, 0, p[1], err);
    LineTo(pen, p[2], p[1], err);
    LineTo(pen, p[2], shoulder, err);
    LineTo(pen, right, shoulder, err);
    LineTo(pen, right, 0, err);
    LineTo(pen, left, 0, err);
    CloseOuter(pen, HintPlain);
}

// Strip p2 long over all and p1 high, both ends half round.
void BuildRoundEndedStrip(const ShapeParameters& p, std::int16_t& err)
{
    if (AnyTooSmall({p[1], p[2]}, err)) {
        return;
    }
    const double r = p[1] / 2;
    ShapePen pen{r, 0};
    ArcTo(pen, r, r, -r, r, p[1]);
    LineTo(pen, p[2] - r, p[1], err);
    ArcTo(pen, p[2] - r, r, -r, p[2] - r, 0);
    LineTo(pen, r, 0, err);
    CloseOuter(pen, HintRound);
}

// Disc of diameter p1 with an optional centred square window p2.
void BuildDiscWithWindow(const ShapeParameters& p, std::int16_t& err)
{
    if (AnyTooSmall({p[1]}, err) || Fails(p[2] < 0, err)) {
        return;
    }
    const double r = p[1] / 2;
    if (p[2] > 0) {
        ShapePen window;
        const double half = p[2] / 2;
        StraightBox(window, {r - half, r - half, r + half, r + half}, err);
        CloseInner(window, HintPlain);
    }
    CloseOuter(FullCircle(r, 0, r, r, -r), HintRound);
}

// Lens: what the circles of radius p1 about (0, 0) and p2 about (p3, 0) have in common.
void BuildLens(const ShapeParameters& p, std::int16_t& err)
{
    if (AnyTooSmall({p[1], p[2], p[3]}, err)) {
        return;
    }
    const GeoCircle left = CircleAt(0, 0, -p[1]);
    const GeoCircle right = CircleAt(p[3], 0, -p[2]);
    GeoPoint above{};
    GeoPoint below{};
    p_cc(above, left, right, 1, err);
    p_cc(below, left, right, -1, err);
    ShapePen pen{below[1], below[2]};
    ArcOn(pen, right, above);
    ArcOn(pen, left, below);
    CloseOuter(pen, HintPlain);
}

// Parallelogram: base p2, height p1, leaning p3 degrees to the right.
void BuildParallelogram(const ShapeParameters& p, std::int16_t& err)
{
    constexpr double SteepestLean = 89.9;
    if (AnyTooSmall({p[1], p[2]}, err) || Fails(std::fabs(p[3]) > SteepestLean, err)) {
        return;
    }
    const double angle = p[3] / 180 * Pi;
    const double dx = std::sin(angle);
    const double dy = std::cos(angle);
    const GeoLine top = LineThrough(0, p[1], p[2], p[1], err);
    GeoPoint upperLeft{};
    GeoPoint upperRight{};
    p_rr(upperLeft, LineThrough(0, 0, dx, dy, err), top, err);
    p_rr(upperRight, LineThrough(p[2], 0, p[2] + dx, dy, err), top, err);
    ShapePen pen{0, 0};
    LineTo(pen, upperLeft, err);
    LineTo(pen, upperRight, err);
    LineTo(pen, p[2], 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}
