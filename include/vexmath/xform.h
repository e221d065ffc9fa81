// SPDX-License-Identifier: MIT
// mgXform_c: the similarity transform with an optional perspective, and what it does to points,
// vectors and directions.

#ifndef VEXMATH_XFORM_H
#define VEXMATH_XFORM_H

#include <vexmath/matrix.h>
#include <vexmath/mg_vector.h>
#include <vexmath/persp_info.h>
#include <vexmath/point2d.h>

#include <vexmath_platform/archive.h>
#include <vexmath_platform/string.h>

namespace vexmath::detail {

struct WideForm;

/// A transform of exactly these fields, without a perspective record and without the copy rules.
mgXform_c makeXform(mgMatrix_c const &rotation, mgVector_c const &translation, double scale = 1.0,
                    int reflection = 0);

/// A transform of exactly the fields of `built`, without the copy rules. It takes over the record.
mgXform_c takeXform(mgXform_c &built);

} // namespace vexmath::detail

/// The fields of a transform as plain data, for modules that exchange transforms without sharing
/// the class. Owns nothing: the record pointer is copied as it is and never freed here.
class mgXform_64BitHelper_c {
public:
    mgMatrix_c rotation;
    mgVector_c translation;
    double scale = 1.0;
    int reflection = 0;
    mgPerspInfo_c *perspective = nullptr;
};

/// A similarity transform: rotation, uniform scale and translation, with a reflection flag and, for
/// view transforms, an owned perspective record.
///
/// A point p, a row vector, goes to scale * (p * rotation) + translation and then, when a record is
/// held, through its perspective division. Row i of the rotation is the image of coordinate axis i.
/// `a * b` means a first, then b. Lengths are in model units, angles in radians.
///
/// Invariants: none is enforced but by `iValidateRepairXForm` and
/// `iValidateRepairRotationMatrix`. The rotation is normally orthonormal, and composition keeps it
/// so. The reflection flag is carried along and moves no point or vector: the mirror factories set
/// it and mirror by their matrix too, and `mg_RestoreXform` leaves it 0 whatever its matrix does.
///
/// **Copies change the value.** A copy, an assignment, the result of `a * b` and of `inverse` take
/// a scale outside (1.0000000000000002e-13, 6e12), bounds excluded, NaN too, as 1; a translation
/// whose components are all below 1e-08 as zero; and a rotation flagged as the identity as the
/// exact one. Factories return what they built, without these rules.
///
/// No operation reports an error. Only exhausted memory for a record throws, and what the archive
/// throws passes through `save`, `restore` and the raw form.
class mgXform_c {
public:
    mgXform_c() = default; ///< the identity
    /// The frame with rows (xDir, unit(zDir x xDir), zDir) at the origin given; orthonormalised.
    VEXMATH_API mgXform_c(mgUnitVector_c const &zDir, mgUnitVector_c const &xDir,
                          mgVector_c const &origin);
    mgXform_c(mgXform_c const &source); ///< by the copy rules above
    /// By the copy rules above, which `x = x` applies in place.
    mgXform_c const &operator=(mgXform_c const &source);
    ~mgXform_c();

    double scaling() const { return scale_; }
    mgMatrix_c const &rotation() const { return rotation_; }
    mgVector_c const &translation() const { return translation_; }
    int isReflection() const { return reflection_; }
    void setReflection(int flag) { reflection_ = flag; } ///< stored as given
    int hasPerspective() const { return perspective_ != nullptr; }
    /// 1 when the rotation's identity flag is clear. The flag is trusted, not the elements.
    int rotate() const { return !rotation_.isIdentity(); }
    /// 1 when the identity flag is set, |1 - scale| < 1e-08 and the translation is null. Reflection
    /// and perspective are not looked at.
    VEXMATH_API int isIdentity() const;
    /// Rotation, with its flag, and scale alone, as they are.
    VEXMATH_API mgXform_c linearComponent() const;

    // Columns of the rotation, and rows with an I. Mind the names, older than the row-vector rule:
    // where the rotation takes the world's x axis is row 0, `getIXAxis`; `getXAxis` is where the
    // inverse takes it. The numbers are copied and not normalised. REQUIRES axis not null.
    void getXAxis(mgUnitVector_c *axis) const { rotation_.getXAxis(axis); }
    void getYAxis(mgUnitVector_c *axis) const { rotation_.getYAxis(axis); }
    void getZAxis(mgUnitVector_c *axis) const { rotation_.getZAxis(axis); }
    void getIXAxis(mgUnitVector_c *axis) const { rotation_.getIXAxis(axis); }
    void getIYAxis(mgUnitVector_c *axis) const { rotation_.getIYAxis(axis); }
    void getIZAxis(mgUnitVector_c *axis) const { rotation_.getIZAxis(axis); }
    /// Which row of the rotation is nearest to dir or its opposite, as 1, 2 or 3, the earlier one
    /// on a tie; opposite becomes 1 when it points the other way.
    VEXMATH_API int getNearestAxis(mgUnitVector_c const &dir, int &opposite) const;

