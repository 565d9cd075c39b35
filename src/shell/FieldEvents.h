// FieldEvents.h -- what the window reports about the value fields: focus, typed texts, keys.
#pragma once

#include "state/AppState.h"

#include <cstdint>

/// The focus arrived on field `index` of one of the three arrays.
void FieldArrived(FieldArray fields, std::int16_t index);

/// Gives the focus to field `index` of a screen that is being entered. Where the window takes the field for the one that
/// had the focus all the time, and so reports nothing, the arrival runs all the same.
void EnterField(FieldArray fields, std::int16_t index);

/// The focus left the field. A field that was left already (LeaveFocusedField) isn't left twice.
void FieldGone(FieldArray fields, std::int16_t index);

/// Leaves the field that has the focus, ahead of a change of the screen; the window's own report comes too late then.
void LeaveFocusedField();

/// A key in field `index`: of ParamText, TextCutting or TextNesting.
void ValueFieldKey(FieldArray fields, std::int16_t index, std::int16_t keyCode, std::int16_t shift);

/// Selects the whole text of a field; counts characters, not bytes.
void SelectWholeText(const ValueField& field);
