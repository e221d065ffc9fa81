// SPDX-License-Identifier: MIT
// The eight corners of a box.

#ifndef VEXMATH_SRC_BOUNDS_CORNERS_H
#define VEXMATH_SRC_BOUNDS_CORNERS_H

#include <vexmath/point.h>

#include <array>

namespace vexmath::detail {

/// Low before high on each axis; z changes fastest.
inline std::array<mgPoint_c, 8> cornersOf(mgPoint_c const &low, mgPoint_c const &high) {
    std::array<mgPoint_c, 8> corners;
    for (unsigned i = 0; i < 8; ++i) {
        corners[i].set((i & 4U) != 0 ? high.x() : low.x(), (i & 2U) != 0 ? high.y() : low.y(),
                       (i & 1U) != 0 ? high.z() : low.z());
    }
    return corners;
}

} // namespace vexmath::detail

#endif
