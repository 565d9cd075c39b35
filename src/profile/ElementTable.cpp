// The element table: adding, clearing, its limit, and where each profile lies in it.
#include "platform/Fault.h"
#include "profile/ElementSteps.h"
#include "profile/Korvanta_ProfileCut.h"

#include <string>
#include <utility>

namespace
{
/// True when ProfileEnds tells the place of `profile` in the table as it is now.
bool EndsServe(std::int32_t profile)
{
    const auto& ends = AppState.ProfileEnds;
    const auto isEnd = [](std::int32_t slot) {
        return slot >= 1 && slot <= AppState.ElementCount &&
               IsEndMark(AppState.ElementTable[static_cast<std::size_t>(slot)].Kind);
    };
    if (std::cmp_not_equal(ends.size(), AppState.ProfileCount + 1) || ends.back() != AppState.ElementCount) {
        return false;
    }
    const auto p = static_cast<std::size_t>(profile);
    return isEnd(ends[p]) && (profile == AppState.ProfileCount || ends[p] < ends.back()) &&
           ends[p - 1] < ends[p] && (p == 1 ? ends[0] == 0 : isEnd(ends[p - 1]));
}
} // namespace

bool WouldPassElementLimit(std::int32_t more)
{
    return more > MaxElements - AppState.ElementCount;
}

void RequireElementRoom(std::int32_t more, const char* where)
{
    if (WouldPassElementLimit(more)) {
        throw RunTimeFault(std::string(where) + ": the part has more than " + std::to_string(MaxElements) +
                           " elements");
    }
}

void AddElement(const std::int16_t& kind, const double& startX, const double& startY, const double& geoA,
                const double& geoB, const double& geoC, const double& endX, const double& endY,
                const std::int16_t& sense)
{
    RequireElementRoom(1, "AddElement");
    // Taken before the table grows: the arguments may be members of the table itself.
    const bool endGiven = !IsNoValue(endX);
    ProfileElement given;
    given.GeoA = geoA;
    given.GeoB = geoB;
    given.GeoC = geoC;
    given.Kind = kind;
    given.StartX = startX;
    given.StartY = startY;
    given.EndX = endX;
    given.EndY = endY;
    given.Sense = sense;

    const auto slot = static_cast<std::size_t>(++AppState.ElementCount);
    if (slot >= AppState.ElementTable.size()) {
        AppState.ElementTable.resize(slot + 1);
    }
    AppState.ProfileEnds.clear();
    ProfileElement& element = AppState.ElementTable[slot];
    if (!endGiven) {
        given.EndX = element.EndX;
        given.EndY = element.EndY;
        AppState.ElementTable[slot - 1].EndX = given.StartX;
        AppState.ElementTable[slot - 1].EndY = given.StartY;
    }
    given.Length = element.Length;
    given.Closing = element.Closing;
    if (IsEndMark(given.Kind)) {
        ++AppState.ProfileCount;
        given.Closing = 1;
    }
    element = given;
}

void ClearPart()
{
    AppState.ElementTable.assign(1, ProfileElement());
    AppState.ShadowElements.assign(1, ProfileElement());
    AppState.MarkPoints.assign(1, MarkPoint());
    AppState.ShadowMarkPoints.assign(1, MarkPoint());
    AppState.ProfileTable.assign(1, ProfileRecord());
    AppState.ProfileEnds.clear();
    AppState.ElementCount = 0;
    AppState.MarkPointCount = 0;
    AppState.ProfileCount = 0;
    AppState.CurrentProfile = 0;
    AppState.TotalCutLength = 0.0;
    AppState.MinX = AppState.MaxX = 0.0; // a part that stays empty has no size, not that of the part before
    AppState.MinY = AppState.MaxY = 0.0;
    AppState.PathOriginSet = FlagOff;
    AppState.PathCursorDistance = NoValue;
    AppState.PathCursorProfile = 0;
    AppState.MoveStep = 10.0;
    AppState.ShapeFlagTwin = FlagOff;
    AppState.OpenShapePart = FlagOff;
    AppState.NoKerfCodes = FlagOff;
}

void ClearImportAccount()
{
    AppState.ImportRead.clear();
    AppState.ImportLeftOut.clear();
    AppState.ImportOpen.clear();
    AppState.ImportCutOff = FlagOff;
    AppState.ImportDoubts.clear();
    AppState.ImportDoubtCount = 0;
    AppState.ImportFailure.clear();
}

void RenewLine(ProfileElement& element)
{
    GeoLine line = {0.0, element.GeoA, element.GeoB, element.GeoC};
    std::int16_t err = 0;
    r_pp(line, {0.0, element.StartX, element.StartY, 0.0}, {0.0, element.EndX, element.EndY, 0.0}, err);
    element.GeoA = line[1];
    element.GeoB = line[2];
    element.GeoC = line[3];
}

void TurnElement(ProfileElement& element)
{
    std::swap(element.StartX, element.EndX);
    std::swap(element.StartY, element.EndY);
    if (element.Kind == KindLine) {
        RenewLine(element);
    } else if (element.Kind == KindArc) {
        element.GeoC = -element.GeoC;
    }
}

std::int32_t EndMarkOf(std::int32_t profile)
{
    if (profile < 1 || profile > AppState.ProfileCount) {
        return 0;
    }
    if (EndsServe(profile)) {
        return AppState.ProfileEnds[static_cast<std::size_t>(profile)];
    }
    std::int32_t number = 0;
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        if (IsEndMark(AppState.ElementTable[static_cast<std::size_t>(i)].Kind) && ++number == profile) {
            return i;
        }
    }
    return 0;
}

std::int32_t FirstElementOf(std::int32_t profile)
{
    if (EndMarkOf(profile) == 0) {
        return 0;
    }
    return profile == 1 ? 1 : EndMarkOf(profile - 1) + 1;
}
