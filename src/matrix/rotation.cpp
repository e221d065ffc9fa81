// SPDX-License-Identifier: MIT
// Rotations: axis and angle of a matrix, matrix of an axis and an angle.

#include <vexmath/mg_matrix.h>
#include <vexmath/mg_vector.h>

#include "columns.h"

using vexmath::detail::axisOfIndex;
using vexmath::detail::column;
using vexmath::detail::largestOf;
using vexmath::detail::smallestOf;

namespace {

struct SineCosine {
    double sine;
    double cosine;
};

/// Sine and cosine, exact for an angle strictly closer than snapTol to a multiple of a quarter
/// turn.
SineCosine snapped(double angle, double snapTol) {
    if (snapTol > 0.0) {
        double r = std::fmod(angle, vexmath::kTwoPi);
        if (r < 0.0) r += vexmath::kTwoPi;
        if (r < snapTol || vexmath::kTwoPi - r < snapTol) return {0.0, 1.0};
        if (std::fabs(r - vexmath::kHalfPi) < snapTol) return {1.0, 0.0};
        if (std::fabs(r - vexmath::kPi) < snapTol) return {0.0, -1.0};
        if (std::fabs(r - vexmath::kThreeHalfPi) < snapTol) return {-1.0, 0.0};
    }
    return {std::sin(angle), std::cos(angle)};
}

} // namespace

// The axis is perpendicular to every column of M - I: a cross product of two of them.
mgUnitVector_c mgMatrix_c::getRotationAxis() const {
    /// Squared length from which a cross product is used; bound included.
    constexpr double kUsableSq = 1e-16;
    mgVector_c moved[3]; // columns of M - I
    for (int c = 0; c < 3; ++c) moved[c] = column(*this, c) - axisOfIndex(c);

    mgVector_c const across[3] = {moved[0] * moved[1], moved[1] * moved[2], moved[2] * moved[0]};
    int const best = largestOf(across[0].sqlen(), across[1].sqlen(), across[2].sqlen());
    if (across[best].sqlen() >= kUsableSq) return mg_Normalise(across[best]);

    // Close to the identity: the axis that moves least.
    int const still = smallestOf(moved[0].sqlen(), moved[1].sqlen(), moved[2].sqlen());
    return mg_Normalise(column(*this, still));
}

double mgMatrix_c::getRotationAngle(mgUnitVector_c const *axis) const {
    mgUnitVector_c const a = axis != nullptr ? *axis : getRotationAxis();
    // QUIRK: matrix.h, mgMatrix_c::getRotationAngle: the smallest component of the axis is found by
    // its signed value, so the angle about (0, 0, -1) is 0. Expected: the angle, from the component
    // of smallest absolute value. Kept: callers and stored data depend on it.
    // (test: AngleAboutANegativeAxisIsZero)
    int const k = smallestOf(a.x(), a.y(), a.z());
    mgVector_c const u = a * axisOfIndex(k);
    mgVector_c const w = a * column(*this, k);
    return std::atan2((u * w) % a, u % w);
}

mgMatrix_c mg_RotationMatrix(double angle, mgVector_c const &axis, double snapTol) {
    /// Angle in radians below which there is no rotation; strict.
    constexpr double kSmallestAngle = 1e-12;
    if (std::fabs(angle) < kSmallestAngle) return mgMatrix_c();
    mgUnitVector_c const a = mg_Normalise(axis);
    auto const [s, c] = snapped(angle, snapTol);
    double const x = a.x();
    double const y = a.y();
    double const z = a.z();
    double const t = 1.0 - c;

    // The lower triangle is the upper one minus the sine term twice, one subtraction after the
    // other: writing x y t - z s instead changes last bits.
    double const xs = x * s;
    double const ys = y * s;
    double const zs = z * s;
    double const m01 = x * y * t + zs;
    double const m02 = x * z * t - ys;
    double const m12 = y * z * t + xs;
    mgUnitVector_c const r0(x * x * t + c, m01, m02);
    mgUnitVector_c const r1(m01 - zs - zs, y * y * t + c, m12);
    mgUnitVector_c const r2(m02 + ys + ys, m12 - xs - xs, z * z * t + c);
    return mgMatrix_c(r0, r1, r2);
}
