// SPDX-License-Identifier: MIT
// Measures the small dense numerics against the reference over seeded families of problems. Prints
// a table, from which report.py makes docs/accuracy.md.
//
// An error is relative: of roots and eigenvalues to the largest of them, of vectors the sine of the
// angle to the right one. A result that is missing, or of another dimension, is an error of 1.

#include "reference.h"

#include <vexmath/mg_matrix.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>

#include "common/generator.h"

using reference::Matrix;
using reference::Real;
using reference::Root;
using reference::Vector;

namespace {

constexpr int samplesPerStep = 100;
constexpr int samplesOfOrdinary = 2000;

/// The same numbers on every machine. Each series starts with the same seed, so that a change of
/// one series changes no other.
class Random : public common::Generator {
public:
    Random() : Generator(20240229) {}
    Matrix rotation() {
        Real q[4];
        Real sq = 0;
        for (Real &x : q) {
            x = uniform(-1, 1);
            sq += x * x;
        }
        for (Real &x : q) x /= sqrt(sq);
        auto const &[x, y, z, w] = q;
        return {{{1 - 2 * (y * y + z * z), 2 * (x * y - z * w), 2 * (x * z + y * w)},
                 {2 * (x * y + z * w), 1 - 2 * (x * x + z * z), 2 * (y * z - x * w)},
                 {2 * (x * z - y * w), 2 * (y * z + x * w), 1 - 2 * (x * x + y * y)}}};
    }
};

using Polynomial = std::vector<double>; // leading coefficient first

/// factor (x - r0) (x - r1) ..., its coefficients rounded to double.
Polynomial polynomialOf(std::vector<Real> const &roots, Real const &factor = 1) {
    std::vector<Real> exact = {factor};
    for (Real const &root : roots) {
        exact.push_back(0);
        for (std::size_t i = exact.size() - 1; i > 0; --i) exact[i] -= root * exact[i - 1];
    }
    Polynomial rounded;
    for (Real const &c : exact) rounded.push_back(static_cast<double>(c));
    return rounded;
}

Real distance(Root const &root, double x) {
    Real const re = root.re - x;
    return sqrt(re * re + root.im * root.im);
}

/// The largest distance from a root to the nearest one found, and from one found to the nearest
/// root, relative to the largest root.
double errorOf(std::vector<double> const &found, Polynomial const &polynomial) {
    if (found.empty()) return 1.0;
    std::vector<Root> const roots = reference::roots(polynomial);
    Real worst = 0, size = 0;
    for (Root const &root : roots) {
        Real nearest = distance(root, found[0]);
        for (double x : found) nearest = std::min(nearest, distance(root, x));
        if (root.im == 0 || found.size() == roots.size()) worst = std::max(worst, nearest);
        size = std::max(size, sqrt(root.re * root.re + root.im * root.im));
    }
    for (double x : found) {
        Real nearest = distance(roots[0], x);
        for (Root const &root : roots) nearest = std::min(nearest, distance(root, x));
        worst = std::max(worst, nearest);
    }
    return std::min(1.0, static_cast<double>(worst / size));
}

double quadraticError(Polynomial const &p) {
    double roots[2];
    int const count = mg_solveQuadratic(p[0], p[1], p[2], roots);
    return errorOf({roots, roots + count}, p);
}

double cubicError(Polynomial const &p) {
    double roots[3];
    int const count = mg_solveCubic(p[0], p[1], p[2], p[3], roots);
    return errorOf({roots, roots + count}, p);
}

double characteristicError(Polynomial const &p) {
    double roots[3];
    bool const failed = mg_GoodEqu3(-p[1], p[2], -p[3], roots) == mgGoodEqu3_Failed;
    return failed ? 1.0 : errorOf({roots, roots + 3}, p);
}

/// left diag(d) right, rounded to double.
mgMatrix_c matrixOf(Matrix const &left, Vector const &d, Matrix const &right) {
    Matrix scaled = right;
    for (std::size_t i = 0; i < 3; ++i)
        for (Real &x : scaled[i]) x *= d[i];
    Matrix const exact = reference::product(left, scaled);
    mgMatrix_c m;
    for (int k = 0; k < 9; ++k)
        m[k] = static_cast<double>(
            exact[static_cast<std::size_t>(k / 3)][static_cast<std::size_t>(k % 3)]);
    return m;
}

mgMatrix_c symmetricOf(Random &random, Vector const &values) {
    Matrix const q = random.rotation();
    return matrixOf(q, values, reference::transposed(q));
}

Matrix exact(mgMatrix_c const &m) {
    Matrix result;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            result[i][j] = m(static_cast<int>(i), static_cast<int>(j));
    return result;
}

double angle(mgVector_c const &v, Vector const &right) {
    return static_cast<double>(reference::length(reference::cross({v.x(), v.y(), v.z()}, right)));
}

struct EigenErrors {
    double values, vectors;
};

EigenErrors eigenErrors(mgMatrix_c const &m) {
    double values[3];
    mgUnitVector_c vectors[3];
    m.getEigensystem(values, vectors);
    reference::Eigen const right = reference::eigen(exact(m));
    Real const size = std::max<Real>(abs(right.values[0]), abs(right.values[2]));
    EigenErrors errors{};
    for (std::size_t i = 0; i < 3; ++i) {
        double const off = static_cast<double>(abs(values[i] - right.values[i]) / size);
        errors.values = std::max(errors.values, off);
        errors.vectors = std::max(errors.vectors, angle(vectors[i], right.vectors[i]));
    }
    return errors;
}

double valueError(mgMatrix_c const &m) { return eigenErrors(m).values; }
double eigenvectorError(mgMatrix_c const &m) { return eigenErrors(m).vectors; }

/// A null vector by some method, or none.
using NullVector = mgUnitVector_c (*)(mgMatrix_c const &);

mgUnitVector_c unforced(mgMatrix_c const &m) {
    mgUnitVector_c basis[3];
    return m.getNullspace(basis, false) == 1 ? basis[0] : mgUnitVector_c();
}

mgUnitVector_c forced(mgMatrix_c const &m) {
    mgUnitVector_c basis[3];
    return m.getNullspace(basis, true) == 1 ? basis[0] : mgUnitVector_c();
}

/// The relation between the columns that `getNullspace` finds, by the normal equations.
mgUnitVector_c byNormalEquations(mgMatrix_c const &m) {
    auto const column = [&m](int j) { return mgVector_c(m(0, j % 3), m(1, j % 3), m(2, j % 3)); };
    int rest = 0; // the column that does not belong to the widest pair
    double widestSq = 0.0;
    for (int j = 0; j < 3; ++j) {
        double const sq = (column(j + 1) * column(j + 2)).sqlen();
        if (sq > widestSq) rest = j;
        widestSq = std::max(widestSq, sq);
    }
    mgVector_c const st = column(rest).pullBack(column(rest + 1), column(rest + 2));
    double n[3];
    n[rest] = -1.0;
    n[(rest + 1) % 3] = st.x();
    n[(rest + 2) % 3] = st.y();
    return mgUnitVector_c(n);
}

double nullError(mgMatrix_c const &m, NullVector find) {
    mgUnitVector_c const n = find(m);
    return n.isNull() ? 1.0 : angle(n, reference::nullVector(exact(m)));
}

/// |M n| relative to the longest column.
double nullResidual(mgMatrix_c const &m, NullVector find) {
    mgUnitVector_c const n = find(m);
    if (n.isNull()) return 1.0;
    Matrix const columns = reference::transposed(exact(m));
    Vector image{};
    Real longest = 0;
    for (std::size_t j = 0; j < 3; ++j) {
        for (std::size_t i = 0; i < 3; ++i)
            image[i] += columns[j][i] * n.component(static_cast<int>(j));
        longest = std::max(longest, reference::length(columns[j]));
    }
    return static_cast<double>(reference::length(image) / longest);
}

/// Draws a problem and returns the error of its solution.
using Problem = std::function<double(Random &)>;

void print(char const *family, std::string const &series, double x, double median, double worst) {
    std::printf("%s\t%s\t%.3g\t%.2g\t%.2g\n", family, series.c_str(), x, median, worst);
}

std::vector<double> sortedErrors(int samples, Problem const &problem) {
    Random random;
    std::vector<double> errors;
    for (int i = 0; i < samples; ++i) errors.push_back(problem(random));
    std::sort(errors.begin(), errors.end());
    return errors;
}

/// Quantiles of the error; x is the share of the problems with at most that error.
void distribution(char const *family, char const *series, Problem const &problem) {
    auto const errors = sortedErrors(samplesOfOrdinary, problem);
    for (int percent = 1; percent <= 100; ++percent) {
        double const error =
            errors[static_cast<std::size_t>(samplesOfOrdinary * percent / 100 - 1)];
        print(family, series, percent / 100.0, error, error);
    }
}

/// Median and worst error for a parameter whose exponent runs from one bound to the other.
void sweep(char const *family, char const *series, double from, double to, double step,
           std::function<double(Random &, double)> const &problem) {
    for (double exponent = from; exponent <= to + step / 2; exponent += step) {
        double const x = std::pow(10.0, exponent);
        auto const errors =
            sortedErrors(samplesPerStep, [&](Random &random) { return problem(random, x); });
        print(family, series, x, errors[samplesPerStep / 2], errors.back());
    }
}

Real between(Random &random, double low, double high) { return random.uniform(low, high); }

/// Three numbers in [-4, 4] that are clearly apart.
std::vector<Real> apart(Random &random) {
    return {between(random, -4, -1), between(random, -0.5, 0.5), between(random, 1, 4)};
}

/// (x - root) ((x - re)^2 + im^2).
Polynomial cubicWithOneRoot(Random &random) {
    double const root = random.uniform(-2, 2);
    double const re = random.uniform(-2, 2), im = random.uniform(0.5, 2);
    double const linear = -2 * re, constant = re * re + im * im;
    return {1, linear - root, constant - root * linear, -root * constant};
}

Vector ordinaryValues(Random &random) {
    std::vector<Real> const v = apart(random);
    return {v[0], v[1], v[2]};
}

mgMatrix_c singular(Random &random, Vector const &values) {
    return matrixOf(random.rotation(), values, random.rotation());
}

void wellScaled() {
    char const *const family = "well-scaled";
    distribution(family, "quadratic", [](Random &random) {
        return quadraticError(polynomialOf({between(random, -2, -0.5), between(random, 0, 2)}));
    });
    distribution(family, "cubic, one root",
                 [](Random &random) { return cubicError(cubicWithOneRoot(random)); });
    distribution(family, "cubic, three roots",
                 [](Random &random) { return cubicError(polynomialOf(apart(random))); });
    distribution(family, "characteristic cubic", [](Random &random) {
        std::vector<Real> roots = apart(random);
        for (Real &root : roots) root += 5;
        return characteristicError(polynomialOf(roots));
    });
    distribution(family, "eigenvalues", [](Random &random) {
        return valueError(symmetricOf(random, ordinaryValues(random)));
    });
    distribution(family, "eigenvectors", [](Random &random) {
        return eigenvectorError(symmetricOf(random, ordinaryValues(random)));
    });
    distribution(family, "null vector", [](Random &random) {
        return nullError(singular(random, {2, 1, 0}), unforced);
    });
}

void clusteredRoots() {
    char const *const family = "clustered-roots";
    auto const series = [family](char const *name, double (*error)(Polynomial const &),
                                 std::vector<Real> (*roots)(Real const &, Real const &)) {
        sweep(family, name, -15, -0.5, 0.25, [=](Random &random, double gap) {
            return error(polynomialOf(roots(between(random, 0.8, 1.2), gap)));
        });
    };
    using Roots = std::vector<Real>;
    series("quadratic, pair", quadraticError, [](Real const &r, Real const &gap) {
        return Roots{r, r + gap};
    });
    series("cubic, pair", cubicError, [](Real const &r, Real const &gap) {
        return Roots{r, r + gap, 3};
    });
    series(
        "cubic times 10000, pair",
        [](Polynomial const &p) {
            return cubicError({1e4 * p[0], 1e4 * p[1], 1e4 * p[2], 1e4 * p[3]});
        },
        [](Real const &r, Real const &gap) {
            return Roots{r, r + gap, 3};
        });
    series("cubic, triple", cubicError, [](Real const &r, Real const &gap) {
        return Roots{r, r + gap, r + 2 * gap};
    });
    series("characteristic cubic, pair", characteristicError, [](Real const &r, Real const &gap) {
        return Roots{r, r + gap, 3};
    });
    series("characteristic cubic, triple", characteristicError, [](Real const &r, Real const &gap) {
        return Roots{r, r + gap, r + 2 * gap};
    });
}

void nearlyEqualEigenvalues() {
    char const *const family = "nearly-equal-eigenvalues";
    auto const series = [family](char const *name, double size,
                                 double (*error)(mgMatrix_c const &)) {
        sweep(family, name, -15, 0, 0.25, [=](Random &random, double gap) {
            Real const first = size;
            return error(symmetricOf(random, {first, first * (1 + Real(gap)), 3 * first}));
        });
    };
    series("eigenvalues", 1.0, valueError);
    series("eigenvectors", 1.0, eigenvectorError);
    series("eigenvalues, size 1e-10", 1e-10, valueError);
    series("eigenvectors, size 1e-10", 1e-10, eigenvectorError);
    series("eigenvectors, size 1e10", 1e10, eigenvectorError);
}

void nearlySingular() {
    char const *const family = "nearly-singular";
    auto const smallest = [](NullVector find) {
        return [find](Random &random, double sigma) {
            return nullError(singular(random, {2, 1, sigma}), find);
        };
    };
    sweep(family, "smallest singular value, unforced", -15, 0, 0.25, smallest(unforced));
    sweep(family, "smallest singular value, forced", -15, 0, 0.25, smallest(forced));
    sweep(family, "middle singular value", -10, 0, 0.25, [](Random &random, double sigma) {
        return nullError(singular(random, {1, sigma, 0}), forced);
    });
}

/// A random frame around the singular values 1, a small one and 0, such that the largest cross
/// product of two columns has the length that is given.
mgMatrix_c framedOfRankTwo(Random &random, double width) {
    Matrix const left = random.rotation(), right = random.rotation();
    Real largest = 0; // for singular values of 1
    for (Real const &x : right[2]) largest = std::max<Real>(largest, abs(x));
    return matrixOf(left, {1, width / largest, 0}, right);
}

/// Rows (1, a, b) and (0, w, w), with a and b such that the largest cross product is w.
mgMatrix_c shearedOfRankTwo(Random &random, double width) {
    double const a = random.uniform(0.5, 1.0);
    return mgMatrix_c({1.0, a, a + random.uniform(0.0, 1.0), 0.0, width, width, 0.0, 0.0, 0.0}, 0);
}

void rankTwo() {
    /// Exponent of the smallest cross product: its square must be at least 1e-16 after rounding.
    constexpr double kNearTheBound = -7.98;
    using Error = double (*)(mgMatrix_c const &, NullVector);
    auto const series = [](char const *name, mgMatrix_c (*matrix)(Random &, double), Error error,
                           NullVector find) {
        auto const problem = [=](Random &random, double width) {
            return error(matrix(random, width), find);
        };
        sweep("rank-two", name, kNearTheBound, kNearTheBound, 1.0, problem);
        sweep("rank-two", name, -7.75, 0, 0.25, problem);
    };
    series("residual", framedOfRankTwo, nullResidual, forced);
    series("residual, normal equations", framedOfRankTwo, nullResidual, byNormalEquations);
    series("residual, sheared", shearedOfRankTwo, nullResidual, forced);
    series("residual, sheared, normal equations", shearedOfRankTwo, nullResidual,
           byNormalEquations);
    series("null vector", framedOfRankTwo, nullError, forced);
    series("null vector, normal equations", framedOfRankTwo, nullError, byNormalEquations);
}

void scaled() {
    char const *const family = "scaled";
    sweep(family, "quadratic, coefficients", -16, 16, 1, [](Random &random, double scale) {
        return quadraticError(
            polynomialOf({between(random, -2, -0.5), between(random, 0, 2)}, scale));
    });
    sweep(family, "cubic, coefficients", -16, 16, 1, [](Random &random, double scale) {
        return cubicError(polynomialOf(apart(random), scale));
    });
    sweep(family, "cubic, roots", -16, 16, 1, [](Random &random, double scale) {
        std::vector<Real> roots = apart(random);
        for (Real &root : roots) root *= scale;
        return cubicError(polynomialOf(roots));
    });
    sweep(family, "eigenvectors", -16, 16, 1, [](Random &random, double scale) {
        Vector values = ordinaryValues(random);
        for (Real &value : values) value *= scale;
        return eigenvectorError(symmetricOf(random, values));
    });
    sweep(family, "null vector, unforced", -16, 16, 1, [](Random &random, double scale) {
        return nullError(singular(random, {2 * Real(scale), scale, 0}), unforced);
    });
    sweep(family, "null vector, forced", -16, 16, 1, [](Random &random, double scale) {
        return nullError(singular(random, {2 * Real(scale), scale, 0}), forced);
    });
}

} // namespace

int main() {
    std::puts("family\tseries\tx\tmedian\tworst");
    wellScaled();
    clusteredRoots();
    nearlyEqualEigenvalues();
    nearlySingular();
    rankTwo();
    scaled();
}
