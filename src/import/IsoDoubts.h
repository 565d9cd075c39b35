// IsoDoubts.h -- lines of an ISO program that ISO-IN reads by its rules, though hardly as their writer meant them.
#pragma once

#include "import/Korvanta_IsoIn.h"

#include <cstdint>
#include <string_view>

/// How far the end of an arc may lie beside the circle on which it starts. Numbers rounded to two decimals hardly ever
/// pass it.
inline constexpr double MaxArcMiss = 0.02;

/// Lines that are kept with their text; those beyond are only counted.
inline constexpr std::size_t MaxDoubts = 100;

/// Adds line `number` to AppState.ImportDoubts when its arc ends beside its circle, when a relative centre of an arc comes from
/// an earlier line, when a dwell moves, or when it makes coordinates relative. `move` is what ReadIsoLine made of the line. Changes nothing else.
void NoteDoubts(std::string_view line, std::int64_t number, const IsoMove& move, bool incrementalCentre);
