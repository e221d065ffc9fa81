// SPDX-License-Identifier: MIT
// A C caller of the two plain families: the dynamic array and the float maths.

#include <vexmath/dynamic_array.h>
#include <vexmath/gfxmath.h>

#include <string.h>

#define EXPECT(condition)                                                                          \
    if (!(condition)) return __LINE__

typedef struct point {
    double x, y, z;
} point;

int runPlainCallers(void);

/// Checks that a function gives the same bits inlined and called in the library.
#define EXPECT_SAME_BITS(function)                                                                 \
    exported = function;                                                                           \
    function(a, b, inlined);                                                                       \
    exported(a, b, called);                                                                        \
    EXPECT(memcmp(inlined, called, sizeof called) == 0)

static int runInlined(void) {
    typedef void operation(const float *, const float *, float *);
    operation *volatile exported;
    float volatile const one = 1.0F; // unknown to the compiler
    float a[16], b[16], inlined[16] = {0}, called[16] = {0};
    for (int i = 0; i < 16; ++i) {
        a[i] = one / (float)(i + 3);
        b[i] = 0.1F - a[i] * a[i];
    }
    EXPECT_SAME_BITS(gfxmath_add);
    EXPECT_SAME_BITS(gfxmath_subtract);
    EXPECT_SAME_BITS(gfxmath_cross_product);
    EXPECT_SAME_BITS(gfxmath_mult_point_by_matrix);
    EXPECT_SAME_BITS(gfxmath_mult_vector_by_matrix);
    EXPECT_SAME_BITS(gfxmath_mult_matrix);
    return 0;
}

/// 0, or the line that fails.
int runPlainCallers(void) {
    point *points = suDynArrayAlloc(8, 16, 1, sizeof(point));
    for (int i = 0; i < 9; ++i) {
        point const p = {i, 2.0 * i, 0.5};
        points = amDynamicArrayAdd(points, &p);
    }
    amDynamicArrayHeader const *header = (amDynamicArrayHeader const *)points - 1;
    EXPECT(header->count == 9 && header->capacity == 24 && header->elementSize == 24);
    EXPECT(amDynamicArrayReverseFromTo(points, 0, amDynamicArrayCount(points) - 1) == 1);
    EXPECT(points[0].y == 16.0 && points[8].x == 0.0);
    amDynamicArrayFree(points);

    float const matrix[16] = {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 2, 3, 1};
    float p[3] = {1, 1, 1};
    gfxmath_mult_point_by_matrix(p, matrix, p);
    EXPECT(p[0] == 3.0F && p[1] == 4.0F && p[2] == 5.0F && gfxmath_normalise(p) == 1);
    return runInlined();
}
