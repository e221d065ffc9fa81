// SPDX-License-Identifier: MIT
// Unit vectors and what is decided about directions: every threshold from both sides.

#include <vexmath/mg_vector.h>

#include <ctime>
#include <memory>

#include "support/geometry.h"

namespace {

using support::above;
using support::below;
using support::kNaN;

mgVector_c const x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), z(0.0, 0.0, 1.0), null;
constexpr double kRadPerDeg = 0.017453292519943295;

/// At an angle in radians from x, not of unit length.
mgVector_c offX(double angle) { return {2.0 * std::cos(angle), 2.0 * std::sin(angle), 0.0}; }

TEST(Directions, NormalisingIsOneReciprocalAndThreeProducts) {
    support::Random random;
    for (int i = 0; i < 2000; ++i) {
        auto const v = random.triple<mgVector_c>(-3.0, 3.0);
        double const sq = v.z() * v.z() + v.y() * v.y() + v.x() * v.x();
        mgVector_c const expected = (1.0 / std::sqrt(sq)) * v;
        mgVector_c inPlace = v;
        ASSERT_EQ(1, inPlace.normalise());
        ASSERT_BITS_EQ(expected, inPlace);
        ASSERT_BITS_EQ(expected, mgUnitVector_c(v, i % 2));
        ASSERT_BITS_EQ(expected, mgUnitVector_c(static_cast<double const *>(v)));
    }
    EXPECT_LT(support::gap(mgVector_c(0.6, 0.0, 0.8), mgUnitVector_c(3.0, 0.0, 4.0)), 2e-16);
    mgUnitVector_c longer(x, 0);
    longer.set(0.0, 3.0, 0.0); // a setter does not normalise, a copy neither, the negative does
    EXPECT_BITS_EQ(3.0 * y, mgUnitVector_c(longer));
    EXPECT_BITS_EQ(-y, -longer);
}

TEST(Directions, TooShortAVectorHasNoDirection) {
    double floor = std::sqrt(1e-17);
    while (floor * floor >= 1e-17) floor = below(floor);
    EXPECT_BITS_EQ(null, mgUnitVector_c(floor, 0.0, 0.0));
    EXPECT_NEAR(1.0, mg_Normalise(above(floor) * x).x(), 1e-15);
    EXPECT_BITS_EQ(null, mgUnitVector_c(kNaN, 1.0, 1.0));
    EXPECT_BITS_EQ(mgVector_c(kNaN, 0.0, 0.0), mgUnitVector_c(support::kInfinity, 1.0, 1.0));
    // normalise() goes by the components and refuses more.
    mgVector_c refused(below(1e-08), -below(1e-08), 0.0), taken(0.0, 1e-08, 0.0);
    EXPECT_EQ(0, refused.normalise());
    EXPECT_BITS_EQ(mgVector_c(below(1e-08), -below(1e-08), 0.0), refused);
    EXPECT_EQ(1, taken.normalise());
    EXPECT_NEAR(1.0, taken.y(), 1e-15);
}

TEST(Directions, UnitVectorsCompareStrictly) {
    mgUnitVector_c const u(1.0, 0.0, 0.0), v(0.0, 1.0, 0.0);
    EXPECT_EQ(0, u.isEqual(u, 0.0) + u.isEqual(u, -1.0) + u.isEqual(v, 1.0));
    EXPECT_EQ(1, u.isEqual(v, above(1.0)));
    EXPECT_EQ(0, u.isSameDirectionUpToTol(u, 0.0) + u.isSameDirectionUpToTol(v, 1.0));
    EXPECT_EQ(1, u.isSameDirectionUpToTol(u, 1e-15));
    EXPECT_EQ(1, u.isSameDirectionUpToTol(v, above(1.0)));
    EXPECT_EQ(0,
              u.isSameDirectionUpToTol({}, 5.0) + mgUnitVector_c().isSameDirectionUpToTol(u, 5.0));
}

void checkPair(mgVector_c const &a, mgVector_c const &b, int parallel, int perpendicular, int same,
               int opposite, int almost) {
    SCOPED_TRACE(::testing::Message() << b.x() << " " << b.y() << " " << b.z());
    for (auto const &[p, q] : {std::pair(a, b), std::pair(b, a)}) {
        EXPECT_EQ(parallel, p.isParallelTo(q));
        EXPECT_EQ(parallel, p || q);
        EXPECT_EQ(perpendicular, p.isPerpendicularTo(q));
        EXPECT_EQ(same, p.isSameDirection(q));
        EXPECT_EQ(opposite, p.isOppositeDirection(q));
        EXPECT_EQ(almost, p.isAlmostParallelTo(q));
        EXPECT_EQ(almost, p.isAlmostParallelTo(q.isNull() ? mgUnitVector_c() : mg_Normalise(q)));
    }
}

