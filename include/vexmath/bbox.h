// SPDX-License-Identifier: MIT
// mgBBox_c: an axis-aligned box kept together with a bounding sphere.

#ifndef VEXMATH_BBOX_H
#define VEXMATH_BBOX_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

#include <vexmath_platform/archive.h>
#include <vexmath_platform/string.h>

/// An axis-aligned box and a bounding sphere, kept side by side so that each can serve as the
/// cheaper or the tighter bound. A plain, trivially copyable value of ten doubles.
///
/// A box is **set** when its radius is not negative and low <= high on every axis; a corner or a
/// radius that holds NaN makes it unset. It is **valid** when it is set and its sphere agrees with
/// its corners, by the rule of `isValid`. A set box can become invalid, for example by
/// - a setter that writes one half alone,
/// - shrinking past the width of an axis,
/// - enlarging, when its sphere and corners agree only within the tolerances,
/// - rounding far from the origin,
/// - a union with a point that holds NaN, or with a point or box so far away that squares overflow.
///
/// Queries of an unset box give the neutral value that each states. A union treats an unset or
/// invalid operand as empty. Nothing reports an error, and nothing checks for infinite numbers.
class mgBBox_c {
public:
    /// Unset: high corner (-1, -1, -1), low corner (1, 1, 1), radius -2, sphere centre (0, 0, 0).
    mgBBox_c() = default;
    /// The sphere and the cube around it, with corners centre - r and centre + r. A negative radius
    /// or NaN in either argument gives an unset box.
    mgBBox_c(mgPoint_c const &centre, double r);
    /// The box of two opposite corners, in any order, with the sphere through them. A NaN
    /// coordinate of b counts as that of a; one of a leaves the box unset. An extent beyond
    /// about 1.3e154 gives an infinite radius.
    mgBBox_c(mgPoint_c const &a, mgPoint_c const &b);

    void set(mgPoint_c const &centre, double r); ///< as the constructor
    /// Low corner, then high corner, as they are (not sorted), and the sphere through them.
    /// REQUIRES six readable doubles.
    VEXMATH_API void set(double const *lowHigh);
    void set(mgPoint_c const &) = delete; // would convert to an array of six
    void set(mgVector_c const &) = delete;
    /// As the constructor. REQUIRES a and b not null.
    VEXMATH_API void set2Points(mgPoint_c const *a, mgPoint_c const *b);
    /// Writes the sphere as given; the corners stay.
    void setSphereOnly(mgPoint_c const &centre, double r);
    /// Writes the corners as given, not sorted; the sphere stays.
    void setCornersOnly(mgPoint_c const &low, mgPoint_c const &high);
    /// Unsets the box by its corners, low (0, 0, 0) and high (0, 0, -2). The sphere stays.
    VEXMATH_API void reset();

    /// The cube from -288.6002886002886 to 288.6002886002886 on every axis, with the sphere through
    /// its corners, of a radius of about 499.87.
    VEXMATH_API static mgBBox_c maxBox();
    /// The cube from -500 to 500 on every axis, with the sphere of radius 500 inside it.
    VEXMATH_API static mgBBox_c correctedMaxBox();
    /// The process-wide switch, 0 at first. When it is not 0, a union of two boxes replaces the
    /// corners by the cube around the merged sphere, which can be smaller than the union of the
    /// corners. It has no effect when this box is unset, when b is not valid, or when b's sphere
    /// lies within this box's sphere; nor on unions with points. Setting stores the value as given
    /// and returns the previous one. Not locked.
    VEXMATH_API static int GetUseSphereBoundingBox();
    VEXMATH_API static int SetUseSphereBoundingBox(int useSphere);

    // Queries. The trailing comment gives the result for an unset box.
    int isSet() const;
    /// 1 when the box is set and its sphere agrees with its corners, all bounds included:
    /// - On each axis both corners are within radius + tol of the sphere centre. tol is 1e-08 for a
    ///   radius below 1e6, and ten times more for each decimal digit, up to ten, of the whole part
    ///   of radius / 1e6. An axis on which the centre is 1e13 tol or more from 0 is not tested.
    /// - The squared distance from the centre to the box is at most radius^2 * 1.00000001 + 1e-08.
    /// - The squared distance to the farthest corner is at least radius^2 * 0.99999999 - 1e-08.
    /// NaN in the centre gives 0.
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
    VEXMATH_API double maxDimension() const;   ///< the longest edge; 0
    // QUIRK: bbox.h, mgBBox_c::minDimension: an unset box gives -1, where its siblings give 0.
    // Expected: 0. Kept: callers and stored data depend on it. (test: AnUnsetBoxAnswersNeutrally)
    VEXMATH_API double minDimension() const; ///< the shortest edge; -1, not 0
    /// The point of the box nearest to p. A NaN coordinate of p gives the low one. Of an unset box:
    /// (0, 0, 0).
    VEXMATH_API mgPoint_c pointPerp(mgPoint_c const &p) const;

