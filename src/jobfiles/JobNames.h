// JobNames.h -- the names that this room's files share.
#pragma once

#include <string>
#include <string_view>

inline constexpr std::string_view JobExtension = ".nst";
inline constexpr std::string_view FormatVersion = "3.00"; ///< key VL

/// The folder of geometry and pictures, below NestingPath; made when it is missing. A failure is a RunTimeFault.
std::string MadeDataFolder();

/// The same without making it.
std::string DataFolder();

/// A job file name up to its ".nst", which is found in any case.
std::string AheadOfExtension(const std::string& file);
