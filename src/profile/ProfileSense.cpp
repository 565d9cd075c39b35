// The direction in which each profile is cut.
#include "platform/Fault.h"
#include "profile/ElementSteps.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/ProfileSlots.h"

#include <algorithm>
#include <string>

void OrientProfiles()
{
    std::int16_t count = 0;
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        ++count;
        ProfileElement& mark = ElementAt(i);
        if (!IsEndMark(mark.Kind)) {
            continue;
        }
        if (mark.GeoB != 0.0) {
            const bool inner = mark.Kind == KindEnd && mark.GeoA == 0.0;
            mark.Closing = inner ? AppState.WorkInternalSense : AppState.WorkExternalSense;
            if (SignOf(mark.GeoB) != mark.Closing) {
                ReverseProfile(static_cast<std::int16_t>(i), count);
            }
        }
        count = 0;
    }
}

void ReverseProfile(std::int16_t last, std::int16_t count)
{
    if (last < 1 || last > AppState.ElementCount || count < 1 || count > last) {
        throw RunTimeFault("ReverseProfile: no profile of " + std::to_string(count) +
                           " elements ends at slot " + std::to_string(last));
    }
    const auto mark = AppState.ElementTable.begin() + last;
    const auto first = mark - (count - 1);
    std::reverse(first, mark);
    std::for_each(first, mark, [](ProfileElement& element) {
        TurnElement(element);
        element.Sense = static_cast<std::int16_t>(-element.Sense);
    });
    if (count > 1) {
        mark->StartX = (mark - 1)->EndX;
        mark->StartY = (mark - 1)->EndY;
    }
    mark->GeoB = 0.0 - mark->GeoB; // no minus zero on an open profile
}

void ToggleProfileSense(std::int32_t profile)
{
    const std::int32_t last = EndMarkOf(profile);
    if (last == 0) {
        return;
    }
    ProfileElement& mark = ElementAt(last);
    mark.Closing = static_cast<std::int16_t>(-mark.Closing);
    ReverseProfile(static_cast<std::int16_t>(last),
                   static_cast<std::int16_t>(last - FirstElementOf(profile) + 1));
    const auto record = static_cast<std::size_t>(profile);
    if (mark.GeoB != 0.0 && record < AppState.ProfileTable.size()) {
        AppState.ProfileTable[record].Side = 0.0 - AppState.ProfileTable[record].Side;
    }
}
