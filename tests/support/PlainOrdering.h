// PlainOrdering.h -- the plain algorithms of ordering, word by word: the judges of the fast ones.
#pragma once

#include "profile/Korvanta_ProfileCut.h"

#include <cstdint>
#include <utility>

inline ProfileElement& PlainElement(std::int32_t slot)
{
    return AppState.ElementTable[static_cast<std::size_t>(slot)];
}

inline void PlainTurn(ProfileElement& e)
{
    std::swap(e.StartX, e.EndX);
    std::swap(e.StartY, e.EndY);
    if (e.Kind == KindLine) {
        GeoLine line = {0.0, e.GeoA, e.GeoB, e.GeoC};
        std::int16_t err = 0;
        r_pp(line, {0.0, e.StartX, e.StartY, 0.0}, {0.0, e.EndX, e.EndY, 0.0}, err);
        e.GeoA = line[1];
        e.GeoB = line[2];
        e.GeoC = line[3];
    } else if (e.Kind == KindArc) {
        e.GeoC = -e.GeoC;
    }
}

/// Searches every slot behind `i` for a follower, turns it when its end touches, and swaps it in.
inline bool PlainLink(std::int32_t i)
{
    const double x = PlainElement(i).EndX;
    const double y = PlainElement(i).EndY;
    for (std::int32_t j = i + 1; j <= AppState.ElementCount; ++j) {
        ProfileElement& e = PlainElement(j);
        const bool start = dpp(x, y, e.StartX, e.StartY) < Tolerance;
        if (!start && !(dpp(x, y, e.EndX, e.EndY) < Tolerance)) {
            continue;
        }
        if (!start) {
            PlainTurn(e);
        }
        if (j != i + 1) {
            std::swap(PlainElement(i + 1), e);
        }
        return true;
    }
    return false;
}

/// What ChainElements must do, by trying everything.
inline void PlainChainElements()
{
    bool linked = false;
    bool flipped = false;
    std::int32_t i = 1;
    while (i <= AppState.ElementCount) {
        if (PlainLink(i)) {
            linked = true;
            flipped = false;
            ++i;
        } else if (linked) {
            linked = false;
            flipped = false;
            ++i;
        } else if (flipped) {
            flipped = false;
            ++i;
        } else {
            PlainTurn(PlainElement(i));
            flipped = true;
        }
    }
}

/// What SplitIntoProfiles must do, one InsertEndMark at a time.
inline void PlainSplitIntoProfiles()
{
    AppState.ProfileCount = 0;
    if (AppState.ElementCount == 0) {
        return;
    }
    for (std::int32_t i = 1; i != AppState.ElementCount; ++i) {
        const ProfileElement& e = PlainElement(i);
        const ProfileElement& next = PlainElement(i + 1);
        if (dpp(e.EndX, e.EndY, next.StartX, next.StartY) > Tolerance) {
            InsertEndMark(static_cast<std::int16_t>(i + 1));
            ++i;
        }
    }
    InsertEndMark(static_cast<std::int16_t>(AppState.ElementCount + 1));
}
