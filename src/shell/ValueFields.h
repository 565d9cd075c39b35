// ValueFields.h -- the numeric fields of the screens as records: limits, steps, and what a change of text runs.
// One of the few services of the shell that lower rooms may call.
#pragma once

#include "state/AppState.h"

#include <string>

/// Gives every field its tag, name, start text and no change routine: the state of the designed form.
void ResetFields();

/// Limits and step of a "step;min,max" tag; an empty tag gives step 1, min -999999, max 999999.
void ParseFieldTag(const std::string& tag, double& min, double& max, double& step);

/// Checks `value` against the tag of field CurrentField of `fields` and sets its text: the value, or the limit that was
/// passed, focused and selected. NaN counts as below the minimum.
void ValidateField(FieldArray fields, double value);

/// The same for field `index`, wherever the focus is: for change routines, and for a field that was just left.
void ValidateFieldAt(FieldArray fields, std::int16_t index, double value);

/// Number in field CurrentField plus or minus the step (NoValue: the tag's), then ValidateField.
void StepField(FieldArray fields, bool increase, double step);

/// Sets a text; another text than before runs the field's change routine. Whoever calls.
void SetText(ValueField& field, const std::string& text);

/// The number that the text of a field starts with.
double FieldNumber(const ValueField& field);
