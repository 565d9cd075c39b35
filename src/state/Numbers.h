// Numbers.h -- the constants that the whole geometry shares, each named once.
#pragma once

#include <bit>
#include <cstdint>

/// The one distance tolerance of closing, chaining and coincidence: "closer" means strictly below.
inline constexpr double Tolerance = 0.01;

/// Pi with the digits that every angle of the system uses.
inline constexpr double Pi = 3.14159265358979;

/// A value that was not given: 1e37 with exactly these bits.
inline constexpr double NoValue = std::bit_cast<double>(std::uint64_t{0x479E17B84357691B});

/// True when `value` holds the very bits of NoValue.
constexpr bool IsNoValue(double value)
{
    return std::bit_cast<std::uint64_t>(value) == std::bit_cast<std::uint64_t>(NoValue);
}
