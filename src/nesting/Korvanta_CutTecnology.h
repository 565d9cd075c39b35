// Korvanta_CutTecnology.h -- the regular grid of copies on the sheet, and the redraw of the screens that show it.
#pragma once

#include "platform/Surface.h"
#include "state/AppState.h"

#include <string>

/// Entered with the Nesting screen: nest type, part size, sheet raised to the part, counts, redraw.
void RunNesting();

/// Sheet sizes that fixed counts ask for; clears NestFieldTouched.
void RebuildNest();

/// After an entry in TextNesting 0 or 1 (`field`): "*n" and the least sheet.
void ApplySheetEntries(std::int16_t field);

/// "*n" gives n cells of `pitch`, rounded up, and `count` = n; any other text stands as it is with count 0.
/// Cells of pitch 0: RunTimeFault.
std::string ParseCountEntry(const std::string& text, double pitch, std::int32_t& count);

/// Counts and gaps in force; on screens other than Nesting one copy and no gap. Beyond 32 bits a count is clamped.
/// Copies that stand on each other (pitch 0): RunTimeFault.
void ComputeLayout();

/// Called for each placed copy with its position, counters from 1; false ends the walk.
using CopyVisitor = bool (*)(double copyX, double copyY, void* context);

/// The program's walk over the nest: order, reversal and limits as in the program. `originX`, `originY` is the first
/// cell. The number of visited copies is the result. Cells beside the sheet cost next to nothing.
std::int64_t WalkCopies(double originX, double originY, CopyVisitor visit, void* context);

/// The number of copies of that walk, without walking it.
std::int64_t CountCopies(double originX, double originY);

/// A box in the coordinates of the sheet.
struct NestBox {
    double Left = 0.0;
    double Bottom = 0.0;
    double Right = 0.0;
    double Top = 0.0;
};

/// The box round the parts of that walk, leads not counted, without walking it. False when it has no copy.
bool FindNestBox(double originX, double originY, NestBox& box);

// --- the screens that show it (Scene.cpp, Redraw.cpp) ---------------------------------------------------------

/// True where the sheet and the nest are shown: on the Nesting screen, and in SaveMode, whose preview shows them still.
bool ShowsNest();

/// The picture of the current screen: Tecno, Nesting, in SaveMode Preview, else Param.
Picture CurrentPicture();

/// FitView to what a picture shows: the sheet where the nest is shown, else the part.
void FitScene(Picture picture);

/// Clears a picture and draws the part on it, with axes and sizes when `axes` is set; or the sheet with the nest, after
/// ComputeLayout. `fit` fits the view first, `marker` is DrawPart's. A part without size leaves the picture empty. Without
/// a shown picture only the numbers follow: layout, view, PartSizeX, PartSizeY.
void DrawScene(Picture picture, Flag fit, Flag axes, Flag marker);

/// The sheet from (0, 0), filled with `rgb`, with its outline and its shadow.
void DrawSheet(Picture picture, double width, double height, std::uint32_t rgb);

/// The overlay of the cut of every copy in the order of the program, strokes `width` pixels wide, two lines of text with
/// copies, pierces and cut length, and the origin mark. Sets CopiesDrawn, PenX, PenY, and the lead points as each
/// drawn copy does. Off the Cutting and Nesting screens nothing.
void DrawStatistics(Picture picture, std::int16_t width);

/// Two arrows at the program's zero: the path cursor, or the corner of the first cell.
void DrawOriginMark(Picture picture);

/// Scene and statistics of the current screen, strokes of the overlay `width` pixels wide; with `fit` the view is
/// fitted first. A frame of the zoom, a rubber line or a head that stood on the picture stands there again. Off the Cutting and
/// Nesting screens nothing; in SaveMode the nest on the preview.
void RedrawCurrent(std::int16_t width, Flag fit);

/// The same with the usual width: what AppState.Redraw is set to.
void RedrawScene(Flag fit);

/// The nest on the preview of the Input screen, fitted, without axes, markers and statistics: small as it is, only the
/// copies on the sheet can be told. The view stays that of the picture before.
void DrawNestPreview();

/// The part after a change of its table: bounds, the view fitted to it, and the scene with all that belongs to it.
void RefreshPart(Picture picture);

/// The frame of the zoom: the view divided by `factor` about ViewCentreX, ViewCentreY, and two lines through the centre, on
/// inverting strokes. Drawn a second time it is gone.
void DrawZoomFrame(Picture picture, double factor);

/// The head of the simulation where it is told to stand, on inverting strokes: a small cross, or a cross-hair over the whole
/// view. Drawn a second time it is gone.
void DrawSimulationHead(Picture picture);

/// The text of the statistics once more: what was drawn over it is under it then. DrawStatistics has told where it stands.
void RaiseStatistics(Picture picture);

/// The rubber line of the distance that is being measured, on inverting strokes. Drawn a second time it is gone. A line
/// without length leaves no stroke, drawn or erased.
void DrawRubberLine(Picture picture);
