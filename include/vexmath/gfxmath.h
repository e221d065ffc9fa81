// SPDX-License-Identifier: MIT
/* Vectors and matrices in plain float arrays, for display code; usable from C99 and later. */

#ifndef VEXMATH_GFXMATH_H
#define VEXMATH_GFXMATH_H

#include <vexmath/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * A vector is 3 floats. A matrix is 16 floats, element (r, c) at 4 r + c: points are row vectors
 * that multiply it from the left, and the translation is row 3 (indices 12, 13, 14). In memory that
 * equals a column-major matrix for column vectors. A spherical normal is 2 floats in radians:
 * latitude from the xz-plane towards +y, azimuth about +y from +z towards +x.
 *
 * The caller provides all storage; no pointer may be null. An output may be one of the inputs. Sums
 * of products are computed in single precision from left to right. What exceeds the range of float
 * becomes infinite, and NaN passes through.
 *
 * A loop over many points is fastest when the matrix is a local variable of the caller: the
 * compiler then knows that no output changes it.
 */

/** out = a + b */
VEXMATH_API void gfxmath_add(const float a[3], const float b[3], float out[3]);

/** out = a - b */
VEXMATH_API void gfxmath_subtract(const float a[3], const float b[3], float out[3]);

/** a . b */
VEXMATH_API float gfxmath_dot_product(const float a[3], const float b[3]);

/** out = a x b */
VEXMATH_API void gfxmath_cross_product(const float a[3], const float b[3], float out[3]);

/** The square root of v . v; infinite where that exceeds the range of float. */
VEXMATH_API float gfxmath_length(const float v[3]);

/**
 * Divides v by its length and returns 1. Returns 0, with v unchanged, when v . v is not strictly
 * above 1e-06, also for NaN. Where v . v exceeds the range of float, as it does for a component
 * above 1.85e19, finite components become 0 and infinite ones NaN, and the result is 1.
 */
VEXMATH_API int gfxmath_normalise(float v[3]);

/** out = the point p multiplied by the matrix, row 3 included; no division by w. */
VEXMATH_API void gfxmath_mult_point_by_matrix(const float p[3], const float matrix[16],
                                              float out[3]);

/** out = the direction v multiplied by the matrix, without row 3. */
VEXMATH_API void gfxmath_mult_vector_by_matrix(const float v[3], const float matrix[16],
                                               float out[3]);

/**
 * out = the product b a: the rows of b times the columns of a. A point multiplied by it is
 * multiplied by b first and then by a.
 */
VEXMATH_API void gfxmath_mult_matrix(const float a[16], const float b[16], float out[16]);

/**
 * n = (p1 - p0) x (p2 - p0), normalised as by gfxmath_normalise, whose result is returned: seen
 * from the tip of n, the three points are counter-clockwise. On 0 the product itself is in n. It is
 * too short up to a length of 0.001, as for a right-angled triangle with sides of 0.03.
 */
VEXMATH_API int gfxmath_triangle_normal(const float p0[3], const float p1[3], const float p2[3],
                                        float n[3]);

/**
 * The same with the product multiplied by 10000 before it is normalised, so that small triangles
 * have a normal too: it is too short up to a length of 1e-07. On 0 the multiplied product is in n.
 */
VEXMATH_API int gfxmath_triangle_normal_scale(const float p0[3], const float p1[3],
                                              const float p2[3], float n[3]);

/** As gfxmath_triangle_normal_scale with the factor -10000: the reversed normal. */
VEXMATH_API int gfxmath_triangle_normal_negative_scale(const float p0[3], const float p1[3],
                                                       const float p2[3], float n[3]);

/**
 * out = v rotated by `angle` radians about the axis, by the right-hand rule.
 * REQUIRES an axis of unit length. It is not normalised: with another length the result is no
 * rotation.
 */
VEXMATH_API void gfxmath_rotate_axis(const float v[3], float angle, const float axis[3],
                                     float out[3]);

/**
 * sph = latitude in [-pi/2, pi/2] and azimuth in (-pi, pi] of the direction n, which may have any
 * length. Both bounds hold up to rounding to float. (0, 0, -1) has the azimuth +pi. +y, -y and the
 * null vector have the azimuth 0, or +pi where their z is -0. The null vector has the latitude of
 * +y, or of -y where its y is -0.
 */
VEXMATH_API void gfxmath_cartesian_to_spherical_normal(const float n[3], float sph[2]);

