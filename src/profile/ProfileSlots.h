// ProfileSlots.h -- shorthand of this room for the slots of the part's tables.
#pragma once

#include "profile/Korvanta_ProfileCut.h"
#include "state/AppState.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

inline ProfileElement& ElementAt(std::int32_t slot)
{
    return AppState.ElementTable[static_cast<std::size_t>(slot)];
}

inline ProfileRecord& RecordAt(std::int32_t profile)
{
    return AppState.ProfileTable[static_cast<std::size_t>(profile)];
}

/// The drawn elements of a profile are the slots First .. Mark - 1.
struct ProfileSpan {
    std::int32_t First = 0;
    std::int32_t Mark = 0;
    bool Open = false;
};

/// False when there is no such profile (with a record); `span` is then left as it was. A profile may be empty: First is
/// its own end mark then, and it counts as open.
inline bool FindSpan(std::int32_t profile, ProfileSpan& span)
{
    if (profile < 1 || static_cast<std::size_t>(profile) >= AppState.ProfileTable.size()) {
        return false;
    }
    const std::int32_t mark = EndMarkOf(profile);
    const std::int32_t first = FirstElementOf(profile);
    if (first < 1 || first > mark || mark > AppState.ElementCount) {
        return false;
    }
    span = {first, mark, first == mark || !(std::fabs(ElementAt(mark).GeoB) > 0.0)};
    return true;
}

inline double SignOf(double value)
{
    return value > 0.0 ? 1.0 : value < 0.0 ? -1.0 : 0.0;
}
