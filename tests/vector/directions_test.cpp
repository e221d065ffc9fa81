// SPDX-License-Identifier: MIT
// Unit vectors and direction predicates: every threshold from both sides, and NaN.

#include <ctime>

#include "common/geometry.h"

namespace {

V const x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), z(0.0, 0.0, 1.0), null;

/// At an angle in radians from x, not of unit length.
V offX(double angle) { return {2.0 * std::cos(angle), 2.0 * std::sin(angle), 0.0}; }

TEST(Directions, TooShortAVectorHasNoDirection) {
    double floor = std::sqrt(1e-17);
    while (floor * floor >= 1e-17) floor = below(floor);
    EXPECT_BITS_EQ(null, U(floor, 0.0, 0.0));
    EXPECT_NEAR(1.0, mg_Normalise(above(floor) * x).x(), 1e-15);
    EXPECT_BITS_EQ(null, U(kNaN, 1.0, kInfinity));
    EXPECT_BITS_EQ(null, U(1.4e154, 0.0, 0.0)); // the square overflows
    EXPECT_BITS_EQ(V(kNaN, 0.0, 0.0), U(kInfinity, 1.0, 1.0));
    V const tooShort(below(1e-08), -below(1e-08), 0.0);
    V refused = tooShort, accepted = 1e-08 * y, lost(kNaN, 1.0, 1.0);
    EXPECT_EQ(0, refused.normalise()); // the test by components refuses more
    EXPECT_BITS_EQ(tooShort, refused);
    EXPECT_EQ(1, accepted.normalise());
    EXPECT_EQ(1, lost.normalise());
    EXPECT_BITS_EQ(null, lost);
}

TEST(Directions, UnitVectorsCompareStrictly) {
    U const u(1.0, 0.0, 0.0), v(0.0, 1.0, 0.0), none;
    auto const check = [](U const &a, U const &b, double tol, int equal, int sameDirection,
                          Caller = {}) {
        EXPECT_EQ(equal, a.isEqual(b, tol)) << shown(a) << shown(b) << tol;
        EXPECT_EQ(sameDirection, a.isSameDirectionUpToTol(b, tol)) << shown(a) << shown(b) << tol;
    };
    check(u, u, -1.0, 0, 0), check(u, v, 1.0, 0, 0);
    check(u, v, above(1.0), 1, 1), check(u, none, 5.0, 1, 0), check(none, u, 5.0, 1, 0);
}

void CheckPair(V const &a, V const &b, int parallel, int perpendicular, int same, int opposite,
               int almost, Caller = {}) {
    for (auto const &[p, q] : {std::pair(a, b), std::pair(b, a)}) {
        std::string const at = shown(b);
        EXPECT_EQ(parallel, p.isParallelTo(q)) << at;
        EXPECT_EQ(parallel, p || q) << at;
        EXPECT_EQ(perpendicular, p.isPerpendicularTo(q)) << at;
        EXPECT_EQ(same, p.isSameDirection(q)) << at;
        EXPECT_EQ(opposite, p.isOppositeDirection(q)) << at;
        EXPECT_EQ(almost, p.isAlmostParallelTo(q)) << at;
        EXPECT_EQ(almost, p.isAlmostParallelTo(q.isNull() ? U() : mg_Normalise(q))) << at;
    }
}

TEST(Directions, FixedBoundsDecideFromBothSides) {
    double const exact = std::sqrt(2e-08);  // where 1 - cos is 1e-08
    double const almost = std::sqrt(2e-06); // where cos is 0.999999
    CheckPair(x, offX(0.9999 * exact), 1, 0, 1, 0, 1);
    CheckPair(x, -offX(1.0001 * exact), 0, 0, 0, 0, 1);
    CheckPair(x, -offX(0.9999 * exact), 1, 0, 0, 1, 1);
    CheckPair(x, -offX(0.9999 * almost), 0, 0, 0, 0, 1);
    CheckPair(x, offX(1.0001 * almost), 0, 0, 0, 0, 0);
    CheckPair(x, V(below(1e-08), 1.0, 0.0), 0, 1, 0, 0, 0);
    CheckPair(x, V(1e-08, 1.0, 0.0), 0, 0, 0, 0, 0);
    CheckPair(x, below(1e-08) * x, 0, 0, 0, 0, 0); // null
}

