// SPDX-License-Identifier: MIT
// mgPoint_c: a point in space; gcMdiPoint_c: the point type of the application interface.

#ifndef VEXMATH_POINT_H
#define VEXMATH_POINT_H

#include <vexmath/detail/operand_traits.h>
#include <vexmath/vector.h>

#include <vexmath_platform/archive.h>
#include <vexmath_platform/dump_context.h>

/// A point of three doubles in model units: a plain, trivially copyable value of 24 bytes.
///
/// `mgVector_c` has the same storage, and each of the two converts into the other implicitly. A
/// transform moves points; it only rotates and scales vectors. Arithmetic passes NaN and infinity
/// on unchecked.
class mgPoint_c {
public:
    constexpr mgPoint_c() = default; ///< (0, 0, 0)
    constexpr mgPoint_c(double x, double y, double z);
    mgPoint_c(mgVector_c const &v);
    /// REQUIRES three readable doubles.
    mgPoint_c(double const *xyz);
    template <class N, vexmath::detail::IfNumber<N> = 0>
    mgPoint_c(N) = delete; // a lone number, also 0 as a null pointer, is not a point
    explicit mgPoint_c(mg2DPoint_c const &) = delete; // it holds two doubles, not three

    void set(double x, double y, double z);
    void set(double const *xyz); ///< REQUIRES three readable doubles.
    void set(float const *xyz);  ///< REQUIRES three readable floats.
    void set(mg2DPoint_c const &) = delete;
    void set_x(double x) { c_[0] = x; }
    void set_y(double y) { c_[1] = y; }
    void set_z(double z) { c_[2] = z; }

    double x() const { return c_[0]; }
    double y() const { return c_[1]; }
    double z() const { return c_[2]; }
    /// The address of x; y and z follow it.
    operator double *() { return c_; }
    operator double const *() const { return c_; }
    // Not a truth value: its address would always be true.
    template <class B, vexmath::detail::IfBool<B> = 0>
    operator B() = delete;
    template <class B, vexmath::detail::IfBool<B> = 0>
    operator B() const = delete;

    mgPoint_c &operator+=(mgVector_c const &v);
    mgPoint_c &operator-=(mgVector_c const &v);
    /// Moves this point by rotation, scale and translation, and through the perspective division
    /// when x holds a record. The scale is applied only when it differs from 1 by strictly more
    /// than 1e-08. Body in xform.h.
    inline mgPoint_c &operator*=(mgXform_c const &x);

    // From screen to model space. Each function moves this point, a screen point, and also returns
    // its new value. A view without a perspective record has no near clip plane: the first two
    // functions then only apply the inverse of a copy of the view (xform.h has the copy rules). The
    // line of sight of the other two begins at `rayPoint` of `mg_getModelSpaceViewRay` and has the
    // direction `rayDir`, both computed for this point as a screen point. None of them allocates.

    /// The model point on the near clip plane that is seen at this point's x and y. This point's z
    /// is ignored when the view has a record. For a perspective camera with a plane distance of 0
    /// the result is the eye, in model space.
    VEXMATH_API mgPoint_c xformByPerspInverse(mgXform_c const &view);
    /// The model point that is seen at this point's x and y, at the depth of this point's z, or on
    /// the near clip plane when z is below that plane's. An iso plane distance of 0 gives NaN or
    /// infinity, except for an orthographic camera.
    VEXMATH_API mgPoint_c xformByPerspInverseVisible(mgXform_c const &view);
    /// The point where the line of sight meets the plane, in front of `rayPoint` or behind it. The
    /// result is `rayPoint` when the two are parallel: when the dot product of rayDir and the
    /// plane's normal is strictly below 1e-08 in absolute value, so also when either is zero.
    VEXMATH_API mgPoint_c xformByPerspInversePlane(mgXform_c const &view, mgPlane_c const &plane);
    /// The point of the line of sight that is nearest to the line, in front of `rayPoint` or behind
    /// it. The result is `rayPoint` when the two are parallel: when 1 - |cos| of the directions is
    /// strictly below 1e-08. It is `rayPoint` for a zero rayDir as well. A line with a zero
    /// direction is its root point alone.
    VEXMATH_API mgPoint_c xformByPerspInverseLine(mgXform_c const &view, mgLine_c const &line);

