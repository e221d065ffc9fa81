// SPDX-License-Identifier: MIT
// mg2DPoint_c: a planar point; mgTessPoint2D_c: a single-precision point of a tessellation.

#ifndef VEXMATH_POINT2D_H
#define VEXMATH_POINT2D_H

#include <vexmath/detail/operand_traits.h>
#include <vexmath/export.h>
#include <vexmath/vector.h>

#include <vexmath_platform/archive.h>

/// A point (u, v) of a parameter plane or a drawing: two doubles. u and x name the same coordinate,
/// and so do v and y. It has no comparison and no arithmetic.
class mg2DPoint_c {
public:
    constexpr mg2DPoint_c() = default; ///< (0, 0)
    constexpr mg2DPoint_c(double u, double v) : c_{u, v} {}

    void set(double u, double v) { *this = {u, v}; }
    void set_x(double u) { c_[0] = u; }
    void set_y(double v) { c_[1] = v; }

    double u() const { return c_[0]; }
    double v() const { return c_[1]; }
    double x() const { return c_[0]; }
    double y() const { return c_[1]; }
    /// The address of u; v follows it.
    operator double *() { return c_; }
    operator double const *() const { return c_; }
    // Not a truth value: its address would always be true.
    template <class B, vexmath::detail::IfBool<B> = 0>
    operator B() = delete;
    template <class B, vexmath::detail::IfBool<B> = 0>
    operator B() const = delete;

    /// Reads u and v as two doubles. REQUIRES ar to be a su_CArchive. When the archive throws, the
    /// point stays as it was.
    VEXMATH_API void restore(CArchive &ar);

    // A planar point has no operators: all of these would compare, subtract or step addresses, also
    // between a planar point and a point, a vector or a pointer.
    template <class A, class B>
    friend vexmath::detail::IfAddressOperands<A, B> operator==(A const &, B const &) = delete;
    template <class A, class B>
    friend vexmath::detail::IfAddressOperands<A, B> operator!=(A const &, B const &) = delete;
    template <class A, class B>
    friend vexmath::detail::IfAddressOperands<A, B> operator<(A const &, B const &) = delete;
    template <class A, class B>
    friend vexmath::detail::IfAddressOperands<A, B> operator>(A const &, B const &) = delete;
    template <class A, class B>
    friend vexmath::detail::IfAddressOperands<A, B> operator<=(A const &, B const &) = delete;
    template <class A, class B>
    friend vexmath::detail::IfAddressOperands<A, B> operator>=(A const &, B const &) = delete;
#if defined(__cpp_impl_three_way_comparison)
    template <class A, class B>
    friend vexmath::detail::IfAddressOperands<A, B> operator<=>(A const &, B const &) = delete;
#endif
    template <class A, class B>
    friend vexmath::detail::IfAddressOperands<A, B> operator+(A const &, B const &) = delete;
    template <class A, class B>
    friend vexmath::detail::IfAddressOperands<A, B> operator-(A const &, B const &) = delete;

private:
    double c_[2] = {0.0, 0.0};
};

/// A tessellation point for display code: three floats.
class mgTessPoint2D_c {
public:
    constexpr mgTessPoint2D_c() = default; ///< (0, 0, 0)
    constexpr mgTessPoint2D_c(float px, float py, float pz) : x(px), y(py), z(pz) {}
    /// Each coordinate rounded to single precision, infinite beyond its range. Three ints are
    /// ambiguous between the two constructors and do not compile.
    constexpr mgTessPoint2D_c(double px, double py, double pz)
        : x(static_cast<float>(px)), y(static_cast<float>(py)), z(static_cast<float>(pz)) {}

    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
};

#endif
