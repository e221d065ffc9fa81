// SPDX-License-Identifier: MIT
// Real roots of quadratics and cubics.

#include "common/geometry.h"

namespace {

constexpr double untouched = -777.0;
static_assert(areNumbered(mgGoodEqu3_ThreeRoots, mgGoodEqu3_TripleRoot, mgGoodEqu3_LowerPairEqual,
                          mgGoodEqu3_UpperPairEqual, mgGoodEqu3_Failed));

void CheckQuadratic(double a, double b, double c, std::vector<double> const &expected) {
    double roots[2];
    int const count = mg_solveQuadratic(a, b, c, roots);
    EXPECT_EQ(expected, std::vector<double>(roots, roots + count)) << a << " " << b << " " << c;
}

TEST(Roots, OfAQuadraticAreNotSorted) {
    CheckQuadratic(1, -3, 2, {1, 2}), CheckQuadratic(-1, 0, 1, {1, -1});
    double const d = 1e-13; // exact from c, a quarter of it
    CheckQuadratic(1, 0, -d / 4, {-std::sqrt(d) / 2, std::sqrt(d) / 2});
    CheckQuadratic(1, 0, below(d) / -4, {0, 0}), CheckQuadratic(1, 0, d / 4, {0, 0});
    CheckQuadratic(1, 0, above(d) / 4, {});
    // Without a leading coefficient a line remains, or nothing.
    CheckQuadratic(below(1e-13), -1, 1, {1}), CheckQuadratic(1e-13, 1, 0, {-2 * (0.5 / 1e-13), 0});
    CheckQuadratic(0, below(1e-13), 1, {});
    CheckQuadratic(kNaN, -1, 1, {1}); // a NaN counts as no leading coefficient
}

void CheckOlder(double a, double b, double c, double disc, double root1, double root2,
                Caller = {}) {
    double got[3] = {untouched, untouched, untouched};
    mgSolveQuadratic(a, b, c, &got[0], &got[1], &got[2]);
    EXPECT_BITS_EQ(P(disc, root1 + 0.0, root2 + 0.0), P(got) + V());
}

TEST(Roots, OfTheOlderQuadraticAreSorted) {
    CheckOlder(-1, 0, 1, 4, -1, 1), CheckOlder(1, 0, -1e-16 / 4, 1e-16, -5e-9, 5e-9);
    CheckOlder(1, 0, below(1e-16) / -4, below(1e-16), 0, 0), CheckOlder(below(1e-8), 1, 0, 1, 0, 0);
    CheckOlder(1e-8, 1, 0, 1, -1e8, 0), CheckOlder(0, below(1e-8), 1, -1, untouched, untouched);
    CheckOlder(0, -1e-8, 1e-8, 1e-8 * 1e-8, 1, 1);
    CheckOlder(1, 0, kTiny, -4 * kTiny, untouched, untouched);
    CheckOlder(1e200, 1e200, 1e200, kNaN, kNaN, kNaN); // infinity less infinity
    CheckOlder(kNaN, 1, 1, kNaN, kNaN, kNaN);
}

void CheckCubic(double a, double b, double c, double d, std::vector<double> const &expected,
                double bound, Caller = {}) {
    double roots[3];
    ASSERT_EQ(expected.size(), static_cast<std::size_t>(mg_solveCubic(a, b, c, d, roots)));
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(expected[i], roots[i], bound) << d;
}

TEST(Roots, OfACubicAreSorted) {
    CheckCubic(-2, 12, -22, 12, {1, 2, 3}, 1e-12);
    CheckCubic(1, -4, 5, -2, {1, 1, 2}, 1e-15); // a critical point is a root
    CheckCubic(below(1e-13), 1, -3, 2, {1, 2}, 0);
}

// Halving [-1, 1] about fifty times gives multiples of 2^-60; a secant does not.
TEST(Roots, AFallingCubicIsHalvedAtEveryStep) {
    for (double sign : {-1.0, 1.0}) {
        double root;
        EXPECT_EQ(1, mg_solveCubic(sign, 0, sign, -0.7 * sign, &root));
        EXPECT_NEAR(root * root * root + root, 0.7, 1e-12);
        double const scaled = std::ldexp(root, 48);
        EXPECT_EQ(sign < 0, scaled == std::floor(scaled));
    }
}

/// The root that the search finds step by step: a secant, a half, a secant, ...
double searchedLiterally(double a, double b, double c, double d) {
    auto const f = [=](double x) { return ((a * x + b) * x + c) * x + d; };
    double critical[2], low = -1, high = 1, atLow = f(low), atHigh = f(high);
    int const count = mg_solveQuadratic(3 * a, 2 * b, c, critical);
    for (int i = 0; i < count; ++i)
        if (std::fabs(f(critical[i])) <= 1e-13) return critical[i];
    for (; atLow * atHigh > 0; atLow = f(low), atHigh = f(high)) low *= 3, high *= 3;
    for (int k = 1; k <= 101; ++k) {
        double const width = high - low, rise = atHigh - atLow;
        if (width <= 1e-13 && std::fabs(atHigh) + std::fabs(atLow) <= 1e-13) break;
        double x = (low + high) / 2, inset = width >= 3e-10 ? 1e-10 : 0;
        if (k % 2 != 0 && rise > 1e-13)
            x = std::clamp((atHigh * low - atLow * high) / rise, low + inset, high - inset);
        double const value = f(x);
        bool const replacesHigh = atHigh * value > 0;
        (replacesHigh ? high : low) = x, (replacesHigh ? atHigh : atLow) = value;
    }
    return std::fabs(atHigh) < std::fabs(atLow) ? high : low;
}

void CheckSearch(double a, double b, double c, double d, Caller = {}) {
    double roots[3];
    int const count = mg_solveCubic(a, b, c, d, roots);
    EXPECT_NE(roots + count, std::find(roots, roots + count, searchedLiterally(a, b, c, d)))
        << a << ", " << b << ", " << c << ", " << d;
}

// Predicting steps changes no bit.
TEST(Roots, OfACubicAreThoseOfThePlainSearch) {
    CheckSearch(6, 6.5, 1, 8);             // one idle step does not end it
    CheckSearch(-4, 3, 10, -2.5);          // a secant leaves a value of 0
    CheckSearch(10, -65, 10, -19000);      // a middle does
    CheckSearch(-1, 5, -7.5, 3);           // found soon after the guess
    CheckSearch(-1e77, 0, 0, 1e2);         // not found in all steps, after a guess far outside
    CheckSearch(-1, 6.19, -3.29, 1.75e12); // too large for exact halves
    CheckSearch(-1, 0, -1e6, -1e-12);      // the guess rounds to the upper end
    Random random;
    for (int i = 0; i < 60000 && !HasFailure(); ++i) {
        double k[4];
        for (double &x : k) {
            double const size = i % 3 != 0 ? std::exp2(random.uniform(-30, 30)) : 1.0;
            x = i % 3 == 1 ? size : size * (random.below(321) - 160) / 8;
        }
        if (std::fabs(k[0]) >= 1e-13) CheckSearch(k[0], k[1], -k[2], k[3]);
    }
}

void CheckGood(double a, double b, double c, mg_GoodEqu3Status status, double r0 = untouched,
               double r1 = untouched, double r2 = untouched, Caller = {}) {
    double roots[3] = {untouched, untouched, untouched};
    EXPECT_EQ(status, mg_GoodEqu3(a, b, c, roots)) << a << " " << c;
    EXPECT_LT(gap(P(r0, r1, r2), P(roots)), 1e-13);
}

TEST(Roots, OfACharacteristicCubicDescend) {
    CheckGood(6, 11, 6, mgGoodEqu3_ThreeRoots, 3, 2, 1);
    CheckGood(3, 3, 1, mgGoodEqu3_TripleRoot, 1, 1, 1);
    CheckGood(5, 8, 4, mgGoodEqu3_UpperPairEqual, 2, 2, 1);
    CheckGood(3, 3, 1 + 2e-8, mgGoodEqu3_Failed); // P is 0, Q is not
    CheckGood(3, 4, 1, mgGoodEqu3_Failed);        // P < 0: complex roots
    CheckGood(0, 11, 6, mgGoodEqu3_Failed), CheckGood(6, kNaN, 6, mgGoodEqu3_Failed);
    CheckGood(3, 2, 0, mgGoodEqu3_Failed); // of the roots 2, 1 and 0
    CheckGood(3, 0, 0.1, mgGoodEqu3_Failed);
    CheckGood(3, 0.0014285714285714286, 1.7007952799982022e-07, mgGoodEqu3_LowerPairEqual,
              2.9995237528209655, 0.00023812358951724732, 0.00023812358951724732); // on the bound
    double const h = 0x1p-17;
    CheckGood(6 * h, 11 * h * h, 6 * h * h * h, mgGoodEqu3_ThreeRoots, 3 * h, 2 * h, h);
}

// With a = 3 and b = 2.25 the cosine is 4 c - 1.
TEST(Roots, CosineOfUpToElevenTenthsIsAnEqualPair) {
    CheckGood(3, 2.25, 0.25, mgGoodEqu3_ThreeRoots, 1 + std::sqrt(0.75), 1, 1 - std::sqrt(0.75));
    CheckGood(3, 2.25, 0.52, mgGoodEqu3_LowerPairEqual, 2, 0.5, 0.5); // one root is real
    CheckGood(3, 2.25, 0.53, mgGoodEqu3_Failed);
    CheckGood(3, 2.25, 1e-14, mgGoodEqu3_UpperPairEqual, 1.5, 1.5, 0);
}

} // namespace
