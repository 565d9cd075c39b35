// CodePage.h -- the western code page 1252, in which old texts are written.
#pragma once

#include <array>

/// Its bytes from 80h to 9Fh as characters; the five that it leaves open stand for themselves. All other bytes are the
/// characters of their number.
inline constexpr unsigned FirstOfRow = 0x80;
inline constexpr unsigned LastOfRow = 0x9F;
inline constexpr std::array<char16_t, LastOfRow - FirstOfRow + 1> CodePageRow = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

/// The character of a byte.
constexpr char16_t CodePageCharacter(unsigned char byte)
{
    return byte >= FirstOfRow && byte <= LastOfRow ? CodePageRow[byte - FirstOfRow] : char16_t{byte};
}
