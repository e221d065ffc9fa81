// SPDX-License-Identifier: MIT
// The similarity transform: composition, inverse, comparison, repair, and its perspective record.

#include <vexmath/mg_transform.h>
#include <vexmath/xform.h>

#include "inlining.h"
#include "matrix/rows.h"
#include "transform/wide_form.h"
#include "transform/xform_parts.h"

#include <new>
#include <type_traits>

using vexmath::detail::hasSimd;
using vexmath::detail::makeXform;
using vexmath::detail::Rows;
using vexmath::detail::scaleInRange;
using vexmath::detail::scales;
using vexmath::detail::XformParts;

namespace {

/// How far scales, elements and translations of equal transforms may differ; bound included.
constexpr double kEqualWithin = 1e-08;

bool differs(double a, double b) { return std::fabs(a - b) > kEqualWithin; }

} // namespace

mgXform_c::mgXform_c(mgUnitVector_c const &zDir, mgUnitVector_c const &xDir,
                     mgVector_c const &origin)
    : rotation_(xDir, mgUnitVector_c(zDir * xDir, 0), zDir), translation_(origin) {}

int mgXform_c::isIdentity() const {
    return !rotate() && vexmath::detail::isTiny(1.0 - scale_) && translation_.isNull();
}

mgXform_c mgXform_c::linearComponent() const { return makeXform(rotation_, mgVector_c(), scale_); }

int mgXform_c::getNearestAxis(mgUnitVector_c const &dir, int &opposite) const {
    int nearest = 1;
    double best = dir % mgVector_c(&rotation_[0]);
    for (int row = 1; row < 3; ++row) {
        double const cosine = dir % mgVector_c(&rotation_[3 * row]);
        if (std::fabs(cosine) > std::fabs(best)) {
            best = cosine;
            nearest = row + 1;
        }
    }
    opposite = best < 0.0;
    return nearest;
}

namespace {

/// The translation of a product: t transformed by b, unless t is null, plus b's translation.
VEXMATH_ALWAYS_INLINE mgVector_c composedTranslation(mgVector_c const &t, mgXform_c const &b) {
    if (!t.isNotNull()) return b.translation();
    return vexmath::detail::rotatedAndScaled(t.x(), t.y(), t.z(), b) + b.translation();
}

int exactlyOne(int a, int b) { return (a != 0) != (b != 0); }

/// The scale of a copy of a, then b.
double composedScale(mgXform_c const &a, mgXform_c const &b) {
    return b.scaling() * scaleInRange(a.scaling());
}

double inverseScale(mgXform_c const &x) { return scales(x.scaling()) ? 1.0 / x.scaling() : 1.0; }

/// A copy of a first, then b, both without their records; by the copy rules. REQUIRES that a
/// rotates: otherwise its copy may have other elements.
VEXMATH_NEVER_INLINE mgXform_c productByRows(mgXform_c const &a, mgXform_c const &b) {
    // The translation last: the rows go from registers to the result with no step in between.
    mgXform_c product = makeXform(
        Rows::ofProduct(a.rotation(), b.rotation()).orthonormalised(false).matrix(), mgVector_c(),
        composedScale(a, b), exactlyOne(a.isReflection(), b.isReflection()));
    XformParts::translation(product) = composedTranslation(a.translation(), b);
    XformParts::followCopyRules(product);
    return product;
}

VEXMATH_NEVER_INLINE mgXform_c inverseByRows(mgXform_c const &x) {
    Rows const rows = x.rotate() ? Rows::ofTransposed(&x.rotation()[0]).orthonormalised(false)
                                 : Rows::of(&mgMatrix_c()[0]);
    double const scale = inverseScale(x);
    mgXform_c inverse = makeXform(rows.matrix(), mgVector_c(), scale);
    if (x.translation().isNotNull()) {
        mgVector_c const t = -x.translation();
        mgVector_c &translation = XformParts::translation(inverse);
        // By the rows that are still in registers: reading the matrix would wait for the stores.
        translation = vexmath::detail::isExactIdentity(inverse.rotation()) ? t : rows.times(t);
        if (scales(x.scaling())) translation *= scale;
    }
    XformParts::followCopyRules(inverse);
    return inverse;
}

#if defined(VEXMATH_AVX2)

using vexmath::detail::WideForm;

/// A transform of these fields by the copy rules.
VEXMATH_AVX2_STEP mgXform_c fromWideForm(WideForm form, double scale, int reflection) {
    if (form.isUnmoved()) form.translation = vexmath::detail::all(0.0);
    mgXform_c x;
    form.store(scaleInRange(scale), x);
    x.setReflection(reflection);
    return x;
}

/// Sets rotation, translation and scale of a to those of the product with b. Returns false and
/// changes nothing when the rotation may be the identity.
VEXMATH_AVX2 bool multiplyBySimd(mgXform_c &a, mgXform_c const &b) {
    WideForm const form = WideForm::ofProduct(a, b);
    if (form.mayBeIdentity()) return false;
    form.store(b.scaling() * a.scaling(), a);
    return true;
}

VEXMATH_AVX2 mgXform_c productBySimd(mgXform_c const &a, mgXform_c const &b) {
    WideForm const form = WideForm::ofProduct(a, b);
    if (form.mayBeIdentity()) return productByRows(a, b);
    return fromWideForm(form, composedScale(a, b), exactlyOne(a.isReflection(), b.isReflection()));
}

VEXMATH_AVX2 mgXform_c inverseBySimd(mgXform_c const &x) {
    double const scale = inverseScale(x);
    WideForm const form = WideForm::ofInverse(x, scale);
    return form.mayBeIdentity() ? inverseByRows(x) : fromWideForm(form, scale, 0);
}

#else // never called

bool multiplyBySimd(mgXform_c &, mgXform_c const &) { return false; }
mgXform_c productBySimd(mgXform_c const &a, mgXform_c const &b) { return productByRows(a, b); }
mgXform_c inverseBySimd(mgXform_c const &x) { return inverseByRows(x); }

#endif

/// Can SIMD compute this product by the operations of the plain steps?
bool simdMultiplies(mgXform_c const &a, mgXform_c const &b) {
    return hasSimd() && a.rotate() && b.rotate() && !vexmath::detail::isExactIdentity(b.rotation());
}

/// The product in the steps of its definition, for rare operands.
VEXMATH_NEVER_INLINE mgXform_c productOfCopy(mgXform_c const &a, mgXform_c const &b) {
    mgXform_c product(a);
    product *= b;
    return mgXform_c(product); // a copy, which must not be elided: the copy rules apply
}

} // namespace

