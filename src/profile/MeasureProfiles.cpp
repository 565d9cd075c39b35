// Lengths, and the shadow from which every transform starts afresh.
#include "platform/Fault.h"
#include "profile/Korvanta_ProfileCut.h"

#include <cmath>
#include <utility>

namespace
{
/// Profiles of a class below this snap their leads onto corners: imported ones do, library shapes don't.
constexpr double FirstShapeClass = 2.0;

/// Length of the drawn element in `slot`, up to the start of the next one.
double LengthOf(std::int32_t slot)
{
    const ProfileElement& element = AppState.ElementTable[static_cast<std::size_t>(slot)];
    double nextX = element.EndX;
    double nextY = element.EndY;
    if (slot < AppState.ElementCount) {
        nextX = AppState.ElementTable[static_cast<std::size_t>(slot) + 1].StartX;
        nextY = AppState.ElementTable[static_cast<std::size_t>(slot) + 1].StartY;
    }
    if (element.Kind == KindLine) {
        return dpp(element.StartX, element.StartY, nextX, nextY);
    }
    return std::fabs(element.GeoC) * amparco(element.GeoA, element.GeoB, element.StartX, element.StartY,
                                             nextX, nextY, element.GeoC < 0.0 ? -1 : 1);
}
} // namespace

void MeasureProfiles(Flag refreshShadow)
{
    AppState.ProfileTable.resize(static_cast<std::size_t>(AppState.ProfileCount) + 1);
    AppState.ProfileEnds.assign(1, 0);
    AppState.TotalCutLength = 0.0;
    double running = 0.0;
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        ProfileElement& element = AppState.ElementTable[static_cast<std::size_t>(i)];
        if (element.Kind == KindLine || element.Kind == KindArc) {
            element.Length = LengthOf(i);
        } else if (IsEndMark(element.Kind)) {
            const std::size_t number = AppState.ProfileEnds.size();
            AppState.ProfileEnds.push_back(i);
            if (number < AppState.ProfileTable.size()) {
                AppState.ProfileTable[number].ProfileLength = running;
                AppState.ProfileTable[number].CornerSnap = ToFlag(element.GeoC < FirstShapeClass);
            }
            running = 0.0;
        }
        running += element.Length;
        AppState.TotalCutLength += element.Length;
    }
    if (refreshShadow != FlagOff) {
        SaveShadow();
    }
}

void SaveShadow()
{
    AppState.ShadowElements = AppState.ElementTable;
    AppState.ShadowMarkPoints = AppState.MarkPoints;
}

void RestoreShadow()
{
    if (std::cmp_less_equal(AppState.ShadowElements.size(), AppState.ElementCount) ||
        std::cmp_less_equal(AppState.ShadowMarkPoints.size(), AppState.MarkPointCount)) {
        throw RunTimeFault("RestoreShadow: the shadow holds fewer elements than the part");
    }
    AppState.ElementTable = AppState.ShadowElements;
    AppState.MarkPoints = AppState.ShadowMarkPoints;
}