/** n = the unit vector (sin az cos lat, sin lat, cos az cos lat) of sph = (lat, az). */
VEXMATH_API void gfxmath_spherical_to_cartesian_normal(const float sph[2], float n[3]);

/*
 * Other functions of the library are either inline or exported. These small ones are both: a loop
 * over points should not pay for a call to each, and callers in C, or those that find a function by
 * its name at run time, need the symbol. The library has the only copy, which gfxmath.cpp makes of
 * these bodies. Callers may inline the bodies but never emit a copy: a call that is not inlined
 * goes to the library, so that no copy compiled with the flags of one caller serves another.
 * Inlined code rounds as the flags of its caller say, which is as in the library unless they fuse
 * products with sums. A compiler that cannot do this always calls. gfxmath_length is always a call:
 * its square root would make callers in C link the mathematical library.
 */
#if defined(VEXMATH_GFXMATH_DEFINE)
#define VEXMATH_GFXMATH_INLINE
#elif defined(__GNUC__) && !defined(_WIN32)
#define VEXMATH_GFXMATH_INLINE extern __inline__ __attribute__((__gnu_inline__))
#elif defined(_MSC_VER) && !defined(VEXMATH_STATIC)
#define VEXMATH_GFXMATH_INLINE VEXMATH_API __inline
#endif

#if defined(VEXMATH_GFXMATH_INLINE)
/* NOLINTBEGIN(misc-definitions-in-headers): one file alone defines them */

VEXMATH_GFXMATH_INLINE void gfxmath_add(const float a[3], const float b[3], float out[3]) {
    const float x = a[0] + b[0], y = a[1] + b[1], z = a[2] + b[2];
    out[0] = x;
    out[1] = y;
    out[2] = z;
}

VEXMATH_GFXMATH_INLINE void gfxmath_subtract(const float a[3], const float b[3], float out[3]) {
    const float x = a[0] - b[0], y = a[1] - b[1], z = a[2] - b[2];
    out[0] = x;
    out[1] = y;
    out[2] = z;
}

VEXMATH_GFXMATH_INLINE float gfxmath_dot_product(const float a[3], const float b[3]) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

VEXMATH_GFXMATH_INLINE void gfxmath_cross_product(const float a[3], const float b[3],
                                                  float out[3]) {
    const float x = a[1] * b[2] - a[2] * b[1];
    const float y = a[2] * b[0] - a[0] * b[2];
    const float z = a[0] * b[1] - a[1] * b[0];
    out[0] = x;
    out[1] = y;
    out[2] = z;
}

VEXMATH_GFXMATH_INLINE void gfxmath_mult_vector_by_matrix(const float v[3], const float matrix[16],
                                                          float out[3]) {
    const float x = v[0] * matrix[0] + v[1] * matrix[4] + v[2] * matrix[8];
    const float y = v[0] * matrix[1] + v[1] * matrix[5] + v[2] * matrix[9];
    const float z = v[0] * matrix[2] + v[1] * matrix[6] + v[2] * matrix[10];
    out[0] = x;
    out[1] = y;
    out[2] = z;
}

VEXMATH_GFXMATH_INLINE void gfxmath_mult_point_by_matrix(const float p[3], const float matrix[16],
                                                         float out[3]) {
    float rotated[3];
    gfxmath_mult_vector_by_matrix(p, matrix, rotated);
    gfxmath_add(rotated, matrix + 12, out);
}

// QUIRK: gfxmath.h, gfxmath_mult_matrix: the product applies its second argument first. Expected:
// the first. Kept: callers and stored data depend on it. (test: ProductAppliesItsSecondMatrixFirst)
VEXMATH_GFXMATH_INLINE void gfxmath_mult_matrix(const float a[16], const float b[16],
                                                float out[16]) {
    float product[16];
    int r, c, k;
    for (r = 0; r < 4; ++r)
        for (c = 0; c < 4; ++c)
            product[4 * r + c] = b[4 * r] * a[c] + b[4 * r + 1] * a[4 + c] + b[4 * r + 2] * a[8 + c]
                                 + b[4 * r + 3] * a[12 + c];
    for (k = 0; k < 16; ++k) out[k] = product[k];
}

/* NOLINTEND(misc-definitions-in-headers) */
#undef VEXMATH_GFXMATH_INLINE
#endif

#ifdef __cplusplus
}
#endif

#endif