    /// True when the sphere centres and the corners differ by strictly less than 1e-08 in every
    /// coordinate, and the radii too. Unset boxes are compared by the same members. NaN and
    /// infinity equal nothing, not even themselves.
    VEXMATH_API bool operator==(mgBBox_c const &b) const;
    /// 1 when all of these differ by strictly less than tol. A negative tol means 1e-08. A tol of 0
    /// or NaN gives 0, even for equal boxes.
    VEXMATH_API int isSame(mgBBox_c const &b, double tol) const;

    /// Moves corners and sphere. An unset box moves too, and stays unset up to rounding.
    VEXMATH_API void translate(mgVector_c const &v);
    mgBBox_c &operator+=(mgVector_c const &v); ///< as translate; to enclose a point, use `|=`
    /// Adds d to the radius and moves every face outwards by d; a negative d shrinks. A radius that
    /// becomes negative or NaN unsets the box: corners and radius become those of a default box,
    /// and the sphere centre stays. Where shrinking carries low past high, both become their
    /// middle. A shrunk box whose sphere exceeds its farthest corner gets the sphere through its
    /// corners.
    ///
    /// An unset box grows by the same rule. The default box (radius -2) becomes set by a d of 2 or
    /// more, but its sphere does not reach its corners, so that it is normally not valid. A box
    /// that is unset by its corners alone becomes set where the step closes the gap, or by any
    /// shrinking that does not make the radius negative.
    VEXMATH_API mgBBox_c &operator+=(double d);
    /// Scales corners and sphere about the middle of the corners, or about (0, 0, 0) if the box is
    /// unset. s is not checked. A negative s exchanges low and high and the sign of the radius: a
    /// set box other than a point becomes unset, and the default box becomes set. With 0 every box
    /// of finite numbers becomes a point, and so becomes set. NaN unsets.
    VEXMATH_API mgBBox_c &operator*=(double s);
    /// Encloses the image of the box. The result is tight for rotations by quarter turns about the
    /// axes and wider for others, but never exceeds the cube around the transformed sphere. x acts
    /// as its copy would (see the copy rules of `mgXform_c`), without its perspective record.
    ///
    /// A box that is unset by its radius stays unset; one unset by its corners alone may become
    /// set. A flat box that only touches its sphere may become unset by rounding.
    VEXMATH_API mgBBox_c &operator*=(mgXform_c const &x);
    /// Encloses p as well. A box that is not valid becomes the point: corners and centre p, radius
    /// 0; or unset if p holds NaN.
    ///
    /// The corners widen to p. A sphere that does not reach p becomes the smallest sphere that
    /// encloses it and p: the radius becomes (radius + distance of p from the centre) / 2. If its
    /// radius exceeds the distance of its centre from the farthest corner, it becomes the sphere
    /// through the corners instead.
    ///
    /// If p holds NaN, the corners on that axis stay, the other coordinates still widen the
    /// corners, and the sphere stays. The box can then be invalid, so that the next point replaces
    /// it whole. The same happens after a point whose squared distance from the sphere centre
    /// overflows (farther than about 1.3e154): the corners widen, the radius becomes infinite and
    /// the centre NaN.
    mgBBox_c &operator|=(mgPoint_c const &p);
    /// Encloses b as well, unless b is not valid. An unset box becomes b. This box need only be
    /// set: when it is not valid, its corners and its sphere are merged as they are. b may be this
    /// box. The sphere grows as for a point, to the smallest sphere around both spheres.
    ///
    /// When the squared distance of the sphere centres overflows, the corners widen, the radius
    /// becomes infinite and the centre NaN; with the switch on, the box becomes unset.
    VEXMATH_API mgBBox_c &operator|=(mgBBox_c const &b);
    /// The common part of the corners, with a new sphere through them; the old spheres are ignored.
    /// Becomes the default box when either box is unset or when a gap of 1e-08 or more lies between
    /// them on an axis. A narrower gap becomes a box as wide as the gap. b may be this box.
    VEXMATH_API mgBBox_c &operator&=(mgBBox_c const &b);

