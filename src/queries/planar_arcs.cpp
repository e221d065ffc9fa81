// SPDX-License-Identifier: MIT
// Polylines on arcs, tangent arcs, and the normal of three points.

#include <vexmath/mg_planar.h>
#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

#include "planar_box.h"

#include <algorithm>
#include <cmath>

namespace {

using vexmath::kTwoPiExact;
using vexmath::detail::areFinite;
using vexmath::detail::largestOf;
using vexmath::detail::planarScale;
using vexmath::detail::planarTolerance;

double largestOf(mgPoint_c const &p) { return largestOf(p.x(), p.y(), p.z()); }

/// Without overflow, and without the loss of small components.
double lengthOf(mgVector_c const &v) {
    double const largest = largestOf(mgPoint_c(v));
    if (largest == 0.0) return 0.0;
    double const x = v.x() / largest;
    double const y = v.y() / largest;
    double const z = v.z() / largest;
    return largest * std::sqrt(x * x + y * y + z * z);
}

mgVector_c quotient(mgVector_c const &v, double d) { return {v.x() / d, v.y() / d, v.z() / d}; }

/// In a frame at the first point: x towards the point farthest from it, y towards the point
/// farthest from that line, z along the normal.
class ArcFrame {
public:
    /// The points are multiplied by `scale`.
    ArcFrame(int n, mgPoint_c const *pts, double scale) : pts_(pts), scale_(scale) {
        for (int i = 1; i < n; ++i) {
            double const length = lengthOf(fromFirst(i));
            if (length > chord_) {
                chord_ = length;
                second_ = i;
            }
        }
        if (chord_ == 0.0) return;
        x_ = quotient(fromFirst(second_), chord_);
        mgVector_c across;
        for (int i = 1; i < n; ++i) {
            mgVector_c const offLine = fromFirst(i) - (fromFirst(i) % x_) * x_;
            double const length = lengthOf(offLine);
            if (length > height_) {
                height_ = length;
                third_ = i;
                across = offLine;
            }
        }
        if (height_ == 0.0) return;
        y_ = quotient(across, height_);
        z_ = x_ * y_;
    }

    double chord() const { return chord_; }
    double height() const { return height_; }
    /// Does the polyline run counter-clockwise about z? The three points of the frame tell.
    bool isCounterClockwise() const { return second_ < third_; }
    mgVector_c fromFirst(int i) const { return scale_ * pts_[i] - scale_ * pts_[0]; }
    mgVector_c local(int i) const {
        mgVector_c const d = fromFirst(i);
        return {d % x_, d % y_, d % z_};
    }
    mgVector_c toModel(double x, double y) const { return x * x_ + y * y_; }
    mgVector_c const &normal() const { return z_; }
    /// The centre of the circle through the three points of the frame, which are (0, 0),
    /// (chord, 0) and (s, height): it is on the line x = chord / 2.
    mgVector_c centre() const {
        double const s = fromFirst(third_) % x_;
        double const rise = 0.5 * (height_ + s * ((s - chord_) / height_));
        return {0.5 * chord_, rise, 0.0};
    }

private:
    mgPoint_c const *pts_;
    double scale_;
    int second_ = 0;
    int third_ = 0;
    double chord_ = 0.0;
    double height_ = 0.0;
    mgVector_c x_;
    mgVector_c y_;
    mgVector_c z_;
};

/// Distance in space of p from the circle about c through the origin. The difference of p's
/// distance from the axis and the radius is (p.p - 2 p.c) / (distance + radius), without
/// cancellation for large radii.
double offCircle(mgVector_c const &p, mgVector_c const &c, double radius) {
    mgVector_c const inPlane(p.x(), p.y(), 0.0);
    double const distance = lengthOf(inPlane - c);
    double const radial = (inPlane % inPlane - 2.0 * (inPlane % c)) / (distance + radius);
    return std::sqrt(radial * radial + p.z() * p.z());
}

/// The angle about c from the origin to p, in [0, 2 pi); counter-clockwise or clockwise.
double angleAbout(mgVector_c const &c, mgVector_c const &p, bool isCounterClockwise) {
    mgVector_c const q = p - c;
    double const area = c.y() * q.x() - c.x() * q.y();
    double const angle = std::atan2(isCounterClockwise ? area : -area, -(c % q));
    return angle < 0.0 ? angle + kTwoPiExact : angle;
}

/// The sweep of the points about c, in order; negative when they are off the circle or go back.
double sweepOf(int n, ArcFrame const &frame, mgVector_c const &c, double radius, double reach) {
    constexpr double kNone = -1.0;
    /// The largest sweep of an arc: the double below 2 pi.
    constexpr double kMost = kTwoPiExact - 0x1p-50;
    mgVector_c last;
    double angle = 0.0;
    bool isClosed = false;
    for (int i = 1; i < n; ++i) {
        mgVector_c const p = frame.local(i);
        if (!(offCircle(p, c, radius) <= reach)) return kNone;
        if (lengthOf(p - last) <= reach) continue;
        if (isClosed) return kNone;
        last = p;
        isClosed = lengthOf(p) <= reach;
        if (isClosed) continue;
        double const next = angleAbout(c, p, frame.isCounterClockwise());
        if (next < angle) return kNone;
        angle = next;
    }
    return isClosed ? kTwoPiExact : std::min(angle, kMost);
}

struct Vec {
    double x, y;
};

Vec difference(mgPoint_c const &p, mgPoint_c const &q, double scale) {
    return {scale * p.x() - scale * q.x(), scale * p.y() - scale * q.y()};
}
double dot(Vec a, Vec b) { return a.x * b.x + a.y * b.y; }
double cross(Vec a, Vec b) { return a.x * b.y - a.y * b.x; }
double lengthOf(Vec a) { return lengthOf(mgVector_c(a.x, a.y, 0.0)); }
Vec operator*(double t, Vec a) { return {t * a.x, t * a.y}; }
Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y}; }
Vec toTheLeft(Vec a) { return {-a.y, a.x}; }

