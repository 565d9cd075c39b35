// KeyMap.h -- the window system's keys as the shell's key codes.
#pragma once

#include <QKeyEvent>

#include <cstdint>

/// Code of a key, 0 for one that the shell has no use for. The operator's keypad gives its own codes, with and without
/// the number lock.
std::int16_t KeyCodeOf(const QKeyEvent& event);

/// The held keys: 1 Shift, 2 Ctrl, 4 Alt.
std::int16_t ShiftOf(const QKeyEvent& event);

/// True when a text field uses the key itself: what it types, deletes, or moves in the text.
bool IsTextKey(const QKeyEvent& event);
