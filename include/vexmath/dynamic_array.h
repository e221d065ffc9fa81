// SPDX-License-Identifier: MIT
/* Growable arrays of plain elements behind a single pointer; usable from C. */

#ifndef VEXMATH_DYNAMIC_ARRAY_H
#define VEXMATH_DYNAMIC_ARRAY_H

#include <stdint.h>

#include <vexmath/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * An array is handled through one untyped pointer, its handle: the address of element 0, to be
 * indexed like any C array. The 16 bytes in front of it are the header below, and the two together
 * are one block of the C heap (malloc, realloc, free), of at least 16 + capacity * elementSize
 * bytes. Other modules read and write these blocks themselves, so neither the layout nor the
 * capacities that the growth rules give may change.
 *
 * Elements are raw bytes, moved by memcpy and memmove: no constructor or destructor ever runs.
 * Whatever can grow an array returns its handle, which replaces the old one. A null result of such
 * an operation is a refusal: the old handle is still good and its array is untouched, so look
 * before storing it.
 *
 * Room is made only when it is needed, by g slots: the grow step when the mode is linear; when it
 * is proportional, the step until `count` has reached it and then `count`, which doubles a full
 * array. Each operation says how it departs from that. When there is no memory for a proportional
 * growth of more than 32767 slots, the array grows by 32767, as a linear array from then on.
 *
 * Whatever makes, copies or moves a block clears the keep flag of the result. A kept block that has
 * to move is released all the same.
 *
 * Sizes are computed in 64 bits. No handle or element pointer may be null unless its operation says
 * so. Elements passed in may lie in the array itself, its free slots included: they are taken by
 * value.
 */

/** Bookkeeping in front of element 0. */
typedef struct amDynamicArrayHeader {
    int32_t count;       /**< elements in use */
    int32_t capacity;    /**< element slots allocated */
    int16_t elementSize; /**< bytes per element */
    int16_t growStep;    /**< slots added at a time by linear growth, at most 32767 */
    int16_t growMode;    /**< 1 linear, 2 proportional */
    uint16_t keepFlag;   /**< 0: amDynamicArrayFree releases the block; otherwise it leaves it */
} amDynamicArrayHeader;

/* Creation and release. */

/**
 * A new array without elements. Null when elementSize is outside 1 to 32767, growStep or
 * initialCapacity is negative, growMode is neither 1 nor 2, or memory is exhausted. A growStep
 * above 32767 becomes 32767; a growStep of 0 makes a linear array that never grows by itself.
 */
VEXMATH_API void *suDynArrayAlloc(int initialCapacity, int growStep, int growMode, int elementSize);

/** As suDynArrayAlloc, with all initialCapacity slots in use; their contents are undefined. */
VEXMATH_API void *suDynArrayAllocSpecial(int initialCapacity, int growStep, int growMode,
                                         int elementSize);

/**
 * A new array without elements, of the element size, grow step and grow mode of `model`. Null when
 * initialCapacity is negative, model is null or memory is exhausted.
 */
VEXMATH_API void *suDynArrayAlloc1(int initialCapacity, const void *model);

/**
 * A copy of the array, of the same capacity, or of capacity `count` when trim is not 0. Null for a
 * null array or when memory is exhausted. The caller releases it.
 */
VEXMATH_API void *amDynamicArrayCopy(const void *array, int trim);

/** Releases the block, unless its keep flag is set. */
VEXMATH_API void amDynamicArrayFree(void *array);

/* Queries. */

/** Elements in use. */
VEXMATH_API int amDynamicArrayCount(const void *array);

/** Stores the grow step, the grow mode and the element size. */
VEXMATH_API void suDynamicGetStats(const void *array, int *growStep, int *growMode,
                                   int *elementSize);

/* Elements. */

/**
 * Appends one element. Null when the array is full and may not grow (linear with grow step 0, or
 * proportional without elements and with grow step 0) or when memory is exhausted.
 */
VEXMATH_API void *amDynamicArrayAdd(void *array, const void *element);

/**
 * Appends all elements of `source`, which may be `array` itself. The array as it is when source is
 * null or of another element size. Where n, the number of elements appended, is more than the step,
 * n takes the place of the step in making room. Null when memory is exhausted.
 */
VEXMATH_API void *amDynamicArrayAppend(void *array, const void *source);

/**
 * Inserts n elements before `index`, or behind the last element when index is `count`. Null when
 * index is negative or above count, n is below 1 or memory is exhausted. Room is made by g slots
 * or, where g is not enough, by just the slots that are missing.
 */
VEXMATH_API void *amDynamicArrayInsertAt(void *array, int index, const void *elements, int n);

/**
 * Overwrites the n elements from `index` on; never grows. Null when index is negative, n is below 1
 * or the range reaches beyond the last element. Mind the order of the arguments: here the elements
 * come before the index.
 */
VEXMATH_API void *amDynamicArraySetAt(void *array, const void *elements, int index, int n);

/**
 * Removes the n elements from `index` on; the capacity stays. Does nothing when index is negative,
 * n is below 1 or the range reaches beyond the last element.
 */
VEXMATH_API void amDynamicArrayRemoveAt(void *array, int index, int n);

/**
 * Truncates to newCount elements, 0 when it is negative; never grows: a newCount above the count is
 * ignored. Returns the array, which may be null.
 */
VEXMATH_API void *amDynamicArrayResize(void *array, int newCount);

/**
 * Reverses the elements first to last, both included. Returns 1, or 0 with nothing done when first
 * is negative or last is not below the count, and also when last <= first: a range of one element
 * is refused.
 */
VEXMATH_API int amDynamicArrayReverseFromTo(void *array, int first, int last);

/* Capacity. */

/**
 * Raises the capacity to at least minimumCapacity by whole grow steps, whatever the grow mode. The
 * array as it is when it has that capacity already, when its grow step is 0 or when memory is
 * exhausted; in that last case a proportional array may have grown part of the way.
 */
VEXMATH_API void *amDynArrayRealloc(void *array, int minimumCapacity);

/**
 * Cuts the capacity down to the count when more than the fraction slackFraction of the slots is
 * free: when capacity * (1 - slackFraction) is strictly above the count. The array as it is
 * otherwise, also for NaN, and when memory is exhausted.
 */
VEXMATH_API void *amDynamicArrayFreeExtra(void *array, double slackFraction);

/** Does nothing: a place for a breakpoint, to be called where an index is found out of range. */
VEXMATH_API void amDynamicArrayRangeError(void);

#ifdef __cplusplus
}
#endif

#endif