TEST(Directions, WhatHasNoUnitVectorIsPerpendicularToAll) {
    CheckPair(x, {kNaN, 1.0, 0.0}, 0, 1, 0, 0, 0), CheckPair(x, 1.4e154 * x, 0, 1, 0, 0, 0);
    CheckPair(x, {kInfinity, 1.0, 0.0}, 0, 0, 0, 0, 0); // whose cosine is NaN
}

TEST(Directions, ToleranceInDegreesDecidesByCosineOrBySine) {
    auto const check = [](V const &v, double degrees, int byCosine, int bySine, Caller = {}) {
        EXPECT_EQ(byCosine, x.isParallelTo(v, degrees)) << v.y() << " within " << degrees;
        EXPECT_EQ(bySine, x.isParallelToTol(v, degrees)) << v.y() << " within " << degrees;
    };
    constexpr double kRadPerDeg = 0.017453292519943295;
    check(-offX(1.00000005 * 60.0 * kRadPerDeg), 60.0, 0, 0);
    check(-offX(0.99999995 * 60.0 * kRadPerDeg), 60.0, 1, 1);
    check(y, 80.0, 0, 0);              // the sine is below 1 where the angle is not
    check(x + 1e-12 * y, 1e-10, 1, 1); // 1.7e-12 radians, too small for a cosine
    check(x + 2e-12 * y, 1e-10, 1, 0);
    check(x, 1e-08, 0, 1);                 // a tolerance whose cosine is 1
    check(offX(1e-4), below(1e-08), 1, 0); // below its floor the fixed bound decides
    check(offX(1e-4), below(1e-15), 1, 1);
    check(y, 90.0, 1, 1);                    // from a right angle on the cosine accepts everything
    check(x + y, 150.0, 1, 0);               // whose sine is that of 30
    check({1e154, 1e154, 0.0}, 1e-08, 0, 1); // whose square overflows
    check(x, kNaN, 0, 0);
    for (double const degrees : {-1.0, 45.0, 180.0}) check(null, degrees, 0, 0);
}

TEST(Directions, ComponentsTellAxesAndTheDominantOne) {
    double const small = below(1e-08);
    auto const check = [](V const &v, int orthogonal, int dominant, Caller = {}) {
        EXPECT_EQ(orthogonal, v.isOrthogonal()) << shown(v);
        EXPECT_EQ(dominant, v.dominantComponentIndex()) << shown(v);
    };
    check({1.0, 1e-08, 0.0}, 0, 0);
    check({small, small, small}, 0, 2); // the later axis on a tie
    check({small, 1e-08, -small}, 1, 1), check({small, -small, 5.0}, 1, 2);
    check({-5.0, -small, small}, 1, 0), check({0.0, -3.0, below(3.0)}, 0, 1);
    check({kNaN, 0.0, small}, 1, 2);
    // What lies before or behind a vector in memory is not read.
    V const row[] = {null, {3.0, small, -5.0}, {small, 3.0, 5.0}, null};
    check(row[1], 0, 2), check(row[2], 0, 2), check({5.0, 3.0, small}, 0, 0);
    check({1.0, kNaN, below(1.0)}, 0, 0); // NaN in y is left out
    check({1.0, kNaN, 1.0}, 0, 2), check({1.0, 2.0, kNaN}, 0, 2);
}

