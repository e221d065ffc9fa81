// SPDX-License-Identifier: MIT
// The clash of placed boxes, for boxes that are each tested against many others.

#ifndef VEXMATH_SRC_BOUNDS_PLACED_VERDICT_H
#define VEXMATH_SRC_BOUNDS_PLACED_VERDICT_H

#include <vexmath/bbox.h>
#include <vexmath/xform.h>

namespace vexmath::detail {

/// A box and its placement with what all tests of them share. Refers to both, which must neither
/// move nor change. Copies are exact and do not allocate.
struct PlacedBox {
    mgBBox_c const *box;
    mgXform_c const *placement;
    mgXform_c inverse; ///< of the placement
    bool isSet;

    /// The box in model space, for the shortcut. The fourth number of each row is unspecified.
    struct InModelSpace {
        double error; ///< of the rotation's orthonormality; infinite when the shortcut is closed
        double scale;
        double radius;        ///< as given, not scaled
        double centreLengths; ///< sum of the lengths that make up the placed centre
        double lengths;       ///< of these and of the corners
        double middle[4];     ///< of the corners, placed
        double half[4];       ///< from there to the high corner, along the box's own axes
        double centre[4];     ///< of the sphere, placed
        double fromMiddle[4]; ///< from the middle to the centre, along the box's own axes
    } placed;
};

PlacedBox prepare(mgBBox_c const &box, mgXform_c const &placement);

/// `mgBBox_c::clash` of a placed by its placement and b placed by its own. Does not allocate.
bool clash(PlacedBox const &a, PlacedBox const &b);

} // namespace vexmath::detail

#endif
