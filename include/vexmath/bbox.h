// SPDX-License-Identifier: MIT
// mgBBox_c: an axis-aligned box kept together with a bounding sphere.

#ifndef VEXMATH_BBOX_H
#define VEXMATH_BBOX_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

#include <vexmath_platform/archive.h>
#include <vexmath_platform/string.h>

#if defined(__x86_64__) || defined(_M_X64)
#include <emmintrin.h>
#endif

/// An axis-aligned box and a bounding sphere, kept side by side so that each can serve as the
/// cheaper or the tighter bound. A plain value of ten doubles.
///
/// A box is **set** when its radius is not negative and low <= high on every axis; NaN makes it
/// unset. It is **valid** when it is set and the sphere agrees with the corners: reaches every
/// corner coordinate, touches the box, and is no larger than its farthest corner asks for. The
/// setters of one half alone, and transforms of flat boxes, can leave a set box that is not valid.
///
/// Queries of an unset box give the neutral value that each states; unions take an unset or invalid
/// operand as empty. Where a step can meet NaN, the corner that stands is kept. Nothing reports an
/// error.
class mgBBox_c {
public:
    /// Unset: high corner (-1, -1, -1), low corner (1, 1, 1), radius -2.
    mgBBox_c() = default;
    /// The cube around a sphere; a negative radius gives an unset box.
    mgBBox_c(mgPoint_c const &centre, double r);
    /// The box of two opposite corners, in any order, with the sphere through them. A NaN of b
    /// counts as the coordinate of a; a NaN of a leaves the box unset.
    mgBBox_c(mgPoint_c const &a, mgPoint_c const &b);

    void set(mgPoint_c const &centre, double r); ///< as the constructor
    /// Low corner, then high corner, as they are (not sorted), and the sphere through them.
    /// REQUIRES six readable doubles.
    VEXMATH_API void set(double const *lowHigh);
    void set(mgPoint_c const &) = delete; // which would pass for an array of six
    void set(mgVector_c const &) = delete;
    /// As the constructor. REQUIRES a and b not null.
    VEXMATH_API void set2Points(mgPoint_c const *a, mgPoint_c const *b);
    void setSphereOnly(mgPoint_c const &centre, double r);
    void setCornersOnly(mgPoint_c const &low, mgPoint_c const &high); ///< not sorted
    /// Unset by its corners, low (0, 0, 0) and high (0, 0, -2); the sphere stays as it was.
    VEXMATH_API void reset();

    /// The model's working range: a cube of radius slightly below 500.
    VEXMATH_API static mgBBox_c maxBox();
    /// The cube from -500 to 500 with the sphere of radius 500 in it.
    VEXMATH_API static mgBBox_c correctedMaxBox();
    /// The process-wide switch, 0 at first: when it is not 0, a union of boxes gives the cube
    /// around the merged sphere. Setting returns the previous value. Not locked.
    VEXMATH_API static int GetUseSphereBoundingBox();
    VEXMATH_API static int SetUseSphereBoundingBox(int useSphere);

    // Queries, with the answer for an unset box behind each.
    int isSet() const;
    VEXMATH_API int isValid() const;           ///< 0
    mgPoint_c low() const;                     ///< (0, 0, 0)
    mgPoint_c high() const;                    ///< (0, 0, 0)
    mgPoint_c center() const;                  ///< of the corners; (0, 0, 0)
    mgPoint_c sphCenter() const;               ///< (0, 0, 0)
    double sphRadius() const;                  ///< 0
    double width() const;                      ///< along x; 0
    double depth() const;                      ///< along y; 0
    double height() const;                     ///< along z; 0
    VEXMATH_API double diagonalLength() const; ///< 0
    VEXMATH_API double maxDimension() const;   ///< 0
    // QUIRK: -1 here where all its siblings give 0; a reader would expect 0. Callers that look for
    // the thinnest of several boxes skip negative answers. (test: AnUnsetBoxAnswersNeutrally)
    VEXMATH_API double minDimension() const; ///< -1
    /// The point of the box nearest to p. Of an unset box: (0, 0, 0).
    VEXMATH_API mgPoint_c pointPerp(mgPoint_c const &p) const;

