// Screen.h -- the seam to the window system: what the logic asks of it, by role. The body that is linked
// decides: the window, the silent one of the batch tool, or the recorder of the tests.
#pragma once

#include "state/ScreenRecords.h"
#include "state/ValueField.h"

#include <cstdint>
#include <string>
#include <vector>

/// Gives the focus to a value field. The window answers with the arrival routine of the field.
void FocusField(const ValueField& field);

/// Gives the focus to the list of an Input tab.
void FocusList(std::int16_t tab);

/// The layout of the list of an Input tab as it stands on the screen.
ListMetrics MeasureList(std::int16_t tab);

/// Gives the focus to the row of slot `slot` of the input dialog: to its list or its text, as the record tells.
void FocusInputRow(std::int16_t slot);

/// Selects the whole text of the row of slot `slot` of the input dialog.
void SelectInputRow(std::int16_t slot);

/// Selects the text of a value field from `start` (0-based character) for `length` characters.
void SelectFieldText(const ValueField& field, std::int32_t start, std::int32_t length);

/// Lets the window system catch up with what was asked of it. What is typed meanwhile waits.
void Yield();

/// Seconds of a clock that never runs backwards, from some point in the past.
double ClockSeconds();

/// Lets so many seconds pass, or, with 0, just the window system catch up. The one place where keys and clicks arrive in
/// the middle of a routine: who pauses must be ready for all of them.
void Pause(double seconds);

/// Runs the modal box of three lines; true when it closed by OK.
bool RunModalBox(const std::string& line1, const std::string& line2, const std::string& line3,
                 bool twoButtons);

/// Shows the window system's own box with a stop icon: for the time before the catalogue is there.
void RunSystemBox(const std::string& caption, const std::string& text);

/// Ends the process with `status`. Bodies that cannot end it (the recorder) throw instead.
[[noreturn]] void EndProcess(int status);

/// Runs the dialog of the post-processor's input values on AppState.PprInput slots 1 to 8; each slot in use
/// leaves with the operator's answer in Value.
void RunInputDialog(const std::string& title);

/// The progress bar of a program run: shown with its range from 0, moved, hidden. Values beyond the range
/// are ignored.
void ShowProgress(std::int32_t range);
void SetProgress(std::int32_t value);
void HideProgress();

/// A top-level window of the desktop, whichever program it belongs to.
struct TopWindow {
    std::intptr_t Handle = 0; ///< never 0 for a window
    std::string Title;
};

/// The top-level windows in the order in which the window system tells them.
std::vector<TopWindow> ListTopWindows();

/// Brings a top-level window to the foreground.
void RaiseTopWindow(std::intptr_t handle);
