// SPDX-License-Identifier: MIT
// Products and inverses of transforms in the registers of AVX2, to the bit those of the plain
// steps, for those who ask `hasVectorUnits` first.

#ifndef VEXMATH_SRC_TRANSFORM_WIDE_FORM_H
#define VEXMATH_SRC_TRANSFORM_WIDE_FORM_H

#include <vexmath/xform.h>

#include "matrix/wide_rows.h"

#if defined(VEXMATH_AVX2)

namespace vexmath::detail {

/// A transform on its way through registers.
struct WideForm {
    /// Rotation and translation of a first, then b. REQUIRES both rotating, and a b that is not
    /// exactly the identity by its elements, which would turn nothing.
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

    /// Rotation and translation of the way back, by the scale of the way back. REQUIRES an x that
    /// rotates.
    VEXMATH_AVX2_STEP static WideForm ofInverse(mgXform_c const &x, double scale) {
        WideRows const columns = loadRows(x.rotation());
        WideRows const rows = orthonormalised(transposed(columns), columns);
        if (!x.translation().isNotNull()) return {rows, all(0.0)};
        Wide const back = times(opposite(load(&x.translation()[0])), rows);
        return {rows, back * all(scale)};
    }

    /// Might the rotation have to be flagged as the identity? Two elements rule that out.
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
