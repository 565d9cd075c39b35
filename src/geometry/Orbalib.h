// Orbalib.h -- directed lines and circles of the plane: tangents, meeting points, sweeps, boxes.
// Needs nothing, changes nothing but its out arguments. Angles in radians, X to the right, Y upward.
#pragma once

#include <array>
#include <cstdint>

/// Index 0 is never read or written.
using GeoPoint = std::array<double, 4>; ///< [1] x, [2] y
using GeoLine =
    std::array<double, 4>; ///< [1] a, [2] b, [3] c: a x + b y + c = 0, (a, b) the unit left normal
using GeoCircle = std::array<double, 4>; ///< [1] x, [2] y, [3] radius, > 0 counter-clockwise

/// Failure words left in `err`; a success leaves the word alone, so an earlier failure stays visible.
inline constexpr std::int16_t GeoNoLine = 2;     ///< r_pp of coincident points
inline constexpr std::int16_t GeoParallel = 3;   ///< two lines without a meeting point
inline constexpr std::int16_t GeoNoMeeting = 4;  ///< line and circle, or two circles, that do not meet
inline constexpr std::int16_t GeoNoTangent = 15; ///< no common tangent line

/// Directed line through p1 then p2. Closer than 1e-9 is a failure.
void r_pp(GeoLine& out, const GeoPoint& p1, const GeoPoint& p2, std::int16_t& err);

/// Meeting point of two lines. |sine| below 1e-9 is a failure.
void p_rr(GeoPoint& out, const GeoLine& line1, const GeoLine& line2, std::int16_t& err);

/// Meeting point of a line and a circle: sel +1 the one met first along the line, -1 the one met last. A miss of
/// less than 0.01 touches, and so does a half chord below 0.01: the foot on the line is the point then.
void p_rc(GeoPoint& out, const GeoLine& line, const GeoCircle& circle, std::int32_t sel, std::int16_t& err);

/// Meeting point of two circles, radii by size: sel +1 the point on the left of the travel from centre 1 to centre 2,
/// -1 the one on the right. Touching by the same tolerance as p_rc.
void p_cc(GeoPoint& out, const GeoCircle& circle1, const GeoCircle& circle2, std::int32_t sel,
          std::int16_t& err);

/// Circle of signed radius r tangent to both directed lines, on the side that r's sign tells.
void s_rr(GeoCircle& out, const GeoLine& line1, const GeoLine& line2, double r, std::int16_t& err);

/// Circle of signed radius r tangent to both directed circles, its centre on the right of the travel from centre 1
/// to centre 2.
void s_cc(GeoCircle& out, const GeoCircle& circle1, const GeoCircle& circle2, double r, std::int16_t& err);

/// The same for a line then a circle (the candidate met first along the line), and for a circle then a line (the
/// candidate met last).
void s_rc(GeoCircle& out, const GeoLine& line, const GeoCircle& circle, double r, std::int16_t& err);
void s_cr(GeoCircle& out, const GeoCircle& circle, const GeoLine& line, double r, std::int16_t& err);

/// Distance of two points; of a point from a line, not negative.
double dpp(double x1, double y1, double x2, double y2);
double dpr(double x, double y, double a, double b, double c);

/// Direction of the vector (dx, dy); note the order of the arguments. 0 to below 2 pi.
double angolo(double dy, double dx);

/// Sweep, not negative, of the arc from start to end about the centre, sign +1 counter-clockwise, -1 clockwise.
/// Start and end closer than 0.01 are a full turn.
double amparco(double cx, double cy, double xs, double ys, double xe, double ye, std::int32_t sign);

/// Box of the arc from start to end about the centre; the sign of r is its direction.
void Quadra_Arco(double xs, double ys, double xe, double ye, double cx, double cy, double r, double& xmax,
                 double& ymax, double& xmin, double& ymin);

double minimo(double a, double b);
double massimo(double a, double b);

/// Line tangent to two directed circles, directed from circle 1 to circle 2. Sets err to 0 first, so callers hand it
/// a word of their own; 15 when there is none.
void TangentLineOfCircles(GeoLine& out, const GeoCircle& circle1, const GeoCircle& circle2,
                          std::int16_t& err);
