// SPDX-License-Identifier: MIT
// Access to the ten doubles of a box, for tests that need more than its queries show.

#ifndef VEXMATH_TESTS_BOUNDS_BOXES_H
#define VEXMATH_TESTS_BOUNDS_BOXES_H

#include "common/geometry.h"

namespace common {

inline mgBBox_c boxOf(P const &centre, double r, P const &low, P const &high) {
    mgBBox_c box;
    box.setSphereOnly(centre, r);
    box.setCornersOnly(low, high);
    return box;
}

/// The box with one of its ten doubles replaced: sphere centre, high corner, low corner, radius.
inline mgBBox_c withDouble(mgBBox_c box, int k, double value) {
    std::memcpy(reinterpret_cast<char *>(&box) + 8 * k, &value, 8);
    return box;
}

/// The two-point box of (low, low, low) and (high, high, high).
inline mgBBox_c cube(double low, double high) { return {P(low, low, low), P(high, high, high)}; }

inline ::testing::AssertionResult bitsEqual(char const *aText, char const *bText, mgBBox_c const &a,
                                            mgBBox_c const &b) {
    double x[10], y[10];
    std::memcpy(x, &a, sizeof x), std::memcpy(y, &b, sizeof y);
    auto result = ::testing::AssertionSuccess();
    for (int k = 0; k < 10 && result; ++k) result = bitsEqual(aText, bText, x[k], y[k]);
    return result;
}

} // namespace common

#endif
