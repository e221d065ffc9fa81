// SPDX-License-Identifier: MIT
// mgUnitVector_c: a direction.

#ifndef VEXMATH_UNIT_VECTOR_H
#define VEXMATH_UNIT_VECTOR_H

#include <vexmath/detail/operand_traits.h>
#include <vexmath/vector.h>

/// A direction: a vector of length 1 within rounding, or exactly (0, 0, 0) for "no direction".
///
/// Each constructor from numbers, an array or a vector normalises. It gives (0, 0, 0) when the
/// squared length is strictly below 1e-17 (a length of about 3.2e-09), is NaN, or overflows (from a
/// length of about 1.3e154 on); but an infinite component becomes NaN when no component is NaN. No
/// flag and no error reports this: use `isNull()`, which is 0 for NaN.
///
/// These members of `mgVector_c` store their result without normalising, also here: the setters,
/// `+=`, `-=`, `flip`, `restore`, and writing through the pointer. Copies and assignments keep such
/// numbers; `mgUnitVector_c(u, 0)` normalises again.
class mgUnitVector_c : public mgVector_c {
public:
    constexpr mgUnitVector_c() = default; ///< (0, 0, 0), no direction
    mgUnitVector_c(double x, double y, double z);
    /// REQUIRES three readable doubles.
    mgUnitVector_c(double const *xyz);
    /// The direction of v. The flag is ignored. Because of it no vector becomes a direction
    /// implicitly: `mgUnitVector_c u = v` does not compile. `mgUnitVector_c(v)` compiles, by the
    /// address of v's components, and gives the same direction.
    mgUnitVector_c(mgVector_c const &v, int flag);
    template <class N, vexmath::detail::IfNumber<N> = 0>
    mgUnitVector_c(N) = delete;
    explicit mgUnitVector_c(mg2DPoint_c const &) = delete;

    // The shared constants (1, 0, 0), (0, 1, 0) and (0, 0, 1).
    VEXMATH_API static mgUnitVector_c const &xAxis();
    VEXMATH_API static mgUnitVector_c const &yAxis();
    VEXMATH_API static mgUnitVector_c const &zAxis();

    /// A new random direction with no negative component, or (0, 0, 0) when all three numbers drawn
    /// are 0. The caller frees it with `delete`. Null when memory is exhausted. Each call seeds
    /// `std::rand` with the calendar time, so calls within one second return the same direction.
    VEXMATH_API static mgUnitVector_c *random();

    /// 1 when every component differs by strictly less than tol. Else 0, also when tol is 0,
    /// negative or NaN.
    int isEqual(mgUnitVector_c const &u, double tol) const;
    /// 1 when neither is null and the dot product is strictly above 1 - tol. With a tol of 0 that
    /// happens only when rounding makes the dot product larger than 1. NaN gives 0.
    int isSameDirectionUpToTol(mgUnitVector_c const &u, double tol) const;

    /// Rotates this direction, then normalises again, as the constructors do. Only the rotation of
    /// x is used. When it is flagged as the identity, this direction stays unchanged, whatever the
    /// elements. It hides the inherited operators: `u *= 2.0` does not compile, and `2.0 * u` is a
    /// vector. Body in xform.h.
    inline mgUnitVector_c &operator*=(mgXform_c const &x);
};

/// The opposite direction, normalised again: last bits may differ from those of u.
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