/// p + d / scale, with the z of p.
mgPoint_c moved(mgPoint_c const &p, Vec d, double scale) {
    return {p.x() + d.x / scale, p.y() + d.y / scale, p.z()};
}

bool isFinite(mgPoint_c const &p) { return areFinite(p.x(), p.y()); }

} // namespace

mgPolylineArc_e mg_IsPolylineArc(int n, mgPoint_c const *pts, mgPoint_c &centre,
                                 mgUnitVector_c &normal, double &radius, double &angle,
                                 double tol) {
    if (n < 3) return mgPolylineArc_None;
    double largest = 0.0;
    for (int i = 0; i < n; ++i) {
        if (!areFinite(pts[i].x(), pts[i].y(), pts[i].z())) return mgPolylineArc_None;
        largest = std::max(largest, largestOf(pts[i]));
    }
    double const scale = planarScale(largest);
    double const reach = scale * planarTolerance(tol);

    ArcFrame const frame(n, pts, scale);
    if (frame.chord() <= reach) return mgPolylineArc_None;
    if (frame.height() <= reach) return mgPolylineArc_Line;
    mgVector_c const c = frame.centre();
    double const r = lengthOf(c);
    mgVector_c const toCentre = frame.toModel(c.x(), c.y());
    mgPoint_c const found(pts[0].x() + toCentre.x() / scale, pts[0].y() + toCentre.y() / scale,
                          pts[0].z() + toCentre.z() / scale);
    if (!areFinite(found.x(), found.y(), found.z(), r / scale)) return mgPolylineArc_Line;

    double const sweep = sweepOf(n, frame, c, r, reach);
    if (sweep < 0.0) return mgPolylineArc_None;
    double const sign = frame.isCounterClockwise() ? 1.0 : -1.0;
    centre = found;
    normal = mgUnitVector_c(sign * frame.normal(), 0);
    radius = r / scale;
    angle = sweep;
    return sweep == kTwoPiExact ? mgPolylineArc_Circle : mgPolylineArc_Arc;
}

