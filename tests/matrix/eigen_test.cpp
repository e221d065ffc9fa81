// SPDX-License-Identifier: MIT
// Eigenvalues and eigenvectors of symmetric matrices.

#include "support/geometry.h"

#include <utility>

namespace {

mgMatrix_c symmetric(double d0, double d1, double d2, double m10, double m20, double m21) {
    double const elements[9] = {d0, m10, m20, m10, d1, m21, m20, m21, d2};
    return mgMatrix_c(elements, 0);
}

struct Eigen {
    int converged;
    double values[3];
    mgUnitVector_c vectors[3];
};

Eigen eigensystem(mgMatrix_c const &m) {
    Eigen e{};
    e.converged = m.getEigensystem(e.values, e.vectors);
    return e;
}

/// The iteration as it is laid down, without short cuts for small angles.
Eigen iteratedInFull(mgMatrix_c const &m) {
    double A[3][3], V[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (int k = 0; k < 9; ++k) A[k / 3][k % 3] = (m[k] + m(k % 3, k / 3)) * 0.5;
    Eigen e{1, {}, {}};
    for (int made = 0;
         made == 0 || std::fabs(A[1][0]) + std::fabs(A[2][0]) + std::fabs(A[2][1]) > 1e-20;
         ++made) {
        if (made > 50) {
            e.converged = 0;
            break;
        }
        int p = 1, q = 0;
        if (std::fabs(A[2][0]) >= std::fabs(A[p][q])) p = 2;
        if (std::fabs(A[2][1]) >= std::fabs(A[p][q])) p = 2, q = 1;
        double const h = A[q][q] - A[p][p], g = 2 * A[p][q], u = h / g;
        if (std::fabs(h) < 1e-13 && std::fabs(g) < 1e-13) break;
        double t = A[p][q] / h;
        if (std::fabs(u) <= 1e13) t = (u > 0 ? 1 : -1) / (std::sqrt(u * u + 1) + std::fabs(u));
        double const c = 1 / std::sqrt(t * t + 1), s = t * c, tau = s / (c + 1);
        int const r = 3 - p - q;
        A[p][p] -= t * A[p][q];
        A[q][q] += t * A[p][q];
        A[p][q] = A[q][p] = 0;
        double const rp = A[r][p], rq = A[r][q];
        A[r][p] = A[p][r] = rp - s * (rq + rp * tau);
        A[r][q] = A[q][r] = rq + s * (rp - rq * tau);
        for (auto &row : V) {
            double const vp = row[p], vq = row[q];
            row[p] = c * vp - s * vq;
            row[q] = c * vq + s * vp;
        }
    }
    int order[3] = {0, 1, 2};
    for (auto [i, j] : {std::pair(0, 1), std::pair(0, 2), std::pair(1, 2)})
        if (A[order[j]][order[j]] < A[order[i]][order[i]]) std::swap(order[i], order[j]);
    for (int i = 0; i < 3; ++i) {
        e.values[i] = A[order[i]][order[i]];
        e.vectors[i] = {V[0][order[i]], V[1][order[i]], V[2][order[i]]};
    }
    return e;
}

Eigen CheckAgainstFull(mgMatrix_c const &m) {
    Eigen const got = eigensystem(m), expected = iteratedInFull(m);
    EXPECT_EQ(expected.converged, got.converged);
    for (int i = 0; i < 3; ++i) {
        EXPECT_BITS_EQ(expected.values[i], got.values[i]);
        EXPECT_BITS_EQ(expected.vectors[i], got.vectors[i]);
    }
    return got;
}

TEST(Eigen, PairsHaveTheBitsOfTheFullIteration) {
    support::Random random;
    for (int i = 0; i < 3000 && !HasFailure(); ++i) {
        double const reach = i % 10 - 3;              // off-diagonal elements from 1e3 to 1e-6
        double const size = random.ofMagnitude(0, 2); // and of the diagonal
        auto const off = [&] { return size * random.ofMagnitude(-reach, 0.5 - reach); };
        auto const on = [&] { return size * random.uniform(-1, 1); };
        CheckAgainstFull(symmetric(on(), on(), on(), off(), off(), off()));
        // Ties and zeros: few distinct elements.
        auto const few = [&] { return random.below(3) - 1.0; };
        mgMatrix_c const m = symmetric(few(), few(), few(), few(), few(), few());
        Eigen const e = CheckAgainstFull(m);
        EXPECT_LT(support::gap(m * mgPoint_c(e.vectors[2]), e.values[2] * e.vectors[2]), 1e-14);
    }
}

TEST(Eigen, IterationEndsByFixedBounds) {
    double const small = support::below(1e-13) / 2;
    EXPECT_EQ(1.0, CheckAgainstFull(symmetric(1, 1, 1, small, 0, 0)).vectors[0].x());
    CheckAgainstFull(symmetric(1, 1, 1, 1e-13 / 2, 0, 0)); // turned by an eighth
    CheckAgainstFull(symmetric(0, 1e-13, 1, small, 0, 0));
    // Large elements off the diagonal do not end it although the diagonal swallows them.
    EXPECT_EQ(0, CheckAgainstFull(symmetric(1e17, 1e17, 1e17, 1, 0, 2)).converged);
}

TEST(Eigen, HostileMatricesEndAndHaveANullSpace) {
    support::Random random;
    for (int i = 0; i < 3000; ++i) {
        mgMatrix_c m;
        for (int k = 0; k < 9; ++k) m[k] = random.hostile();
        mgUnitVector_c n[3];
        EXPECT_LE(m.getNullspace(n, i % 2 == 0) + eigensystem(m).converged, 4);
    }
}

TEST(Eigen, BelongToTheSymmetricPartAndEitherOutputMayBeMissing) {
    mgMatrix_c const m({2, 3, 0, -1, 2, 0, 0, 0, 5}, 0); // of which 1, 3 and 5 are the values
    double values[3];
    mgUnitVector_c vectors[3];
    EXPECT_EQ(2, m.getEigensystem(values, nullptr) + m.getEigensystem(nullptr, vectors));
    EXPECT_NEAR(1.0, values[0], 1e-15);
    EXPECT_BITS_EQ(eigensystem(m).vectors[2], vectors[2]);
}

TEST(Eigen, MatrixFromEigenDataIgnoresTheValues) {
    mgVector_c const frame[3] = {{0.6, 0.8, 0}, {-0.8, 0.6, 0}, {0, 0, 1}};
    double const values[3] = {2, 3, 4};
    mgMatrix_c const m = mgMatrix_c::getMatrixFromEigs(values, frame);
    for (int i = 0; i < 3; ++i) EXPECT_LT(support::gap(frame[i], mgVector_c(&m[3 * i])), 1e-15);
    EXPECT_EQ(0, m.isIdentity());
    mgVector_c const axes[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    EXPECT_EQ(1, mgMatrix_c::getMatrixFromEigs(nullptr, axes).isIdentity());
}

} // namespace
