#include "shapes/ShapeContours.h"

#include "profile/Korvanta_ProfileCut.h"
#include "state/AppState.h"

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

ShapePen BoxContour(double cx, double cy, double width, double height, double r, std::int16_t sense,
                    std::int16_t& err)
{
    const double left = cx - width / 2;
    const double right = cx + width / 2;
    const double bottom = cy - height / 2;
    const double top = cy + height / 2;
    if (!(r > 0.0)) {
        ShapePen pen{left, bottom, sense};
        LineTo(pen, right, bottom, err);
        LineTo(pen, right, top, err);
        LineTo(pen, left, top, err);
        LineTo(pen, left, bottom, err);
        return pen;
    }
    ShapePen pen{left + r, bottom, sense, true};
    if (Fails(!(2 * r < width && 2 * r < height), err)) {
        return pen;
    }
    LineTo(pen, right - r, bottom, err);
    ArcTo(pen, right - r, bottom + r, r, right, bottom + r);
    LineTo(pen, right, top - r, err);
    ArcTo(pen, right - r, top - r, r, right - r, top);
    LineTo(pen, left + r, top, err);
    ArcTo(pen, left + r, top - r, r, left, top - r);
    LineTo(pen, left, bottom + r, err);
    ArcTo(pen, left + r, bottom + r, r, left + r, bottom);
    return pen;
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

ShapePen BeginTwinHalf(const TwinEntry& entry, TwinHalf half, std::int16_t& err)
{
    const double away = half == TwinHalf::Left ? 1.0 : -1.0;
    ShapePen pen{entry.Middle + away * entry.LR, -entry.L - entry.LR, static_cast<std::int16_t>(away), true};
    if (entry.L < Tolerance) {
        pen.Y = -entry.LR;
    } else {
        LineTo(pen, entry.Middle + away * entry.LR, -entry.LR, err);
    }
    if (entry.LR != 0.0) {
        ArcTo(pen, entry.Middle, -entry.LR, away * entry.LR, entry.Middle, 0);
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
