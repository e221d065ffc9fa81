// SPDX-License-Identifier: MIT
// Real roots of quadratics and cubics.

#include "support/numbers.h"

#include <vexmath/mg_matrix.h>

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

namespace {

using support::sameBits;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double untouched = -777.0;

double below(double value) { return std::nextafter(value, -infinity); }
double above(double value) { return std::nextafter(value, infinity); }

void CheckQuadratic(double a, double b, double c, std::vector<double> const &expected) {
    SCOPED_TRACE(::testing::Message() << a << " x^2 + " << b << " x + " << c);
    double roots[3] = {untouched, untouched, untouched};
    std::size_t const count = static_cast<std::size_t>(mg_solveQuadratic(a, b, c, roots));
    ASSERT_EQ(expected.size(), count);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(i < count ? expected[i] : untouched, roots[i]);
}

TEST(Roots, OfAQuadraticAreNotSorted) {
    CheckQuadratic(1, -3, 2, {1, 2});
    CheckQuadratic(-1, 0, 1, {1, -1});
    CheckQuadratic(1, -2, 1, {1, 1});
    CheckQuadratic(1, 0, 1, {});
    double const d = 1e-13; // exact from c, a quarter of it
    CheckQuadratic(1, 0, -d / 4, {-std::sqrt(d) / 2, std::sqrt(d) / 2});
    CheckQuadratic(1, 0, below(d) / -4, {0, 0});
    CheckQuadratic(1, 0, d / 4, {0, 0});
    CheckQuadratic(1, 0, above(d) / 4, {});
    CheckQuadratic(1, nan, 1, {});
    CheckQuadratic(infinity, infinity, infinity, {});
}

TEST(Roots, OfAVanishingLeadingCoefficientAreThoseOfTheLine) {
    CheckQuadratic(0, 2, -6, {3});
    CheckQuadratic(below(1e-13), -1, 1, {1});
    CheckQuadratic(1e-13, 1, 0, {-2 * (0.5 / 1e-13), 0});
    CheckQuadratic(0, below(1e-13), 1, {});
    CheckQuadratic(0, -1e-13, 1e-13, {1});
}

void CheckOlder(double a, double b, double c, double disc, double root1, double root2) {
    SCOPED_TRACE(::testing::Message() << a << " x^2 + " << b << " x + " << c);
    double got[3] = {untouched, untouched, untouched};
    mgSolveQuadratic(a, b, c, &got[0], &got[1], &got[2]);
    EXPECT_BITS_EQ(disc, got[0]);
    EXPECT_EQ(root1, got[1]);
    EXPECT_EQ(root2, got[2]);
}

TEST(Roots, OfTheOlderQuadraticAreSorted) {
    CheckOlder(1, -3, 2, 1, 1, 2);
    CheckOlder(-1, 0, 1, 4, -1, 1);
    CheckOlder(1, 0, 1, -4, untouched, untouched);
    CheckOlder(1, 0, -1e-16 / 4, 1e-16, -5e-9, 5e-9);
    CheckOlder(1, 0, below(1e-16) / -4, below(1e-16), 0, 0);
    CheckOlder(0, 2, -6, 4, 3, 3);
    CheckOlder(below(1e-8), 1, 0, 1, 0, 0);
    CheckOlder(1e-8, 1, 0, 1, -1e8, 0);
    CheckOlder(0, below(1e-8), 1, -1, untouched, untouched);
    CheckOlder(0, -1e-8, 1e-8, 1e-8 * 1e-8, 1, 1);
    CheckOlder(1, nan, 1, nan, untouched, untouched);
}

void CheckCubic(double a, double b, double c, double d, std::vector<double> const &expected,
                double bound = 0.0) {
    SCOPED_TRACE(::testing::Message() << a << " " << b << " " << c << " " << d);
    double roots[3] = {untouched, untouched, untouched};
    std::size_t const count = static_cast<std::size_t>(mg_solveCubic(a, b, c, d, roots));
    ASSERT_EQ(expected.size(), count);
    for (std::size_t i = 0; i < count; ++i) EXPECT_NEAR(expected[i], roots[i], bound);
}

TEST(Roots, OfACubicAreSorted) {
    CheckCubic(1, -6, 11, -6, {1, 2, 3}, 1e-12);
    CheckCubic(-2, 12, -22, 12, {1, 2, 3}, 1e-12);
    CheckCubic(1, 0, 0, -8, {2}, 1e-13);
    CheckCubic(1, -4, 5, -2, {1, 1, 2}, 1e-15); // a critical point is a root
    CheckCubic(1, -5, 8, -4, {1, 2, 2}, 1e-15);
    CheckCubic(1, 0, 0, 0, {0, 0, 0});
    CheckCubic(below(1e-13), 1, -3, 2, {1, 2});
    CheckCubic(0, 0, 2, -6, {3});
    CheckCubic(1, 0, 0, -1e9, {1000}, 1e-12); // outside [-1, 1]
}

TEST(Roots, OfWellSeparatedFactorsAreFound) {
    support::Random random;
    for (int i = 0; i < 2000; ++i) {
        double const x[3] = {random.uniform(-4, -1), random.uniform(-0.5, 0.5),
                             random.uniform(1, 4)};
        double const a = random.ofMagnitude(-0.5, 0.5);
        CheckCubic(a, -a * (x[0] + x[1] + x[2]), a * (x[0] * x[1] + x[0] * x[2] + x[1] * x[2]),
                   -a * x[0] * x[1] * x[2], {x[0], x[1], x[2]}, 1e-12);
    }
}

// Halving [-1, 1] some fifty times gives multiples of 2^-60; a secant does not.
TEST(Roots, AFallingCubicIsHalvedAtEveryStep) {
    auto const isMultiple = [](double sign) {
        double root;
        EXPECT_EQ(1, mg_solveCubic(sign, 0, sign, -0.7 * sign, &root));
        EXPECT_NEAR(root * root * root + root, 0.7, 1e-12);
        double const scaled = std::ldexp(root, 48);
        return scaled == std::floor(scaled);
    };
    EXPECT_TRUE(isMultiple(-1));
    EXPECT_FALSE(isMultiple(1));
}

/// The search as it is laid down, without leaving out steps that move nothing.
double searchedInFull(double a, double b, double c, double d) {
    auto const f = [=](double x) { return ((a * x + b) * x + c) * x + d; };
    double high = 1, low = -1;
    while (f(low) * f(high) > 0) high *= 3, low *= 3;
    double atHigh = f(high), atLow = f(low);
    for (int k = 1; k <= 101; ++k) {
        double const width = high - low;
        if (width <= 1e-13 && std::fabs(atHigh) + std::fabs(atLow) <= 1e-13) break;
        double middle = (low + high) / 2;
        if (atHigh - atLow > 1e-13 && k % 2 == 1) {
            double const inset = width >= 3e-10 ? 1e-10 : 0.0;
            middle = (atHigh * low - atLow * high) / (atHigh - atLow);
            middle = std::clamp(middle, low + inset, high - inset);
        }
        double const value = f(middle);
        (atHigh * value > 0 ? high : low) = middle;
        (middle == high ? atHigh : atLow) = value;
    }
    return std::fabs(atHigh) < std::fabs(atLow) ? high : low;
}

TEST(Roots, SearchGivesTheBitsOfTheFullSearch) {
    support::Random random;
    int compared = 0;
    for (int i = 0; i < 3000; ++i) {
        double const reach = i % 3 == 0 ? 0.0 : 6.0;
        double const a = random.ofMagnitude(-reach, reach), b = random.ofMagnitude(-reach, reach);
        double const c = random.ofMagnitude(-reach, reach), d = random.ofMagnitude(-reach, reach);
        double roots[3];
        if (mg_solveCubic(a, b, c, d, roots) != 1) continue;
        ++compared;
        ASSERT_BITS_EQ(searchedInFull(a, b, c, d), roots[0]);
    }
    EXPECT_GT(compared, 1000);
}

TEST(Roots, EveryHostileEquationEnds) {
    for (double a : support::hostileValues) {
        for (double b : support::hostileValues) {
            for (double c : support::hostileValues) {
                double roots[3] = {0, 0, 0}, disc;
                EXPECT_LE(mg_solveQuadratic(a, b, c, roots), 2);
                mgSolveQuadratic(a, b, c, &disc, roots, roots + 1);
                mg_GoodEqu3(a, b, c, roots);
                for (double d : {0.0, -1.0, 1e-17, 1e155, -1e308, infinity, nan})
                    EXPECT_LE(mg_solveCubic(a, b, c, d, roots), 3);
            }
        }
    }
}

void CheckGood(double a, double b, double c, mg_GoodEqu3Status status, double r0 = untouched,
               double r1 = untouched, double r2 = untouched) {
    SCOPED_TRACE(::testing::Message() << a << " " << b << " " << c);
    double roots[3] = {untouched, untouched, untouched};
    EXPECT_EQ(status, mg_GoodEqu3(a, b, c, roots));
    EXPECT_NEAR(r0, roots[0], 1e-13);
    EXPECT_NEAR(r1, roots[1], 1e-13);
    EXPECT_NEAR(r2, roots[2], 1e-13);
}

TEST(Roots, OfACharacteristicCubicDescend) {
    CheckGood(6, 11, 6, mgGoodEqu3_ThreeRoots, 3, 2, 1);
    CheckGood(3, 3, 1, mgGoodEqu3_TripleRoot, 1, 1, 1);
    CheckGood(4, 5, 2, mgGoodEqu3_LowerPairEqual, 2, 1, 1);
    CheckGood(5, 8, 4, mgGoodEqu3_UpperPairEqual, 2, 2, 1);
    CheckGood(3, 3, 1 + 2e-8, mgGoodEqu3_Failed); // P is 0, Q is not
    CheckGood(3, 4, 1, mgGoodEqu3_Failed);        // P < 0: complex roots
    for (double bad : {0.0, -1.0, nan}) {
        CheckGood(bad, 11, 6, mgGoodEqu3_Failed);
        CheckGood(6, bad, 6, mgGoodEqu3_Failed);
        CheckGood(6, 11, bad, mgGoodEqu3_Failed);
    }
    CheckGood(infinity, infinity, 1, mgGoodEqu3_Failed);
}

// With a = 3 and b = 2.25 the cosine is 4 c - 1.
TEST(Roots, CosineOfUpToElevenTenthsIsAnEqualPair) {
    CheckGood(3, 2.25, 0.25, mgGoodEqu3_ThreeRoots, 1 + std::sqrt(0.75), 1, 1 - std::sqrt(0.75));
    CheckGood(3, 2.25, 0.52, mgGoodEqu3_LowerPairEqual, 2, 0.5, 0.5);
    CheckGood(3, 2.25, 0.53, mgGoodEqu3_Failed);
    CheckGood(3, 2.25, 1e-14, mgGoodEqu3_UpperPairEqual, 1.5, 1.5, 0);
}

} // namespace
