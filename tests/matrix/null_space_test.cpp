// SPDX-License-Identifier: MIT
// Null spaces of 3x3 matrices.

#include "support/numbers.h"

#include <vexmath/matrix.h>
#include <vexmath/mg_vector.h>

#include <gtest/gtest.h>

namespace {

mgMatrix_c diagonal(double d0, double d1, double d2) {
    double const elements[9] = {d0, 0, 0, 0, d1, 0, 0, 0, d2};
    return mgMatrix_c(elements, 0);
}

void CheckDimension(int expected, mgMatrix_c const &m, bool force = false) {
    mgUnitVector_c basis[3];
    EXPECT_EQ(expected, m.getNullspace(basis, force));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(i >= expected, basis[i].isNull());
}

TEST(NullSpace, DimensionGoesByFixedBounds) {
    double const tiny = std::nextafter(1e-8, 0.0);
    double const more = std::nextafter(1e-8, 1.0);
    CheckDimension(0, diagonal(1, 2, 3));
    CheckDimension(1, diagonal(1, 1, 1e-8)); // determinant of exactly 1e-08
    CheckDimension(0, diagonal(1, -1, more));
    CheckDimension(1, diagonal(1, -1, more), true);
    CheckDimension(1, diagonal(1, 2, 3), true); // least squares
    CheckDimension(3, diagonal(0, 0, 0));
    CheckDimension(3, diagonal(tiny, -tiny, tiny));
    CheckDimension(2, diagonal(tiny, 1e-8, -tiny));
    // The square of 1e-08 is the bound of the cross product, a step above 1e-16.
    CheckDimension(1, diagonal(1, 1e-8, 0));
    CheckDimension(2, diagonal(1, tiny, 0));
    CheckDimension(0, diagonal(std::numeric_limits<double>::quiet_NaN(), 1, 1));
    CheckDimension(0, diagonal(std::numeric_limits<double>::infinity(), 1, 0));
}

TEST(NullSpace, OfANullMatrixIsTheAxes) {
    mgUnitVector_c basis[3];
    ASSERT_EQ(3, diagonal(0, 0, 0).getNullspace(basis, false));
    EXPECT_BITS_EQ(mgUnitVector_c::xAxis(), basis[0]);
    EXPECT_BITS_EQ(mgUnitVector_c::yAxis(), basis[1]);
    EXPECT_BITS_EQ(mgUnitVector_c::zAxis(), basis[2]);
}

// Each of the three columns in turn depends on the other two, or is zero.
TEST(NullSpace, OfAPlaneOfColumnsIsTakenToZero) {
    support::Random random;
    for (int i = 0; i < 3000; ++i) {
        mgVector_c c[3] = {random.triple<mgVector_c>(-2, 2), random.triple<mgVector_c>(-2, 2), {}};
        if ((c[0] * c[1]).len() < 0.1) continue;
        int const rest = i % 3;
        c[2] =
            i % 2 == 0 ? random.uniform(-2, 2) * c[0] + random.uniform(-2, 2) * c[1] : mgVector_c();
        std::swap(c[2], c[rest]);
        mgMatrix_c m;
        for (int k = 0; k < 9; ++k) m[k] = c[k % 3].component(k / 3);
        mgUnitVector_c n[3];
        ASSERT_EQ(1, m.getNullspace(n, false));
        ASSERT_NEAR(1.0, n[0].len(), 1e-15);
        mgVector_c const image = m * mgPoint_c(n[0]);
        ASSERT_LT(image.len(), 1e-11); // the normal equations square the condition of the columns
    }
}

TEST(NullSpace, NullVectorsOfARankOneMatrixArePerpendicularToItsColumns) {
    support::Random random;
    for (int i = 0; i < 1000; ++i) {
        auto const a = random.triple<mgVector_c>(0.1, 2), b = random.triple<mgVector_c>(0.1, 2);
        mgMatrix_c m;
        m.tensor(a, b); // columns along a
        mgUnitVector_c n[3];
        ASSERT_EQ(2, m.getNullspace(n, false));
        EXPECT_NEAR(0.0, n[0] % a, 1e-14);
        EXPECT_NEAR(0.0, n[1] % a, 1e-14);
        EXPECT_NEAR(1.0, vol(n[0], n[1], mg_Normalise(a)), 1e-14);
        m.tensor(a, a); // symmetric: both sides agree
        ASSERT_EQ(2, m.getNullspace(n, false));
        mgVector_c const image = m * mgPoint_c(n[1]);
        EXPECT_LT(image.len(), 1e-14);
    }
}

TEST(NullSpace, HostileMatricesGiveADimension) {
    support::Random random;
    for (int i = 0; i < 3000; ++i) {
        mgMatrix_c m;
        for (int k = 0; k < 9; ++k) m[k] = random.hostile();
        mgUnitVector_c n[3];
        int const dimension = m.getNullspace(n, i % 2 == 0);
        EXPECT_TRUE(dimension >= 0 && dimension <= 3);
    }
}

} // namespace
