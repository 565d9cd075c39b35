// ModalBox.h -- the two modal panels that come over the window: the box of three lines, and the dialog of the
// post-processor's input values. They are part of the window, so that no window manager is needed for them.
#pragma once

#include <cstdint>
#include <string>

/// The box of three lines until a key or click closes it; true when that was OK.
bool RunStationBox(const std::string& line1, const std::string& line2, const std::string& line3,
                   bool twoButtons);

/// The dialog of the input values on AppState.InputDialogRows until it is closed.
void RunStationDialog();

/// While the dialog is open: the focus on the row of a slot, its text selected whole.
void FocusDialogRow(std::int16_t slot);
void SelectDialogRow(std::int16_t slot);

/// Gives the focus back to the panel in front; without one nothing happens.
void KeepModalFocus();
