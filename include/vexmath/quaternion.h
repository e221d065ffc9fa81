// SPDX-License-Identifier: MIT
// mgQuaternion_c: a rotation as a quaternion.

#ifndef VEXMATH_QUATERNION_H
#define VEXMATH_QUATERNION_H

#include <vexmath/matrix.h>
#include <vexmath/vector4.h>

/// A rotation for interpolation: (x, y, z, w) with the scalar part w last, read and written by
/// `operator[]`. Nothing normalises it. No vector, point or array converts to one.
///
/// It corresponds to a matrix that multiplies column vectors: from a `mg_RotationMatrix` comes the
/// quaternion of the opposite angle, see `mgMatrix4_c`. Conversions there and back agree.
class mgQuaternion_c : public mgVector4_c {
public:
    constexpr mgQuaternion_c() = default; ///< (0, 0, 0, 1), no rotation
    constexpr mgQuaternion_c(double x, double y, double z, double w) : mgVector4_c(x, y, z, w) {}

    /// 1 when each of the four components differs by strictly less than 1e-05. A quaternion and its
    /// negative, the same rotation, are not equal.
    VEXMATH_API int operator==(mgQuaternion_c q) const;

    /// Becomes the quaternion of a rotation matrix, of either sign. REQUIRES a rotation.
    VEXMATH_API void matrixToQuat(mgMatrix_c const &m);
    /// The rotation matrix, orthonormalised, with an honest flag. REQUIRES unit length within
    /// rounding.
    VEXMATH_API void quatToMatrix(mgMatrix_c &m) const;
    /// Becomes the spherical interpolation from a (t = 0) to b (t = 1) along the shorter way; t is
    /// not clamped. a and b that are equal or opposite within about 1e-11 radians give a for t <
    /// 0.5 and b otherwise, as they are. REQUIRES unit lengths. Either may be this quaternion.
    VEXMATH_API void quatSlerp(mgQuaternion_c const &a, mgQuaternion_c const &b, double t);
};

#endif
