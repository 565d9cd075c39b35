// Curves to Bezier pieces. The flattening of the pieces is in DxfFlatten.cpp.
#include "import/DxfCurves.h"

#include "state/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

using SpacePoint = std::array<double, 3>;

WeightedPoint Weighted(const PlanePoint& point, double weight)
{
    return {point.X * weight, point.Y * weight, weight};
}

WeightedPoint Mix(const WeightedPoint& a, const WeightedPoint& b, double t)
{
    return {a.X + (b.X - a.X) * t, a.Y + (b.Y - a.Y) * t, a.W + (b.W - a.W) * t};
}

/// Bezier point k of the knot span at `span`: the spline's polar form at (degree - k) times the span's start and k
/// times its end.
WeightedPoint PolarPoint(const SplineShape& spline, const std::vector<WeightedPoint>& controls,
                         std::size_t span, int k)
{
    const auto degree = static_cast<std::size_t>(spline.Degree);
    std::array<WeightedPoint, MaxSplineDegree + 1> d;
    std::copy_n(controls.begin() + static_cast<std::ptrdiff_t>(span - degree), degree + 1, d.begin());
    for (std::size_t r = 1; r <= degree; ++r) {
        const bool atEnd = r > degree - static_cast<std::size_t>(k);
        const double argument = spline.Knots[atEnd ? span + 1 : span];
        for (std::size_t j = degree; j >= r; --j) {
            const double low = spline.Knots[span - degree + j];
            const double high =
                spline.Knots[span + 1 + j - r]; // above low: the span between them isn't empty
            d[j] = Mix(d[j - 1], d[j], (argument - low) / (high - low));
        }
    }
    return d[degree];
}

/// Solves a tridiagonal system in place for right-hand sides of space: sub[i] x[i-1] + diag[i] x[i] + super[i] x[i+1].
void SolveTridiagonal(const std::vector<double>& sub, std::vector<double> diag,
                      const std::vector<double>& super, std::vector<SpacePoint>& x)
{
    const std::size_t count = diag.size();
    for (std::size_t i = 1; i < count; ++i) {
        const double factor = sub[i] / diag[i - 1];
        diag[i] -= factor * super[i - 1];
        for (std::size_t axis = 0; axis < 3; ++axis) {
            x[i][axis] -= factor * x[i - 1][axis];
        }
    }
    for (std::size_t i = count; i-- > 0;) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double known = i + 1 < count ? super[i] * x[i + 1][axis] : 0.0;
            x[i][axis] = (x[i][axis] - known) / diag[i];
        }
    }
}

/// Tangents at the points of a closed curve; step[i] leads from point i to the next, cyclically. The cyclic system is
/// solved as a plain one with a correction of rank one.
std::vector<SpacePoint> ClosedTangents(const std::vector<SpacePoint>& points, const std::vector<double>& step)
{
    const std::size_t count = points.size();
    std::vector<double> sub(count);
    std::vector<double> diag(count);
    std::vector<double> super(count);
    std::vector<SpacePoint> tangents(count);
    std::vector<SpacePoint> corner(count, SpacePoint{});
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t before = (i + count - 1) % count;
        const std::size_t after = (i + 1) % count;
        sub[i] = step[i];
        diag[i] = 2.0 * (step[before] + step[i]);
        super[i] = step[before];
        for (std::size_t axis = 0; axis < 3; ++axis) {
            tangents[i][axis] = 3.0 * (step[i] * (points[i][axis] - points[before][axis]) / step[before] +
                                       step[before] * (points[after][axis] - points[i][axis]) / step[i]);
        }
    }
    const double gamma = -diag[0];
    const double topRight = sub[0];
    const double bottomLeft = super[count - 1];
    diag[0] -= gamma;
    diag[count - 1] -= topRight * bottomLeft / gamma;
    corner[0].fill(gamma);
    corner[count - 1].fill(bottomLeft);
    SolveTridiagonal(sub, diag, super, tangents);
    SolveTridiagonal(sub, diag, super, corner);
    const double ratio = topRight / gamma;
    const double below = 1.0 + corner[0][0] + ratio * corner[count - 1][0];
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double factor = (tangents[0][axis] + ratio * tangents[count - 1][axis]) / below;
        for (std::size_t i = 0; i < count; ++i) {
            tangents[i][axis] -= factor * corner[i][axis];
        }
    }
    return tangents;
}

/// Row of an end of an open curve: a given tangent holds with length 1 (the speed of a chord-length parameter), without
/// one the curvature is 0 there.
void EndRow(const double* given, const SpacePoint& from, const SpacePoint& to, double step, double& diag,
            double& beside, SpacePoint& tangent)
{
    const double length = given == nullptr ? 0.0 : std::hypot(given[0], given[1], given[2]);
    const bool holds = length > 0.0 && std::isfinite(length);
    diag = holds ? 1.0 : 2.0;
    beside = holds ? 0.0 : 1.0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        tangent[axis] = holds ? given[axis] / length : 3.0 * (to[axis] - from[axis]) / step;
    }
}

std::vector<SpacePoint> OpenTangents(const std::vector<SpacePoint>& points, const std::vector<double>& step,
                                     const double* startTangent, const double* endTangent)
{
    const std::size_t count = points.size();
    std::vector<double> sub(count);
    std::vector<double> diag(count);
    std::vector<double> super(count);
    std::vector<SpacePoint> tangents(count);
    EndRow(startTangent, points[0], points[1], step[0], diag[0], super[0], tangents[0]);
    EndRow(endTangent, points[count - 2], points[count - 1], step[count - 2], diag[count - 1], sub[count - 1],
           tangents[count - 1]);
    for (std::size_t i = 1; i + 1 < count; ++i) {
        sub[i] = step[i];
        diag[i] = 2.0 * (step[i - 1] + step[i]);
        super[i] = step[i - 1];
        for (std::size_t axis = 0; axis < 3; ++axis) {
            tangents[i][axis] = 3.0 * (step[i] * (points[i][axis] - points[i - 1][axis]) / step[i - 1] +
                                       step[i - 1] * (points[i + 1][axis] - points[i][axis]) / step[i]);
        }
    }
    SolveTridiagonal(sub, diag, super, tangents);
    return tangents;
}

