// SPDX-License-Identifier: MIT
// Free functions for drawings: clipping, inside tests, recognition of arcs, merging of lines, hatch
// lines, outlines about an axis, closed tours and least rectangles.

#ifndef VEXMATH_MG_PLANAR_H
#define VEXMATH_MG_PLANAR_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

// Clipping and inside tests.

// Recognition and merging.

// Hatch lines.

// Outlines about an axis.

// Tours and rectangles.

#endif