    // Interference. Every test gives 0 for an unset box, unless its comment says that it does not
    // test the set state.

    /// Does the plane meet the box: is a corner strictly nearer to it than tol, on either side, or
    /// do corners lie on both sides? A tol below 1e-08 counts as 1e-08, and so does NaN. 1 for a
    /// plane without a normal; 0 for a plane that holds NaN.
    VEXMATH_API int clash(mgPlane_c const &plane, double tol) const;
    /// Do the boxes clash? They do when all of this holds:
    /// - The sphere centres are no farther apart than the radii and tol together.
    /// - The gap between the corners is at most tol on every axis.
    /// - The common part is not a single point that is a corner of both boxes, whatever tol is.
    ///   Both are judged within 1e-08 per coordinate, strictly.
    /// - Both spheres reach the common part (the middle of a gap), with a squared radius of
    ///   radius^2 * (1 + tol): a factor, not a length.
    ///
    /// Boxes that share a face or an edge clash. Boxes that share a single corner do not, and a box
    /// that is a point does not clash with itself. tol is used as it is. A negative one asks for an
    /// overlap of that depth; below -1 no valid boxes clash. With NaN all set boxes clash but those
    /// that share a single corner. REQUIRES b not null. b may be this box.
    VEXMATH_API int clash(mgBBox_c const *b, double tol) const;
    /// Do box a placed by xa and box b placed by xb clash? Each is transformed into the frame of
    /// the other, and the test above with tol 1e-08 must succeed in both frames. This removes most
    /// false alarms of rotated boxes. In a's frame the spheres must overlap by at least 1e-08;
    /// there b's radius is not scaled. REQUIRES placements of the same scale, without perspective
    /// records.
    VEXMATH_API static int clash(mgBBox_c const &a, mgXform_c const &xa, mgBBox_c const &b,
                                 mgXform_c const &xb);
    /// 1 when b, scaled by (1 - tol) about its middle, lies strictly inside this box, and the
    /// sphere centres are no farther apart than the radii and tol together. So tol is relative to
    /// b's size: with 0 a box does not contain itself. A negative tol enlarges b. With a tol
    /// above 1, b is scaled by tol - 1, and a strict overlap on every axis is enough. 0 for null
    /// and for a tol of NaN. b may be this box.
    VEXMATH_API int containsBBox(mgBBox_c const *b, double tol) const;
    /// 1 when p lies in the box grown by tol, bound included; a negative tol shrinks the box. Does
    /// not test the set state: the corners of an unset box decide too, and a default box contains
    /// (0, 0, 0) for a tol of 1 or more. A coordinate of NaN, of p or of a corner, excludes
    /// nothing, nor does a tol of NaN.
    VEXMATH_API int containsPoint(mgPoint_c const &p, double tol) const;
    /// The same, ignoring one axis: 0, 1 or 2 for x, y, z. Any other number ignores none.
    VEXMATH_API int containsPoint(mgPoint_c const &p, double tol, int ignoredAxis) const;
    /// Does the segment ab meet the box? 1 when the box of a and b clashes with this one within
    /// tol, by the rules of `clash`, and the whole line meets the sphere as in `sphereHitByRay2`
    /// with tol. The faces are not tested: a segment that passes near an edge succeeds too. One
    /// whose box shares a single corner with this box fails. Without tol: 1e-08 for the clash, 0
    /// for the sphere.
    ///
    /// When a and b are closer than about 3.2e-09 the clash alone decides. A NaN coordinate of a
    /// gives 0. One of b counts as a's for the clash, and the sphere test succeeds. A tol of NaN
    /// gives 0. REQUIRES a and b not null.
    VEXMATH_API int clashLine(mgPoint_c const *a, mgPoint_c const *b) const;
    VEXMATH_API int clashLine(mgPoint_c const *a, mgPoint_c const *b, double tol) const;

    // Lines through p along dir. dir is used as it is: it should have unit length or be zero. If
    // dir is zero, the sphere tests take the distance as 0, and the face tests always fail. If p or
    // dir holds NaN, all tests fail.

