// SPDX-License-Identifier: MIT
// Free functions over boxes.

#ifndef VEXMATH_MG_BOUNDS_H
#define VEXMATH_MG_BOUNDS_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

/// The extent in x and y of the two-point box of a and b, transformed by x (`mgBBox_c::operator*=`)
/// and then grown by `grow` (`mgBBox_c::operator+=`): out becomes low x, low y, high x, high y. A
/// negative `grow` shrinks; an extent shrunk past its width becomes its middle, twice. When the
/// sphere's radius becomes negative or NaN, out becomes (1, 1, -1, -1): so also for NaN in a or
/// `grow`. A NaN coordinate of b counts as that of a. NaN in the translation gives NaN on that
/// axis. REQUIRES room for four doubles in out, which may alias a and b.
VEXMATH_API void mg_FindBBox(mgPoint_c const &a, mgPoint_c const &b, mgXform_c const &x,
                             double *out, double grow);

#endif
