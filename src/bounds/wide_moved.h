// SPDX-License-Identifier: MIT
// Transforms between the frames of two placed boxes, and boxes transformed by them, in AVX2
// registers. Callers must test `hasSimd` first.
//
// Each step has the operations of the plain one, so that numbers differ at most in the sign of a
// zero, which no comparison sees: an identity is multiplied here, a scale of 1 too, and zero
// translations are added. REQUIRES finite numbers for this reason. Their squares must not overflow.

#ifndef VEXMATH_SRC_BOUNDS_WIDE_MOVED_H
#define VEXMATH_SRC_BOUNDS_WIDE_MOVED_H

#include <vexmath/xform.h>

#include "bounds/wide_clash.h"
#include "transform/wide_form.h"

#if defined(VEXMATH_AVX2)

namespace vexmath::detail {

/// A transform that follows the copy rules, without reflection and perspective record. REQUIRES a
/// scale that a copy keeps.
struct WideXform {
    /// `a * b`.
    VEXMATH_AVX2_STEP static WideXform ofProduct(mgXform_c const &a, mgXform_c const &b) {
        return {WideForm::ofProduct(a, b), b.scaling() * a.scaling()};
    }

    VEXMATH_AVX2_STEP WideXform(WideForm const &form, double byScale)
        : rows(form.rows), translation(form.translation), scale(byScale),
          factor(all(scales(byScale) ? byScale : 1.0)) {
        if (form.mayBeIdentity()) snap();
        if (areBelow(absolute(translation), all(kLengthTolerance))) translation = all(0.0);
    }

    /// The copy rule of the rotation: one whose flag is set becomes the exact identity.
    VEXMATH_AVX2_STEP void snap() {
        WideRows const axes = {_mm256_setr_pd(1.0, 0.0, 0.0, 0.0),
                               _mm256_setr_pd(0.0, 1.0, 0.0, 0.0),
                               _mm256_setr_pd(0.0, 0.0, 1.0, 0.0)};
        Wide const tolerance = all(kElementTolerance);
        if (areBelow(absolute(rows.r0 - axes.r0), tolerance)
            && areBelow(absolute(rows.r1 - axes.r1), tolerance)
            && areBelow(absolute(rows.r2 - axes.r2), tolerance))
            rows = axes;
    }

    VEXMATH_AVX2_STEP WideXform inverse() const {
        WideRows const turnedBack = orthonormalised(transposed(rows), rows);
        double const back = scales(scale) ? 1.0 / scale : 1.0;
        return {{turnedBack, times(opposite(translation), turnedBack) * all(back)}, back};
    }

    VEXMATH_AVX2_STEP Wide image(Wide p) const { return times(p, rows) * factor + translation; }

    WideRows rows;
    Wide translation;
    double scale;
    Wide factor; ///< the scale as it multiplies points
};

/// Half extents of the image of the box from -e to e.
VEXMATH_AVX2_STEP Wide reachOfImage(Wide e, WideXform const &by) {
    Wide const x = all<0>(e) * by.rows.r0, y = all<1>(e) * by.rows.r1, z = all<2>(e) * by.rows.r2;
    Wide const d0 = ((x + y) + z) * by.factor;
    Wide const d1 = ((y - x) + z) * by.factor;
    Wide const d2 = ((x - y) + z) * by.factor;
    Wide const d3 = (d1 + d2) - d0; // a sum, not a fourth product: the last bits differ
    return larger(larger(absolute(d0), absolute(d1)), larger(absolute(d2), absolute(d3)));
}

/// `box *= by`. REQUIRES a set box.
VEXMATH_AVX2_STEP WideBounds moved(WideBounds const &box, WideXform const &by) {
    Wide const middle = box.middle(), newMiddle = by.image(middle);
    Wide const extent = reachOfImage(box.high - middle, by);
    Wide const centre = by.image(box.centre);
    double const radius = box.radius * by.scale;
    return {larger(newMiddle - extent, centre - all(radius)),
            smaller(newMiddle + extent, centre + all(radius)), centre, radius};
}

} // namespace vexmath::detail

#endif

#endif
