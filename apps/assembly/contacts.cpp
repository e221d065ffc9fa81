// SPDX-License-Identifier: MIT
// Which parts clash, touch and contain each other.

#include "check_result.h"

#include "terminal.h"

#include <vexmath/mg_transform.h>

namespace assembly {

namespace {

/// A part prepared for tests against many others: its bounds in its own frame at their final size,
/// and the rigid motion, mirrored or not, from that frame into the assembly.
///
/// The scale leaves the placement because the placed clash compares the two spheres at the size at
/// which they are given, and because the tolerance is a length of the assembly.
struct Body {
    mgBBox_c sized;
    mgBBox_c grown;  ///< by half the tolerance: two that do not meet are farther apart than it
    mgBBox_c shrunk; ///< by half the tolerance: two that meet overlap by more than it
    mgXform_c motion;
};

Body bodyOf(Part const &part, double tolerance) {
    mgBBox_c sized = part.mesh->bounds;
    sized *= mg_ScaleXform(part.placement.scaling());
    Body body{sized, sized, sized, mg_ScaleXform(part.placement, 1.0)}; // replaces the scale
    body.grown += 0.5 * tolerance;
    body.shrunk += -0.5 * tolerance;
    return body;
}

/// Asked in the frame of the outer part, where its box fits best.
bool contains(Body const &outer, Body const &inner) {
    constexpr double kNoShrink = 0.0; // the inner box keeps its size
    mgBBox_c inOuterFrame = inner.sized;
    inOuterFrame *= inner.motion * outer.motion.inverse();
    return outer.sized.containsBBox(&inOuterFrame, kNoShrink) != 0;
}

} // namespace

Contacts findContacts(std::vector<Part> const &parts, double tolerance) {
    std::vector<Body> bodies;
    bodies.reserve(parts.size());
    for (Part const &part : parts) bodies.push_back(bodyOf(part, tolerance));

    Contacts contacts;
    Progress progress("checking pairs", parts.size() * (parts.size() - 1) / 2);
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        for (std::size_t j = i + 1; j < bodies.size(); ++j) {
            progress.step();
            Body const &a = bodies[i];
            Body const &b = bodies[j];
            if (!mgBBox_c::clash(a.grown, a.motion, b.grown, b.motion)) continue;
            bool const overlap = mgBBox_c::clash(a.shrunk, a.motion, b.shrunk, b.motion) != 0;
            (overlap ? contacts.clashing : contacts.touching).push_back({i, j});
            if (contains(a, b)) contacts.containing.push_back({i, j});
            if (contains(b, a)) contacts.containing.push_back({j, i});
        }
    }
    return contacts;
}

} // namespace assembly
