// SPDX-License-Identifier: MIT
// Small dense numerics beside their peers: eigensystems, cubic roots, 4x4 matrices, quaternions.

#include <vexmath/gfxmath.h>
#include <vexmath/matrix4.h>
#include <vexmath/mg_matrix.h>
#include <vexmath/quaternion.h>

#include <array>
#include <cmath>

#include "works.h"

#ifdef VEXMATH_BENCH_EIGEN
#include <Eigen/Eigenvalues>
#include <Eigen/Geometry>
#endif
#ifdef VEXMATH_BENCH_GLM
#include <glm/gtc/matrix_inverse.hpp>
#include <glm/gtc/type_ptr.hpp>
#endif
#ifdef VEXMATH_BENCH_IMATH
#include <ImathMatrixAlgo.h>
#include <ImathRoots.h>
#endif

namespace {

using works::inputs;
using works::measure;

template <class Left, class Right = Left>
struct Pair {
    Left a;
    Right b;
};

// Eigenvalues and eigenvectors of symmetric matrices.

using Nine = std::array<double, 9>;

auto const randomSymmetric = [](auto &random) {
    double d[3], o[3];
    for (double &x : d) x = random(-1.0, 1.0);
    for (double &x : o) x = random(-1.0, 1.0);
    return Nine{d[0], o[0], o[1], o[0], d[1], o[2], o[1], o[2], d[2]};
};

void eigenVexmath(benchmark::State &state) {
    auto const all = inputs([](auto &random) {
        mgMatrix_c m;
        Nine const elements = randomSymmetric(random);
        for (int k = 0; k < 9; ++k) m[k] = elements[static_cast<std::size_t>(k)];
        return m;
    });
    struct System {
        double values[3];
        mgUnitVector_c vectors[3];
    };
    measure(state, all, [](mgMatrix_c const &m) {
        System system;
        m.getEigensystem(system.values, system.vectors);
        return system;
    });
}
BENCHMARK(eigenVexmath)->Name("eigensystem 3x3/vexmath");

// Real roots of cubics, half of them with one, half with three.

using Coefficients = std::array<double, 4>;

auto const randomCubic = [](auto &random) {
    bool const three = random(-1.0, 1.0) > 0.0;
    double const a = random(0.5, 2.0), x = random(-2.0, 2.0), p = random(-2.0, 2.0);
    double const q = three ? random(-2.0, 2.0) : 0.0; // a (x - x0) times two factors, or none
    double const linear = three ? -(p + q) : -2.0 * p;
    double const constant = three ? p * q : p * p + random(0.1, 2.0);
    return Coefficients{a, a * (linear - x), a * (constant - x * linear), -a * x * constant};
};

void cubicVexmath(benchmark::State &state) {
    measure(state, inputs(randomCubic), [](Coefficients const &c) {
        std::array<double, 3> roots;
        mg_solveCubic(c[0], c[1], c[2], c[3], roots.data());
        return roots;
    });
}
BENCHMARK(cubicVexmath)->Name("cubic roots/vexmath");

// Products and inverses of affine 4x4 matrices.

/// Three rows of a matrix that is far from singular.
auto const randomAffine = [](auto &random) {
    std::array<double, 12> rows;
    for (double &element : rows) element = random(-1.0, 1.0);
    for (std::size_t i = 0; i < 3; ++i) rows[5 * i] += 3.0;
    return rows;
};

mgMatrix4_c vexmathAffine(std::array<double, 12> const &rows) {
    mgMatrix4_c m;
    for (std::size_t k = 0; k < 12; ++k) m.getDataPtr()[k] = rows[k];
    return m;
}

void product4Vexmath(benchmark::State &state) {
    auto const all = inputs([](auto &random) {
        return Pair<mgMatrix4_c>{vexmathAffine(randomAffine(random)),
                                 vexmathAffine(randomAffine(random))};
    });
    measure(state, all, [](auto const &pair) { return pair.a * pair.b; });
}
BENCHMARK(product4Vexmath)->Name("4x4 product/vexmath");

void inverse4Vexmath(benchmark::State &state) {
    auto const all = inputs([](auto &random) { return vexmathAffine(randomAffine(random)); });
    measure(state, all, [](mgMatrix4_c const &m) { return m.inverse(); });
}
BENCHMARK(inverse4Vexmath)->Name("4x4 inverse/vexmath");

// Spherical interpolation of unit quaternions.

/// Two of them and a parameter in [0, 1].
auto const randomSlerp = [](auto &random) {
    std::array<double, 9> numbers;
    for (double &x : numbers) x = random(-1.0, 1.0);
    for (std::size_t const first : {std::size_t{0}, std::size_t{4}}) {
        double sq = 0.0;
        for (std::size_t i = 0; i < 4; ++i) sq += numbers[first + i] * numbers[first + i];
        for (std::size_t i = 0; i < 4; ++i) numbers[first + i] /= std::sqrt(sq);
    }
    numbers[8] = std::fabs(numbers[8]);
    return numbers;
};

template <class Quaternion>
struct Slerp {
    Quaternion a, b;
    double t;
};

/// Each library's quaternions, by a function that takes (x, y, z, w).
template <class Make>
auto slerps(Make const &make) {
    return inputs([&make](auto &random) {
        auto const n = randomSlerp(random);
        auto const a = make(n[0], n[1], n[2], n[3]), b = make(n[4], n[5], n[6], n[7]);
        return Slerp<decltype(make(0.0, 0.0, 0.0, 1.0))>{a, b, n[8]};
    });
}

void slerpVexmath(benchmark::State &state) {
    auto const make = [](double x, double y, double z, double w) {
        return mgQuaternion_c(x, y, z, w);
    };
    measure(state, slerps(make), [](auto const &input) {
        mgQuaternion_c q;
        q.quatSlerp(input.a, input.b, input.t);
        return q;
    });
}
BENCHMARK(slerpVexmath)->Name("slerp/vexmath");

// Single precision, as display code moves its vertices: a list of points by one matrix.

using Floats = std::array<float, 16>;

Floats floatMatrix(works::Numbers &random) {
    Floats m;
    for (float &element : m) element = static_cast<float>(random(-1.0, 1.0));
    return m;
}

template <class Point, class Matrix, class Move>
void floatPoints(benchmark::State &state, Matrix const &matrix, Move const &move) {
    auto const points = inputs([](auto &random) {
        auto const x = static_cast<float>(random(-1.0, 1.0));
        return Point{x, 2.0F * x, 0.5F - x};
    });
    std::vector<Point> moved(points.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < points.size(); ++i) move(points[i], matrix, moved[i]);
        benchmark::ClobberMemory();
    }
    works::countItems(state, points.size());
}

