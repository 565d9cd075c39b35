// Cutting the chained table into profiles, each closed by its end mark.
#include "platform/Fault.h"
#include "profile/ElementSteps.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/ProfileSlots.h"

#include <string>

namespace
{
/// True when a new profile begins behind `slot`.
bool GapBehind(std::int32_t slot)
{
    const ProfileElement& element = ElementAt(slot);
    const ProfileElement& next = ElementAt(slot + 1);
    return dpp(element.EndX, element.EndY, next.StartX, next.StartY) > Tolerance;
}

ProfileElement EndMarkAfter(const ProfileElement& last, std::int16_t kind)
{
    ProfileElement mark;
    mark.Kind = kind;
    mark.StartX = last.EndX;
    mark.StartY = last.EndY;
    return mark;
}

void GrowTable(std::int32_t count)
{
    if (AppState.ElementTable.size() <= static_cast<std::size_t>(count)) {
        AppState.ElementTable.resize(static_cast<std::size_t>(count) + 1);
    }
}
} // namespace

std::int32_t EndMarksNeeded()
{
    if (AppState.ElementCount == 0) {
        return 0;
    }
    std::int32_t marks = 1;
    for (std::int32_t i = 1; i < AppState.ElementCount; ++i) {
        marks += GapBehind(i) ? 1 : 0;
    }
    return marks;
}

void SplitIntoProfiles()
{
    const std::int32_t marks = EndMarksNeeded();
    RequireElementRoom(marks, "SplitIntoProfiles");
    AppState.ProfileEnds.clear();
    AppState.ProfileCount = marks;
    if (marks == 0) {
        return;
    }
    // From the back, so that each element moves once: the result of an InsertEndMark at each gap.
    std::int32_t from = AppState.ElementCount;
    std::int32_t to = from + marks;
    GrowTable(to);
    AppState.ElementCount = to;
    ElementAt(to) = EndMarkAfter(ElementAt(from), KindOuterEnd);
    --to;
    for (; to > from; --from, --to) {
        ElementAt(to) = ElementAt(from);
        if (from > 1 && GapBehind(from - 1)) {
            --to;
            ElementAt(to) = EndMarkAfter(ElementAt(from - 1), KindEnd);
        }
    }
}

void InsertEndMark(std::int16_t position)
{
    if (position < 1 || position > AppState.ElementCount + 1) {
        throw RunTimeFault("InsertEndMark: no slot " + std::to_string(position));
    }
    RequireElementRoom(1, "InsertEndMark");
    const std::int32_t count = ++AppState.ElementCount;
    GrowTable(count);
    for (std::int32_t i = count; i > position; --i) {
        ElementAt(i) = ElementAt(i - 1);
    }
    ElementAt(position) = EndMarkAfter(ElementAt(position - 1), position == count ? KindOuterEnd : KindEnd);
    ++AppState.ProfileCount;
    AppState.ProfileEnds.clear();
}
