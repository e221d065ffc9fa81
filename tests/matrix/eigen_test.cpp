// SPDX-License-Identifier: MIT
// Eigenvalues and eigenvectors of symmetric matrices.

#include "common/geometry.h"

namespace {

using namespace common;

mgMatrix_c symmetric(double d0, double d1, double d2, double m10, double m20, double m21) {
    double const elements[9] = {d0, m10, m20, m10, d1, m21, m20, m21, d2};
    return mgMatrix_c(elements, 0);
}

struct Eigen {
    int converged;
    double values[3];
    U vectors[3];
};

Eigen eigensystem(mgMatrix_c const &m) {
    Eigen e{};
    e.converged = m.getEigensystem(e.values, e.vectors);
    return e;
}

TEST(Eigen, PairsAreSortedAndBelongToEachOther) {
    Random random;
    for (int i = 0; i < 3000; ++i) {
        auto const d = random.triple<V>(-1, 1), t = random.triple<V>(-1, 1);
        double const off = std::pow(10.0, 3 - i % 10); // from 1e3 to 1e-6
        mgMatrix_c const m =
            symmetric(d.x(), d.y(), d.z(), off * t.x(), off * t.y(), i % 3 * off * t.z());
        Eigen const e = eigensystem(m);
        ASSERT_LE(e.values[0], e.values[1]);
        ASSERT_LE(e.values[1], e.values[2]);
        for (int k = 0; k < 3; ++k) {
            V const mapped = m * P(e.vectors[k]);
            ASSERT_LT(gap(mapped, e.values[k] * e.vectors[k]), 1e-11);
        }
    }
}

TEST(Eigen, IterationEndsByFixedBounds) {
    auto const rotated = [](double off) {
        return eigensystem(symmetric(1, 1, 1, off, 0, 0)).vectors[0].x() < 1.0;
    };
    EXPECT_FALSE(rotated(below(1e-13) / 2));
    EXPECT_TRUE(rotated(1e-13 / 2)); // by an eighth of a full turn
    // Elements off the diagonal do not end it although the diagonal absorbs them.
    EXPECT_EQ(0, eigensystem(symmetric(1e17, 1e17, 1e17, 1, 0, 2)).converged);
}

TEST(Eigen, HostileMatricesEndAndHaveANullSpace) {
    Random random;
    for (int i = 0; i < 3000; ++i) {
        mgMatrix_c m;
        for (int k = 0; k < 9; ++k) m[k] = random.hostile();
        U n[3];
        EXPECT_LE(m.getNullspace(n, i % 2 == 0), 3);
        EXPECT_LE(eigensystem(m).converged, 1);
    }
}

TEST(Eigen, PairsBelongToTheSymmetricPartAndEitherOutputMayBeMissing) {
    mgMatrix_c const m({2, 3, 0, -1, 2, 0, 0, 0, 5}, 0); // its eigenvalues are 1, 3 and 5
    double values[3];
    U vectors[3];
    EXPECT_EQ(1, m.getEigensystem(values, nullptr));
    EXPECT_EQ(1, m.getEigensystem(nullptr, vectors));
    EXPECT_NEAR(1.0, values[0], 1e-15);
    EXPECT_BITS_EQ(U::zAxis(), vectors[2]);
}

TEST(Eigen, MatrixFromEigenDataIgnoresTheValues) {
    V const frame[3] = {{0.6, 0.8, 0}, {-0.8, 0.6, 0}, {0, 0, 1}};
    double const values[3] = {2, 3, 4};
    mgMatrix_c const m = mgMatrix_c::getMatrixFromEigs(values, frame);
    for (int i = 0; i < 3; ++i) EXPECT_LT(gap(frame[i], V(&m[3 * i])), 1e-15);
    EXPECT_EQ(0, m.isIdentity());
}

} // namespace
