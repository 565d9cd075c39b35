// Flag.h -- the 16-bit truth value of every record: -1 true, 0 false, tested for non-zero.
#pragma once

#include <cstdint>

using Flag = std::int16_t;

inline constexpr Flag FlagOn = -1;
inline constexpr Flag FlagOff = 0;

constexpr Flag ToFlag(bool value)
{
    return value ? FlagOn : FlagOff;
}
