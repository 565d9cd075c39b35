// Korvanta_Utility.h -- number text, names and folders: the small routines that the whole program shares.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The plain text-to-number rule: leading blanks and tabs skipped, then sign, digits, point, exponent (E or e with at
/// least one digit); it ends at the first other character, and no number gives 0. Never depends on the locale.
/// A number too large for a double gives the largest one of its sign.
double TextToNumber(std::string_view text);

/// The plain text form: a leading blank or minus sign, at most 15 significant digits, no zero before the point,
/// exponent form (two digits at least) when the decimal exponent is below -4 or at least 15. -0.0 is " 0".
std::string NumberText(double value);

/// NumberText without its leading blank.
std::string PlainNumber(double value);

/// Every number that an operator sees or a program file holds. `decimals` above 0 is a maximum, at or below 0 it fixes
/// the number of places; `integerWidth` pads with blanks (above 0) or zeros (below 0). It truncates, but a nine in
/// the first place cut away carries. A number that is not finite is a RunTimeFault: no program ever holds one.
std::string FormatNumber(double value, std::int16_t integerWidth = 0, std::int16_t decimals = 2);

/// FormatNumber appended to `out`, for the many numbers of a program: same text, no allocation.
void AppendNumber(std::string& out, double value, std::int16_t integerWidth, std::int16_t decimals);

/// Nearest integer, ties away from zero. Beyond the width (or not a number): RunTimeFault naming `what`.
std::int16_t RoundToInt16(double value, const char* what);
std::int32_t RoundToInt32(double value, const char* what);

/// Towards zero. Beyond the width (or not a number): RunTimeFault naming `what`.
std::int16_t CutToInt16(double value, const char* what);
std::int32_t CutToInt32(double value, const char* what);

/// The same two ways for numbers read from a field: clamped to the width, 0 for no number, never a fault.
std::int16_t RoundAndClampToInt16(double value);
std::int32_t RoundAndClampToInt32(double value);
std::int32_t CutAndClampToInt32(double value);

/// Without the blanks (spaces) at both ends.
std::string Trim(std::string_view text);

/// A to Z; other bytes stay.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

/// The first `count` characters of a UTF-8 text.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

/// The buffer that a key file's value of `count` characters fits into, its end included: each takes up to four bytes.
constexpr std::size_t BufferFor(std::size_t count)
{
    return 4 * count + 1;
}

/// True when `text` holds `part` (case counts).
bool Contains(std::string_view text, std::string_view part);

/// The text up to its first NUL, trimmed.
std::string ZeroTerminated(std::string_view text);

/// Makes a folder path exist, level by level, from the root of its drive, from "/" or from the program's folder; drive
/// parts are passed over as levels. A new folder named from ".\" on lies on drive c. The process's working folder is
/// never changed. RunTimeFault naming the folder when a level can't be made.
void NormalisePath(const std::string& path);

/// The file name without folders, cut ahead of the first `extension` in it (found in any case; an empty one cuts
/// nothing). Folders end at the last '\', or '/' as native names have it.
std::string BaseName(const std::string& path, const std::string& extension);

double ToRadians(double degrees);

/// Exchanges two values.
void SwapValues(double& a, double& b);

/// "R-01" becomes "R_01".
std::string DashToUnderscore(std::string_view text);

/// Handle of the first top-level window whose title holds `text` (blanks at its ends aside, case counts) within its
/// first 255 characters, or 0. A window without a title never counts.
std::intptr_t FindWindowByTitle(std::string_view text);
