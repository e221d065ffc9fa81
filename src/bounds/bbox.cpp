// SPDX-License-Identifier: MIT
// Boxes with bounding spheres: validity, unions, intersection, growth, transformation, text form,
// planar extent.

#include <vexmath/bbox.h>
#include <vexmath/mg_bounds.h>
#include <vexmath/xform.h>

#include "box_offsets.h"
#include "box_parts.h"
#include "transform/xform_parts.h"

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <limits>
#include <utility>

using vexmath::detail::farthestOffset;
using vexmath::detail::nearestOffset;

namespace {

mgPoint_c lower(mgPoint_c const &a, mgPoint_c const &b) {
    return {std::min(a.x(), b.x()), std::min(a.y(), b.y()), std::min(a.z(), b.z())};
}

mgPoint_c upper(mgPoint_c const &a, mgPoint_c const &b) {
    return {std::max(a.x(), b.x()), std::max(a.y(), b.y()), std::max(a.z(), b.z())};
}

int useSphereBoundingBox = 0;

} // namespace

void mgBBox_c::assignCorners(mgPoint_c const &low, mgPoint_c const &high) {
    setCornersOnly(low, high);
    setSphereOnly((low_ + high_) * 0.5, 0.5 * (high_ - low_).len());
}

void mgBBox_c::set(double const *lowHigh) {
    assignCorners(mgPoint_c(lowHigh), mgPoint_c(lowHigh + 3));
}

void mgBBox_c::set2Points(mgPoint_c const *a, mgPoint_c const *b) {
    assignCorners(lower(*a, *b), upper(*a, *b));
}

void mgBBox_c::reset() { setCornersOnly(mgPoint_c(), mgPoint_c(0.0, 0.0, -2.0)); }

mgBBox_c mgBBox_c::maxBox() {
    constexpr double kHalfWidth = 288.6002886002886;
    return {mgPoint_c(-kHalfWidth, -kHalfWidth, -kHalfWidth),
            mgPoint_c(kHalfWidth, kHalfWidth, kHalfWidth)};
}

mgBBox_c mgBBox_c::correctedMaxBox() { return {mgPoint_c(), 500.0}; }

int mgBBox_c::GetUseSphereBoundingBox() { return useSphereBoundingBox; }

int mgBBox_c::SetUseSphereBoundingBox(int useSphere) {
    return std::exchange(useSphereBoundingBox, useSphere);
}

namespace {

/// By how much a corner coordinate may lie outside the sphere's extent: 1e-08, and ten times more
/// for each decimal digit of radius / 1e6, truncated to a 32-bit integer.
double sphereTolerance(double radius) {
    constexpr double kPerMillion = 1e-06;
    constexpr double kTolerance = 1e-08;
    double const inMillions = radius * kPerMillion;
    constexpr double kMost = std::numeric_limits<std::int32_t>::max();
    auto digits = static_cast<std::int32_t>(inMillions < kMost ? inMillions : kMost);
    double decades = 1.0; // reaches 1e10, too much for an int
    for (; digits > 0; digits /= 10) decades *= 10.0;
    return decades * kTolerance;
}

} // namespace

int mgBBox_c::isValid() const {
    /// A centre coordinate of so many tolerances has no digits left to compare; bound included.
    constexpr double kNoDigitsLeft = 1e13;
    /// By which factor the squared distance of the box may exceed the squared radius.
    constexpr double kNearestFactor = 1.00000001;
    if (!isSet()) return 0;

    double const tol = sphereTolerance(sphRadius_);
    double const reach = tol + sphRadius_;
    for (int i = 0; i < 3; ++i) {
        double const centre = sphCentre_[i];
        bool const reached =
            std::fabs(low_[i] - centre) <= reach && std::fabs(high_[i] - centre) <= reach;
        // The division comes last, as it is slow: unions call this for every point that is new.
        // QUIRK: bbox.h, mgBBox_c::isValid: an axis on which the centre is 1e13 tolerances or more
        // from 0 is not tested. Expected: a tolerance that grows with the distance. Kept: callers
        // and stored data depend on it. (test: ACentreFarOutIsNotHeldAgainstTheCorners)
        if (!reached && !(std::fabs(centre / tol) >= kNoDigitsLeft)) return 0;
    }
    double const radiusSq = sphRadius_ * sphRadius_;
    double const nearestSq = nearestOffset(sphCentre_, low_, high_).sqlen();
    if (!(nearestSq <= radiusSq * kNearestFactor + vexmath::detail::kSquaredSlack)) return 0;
    double const farthestSq = farthestOffset(sphCentre_, low_, high_).sqlen();
    return radiusSq * vexmath::detail::kFarthestFactor - vexmath::detail::kSquaredSlack
           <= farthestSq;
}

