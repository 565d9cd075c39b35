// Distances, directions, and what points and directed lines make of each other.
#include "geometry/Orbalib.h"
#include "state/Numbers.h"

#include <cmath>

namespace
{
/// Two points closer than this have no direction.
constexpr double SmallestChord = 1e-9;

/// Two lines whose angle has a smaller sine are parallel.
constexpr double SmallestSine = 1e-9;

/// The point at the signed distances d1 and d2 from two directed lines. False when they are parallel.
bool PointAtDistances(double& x, double& y, const GeoLine& line1, double d1, const GeoLine& line2, double d2)
{
    const double sine = line1[1] * line2[2] - line2[1] * line1[2];
    if (!(std::fabs(sine) >= SmallestSine)) {
        return false;
    }
    const double right1 = d1 - line1[3];
    const double right2 = d2 - line2[3];
    const double meetX = (right1 * line2[2] - right2 * line1[2]) / sine;
    y = (line1[1] * right2 - line2[1] * right1) / sine;
    x = meetX; // last: the out record may be one of the given ones
    return true;
}
} // namespace

double dpp(double x1, double y1, double x2, double y2)
{
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    return std::sqrt(dx * dx + dy * dy);
}

double dpr(double x, double y, double a, double b, double c)
{
    return std::fabs(a * x + b * y + c);
}

double angolo(double dy, double dx)
{
    double angle = std::atan2(dy, dx);
    if (angle < 0.0) {
        angle += 2.0 * Pi;
    }
    // A hair below the x axis rounds up to the full turn; adding 0.0 takes the sign from -0.0.
    return angle < 2.0 * Pi ? angle + 0.0 : 0.0;
}

double minimo(double a, double b)
{
    return b < a ? b : a;
}

double massimo(double a, double b)
{
    return b > a ? b : a;
}

void r_pp(GeoLine& out, const GeoPoint& p1, const GeoPoint& p2, std::int16_t& err)
{
    const double d = dpp(p1[1], p1[2], p2[1], p2[2]);
    if (!(d >= SmallestChord) || !std::isfinite(d)) {
        err = GeoNoLine;
        return;
    }
    const double a = -(p2[2] - p1[2]) / d;
    const double b = (p2[1] - p1[1]) / d;
    out[3] = -(a * p1[1] + b * p1[2]);
    out[1] = a;
    out[2] = b;
}

void p_rr(GeoPoint& out, const GeoLine& line1, const GeoLine& line2, std::int16_t& err)
{
    if (!PointAtDistances(out[1], out[2], line1, 0.0, line2, 0.0)) {
        err = GeoParallel;
    }
}

void s_rr(GeoCircle& out, const GeoLine& line1, const GeoLine& line2, double r, std::int16_t& err)
{
    if (!PointAtDistances(out[1], out[2], line1, r, line2, r)) {
        err = GeoParallel;
        return;
    }
    out[3] = r;
}
