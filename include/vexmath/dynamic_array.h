// SPDX-License-Identifier: MIT
/* Growable arrays of plain elements behind a single pointer; usable from C99 and later. */

#ifndef VEXMATH_DYNAMIC_ARRAY_H
#define VEXMATH_DYNAMIC_ARRAY_H

#include <stdint.h>

#include <vexmath/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * An array is handled through one untyped pointer, its handle: the address of element 0, which is
 * indexed like any C array. The 16 bytes in front of it are the header below. Both together are one
 * block of the C heap (malloc, realloc, free), of at least 16 + capacity * elementSize bytes. Other
 * modules read and write these blocks themselves, so neither the layout nor the capacities that the
 * growth rules give may change.
 *
 * Elements are raw bytes, moved by memcpy and memmove: no constructor or destructor ever runs.
 * An operation that can grow an array returns its handle, which replaces the old one. If it returns
 * null it has refused: the old handle is still valid and its array unchanged, so test the result
 * before storing it.
 *
 * An operation makes room only when it needs some, by g slots. For a linear array g is the grow
 * step. For a proportional array g is the step as long as the count is below the step, and then the
 * count, which doubles a full array. Each operation says where it differs. When there is no memory
 * for a proportional growth of more than 32767 slots, the array becomes linear with the step 32767
 * and grows by that, if this is enough for the new elements. Other modules may store a growMode m
 * above 2: the array is then proportional with (m - 1) times the count.
 *
 * Whatever makes, copies or moves a block clears the keep flag of the result. A kept block that has
 * to move is released all the same.
 *
 * A capacity above 2147483647, or a block that no heap can hold, counts as exhausted memory. No
 * handle or element pointer may be null unless its operation says so. Elements passed in may lie in
 * the array itself, its free slots included: they are taken by value.
 */

/** Bookkeeping in front of element 0. */
typedef struct amDynamicArrayHeader {
    int32_t count;       /**< elements in use */
    int32_t capacity;    /**< element slots allocated */
    int16_t elementSize; /**< bytes per element */
    int16_t growStep;    /**< slots added by linear growth, at most 32767 */
    int16_t growMode;    /**< 1 linear, 2 proportional */
    uint16_t keepFlag;   /**< 0: amDynamicArrayFree releases the block; otherwise it does nothing */
} amDynamicArrayHeader;

/* Creation and release. */

/**
 * A new array without elements. Null when elementSize is outside 1 to 32767, growStep or
 * initialCapacity is negative, growMode is neither 1 nor 2, or memory is exhausted. A growStep
 * above 32767 becomes 32767. With a growStep of 0 a linear array does not grow by
 * amDynamicArrayAdd.
 */
VEXMATH_API void *suDynArrayAlloc(int initialCapacity, int growStep, int growMode, int elementSize);

/** As suDynArrayAlloc, with a count of initialCapacity; the elements are uninitialised. */
VEXMATH_API void *suDynArrayAllocSpecial(int initialCapacity, int growStep, int growMode,
                                         int elementSize);

/**
 * A new array without elements, of the element size, grow step and grow mode of `model`. Null when
 * initialCapacity is negative, model is null or memory is exhausted.
 */
VEXMATH_API void *suDynArrayAlloc1(int initialCapacity, const void *model);

/**
 * A copy of the array, which the caller releases: with the same capacity when trim is 0, else with
 * the count as capacity. Null for a null array and when memory is exhausted.
 */
VEXMATH_API void *amDynamicArrayCopy(const void *array, int trim);

/** Releases the block, unless its keep flag is set. REQUIRES an array: null is not allowed. */
VEXMATH_API void amDynamicArrayFree(void *array);

/* Queries. */

/** Elements in use. */
VEXMATH_API int amDynamicArrayCount(const void *array);

/** Stores the grow step, the grow mode and the element size. */
VEXMATH_API void suDynamicGetStats(const void *array, int *growStep, int *growMode,
                                   int *elementSize);

/* Elements. */

/**
 * Appends one element. Null when memory is exhausted, and when the array is full and g is 0: a
 * linear array with grow step 0, or a proportional one with grow step 0 and no elements.
 */
VEXMATH_API void *amDynamicArrayAdd(void *array, const void *element);

/**
 * Appends all elements of `source`, which may be `array` itself. Returns the array unchanged when
 * source is null or has another element size. If the number of elements appended is above the grow
 * step, it replaces the step in the rule for g. Null when memory is exhausted.
 */
VEXMATH_API void *amDynamicArrayAppend(void *array, const void *source);

/**
 * Inserts n elements before `index`, or behind the last element when index is the count. Null when
 * index is negative or above the count, n is below 1 or memory is exhausted, which can also happen
 * while elements of the array itself are set aside. The array grows by g slots, or by the number
 * that is missing where g is less, so also with a grow step of 0.
 */
VEXMATH_API void *amDynamicArrayInsertAt(void *array, int index, const void *elements, int n);

/**
 * Overwrites the n elements from `index` on and returns the array; never grows it. Null, with
 * nothing done, when index is negative, n is below 1 or the range ends beyond the last element.
 * Unlike in amDynamicArrayInsertAt, the elements come before the index.
 */
VEXMATH_API void *amDynamicArraySetAt(void *array, const void *elements, int index, int n);

/**
 * Removes the n elements from `index` on; the capacity stays. Does nothing when index is negative,
 * n is below 1 or the range ends beyond the last element.
 */
VEXMATH_API void amDynamicArrayRemoveAt(void *array, int index, int n);

/**
 * Lowers the count to newCount, or to 0 when that is negative. A newCount above the count is
 * ignored, and the capacity stays. Returns the array, which may be null.
 */
VEXMATH_API void *amDynamicArrayResize(void *array, int newCount);

/**
 * Reverses the elements from first to last, both included, and returns 1. Returns 0, with nothing
 * done, when first is negative, last is not below the count, or last <= first: a range of one
 * element is refused.
 */
VEXMATH_API int amDynamicArrayReverseFromTo(void *array, int first, int last);

/* Capacity. */

/**
 * Raises the capacity to at least minimumCapacity by as few whole grow steps as possible, whatever
 * the grow mode. Returns the array unchanged when it has that capacity already or its grow step is
 * 0. Never null: without memory the array is returned unchanged too, except that a proportional one
 * may have grown by 32767 slots and become linear.
 */
VEXMATH_API void *amDynArrayRealloc(void *array, int minimumCapacity);

/**
 * Lowers the capacity to the count when more than the fraction slackFraction of the slots is free:
 * when capacity * (1 - slackFraction) is strictly above the count. Otherwise, for NaN and when
 * memory is exhausted the array is returned unchanged. Never null.
 */
VEXMATH_API void *amDynamicArrayFreeExtra(void *array, double slackFraction);

/** Does nothing. Callers that find an index out of range call it, as a place for a breakpoint. */
VEXMATH_API void amDynamicArrayRangeError(void);

#ifdef __cplusplus
}
#endif

#endif
