// SPDX-License-Identifier: MIT
// Eigenvalues and eigenvectors of symmetric matrices.

#include "support/numbers.h"

#include <vexmath/matrix.h>
#include <vexmath/mg_vector.h>

#include <algorithm>
#include <utility>

#include <gtest/gtest.h>

namespace {

mgMatrix_c matrix(double m00, double m01, double m02, double m10, double m11, double m12,
                  double m20, double m21, double m22) {
    double const elements[9] = {m00, m01, m02, m10, m11, m12, m20, m21, m22};
    return mgMatrix_c(elements, 0);
}

mgMatrix_c symmetric(double d0, double d1, double d2, double m10, double m20, double m21) {
    return matrix(d0, m10, m20, m10, d1, m21, m20, m21, d2);
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

TEST(Eigen, OfADiagonalMatrixAreItsElementsInOrder) {
    Eigen const e = eigensystem(symmetric(3, 1, 2, 0, 0, 0));
    EXPECT_EQ(1, e.converged);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(i + 1, e.values[i]);
    EXPECT_BITS_EQ(mgUnitVector_c::yAxis(), e.vectors[0]);
    EXPECT_BITS_EQ(mgUnitVector_c::zAxis(), e.vectors[1]);
    EXPECT_BITS_EQ(mgUnitVector_c::xAxis(), e.vectors[2]);
}

TEST(Eigen, BelongToTheSymmetricPartAndEitherOutputMayBeMissing) {
    mgMatrix_c const m = matrix(2, 3, 0, -1, 2, 0, 0, 0, 5);
    Eigen const e = eigensystem(m);
    double const expected[3] = {1, 3, 5};
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(expected[i], e.values[i], 1e-15);
    EXPECT_LT(e.vectors[0].x() * e.vectors[0].y(), 0.0);
    double values[3];
    mgUnitVector_c vectors[3];
    EXPECT_EQ(1, m.getEigensystem(values, nullptr));
    EXPECT_EQ(1, m.getEigensystem(nullptr, vectors));
    EXPECT_BITS_EQ(e.values[2], values[2]);
    EXPECT_BITS_EQ(e.vectors[2], vectors[2]);
    EXPECT_EQ(1, m.getEigensystem(nullptr, nullptr));
}

// Between equal diagonal elements; with a difference of 1e-13 there is a rotation again.
TEST(Eigen, TinyElementsBetweenCloseOnesAreLeftAlone) {
    double const small = std::nextafter(1e-13, 0.0) / 2;
    EXPECT_EQ(mgUnitVector_c::xAxis().x(),
              eigensystem(symmetric(1, 1, 1, small, 0, 0)).vectors[0].x());
    EXPECT_NE(1.0, std::fabs(eigensystem(symmetric(1, 1, 1, 1e-13 / 2, 0, 0)).vectors[0].x()));
    EXPECT_NE(1.0, std::fabs(eigensystem(symmetric(0, 1e-13, 1, small, 0, 0)).vectors[0].x()));
}

// Large elements off the diagonal do not end the iteration although the diagonal swallows them.
TEST(Eigen, ElementsLostBesideEqualOnesDoNotConverge) {
    Eigen const e = eigensystem(symmetric(1e17, 1e17, 1e17, 1, 0, 2));
    EXPECT_EQ(0, e.converged);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(1e17, e.values[i]);
        EXPECT_NEAR(0, e.vectors[i] % e.vectors[(i + 1) % 3], 1e-14);
    }
}

/// The iteration as it is laid down, without short cuts for small angles.
Eigen iteratedInFull(mgMatrix_c const &m) {
    double A[3][3], V[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) A[i][j] = (m(i, j) + m(j, i)) * 0.5;
    Eigen e{1, {}, {}};
    for (int made = 0;
         made == 0 || std::fabs(A[1][0]) + std::fabs(A[2][0]) + std::fabs(A[2][1]) > 1e-20;
         ++made) {
        if (made > 50) {
            e.converged = 0;
            break;
        }
        int p = 1, q = 0;
        for (int i = 1; i < 3; ++i)
            for (int j = 0; j < i; ++j)
                if (std::fabs(A[i][j]) >= std::fabs(A[p][q])) p = i, q = j;
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

void CheckAgainstFull(mgMatrix_c const &m) {
    Eigen const got = eigensystem(m), expected = iteratedInFull(m);
    ASSERT_EQ(expected.converged, got.converged);
    for (int i = 0; i < 3; ++i) {
        ASSERT_BITS_EQ(expected.values[i], got.values[i]);
        ASSERT_BITS_EQ(expected.vectors[i], got.vectors[i]);
    }
}

/// |A v - value v| and the angles between the vectors stay within roundings of the largest element.
void CheckEigenpairs(mgMatrix_c const &m, double size) {
    Eigen const e = eigensystem(m);
    ASSERT_EQ(1, e.converged);
    for (int i = 0; i < 3; ++i) {
        mgVector_c const image =
            m * mgPoint_c(e.vectors[i]) - mgPoint_c(e.values[i] * e.vectors[i]);
        ASSERT_LT(image.len(), 1e-14 * size);
        ASSERT_NEAR(0.0, e.vectors[i] % e.vectors[(i + 1) % 3], 1e-14);
        ASSERT_NEAR(1.0, e.vectors[i].len(), 1e-15);
        ASSERT_LE(e.values[0], e.values[i]);
        ASSERT_GE(e.values[2], e.values[i]);
    }
}

TEST(Eigen, PairsOfRandomMatricesSolveTheProblemWithTheBitsOfTheFullIteration) {
    support::Random random;
    for (int i = 0; i < 3000; ++i) {
        double const reach = i % 10 - 3;              // off-diagonal elements from 1e3 to 1e-6
        double const size = random.ofMagnitude(0, 2); // and of the diagonal
        auto const off = [&] { return size * random.ofMagnitude(-reach, 0.5 - reach); };
        auto const on = [&] { return size * random.uniform(-1, 1); };
        mgMatrix_c m = symmetric(on(), on(), on(), off(), off(), off());
        CheckEigenpairs(m, std::fabs(size) * std::max(1.0, std::pow(10.0, 0.5 - reach)));
        CheckAgainstFull(m);
        // Ties and zeros: few distinct elements.
        auto const few = [&] { return random.below(3) - 1.0; };
        CheckAgainstFull(symmetric(few(), few(), few(), few(), few(), few()));
    }
}

TEST(Eigen, HostileMatricesEndAndNaNDoesNotConverge) {
    support::Random random;
    auto const number = [&] { return random.hostile(); };
    for (int i = 0; i < 3000; ++i)
        eigensystem(symmetric(number(), number(), number(), number(), number(), number()));
    double const nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(0, eigensystem(symmetric(1, nan, 3, 1, 1, 1)).converged);
    EXPECT_EQ(0, eigensystem(symmetric(1, 2, 3, 1, nan, 1)).converged);
}

TEST(Eigen, MatrixFromEigenDataIgnoresTheValues) {
    mgVector_c const frame[3] = {{0.6, 0.8, 0}, {-0.8, 0.6, 0}, {0, 0, 1}};
    double const values[3] = {2, 3, 4};
    mgMatrix_c const m = mgMatrix_c::getMatrixFromEigs(values, frame);
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) EXPECT_NEAR(frame[i].component(j), m(i, j), 1e-15);
    EXPECT_EQ(0, m.isIdentity());
    mgVector_c const axes[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    EXPECT_EQ(1, mgMatrix_c::getMatrixFromEigs(nullptr, axes).isIdentity());
}

} // namespace
