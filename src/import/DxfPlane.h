// DxfPlane.h -- affine maps of space as drawings need them: entity planes from their normal, placements of blocks.
#pragma once

#include <cmath>

/// Row i gives the i-th coordinate: M[i][0] x + M[i][1] y + M[i][2] z + M[i][3].
struct DxfMatrix {
    double M[3][4];
};

struct PlanePoint {
    double X = 0.0;
    double Y = 0.0;
};

inline constexpr DxfMatrix IdentityMatrix{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};

/// `outer` after `inner`.
DxfMatrix Multiply(const DxfMatrix& outer, const DxfMatrix& inner);

/// `matrix` after the map from the plane of an entity with this normal (the arbitrary-axis rule) to the drawing. A
/// normal without a direction counts as (0, 0, 1).
DxfMatrix WithNormal(const DxfMatrix& matrix, const double* normal);

/// `matrix` after a shift by (x, y, z); after a turn about z by degrees; after a scale.
DxfMatrix WithShift(const DxfMatrix& matrix, double x, double y, double z);
DxfMatrix WithTurn(const DxfMatrix& matrix, double angleDeg);
DxfMatrix WithScale(const DxfMatrix& matrix, double x, double y, double z);

/// The point, and the direction, seen from above.
inline PlanePoint MapPoint(const DxfMatrix& matrix, double x, double y, double z)
{
    const auto& m = matrix.M;
    return {m[0][0] * x + m[0][1] * y + m[0][2] * z + m[0][3],
            m[1][0] * x + m[1][1] * y + m[1][2] * z + m[1][3]};
}

inline PlanePoint MapDirection(const DxfMatrix& matrix, double x, double y, double z)
{
    const auto& m = matrix.M;
    return {m[0][0] * x + m[0][1] * y + m[0][2] * z, m[1][0] * x + m[1][1] * y + m[1][2] * z};
}

/// Length of a vector that is far from the limits of a double; much faster than std::hypot.
inline double PlaneLength(double x, double y)
{
    return std::sqrt(x * x + y * y);
}

/// Sine and cosine of an angle in degrees, exact at multiples of 90.
void SineCosine(double angleDeg, double& sine, double& cosine);
