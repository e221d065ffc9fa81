// SPDX-License-Identifier: MIT
// Segments clipped to boxes and to rotated frames.
// Method: D. Cohen, I. Sutherland (in W. M. Newman, R. F. Sproull, "Principles of Interactive
// Computer Graphics", 1979): ends beyond one side reject first. Each end is then moved once, along
// the given segment, so that no error is passed on.

#include <vexmath/mg_planar.h>
#include <vexmath/point.h>
#include <vexmath/rect.h>

#include "planar_box.h"

#include <cstddef>

namespace {

using vexmath::detail::areFinite;
using vexmath::detail::Depth;
using vexmath::detail::depthOf;
using vexmath::detail::largestOf;
using vexmath::detail::PlanarBox;
using vexmath::detail::planarScale;
using vexmath::detail::PlanarSegment;
using vexmath::detail::planarTolerance;

/// Where the segment from p, an end outside the box, to q enters the box; p when it is in the box.
/// REQUIRES a segment that meets the box, up to rounding. The side is chosen by an index: random
/// segments make the processor guess branches wrong.
VEXMATH_ALWAYS_INLINE void moveToBox(double const *p, double const *q, PlanarBox const &box,
                                     double *out) {
    double const d[2] = {q[0] - p[0], q[1] - p[1]};
    double const side[2] = {box.clampedX(p[0]), box.clampedY(p[1])};
    // Of two sides that p is beyond, the segment enters at the one that it meets last.
    bool const byX = (side[0] != p[0])
                     & (std::fabs((side[0] - p[0]) * d[1]) >= std::fabs((side[1] - p[1]) * d[0]));
    std::size_t const i = byX ? 0 : 1;
    std::size_t const k = 1 - i;
    double const fromP = side[i] - p[i];
    double const fromQ = side[i] - q[i];

    // From the nearer end, which has the smaller error.
    double const *const nearer = std::fabs(fromP) <= std::fabs(fromQ) ? p : q;
    out[i] = side[i];
    out[k] = nearer[k] + d[k] * ((side[i] - nearer[i]) / d[i]);
    bool const isIn = (side[0] == p[0]) & (side[1] == p[1]);
    double const *const result = isIn ? p : out;
    double const x = result[0];
    double const y = result[1];
    out[0] = box.clampedX(x);
    out[1] = box.clampedY(y);
}

VEXMATH_ALWAYS_INLINE void moveEndsToBox(PlanarSegment &s, PlanarBox const &box) {
    double const a[2] = {s.ax, s.ay};
    double const b[2] = {s.bx, s.by};
    double newA[2];
    double newB[2];
    moveToBox(a, b, box, newA);
    moveToBox(b, a, box, newB);
    s = {newA[0], newA[1], newB[0], newB[1]};
}

mgClipLine_e touch(PlanarSegment &s, PlanarBox const &box, double tol) {
    moveEndsToBox(s, box.grown(tol));
    s = {box.clampedX(s.ax), box.clampedY(s.ay), box.clampedX(s.bx), box.clampedY(s.by)};
    return mgClipLine_Touching;
}

/// Clips a segment that is not Outside.
VEXMATH_ALWAYS_INLINE mgClipLine_e clipAt(Depth depth, PlanarSegment &s, PlanarBox const &box,
                                          double tol) {
    if (depth == Depth::Touching) return touch(s, box, tol);
    int const isAMoved = box.contains(s.ax, s.ay) ? 0 : 1;
    int const isBMoved = box.contains(s.bx, s.by) ? 0 : 2;
    moveEndsToBox(s, box);
    static_assert(mgClipLine_ClippedA == mgClipLine_Inside + 1
                  && mgClipLine_ClippedB == mgClipLine_Inside + 2
                  && mgClipLine_ClippedBoth == mgClipLine_Inside + 3);
    return static_cast<mgClipLine_e>(mgClipLine_Inside + isAMoved + isBMoved);
}

/// The coordinate of a scaled clip in the scale of the caller. Sides and unmoved coordinates are
/// those given.
double unscaled(double v, double k, double given, double low, double high) {
    double const nearest = std::min(std::max(given, low), high);
    for (double const exact : {nearest, low, high}) {
        if (v == k * exact) return exact;
    }
    return std::min(std::max(v / k, low), high);
}

/// For finite numbers of any size.
VEXMATH_NEVER_INLINE mgClipLine_e clipScaled(PlanarSegment &s, PlanarBox const &box, double tol) {
    double const k =
        planarScale(largestOf(s.ax, s.ay, s.bx, s.by, box.xLow, box.yLow, box.xHigh, box.yHigh));
    PlanarSegment part = s.scaled(k);
    PlanarBox const scaledBox = box.scaled(k);
    Depth const depth = depthOf<true>(part, scaledBox, k * tol);
    if (depth == Depth::Outside) return mgClipLine_Outside;
    mgClipLine_e const result = clipAt(depth, part, scaledBox, k * tol);
    s = {unscaled(part.ax, k, s.ax, box.xLow, box.xHigh),
         unscaled(part.ay, k, s.ay, box.yLow, box.yHigh),
         unscaled(part.bx, k, s.bx, box.xLow, box.xHigh),
         unscaled(part.by, k, s.by, box.yLow, box.yHigh)};
    return result;
}

/// Replaces the segment by its part in the box, unless it is Outside. For finite numbers.
VEXMATH_ALWAYS_INLINE mgClipLine_e clip(PlanarSegment &s, PlanarBox const &box, double tol) {
    Depth const depth = depthOf<false>(s, box, tol);
    if (depth == Depth::Outside) return mgClipLine_Outside;
    if (depth == Depth::Unsure) return clipScaled(s, box, tol);
    return clipAt(depth, s, box, tol);
}

} // namespace

