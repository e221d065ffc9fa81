// SPDX-License-Identifier: MIT
// mgVector_c: a vector of three doubles.

#ifndef VEXMATH_VECTOR_H
#define VEXMATH_VECTOR_H

#include <vexmath/detail/operand_traits.h>
#include <vexmath/export.h>
#include <vexmath/forward.h>
#include <vexmath/tolerances.h>

#include <vexmath_platform/archive.h>

#include <cmath>

/// A vector of three doubles in model units: a plain, trivially copyable value of 24 bytes.
///
/// `mgPoint_c` has the same storage, and each of the two converts into the other implicitly. A
/// transform moves points; it only rotates and scales vectors.
///
/// "Null" means that every component is strictly below 1e-08 in absolute value. The test is by
/// component, not by length; NaN is not null. Arithmetic passes NaN and infinity on unchecked.
/// Squared lengths overflow to infinity from lengths of about 1.3e154 on.
class mgVector_c {
public:
    constexpr mgVector_c() = default; ///< (0, 0, 0)
    constexpr mgVector_c(double x, double y, double z);
    inline mgVector_c(mgPoint_c const &p);
    /// REQUIRES three readable doubles.
    mgVector_c(double const *xyz);
    template <class N, vexmath::detail::IfNumber<N> = 0>
    mgVector_c(N) = delete; // a lone number, also 0 as a null pointer, is not a vector
    explicit mgVector_c(mg2DPoint_c const &) = delete; // it holds two doubles, not three

    /// The shared constant (0, 0, 0).
    VEXMATH_API static mgVector_c const &nullVector();

    void set(double x, double y, double z);
    void set(double const *xyz); ///< REQUIRES three readable doubles.
    void set(mg2DPoint_c const &) = delete;
    void set_x(double x) { c_[0] = x; }
    void set_y(double y) { c_[1] = y; }
    void set_z(double z) { c_[2] = z; }

    double x() const { return c_[0]; }
    double y() const { return c_[1]; }
    double z() const { return c_[2]; }
    /// 0, 1, 2 for x, y, z. REQUIRES an index in that range.
    double component(int i) const { return c_[i]; }
    void get(double *xyz) const; ///< REQUIRES three writable doubles.
    /// Each component rounded to single precision, infinite beyond its range. REQUIRES three
    /// writable floats.
    void get(float *xyz) const;
    void get(mg2DPoint_c &) const = delete;
    /// The address of x; y and z follow it.
    operator double *() { return c_; }
    operator double const *() const { return c_; }
    // Not a truth value: its address would always be true. Use isNull().
    template <class B, vexmath::detail::IfBool<B> = 0>
    operator B() = delete;
    template <class B, vexmath::detail::IfBool<B> = 0>
    operator B() const = delete;

    double len() const;   ///< the square root of `sqlen`
    double sqlen() const; ///< x*x + y*y + z*z, summed in this order
    int null() const;     ///< 1 when every component is exactly 0.0 or -0.0
    int isNull() const;   ///< 1 when every component is strictly below 1e-08 in absolute value
    int isNotNull() const { return !isNull(); } ///< also 1 with a NaN component

    mgVector_c &operator+=(mgVector_c const &v);
    mgVector_c &operator-=(mgVector_c const &v);
    mgVector_c &operator*=(double s);
    /// Rotates and scales this vector; the rest of x is ignored. The scale is applied only when
    /// it differs from 1 by strictly more than 1e-08. An exactly zero vector stays unchanged. Body
    /// in xform.h.
    inline mgVector_c &operator*=(mgXform_c const &x);
    void flip(); ///< negates every component

    /// Scales this vector to unit length and returns 1. A null vector stays unchanged and gives 0.
    /// `mg_Normalise` tests the squared length instead and accepts shorter vectors. When the
    /// squared length overflows or is NaN, the result is still 1, and the vector becomes (0, 0, 0);
    /// but an infinite component becomes NaN when no component is NaN.
    int normalise();

