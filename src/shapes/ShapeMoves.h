// ShapeMoves.h -- the few moves that every builder is written in: a pen that draws lines and arcs into the element table,
// holes, and the checks at a builder's head.
#pragma once

#include "geometry/Orbalib.h"
#include "shapes/Korvanta_Develop.h"

#include <cstdint>
#include <initializer_list>

/// Values of the class on a closing record ("LeadHint").
inline constexpr double HintPlain = 0.0;
inline constexpr double HintRound = 2.0;
inline constexpr double HintFramed = 4.0;

/// The least length of a required measure.
inline constexpr double LeastMeasure = 0.1;

/// Where the contour stands that is being drawn, and what its records carry.
struct ShapePen {
    double X = 0.0;
    double Y = 0.0;
    std::int16_t Sense = 1;
    bool StatesEnds = false; ///< records carry their own end instead of leaving it to the next record
};

// --- checks at a builder's head ---------------------------------------------------------------------------

/// True, with ErrBadShape in `err`, when any measure is below 0.1. Written so that no NaN passes.
bool AnyTooSmall(std::initializer_list<double> measures, std::int16_t& err);

/// True, with ErrBadShape in `err`, when `failed` holds.
bool Fails(bool failed, std::int16_t& err);

// --- drawing ----------------------------------------------------------------------------------------------

/// Draws to a point. A line of no length is a failure of the geometry, left in `err`.
void LineTo(ShapePen& pen, double x, double y, std::int16_t& err);
void LineTo(ShapePen& pen, const GeoPoint& to, std::int16_t& err);

/// Draws about (cx, cy) to (x, y); r above 0 counter-clockwise, below 0 clockwise.
void ArcTo(ShapePen& pen, double cx, double cy, double r, double x, double y);

/// Draws along a directed circle to a point on it.
void ArcOn(ShapePen& pen, const GeoCircle& circle, const GeoPoint& to);

/// Adds one record that starts at (x, y) on a given line or circle; its end is left to the next record. The pen stays
/// where the contour began.
void DrawOn(const ShapePen& pen, std::int16_t kind, const GeoLine& geometry, double x, double y);

/// Closes a contour that is not the last one / the last one, where the pen stands.
void CloseInner(const ShapePen& pen, double leadHint);
void CloseOuter(const ShapePen& pen, double leadHint);

/// A full circle from (x, y) about (cx, cy), to be closed by the caller.
ShapePen FullCircle(double x, double y, double cx, double cy, double r);

/// A whole inner contour: a full circle about (cx, cy), counter-clockwise from (x, y). Left out when the diameter isn't
/// above 0.
void RoundHole(double x, double y, double cx, double cy, double diameter);

/// The same from its bottom point.
void HoleFromBottom(double cx, double cy, double diameter);

// --- points, lines and circles ----------------------------------------------------------------------------

GeoPoint PointAt(double x, double y);
GeoCircle CircleAt(double cx, double cy, double r);

/// The directed line through two points.
GeoLine LineThrough(double x1, double y1, double x2, double y2, std::int16_t& err);

/// Where a line meets a circle first, or last.
GeoPoint FirstMeeting(const GeoLine& line, const GeoCircle& circle, std::int16_t& err);
GeoPoint LastMeeting(const GeoLine& line, const GeoCircle& circle, std::int16_t& err);

/// The points at which a tangent line touches two directed circles.
struct TouchingPoints {
    GeoPoint From{};
    GeoPoint To{};
};

/// Of the line tangent to two directed circles; a missing one is merged into `err`, never cleared.
TouchingPoints TangentOf(const GeoCircle& from, const GeoCircle& to, std::int16_t& err);

/// The circle of signed radius r tangent to two directed circles.
GeoCircle FilletOf(const GeoCircle& from, const GeoCircle& to, double r, std::int16_t& err);

/// Where two circles touch.
GeoPoint ContactOf(const GeoCircle& one, const GeoCircle& other, std::int16_t& err);
