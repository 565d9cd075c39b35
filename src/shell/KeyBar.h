// KeyBar.h -- the pictures of the key bar and the yellow of the focused field, as records.
#pragma once

#include "state/AppState.h"

#include <cstdint>
#include <span>

/// Fills AppState.KeyBar for the current screen and the kind of the focused field.
void RefreshKeyBar();

/// Makes field `index` and its label yellow, with `secondLabel` another label (-1: none), and all others of both arrays
/// plain.
void HighlightField(FieldArray fields, std::span<std::int32_t> labelColors, std::int16_t index,
                    std::int16_t secondLabel);
