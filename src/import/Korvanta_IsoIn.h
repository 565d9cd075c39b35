// Korvanta_IsoIn.h -- ISO-IN: turns the moves of a G-code file into the current part.
#pragma once

#include <string>

/// Imports `name` from NcPath; a name that begins with '/' is taken as it stands. False when the file is missing or
/// gives no length to cut; the tables are then empty.
bool ImportIso(const std::string& name);
