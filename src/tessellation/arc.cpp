// SPDX-License-Identifier: MIT
// Circular arcs, approximated by polylines.

#include <vexmath/edge_data.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_vector.h>

#include "polyline_output.h"

#include <algorithm>
#include <cmath>

using vexmath::kPi;
using vexmath::kTwoPi;

namespace {

/// The angle from start to end about the normal that y was made with; a full turn when they are
/// equal as points.
double sweepOf(mgPoint_c const &centre, mgVector_c const &x, mgVector_c const &y,
               mgPoint_c const &start, mgPoint_c const &end) {
    /// A sweep this close to half a turn becomes half a turn; strict.
    constexpr double kHalfTurnSnapRad = 1e-11;
    if (start == end) return kTwoPi;
    mgVector_c const toEnd = end - centre;
    double sweep = std::atan2(toEnd % y, toEnd % x);
    if (sweep < 0.0) sweep += kTwoPi;
    return std::fabs(sweep - kPi) < kHalfTurnSnapRad ? kPi : sweep;
}

/// The angle at which the arc is tol off its tangent, limited to the range from 1/120 to 1/8 of the
/// arc. An arc of more than half a turn counts as half.
double stepOf(double sweep, double tol, double radius) {
    /// 1/120, as a factor: dividing by 120 changes last bits, and with them counts.
    constexpr double kFinest = 0.008333333333333333;
    constexpr double kCoarsest = 0.125;
    double const ratio = tol / radius;
    double const arc = std::min(sweep, kPi);
    double const coarsest = arc * kCoarsest;
    if (!(1.0 - std::cos(coarsest) > ratio)) return coarsest;
    double const finest = arc * kFinest;
    return 1.0 - std::cos(finest) < ratio ? std::acos(1.0 - ratio) : finest;
}

/// A rotation by the cosine and sine of its angle.
struct Rotation {
    double cos, sin;

    Rotation by(Rotation const &step) const {
        return {step.cos * cos - step.sin * sin, step.sin * cos + step.cos * sin};
    }
};

} // namespace

void mg_TessArc(arcEdgeData const *arc, mgPoint_c const *start, mgPoint_c const *end, double tol,
                mgPoint_c **outArray, int &count, suDynamicArray<mgPoint_c> *list) {
    /// Radius below which there is no arc; strict. Also how close an end may be to the centre, per
    /// coordinate.
    constexpr double kSmallestRadius = 1e-09;
    vexmath::detail::PolylineOutput const output(outArray, count, list);
    mgPoint_c const first = *start;
    mgPoint_c const last = *end;
    mgPoint_c const centre = arc->center;
    if (centre.isSame(first, kSmallestRadius) || centre.isSame(last, kSmallestRadius)
        || arc->radius < kSmallestRadius)
        return;

    // QUIRK: mg_tessellation.h, mg_TessArc: the arc is drawn with the start's distance from the
    // centre, and the record's radius decides only the number of segments. Expected: one radius for
    // both. Kept: callers and stored data depend on it.
    // (test: TheStartGivesTheRadiusAndTheRecordTheTolerance)
    mgVector_c const x = first - centre;
    if (std::isnan(x.sqlen())) return;
    mgVector_c const y = mgUnitVector_c(arc->normal) * x;
    double const sweep = sweepOf(centre, x, y, first, last);
    int const n = vexmath::detail::segmentsOfSweep(sweep, stepOf(sweep, tol, arc->radius));

    // One sine and one cosine; each rotation is the one before, rotated by the same step. The
    // rotations are computed two points ahead of their use. Each needs the one before, and none
    // needs a point: computed early, they do not wait while the processor computes points.
    Rotation const step{std::cos(sweep / n), std::sin(sweep / n)};
    Rotation const once = Rotation{1.0, 0.0}.by(step);
    output.append(n, [=, following = once, next = once.by(step)](int i) mutable -> mgPoint_c {
        if (i == 0) return first;
        if (i == n) return last;
        Rotation const now = following;
        following = next;
        next = next.by(step);
        return centre + x * now.cos + y * now.sin;
    });
}