    // Directions. The predicates return 1 or 0, and 0 when either vector is null. In the bounds
    // below, cos is the dot product of the two unit vectors that `mg_Normalise` makes. It is NaN,
    // and every test fails, when a vector has an infinite component and no NaN component.
    // Otherwise it is 0 when a vector has a NaN component or a square that overflows.

    /// Parallel or anti-parallel: ||cos| - 1| < 1e-08, which is about 0.0081 degrees.
    VEXMATH_API int isParallelTo(mgVector_c const &v) const;
    /// Parallel or anti-parallel within tolDeg degrees: |cos| > cos(tolDeg), strict. A tolDeg below
    /// 1e-08 gives the result of `isParallelTo(v)`. From there to about 2.2e-06 degrees cos(tolDeg)
    /// is within rounding of 1, and even a vector and itself can give 0. From 90 (which
    /// counts, as pi is rounded) to below 270 degrees every pair gives 1, unless cos is NaN. A
    /// tolDeg of NaN or +infinity gives 0.
    VEXMATH_API int isParallelTo(mgVector_c const &v, double tolDeg) const;
    /// The same by the cross product, without unit vectors: |a x b|^2 <= s |a|^2 |b|^2 s, bound
    /// included. s is tolDeg in radians, and above 1e-07 radians its sine, which falls again beyond
    /// 90 degrees. It stays accurate for small angles. A tolDeg below 1e-15 gives the result of
    /// `isParallelTo(v)`. NaN and a tolDeg of +infinity give 0. When |a| |b| is about 1e154 or
    /// more, the right side can overflow and the result means nothing: 1, or 0 when the cross
    /// product becomes NaN.
    VEXMATH_API int isParallelToTol(mgVector_c const &v, double tolDeg) const;
    /// |cos| < 1e-08: within about 5.7e-07 degrees of a right angle. Also 1 when cos is 0 because a
    /// vector has a NaN component or a square that overflows.
    VEXMATH_API int isPerpendicularTo(mgVector_c const &v) const;
    VEXMATH_API int isSameDirection(mgVector_c const &v) const;     ///< cos > 0.99999999
    VEXMATH_API int isOppositeDirection(mgVector_c const &v) const; ///< cos < -0.99999999
    /// Parallel or anti-parallel within about 0.081 degrees, without unit vectors:
    /// |a|^2 * 0.999998000001 * |b|^2 < (a . b)^2, strict, so that |cos| > 0.999999. NaN gives 0.
    /// So does a left side that overflows, when |a| |b| is about 1e154 or more.
    VEXMATH_API int isAlmostParallelTo(mgVector_c const &v) const;
    /// The same with u as b and |b|^2 replaced by 1. REQUIRES u of unit length. Only this vector is
    /// tested for null; a zero u gives 0.
    VEXMATH_API int isAlmostParallelTo(mgUnitVector_c const &u) const;
    /// 1 when this vector lies along a coordinate axis: two components are strictly below 1e-08 in
    /// absolute value and the third is not. NaN is not below: (NaN, 0, 0) gives 1.
    VEXMATH_API int isOrthogonal() const;
    /// 0, 1 or 2: the component of largest absolute value, the later one on a tie. NaN in x or z
    /// gives 2. NaN in y leaves y out: 0 when |z| < |x|, else 2.
    VEXMATH_API int dominantComponentIndex() const;
    /// A unit vector perpendicular to this one. With preferAxis non-zero it is the first of the x,
    /// y and z axes along which this vector's component is strictly below 1e-10 in absolute value,
    /// if there is one: the x axis for a zero vector. Otherwise it is (1, 1, 1) with one component
    /// replaced so that the dot product is 0, normalised. The component replaced is the one that
    /// has the largest absolute value in this vector, the later one on a tie. A zero vector gives
    /// (1, 1, 1), normalised, and so do (NaN, y, 0) and (0, NaN, 0). Any other NaN gives (0, 0, 0).
    /// When the sum of the two other components overflows, the result is (0, 0, 0) or holds NaN.
    VEXMATH_API mgUnitVector_c anyUnitNormal(int preferAxis) const;
    /// (s, t, 0) such that s a + t b is nearest to this vector, by least squares. A vector a or b
    /// that is strictly shorter than 1e-08, or has a NaN component, is left out and its coefficient
    /// is 0. Both coefficients are 0 when |a|^2 |b|^2 - (a . b)^2 is strictly below
    /// 1.0000000000000001e-16 in absolute value. That bound is absolute: it refuses nearly parallel
    /// vectors, and also perpendicular ones with |a| |b| below 1e-08. A NaN component of this
    /// vector makes every coefficient NaN that is not 0 by these rules. Products that overflow make
    /// coefficients 0, infinite or NaN.
    VEXMATH_API mgVector_c pullBack(mgVector_c const &a, mgVector_c const &b) const;

