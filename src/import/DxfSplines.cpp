// SPLINE: what real files hold is made into a B-spline that the curve stage can rely on, or left out.
#include "import/DxfWalk.h"

#include <algorithm>
#include <cmath>

namespace
{

/// Weights outside this range would lose every digit of their points.
constexpr double MinWeight = 1e-9;
constexpr double MaxWeight = 1e9;
constexpr double MaxKnot = 1e15;

/// The lists of a row.
struct SplineRow {
    std::span<const double> Knots;
    std::span<const double> Controls;
    std::span<const double> Weights;
    std::span<const double> Fits;
};

SplineRow RowOf(const double* n)
{
    const auto count = [n](SplineNumbers which) { return static_cast<std::size_t>(n[which]); };
    SplineRow row;
    const double* at = n + SplineHead;
    row.Knots = {at, count(SplineKnots)};
    at += row.Knots.size();
    row.Controls = {at, 3 * count(SplineControls)};
    at += row.Controls.size();
    row.Weights = {at, count(SplineWeights)};
    at += row.Weights.size();
    row.Fits = {at, 3 * count(SplineFits)};
    return row;
}

bool AllWithin(std::span<const double> numbers, double low, double high)
{
    return std::all_of(numbers.begin(), numbers.end(), [=](double v) { return v >= low && v <= high; });
}

/// Clamped at both ends, even between.
std::vector<double> ClampedKnots(std::size_t controls, std::size_t degree)
{
    std::vector<double> knots(controls + degree + 1, 0.0);
    for (std::size_t i = degree + 1; i < knots.size(); ++i) {
        knots[i] = static_cast<double>(std::min(i, controls) - degree);
    }
    return knots;
}

std::vector<double> EvenKnots(std::size_t count)
{
    std::vector<double> knots(count);
    for (std::size_t i = 0; i < count; ++i) {
        knots[i] = static_cast<double>(i);
    }
    return knots;
}

bool IsKnotVector(std::span<const double> knots, std::size_t degree, std::size_t controls)
{
    return AllWithin(knots, -MaxKnot, MaxKnot) && std::is_sorted(knots.begin(), knots.end()) &&
           knots[degree] < knots[controls];
}

/// The first `degree` points again behind the last: a closed curve written without the overlap that its knots need.
void Wrap(std::vector<double>& numbers, std::size_t count)
{
    const std::size_t old = numbers.size();
    for (std::size_t i = 0; i < count; ++i) {
        numbers.push_back(numbers[i % old]);
    }
}

/// Curve by control points. Knots that don't fit the points are replaced by even ones.
void WalkControlled(DxfWalk& walk, const DxfShape& shape, std::size_t degree, const SplineRow& row,
                    const DxfMatrix& matrix)
{
    std::vector<double> controls(row.Controls.begin(), row.Controls.end());
    std::vector<double> weights(row.Weights.begin(), row.Weights.end());
    std::vector<double> knots(row.Knots.begin(), row.Knots.end());
    std::size_t count = controls.size() / 3;
    if (weights.size() != count || std::equal(weights.begin() + 1, weights.end(), weights.begin())) {
        weights.clear(); // none for every point, or all alike
    }
    degree = std::min(degree, count - 1);
    if (knots.size() != count + degree + 1) {
        const bool overlaps = knots.size() == count + 2 * degree + 1;
        if (shape.Closed) {
            Wrap(controls, 3 * degree);
            if (!weights.empty()) {
                Wrap(weights, degree);
            }
            count += degree;
        }
        if (!shape.Closed) {
            knots = ClampedKnots(count, degree);
        } else if (!overlaps) {
            knots = EvenKnots(count + degree + 1);
        }
    }
    if (!IsKnotVector(knots, degree, count) || !AllWithin(weights, MinWeight, MaxWeight)) {
        return;
    }
    walk.Budget -= static_cast<std::int64_t>(count * (degree + 1) * (degree + 1) / 16);
    SplinePieces({static_cast<int>(degree), knots, controls, weights}, matrix, walk.Pieces);
    EmitPieces(walk);
}

/// Curve by fit points; of degree 1 the straight way through them.
void WalkFitted(DxfWalk& walk, const DxfShape& shape, std::size_t degree, std::span<const double> fits,
                const double* n, const DxfMatrix& matrix)
{
    if (degree == 1) {
        std::vector<double> points(fits.begin(), fits.end());
        if (shape.Closed) {
            Wrap(points, 3);
        }
        const std::vector<double> knots = ClampedKnots(points.size() / 3, 1);
        SplinePieces({1, knots, points, {}}, matrix, walk.Pieces);
    } else {
        FitPieces(fits, shape.Closed, n + SplineStartTangent, n + SplineEndTangent, matrix, walk.Pieces);
    }
    EmitPieces(walk);
}

} // namespace

void WalkSpline(DxfWalk& walk, const DxfShape& shape, const DxfMatrix& matrix)
{
    const double* const n = walk.Model->Numbers.data() + shape.First;
    const SplineRow row = RowOf(n);
    if (!(n[SplineDegree] >= 1.0) || n[SplineDegree] > MaxSplineDegree ||
        !AllWithin(row.Controls, -MaxCoordinate, MaxCoordinate) ||
        !AllWithin(row.Fits, -MaxCoordinate, MaxCoordinate)) {
        return;
    }
    const auto degree = static_cast<std::size_t>(n[SplineDegree]);
    if (row.Controls.size() >= 6) {
        WalkControlled(walk, shape, degree, row, matrix);
    } else if (row.Fits.size() >= 6) {
        WalkFitted(walk, shape, degree, row.Fits, n, matrix);
    }
}
