// SPDX-License-Identifier: MIT
// Operations on arrays of points and transforms. Each gives the bits of a loop over the single
// operation, faster.

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

// A process-wide switch: whether the operations above, products and inverses of transforms and the
// clash of placed boxes use AVX2, where processor and build have it. No bit of a result depends on
// it. It is 1 at first, or 0 when the environment variable VEXMATH_USE_VECTOR_UNITS is 0, which is
// read once. Both functions may be called from any thread.
VEXMATH_API int mg_GetUseVectorUnits();
/// Any value other than 0 is treated as 1. Returns the previous value.
VEXMATH_API int mg_SetUseVectorUnits(int use);

#endif
