// SPDX-License-Identifier: MIT
// Products and inverses of transforms in AVX2 registers, with the bits of the plain steps. REQUIRES
// that `hasSimd` is true.

#ifndef VEXMATH_SRC_TRANSFORM_WIDE_FORM_H
#define VEXMATH_SRC_TRANSFORM_WIDE_FORM_H

#include <vexmath/xform.h>

#include "simd/wide_rows.h"

#if defined(VEXMATH_AVX2)

namespace vexmath::detail {

/// Rotation and translation of a transform, in registers.
struct WideForm {
    /// a first, then b. REQUIRES that both rotate and that b's elements are not exactly the
    /// identity, which is not multiplied.
    VEXMATH_AVX2_STEP static WideForm ofProduct(mgXform_c const &a, mgXform_c const &b) {
        WideRows const right = loadRows(b.rotation());
        double const *const left = &a.rotation()[0];
        WideRows const rows = {times(left, right), times(left + 3, right), times(left + 6, right)};
        Wide t = load(&b.translation()[0]);
        if (a.translation().isNotNull()) {
            double const scale = scales(b.scaling()) ? b.scaling() : 1.0;
            t = times(&a.translation()[0], right) * all(scale) + t;
        }
        return {orthonormalised(rows, transposed(rows)), t};
    }

    /// The inverse, given the scale of the inverse. REQUIRES that x rotates.
    VEXMATH_AVX2_STEP static WideForm ofInverse(mgXform_c const &x, double scale) {
        WideRows const columns = loadRows(x.rotation());
        WideRows const rows = orthonormalised(transposed(columns), columns);
        if (!x.translation().isNotNull()) return {rows, all(0.0)};
        Wide const back = times(opposite(load(&x.translation()[0])), rows);
        return {rows, back * all(scale)};
    }

    /// May the identity flag have to be set? False, from two elements, means no.
    VEXMATH_AVX2_STEP bool mayBeIdentity() const {
        return std::fabs(lane0(rows.r0) - 1.0) < kElementTolerance
               && std::fabs(lane1(rows.r1) - 1.0) < kElementTolerance;
    }

    WideRows rows;
    Wide translation;
};

} // namespace vexmath::detail

#endif

#endif
