// SPDX-License-Identifier: MIT
// Outlines about an axis, as points (angle, radius).

#include <vexmath/mg_planar.h>
#include <vexmath/point.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/tolerances.h>

#include <algorithm>
#include <cmath>

namespace {

double angleOf(mgPoint_c const &p) { return p.x(); }
double radiusOf(mgPoint_c const &p) { return std::fabs(p.y()); }

double toleranceOf(double tol) { return tol >= 0.0 ? tol : vexmath::kLengthTolerance; }

bool isUsable(mgPoint_c const *edge, int n) {
    constexpr double kMost = 1e150; // absolute, inclusive: no product of two overflows
    return std::all_of(edge, edge + n, [](mgPoint_c const &p) {
        return std::fabs(angleOf(p)) <= kMost && radiusOf(p) <= kMost;
    });
}

/// The angle, a whole number of turns away, that is at most half a turn from the one before.
double unwrapped(double angle, double before) {
    // Bounds of the library's angles, which have 13 decimals: half a turn is no jump.
    double const step = angle - before;
    if (std::fabs(step) <= vexmath::kHalfTurnBound) return angle;
    return angle - vexmath::kTwoPiExact * std::round(step / vexmath::kTwoPiExact);
}

/// Are the two at most tol apart, along the radius and along the arc?
bool isRepeated(mgPoint_c const &a, mgPoint_c const &b, double tol) {
    double const arc = std::fabs(angleOf(a) - angleOf(b)) * std::max(radiusOf(a), radiusOf(b));
    return std::fabs(a.y() - b.y()) <= tol && arc <= tol;
}

/// Appends the point to the kept ones, unless it repeats the last of them.
void keep(mgPoint_c *edge, int &kept, mgPoint_c const &p, double tol) {
    if (kept == 0 || !isRepeated(edge[kept - 1], p, tol)) edge[kept++] = p;
}

bool isAtPole(mgPoint_c const &p, double tol) { return radiusOf(p) <= tol; }

/// Returns the number of points that are left.
int cleanup(mgPoint_c *edge, int n, double tol) {
    auto const *const offPole =
        std::find_if(edge, edge + n, [tol](mgPoint_c const &p) { return !isAtPole(p, tol); });
    double before = angleOf(offPole == edge + n ? edge[0] : *offPole);
    int kept = 0;
    for (int i = 0; i < n; ++i) {
        mgPoint_c p = edge[i];
        p.set_x(isAtPole(p, tol) ? before : unwrapped(angleOf(p), before));
        keep(edge, kept, p, tol);
        before = angleOf(edge[kept - 1]);
    }
    return kept;
}

/// +1 or -1 for an edge that runs counter-clockwise or clockwise from its first to its last point,
/// 0 when both have the same angle.
double directionOf(mgPoint_c const *edge, int n, double tol) {
    double farthest = 0.0;
    for (int i = 0; i < n; ++i) farthest = std::max(farthest, radiusOf(edge[i]));
    double const turn = angleOf(edge[n - 1]) - angleOf(edge[0]);
    if (std::fabs(turn) * farthest <= tol) return 0.0;
    return turn > 0.0 ? 1.0 : -1.0;
}

/// Returns the number of points that are left. REQUIRES a direction other than 0.
int removeStepsBack(mgPoint_c *edge, int n, double direction, double tol) {
    mgPoint_c const last = edge[n - 1];
    int kept = 1;
    for (int i = 1; i < n - 1; ++i) {
        mgPoint_c p = edge[i];
        double const before = angleOf(edge[kept - 1]);
        double const inRange =
            direction
            * std::clamp(direction * angleOf(p), direction * before, direction * angleOf(last));
        if (std::fabs(inRange - angleOf(p)) * radiusOf(p) > tol) continue;
        p.set_x(isAtPole(p, tol) ? before : inRange);
        keep(edge, kept, p, tol);
    }
    keep(edge, kept, last, tol);
    return kept;
}

/// Lets `change` rewrite the points of a list and tells the listener. `change` returns their new
/// number.
template <class Change>
int rewrite(suDynamicArray<mgPoint_c> &list, Change const &change) {
    int const n = list.Count();
    if (n == 0 || !isUsable(list.Data(), n)) return 0;
    int const kept = change(list.Data(), n);
    amDynamicArrayResize(list.Data(), kept);
    list.elementsChanged(0, kept - 1);
    return kept;
}

} // namespace

int mg_cleanupPolarEdge(suDynamicArray<mgPoint_c> &edge, double tol) {
    double const reach = toleranceOf(tol);
    return rewrite(edge, [reach](mgPoint_c *points, int n) { return cleanup(points, n, reach); });
}

int mg_fixPolarConvolution(suDynamicArray<mgPoint_c> &edge, double tol) {
    double const reach = toleranceOf(tol);
    return rewrite(edge, [reach](mgPoint_c *points, int n) {
        int const kept = cleanup(points, n, reach);
        double const direction = directionOf(points, kept, reach);
        return direction == 0.0 ? kept : removeStepsBack(points, kept, direction, reach);
    });
}
