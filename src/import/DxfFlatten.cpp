// Bezier pieces to vertices, in two steps: points of the curve so dense that the chords between them follow it well within
// the tolerance, then as few of these as the rest of the tolerance allows, kept apart.
#include "import/DxfCurves.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

/// Together below the 0.005 that is promised; the rest is for the rounding to 32-bit floats.
constexpr double DenseError = 0.001;
constexpr double ThinError = 0.0033;

constexpr int MaxSplits = 14;         ///< of one piece: 16384 chords at most
constexpr std::size_t LookAhead = 48; ///< dense points that one chord may pass over

using Piece = std::array<WeightedPoint, MaxSplineDegree + 1>;

PlanePoint Place(const WeightedPoint& point)
{
    return {point.X / point.W, point.Y / point.W};
}

double SquaredDistance(const PlanePoint& a, const PlanePoint& b)
{
    const double x = b.X - a.X;
    const double y = b.Y - a.Y;
    return x * x + y * y;
}

/// Squared distance of a point from the straight piece a-b (not from the endless line, so that a curve that runs back
/// over itself shows).
double SquaredMiss(const PlanePoint& point, const PlanePoint& a, const PlanePoint& b)
{
    const double x = b.X - a.X;
    const double y = b.Y - a.Y;
    const double squared = x * x + y * y;
    const double along =
        squared > 0.0 ? std::clamp(((point.X - a.X) * x + (point.Y - a.Y) * y) / squared, 0.0, 1.0) : 0.0;
    return SquaredDistance(point, {a.X + along * x, a.Y + along * y});
}

/// The curve lies within the hull of its control points, so their distance from the chord bounds its own.
bool IsFlat(const Piece& piece, int degree)
{
    const PlanePoint a = Place(piece[0]);
    const PlanePoint b = Place(piece[static_cast<std::size_t>(degree)]);
    for (int i = 1; i < degree; ++i) {
        if (SquaredMiss(Place(piece[static_cast<std::size_t>(i)]), a, b) > DenseError * DenseError) {
            return false;
        }
    }
    return true;
}

/// Adds the points of a piece but its first one.
void AddDensePoints(Piece& piece, int degree, int splits, std::int64_t& budget,
                    std::vector<PlanePoint>& dense)
{
    const auto last = static_cast<std::size_t>(degree);
    if (splits == 0 || budget <= 0 || IsFlat(piece, degree)) {
        dense.push_back(Place(piece[last]));
        --budget;
        return;
    }
    Piece left;
    for (std::size_t level = 0; level <= last;
         ++level) { // halves by repeated middles; `piece` becomes the right one
        left[level] = piece[0];
        for (std::size_t i = 0; i + level < last; ++i) {
            piece[i] = {(piece[i].X + piece[i + 1].X) / 2.0, (piece[i].Y + piece[i + 1].Y) / 2.0,
                        (piece[i].W + piece[i + 1].W) / 2.0};
        }
    }
    AddDensePoints(left, degree, splits - 1, budget, dense);
    AddDensePoints(piece, degree, splits - 1, budget, dense);
}

/// Thinning state: dense points, and the vertices chosen so far (never empty).
struct Thinning {
    const std::vector<PlanePoint>& Dense;
    std::vector<PlanePoint>& Vertices;
    double SquaredSpacing;

    bool Apart(const PlanePoint& a, const PlanePoint& b) const
    {
        return SquaredDistance(a, b) > SquaredSpacing;
    }
};

bool ChordFits(const Thinning& t, const PlanePoint& from, std::size_t first, std::size_t to)
{
    for (std::size_t i = first; i < to; ++i) {
        if (SquaredMiss(t.Dense[i], from, t.Dense[to]) > ThinError * ThinError) {
            return false;
        }
    }
    return true;
}

