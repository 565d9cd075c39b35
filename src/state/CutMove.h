// CutMove.h -- one record of a profile's move list; move j runs from record j to record j + 1.
#pragma once

#include <cstdint>

/// Values of CutMove::Phase.
inline constexpr std::int16_t PhaseProfile = 0;
inline constexpr std::int16_t PhaseLeadIn = 1;
inline constexpr std::int16_t PhaseLeadOut = 2;

/// CutMove::Mark of a move ahead of which the torch may go out.
inline constexpr std::int16_t MarkFlyOff = 3;

struct CutMove {
    std::int16_t Phase = PhaseProfile;
    double CentreX = 0.0; ///< arc centre; on a line that comes from the contour its coefficients a, b, c
    double CentreY = 0.0;
    double Radius = 0.0; ///< signed, > 0 counter-clockwise
    double X = 0.0;      ///< start of the move
    double Y = 0.0;
    std::int16_t Kind = 0; ///< 1 line, 2 arc; any other value makes no move
    std::int16_t Mark = 0;
};
