// The shapes of a drawing, one procedure per type: numbers of a row to lines, round shapes and vertex lists of the plane.
#include "import/DxfWalk.h"

#include "state/Numbers.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double FullTurn = 2.0 * Pi;

/// Angles this close (radians) are one.
constexpr double SameAngle = 1e-9;

/// A sweep that misses the full turn by less, and by less than the tolerance in length, was meant as a full one.
constexpr double NearlyFull = 1e-3;

/// A bulge below this is a straight segment.
constexpr double StraightBulge = 1e-9;

/// A bulged segment whose arc can't be told from its chord may go out as the chord.
constexpr double MaxSagitta = 0.004;

bool AllUsable(const std::vector<PlanePoint>& points)
{
    return std::all_of(points.begin(), points.end(), IsUsable);
}

/// Fills Start, Sweep and Full from two angles in radians; `radius` is the larger one of the curve. Angles that are the
/// same are a full turn.
void SetSweep(RoundShape& round, double start, double end, double radius)
{
    double sweep = std::fmod(end - start, FullTurn);
    if (sweep < 0.0) {
        sweep += FullTurn;
    }
    const double rest = FullTurn - sweep;
    round.Full = sweep < SameAngle || rest < SameAngle || (rest < NearlyFull && rest * radius < Tolerance);
    round.Start = std::fmod(start, FullTurn);
    round.Sweep = round.Full ? FullTurn : sweep;
}

void WalkCircle(DxfWalk& walk, const DxfShape& shape, const double* n, const DxfMatrix& matrix)
{
    const DxfMatrix plane = WithNormal(matrix, n + 4);
    const double radius = std::fabs(n[3]);
    RoundShape round;
    round.Centre = MapPoint(plane, n[0], n[1], n[2]);
    round.Axis1 = MapDirection(plane, radius, 0.0, 0.0);
    round.Axis2 = MapDirection(plane, 0.0, radius, 0.0);
    round.Sweep = FullTurn;
    round.Full = true;
    EmitRound(walk, shape.Kind, round);
}

void WalkArc(DxfWalk& walk, const DxfShape& shape, const double* n, const DxfMatrix& matrix)
{
    if (!std::isfinite(n[7]) || !std::isfinite(n[8])) {
        return;
    }
    const DxfMatrix plane = WithNormal(matrix, n + 4);
    const double radius = std::fabs(n[3]);
    const auto at = [&](double angleDeg) {
        double s = 0.0;
        double c = 1.0;
        SineCosine(angleDeg, s, c);
        return MapPoint(plane, n[0] + radius * c, n[1] + radius * s, n[2]);
    };
    const double start = std::fmod(n[7], 360.0);
    const double end = std::fmod(n[8], 360.0);
    RoundShape round;
    round.Centre = MapPoint(plane, n[0], n[1], n[2]);
    round.Axis1 = MapDirection(plane, radius, 0.0, 0.0);
    round.Axis2 = MapDirection(plane, 0.0, radius, 0.0);
    round.OwnStart = true;
    SetSweep(round, start * (Pi / 180.0), end * (Pi / 180.0), radius);
    round.HasEnds = true;
    round.From = at(start);
    round.To = round.Full ? round.From : at(end);
    EmitRound(walk, shape.Kind, round);
}

void WalkEllipse(DxfWalk& walk, const double* n, const DxfMatrix& matrix)
{
    const double size = std::hypot(n[6], n[7], n[8]);
    if (!std::isfinite(n[10]) || !std::isfinite(n[11]) || !std::isfinite(size)) {
        return;
    }
    const double nx = size > 0.0 ? n[6] / size : 0.0;
    const double ny = size > 0.0 ? n[7] / size : 0.0;
    const double nz = size > 0.0 ? n[8] / size : 1.0;
    const double ratio = n[9];
    RoundShape round;
    round.Centre = MapPoint(matrix, n[0], n[1], n[2]);
    round.Axis1 = MapDirection(matrix, n[3], n[4], n[5]);
    round.Axis2 = MapDirection(matrix, (ny * n[5] - nz * n[4]) * ratio, (nz * n[3] - nx * n[5]) * ratio,
                               (nx * n[4] - ny * n[3]) * ratio);
    const double radius =
        std::max(PlaneLength(round.Axis1.X, round.Axis1.Y), PlaneLength(round.Axis2.X, round.Axis2.Y));
    SetSweep(round, n[10], n[11], radius);
    round.Parametric = true;
    EmitRound(walk, DxfArcPiece, round);
}

/// The arc from a to b (entity plane) with that bulge.
RoundShape BulgeArc(const DxfMatrix& plane, const double* a, const double* b, double bulge, double elevation)
{
    const double squared = bulge * bulge;
    const double offset = (1.0 - squared) / (4.0 * bulge);
    const double cx = (a[0] + b[0]) / 2.0 - (b[1] - a[1]) * offset;
    const double cy = (a[1] + b[1]) / 2.0 + (b[0] - a[0]) * offset;
    const double radius = PlaneLength(b[0] - a[0], b[1] - a[1]) * (1.0 + squared) / (4.0 * std::fabs(bulge));
    const double side = bulge > 0.0 ? 1.0 : -1.0; // a clockwise arc has its second axis on the other side
    RoundShape round;
    round.Centre = MapPoint(plane, cx, cy, elevation);
    round.Axis1 = MapDirection(plane, radius, 0.0, 0.0);
    round.Axis2 = MapDirection(plane, 0.0, radius * side, 0.0);
    round.Start = std::atan2((a[1] - cy) * side, a[0] - cx);
    round.Sweep = 4.0 * std::atan(std::fabs(bulge));
    return round;
}

