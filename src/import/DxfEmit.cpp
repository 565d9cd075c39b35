// The records themselves: everything that leaves the reader passes here, as bounds in the first walk and as 32-bit floats in
// the second.
#include "import/DxfWalk.h"

#include "state/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr std::size_t MaxRunPoints = std::numeric_limits<std::int16_t>::max();

/// Two axes this equal (relative) and this square make a circle: far above what rounding in files and turns leaves, far below
/// any scale that is meant.
constexpr double RoundTolerance = 1e-6;

/// An arc whose 32-bit centre and radius miss its ends by more goes out as vertices.
constexpr double MaxFloatMiss = 0.005;

double Length(const PlanePoint& d)
{
    return PlaneLength(d.X, d.Y);
}

double Cross(const PlanePoint& a, const PlanePoint& b)
{
    return a.X * b.Y - a.Y * b.X;
}

PlanePoint At(const RoundShape& round, double t)
{
    const double c = std::cos(t);
    const double s = std::sin(t);
    return {round.Centre.X + round.Axis1.X * c + round.Axis2.X * s,
            round.Centre.Y + round.Axis1.Y * c + round.Axis2.Y * s};
}

void Reach(DrawingBounds& bounds, const PlanePoint& point)
{
    bounds.Reach = std::max({bounds.Reach, std::fabs(point.X), std::fabs(point.Y)});
}

void Measure(DrawingBounds& bounds, const PlanePoint& point)
{
    if (!bounds.Any) {
        bounds.Any = true;
        bounds.MinX = bounds.MaxX = point.X;
        bounds.MinY = bounds.MaxY = point.Y;
    }
    bounds.MinX = std::min(bounds.MinX, point.X);
    bounds.MaxX = std::max(bounds.MaxX, point.X);
    bounds.MinY = std::min(bounds.MinY, point.Y);
    bounds.MaxY = std::max(bounds.MaxY, point.Y);
    Reach(bounds, point);
}

DxfPoint3 Rounded(const DxfWalk& walk, const PlanePoint& point)
{
    return {static_cast<float>(point.X - walk.OffsetX), static_cast<float>(point.Y - walk.OffsetY), 0.0F};
}

double FloatDistance(const DxfPoint3& a, const DxfPoint3& b)
{
    return PlaneLength(static_cast<double>(b[0]) - static_cast<double>(a[0]),
                       static_cast<double>(b[1]) - static_cast<double>(a[1]));
}

void Deliver(DxfWalk& walk, const DxfEntity& entity)
{
    if (!walk.Ended) {
        walk.Ended = walk.Callback(entity, walk.Context) != 0;
    }
}

/// True when centre and radius as rounded still meet both ends.
bool SurvivesRounding(const DxfEntity& arc)
{
    const double radius = arc.P2[0];
    return std::fabs(FloatDistance(arc.P1, arc.P3) - radius) <= MaxFloatMiss &&
           std::fabs(FloatDistance(arc.P1, arc.P4) - radius) <= MaxFloatMiss;
}

void EmitEllipse(DxfWalk& walk, RoundShape round)
{
    if (round.Full && !round.OwnStart &&
        !round.Parametric) { // where the curve meets the axis to the right of its centre
        round.Start = std::atan2(-round.Axis1.Y, round.Axis2.Y);
        if (round.Axis1.X * std::cos(round.Start) + round.Axis2.X * std::sin(round.Start) < 0.0) {
            round.Start += Pi;
        }
    }
    EllipsePieces(round.Centre, round.Axis1, round.Axis2, round.Start, round.Sweep, walk.Pieces);
    std::vector<WeightedPoint>& points = walk.Pieces.Points;
    if (round.Full) {
        points.back() = points.front();
    } else if (round.HasEnds) {
        points.front() = {round.From.X, round.From.Y, 1.0};
        points.back() = {round.To.X, round.To.Y, 1.0};
    }
    EmitPieces(walk);
}

/// A full circle counts with its box, an arc with its ends: its centre may be anywhere.
void MeasureArc(DxfWalk& walk, const RoundShape& round, double radius, const PlanePoint& from,
                const PlanePoint& to)
{
    walk.Delivered = true;
    Reach(walk.Bounds, round.Centre);
    Measure(walk.Bounds, from);
    Measure(walk.Bounds, to);
    if (round.Full) {
        Measure(walk.Bounds, {round.Centre.X - radius, round.Centre.Y - radius});
        Measure(walk.Bounds, {round.Centre.X + radius, round.Centre.Y + radius});
    }
}

void EmitArc(DxfWalk& walk, std::int16_t kind, const RoundShape& round, double radius)
{
    if (!round.Full && radius * round.Sweep < Tolerance) {
        return; // its ends would read as a full circle's later
    }
    PlanePoint from = round.HasEnds ? round.From : At(round, round.Start);
    PlanePoint to = round.HasEnds ? round.To : At(round, round.Start + round.Sweep);
    if (round.Full) {
        from = round.OwnStart ? from : PlanePoint{round.Centre.X + radius, round.Centre.Y};
        to = from;
    } else if (Cross(round.Axis1, round.Axis2) < 0.0) {
        std::swap(from, to);
    }
    if (walk.Measuring) {
        MeasureArc(walk, round, radius, from, to);
        return;
    }
    DxfEntity entity;
    entity.Kind = kind;
    entity.P1 = Rounded(walk, round.Centre);
    entity.P2 = {static_cast<float>(radius), 0.0F, 0.0F};
    entity.P3 = Rounded(walk, from);
    entity.P4 = Rounded(walk, to);
    if (!round.Full && round.Sweep < Pi && FloatDistance(entity.P3, entity.P4) < Tolerance) {
        return; // the same, by the rounding
    }
    if (!round.Full && !SurvivesRounding(entity)) {
        EmitEllipse(walk, round);
        return;
    }
    walk.Delivered = true;
    Deliver(walk, entity);
}

