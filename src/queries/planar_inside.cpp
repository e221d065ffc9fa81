// SPDX-License-Identifier: MIT
// Points, segments, circles, arcs and polylines against boxes, and points on segments.

#include <vexmath/mg_planar.h>
#include <vexmath/point.h>

#include "planar_arc.h"
#include "planar_box.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

using vexmath::kTwoPiExact;
using vexmath::detail::areArcAngles;
using vexmath::detail::areFinite;
using vexmath::detail::Depth;
using vexmath::detail::largestOf;
using vexmath::detail::PlanarBox;
using vexmath::detail::planarScale;
using vexmath::detail::PlanarSegment;
using vexmath::detail::planarSweep;
using vexmath::detail::PlanarSweep;
using vexmath::detail::planarTolerance;

/// A box, grown and shrunk by a tolerance.
class Frame {
public:
    Frame(mgPoint_c const &corner1, mgPoint_c const &corner2, double tol)
        : isFinite_(areFinite(corner1.x(), corner1.y(), corner2.x(), corner2.y())),
          box_(PlanarBox::ofCorners(corner1, corner2)), tol_(planarTolerance(tol)),
          outer_(box_.grown(tol_)), inner_(box_.grown(-tol_)) {}

    bool isFinite() const { return isFinite_; }
    PlanarBox const &outer() const { return outer_; }
    PlanarBox const &inner() const { return inner_; }
    Depth depthOf(PlanarSegment const &s) const { return vexmath::detail::depthOf(s, box_, tol_); }

private:
    bool isFinite_;
    PlanarBox box_;
    double tol_;
    PlanarBox outer_;
    PlanarBox inner_;
};

/// What the pieces of a figure say together.
class Finding {
public:
    void add(Depth depth, bool isWithin) {
        if (depth != Depth::Outside) meets_ = true;
        if (depth == Depth::Deep) isDeep_ = true;
        if (!isWithin) isWithin_ = false;
    }
    mgInsideBox_e result() const {
        if (!meets_) return mgInsideBox_Outside;
        if (!isDeep_) return mgInsideBox_Touching;
        return isWithin_ ? mgInsideBox_Inside : mgInsideBox_Partly;
    }

private:
    bool meets_ = false;
    bool isDeep_ = false;
    bool isWithin_ = true;
};

/// The sign of the length of (x, y) minus r. REQUIRES numbers of the size of r or smaller.
int compareLength(double x, double y, double r) {
    double const k = planarScale(r);
    double const lengthSq = (k * x) * (k * x) + (k * y) * (k * y);
    double const radiusSq = (k * r) * (k * r);
    return (lengthSq > radiusSq) - (lengthSq < radiusSq);
}

struct Vec {
    double x, y;
};

/// The direction of i quarter turns, without rounding.
Vec axis(int i) {
    static constexpr Vec axes[] = {{1.0, 0.0}, {0.0, 1.0}, {-1.0, 0.0}, {0.0, -1.0}};
    return axes[i % 4];
}

/// Part of an arc within one quadrant of its centre, given by the unit vectors to its ends. Its
/// box, with sides parallel to the axes, meets the circle in this part alone.
void addPiece(Finding &finding, Frame const &frame, mgPoint_c const &centre, double radius, Vec u,
              Vec v) {
    double const px = radius * u.x;
    double const py = radius * u.y;
    double const qx = radius * v.x;
    double const qy = radius * v.y;
    Vec const p{centre.x() + px, centre.y() + py};
    Vec const q{centre.x() + qx, centre.y() + qy};
    bool const pIsIn = frame.outer().contains(p.x, p.y);
    bool const qIsIn = frame.outer().contains(q.x, q.y);

    // The part of a box that is in the box of the piece, relative to the centre. The piece
    // separates its corner nearest to the centre from the farthest one.
    auto const common = [&](PlanarBox const &box) {
        return PlanarBox{std::max(std::min(px, qx), box.xLow - centre.x()),
                         std::max(std::min(py, qy), box.yLow - centre.y()),
                         std::min(std::max(px, qx), box.xHigh - centre.x()),
                         std::min(std::max(py, qy), box.yHigh - centre.y())};
    };
    auto const nearest = [&](PlanarBox const &b) {
        return compareLength(std::min(std::fabs(b.xLow), std::fabs(b.xHigh)),
                             std::min(std::fabs(b.yLow), std::fabs(b.yHigh)), radius);
    };
    auto const farthest = [&](PlanarBox const &b) {
        return compareLength(std::max(std::fabs(b.xLow), std::fabs(b.xHigh)),
                             std::max(std::fabs(b.yLow), std::fabs(b.yHigh)), radius);
    };

    Depth depth = Depth::Outside;
    PlanarBox const outer = common(frame.outer());
    bool const sharesOuter = outer.xLow <= outer.xHigh && outer.yLow <= outer.yHigh;
    if (pIsIn || qIsIn || (sharesOuter && nearest(outer) <= 0 && farthest(outer) >= 0))
        depth = Depth::Touching;
    PlanarBox const inner = common(frame.inner());
    bool const sharesInner = inner.xLow < inner.xHigh && inner.yLow < inner.yHigh;
    if (frame.inner().hasInside(p.x, p.y) || frame.inner().hasInside(q.x, q.y)
        || (sharesInner && nearest(inner) < 0 && farthest(inner) > 0))
        depth = Depth::Deep;
    finding.add(depth, pIsIn && qIsIn);
}