    /// Reads x, y, z as three doubles. REQUIRES ar to be a su_CArchive. When the archive throws,
    /// the vector stays as it was.
    VEXMATH_API void restore(CArchive &ar);

    // Vectors have no order: `v < w` would compare addresses, and `v + 1` would step one.
    // Friends, because only operands of this class may find them: every number and enumerator
    // converts, even though only to be refused, and `1 + enumerator` elsewhere would be ambiguous.
    friend bool operator<(mgVector_c const &, mgVector_c const &) = delete;
    friend bool operator>(mgVector_c const &, mgVector_c const &) = delete;
    friend bool operator<=(mgVector_c const &, mgVector_c const &) = delete;
    friend bool operator>=(mgVector_c const &, mgVector_c const &) = delete;
#if defined(__cpp_impl_three_way_comparison)
    friend bool operator<=>(mgVector_c const &, mgVector_c const &) = delete;
#endif
    template <class N>
    friend vexmath::detail::IfNumber<N> operator+(mgVector_c const &, N) = delete;
    template <class N>
    friend vexmath::detail::IfNumber<N> operator+(N, mgVector_c const &) = delete;
    template <class N>
    friend vexmath::detail::IfNumber<N> operator-(mgVector_c const &, N) = delete;

private:
    double c_[3] = {0.0, 0.0, 0.0};
};

mgVector_c operator+(mgVector_c const &a, mgVector_c const &b);
mgVector_c operator-(mgVector_c const &a, mgVector_c const &b);
mgVector_c operator-(mgVector_c const &v);
mgVector_c operator*(double s, mgVector_c const &v);
mgVector_c operator*(mgVector_c const &v, double s);
/// Each component divided by d. Exactly (0, 0, 0) when |d| < 1e-08; a NaN d gives NaN.
mgVector_c operator/(mgVector_c const &v, double d);
/// Dot product a.x*b.x + a.y*b.y + a.z*b.z, summed in this order.
double operator%(mgVector_c const &a, mgVector_c const &b);
/// Cross product a x b. `%` and `*` bind alike, from the left: a * b % c is (a x b) . c.
mgVector_c operator*(mgVector_c const &a, mgVector_c const &b);
/// a.isParallelTo(b). Both operands are evaluated.
int operator||(mgVector_c const &a, mgVector_c const &b);

/// 1 when every component differs by strictly less than 1e-08. Else 0, also when a difference is
/// NaN: a NaN component, or the same infinite component in both.
int operator==(mgVector_c const &a, mgVector_c const &b);
// QUIRK: vector.h, operator!=: at a difference of exactly 1e-08 both == and != give 0. Expected:
// the negation of ==. Kept: callers and stored data depend on it.
// (test: EqualAndUnequalAreBothFalseOnTheBound)
/// 1 when some component differs by strictly more than 1e-08. A NaN difference is not more. This is
/// not the negation of ==: at a difference of exactly 1e-08, and with NaN, both can be 0.
int operator!=(mgVector_c const &a, mgVector_c const &b);

// -------------------------------------------------------------------------------------------------

#include <vexmath/detail/compare_coordinates.h>
#include <vexmath/detail/normalised.h>

constexpr mgVector_c::mgVector_c(double x, double y, double z) : c_{x, y, z} {}

inline mgVector_c::mgVector_c(double const *xyz) : c_{xyz[0], xyz[1], xyz[2]} {}