/// Least distance of neighbours on walk.Pieces, flattened: they must stay apart as floats.
double CurveSpacing(const DxfWalk& walk)
{
    constexpr double floatStep = 1.2e-7; // relative distance of neighbouring floats
    double reach = 0.0;
    for (const WeightedPoint& p : walk.Pieces.Points) {
        reach = std::max({reach, std::fabs(p.X / p.W - walk.OffsetX), std::fabs(p.Y / p.W - walk.OffsetY)});
    }
    return Tolerance * 1.05 + 2.0 * floatStep * reach;
}

/// True when two points are so far apart, as floats, that a profile would stay open between them.
bool IsGap(const DxfWalk& walk, const PlanePoint& a, const PlanePoint& b)
{
    return FloatDistance(Rounded(walk, a), Rounded(walk, b)) > Tolerance;
}

} // namespace

bool IsUsable(const PlanePoint& point)
{
    return std::fabs(point.X) <= MaxCoordinate && std::fabs(point.Y) <= MaxCoordinate; // false for NaN
}

void EmitLine(DxfWalk& walk, const PlanePoint& a, const PlanePoint& b)
{
    if (!IsUsable(a) || !IsUsable(b)) {
        return;
    }
    walk.Delivered = true;
    if (walk.Measuring) {
        Measure(walk.Bounds, a);
        Measure(walk.Bounds, b);
        return;
    }
    DxfEntity entity;
    entity.Kind = DxfLine;
    entity.P1 = Rounded(walk, a);
    entity.P2 = Rounded(walk, b);
    Deliver(walk, entity);
}

void EmitPoint(DxfWalk& walk, const PlanePoint& point)
{
    if (!IsUsable(point)) {
        return;
    }
    walk.Delivered = true;
    if (walk.Measuring) {
        Measure(walk.Bounds, point);
        return;
    }
    DxfEntity entity;
    entity.Kind = DxfPoint;
    entity.P1 = Rounded(walk, point);
    Deliver(walk, entity);
}

void EmitIgnored(DxfWalk& walk, std::int16_t kind)
{
    if (!walk.Measuring) {
        DxfEntity entity;
        entity.Kind = kind;
        Deliver(walk, entity);
    }
}

void EmitRun(DxfWalk& walk, std::int16_t kind, const std::vector<PlanePoint>& points)
{
    if (points.size() < 2) {
        return;
    }
    walk.Delivered = true;
    if (walk.Measuring) {
        for (const PlanePoint& point : points) {
            Measure(walk.Bounds, point);
        }
        return;
    }
    walk.Floats.clear();
    for (const PlanePoint& point : points) {
        const DxfPoint3 rounded = Rounded(walk, point);
        walk.Floats.insert(walk.Floats.end(), {rounded[0], rounded[1]});
    }
    for (std::size_t first = 0; first + 1 < points.size() && !walk.Ended; first += MaxRunPoints - 1) {
        DxfEntity entity;
        entity.Kind = kind;
        entity.PointCount = static_cast<std::int16_t>(std::min(MaxRunPoints, points.size() - first));
        entity.Vertices = walk.Floats.data() + 2 * first;
        Deliver(walk, entity);
    }
}

void EmitRound(DxfWalk& walk, std::int16_t kind, const RoundShape& round)
{
    const double length1 = Length(round.Axis1);
    const double length2 = Length(round.Axis2);
    if (!IsUsable(round.Centre) || !(length1 <= MaxCoordinate) || !(length2 <= MaxCoordinate)) {
        return;
    }
    const double product = round.Axis1.X * round.Axis2.X + round.Axis1.Y * round.Axis2.Y;
    const bool isRound = std::fabs(length1 - length2) <= RoundTolerance * length1 &&
                         std::fabs(product) <= RoundTolerance * length1 * length2;
    if (isRound) {
        EmitArc(walk, kind, round, length1);
    } else {
        EmitEllipse(walk, round);
    }
}

void EmitPieces(DxfWalk& walk)
{
    const CurvePieces& pieces = walk.Pieces;
    if (!std::all_of(pieces.Points.begin(), pieces.Points.end(), [](const WeightedPoint& p) {
            return IsUsable({p.X / p.W, p.Y / p.W});
        })) {
        return;
    }
    if (walk.Measuring) { // the hull serves as well, and costs nothing
        for (const WeightedPoint& p : pieces.Points) {
            Measure(walk.Bounds, {p.X / p.W, p.Y / p.W});
        }
        return;
    }
    const double spacing = CurveSpacing(walk);
    for (std::size_t first = 0; first < pieces.Joins.size();) {
        std::size_t last = first + 1;
        while (last < pieces.Joins.size() && pieces.Joins[last] != PieceJoin::Gap) {
            ++last;
        }
        FlattenPieces(pieces, first, last, spacing, walk.Budget, walk.Run);
        walk.Exhausted = walk.Exhausted || walk.Budget < 0;
        if (walk.Exhausted) {
            return;
        }
        if (walk.Run.size() > 2 || IsGap(walk, walk.Run.front(), walk.Run.back())) {
            EmitRun(walk, DxfCurve, walk.Run);
        }
        first = last;
    }
}