mgXform_c const &mgXform_c::operator*=(mgXform_c const &b) {
    // The record first: it alone may throw, and then nothing has changed. Every other field is
    // computed before the first is written: b may be this transform.
    if (b.hasPerspective()) iCopyPerspectiveInfo(b);
    int const reflection = exactlyOne(reflection_, b.reflection_);
    if (!simdMultiplies(*this, b) || !multiplyBySimd(*this, b)) {
        mgVector_c const translation = composedTranslation(translation_, b);
        double const scale = b.scale_ * scale_;
        if (rotate() || b.rotate())
            rotation_ = Rows::ofProduct(rotation_, b.rotation_).orthonormalised(false).matrix();
        translation_ = translation;
        scale_ = scale;
    }
    reflection_ = reflection;
    return *this;
}

mgXform_c operator*(mgXform_c const &a, mgXform_c const &b) {
    bool const isPlain = a.rotate() && !a.hasPerspective() && !b.hasPerspective();
    if (!isPlain) return productOfCopy(a, b);
    return simdMultiplies(a, b) ? productBySimd(a, b) : productByRows(a, b);
}

// QUIRK: xform.h, mgXform_c::inverse: the reflection flag is dropped. Expected: the inverse of a
// mirror is flagged as a mirror. Kept: callers and stored data depend on it.
// (test: InverseDropsMirrorAndPerspective)
mgXform_c mgXform_c::inverse() const {
    return rotate() && hasSimd() ? inverseBySimd(*this) : inverseByRows(*this);
}
int mgXform_c::equals(mgXform_c const &other) const {
    if (differs(scale_, other.scale_)) return 0;
    if (rotate() || other.rotate()) {
        for (int k = 0; k < 9; ++k) {
            if (differs(rotation_[k], other.rotation_[k])) return 0;
        }
    }
    for (int i = 0; i < 3; ++i) {
        if (differs(translation_.component(i), other.translation_.component(i))) return 0;
    }
    // QUIRK: xform.h, mgXform_c::equals: the reflection flag is not compared. Expected: transforms
    // that differ in it are not equal. Kept: callers and stored data depend on it.
    // (test: TransformsThatDifferInReflectionOrWithinBoundsAreEqual)
    return iIsPerspectiveEqual(other);
}