    /// Centres and corners equal as points, radii within 1e-08, strictly.
    VEXMATH_API bool operator==(mgBBox_c const &b) const;
    /// The same within tol, strictly; a negative tol means 1e-08, 0 stays 0.
    VEXMATH_API int isSame(mgBBox_c const &b, double tol) const;

    VEXMATH_API void translate(mgVector_c const &v); ///< unset boxes too; they stay unset
    mgBBox_c &operator+=(mgVector_c const &v);       ///< as translate
    /// Grows by d on every side, or shrinks. A radius that becomes negative unsets the box. An
    /// unset box is grown alike: the default one (radius -2) becomes set by 2 or more, but not
    /// valid, and one unset by its corners alone becomes set where the step closes the gap, or by
    /// any shrinking that leaves the radius.
    VEXMATH_API mgBBox_c &operator+=(double d);
    /// Scales corners and sphere about the middle of the corners, an unset box about (0, 0, 0); s
    /// is not checked.
    VEXMATH_API mgBBox_c &operator*=(double s);
    /// Encloses the image of the box, ignoring perspective: exact for axis-aligned rotations, wider
    /// otherwise, but never beyond the cube around the transformed sphere. A box that is unset by
    /// its radius stays so; one unset by its corners alone may become set.
    VEXMATH_API mgBBox_c &operator*=(mgXform_c const &x);
    /// Encloses p as well. An unset or invalid box becomes the point.
    mgBBox_c &operator|=(mgPoint_c const &p);
    /// Encloses b as well, unless b is not valid. An unset box becomes b; one that is set but not
    /// valid enters as it is.
    VEXMATH_API mgBBox_c &operator|=(mgBBox_c const &b);
    /// The common part of the corners with a new sphere through them. Unset when a gap of 1e-08 or
    /// more lies between them on an axis; a narrower gap becomes a box as wide as the gap.
    VEXMATH_API mgBBox_c &operator&=(mgBBox_c const &b);

    // Interference. Every test is 0 for an unset box unless it says that it does not look.

    /// Does the plane meet the box: is a corner strictly nearer to it than tol, or do corners lie
    /// on both sides? A tol below 1e-08, or of NaN, counts as 1e-08.
    VEXMATH_API int clash(mgPlane_c const &plane, double tol) const;
    /// Do the boxes clash? tol widens the gap that is bridged between corners and spheres, and
    /// again the squared radii as a factor (1 + tol). Boxes that share a single corner do not
    /// clash; boxes that share a face do. REQUIRES b not null.
    VEXMATH_API int clash(mgBBox_c const *b, double tol) const;
    /// Do box a placed by xa and box b placed by xb clash? Each is carried into the frame of the
    /// other and both tests must agree, which removes most false alarms of turned boxes. The
    /// spheres must overlap by 1e-08, and b's radius enters unscaled: REQUIRES placements of one
    /// scale.
    VEXMATH_API static int clash(mgBBox_c const &a, mgXform_c const &xa, mgBBox_c const &b,
                                 mgXform_c const &xb);
    /// 1 when b, scaled by (1 - tol) about its middle, lies strictly inside this box, and the
    /// spheres are no farther apart than their radii and tol. 0 for null.
    VEXMATH_API int containsBBox(mgBBox_c const *b, double tol) const;
    /// 1 when p lies in the box grown by tol, bound included. Does not look at the set state: the
    /// corners of an unset box decide too. A coordinate of NaN, of p or of a corner, excludes
    /// nothing, nor does a tol of NaN.
    VEXMATH_API int containsPoint(mgPoint_c const &p, double tol) const;
    /// The same without looking along one axis, 0, 1 or 2 for x, y, z; any other number ignores
    /// none.
    VEXMATH_API int containsPoint(mgPoint_c const &p, double tol, int ignoredAxis) const;
    /// Does the segment meet the box? Its own box must clash with this one within 1e-08, or within
    /// tol, and its line must meet the sphere, whose squared radius tol widens. The faces are not
    /// asked. REQUIRES a and b not null.
    VEXMATH_API int clashLine(mgPoint_c const *a, mgPoint_c const *b) const;
    VEXMATH_API int clashLine(mgPoint_c const *a, mgPoint_c const *b, double tol) const;

