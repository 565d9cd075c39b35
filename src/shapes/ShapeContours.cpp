#include "shapes/ShapeContours.h"

#include "profile/Korvanta_ProfileCut.h"
#include "state/AppState.h"

namespace
{
ShapeBox BoxAbout(double cx, double cy, double width, double height)
{
    return {cx - width / 2, cy - height / 2, cx + width / 2, cy + height / 2};
}

/// False, with ErrBadShape in `err` and nothing added, when the corners don't fit into the box.
bool RoundBoxThatFits(ShapePen& pen, double cx, double cy, double width, double height, double r,
                      std::int16_t& err)
{
    if (Fails(!(2 * r < width && 2 * r < height), err)) {
        return false;
    }
    pen.StatesEnds = true;
    RoundBox(pen, BoxAbout(cx, cy, width, height), r, err);
    return true;
}
} // namespace

void PlainPlate(double A, double B, std::int16_t& err)
{
    ShapePen pen{0, 0};
    LineTo(pen, 0, A, err);
    LineTo(pen, B, A, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

void RoundedPlate(double A, double B, double R, double leadHint, std::int16_t& err)
{
    ShapePen pen{0, R};
    LineTo(pen, 0, A - R, err);
    ArcTo(pen, R, A - R, -R, R, A);
    LineTo(pen, B - R, A, err);
    ArcTo(pen, B - R, A - R, -R, B, A - R);
    LineTo(pen, B, R, err);
    ArcTo(pen, B - R, R, -R, B - R, 0);
    LineTo(pen, R, 0, err);
    ArcTo(pen, R, R, -R, 0, R);
    CloseOuter(pen, leadHint);
}

void ChamferedPlate(double A, double B, double X, double Y, std::int16_t& err)
{
    ShapePen pen{0, Y};
    LineTo(pen, 0, A - Y, err);
    LineTo(pen, X, A, err);
    LineTo(pen, B - X, A, err);
    LineTo(pen, B, A - Y, err);
    LineTo(pen, B, Y, err);
    LineTo(pen, B - X, 0, err);
    LineTo(pen, X, 0, err);
    LineTo(pen, 0, Y, err);
    CloseOuter(pen, HintPlain);
}

void CrossPlate(double A, double B, double X, double Y, std::int16_t& err)
{
    ShapePen pen{0, Y};
    LineTo(pen, 0, A - Y, err);
    LineTo(pen, X, A - Y, err);
    LineTo(pen, X, A, err);
    LineTo(pen, B - X, A, err);
    LineTo(pen, B - X, A - Y, err);
    LineTo(pen, B, A - Y, err);
    LineTo(pen, B, Y, err);
    LineTo(pen, B - X, Y, err);
    LineTo(pen, B - X, 0, err);
    LineTo(pen, X, 0, err);
    LineTo(pen, X, Y, err);
    LineTo(pen, 0, Y, err);
    CloseOuter(pen, HintPlain);
}

void RightTriangle(double A, double B, std::int16_t& err)
{
    ShapePen pen{0, 0};
    LineTo(pen, 0, A, err);
    LineTo(pen, B, 0, err);
    LineTo(pen, 0, 0, err);
    CloseOuter(pen, HintPlain);
}

void DPlate(double A, double B, std::int16_t& err)
{
    ShapePen pen{B / 2, B};
    LineTo(pen, B / 2 + A, B, err);
    LineTo(pen, B / 2 + A, 0, err);
    LineTo(pen, B / 2, 0, err);
    ArcTo(pen, B / 2, B / 2, -B / 2, B / 2, B);
    CloseOuter(pen, HintRound);
}

void Belt(std::initializer_list<GeoCircle> circles, std::int16_t& err)
{
    const auto behind = [&](const GeoCircle* circle) {
        return circle + 1 == circles.end() ? circles.begin() : circle + 1;
    };
    const GeoCircle* circle = circles.begin();
    const TouchingPoints begin = TangentOf(*circle, *behind(circle), err);
    ShapePen pen{begin.From[1], begin.From[2]};
    LineTo(pen, begin.To, err);
    for (circle = behind(circle); circle != circles.begin(); circle = behind(circle)) {
        const TouchingPoints tangent = TangentOf(*circle, *behind(circle), err);
        ArcOn(pen, *circle, tangent.From);
        LineTo(pen, tangent.To, err);
    }
    ArcOn(pen, *circles.begin(), begin.From);
    CloseOuter(pen, HintRound);
}

void RoundedHexagon(const HexagonCorner (&corners)[6], double r, std::int16_t& err)
{
    ShapePen pen{corners[0].X, corners[0].Y};
    for (int i = 0; i < 6; ++i) {
        const HexagonCorner& before = corners[(i + 5) % 6];
        const HexagonCorner& here = corners[i];
        const HexagonCorner& after = corners[(i + 1) % 6];
        const GeoLine out = LineThrough(here.X, here.Y, after.X, after.Y, err);
        if (r == 0.0) {
            DrawOn(pen, KindLine, out, here.X, here.Y);
            continue;
        }
        const GeoLine in = LineThrough(before.X, before.Y, here.X, here.Y, err);
        GeoCircle fillet{};
        s_rr(fillet, in, out, r, err);
        const GeoPoint touchIn = FirstMeeting(in, fillet, err);
        const GeoPoint touchOut = FirstMeeting(out, fillet, err);
        if (i == 0) {
            pen.X = touchIn[1];
            pen.Y = touchIn[2];
        }
        DrawOn(pen, KindArc, fillet, touchIn[1], touchIn[2]);
        DrawOn(pen, KindLine, out, touchOut[1], touchOut[2]);
    }
    CloseOuter(pen, HintRound);
}

void StraightBox(ShapePen& pen, const ShapeBox& box, std::int16_t& err)
{
    pen.X = box.Left;
    pen.Y = box.Bottom;
    LineTo(pen, box.Right, box.Bottom, err);
    LineTo(pen, box.Right, box.Top, err);
    LineTo(pen, box.Left, box.Top, err);
    LineTo(pen, box.Left, box.Bottom, err);
}

void RoundBox(ShapePen& pen, const ShapeBox& box, double r, std::int16_t& err)
{
    pen.X = box.Left + r;
    pen.Y = box.Bottom;
    LineTo(pen, box.Right - r, box.Bottom, err);
    ArcTo(pen, box.Right - r, box.Bottom + r, r, box.Right, box.Bottom + r);
    LineTo(pen, box.Right, box.Top - r, err);
    ArcTo(pen, box.Right - r, box.Top - r, r, box.Right - r, box.Top);
    LineTo(pen, box.Left + r, box.Top, err);
    ArcTo(pen, box.Left + r, box.Top - r, r, box.Left, box.Top - r);
    LineTo(pen, box.Left, box.Bottom + r, err);
    ArcTo(pen, box.Left + r, box.Bottom + r, r, box.Left + r, box.Bottom);
}

bool BoxContour(ShapePen& pen, double cx, double cy, double width, double height, double r, std::int16_t& err)
{
    if (r > 0.0) {
        return RoundBoxThatFits(pen, cx, cy, width, height, r, err);
    }
    StraightBox(pen, BoxAbout(cx, cy, width, height), err);
    return true;
}

void RoundedRectangle(const double& cx, const double& cy, const double& width, const double& height,
                      const double& r, std::int16_t& err)
{
    ShapePen pen;
    RoundBoxThatFits(pen, cx, cy, width, height, r, err);
}

ShapePen BeginTwinHalf(const TwinEntry& entry, TwinHalf half, std::int16_t& err)
{
    const double away = half == TwinHalf::Left ? 1.0 : -1.0;
    const double x = entry.Middle + away * entry.LR;
    const double y = 0.0 - entry.LR;
    ShapePen pen{x, y, static_cast<std::int16_t>(away), true};
    if (entry.L >= Tolerance) {
        pen.Y = y - entry.L;
        LineTo(pen, x, y, err);
    }
    if (entry.LR != 0.0) {
        ArcTo(pen, entry.Middle, y, away * entry.LR, entry.Middle, 0);
    }
    return pen;
}

void EndTwinHalf(ShapePen& pen, double tail, std::int16_t& err)
{
    if (tail > 0.0) {
        LineTo(pen, pen.X, pen.Y + tail, err);
    }
    CloseOuter(pen, HintPlain);
}
