// SPDX-License-Identifier: MIT
// How a part is put into the assembly.

#ifndef ASSEMBLY_PLACEMENT_H
#define ASSEMBLY_PLACEMENT_H

#include <vexmath/unit_vector.h>
#include <vexmath/vector.h>
#include <vexmath/xform.h>

namespace example::assembly {

/// The coordinate that a mirrored part negates.
enum class Mirror { None, X, Y, Z };

/// A placement as a person writes it. The default leaves the part where it was drawn.
struct Placement {
    Mirror mirror = Mirror::None;
    double scale = 1.0;
    mgUnitVector_c axis;       ///< through the part's origin; (0, 0, 0) for no rotation
    double angleDegrees = 0.0; ///< right-handed about the axis
    mgVector_c translation;    ///< in assembly units
};

/// The transform from the part's own coordinates to the assembly's. Its steps, in this order:
/// mirror, scale, rotate, translate.
mgXform_c transformOf(Placement const &placement);

/// The same transform without its scale, for a part that has been brought to size already.
mgXform_c withoutScale(mgXform_c const &placement);

} // namespace example::assembly

#endif
