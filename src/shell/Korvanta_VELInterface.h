// Korvanta_VELInterface.h -- the link to the host of a CNC control, for HostMode 1 only: who calls tests that first, since
// each of these makes the host's object that it needs.
#pragma once

#include <cstdint>
#include <string>

/// The host's language as Language: its index 0 to 5 gives 1 to 6, any other 1. Without a host shows the box of a
/// critical error and ends the process.
std::int16_t HostLanguage();

/// Tells the host that the station is up. A host that doesn't answer is a RunTimeFault.
void HostAnnounce();

/// Hands an NC program to the host: `fileName` of the folder NcPath, there or not. A host that doesn't answer is a
/// RunTimeFault.
void HostOpenProgram(const std::string& fileName);