int mgXform_c::sameOrParallel(mgXform_c const *other) const {
    /// How far the absolute cosine may be from 1; bound included.
    constexpr double kCosTolerance = 1e-08;
    mgUnitVector_c const theirs = mgUnitVector_c::zAxis() * *other;
    mgUnitVector_c const ours = mgUnitVector_c::zAxis() * *this;
    return std::fabs(std::fabs(theirs % ours) - 1.0) <= kCosTolerance;
}

int mgXform_c::iValidateRepairRotationMatrix() { return rotation_.iValidateRepairOrthonormality(); }

int mgXform_c::iValidateRepairXForm() {
    using vexmath::detail::kLargestScale;
    using vexmath::detail::kSmallestScale;
    /// Translations beyond this, in model units, are reset; strict.
    constexpr double kFarthest = 1e8;
    int repaired = 0;
    // QUIRK: xform.h, mgXform_c::iValidateRepairXForm, mgXform_c::save: translation z is not
    // repaired. Expected: all three components. Kept: callers and stored data depend on it.
    // (test: RepairLeavesTranslationInDepth)
    if (std::fabs(translation_.x()) > kFarthest) {
        translation_.set_x(0.0);
        repaired = 1;
    }
    if (std::fabs(translation_.y()) > kFarthest) {
        translation_.set_y(0.0);
        repaired = 1;
    }
    // QUIRK: xform.h, mgXform_c::iValidateRepairXForm, mgXform_c::save: a scale exactly on a bound
    // is kept here. Expected: 1, as in a copy. Kept: callers and stored data depend on it.
    // (test: ScaleOnABoundIsRepairedOnlyByACopy)
    if (!(scale_ >= kSmallestScale && scale_ <= kLargestScale)) { // also NaN
        scale_ = 1.0;
        repaired = 1;
    }
    return repaired;
}

int mgXform_c::getPerspectiveInfo(mgPerspInfo_c *out) const {
    if (perspective_ == nullptr) return 0;
    *out = *perspective_;
    return 1;
}

void mgXform_c::addPerspectiveInfo(mgPerspInfo_c const &info) {
    if (perspective_ == nullptr) {
        perspective_ = new mgPerspInfo_c(info);
    } else {
        *perspective_ = info;
    }
}

void mgXform_c::deletePerspectiveInfo() {
    // The record is always of its static type and has nothing to destroy. A delete expression would
    // cause a warning, because the class has no virtual destructor.
    static_assert(std::is_trivially_destructible_v<mgPerspInfo_c>);
    ::operator delete(perspective_);
    perspective_ = nullptr;
}

void mgXform_c::iCopyPerspectiveInfo(mgXform_c const &source) {
    if (source.perspective_ == nullptr) {
        deletePerspectiveInfo();
    } else {
        addPerspectiveInfo(*source.perspective_);
    }
}

int mgXform_c::iIsPerspectiveEqual(mgXform_c const &other) const {
    if (!hasPerspective() && !other.hasPerspective()) return 1;
    if (!hasPerspective() || !other.hasPerspective()) return 0;
    // QUIRK: xform.h, mgXform_c::equals, mgXform_c::iIsPerspectiveEqual: the plane distance and the
    // far clip distance are not compared. Expected: records that differ in them are not equal.
    // Kept: callers and stored data depend on it. (test:
    // PerspectivesThatDifferInClipPlanesAreEqual)
    mgPoint_c eye;
    mgPoint_c otherEye;
    perspective_->getEyePoint(&eye);
    other.perspective_->getEyePoint(&otherEye);
    return eye.x() == otherEye.x() && eye.y() == otherEye.y() && eye.z() == otherEye.z()
           && perspective_->getCameraFOVPlaneDistance()
                  == other.perspective_->getCameraFOVPlaneDistance();
}

mg2DPoint_c mgXform_c::dividePerspective(double x, double y, double z) const noexcept {
    mgPoint_c p(x, y, z);
    perspective_->doScreenPointPerspectiveDivision(p);
    return {p.x(), p.y()};
}

void mgXform_c::SetHelper(mgXform_64BitHelper_c const &helper) {
    rotation_ = helper.rotation;
    translation_ = helper.translation;
    scale_ = helper.scale;
    reflection_ = helper.reflection;
    deletePerspectiveInfo();
}

mgXform_64BitHelper_c mgXform_c::GetHelper() const {
    mgXform_64BitHelper_c helper;
    GetHelper(helper);
    return helper;
}

void mgXform_c::GetHelper(mgXform_64BitHelper_c &helper) const {
    helper.rotation = rotation_;
    helper.translation = translation_;
    helper.scale = scale_;
    helper.reflection = reflection_;
    helper.perspective = nullptr;
}
