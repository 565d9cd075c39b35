// Korvanta_Interface.h -- the screens without a window: start of the station, captions, the field routines of each
// screen, and the ways between screens.
#pragma once

#include "state/AppState.h"

#include <string>

/// Program name, folder, configuration, catalogue, language (0: key LANGUAGE), fields with captions and change
/// routines, the redraw. `stationFolder` without a trailing separator.
void StartStation(const std::string& stationFolder, std::int16_t language);

/// Captions of the fields from the catalogue.
void SetCaptions();

/// The starting texts of a newly opened part.
void ResetFieldsForPart();

/// Focus arriving on, and leaving, a field of the Cutting or Nesting screen.
void CuttingFieldEntered(std::int16_t index);
void NestingFieldEntered(std::int16_t index);
void CuttingFieldLeft(std::int16_t index);
void NestingFieldLeft(std::int16_t index);

/// What Enter, Down or Up in a Nesting field other than Zoom ends with.
void EndNestingEntry(std::int16_t index);

/// The Cutting screen with lead data set up; the Nesting screen with its layout.
void EnterCuttingScreen(bool rebuild);
void EnterNestingScreen();
