// SPDX-License-Identifier: MIT
// Products and inverses of transforms in AVX2 registers, with the bits of the plain steps. REQUIRES
// that `hasSimd` is true.

#ifndef VEXMATH_SRC_TRANSFORM_WIDE_FORM_H
#define VEXMATH_SRC_TRANSFORM_WIDE_FORM_H

#include <vexmath/xform.h>

#include "simd/wide_rows.h"
#include "transform/xform_parts.h"

#if defined(VEXMATH_AVX2)

namespace vexmath::detail {

/// The sixteen numbers of a transform, in quarters as `WideForm::store` writes them. A processor
/// forwards a store to a load only when the load lies in it. So a transform that was just written
/// is read in these quarters, and its rows and its translation are put together in registers.
struct WideFields {
    /// Elements 0 to 3; 4 to 7; 8, flag, x and y of the translation; z, scale, reflection, record.
    Wide quarters[4];

    VEXMATH_AVX2_STEP static WideFields of(mgXform_c const &x) {
        static_assert(XformParts::kAreSixteenNumbers);
        auto const *const p = reinterpret_cast<double const *>(&x);
        return {{_mm256_loadu_pd(p), _mm256_loadu_pd(p + 4), _mm256_loadu_pd(p + 8),
                 _mm256_loadu_pd(p + 12)}};
    }

    /// The fourth lanes hold elements or 0. The flag would be a denormal number, which is slow.
    VEXMATH_AVX2_STEP WideRows rows() const {
        Wide const flagged = _mm256_permute2f128_pd(quarters[1], quarters[2], 0x21);
        return {
            quarters[0],
            _mm256_permute4x64_pd(_mm256_blend_pd(quarters[0], quarters[1], 0b0111), 0b10010011),
            _mm256_blend_pd(flagged, all(0.0), 0b1000)};
    }
    VEXMATH_AVX2_STEP Wide translation() const { // and the scale
        return _mm256_permute2f128_pd(quarters[2], quarters[3], 0x21);
    }
};

/// Rotation and translation of a transform, in registers.
struct WideForm {
    /// a first, then b. REQUIRES that b's elements are not exactly the identity, which is not
    /// multiplied, and that not both flags are set.
    VEXMATH_AVX2_STEP static WideForm ofProduct(mgXform_c const &a, mgXform_c const &b) {
        WideFields const fields = WideFields::of(b);
        WideRows const right = fields.rows();
        double const *const left = &a.rotation()[0];
        WideRows const rows = {times(left, right), times(left + 3, right), times(left + 6, right)};
        Wide t = fields.translation();
        if (a.translation().isNotNull()) {
            Wide moved = times(&a.translation()[0], right);
            if (scales(b.scaling())) moved = moved * all(b.scaling());
            t = moved + t;
        }
        return {orthonormalisedProduct(rows), t};
    }

    /// The inverse, given the scale of the inverse. REQUIRES that x rotates.
    VEXMATH_AVX2_STEP static WideForm ofInverse(mgXform_c const &x, double scale) {
        WideRows const columns = loadRows(x.rotation());
        WideRows const rows = orthonormalised(transposed(columns), columns);
        if (!x.translation().isNotNull()) return {rows, all(0.0)};
        Wide const back = times(opposite(load(&x.translation()[0])), rows);
        return {rows, back * all(scale)};
    }

    /// Writes rotation, translation and scale. Clears the flag and its padding.
    VEXMATH_AVX2_STEP void store(double scale, mgXform_c &x) const {
        auto *const p = reinterpret_cast<double *>(&x);
        Wide const r1 = _mm256_permute4x64_pd(rows.r1, 0b00101001); // y z z x
        Wide const r2AndT = _mm256_permute2f128_pd(rows.r2, translation, 0x21);
        _mm256_storeu_pd(p, _mm256_blend_pd(rows.r0, r1, 0b1000));
        _mm256_storeu_pd(p + 4, _mm256_insertf128_pd(r1, lowHalf(rows.r2), 1));
        _mm256_storeu_pd(p + 8, _mm256_blend_pd(r2AndT, all(0.0), 0b0010));
        _mm_storeu_pd(p + 12, _mm_unpacklo_pd(highHalf(translation), _mm_set_sd(scale)));
    }

    /// May the identity flag have to be set? False, from two elements, means no.
    VEXMATH_AVX2_STEP bool mayBeIdentity() const {
        return std::fabs(lane0(rows.r0) - 1.0) < kElementTolerance
               && std::fabs(lane1(rows.r1) - 1.0) < kElementTolerance;
    }
    /// Is every component of the translation below 1e-08 in absolute value?
    VEXMATH_AVX2_STEP bool isUnmoved() const {
        return isTiny(lane0(translation)) && isTiny(lane1(translation))
               && isTiny(lane2(translation));
    }

    WideRows rows;
    Wide translation;
};

} // namespace vexmath::detail

#endif

#endif
