#include "shapes/ShapeMoves.h"

#include "profile/Korvanta_ProfileCut.h"

namespace
{
/// Adds one drawn record from the pen to (x, y) and moves the pen.
void Draw(ShapePen& pen, std::int16_t kind, const GeoLine& geometry, double x, double y)
{
    AddElement(kind, pen.X, pen.Y, geometry[1], geometry[2], geometry[3], pen.StatesEnds ? x : NoValue,
               pen.StatesEnds ? y : NoValue, pen.Sense);
    pen.X = x;
    pen.Y = y;
}

void Close(const ShapePen& pen, std::int16_t kind, double leadHint)
{
    AddElement(kind, pen.X, pen.Y, 0.0, 0.0, leadHint, pen.StatesEnds ? pen.X : NoValue,
               pen.StatesEnds ? pen.Y : NoValue, pen.Sense);
}
} // namespace

bool AnyTooSmall(std::initializer_list<double> measures, std::int16_t& err)
{
    for (const double measure : measures) {
        if (Fails(!(measure >= LeastMeasure), err)) {
            return true;
        }
    }
    return false;
}

bool Fails(bool failed, std::int16_t& err)
{
    if (failed) {
        err = ErrBadShape;
    }
    return failed;
}

void LineTo(ShapePen& pen, double x, double y, std::int16_t& err)
{
    Draw(pen, KindLine, LineThrough(pen.X, pen.Y, x, y, err), x, y);
}

void LineTo(ShapePen& pen, const GeoPoint& to, std::int16_t& err)
{
    LineTo(pen, to[1], to[2], err);
}

void ArcTo(ShapePen& pen, double cx, double cy, double r, double x, double y)
{
    Draw(pen, KindArc, CircleAt(cx, cy, r), x, y);
}

void ArcOn(ShapePen& pen, const GeoCircle& circle, const GeoPoint& to)
{
    Draw(pen, KindArc, circle, to[1], to[2]);
}

void DrawOn(const ShapePen& pen, std::int16_t kind, const GeoLine& geometry, double x, double y)
{
    AddElement(kind, x, y, geometry[1], geometry[2], geometry[3], NoValue, NoValue, pen.Sense);
}

void CloseInner(const ShapePen& pen, double leadHint)
{
    Close(pen, KindEnd, leadHint);
}

void CloseOuter(const ShapePen& pen, double leadHint)
{
    Close(pen, KindOuterEnd, leadHint);
}

ShapePen FullCircle(double x, double y, double cx, double cy, double r)
{
    ShapePen pen{x, y};
    ArcTo(pen, cx, cy, r, x, y);
    return pen;
}

void RoundHole(double x, double y, double cx, double cy, double diameter)
{
    if (diameter > 0.0) {
        CloseInner(FullCircle(x, y, cx, cy, diameter / 2), HintRound);
    }
}

void HoleFromBottom(double cx, double cy, double diameter)
{
    RoundHole(cx, cy - diameter / 2, cx, cy, diameter);
}

GeoPoint PointAt(double x, double y)
{
    return {0.0, x, y, 0.0};
}

GeoCircle CircleAt(double cx, double cy, double r)
{
    return {0.0, cx, cy, r};
}

GeoLine LineThrough(double x1, double y1, double x2, double y2, std::int16_t& err)
{
    GeoLine line{};
    r_pp(line, PointAt(x1, y1), PointAt(x2, y2), err);
    return line;
}

GeoPoint FirstMeeting(const GeoLine& line, const GeoCircle& circle, std::int16_t& err)
{
    GeoPoint point{};
    p_rc(point, line, circle, 1, err);
    return point;
}

GeoPoint LastMeeting(const GeoLine& line, const GeoCircle& circle, std::int16_t& err)
{
    GeoPoint point{};
    p_rc(point, line, circle, -1, err);
    return point;
}

TouchingPoints TangentOf(const GeoCircle& from, const GeoCircle& to, std::int16_t& err)
{
    GeoLine line{};
    std::int16_t own = 0; // the routine clears the word it is given
    TangentLineOfCircles(line, from, to, own);
    if (own != 0) {
        err = own;
    }
    return {FirstMeeting(line, from, err), FirstMeeting(line, to, err)};
}

GeoCircle FilletOf(const GeoCircle& from, const GeoCircle& to, double r, std::int16_t& err)
{
    GeoCircle circle{};
    s_cc(circle, from, to, r, err);
    return circle;
}

GeoPoint ContactOf(const GeoCircle& one, const GeoCircle& other, std::int16_t& err)
{
    GeoPoint point{};
    p_cc(point, one, other, 1, err);
    return point;
}