double mgBBox_c::diagonalLength() const { return isSet() ? (high_ - low_).len() : 0.0; }

double mgBBox_c::maxDimension() const {
    return isSet() ? std::max({width(), height(), depth()}) : 0.0;
}

double mgBBox_c::minDimension() const {
    return isSet() ? std::min({width(), depth(), height()}) : -1.0;
}

mgPoint_c mgBBox_c::pointPerp(mgPoint_c const &p) const {
    mgPoint_c const lowest = low();
    mgPoint_c const highest = high();
    mgPoint_c nearest = p;
    for (int i = 0; i < 3; ++i) {
        if (!(lowest[i] <= p[i])) {
            nearest[i] = lowest[i];
        } else if (highest[i] < p[i]) {
            nearest[i] = highest[i];
        }
    }
    return nearest;
}

bool mgBBox_c::operator==(mgBBox_c const &b) const {
    return sphCentre_ == b.sphCentre_ && high_ == b.high_ && low_ == b.low_
           && vexmath::detail::isTiny(sphRadius_ - b.sphRadius_);
}

int mgBBox_c::isSame(mgBBox_c const &b, double tol) const {
    double const within = tol < 0.0 ? vexmath::kLengthTolerance : tol;
    return sphCentre_.isSame(b.sphCentre_, within) && high_.isSame(b.high_, within)
           && low_.isSame(b.low_, within) && std::fabs(sphRadius_ - b.sphRadius_) < within;
}

void mgBBox_c::translate(mgVector_c const &v) {
    sphCentre_ += v;
    high_ += v;
    low_ += v;
}

mgBBox_c &mgBBox_c::operator+=(double d) {
    // QUIRK: bbox.h, mgBBox_c::operator+=: an unset box grows by the same rule from the numbers
    // that it holds, and can become set. Expected: it stays unset. Kept: callers and stored data
    // depend on it. (test: AnUnsetBoxBecomesSetByGrowing)
    mgVector_c const step(d, d, d);
    sphRadius_ += d;
    if (!(sphRadius_ >= 0.0)) {
        mgPoint_c const centre = sphCentre_;
        *this = mgBBox_c();
        sphCentre_ = centre;
        return *this;
    }
    low_ -= step;
    high_ += step;
    if (d < 0.0) {
        for (int i = 0; i < 3; ++i) {
            if (high_[i] < low_[i]) low_[i] = high_[i] = (high_[i] + low_[i]) * 0.5;
        }
        shrinkSphereToBox();
    }
    return *this;
}

mgBBox_c &mgBBox_c::operator*=(double s) {
    mgPoint_c const middle = center();
    high_ = middle + (high_ - middle) * s;
    low_ = middle + (low_ - middle) * s;
    sphCentre_ = middle + (sphCentre_ - middle) * s;
    sphRadius_ *= s;
    return *this;
}

namespace {

/// True if x can be used without copying it: it has no perspective record, and its copy would
/// transform boxes to the same bits. Copying changes some transforms.
bool movesAsItsCopy(mgXform_c const &x) {
    mgVector_c const &t = x.translation();
    return !x.hasPerspective() && vexmath::detail::scaleInRange(x.scaling()) == x.scaling()
           && (t.isNotNull() || t.null())
           && (x.rotate() || vexmath::detail::isExactIdentity(x.rotation()));
}

/// The largest absolute value.
double reach(double a, double b, double c, double d) {
    using vexmath::detail::larger;
    return larger(larger(larger(std::fabs(a), std::fabs(b)), std::fabs(c)), std::fabs(d));
}

/// Half extents of the image of the box from -e to e. `rotates` is false for an exact identity,
/// which is not multiplied. A zero vector stays zero, also where products would give NaN.
inline mgVector_c reachOfImage(mgVector_c const &e, mgMatrix_c const &m, bool rotates,
                               double scale) {
    if (e.null()) return {};
    mgVector_c x(e.x(), 0.0, 0.0);
    mgVector_c y(0.0, e.y(), 0.0);
    mgVector_c z(0.0, 0.0, e.z());
    if (rotates) {
        x = {e.x() * m(0, 0), e.x() * m(0, 1), e.x() * m(0, 2)};
        y = {e.y() * m(1, 0), e.y() * m(1, 1), e.y() * m(1, 2)};
        z = {e.z() * m(2, 0), e.z() * m(2, 1), e.z() * m(2, 2)};
    }
    // Four of the eight half diagonals from one set of products: a sign does not change the bits
    // of a product.
    mgVector_c const d0 = ((x + y) + z) * scale;
    mgVector_c const d1 = ((y - x) + z) * scale;
    mgVector_c const d2 = ((x - y) + z) * scale;
    mgVector_c const d3 = (d1 + d2) - d0; // a sum, not a fourth product: the last bits differ
    return {reach(d0.x(), d1.x(), d2.x(), d3.x()), reach(d0.y(), d1.y(), d2.y(), d3.y()),
            reach(d0.z(), d1.z(), d2.z(), d3.z())};
}

} // namespace

