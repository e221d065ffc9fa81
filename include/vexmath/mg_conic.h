// SPDX-License-Identifier: MIT
// Free functions for the shape of conic arcs: eccentricity, fullness and points.

#ifndef VEXMATH_MG_CONIC_H
#define VEXMATH_MG_CONIC_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

#endif
