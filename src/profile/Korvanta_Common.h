// Korvanta_Common.h -- editing one part on the Cutting screen: transforms, profile selection, lead moves, the path
// cursor, and the fit of the view.
#pragma once

#include "platform/Surface.h"
#include "state/AppState.h"

/// Restores the shadow and applies angle (degrees), mirror code and scale. NoValue, -1 and -1.0 stand for the texts of
/// the fields. Does nothing without elements. With `redraw` the view is fitted and the screen redrawn.
void ApplyTransform(double angleDeg, std::int16_t mirror, double scale, Flag redraw);

/// Rotates (radians), mirrors, scales the working table and the mark points, in this order.
void TransformPart(double angle, std::int16_t mirror, double scale);

/// Selects profile `number`, wrapping at both ends; true when it wrapped. With `redraw` fields and screen follow.
bool SelectProfile(std::int32_t number, Flag redraw);

/// Fills the lead fields and the move step from the current record.
void ShowProfileFields();

/// Reads the lead fields into the current record and Lead_CONFIG.
void ApplyLeadValues();

/// Moves the lead of the current profile by MoveStep: +1 forward, -1 back. Redraws.
void MoveLead(std::int16_t direction);

/// Moves the lead one unit into the following element. Redraws.
void MoveLeadNextElement();

/// Copies the current record's lead data to every profile.
void CopyLeadsToAll();

/// The key "PrfPathChange": ToggleProfileSense of the current profile and a redraw.
void ChangeProfilePath();

/// Moves the path cursor: +1 forward, -1 back; `shift` 2 (Ctrl alone) goes to an end. Redraws.
void MovePathCursor(std::int16_t direction, std::int16_t shift);

/// Finds PathOriginX, PathOriginY from the cursor's distance, which is clamped to the path.
void UpdatePathCursor();

/// Fits the view of `picture` to the part, or to the box when both its values are above 0. Sets the view members, the
/// scale of the picture, and PartSizeX, PartSizeY.
void FitView(Picture picture, double boxX, double boxY);

/// Runs AppState.Redraw when the shell has set it. Edits of leads and profiles leave the view as it is, so that a zoomed
/// place can be worked on; what changes the part or the sheet fits it anew.
void RedrawScreen(Flag fit);
