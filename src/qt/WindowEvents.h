// WindowEvents.h -- from the controls to the shell: keys, clicks, typed texts, focus. Each event runs the routine of its
// control, and the records are shown afterwards. A fault ends the program with its text.
#pragma once

#include <QKeyEvent>
#include <QWidget>

#include <cstdint>
#include <functional>

/// Watches every control of the window.
void ConnectControls();

/// Runs a routine that the window system called: a fault in it ends the program and goes no further.
void RunGuarded(const std::function<void()>& routine);

/// Runs a routine of the shell on an event, and shows the records.
void RunEvent(const std::function<void()>& routine);

/// A click that brings the focus to a text leaves it selected whole, unless it selected a part. To be told each event of
/// `control` before the control has it.
void SelectOnClick(QWidget* control, const QEvent& event);

/// The focus goes to `control` at once, as far as the shell is concerned: the control before is left, this one arrives.
/// On the control that has it already nothing is reported.
void MoveFocusTo(QWidget* control);

/// Says what ended the program and ends it, with the unfinished program file closed.
[[noreturn]] void EndWithFault(const char* text);
