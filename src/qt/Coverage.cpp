#include "qt/Coverage.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double Full = 255.0;
constexpr double AlongAxis = 0.05;      ///< pixels that a line along an axis may lean
constexpr double AlongAxisSlope = 0.02; ///< and how much of its length: short chords of a curve stay smooth
constexpr double Meeting = 0.25;        ///< pixels between the end of a stroke and the start of its successor
constexpr double StraightOn = 0.94;     ///< cosine of the turn that needs no closing
constexpr double ChordError = 0.06;     ///< pixels between an arc and its chords
constexpr int MostChords = 20000;       ///< of one arc: more than any image needs
constexpr double LargeRadius = 1000.0; ///< pixels; arcs beyond are cut to the image before they are flattened
constexpr double Margin = 4.0;         ///< pixels around the image in which strokes are still worked out

struct Segment {
    double X1, Y1, X2, Y2;
};

void AddCell(CoverageMask& mask, std::size_t cell, int amount)
{
    std::uint8_t& value = mask.Cells[cell];
    if (value == 0) {
        mask.Touched.push_back(static_cast<std::uint32_t>(cell));
    }
    value = static_cast<std::uint8_t>(std::min(255, value + amount));
}

/// Adds `share` (0 to 1) of a pixel.
void Add(CoverageMask& mask, int x, int y, double share)
{
    const int amount = static_cast<int>(share * Full + 0.5);
    if (amount > 0 && x >= 0 && y >= 0 && x < mask.Width && y < mask.Height) {
        AddCell(mask,
                static_cast<std::size_t>(y) * static_cast<std::size_t>(mask.Width) +
                    static_cast<std::size_t>(x),
                amount);
    }
}

/// Covers whole pixels from (left, top) to before (right, bottom).
void AddRectangle(CoverageMask& mask, int left, int top, int right, int bottom)
{
    left = std::max(left, 0);
    right = std::min(right, mask.Width);
    for (int y = std::max(top, 0); y < std::min(bottom, mask.Height); ++y) {
        const std::size_t row = static_cast<std::size_t>(y) * static_cast<std::size_t>(mask.Width);
        for (int x = left; x < right; ++x) {
            AddCell(mask, row + static_cast<std::size_t>(x), 255);
        }
    }
}

int Floor(double value)
{
    return static_cast<int>(std::floor(value));
}

/// The part of a line between two ends that lies in the band low .. high, as shares of its length; false when none does.
bool CutToBand(double start, double delta, double low, double high, double& from, double& to)
{
    if (delta == 0.0) {
        return start >= low && start <= high;
    }
    const double a = (low - start) / delta;
    const double b = (high - start) / delta;
    from = std::max(from, std::min(a, b));
    to = std::min(to, std::max(a, b));
    return from <= to;
}

/// The shares of a line between which it can be seen; false when it can't.
bool CutToImage(const CoverageMask& mask, const Segment& s, double margin, double& from, double& to)
{
    const double right = mask.Width + margin;
    const double bottom = mask.Height + margin;
    from = 0.0;
    to = 1.0;
    if (std::min(s.X1, s.X2) >= -margin && std::max(s.X1, s.X2) <= right && std::min(s.Y1, s.Y2) >= -margin &&
        std::max(s.Y1, s.Y2) <= bottom) {
        return true;
    }
    return CutToBand(s.X1, s.X2 - s.X1, -margin, right, from, to) &&
           CutToBand(s.Y1, s.Y2 - s.Y1, -margin, bottom, from, to);
}

