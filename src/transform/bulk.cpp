// SPDX-License-Identifier: MIT
// Transformation of arrays of points, products of arrays of transforms: what depends on one
// transform alone is decided once.

#include <vexmath/bulk.h>
#include <vexmath/xform.h>

#include "simd/four_points.h"
#include "transform/four_forms.h"

namespace {

using vexmath::detail::moved;
using vexmath::detail::scales;

/// The loop, with the decisions about the transform as constants.
template <bool kRotates, bool kScales>
void placeOneByOne(mgPoint_c *points, int count, mgXform_c const &x) {
    // Copies, because the compiler must assume that a write to a point may change x. A scale of 1
    // changes no product.
    vexmath::detail::Elements const rotation = x.rotation();
    double const scale = scales(x.scaling()) ? x.scaling() : 1.0;
    mgVector_c const by = x.translation();
    for (int i = 0; i < count; ++i) {
        mgVector_c v = points[i];
        if (kRotates) v = vexmath::detail::rowTimes(v.x(), v.y(), v.z(), rotation);
        if (kScales) v *= scale;
        points[i].set(moved(v.x(), by.x()), moved(v.y(), by.y()), moved(v.z(), by.z()));
    }
}

#if defined(VEXMATH_AVX2)

using vexmath::detail::FourPoints;
using vexmath::detail::loadFour;
using vexmath::detail::storeFour;

/// The operands of one coordinate: a column of the rotation, the scale, minus a translation
/// component.
struct Column {
    __m256d x, y, z, scale, back;
};

VEXMATH_AVX2 inline Column columnOf(mgXform_c const &form, int j) {
    mgMatrix_c const &m = form.rotation();
    return {_mm256_set1_pd(m.element(0, j)), _mm256_set1_pd(m.element(1, j)),
            _mm256_set1_pd(m.element(2, j)), _mm256_set1_pd(form.scaling()),
            _mm256_set1_pd(0.0 - form.translation().component(j))};
}

template <bool kScales>
VEXMATH_AVX2 inline __m256d placed(FourPoints const &p, Column const &to) {
    __m256d const xy = _mm256_add_pd(_mm256_mul_pd(p.x, to.x), _mm256_mul_pd(p.y, to.y));
    __m256d sum = _mm256_add_pd(xy, _mm256_mul_pd(p.z, to.z));
    if (kScales) sum = _mm256_mul_pd(sum, to.scale);
    return _mm256_sub_pd(sum, to.back);
}

/// Rotates, scales if kScales, and translates all points but up to three at the end. Returns how
/// many.
template <bool kScales>
VEXMATH_AVX2 int placeByFour(mgPoint_c *points, int count, mgXform_c const &form) {
    Column const x = columnOf(form, 0), y = columnOf(form, 1), z = columnOf(form, 2);
    int done = 0;
    for (; count - done >= 4; done += 4) {
        FourPoints const p = loadFour(points + done);
        storeFour({placed<kScales>(p, x), placed<kScales>(p, y), placed<kScales>(p, z)},
                  points + done);
    }
    return done;
}

#endif

/// Places points in groups of four if the processor can. Returns how many.
int placeByFour([[maybe_unused]] mgPoint_c *points, [[maybe_unused]] int count,
                [[maybe_unused]] mgXform_c const &x) {
#if defined(VEXMATH_AVX2)
    if (vexmath::detail::hasSimd())
        return scales(x.scaling()) ? placeByFour<true>(points, count, x)
                                   : placeByFour<false>(points, count, x);
#endif
    return 0;
}

#if defined(VEXMATH_AVX2)

using vexmath::detail::FourMoves;
using vexmath::detail::FourRotations;

/// Does `x *= by` multiply by the elements of `by` and no record?
bool isOrdinary(mgXform_c const &by) {
    return by.rotate() && !by.hasPerspective() && !vexmath::detail::isExactIdentity(by.rotation());
}

/// The factor of four products.
struct FourFactors {
    FourRotations rotations;
    FourMoves moves;
};

/// Multiplies four rotations, translations and scales. False, with nothing changed, when a flag may
/// have to be set. REQUIRES ordinary factors.
VEXMATH_AVX2_STEP bool multiplyFour(mgXform_c *xforms, FourFactors const &by) {
    FourRotations const left = FourRotations::of(xforms);
    FourRotations const &right = by.rotations;
    FourRotations const product{right.times(left.r0), right.times(left.r1), right.times(left.r2)};
    FourRotations const result = product.orthonormalised();
    if (result.mayBeIdentity()) return false;
    result.store(xforms);
    FourMoves::of(xforms).composed(right, by.moves).store(xforms);
    return true;
}

/// The reflection flags of four products. The factors are `by` and every step-th transform behind.
inline void composeReflections(mgXform_c *xforms, mgXform_c const *by, int step) {
    int any = 0;
    for (int i = 0; i < 4; ++i) any |= xforms[i].isReflection() | by[i * step].isReflection();
    if (any == 0) return;
    for (int i = 0; i < 4; ++i) {
        bool const isReflection = xforms[i].isReflection() != 0;
        xforms[i].setReflection(isReflection != (by[i * step].isReflection() != 0));
    }
}

/// Multiplies transforms in groups of four, all but up to three at the end. Returns how many.
/// REQUIRES that `by` is ordinary.
VEXMATH_AVX2 int multiplyByFour(mgXform_c *xforms, int n, mgXform_c const &by) {
    FourFactors const factors{FourRotations::ofOne(by), FourMoves::ofOne(by)};
    int done = 0;
    for (; n - done >= 4; done += 4) {
        mgXform_c *const group = xforms + done;
        if (multiplyFour(group, factors)) {
            composeReflections(group, &by, 0);
        } else {
            for (int i = 0; i < 4; ++i) group[i] *= by;
        }
    }
    return done;
}

/// The same for one factor each, of any kind.
VEXMATH_AVX2 int multiplyByFour(mgXform_c *xforms, int n, mgXform_c const *by) {
    int done = 0;
    for (; n - done >= 4; done += 4, by += 4) {
        mgXform_c *const group = xforms + done;
        bool const areOrdinary =
            isOrdinary(by[0]) && isOrdinary(by[1]) && isOrdinary(by[2]) && isOrdinary(by[3]);
        if (areOrdinary && multiplyFour(group, {FourRotations::of(by), FourMoves::of(by)})) {
            composeReflections(group, by, 1);
        } else {
            for (int i = 0; i < 4; ++i) group[i] *= by[i];
        }
    }
    return done;
}

#endif

} // namespace

void mg_TransformPoints(mgPoint_c *points, int count, mgXform_c const &x) {
    if (x.hasPerspective()) {
        for (int i = 0; i < count; ++i) points[i] *= x;
    } else if (vexmath::detail::isExactIdentity(x.rotation())) {
        placeOneByOne<false, true>(points, count, x);
    } else {
        int const done = placeByFour(points, count, x);
        auto const place =
            scales(x.scaling()) ? placeOneByOne<true, true> : placeOneByOne<true, false>;
        if (done < count) place(points + done, count - done, x);
    }
}

void mg_MultiplyXforms(mgXform_c *xforms, int n, mgXform_c const &by) {
    int done = 0;
#if defined(VEXMATH_AVX2)
    if (vexmath::detail::hasSimd() && isOrdinary(by)) done = multiplyByFour(xforms, n, by);
#endif
    for (; done < n; ++done) xforms[done] *= by;
}

void mg_MultiplyXforms(mgXform_c *xforms, int n, mgXform_c const *by) {
    int done = 0;
#if defined(VEXMATH_AVX2)
    if (vexmath::detail::hasSimd()) done = multiplyByFour(xforms, n, by);
#endif
    for (; done < n; ++done) xforms[done] *= by[done];
}