void floatPointsVexmath(benchmark::State &state) {
    works::Numbers random;
    using Point = std::array<float, 3>;
    floatPoints<Point>(state, floatMatrix(random), [](auto const &p, auto const &m, auto &out) {
        gfxmath_mult_point_by_matrix(p.data(), m.data(), out.data());
    });
}
BENCHMARK(floatPointsVexmath)->Name("float point by matrix/vexmath");

void floatProductVexmath(benchmark::State &state) {
    auto const all = inputs([](auto &random) {
        return Pair<Floats>{floatMatrix(random), floatMatrix(random)};
    });
    measure(state, all, [](auto const &pair) {
        Floats product;
        gfxmath_mult_matrix(pair.a.data(), pair.b.data(), product.data());
        return product;
    });
}
BENCHMARK(floatProductVexmath)->Name("float matrix product/vexmath");

#ifdef VEXMATH_BENCH_EIGEN

void eigenEigen(benchmark::State &state) {
    auto const all = inputs([](auto &random) {
        return Eigen::Matrix3d(Eigen::Matrix3d::Map(randomSymmetric(random).data()));
    });
    measure(state, all, [](Eigen::Matrix3d const &m) {
        Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
        solver.compute(m);
        return Pair<Eigen::Vector3d, Eigen::Matrix3d>{solver.eigenvalues(), solver.eigenvectors()};
    });
}
BENCHMARK(eigenEigen)->Name("eigensystem 3x3/Eigen iterative");

/// By the closed form, which loses digits where eigenvalues are close.
void eigenDirect(benchmark::State &state) {
    auto const all = inputs([](auto &random) {
        return Eigen::Matrix3d(Eigen::Matrix3d::Map(randomSymmetric(random).data()));
    });
    measure(state, all, [](Eigen::Matrix3d const &m) {
        Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
        solver.computeDirect(m);
        return Pair<Eigen::Vector3d, Eigen::Matrix3d>{solver.eigenvalues(), solver.eigenvectors()};
    });
}
BENCHMARK(eigenDirect)->Name("eigensystem 3x3/Eigen closed form");

Eigen::Matrix4d eigenAffine(std::array<double, 12> const &rows) {
    Eigen::Matrix4d m = Eigen::Matrix4d::Identity();
    for (int k = 0; k < 12; ++k) m(k / 4, k % 4) = rows[static_cast<std::size_t>(k)];
    return m;
}

