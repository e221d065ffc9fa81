// SPDX-License-Identifier: MIT
// Eigenvalues and eigenvectors of symmetric 3x3 matrices.

#include <vexmath/matrix.h>
#include <vexmath/mg_vector.h>

#include <utility>

namespace {

/// A symmetric matrix during the iteration, and the product of the rotations so far.
struct Working {
    double diagonal[3];
    double off[3];        ///< off[r] is the element whose row and column are the two others than r
    double vectors[3][3]; ///< vectors[j] is column j of the product
};

Working symmetricPart(mgMatrix_c const &m) {
    // Element by element, since the flags of a transpose and a sum would not fit their elements.
    auto const mean = [&m](int i, int j) { return (m(i, j) + m(j, i)) * 0.5; };
    return {{mean(0, 0), mean(1, 1), mean(2, 2)},
            {mean(2, 1), mean(2, 0), mean(1, 0)},
            {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};
}

/// A plane rotation by its tangent, cosine, sine, and the tangent of half its angle.
struct Rotation {
    double t, c, s, tau;
};

/// The sign of a number that is not positive, and of one that is. A table, since a processor would
/// predict a branch wrongly half of the time.
constexpr double kSign[2] = {-1.0, 1.0};

/// The rotation by the smaller angle that clears an element x between diagonal elements h apart:
/// its tangent is the smaller root of t^2 + 2 u t - 1 = 0 with u = h / 2x.
inline Rotation rotationClearing(double x, double h) {
    /// |u| up to which t is computed from it; bound included.
    constexpr double kUsable = 10000000000000.0;
    /// |u| above which the full formula gives the same bits: u^2 + 1 rounds to u^2 and the root of
    /// a rounded square is exact, so sqrt(u^2 + 1) is |u|; and t^2 + 1 rounds to 1.
    constexpr double kSmallAngle = 0x1p27;
    double const u = h / (2.0 * x);
    double const size = std::fabs(u);
    if (!(size <= kSmallAngle)) {
        double const t = size <= kUsable ? kSign[u > 0.0] / (size + size) : x / h;
        return {t, 1.0, t, t * 0.5};
    }
    double const t = kSign[u > 0.0] / (std::sqrt(u * u + 1.0) + size);
    double const c = 1.0 / std::sqrt(t * t + 1.0);
    double const s = t * c;
    return {t, c, s, s / (c + 1.0)};
}

/// Clears the element of row P and column Q. Returns false when it is too small to tell the angle.
/// An inline template, since constant indices keep the working matrix in registers.
template <int P, int Q>
inline bool rotate(Working &a) {
    /// A difference of diagonal elements and a doubled off-diagonal element that are both strictly
    /// below this count as none.
    constexpr double kNoDifference = 1e-13;
    constexpr int R = 3 - P - Q;
    double const x = a.off[R];
    double const h = a.diagonal[Q] - a.diagonal[P];
    if (std::fabs(h) < kNoDifference && std::fabs(2.0 * x) < kNoDifference) return false;

    auto const [t, c, s, tau] = rotationClearing(x, h);
    a.diagonal[P] -= t * x;
    a.diagonal[Q] += t * x;
    a.off[R] = 0.0;
    double const rp = a.off[Q];
    double const rq = a.off[P];
    a.off[Q] = rp - s * (rq + rp * tau);
    a.off[P] = rq + s * (rp - rq * tau);
    for (int i = 0; i < 3; ++i) {
        double const vp = a.vectors[P][i];
        double const vq = a.vectors[Q][i];
        a.vectors[P][i] = c * vp - s * vq;
        a.vectors[Q][i] = c * vq + s * vp;
    }
    return true;
}

/// Clears the largest off-diagonal element; on a tie the last of (1, 0), (2, 0), (2, 1).
bool rotateLargest(Working &a) {
    double const x21 = std::fabs(a.off[0]);
    double const x20 = std::fabs(a.off[1]);
    double const x10 = std::fabs(a.off[2]);
    if (x21 >= x20 && x21 >= x10) return rotate<2, 1>(a);
    if (x20 >= x10) return rotate<2, 0>(a);
    return rotate<1, 0>(a);
}

/// Makes the matrix diagonal. Returns false when the iteration stops at its limit.
bool diagonalise(Working &a) {
    /// Sum of absolute off-diagonal elements that ends the iteration; bound included.
    constexpr double kDiagonal = 1e-20;
    /// After more rotations than this the iteration stops. About nine are enough.
    constexpr int kMostRotations = 50;
    int rotations = 0;
    do {
        if (rotations++ > kMostRotations) return false;
        if (!rotateLargest(a)) return true;
    } while (!(std::fabs(a.off[2]) + std::fabs(a.off[1]) + std::fabs(a.off[0]) <= kDiagonal));
    return true;
}

/// Exchanges two indices when the value of the second is the smaller one.
void putInOrder(double const *values, int &i, int &j) {
    if (values[j] < values[i]) std::swap(i, j);
}

} // namespace

// Method: C. G. J. Jacobi, Ueber ein leichtes Verfahren, die in der Theorie der Saecularstoerungen
// vorkommenden Gleichungen numerisch aufzuloesen, 1846; the update by tau after H. Rutishauser, The
// Jacobi method for real symmetric matrices, 1966.
int mgMatrix_c::getEigensystem(double *values, mgUnitVector_c *vectors) const {
    Working a = symmetricPart(*this);
    bool const converged = diagonalise(a);

    int first = 0;
    int second = 1;
    int third = 2;
    putInOrder(a.diagonal, first, second);
    putInOrder(a.diagonal, first, third);
    putInOrder(a.diagonal, second, third);
    for (int i : {first, second, third}) {
        if (values != nullptr) *values++ = a.diagonal[i];
        if (vectors != nullptr) *vectors++ = mgUnitVector_c(a.vectors[i]);
    }
    return converged;
}

mgMatrix_c mgMatrix_c::getMatrixFromEigs(double const * /*values*/, mgVector_c const *vectors) {
    mgMatrix_c v; // the vectors as columns, on an identity that keeps its flag
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) v(i, j) = vectors[j].component(i);
    }
    // Both v and D carry the flag of the identity, so their product v D is the identity.
    // QUIRK: matrix.h, mgMatrix_c::getMatrixFromEigs: the values are ignored, and the result is the
    // inverse of the matrix v of the vectors. Expected: v D v^-1 with the values on the diagonal of
    // D. Kept: callers and stored data depend on it. (test: MatrixFromEigenDataIgnoresTheValues)
    return mgMatrix_c() * v.inverse();
}
