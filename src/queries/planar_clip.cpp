// SPDX-License-Identifier: MIT
// Segments clipped to boxes and to rotated frames.
// Method: D. Cohen, I. Sutherland (in W. M. Newman, R. F. Sproull, "Principles of Interactive
// Computer Graphics", 1979): ends beyond one side reject first. Each end is then moved once, along
// the given segment, so that no error is passed on.

#include <vexmath/mg_planar.h>
#include <vexmath/point.h>
#include <vexmath/rect.h>

#include "planar_box.h"

namespace {

using vexmath::detail::areFinite;
using vexmath::detail::Depth;
using vexmath::detail::depthOf;
using vexmath::detail::largestOf;
using vexmath::detail::PlanarBox;
using vexmath::detail::planarScale;
using vexmath::detail::PlanarSegment;
using vexmath::detail::planarTolerance;

/// The value at `at` of the linear function with the values p and q at `from` and `to`, computed
/// from the nearer of these.
double interpolated(double from, double to, double p, double q, double at) {
    double const part = at - from;
    double const rest = to - at;
    double const whole = to - from;
    return std::fabs(part) <= std::fabs(rest) ? p + (q - p) * (part / whole)
                                              : q - (q - p) * (rest / whole);
}

/// Moves an end (x, y) to where its segment, which runs to (farX, farY), enters the box. An end in
/// the box stays. REQUIRES a segment that meets the box, up to rounding.
void moveToBox(double &x, double &y, double farX, double farY, PlanarBox const &box) {
    double const sideX = box.clampedX(x);
    double const sideY = box.clampedY(y);
    if (sideX != x) {
        double const yThere = interpolated(x, farX, y, farY, sideX);
        bool const meetsSide = box.yLow <= yThere && yThere <= box.yHigh;
        if (meetsSide || sideY == y) {
            x = sideX;
            y = box.clampedY(yThere);
            return;
        }
    }
    if (sideY == y) return;
    x = box.clampedX(interpolated(y, farY, x, farX, sideY));
    y = sideY;
}

void moveEndsToBox(PlanarSegment &s, PlanarBox const &box) {
    PlanarSegment const given = s;
    moveToBox(s.ax, s.ay, given.bx, given.by, box);
    moveToBox(s.bx, s.by, given.ax, given.ay, box);
}

/// Clips a segment that is not Outside.
VEXMATH_ALWAYS_INLINE mgClipLine_e clipAt(Depth depth, PlanarSegment &s, PlanarBox const &box,
                                          double tol) {
    if (depth == Depth::Touching) {
        moveEndsToBox(s, box.grown(tol));
        s = {box.clampedX(s.ax), box.clampedY(s.ay), box.clampedX(s.bx), box.clampedY(s.by)};
        return mgClipLine_Touching;
    }
    bool const keepsA = box.contains(s.ax, s.ay);
    bool const keepsB = box.contains(s.bx, s.by);
    if (keepsA && keepsB) return mgClipLine_Inside;
    moveEndsToBox(s, box);
    if (keepsA) return mgClipLine_ClippedB;
    return keepsB ? mgClipLine_ClippedA : mgClipLine_ClippedBoth;
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
