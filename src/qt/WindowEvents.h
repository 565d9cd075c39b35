// WindowEvents.h -- from the controls to the shell: keys, clicks, typed texts, focus. Each event runs the routine of its
// control, and the records are shown afterwards. A fault ends the program with its text.
#pragma once

#include <QKeyEvent>
#include <QWidget>

#include <cstdint>
#include <functional>

/// Watches every control of the window.
void ConnectControls();

/// Runs a routine of the shell on an event, and shows the records.
void RunEvent(const std::function<void()>& routine);

/// The focus goes to `control` at once, as far as the shell is concerned: the control before is left, this one arrives.
/// On the control that has it already nothing is reported.
void MoveFocusTo(QWidget* control);

/// Says what ended the program and ends it, with the unfinished program file closed.
[[noreturn]] void EndWithFault(const char* text);
