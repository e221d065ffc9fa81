// SPDX-License-Identifier: MIT
// Products of four transforms at a time in AVX2 registers, with the bits of `*=`. REQUIRES that
// `hasSimd` is true.

#ifndef VEXMATH_SRC_TRANSFORM_FOUR_FORMS_H
#define VEXMATH_SRC_TRANSFORM_FOUR_FORMS_H

#include <vexmath/xform.h>

#include "matrix/rows.h"
#include "simd/wide_vector.h"
#include "transform/xform_parts.h"

#if defined(VEXMATH_AVX2)

namespace vexmath::detail {

/// Four vectors. A lane is a vector; a register is a component.
struct FourVectors {
    Wide x, y, z;
};

VEXMATH_AVX2_STEP FourVectors operator*(FourVectors const &v, Wide s) {
    return {v.x * s, v.y * s, v.z * s};
}
VEXMATH_AVX2_STEP FourVectors operator+(FourVectors const &a, FourVectors const &b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
VEXMATH_AVX2_STEP FourVectors operator-(FourVectors const &a, FourVectors const &b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
VEXMATH_AVX2_STEP Wide dot(FourVectors const &a, FourVectors const &b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
VEXMATH_AVX2_STEP FourVectors cross(FourVectors const &a, FourVectors const &b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// Masks: a lane is all ones or all zeros.
VEXMATH_AVX2_STEP Wide isBelow(Wide a, Wide b) { return _mm256_cmp_pd(a, b, _CMP_LT_OQ); }
VEXMATH_AVX2_STEP Wide isNear(Wide a, Wide b, double bound) {
    return isBelow(absolute(a - b), all(bound));
}
VEXMATH_AVX2_STEP Wide areBoth(Wide a, Wide b) { return _mm256_and_pd(a, b); }
VEXMATH_AVX2_STEP bool isAny(Wide mask) { return _mm256_movemask_pd(mask) != 0; }
/// a where the mask is set, else b.
VEXMATH_AVX2_STEP Wide select(Wide mask, Wide a, Wide b) { return _mm256_blendv_pd(b, a, mask); }
VEXMATH_AVX2_STEP FourVectors select(Wide mask, FourVectors const &a, FourVectors const &b) {
    return {select(mask, a.x, b.x), select(mask, a.y, b.y), select(mask, a.z, b.z)};
}

static_assert(XformParts::kAreSixteenNumbers);

/// Number k of the sixteen of each of four transforms, and the next.
VEXMATH_AVX2_STEP void loadTwo(mgXform_c const *forms, int k, Wide &first, Wide &second) {
    auto const *const p = reinterpret_cast<double const *>(forms) + k;
    Wide const even = _mm256_loadu2_m128d(p + 32, p), odd = _mm256_loadu2_m128d(p + 48, p + 16);
    first = _mm256_unpacklo_pd(even, odd);
    second = _mm256_unpackhi_pd(even, odd);
}
VEXMATH_AVX2_STEP void storeTwo(Wide first, Wide second, mgXform_c *forms, int k) {
    auto *const p = reinterpret_cast<double *>(forms) + k;
    _mm256_storeu2_m128d(p + 32, p, _mm256_unpacklo_pd(first, second));
    _mm256_storeu2_m128d(p + 48, p + 16, _mm256_unpackhi_pd(first, second));
}

/// The rotations of four transforms.
struct FourRotations {
    VEXMATH_AVX2_STEP static FourRotations of(mgXform_c const *forms) {
        FourRotations m;
        loadTwo(forms, 0, m.r0.x, m.r0.y);
        loadTwo(forms, 2, m.r0.z, m.r1.x);
        loadTwo(forms, 4, m.r1.y, m.r1.z);
        loadTwo(forms, 6, m.r2.x, m.r2.y);
        Wide flags;
        loadTwo(forms, 8, m.r2.z, flags);
        return m;
    }
    /// The same rotation four times.
    VEXMATH_AVX2_STEP static FourRotations ofOne(mgXform_c const &form) {
        double const *const m = &form.rotation()[0];
        return {{all(m[0]), all(m[1]), all(m[2])},
                {all(m[3]), all(m[4]), all(m[5])},
                {all(m[6]), all(m[7]), all(m[8])}};
    }
    /// Clears the flags as well.
    VEXMATH_AVX2_STEP void store(mgXform_c *forms) const {
        storeTwo(r0.x, r0.y, forms, 0);
        storeTwo(r0.z, r1.x, forms, 2);
        storeTwo(r1.y, r1.z, forms, 4);
        storeTwo(r2.x, r2.y, forms, 6);
        storeTwo(r2.z, all(0.0), forms, 8);
    }

    /// May a flag have to be set? False, from two elements, means no.
    VEXMATH_AVX2_STEP bool mayBeIdentity() const {
        return isAny(areBoth(isNear(r0.x, all(1.0), kElementTolerance),
                             isNear(r1.y, all(1.0), kElementTolerance)));
    }

    /// Row vectors times these, each component summed from x to z.
    VEXMATH_AVX2_STEP FourVectors times(FourVectors const &v) const {
        return r0 * v.x + r1 * v.y + r2 * v.z;
    }
    /// The pass of `Rows::orthonormalised(false)`. Every second product needs the correction, which
    /// cannot be foretold. So it is always computed, and then selected.
    VEXMATH_AVX2_STEP FourRotations orthonormalised() const {
        Wide const one = all(1.0), half = all(0.5);
        Wide const e0 = one - dot(r0, r0), e1 = one - dot(r1, r1), e2 = one - dot(r2, r2);
        Wide const d01 = dot(r0, r1), d02 = dot(r0, r2), d12 = dot(r1, r2);
        Wide const error = absolute(d12) + absolute(d02) + absolute(d01) + absolute(e2)
                           + absolute(e0) + absolute(e1);
        Wide const isEnough = isBelow(error, all(kOrthonormalEnough));

        FourVectors const s0 = r0 * (one + e0 * half);
        FourVectors const s1 = r1 * (one + e1 * half) - s0 * d01;
        FourVectors s2 = cross(s0, s1);
        Wide const sign = areBoth(isBelow(dot(s2, r2), all(0.0)), all(-0.0));
        s2 = {_mm256_xor_pd(s2.x, sign), _mm256_xor_pd(s2.y, sign), _mm256_xor_pd(s2.z, sign)};
        return {select(isEnough, r0, s0), select(isEnough, r1, s1), select(isEnough, r2, s2)};
    }

    FourVectors r0, r1, r2;
};

/// The translations and scales of four transforms.
struct FourMoves {
    VEXMATH_AVX2_STEP static FourMoves of(mgXform_c const *forms) {
        FourMoves moves;
        loadTwo(forms, 10, moves.t.x, moves.t.y);
        loadTwo(forms, 12, moves.t.z, moves.scale);
        return moves;
    }
    /// The same four times.
    VEXMATH_AVX2_STEP static FourMoves ofOne(mgXform_c const &form) {
        mgVector_c const &t = form.translation();
        return {{all(t.x()), all(t.y()), all(t.z())}, all(form.scaling())};
    }
    VEXMATH_AVX2_STEP void store(mgXform_c *forms) const {
        storeTwo(t.x, t.y, forms, 10);
        storeTwo(t.z, scale, forms, 12);
    }

    /// These first, then b with its rotations.
    VEXMATH_AVX2_STEP FourMoves composed(FourRotations const &rotations, FourMoves const &b) const {
        Wide const isScaled = isBelow(all(kScaleTolerance), absolute(b.scale - all(1.0)));
        FourVectors moved = rotations.times(t) * select(isScaled, b.scale, all(1.0)) + b.t;
        Wide const zero = all(0.0);
        Wide const isNull = areBoth(areBoth(isNear(t.x, zero, vexmath::kLengthTolerance),
                                            isNear(t.y, zero, vexmath::kLengthTolerance)),
                                    isNear(t.z, zero, vexmath::kLengthTolerance));
        if (isAny(isNull)) moved = select(isNull, b.t, moved);
        return {moved, b.scale * scale};
    }

    FourVectors t;
    Wide scale;
};

} // namespace vexmath::detail

#endif

#endif
