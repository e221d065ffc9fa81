// SPDX-License-Identifier: MIT
// mgVector_c: a vector of three doubles.

#ifndef VEXMATH_VECTOR_H
#define VEXMATH_VECTOR_H

#include <vexmath/export.h>
#include <vexmath/forward.h>
#include <vexmath/tolerances.h>

#include <vexmath_platform/archive.h>

#include <cmath>
#include <type_traits>

namespace vexmath::detail {

template <class N>
using IfNumber = std::enable_if_t<std::is_arithmetic_v<N> || std::is_enum_v<N>, int>;

template <class B>
using IfBool = std::enable_if_t<std::is_same_v<B, bool>, int>;

} // namespace vexmath::detail

/// A vector of three doubles in model units: a plain, trivially copyable value of 24 bytes.
///
/// Shares its storage, but no conversion of meaning, with `mgPoint_c`: a transform moves points and
/// only turns and scales vectors. "Null" means every component strictly below 1e-08 in absolute
/// value, tested component by component and not by length; NaN is not null. Nothing checks for NaN
/// or infinity.
class mgVector_c {
public:
    constexpr mgVector_c() = default; ///< (0, 0, 0)
    constexpr mgVector_c(double x, double y, double z);
    inline mgVector_c(mgPoint_c const &p);
    /// REQUIRES three readable doubles.
    mgVector_c(double const *xyz);
    template <class N, vexmath::detail::IfNumber<N> = 0>
    mgVector_c(N) = delete; // a lone number, 0 as a null pointer included, is no vector
    explicit mgVector_c(mg2DPoint_c const &) = delete; // it holds two doubles, not three

    /// The one shared zero vector.
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
    void get(double *xyz) const;
    void get(float *xyz) const; ///< each component rounded to single precision
    void get(mg2DPoint_c &) const = delete;
    /// The address of x; y and z follow it.
    operator double *() { return c_; }
    operator double const *() const { return c_; }
    // A vector is no truth value, which its address would be: ask isNull()
    template <class B, vexmath::detail::IfBool<B> = 0>
    operator B() = delete;
    template <class B, vexmath::detail::IfBool<B> = 0>
    operator B() const = delete;

    double len() const;
    double sqlen() const; ///< x*x + y*y + z*z, in this order
    int null() const;     ///< 1 only for exactly (0, 0, 0), of either sign
    int isNull() const;
    int isNotNull() const { return !isNull(); }

    mgVector_c &operator+=(mgVector_c const &v);
    mgVector_c &operator-=(mgVector_c const &v);
    mgVector_c &operator*=(double s);
    /// Turned and scaled, never translated; an exactly zero vector stays as it is. Body in xform.h.
    inline mgVector_c &operator*=(mgXform_c const &x);
    void flip(); ///< negates every component

    /// Scales to unit length and returns 1; leaves a null vector unchanged and returns 0. It
    /// refuses more than `mg_Normalise`, which goes by the length: see there.
    int normalise();

    // Directions. Every predicate gives 0 when either vector is null. The tests whose name has no
    // tolerance compare unit vectors against fixed bounds of about 0.008 degrees.

