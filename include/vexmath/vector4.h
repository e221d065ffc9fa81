// SPDX-License-Identifier: MIT
// mgVector4_c: a homogeneous vector.

#ifndef VEXMATH_VECTOR4_H
#define VEXMATH_VECTOR4_H

#include <vexmath/detail/operand_traits.h>
#include <vexmath/point.h>

/// A homogeneous vector (x, y, z, w) of four doubles. A point or vector becomes (x, y, z, 1).
class mgVector4_c {
public:
    constexpr mgVector4_c() = default; ///< (0, 0, 0, 1)
    constexpr mgVector4_c(double x, double y, double z, double w) : xyzw_{x, y, z, w} {}
    mgVector4_c(mgVector_c v) : xyzw_{v.x(), v.y(), v.z(), 1.0} {}
    mgVector4_c(mgPoint_c const &p) : mgVector4_c(mgVector_c(p)) {}
    /// REQUIRES four readable doubles.
    mgVector4_c(double const *xyzw) : xyzw_{xyzw[0], xyzw[1], xyzw[2], xyzw[3]} {}
    template <class N, vexmath::detail::IfNumber<N> = 0>
    mgVector4_c(N) = delete;
    explicit mgVector4_c(mg2DPoint_c const &) = delete;

    /// 0 to 3 for x, y, z, w. REQUIRES an index in that range.
    double &operator[](int i) { return xyzw_[i]; }
    double const &operator[](int i) const { return xyzw_[i]; }

    /// (x/w, y/w, z/w). w is not checked: 0 gives infinity or NaN.
    mgVector_c getVector3() const {
        return {xyzw_[0] / xyzw_[3], xyzw_[1] / xyzw_[3], xyzw_[2] / xyzw_[3]};
    }

private:
    double xyzw_[4] = {0.0, 0.0, 0.0, 1.0};
};

#endif
