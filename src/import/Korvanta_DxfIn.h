// Korvanta_DxfIn.h -- DXF-IN: turns the entity stream of a drawing into the current part.
#pragma once

#include <string>

/// Imports `name` from DxfPath; a name that begins with '/' is taken as it stands. `name` keeps the full path.
/// False: the tables are empty, nothing was imported, and ImportFailure says why. Fills the import account of AppState.
bool ImportDxf(std::string& name);