void product4Eigen(benchmark::State &state) {
    auto const all = inputs([](auto &random) {
        return Pair<Eigen::Matrix4d>{eigenAffine(randomAffine(random)),
                                     eigenAffine(randomAffine(random))};
    });
    measure(state, all, [](auto const &pair) { return Eigen::Matrix4d(pair.a * pair.b); });
}
BENCHMARK(product4Eigen)->Name("4x4 product/Eigen");

void inverse4Eigen(benchmark::State &state) {
    auto const all = inputs([](auto &random) { return eigenAffine(randomAffine(random)); });
    measure(state, all, [](Eigen::Matrix4d const &m) { return Eigen::Matrix4d(m.inverse()); });
}
BENCHMARK(inverse4Eigen)->Name("4x4 inverse/Eigen");

void affineInverse4Eigen(benchmark::State &state) {
    auto const all =
        inputs([](auto &random) { return Eigen::Affine3d(eigenAffine(randomAffine(random))); });
    measure(state, all, [](Eigen::Affine3d const &m) { return m.inverse(Eigen::Affine); });
}
BENCHMARK(affineInverse4Eigen)->Name("4x4 inverse/Eigen affine");

void slerpEigen(benchmark::State &state) {
    auto const make = [](double x, double y, double z, double w) {
        return Eigen::Quaterniond(w, x, y, z);
    };
    measure(state, slerps(make), [](auto const &input) { return input.a.slerp(input.t, input.b); });
}
BENCHMARK(slerpEigen)->Name("slerp/Eigen");

#endif

#ifdef VEXMATH_BENCH_GLM

glm::dmat4 glmAffine(std::array<double, 12> const &rows) {
    glm::dmat4 m(1.0);
    for (int k = 0; k < 12; ++k) m[k % 4][k / 4] = rows[static_cast<std::size_t>(k)];
    return m;
}

void floatPointsGlm(benchmark::State &state) {
    works::Numbers random;
    glm::mat4 const matrix = glm::make_mat4(floatMatrix(random).data());
    floatPoints<glm::vec3>(state, matrix, [](auto const &p, auto const &m, auto &out) {
        out = glm::vec3(m * glm::vec4(p, 1.0F));
    });
}
BENCHMARK(floatPointsGlm)->Name("float point by matrix/GLM");

void floatProductGlm(benchmark::State &state) {
    auto const all = inputs([](auto &random) {
        return Pair<glm::mat4>{glm::make_mat4(floatMatrix(random).data()),
                               glm::make_mat4(floatMatrix(random).data())};
    });
    measure(state, all, [](auto const &pair) { return pair.a * pair.b; });
}
BENCHMARK(floatProductGlm)->Name("float matrix product/GLM");

void product4Glm(benchmark::State &state) {
    auto const all = inputs([](auto &random) {
        return Pair<glm::dmat4>{glmAffine(randomAffine(random)), glmAffine(randomAffine(random))};
    });
    measure(state, all, [](auto const &pair) { return pair.a * pair.b; });
}
BENCHMARK(product4Glm)->Name("4x4 product/GLM");

void inverse4Glm(benchmark::State &state) {
    auto const all = inputs([](auto &random) { return glmAffine(randomAffine(random)); });
    measure(state, all, [](glm::dmat4 const &m) { return glm::inverse(m); });
}
BENCHMARK(inverse4Glm)->Name("4x4 inverse/GLM");

void affineInverse4Glm(benchmark::State &state) {
    auto const all = inputs([](auto &random) { return glmAffine(randomAffine(random)); });
    measure(state, all, [](glm::dmat4 const &m) { return glm::affineInverse(m); });
}
BENCHMARK(affineInverse4Glm)->Name("4x4 inverse/GLM affine");

#endif

#ifdef VEXMATH_BENCH_IMATH

void eigenImath(benchmark::State &state) {
    auto const all = inputs([](auto &random) {
        Nine const m = randomSymmetric(random);
        return Imath::M33d(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8]);
    });
    measure(state, all, [](Imath::M33d const &m) {
        Pair<Imath::V3d, Imath::M33d> system;
        Imath::M33d working = m; // destroyed by the solver
        Imath::jacobiEigenSolver(working, system.a, system.b);
        return system;
    });
}
BENCHMARK(eigenImath)->Name("eigensystem 3x3/Imath Jacobi");

void cubicImath(benchmark::State &state) {
    measure(state, inputs(randomCubic), [](Coefficients const &c) {
        std::array<double, 3> roots;
        Imath::solveCubic(c[0], c[1], c[2], c[3], roots.data());
        return roots;
    });
}
BENCHMARK(cubicImath)->Name("cubic roots/Imath");

#endif

} // namespace
