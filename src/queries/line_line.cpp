// SPDX-License-Identifier: MIT
// Intersections of infinite lines, in space and in the plane.

#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>

#include "line_line.h"

#include <cmath>

mgIntersectionType_e mg_LineIntLine(mgPoint_c const &p1, mgVector_c const &d1, mgPoint_c const &p2,
                                    mgVector_c const &d2, mgPoint_c *out, double tol) {
    return vexmath::detail::meetLines(p1, mg_Normalise(d1), p2, mg_Normalise(d2), tol, tol)
        .write(out);
}

mgIntersectionType_e mg_LineIntLine2D(mgPoint_c const &p1, mgVector_c const &d1,
                                      mgPoint_c const &p2, mgVector_c const &d2, mgPoint_c *out,
                                      double tol) {
    if (d1.isNull() || d2.isNull()) return mgIntersect_None;
    mgUnitVector_c const u1 = mg_Normalise(d1);
    mgUnitVector_c const u2 = mg_Normalise(d2);
    // QUIRK: mg_queries.h, mg_LineIntLine2D: z decides, with x and y, whether lines are parallel
    // and how far apart they are. Expected: x and y alone. Kept: callers and stored data depend on
    // it. (test: InThePlaneOnlyAProperCrossingIsWritten)
    if (1.0 - std::fabs(u1 % u2) < tol) {
        double const distance = (u1 * (p2 - p1)).len();
        return distance >= tol ? mgIntersect_Parallel : mgIntersect_Coincident;
    }

    // QUIRK: mg_queries.h, mg_LineIntLine2D: the directions are compared with tol as given, not
    // normalised, so that short ones that cross give None. Expected: their length does not matter.
    // Kept: callers and stored data depend on it. (test: InThePlaneOnlyAProperCrossingIsWritten)
    double const across = d2.x() * d1.y() - d1.x() * d2.y();
    bool const tooShort = std::fabs(d1.x()) <= tol && std::fabs(d1.y()) <= tol;
    if (std::fabs(across) <= tol || tooShort) return mgIntersect_None;

    // The parameter on line 2, and from it that on line 1, along its longer coordinate.
    double const t =
        (d1.y() * p1.x() - d1.x() * p1.y() - d1.y() * p2.x() + d1.x() * p2.y()) / across;
    double const s = std::fabs(d1.x()) <= std::fabs(d1.y())
                         ? (t * d2.y() + p2.y() - p1.y()) / d1.y()
                         : (t * d2.x() + p2.x() - p1.x()) / d1.x();
    *out = mgPoint_c(p1.x() + s * d1.x(), p1.y() + s * d1.y(), 0.0);
    return mgIntersect_Point;
}

mgPoint_c mg_MirrorPoint(mgPoint_c const &a, mgVector_c const &v, mgPoint_c const &q) {
    mgUnitVector_c const u = mg_Normalise(v);
    mgVector_c const w = q - a;
    mgVector_c const across = w - u * (w % u);
    return q - 2.0 * across;
}