double Distance(const SpacePoint& a, const SpacePoint& b)
{
    return std::hypot(b[0] - a[0], b[1] - a[1], b[2] - a[2]);
}

/// Neighbours closer than this are one fit point.
constexpr double SameFitPoint = 1e-9;

std::vector<SpacePoint> DifferentPoints(std::span<const double> numbers, bool closed)
{
    std::vector<SpacePoint> points;
    for (std::size_t i = 0; i + 2 < numbers.size(); i += 3) {
        const SpacePoint point{numbers[i], numbers[i + 1], numbers[i + 2]};
        if (points.empty() || Distance(points.back(), point) > SameFitPoint) {
            points.push_back(point);
        }
    }
    if (closed && points.size() > 1 && !(Distance(points.front(), points.back()) > SameFitPoint)) {
        points.pop_back();
    }
    return points;
}

void AddPiece(CurvePieces& pieces, PieceJoin join, std::initializer_list<WeightedPoint> points)
{
    pieces.Points.insert(pieces.Points.end(), points);
    pieces.Joins.push_back(join);
}

} // namespace

void SplinePieces(const SplineShape& spline, const DxfMatrix& matrix, CurvePieces& pieces)
{
    const std::size_t count = spline.Controls.size() / 3;
    const auto degree = static_cast<std::size_t>(spline.Degree);
    std::vector<WeightedPoint> controls(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double* c = spline.Controls.data() + 3 * i;
        controls[i] =
            Weighted(MapPoint(matrix, c[0], c[1], c[2]), spline.Weights.empty() ? 1.0 : spline.Weights[i]);
    }
    pieces.Degree = spline.Degree;
    pieces.Points.clear();
    pieces.Joins.clear();
    std::size_t multiplicity = 0; // of the knot at the start of the span; the first span needs no join
    for (std::size_t span = degree; span < count; ++span) {
        ++multiplicity;
        if (!(spline.Knots[span] < spline.Knots[span + 1])) {
            continue;
        }
        const PieceJoin join = pieces.Joins.empty() || multiplicity < degree ? PieceJoin::Smooth
                               : multiplicity == degree                      ? PieceJoin::Corner
                                                                             : PieceJoin::Gap;
        for (int k = 0; k <= spline.Degree; ++k) {
            pieces.Points.push_back(PolarPoint(spline, controls, span, k));
        }
        pieces.Joins.push_back(join);
        multiplicity = 0;
    }
}

void FitPieces(std::span<const double> points, bool closed, const double* startTangent,
               const double* endTangent, const DxfMatrix& matrix, CurvePieces& pieces)
{
    pieces.Degree = 3;
    pieces.Points.clear();
    pieces.Joins.clear();
    const std::vector<SpacePoint> fits = DifferentPoints(points, closed);
    const std::size_t count = fits.size();
    if (count < 2) {
        return;
    }
    const bool cyclic = closed && count > 2;
    const std::size_t pieceCount = cyclic ? count : count - 1;
    std::vector<double> step(pieceCount);
    for (std::size_t i = 0; i < pieceCount; ++i) {
        step[i] = Distance(fits[i], fits[(i + 1) % count]);
    }
    const std::vector<SpacePoint> tangents =
        cyclic ? ClosedTangents(fits, step) : OpenTangents(fits, step, startTangent, endTangent);
    const auto mapped = [&](std::size_t i, double along) {
        const SpacePoint& p = fits[i];
        const SpacePoint& d = tangents[i];
        return Weighted(MapPoint(matrix, p[0] + along * d[0], p[1] + along * d[1], p[2] + along * d[2]), 1.0);
    };
    for (std::size_t i = 0; i < pieceCount; ++i) {
        const std::size_t next = (i + 1) % count;
        const double third = step[i] / 3.0;
        AddPiece(pieces, PieceJoin::Smooth,
                 {mapped(i, 0.0), mapped(i, third), mapped(next, -third), mapped(next, 0.0)});
    }
}

void EllipsePieces(const PlanePoint& centre, const PlanePoint& axis1, const PlanePoint& axis2, double start,
                   double sweep, CurvePieces& pieces)
{
    constexpr double quarter = Pi / 2.0;
    constexpr double sameParameter = 1e-9;
    const auto at = [&](double t, double reach) {
        const double c = std::cos(t) * reach;
        const double s = std::sin(t) * reach;
        return PlanePoint{centre.X + axis1.X * c + axis2.X * s, centre.Y + axis1.Y * c + axis2.Y * s};
    };
    pieces.Degree = 2;
    pieces.Points.clear();
    pieces.Joins.clear();
    const double end = start + sweep;
    double from = start;
    while (from < end) {
        double to = (std::floor(from / quarter + sameParameter) + 1.0) * quarter;
        if (!(to < end - sameParameter)) {
            to = end;
        }
        const double half = (to - from) / 2.0;
        const double weight = std::cos(half); // the tangents meet at 1 / cos(half) of the way out
        AddPiece(pieces, pieces.Joins.empty() ? PieceJoin::Smooth : PieceJoin::Corner,
                 {Weighted(at(from, 1.0), 1.0), Weighted(at(from + half, 1.0 / weight), weight),
                  Weighted(at(to, 1.0), 1.0)});
        from = to;
    }
}