TEST(Directions, FixedBoundsDecideFromBothSides) {
    double const exact = std::sqrt(2e-08);  // where 1 - cos is 1e-08
    double const almost = std::sqrt(2e-06); // where cos is 0.999999
    checkPair(x, -2.0 * x, 1, 0, 0, 1, 1);
    checkPair(x, offX(0.9999 * exact), 1, 0, 1, 0, 1);
    checkPair(x, offX(1.0001 * exact), 0, 0, 0, 0, 1);
    checkPair(x, -offX(0.9999 * exact), 1, 0, 0, 1, 1);
    checkPair(x, -offX(1.0001 * exact), 0, 0, 0, 0, 1);
    checkPair(x, -offX(0.9999 * almost), 0, 0, 0, 0, 1);
    checkPair(x, offX(1.0001 * almost), 0, 0, 0, 0, 0);
    checkPair(x, mgVector_c(below(1e-08), 1.0, 0.0), 0, 1, 0, 0, 0);
    checkPair(x, mgVector_c(1e-08, 1.0, 0.0), 0, 0, 0, 0, 0);
    checkPair(x, below(1e-08) * x, 0, 0, 0, 0, 0); // null
}

TEST(Directions, ToleranceInDegreesDecidesByCosineOrBySine) {
    auto const check = [](mgVector_c const &v, double degrees, int byCosine, int bySine) {
        EXPECT_EQ(byCosine, x.isParallelTo(v, degrees)) << v.y() << " within " << degrees;
        EXPECT_EQ(bySine, x.isParallelToTol(v, degrees)) << v.y() << " within " << degrees;
    };
    check(offX(0.999 * 0.5 * kRadPerDeg), 0.5, 1, 1);
    check(offX(1.001 * 0.5 * kRadPerDeg), 0.5, 0, 0);
    check(-offX(0.999 * 30.0 * kRadPerDeg), 30.0, 1, 1);
    check(-offX(1.001 * 30.0 * kRadPerDeg), 30.0, 0, 0);
    check(y, 80.0, 0, 0);              // the sine is below 1 where the angle is not
    check(x + 1e-12 * y, 1e-10, 1, 1); // 1.7e-12 radians, too fine for a cosine
    check(x + 2e-12 * y, 1e-10, 1, 0);
    check(x, 1e-08, 0, 1); // a tolerance whose cosine is 1
    // Below their floors the fixed bound of 1.4e-04 radians decides.
    check(offX(1e-4), 1e-08, 0, 0);
    check(offX(1e-4), below(1e-08), 1, 0);
    check(offX(1e-4), 1e-15, 1, 0);
    check(offX(1e-4), below(1e-15), 1, 1);
    for (double const degrees : {-1.0, 45.0, 180.0}) {
        check(null, degrees, 0, 0);
        EXPECT_EQ(0, null.isParallelTo(x, degrees) + null.isParallelToTol(x, degrees));
    }
}

TEST(Directions, ComponentsTellAxesAndTheDominantOne) {
    double const small = below(1e-08);
    auto const check = [](mgVector_c const &v, int orthogonal, int dominant) {
        EXPECT_EQ(orthogonal, v.isOrthogonal()) << v.x() << " " << v.y() << " " << v.z();
        EXPECT_EQ(dominant, v.dominantComponentIndex()) << v.x() << " " << v.y() << " " << v.z();
    };
    check({-5.0, small, -small}, 1, 0);
    check({small, 1e-08, small}, 1, 1);
    check({0.0, 0.0, -1.0}, 1, 2);
    check({1.0, 1e-08, 0.0}, 0, 0);
    check({0.0, -1.0, 1e-08}, 0, 1);
    check({small, small, small}, 0, 2); // the later axis on a tie
    check({1.0, -1.0, 0.0}, 0, 1);
    check({-1.0, 0.0, 1.0}, 0, 2);
    check({2.0, -3.0, below(3.0)}, 0, 1);
}

