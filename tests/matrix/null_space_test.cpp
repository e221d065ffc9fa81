// SPDX-License-Identifier: MIT
// Null spaces of 3x3 matrices.

#include "support/geometry.h"

namespace {

TEST(NullSpace, DimensionGoesByFixedBounds) {
    auto const check = [](int expected, mgVector_c const &diagonal, bool force = false) {
        SCOPED_TRACE(::testing::Message() << diagonal.x() << " " << diagonal.y());
        mgMatrix_c m;
        for (int i = 0; i < 3; ++i) m(i, i) = diagonal.component(i);
        mgUnitVector_c basis[3];
        EXPECT_EQ(expected, m.getNullspace(basis, force));
        for (int i = 0; i < 3; ++i) EXPECT_EQ(i >= expected, basis[i].isNull());
        EXPECT_EQ(expected == 3, basis[1] == mgUnitVector_c::yAxis() && basis[2].z() == 1.0);
    };
    double const tiny = support::below(1e-8), more = support::above(1e-8);
    check(1, {1, 1, 1e-8}); // determinant of exactly 1e-08
    check(0, {1, -1, more});
    check(1, {1, -1, more}, true);
    check(3, {tiny, -tiny, tiny});
    check(2, {tiny, 1e-8, -tiny});
    // The square of 1e-08 is the bound of the cross product, a step above 1e-16.
    check(1, {1, 1e-8, 0});
    check(2, {1, tiny, 0});
    check(0, {support::kNaN, 1, 1});
}

TEST(NullSpace, NullVectorsOfARankOneMatrixArePerpendicularToItsColumns) {
    support::Random random;
    for (int i = 0; i < 1000; ++i) {
        auto const a = random.triple<mgVector_c>(0.1, 2), b = random.triple<mgVector_c>(0.1, 2);
        mgMatrix_c m, other;
        m.tensor(a, b); // columns along a
        mgUnitVector_c n[2];
        ASSERT_EQ(2, m.getNullspace(n, false));
        ASSERT_NEAR(0.0, n[0] % a, 1e-14);
        ASSERT_NEAR(0.0, n[1] % a, 1e-14);
        ASSERT_NEAR(1.0, vol(n[0], n[1], mg_Normalise(a)), 1e-14);

        auto const c = random.triple<mgVector_c>(-2, -0.1), d = random.triple<mgVector_c>(-2, 2);
        other.tensor(c, i % 2 == 0 ? d : mgVector_c(d.x(), 0, 0));
        m += other; // of rank two
        if ((a * c).len() < 0.1 || (b * d).len() < 0.1) continue;
        ASSERT_EQ(1, m.getNullspace(n, false));
        // The normal equations square the condition of the columns.
        ASSERT_LT(std::fabs(n[0].len() - 1.0) + (m * mgPoint_c(n[0]) - mgPoint_c()).len(), 1e-10);
    }
}

} // namespace
