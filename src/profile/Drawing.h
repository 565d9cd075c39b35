// Drawing.h -- the strokes of one part on a picture: contours, leads, rapid lines, and the marker of the cut's side.
#pragma once

#include "platform/Surface.h"
#include "profile/Korvanta_ProfileCut.h"
#include "state/AppState.h"

#include <cstdint>
#include <vector>

enum class StrokeKind : std::int16_t {
    Line,   ///< (X1, Y1) to (X2, Y2)
    Circle, ///< about (X1, Y1), X2 the radius
    Arc     ///< the same from the angle From to To
};

/// One stroke of a part that stands at (0, 0), as the surface takes it but for the place of the copy.
struct PartStroke {
    SurfacePen Pen;
    StrokeKind Kind = StrokeKind::Line;
    float From = 0.0F; ///< radians
    float To = 0.0F;
    double X1 = 0.0;
    double Y1 = 0.0;
    double X2 = 0.0;
    double Y2 = 0.0;
};

using PartStrokes = std::vector<PartStroke>;

/// What DrawPart draws, for any number of copies. Reads KERFPOSDRAW for a part with markers.
PartStrokes CollectPart(Flag marker);

/// Strokes with the copy at (x, y). The pen is set where it changes.
void DrawStrokes(Picture picture, const PartStrokes& strokes, double x, double y);

/// Contours of the part at (x, y), the current profile red and thick, then a cross at each mark point. With `marker` each
/// profile gets its kerf marker.
void DrawPart(Picture picture, double x, double y, Flag marker);

/// An arc from start to end about the centre in the pen that is set; a full circle when start and end are closer than
/// 0.01. r above 0 runs counter-clockwise.
void DrawArc(Picture picture, double centreX, double centreY, double startX, double startY, double endX,
             double endY, double r);

/// Length of an arrow's barb in the view in force.
double BarbLength();

/// A shaft from (x1, y1) to (x2, y2) with two barbs at its end, in `rgb`.
void DrawArrow(Picture picture, double x1, double y1, double x2, double y2, std::uint32_t rgb);

/// What a drawn step of the cut is.
enum class MoveStep : std::int16_t {
    Rapid, ///< between the cuts: dashed, always 1 pixel wide
    LeadIn,
    Profile,
    LeadOut,
};

/// One step of the cut of the copy at (x, y): from `move` to `next`, in the colour of what it is, `width` pixels wide. Leaves
/// PenX, PenY at its end.
void DrawMoveStep(MoveStep mode, Picture picture, const CutMove& move, const CutMove& next, double x,
                  double y, std::int16_t width);

/// The overlay of the cut for one copy at (x, y): rapid lines, lead-ins and lead-outs, `width` pixels wide. Starts at PenX,
/// PenY and leaves them where the cut ends. Finds the lead points, as BuildLeads does.
void DrawMoves(Picture picture, double x, double y, std::int16_t width);

/// The leads of one profile, and those of all.
struct ProfileLeads {
    LeadRecordArray Records;
};
using PartLeads = std::vector<ProfileLeads>;

/// BuildLeads for each profile.
void CollectLeads(PartLeads& leads);

/// What DrawMoves draws, with leads that were found before.
void DrawLeads(Picture picture, const PartLeads& leads, double x, double y, std::int16_t width);

/// The marker of compensation side and direction on the element `slot`, in the colour of its profile; nothing on the
/// Parameters screen. Reads KERFPOSDRAW.
void DrawKerfMarker(Picture picture, std::int32_t slot, double x, double y);
