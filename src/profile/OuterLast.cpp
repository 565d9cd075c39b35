// The order of the profiles: the outer one last, and a contour that runs along it just before.
#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/ProfileSlots.h"

#include <algorithm>
#include <cmath>

namespace
{
/// End marks of all profiles in table order, from [1]; [0] is 0.
std::vector<std::int32_t> CollectEndMarks()
{
    std::vector<std::int32_t> ends(1, 0);
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        if (IsEndMark(ElementAt(i).Kind)) {
            ends.push_back(i);
        }
    }
    return ends;
}

/// Takes profile `moved` out and puts it back as number `place` (not below `moved`), the others keeping their order.
void MoveProfileUp(const std::vector<std::int32_t>& ends, std::size_t moved, std::size_t place)
{
    const auto slot = [&ends](std::size_t profile) {
        return AppState.ElementTable.begin() + ends[profile] + 1;
    };
    const std::vector<ProfileElement> held(slot(moved - 1), slot(moved));
    const auto gap = std::copy(slot(moved), slot(place), slot(moved - 1));
    std::copy(held.begin(), held.end(), gap);
}

/// Flags the inner profiles whose area differs from `outerArea` by less than EXTPRF_BOUND; the number of the last one,
/// 0 without any.
std::size_t FlagBoundaries(const std::vector<std::int32_t>& ends, double outerArea)
{
    const double bound = TextToNumber(ReadConfig("CONFIG", "EXTPRF_BOUND", "1"));
    std::size_t last = 0;
    for (std::size_t p = 1; p + 1 < ends.size(); ++p) {
        ProfileElement& mark = ElementAt(ends[p]);
        if (std::fabs(std::fabs(mark.GeoB) - outerArea) < bound) {
            mark.GeoA = 1.0;
            last = p;
        }
    }
    return last;
}
} // namespace

void PutOuterLast(std::int16_t largest)
{
    std::vector<std::int32_t> ends = CollectEndMarks();
    const std::size_t count = ends.size() - 1;
    if (count == 0) {
        return;
    }
    if (largest > 0 && static_cast<std::size_t>(largest) < count) {
        ElementAt(ends[count]).Kind = KindEnd;
        MoveProfileUp(ends, static_cast<std::size_t>(largest), count);
        ElementAt(ends[count]).Kind = KindOuterEnd;
        ends = CollectEndMarks();
    }
    const std::size_t boundary = FlagBoundaries(ends, std::fabs(ElementAt(ends[count]).GeoB));
    if (count >= 3 && boundary != 0 && boundary != count - 1) {
        MoveProfileUp(ends, boundary, count - 1);
    }
    AppState.ProfileEnds.clear();
}
