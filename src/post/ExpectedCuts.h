// ExpectedCuts.h -- what a program must cut, taken from the tables of the part and not from the move lists that the
// generator writes: only the leads come from the routine that also draws them.
#pragma once

#include "state/CutMove.h"

#include <cstdint>
#include <vector>

/// One move, in the coordinates of the part.
struct ExpectedMove {
    std::int16_t Code = 1; ///< 1 straight, 2 clockwise, 3 counter-clockwise
    std::int16_t Phase = PhaseProfile;
    std::int16_t Side = 0;    ///< compensation: 1 left, -1 right; of leads that of the contour
    std::int32_t Element = 0; ///< counts the elements of the profile in the table from 1; 0 of a lead
    double StartX = 0.0;
    double StartY = 0.0;
    double EndX = 0.0;
    double EndY = 0.0;
    double CentreX = 0.0; ///< of an arc, as Radius
    double CentreY = 0.0;
    double Radius = 0.0; ///< > 0 counter-clockwise
};

using ExpectedCut = std::vector<ExpectedMove>;

/// Lead-in, contour from the lead point once round, lead-out. `flyOff` splits the last move of the contour where the
/// torch may go out. Empty for a profile without elements. Needs the lead data; sets LeadElement of the profile's record.
ExpectedCut ExpectCut(std::int32_t profile, double flyOff);
