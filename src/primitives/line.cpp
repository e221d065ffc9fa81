// SPDX-License-Identifier: MIT
// Lines: equivalence, distance to a line, snapping, projection.

#include <vexmath/line.h>
#include <vexmath/mg_primitives.h>
#include <vexmath/mg_vector.h>

#include "closest_points.h"

int mgLine_c::isEquivalent(mgLine_c const &other) const {
    /// How far the directions may differ per component; strict.
    constexpr double kSameDirection = 1e-12;
    return direction().isEqual(other.direction(), kSameDirection) && isPointOn(other.rootPoint());
}

double mgLine_c::distToLine(mgLine_c const &other, double *t1, double *t2) const {
    if (direction().isParallelTo(other.direction())) {
        mgPoint_c foot;
        double const t = pointPerpParam(other.rootPoint(), &foot);
        if (t2 != nullptr) *t2 = 0.0;
        if (t1 != nullptr) *t1 = t;
        return dist(other.rootPoint(), foot);
    }
    vexmath::detail::ClosestParameters const t = vexmath::detail::closestParameters(
        direction(), other.direction(), direction() % other.direction(),
        other.rootPoint() - rootPoint());
    if (t1 != nullptr) *t1 = t.first;
    if (t2 != nullptr) *t2 = t.second;
    return dist(rootPoint() + t.first * direction(),
                other.rootPoint() + t.second * other.direction());
}

int mgLine_c::snapPointToLine(mgPoint_c const &p, mgPoint_c *out, double tol) const {
    mgPoint_c foot;
    bool const on = pointPerp(p, &foot) != 0;
    if (!on && !(sqDist(p, foot) < tol * tol)) return 0;
    *out = foot;
    return 1;
}

mgPoint_c s_projPointOnLine(mgPoint_c p, mgPoint_c a, mgVector_c v) {
    mgVector_c const w = p - a;
    mgVector_c const across = v * w;
    mgVector_c const off = across * v; // from the line to p
    if (!off.isNotNull()) return p;
    mgUnitVector_c const u(off, 0);
    return p - (w % u) * u;
}
