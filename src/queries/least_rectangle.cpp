// SPDX-License-Identifier: MIT
// The least rectangle around a convex polygon, by rotating calipers.
//
// A rectangle of least area, and one of least width, has a side along an edge of the polygon. Three
// calipers touch the polygon on the other sides. As the edge moves once around the polygon, each of
// them does too, and never back: the work is linear.

#include <vexmath/mg_planar.h>
#include <vexmath/point2d.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

struct Vec {
    double x = 0.0;
    double y = 0.0;
};

Vec operator-(Vec a, Vec b) { return {a.x - b.x, a.y - b.y}; }
double dot(Vec a, Vec b) { return a.x * b.x + a.y * b.y; }
Vec leftOf(Vec a) { return {-a.y, a.x}; }

/// A polygon that was moved, scaled to about unit size and, if it ran clockwise, mirrored in the x
/// axis. So no product overflows, and no sign depends on the orientation.
class Polygon {
public:
    Polygon(int n, mg2DPoint_c const *points);

    int count() const { return n_; }
    int next(int i) const { return i + 1 < n_ ? i + 1 : 0; }
    Vec operator[](int i) const {
        return {(points_[i].x() - first_.x) * scale_, (points_[i].y() - first_.y) * scaleY_};
    }
    /// The direction along the given points of an edge, with the polygon on the left.
    Vec direction(Vec edge) const {
        double const length = std::sqrt(dot(edge, edge));
        return {std::copysign(1.0, scaleY_) * edge.x / length, edge.y / length};
    }

private:
    int n_;
    mg2DPoint_c const *points_;
    Vec first_;
    double scale_ = 1.0;
    double scaleY_ = 1.0;
};

Polygon::Polygon(int n, mg2DPoint_c const *points)
    : n_(n), points_(points), first_{points[0].x(), points[0].y()} {
    double extent = 0.0;
    for (int i = 0; i < n; ++i) {
        Vec const p = (*this)[i];
        extent = std::max({extent, std::fabs(p.x), std::fabs(p.y)});
    }
    constexpr int kMostExponent = 1000; // of the scale, which must stay finite
    int exponent = 0;
    std::frexp(extent, &exponent);
    scaleY_ = scale_ = std::ldexp(1.0, std::min(-exponent, kMostExponent));

    double area = 0.0;
    for (int i = 0; i < n; ++i) area += dot(leftOf((*this)[i]), (*this)[next(i)]);
    if (area < 0.0) scaleY_ = -scale_;
}

/// The corner that is farthest in a direction, while that rotates counter-clockwise.
class Caliper {
public:
    Caliper(Polygon const &polygon, Vec direction) : polygon_(polygon), left_(2 * polygon.count()) {
        int farthest = 0;
        for (int i = 1; i < polygon.count(); ++i)
            if (dot(polygon[i] - polygon[farthest], direction) > 0.0) farthest = i;
        moveTo(farthest);
    }

    /// The place in the direction. `left_` ends the walk for polygons that are not convex.
    double follow(Vec direction) {
        for (; dot(step_, direction) >= 0.0 && left_ > 0; --left_) moveTo(polygon_.next(index_));
        return dot(at_, direction);
    }

private:
    void moveTo(int index) {
        index_ = index;
        at_ = polygon_[index];
        step_ = polygon_[polygon_.next(index)] - at_;
    }

    Polygon const &polygon_;
    std::int64_t left_;
    int index_ = 0;
    Vec at_, step_;
};

/// The direction of the edge of the least rectangle; the x axis when all points are the same.
Vec leastDirection(Polygon const &polygon, bool byWidth) {
    // Shorter edges, relative to the polygon, have no direction: squared length, strict.
    constexpr double kLeastLengthSq = std::numeric_limits<double>::min();
    int i = 0;
    while (i < polygon.count()) {
        Vec const edge = polygon[polygon.next(i)] - polygon[i];
        if (!(dot(edge, edge) < kLeastLengthSq)) break;
        ++i;
    }
    if (i == polygon.count()) return {1.0, 0.0};

    Vec bestEdge = polygon[polygon.next(i)] - polygon[i];
    Caliper ahead(polygon, bestEdge);
    Caliper above(polygon, leftOf(bestEdge));
    Caliper behind(polygon, Vec{} - bestEdge);
    double best = std::numeric_limits<double>::infinity();
    for (; i < polygon.count(); ++i) {
        Vec const base = polygon[i];
        Vec const edge = polygon[polygon.next(i)] - base;
        double const lengthSq = dot(edge, edge);
        if (lengthSq < kLeastLengthSq) continue;
        double const length = ahead.follow(edge) + behind.follow(Vec{} - edge);
        double const height = above.follow(leftOf(edge)) - dot(base, leftOf(edge));
        double const size = (byWidth ? height : length) * height / lengthSq;
        if (size < best) {
            best = size;
            bestEdge = edge;
        }
    }
    return polygon.direction(bestEdge);
}

/// The rectangle with a side along a unit direction around all points. These are all read again, so
/// that none is outside by more than rounding.
void circumscribe(int n, mg2DPoint_c const *points, Vec direction, mg2DPoint_c *corners) {
    Vec const up = leftOf(direction);
    double const infinity = std::numeric_limits<double>::infinity();
    Vec low{infinity, infinity};
    Vec high{-infinity, -infinity};
    for (int i = 0; i < n; ++i) {
        Vec const p{points[i].x(), points[i].y()};
        low = {std::min(low.x, dot(p, direction)), std::min(low.y, dot(p, up))};
        high = {std::max(high.x, dot(p, direction)), std::max(high.y, dot(p, up))};
    }
    Vec const ends[] = {{low.x, low.y}, {high.x, low.y}, {high.x, high.y}, {low.x, high.y}};
    for (int k = 0; k < 4; ++k)
        corners[k].set(ends[k].x * direction.x + ends[k].y * up.x,
                       ends[k].x * direction.y + ends[k].y * up.y);
}

bool isUsable(mg2DPoint_c const &p) {
    constexpr double kMost = 1e150; // absolute, inclusive
    return std::fabs(p.x()) <= kMost && std::fabs(p.y()) <= kMost;
}

} // namespace

int minCnvxPlgRect(int n, mg2DPoint_c const *polygon, int byWidth, mg2DPoint_c *corners) {
    if (n < 1 || !std::all_of(polygon, polygon + n, isUsable)) return 0;
    Vec const direction = leastDirection(Polygon(n, polygon), byWidth != 0);
    circumscribe(n, polygon, direction, corners);
    return 1;
}
