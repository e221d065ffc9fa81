// SPDX-License-Identifier: MIT
// Quaternions: conversion from and to rotation matrices, spherical interpolation.

#include <vexmath/quaternion.h>

#include <algorithm>
#include <cmath>

int mgQuaternion_c::operator==(mgQuaternion_c q) const {
    /// Bound of the difference of two components that count as equal; strict.
    constexpr double kComponentTolerance = 1e-05;
    for (int i = 0; i < 4; ++i) {
        if (!(std::fabs((*this)[i] - q[i]) < kComponentTolerance)) return 0;
    }
    return 1;
}

// Method: K. Shoemake, Animating rotation with quaternion curves, 1985. It starts from the largest
// component, so the divisor is never small.
void mgQuaternion_c::matrixToQuat(mgMatrix_c const &m) {
    mgQuaternion_c &q = *this;
    double const trace = m(0, 0) + m(1, 1) + m(2, 2) + 1.0; // 4 w^2
    if (trace > 1.0) {
        double const r = std::sqrt(trace);
        double const f = 0.5 / r;
        q[0] = (m(2, 1) - m(1, 2)) * f;
        q[1] = (m(0, 2) - m(2, 0)) * f;
        q[2] = (m(1, 0) - m(0, 1)) * f;
        q[3] = r / 2.0;
        return;
    }
    int i = m(0, 0) < m(1, 1) ? 1 : 0;
    if (m(i, i) < m(2, 2)) i = 2;
    int const j = (i + 1) % 3;
    int const k = (i + 2) % 3;
    // r is at least 1: the diagonal sums to at most 0, and its element i is the largest.
    double const r = std::sqrt(m(i, i) - (m(k, k) + m(j, j)) + 1.0);
    double const f = 0.5 / r;
    q[i] = r / 2.0;
    q[j] = (m(i, j) + m(j, i)) * f;
    q[k] = (m(i, k) + m(k, i)) * f;
    q[3] = (m(k, j) - m(j, k)) * f;
}

void mgQuaternion_c::quatToMatrix(mgMatrix_c &m) const {
    double const x = (*this)[0];
    double const y = (*this)[1];
    double const z = (*this)[2];
    double const w = (*this)[3];
    double const x2 = 2.0 * x;
    double const y2 = 2.0 * y;
    double const z2 = 2.0 * z;
    double const xx = x * x2, xy = x * y2, xz = x * z2;
    double const yy = y * y2, yz = y * z2, zz = z * z2;
    double const wx = x2 * w, wy = y2 * w, wz = z2 * w;
    m = mgMatrix_c(mgUnitVector_c(1.0 - (zz + yy), xy - wz, xz + wy),
                   mgUnitVector_c(xy + wz, 1.0 - (zz + xx), yz - wx),
                   mgUnitVector_c(xz - wy, yz + wx, 1.0 - (yy + xx)));
}

void mgQuaternion_c::quatSlerp(mgQuaternion_c const &a, mgQuaternion_c const &b, double t) {
    /// Sine of the angle between a and b from which they are interpolated; bound included.
    constexpr double kSmallestSine = 1e-11;
    double const dot = a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3];
    double const theta = std::acos(std::min(std::fabs(dot), 1.0));
    double const sine = std::sin(theta);
    if (!(sine >= kSmallestSine)) {
        // QUIRK: quaternion.h, mgQuaternion_c::quatSlerp: when b = -a, the result is b unchanged
        // from t = 0.5 on. Expected: -b, as for other b with a negative dot product. Kept: callers
        // and stored data depend on it. (test: OppositeQuaternionsAreNotBlended)
        *this = t >= 0.5 ? b : a;
        return;
    }
    double const sign = dot >= 0.0 ? 1.0 : -1.0;
    double const k0 = std::sin((1.0 - t) * theta) / sine;
    double const k1 = sign * std::sin(t * theta) / sine;
    for (int i = 0; i < 4; ++i) (*this)[i] = k0 * a[i] + k1 * b[i];
}
