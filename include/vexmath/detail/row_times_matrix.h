// SPDX-License-Identifier: MIT
// A row vector times a matrix, and the test for the exact identity, which is not multiplied.

#include <vexmath/matrix.h> // before the guard: it includes this file after the class

#ifndef VEXMATH_DETAIL_ROW_TIMES_MATRIX_H
#define VEXMATH_DETAIL_ROW_TIMES_MATRIX_H

namespace vexmath::detail {

/// True when all elements except the first are exactly those of the identity.
VEXMATH_API VEXMATH_PURE bool endsLikeIdentity(mgMatrix_c const &m) noexcept;

/// True when the elements are exactly those of the identity. A rotation fails at the first.
inline bool isExactIdentity(mgMatrix_c const &m) {
    return m.element(0, 0) == 1.0 && endsLikeIdentity(m);
}

/// The elements of a matrix as values. A loop that rotates many points can keep them in registers;
/// elements in memory might change with every point that the loop writes.
struct Elements {
    Elements(mgMatrix_c const &m)
        : xx(m.element(0, 0)), xy(m.element(0, 1)), xz(m.element(0, 2)), yx(m.element(1, 0)),
          yy(m.element(1, 1)), yz(m.element(1, 2)), zx(m.element(2, 0)), zy(m.element(2, 1)),
          zz(m.element(2, 2)) {}

    double xx, xy, xz, yx, yy, yz, zx, zy, zz;
};

/// (x, y, z) as a row vector times m, each component summed from x to z.
inline mgVector_c rowTimes(double x, double y, double z, Elements const &m) {
    return {x * m.xx + y * m.yx + z * m.zx, x * m.xy + y * m.yy + z * m.zy,
            x * m.xz + y * m.yz + z * m.zz};
}

} // namespace vexmath::detail

#endif
