// SPDX-License-Identifier: MIT
// mgPoint_c: a point in space; gcMdiPoint_c: the point type of the application interface.

#ifndef VEXMATH_POINT_H
#define VEXMATH_POINT_H

#include <vexmath/vector.h>

#include <vexmath_platform/archive.h>
#include <vexmath_platform/dump_context.h>

#include <cstdint>

/// A point of three doubles in model units: a plain, trivially copyable value of 24 bytes, with the
/// storage of `mgVector_c`. Points and vectors convert into each other freely; they differ in what
/// a transform does to them, and point - point is a vector.
class mgPoint_c {
public:
    constexpr mgPoint_c() = default; ///< (0, 0, 0)
    constexpr mgPoint_c(double x, double y, double z);
    mgPoint_c(mgVector_c const &v);
    /// REQUIRES three readable doubles.
    mgPoint_c(double const *xyz);
    template <class N, vexmath::detail::IfNumber<N> = 0>
    mgPoint_c(N) = delete; // a lone number, 0 as a null pointer included, is no point
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
    // A point is no truth value, which its address would be.
    template <class B, vexmath::detail::IfBool<B> = 0>
    operator B() = delete;
    template <class B, vexmath::detail::IfBool<B> = 0>
    operator B() const = delete;

    mgPoint_c &operator+=(mgVector_c const &v);
    mgPoint_c &operator-=(mgVector_c const &v);
    /// Moved by the transform, through its perspective division when it holds a record. Body in
    /// xform.h.
    inline mgPoint_c &operator*=(mgXform_c const &x);

    // Back from screen to model space: each moves this screen point and also returns it. A view
    // without a perspective record is simply inverted.

    /// To the model point on the near clip plane that is seen here.
    VEXMATH_API mgPoint_c xformByPerspInverse(mgXform_c const &view);
    /// To the model point that is seen here at this point's depth, or on the near clip plane when
    /// that is deeper.
    VEXMATH_API mgPoint_c xformByPerspInverseVisible(mgXform_c const &view);
    /// To where the line of sight meets the plane. When it does not: to where the line
    /// of sight begins.
    VEXMATH_API mgPoint_c xformByPerspInversePlane(mgXform_c const &view, mgPlane_c const &plane);
    /// To the point of the line of sight that is nearest to the line. When they are parallel: to
    /// where the line of sight begins.
    VEXMATH_API mgPoint_c xformByPerspInverseLine(mgXform_c const &view, mgLine_c const &line);

    /// 1 when each coordinate differs by strictly less than tol; a negative tol means 1e-08.
    int isSame(mgPoint_c const &p, double tol = -1.0) const;
    /// 1 when the difference is null. The tolerance is accepted and plays no part: always 1e-08.
    int isSame2(mgPoint_c const &p, double tol = -1.0) const;
    /// Lexicographic order over x, y, z in which coordinates within tol count as equal; a negative
    /// tol means 1e-08. Not transitive across the tolerance.
    int isLessThan(mgPoint_c const &p, double tol = -1.0) const;

    /// Parameter of this point on the line from a (0) to b (1), read off the coordinate along which
    /// the line is longest (x before y before z on ties). REQUIRES a and b to differ.
    VEXMATH_API double getParamOnLine(mgPoint_c const &a, mgPoint_c const &b) const;
    /// The mirror image in the plane through p with unit normal n.
    VEXMATH_API mgPoint_c mirror(mgPoint_c const &p, mgVector_c const &n) const;
    /// Distance to the whole line through root along unitDir, whose parameter goes to *param when
    /// given. REQUIRES unitDir of unit length: it is used as it is.
    VEXMATH_API double distToRay(mgPoint_c const &root, mgVector_c const &unitDir,
                                 double *param = nullptr) const;
    /// Distance to the whole line through a and b; parameter (0 at a, 1 at b) and foot on request.
    /// When a and b are closer than 1e-08: the distance to a, parameter 0, foot a.
    VEXMATH_API double distToLine(mgPoint_c const &a, mgPoint_c const &b, double *param = nullptr,
                                  mgPoint_c *foot = nullptr) const;
    /// Are three points collinear (1), and a plane through them: a point and a normal, which is not
    /// normalised when they are not collinear. Equal points count as collinear; all three equal
    /// give a zero normal, and pts[1] equal to only pts[2] leaves `normal` as it was.
    VEXMATH_API static int checkCollinear(mgPoint_c const pts[3], mgPoint_c &point,
                                          mgVector_c &normal);

