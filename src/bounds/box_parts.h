// SPDX-License-Identifier: MIT
// The members of a box, whether it is set or not.

#ifndef VEXMATH_SRC_BOUNDS_BOX_PARTS_H
#define VEXMATH_SRC_BOUNDS_BOX_PARTS_H

#include <vexmath/bbox.h>

namespace vexmath::detail {

/// Friend of the box. Refers to it.
struct BoxParts {
    explicit BoxParts(mgBBox_c const &box)
        : low(box.low_), high(box.high_), centre(box.sphCentre_), radius(box.sphRadius_) {}

    /// As `operator*=`, for a transform that its copy equals and that has no perspective record.
    static mgBBox_c moved(mgBBox_c const &box, mgXform_c const &x) { return box.movedBy(x); }

    mgPoint_c const &low, &high, &centre;
    double radius;
};

} // namespace vexmath::detail

#endif