mgBBox_c mgBBox_c::movedBy(mgXform_c const &x) const {
    mgMatrix_c const &m = x.rotation();
    mgVector_c const &t = x.translation();
    bool const rotates = !vexmath::detail::isExactIdentity(m);
    double const scale = vexmath::detail::scales(x.scaling()) ? x.scaling() : 1.0;
    auto const image = [&](mgPoint_c const &p) -> mgPoint_c {
        using vexmath::detail::moved;
        mgVector_c v(p);
        if (rotates) v = vexmath::detail::rowTimes(p.x(), p.y(), p.z(), m);
        v *= scale;
        return {moved(v.x(), t.x()), moved(v.y(), t.y()), moved(v.z(), t.z())};
    };
    mgPoint_c const middle = center();
    mgVector_c const extent = reachOfImage(high_ - middle, m, rotates, scale);
    mgPoint_c const newMiddle = image(middle);
    mgBBox_c box;
    box.setSphereOnly(image(sphCentre_), sphRadius_ * x.scaling());
    box.setCornersOnly(newMiddle - extent, newMiddle + extent);
    box.clipCornersToSphere();
    return box;
}

mgBBox_c &mgBBox_c::operator*=(mgXform_c const &x) {
    if (movesAsItsCopy(x)) return *this = movedBy(x);
    mgXform_c const similarity = vexmath::detail::withoutRecord(x);
    return *this = movedBy(mgXform_c(similarity)); // a copy: the copy rules apply
}

void mgBBox_c::widenCorners(mgPoint_c const &p) {
    for (int i = 0; i < 3; ++i) {
        if (p[i] < low_[i]) low_[i] = p[i];
        if (p[i] > high_[i]) high_[i] = p[i];
    }
}

/// The general union with a point. `plainlyEncloses` has excluded most points that change nothing.
void mgBBox_c::unite(mgPoint_c const &p) {
    if (!isValid()) {
        *this = mgBBox_c(p, p);
        return;
    }
    // QUIRK: bbox.h, mgBBox_c::operator|=: a point that holds NaN widens the corners on the other
    // axes but not the sphere, so that the box can become invalid. Expected: the point is ignored.
    // Kept: callers and stored data depend on it. (test: APointThatHoldsNaNWidensTheCornersAlone)
    widenCorners(p);
    mgVector_c const v = p - sphCentre_;
    double const distance = v.len();
    double const newRadius = (sphRadius_ + distance) * 0.5;
    if (!(sphRadius_ < newRadius)) return;
    moveSphere(v, distance, newRadius);
    shrinkSphereToBox();
}

/// Enlarges the sphere to newRadius and moves its centre along `towards`, so that it still touches
/// the old sphere on the far side.
void mgBBox_c::moveSphere(mgVector_c const &towards, double distance, double newRadius) {
    sphCentre_ += towards * ((newRadius - sphRadius_) / distance);
    sphRadius_ = newRadius;
}

