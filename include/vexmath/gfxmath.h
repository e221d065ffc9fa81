// SPDX-License-Identifier: MIT
/* Vectors and matrices in plain float arrays, for display code; usable from C. */

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
 * The caller provides all storage. An output may be one of the inputs. Sums of products are taken
 * in single precision from left to right; values beyond the range of float become infinite.
 *
 * A loop over many points is fastest when the matrix is a local variable of the caller: the
 * compiler then knows that no output changes it.
 */

/** out = a + b */
VEXMATH_API void gfxmath_add(const float a[3], const float b[3], float out[3]);

/** out = a - b */
VEXMATH_API void gfxmath_subtract(const float a[3], const float b[3], float out[3]);

VEXMATH_API float gfxmath_dot_product(const float a[3], const float b[3]);

/** out = a x b */
VEXMATH_API void gfxmath_cross_product(const float a[3], const float b[3], float out[3]);

VEXMATH_API float gfxmath_length(const float v[3]);

/**
 * Gives v the length 1 and returns 1, or returns 0 with v unchanged when its squared length is not
 * strictly above 1e-06, also for NaN.
 */
VEXMATH_API int gfxmath_normalise(float v[3]);

/** The point p under the matrix, without a division by w. */
VEXMATH_API void gfxmath_mult_point_by_matrix(const float p[3], const float matrix[16],
                                              float out[3]);

/** The direction v under the matrix, without its translation. */
VEXMATH_API void gfxmath_mult_vector_by_matrix(const float v[3], const float matrix[16],
                                               float out[3]);

/** The matrix that multiplies a point by b first and then by a: the rows of b times the columns of
 * a. */
VEXMATH_API void gfxmath_mult_matrix(const float a[16], const float b[16], float out[16]);

/**
 * The unit normal (p1 - p0) x (p2 - p0), counter-clockwise seen from its tip. Returns 1, or 0 with
 * the raw product in n when that is too short for gfxmath_normalise: right-angled triangles with
 * sides of 0.03 already are.
 */
VEXMATH_API int gfxmath_triangle_normal(const float p0[3], const float p1[3], const float p2[3],
                                        float n[3]);

/**
 * As gfxmath_triangle_normal, with the product multiplied by 10000 first, so that small triangles
 * have a normal too. When even that is too short, 0 and the multiplied product in n.
 */
VEXMATH_API int gfxmath_triangle_normal_scale(const float p0[3], const float p1[3],
                                              const float p2[3], float n[3]);

/** As gfxmath_triangle_normal_scale with the factor -10000: the reversed normal. */
VEXMATH_API int gfxmath_triangle_normal_negative_scale(const float p0[3], const float p1[3],
                                                       const float p2[3], float n[3]);

/**
 * v turned by `angle` radians about the axis, by the right-hand rule.
 * REQUIRES a unit axis; another one is used as it is and shears.
 */
VEXMATH_API void gfxmath_rotate_axis(const float v[3], float angle, const float axis[3],
                                     float out[3]);

/**
 * Latitude in [-pi/2, pi/2] and azimuth in (-pi, pi] of a direction n of any length, each up to
 * rounding to float: (0, 0, -1) has the azimuth +pi, and +y, -y and the null vector have 0, or +pi
 * where their z is -0. The null vector has the latitude of +y, of -y where its y is -0.
 */
VEXMATH_API void gfxmath_cartesian_to_spherical_normal(const float n[3], float sph[2]);

/** The unit normal (sin az cos lat, sin lat, cos az cos lat). */
VEXMATH_API void gfxmath_spherical_to_cartesian_normal(const float sph[2], float n[3]);

/*
 * Elsewhere a function is either inline or exported. These small ones are both: a loop over points
 * shall not pay a call for each, and callers in C, or who look a function up by its name at run
 * time, need the symbol. The library has the only copy, made by gfxmath.cpp from these bodies. For
 * everybody else they are there to be inlined and for nothing more: what is not inlined calls the
 * library, and no caller puts a copy with the rounding of its own compiler flags in its place. What
 * is inlined rounds as those flags say: the library's way, unless they fuse products with sums. A
 * compiler without such a kind of function just calls. gfxmath_length is always a call, since its
 * square root would have callers in C link the mathematical library.
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
    float turned[3];
    gfxmath_mult_vector_by_matrix(p, matrix, turned);
    gfxmath_add(turned, matrix + 12, out);
}

/*
 * QUIRK: the second matrix comes first: its rows times the columns of a. Display code composes
 * matrices in the order of its own stack, the outermost first.
 * (test: ProductAppliesItsSecondMatrixFirst)
 */
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
