// ShapeContours.h -- outlines that several shapes of the library share.
#pragma once

#include "shapes/Korvanta_Develop.h"
#include "shapes/ShapeMoves.h"

#include <cstdint>
#include <initializer_list>

// --- whole outer contours, clockwise, closing record included ----------------------------------------------
// Plates are B wide and A high, lower left corner at the origin.

void PlainPlate(double A, double B, std::int16_t& err);
void RoundedPlate(double A, double B, double R, double leadHint, std::int16_t& err);

/// All four corners cut: X along the horizontal edges, Y along the vertical ones.
void ChamferedPlate(double A, double B, double X, double Y, std::int16_t& err);

/// A notch X by Y out of each corner.
void CrossPlate(double A, double B, double X, double Y, std::int16_t& err);

/// Legs A up and B along.
void RightTriangle(double A, double B, std::int16_t& err);

/// A half circle of diameter B on the left of a rectangle A long.
void DPlate(double A, double B, std::int16_t& err);

/// Clockwise circles in order, joined by tangent lines like pulleys by a belt. It begins where the belt leaves the first.
void Belt(std::initializer_list<GeoCircle> circles, std::int16_t& err);

/// A hexagon through six corners in order, each rounded by the signed radius `r`; straight at 0. Kind 9, class 2. The one
/// outer contour here that may run counter-clockwise.
struct HexagonCorner {
    double X;
    double Y;
};
void RoundedHexagon(const HexagonCorner (&corners)[6], double r, std::int16_t& err);

// --- boxes, counter-clockwise, left open for the caller's closing record -----------------------------------

struct ShapeBox {
    double Left;
    double Bottom;
    double Right;
    double Top;
};

/// Four lines from the lower left corner, to which the pen is set.
void StraightBox(ShapePen& pen, const ShapeBox& box, std::int16_t& err);

/// Four lines, and arcs of radius r at the corners, from the left end of the bottom line, to which the pen is set.
void RoundBox(ShapePen& pen, const ShapeBox& box, double r, std::int16_t& err);

/// A box about (cx, cy): with r above 0 what RoundedRectangle draws, otherwise four lines. False after its failure.
bool BoxContour(ShapePen& pen, double cx, double cy, double width, double height, double r,
                std::int16_t& err);

// --- twin halves ------------------------------------------------------------------------------------------

/// The entry of a twin-half contour at the middle of its bottom edge: a straight piece L and a quarter arc LR, as sizes.
struct TwinEntry {
    double Middle; ///< X of the middle of the bottom edge
    double L;
    double LR;
};

/// Which half: the left one runs clockwise with Sense 1, the right one counter-clockwise with Sense -1.
enum class TwinHalf { Left, Right };

/// Draws the entry of one half up to (Middle, 0). A straight piece below 0.01 and an arc of exactly 0 are left out.
ShapePen BeginTwinHalf(const TwinEntry& entry, TwinHalf half, std::int16_t& err);

/// The straight exit of a tail above 0, then the closing record of Kind 9.
void EndTwinHalf(ShapePen& pen, double tail, std::int16_t& err);
