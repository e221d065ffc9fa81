// SPDX-License-Identifier: MIT
// Textbook methods. Their accuracy comes from the number of digits.

#include "reference.h"

#include <algorithm>
#include <utility>

namespace reference {

namespace {

std::vector<Root> quadraticRoots(Real const &b, Real const &c) {
    Real const disc = b * b / 4 - c;
    if (disc < 0) return {{-b / 2, sqrt(-disc)}, {-b / 2, -sqrt(-disc)}};
    return {{-b / 2 - sqrt(disc), 0}, {-b / 2 + sqrt(disc), 0}};
}

/// x^3 + b x^2 + c x + d by Viete (three real roots) or Cardano (one).
std::vector<Root> cubicRoots(Real const &b, Real const &c, Real const &d) {
    Real const shift = b / 3;
    Real const p = c - b * shift;
    Real const q = 2 * shift * shift * shift - shift * c + d; // y^3 + p y + q with x = y - shift
    Real const disc = q * q / 4 + p * p * p / 27;
    if (disc < 0) {
        Real const radius = 2 * sqrt(-p / 3);
        Real const angle = acos(std::clamp<Real>(3 * q / (p * radius), -1, 1)) / 3;
        Real const near = radius * cos(angle); // the others a third of a turn to either side
        Real const far = sqrt(3 * (radius * radius - near * near)) / 2;
        return {{near - shift, 0}, {far - near / 2 - shift, 0}, {-far - near / 2 - shift, 0}};
    }
    Real const u = cbrt(q > 0 ? -q / 2 - sqrt(disc) : -q / 2 + sqrt(disc));
    Real const v = u == 0 ? Real(0) : -p / (3 * u);
    Real const im = sqrt(Real(3)) / 2 * (u - v);
    return {{u + v - shift, 0}, {-(u + v) / 2 - shift, im}, {-(u + v) / 2 - shift, -im}};
}

/// One rotation of the Jacobi iteration. The rows of v hold the product of all rotations.
void clear(Matrix &a, Matrix &v, std::size_t p, std::size_t q) {
    if (a[p][q] == 0) return;
    Real const theta = (a[q][q] - a[p][p]) / (2 * a[p][q]);
    Real const t = (theta < 0 ? -1 : 1) / (abs(theta) + sqrt(theta * theta + 1));
    Real const c = 1 / sqrt(t * t + 1);
    Real const s = t * c;
    for (Vector &row : a) {
        Real const ap = row[p];
        row[p] = c * ap - s * row[q];
        row[q] = s * ap + c * row[q];
    }
    for (Matrix *m : {&a, &v}) {
        for (std::size_t i = 0; i < 3; ++i) {
            Real const mp = (*m)[p][i];
            (*m)[p][i] = c * mp - s * (*m)[q][i];
            (*m)[q][i] = s * mp + c * (*m)[q][i];
        }
    }
}

} // namespace

std::vector<Root> roots(std::vector<double> const &coefficients) {
    Real const a = coefficients[0];
    std::vector<Real> monic;
    for (double c : coefficients) monic.push_back(c / a);
    return monic.size() == 3 ? quadraticRoots(monic[1], monic[2])
                             : cubicRoots(monic[1], monic[2], monic[3]);
}

Eigen eigen(Matrix const &matrix) {
    Matrix a = matrix;
    Matrix v{};
    for (std::size_t i = 0; i < 3; ++i) v[i][i] = 1;
    for (int sweep = 0; sweep < 20; ++sweep) {
        clear(a, v, 0, 1);
        clear(a, v, 0, 2);
        clear(a, v, 1, 2);
    }
    std::array<std::size_t, 3> order = {0, 1, 2};
    std::sort(order.begin(), order.end(),
              [&a](std::size_t i, std::size_t j) { return a[i][i] < a[j][j]; });
    Eigen result;
    for (std::size_t i = 0; i < 3; ++i) {
        result.values[i] = a[order[i]][order[i]];
        result.vectors[i] = v[order[i]];
    }
    return result;
}

Vector nullVector(Matrix const &m) { return eigen(product(transposed(m), m)).vectors[0]; }

Matrix product(Matrix const &a, Matrix const &b) {
    Matrix result{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            for (std::size_t k = 0; k < 3; ++k) result[i][j] += a[i][k] * b[k][j];
    return result;
}

Matrix transposed(Matrix const &a) {
    Matrix result;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) result[i][j] = a[j][i];
    return result;
}

Vector cross(Vector const &a, Vector const &b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Real length(Vector const &v) { return sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]); }

} // namespace reference
