// SPDX-License-Identifier: MIT
// Vectors and matrices in plain float arrays.

#define VEXMATH_GFXMATH_DEFINE // makes the symbols of the library from the bodies in the header
#include <vexmath/gfxmath.h>

#include <cmath>

#include <vexmath/tolerances.h>

using vexmath::kHalfPi;
using vexmath::kPi;
using vexmath::kTwoPi;

namespace {

void store(float out[3], float x, float y, float z) {
    out[0] = x;
    out[1] = y;
    out[2] = z;
}

int scaledTriangleNormal(float const p0[3], float const p1[3], float const p2[3], float scale,
                         float n[3]) {
    float side1[3], side2[3], normal[3];
    gfxmath_subtract(p1, p0, side1);
    gfxmath_subtract(p2, p0, side2);
    gfxmath_cross_product(side1, side2, normal);
    store(n, normal[0] * scale, normal[1] * scale, normal[2] * scale);
    return gfxmath_normalise(n);
}

} // namespace

float gfxmath_length(float const v[3]) { return std::sqrt(gfxmath_dot_product(v, v)); }

int gfxmath_normalise(float v[3]) {
    constexpr double kMinLengthSq = 1e-06; // strictly above: has a direction
    if (!(gfxmath_dot_product(v, v) > kMinLengthSq)) return 0;
    float const length = gfxmath_length(v);
    store(v, v[0] / length, v[1] / length, v[2] / length);
    return 1;
}

int gfxmath_triangle_normal(float const p0[3], float const p1[3], float const p2[3], float n[3]) {
    return scaledTriangleNormal(p0, p1, p2, 1.0F, n);
}

int gfxmath_triangle_normal_scale(float const p0[3], float const p1[3], float const p2[3],
                                  float n[3]) {
    return scaledTriangleNormal(p0, p1, p2, 10000.0F, n);
}

int gfxmath_triangle_normal_negative_scale(float const p0[3], float const p1[3], float const p2[3],
                                           float n[3]) {
    return scaledTriangleNormal(p0, p1, p2, -10000.0F, n);
}

void gfxmath_rotate_axis(float const v[3], float angle, float const axis[3], float out[3]) {
    // Rounded from double, so that the result does not depend on the platform's float functions.
    auto const c = static_cast<float>(std::cos(static_cast<double>(angle)));
    auto const s = static_cast<float>(std::sin(static_cast<double>(angle)));
    float const t = 1.0F - c;
    float const x = axis[0], y = axis[1], z = axis[2];
    float const row0[3] = {t * x * x + c, t * x * y - z * s, t * x * z + y * s};
    float const row1[3] = {t * x * y + z * s, t * y * y + c, t * y * z - x * s};
    float const row2[3] = {t * x * z - y * s, t * y * z + x * s, t * z * z + c};
    store(out, gfxmath_dot_product(row0, v), gfxmath_dot_product(row1, v),
          gfxmath_dot_product(row2, v));
}

void gfxmath_cartesian_to_spherical_normal(float const n[3], float sph[2]) {
    double const x = n[0], y = n[1], z = n[2];
    double const fromY = std::atan2(std::sqrt(z * z + x * x), y);
    double azimuth = std::atan2(std::fabs(x), z);
    if (x < 0.0) azimuth = kTwoPi - azimuth;
    sph[0] = static_cast<float>(kHalfPi - fromY);
    sph[1] = static_cast<float>(azimuth > kPi ? -(kTwoPi - azimuth) : azimuth);
}

void gfxmath_spherical_to_cartesian_normal(float const sph[2], float n[3]) {
    float const xAxis[3] = {1.0F, 0.0F, 0.0F};
    float const yAxis[3] = {0.0F, 1.0F, 0.0F};
    float const latitude = sph[0], azimuth = sph[1];
    store(n, 0.0F, 0.0F, 1.0F);
    gfxmath_rotate_axis(n, -latitude, xAxis, n);
    gfxmath_rotate_axis(n, azimuth, yAxis, n);
    gfxmath_normalise(n);
}
