// TableGeometry.h -- exact areas, boxes and places of the profiles in the element table, worked out in their own way.
#pragma once

#include "state/AppState.h"

#include <cstdint>
#include <vector>

/// The drawn elements of a profile are the slots First .. Mark - 1.
struct TableProfile {
    std::int32_t First = 0;
    std::int32_t Mark = 0;
};

struct TableBox {
    double MinX = 0.0;
    double MinY = 0.0;
    double MaxX = 0.0;
    double MaxY = 0.0;
};

struct TablePoint {
    double X = 0.0;
    double Y = 0.0;
};

/// From end mark to end mark of the working table.
std::vector<TableProfile> ProfilesInTable();

/// Turn of the arc in `slot` up to the start of the next one, above 0 counter-clockwise; a full turn when they coincide.
double TurnOf(std::int32_t slot);

/// Signed area of a profile, above 0 counter-clockwise: chords, and the segments of the arcs.
double ExactArea(const TableProfile& profile);

/// Points along a profile: the starts of its elements, and on arcs a point for each degree or so.
std::vector<TablePoint> PointsAlong(const TableProfile& profile);

/// Box of a profile, or of the whole part, by PointsAlong; the four outermost points of each arc count exactly.
TableBox BoxOf(const TableProfile& profile);
TableBox BoxOfTable();

/// True when a point lies inside the contour through these points.
bool IsInside(const TablePoint& point, const std::vector<TablePoint>& contour);