/// The arc by quadrants; two turns of them hold every sweep.
mgInsideBox_e arcInside(mgPoint_c const &centre, double radius, PlanarSweep const &arc,
                        Frame const &frame) {
    Finding finding;
    double const end = arc.start + arc.sweep;
    Vec const first{std::cos(arc.start), std::sin(arc.start)};
    Vec const last{std::cos(end), std::sin(end)};
    for (int i = 0; i < 9; ++i) {
        double const from = i * (kTwoPiExact / 4.0);
        double const to = (i + 1) * (kTwoPiExact / 4.0);
        if (to <= arc.start || from > end) continue;
        Vec const u = from < arc.start ? first : axis(i);
        Vec const v = to > end ? last : axis(i + 1);
        addPiece(finding, frame, centre, radius, u, v);
    }
    return finding.result();
}

} // namespace

mgInsideBox_e mg_Point2DInsideBox(mgPoint_c const &p, mgPoint_c const &corner1,
                                  mgPoint_c const &corner2, double tol) {
    Frame const frame(corner1, corner2, tol);
    if (!frame.isFinite() || !areFinite(p.x(), p.y()) || !frame.outer().contains(p.x(), p.y()))
        return mgInsideBox_Outside;
    return frame.inner().hasInside(p.x(), p.y()) ? mgInsideBox_Inside : mgInsideBox_Touching;
}

mgInsideBox_e mg_Line2DInsideBox(mgPoint_c const &a, mgPoint_c const &b, mgPoint_c const &corner1,
                                 mgPoint_c const &corner2, double tol) {
    mgPoint_c const ends[] = {a, b};
    return mg_Polyline2DInsideBox(2, ends, corner1, corner2, tol);
}

mgInsideBox_e mg_Circle2DInsideBox(mgPoint_c const &centre, double radius, mgPoint_c const &corner1,
                                   mgPoint_c const &corner2, double tol) {
    return mg_Arc2DInsideBox(centre, radius, 0.0, kTwoPiExact, corner1, corner2, tol);
}

mgInsideBox_e mg_Arc2DInsideBox(mgPoint_c const &centre, double radius, double start, double end,
                                mgPoint_c const &corner1, mgPoint_c const &corner2, double tol) {
    Frame const frame(corner1, corner2, tol);
    if (!frame.isFinite() || !areFinite(centre.x(), centre.y(), radius) || !(radius >= 0.0)
        || !areArcAngles(start, end))
        return mgInsideBox_Outside;
    PlanarSweep const arc = planarSweep(start, end);
    return arcInside(centre, radius, arc.isFull ? PlanarSweep{0.0, arc.sweep, true} : arc, frame);
}

mgInsideBox_e mg_Polyline2DInsideBox(int n, mgPoint_c const *pts, mgPoint_c const &corner1,
                                     mgPoint_c const &corner2, double tol) {
    if (n == 1) return mg_Point2DInsideBox(pts[0], corner1, corner2, tol);
    Frame const frame(corner1, corner2, tol);
    if (!frame.isFinite()) return mgInsideBox_Outside;
    Finding finding;
    for (int i = 1; i < n; ++i) {
        PlanarSegment const s{pts[i - 1].x(), pts[i - 1].y(), pts[i].x(), pts[i].y()};
        if (!areFinite(s.ax, s.ay, s.bx, s.by)) return mgInsideBox_Outside;
        bool const isWithin =
            frame.outer().contains(s.ax, s.ay) && frame.outer().contains(s.bx, s.by);
        finding.add(frame.depthOf(s), isWithin);
    }
    return finding.result();
}

mgPointOnLine_e mg_PointOnLine2D(mgPoint_c const &p, mgPoint_c const &a, mgPoint_c const &b,
                                 double tol) {
    if (!areFinite(p.x(), p.y(), a.x(), a.y(), b.x(), b.y())) return mgPointOnLine_Off;
    /// Squared length below which a segment is a point; strict.
    constexpr double kPointSq = 1e-290;
    double const k = planarScale(largestOf(p.x(), p.y(), a.x(), a.y(), b.x(), b.y()));
    double const reach = k * planarTolerance(tol);
    Vec const d{k * b.x() - k * a.x(), k * b.y() - k * a.y()};
    Vec const fromA{k * p.x() - k * a.x(), k * p.y() - k * a.y()};
    Vec const fromB{k * p.x() - k * b.x(), k * p.y() - k * b.y()};

    double const toA = std::sqrt(fromA.x * fromA.x + fromA.y * fromA.y);
    double const toB = std::sqrt(fromB.x * fromB.x + fromB.y * fromB.y);
    if (toA <= reach && toA <= toB) return mgPointOnLine_AtA;
    if (toB <= reach) return mgPointOnLine_AtB;

    double const lengthSq = d.x * d.x + d.y * d.y;
    double const along = d.x * fromA.x + d.y * fromA.y;
    if (lengthSq < kPointSq || along < 0.0 || along > lengthSq) return mgPointOnLine_Off;
    double const area = std::fabs(d.x * fromA.y - d.y * fromA.x);
    return area <= reach * std::sqrt(lengthSq) ? mgPointOnLine_Between : mgPointOnLine_Off;
}