inline void mgVector_c::set(double x, double y, double z) {
    c_[0] = x;
    c_[1] = y;
    c_[2] = z;
}

inline void mgVector_c::set(double const *xyz) { set(xyz[0], xyz[1], xyz[2]); }

inline void mgVector_c::get(double *xyz) const {
    xyz[0] = c_[0];
    xyz[1] = c_[1];
    xyz[2] = c_[2];
}

inline void mgVector_c::get(float *xyz) const {
    xyz[0] = static_cast<float>(c_[0]);
    xyz[1] = static_cast<float>(c_[1]);
    xyz[2] = static_cast<float>(c_[2]);
}

inline double mgVector_c::len() const { return std::sqrt(sqlen()); }

inline double mgVector_c::sqlen() const { return c_[0] * c_[0] + c_[1] * c_[1] + c_[2] * c_[2]; }

inline int mgVector_c::null() const { return c_[0] == 0.0 && c_[1] == 0.0 && c_[2] == 0.0; }

inline int mgVector_c::isNull() const {
    using vexmath::detail::isTiny;
    return isTiny(c_[0]) && isTiny(c_[1]) && isTiny(c_[2]);
}

inline mgVector_c &mgVector_c::operator+=(mgVector_c const &v) {
    set(c_[0] + v.c_[0], c_[1] + v.c_[1], c_[2] + v.c_[2]);
    return *this;
}

inline mgVector_c &mgVector_c::operator-=(mgVector_c const &v) {
    set(c_[0] - v.c_[0], c_[1] - v.c_[1], c_[2] - v.c_[2]);
    return *this;
}

inline mgVector_c &mgVector_c::operator*=(double s) {
    set(c_[0] * s, c_[1] * s, c_[2] * s);
    return *this;
}

inline void mgVector_c::flip() { set(-c_[0], -c_[1], -c_[2]); }

// QUIRK: vector.h, mgVector_c::normalise: it refuses vectors that mg_Normalise accepts, such as
// (5e-09, 0, 0). Expected: the same test in both. Kept: callers and stored data depend on it.
// (test: TooShortAVectorHasNoDirection)
inline int mgVector_c::normalise() {
    if (isNull()) return 0;
    *this = vexmath::detail::normalised(c_[0], c_[1], c_[2]);
    return 1;
}

inline mgVector_c operator+(mgVector_c const &a, mgVector_c const &b) {
    return {a.x() + b.x(), a.y() + b.y(), a.z() + b.z()};
}

inline mgVector_c operator-(mgVector_c const &a, mgVector_c const &b) {
    return {a.x() - b.x(), a.y() - b.y(), a.z() - b.z()};
}

inline mgVector_c operator-(mgVector_c const &v) { return {-v.x(), -v.y(), -v.z()}; }

inline mgVector_c operator*(double s, mgVector_c const &v) {
    return {s * v.x(), s * v.y(), s * v.z()};
}

inline mgVector_c operator*(mgVector_c const &v, double s) { return s * v; }

inline mgVector_c operator/(mgVector_c const &v, double d) {
    if (vexmath::detail::isTiny(d)) return {};
    return {v.x() / d, v.y() / d, v.z() / d};
}

inline double operator%(mgVector_c const &a, mgVector_c const &b) {
    return a.x() * b.x() + a.y() * b.y() + a.z() * b.z();
}

inline mgVector_c operator*(mgVector_c const &a, mgVector_c const &b) {
    return {a.y() * b.z() - a.z() * b.y(), a.z() * b.x() - a.x() * b.z(),
            a.x() * b.y() - a.y() * b.x()};
}

inline int operator||(mgVector_c const &a, mgVector_c const &b) { return a.isParallelTo(b); }

inline int operator==(mgVector_c const &a, mgVector_c const &b) {
    return vexmath::detail::sameWithin(a, b, vexmath::kLengthTolerance);
}

inline int operator!=(mgVector_c const &a, mgVector_c const &b) {
    return vexmath::detail::apart(a, b);
}

#endif