    // Lines through p along dir, which is used as it is. Without a direction the sphere counts as
    // met, wherever it is, and no face does.

    /// Does the line, on either side of p, meet the bounding sphere? |distance|^2 <= radius^2 +
    /// 2e-08. An unset box counts as the point (0, 0, 0).
    int sphereHitByRay(mgPoint_c const &p, mgUnitVector_c const &dir) const;
    /// The same with tol added to the squared radius.
    int sphereHitByRay2(mgPoint_c const &p, mgUnitVector_c const &dir, double tol) const;
    /// Does the line, on either side of p, meet the sphere and pass through the inside of a face? A
    /// line along a face, or through edges alone, does not.
    int isRayHit(mgPoint_c const &p, mgUnitVector_c const &dir) const;
    /// The nearest point in front of p where the ray passes through a face, widened by 1e-08: the
    /// entry, or the exit when p is inside. 0 and *hit as it was when there is none within 1e32, or
    /// none farther from p than 1e-08. Does not look at the set state. hit may be &p.
    VEXMATH_API int getFirstRayHit(mgPoint_c const &p, mgUnitVector_c const &dir,
                                   mgPoint_c *hit) const;
    /// The range of the corners along the line: the least and the largest parameter, distances from
    /// p for a unit dir. Does not look at the set state.
    VEXMATH_API void limitRay(mgPoint_c const &p, mgUnitVector_c const &dir, double *tmin,
                              double *tmax) const;

    /// Text form: the corners, low first, as six numbers with 16 digits, separated by spaces; zeros
    /// for an unset box. Follows the process's numeric locale.
    VEXMATH_API void saveStringRep(CString &s) const;
    /// Reads six numbers back as two opposite corners and returns 1; 0 and no change otherwise.
    VEXMATH_API int restoreStringRep(CString const &s);
    VEXMATH_API void dump() const; ///< formats the text form and drops it

    /// Archive record: sphere centre, high corner, low corner, radius, ten doubles, not checked. A
    /// failing read leaves the box as it was.
    VEXMATH_API void save(su_CArchive &ar) const;
    VEXMATH_API void restore(su_CArchive &ar);

private:
    VEXMATH_API friend void mg_FindBBox(mgPoint_c const &a, mgPoint_c const &b, mgXform_c const &x,
                                        double *out, double grow);

    bool isFacePairHit(mgPoint_c const &p, mgUnitVector_c const &dir, int k, int i, int j) const;
    void assignCorners(mgPoint_c const &low, mgPoint_c const &high);
    bool plainlyEncloses(mgPoint_c const &p) const;
    VEXMATH_API void unite(mgPoint_c const &p);
    void widenCorners(mgPoint_c const &p);
    void moveSphere(mgVector_c const &towards, double distance, double newRadius);
    void shrinkSphereToBox();
    mgBBox_c movedBy(mgXform_c const &x) const;
    void clipCornersToSphere();

    mgPoint_c sphCentre_;
    mgPoint_c high_ = mgPoint_c(-1.0, -1.0, -1.0);
    mgPoint_c low_ = mgPoint_c(1.0, 1.0, 1.0);
    double sphRadius_ = -2.0;
};

// -------------------------------------------------------------------------------------------------

namespace vexmath::detail {

/// What a sphere's squared radius may exceed the farthest corner by: a factor, then an absolute
/// slack, which the test of the nearest point shares.
inline constexpr double kFarthestFactor = 0.99999999;
inline constexpr double kSquaredSlack = 1e-08;

inline double larger(double a, double b) { return a < b ? b : a; }

#if defined(__x86_64__) || defined(_M_X64)

/// A vector whose x and y share a register: what is done to it takes two instructions in place of
/// three, and the bits are those of `mgVector_c`.
struct Packed {
    explicit Packed(double const *xyz) : firstTwo(_mm_loadu_pd(xyz)), last(xyz[2]) {}
    Packed(__m128d xy, double z) : firstTwo(xy), last(z) {}