    /// This transform first, then b. b may be this transform: the result is its square. It holds a
    /// copy of b's perspective record when b has one, else keeps its own: of two views the later
    /// one counts. It is flagged as a reflection, by 1, when exactly one of the two is. A product
    /// of scales out of range stays here, until it is copied.
    VEXMATH_API mgXform_c const &operator*=(mgXform_c const &b);
    /// The way back, without reflection and perspective; the scale's inverse follows the copy
    /// rules.
    VEXMATH_API mgXform_c inverse() const;

    /// 1 when scale, rotation and translation agree within 1e-08, bound included, and the records
    /// in eye point and field-of-view plane exactly. The reflection flag is not compared.
    VEXMATH_API int equals(mgXform_c const &other) const;
    /// 1 when both turn the z axis into the same or opposite directions, within 1e-08 of cosine,
    /// bound included. REQUIRES other not null.
    VEXMATH_API int sameOrParallel(mgXform_c const *other) const;

    /// Snaps a nearly axis-aligned rotation; see `mgMatrix_c::iValidateRepairOrthonormality`.
    VEXMATH_API int iValidateRepairRotationMatrix();
    /// Sets a translation x or y beyond +-1e8 to 0 and a scale outside [1.0000000000000002e-13,
    /// 6e12], bounds kept, or NaN, to 1. Returns 1 when something was repaired.
    VEXMATH_API int iValidateRepairXForm();

    /// Copies the record's four base fields to *out and returns 1; without a record 0, *out as is.
    VEXMATH_API int getPerspectiveInfo(mgPerspInfo_c *out) const;
    /// Holds a copy of the record's four base fields from now on, in place of any record held.
    VEXMATH_API void addPerspectiveInfo(mgPerspInfo_c const &info);
    VEXMATH_API void deletePerspectiveInfo();
    /// Takes over a copy of the source's record, or drops this one's when the source has none.
    VEXMATH_API void iCopyPerspectiveInfo(mgXform_c const &source);
    /// 1 when neither has a record or both agree exactly in eye point and field-of-view plane.
    VEXMATH_API int iIsPerspectiveEqual(mgXform_c const &other) const;

    /// Takes the four plain fields as they are; a record held is dropped.
    VEXMATH_API void SetHelper(mgXform_64BitHelper_c const &helper);
    /// The four plain fields; the record never crosses.
    VEXMATH_API mgXform_64BitHelper_c GetHelper() const;
    VEXMATH_API void GetHelper(mgXform_64BitHelper_c &helper) const;

    // Other representations. None of them keeps the reflection flag or a perspective.

    /// The rotation as a turn about z by a1, then about y by a2, then about x by a3, in radians.
    /// Returns 1, or 0 with the angles as they were. The older decomposition, kept for those who
    /// stored its results: it settles for two decimals of two elements, refuses some plain turns,
    /// backward ones about z among them, and may give an a2 beyond a quarter turn.
    VEXMATH_API int getThreeAngles(double &a1, double &a2, double &a3) const;
    /// The same, confirmed by rebuilding: a1 and a3 in [-1e-11, 2 pi - 1e-11), a2 in [-pi/2, pi/2].
    /// Returns 1, or 0 with the angles of the last trial. Confirmed are r00, r10, r21 and r22,
    /// within 1e-06: all there is for a rotation with a2 off the quarter turn. At the quarter turn
    /// all four vanish, and the angles may be another rotation's; those of a mirror are so too.
    VEXMATH_API int getThreeAnglesNew(double &a1, double &a2, double &a3) const;

    /// The sixteen numbers of a 4x4 matrix for column vectors, column by column: the rows of the
    /// rotation, scaled, each followed by 0, then the translation and 1.
    /// REQUIRES sixteen writable numbers.
    VEXMATH_API void getGLData(double *gl) const;
    VEXMATH_API void getGLData(float *gl) const; ///< rounded to float, infinite beyond its range
    /// The transform of such numbers. Its rows are normalised, so the scale is lost: it becomes 1.
    /// The rotation is orthonormalised; where row 0 or 1 has no direction, that row and row 2
    /// become zero. The fourth number of each column is ignored. REQUIRES sixteen readable numbers.
    VEXMATH_API static mgXform_c createFromGLData(double const *gl);

    /// Text form: the sixteen numbers of `getGLData` with 16 digits, separated by spaces. Written
    /// and read by the process's numeric locale, both: a text written with a decimal comma is
    /// refused where a decimal point is set, unless all its numbers are whole, and the other way
    /// round. Store texts written under the "C" locale.
    VEXMATH_API void saveStringRep(CString &s) const;
    /// Reads sixteen numbers back as `createFromGLData` does and returns 1; what follows them is
    /// ignored. 0 and no change otherwise. Scale becomes 1; reflection and perspective go.
    VEXMATH_API int restoreStringRep(CString const &s);