    /// 1 when each coordinate differs by strictly less than tol, so 0 for a tol of 0 or NaN. A
    /// negative tol means 1e-08. A NaN difference gives 0.
    int isSame(mgPoint_c const &p, double tol = -1.0) const;
    /// `isSame` with a tolerance of 1e-08. The argument tol is ignored.
    int isSame2(mgPoint_c const &p, double tol = -1.0) const;
    /// Lexicographic order by x, then y, then z: 1 when this point is less in the first coordinate
    /// that differs by strictly more than tol, else 0. A NaN difference counts as equal. A
    /// negative tol means 1e-08; a NaN tol gives 0. Equality within the tolerance is not
    /// transitive, so this is no strict weak order.
    int isLessThan(mgPoint_c const &p, double tol = -1.0) const;

    /// The parameter of this point on the line from a (0) to b (1), not clamped. It is computed
    /// from one coordinate: the one in which a and b differ most, x before y before z on a tie.
    /// Equal a and b give infinity or NaN. A y or z that is NaN in a or b is not chosen. An x that
    /// is NaN there gives NaN.
    VEXMATH_API double getParamOnLine(mgPoint_c const &a, mgPoint_c const &b) const;
    /// The mirror image in the plane through p with normal n. REQUIRES n of unit length.
    VEXMATH_API mgPoint_c mirror(mgPoint_c const &p, mgVector_c const &n) const;
    /// The distance to the whole line through root along unitDir, on both sides of root. *param,
    /// unless null, becomes the signed distance of the foot from root along unitDir. REQUIRES
    /// unitDir of unit length, and param not to point into unitDir: unitDir is read after *param is
    /// written.
    VEXMATH_API double distToRay(mgPoint_c const &root, mgVector_c const &unitDir,
                                 double *param = nullptr) const;
    /// The distance to the whole line through a and b. *param, unless null, becomes the parameter
    /// of the foot: 0 at a, 1 at b, not clamped. *foot, unless null, becomes the foot; it may be
    /// any of the three points. When the distance from a to b is strictly below 1e-08, the result
    /// is the distance to a, with parameter 0 and foot a.
    VEXMATH_API double distToLine(mgPoint_c const &a, mgPoint_c const &b, double *param = nullptr,
                                  mgPoint_c *foot = nullptr) const;
    /// Returns 1 when the three points are collinear, which includes equal points, and otherwise 0.
    /// `point` becomes pts[0]; it may be one of the three.
    ///
    /// When they are not collinear, `normal` becomes the cross product (pts[2] - pts[0]) x
    /// (pts[1] - pts[0]), not normalised. Points count as collinear when every component of that
    /// product is strictly below 1e-08 in absolute value, or when two of them are equal by ==;
    /// `normal` is then a unit vector perpendicular to their line, with two exceptions. When pts[0]
    /// equals both others, `normal` becomes (0, 0, 0). When only pts[1] and pts[2] are equal,
    /// `normal` stays unwritten. A point with NaN equals nothing: the result is 0 and `normal`
    /// holds NaN, unless the two other points are equal.
    VEXMATH_API static int checkCollinear(mgPoint_c const pts[3], mgPoint_c &point,
                                          mgVector_c &normal);

    // Markers: the ends of the segments p1-p2 and p3-p4, all with z = 0. The arms are 3 sizes long
    // towards the origin and 4 sizes away from it. Let sx be -1 for x < 0 and else 1, sy likewise,
    // a = 3 * size, b = 4 * size. An output may be this point.

