// SPDX-License-Identifier: MIT
// Free functions over boxes.

#ifndef VEXMATH_MG_BOUNDS_H
#define VEXMATH_MG_BOUNDS_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

/// The extent in x and y of the box of two opposite corners, moved by x and then grown by `grow`:
/// low x, low y, high x, high y. A box shrunk away gives (1, 1, -1, -1). REQUIRES room for four
/// doubles in out.
VEXMATH_API void mg_FindBBox(mgPoint_c const &a, mgPoint_c const &b, mgXform_c const &x,
                             double *out, double grow);

#endif
