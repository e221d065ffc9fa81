// SPDX-License-Identifier: MIT
// Circular arcs to polylines.

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
    /// How near to half a turn counts as half a turn; strict.
    constexpr double kHalfTurnSnapRad = 1e-11;
    if (start == end) return kTwoPi;
    mgVector_c const toEnd = end - centre;
    double sweep = std::atan2(toEnd % y, toEnd % x);
    if (sweep < 0.0) sweep += kTwoPi;
    return std::fabs(sweep - kPi) < kHalfTurnSnapRad ? kPi : sweep;
}

/// The angle at which the arc is tol off its tangent, if that is neither above an eighth of the arc
/// nor below 1/120 of it; else the nearer of these. An arc of more than half a turn counts as half.
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

/// Cosine and sine of an angle.
struct Turn {
    double cos, sin;

    Turn by(Turn const &step) const {
        return {step.cos * cos - step.sin * sin, step.sin * cos + step.cos * sin};
    }
};

} // namespace

void mg_TessArc(arcEdgeData const *arc, mgPoint_c const *start, mgPoint_c const *end, double tol,
                mgPoint_c **outArray, int &count, suDynamicArray<mgPoint_c> *list) {
    /// Radius below which there is no arc; strict. For the ends, per coordinate.
    constexpr double kSmallestRadius = 1e-09;
    vexmath::detail::PolylineOutput const output(outArray, count, list);
    mgPoint_c const first = *start;
    mgPoint_c const last = *end;
    mgPoint_c const centre = arc->center;
    if (centre.isSame(first, kSmallestRadius) || centre.isSame(last, kSmallestRadius)
        || arc->radius < kSmallestRadius)
        return;

    // QUIRK: the arc is drawn with the start's distance from the centre, and the record's radius
    // only decides the number of segments; a reader would expect one radius. Trimmed edges keep
    // their ends by it. (test: TheStartGivesTheRadiusAndTheRecordTheTolerance)
    mgVector_c const x = first - centre;
    mgVector_c const y = mgUnitVector_c(arc->normal) * x;
    double const sweep = sweepOf(centre, x, y, first, last);
    int const n = vexmath::detail::segmentsOfSweep(sweep, stepOf(sweep, tol, arc->radius));

    // One sine and one cosine; each point is the one before, turned by the same step. The turns are
    // made two points ahead: each waits for the one before, while nothing waits for a point, and a
    // processor does the oldest of what is ready first.
    Turn const step{std::cos(sweep / n), std::sin(sweep / n)};
    Turn const once = Turn{1.0, 0.0}.by(step);
    output.append(n, [=, turn = once, next = once.by(step)](int i) mutable -> mgPoint_c {
        if (i == 0) return first;
        if (i == n) return last;
        Turn const now = turn;
        turn = next;
        next = next.by(step);
        return centre + x * now.cos + y * now.sin;
    });
}