void mgBBox_c::shrinkSphereToBox() {
    /// By how much the squared radius must exceed the squared distance of the farthest corner, for
    /// the sphere to be replaced; strict.
    constexpr double kExcessSq = 5e-09;
    constexpr double kExcessFactor = 1.000000005;
    /// For radii up to this only the absolute excess is tested.
    constexpr double kSmallRadius = 1e-10;
    double const farthestSq = farthestOffset(sphCentre_, low_, high_).sqlen();
    double const radiusSq = sphRadius_ * sphRadius_;
    bool const tooLarge = farthestSq + kExcessSq < radiusSq
                          || (sphRadius_ > kSmallRadius && farthestSq * kExcessFactor < radiusSq);
    if (tooLarge) assignCorners(low_, high_);
}

void mgBBox_c::clipCornersToSphere() {
    // Selections instead of branches: which corners are clipped is unpredictable.
    for (int i = 0; i < 3; ++i) {
        double const lowest = sphCentre_[i] - sphRadius_;
        double const highest = sphCentre_[i] + sphRadius_;
        low_[i] = low_[i] < lowest ? lowest : low_[i];
        high_[i] = highest < high_[i] ? highest : high_[i];
    }
}

mgBBox_c &mgBBox_c::operator|=(mgBBox_c const &b) {
    // QUIRK: bbox.h, mgBBox_c::operator|=: the operand must be valid, but this box need only be
    // set. Expected: both must be valid, as in the union with a point. Kept: callers and stored
    // data depend on it. (test: AUnionAsksMoreOfItsOperandThanOfItself)
    if (!b.isValid()) return *this;
    if (!isSet()) return *this = b;
    low_ = lower(low_, b.low_);
    high_ = upper(high_, b.high_);

    mgVector_c const v = b.sphCentre_ - sphCentre_;
    double const distance = v.len();
    double const newRadius = (b.sphRadius_ + sphRadius_ + distance) * 0.5;
    if (newRadius <= sphRadius_) return *this;
    if (newRadius <= b.sphRadius_) {
        setSphereOnly(b.sphCentre_, b.sphRadius_);
    } else {
        moveSphere(v, distance, newRadius);
        shrinkSphereToBox();
    }
    // QUIRK: bbox.h, mgBBox_c::operator|=, mgBBox_c::SetUseSphereBoundingBox: the cube around the
    // sphere can be smaller than the union of the corners, and unions with points ignore the
    // switch. Expected: corners that enclose both boxes, by one rule for all unions. Kept: callers
    // and stored data depend on it. (test: TheSwitchGivesTheCubeAroundTheMergedSphere)
    if (useSphereBoundingBox != 0) set(sphCentre_, sphRadius_);
    return *this;
}

mgBBox_c &mgBBox_c::operator&=(mgBBox_c const &b) {
    /// A gap of this width makes the intersection empty; bound included.
    constexpr double kGap = 1e-08;
    if (!isSet() || !b.isSet()) return *this = mgBBox_c();
    mgPoint_c const lowest = upper(low_, b.low_);
    mgPoint_c const highest = lower(high_, b.high_);
    for (int i = 0; i < 3; ++i) {
        if (highest[i] < lowest[i] && lowest[i] - highest[i] >= kGap) return *this = mgBBox_c();
    }
    return *this = mgBBox_c(lowest, highest);
}

void mgBBox_c::saveStringRep(CString &s) const {
    mgPoint_c const lowest = low();
    mgPoint_c const highest = high();
    s.Format(L"%.16g %.16g %.16g %.16g %.16g %.16g", lowest.x(), lowest.y(), lowest.z(),
             highest.x(), highest.y(), highest.z());
}

int mgBBox_c::restoreStringRep(CString const &s) {
    double a[3];
    double b[3];
    int const read = std::swscanf(static_cast<wchar_t const *>(s), L"%lf %lf %lf %lf %lf %lf",
                                  &a[0], &a[1], &a[2], &b[0], &b[1], &b[2]);
    if (read != 6) return 0;
    *this = mgBBox_c(mgPoint_c(a), mgPoint_c(b));
    return 1;
}

void mgBBox_c::dump() const {
    CString text;
    saveStringRep(text);
}

// For Windows, GCC refuses a friend that is an imported function declared before. So it goes
// through the parts.
void mg_FindBBox(mgPoint_c const &a, mgPoint_c const &b, mgXform_c const &x, double *out,
                 double grow) {
    mgBBox_c box(a, b);
    box *= x;
    box += grow;
    vexmath::detail::BoxParts const corners(box);
    out[0] = corners.low.x();
    out[1] = corners.low.y();
    out[2] = corners.high.x();
    out[3] = corners.high.y();
}
