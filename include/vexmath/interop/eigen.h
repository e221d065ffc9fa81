// SPDX-License-Identifier: MIT
// Conversions between the library and Eigen, in doubles.

#ifndef VEXMATH_INTEROP_EIGEN_H
#define VEXMATH_INTEROP_EIGEN_H

#include <vexmath/bbox.h>
#include <vexmath/interop/numbers.h>

#include <Eigen/Geometry>

#include <optional>

// Eigen multiplies column vectors: within rounding, `toEigen(x) * toEigen(p)` is the image `p * x`,
// and `toEigen(b) * toEigen(a)` is `a * b`. A rotation has its rows and columns exchanged there; an
// mgMatrix4_c has not. Whatever is copied as it is comes back to the bit.
namespace vexmath {

/// The three numbers as they are, of a point and a direction too; "no direction" is (0, 0, 0).
inline Eigen::Vector3d toEigen(mgVector_c const &v) { return {v.x(), v.y(), v.z()}; }
inline mgPoint_c toPoint(Eigen::Vector3d const &v) { return {v.x(), v.y(), v.z()}; }
inline mgVector_c toVector(Eigen::Vector3d const &v) { return {v.x(), v.y(), v.z()}; }
/// Normalised, unless it has unit length: see `directionOf` in numbers.h.
inline mgUnitVector_c toDirection(Eigen::Vector3d const &v) {
    return directionOf(v.x(), v.y(), v.z());
}

/// Row i becomes column i, as it is. The identity flag is not read.
inline Eigen::Matrix3d toEigen(mgMatrix_c const &m) {
    return Eigen::Map<Eigen::Matrix3d const>(&m(0, 0));
}
/// Column i becomes row i, as it is. Nothing is checked; the identity flag is computed.
inline mgMatrix_c toMatrix(Eigen::Matrix3d const &m) { return matrixOf(m.data()); }

/// Element (i, j) stays element (i, j), as it is.
inline Eigen::Matrix4d toEigen(mgMatrix4_c const &m) {
    return Eigen::Map<Eigen::Matrix4d const>(numbersOf(m).data());
}
inline mgMatrix4_c toMatrix4(Eigen::Matrix4d const &m) { return matrix4Of(m.data()); }

/// Rotation, scale and translation. Perspective record and reflection flag are dropped: see
/// `numbersOf` in numbers.h.
inline Eigen::Affine3d toEigen(mgXform_c const &x) {
    return Eigen::Affine3d(Eigen::Map<Eigen::Matrix4d const>(numbersOf(x).data()));
}
/// The transform of a similarity; nothing when m is none: see `xformOf` in numbers.h.
inline std::optional<mgXform_c> toXform(Eigen::Matrix4d const &m) { return xformOf(m.data()); }
/// The same of an `Affine3d` or an `Isometry3d`.
inline std::optional<mgXform_c> toXform(Eigen::Affine3d const &x) { return toXform(x.matrix()); }

/// The corners, as they are, without the sphere; an unset box becomes an empty one.
inline Eigen::AlignedBox3d toEigen(mgBBox_c const &b) {
    return b.isSet() ? Eigen::AlignedBox3d(toEigen(b.low()), toEigen(b.high()))
                     : Eigen::AlignedBox3d();
}
/// The box of the corners with the sphere through them; an empty box becomes an unset one.
inline mgBBox_c toBox(Eigen::AlignedBox3d const &b) {
    return b.isEmpty() ? mgBBox_c() : mgBBox_c(toPoint(b.min()), toPoint(b.max()));
}

/// The coordinates of an array of points, vectors, directions or `gcMdiPoint_c`, where they are and
/// without a copy: column i is element i. A direction written through it is not normalised. The
/// view is valid as long as the array. first may be null when count is 0. REQUIRES count elements.
template <class T, detail::IfTriple<T> = 0>
Eigen::Map<Eigen::Matrix3Xd> asEigen(T *first, Eigen::Index count) {
    return {reinterpret_cast<double *>(first), 3, count};
}
template <class T, detail::IfTriple<T> = 0>
Eigen::Map<Eigen::Matrix3Xd const> asEigen(T const *first, Eigen::Index count) {
    return {reinterpret_cast<double const *>(first), 3, count};
}

} // namespace vexmath

#endif