    /// The segments p1-p2 and p3-p4 that draw a plus at this point, in the plane z = 0 whatever
    /// this point's z. Arms point away from the origin with 4 sizes and towards it with 3.
    VEXMATH_API void getPLUSrep(mgPoint_c &p1, mgPoint_c &p2, mgPoint_c &p3, mgPoint_c &p4,
                                double size) const;
    /// The same for a cross.
    VEXMATH_API void getXrep(mgPoint_c &p1, mgPoint_c &p2, mgPoint_c &p3, mgPoint_c &p4,
                             double size) const;

    /// Writes "(x,y,z)" with four decimals each, in three pieces, without a line end.
    VEXMATH_API void Dump(CDumpContext &dc) const;

    // Archive records for callers that hold a CArchive, which must be a su_CArchive: three doubles,
    // or x and y alone (reading that form sets z to 0). A failing read leaves the point as it was.
    VEXMATH_API void save(CArchive &ar) const;
    VEXMATH_API void restore(CArchive &ar);
    VEXMATH_API void save2D(CArchive &ar) const;
    VEXMATH_API void restore2D(CArchive &ar);

    // No order by operators: `p < q` would compare addresses, and `p + 1` would step one. Use
    // isLessThan.
    // Friends, because only operands of this class may find them: every number and enumerator
    // converts, if only to be refused, and `1 + enumerator` would become ambiguous elsewhere.
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

// Point and vector arithmetic. Because points and vectors convert both ways, every mixture has its
// own overload with the plain meaning.
mgPoint_c operator+(mgPoint_c const &p, mgVector_c const &v);
mgPoint_c operator+(mgVector_c const &v, mgPoint_c const &p);
mgPoint_c operator+(mgPoint_c const &p, mgPoint_c const &q);
mgPoint_c operator-(mgPoint_c const &p, mgVector_c const &v);
mgVector_c operator-(mgPoint_c const &p, mgPoint_c const &q);
mgVector_c operator-(mgVector_c const &v, mgPoint_c const &p);
double operator%(mgPoint_c const &p, mgVector_c const &v);
double operator%(mgVector_c const &v, mgPoint_c const &p);
double operator%(mgPoint_c const &p, mgPoint_c const &q);

/// 1 when every coordinate differs by strictly less than 1e-08.
int operator==(mgPoint_c const &p, mgPoint_c const &q);
int operator==(mgPoint_c const &p, mgVector_c const &v);
int operator==(mgVector_c const &v, mgPoint_c const &p);
/// 1 when some coordinate differs by strictly more than 1e-08. Not the negation of ==: at a
/// difference of exactly 1e-08 both are 0.
int operator!=(mgPoint_c const &p, mgPoint_c const &q);
int operator!=(mgPoint_c const &p, mgVector_c const &v);
int operator!=(mgVector_c const &v, mgPoint_c const &p);

/// Archive record of a point: x, y, z as three doubles. A failing read leaves p as it was.
VEXMATH_API su_CArchive &operator<<(su_CArchive &ar, mgPoint_c &p);
VEXMATH_API su_CArchive &operator>>(su_CArchive &ar, mgPoint_c &p);

/// The point of the application interface: the storage of `mgPoint_c`, a type of its own.
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
    void zero() { *this = {}; }

    double magnitude() const { return mgVector_c(x_, y_, z_).len(); }

    gcMdiPoint_c &operator+=(gcMdiPoint_c const &p);
    gcMdiPoint_c &operator-=(gcMdiPoint_c const &p);
    gcMdiPoint_c &operator*=(double s);
    // QUIRK: no guard, so that dividing by 0 gives infinities, where vector / d gives the zero
    // vector for a tiny d. The application interface tells an overflow from a zero by it.
    // (test: ApplicationPointDividesWithoutGuard)
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
    // QUIRK: a caller would expect its tolerance to count. Sketch clean-up passes loose ones and
    // relies on the fixed 1e-08. (test: SecondComparisonIgnoresItsTolerance)
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

namespace vexmath::detail {

/// Asks early for memory that a loop over a list reaches soon: 64 points past p, and so many bytes
/// more. Lists that exceed the cache are read two to three times as fast. Nothing is read, so p
/// need be in no list; the address is a number, since no pointer may point there.
inline void prefetchAhead([[maybe_unused]] mgPoint_c const *p,
                          [[maybe_unused]] std::uintptr_t bytes) {
#if defined(__GNUC__)
    std::uintptr_t const ahead = reinterpret_cast<std::uintptr_t>(p) + 64 * sizeof *p + bytes;
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    __builtin_prefetch(reinterpret_cast<void const *>(ahead));
#endif
}

} // namespace vexmath::detail

#endif
