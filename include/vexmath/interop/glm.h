// SPDX-License-Identifier: MIT
// Conversions between the library and GLM, in doubles.

#ifndef VEXMATH_INTEROP_GLM_H
#define VEXMATH_INTEROP_GLM_H

#include <vexmath/interop/numbers.h>

#include <glm/gtc/type_ptr.hpp>
#include <glm/mat3x3.hpp>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>

#include <optional>

// GLM multiplies column vectors: within rounding, `toGlm(x) * glm::dvec4(toGlm(p), 1.0)` is the
// image `p * x`, and `toGlm(b) * toGlm(a)` is `a * b`. A rotation has its rows and columns
// exchanged there; an mgMatrix4_c has not. GLM writes element (i, j) as m[j][i]. Whatever is copied
// as it is comes back to the bit.
namespace vexmath {

/// The three numbers as they are, of a point and a direction too; "no direction" is (0, 0, 0).
inline glm::dvec3 toGlm(mgVector_c const &v) { return {v.x(), v.y(), v.z()}; }
inline mgPoint_c toPoint(glm::dvec3 const &v) { return {v.x, v.y, v.z}; }
inline mgVector_c toVector(glm::dvec3 const &v) { return {v.x, v.y, v.z}; }
/// Normalised, unless it has unit length: see `directionOf` in numbers.h.
inline mgUnitVector_c toDirection(glm::dvec3 const &v) { return directionOf(v.x, v.y, v.z); }

/// Row i becomes column i, as it is. The identity flag is not read.
inline glm::dmat3 toGlm(mgMatrix_c const &m) { return glm::make_mat3(&m(0, 0)); }
/// Column i becomes row i, as it is. Nothing is checked; the identity flag is computed.
inline mgMatrix_c toMatrix(glm::dmat3 const &m) { return matrixOf(glm::value_ptr(m)); }

/// Element (i, j) stays element (i, j), as it is.
inline glm::dmat4 toGlm(mgMatrix4_c const &m) { return glm::make_mat4(numbersOf(m).data()); }
inline mgMatrix4_c toMatrix4(glm::dmat4 const &m) { return matrix4Of(glm::value_ptr(m)); }

/// Rotation, scale and translation. Perspective record and reflection flag are dropped: see
/// `numbersOf` in numbers.h.
inline glm::dmat4 toGlm(mgXform_c const &x) { return glm::make_mat4(numbersOf(x).data()); }
/// The transform of a similarity; nothing when m is none: see `xformOf` in numbers.h.
inline std::optional<mgXform_c> toXform(glm::dmat4 const &m) { return xformOf(glm::value_ptr(m)); }

// An array of points has the bytes of an array of glm::dvec3, so std::memcpy converts it. Do not
// cast the pointer: compilers assume that objects of the two types do not overlap.
static_assert(sizeof(glm::dvec3) == sizeof(mgPoint_c),
              "this configuration of GLM pads its vectors");

} // namespace vexmath

#endif