mgClipLine_e mg_ClipLine2DToBox(mgPoint_c const &a, mgPoint_c const &b, mgPoint_c const &corner1,
                                mgPoint_c const &corner2, mgPoint_c &outA, mgPoint_c &outB,
                                double tol) {
    PlanarSegment s{a.x(), a.y(), b.x(), b.y()};
    if (!areFinite(s.ax, s.ay, s.bx, s.by, corner1.x(), corner1.y(), corner2.x(), corner2.y()))
        return mgClipLine_Outside;
    PlanarBox const box = PlanarBox::ofCorners(corner1, corner2);
    mgClipLine_e const result = clip(s, box, planarTolerance(tol));
    if (result == mgClipLine_Outside) return result;
    double const az = a.z();
    double const bz = b.z();
    outA.set(s.ax, s.ay, az);
    outB.set(s.bx, s.by, bz);
    return result;
}

mgClipLine_e mg_Clip2DLineToWindow(mgPoint_c const &a, mgPoint_c const &b, mgRect const &window,
                                   mgPoint_c &outA, mgPoint_c &outB, double tol) {
    return mg_ClipLine2DToBox(a, b, mgPoint_c(window.left, window.top, 0.0),
                              mgPoint_c(window.right, window.bottom, 0.0), outA, outB, tol);
}

mgClipLine_e mg_ClipLineEndToRotated2DBox(mgPoint_c const &start, mgPoint_c &end,
                                          mgPoint_c const &corner, double width, double height,
                                          double angle, double tol) {
    if (!areFinite(start.x(), start.y(), end.x(), end.y(), corner.x(), corner.y(), width, height,
                   angle))
        return mgClipLine_Outside;
    double const k = planarScale(
        largestOf(start.x(), start.y(), end.x(), end.y(), corner.x(), corner.y(), width, height));
    double const cornerX = k * corner.x();
    double const cornerY = k * corner.y();
    double const cosine = std::cos(angle);
    double const sine = std::sin(angle);

    // In the frame of the box: u along the width, v along the height.
    double const ax = k * start.x() - cornerX;
    double const ay = k * start.y() - cornerY;
    double const bx = k * end.x() - cornerX;
    double const by = k * end.y() - cornerY;
    PlanarSegment s{cosine * ax + sine * ay, cosine * ay - sine * ax, cosine * bx + sine * by,
                    cosine * by - sine * bx};
    PlanarBox const box{std::min(0.0, k * width), std::min(0.0, k * height),
                        std::max(0.0, k * width), std::max(0.0, k * height)};
    mgClipLine_e const result = clip(s, box, k * planarTolerance(tol));
    if (result == mgClipLine_Outside || result == mgClipLine_Inside
        || result == mgClipLine_Touching)
        return result;

    bool const leaves = result == mgClipLine_ClippedB;
    double const u = leaves ? s.bx : s.ax;
    double const v = leaves ? s.by : s.ay;
    end.set_x((cornerX + (cosine * u - sine * v)) / k);
    end.set_y((cornerY + (sine * u + cosine * v)) / k);
    return mgClipLine_ClippedB;
}
