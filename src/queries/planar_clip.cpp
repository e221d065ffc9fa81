// SPDX-License-Identifier: MIT
// Segments clipped to boxes and to rotated frames.
// Method: Y.-D. Liang, B. A. Barsky, "A new concept and method for line clipping", 1984, behind the
// test for ends beyond one side and the separating axes of planar_box.h. Each end is moved once,
// along the given segment, so that no error is passed on.

#include <vexmath/mg_planar.h>
#include <vexmath/point.h>
#include <vexmath/rect.h>

#include "planar_box.h"

#include <cstddef>

namespace {

using vexmath::detail::areFinite;
using vexmath::detail::Depth;
using vexmath::detail::exactDepthOf;
using vexmath::detail::largestOf;
using vexmath::detail::plainDepthOf;
using vexmath::detail::PlanarBox;
using vexmath::detail::planarScale;
using vexmath::detail::PlanarSegment;
using vexmath::detail::planarTolerance;
using vexmath::detail::ScaledSegment;

struct Point {
    double x, y;
};

/// What moves a crossing computed by a quotient to the outer side of its own side of the box, from
/// where it is clamped exactly to it; more than all rounding.
constexpr double kFarther = 1.0 + 0x1p-50;
constexpr double kNearer = 1.0 - 0x1p-50;

/// The sum of the distances in x and y.
double distanceTo(PlanarBox const &box, Point p) {
    return std::fabs(p.x - box.clampedX(p.x)) + std::fabs(p.y - box.clampedY(p.y));
}

/// Where the line from `from` to `to` meets the box first and last.
VEXMATH_ALWAYS_INLINE void crossBox(Point from, Point to, PlanarBox const &box, Point &first,
                                    Point &last) {
    double const dx = to.x - from.x;
    double const dy = to.y - from.y;
    double const left = (box.xLow - from.x) / dx;
    double const right = (box.xHigh - from.x) / dx;
    double const bottom = (box.yLow - from.y) / dy;
    double const top = (box.yHigh - from.y) / dy;
    double const enters = std::max(std::min(left, right), std::min(bottom, top)) * kNearer;
    double const leaves = std::min(std::max(left, right), std::max(bottom, top)) * kFarther;
    first = {box.clampedX(from.x + enters * dx), box.clampedY(from.y + enters * dy)};
    last = {box.clampedX(from.x + leaves * dx), box.clampedY(from.y + leaves * dy)};
}

/// Clips a segment that is Deep. Values are chosen by index and not by branches, which random
/// segments make the processor guess wrong.
VEXMATH_ALWAYS_INLINE mgClipLine_e clipDeep(PlanarSegment &s, PlanarBox const &box) {
    Point ends[] = {{s.ax, s.ay}, {s.bx, s.by}, {}, {}}; // as given, and moved
    double const offA = distanceTo(box, ends[0]);
    double const offB = distanceTo(box, ends[1]);
    // From the nearer end, which has the smaller error.
    std::size_t const near = offB < offA;
    std::size_t const far = 1 - near;
    crossBox(ends[near], ends[far], box, ends[near + 2], ends[far + 2]);

    std::size_t const movesA = offA > 0.0;
    std::size_t const movesB = offB > 0.0;
    Point const &a = ends[2 * movesA];
    Point const &b = ends[2 * movesB + 1];
    s = {a.x, a.y, b.x, b.y};
    return static_cast<mgClipLine_e>(mgClipLine_Inside + movesA + 2 * movesB);
}

/// Moves an end p to where its segment, which runs to q, meets the box: on the side that it is
/// beyond, else on the one that is nearest to it. An end in the box stays.
void moveToBox(double &px, double &py, double qx, double qy, PlanarBox const &box) {
    double const sideX = box.clampedX(px);
    double const sideY = box.clampedY(py);
    if (sideX != px) {
        double const yThere = py + (qy - py) * ((sideX - px) / (qx - px));
        bool const meetsSide = box.yLow <= yThere && yThere <= box.yHigh;
        if (meetsSide || sideY == py) {
            px = sideX;
            py = box.clampedY(yThere);
            return;
        }
    }
    if (sideY == py) return;
    px = box.clampedX(px + (qx - px) * ((sideY - py) / (qy - py)));
    py = sideY;
}

/// Clips a segment that is Touching.
mgClipLine_e touch(PlanarSegment &s, PlanarBox const &box, double tol) {
    PlanarSegment const given = s;
    PlanarBox const outer = box.grown(tol);
    moveToBox(s.ax, s.ay, given.bx, given.by, outer);
    moveToBox(s.bx, s.by, given.ax, given.ay, outer);

    s = {box.clampedX(s.ax), box.clampedY(s.ay), box.clampedX(s.bx), box.clampedY(s.by)};
    return mgClipLine_Touching;
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

/// For numbers of any size.
VEXMATH_NEVER_INLINE mgClipLine_e clipExactly(PlanarSegment &s, PlanarBox const &box, double tol) {
    if (!areFinite(s, box)) return mgClipLine_Outside;
    ScaledSegment const scaled(s, box);
    double const k = scaled.scale;
    PlanarSegment part = scaled.segment;
    Depth const depth = exactDepthOf(part, scaled.box, k * tol);
    if (depth == Depth::Outside) return mgClipLine_Outside;
    mgClipLine_e const result =
        depth == Depth::Deep ? clipDeep(part, scaled.box) : touch(part, scaled.box, k * tol);
    s = {unscaled(part.ax, k, s.ax, box.xLow, box.xHigh),
         unscaled(part.ay, k, s.ay, box.yLow, box.yHigh),
         unscaled(part.bx, k, s.bx, box.xLow, box.xHigh),
         unscaled(part.by, k, s.by, box.yLow, box.yHigh)};
    return result;
}

/// Replaces the segment by its part in the box, unless it is Outside.
VEXMATH_ALWAYS_INLINE mgClipLine_e clip(PlanarSegment &s, PlanarBox const &box, double tol) {
    Depth const depth = plainDepthOf(s, box, tol);
    if (depth == Depth::Deep) return clipDeep(s, box);
    if (depth == Depth::Outside) return mgClipLine_Outside;
    // Copies, so that the numbers of the quick path stay in registers.
    PlanarSegment part = s;
    PlanarBox const copy = box;
    mgClipLine_e const result = clipExactly(part, copy, tol);
    s = part;
    return result;
}

} // namespace

mgClipLine_e mg_ClipLine2DToBox(mgPoint_c const &a, mgPoint_c const &b, mgPoint_c const &corner1,
                                mgPoint_c const &corner2, mgPoint_c &outA, mgPoint_c &outB,
                                double tol) {
    PlanarSegment s{a.x(), a.y(), b.x(), b.y()};
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
