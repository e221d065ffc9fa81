// SPDX-License-Identifier: MIT
// Straight polylines and the centre of three points.

#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>

#include "line_line.h"

#include <algorithm>
#include <cmath>

namespace {

/// The larger of the differences in x and y; z is ignored.
double planarDistance(mgPoint_c const &p, mgPoint_c const &q) {
    return std::max(std::fabs(p.x() - q.x()), std::fabs(p.y() - q.y()));
}

struct Pair {
    int low;
    int high;
};

/// Two points that are far apart, on a line the extreme ones. In one pass, each point replaces the
/// end that it is nearer to when that lengthens the pair.
Pair farApart(int n, mgPoint_c const *pts) {
    Pair pair = {0, 1};
    double distance = planarDistance(pts[0], pts[1]);
    for (int i = 2; i < n; ++i) {
        double const toHigh = planarDistance(pts[pair.high], pts[i]);
        double const toLow = planarDistance(pts[pair.low], pts[i]);
        if (toHigh < toLow) {
            if (toLow > distance) {
                distance = toLow;
                pair.high = i;
            }
        } else if (toHigh > distance) {
            distance = toHigh;
            pair.low = i;
        }
    }
    return pair;
}

} // namespace

int mg_IsPolylineLine(int n, mgPoint_c const *pts, mgPoint_c &start, mgPoint_c &end) {
    if (n < 3) return 1;
    // QUIRK: mg_queries.h, mg_IsPolylineLine: the pair is chosen by x and y alone; of a polyline
    // along z it is the first two points, or one point twice when those are equal. Expected: the
    // extreme points. Kept: callers and stored data depend on it.
    // (test: APolylineAlongZKeepsItsFirstTwoPoints)
    Pair const pair = farApart(n, pts);
    mgPoint_c const low = pts[pair.low];
    mgPoint_c const high = pts[pair.high];
    mgVector_c const v = high - low;
    if (v.isNull()) {
        mgPoint_c const only = pts[0];
        start = only;
        end = only;
        return 1;
    }
    mgLine_c const line(low, mg_Normalise(v));
    bool const straight =
        std::all_of(pts, pts + n, [&](mgPoint_c const &p) { return line.isPointOn(p) != 0; });
    if (!straight) return 0;
    start = low;
    end = high;
    return 1;
}

int mg_Find3PointArcCenter(mgPoint_c const *pts, mgPoint_c *center, mgUnitVector_c *normal) {
    mgPoint_c const &p0 = pts[0];
    mgPoint_c const &p1 = pts[1];
    mgPoint_c const &p2 = pts[2];
    if (p0 == p1 || p0 == p2 || p1 == p2) return 0;

    // Both chords point to the middle point.
    mgVector_c const a = p1 - p0;
    mgVector_c const b = p1 - p2;
    mgUnitVector_c const ua = mg_Normalise(a);
    mgUnitVector_c const ub = mg_Normalise(b);
    if (ua == ub || ua == -ub) return 0;

    // The centre is where the perpendicular bisectors of the chords meet.
    mgUnitVector_c const n = mg_Normalise(ub * ua);
    mgIntersectionType_e const type = mg_LineIntLine(p0 + 0.5 * a, ua * n, p2 + 0.5 * b, ub * n,
                                                     center, vexmath::detail::kQueryTolerance);
    // QUIRK: mg_queries.h, mg_Find3PointArcCenter: bisectors that miss each other give a centre.
    // Expected: 0. Kept: callers and stored data depend on it.
    // (test: BisectorsThatMissStillGiveACentre)
    if (type == mgIntersect_Coincident || type == mgIntersect_Parallel) return 0;
    *normal = n;
    return 1;
}
