// Korvanta_Configuration.h -- the settings file Korvanta.ini beside the program.
#pragma once

#include <string>

/// Value of a key of the configuration file, at most 49 characters, cut at its first NUL and trimmed. Goes to the file
/// at each call, except for keys that WriteConfig holds for this run (see HoldConfigWrites).
std::string ReadConfig(const std::string& section, const std::string& key, const std::string& defaultValue);

/// Writes a key. A file that can't be written is no error.
void WriteConfig(const std::string& section, const std::string& key, const std::string& value);

/// From here on WriteConfig keeps its values for this run instead of writing the file, and ReadConfig finds them
/// first: for a run that must leave the station's settings alone.
void HoldConfigWrites();

/// Reads the start-up table into AppState, then the message catalogue, which ends the process when it is missing. Needs
/// AppPath and ProgramName.
void LoadConfiguration();

/// Folder text with its trailing backslash.
std::string WithBackslash(const std::string& folder);
