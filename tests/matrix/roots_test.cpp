// SPDX-License-Identifier: MIT
// Real roots of quadratics and cubics.

#include <vector>

#include "common/geometry.h"

namespace {

using namespace common;

constexpr double untouched = -777.0;

void CheckQuadratic(double a, double b, double c, std::vector<double> const &expected) {
    double roots[2];
    int const count = mg_solveQuadratic(a, b, c, roots);
    EXPECT_EQ(expected, std::vector<double>(roots, roots + count)) << a << " " << b << " " << c;
}

TEST(Roots, OfAQuadraticAreNotSorted) {
    CheckQuadratic(1, -3, 2, {1, 2});
    CheckQuadratic(-1, 0, 1, {1, -1});
    double const d = 1e-13; // exact from c, a quarter of it
    CheckQuadratic(1, 0, -d / 4, {-std::sqrt(d) / 2, std::sqrt(d) / 2});
    CheckQuadratic(1, 0, below(d) / -4, {0, 0});
    CheckQuadratic(1, 0, d / 4, {0, 0});
    CheckQuadratic(1, 0, above(d) / 4, {});
    // Without a leading coefficient a line remains, or nothing.
    CheckQuadratic(below(1e-13), -1, 1, {1});
    CheckQuadratic(1e-13, 1, 0, {-2 * (0.5 / 1e-13), 0});
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
    CheckOlder(-1, 0, 1, 4, -1, 1);
    CheckOlder(1, 0, -1e-16 / 4, 1e-16, -5e-9, 5e-9);
    CheckOlder(1, 0, below(1e-16) / -4, below(1e-16), 0, 0);
    CheckOlder(below(1e-8), 1, 0, 1, 0, 0);
    CheckOlder(1e-8, 1, 0, 1, -1e8, 0);
    CheckOlder(0, below(1e-8), 1, -1, untouched, untouched);
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

void CheckLeast(double a, double b, double c, double d, double root, Caller = {}) {
    double roots[3];
    mg_solveCubic(a, b, c, d, roots);
    EXPECT_EQ(root, roots[0]) << a << " " << b << " " << c << " " << d;
}

// The expected roots are those of the search step by step: predicting steps changes no bit.
TEST(Roots, OfACubicAreThoseOfThePlainSearch) {
    CheckLeast(6, 6.5, 1, 8, -0x1.89d38f55be67dp+0);             // one idle step does not end it
    CheckLeast(-4, 3, 10, -2.5, -0x1.622e00d16240ep+0);          // a secant leaves a value of 0
    CheckLeast(10, -65, 10, -19000, 0x1.de297b8774a2fp+3);       // a middle does
    CheckLeast(-3.81, -2.77, 2.37, 0.34, -0x1.3003f325f50b9p+0); // a guess at another root
    CheckLeast(-1, 5, -7.5, 3, 0x1.4498517a7b3p-1);              // found soon after the guess
    CheckLeast(-1, 6.19, -3.29, 1.75e12, 0x1.78a633076e1fp+13);  // too large for exact halves
}

TEST(Roots, EveryHostileEquationEnds) {
    Random random;
    for (int i = 0; i < 50000; ++i) {
        double k[4], roots[3] = {}, disc;
        for (double &coefficient : k) coefficient = random.hostile();
        mgSolveQuadratic(k[0], k[1], k[2], &disc, roots, roots + 1);
        EXPECT_LE(mg_GoodEqu3(k[0], k[1], k[2], roots), 4);
        EXPECT_LE(mg_solveCubic(k[0], k[1], k[2], k[3], roots), 3);
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
    CheckGood(0, 11, 6, mgGoodEqu3_Failed);
    CheckGood(6, kNaN, 6, mgGoodEqu3_Failed);
    CheckGood(6, 11, 0, mgGoodEqu3_Failed);
}

// With a = 3 and b = 2.25 the cosine is 4 c - 1.
TEST(Roots, CosineOfUpToElevenTenthsIsAnEqualPair) {
    CheckGood(3, 2.25, 0.25, mgGoodEqu3_ThreeRoots, 1 + std::sqrt(0.75), 1, 1 - std::sqrt(0.75));
    CheckGood(3, 2.25, 0.52, mgGoodEqu3_LowerPairEqual, 2, 0.5, 0.5); // one root is real
    CheckGood(3, 2.25, 0.53, mgGoodEqu3_Failed);
    CheckGood(3, 2.25, 1e-14, mgGoodEqu3_UpperPairEqual, 1.5, 1.5, 0);
}

} // namespace
