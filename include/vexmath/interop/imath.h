// SPDX-License-Identifier: MIT
// Conversions between the library and Imath, in doubles.

#ifndef VEXMATH_INTEROP_IMATH_H
#define VEXMATH_INTEROP_IMATH_H

#include <vexmath/bbox.h>
#include <vexmath/interop/numbers.h>

#include <Imath/ImathBox.h>
#include <Imath/ImathMatrix.h>
#include <Imath/ImathVec.h>

#include <algorithm>
#include <optional>

// Imath multiplies row vectors, as the library does: within rounding, `toImath(p) * toImath(x)` is
// the image `p * x`, and `toImath(a) * toImath(b)` is `a * b`. A rotation keeps its rows; an
// mgMatrix4_c has its rows and columns exchanged there. Whatever is copied as it is comes back to
// the bit.
namespace vexmath {

/// The three numbers as they are, of a point and a direction too; "no direction" is (0, 0, 0).
inline Imath::V3d toImath(mgVector_c const &v) { return {v.x(), v.y(), v.z()}; }
inline mgPoint_c toPoint(Imath::V3d const &v) { return {v.x, v.y, v.z}; }
inline mgVector_c toVector(Imath::V3d const &v) { return {v.x, v.y, v.z}; }
/// Normalised, unless it has unit length: see `directionOf` in numbers.h.
inline mgUnitVector_c toDirection(Imath::V3d const &v) { return directionOf(v.x, v.y, v.z); }

/// Row i stays row i, as it is. The identity flag is not read.
inline Imath::M33d toImath(mgMatrix_c const &m) {
    Imath::M33d rows;
    std::copy_n(&m(0, 0), 9, rows.getValue());
    return rows;
}
/// Row i stays row i, as it is. Nothing is checked; the identity flag is computed.
inline mgMatrix_c toMatrix(Imath::M33d const &m) { return matrixOf(m.getValue()); }

/// Element (i, j) becomes element (j, i), as it is.
inline Imath::M44d toImath(mgMatrix4_c const &m) {
    Imath::M44d rows;
    std::copy_n(numbersOf(m).data(), 16, rows.getValue());
    return rows;
}
inline mgMatrix4_c toMatrix4(Imath::M44d const &m) { return matrix4Of(m.getValue()); }

/// Rotation, scale and translation. Perspective record and reflection flag are dropped: see
/// `numbersOf` in numbers.h.
inline Imath::M44d toImath(mgXform_c const &x) {
    Imath::M44d rows;
    std::copy_n(numbersOf(x).data(), 16, rows.getValue());
    return rows;
}
/// The transform of a similarity; nothing when m is none: see `xformOf` in numbers.h.
inline std::optional<mgXform_c> toXform(Imath::M44d const &m) { return xformOf(m.getValue()); }

/// The corners, as they are, without the sphere; an unset box becomes an empty one.
inline Imath::Box3d toImath(mgBBox_c const &b) {
    return b.isSet() ? Imath::Box3d(toImath(b.low()), toImath(b.high())) : Imath::Box3d();
}
/// The box of the corners with the sphere through them; an empty box becomes an unset one.
inline mgBBox_c toBox(Imath::Box3d const &b) {
    return b.isEmpty() ? mgBBox_c() : mgBBox_c(toPoint(b.min), toPoint(b.max));
}

// An array of points has the bytes of an array of Imath::V3d, so std::memcpy converts it. Do not
// cast the pointer: compilers assume that objects of the two types do not overlap.
static_assert(sizeof(Imath::V3d) == sizeof(mgPoint_c));

} // namespace vexmath

#endif
