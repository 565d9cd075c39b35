// PprValues.h -- the one way into the post-processor table. It stands here, below the importers and the generator,
// because both ask it.
#pragma once

#include <string>
#include <string_view>

/// Value of a key of the post-processor table, at most 255 characters, cut at its first NUL; blanks as the key file
/// delivers them. A missing file, section or key gives `defaultValue`. Goes to the file at each call. Needs AppPath; an
/// empty PprIniName becomes "PPR.ini".
std::string ReadPprValue(std::string_view section, std::string_view key, std::string_view defaultValue);

/// The same without a copy, for the walk of a program: the view holds until the next read of any key file or until
/// `defaultValue` goes.
std::string_view FindPprValue(std::string_view section, std::string_view key, std::string_view defaultValue);

/// INC_CENTER: arc centres stand relative to the arc's start. Off when the value holds "NO", on for any other value.
bool ReadIncrementalCentre();
