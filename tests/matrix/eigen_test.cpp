// SPDX-License-Identifier: MIT
// Eigenvalues and eigenvectors of symmetric matrices.

#include "common/geometry.h"

namespace {

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

/// The classical iteration, which clears the largest element off the diagonal, step by step.
Eigen eigensystemLiterally(mgMatrix_c m) {
    double v[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    int order[3] = {0, 1, 2}, ended = 0;
    for (int n = 0; n < 51 && ended == 0; ++n) {
        int p = 1, q = 0;
        for (int const other : {0, 1})
            if (std::fabs(m(2, other)) >= std::fabs(m(p, q))) p = 2, q = other;
        double const x = m(p, q), h = m(q, q) - m(p, p), u = h / (2 * x), size = std::fabs(u);
        ended = std::fabs(h) < 1e-13 && std::fabs(2 * x) < 1e-13;
        if (ended != 0) break;
        double const root = (u > 0 ? 1 : -1) / (std::sqrt(u * u + 1) + size);
        double const t = size <= 1e13 ? root : x / h;
        double const c = 1 / std::sqrt(t * t + 1), s = t * c, tau = s / (c + 1);
        int const r = 3 - p - q;
        double const rp = m(p, r), rq = m(q, r);
        m(p, p) -= t * x, m(q, q) += t * x;
        m(p, q) = m(q, p) = 0;
        m(p, r) = m(r, p) = rp - s * (rq + rp * tau);
        m(q, r) = m(r, q) = rq + s * (rp - rq * tau);
        for (int i = 0; i < 3; ++i) {
            double const vp = v[p][i], vq = v[q][i];
            v[p][i] = c * vp - s * vq, v[q][i] = c * vq + s * vp;
        }
        ended = std::fabs(m(1, 0)) + std::fabs(m(2, 0)) + std::fabs(m(2, 1)) <= 1e-20;
    }
    for (auto const &[i, j] : {std::pair(0, 1), std::pair(0, 2), std::pair(1, 2)})
        if (m(order[j], order[j]) < m(order[i], order[i])) std::swap(order[i], order[j]);
    Eigen e{ended, {}, {}};
    for (int k = 0; k < 3; ++k) e.values[k] = m(order[k], order[k]), e.vectors[k] = U(v[order[k]]);
    return e;
}

void CheckLiterally(mgMatrix_c const &m, Caller = {}) {
    Eigen const expected = eigensystemLiterally(m), e = eigensystem(m);
    EXPECT_EQ(expected.converged, e.converged);
    EXPECT_BITS_EQ(V(expected.values), V(e.values));
    for (int k = 0; k < 3; ++k) EXPECT_BITS_EQ(expected.vectors[k], e.vectors[k]);
}

TEST(Eigen, PairsAreSortedAndThoseOfThePlainSteps) {
    for (double const off : {below(1e-13), 1e-13})
        CheckLiterally(symmetric(1, 1, 1, off / 2, 0, 0));
    // Elements off the diagonal do not end it although the diagonal absorbs them.
    CheckLiterally(symmetric(1e17, 1e17, 1e17, 1, 0, 2));
    Random random;
    for (int i = 0; i < 3000 && !HasFailure(); ++i) {
        double k[6]; // ties, or any sizes
        for (double &x : k) x = i % 3 == 0 ? random.below(5) - 2 : random.ofMagnitude(-i % 16, 2);
        mgMatrix_c const m = symmetric(k[0], k[1], k[2], k[3], k[4], k[5]);
        Eigen const e = eigensystem(m);
        CheckLiterally(m);
        EXPECT_TRUE(std::is_sorted(e.values, e.values + 3));
        for (int j = 0; j < 3; ++j)
            ASSERT_LT(gap(m * P(e.vectors[j]), e.values[j] * e.vectors[j]), 1e-12);
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
