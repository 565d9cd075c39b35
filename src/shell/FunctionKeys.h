// FunctionKeys.h -- the keys F3 to F8 on a value field, by the kind of the field.
#pragma once

#include "platform/Surface.h"
#include "state/AppState.h"

#include <cstdint>

/// Runs key `number` (1 is F3; 7 confirms a zoom) of the focused field, field CurrentField of `fields`, as FieldMode tells.
/// `picture` is the drawing beside the fields, `shift` the keys that are held: 2 is Ctrl alone. A number without a key
/// does nothing, nor does an array without the field.
void ApplyFunctionKey(std::int16_t number, FieldArray fields, Picture picture, std::int16_t shift);
