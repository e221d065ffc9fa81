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

/// One of the ten doubles: sphere centre, high corner, low corner, radius.
inline double doubleOf(mgBBox_c const &box, int k) {
    double all[10];
    std::memcpy(all, &box, sizeof all);
    return all[k];
}

/// The box with one of its ten doubles replaced.
inline mgBBox_c withDouble(mgBBox_c box, int k, double value) {
    std::memcpy(reinterpret_cast<char *>(&box) + 8 * k, &value, 8);
    return box;
}

/// The two-point box of (low, low, low) and (high, high, high).
inline mgBBox_c cube(double low, double high) { return {P(low, low, low), P(high, high, high)}; }

inline ::testing::AssertionResult bitsEqual(char const *aText, char const *bText, mgBBox_c const &a,
                                            mgBBox_c const &b) {
    auto result = ::testing::AssertionSuccess();
    for (int k = 0; k < 10 && result; ++k)
        result = bitsEqual(aText, bText, doubleOf(a, k), doubleOf(b, k));
    return result;
}

} // namespace common

#endif