    /// Does the line, on either side of p, meet the bounding sphere? distance^2 <= radius^2 +
    /// 2e-08. An unset box counts as the point (0, 0, 0).
    int sphereHitByRay(mgPoint_c const &p, mgUnitVector_c const &dir) const;
    /// The same with tol added to the squared radius, not to the radius. 0 for a tol of NaN.
    int sphereHitByRay2(mgPoint_c const &p, mgUnitVector_c const &dir, double tol) const;
    /// Does the line, on either side of p, meet the sphere (as in `sphereHitByRay`) and pass
    /// strictly through the inside of a face? A line along a face, or through edges alone, does
    /// not. A face pair is skipped when |dir| across it is below 1e-08. 0 for an unset box.
    int isRayHit(mgPoint_c const &p, mgUnitVector_c const &dir) const;
    /// The nearest point in front of p where the ray crosses a face, with faces that are widened by
    /// 1e-08 per axis, bound included: the entry, or the exit when p is inside. A crossing that
    /// differs from p by less than 1e-08 in every coordinate is skipped, so that the exit is found
    /// from a p on the entry face. A crossing is in front of p when its offset from p makes a
    /// cosine above 0.99999999 with dir. A face is not crossed when |dir| across it is below 1e-08.
    ///
    /// 0 and *hit unchanged when there is no crossing, or none nearer than 1e32. Does not test the
    /// set state. hit may be &p. REQUIRES hit not null.
    VEXMATH_API int getFirstRayHit(mgPoint_c const &p, mgUnitVector_c const &dir,
                                   mgPoint_c *hit) const;
    /// The least and the largest parameter (corner - p) . dir of the eight corners: distances from
    /// p for a unit dir, negative behind p. NaN in p or dir makes both NaN. Does not test the set
    /// state. REQUIRES tmin and tmax not null.
    VEXMATH_API void limitRay(mgPoint_c const &p, mgUnitVector_c const &dir, double *tmin,
                              double *tmax) const;

    /// Text form: low corner, then high corner, as six numbers as by `%.16g` (up to 16 digits),
    /// separated by spaces; the last bit of a number may get lost. Zeros for an unset box, which
    /// are read back as a set box, the point (0, 0, 0); an empty text when memory is exhausted.
    /// Written and read by the process's numeric locale.
    VEXMATH_API void saveStringRep(CString &s) const;
    /// Reads six numbers back as two opposite corners, as the constructor does, and returns 1. What
    /// follows the sixth number is ignored: under a locale with a decimal point, a comma in that
    /// number silently ends it. A number is what the C library's scanf reads as one: "nan", "inf"
    /// and hexadecimal too, so that the result may be an unset box. 0 and no change when fewer than
    /// six numbers can be read.
    VEXMATH_API int restoreStringRep(CString const &s);
    VEXMATH_API void dump() const; ///< formats the text form and drops it: no visible effect

    /// Archive record: sphere centre, high corner, low corner, radius: ten doubles, as they are,
    /// not checked on reading. A failing read leaves the box as it was.
    VEXMATH_API void save(su_CArchive &ar) const;
    VEXMATH_API void restore(su_CArchive &ar);

private:
    friend struct vexmath::detail::BoxParts;

    bool isFacePairHit(mgPoint_c const &p, mgUnitVector_c const &dir, int k, int i, int j) const;
    void assignCorners(mgPoint_c const &low, mgPoint_c const &high);
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

#include <vexmath/detail/point_union.h>
#include <vexmath/detail/prefetch.h>

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
    /// Added to the squared radius besides tol; bound included.
    constexpr double kSlackSq = 2e-08;
    double const r = sphRadius();
    // QUIRK: bbox.h, mgBBox_c::sphereHitByRay2, mgBBox_c::clashLine: the tolerance is added to the
    // squared radius. Expected: added to the radius. Kept: callers and stored data depend on it.
    // (test: SphereToleranceIsAddedToTheSquaredRadius)
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
    // QUIRK: bbox.h, mgBBox_c::isRayHit: faces behind p are hit too, as the whole line is tested.
    // Expected: a ray that begins at p. Kept: callers and stored data depend on it.
    // (test: ALineHitsBehindItsPointToo)
    return isSet() && sphereHitByRay(p, dir)
           && (isFacePairHit(p, dir, 2, 0, 1) || isFacePairHit(p, dir, 0, 1, 2)
               || isFacePairHit(p, dir, 1, 2, 0));
}

inline mgBBox_c &mgBBox_c::operator|=(mgPoint_c const &p) {
    using namespace vexmath::detail;
    prefetchAhead(&p, 0); // callers unite with lists of vertices
    if (!plainlyEncloses(low_, high_, sphCentre_, sphRadius_, p)) unite(p);
    return *this;
}

#endif
