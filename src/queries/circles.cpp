// SPDX-License-Identifier: MIT
// Circles in the plane, with lines and with each other.

#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>

#include "line_line.h"

#include <cmath>

mgLineCircleIntType_e mg_LineIntCircle2D(mgPoint_c const &p, mgUnitVector_c const &u,
                                         mgPoint_c const &centre, double const &radius,
                                         mgPoint_c *out1, mgPoint_c *out2) {
    /// Largest difference of the line's distance from the centre and the radius; strict.
    constexpr double kTouching = 1e-08;
    mgPoint_c const c = centre;
    double const r = radius;
    mgVector_c const along = u;
    mgPoint_c foot;
    mg_LineIntLine(p, along, c, mgVector_c(u.y(), -u.x(), 0.0), &foot,
                   vexmath::detail::kQueryTolerance);
    if (foot == c) {
        *out1 = c + r * along;
        *out2 = c - r * along;
        return mgLineCircle_ThroughCentre;
    }
    double const distance = dist(c, foot);
    if (std::fabs(distance - r) < kTouching) {
        *out1 = foot;
        return mgLineCircle_Tangent;
    }
    if (!(distance <= r)) return mgLineCircle_Miss;
    double const halfChord = std::sqrt(r * r - distance * distance);
    *out1 = foot + halfChord * along;
    *out2 = foot - halfChord * along;
    return mgLineCircle_Secant;
}

namespace {

void writePlanar(mgPoint_c *out, double x, double y) {
    out->set_x(x);
    out->set_y(y);
}

} // namespace

// With D = |c2 - c1|^2, the points lie at the foot c1 + t (c2 - c1), t = 1/2 - (r2^2 - r1^2) / 2D,
// and off the line of centres by sqrt(disc) / 2D times its normal, disc = 16 times the squared area
// of the triangle of centres and point.
mgIntersectionType_e mg_CircleIntCircle2D(mgPoint_c const &c1, double const &r1,
                                          mgPoint_c const &c2, double const &r2, mgPoint_c *out1,
                                          mgPoint_c *out2) {
    /// Squared distance of the centres below which the circles are concentric; strict.
    constexpr double kConcentricSq = 1e-16;
    /// Size of the discriminant below which the circles touch; strict on the positive side.
    constexpr double kTouching = 1e-16;
    double const dx = c2.x() - c1.x();
    double const dy = c2.y() - c1.y();
    double const distanceSq = dx * dx + dy * dy;
    // QUIRK: mg_queries.h, mg_CircleIntCircle2D: concentric circles are Coincident whatever their
    // radii. Expected: None when the radii differ. Kept: callers and stored data depend on it.
    // (test: TwoCirclesMeetInTwoPointsTouchOrMissAndKeepTheOutputsZ)
    if (distanceSq < kConcentricSq) return mgIntersect_Coincident;

    double const k = r2 * r2 - r1 * r1;
    double const s = r1 * r1 + r2 * r2;
    double const disc = 2.0 * s * distanceSq - distanceSq * distanceSq - k * k;
    if (!(disc >= -kTouching)) return mgIntersect_None; // NaN too
    double const f = 0.5 / distanceSq;
    double const t = 0.5 - k * f;
    double const footX = c1.x() + t * dx;
    double const footY = c1.y() + t * dy;
    // QUIRK: mg_queries.h, mg_CircleIntCircle2D: circles with radii below 7e-05 touch wherever they
    // cross, because the bound is a fourth power of a length. Expected: two points. Kept: callers
    // and stored data depend on it.
    // (test: TwoCirclesMeetInTwoPointsTouchOrMissAndKeepTheOutputsZ)
    if (disc < kTouching) {
        writePlanar(out1, footX, footY);
        return mgIntersect_Point;
    }
    double const h = f * std::sqrt(disc);
    writePlanar(out2, footX + dy * h, footY - dx * h);
    writePlanar(out1, footX - dy * h, footY + dx * h);
    return mgIntersect_TwoPoints;
}