    /// Archive record: a byte that is 1 when the transform rotates, then its nine matrix doubles in
    /// that case, translation, scale, a reserved byte 0. Repairs this transform first, as
    /// `iValidateRepairXForm` does. Reflection and perspective are not stored.
    VEXMATH_API void save(su_CArchive &ar);
    /// Reads a record, orthonormalising the rotation. A record without rotation leaves the rotation
    /// as it was: restore into a fresh transform. Scale as stored; reflection and perspective stay.
    /// A failing read leaves the transform as it was.
    VEXMATH_API void restore(su_CArchive &ar);
    /// The same with the rotation's elements as stored.
    VEXMATH_API void restoreAsIs(su_CArchive &ar);
    // The same for callers that hold a CArchive, which must be a su_CArchive.
    VEXMATH_API void save(CArchive &ar);
    VEXMATH_API void restore(CArchive &ar);
    VEXMATH_API void restoreAsIs(CArchive &ar);

private:
    friend class mgPoint_c;
    friend mgXform_c vexmath::detail::makeXform(mgMatrix_c const &, mgVector_c const &, double,
                                                int);
    friend mgXform_c vexmath::detail::takeXform(mgXform_c &);
    VEXMATH_API friend mgXform_c mg_ScaleXform(mgXform_c x, double s);
    VEXMATH_API friend mgXform_c operator*(mgXform_c const &a, mgXform_c const &b);

    /// Exactly these fields; the record is owned from now on.
    mgXform_c(mgMatrix_c const &rotation, mgVector_c const &translation, double scale,
              int reflection, mgPerspInfo_c *perspective = nullptr);

    // Product and inverse are made in their place, by rows or in SIMD registers.
    mgXform_c(mgXform_c const &a, mgXform_c const &b);
    mgXform_c(vexmath::detail::Rows const &inverse, mgXform_c const &of);
    static mgXform_c productByRows(mgXform_c const &a, mgXform_c const &b);
    static mgXform_c productBySimd(mgXform_c const &a, mgXform_c const &b);
    mgXform_c inverseByRows() const;
    mgXform_c inverseBySimd() const;
    double inverseScale() const;
    static mgXform_c fromWideForm(vexmath::detail::WideForm const &form, double scale,
                                  int reflection);
    void setTurnAndMove(vexmath::detail::WideForm const &form);
    /// Rotation and translation of the product with b; false, with nothing changed, when that may
    /// be the identity.
    bool multiplyBySimd(mgXform_c const &b);

    void copyByRules(mgXform_c const &source); ///< all but the record
    void followCopyRules();                    ///< as a copy of this transform would
    /// x and y of a point after the perspective division, which leaves z. REQUIRES a record.
    VEXMATH_API VEXMATH_PURE mg2DPoint_c dividePerspective(double x, double y,
                                                           double z) const noexcept;
    void restoreRecord(su_CArchive &ar, void (mgMatrix_c::*restoreRotation)(su_CArchive &));

    mgMatrix_c rotation_;
    mgVector_c translation_;
    double scale_ = 1.0;
    int reflection_ = 0;
    mgPerspInfo_c *perspective_ = nullptr; // owned, always a plain mgPerspInfo_c
};

/// a first, then b; the result follows the copy rules. It holds b's perspective record when b has
/// one, else a's, and is a reflection when exactly one of the two is.
VEXMATH_API mgXform_c operator*(mgXform_c const &a, mgXform_c const &b);

/// Moved by rotation, scale, translation and, when the transform holds a record, its perspective.
mgPoint_c operator*(mgPoint_c const &p, mgXform_c const &x);
/// Turned and scaled; an exactly zero vector stays as it is.
mgVector_c operator*(mgVector_c const &v, mgXform_c const &x);
/// Turned and normalised again; unchanged when the transform is flagged as not rotating.
mgUnitVector_c operator*(mgUnitVector_c const &u, mgXform_c const &x);

/// Raw archive form of thirty 32-bit words: the fields as they lie in memory, low words first, with
/// the identity flag in word 18, the reflection flag in word 28, and 0 in words 19 and 29. Not the
/// record of `save`: the two do not mix on one stream. Both directions drop x's perspective record.
/// A failing read leaves x as it was.
VEXMATH_API su_CArchive &operator<<(su_CArchive &ar, mgXform_c &x);
VEXMATH_API su_CArchive &operator>>(su_CArchive &ar, mgXform_c &x);

// -------------------------------------------------------------------------------------------------