/// The piece of a line between two shares. Rounding of huge coordinates can't leave the image's surroundings.
Segment PieceOf(const CoverageMask& mask, const Segment& s, double margin, double from, double to)
{
    const auto clampX = [&](double x) { return std::clamp(x, -margin, mask.Width + margin); };
    const auto clampY = [&](double y) { return std::clamp(y, -margin, mask.Height + margin); };
    Segment piece = s;
    if (from > 0.0) {
        piece.X1 = s.X1 + from * (s.X2 - s.X1);
        piece.Y1 = s.Y1 + from * (s.Y2 - s.Y1);
    }
    if (to < 1.0) {
        piece.X2 = s.X1 + to * (s.X2 - s.X1);
        piece.Y2 = s.Y1 + to * (s.Y2 - s.Y1);
    }
    return {clampX(piece.X1), clampY(piece.Y1), clampX(piece.X2), clampY(piece.Y2)};
}

/// A piece along an axis in whole pixels. `cap`: pixels that it reaches beyond its ends.
void CoverStraight(CoverageMask& mask, int width, const Segment& s, bool horizontal, double cap)
{
    const double half = width / 2.0;
    const double across = horizontal ? s.Y1 : s.X1;
    const double low = horizontal ? std::min(s.X1, s.X2) : std::min(s.Y1, s.Y2);
    const double high = horizontal ? std::max(s.X1, s.X2) : std::max(s.Y1, s.Y2);
    const int side = Floor(across - half + 0.5);
    const int first = Floor(low - cap + 0.5);
    const int last = Floor(high + cap + 0.5);
    if (horizontal) {
        AddRectangle(mask, first, side, last, side + width);
    } else {
        AddRectangle(mask, side, first, side + width, last);
    }
}

/// A smooth piece, at least as wide as high when not `steep` (else with x and y exchanged): column by column the share of
/// each pixel between its two edges. The ends are cut along the columns, so that pieces that follow fit together.
template <bool steep> void CoverSmooth(CoverageMask& mask, int width, Segment s)
{
    if (s.X1 > s.X2) {
        std::swap(s.X1, s.X2);
        std::swap(s.Y1, s.Y2);
    }
    const double length = s.X2 - s.X1;
    if (!(length > 0.0)) {
        return;
    }
    const double slope = (s.Y2 - s.Y1) / length;
    const double half = 0.5 * width * std::sqrt(1.0 + slope * slope);
    const auto add = [&mask](int column, int row, double share) {
        steep ? Add(mask, row, column, share) : Add(mask, column, row, share);
    };
    for (int column = Floor(s.X1); column < s.X2; ++column) {
        const double left = std::max(s.X1, static_cast<double>(column));
        const double right = std::min(s.X2, column + 1.0);
        const double share = right - left;
        const double middle = s.Y1 + slope * ((left + right) / 2 - s.X1);
        const double low = middle - half;
        const double high = middle + half;
        const int firstRow = Floor(low);
        const int lastRow = Floor(high);
        add(column, firstRow, share * (std::min(high, firstRow + 1.0) - low));
        for (int row = firstRow + 1; row < lastRow; ++row) {
            add(column, row, share);
        }
        if (lastRow > firstRow) {
            add(column, lastRow, share * (high - lastRow));
        }
    }
}

/// A piece in whole pixels, each column's once.
template <bool steep> void CoverHard(CoverageMask& mask, int width, Segment s)
{
    if (s.X1 > s.X2) {
        std::swap(s.X1, s.X2);
        std::swap(s.Y1, s.Y2);
    }
    const double length = s.X2 - s.X1;
    const double slope = length > 0.0 ? (s.Y2 - s.Y1) / length : 0.0;
    for (int column = Floor(s.X1); column <= s.X2; ++column) {
        const double at = std::clamp(column + 0.5, s.X1, s.X2);
        const int row = Floor(s.Y1 + slope * (at - s.X1) - width / 2.0 + 0.5);
        steep ? AddRectangle(mask, row, column, row + width, column + 1)
              : AddRectangle(mask, column, row, column + 1, row + width);
    }
}

void CoverOblique(CoverageMask& mask, const StrokeStyle& style, const Segment& s)
{
    const bool steep = std::fabs(s.Y2 - s.Y1) > std::fabs(s.X2 - s.X1);
    const Segment turned{s.Y1, s.X1, s.Y2, s.X2};
    if (style.Smooth) {
        steep ? CoverSmooth<true>(mask, style.Width, turned) : CoverSmooth<false>(mask, style.Width, s);
    } else {
        steep ? CoverHard<true>(mask, style.Width, turned) : CoverHard<false>(mask, style.Width, s);
    }
}

