// Sweep and box of an arc. Start and end closer than the tolerance are a full turn.
#include "geometry/Orbalib.h"
#include "state/Numbers.h"

#include <cmath>

namespace
{
/// Turn, 0 to a full one, from angle `from` to angle `to`: counter-clockwise, or clockwise.
double TurnBetween(double from, double to, bool clockwise)
{
    const double turn = clockwise ? from - to : to - from;
    return turn < 0.0 ? turn + 2.0 * Pi : turn;
}
} // namespace

double amparco(double cx, double cy, double xs, double ys, double xe, double ye, std::int32_t sign)
{
    if (dpp(xs, ys, xe, ye) < Tolerance) {
        return 2.0 * Pi;
    }
    return TurnBetween(angolo(ys - cy, xs - cx), angolo(ye - cy, xe - cx), sign < 0);
}

void Quadra_Arco(double xs, double ys, double xe, double ye, double cx, double cy, double r, double& xmax,
                 double& ymax, double& xmin, double& ymin)
{
    struct QuadrantPoint {
        double Angle;
        double X;
        double Y;
    };
    const double size = std::fabs(r);
    const QuadrantPoint points[] = {
        {0.0, cx + size, cy},
        {0.5 * Pi, cx, cy + size},
        {Pi, cx - size, cy},
        {1.5 * Pi, cx, cy - size},
    };
    xmax = massimo(xs, xe);
    ymax = massimo(ys, ye);
    xmin = minimo(xs, xe);
    ymin = minimo(ys, ye);
    const double sweep = amparco(cx, cy, xs, ys, xe, ye, r < 0.0 ? -1 : 1);
    const double start = angolo(ys - cy, xs - cx);
    for (const QuadrantPoint& point : points) {
        if (TurnBetween(start, point.Angle, r < 0.0) <= sweep) {
            xmax = massimo(xmax, point.X);
            ymax = massimo(ymax, point.Y);
            xmin = minimo(xmin, point.X);
            ymin = minimo(ymin, point.Y);
        }
    }
}
