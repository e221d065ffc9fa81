// SPDX-License-Identifier: MIT
// mgXform_c: the similarity transform with an optional perspective; the transformation of points,
// vectors and unit vectors.

#ifndef VEXMATH_XFORM_H
#define VEXMATH_XFORM_H

#include <vexmath/matrix.h>
#include <vexmath/mg_vector.h>
#include <vexmath/persp_info.h>
#include <vexmath/point2d.h>

#include <vexmath_platform/archive.h>
#include <vexmath_platform/string.h>

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

/// A similarity transform: a rotation, a translation, a uniform scale, a reflection flag and, for
/// view transforms, an owned perspective record. Lengths are in model units, angles in radians.
///
/// A point p, a row vector, becomes scale * (p * rotation) + translation; the perspective division
/// of a record follows. A vector becomes scale * (v * rotation). A unit vector is only rotated.
/// "Rotated" means multiplied by the rotation, which for a mirror mirrors. The scale is applied
/// only when |scale - 1| > 1e-08, so a scale of NaN is not. Row i of the rotation is the image of
/// coordinate axis i. `a * b` applies a first, then b.
///
/// Only `save`, the two `iValidateRepair` functions and the copy rules below correct the fields.
/// The rotation is normally orthonormal, and composition keeps it so. Points and vectors go by its
/// elements: an exact identity is not multiplied. Unit vectors, composition, copies, `inverse`,
/// `isIdentity`, `equals` and `save` trust its identity flag (see `mgMatrix_c`). The reflection
/// flag changes no point and no vector: the mirror factories set it and also mirror by their
/// matrix.
///
/// **Copies change the value**, by the copy rules:
/// - A scale that is NaN or not strictly between 1.0000000000000002e-13 and 6e12 becomes 1.
/// - A translation becomes zero when every component is below 1e-08 in absolute value.
/// - A rotation whose identity flag is set becomes the exact identity.
/// - The reflection flag and the record are copied as they are.
///
/// The copy rules apply to:
/// - every copy and assignment, `x = x` included (`x = f();` copies, `mgXform_c x = f();` does not)
/// - the left operand and the result of `a * b`, but not to the right one, nor to `*=`
/// - the results of `inverse` and `restoreStringRep`, but not to `linearComponent`,
///   `createFromGLData`, the helpers, the archive forms and the repair
/// - the transforms that a `mgGenXform_c` is given or returns, the transform that moves a box, and
///   the view given to `mgPoint_c::xformByPerspInverse` and `xformByPerspInverseVisible`
/// - the functions of mg_transform.h that say so
///
/// Values out of range are not reported. Only a transform that gets a record and has none needs
/// memory: when it is exhausted, `std::bad_alloc` is thrown and the transform stays unchanged. What
/// the archive or the string throws is passed on.
class mgXform_c {
public:
    mgXform_c() = default; ///< the identity
    /// The frame with rows (xDir, unit(zDir x xDir), zDir), orthonormalised by one pass (see
    /// `mgMatrix_c::normalize`), and the origin, as it is, as translation. xDir is kept; zDir
    /// becomes the unit vector of its part perpendicular to xDir. Parallel directions, or a null
    /// zDir, leave xDir and two zero rows, a null xDir three. REQUIRES length 1 or none.
    VEXMATH_API mgXform_c(mgUnitVector_c const &zDir, mgUnitVector_c const &xDir,
                          mgVector_c const &origin);
    mgXform_c(mgXform_c const &source);                  ///< follows the copy rules
    mgXform_c const &operator=(mgXform_c const &source); ///< follows the copy rules
    ~mgXform_c();

    double scaling() const { return scale_; }
    mgMatrix_c const &rotation() const { return rotation_; }
    mgVector_c const &translation() const { return translation_; }
    int isReflection() const { return reflection_; }
    void setReflection(int flag) { reflection_ = flag; } ///< stored as given
    int hasPerspective() const { return perspective_ != nullptr; }
    /// 1 when the rotation's identity flag is clear, whatever the elements.
    int rotate() const { return !rotation_.isIdentity(); }
    /// 1 when the identity flag is set, |1 - scale| < 1e-08 and every component of the translation
    /// is below 1e-08 in absolute value. Reflection and perspective are ignored.
    VEXMATH_API int isIdentity() const;
    /// A transform of the rotation, with its flag, and the scale, both as they are. The rest is
    /// that of the identity.
    VEXMATH_API mgXform_c linearComponent() const;

