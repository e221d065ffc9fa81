// SPDX-License-Identifier: MIT
// Matrices, transforms and directions as plain numbers, in the order in which other libraries hold
// them. The headers for those libraries use these functions; they serve any other library too.

#ifndef VEXMATH_INTEROP_NUMBERS_H
#define VEXMATH_INTEROP_NUMBERS_H

#include <vexmath/matrix4.h>
#include <vexmath/xform.h>

#include <array>
#include <cmath>
#include <optional>
#include <type_traits>

// Other libraries hold a matrix in one of two forms: for row vectors, row by row, or for column
// vectors, column by column. Both forms of one map have the same numbers in the same order: the
// images of the axes x, y and z, each followed by 0, then the translation and 1. Only mgMatrix4_c
// has another form: for column vectors, row by row. interop.md, installed with the documentation,
// has a picture.
namespace vexmath {

/// Rotation, scale and translation. As for points, a scale within 1e-08 of 1, bound included, or
/// NaN is not applied; `mgXform_c::getGLData` applies it. A perspective record is dropped, and so
/// is the reflection flag: a mirror mirrors by its matrix. Of an `mgGenXform_c` these are the
/// numbers of the placing part.
inline std::array<double, 16> numbersOf(mgXform_c const &x);
/// The elements as they are, column by column.
inline std::array<double, 16> numbersOf(mgMatrix4_c const &m);

// The inverses.

/// The transform of sixteen numbers that are a similarity. Nothing when
/// - the number behind an image is not exactly 0, or the last number is not exactly 1,
/// - the squared length of the second or third image differs from that of the first by more than
///   1e-08 of the latter,
/// - the dot product of two images is larger than that in absolute value,
/// - the images hold NaN or their squared lengths overflow,
/// - the scale is not strictly between 1.0000000000000002e-13 and 6e12.
///
/// The scale is the length of the first image. Within 1e-08 of 1, bound included, it becomes 1 and
/// the images stay as they are, so rigid motions come back to the bit. Otherwise they are divided
/// by it. Nothing is orthonormalised; `mgXform_c::createFromGLData` does that, for numbers of
/// single precision. The identity flag is computed. The translation is copied as it is, also NaN.
/// The reflection flag is 1 when the numbers mirror, else 0.
/// REQUIRES sixteen readable numbers.
///
/// The result follows no copy rules. `mgXform_c x = *xformOf(n)` copies it, and so follows them.
inline std::optional<mgXform_c> xformOf(double const *sixteen);
/// The elements as they are, column by column.
/// REQUIRES sixteen readable numbers.
inline mgMatrix4_c matrix4Of(double const *sixteen);
/// The elements as they are, row by row. Nothing is checked; the identity flag is computed.
/// REQUIRES nine readable numbers.
inline mgMatrix_c matrixOf(double const *nine);
/// The direction of a vector. When its squared length is within 1e-14 of 1, bound included, its
/// numbers stay as they are, so directions come back to the bit. Otherwise it is normalised as by
/// the constructors of `mgUnitVector_c`: a short or NaN vector is "no direction".
inline mgUnitVector_c directionOf(double x, double y, double z);

} // namespace vexmath

// -------------------------------------------------------------------------------------------------

namespace vexmath::detail {

/// For the classes of three doubles.
template <class T>
using IfTriple =
    std::enable_if_t<kIsOneOf<T, mgPoint_c, mgVector_c, mgUnitVector_c, gcMdiPoint_c>, int>;

/// Is T three doubles and nothing else, so that an array of n is one of 3n doubles?
template <class T>
constexpr bool isThreeDoubles() {
    return sizeof(T) == 3 * sizeof(double) && alignof(T) == alignof(double)
           && std::is_standard_layout_v<T> && std::is_trivially_copyable_v<T>;
}
static_assert(isThreeDoubles<mgPoint_c>() && isThreeDoubles<mgVector_c>());
static_assert(isThreeDoubles<mgUnitVector_c>() && isThreeDoubles<gcMdiPoint_c>());

} // namespace vexmath::detail

inline std::array<double, 16> vexmath::numbersOf(mgXform_c const &x) {
    double const s = detail::scales(x.scaling()) ? x.scaling() : 1.0;
    mgMatrix_c const &m = x.rotation();
    mgVector_c const &t = x.translation();
    return {s * m(0, 0), s * m(0, 1), s * m(0, 2), 0.0, //
            s * m(1, 0), s * m(1, 1), s * m(1, 2), 0.0, //
            s * m(2, 0), s * m(2, 1), s * m(2, 2), 0.0, //
            t.x(),       t.y(),       t.z(),       1.0};
}

inline std::array<double, 16> vexmath::numbersOf(mgMatrix4_c const &m) {
    return {m(0, 0), m(1, 0), m(2, 0), m(3, 0), m(0, 1), m(1, 1), m(2, 1), m(3, 1),
            m(0, 2), m(1, 2), m(2, 2), m(3, 2), m(0, 3), m(1, 3), m(2, 3), m(3, 3)};
}

inline std::optional<mgXform_c> vexmath::xformOf(double const *sixteen) {
    /// By how much squared lengths may differ and how large dot products may be, relative to the
    /// squared length of the first image; bound included.
    constexpr double kSimilarity = 1e-08;
    std::optional<mgXform_c> result; // made in place: a copy would follow the copy rules
    double const *const n = sixteen;
    if (n[3] != 0.0 || n[7] != 0.0 || n[11] != 0.0 || n[15] != 1.0) return result;

    mgVector_c const x(n), y(n + 4), z(n + 8);
    double const sq = x.sqlen();
    auto const isSmall = [sq](double d) { return std::fabs(d) <= kSimilarity * sq; };
    if (!isSmall(y.sqlen() - sq) || !isSmall(z.sqlen() - sq)) return result;
    if (!isSmall(x % y) || !isSmall(y % z) || !isSmall(z % x)) return result;
    double const s = detail::scales(x.len()) ? x.len() : 1.0;
    if (detail::scaleInRange(s) != s) return result;

    double const rows[] = {x.x() / s, x.y() / s, x.z() / s, y.x() / s, y.y() / s,
                           y.z() / s, z.x() / s, z.y() / s, z.z() / s};
    int const reflection = x * y % z < 0.0 ? 1 : 0;
    result.emplace().SetHelper({matrixOf(rows), mgVector_c(n + 12), s, reflection, nullptr});
    return result;
}

inline mgMatrix4_c vexmath::matrix4Of(double const *sixteen) {
    mgMatrix4_c m;
    for (int k = 0; k < 16; ++k) m(k % 4, k / 4) = sixteen[k];
    return m;
}

inline mgMatrix_c vexmath::matrixOf(double const *nine) {
    double elements[9];
    for (int k = 0; k < 9; ++k) elements[k] = nine[k];
    return {elements, 0};
}

inline mgUnitVector_c vexmath::directionOf(double x, double y, double z) {
    /// How far rounding may leave a squared length from 1; bound included.
    constexpr double kUnitSq = 1e-14;
    mgUnitVector_c u;
    u.set(x, y, z); // does not normalise
    return std::fabs(u.sqlen() - 1.0) <= kUnitSq ? u : mgUnitVector_c(x, y, z);
}

#endif
