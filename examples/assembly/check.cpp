// SPDX-License-Identifier: MIT
// Which parts clash, touch and contain each other, as far as their bounding volumes tell.

#include "check.h"

#include "progress.h"

#include <vexmath/mg_transform.h>

namespace example::assembly {

namespace {

/// A part made ready to be tested against many others: its bounds in its own frame but at their
/// final size, and the rigid motion (mirrored or not) that takes that frame into the assembly.
///
/// The scale is taken out of the placement because the placed clash compares the two spheres at
/// the size they are given with, and because the tolerance is a length of the assembly.
struct Body {
    mgBBox_c sized;   ///< the bounds as they are
    mgBBox_c grown;   ///< by half the tolerance: two that are apart stay clear by all of it
    mgBBox_c shrunk;  ///< by half the tolerance: two that meet overlap by all of it
    mgXform_c motion; ///< from its frame into the assembly
};

Body bodyOf(Part const &part, double clashTolerance) {
    mgBBox_c sized = part.mesh->bounds;
    sized *= mg_ScaleXform(part.placement.scaling());
    Body body{sized, sized, sized, withoutScale(part.placement)};
    body.grown += 0.5 * clashTolerance;
    body.shrunk += -0.5 * clashTolerance;
    return body;
}

enum class Contact { Clear, Touch, Clash };

Contact contactOf(Body const &a, Body const &b) {
    if (!mgBBox_c::clash(a.grown, a.motion, b.grown, b.motion)) return Contact::Clear;
    if (!mgBBox_c::clash(a.shrunk, a.motion, b.shrunk, b.motion)) return Contact::Touch;
    return Contact::Clash;
}

/// Asked in the frame of the outer part, in which its box fits it best.
bool contains(Body const &outer, Body const &inner) {
    constexpr double kNoShrink = 0.0; // the inner box counts at its full size
    mgBBox_c inOuterFrame = inner.sized;
    inOuterFrame *= inner.motion * outer.motion.inverse();
    return outer.sized.containsBBox(&inOuterFrame, kNoShrink) != 0;
}

} // namespace

CheckResult check(std::vector<Part> const &parts, double clashTolerance) {
    CheckResult result;
    std::vector<Body> bodies;
    for (Part const &part : parts) {
        result.total |= part.placed;
        bodies.push_back(bodyOf(part, clashTolerance));
    }

    Progress progress("checking pairs", parts.size() * (parts.size() - 1) / 2);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        for (std::size_t j = i + 1; j < parts.size(); ++j) {
            progress.step();
            Contact const contact = contactOf(bodies[i], bodies[j]);
            if (contact == Contact::Clear) continue;
            (contact == Contact::Clash ? result.clashing : result.touching).push_back({i, j});
            if (contains(bodies[i], bodies[j])) result.containing.push_back({i, j});
            if (contains(bodies[j], bodies[i])) result.containing.push_back({j, i});
        }
    }
    return result;
}

std::vector<bool> clashingParts(CheckResult const &result, std::size_t partCount) {
    std::vector<bool> clashes(partCount, false);
    for (PartPair const &pair : result.clashing) {
        clashes[pair.first] = true;
        clashes[pair.second] = true;
    }
    return clashes;
}

} // namespace example::assembly
