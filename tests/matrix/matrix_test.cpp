// SPDX-License-Identifier: MIT
// 3x3 matrices: the flag and the elements as two things, products, the orthonormalisation, repair.

#include <vexmath/matrix.h>

#include <array>
#include <type_traits>

#include "support/geometry.h"

namespace {

using support::above;
using support::below;
using support::kNaN;

static_assert(sizeof(mgMatrix_c) == sizeof(double[10]) - (alignof(double) < 8 ? 4 : 0));
static_assert(std::is_trivially_copyable_v<mgMatrix_c> && std::is_standard_layout_v<mgMatrix_c>);

double const turned[9] = {0.6, 0.8, 0.0, -0.8, 0.6, 0.0, 0.0, 0.0, 1.0};
double const counted[9] = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 10.0};

/// Elements as given under the flag of the identity.
mgMatrix_c stale(double const (&elements)[9]) {
    mgMatrix_c m;
    for (int k = 0; k < 9; ++k) m[k] = elements[k];
    return m;
}

TEST(Matrix, FlagIsComputedFromRawRowsWithin1em12) {
    for (int k = 0; k < 9; ++k) {
        double rows[9] = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};
        double const axis = rows[k];
        rows[k] = axis == 0.0 ? -below(1e-12) : 1.0 - 0.999e-12;
        EXPECT_EQ(1, mgMatrix_c(rows, 0).isIdentity()) << k;
        EXPECT_BITS_EQ(rows[k], mgMatrix_c(rows, 0)[k]);
        rows[k] = axis == 0.0 ? 1e-12 : 1.0 + 1.001e-12;
        EXPECT_EQ(0, mgMatrix_c(rows, 0).isIdentity()) << k;
        rows[k] = kNaN;
        EXPECT_EQ(0, mgMatrix_c(rows, 0).isIdentity()) << k;
    }
    mgMatrix_c m(turned, 0);
    m += m, m.zero(), m.tensor(mgUnitVector_c::xAxis(), mgUnitVector_c::xAxis()), m.normalize(1, 0);
    EXPECT_EQ(0, m.isIdentity()); // none of these looks at the flag
    EXPECT_EQ(1, (stale(counted) += m).isIdentity());
}

TEST(Matrix, SumDifferenceAndTransposeClaimToBeTheIdentity) {
    mgMatrix_c const m(counted, 0);
    for (auto const &result : {m + m, m - m, m.transpose()}) EXPECT_EQ(1, result.isIdentity());
    EXPECT_EQ(8.0, (m + m)(1, 0));
    EXPECT_EQ(2.0, m.transpose().element(1, 0));
    EXPECT_BITS_EQ(mgMatrix_c(), m.transpose() * (m + m)); // and products believe it
}

TEST(Matrix, DifferenceIsTheArgumentMinusThis) {
    EXPECT_EQ(4.8, (mgMatrix_c(turned, 0) - mgMatrix_c(counted, 0))(1, 0));
}

TEST(Matrix, MatricesFlaggedAsTheIdentityAreEqual) {
    EXPECT_EQ(1, mgMatrix_c() == stale(counted));
    EXPECT_EQ(0, mgMatrix_c(counted, 0) == stale(counted));
    mgMatrix_c a(counted, 0), b = a;
    EXPECT_EQ(1, a == b);
    a[1] = 0.0, b[1] = below(1e-12);
    EXPECT_EQ(1, a == b);
    b[1] = 1e-12;
    EXPECT_EQ(0, a == b);
    a[1] = b[1] = kNaN;
    EXPECT_EQ(0, a == b);
}

TEST(Matrix, AnIndexOutOfRangeMeansElementZero) {
    mgMatrix_c m(counted, 0);
    for (int k : {9, -1, 1 << 30, std::numeric_limits<int>::min()}) EXPECT_EQ(&m[0], &m[k]);
    EXPECT_EQ(&m(2, 1), &m[7]);
    EXPECT_BITS_EQ(-3.0, m.getDeterminant());
    mgUnitVector_c column, row;
    m.getYAxis(&column), m.getIZAxis(&row);
    EXPECT_BITS_EQ(mgVector_c(2.0, 5.0, 8.0), column); // copied, not normalised
    EXPECT_BITS_EQ(mgVector_c(7.0, 8.0, 10.0), row);
    m.tensor(mgVector_c(&m[0]), mgVector_c(&m[3]));
    EXPECT_EQ(3.0 * 5.0, m(2, 1));
}