/// The farthest dense point of first .. last to which the chord from `from` still fits; the first one far enough away
/// when none fits; last + 1 when none is far enough.
std::size_t NextVertex(const Thinning& t, const PlanePoint& from, std::size_t first, std::size_t last)
{
    std::size_t best = last + 1;
    for (std::size_t j = first; j <= last; ++j) {
        const bool any = best <= last;
        if (any && j - first >= LookAhead) {
            break;
        }
        const bool apart = t.Apart(from, t.Dense[j]);
        const bool fits = j - first < LookAhead && ChordFits(t, from, first, j);
        if (fits && apart) {
            best = j;
        } else if (!fits && any) {
            break;
        } else if (apart) {
            return j;
        }
    }
    return best;
}

/// The last chord of a stretch came out too short: its vertex moves to where both chords are longest, or falls away.
void EvenLastChord(Thinning& t, std::size_t first, std::size_t last)
{
    const PlanePoint before = t.Vertices[t.Vertices.size() - 2];
    const PlanePoint& end = t.Dense[last];
    std::size_t best = last;
    double bestReach = t.SquaredSpacing;
    for (std::size_t i = first; i < last; ++i) {
        const double reach = std::min(SquaredDistance(before, t.Dense[i]), SquaredDistance(t.Dense[i], end));
        if (reach > bestReach) {
            bestReach = reach;
            best = i;
        }
    }
    if (best == last) {
        t.Vertices.pop_back();
    } else {
        t.Vertices.back() = t.Dense[best];
    }
}

/// Chooses vertices of the stretch first .. last behind the vertex chosen last. Its end becomes a vertex unless it is too
/// close to that one.
void ThinStretch(Thinning& t, std::size_t first, std::size_t last)
{
    const std::size_t before = t.Vertices.size();
    std::size_t previous = first;
    std::size_t at = first;
    while (at <= last) {
        const std::size_t next = NextVertex(t, t.Vertices.back(), at, last);
        if (next > last) {
            break;
        }
        t.Vertices.push_back(t.Dense[next]);
        previous = at;
        at = next + 1;
    }
    if (at > last) {
        return; // the end itself was chosen
    }
    if (t.Vertices.size() > before) {
        EvenLastChord(t, previous, last);
        if (t.Apart(t.Vertices.back(), t.Dense[last])) {
            t.Vertices.push_back(t.Dense[last]);
        }
    }
}

/// The curve's end is exact, whatever must go for it.
void FixEnd(Thinning& t)
{
    const PlanePoint& end = t.Dense.back();
    const PlanePoint& chosen = t.Vertices.back();
    if (t.Vertices.size() > 1 && chosen.X == end.X && chosen.Y == end.Y) {
        return;
    }
    while (t.Vertices.size() > 1 && !t.Apart(t.Vertices.back(), end)) {
        t.Vertices.pop_back();
    }
    if (t.Apart(t.Vertices.back(), end)) {
        t.Vertices.push_back(end);
    } else {
        t.Vertices.clear();
    }
}

} // namespace

void FlattenPieces(const CurvePieces& pieces, std::size_t first, std::size_t last, double spacing,
                   std::int64_t& budget, std::vector<PlanePoint>& vertices)
{
    const auto stride = static_cast<std::size_t>(pieces.Degree) + 1;
    std::vector<PlanePoint> dense;
    std::vector<std::size_t> corners; // dense points that stay
    dense.push_back(Place(pieces.Points[first * stride]));
    for (std::size_t i = first; i < last; ++i) {
        if (i > first && pieces.Joins[i] == PieceJoin::Corner) {
            corners.push_back(dense.size() - 1);
        }
        Piece piece;
        std::copy_n(pieces.Points.begin() + static_cast<std::ptrdiff_t>(i * stride), stride, piece.begin());
        AddDensePoints(piece, pieces.Degree, MaxSplits, budget, dense);
    }
    corners.push_back(dense.size() - 1);
    vertices.assign(1, dense.front());
    Thinning thinning{dense, vertices, spacing * spacing};
    std::size_t from = 1;
    for (const std::size_t corner : corners) {
        ThinStretch(thinning, from, corner);
        from = corner + 1;
    }
    FixEnd(thinning);
}
