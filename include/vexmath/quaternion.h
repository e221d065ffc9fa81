// SPDX-License-Identifier: MIT
// mgQuaternion_c: a rotation as a quaternion.

#ifndef VEXMATH_QUATERNION_H
#define VEXMATH_QUATERNION_H

#include <vexmath/matrix.h>
#include <vexmath/vector4.h>

/// A rotation for interpolation: (x, y, z, w) with the scalar part w last, read and written by
/// `operator[]`. Nothing normalises it. Vectors, points and arrays do not convert to it.
///
/// It corresponds to a matrix that multiplies column vectors: a `mg_RotationMatrix` gives the
/// quaternion of the opposite angle, see `mgMatrix4_c`. Both conversions use the same convention.
class mgQuaternion_c : public mgVector4_c {
public:
    constexpr mgQuaternion_c() = default; ///< (0, 0, 0, 1), no rotation
    constexpr mgQuaternion_c(double x, double y, double z, double w) : mgVector4_c(x, y, z, w) {}

    /// 1 when each of the four components differs by strictly less than 1e-05; 0 for NaN. A
    /// quaternion and its negative are the same rotation but not equal.
    VEXMATH_API int operator==(mgQuaternion_c q) const;

    /// Becomes the quaternion of a rotation matrix. Of its two signs: w is positive for rotations
    /// by less than 120 degrees; beyond that the component of largest absolute value among x, y and
    /// z is positive. REQUIRES a rotation.
    VEXMATH_API void matrixToQuat(mgMatrix_c const &m);
    /// m becomes the rotation matrix, orthonormalised; its flag is computed. REQUIRES unit length
    /// within rounding. (0, 0, 0, w) gives the identity for every finite w. A NaN component
    /// gives nine zeros, an infinite one zeros or NaN.
    VEXMATH_API void quatToMatrix(mgMatrix_c &m) const;
    /// Becomes the spherical interpolation from a (t = 0) to b (t = 1) along the shorter arc: when
    /// the dot product of a and b is negative, it ends at -b. t is not clamped. REQUIRES unit
    /// lengths. Either may be this quaternion.
    ///
    /// When the dot product, as rounded, is NaN or at least 1 in absolute value, nothing is
    /// interpolated: the result is b for t >= 0.5 and otherwise a, also for a NaN t. It is not
    /// changed, so b = -a is not negated then. The dot product of equal quaternions sometimes
    /// rounds to less than 1; the result is then equal to them within rounding, not exactly. In all
    /// other cases a NaN t gives NaN.
    VEXMATH_API void quatSlerp(mgQuaternion_c const &a, mgQuaternion_c const &b, double t);
};

#endif
