// SPDX-License-Identifier: MIT
// Vectors and matrices in plain float arrays.

#include <vexmath/gfxmath.h>

#include <array>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "support/numbers.h"

namespace {

using Vec = std::array<float, 3>;
using Mat = std::array<float, 16>;

constexpr float kQuarter = 1.57079637F; // the float nearest to pi / 2
constexpr float kHalf = 3.14159274F;
constexpr float kHorizon = 3.55271368e-15F; // what pi / 2 in 13 decimals leaves of latitude 0

Mat countingMatrix() {
    Mat m{};
    for (int i = 0; i < 16; ++i) m[static_cast<std::size_t>(i)] = static_cast<float>(i * i + 1);
    return m;
}

void CheckNear(Vec const &expected, Vec const &actual, float bound) {
    for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(expected[i], actual[i], bound) << i;
}

TEST(Gfxmath, VectorOperationsMayWriteOverTheirInputs) {
    Vec const a{1, 2, 3}, b{-7, 5, 11};
    Vec v = a;
    gfxmath_add(v.data(), b.data(), v.data());
    EXPECT_EQ((Vec{-6, 7, 14}), v);
    v = b;
    gfxmath_subtract(a.data(), v.data(), v.data());
    EXPECT_EQ((Vec{8, -3, -8}), v);
    v = b;
    gfxmath_cross_product(a.data(), v.data(), v.data());
    EXPECT_EQ((Vec{7, -32, 19}), v);
    EXPECT_EQ(36.0F, gfxmath_dot_product(a.data(), b.data()));
    EXPECT_EQ(7.0F, gfxmath_length(Vec{2, -3, 6}.data()));
    // From left to right: the ones are lost one by one.
    EXPECT_EQ(0x1p24F, gfxmath_dot_product(Vec{0x1p24F, 1, 1}.data(), Vec{1, 1, 1}.data()));
}

void CheckNormalise(Vec v, int expected) {
    Vec const before = v;
    EXPECT_EQ(expected, gfxmath_normalise(v.data())) << before[0];
    if (expected) {
        EXPECT_NEAR(1.0F, gfxmath_length(v.data()), 1e-6F);
    } else {
        EXPECT_EQ(before, v);
    }
}

TEST(Gfxmath, NormaliseNeedsASquaredLengthAboveItsBound) {
    CheckNormalise({0.0005F, 0, 0}, 0);
    CheckNormalise({0.002F, 0, 0}, 1);
    CheckNormalise({0.001F, 0, 0}, 1); // the nearest float lies above 0.001
    CheckNormalise({std::nextafter(0.001F, 0.0F), 0, 0}, 0);
    CheckNormalise({0, 0.0006F, -0.0009F}, 1);
    Vec nan{std::numeric_limits<float>::quiet_NaN(), 2, 3};
    EXPECT_EQ(0, gfxmath_normalise(nan.data()));
    EXPECT_EQ(3.0F, nan[2]);
    Vec v{-2, 3, 6};
    gfxmath_normalise(v.data());
    EXPECT_EQ((Vec{-2.0F / 7.0F, 3.0F / 7.0F, 6.0F / 7.0F}), v);
}

TEST(Gfxmath, MatricesTakeRowVectors) {
    Mat const m = countingMatrix();
    Vec v{1, 10, 100};
    gfxmath_mult_vector_by_matrix(v.data(), m.data(), v.data());
    EXPECT_EQ((Vec{1 + 170 + 6500, 2 + 260 + 8200, 5 + 370 + 10100}), v);
    Vec p{1, 10, 100};
    gfxmath_mult_point_by_matrix(p.data(), m.data(), p.data());
    EXPECT_EQ((Vec{6671 + 145, 8462 + 170, 10475 + 197}), p);
}

TEST(Gfxmath, ProductAppliesItsSecondMatrixFirst) {
    Mat const b{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1}; // a quarter turn and a move
    Mat const a{2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 1, 1, 1, 1};
    Mat product = a;
    gfxmath_mult_matrix(product.data(), b.data(), product.data());
    EXPECT_EQ((Mat{0, 3, 0, 0, -2, 0, 0, 0, 0, 0, 4, 0, 11, 19, 29, 1}), product);
    product = b;
    gfxmath_mult_matrix(a.data(), product.data(), product.data());
    EXPECT_EQ(11.0F, product[12]);
    Mat const m = countingMatrix();
    gfxmath_mult_matrix(m.data(), m.data(), product.data());
    EXPECT_EQ(17.0F * 10 + 26 * 50 + 37 * 122 + 50 * 226, product[7]); // row 1 times column 3
}

TEST(Gfxmath, TriangleNormalsOfSmallTrianglesNeedTheScaledForms) {
    Vec const o{0, 0, 0}, x{0.01F, 0, 0}, y{0, 0.01F, 0};
    Vec n{};
    EXPECT_EQ(0, gfxmath_triangle_normal(o.data(), x.data(), y.data(), n.data()));
    EXPECT_EQ((Vec{0, 0, 0.01F * 0.01F}), n);
    EXPECT_EQ(1, gfxmath_triangle_normal_scale(o.data(), x.data(), y.data(), n.data()));
    EXPECT_EQ((Vec{0, 0, 1}), n);
    EXPECT_EQ(1, gfxmath_triangle_normal_negative_scale(o.data(), x.data(), y.data(), n.data()));
    EXPECT_EQ(-1.0F, n[2]);
    EXPECT_EQ(1, gfxmath_triangle_normal(Vec{1, 1, 1}.data(), Vec{1, 3, 1}.data(),
                                         Vec{1, 1, 4}.data(), n.data()));
    EXPECT_EQ((Vec{1, 0, 0}), n);
    // Too small even so: the multiplied product is left.
    Vec const tiny{0, 0, 1e-5F};
    n = x;
    EXPECT_EQ(0,
              gfxmath_triangle_normal_scale(o.data(), n.data(), Vec{0, 1e-6F, 0}.data(), n.data()));
    EXPECT_EQ((Vec{0, 0, 0.01F * 1e-6F * 10000.0F}), n);
    EXPECT_EQ(0, gfxmath_triangle_normal_negative_scale(o.data(), tiny.data(),
                                                        Vec{1e-3F, 0, 0}.data(), n.data()));
    EXPECT_EQ(1e-5F * 1e-3F * -10000.0F, n[1]);
}

TEST(Gfxmath, RotateAxisTurnsByTheRightHandRule) {
    Vec const axes[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (std::size_t i = 0; i < 3; ++i) {
        Vec v = axes[(i + 1) % 3];
        gfxmath_rotate_axis(v.data(), kQuarter, axes[i].data(), v.data());
        CheckNear(axes[(i + 2) % 3], v, 1e-7F);
    }
    Vec const diagonal{0.577350259F, 0.577350259F, 0.577350259F};
    Vec v{1, 2, 3};
    gfxmath_rotate_axis(v.data(), 2 * kHalf / 3, diagonal.data(), v.data());
    CheckNear({3, 1, 2}, v, 2e-6F);
    // The axis is used as it is.
    gfxmath_rotate_axis(Vec{0, 0, 1}.data(), kHalf, Vec{0, 0, 2}.data(), v.data());
    EXPECT_EQ((Vec{0, 0, 7}), v);
}

void CheckSpherical(Vec const &n, float latitude, float azimuth) {
    float sph[2];
    gfxmath_cartesian_to_spherical_normal(n.data(), sph);
    EXPECT_EQ(latitude, sph[0]) << n[0] << " " << n[1] << " " << n[2];
    EXPECT_EQ(azimuth, sph[1]) << n[0] << " " << n[1] << " " << n[2];
}

TEST(Gfxmath, SphericalNormalsOfTheAxes) {
    CheckSpherical({0, 2, 0}, kQuarter, 0);
    CheckSpherical({0, -2, 0}, -kQuarter, 0);
    CheckSpherical({0, 0, 2}, kHorizon, 0);
    CheckSpherical({2, 0, 0}, kHorizon, kQuarter);
    CheckSpherical({-2, 0, 0}, kHorizon, -kQuarter);
    CheckSpherical({0, 0, -2}, kHorizon, kHalf); // +pi, and not -pi
    CheckSpherical({-0.0F, 0, -2}, kHorizon, kHalf);
    CheckSpherical({-1e-9F, 0, -2}, kHorizon, -kHalf);
}

TEST(Gfxmath, SphericalAndCartesianNormalsAreInverse) {
    support::Random random;
    for (int i = 0; i < 1000; ++i) {
        double const lat = random.uniform(-1.5, 1.5), az = random.uniform(-3.14, 3.14);
        std::array<float, 3> n{static_cast<float>(lat), static_cast<float>(az), 0};
        gfxmath_spherical_to_cartesian_normal(n.data(), n.data());
        CheckNear({static_cast<float>(std::sin(az) * std::cos(lat)),
                   static_cast<float>(std::sin(lat)),
                   static_cast<float>(std::cos(az) * std::cos(lat))},
                  n, 4e-7F);
        gfxmath_cartesian_to_spherical_normal(n.data(), n.data());
        CheckNear({static_cast<float>(lat), static_cast<float>(az), n[2]}, n, 3e-6F);
    }
}

} // namespace