TEST(Directions, AnyUnitNormalIsPerpendicular) {
    auto const check = [](mgVector_c const &v, int preferAxis, mgVector_c const &w) {
        EXPECT_BITS_EQ(mg_Normalise(w), v.anyUnitNormal(preferAxis));
    };
    check(null, 0, {1.0, 1.0, 1.0});
    check({0.0, 5.0, 5.0}, 1, x);
    check({1e-10, below(1e-10), 5.0}, 1, y);
    check({-1.0, 5.0, -below(1e-10)}, -1, z);
    // The component that is made to fit: the largest, the later one on a tie.
    check({3.0, 3.0, 3.0}, 1, {1.0, 1.0, -2.0});
    check({3.0, -3.0, 1.0}, 0, {1.0, -(3.0 + 1.0) / -3.0, 1.0});
    check({3.0, 1.0, 2.0}, 0, {-(1.0 + 2.0) / 3.0, 1.0, 1.0});
    check({3.0, 1.0, 3.0}, 0, {1.0, 1.0, -(3.0 + 1.0) / 3.0});
    support::Random random;
    for (int i = 0; i < 500; ++i) {
        auto const v = random.triple<mgVector_c>(-1.0, 1.0);
        ASSERT_NEAR(0.0, v.anyUnitNormal(i % 2) % v, 1e-15);
        ASSERT_NEAR(1.0, v.anyUnitNormal(i % 2).len(), 1e-15);
    }
}

TEST(Directions, ABasisIsRightHanded) {
    auto const check = [](mgVector_c const &seed, mgVector_c const &n) {
        mgUnitVector_c u, v;
        mg_getBasis(n, u, v);
        EXPECT_BITS_EQ(mg_Normalise(seed - (seed % n) * n), u);
        EXPECT_BITS_EQ(mg_Normalise(n * u), v);
    };
    // The seed: x only when strictly smallest, z at most y, else y. A long n shows that the
    // projection does not divide.
    check(y, z);
    check(x, {0.5, 1.0, 1.6});
    check(z, {0.5, 1.6, 0.5});
    check(z, {0.9, 0.7, -0.7});
    check(y, {0.5, 0.5, 1.6});
    support::Random random;
    for (int i = 0; i < 500; ++i) {
        mgUnitVector_c const n = support::direction(random);
        mgUnitVector_c u, v, first = n, second = n, other;
        mg_getBasis(n, u, v);
        ASSERT_NEAR(1.0, vol(u, v, n), 1e-15);
        ASSERT_NEAR(0.0, std::fabs(u % v) + std::fabs(u % n) + std::fabs(v % n), 1e-15);
        mg_getBasis(first, first, other); // an output may be the input
        ASSERT_BITS_EQ(v, other);
        mg_getBasis(second, other, second);
        ASSERT_BITS_EQ(v, second);
    }
}

TEST(Directions, PullBackSolvesForTheNearestCombination) {
    mgVector_c const w(3.0, 4.0, 7.0);
    EXPECT_BITS_EQ(mgVector_c(-1.0, 4.0, 0.0), w.pullBack(x, x + y));
    EXPECT_BITS_EQ(null, w.pullBack(x + y, 2.0 * (x + y)));
    EXPECT_BITS_EQ(mgVector_c(1.5, 0.0, 0.0), w.pullBack(2.0 * x, below(1e-08) * y));
    EXPECT_BITS_EQ(mgVector_c(0.0, 1.75, 0.0), w.pullBack(null, 4.0 * z));
    EXPECT_BITS_EQ(null, w.pullBack(null, below(1e-08) * z));
    double edge = 2e-08; // with a = x / 2 the determinant is exactly (edge / 2) squared
    while (0.25 * (edge * edge) >= 1.0000000000000001e-16) edge = below(edge);
    EXPECT_BITS_EQ(null, w.pullBack(0.5 * x, edge * y));
    EXPECT_NEAR(6.0, w.pullBack(0.5 * x, above(edge) * y).x(), 1e-14);
}

TEST(Directions, RandomRepeatsWithinASecond) {
    std::unique_ptr<mgUnitVector_c> first, second;
    for (std::time_t before = 0; before != std::time(nullptr);) { // until both fall into one second
        before = std::time(nullptr);
        first.reset(mgUnitVector_c::random());
        second.reset(mgUnitVector_c::random());
    }
    EXPECT_BITS_EQ(*first, *second);
    EXPECT_NEAR(1.0, first->len(), 1e-15);
    EXPECT_TRUE(first->x() >= 0.0 && first->y() >= 0.0 && first->z() >= 0.0);
}

} // namespace
