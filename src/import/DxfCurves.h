// DxfCurves.h -- splines and ellipses of a drawing to vertices: every curve becomes rational Bezier pieces first, and one
// procedure flattens those.
#pragma once

#include "import/DxfPlane.h"

#include <cstdint>
#include <span>
#include <vector>

/// A control point of the plane with its weight, stored as weight * x, weight * y, weight. Weights are above 0.
struct WeightedPoint {
    double X;
    double Y;
    double W;
};

/// How a piece joins the one before it.
enum class PieceJoin : std::uint8_t {
    Smooth,
    Corner, ///< its start is kept as a vertex
    Gap     ///< it starts elsewhere: another run begins
};

/// Degree + 1 points per piece, in drawing order.
struct CurvePieces {
    int Degree = 3;
    std::vector<WeightedPoint> Points;
    std::vector<PieceJoin> Joins;
};

/// A B-spline of space: knots.size() == control points + degree + 1, never falling, degree 1 or more.
struct SplineShape {
    int Degree = 3;
    std::span<const double> Knots;
    std::span<const double> Controls; ///< x y z each
    std::span<const double> Weights;  ///< empty, or one above 0 for each control point
};

/// Largest degree that is read; real drawings stay below it.
inline constexpr int MaxSplineDegree = 25;

/// Bezier pieces of a B-spline, seen from above through `matrix`.
void SplinePieces(const SplineShape& spline, const DxfMatrix& matrix, CurvePieces& pieces);

/// Bezier pieces of the smooth curve (cubic, curvature continuous, speeds by chord length) through points of space,
/// three numbers each. A closed one joins its last point to its first smoothly; otherwise the tangents (null for
/// none) hold at the ends. Fewer than two different points give none.
void FitPieces(std::span<const double> points, bool closed, const double* startTangent,
               const double* endTangent, const DxfMatrix& matrix, CurvePieces& pieces);

/// Bezier pieces of centre + axis1 cos t + axis2 sin t for t from `start` over `sweep` (radians, above 0, at most a full
/// turn). Where an axis is passed a vertex will stand, so the curve keeps its full width and height.
void EllipsePieces(const PlanePoint& centre, const PlanePoint& axis1, const PlanePoint& axis2, double start,
                   double sweep, CurvePieces& pieces);

/// Vertices of pieces first .. last - 1, which hang together: chord error below 0.005, neighbours more than `spacing`
/// (at least 0.01) apart, both ends exact. A curve too small for that comes as its two ends alone, however close. `budget`
/// falls by the points looked at; at 0 the result is coarse.
void FlattenPieces(const CurvePieces& pieces, std::size_t first, std::size_t last, double spacing,
                   std::int64_t& budget, std::vector<PlanePoint>& vertices);
