#include "qt/Coverage.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double Full = 255.0;
constexpr double AlongAxis = 0.05;      ///< pixels that a line along an axis may lean
constexpr double AlongAxisSlope = 0.02; ///< and how much of its length: short chords of a curve stay smooth
constexpr double Meeting = 0.25;        ///< pixels between the end of a stroke and the start of its successor
constexpr double StraightOn = 0.94;     ///< cosine of the turn that needs no closing

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

/// A share of a pixel as the mask counts it, rounded; what is below zero is none. Called for every pixel, where the
/// library's rounding would cost.
int AmountOf(double share)
{
    const double amount = share * Full + 0.5;
    return static_cast<int>(amount);
}

/// Adds `share` (0 to 1) of a pixel.
void Add(CoverageMask& mask, int x, int y, double share)
{
    const int amount = AmountOf(share);
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

/// For values near the image: the library's own floor is a call where the processor's can't be taken for granted.
int Floor(double value)
{
    const int cut = static_cast<int>(value);
    return cut - (value < cut ? 1 : 0);
}

/// Without the care of std::hypot for lengths whose squares are no numbers: pixels are far from those.
double Distance(double dx, double dy)
{
    return std::sqrt(dx * dx + dy * dy);
}

/// Moves an end that lies outside the band low .. high of one coordinate to its border. The other coordinate follows from
/// the other end, so that a line along an axis keeps its own however long it is.
void CutEnd(double& along, double& across, double otherAlong, double otherAcross, double low, double high)
{
    const double border = std::clamp(along, low, high);
    if (border != along) {
        across = otherAcross + (border - otherAlong) / (along - otherAlong) * (across - otherAcross);
        along = border;
    }
}

/// Cuts a line to the image and `margin` pixels around it; false when it passes by.
bool CutToImage(const CoverageMask& mask, double margin, Segment& s)
{
    const double right = mask.Width + margin;
    const double bottom = mask.Height + margin;
    const auto passesBy = [&] {
        return std::max(s.X1, s.X2) < -margin || std::min(s.X1, s.X2) > right ||
               std::max(s.Y1, s.Y2) < -margin || std::min(s.Y1, s.Y2) > bottom;
    };
    if (passesBy()) {
        return false;
    }
    CutEnd(s.X1, s.Y1, s.X2, s.Y2, -margin, right);
    CutEnd(s.X2, s.Y2, s.X1, s.Y1, -margin, right);
    if (passesBy()) {
        return false;
    }
    CutEnd(s.Y1, s.X1, s.Y2, s.X2, -margin, bottom);
    CutEnd(s.Y2, s.X2, s.Y1, s.X1, -margin, bottom);
    s.X1 = std::clamp(s.X1, -margin, right); // huge coordinates leave rounding behind
    s.X2 = std::clamp(s.X2, -margin, right);
    return true;
}

int NearestPixel(double value)
{
    return Floor(value + 0.5 + Slip);
}

/// A piece along an axis in whole pixels. `cap`: pixels that it reaches beyond its ends.
void CoverStraight(CoverageMask& mask, int width, const Segment& s, bool horizontal, double cap)
{
    const double half = width / 2.0;
    const double across = horizontal ? s.Y1 : s.X1;
    const double low = horizontal ? std::min(s.X1, s.X2) : std::min(s.Y1, s.Y2);
    const double high = horizontal ? std::max(s.X1, s.X2) : std::max(s.Y1, s.Y2);
    const int side = NearestPixel(across - half);
    const int first = NearestPixel(low - cap);
    const int last = NearestPixel(high + cap);
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

/// Higher than wide. Diagonals are not, whatever their last digits say.
bool IsSteep(double dx, double dy)
{
    constexpr double Diagonal = 1.0001;
    return std::fabs(dy) > std::fabs(dx) * Diagonal;
}

void CoverOblique(CoverageMask& mask, const StrokeStyle& style, const Segment& s)
{
    const bool steep = IsSteep(s.X2 - s.X1, s.Y2 - s.Y1);
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
    const int left = std::max(Floor(x - reach), 0);
    const int right = std::min(Floor(x + reach), mask.Width - 1);
    const int bottom = std::min(Floor(y + reach), mask.Height - 1);
    for (int row = std::max(Floor(y - reach), 0); row <= bottom; ++row) {
        for (int column = left; column <= right; ++column) {
            const double share = std::min(reach - Distance(column + 0.5 - x, row + 0.5 - y), 1.0);
            const std::size_t cell = static_cast<std::size_t>(row) * static_cast<std::size_t>(mask.Width) +
                                     static_cast<std::size_t>(column);
            const int lacking = AmountOf(share) - mask.Cells[cell];
            if (lacking > 0) {
                AddCell(mask, cell, lacking);
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
    const bool otherWay = IsSteep(x1, y1) != IsSteep(x2, y2);
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

/// The dashes of the part of a line that is seen, `travelled` pixels after the start of its stroke. Counted from there:
/// adding to a huge length might not move it.
void CoverDashes(CoverageMask& mask, const StrokeStyle& style, const Segment& seen, Lie lie, double travelled)
{
    const double length = std::hypot(seen.X2 - seen.X1, seen.Y2 - seen.Y1);
    if (!(length > 0.0)) {
        return;
    }
    const double period = style.DashOn + style.DashOff;
    const double phase = std::fmod(travelled, period);
    const double stepX = (seen.X2 - seen.X1) / length;
    const double stepY = (seen.Y2 - seen.Y1) / length;
    for (double start = -phase; start < length; start += period) {
        const double from = std::max(0.0, start);
        const double to = std::min(length, start + style.DashOn);
        if (to > from) {
            CoverPiece(
                mask, style,
                {seen.X1 + from * stepX, seen.Y1 + from * stepY, seen.X1 + to * stepX, seen.Y1 + to * stepY},
                lie, 0.0);
        }
    }
}

bool IsFinite(const Segment& s)
{
    return std::isfinite(s.X1) && std::isfinite(s.Y1) && std::isfinite(s.X2) && std::isfinite(s.Y2) &&
           std::isfinite(s.X2 - s.X1) && std::isfinite(s.Y2 - s.Y1);
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

void CoverLine(CoverageMask& mask, const StrokeStyle& style, double x1, double y1, double x2, double y2,
               double travelled)
{
    Segment s{x1, y1, x2, y2};
    if (!IsFinite(s)) {
        return;
    }
    const Lie lie = LieOf(s);
    if (lie.Horizontal) {
        s.Y1 = s.Y2 = (s.Y1 + s.Y2) / 2;
    } else if (lie.Vertical) {
        s.X1 = s.X2 = (s.X1 + s.X2) / 2;
    }
    Segment piece = s;
    const bool seen = CutToImage(mask, SeenAround + style.Width, piece);
    const double length = Distance(s.X2 - s.X1, s.Y2 - s.Y1);
    if (style.DashOn > 0.0 && length > 0.0) {
        if (seen) {
            CoverDashes(mask, style, piece, lie, travelled + std::hypot(piece.X1 - s.X1, piece.Y1 - s.Y1));
        }
        return;
    }
    if (seen) {
        CoverPiece(mask, style, piece, lie, style.Width / 2.0);
    }
    if (style.Smooth && length > 0.0) {
        JoinStroke(mask, style.Width, s, (s.X2 - s.X1) / length, (s.Y2 - s.Y1) / length);
    }
}
