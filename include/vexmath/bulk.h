// SPDX-License-Identifier: MIT
// Operations on arrays of points, transforms and boxes. Each gives the results of a loop over the
// single operation, to the bit, faster.

#ifndef VEXMATH_BULK_H
#define VEXMATH_BULK_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

/// Moves every point as `points[i] *= x` does, perspective included. A count of 0 or less does
/// nothing; points may then be null. REQUIRES that x does not lie in the array.
VEXMATH_API void mg_TransformPoints(mgPoint_c *points, int count, mgXform_c const &x);

/// Encloses the points, first to last, as `box |= points[i]` does; box may be unset. A count of 0
/// or less does nothing; points may then be null. REQUIRES that box does not lie in the array.
VEXMATH_API void mg_BoundPoints(mgPoint_c const *points, int count, mgBBox_c &box);

/// Multiplies every transform as `xforms[i] *= by` does. An n of 0 or less does nothing; xforms may
/// then be null. REQUIRES that by does not lie in the array.
///
/// Only a by with a perspective record needs memory. When it is exhausted, `std::bad_alloc` is
/// thrown, as by the loop: the transforms before the one that cannot be changed are multiplied.
VEXMATH_API void mg_MultiplyXforms(mgXform_c *xforms, int n, mgXform_c const &by);
/// The same with one factor each, as `xforms[i] *= by[i]` does: by may be xforms, and each becomes
/// its square. REQUIRES that the two arrays are the same or do not overlap.
VEXMATH_API void mg_MultiplyXforms(mgXform_c *xforms, int n, mgXform_c const *by);

/// Two things by their indices.
struct mgIndexPair_c {
    int first, second;
};

// All clashes of boxes, in near-linear time. Each function replaces what `pairs` holds by exactly
// the pairs for which the test of two boxes gives 1, sorted by first, then second, as a loop over
// the pairs finds them. This holds for every tolerance, NaN and negative ones included, and for
// every box and placement. The array gets exactly the capacity that it needs, or a null handle when
// there are no pairs. Returns the number of pairs; -1, with pairs empty, when memory is exhausted
// or there are more than 2147483647. A count of 0 or less finds none; the arrays may then be null.
// REQUIRES boxes and placements outside the block of pairs.
//
// Nothing throws. No thread is started; several may search the same boxes at the same time, each
// for its own pairs. A search needs about 80 bytes for each box, or up to 550 for each placed one,
// and up to 32 for each pair, those of the result included.

/// The pairs i < j with `boxes[i].clash(&boxes[j], tol)`.
VEXMATH_API int mg_FindClashes(mgBBox_c const *boxes, int count, double tol,
                               suDynamicArray<mgIndexPair_c> &pairs);
/// The pairs i < j with `mgBBox_c::clash(boxes[i], placements[i], boxes[j], placements[j])`. A
/// placement with a perspective record, a scale outside 0.001 to 1000 or a rotation that is not
/// orthonormal is allowed, but its box is tested against all others.
VEXMATH_API int mg_FindClashes(mgBBox_c const *boxes, mgXform_c const *placements, int count,
                               suDynamicArray<mgIndexPair_c> &pairs);
/// The pairs with `a[first].clash(&b[second], tol)`: of a box in a and a box in b. Both arrays may
/// be the same: then each box is also tested against itself, and each two boxes in both orders.
VEXMATH_API int mg_FindClashes(mgBBox_c const *a, int countA, mgBBox_c const *b, int countB,
                               double tol, suDynamicArray<mgIndexPair_c> &pairs);

// A process-wide switch: whether the operations above, products and inverses of transforms, clashes
// of boxes and the index of boxes use AVX2, where processor and build have it. No bit of a result
// depends on it. It is 1 at first, or 0 when the environment variable VEXMATH_USE_VECTOR_UNITS is
// 0, which is read once. Both functions may be called from any thread.
VEXMATH_API int mg_GetUseVectorUnits();
/// Any value other than 0 is treated as 1. Returns the previous value.
VEXMATH_API int mg_SetUseVectorUnits(int use);

#endif