    /// A plus: (x - sx a, y) to (x + sx b, y), and (x, y - sy a) to (x, y + sy b).
    VEXMATH_API void getPLUSrep(mgPoint_c &p1, mgPoint_c &p2, mgPoint_c &p3, mgPoint_c &p4,
                                double size) const;
    /// A cross: (x - sx a, y - sy a) to (x + sx b, y + sy b), and (x + sx a, y - sy a) to
    /// (x - sx b, y + sy b).
    VEXMATH_API void getXrep(mgPoint_c &p1, mgPoint_c &p2, mgPoint_c &p3, mgPoint_c &p4,
                             double size) const;

    /// Writes "(x,y,z)" with four decimals each, in three pieces, without a line end. The decimal
    /// point is that of the process's numeric locale.
    VEXMATH_API void Dump(CDumpContext &dc) const;

    // Archive records for callers that hold a CArchive, which must be a su_CArchive: x, y, z as
    // three doubles; the 2D form has x and y alone, and reading it sets z to 0. When the archive
    // throws while reading, the point stays as it was.
    VEXMATH_API void save(CArchive &ar) const;
    VEXMATH_API void restore(CArchive &ar);
    VEXMATH_API void save2D(CArchive &ar) const;
    VEXMATH_API void restore2D(CArchive &ar);

    // No order by operators: `p < q` would compare addresses, and `p + 1` would step one. Use
    // isLessThan.
    // Friends, because only operands of this class may find them: every number and enumerator
    // converts, even though only to be refused, and `1 + enumerator` elsewhere would be ambiguous.
    friend bool operator<(mgPoint_c const &, mgPoint_c const &) = delete;
    friend bool operator>(mgPoint_c const &, mgPoint_c const &) = delete;
    friend bool operator<=(mgPoint_c const &, mgPoint_c const &) = delete;
    friend bool operator>=(mgPoint_c const &, mgPoint_c const &) = delete;
#if defined(__cpp_impl_three_way_comparison)
    friend bool operator<=>(mgPoint_c const &, mgPoint_c const &) = delete;
#endif
    template <class N>
    friend vexmath::detail::IfNumber<N> operator+(mgPoint_c const &, N) = delete;
    template <class N>
    friend vexmath::detail::IfNumber<N> operator+(N, mgPoint_c const &) = delete;
    template <class N>
    friend vexmath::detail::IfNumber<N> operator-(mgPoint_c const &, N) = delete;

private:
    double c_[3] = {0.0, 0.0, 0.0};
};

// Point and vector arithmetic. The result's type is that of the first operand, but point - point
// is a vector and vector + point a point. Each mixture has an overload of its own, because the two
// types convert both ways. The operators of vector.h accept points as well and give vectors:
// 2.0 * p, p / 2.0, -p, and p * q, a cross product.
mgPoint_c operator+(mgPoint_c const &p, mgVector_c const &v);
mgPoint_c operator+(mgVector_c const &v, mgPoint_c const &p);
mgPoint_c operator+(mgPoint_c const &p, mgPoint_c const &q);
mgPoint_c operator-(mgPoint_c const &p, mgVector_c const &v);
mgVector_c operator-(mgPoint_c const &p, mgPoint_c const &q);
mgVector_c operator-(mgVector_c const &v, mgPoint_c const &p);
double operator%(mgPoint_c const &p, mgVector_c const &v);
double operator%(mgVector_c const &v, mgPoint_c const &p);
double operator%(mgPoint_c const &p, mgPoint_c const &q);

