// ElementSteps.h -- small steps on elements that the stages of this room share; nobody outside it needs them.
#pragma once

#include "state/ProfileElement.h"

#include <cstdint>

/// Gives a line the coefficients of its end points; a line without length keeps the old ones.
void RenewLine(ProfileElement& element);

/// Swaps start and end; a line gets new coefficients, an arc the other direction. Sense stays.
void TurnElement(ProfileElement& element);

/// Fault unless `more` records fit into the element table.
void RequireElementRoom(std::int32_t more, const char* where);

/// Number of end marks that SplitIntoProfiles would insert into the raw table.
std::int32_t EndMarksNeeded();

/// Low corner of the part as ShiftToOrigin takes it; 0, 0 when there is nothing to compare.
void FindLowCorner(double& lowX, double& lowY);
