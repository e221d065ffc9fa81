// SPDX-License-Identifier: MIT
// Boxes and placements that often touch, or miss each other by what decides.

#ifndef VEXMATH_TESTS_BOUNDS_LATTICE_H
#define VEXMATH_TESTS_BOUNDS_LATTICE_H

#include "bounds/boxes.h"

namespace common {

/// A corner coordinate on a small lattice, or off it by what rounding and tolerances decide.
inline double latticeNumber(Random &random) {
    double const offsets[] = {1e-8, -1e-8, 5e-9, -5e-9, 1.1e-8, 0.125, -0.125};
    if (random.below(100) == 0) return random.hostile();
    double const x = random.below(4);
    int const kind = random.below(14);
    return kind < 7 ? x + offsets[kind] : kind == 7 ? below(x) : kind == 8 ? above(x) : x;
}

inline mgPoint_c latticePoint(Random &random) {
    double const x = latticeNumber(random), y = latticeNumber(random), z = latticeNumber(random);
    return {x, y, z};
}

/// A box that often touches others, often with a sphere of another place or size.
inline mgBBox_c latticeBox(Random &random) {
    mgBBox_c box(latticePoint(random), latticePoint(random));
    double const radii[] = {0.0, 0.5, 1.0, 2.0, box.sphRadius(), box.sphRadius(), random.hostile()};
    if (random.below(2) == 0) box.setSphereOnly(latticePoint(random), radii[random.below(7)]);
    if (random.below(20) == 0) box.setCornersOnly(latticePoint(random), latticePoint(random));
    return box;
}

/// Quarter turns, some off by what copies and orthonormalisation decide, in a common frame.
inline mgXform_c matingPlacement(Random &random, mgXform_c const &frame) {
    mgUnitVector_c const axes[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    double const angle = 1.5707963267948966 * random.below(4)
                         + (random.below(3) == 0 ? random.ofMagnitude(-16, -6) : 0.0);
    double const scales[] = {1, 1, 1, 1, 1 + 5e-9, 1 + 2e-8, 5e-4};
    mgVector_c const shift(0.5 * latticePoint(random)); // sometimes infinite or NaN
    return raw(
        (mg_RestoreXform(mg_RotationMatrix(angle, axes[random.below(3)], 0.0), mgVector_c(), 1)
         * frame)
            .rotation(),
        shift * frame, scales[random.below(7)]);
}

} // namespace common

#endif
