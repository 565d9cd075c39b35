// JobKeys.h -- reading the keys of a job file. It stands here, below the generator, because the input block asks it.
#pragma once

#include <string>

/// Value of a key of the job file `file` in NestingPath, at most 49 characters, cut at its first NUL and trimmed.
/// The section name is given without brackets.
std::string ReadJobKey(const std::string& file, const std::string& section, const std::string& key,
                       const std::string& defaultValue);
