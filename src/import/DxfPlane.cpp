#include "import/DxfPlane.h"

#include "state/Numbers.h"

#include <cmath>

namespace
{

/// Below this both ways the normal is so near to z that the y axis serves as its helper: the bound of the format.
constexpr double ArbitraryAxisBound = 1.0 / 64.0;

struct Direction {
    double X;
    double Y;
    double Z;
};

Direction Cross(const Direction& a, const Direction& b)
{
    return {a.Y * b.Z - a.Z * b.Y, a.Z * b.X - a.X * b.Z, a.X * b.Y - a.Y * b.X};
}

Direction Unit(const Direction& d)
{
    const double length = std::hypot(d.X, d.Y, d.Z);
    return {d.X / length, d.Y / length, d.Z / length};
}

} // namespace

DxfMatrix Multiply(const DxfMatrix& outer, const DxfMatrix& inner)
{
    DxfMatrix product{};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 4; ++j) {
            double sum = j == 3 ? outer.M[i][3] : 0.0;
            for (int k = 0; k < 3; ++k) {
                sum += outer.M[i][k] * inner.M[k][j];
            }
            product.M[i][j] = sum;
        }
    }
    return product;
}

DxfMatrix WithNormal(const DxfMatrix& matrix, const double* normal)
{
    if (normal[0] == 0.0 && normal[1] == 0.0 && normal[2] >= 0.0) {
        return matrix;
    }
    const double length = std::hypot(normal[0], normal[1], normal[2]);
    if (!(length > 0.0) || !std::isfinite(length)) {
        return matrix;
    }
    const Direction n{normal[0] / length, normal[1] / length, normal[2] / length};
    const bool nearZ = std::fabs(n.X) < ArbitraryAxisBound && std::fabs(n.Y) < ArbitraryAxisBound;
    const Direction x = Unit(Cross(nearZ ? Direction{0, 1, 0} : Direction{0, 0, 1}, n));
    const Direction y = Unit(Cross(n, x));
    return Multiply(matrix, {{{x.X, y.X, n.X, 0}, {x.Y, y.Y, n.Y, 0}, {x.Z, y.Z, n.Z, 0}}});
}

DxfMatrix WithShift(const DxfMatrix& matrix, double x, double y, double z)
{
    return Multiply(matrix, {{{1, 0, 0, x}, {0, 1, 0, y}, {0, 0, 1, z}}});
}

DxfMatrix WithTurn(const DxfMatrix& matrix, double angleDeg)
{
    double s = 0.0;
    double c = 1.0;
    SineCosine(angleDeg, s, c);
    return Multiply(matrix, {{{c, -s, 0, 0}, {s, c, 0, 0}, {0, 0, 1, 0}}});
}

DxfMatrix WithScale(const DxfMatrix& matrix, double x, double y, double z)
{
    return Multiply(matrix, {{{x, 0, 0, 0}, {0, y, 0, 0}, {0, 0, z, 0}}});
}

void SineCosine(double angleDeg, double& sine, double& cosine)
{
    int quadrant = 0;
    const double rest = std::remquo(angleDeg, 90.0, &quadrant) * (Pi / 180.0);
    const double s = std::sin(rest);
    const double c = std::cos(rest);
    switch (quadrant & 3) {
    case 0:
        sine = s;
        cosine = c;
        break;
    case 1:
        sine = c;
        cosine = -s;
        break;
    case 2:
        sine = -s;
        cosine = -c;
        break;
    default:
        sine = -c;
        cosine = s;
    }
}