// With the unit tangent t, the chord e and the distance h of the end from the tangent line,
// positive on the left, the centre is at e.e / 2h to the left of the start. Tangent and chord
// enclose half of the sweep.
int mg_FindTangentArcCenter2D(mgPoint_c const &start, mgVector_c const &tangent,
                              mgPoint_c const &end, mgPoint_c &centre, double &radius,
                              double &sweep, double tol) {
    if (!isFinite(start) || !isFinite(end) || !areFinite(tangent.x(), tangent.y())) return 0;
    double const tangentScale = planarScale(largestOf(tangent.x(), tangent.y()));
    Vec const given = tangentScale * Vec{tangent.x(), tangent.y()};
    double const length = lengthOf(given);
    if (length == 0.0) return 0;
    Vec const t{given.x / length, given.y / length};

    double const scale = planarScale(largestOf(start.x(), start.y(), end.x(), end.y()));
    Vec const e = difference(end, start, scale);
    double const height = cross(t, e);
    if (std::fabs(height) <= scale * planarTolerance(tol)) return 0;
    double const toLeft = 0.5 * (dot(e, e) / height);
    mgPoint_c const found = moved(start, toLeft * toTheLeft(t), scale);
    double const size = std::fabs(toLeft) / scale;
    if (!isFinite(found) || !areFinite(size)) return 0;
    centre = found;
    radius = size;
    sweep = 2.0 * std::atan2(height, dot(t, e));
    return 1;
}

// With the unit vectors e1, e2 from the crossing to the far ends and the angle f between them, the
// touching points are at r cot(f / 2) from the crossing.
int mg_FindTangentArcCenter2D(mgPoint_c const &a1, mgPoint_c const &b1, mgPoint_c const &a2,
                              mgPoint_c const &b2, double radius, mgPoint_c &centre,
                              mgPoint_c &tangent1, mgPoint_c &tangent2, double tol) {
    if (!isFinite(a1) || !isFinite(b1) || !isFinite(a2) || !isFinite(b2) || !areFinite(radius)
        || radius < 0.0)
        return 0;
    double const scale = planarScale(
        largestOf(a1.x(), a1.y(), b1.x(), b1.y(), a2.x(), a2.y(), b2.x(), b2.y(), radius));
    Vec const d1 = difference(b1, a1, scale);
    Vec const d2 = difference(b2, a2, scale);
    Vec const between = difference(a2, a1, scale);
    double const length1 = lengthOf(d1);
    double const length2 = lengthOf(d2);
    double const area = cross(d1, d2);
    double const shorter = std::min(length1, length2);
    if (shorter == 0.0 || std::fabs(area) / shorter <= scale * planarTolerance(tol)) return 0;

    double const along1 = cross(between, d2) / area;
    double const along2 = cross(between, d1) / area;
    Vec const e1 = (along1 <= 0.5 ? 1.0 : -1.0) / length1 * d1;
    Vec const e2 = (along2 <= 0.5 ? 1.0 : -1.0) / length2 * d2;
    Vec const crossing = along1 * d1; // from a1
    double const cosine = dot(e1, e2);
    double const sine = cross(e1, e2);
    double const cotangent =
        cosine > 0.0 ? (1.0 + cosine) / std::fabs(sine) : std::fabs(sine) / (1.0 - cosine);
    double const r = scale * radius;
    Vec const touch1 = crossing + (r * cotangent) * e1;
    Vec const touch2 = crossing + (r * cotangent) * e2;
    Vec const middle = touch1 + (sine > 0.0 ? r : -r) * toTheLeft(e1);

    mgPoint_c const foundCentre = moved(a1, middle, scale);
    mgPoint_c const found1 = moved(a1, touch1, scale);
    mgPoint_c const found2(a1.x() + touch2.x / scale, a1.y() + touch2.y / scale, a2.z());
    if (!isFinite(foundCentre) || !isFinite(found1) || !isFinite(found2)) return 0;
    centre = foundCentre;
    tangent1 = found1;
    tangent2 = found2;
    return 1;
}

int mg_NormalFrom3Points(mgPoint_c const &p0, mgPoint_c const &p1, mgPoint_c const &p2,
                         mgUnitVector_c &normal, double tol) {
    for (mgPoint_c const &p : {p0, p1, p2}) {
        if (!areFinite(p.x(), p.y(), p.z())) return 0;
    }
    double const scale = planarScale(std::max({largestOf(p0), largestOf(p1), largestOf(p2)}));
    mgVector_c const d1 = scale * p1 - scale * p0;
    mgVector_c const d2 = scale * p2 - scale * p0;
    double const longest = std::max({lengthOf(d1), lengthOf(d2), lengthOf(d2 - d1)});
    if (longest == 0.0) return 0;
    mgVector_c const product = quotient(d1, longest) * quotient(d2, longest);
    double const size = lengthOf(product);
    double const height = longest * size;
    if (height <= scale * planarTolerance(tol)) return 0;
    normal = mgUnitVector_c(quotient(product, size), 0);
    return 1;
}
