// SPDX-License-Identifier: MIT
// 3x3 matrices: flag and elements, products, orthonormalisation, repair.

#include "common/geometry.h"

namespace {

using Nine = double[9];
Nine const one = {1, 0, 0, 0, 1, 0, 0, 0, 1}, counted = {1, 2, 3, 4, 5, 6, 7, 8, 10};
Nine const drifted = {0.6, 0.81, 0, -0.8, 0.6, 0, 0, 0, 1};

mgMatrix_c raw(Nine const &elements) { return mgMatrix_c(elements, 0); }

/// A matrix flagged as the identity with the given elements.
mgMatrix_c stale(Nine const &elements) {
    mgMatrix_c m;
    for (int k = 0; k < 9; ++k) m[k] = elements[k];
    return m;
}

TEST(Matrix, FlagIsComputedFromRawRowsWithin1em12) {
    auto const check = [](int k, double element, int flag, Caller = {}) {
        Nine rows = {1, 0, 0, 0, 1, 0, 0, 0, 1};
        rows[k] = element;
        EXPECT_EQ(flag, raw(rows).isIdentity()) << k << " " << element;
    };
    for (int k = 0; k < 9; ++k) {
        check(k, one[k] == 0.0 ? -below(1e-12) : 1.0 - 0.999e-12, 1);
        check(k, one[k] == 0.0 ? 1e-12 : 1.0 + 1.001e-12, 0), check(k, kNaN, 0);
    }
}

TEST(Matrix, SumDifferenceAndTransposeClaimToBeTheIdentity) {
    mgMatrix_c const m = raw(counted), transposed = m.transpose(), sum = m + m;
    EXPECT_EQ(1, sum.isIdentity());
    EXPECT_EQ(1, (m - sum).isIdentity());
    EXPECT_EQ(1, transposed.isIdentity());
    EXPECT_EQ(8.0, sum(1, 0));
    EXPECT_EQ(2.0, transposed(1, 0));
}

TEST(Matrix, DifferenceIsTheArgumentMinusThis) {
    EXPECT_EQ(4.8, (raw(drifted) - raw(counted)).element(1, 0));
    EXPECT_EQ(9.0, (raw(drifted) - raw(counted)).element(2, 2));
}

TEST(Matrix, AProductWithAVectorUsesEachElement) {
    V const row(1, 2, 4);
    for (int k = 0; k < 9; ++k) {
        Nine almostOne = {1, 0, 0, 0, 1, 0, 0, 0, 1};
        almostOne[k] += 0.5;
        V expected = row;
        expected[k % 3] += 0.5 * row[k / 3];
        EXPECT_BITS_EQ(expected, row * raw(almostOne)) << k;
    }
}

TEST(Matrix, MatricesFlaggedAsTheIdentityAreEqual) {
    EXPECT_EQ(1, raw(one) == stale(counted));
    EXPECT_EQ(0, raw(counted) == stale(counted));
    for (double more : {below(1e-12), -1e-12}) {
        mgMatrix_c other = raw(drifted);
        other[2] = more;
        EXPECT_EQ(more > 0, raw(drifted) == other);
    }
}

TEST(Matrix, AnIndexOutOfRangeMeansElementZero) {
    mgMatrix_c m = raw(counted);
    for (int k : {9, -1, 1 << 30, std::numeric_limits<int>::min()}) EXPECT_EQ(&m[0], &m[k]);
    EXPECT_EQ(-3.0, m.getDeterminant());
}

TEST(Matrix, OrthonormalisationIsASinglePassInItsOrder) {
    auto const check = [](int order, Nine const &rows, Nine const &after, Caller = {}) {
        mgMatrix_c m = raw(rows);
        m.normalize(1, order);
        for (int k = 0; k < 9; ++k) EXPECT_NEAR(after[k], m[k], 1e-30) << k;
    };
    check(0, {2, 0, 0, 1, 2, 0, 0, 0, 1}, {-1, 0, 0, 1, -2, 0, 0, 0, 2}); // far from orthonormal
    check(1, {2, 0, 0, 1, 2, 0, 0, 0, -1}, {-1, 0, 0, 1, -2, 0, 0, 0, -2});
    check(0, {1, 0, 0, 0, 1, 0, 0, 0, kNaN}, one); // row 2 is replaced
    // The order decides whether the error rounds to the bound, 1e-15, or below it.
    Nine const sheared = {1, 9.7e-16, 1e-17, 0, 1, 2e-17, 0, 0, 1};
    check(1, sheared, sheared);
    mgMatrix_c m = raw(sheared);
    m.normalize(1, 0);
    U const row[] = {U(V(sheared), 0), U(V(sheared + 3), 0), U(V(sheared + 6), 0)};
    EXPECT_BITS_EQ(m, mgMatrix_c(sheared, 1));
    EXPECT_BITS_EQ(m, mgMatrix_c(0, row[0], row[1], row[2]));
    EXPECT_BITS_EQ(V(0, -9.7e-16, 0), V(mgMatrix_c(1, row[0], row[1], row[2])[3], m[3], 0));
}

TEST(Matrix, ProductsUseElementsUnlessBothFlagsAreSet) {
    mgMatrix_c const m = raw(drifted), normalised(drifted, 1);
    EXPECT_BITS_EQ(raw(one), stale(drifted) * stale(counted));
    EXPECT_BITS_EQ(normalised, m * raw(one));
    EXPECT_BITS_EQ(m * m, m * stale(drifted));
    mgMatrix_c const turn({0.6, 0.8, 0, -0.8, 0.6, 0, 0, 0, 1}, 1);
    EXPECT_EQ(1, (turn * turn.inverse()).isIdentity()); // the flag is computed
    // The inverse ignores the flag too.
    EXPECT_BITS_EQ(mgMatrix_c({0.6, -0.8, 0, 0.81, 0.6, 0, 0, 0, 1}, 1), stale(drifted).inverse());
}

TEST(Matrix, OnlyVectorsTakeShortCuts) {
    double const inf = kInfinity;
    V const v(inf, -0.0, 1.0);
    EXPECT_BITS_EQ(v, v * raw(one));
    EXPECT_BITS_EQ(P(inf, kNaN, kNaN), P(v) * raw(one));
    EXPECT_BITS_EQ(V(), V(-0.0, 0.0, -0.0) * raw({inf, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_BITS_EQ(V(30.0, 36.0, 45.0), V(1.0, 2.0, 3.0) * stale(counted));
    EXPECT_BITS_EQ(P(14.0, 32.0, 53.0), raw(counted) * P(1.0, 2.0, 3.0));
}

TEST(Matrix, NearnessIncludesOrExcludesItsBound) {
    auto const check = [](int k, double value, int nearZero, int nearIdentity, Caller = {}) {
        mgMatrix_c zero, nearOne;
        zero.zero();
        zero[k] = nearOne[k] = value;
        EXPECT_EQ(nearZero, zero.isNearZero()) << k << " " << value;
        EXPECT_EQ(nearIdentity, nearOne.isNearIdentity()) << k << " " << value;
    };
    for (int k = 0; k < 9; ++k) {
        bool const off = one[k] == 0.0;
        check(k, off ? -0.000523599 : 0.999999863, 0, 1);
        check(k, below(off ? -0.000523599 : 0.999999863), 0, 0);
        check(k, above(off ? 0.000523599 : 1.000000137), 0, 0);
        check(k, below(1e-08), 1, off), check(k, -1e-08, 0, off), check(k, kNaN, 0, 0);
    }
}

TEST(Matrix, RepairSnapsAllRowsOrNone) {
    auto const check = [](Nine const &rows, int expected, Nine const &after, Caller = {}) {
        mgMatrix_c m = raw(rows);
        EXPECT_EQ(expected, m.iValidateRepairOrthonormality());
        EXPECT_BITS_EQ(raw(after), m);
    };
    double const in = above(0.99999999), on = 0.99999999, s = below(1e-08);
    check({0.999999995, 5e-9, 0, -5e-9, 0.999999995, 0, 0, 0, 1}, 1, one);
    check({s, -in, 0, in, -s, 0, 0, 0, -1}, 1, {0, -1, 0, 1, 0, 0, 0, 0, -1});
    Nine const refused[] = {{on, s, 0, s, on, 0, 0, 0, 1}, // rows 0 and 1 are not along an axis
                            {in, 1e-08, 0, 0, 0.6, 0.8, 0, -0.8, 0.6},
                            {in, 0, 0, 0, 0.6, 0.8, 0, 2e-08, in}}; // after a row that was snapped
    for (Nine const &rows : refused) check(rows, 0, rows);
    EXPECT_EQ(0, stale({in, 0, 0, 0, 1, 0, 0, 0, 1}).iValidateRepairOrthonormality()); // trusted
    EXPECT_EQ(1, raw({kNaN, 0, 0, 0, 1, 0, 0, 0, 1}).iValidateRepairOrthonormality()); // differs
}

} // namespace
