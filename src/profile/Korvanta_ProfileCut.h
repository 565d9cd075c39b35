// Korvanta_ProfileCut.h -- from a raw element table to cut-ready profiles: chaining, ordering, measuring, and the
// leads of each profile. Works on AppState; draws nothing and shows no message.
#pragma once

#include "geometry/Orbalib.h"
#include "state/AppState.h"

#include <cstdint>
#include <vector>

// --- the element table ---------------------------------------------------------------------------------

/// Adds one record. An endX of NoValue leaves the end open: the previous slot ends where this one starts.
/// Writes ElementTable, ElementCount and, for an end mark, ProfileCount. Beyond 32767 slots: RunTimeFault.
void AddElement(const std::int16_t& kind, const double& startX, const double& startY, const double& geoA,
                const double& geoB, const double& geoC, const double& endX, const double& endY,
                const std::int16_t& sense);

/// True when `more` records would pass the 32767 slots. Importers ask before each AddElement (with 1) and stop with
/// false after ClearPart; NormaliseImport asks for the end marks. Whoever doesn't ask gets the fault.
bool WouldPassElementLimit(std::int32_t more);

/// Empties element, shadow and mark tables, the profile table, counts, the box, the current profile and the path cursor;
/// MoveStep becomes 10.0, and the flags that a shape set on its part are cleared. The start of every development and import.
void ClearPart();

/// Empties what an import tells of its file. The start of every import and load.
void ClearImportAccount();

// --- ordering (see docs/architecture.md, "From elements to profiles") ------------------------------------

/// Reorders and turns elements so that each follows the one it touches. Raw tables only (no end marks).
void ChainElements();

/// Inserts the end marks. Sets ProfileCount. Beyond 32767 slots: RunTimeFault.
void SplitIntoProfiles();

/// Inserts one end mark at slot `position` (1 .. ElementCount + 1, else RunTimeFault) and raises ProfileCount.
void InsertEndMark(std::int16_t position);

/// Moves the part so that its low corner is 0, 0: elements and mark points.
void ShiftToOrigin();

/// Stores signed areas on the end marks (0.0 on open profiles), runs ComputeBounds. `largest`: number of the largest
/// profile, open ones included, 0 without any; returns its absolute area.
double ComputeProfileAreas(std::int16_t& largest);

/// Signed area below an arc, measured from refY.
double ArcArea(double startX, double startY, double endX, double endY, double centreX, double centreY,
               double radius, double refY);

/// Puts profile `largest` last (0 keeps the order) and the last boundary profile just before it; flags all boundaries,
/// the inner profiles whose area differs from the outer one by less than EXTPRF_BOUND.
void PutOuterLast(std::int16_t largest);

/// Gives each closed profile the working sense of its class: inner, or outer and boundary. Open ones stay.
void OrientProfiles();

/// Turns the profile whose end mark stands at `last`; `count` counts its elements, end mark included. Sense of the
/// drawn elements and the area change their signs. Slots that hold no such profile: RunTimeFault.
void ReverseProfile(std::int16_t last, std::int16_t count);

/// Turns one profile and its wanted sense; negates Side of a closed one.
void ToggleProfileSense(std::int32_t profile);

/// Fills Length, ProfileLength, TotalCutLength, CornerSnap, ProfileEnds; with the flag also the shadow.
void MeasureProfiles(Flag refreshShadow);

/// Copies the working elements and mark points to the shadow, and back. A shadow that is shorter than the part:
/// RunTimeFault.
void SaveShadow();
void RestoreShadow();

/// Fills MinX .. MaxY from -100000 .. 100000.
void ComputeBounds();

/// Absolute area of a profile, 0.0 when it is open or missing; `endMark` its end mark, `sense` the sign of the area.
double ProfileArea(std::int32_t profile, std::int32_t& endMark, std::int16_t& sense);

/// Slot of the end mark of a profile, and of its first element. ProfileEnds serves when it fits the table, a walk
/// otherwise. 0 when there is no such profile. Who moves end marks without these routines clears ProfileEnds.
std::int32_t EndMarkOf(std::int32_t profile);
std::int32_t FirstElementOf(std::int32_t profile);

/// Which rule gives the sides of an imported part (see docs/compensation.md).
enum class ImportSides {
    Drawing, ///< closed profiles are cut on the left after orientation, open ones have no side
    Program  ///< closed profiles that were given any side are cut on the left, open ones keep theirs
};

/// The end of an import, from a table without end marks to measured profiles and their shadow: split, shift, areas,
/// outer last, working senses, orientation, sides, lengths. Fills AppState.ImportOpen; `offsetX`, `offsetY` is what
/// was subtracted from the file's coordinates. False, with everything emptied by ClearPart: the end marks would pass
/// the 32767 slots, or a coordinate is no usable number; ImportFailure tells which.
bool NormaliseImport(ImportSides sides, double offsetX, double offsetY);

// --- leads -------------------------------------------------------------------------------------------------

/// Lead records of one profile: 1 to 3 lead-in, 4 to 6 lead-out; 0 is never used.
using LeadRecordArray = CutMove[7];

/// InitProfileRecord for each profile; with KeepLeadData those already initialised stay.
void InitLeadData();

/// Defaults of one record with Status 0. Reads Lead_CONFIG.
void InitProfileRecord(std::int32_t profile);

/// The lead point: point in, point out, tangent angle. Overwrites `leadPosition` when it lies past the end. Sets Status
/// and LeadElement of the record.
void FindLeadPoint(double& inX, double& inY, double& outX, double& outY, double& tangent,
                   double& leadPosition, std::int32_t profile);

/// Fills the seven records (cleared first) for the current lead values.
void BuildLeads(LeadRecordArray& leads, std::int32_t profile);

/// The move list of a profile, leads included, in list[1 ..]; list[0] is never used. `side` 1 left, -1 right, 0 none.
/// flyOff in the job's unit, below 0.01 for none. The list is cleared first and keeps its storage.
void BuildCutMoves(std::vector<CutMove>& list, std::int32_t profile, std::int16_t& side, double flyOff);
