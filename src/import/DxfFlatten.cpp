// Bezier pieces to vertices, in three steps: points of the curve so dense that the chords between them follow it well within
// the tolerance, then as few of these as the rest of the tolerance allows, kept apart, then as many chords of even size.
#include "import/DxfCurves.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

/// Together below the 0.005 that is promised; the rest is for the rounding to 32-bit floats.
constexpr double DenseError = 0.001;
constexpr double ThinError = 0.0033;

/// In bends about as tight as the vertices are apart, the choice needs points that are denser still.
constexpr double FineError = 0.0002;
constexpr double FineShare = 0.05; ///< of the chord's length

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
    const double allowed = std::clamp(FineShare * std::sqrt(SquaredDistance(a, b)), FineError, DenseError);
    for (int i = 1; i < degree; ++i) {
        if (SquaredMiss(Place(piece[static_cast<std::size_t>(i)]), a, b) > allowed * allowed) {
            return false;
        }
    }
    return true;
}

/// Points of a curve and where they lie on it: number of the piece + parameter within it.
struct DenseCurve {
    std::vector<PlanePoint> Points;
    std::vector<double> Places;
};

/// Adds the points of a piece but its first one; it covers the places from .. to.
void AddDensePoints(Piece& piece, int degree, double from, double to, int splits, std::int64_t& budget,
                    DenseCurve& dense)
{
    const auto last = static_cast<std::size_t>(degree);
    if (splits == 0 || budget <= 0 || IsFlat(piece, degree)) {
        dense.Points.push_back(Place(piece[last]));
        dense.Places.push_back(to);
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
    const double middle = (from + to) / 2.0;
    AddDensePoints(left, degree, from, middle, splits - 1, budget, dense);
    AddDensePoints(piece, degree, middle, to, splits - 1, budget, dense);
}

/// Thinning state: dense points, and the numbers of those chosen so far (never empty).
struct Thinning {
    const std::vector<PlanePoint>& Dense;
    std::vector<std::size_t>& Chosen;
    double SquaredSpacing;
    bool Forced = false; ///< a chord had to be taken that doesn't fit

    bool Apart(std::size_t a, std::size_t b) const
    {
        return SquaredDistance(Dense[a], Dense[b]) > SquaredSpacing;
    }
};

/// True when the straight piece a-b stays near all dense points of first .. end - 1.
bool ChordFits(const std::vector<PlanePoint>& dense, const PlanePoint& a, const PlanePoint& b,
               std::size_t first, std::size_t end)
{
    for (std::size_t i = first; i < end; ++i) {
        if (SquaredMiss(dense[i], a, b) > ThinError * ThinError) {
            return false;
        }
    }
    return true;
}

/// The farthest dense point up to `last` to which the chord from `from` still fits; the first one far enough away when
/// none fits (t.Forced then); last + 1 when none is far enough.
std::size_t NextVertex(Thinning& t, std::size_t from, std::size_t last)
{
    std::size_t best = last + 1;
    for (std::size_t j = from + 1; j <= last; ++j) {
        const bool any = best <= last;
        if (any && j - from > LookAhead) {
            break;
        }
        const bool apart = t.Apart(from, j);
        const bool fits = j - from <= LookAhead && ChordFits(t.Dense, t.Dense[from], t.Dense[j], from + 1, j);
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

/// Tries every chord from way point i; way point k stands for dense point start + k.
void TryChords(const Thinning& t, std::size_t start, std::size_t i, std::vector<BestWay>& ways)
{
    bool any = false;
    for (std::size_t j = i + 1; j < ways.size() && j - i <= (any ? LookAhead : 4 * LookAhead); ++j) {
        if (!t.Apart(start + i, start + j)) {
            continue;
        }
        any = true;
        double miss = ThinError * ThinError;
        for (std::size_t k = i + 1; k < j; ++k) {
            miss = std::max(miss, SquaredMiss(t.Dense[start + k], t.Dense[start + i], t.Dense[start + j]));
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
bool ChooseBestWay(Thinning& t, std::size_t last)
{
    const std::size_t start = t.Chosen.back();
    std::vector<BestWay> ways(last - start + 1);
    ways[0].Worst = 0.0;
    for (std::size_t i = 0; i + 1 < ways.size(); ++i) {
        if (ways[i].Worst < HUGE_VAL) {
            TryChords(t, start, i, ways);
        }
    }
    if (!(ways.back().Worst < HUGE_VAL)) {
        return false;
    }
    const std::size_t before = t.Chosen.size();
    for (std::size_t i = ways.size() - 1; i > 0; i = ways[i].From) {
        t.Chosen.push_back(start + i);
    }
    std::reverse(t.Chosen.begin() + static_cast<std::ptrdiff_t>(before), t.Chosen.end());
    return true;
}

/// Chooses vertices of the stretch behind the vertex chosen last: the farthest one at each step, or with care when that
/// doesn't come out. The stretch's end becomes a vertex unless it is too close to the others.
void ThinStretch(Thinning& t, std::size_t last)
{
    const std::size_t before = t.Chosen.size();
    t.Forced = false;
    while (t.Chosen.back() < last) {
        const std::size_t next = NextVertex(t, t.Chosen.back(), last);
        if (next > last) {
            break;
        }
        t.Chosen.push_back(next);
    }
    if (t.Chosen.back() == last && !t.Forced) {
        return; // the end itself was chosen, and every chord fits
    }
    const std::vector<std::size_t> plain(t.Chosen.begin() + static_cast<std::ptrdiff_t>(before),
                                         t.Chosen.end());
    t.Chosen.resize(before);
    if (ChooseBestWay(t, last)) {
        return;
    }
    t.Chosen.insert(t.Chosen.end(), plain.begin(), plain.end());
    while (t.Chosen.size() > before && !t.Apart(t.Chosen.back(), last)) {
        t.Chosen.pop_back();
    }
    if (!plain.empty() && t.Apart(t.Chosen.back(), last)) {
        t.Chosen.push_back(last);
    }
}

/// The curve's end is exact, whatever must go for it.
void FixEnd(Thinning& t)
{
    const std::size_t end = t.Dense.size() - 1;
    if (t.Chosen.back() == end) {
        return;
    }
    while (t.Chosen.size() > 1 && !t.Apart(t.Chosen.back(), end)) {
        t.Chosen.pop_back();
    }
    t.Chosen.push_back(end);
}

/// True when the curve doesn't leave the neighbourhood of its end behind dense point `from`.
bool StaysAtEnd(const Thinning& t, std::size_t from)
{
    const std::size_t end = t.Dense.size() - 1;
    while (from < end && !t.Apart(from, end)) {
        ++from;
    }
    return from == end;
}

/// A stretch between two vertices that stay, to be divided anew.
struct Stretch {
    const CurvePieces& Pieces;
    const DenseCurve& Curve;
    double SquaredSpacing;
    std::size_t First = 0; ///< dense points
    std::size_t Last = 0;
    std::vector<double> Effort; ///< for First .. Last, rising from 0
};

PlanePoint PointAt(const CurvePieces& pieces, double place)
{
    const std::size_t number = std::min(static_cast<std::size_t>(place), pieces.Joins.size() - 1);
    const double t = place - static_cast<double>(number);
    const auto degree = static_cast<std::size_t>(pieces.Degree);
    Piece p;
    std::copy_n(pieces.Points.begin() + static_cast<std::ptrdiff_t>(number * (degree + 1)), degree + 1,
                p.begin());
    for (std::size_t level = degree; level > 0; --level) {
        for (std::size_t i = 0; i < level; ++i) {
            p[i] = {p[i].X + (p[i + 1].X - p[i].X) * t, p[i].Y + (p[i + 1].Y - p[i].Y) * t,
                    p[i].W + (p[i + 1].W - p[i].W) * t};
        }
    }
    return Place(p[0]);
}

double Curvature(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c)
{
    const double ax = b.X - a.X;
    const double ay = b.Y - a.Y;
    const double bx = c.X - b.X;
    const double by = c.Y - b.Y;
    const double length = PlaneLength(ax, ay) + PlaneLength(bx, by);
    return length > 0.0 ? 2.0 * std::atan2(std::fabs(ax * by - ay * bx), ax * bx + ay * by) / length : 0.0;
}

/// Chords of one error have one length times root of the curvature: the sums of that.
void MeasureEffort(Stretch& s)
{
    const std::vector<PlanePoint>& dense = s.Curve.Points;
    s.Effort.assign(1, 0.0);
    double before = 0.0;
    for (std::size_t i = s.First; i < s.Last; ++i) {
        const double after = i + 1 < s.Last ? Curvature(dense[i], dense[i + 1], dense[i + 2]) : before;
        const double curvature = i == s.First ? after : (before + after) / 2.0;
        const double length = std::sqrt(SquaredDistance(dense[i], dense[i + 1]));
        s.Effort.push_back(s.Effort.back() + length * std::sqrt(curvature));
        before = after;
    }
}

/// Divides the stretch into that many chords of the same effort. False, and nothing added, when one of them is too short
/// or misses the curve.
bool DivideEvenly(const Stretch& s, std::size_t chords, std::vector<PlanePoint>& vertices)
{
    const std::vector<PlanePoint>& dense = s.Curve.Points;
    const std::size_t before = vertices.size();
    std::size_t step = s.First; // from this dense point to the next
    std::size_t passed = s.First + 1;
    PlanePoint from = dense[s.First];
    for (std::size_t n = 1; n <= chords; ++n) {
        PlanePoint to = dense[s.Last];
        std::size_t end = s.Last;
        if (n < chords) {
            const double target = s.Effort.back() * static_cast<double>(n) / static_cast<double>(chords);
            while (step + 1 < s.Last && s.Effort[step + 1 - s.First] < target) {
                ++step;
            }
            const double low = s.Effort[step - s.First];
            const double span = s.Effort[step + 1 - s.First] - low;
            const double part = span > 0.0 ? std::clamp((target - low) / span, 0.0, 1.0) : 0.0;
            to = PointAt(s.Pieces,
                         s.Curve.Places[step] + part * (s.Curve.Places[step + 1] - s.Curve.Places[step]));
            end = step + 1;
        }
        if (!(SquaredDistance(from, to) > s.SquaredSpacing) || !ChordFits(dense, from, to, passed, end)) {
            vertices.resize(before);
            return false;
        }
        vertices.push_back(to);
        from = to;
        passed = end;
    }
    return true;
}

/// The chosen points as vertices. The last chord of a stretch is often a short rest, which hurts the compensation of a
/// tool at tight tips: where the curve allows it, as many chords of even size take their place, or one more.
void PlaceVertices(Stretch& s, const std::vector<std::size_t>& chosen,
                   const std::vector<std::size_t>& corners, std::vector<PlanePoint>& vertices)
{
    vertices.assign(1, s.Curve.Points[chosen.front()]);
    for (std::size_t first = 0; first + 1 < chosen.size();) {
        std::size_t last = first + 1;
        while (last + 1 < chosen.size() &&
               !std::binary_search(corners.begin(), corners.end(), chosen[last])) {
            ++last;
        }
        s.First = chosen[first];
        s.Last = chosen[last];
        const std::size_t chords = last - first;
        if (chords > 1) {
            MeasureEffort(s);
        }
        if (chords == 1 || !(DivideEvenly(s, chords, vertices) || DivideEvenly(s, chords + 1, vertices))) {
            for (std::size_t i = first + 1; i <= last; ++i) {
                vertices.push_back(s.Curve.Points[chosen[i]]);
            }
        }
        first = last;
    }
}

} // namespace

void FlattenPieces(const CurvePieces& pieces, std::size_t first, std::size_t last, double spacing,
                   std::int64_t& budget, std::vector<PlanePoint>& vertices)
{
    const auto stride = static_cast<std::size_t>(pieces.Degree) + 1;
    DenseCurve curve;
    std::vector<std::size_t> corners; // dense points that stay
    curve.Points.push_back(Place(pieces.Points[first * stride]));
    curve.Places.push_back(static_cast<double>(first));
    for (std::size_t i = first; i < last; ++i) {
        if (i > first && pieces.Joins[i] == PieceJoin::Corner) {
            corners.push_back(curve.Points.size() - 1);
        }
        Piece piece;
        std::copy_n(pieces.Points.begin() + static_cast<std::ptrdiff_t>(i * stride), stride, piece.begin());
        const auto place = static_cast<double>(i);
        AddDensePoints(piece, pieces.Degree, place, place + 1.0, MaxSplits, budget, curve);
    }
    std::vector<std::size_t> chosen(1, 0);
    Thinning thinning{curve.Points, chosen, spacing * spacing};
    while (!corners.empty() && StaysAtEnd(thinning, corners.back())) {
        corners.pop_back();
    }
    corners.push_back(curve.Points.size() - 1);
    for (const std::size_t corner : corners) {
        ThinStretch(thinning, corner);
    }
    FixEnd(thinning);
    Stretch stretch{pieces, curve, spacing * spacing, 0, 0, {}};
    PlaceVertices(stretch, chosen, corners, vertices);
}