    double x() const { return _mm_cvtsd_f64(firstTwo); }
    double y() const { return _mm_cvtsd_f64(_mm_unpackhi_pd(firstTwo, firstTwo)); }
    double z() const { return last; }
    double sqlen() const {
        Packed const squares(_mm_mul_pd(firstTwo, firstTwo), last * last);
        return squares.x() + squares.y() + squares.z();
    }

    __m128d firstTwo;
    double last;
};

inline Packed operator-(Packed const &a, Packed const &b) {
    return {_mm_sub_pd(a.firstTwo, b.firstTwo), a.last - b.last};
}

inline Packed larger(Packed const &a, Packed const &b) {
    // This way round: of two that do not compare, _mm_max_pd takes the second.
    return {_mm_max_pd(b.firstTwo, a.firstTwo), larger(a.last, b.last)};
}

inline bool between(Packed const &low, Packed const &p, Packed const &high) {
    __m128d const notBelow = _mm_cmple_pd(low.firstTwo, p.firstTwo);
    __m128d const notAbove = _mm_cmple_pd(p.firstTwo, high.firstTwo);
    return low.last <= p.last && p.last <= high.last
           && _mm_movemask_pd(_mm_and_pd(notBelow, notAbove)) == 0b11;
}

#else // the same one by one

using Packed = mgVector_c;

inline Packed larger(Packed const &a, Packed const &b) {
    return {larger(a.x(), b.x()), larger(a.y(), b.y()), larger(a.z(), b.z())};
}

inline bool between(Packed const &low, Packed const &p, Packed const &high) {
    return low.x() <= p.x() && p.x() <= high.x() && low.y() <= p.y() && p.y() <= high.y()
           && low.z() <= p.z() && p.z() <= high.z();
}

#endif

} // namespace vexmath::detail

inline mgBBox_c::mgBBox_c(mgPoint_c const &centre, double r) { set(centre, r); }

inline mgBBox_c::mgBBox_c(mgPoint_c const &a, mgPoint_c const &b) { set2Points(&a, &b); }

inline void mgBBox_c::set(mgPoint_c const &centre, double r) {
    mgVector_c const halfDiagonal(r, r, r);
    setSphereOnly(centre, r);
    setCornersOnly(sphCentre_ - halfDiagonal, sphCentre_ + halfDiagonal);
}

inline void mgBBox_c::setSphereOnly(mgPoint_c const &centre, double r) {
    sphCentre_ = centre;
    sphRadius_ = r;
}

inline void mgBBox_c::setCornersOnly(mgPoint_c const &low, mgPoint_c const &high) {
    low_ = low;
    high_ = high;
}

inline int mgBBox_c::isSet() const {
    return 0.0 <= sphRadius_ && low_.x() <= high_.x() && low_.y() <= high_.y()
           && low_.z() <= high_.z();
}

inline mgPoint_c mgBBox_c::low() const { return isSet() ? low_ : mgPoint_c(); }
inline mgPoint_c mgBBox_c::high() const { return isSet() ? high_ : mgPoint_c(); }
inline mgPoint_c mgBBox_c::center() const {
    return isSet() ? mgPoint_c((low_ + high_) * 0.5) : mgPoint_c();
}
inline mgPoint_c mgBBox_c::sphCenter() const { return isSet() ? sphCentre_ : mgPoint_c(); }
inline double mgBBox_c::sphRadius() const { return isSet() ? sphRadius_ : 0.0; }
inline double mgBBox_c::width() const { return isSet() ? high_.x() - low_.x() : 0.0; }
inline double mgBBox_c::depth() const { return isSet() ? high_.y() - low_.y() : 0.0; }
inline double mgBBox_c::height() const { return isSet() ? high_.z() - low_.z() : 0.0; }

