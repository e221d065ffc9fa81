// SPDX-License-Identifier: MIT
// Tests of interop/numbers.h: which numbers are a transform, and what comes back to the bit.

#include <vexmath/interop/numbers.h>

#include "common/geometry.h"

namespace {

using Numbers = std::array<double, 16>;

/// Numbers with the images of the axes along the axes.
Numbers diagonal(double a, double b, double c) {
    return {a, 0, 0, 0, 0, b, 0, 0, 0, 0, c, 0, 3, -4, 5, 1};
}

Numbers with(Numbers n, int at, double value) {
    n[static_cast<std::size_t>(at)] = value;
    return n;
}

constexpr double refused = 0.0;

/// The scale of the transform, if the numbers are one.
void CheckScale(double scale, Numbers const &n, Caller = {}) {
    auto const x = vexmath::xformOf(n.data());
    EXPECT_BITS_EQ(scale, x ? x->scaling() : refused);
    if (!x) return;
    EXPECT_BITS_EQ(V(3, -4, 5), x->translation());
}

} // namespace

TEST(InteropNumbers, OnlySimilaritiesAreTransforms) {
    Numbers const unit = diagonal(1, 1, 1);
    CheckScale(1.0, unit), CheckScale(1.0, with(unit, 3, -0.0));
    for (int const at : {3, 7, 11, 15}) CheckScale(refused, with(unit, at, kTiny));
    for (int const at : {0, 1, 6, 10})
        for (double const bad : {kNaN, kInfinity, 1e200}) CheckScale(refused, with(unit, at, bad));

    // Dot products, then lengths, relative to the first squared length.
    for (double const sign : {1.0, -1.0}) {
        CheckScale(2.0, with(diagonal(2, 2, 2), 4, sign * 2e-8));
        CheckScale(refused, with(diagonal(2, 2, 2), 4, sign * above(2e-8)));
    }
    CheckScale(2.0, diagonal(2, 2.000000009, 2));
    CheckScale(refused, diagonal(2, 2.000000011, 2));
    CheckScale(refused, diagonal(2, 2, 1.999999989));

    auto const check = [](double scale, double a, Caller = {}) {
        CheckScale(scale, diagonal(a, a, a));
    };
    check(refused, 0), check(refused, 6e12), check(5e12, 5e12), check(refused, 1e-13);
    check(1.0, 1.00000001), check(1.00000002, 1.00000002);
}

TEST(InteropNumbers, TheScaleIsAppliedAsForPoints) {
    auto const first = [](double scale) {
        return vexmath::numbersOf(raw({}, V(1e-9, 2, 3), scale))[0];
    };
    for (double const ignored : {1.0 + 5e-9, 1.0 - 5e-9, kNaN}) EXPECT_EQ(1.0, first(ignored));
    for (double const applied : {1.0 + 2e-8, 0.5, -3.0}) EXPECT_EQ(applied, first(applied));
}

TEST(InteropNumbers, DirectionsAreNormalisedUnlessTheyAre) {
    EXPECT_BITS_EQ(U(0, 0, 1), vexmath::directionOf(0, 0, 7));
    EXPECT_BITS_EQ(U(), vexmath::directionOf(1e-9, 0, 0));
    EXPECT_BITS_EQ(U(), vexmath::directionOf(kNaN, 0, 1));
}