/// A round joint. It fills up what is there: where the strokes are already, nothing is added.
void CoverJoint(CoverageMask& mask, int width, double x, double y)
{
    const double reach = width / 2.0 + 0.5;
    if (!(x > -reach && y > -reach && x < mask.Width + reach && y < mask.Height + reach)) {
        return;
    }
    for (int row = Floor(y - reach); row <= Floor(y + reach); ++row) {
        for (int column = Floor(x - reach); column <= Floor(x + reach); ++column) {
            const double share = std::clamp(reach - std::hypot(column + 0.5 - x, row + 0.5 - y), 0.0, 1.0);
            if (column >= 0 && row >= 0 && column < mask.Width && row < mask.Height) {
                const std::size_t cell =
                    static_cast<std::size_t>(row) * static_cast<std::size_t>(mask.Width) +
                    static_cast<std::size_t>(column);
                const int lacking = static_cast<int>(share * Full + 0.5) - mask.Cells[cell];
                if (lacking > 0) {
                    AddCell(mask, cell, lacking);
                }
            }
        }
    }
}

bool Near(double x1, double y1, double x2, double y2)
{
    return std::fabs(x1 - x2) < Meeting && std::fabs(y1 - y2) < Meeting;
}

/// Two directions between which strokes leave a corner open. Lines along the axes reach over it.
bool LeaveCorner(double x1, double y1, double x2, double y2)
{
    const bool alongAxes = (x1 == 0.0 || y1 == 0.0) && (x2 == 0.0 || y2 == 0.0);
    const bool otherWay = (std::fabs(x1) < std::fabs(y1)) != (std::fabs(x2) < std::fabs(y2));
    return !alongAxes && (otherWay || x1 * x2 + y1 * y2 < StraightOn);
}

/// The chain that a stroke of this width and start goes on with, or a new one.
StrokeChain& ChainAt(CoverageMask& mask, int width, double x, double y, bool& found)
{
    for (std::size_t i = 0; i < mask.Chains.size(); ++i) {
        const std::size_t index = (mask.LastChain + mask.Chains.size() - i) % mask.Chains.size();
        const StrokeChain& chain = mask.Chains[index];
        if (chain.Width == width && Near(chain.X, chain.Y, x, y)) {
            found = true;
            mask.LastChain = index;
            return mask.Chains[index];
        }
    }
    found = false;
    mask.LastChain = (mask.LastChain + 1) % mask.Chains.size();
    return mask.Chains[mask.LastChain];
}

/// Closes the corners between a stroke that was just laid and the strokes that it goes on from and ends at.
void JoinStroke(CoverageMask& mask, int width, const Segment& s, double directionX, double directionY)
{
    bool found = false;
    StrokeChain& chain = ChainAt(mask, width, s.X1, s.Y1, found);
    if (!found) {
        chain = {width, s.X2, s.Y2, directionX, directionY, s.X1, s.Y1, directionX, directionY};
        return;
    }
    if (LeaveCorner(chain.DirectionX, chain.DirectionY, directionX, directionY)) {
        CoverJoint(mask, width, s.X1, s.Y1);
    }
    if (Near(chain.StartX, chain.StartY, s.X2, s.Y2) &&
        LeaveCorner(directionX, directionY, chain.StartDirectionX, chain.StartDirectionY)) {
        CoverJoint(mask, width, s.X2, s.Y2);
    }
    chain.X = s.X2;
    chain.Y = s.Y2;
    chain.DirectionX = directionX;
    chain.DirectionY = directionY;
}

/// How a line lies.
struct Lie {
    bool Horizontal = false;
    bool Vertical = false;
};

