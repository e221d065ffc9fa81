// SPDX-License-Identifier: MIT
// mgUnitVector_c: a direction.

#ifndef VEXMATH_UNIT_VECTOR_H
#define VEXMATH_UNIT_VECTOR_H

#include <vexmath/vector.h>

/// A direction: a vector of length 1 within rounding, or exactly (0, 0, 0), which stands for "no
/// direction" and is what every construction from a vector shorter than about 3.2e-09 gives. There
/// is no flag and no error; who needs a direction asks `isNull()`.
///
/// The inherited setters store what they are given, without normalising.
class mgUnitVector_c : public mgVector_c {
public:
    constexpr mgUnitVector_c() = default; ///< (0, 0, 0), no direction
    mgUnitVector_c(double x, double y, double z);
    /// REQUIRES three readable doubles.
    mgUnitVector_c(double const *xyz);
    /// The flag is accepted and plays no part: the result is normalised either way.
    mgUnitVector_c(mgVector_c const &v, int flag);
    template <class N, vexmath::detail::IfNumber<N> = 0>
    mgUnitVector_c(N) = delete;
    explicit mgUnitVector_c(mg2DPoint_c const &) = delete;

    VEXMATH_API static mgUnitVector_c const &xAxis();
    VEXMATH_API static mgUnitVector_c const &yAxis();
    VEXMATH_API static mgUnitVector_c const &zAxis();

    /// A new direction of the closed positive octant, to be freed with `delete` by the caller; null
    /// when memory is exhausted. Reseeds the C library's generator with the calendar time: calls
    /// within one second return the same direction.
    VEXMATH_API static mgUnitVector_c *random();

    /// 1 when every component differs by strictly less than tol; a negative tol gives 0.
    int isEqual(mgUnitVector_c const &u, double tol) const;
    /// 1 when neither is null and the cosine is strictly above 1 - tol.
    int isSameDirectionUpToTol(mgUnitVector_c const &u, double tol) const;

    /// Turned only, then normalised again; unchanged when the transform is flagged as not rotating.
    /// Body in xform.h.
    inline mgUnitVector_c &operator*=(mgXform_c const &x);
};

/// The opposite direction, normalised again.
mgUnitVector_c operator-(mgUnitVector_c const &u);

// -------------------------------------------------------------------------------------------------

inline mgUnitVector_c::mgUnitVector_c(double x, double y, double z)
    : mgVector_c(vexmath::detail::normalised(x, y, z)) {}

inline mgUnitVector_c::mgUnitVector_c(double const *xyz) : mgUnitVector_c(xyz[0], xyz[1], xyz[2]) {}

inline mgUnitVector_c::mgUnitVector_c(mgVector_c const &v, int /*flag*/)
    : mgUnitVector_c(v.x(), v.y(), v.z()) {}

inline int mgUnitVector_c::isEqual(mgUnitVector_c const &u, double tol) const {
    return vexmath::detail::sameWithin(*this, u, tol);
}

inline int mgUnitVector_c::isSameDirectionUpToTol(mgUnitVector_c const &u, double tol) const {
    if (isNull() || u.isNull()) return 0;
    return *this % u > 1.0 - tol;
}

inline mgUnitVector_c operator-(mgUnitVector_c const &u) { return {-u.x(), -u.y(), -u.z()}; }

#endif
