// SPDX-License-Identifier: MIT
// Vectors in the registers that every x86-64 processor has.

#ifndef VEXMATH_DETAIL_PACKED_H
#define VEXMATH_DETAIL_PACKED_H

#include <vexmath/vector.h>

#if defined(__x86_64__) || defined(_M_X64)
#include <emmintrin.h>
#endif

namespace vexmath::detail {

inline double larger(double a, double b) { return a < b ? b : a; }

#if defined(__x86_64__) || defined(_M_X64)

/// A vector whose x and y share a register: an operation takes two instructions instead of three,
/// and gives the bits of `mgVector_c`.
struct Packed {
    explicit Packed(double const *xyz) : firstTwo(_mm_loadu_pd(xyz)), last(xyz[2]) {}
    Packed(__m128d xy, double z) : firstTwo(xy), last(z) {}

    double x() const { return _mm_cvtsd_f64(firstTwo); }
    double y() const { return _mm_cvtsd_f64(_mm_unpackhi_pd(firstTwo, firstTwo)); }
    double z() const { return last; }
    double sqlen() const {
        Packed const squares(_mm_mul_pd(firstTwo, firstTwo), last * last);
        return squares.x() + squares.y() + squares.z();
    }

    __m128d firstTwo;
    double last;
};

inline Packed operator-(Packed const &a, Packed const &b) {
    return {_mm_sub_pd(a.firstTwo, b.firstTwo), a.last - b.last};
}

inline Packed larger(Packed const &a, Packed const &b) {
    // In this order: when two numbers do not compare, _mm_max_pd returns the second.
    return {_mm_max_pd(b.firstTwo, a.firstTwo), larger(a.last, b.last)};
}

inline bool between(Packed const &low, Packed const &p, Packed const &high) {
    __m128d const notBelow = _mm_cmple_pd(low.firstTwo, p.firstTwo);
    __m128d const notAbove = _mm_cmple_pd(p.firstTwo, high.firstTwo);
    return low.last <= p.last && p.last <= high.last
           && _mm_movemask_pd(_mm_and_pd(notBelow, notAbove)) == 0b11;
}

#else // the same, one coordinate at a time

using Packed = mgVector_c;

inline Packed larger(Packed const &a, Packed const &b) {
    return {larger(a.x(), b.x()), larger(a.y(), b.y()), larger(a.z(), b.z())};
}

inline bool between(Packed const &low, Packed const &p, Packed const &high) {
    return low.x() <= p.x() && p.x() <= high.x() && low.y() <= p.y() && p.y() <= high.y()
           && low.z() <= p.z() && p.z() <= high.z();
}

#endif

} // namespace vexmath::detail

#endif