    // Columns of the rotation; with an I, its rows. The image of the world's x axis is row 0,
    // `getIXAxis`; `getXAxis` is its image under the inverse. The numbers are copied and not
    // normalised. REQUIRES axis not null.
    void getXAxis(mgUnitVector_c *axis) const { rotation_.getXAxis(axis); }
    void getYAxis(mgUnitVector_c *axis) const { rotation_.getYAxis(axis); }
    void getZAxis(mgUnitVector_c *axis) const { rotation_.getZAxis(axis); }
    void getIXAxis(mgUnitVector_c *axis) const { rotation_.getIXAxis(axis); }
    void getIYAxis(mgUnitVector_c *axis) const { rotation_.getIYAxis(axis); }
    void getIZAxis(mgUnitVector_c *axis) const { rotation_.getIZAxis(axis); }
    /// 1, 2 or 3 for the row of the rotation whose dot product with dir is largest in absolute
    /// value, the earlier row on a tie. opposite becomes 1 when that product is below 0, else 0. A
    /// dir that is null or has a NaN component gives 1 and opposite 0.
    VEXMATH_API int getNearestAxis(mgUnitVector_c const &dir, int &opposite) const;

    /// Becomes this transform first, then b. b may be this transform: the result is its square.
    ///
    /// The rotations are multiplied as matrices, the product is orthonormalised by one pass and its
    /// flag computed (see `mgMatrix_c`); when both identity flags are set, the rotation stays,
    /// elements and all. The translation is moved by b as a vector, then b's is added; when all its
    /// components are below 1e-08 in absolute value, it becomes b's. The scales are multiplied,
    /// without a range check. When b has a perspective record, a copy of it replaces this one's;
    /// otherwise this one's stays. The reflection flag becomes 1 when exactly one of the two is not
    /// 0, else 0.
    VEXMATH_API mgXform_c const &operator*=(mgXform_c const &b);
    /// The inverse. The rotation's inverse is its transpose, orthonormalised by one pass, or the
    /// exact identity when its identity flag is set. A scale within 1e-08 of 1, bound included, or
    /// NaN is treated as 1; a translation with all components below 1e-08 in absolute value as
    /// zero. Reflection and perspective are dropped. The result follows the copy rules: where
    /// 1 / scale is out of range, as for a scale of 0 or below, it has scale 1, and a translation
    /// that was computed with 1 / scale.
    VEXMATH_API mgXform_c inverse() const;

    /// 1 when no scale, rotation element or translation component differs by more than 1e-08 and
    /// the records are equal as by `iIsPerspectiveEqual`. NaN differs from nothing here. The
    /// elements are not compared when both identity flags are set, the reflection flags never.
    VEXMATH_API int equals(mgXform_c const &other) const;
    /// 1 when the images of the z axis, as unit vectors, are the same or opposite:
    /// ||cosine| - 1| <= 1e-08. 0 when one of them is null. REQUIRES other not null.
    VEXMATH_API int sameOrParallel(mgXform_c const *other) const;

    /// Snaps a nearly axis-aligned rotation; see `mgMatrix_c::iValidateRepairOrthonormality`.
    VEXMATH_API int iValidateRepairRotationMatrix();
    /// Sets each of translation x and y that is above 1e8 in absolute value to 0, and a scale
    /// outside [1.0000000000000002e-13, 6e12] or NaN to 1. Returns 1 when something was repaired,
    /// else 0. Translation z is not looked at, a NaN in x or y is kept, and so is a scale on a
    /// bound, which a copy would replace.
    VEXMATH_API int iValidateRepairXForm();

    /// Copies the record's four fields to *out and returns 1; without a record returns 0 and leaves
    /// *out unchanged. REQUIRES out not null.
    VEXMATH_API int getPerspectiveInfo(mgPerspInfo_c *out) const;
    /// Holds a copy of info's four base fields, as a plain `mgPerspInfo_c`. It overwrites the
    /// fields of a record that this transform already holds.
    VEXMATH_API void addPerspectiveInfo(mgPerspInfo_c const &info);
    VEXMATH_API void deletePerspectiveInfo(); ///< does nothing without a record
    /// Holds a copy of the source's record, or none when the source has none.
    VEXMATH_API void iCopyPerspectiveInfo(mgXform_c const &source);
    /// 1 when neither has a record, or when the records' eye points and field-of-view plane
    /// distances are exactly equal. The plane distance and the far clip distance are not compared.
    VEXMATH_API int iIsPerspectiveEqual(mgXform_c const &other) const;

    /// Copies the four plain fields as they are. helper.perspective is ignored; a record held is
    /// freed.
    VEXMATH_API void SetHelper(mgXform_64BitHelper_c const &helper);
    /// The four plain fields as they are; the pointer is null, also when a record is held.
    VEXMATH_API mgXform_64BitHelper_c GetHelper() const;
    VEXMATH_API void GetHelper(mgXform_64BitHelper_c &helper) const;

    // Other representations. None of them holds the reflection flag or the perspective record. The
    // angles are read from the rotation's elements alone.