/// The pass as it is stated, on bare numbers.
std::array<double, 9> onePass(mgMatrix_c const &m, bool lengthsFirst) {
    mgVector_c r0(&m[0]), r1(&m[3]), r2(&m[6]);
    double const e0 = 1.0 - r0.sqlen(), e1 = 1.0 - r1.sqlen(), e2 = 1.0 - r2.sqlen();
    double const d01 = r0 % r1, d02 = r0 % r2, d12 = r1 % r2;
    double error = 0.0;
    double const inOrder[2][6] = {{d12, d02, d01, e2, e0, e1}, {e2, e0, e1, d12, d01, d02}};
    for (double term : inOrder[lengthsFirst]) error += std::fabs(term);
    if (!(error < 1e-15)) {
        r0 = (1.0 + e0 / 2.0) * r0;
        r1 = (1.0 + e1 / 2.0) * r1;
        r1 = r1 - d01 * r0;
        r2 = (r0 * r1) % r2 < 0.0 ? -(r0 * r1) : r0 * r1;
    }
    return {r0.x(), r0.y(), r0.z(), r1.x(), r1.y(), r1.z(), r2.x(), r2.y(), r2.z()};
}

TEST(Matrix, OrthonormalisationIsASinglePassInItsOrder) {
    support::Random random;
    int orderMattered = 0;
    for (int i = 0; i < 5000; ++i) {
        mgMatrix_c m = support::placement(random).rotation();
        double const drift = std::pow(10.0, random.uniform(-17.0, -0.5));
        for (int k = 0; k < 9; ++k) m[k] += drift * random.uniform(-1.0, 1.0);
        if (i % 2) m[6] = -m[6], m[7] = -m[7], m[8] = -m[8];
        if (i % 5 == 0) { // an error half an ulp below 1e-15: the order decides how it rounds
            m = mgMatrix_c();
            m[2] = random.uniform(2e-16, 4e-16), m[5] = random.uniform(2e-16, 4e-16);
            m[1] = 1e-15 - (m[2] + m[5]) - 0x1p-103;
        }
        auto const expected = onePass(m, false), other = onePass(m, true);
        mgMatrix_c normalised = m, lengthsFirst = m;
        normalised.normalize(1, 0), lengthsFirst.normalize(0, 1);
        for (int k = 0; k < 9; ++k) {
            ASSERT_BITS_EQ(expected[static_cast<unsigned>(k)], normalised[k]);
            ASSERT_BITS_EQ(other[static_cast<unsigned>(k)], lengthsFirst[k]);
        }
        orderMattered += expected != other;
        ASSERT_GT(normalised.getDeterminant() * m.getDeterminant(), 0.0); // mirrors stay mirrors
    }
    EXPECT_GT(orderMattered, 0);
}

TEST(Matrix, ProductsUseElementsUnlessBothFlagsAreSet) {
    double const drifted[9] = {0.6, 0.81, 0.0, -0.8, 0.6, 0.0, 0.0, 0.0, 1.0};
    mgMatrix_c const m(drifted, 0), one;
    EXPECT_BITS_EQ(one, stale(drifted) * stale(counted));
    EXPECT_BITS_EQ(mgMatrix_c(drifted, 1), m * one);
    EXPECT_BITS_EQ(mgMatrix_c(drifted, 1), one * m);
    EXPECT_BITS_EQ(m * m, m * stale(drifted));
    EXPECT_EQ(0, (m * stale(drifted)).isIdentity());
    mgMatrix_c const back = mgMatrix_c(turned, 0) * mgMatrix_c(turned, 0).inverse();
    EXPECT_EQ(1, back.isIdentity()); // an honest flag again
    // The inverse looks at no flag either.
    double const transposed[9] = {0.6, -0.8, 0.0, 0.81, 0.6, 0.0, 0.0, 0.0, 1.0};
    EXPECT_BITS_EQ(mgMatrix_c(transposed, 1), stale(drifted).inverse());
    EXPECT_EQ(0, stale(drifted).inverse().isIdentity());
}

