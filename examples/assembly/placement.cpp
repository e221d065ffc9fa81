// SPDX-License-Identifier: MIT
// How a part is put into the assembly.

#include "placement.h"

#include <vexmath/mg_transform.h>
#include <vexmath/tolerances.h>

namespace example::assembly {

namespace {

/// Angles closer than this to a quarter turn, in radians, count as the quarter turn, so that 90
/// degrees give a matrix of exact zeros and ones.
constexpr double kQuarterTurnSnapRad = 1e-9;

mgXform_c mirrorXform(Mirror mirror) {
    switch (mirror) {
    case Mirror::X:
        return mg_XReflectionXform();
    case Mirror::Y:
        return mg_YReflectionXform();
    case Mirror::Z:
        return mg_ZReflectionXform();
    case Mirror::None:
        break;
    }
    return {};
}

} // namespace

mgXform_c transformOf(Placement const &placement) {
    double const angle = placement.angleDegrees * vexmath::kRadPerDeg;
    // `a * b` applies a first, then b: the product reads in the order of the steps.
    return mirrorXform(placement.mirror) * mg_ScaleXform(placement.scale)
           * mg_RotateXform(angle, placement.axis, kQuarterTurnSnapRad)
           * mg_TranslateXform(placement.translation);
}

mgXform_c withoutScale(mgXform_c const &placement) {
    return mg_ScaleXform(placement, 1.0); // replaces the scale, it does not multiply
}

} // namespace example::assembly
