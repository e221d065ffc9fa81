// SPDX-License-Identifier: MIT
// Roots, eigenpairs and null vectors to at least 50 digits.

#ifndef VEXMATH_TOOLS_ACCURACY_REFERENCE_H
#define VEXMATH_TOOLS_ACCURACY_REFERENCE_H

#include <array>
#include <vector>

#include <boost/multiprecision/cpp_bin_float.hpp>

namespace reference {

/// 150 digits, a third of which remain right for a triple root.
using Real = boost::multiprecision::number<boost::multiprecision::cpp_bin_float<150>,
                                           boost::multiprecision::et_off>;
using Vector = std::array<Real, 3>;
using Matrix = std::array<Vector, 3>; // rows

struct Root {
    Real re, im;
};

/// All roots, also complex ones, of the polynomial with 3 or 4 coefficients, the leading one first.
std::vector<Root> roots(std::vector<double> const &coefficients);

struct Eigen {
    Vector values; ///< ascending
    Matrix vectors;
};
/// REQUIRES a symmetric matrix.
Eigen eigen(Matrix const &a);

/// Right singular vector of the smallest singular value: the null vector of a singular matrix.
Vector nullVector(Matrix const &m);

Matrix product(Matrix const &a, Matrix const &b);
Matrix transposed(Matrix const &a);
Vector cross(Vector const &a, Vector const &b);
Real length(Vector const &v);

} // namespace reference

#endif
