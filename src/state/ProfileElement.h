// ProfileElement.h -- one line, arc or profile end of the part.
#pragma once

#include <cstdint>

/// Values of ProfileElement::Kind. CutMove::Kind uses 1, 2 and 3 in the same sense.
inline constexpr std::int16_t KindLine = 1;
inline constexpr std::int16_t KindArc = 2;
inline constexpr std::int16_t KindEnd = 3;      ///< closes a profile other than the last
inline constexpr std::int16_t KindOuterEnd = 9; ///< closes the last, outer profile

constexpr bool IsEndMark(std::int16_t kind)
{
    return kind == KindEnd || kind == KindOuterEnd;
}

/// The members stand in file order; packed they take 70 bytes.
struct ProfileElement {
    double GeoA = 0.0;     ///< line: a. Arc: centre X. End mark: boundary flag, 1.0 marks a boundary
    double GeoB = 0.0;     ///< line: b. Arc: centre Y. End mark: signed area, 0.0 means open
    double GeoC = 0.0;     ///< line: c. Arc: signed radius, > 0 counter-clockwise. End mark: class 0, 2, 4
    std::int16_t Kind = 0; ///< KindLine, KindArc, KindEnd or KindOuterEnd
    double StartX = 0.0;   ///< end mark: the point where its profile ends
    double StartY = 0.0;
    double EndX = 0.0; ///< not read on an end mark
    double EndY = 0.0;
    double Length = 0.0;      ///< from MeasureProfiles; stays 0 on an end mark
    std::int16_t Sense = 0;   ///< compensation side: 1 left, -1 right, 0 none
    std::int16_t Closing = 0; ///< end mark: wanted direction of cut, 1 or -1
};