/// An arc too flat, or with a centre too far away, for a record of 32-bit floats.
bool GoesOutAsChord(const RoundShape& round, double chord, double bulge)
{
    constexpr double farCentre = 1e5;
    const double radius =
        std::max(PlaneLength(round.Axis1.X, round.Axis1.Y), PlaneLength(round.Axis2.X, round.Axis2.Y));
    const bool flat = chord * std::fabs(bulge) / 2.0 <= MaxSagitta;
    return !IsUsable(round.Centre) || !(radius <= MaxCoordinate) || (flat && radius > farCentre);
}

void FlushRun(DxfWalk& walk, std::int16_t kind, std::vector<PlanePoint>& run)
{
    EmitRun(walk, kind, run);
    run.clear();
}

/// Straight runs and arcs in drawing order. walk.Points holds the mapped vertices, all usable.
void WalkSegments(DxfWalk& walk, const DxfShape& shape, const double* vertices, const DxfMatrix& plane,
                  double elevation)
{
    const std::size_t count = walk.Points.size();
    const std::size_t segments = shape.Closed ? count : count - 1;
    std::vector<PlanePoint>& run = walk.Straight;
    run.clear();
    for (std::size_t i = 0; i < segments && !walk.Ended && !walk.Exhausted; ++i) {
        const std::size_t next = (i + 1) % count;
        const double* const a = vertices + 3 * i;
        const double* const b = vertices + 3 * next;
        if (run.empty()) {
            run.push_back(walk.Points[i]);
        }
        const double chord =
            PlaneLength(walk.Points[next].X - walk.Points[i].X, walk.Points[next].Y - walk.Points[i].Y);
        RoundShape round;
        bool straight = std::fabs(a[2]) < StraightBulge || (a[0] == b[0] && a[1] == b[1]);
        if (!straight) {
            round = BulgeArc(plane, a, b, a[2], elevation);
            straight = GoesOutAsChord(round, chord, a[2]);
        }
        if (straight) {
            run.push_back(walk.Points[next]);
            continue;
        }
        FlushRun(walk, shape.Kind, run);
        round.HasEnds = true;
        round.From = walk.Points[i];
        round.To = walk.Points[next];
        EmitRound(walk, DxfArcPiece, round);
    }
    FlushRun(walk, shape.Kind, run);
}

void WalkPolyline(DxfWalk& walk, const DxfShape& shape, const double* n, const DxfMatrix& matrix)
{
    const DxfMatrix plane = WithNormal(matrix, n + 1);
    const double elevation = n[0];
    const double* const vertices = n + 4;
    const std::size_t count = (shape.Count - 4) / 3;
    walk.Points.clear();
    for (std::size_t i = 0; i < count; ++i) {
        const double* const v = vertices + 3 * i;
        walk.Points.push_back(MapPoint(plane, v[0], v[1], elevation));
        if (!std::isfinite(v[2])) {
            return;
        }
    }
    if (count > 1 && AllUsable(walk.Points)) {
        WalkSegments(walk, shape, vertices, plane, elevation);
    }
}

void WalkPolyline3d(DxfWalk& walk, const DxfShape& shape, const double* n, const DxfMatrix& matrix)
{
    walk.Points.clear();
    for (std::size_t i = 0; i + 2 < shape.Count; i += 3) {
        walk.Points.push_back(MapPoint(matrix, n[i], n[i + 1], n[i + 2]));
    }
    if (shape.Closed && walk.Points.size() > 1) {
        walk.Points.push_back(walk.Points.front());
    }
    if (AllUsable(walk.Points)) {
        EmitRun(walk, shape.Kind, walk.Points);
    }
}

} // namespace

void WalkShape(DxfWalk& walk, const DxfShape& shape, const DxfMatrix& matrix)
{
    const double* const n = walk.Model->Numbers.data() + shape.First;
    switch (shape.Type) {
    case DxfShapeType::Line:
        EmitLine(walk, MapPoint(matrix, n[0], n[1], n[2]), MapPoint(matrix, n[3], n[4], n[5]));
        break;
    case DxfShapeType::Point:
        EmitPoint(walk, MapPoint(matrix, n[0], n[1], n[2]));
        break;
    case DxfShapeType::Circle:
        WalkCircle(walk, shape, n, matrix);
        break;
    case DxfShapeType::Arc:
        WalkArc(walk, shape, n, matrix);
        break;
    case DxfShapeType::Ellipse:
        WalkEllipse(walk, n, matrix);
        break;
    case DxfShapeType::Polyline:
        WalkPolyline(walk, shape, n, matrix);
        break;
    case DxfShapeType::Polyline3d:
        WalkPolyline3d(walk, shape, n, matrix);
        break;
    case DxfShapeType::Spline:
        WalkSpline(walk, shape, matrix);
        break;
    case DxfShapeType::Ignored:
        EmitIgnored(walk, shape.Kind);
        break;
    case DxfShapeType::PaperSpace:
    case DxfShapeType::Insert:
        break;
    }
}
