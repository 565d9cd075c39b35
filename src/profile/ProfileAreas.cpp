// The part's place and box, and the signed area of each profile.
#include "profile/ElementSteps.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/ProfileSlots.h"

#include <algorithm>
#include <cmath>

namespace
{
/// The box starts inside out at these limits; a part beyond them is clipped to them.
constexpr double BoxLimit = 100000.0;

/// An arc's area is summed over chords of about sqrt(ChordRule / radius) radians each.
constexpr double ChordRule = 0.4;

/// More chords than any arc within BoxLimit needs: an arc of a broken file must not take forever.
constexpr double MaxChords = 10000.0;

struct ArcBox {
    double MaxX = 0.0;
    double MaxY = 0.0;
    double MinX = 0.0;
    double MinY = 0.0;
};

ArcBox BoxOfArc(const ProfileElement& arc)
{
    ArcBox box;
    Quadra_Arco(arc.StartX, arc.StartY, arc.EndX, arc.EndY, arc.GeoA, arc.GeoB, arc.GeoC, box.MaxX, box.MaxY,
                box.MinX, box.MinY);
    return box;
}

/// Signed area between a chord and the height refY: positive when it runs to the left.
double Trapezoid(double x, double y, double nextX, double nextY, double refY)
{
    return (x - nextX) * ((y - refY) + (nextY - refY)) / 2.0;
}

/// Start point of the element behind `slot`; the element's own end when it is the last one.
void NextStart(std::int32_t slot, double& x, double& y)
{
    if (slot < AppState.ElementCount) {
        x = ElementAt(slot + 1).StartX;
        y = ElementAt(slot + 1).StartY;
    } else {
        x = ElementAt(slot).EndX;
        y = ElementAt(slot).EndY;
    }
}

double AreaBelow(std::int32_t slot)
{
    const ProfileElement& element = ElementAt(slot);
    if (element.Kind == KindLine) {
        double nextX = 0.0;
        double nextY = 0.0;
        NextStart(slot, nextX, nextY);
        return Trapezoid(element.StartX, element.StartY, nextX, nextY, AppState.MinY);
    }
    if (element.Kind == KindArc) {
        return ArcArea(element.StartX, element.StartY, element.EndX, element.EndY, element.GeoA, element.GeoB,
                       element.GeoC, AppState.MinY);
    }
    return 0.0;
}

/// Writes the area of a profile that begins at (firstX, firstY) into its end mark; an open one has none.
void StoreArea(ProfileElement& mark, double firstX, double firstY, double area)
{
    if (!(dpp(firstX, firstY, mark.StartX, mark.StartY) < Tolerance)) {
        mark.GeoB = 0.0;
        return;
    }
    mark.GeoB = area;
    if (mark.Sense < 0) {
        mark.GeoB = 0.0 - area;
        mark.Sense = static_cast<std::int16_t>(-mark.Sense);
    }
}
} // namespace

void FindLowCorner(double& lowX, double& lowY)
{
    lowX = NoValue;
    lowY = NoValue;
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        const ProfileElement& element = ElementAt(i);
        if (element.Kind == KindLine || element.Kind == KindOuterEnd) {
            lowX = std::min(lowX, element.StartX);
            lowY = std::min(lowY, element.StartY);
        } else if (element.Kind == KindArc) {
            const ArcBox box = BoxOfArc(element);
            lowX = std::min(lowX, box.MinX);
            lowY = std::min(lowY, box.MinY);
        }
    }
    if (IsNoValue(lowX) || IsNoValue(lowY)) {
        lowX = 0.0;
        lowY = 0.0;
    }
}

void ShiftToOrigin()
{
    double lowX = 0.0;
    double lowY = 0.0;
    FindLowCorner(lowX, lowY);
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        ProfileElement& element = ElementAt(i);
        element.StartX -= lowX;
        element.StartY -= lowY;
        element.EndX -= lowX;
        element.EndY -= lowY;
        if (element.Kind == KindArc) {
            element.GeoA -= lowX;
            element.GeoB -= lowY;
        }
    }
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        point.X -= lowX;
        point.Y -= lowY;
    }
}

void ComputeBounds()
{
    AppState.MinX = BoxLimit;
    AppState.MinY = BoxLimit;
    AppState.MaxX = -BoxLimit;
    AppState.MaxY = -BoxLimit;
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        const ProfileElement& element = ElementAt(i);
        ArcBox box = {element.StartX, element.StartY, element.StartX, element.StartY};
        if (element.Kind == KindArc) {
            box = BoxOfArc(element);
        } else if (element.Kind != KindLine && !IsEndMark(element.Kind)) {
            continue;
        }
        AppState.MinX = std::min(AppState.MinX, box.MinX);
        AppState.MinY = std::min(AppState.MinY, box.MinY);
        AppState.MaxX = std::max(AppState.MaxX, box.MaxX);
        AppState.MaxY = std::max(AppState.MaxY, box.MaxY);
    }
}

double ArcArea(double startX, double startY, double endX, double endY, double centreX, double centreY,
               double radius, double refY)
{
    const double sign = SignOf(radius);
    const double size = std::fabs(radius);
    const double chord = dpp(startX, startY, endX, endY);
    if (chord < Tolerance) {
        return radius * radius * Pi * sign;
    }
    double x = startX - centreX;
    double y = startY - centreY;
    const double turn = SignOf(x * (endY - centreY) - y * (endX - centreX));
    const double t = chord / (2.0 * size);
    if (!(t > 0.0) || !std::isfinite(t)) { // no radius, or an endless one
        return Trapezoid(startX, startY, endX, endY, refY);
    }
    const double a = std::atan(std::sqrt(std::fabs(1.0 - t * t)) / t);
    const double sweep = Pi - 2.0 * turn * sign * a;
    // In this order a sweep that is no number counts as MaxChords.
    const double steps = std::min(MaxChords, std::trunc(sweep / std::sqrt(ChordRule / size)) + 1.0);
    const double cosine = std::cos(sweep / steps);
    const double sine = std::sin(sweep / steps) * sign;
    const double height = centreY - refY;
    double area = 0.0;
    for (auto n = static_cast<std::int32_t>(steps); n > 0; --n) {
        const double nextX = cosine * x - sine * y;
        const double nextY = cosine * y + sine * x;
        area += (x - nextX) * ((y + height) + (nextY + height)) / 2.0;
        x = nextX;
        y = nextY;
    }
    return area;
}

double ComputeProfileAreas(std::int16_t& largest)
{
    ComputeBounds();
    largest = 0;
    double bestArea = 0.0;
    double area = 0.0;
    std::int16_t number = 0;
    double firstX = NoValue;
    double firstY = NoValue;
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        ProfileElement& element = ElementAt(i);
        if (IsNoValue(firstX)) {
            firstX = element.StartX;
            firstY = element.StartY;
        }
        area += AreaBelow(i);
        if (!IsEndMark(element.Kind)) {
            continue;
        }
        ++number;
        StoreArea(element, firstX, firstY, area);
        if (std::fabs(area) > bestArea) {
            bestArea = std::fabs(area);
            largest = number;
        }
        area = 0.0;
        firstX = NoValue;
    }
    return bestArea;
}

double ProfileArea(std::int32_t profile, std::int32_t& endMark, std::int16_t& sense)
{
    endMark = EndMarkOf(profile);
    sense = 0;
    if (endMark == 0) {
        return 0.0;
    }
    const double area = ElementAt(endMark).GeoB;
    sense = static_cast<std::int16_t>(SignOf(area));
    return std::fabs(area);
}