/// 1 when every coordinate differs by strictly less than 1e-08. Else 0, also when a difference is
/// NaN: a NaN coordinate, or the same infinite coordinate in both.
int operator==(mgPoint_c const &p, mgPoint_c const &q);
int operator==(mgPoint_c const &p, mgVector_c const &v);
int operator==(mgVector_c const &v, mgPoint_c const &p);
// QUIRK: point.h, operator!=: at a difference of exactly 1e-08 both == and != give 0. Expected: the
// negation of ==. Kept: callers and stored data depend on it.
// (test: EqualAndUnequalAreBothFalseOnTheBound)
/// 1 when some coordinate differs by strictly more than 1e-08. A NaN difference is not more. This
/// is not the negation of ==: at a difference of exactly 1e-08, and with NaN, both can be 0.
int operator!=(mgPoint_c const &p, mgPoint_c const &q);
int operator!=(mgPoint_c const &p, mgVector_c const &v);
int operator!=(mgVector_c const &v, mgPoint_c const &p);

/// Archive record of a point: x, y, z as three doubles. When the archive throws while reading, p
/// stays as it was.
VEXMATH_API su_CArchive &operator<<(su_CArchive &ar, mgPoint_c &p);
VEXMATH_API su_CArchive &operator>>(su_CArchive &ar, mgPoint_c &p);

/// The point of the application interface. It has the storage of `mgPoint_c` and converts neither
/// to nor from it.
class gcMdiPoint_c {
public:
    constexpr gcMdiPoint_c() = default; ///< (0, 0, 0)
    constexpr gcMdiPoint_c(double x, double y, double z) : x_(x), y_(y), z_(z) {}

    void set_x(double x) { x_ = x; }
    void set_y(double y) { y_ = y; }
    void set_z(double z) { z_ = z; }
    double x() const { return x_; }
    double y() const { return y_; }
    double z() const { return z_; }
    void zero() { *this = {}; } ///< sets (0, 0, 0)

    /// The distance from the origin.
    double magnitude() const { return mgVector_c(x_, y_, z_).len(); }

    gcMdiPoint_c &operator+=(gcMdiPoint_c const &p);
    gcMdiPoint_c &operator-=(gcMdiPoint_c const &p);
    gcMdiPoint_c &operator*=(double s);
    // QUIRK: point.h, gcMdiPoint_c::operator/=: division by 0 gives infinities and NaN. Expected:
    // (0, 0, 0), as for vector / d. Kept: callers and stored data depend on it.
    // (test: ApplicationPointDividesWithoutGuard)
    /// Divides each coordinate by d, whatever d is: 0 gives infinities and NaN.
    gcMdiPoint_c &operator/=(double d);

private:
    double x_ = 0.0;
    double y_ = 0.0;
    double z_ = 0.0;
};

// -------------------------------------------------------------------------------------------------

constexpr mgPoint_c::mgPoint_c(double x, double y, double z) : c_{x, y, z} {}

inline mgPoint_c::mgPoint_c(mgVector_c const &v) : c_{v.x(), v.y(), v.z()} {}

inline mgPoint_c::mgPoint_c(double const *xyz) : c_{xyz[0], xyz[1], xyz[2]} {}

inline mgVector_c::mgVector_c(mgPoint_c const &p) : c_{p.x(), p.y(), p.z()} {}

inline void mgPoint_c::set(double x, double y, double z) {
    c_[0] = x;
    c_[1] = y;
    c_[2] = z;
}

inline void mgPoint_c::set(double const *xyz) { set(xyz[0], xyz[1], xyz[2]); }

inline void mgPoint_c::set(float const *xyz) {
    set(static_cast<double>(xyz[0]), static_cast<double>(xyz[1]), static_cast<double>(xyz[2]));
}

inline mgPoint_c &mgPoint_c::operator+=(mgVector_c const &v) {
    set(c_[0] + v.x(), c_[1] + v.y(), c_[2] + v.z());
    return *this;
}

inline mgPoint_c &mgPoint_c::operator-=(mgVector_c const &v) {
    set(c_[0] - v.x(), c_[1] - v.y(), c_[2] - v.z());
    return *this;
}

inline int mgPoint_c::isSame(mgPoint_c const &p, double tol) const {
    return vexmath::detail::sameWithin(*this, p, tol < 0.0 ? vexmath::kLengthTolerance : tol);
}

