// SPDX-License-Identifier: MIT
// The steps of rows.h in AVX2 registers, with the same bits; writing rows to a matrix.

#ifndef VEXMATH_SRC_SIMD_WIDE_ROWS_H
#define VEXMATH_SRC_SIMD_WIDE_ROWS_H

#include "matrix/rows.h"
#include "simd/wide_vector.h"

#if defined(VEXMATH_AVX2)

namespace vexmath::detail {

/// Writes the elements of m and clears its flag.
VEXMATH_AVX2_STEP void storeRows(WideRows const &rows, mgMatrix_c &m) {
    _mm256_storeu_pd(&m[0], rows.r0); // the next row overwrites the fourth lane
    _mm256_storeu_pd(&m[3], rows.r1);
    store(rows.r2, &m[6]);
    Rows::clearFlag(m);
}

VEXMATH_AVX2_STEP Wide cross(Wide a, Wide b) { return turned(a * turned(b) - turned(a) * b); }

/// The pass of `Rows::orthonormalised(false)`. REQUIRES the columns of the same matrix as well.
VEXMATH_AVX2_STEP WideRows orthonormalised(WideRows const &rows, WideRows const &columns) {
    WideRows const next = {turned(columns.r0), turned(columns.r1), turned(columns.r2)};
    Wide const e = all(1.0) - dots(columns, columns); // 0, 1, 2
    Wide const d = dots(columns, next);               // 01, 12, 20
    Wide const length = absolute(e), angle = absolute(d);
    double const error =
        lane1(angle) + lane2(angle) + lane0(angle) + lane2(length) + lane0(length) + lane1(length);
    if (error < kOrthonormalEnough) return rows;

    Wide const factor = all(1.0) + e * all(0.5);
    Wide const s0 = rows.r0 * all<0>(factor);
    Wide const s1 = rows.r1 * all<1>(factor) - all<0>(d) * s0;
    Wide const s2 = cross(s0, s1);
    return {s0, s1, sum(s2 * rows.r2) < 0.0 ? opposite(s2) : s2};
}

} // namespace vexmath::detail

#endif

#endif
