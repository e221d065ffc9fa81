// SPDX-License-Identifier: MIT
// A C caller of the two plain families: the dynamic array and the float maths.

#include <vexmath/dynamic_array.h>
#include <vexmath/gfxmath.h>

#include <string.h>

#define EXPECT(condition)                                                                          \
    if (!(condition)) return __LINE__

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
    int *numbers = suDynArrayAlloc(8, 16, 1, sizeof(int));
    for (int i = 0; i < 9; ++i) numbers = amDynamicArrayAdd(numbers, &i);
    amDynamicArrayHeader const *header = (amDynamicArrayHeader const *)numbers - 1;
    EXPECT(header->count == 9 && header->capacity == 24 && header->elementSize == 4);
    EXPECT(amDynamicArrayReverseFromTo(numbers, 0, amDynamicArrayCount(numbers) - 1) == 1);
    EXPECT(numbers[0] == 8 && numbers[8] == 0);
    amDynamicArrayFree(numbers);
    return runInlined();
}