Lie LieOf(const Segment& s)
{
    const double width = std::fabs(s.X2 - s.X1);
    const double height = std::fabs(s.Y2 - s.Y1);
    Lie lie;
    lie.Horizontal = height < AlongAxis && height <= AlongAxisSlope * width;
    lie.Vertical = !lie.Horizontal && width < AlongAxis && width <= AlongAxisSlope * height;
    return lie;
}

void CoverPiece(CoverageMask& mask, const StrokeStyle& style, const Segment& piece, Lie lie, double cap)
{
    if (lie.Horizontal || lie.Vertical) {
        CoverStraight(mask, style.Width, piece, lie.Horizontal, cap);
    } else {
        CoverOblique(mask, style, piece);
    }
}

/// The dashes of the part between two shares of a line. `travelled`: pixels of the stroke ahead of the line.
void CoverDashes(CoverageMask& mask, const StrokeStyle& style, const Segment& s, Lie lie, double margin,
                 double from, double to, double travelled)
{
    const double length = std::hypot(s.X2 - s.X1, s.Y2 - s.Y1);
    const double period = style.DashOn + style.DashOff;
    const double end = to * length;
    const double phase = std::fmod(travelled + from * length, period);
    // Counted from the first dash: adding to a huge length might not move it.
    const int dashes = static_cast<int>((end - from * length + phase) / period) + 1;
    const double first = from * length - phase;
    for (int i = 0; i < dashes; ++i) {
        const double dashStart = std::max(from * length, first + i * period);
        const double dashEnd = std::min(end, first + i * period + style.DashOn);
        if (dashEnd > dashStart) {
            CoverPiece(mask, style, PieceOf(mask, s, margin, dashStart / length, dashEnd / length), lie, 0.0);
        }
    }
}

bool IsFinite(const Segment& s)
{
    return std::isfinite(s.X1) && std::isfinite(s.Y1) && std::isfinite(s.X2) && std::isfinite(s.Y2) &&
           std::isfinite(s.X2 - s.X1) && std::isfinite(s.Y2 - s.Y1);
}

void CoverSegment(CoverageMask& mask, const StrokeStyle& style, Segment s, double travelled)
{
    if (!IsFinite(s)) {
        return;
    }
    const Lie lie = LieOf(s);
    if (lie.Horizontal) {
        s.Y1 = s.Y2 = (s.Y1 + s.Y2) / 2;
    } else if (lie.Vertical) {
        s.X1 = s.X2 = (s.X1 + s.X2) / 2;
    }
    const double margin = Margin + style.Width;
    double from = 0.0;
    double to = 1.0;
    const bool seen = CutToImage(mask, s, margin, from, to);
    const double length = std::hypot(s.X2 - s.X1, s.Y2 - s.Y1);
    if (style.DashOn > 0.0 && length > 0.0) {
        if (seen) {
            CoverDashes(mask, style, s, lie, margin, from, to, travelled);
        }
        return;
    }
    if (seen) {
        CoverPiece(mask, style, PieceOf(mask, s, margin, from, to), lie, style.Width / 2.0);
    }
    if (style.Smooth && length > 0.0) {
        JoinStroke(mask, style.Width, s, (s.X2 - s.X1) / length, (s.Y2 - s.Y1) / length);
    }
}

double PointX(const PixelArc& arc, double angle)
{
    return arc.CentreX + arc.RadiusX * std::cos(angle);
}

double PointY(const PixelArc& arc, double angle)
{
    return arc.CentreY + arc.RadiusY * std::sin(angle);
}

