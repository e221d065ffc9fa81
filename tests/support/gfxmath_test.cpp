// SPDX-License-Identifier: MIT
// Vectors and matrices in plain float arrays.

#include "common/geometry.h"

namespace {

/// An array that converts to the pointer which the functions take.
template <std::size_t size>
struct Floats : std::array<float, size> {
    operator float *() { return this->data(); }
    operator float const *() const { return this->data(); }
    float &operator[](int i) { return this->data()[i]; }
    float const &operator[](int i) const { return this->data()[i]; }
};
using Vec = Floats<3>;
using Mat = Floats<16>;

constexpr float kQuarter = 1.57079637F, kHalf = 3.14159274F; // the floats nearest to pi / 2 and pi

void CheckNear(Vec const &expected, Vec const &actual, float bound, Caller = {}) {
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(expected[i], actual[i], bound) << i;
}

TEST(Gfxmath, VectorOperationsMayWriteOverTheirInputs) {
    Vec const a{1, 2, 3}, b{-7, 5, 11};
    Vec sum = a, difference = b, cross = b;
    gfxmath_add(sum, b, sum);
    gfxmath_subtract(a, difference, difference);
    gfxmath_cross_product(a, cross, cross);
    EXPECT_EQ((Vec{-6, 7, 14}), sum);
    EXPECT_EQ((Vec{8, -3, -8}), difference);
    EXPECT_EQ((Vec{7, -32, 19}), cross);
    EXPECT_EQ(36.0F, gfxmath_dot_product(a, b));
    EXPECT_EQ(7.0F, gfxmath_length(Vec{2, -3, 6}));
}

TEST(Gfxmath, NormaliseNeedsASquaredLengthAboveItsBound) {
    auto const check = [](Vec v, int result, Vec const &expected, Caller = {}) {
        EXPECT_EQ(result, gfxmath_normalise(v));
        EXPECT_EQ(expected, v);
    };
    Vec const atMost{std::nextafter(0.001F, 0.0F), 0, 0}; // the float 0.001 is above the number
    check({0, 0.001F, 0}, 1, {0, 1, 0}), check(atMost, 0, atMost);
    check({1, 2e19F, 0}, 1, {0, 0, 0}); // the square exceeds the range of float
    check({-2, 3, 6}, 1, {-2.0F / 7.0F, 3.0F / 7.0F, 6.0F / 7.0F});
}

TEST(Gfxmath, ProductAppliesItsSecondMatrixFirst) {
    Mat const b{0, 1, 0, 0, -1, 0, 0, 0,
                0, 0, 1, 0, 5,  6, 7, 1}; // a quarter turn and a translation
    Mat const a{2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 1, 1, 1, 1};
    Mat overA = a, overB = b;
    gfxmath_mult_matrix(overA, b, overA);
    gfxmath_mult_matrix(a, overB, overB);
    EXPECT_EQ((Mat{0, 3, 0, 0, -2, 0, 0, 0, 0, 0, 4, 0, 11, 19, 29, 1}), overA);
    EXPECT_EQ(overA, overB);
    Mat const full{1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 13, 14, 15, 1};
    Vec point{1, 10, 100}, vector = point;
    gfxmath_mult_point_by_matrix(point, full, point); // row vectors
    gfxmath_mult_vector_by_matrix(vector, full, vector);
    EXPECT_EQ((Vec{754, 866, 978}), point);
    EXPECT_EQ((Vec{741, 852, 963}), vector);
}

TEST(Gfxmath, TriangleNormalsOfSmallTrianglesNeedTheScaledForms) {
    auto const check = [](auto triangleNormal, Vec const &p1, Vec const &p2, int result,
                          Vec const &expected, Caller = {}) {
        Vec n = p1; // which may be overwritten
        EXPECT_EQ(result, triangleNormal(Vec{}, n, p2, n));
        EXPECT_EQ(expected, n);
    };
    Vec const x{0.01F, 0, 0}, y{0, 0.01F, 0}, tiny{0, 1e-6F, 0};
    check(gfxmath_triangle_normal, {0, 2, 0}, {0, 0, 3}, 1, {1, 0, 0});
    check(gfxmath_triangle_normal, x, y, 0, {0, 0, 0.01F * 0.01F});
    check(gfxmath_triangle_normal_scale, x, y, 1, {0, 0, 1});
    check(gfxmath_triangle_normal_scale, x, tiny, 0, {0, 0, 0.01F * 1e-6F * 10000.0F});
    check(gfxmath_triangle_normal_negative_scale, x, y, 1, {0, 0, -1});
}

TEST(Gfxmath, RotateAxisFollowsTheRightHandRule) {
    Vec v{1, 2, 3};
    gfxmath_rotate_axis(v, 2 * kHalf / 3, Vec{0.577350259F, 0.577350259F, 0.577350259F}, v);
    CheckNear({3, 1, 2}, v, 2e-6F);
    gfxmath_rotate_axis(Vec{0, 0, 1}, kHalf, Vec{0, 0, 2}, v); // the axis is not normalised
    EXPECT_EQ((Vec{0, 0, 7}), v);
}

TEST(Gfxmath, SphericalNormalsAreInverses) {
    auto const check = [](Vec const &n, float latitude, float azimuth, Caller = {}) {
        float sph[2];
        gfxmath_cartesian_to_spherical_normal(n, sph);
        EXPECT_EQ(latitude, sph[0]) << n[0] << " " << n[2];
        EXPECT_EQ(azimuth, sph[1]) << n[0] << " " << n[2];
    };
    float const horizon = 3.55271368e-15F; // latitude 0 as pi / 2 rounded to 13 decimals gives it
    check({0, 2, 0}, kQuarter, 0), check({0, -2, -0.0F}, -kQuarter, kHalf);
    check({2, 0, 0}, horizon, kQuarter);
    check({-0.0F, 0, -2}, horizon, kHalf); // +pi, and not -pi
    check({-1e-9F, 0, -2}, horizon, -kHalf);
    Vec n{0.5F, -2.5F, 0}; // latitude, azimuth
    gfxmath_spherical_to_cartesian_normal(n, n);
    CheckNear({std::sin(-2.5F) * std::cos(0.5F), std::sin(0.5F), std::cos(-2.5F) * std::cos(0.5F)},
              n, 4e-7F);
    Vec north{0.5F, 0, 0};
    gfxmath_spherical_to_cartesian_normal(north, north);
    EXPECT_EQ(0.0F, north[0]);
    gfxmath_cartesian_to_spherical_normal(n, n);
    CheckNear({0.5F, -2.5F, n[2]}, n, 3e-6F);
}

} // namespace