inline int mgPoint_c::isSame2(mgPoint_c const &p, double /*tol*/) const {
    // QUIRK: point.h, mgPoint_c::isSame2: the tolerance is ignored, 1e-08 applies. Expected: the
    // caller's tolerance. Kept: callers and stored data depend on it.
    // (test: SecondComparisonIgnoresItsTolerance)
    return mgVector_c(c_[0] - p.c_[0], c_[1] - p.c_[1], c_[2] - p.c_[2]).isNull();
}

inline int mgPoint_c::isLessThan(mgPoint_c const &p, double tol) const {
    double const reach = tol < 0.0 ? vexmath::kLengthTolerance : tol;
    double const differences[3] = {c_[0] - p.c_[0], c_[1] - p.c_[1], c_[2] - p.c_[2]};
    for (double const d : differences) {
        if (d < -reach) return 1;
        if (d > reach) return 0;
    }
    return 0;
}

inline mgPoint_c operator+(mgPoint_c const &p, mgVector_c const &v) {
    return {p.x() + v.x(), p.y() + v.y(), p.z() + v.z()};
}

inline mgPoint_c operator+(mgVector_c const &v, mgPoint_c const &p) {
    return {v.x() + p.x(), v.y() + p.y(), v.z() + p.z()};
}

inline mgPoint_c operator+(mgPoint_c const &p, mgPoint_c const &q) {
    return {p.x() + q.x(), p.y() + q.y(), p.z() + q.z()};
}

inline mgPoint_c operator-(mgPoint_c const &p, mgVector_c const &v) {
    return {p.x() - v.x(), p.y() - v.y(), p.z() - v.z()};
}

inline mgVector_c operator-(mgPoint_c const &p, mgPoint_c const &q) {
    return {p.x() - q.x(), p.y() - q.y(), p.z() - q.z()};
}

inline mgVector_c operator-(mgVector_c const &v, mgPoint_c const &p) {
    return {v.x() - p.x(), v.y() - p.y(), v.z() - p.z()};
}

inline double operator%(mgPoint_c const &p, mgVector_c const &v) { return mgVector_c(p) % v; }
inline double operator%(mgVector_c const &v, mgPoint_c const &p) { return v % mgVector_c(p); }
inline double operator%(mgPoint_c const &p, mgPoint_c const &q) {
    return mgVector_c(p) % mgVector_c(q);
}

inline int operator==(mgPoint_c const &p, mgPoint_c const &q) {
    return vexmath::detail::sameWithin(p, q, vexmath::kLengthTolerance);
}
inline int operator==(mgPoint_c const &p, mgVector_c const &v) { return p == mgPoint_c(v); }
inline int operator==(mgVector_c const &v, mgPoint_c const &p) { return mgPoint_c(v) == p; }

inline int operator!=(mgPoint_c const &p, mgPoint_c const &q) {
    return vexmath::detail::apart(p, q);
}
inline int operator!=(mgPoint_c const &p, mgVector_c const &v) { return p != mgPoint_c(v); }
inline int operator!=(mgVector_c const &v, mgPoint_c const &p) { return mgPoint_c(v) != p; }

inline gcMdiPoint_c &gcMdiPoint_c::operator+=(gcMdiPoint_c const &p) {
    return *this = {x_ + p.x_, y_ + p.y_, z_ + p.z_};
}

inline gcMdiPoint_c &gcMdiPoint_c::operator-=(gcMdiPoint_c const &p) {
    return *this = {x_ - p.x_, y_ - p.y_, z_ - p.z_};
}

inline gcMdiPoint_c &gcMdiPoint_c::operator*=(double s) { return *this = {x_ * s, y_ * s, z_ * s}; }

inline gcMdiPoint_c &gcMdiPoint_c::operator/=(double d) { return *this = {x_ / d, y_ / d, z_ / d}; }

#endif