/// The chords of the part of an arc from `from` to `to`, angles after its start.
void CoverChords(CoverageMask& mask, const StrokeStyle& style, const PixelArc& arc, double from, double to)
{
    const double radius = std::max(std::fabs(arc.RadiusX), std::fabs(arc.RadiusY));
    const double step = radius > ChordError ? 2 * std::sqrt(2 * ChordError / radius) : std::numbers::pi / 4;
    const double wanted = std::ceil((to - from) / std::min(step, std::numbers::pi / 4));
    const int count = static_cast<int>(std::clamp(wanted, 1.0, static_cast<double>(MostChords)));
    double x = PointX(arc, arc.Start + from);
    double y = PointY(arc, arc.Start + from);
    double travelled = from * radius;
    for (int i = 1; i <= count; ++i) {
        const double angle = arc.Start + from + (to - from) * i / count;
        const double nextX = PointX(arc, angle);
        const double nextY = PointY(arc, angle);
        CoverSegment(mask, style, {x, y, nextX, nextY}, travelled);
        travelled += std::hypot(nextX - x, nextY - y);
        x = nextX;
        y = nextY;
    }
}

/// Keeps an angle at which the whole ellipse crosses a border of the image, counted from the start, if the arc has it.
void AddCrossing(const PixelArc& arc, double angle, std::array<double, 10>& crossings, std::size_t& count)
{
    constexpr double Turn = 2 * std::numbers::pi;
    double after = std::fmod(angle - arc.Start, Turn);
    after = after < 0.0 ? after + Turn : after;
    if (after < arc.Sweep) {
        crossings[count++] = after;
    }
}

/// An arc that may be far larger than the image: only what is between the crossings with its borders, where it's inside.
void CoverLargeArc(CoverageMask& mask, const StrokeStyle& style, const PixelArc& arc)
{
    const double margin = Margin + style.Width;
    std::array<double, 10> crossings{};
    std::size_t count = 0;
    crossings[count++] = 0.0;
    for (const double border : {-margin, mask.Width + margin}) {
        const double cosine = (border - arc.CentreX) / arc.RadiusX;
        if (std::fabs(cosine) <= 1.0) {
            AddCrossing(arc, std::acos(cosine), crossings, count);
            AddCrossing(arc, -std::acos(cosine), crossings, count);
        }
    }
    for (const double border : {-margin, mask.Height + margin}) {
        const double sine = (border - arc.CentreY) / arc.RadiusY;
        if (std::fabs(sine) <= 1.0) {
            AddCrossing(arc, std::asin(sine), crossings, count);
            AddCrossing(arc, std::numbers::pi - std::asin(sine), crossings, count);
        }
    }
    crossings[count++] = arc.Sweep;
    std::sort(crossings.begin(), crossings.begin() + static_cast<std::ptrdiff_t>(count));
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const double middle = arc.Start + (crossings[i] + crossings[i + 1]) / 2;
        const double x = PointX(arc, middle);
        const double y = PointY(arc, middle);
        if (x >= -margin && y >= -margin && x <= mask.Width + margin && y <= mask.Height + margin) {
            CoverChords(mask, style, arc, crossings[i], crossings[i + 1]);
        }
    }
}
} // namespace

void ResizeMask(CoverageMask& mask, int width, int height)
{
    mask = CoverageMask();
    mask.Width = width;
    mask.Height = height;
    mask.Cells.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
}

void EmptyMask(CoverageMask& mask)
{
    for (const std::uint32_t cell : mask.Touched) {
        mask.Cells[cell] = 0;
    }
    mask.Touched.clear();
    mask.Chains = {};
}

void CoverLine(CoverageMask& mask, const StrokeStyle& style, double x1, double y1, double x2, double y2)
{
    CoverSegment(mask, style, {x1, y1, x2, y2}, 0.0);
}

void CoverArc(CoverageMask& mask, const StrokeStyle& style, const PixelArc& arc)
{
    if (!std::isfinite(arc.CentreX) || !std::isfinite(arc.CentreY) || !std::isfinite(arc.RadiusX) ||
        !std::isfinite(arc.RadiusY) || !std::isfinite(arc.Start) || !std::isfinite(arc.Sweep)) {
        return;
    }
    if (std::max(std::fabs(arc.RadiusX), std::fabs(arc.RadiusY)) > LargeRadius) {
        CoverLargeArc(mask, style, arc);
    } else {
        CoverChords(mask, style, arc, 0.0, arc.Sweep);
    }
}
