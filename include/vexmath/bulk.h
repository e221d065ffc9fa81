// SPDX-License-Identifier: MIT
// Operations on whole arrays of points, each to the bit what the loop over the single operation
// gives, and faster.

#ifndef VEXMATH_BULK_H
#define VEXMATH_BULK_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

/// Moves every point as `points[i] *= x` does, perspective included. A count of 0 or less does
/// nothing; points may be null then. REQUIRES x outside the array.
VEXMATH_API void mg_TransformPoints(mgPoint_c *points, int count, mgXform_c const &x);

/// Encloses the points, first to last, as `box |= points[i]` does; box may be unset. A count of 0
/// or less does nothing; points may be null then. REQUIRES box outside the array.
VEXMATH_API void mg_BoundPoints(mgPoint_c const *points, int count, mgBBox_c &box);

// A process-wide switch: do the operations above, products and inverses of transforms, and the
// clash of placed boxes use the vector units that this processor has beyond those that the library
// was built for, AVX2 on x86-64? No bit of a result depends on it. It is 1 at first, or 0 when the
// environment says VEXMATH_USE_VECTOR_UNITS=0, which is read once. Without such units it changes
// nothing.
VEXMATH_API int mg_GetUseVectorUnits();
/// Any use other than 0 counts as 1. Returns the previous value. May be called from any thread.
VEXMATH_API int mg_SetUseVectorUnits(int use);

#endif