TEST(Directions, AnyUnitNormalIsPerpendicular) {
    auto const check = [](V const &v, int preferAxis, V const &w, Caller = {}) {
        EXPECT_BITS_EQ(mg_Normalise(w), v.anyUnitNormal(preferAxis));
    };
    check(null, 0, {1.0, 1.0, 1.0}), check({1e-10, below(1e-10), 5.0}, 1, y);
    check({-1.0, 1e-10, -below(1e-10)}, -1, z);
    check({3.0, -3.0, 1.0}, 0, {1.0, -(3.0 + 1.0) / -3.0, 1.0}); // on a tie the later one changes
    check({1.0, 2.0, 4.0}, 0, {1.0, 1.0, -0.75}), check({4.0, 1.0, 2.0}, 0, {-0.75, 1.0, 1.0});
    check(null, 1, x), check({kNaN, 1.0, 0.0}, 0, {1.0, 1.0, 1.0});
    check({0.0, kNaN, 0.0}, 0, {1.0, 1.0, 1.0});
    for (V const &v : {V(kNaN, 0.0, 1.0), V(1.0, kNaN, 0.0), V(0.0, 0.0, kNaN)}) check(v, 0, null);
}

TEST(Directions, ABasisIsRightHanded) {
    auto const check = [](V const &seed, V const &n, Caller = {}) {
        U u, v;
        mg_getBasis(n, u, v);
        EXPECT_BITS_EQ(mg_Normalise(seed - (seed % n) * n), u); // not divided by |n|^2
        EXPECT_BITS_EQ(mg_Normalise(n * u), v);
    };
    check(x, {0.5, 1.0, 1.6}); // x only when strictly smallest, z at most y, else y
    check(z, {0.9, 0.7, -0.7}), check(y, {0.5, 0.5, 1.6});
    U u, v, other, first(z, 0), second(z, 0); // an output may be the input
    mg_getBasis(z, u, v), mg_getBasis(first, first, other), mg_getBasis(second, other, second);
    EXPECT_BITS_EQ(u, first);
    EXPECT_BITS_EQ(v, second);
    EXPECT_EQ(0.0, gap(z, u * v));
}

TEST(Directions, PullBackSolvesForTheNearestCombination) {
    V const w(3.0, 4.0, 7.0);
    double const longEnough = 1e-08, tooShort = below(1e-08), sq = 1e-08 * 1e-08;
    EXPECT_BITS_EQ((3.0 * longEnough / sq) * x, w.pullBack(longEnough * x, tooShort * y));
    EXPECT_BITS_EQ((4.0 * longEnough / sq) * y, w.pullBack(tooShort * x, longEnough * y));
    EXPECT_BITS_EQ(null, w.pullBack(tooShort * x, tooShort * z));
    double edge = 2e-08; // with a = x / 2 the determinant is exactly (edge / 2) squared
    while (0.25 * (edge * edge) >= 1.0000000000000001e-16) edge = below(edge);
    EXPECT_BITS_EQ(null, w.pullBack(0.5 * x, edge * y));
    EXPECT_NEAR(6.0, w.pullBack(0.5 * x, above(edge) * y).x(), 1e-14);
    // 3 a - 2 b + a x b
    EXPECT_LT(gap(V(3.0, -2.0, 0.0), V(1.0, 9.0, 0.0).pullBack({1.0, 2.0, 2.0}, {2.0, 0.0, 1.0})),
              1e-14);
    EXPECT_BITS_EQ(4.0 * y, w.pullBack({kNaN, 1.0, 0.0}, y)); // NaN is left out like a short vector
    EXPECT_BITS_EQ(V(kNaN, kNaN, 0.0), V(3.0, kNaN, 7.0).pullBack(x, y));
}

TEST(Directions, RandomRepeatsWithinASecond) {
    std::time_t now = 0;
    U drawn;
    while (now != std::time(nullptr)) // otherwise a second has just ended
        now = std::time(nullptr), drawn = *std::unique_ptr<U>(U::random());
    std::srand(static_cast<unsigned>(now));
    V expected; // of 15 bits each
    for (int i = 0; i < 3; ++i) static_cast<double *>(expected)[i] = std::rand() & 0x7fff;
    EXPECT_LT(gap(mg_Normalise(expected), drawn), 1e-15);
}

} // namespace