    /// The older decomposition: a rotation about z by a1, then about y by a2, then about x by a3,
    /// in radians. Returns 1, or 0 with the angles unwritten.
    ///
    /// Reads elements (0, 0), (1, 0), (2, 0), (2, 1) and (2, 2). The result is confirmed by (1, 0)
    /// and (2, 2) alone, each rounded down to two decimals, so 0 and -1e-17 differ, and some
    /// mirrors are accepted. Sines and cosines that are above 1 - 1e-10 in absolute value are
    /// treated as 1 or -1, NaN as 1. NaN in (1, 0), (2, 0) or (2, 2) is refused, and so is a (2, 0)
    /// beyond [-1, 1]. a2 may lie beyond a quarter turn.
    ///
    /// A rotation by t in [-pi, pi] about one axis gives:
    /// - x, |t| <= pi/2: (0, 0, t)
    /// - x, beyond: (pi, pi, t - pi) for t > 0, (pi, pi, t + pi) for t < 0
    /// - y: (0, t, 0); within 1e-03 of a quarter turn it may be refused or have a wrong a1, and an
    ///   exact quarter turn is refused
    /// - z: (t, 0, 0) for t >= 0, except an exact half turn, which is refused; t < 0 is refused
    /// - z, |t| < 1.41e-05: t > 0 is refused, t < 0 gives (0, 0, 0)
    ///
    /// Where an element is a whole hundredth, rounding may refuse any of these, or give other
    /// angles of the same rotation.
    VEXMATH_API int getThreeAngles(double &a1, double &a2, double &a3) const;
    /// The newer decomposition, of the same meaning: a1 and a3 in [-1e-11, 2 pi - 1e-11), a2 in
    /// [-pi/2, pi/2]. Returns 1, or 0 with the angles of the last trial.
    ///
    /// The angles are confirmed by rebuilding elements (0, 0), (1, 0), (2, 1) and (2, 2) within
    /// 1e-06, bound included. Elements (1, 0) and (2, 1) that are both at most 5e-07 in absolute
    /// value are confirmed with the opposite signs of a1 and a3: for small rotations about z and x,
    /// and where a2 is within 5e-07 of a quarter turn. At the quarter turn the four elements
    /// vanish, so the angles may be another rotation's; those of a mirror always are.
    ///
    /// a1 is taken from elements (0, 0) and (1, 0), a2 from (2, 0), clamped to [-1, 1], a3 from
    /// (2, 1) and (2, 2); no other element is read. NaN in one of the five gives 0, and NaN in the
    /// angle taken from it.
    VEXMATH_API int getThreeAnglesNew(double &a1, double &a2, double &a3) const;

    /// The sixteen numbers of a 4x4 matrix for column vectors, column by column: each row of the
    /// rotation, times the scale, followed by 0; then the translation and 1. A scale within 1e-08
    /// of 1 is applied too. REQUIRES sixteen writable numbers.
    VEXMATH_API void getGLData(double *gl) const;
    VEXMATH_API void getGLData(float *gl) const; ///< rounded to float, infinite beyond its range
    /// The transform of such numbers. REQUIRES sixteen readable numbers.
    ///
    /// Each row is normalised as by the constructors of `mgUnitVector_c`, so the scale is lost and
    /// becomes 1. One pass then orthonormalises the rotation (see `mgMatrix_c::normalize`). Rows 0
    /// and 1 at an angle w other than a right one leave rows 1 and 2 with length sin w, so parallel
    /// ones leave zero rows. A row 0 or 1 that is null or NaN becomes zero, and row 2 with it. Row
    /// 2 is rebuilt, right-handed when it is null, NaN or infinite, else with the handedness that
    /// it had. Infinity in row 0 or 1 makes rows NaN. The translation is taken as it is. The fourth
    /// number of each column is ignored. The reflection flag is 0, also for a mirror.
    VEXMATH_API static mgXform_c createFromGLData(double const *gl);

    /// Text form: the sixteen numbers of `getGLData` as by `%.16g` (up to 16 digits, an exponent
    /// where needed), separated by spaces; NaN and infinity as the C library writes them. The text
    /// is empty when memory is exhausted. Written and read by the process's numeric locale: a text
    /// written with a decimal comma is refused where a decimal point is set, unless all its numbers
    /// are whole, and the other way round. Store texts written under the "C" locale.
    VEXMATH_API void saveStringRep(CString &s) const;
    /// Reads sixteen numbers, assigns the transform that `createFromGLData` makes of them, by the
    /// copy rules, and returns 1. Text after them is ignored. With fewer numbers it returns 0 and
    /// changes nothing. The scale becomes 1, the reflection flag 0; a record is freed.
    VEXMATH_API int restoreStringRep(CString const &s);

