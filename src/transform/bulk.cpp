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

/// Composes the flags of four transforms that are not all 0.
inline void composeReflections(mgXform_c *a, mgXform_c const &b0, mgXform_c const &b1,
                               mgXform_c const &b2, mgXform_c const &b3) {
    int const left =
        a[0].isReflection() | a[1].isReflection() | a[2].isReflection() | a[3].isReflection();
    int const right = b0.isReflection() | b1.isReflection() | b2.isReflection() | b3.isReflection();
    if ((left | right) == 0) return;
    mgXform_c const *const by[] = {&b0, &b1, &b2, &b3};
    for (int i = 0; i < 4; ++i)
        a[i].setReflection((a[i].isReflection() != 0) != (by[i]->isReflection() != 0));
}

/// The factor of four products.
struct FourFactors {
    FourRotations rotations;
    FourMoves moves;
};

/// Multiplies four rotations, translations and scales. False, with nothing changed, when a flag may
/// have to be set. REQUIRES factors that multiply by their elements and have no record.
VEXMATH_AVX2_STEP bool multiplyFour(mgXform_c *xforms, FourFactors const &by) {
    FourRotations const left = FourRotations::of(xforms);
    FourRotations const &right = by.rotations;
    FourRotations const product{right.times(left.r0), right.times(left.r1), right.times(left.r2),
                                left.flag};
    FourRotations const result = product.orthonormalised();
    if (result.mayBeIdentity()) return false;
    result.store(xforms);
    FourMoves::of(xforms).composed(right, by.moves).store(xforms);
    return true;
}

/// Multiplies transforms in groups of four, all but up to three at the end. Returns how many.
/// REQUIRES that `by` multiplies by its elements and has no record.
VEXMATH_AVX2 int multiplyByFour(mgXform_c *xforms, int n, mgXform_c const &by) {
    FourFactors const factors{FourRotations::ofOne(by), FourMoves::ofOne(by)};
    int done = 0;
    for (; n - done >= 4; done += 4) {
        mgXform_c *const group = xforms + done;
        if (multiplyFour(group, factors)) {
            composeReflections(group, by, by, by, by);
        } else {
            for (int i = 0; i < 4; ++i) group[i] *= by;
        }
    }
    return done;
}

/// The same for one factor each, of any kind.
VEXMATH_AVX2 int multiplyByFour(mgXform_c *xforms, int n, mgXform_c const *by) {
    int done = 0;
    for (; n - done >= 4; done += 4) {
        mgXform_c *const group = xforms + done;
        mgXform_c const *const b = by + done;
        bool const isOrdinary = (b[0].rotate() && b[1].rotate() && b[2].rotate() && b[3].rotate())
                                && !(b[0].hasPerspective() || b[1].hasPerspective()
                                     || b[2].hasPerspective() || b[3].hasPerspective());
        FourFactors const factors{FourRotations::of(b), FourMoves::of(b)};
        if (isOrdinary && !factors.rotations.hasUnitDiagonal() && multiplyFour(group, factors)) {
            composeReflections(group, b[0], b[1], b[2], b[3]);
        } else {
            for (int i = 0; i < 4; ++i) group[i] *= b[i];
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
    bool const isOrdinary =
        by.rotate() && !by.hasPerspective() && !vexmath::detail::isExactIdentity(by.rotation());
    if (isOrdinary && vexmath::detail::hasSimd()) done = multiplyByFour(xforms, n, by);
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
