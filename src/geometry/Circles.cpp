// Where circles meet lines and each other, and the circles and lines tangent to them.
#include "geometry/Orbalib.h"
#include "state/Numbers.h"

#include <algorithm>
#include <cmath>

namespace
{
/// Circles with centres closer than this have no centre line.
constexpr double SmallestCentreDistance = 1e-9;

/// h2 of TangentLineOfCircles up to this size is rounding of a tangent at one common point.
constexpr double TangentSlack = 0.01;

/// Half the chord that a circle of radius `radius` cuts from a line at `distance` from its centre. A miss of less
/// than the tolerance, and a chord that short, are a touch: 0. False when they don't meet.
bool HalfChord(double& half, double radius, double distance)
{
    const double square = radius * radius - distance * distance;
    half = 0.0;
    if (square >= Tolerance * Tolerance) {
        half = std::sqrt(square);
        return true;
    }
    return std::fabs(distance) - radius < Tolerance;
}

/// Where the line parallel to `line` at the signed distance `offset` meets the circle of `radius` about (cx, cy):
/// `sel` +1 the point met first along the line, -1 the one met last. False when they don't meet.
bool MeetLine(double& x, double& y, const GeoLine& line, double offset, double cx, double cy, double radius,
              std::int32_t sel)
{
    const double distance = line[1] * cx + line[2] * cy + line[3] - offset;
    double half = 0.0;
    if (!HalfChord(half, radius, distance)) {
        return false;
    }
    const double along = sel < 0 ? half : -half;
    const double meetX = cx - distance * line[1] + along * line[2];
    y = cy - distance * line[2] - along * line[1];
    x = meetX; // last: the out record may be one of the given ones
    return true;
}

/// Where circles of the sizes radius1 and radius2 about the centres of two circles meet: `sel` +1 on the left of the
/// travel from centre 1 to centre 2, -1 on the right. False when they don't meet.
bool MeetCircle(double& x, double& y, const GeoCircle& circle1, double radius1, const GeoCircle& circle2,
                double radius2, std::int32_t sel)
{
    const double d = dpp(circle1[1], circle1[2], circle2[1], circle2[2]);
    const double miss = std::max(d - radius1 - radius2, std::fabs(radius1 - radius2) - d);
    if (!(d >= SmallestCentreDistance) || !(miss < Tolerance)) {
        return false;
    }
    // Foot of the common chord on the centre line. The line of equal powers runs away from two circles that nearly
    // share their centre, so the foot of a touch is held between the two circles.
    const double foot = std::clamp((d * d + (radius1 - radius2) * (radius1 + radius2)) / (2.0 * d),
                                   std::min(-radius1, d - radius2), std::max(radius1, d - radius2));
    double half = 0.0;
    if (miss < 0.0) {
        HalfChord(half, radius1, foot);
    }
    const double along = sel < 0 ? -half : half;
    const double ux = (circle2[1] - circle1[1]) / d;
    const double uy = (circle2[2] - circle1[2]) / d;
    const double meetX = circle1[1] + foot * ux - along * uy;
    y = circle1[2] + foot * uy + along * ux;
    x = meetX;
    return true;
}

/// The circle of signed radius r tangent to a directed line and a directed circle; `sel` as in MeetLine.
void TangentToLineAndCircle(GeoCircle& out, const GeoLine& line, const GeoCircle& circle, double r,
                            std::int32_t sel, std::int16_t& err)
{
    if (!MeetLine(out[1], out[2], line, r, circle[1], circle[2], std::fabs(circle[3] - r), sel)) {
        err = GeoNoMeeting;
        return;
    }
    out[3] = r;
}
} // namespace

void p_rc(GeoPoint& out, const GeoLine& line, const GeoCircle& circle, std::int32_t sel, std::int16_t& err)
{
    if (!MeetLine(out[1], out[2], line, 0.0, circle[1], circle[2], std::fabs(circle[3]), sel)) {
        err = GeoNoMeeting;
    }
}

void p_cc(GeoPoint& out, const GeoCircle& circle1, const GeoCircle& circle2, std::int32_t sel,
          std::int16_t& err)
{
    if (!MeetCircle(out[1], out[2], circle1, std::fabs(circle1[3]), circle2, std::fabs(circle2[3]), sel)) {
        err = GeoNoMeeting;
    }
}

void s_cc(GeoCircle& out, const GeoCircle& circle1, const GeoCircle& circle2, double r, std::int16_t& err)
{
    if (!MeetCircle(out[1], out[2], circle1, std::fabs(circle1[3] - r), circle2, std::fabs(circle2[3] - r),
                    -1)) {
        err = GeoNoMeeting;
        return;
    }
    out[3] = r;
}

void s_rc(GeoCircle& out, const GeoLine& line, const GeoCircle& circle, double r, std::int16_t& err)
{
    TangentToLineAndCircle(out, line, circle, r, 1, err);
}

void s_cr(GeoCircle& out, const GeoCircle& circle, const GeoLine& line, double r, std::int16_t& err)
{
    TangentToLineAndCircle(out, line, circle, r, -1, err);
}

void TangentLineOfCircles(GeoLine& out, const GeoCircle& circle1, const GeoCircle& circle2, std::int16_t& err)
{
    err = 0;
    const double dx = circle2[1] - circle1[1];
    const double dy = circle2[2] - circle1[2];
    const double dr = circle2[3] - circle1[3];
    const double d2 = dx * dx + dy * dy;
    const double h2 = d2 - dr * dr;
    if (!(d2 > 0.0) || !(h2 >= -TangentSlack)) {
        err = GeoNoTangent;
        return;
    }
    const double h = h2 >= TangentSlack ? std::sqrt(h2) : 0.0;
    const double a = -(h * dy - dr * dx) / d2;
    const double b = (dr * dy + h * dx) / d2;
    out[3] = circle1[3] - (a * circle1[1] + b * circle1[2]);
    out[1] = a;
    out[2] = b;
}
