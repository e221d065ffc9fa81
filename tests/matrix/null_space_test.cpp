// SPDX-License-Identifier: MIT
// Null spaces of 3x3 matrices.

#include "common/geometry.h"

namespace {

TEST(NullSpace, DimensionGoesByFixedBounds) {
    auto const check = [](int expected, V const &diagonal, bool force = false, Caller = {}) {
        mgMatrix_c m;
        for (int i = 0; i < 3; ++i) m(i, i) = diagonal.component(i);
        U basis[3];
        EXPECT_EQ(expected, m.getNullspace(basis, force));
        for (int i = 0; i < 3; ++i) EXPECT_EQ(i >= expected, basis[i].isNull());
        EXPECT_EQ(expected == 3, basis[1] == U::yAxis());
        EXPECT_EQ(expected == 3, basis[2].z() == 1.0);
    };
    double const tiny = below(1e-8), more = above(1e-8);
    check(1, {1, 1, 1e-8}); // determinant of exactly 1e-08
    check(1, {0.5, 1, 1e-9}), check(1, {1, 1e-9, 0.5}), check(1, {1e-9, 0.5, 1});
    check(0, {1, -1, more}), check(1, {1, -1, more}, true);
    check(3, {tiny, -tiny, tiny}), check(2, {tiny, 1e-8, -tiny});
    // The square of 1e-08 is the bound of the cross product, a step above 1e-16.
    check(1, {1, 1e-8, 0}), check(2, {1, tiny, 0}), check(0, {kNaN, 1, 1});
}

double longestColumn(mgMatrix_c const &m) {
    double longest = 0.0;
    for (int j = 0; j < 3; ++j) longest = std::max(longest, V(m(0, j), m(1, j), m(2, j)).len());
    return longest;
}

/// M n of the one null vector, relative to the longest column.
double residual(mgMatrix_c const &m) {
    U n[3];
    EXPECT_EQ(1, m.getNullspace(n, true));
    EXPECT_NEAR(1.0, n[0].len(), 1e-15);
    return (m * P(n[0]) - P()).len() / longestColumn(m);
}

TEST(NullSpace, TheNullVectorGivesZeroAlsoForNearlyParallelColumns) {
    double const tiny = 1.04e-8; // just enough for rank two
    EXPECT_EQ(0.0, residual(mgMatrix_c({1, 1, 2, 0, tiny, tiny, 0, 0, 0}, 0)));
    EXPECT_EQ(0.0, residual(mgMatrix_c({1e3, 0, 1e3, 0, 1e-9, 1e-9, 0, 0, 0}, 0)));
    // Of rank one but for rounding, which alone makes the cross products large. With 1/7 the second
    // column has exactly no component across the first.
    double const a = 1e9 + 7;
    for (double k : {0.1, 1.0 / 7}) {
        mgMatrix_c const m({7 * a, 7 * a * k, 14 * a, 9 * a, 9 * a * k, 18 * a, a, a * k, 2 * a},
                           0);
        EXPECT_LT(residual(m), 1e-15) << k;
    }
    Random random;
    for (int i = 0; i < 3000; ++i) {
        mgMatrix_c m, other;
        m.tensor(direction(random), direction(random));
        double const across = std::pow(10.0, -7.5 * random.uniform(0, 1));
        other.tensor(across * direction(random), direction(random));
        m += other; // a rounding from rank two
        U n[3];
        if (m.getNullspace(n, true) == 2) continue; // closer to rank one than that
        ASSERT_LT(residual(m), 1e-15) << across;
    }
}

TEST(NullSpace, NullVectorsOfARankOneMatrixArePerpendicularToItsColumns) {
    Random random;
    for (int i = 0; i < 1000; ++i) {
        auto const a = random.triple<V>(0.1, 2), b = random.triple<V>(0.1, 2);
        mgMatrix_c m;
        m.tensor(a, b); // columns along a
        U n[2];
        ASSERT_EQ(2, m.getNullspace(n, false));
        ASSERT_NEAR(0.0, n[0] % a, 1e-14);
        ASSERT_NEAR(0.0, n[1] % a, 1e-14);
        ASSERT_NEAR(1.0, vol(n[0], n[1], mg_Normalise(a)), 1e-14);
    }
}

} // namespace