    /// Archive record: a byte that is 1 when the identity flag is clear, then in that case the nine
    /// matrix doubles, translation, scale, a reserved byte 0. Repairs this transform first, as
    /// `iValidateRepairXForm` does. Reflection and perspective are not stored.
    VEXMATH_API void save(su_CArchive &ar);
    /// Reads a record. The rotation is orthonormalised; when every element is below 1e-08 in
    /// absolute value it becomes the identity. A record without rotation leaves the rotation as it
    /// was: restore into a fresh transform. Translation and scale are taken as they are. Reflection
    /// and perspective stay. A failing read leaves the transform as it was.
    VEXMATH_API void restore(su_CArchive &ar);
    /// The same with the rotation's elements as stored. The identity flag is set when every element
    /// differs from the identity's by less than 1e-08.
    VEXMATH_API void restoreAsIs(su_CArchive &ar);
    // The same for callers that hold a CArchive, which must be a su_CArchive.
    VEXMATH_API void save(CArchive &ar);
    VEXMATH_API void restore(CArchive &ar);
    VEXMATH_API void restoreAsIs(CArchive &ar);

private:
    friend class mgPoint_c;
    friend struct vexmath::detail::XformParts;

    /// Exactly these fields; the record is owned from now on.
    mgXform_c(mgMatrix_c const &rotation, mgVector_c const &translation, double scale,
              int reflection, mgPerspInfo_c *perspective);

    void copyByRules(mgXform_c const &source); ///< all but the record
    void followCopyRules();                    ///< as a copy of this transform would
    /// x and y of a point after the perspective division, which does not change z. REQUIRES a
    /// record.
    VEXMATH_API VEXMATH_PURE mg2DPoint_c dividePerspective(double x, double y,
                                                           double z) const noexcept;

    mgMatrix_c rotation_;
    mgVector_c translation_;
    double scale_ = 1.0;
    int reflection_ = 0;
    mgPerspInfo_c *perspective_ = nullptr; // owned, always a plain mgPerspInfo_c
};

/// a first, then b: a copy of a, `*= b`, and a copy of the result. The left operand and the result
/// follow the copy rules.
VEXMATH_API mgXform_c operator*(mgXform_c const &a, mgXform_c const &b);

/// The image of p under rotation, scale, translation and, when x holds a record, its perspective
/// division. Translation components that are 0 are not added.
mgPoint_c operator*(mgPoint_c const &p, mgXform_c const &x);
/// v rotated and scaled. An exactly zero vector stays as it is.
mgVector_c operator*(mgVector_c const &v, mgXform_c const &x);
/// u rotated and normalised: (0, 0, 0) when the image is shorter than about 3.2e-09 or NaN. When
/// x's identity flag is set, u stays as it is, whatever its length.
mgUnitVector_c operator*(mgUnitVector_c const &u, mgXform_c const &x);

/// Raw archive form of thirty 32-bit words: the fields as they lie in memory, low words first, with
/// the identity flag in word 18, the reflection flag in word 28, and 0 in words 19 and 29. It
/// differs from the record of `save`: neither reads the other. The fields are stored and read as
/// they are. Both directions free x's perspective record; writing frees it before the first word,
/// and so also when the archive then throws. A failing read leaves x as it was.
VEXMATH_API su_CArchive &operator<<(su_CArchive &ar, mgXform_c &x);
VEXMATH_API su_CArchive &operator>>(su_CArchive &ar, mgXform_c &x);

// -------------------------------------------------------------------------------------------------

#include <vexmath/detail/xform_steps.h>

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

// QUIRK: xform.h, mgXform_c::mgXform_c, mgXform_c::operator=, operator*: a copy treats a tiny
// translation as zero, a scale out of range as 1 and a flagged rotation as the identity. Expected:
// an equal value. Kept: callers and stored data depend on it.
// (test: CopiesFlushATinyTranslationAndAFlaggedRotation)
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
    mgVector_c const v = vexmath::detail::rotatedAndScaled(c_[0], c_[1], c_[2], x);
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
    if (!null()) *this = vexmath::detail::rotatedAndScaled(c_[0], c_[1], c_[2], x);
    return *this;
}

inline mgVector_c operator*(mgVector_c const &v, mgXform_c const &x) {
    mgVector_c image = v;
    image *= x;
    return image;
}

inline mgUnitVector_c &mgUnitVector_c::operator*=(mgXform_c const &x) {
    if (x.rotate()) *this = mg_Normalise(*this * x.rotation());
    return *this;
}

inline mgUnitVector_c operator*(mgUnitVector_c const &u, mgXform_c const &x) {
    mgUnitVector_c image = u;
    image *= x;
    return image;
}

#endif