namespace vexmath::detail {

/// Open range of scales that survive a copy.
inline constexpr double kSmallestScale = 1.0000000000000002e-13;
inline constexpr double kLargestScale = 6e12;

/// The scale, or 1 when it lies on or beyond a bound, or is NaN.
inline double scaleInRange(double s) { return s > kSmallestScale && s < kLargestScale ? s : 1.0; }

/// Does a scale differ from 1 by strictly more than 1e-08?
inline bool scales(double s) { return std::fabs(s - 1.0) > 1e-08; }

/// The linear half of the point and vector rules. The elements decide whether to multiply, not the
/// identity flag: callers edit elements and leave the flag stale.
inline mgVector_c turnedAndScaled(double x, double y, double z, mgXform_c const &form) {
    Elements const elements = form.rotation(); // before the test, so that a loop reads them once
    mgVector_c v =
        isExactIdentity(form.rotation()) ? mgVector_c(x, y, z) : rowTimes(x, y, z, elements);
    if (scales(form.scaling())) v *= form.scaling();
    return v;
}

/// A coordinate moved by a translation component. Subtracting its opposite leaves every coordinate
/// as it is when the component is 0 of either sign, where adding 0.0 would turn -0.0 into 0.0.
inline double moved(double coordinate, double by) { return coordinate - (0.0 - by); }

inline mgXform_c makeXform(mgMatrix_c const &rotation, mgVector_c const &translation, double scale,
                           int reflection) {
    return mgXform_c(rotation, translation, scale, reflection);
}

} // namespace vexmath::detail

inline mgXform_c::mgXform_c(mgMatrix_c const &rotation, mgVector_c const &translation, double scale,
                            int reflection, mgPerspInfo_c *perspective)
    : rotation_(rotation), translation_(translation), scale_(scale), reflection_(reflection),
      perspective_(perspective) {}

inline mgXform_c::mgXform_c(mgXform_c const &source) {
    copyByRules(source);
    if (source.perspective_ != nullptr) iCopyPerspectiveInfo(source);
}

inline mgXform_c const &mgXform_c::operator=(mgXform_c const &source) {
    // The record first: it alone may throw, and then nothing has changed.
    if (perspective_ != nullptr || source.perspective_ != nullptr) iCopyPerspectiveInfo(source);
    copyByRules(source);
    return *this;
}

inline mgXform_c::~mgXform_c() {
    if (perspective_ != nullptr) deletePerspectiveInfo();
}

// QUIRK: copying changes the value, where a reader would expect an equal one: a tiny translation is
// flushed and a scale out of range replaced. It keeps rounding out of chains of placements, which
// callers then compare with the identity. (test: CopiesFlushATinyTranslationAndAFlaggedRotation)
inline void mgXform_c::copyByRules(mgXform_c const &source) {
    scale_ = vexmath::detail::scaleInRange(source.scale_);
    reflection_ = source.reflection_;
    rotation_ = source.rotate() ? source.rotation_ : mgMatrix_c();
    translation_ = source.translation_.isNotNull() ? source.translation_ : mgVector_c();
}

inline void mgXform_c::followCopyRules() {
    scale_ = vexmath::detail::scaleInRange(scale_);
    if (!rotate()) rotation_ = mgMatrix_c();
    if (!translation_.isNotNull()) translation_ = mgVector_c();
}

inline mgPoint_c &mgPoint_c::operator*=(mgXform_c const &x) {
    using vexmath::detail::moved;
    mgVector_c const v = vexmath::detail::turnedAndScaled(c_[0], c_[1], c_[2], x);
    mgVector_c const &t = x.translation();
    double px = moved(v.x(), t.x()), py = moved(v.y(), t.y());
    double const pz = moved(v.z(), t.z());
    if (x.hasPerspective()) {
        mg2DPoint_c const divided = x.dividePerspective(px, py, pz);
        px = divided.x();
        py = divided.y();
    }
    set(px, py, pz);
    return *this;
}

inline mgPoint_c operator*(mgPoint_c const &p, mgXform_c const &x) {
    mgPoint_c moved = p;
    moved *= x;
    return moved;
}

inline mgVector_c &mgVector_c::operator*=(mgXform_c const &x) {
    if (!null()) *this = vexmath::detail::turnedAndScaled(c_[0], c_[1], c_[2], x);
    return *this;
}

inline mgVector_c operator*(mgVector_c const &v, mgXform_c const &x) {
    mgVector_c turned = v;
    turned *= x;
    return turned;
}

inline mgUnitVector_c &mgUnitVector_c::operator*=(mgXform_c const &x) {
    if (x.rotate()) *this = mg_Normalise(*this * x.rotation());
    return *this;
}

inline mgUnitVector_c operator*(mgUnitVector_c const &u, mgXform_c const &x) {
    mgUnitVector_c turned = u;
    turned *= x;
    return turned;
}

#endif
