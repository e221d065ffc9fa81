// SPDX-License-Identifier: MIT
// Bounds of placed boxes.

#include "clash_bounds.h"

#include "matrix/rows.h"

namespace vexmath::detail {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// True for a similarity that acts by its elements: the scale is between 0.001 and 1000, bounds
/// excluded, there is no perspective record, the identity flag is not stale, and the rotation is
/// orthonormal within 1e-09.
bool isSimilarity(mgXform_c const &x) {
    constexpr double kLeastScale = 1e-03;
    constexpr double kMostScale = 1e03;
    constexpr double kNearlyOrthonormal = 1e-09; // strict
    return x.scaling() > kLeastScale && x.scaling() < kMostScale && !x.hasPerspective()
           && (x.rotate() || isExactIdentity(x.rotation()))
           && Rows::of(&x.rotation()[0]).error() < kNearlyOrthonormal;
}

/// Does a nearly orthonormal matrix map axes to axes? Then its elements are 0, 1 or -1, within
/// 1e-09, and in each row one is not 0.
bool isByQuarters(mgMatrix_c const &rotation) {
    constexpr double kNearly = 1e-09; // strict
    int zeros = 0;
    for (int k = 0; k < 9; ++k) zeros += static_cast<int>(std::fabs(rotation[k]) < kNearly);
    return zeros == 6;
}

double sumOfSizes(double x, double y, double z) {
    return std::fabs(x) + std::fabs(y) + std::fabs(z);
}

double sumOfSizes(mgPoint_c const &p) { return sumOfSizes(p.x(), p.y(), p.z()); }

} // namespace

PlacedBounds::PlacedBounds(mgBBox_c const &box, mgXform_c const &x)
    : low{-kInfinity, -kInfinity, -kInfinity}, high{kInfinity, kInfinity, kInfinity},
      radius(kInfinity) {
    constexpr double kMarginOfLengths = 1e-06;
    constexpr double kMarginOfUnits = 1e-07;
    constexpr double kMostLengths = 1e100; // so that no square overflows; strict
    if (!isSimilarity(x)) return;
    double const scale = x.scaling();
    mgMatrix_c const &m = x.rotation();
    mgVector_c const &t = x.translation();
    mgPoint_c const lowest = box.low(), highest = box.high(), sphere = box.sphCenter();
    double const lengths =
        scale * (sumOfSizes(sphere) + sumOfSizes(lowest) + sumOfSizes(highest) + box.sphRadius())
        + sumOfSizes(t);
    if (!(lengths < kMostLengths)) return;

    margin = kMarginOfLengths * lengths + kMarginOfUnits * (1.0 + scale);
    radius = scale * box.sphRadius() + margin;
    isAligned = isByQuarters(m);
    mgPoint_c const middle = box.center();
    mgVector_c const half = highest - middle;
    for (int i = 0; i < 3; ++i) {
        mgVector_c const column(m(0, i), m(1, i), m(2, i));
        double const at = scale * (mgVector_c(middle) % column) + t[i];
        double const reach =
            scale * sumOfSizes(half.x() * column.x(), half.y() * column.y(), half.z() * column.z())
            + margin;
        centre[i] = scale * (mgVector_c(sphere) % column) + t[i];
        low[i] = std::max(at - reach, centre[i] - radius);
        high[i] = std::min(at + reach, centre[i] + radius);
    }
}

} // namespace vexmath::detail