inline mgBBox_c &mgBBox_c::operator+=(mgVector_c const &v) {
    translate(v);
    return *this;
}

inline int mgBBox_c::sphereHitByRay(mgPoint_c const &p, mgUnitVector_c const &dir) const {
    return sphereHitByRay2(p, dir, 0.0);
}

inline int mgBBox_c::sphereHitByRay2(mgPoint_c const &p, mgUnitVector_c const &dir,
                                     double tol) const {
    /// What is added to the squared radius on top of tol; bound included.
    constexpr double kSlackSq = 2e-08;
    double const r = sphRadius();
    // QUIRK: the tolerance is added to the squared radius, where a reader would expect it to be
    // added to the radius. Callers pass squares. (test: SphereToleranceIsAddedToTheSquaredRadius)
    return ((sphCenter() - p) * dir).sqlen() <= r * r + tol + kSlackSq;
}

/// Does the line pass through the inside of a face across axis k? i and j are the other axes.
inline bool mgBBox_c::isFacePairHit(mgPoint_c const &p, mgUnitVector_c const &dir, int k, int i,
                                    int j) const {
    /// Component along the axis below which the line runs along the faces; strict.
    constexpr double kAlongFaces = 1e-08;
    if (-kAlongFaces < dir[k] && dir[k] < kAlongFaces) return false;
    auto const isInside = [&](double t) {
        double const a = p[i] + dir[i] * t;
        double const b = p[j] + dir[j] * t;
        return low_[i] < a && a < high_[i] && low_[j] < b && b < high_[j];
    };
    // Two divisions: multiplying by a reciprocal changes last bits.
    return isInside((low_[k] - p[k]) / dir[k]) || isInside((high_[k] - p[k]) / dir[k]);
}

inline int mgBBox_c::isRayHit(mgPoint_c const &p, mgUnitVector_c const &dir) const {
    // QUIRK: the whole line counts, where a reader would expect a ray to begin at p. Picking casts
    // from inside the model and sorts by depth. (test: ALineHitsBehindItsPointToo)
    return isSet() && sphereHitByRay(p, dir)
           && (isFacePairHit(p, dir, 2, 0, 1) || isFacePairHit(p, dir, 0, 1, 2)
               || isFacePairHit(p, dir, 1, 2, 0));
}

/// Is this box valid and the union with p the box itself? Says so by comparisons and two sums of
/// squares, and only where the rule of `unite` comes to the same, to the bit:
/// - A point between the corners and in the sphere proves that the corners are in order and that
///   the sphere touches the box. It keeps NaN out, too.
/// - That no corner coordinate is farther than the radius, and that the farthest corner asks for
///   the radius, are the rule's own tests without their tolerance. One of them is left to ask: a
///   farthest corner on the sphere or beyond asks for it, and one inside it has no coordinate
///   farther than the radius, whose sign the square hides.
/// - A distance whose square is strictly smaller than the radius' is not larger than the radius,
///   also where squares underflow, and where the radius' square overflows.
inline bool mgBBox_c::plainlyEncloses(mgPoint_c const &p) const {
    using vexmath::detail::larger;
    using vexmath::detail::Packed;
    Packed const low(low_), point(p), high(high_), centre(sphCentre_);
    if (!vexmath::detail::between(low, point, high)) return false;
    double const radiusSq = sphRadius_ * sphRadius_;
    if (!((point - centre).sqlen() < radiusSq)) return false;
    Packed const farther = larger(high - centre, centre - low);
    double const farthestSq = farther.sqlen();
    if (radiusSq <= farthestSq)
        return larger(larger(farther.x(), farther.y()), farther.z()) <= sphRadius_;
    return 0.0 <= sphRadius_
           && radiusSq * vexmath::detail::kFarthestFactor - vexmath::detail::kSquaredSlack
                  <= farthestSq;
}

inline mgBBox_c &mgBBox_c::operator|=(mgPoint_c const &p) {
    vexmath::detail::prefetchAhead(&p, 0); // callers unite with lists of vertices
    if (!plainlyEncloses(p)) unite(p);
    return *this;
}

#endif
