// Korvanta_Interface.h -- the screens without a window: start of the station, captions, the field routines of each
// screen, and the ways between screens.
#pragma once

#include "state/AppState.h"

#include <string>

// --- start (Start.cpp) ------------------------------------------------------------------------------------

/// Program name, folder, configuration, catalogue, language (0: key LANGUAGE), fields with captions and change
/// routines, the redraw. `stationFolder` without a trailing separator. A language out of 1 to 6: RunTimeFault.
void StartStation(const std::string& stationFolder, std::int16_t language);

/// The two steps of StartStation before and behind the choice of the language.
void LoadStation(const std::string& stationFolder);
void PrepareScreens();

/// The start of the station behind a window, in a process of its own: ends it at once when another one runs, after
/// bringing that to the foreground. `commandLine` is empty or a language number. Ends on the Input screen.
void StartWindow(const std::string& stationFolder, const std::string& commandLine);

/// The size of the job preview from the settings.
void PlanPreview();

/// Captions of the fields and tabs from the catalogue.
void SetCaptions();

/// The starting texts of a newly opened part; the fixed counts are cleared, and there is no shape.
void ResetFieldsForPart();

// --- fields of the Cutting screen (CuttingFields.cpp) -------------------------------------------------------

/// What a change of text of TextCutting `index` runs.
void CuttingFieldChanged(std::int16_t index);

/// Focus arriving on, and leaving, TextCutting `index`. Leaving a lead field or Move Step validates it and applies the
/// lead values. The Zoom field shows its frame, and leaving it applies the zoom, unless a key-bar click does so.
void CuttingFieldEntered(std::int16_t index);
void CuttingFieldLeft(std::int16_t index);

/// What Enter, Down or Up in TextCutting `index` ends with, the focus having gone on: the field is validated.
void EndCuttingEntry(std::int16_t index);

// --- fields of the Nesting screen (NestingFields.cpp) -------------------------------------------------------

/// What a change of text of TextNesting `index` runs.
void NestingFieldChanged(std::int16_t index);

/// Focus arriving on, and leaving, TextNesting `index`. Leaving applies a changed sheet, else changed gaps; arriving
/// clears both marks.
void NestingFieldEntered(std::int16_t index);
void NestingFieldLeft(std::int16_t index);

/// What Enter, Down or Up in TextNesting `index` ends with, the focus having gone on: the field is validated; except
/// for Zoom what that changed is then applied, and the screen redrawn.
void EndNestingEntry(std::int16_t index);

/// The field that Enter or Down goes to; it passes over the last field, Zoom.
std::int16_t NextField(std::int16_t index, std::int16_t fieldCount);

// --- screens (ScreenWays.cpp) -------------------------------------------------------------------------------

/// What the operator opened on the Input screen.
enum class ImportKind { Drawing, Program };

/// Opens an import as a new part and goes to the Parameters screen. A failure shows the box with messages 34 and 38,
/// stays on the Input screen and gives false. `name` as ImportDxf and ImportIso take it.
bool OpenImport(ImportKind kind, std::string name);

/// Opens a shape of the catalogue with its defaults and goes to the Parameters screen. An identifier without a row does
/// nothing.
void OpenShape(std::int16_t shapeId);

/// Opens a saved job, `name` with or without ".nst", and goes to the Parameters screen.
void OpenSavedJob(const std::string& name);

/// Shows or hides a panel.
void ShowPanel(Panel panel, bool visible);

/// The screen of CAM tab 0 Parameters, 1 Cutting, 2 Nesting. Keeps the tab in PreviousCamTab.
void EnterCamTab(std::int16_t tab);

/// One CAM tab further or back (F10, F9), around the ends.
void NextCamTab();
void PreviousCamTab();

void EnterInputScreen();
void EnterParametersScreen();

/// The Cutting screen; with `rebuild` (any way but from Nesting) the part is built and its lead data set up first, and
/// profile 1 is selected. A shape that can't be built leads back to the Parameters screen after the failure box.
void EnterCuttingScreen(bool rebuild);

/// The Nesting screen with its layout.
void EnterNestingScreen();

/// Sheet sizes "0", no counts.
void ClearNestResults();
