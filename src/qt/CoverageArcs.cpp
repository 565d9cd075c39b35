// Arcs on the mask: chords of what is in the image.
#include "qt/Coverage.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double ChordError = 0.06;    ///< pixels between an arc and its chords
constexpr double DotRadius = 0.125;    ///< pixels
constexpr int MostChords = 20000;      ///< of one arc: more than any image needs
constexpr double LevelTangent = 0.01;  ///< sine of the angle that the end of an arc may lean from an axis
constexpr double AlmostFull = 6.28;    ///< radians; a whole circle joins nothing
constexpr double LargeRadius = 1000.0; ///< pixels; arcs beyond are cut to the image before they are flattened
constexpr std::size_t MostCrossings = 10; ///< an ellipse and four borders: two each; start and end

using Crossings = std::array<double, MostCrossings>;

double PointX(const PixelArc& arc, double angle)
{
    return arc.CentreX + arc.RadiusX * std::cos(angle);
}

double PointY(const PixelArc& arc, double angle)
{
    return arc.CentreY + arc.RadiusY * std::sin(angle);
}

/// How far an end of an arc is moved, so that it meets the line along an axis that goes on from it: that covers whole
/// pixels.
struct EndShift {
    double X = 0.0;
    double Y = 0.0;
};

/// From the middle of a stroke to the middle of the whole pixels that it would cover.
double ShiftToPixels(double middle, int width)
{
    const double half = width / 2.0;
    return std::floor(middle - half + 0.5 + Slip) + half - middle;
}

EndShift ShiftOfEnd(const PixelArc& arc, double angle, int width)
{
    EndShift shift;
    if (std::fabs(std::sin(angle)) < LevelTangent) {
        shift.X = ShiftToPixels(PointX(arc, angle), width);
    } else if (std::fabs(std::cos(angle)) < LevelTangent) {
        shift.Y = ShiftToPixels(PointY(arc, angle), width);
    }
    return shift;
}

/// Angle of a chord. An arc smaller than a dot is hardly more than one stroke.
double ChordStep(double radius)
{
    const double widest = radius < DotRadius ? std::numbers::pi : std::numbers::pi / 2;
    return std::min(2 * std::sqrt(2 * ChordError / std::max(radius, ChordError)), widest);
}

/// The chords of the part of an arc from `from` to `to`, angles after its start. The shift passes from that of the start
/// to that of the end.
void CoverChords(CoverageMask& mask, const StrokeStyle& style, const PixelArc& arc, double from, double to,
                 EndShift first, EndShift last)
{
    const double radius = std::max(std::fabs(arc.RadiusX), std::fabs(arc.RadiusY));
    const double wanted = std::ceil((to - from) / ChordStep(radius));
    const int count = static_cast<int>(std::clamp(wanted, 1.0, static_cast<double>(MostChords)));
    double x = PointX(arc, arc.Start + from) + first.X;
    double y = PointY(arc, arc.Start + from) + first.Y;
    double travelled = from * radius;
    for (int i = 1; i <= count; ++i) {
        const double part = static_cast<double>(i) / count;
        const double angle = arc.Start + from + (to - from) * part;
        const double nextX = PointX(arc, angle) + first.X + (last.X - first.X) * part;
        const double nextY = PointY(arc, angle) + first.Y + (last.Y - first.Y) * part;
        CoverLine(mask, style, x, y, nextX, nextY, travelled);
        travelled += std::hypot(nextX - x, nextY - y);
        x = nextX;
        y = nextY;
    }
}

/// Keeps an angle at which the whole ellipse crosses a border of the image, counted from the start, if the arc has it.
void AddCrossing(const PixelArc& arc, double angle, Crossings& crossings, std::size_t& count)
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
    const double margin = SeenAround + style.Width;
    Crossings crossings{};
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
            CoverChords(mask, style, arc, crossings[i], crossings[i + 1], {}, {});
        }
    }
}
} // namespace

void CoverArc(CoverageMask& mask, const StrokeStyle& style, const PixelArc& arc)
{
    if (!std::isfinite(arc.CentreX) || !std::isfinite(arc.CentreY) || !std::isfinite(arc.RadiusX) ||
        !std::isfinite(arc.RadiusY) || !std::isfinite(arc.Start) || !std::isfinite(arc.Sweep)) {
        return;
    }
    if (std::max(std::fabs(arc.RadiusX), std::fabs(arc.RadiusY)) > LargeRadius) {
        CoverLargeArc(mask, style, arc);
    } else if (arc.Sweep < AlmostFull) {
        CoverChords(mask, style, arc, 0.0, arc.Sweep, ShiftOfEnd(arc, arc.Start, style.Width),
                    ShiftOfEnd(arc, arc.Start + arc.Sweep, style.Width));
    } else {
        const bool dot = std::max(std::fabs(arc.RadiusX), std::fabs(arc.RadiusY)) < DotRadius;
        CoverChords(mask, style, arc, 0.0, dot ? std::numbers::pi : arc.Sweep, {},
                    {}); // the way back adds nothing
    }
}
