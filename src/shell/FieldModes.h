// FieldModes.h -- the kinds of value fields: what the keys F3 to F8 do on the focused one.
#pragma once

#include <cstdint>

/// Values of AppState.FieldMode.
inline constexpr std::int32_t ModeNone = 0;       ///< no keys of its own
inline constexpr std::int32_t ModeStep = 1;       ///< Scale, Kerf, X Gap, Y Gap
inline constexpr std::int32_t ModeAngle = 2;      ///< Angle
inline constexpr std::int32_t ModeZoom = 3;       ///< Zoom, while its frame can be moved
inline constexpr std::int32_t ModeMirror = 4;     ///< Mirror
inline constexpr std::int32_t ModeLead = 5;       ///< Move Step, leads
inline constexpr std::int32_t ModeNestType = 6;   ///< Nesting
inline constexpr std::int32_t ModeSimulation = 7; ///< Simulation
inline constexpr std::int32_t ModeSheet = 8;      ///< X Sheet, Y Sheet
inline constexpr std::int32_t ModeProfile = 9;    ///< Profile nr.
inline constexpr std::int32_t ModeCount = 10;
