// SPDX-License-Identifier: MIT
// Which parts clash, touch and contain each other, as far as their bounding volumes tell.

#ifndef ASSEMBLY_CHECK_H
#define ASSEMBLY_CHECK_H

#include "parts.h"

#include <cstddef>
#include <vector>

#include <vexmath/bbox.h>

namespace example::assembly {

/// Two parts, by their place in the list of parts.
struct PartPair {
    std::size_t first = 0;
    std::size_t second = 0;
};

/// What the bounding volumes say. They enclose the parts, so that two parts of no pair do not
/// overlap; at most they meet where two boxes have a corner in common. A pair is where an exact
/// test of the bodies is worth its time.
struct CheckResult {
    std::vector<PartPair> clashing;   ///< overlapping by more than the tolerance
    std::vector<PartPair> touching;   ///< within the tolerance of touching
    std::vector<PartPair> containing; ///< the first contains the second
    mgBBox_c total;                   ///< of all parts in the assembly
};

/// Tests every pair of parts. With a tolerance of 0 there is no touching: what meets, clashes,
/// but for boxes that meet in a single corner.
CheckResult check(std::vector<Part> const &parts, double clashTolerance);

/// For each part: is it one of a clashing pair?
std::vector<bool> clashingParts(CheckResult const &result, std::size_t partCount);

} // namespace example::assembly

#endif
