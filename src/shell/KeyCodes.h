// KeyCodes.h -- the key codes that the shell's routines understand; the window maps its own to them.
#pragma once

#include <cstdint>

inline constexpr std::int16_t KeyEnter = 13;
inline constexpr std::int16_t KeyEsc = 27;
inline constexpr std::int16_t KeySpace = 32;
inline constexpr std::int16_t KeyLeft = 37;
inline constexpr std::int16_t KeyUp = 38;
inline constexpr std::int16_t KeyRight = 39;
inline constexpr std::int16_t KeyDown = 40;
inline constexpr std::int16_t KeyDelete = 46;
inline constexpr std::int16_t KeyD = 68;
inline constexpr std::int16_t KeyPad3 = 99;  ///< page down of an operator's keypad
inline constexpr std::int16_t KeyPad9 = 105; ///< page up
inline constexpr std::int16_t KeyF1 = 112;
inline constexpr std::int16_t KeyF2 = 113;
inline constexpr std::int16_t KeyF3 = 114;
inline constexpr std::int16_t KeyF4 = 115;
inline constexpr std::int16_t KeyF5 = 116;
inline constexpr std::int16_t KeyF6 = 117;
inline constexpr std::int16_t KeyF7 = 118;
inline constexpr std::int16_t KeyF8 = 119;
inline constexpr std::int16_t KeyF9 = 120;
inline constexpr std::int16_t KeyF10 = 121;

/// A field key's number counts from F3.
inline constexpr std::int16_t FieldKeyBase = 113;