    /// Parallel or anti-parallel: ||cos| - 1| < 1e-08.
    VEXMATH_API int isParallelTo(mgVector_c const &v) const;
    /// |cos| > cos(tolDeg), strict; tolDeg in degrees, below 1e-08 the fixed bound applies. A
    /// tolerance so small that its cosine rounds to 1 refuses even a vector and itself.
    VEXMATH_API int isParallelTo(mgVector_c const &v, double tolDeg) const;
    /// The same decided by the cross product, |a x b| <= sin(tolDeg) |a| |b|, which keeps its
    /// accuracy for small angles; below 1e-15 degrees the fixed bound applies.
    VEXMATH_API int isParallelToTol(mgVector_c const &v, double tolDeg) const;
    VEXMATH_API int isPerpendicularTo(mgVector_c const &v) const;   ///< |cos| < 1e-08
    VEXMATH_API int isSameDirection(mgVector_c const &v) const;     ///< cos > 0.99999999
    VEXMATH_API int isOppositeDirection(mgVector_c const &v) const; ///< cos < -0.99999999
    /// |cos| > 0.999999 without a square root; anti-parallel counts.
    VEXMATH_API int isAlmostParallelTo(mgVector_c const &v) const;
    /// As above for u of unit length; only this vector is tested for null.
    VEXMATH_API int isAlmostParallelTo(mgUnitVector_c const &u) const;
    /// Along a coordinate axis: two of the components below 1e-08, the third not.
    VEXMATH_API int isOrthogonal() const;
    /// Index of the component of largest absolute value; on a tie the later axis.
    VEXMATH_API int dominantComponentIndex() const;
    /// A unit vector perpendicular to this one. With preferAxis non-zero, the first coordinate axis
    /// along which this vector is below 1e-10, if there is one. Of a zero vector: (1, 1, 1) /
    /// sqrt 3.
    VEXMATH_API mgUnitVector_c anyUnitNormal(int preferAxis) const;
    /// (s, t, 0) such that s a + t b is nearest to this vector, by least squares. A vector a or b
    /// shorter than 1e-08 gets the coefficient 0; both do when a and b are nearly parallel.
    VEXMATH_API mgVector_c pullBack(mgVector_c const &a, mgVector_c const &b) const;

    /// Reads three doubles. REQUIRES a su_CArchive. A failing read leaves the vector as it was.
    VEXMATH_API void restore(CArchive &ar);

    // Vectors have no order: `v < w` would compare addresses, and `v + 1` would step one.
    // Friends, because only operands of this class may find them: every number and enumerator
    // converts, if only to be refused, and `1 + enumerator` would become ambiguous elsewhere.
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
/// Each component divided by d; the zero vector when |d| < 1e-08.
mgVector_c operator/(mgVector_c const &v, double d);
/// Dot product, a.x*b.x + a.y*b.y + a.z*b.z, in this order.
double operator%(mgVector_c const &a, mgVector_c const &b);
/// Cross product a x b.
mgVector_c operator*(mgVector_c const &a, mgVector_c const &b);
/// Is a parallel or anti-parallel to b; see `mgVector_c::isParallelTo`.
int operator||(mgVector_c const &a, mgVector_c const &b);

/// 1 when every component differs by strictly less than 1e-08.
int operator==(mgVector_c const &a, mgVector_c const &b);
/// 1 when some component differs by strictly more than 1e-08.
// QUIRK: not the negation of ==, as a reader would expect: at a difference of exactly 1e-08 both
// are 0. Callers that ask twice rely on a border case being neither. Points likewise.
// (test: EqualAndUnequalAreBothFalseOnTheBound)
int operator!=(mgVector_c const &a, mgVector_c const &b);

// -------------------------------------------------------------------------------------------------

namespace vexmath::detail {

/// Squared length below which a direction counts as missing (about 3.2e-09 in length). Strict:
/// exactly this value is normalised.
inline constexpr double kDirectionFloorSq = 1e-17;

/// The normalisation behind every unit vector: one reciprocal, three multiplications, and the sum
/// of squares from z down; dividing each component instead changes last bits. A direction shorter
/// than the floor, or NaN, gives exactly (0, 0, 0).
inline mgVector_c normalised(double x, double y, double z) {
    double const sq = z * z + y * y + x * x;
    if (!(sq >= kDirectionFloorSq)) return {};
    double const reciprocal = 1.0 / std::sqrt(sq);
    return {x * reciprocal, y * reciprocal, z * reciprocal};
}

/// Strictly below the length tolerance in absolute value; false for NaN.
inline bool isTiny(double d) { return std::fabs(d) < kLengthTolerance; }

/// Each of three coordinates differs by strictly less than tol; x first, stopping at a failure.
inline int sameWithin(double const *a, double const *b, double tol) {
    return std::fabs(a[0] - b[0]) < tol && std::fabs(a[1] - b[1]) < tol
           && std::fabs(a[2] - b[2]) < tol;
}

/// Some coordinate differs by strictly more than the length tolerance.
inline int apart(double const *a, double const *b) {
    return std::fabs(a[0] - b[0]) > kLengthTolerance || std::fabs(a[1] - b[1]) > kLengthTolerance
           || std::fabs(a[2] - b[2]) > kLengthTolerance;
}

} // namespace vexmath::detail

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
