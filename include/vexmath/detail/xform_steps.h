// SPDX-License-Identifier: MIT
// The steps by which a transform moves a point and is copied.

#include <vexmath/xform.h> // before the guard: it includes this file after the class

#ifndef VEXMATH_DETAIL_XFORM_STEPS_H
#define VEXMATH_DETAIL_XFORM_STEPS_H

namespace vexmath::detail {

/// Scales strictly between these survive a copy.
inline constexpr double kSmallestScale = 1.0000000000000002e-13;
inline constexpr double kLargestScale = 6e12;

/// The scale, or 1 when it is NaN, on a bound or beyond it.
inline double scaleInRange(double s) { return s > kSmallestScale && s < kLargestScale ? s : 1.0; }

/// Scales that differ from 1 by more than this are applied; strict.
inline constexpr double kScaleTolerance = 1e-08;

inline bool scales(double s) { return std::fabs(s - 1.0) > kScaleTolerance; }

/// The linear half of the point and vector rules. The elements decide whether to multiply, not the
/// identity flag, which is stale after a caller has edited elements.
inline mgVector_c rotatedAndScaled(double x, double y, double z, mgXform_c const &form) {
    Elements const elements = form.rotation(); // before the test, so that a loop reads them once
    mgVector_c v =
        isExactIdentity(form.rotation()) ? mgVector_c(x, y, z) : rowTimes(x, y, z, elements);
    if (scales(form.scaling())) v *= form.scaling();
    return v;
}

/// A coordinate moved by a translation component. Subtracting the component's opposite leaves every
/// coordinate unchanged when the component is 0 of either sign; adding 0.0 would change -0.0 to
/// 0.0.
inline double moved(double coordinate, double by) { return coordinate - (0.0 - by); }

} // namespace vexmath::detail

#endif