TEST(Matrix, OnlyVectorsTakeShortCuts) {
    double const inf = support::kInfinity;
    mgMatrix_c const one, m(counted, 0);
    mgVector_c const v(inf, -0.0, 1.0);
    EXPECT_BITS_EQ(v, v * one);
    EXPECT_BITS_EQ(mgPoint_c(inf, kNaN, kNaN), mgPoint_c(v) * one);
    EXPECT_BITS_EQ(mgPoint_c(inf, kNaN, kNaN), one * mgPoint_c(v));
    double const infinite[9] = {inf, inf, inf, inf, inf, inf, inf, inf, inf};
    EXPECT_BITS_EQ(mgVector_c(), mgVector_c(-0.0, 0.0, -0.0) * mgMatrix_c(infinite, 0));
    EXPECT_BITS_EQ(mgVector_c(30.0, 36.0, 45.0), mgVector_c(1.0, 2.0, 3.0) * stale(counted));
    EXPECT_BITS_EQ(mgPoint_c(30.0, 36.0, 45.0), mgPoint_c(1.0, 2.0, 3.0) * m);
    EXPECT_BITS_EQ(mgPoint_c(14.0, 32.0, 53.0), m * mgPoint_c(1.0, 2.0, 3.0));
}

TEST(Matrix, NearnessIncludesOrExcludesItsBound) {
    auto const check = [](int k, double value, int nearZero, int nearIdentity) {
        mgMatrix_c zero, one;
        zero.zero();
        zero[k] = one[k] = value;
        EXPECT_EQ(nearZero, zero.isNearZero()) << k << " " << value;
        EXPECT_EQ(nearIdentity, one.isNearIdentity()) << k << " " << value;
    };
    for (int k : {0, 4, 8}) {
        check(k, 0.999999863, 0, 1), check(k, below(0.999999863), 0, 0);
        check(k, 1.000000137, 0, 1), check(k, above(1.000000137), 0, 0);
        check(k, kNaN, 0, 0);
    }
    for (int k : {1, 2, 3, 5, 6, 7}) {
        check(k, 0.000523599, 0, 1), check(k, above(0.000523599), 0, 0);
        check(k, -0.000523599, 0, 1), check(k, -0.0005236, 0, 0);
        check(k, below(1e-08), 1, 1), check(k, -1e-08, 0, 1), check(k, kNaN, 0, 0);
    }
}

void checkRepair(double const (&rows)[9], int expected, double const (&after)[9]) {
    mgMatrix_c m(rows, 0);
    EXPECT_EQ(expected, m.iValidateRepairOrthonormality());
    EXPECT_BITS_EQ(mgMatrix_c(after, 0), m);
}

TEST(Matrix, RepairSnapsAllRowsOrNone) {
    double const one[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1}, mixed[9] = {0, -1, 0, 1, 0, 0, 0, 0, -1};
    double const in = above(0.99999999), on = 0.99999999, s = below(1e-08);
    checkRepair({0.999999995, 5e-9, 0, -5e-9, 0.999999995, 0, 0, 0, 1}, 1, one);
    checkRepair({s, -in, 0, in, -s, 0, 0, 0, -1}, 1, mixed);
    checkRepair({on, s, 0, s, on, 0, 0, 0, 1}, 0, {on, s, 0, s, on, 0, 0, 0, 1}); // rows 0, 1 stay
    checkRepair({in, s, 0, 1e-08, in, 0, 0, 0, 1}, 0, {in, s, 0, 1e-08, in, 0, 0, 0, 1});
    checkRepair({in, 0, 0, 0, 0.6, 0.8, 0, -0.8, 0.6}, 1, {1, 0, 0, 0, 0.6, 0.8, 0, -0.8, 0.6});
    checkRepair({0.6, 0.8, 0, -0.8, 0.6, 0, 0, 2e-08, in}, 0,
                {0.6, 0.8, 0, -0.8, 0.6, 0, 0, 2e-08, in});
    checkRepair({0, -1, 0, 1, 0, 0, 0, 0, -1}, 0, mixed);
    mgMatrix_c flagged = stale(counted);
    flagged[0] = in;
    EXPECT_EQ(0, flagged.iValidateRepairOrthonormality());
    EXPECT_EQ(in, flagged[0]); // a set flag is believed
}

} // namespace
