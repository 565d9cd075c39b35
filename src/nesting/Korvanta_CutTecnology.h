// Korvanta_CutTecnology.h -- the regular grid of copies on the sheet, and the redraw of the screens that show it.
#pragma once

#include "state/AppState.h"

#include <string>

/// Entered with the Nesting screen: nest type, part size, sheet raised to the part, counts, redraw.
void RunNesting();

/// Sheet sizes that fixed counts ask for; clears NestFieldTouched.
void RebuildNest();

/// After an entry in TextNesting 0 or 1 (`field`): "*n" and the least sheet.
void ApplySheetEntries(std::int16_t field);

/// "*n" gives n cells of `pitch`, rounded up, and `count` = n; any other text stands as it is with count 0.
/// Cells of pitch 0: RunTimeFault.
std::string ParseCountEntry(const std::string& text, double pitch, std::int32_t& count);

/// Counts and gaps in force; on screens other than Nesting one copy and no gap. Beyond 32 bits a count is clamped.
/// Copies that stand on each other (pitch 0): RunTimeFault.
void ComputeLayout();

/// Called for each placed copy with its position, counters from 1; false ends the walk.
using CopyVisitor = bool (*)(double copyX, double copyY, void* context);

/// The program's walk over the nest: order, reversal and limits as in the program. `originX`, `originY` is the first
/// cell. The number of visited copies is the result. Cells beside the sheet cost next to nothing.
std::int64_t WalkCopies(double originX, double originY, CopyVisitor visit, void* context);

/// The number of copies of that walk, without walking it.
std::int64_t CountCopies(double originX, double originY);

/// Scene and statistics of the current screen; with `fit` the view is fitted first.
void RedrawCurrent(Flag fit);
