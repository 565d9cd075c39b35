// The end of an import: what the readers left in the table becomes a measured part.
#include "profile/ElementSteps.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/ProfileSlots.h"

#include <cmath>

namespace
{
/// Coordinates beyond this can't be squared and multiplied safely, nor told from NoValue.
constexpr double LargestCoordinate = 1e30;

bool IsUsable(double coordinate)
{
    return std::fabs(coordinate) < LargestCoordinate; // false for what is no number
}

bool AllUsable()
{
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        const ProfileElement& e = ElementAt(i);
        if (!IsUsable(e.StartX) || !IsUsable(e.StartY) || !IsUsable(e.EndX) || !IsUsable(e.EndY) ||
            !IsUsable(e.GeoA) || !IsUsable(e.GeoB) || !IsUsable(e.GeoC)) {
            return false;
        }
    }
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        const MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        if (!IsUsable(point.X) || !IsUsable(point.Y)) {
            return false;
        }
    }
    return true;
}

bool Refuse(const char* why)
{
    ClearPart();
    AppState.ImportFailure = why;
    return false;
}

/// True when a side was read for any drawn element of the profile in slots first .. last - 1.
bool AnySide(std::int32_t first, std::int32_t last)
{
    for (std::int32_t i = first; i < last; ++i) {
        if (ElementAt(i).Sense != 0) {
            return true;
        }
    }
    return false;
}

/// The compensation side of one oriented profile, whose end mark stands at `last`.
void SetSides(ImportSides sides, std::int32_t first, std::int32_t last)
{
    const bool closed = ElementAt(last).GeoB != 0.0;
    if (sides == ImportSides::Program && !closed) {
        return;
    }
    const bool left = closed && (sides == ImportSides::Drawing || AnySide(first, last));
    for (std::int32_t i = first; i < last; ++i) {
        ElementAt(i).Sense = left ? 1 : 0;
    }
}

/// Sides of every profile, and the account of the open ones; `addX`, `addY` lead back to the file's coordinates.
void FinishProfiles(ImportSides sides, double addX, double addY)
{
    std::int32_t first = 1;
    std::int32_t number = 0;
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        const ProfileElement& mark = ElementAt(i);
        if (!IsEndMark(mark.Kind)) {
            continue;
        }
        ++number;
        SetSides(sides, first, i);
        if (mark.GeoB == 0.0) {
            OpenProfile open;
            open.Profile = number;
            open.Gap = dpp(ElementAt(first).StartX, ElementAt(first).StartY, mark.StartX, mark.StartY);
            open.X = mark.StartX + addX;
            open.Y = mark.StartY + addY;
            AppState.ImportOpen.push_back(open);
        }
        first = i + 1;
    }
}
} // namespace

bool NormaliseImport(ImportSides sides, double offsetX, double offsetY)
{
    AppState.ImportOpen.clear();
    if (!AllUsable()) {
        return Refuse("a coordinate is too large");
    }
    if (WouldPassElementLimit(EndMarksNeeded())) {
        return Refuse("there are more elements than the station holds (32767, profile ends included)");
    }
    SplitIntoProfiles();
    double lowX = 0.0;
    double lowY = 0.0;
    FindLowCorner(lowX, lowY);
    ShiftToOrigin();
    std::int16_t largest = 0;
    ComputeProfileAreas(largest);
    PutOuterLast(largest);
    AppState.WorkExternalSense = AppState.ExternalPathSense;
    AppState.WorkInternalSense = AppState.InternalPathSense;
    OrientProfiles();
    FinishProfiles(sides, lowX + offsetX, lowY + offsetY);
    MeasureProfiles(FlagOn);
    return true;
}
