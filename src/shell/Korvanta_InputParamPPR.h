// Korvanta_InputParamPPR.h -- the dialog that asks for the post-processor's input values: focus order and the taking
// of the values, on AppState.PprInput and AppState.InputDialogRows. Slots count from 1, each has one row.
#pragma once

#include <cstdint>
#include <string>

/// Fills title, button caption and rows from the slots, before the dialog shows.
void OpenInputDialog(const std::string& title);

/// A key in the row of `slot`, on the window or on the button (slot 0). True when it closes the dialog.
bool InputDialogKey(std::int16_t slot, std::int16_t keyCode);

/// The focus arrived in the row of `slot`: a text is selected whole.
void InputRowEntered(std::int16_t slot);

/// The focus arrived on the button, which hands it on.
void InputButtonEntered();

/// Closing, whatever the way: each slot takes its value.
void CloseInputDialog();
