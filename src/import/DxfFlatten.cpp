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
constexpr double HopelessMiss = 0.02; ///< where a chord misses by as much, a longer one won't do better

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
    bool Forced = false; ///< a chord had to be taken that doesn't fit

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
/// when none fits (t.Forced then); last + 1 when none is far enough.
std::size_t NextVertex(Thinning& t, const PlanePoint& from, std::size_t first, std::size_t last)
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
            t.Forced = true;
            return j;
        }
    }
    return best;
}

/// How a dense point is best reached: the smallest error of the worst chord, then the fewest chords.
struct BestWay {
    double Worst = HUGE_VAL; ///< squared; the tolerance when all is well
    std::size_t Chords = 0;
    std::size_t From = 0;
};

/// Tries every chord from way point i; way point 0 is `start`, k stands for dense point first + k - 1.
void TryChords(const Thinning& t, const PlanePoint& start, std::size_t first, std::size_t i,
               std::vector<BestWay>& ways)
{
    const auto point = [&](std::size_t k) -> const PlanePoint& {
        return k == 0 ? start : t.Dense[first + k - 1];
    };
    bool any = false;
    for (std::size_t j = i + 1; j < ways.size() && j - i <= (any ? LookAhead : 4 * LookAhead); ++j) {
        if (!t.Apart(point(i), point(j))) {
            continue;
        }
        any = true;
        double miss = ThinError * ThinError;
        for (std::size_t k = i + 1; k < j; ++k) {
            miss = std::max(miss, SquaredMiss(point(k), point(i), point(j)));
        }
        const double worst = std::max(miss, ways[i].Worst);
        if (worst < ways[j].Worst || (worst <= ways[j].Worst && ways[i].Chords + 1 < ways[j].Chords)) {
            ways[j] = {worst, ways[i].Chords + 1, i};
        }
        if (miss > HopelessMiss * HopelessMiss) {
            break;
        }
    }
}

/// The careful choice for a stretch with bends as small as the spacing: of all ways from the vertex chosen last to the
/// stretch's end the best one. False, and nothing chosen, when there is none.
bool ChooseBestWay(Thinning& t, std::size_t first, std::size_t last)
{
    const PlanePoint start = t.Vertices.back();
    std::vector<BestWay> ways(last - first + 2);
    ways[0].Worst = 0.0;
    for (std::size_t i = 0; i + 1 < ways.size(); ++i) {
        if (ways[i].Worst < HUGE_VAL) {
            TryChords(t, start, first, i, ways);
        }
    }
    if (!(ways.back().Worst < HUGE_VAL)) {
        return false;
    }
    const std::size_t before = t.Vertices.size();
    for (std::size_t i = ways.size() - 1; i > 0; i = ways[i].From) {
        t.Vertices.push_back(t.Dense[first + i - 1]);
    }
    std::reverse(t.Vertices.begin() + static_cast<std::ptrdiff_t>(before), t.Vertices.end());
    return true;
}

/// Chooses vertices of the stretch first .. last behind the vertex chosen last: the farthest one at each step, or with
/// care when that doesn't come out. The stretch's end becomes a vertex unless it is too close to the others. Returns
/// where the next stretch begins: at `first` again when this one is too short for a vertex.
std::size_t ThinStretch(Thinning& t, std::size_t first, std::size_t last)
{
    const std::size_t before = t.Vertices.size();
    std::size_t at = first;
    t.Forced = false;
    while (at <= last) {
        const std::size_t next = NextVertex(t, t.Vertices.back(), at, last);
        if (next > last) {
            break;
        }
        t.Vertices.push_back(t.Dense[next]);
        at = next + 1;
    }
    if (at > last && !t.Forced) {
        return last + 1; // the end itself was chosen, and every chord fits
    }
    const std::vector<PlanePoint> plain(t.Vertices.begin() + static_cast<std::ptrdiff_t>(before),
                                        t.Vertices.end());
    t.Vertices.resize(before);
    if (ChooseBestWay(t, first, last)) {
        return last + 1;
    }
    if (plain.empty()) {
        return first;
    }
    t.Vertices.insert(t.Vertices.end(), plain.begin(), plain.end());
    while (t.Vertices.size() > before && !t.Apart(t.Vertices.back(), t.Dense[last])) {
        t.Vertices.pop_back();
    }
    if (t.Apart(t.Vertices.back(), t.Dense[last])) {
        t.Vertices.push_back(t.Dense[last]);
    }
    return last + 1;
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
        from = ThinStretch(thinning, from, corner);
    }
    FixEnd(thinning);
}
