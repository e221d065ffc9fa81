// SPDX-License-Identifier: MIT
// Planar convex hull.

#include <vexmath/mg_queries.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>

#include "stable_order.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

using Points = suDynamicArray<mg2DPoint_c>;

/// The points by x, then y, NaN last; equal points keep their order.
void sortByXThenY(mg2DPoint_c *points, int count) {
    using vexmath::detail::OrderKey;
    using vexmath::detail::orderKey;
    auto const n = static_cast<std::uint32_t>(count);
    std::vector<OrderKey> keys(n);
    for (std::uint32_t i = 0; i < n; ++i) keys[i] = orderKey(points[i].x(), i);
    sortStably(keys);
    std::vector<mg2DPoint_c> const before(points, points + count);
    for (std::uint32_t i = 0; i < n; ++i) points[i] = before[keys[i].index];

    auto const isBelow = [](mg2DPoint_c const &p, mg2DPoint_c const &q) {
        return orderKey(p.y(), 0).key < orderKey(q.y(), 0).key;
    };
    for (std::uint32_t i = 0; i < n;) {
        std::uint32_t end = i + 1;
        while (end < n && keys[end].key == keys[i].key) ++end;
        if (end - i > 1) std::stable_sort(points + i, points + end, isBelow);
        i = end;
    }
}

/// Removes every point that equals the one before it. The array is compacted once; who listens is
/// told of the removals one by one all the same, each with the range that moved up.
void removeDuplicates(Points &sorted) {
    int const count = sorted.Count();
    mg2DPoint_c *const p = sorted.Data();
    std::vector<int> removed; // for each removal, the place from which it was
    int kept = 1;
    for (int i = 1; i < count; ++i) {
        bool const duplicate = p[i].x() == p[kept - 1].x() && p[i].y() == p[kept - 1].y();
        if (duplicate) {
            removed.push_back(kept);
        } else {
            p[kept++] = p[i];
        }
    }
    amDynamicArrayResize(p, kept);
    int left = count;
    for (int const place : removed) sorted.elementsChanged(place, --left - 1);
}

/// a x b, its z component.
double cross(double ax, double ay, double bx, double by) { return ax * by - ay * bx; }

/// The points of one side of a line, by a test that divides the line's direction by its length.
class Line {
public:
    Line(mg2DPoint_c const &from, mg2DPoint_c const &to) : root_(from) {
        /// Length below which the direction is left as it is; strict.
        constexpr double kShortest = 1e-08;
        double const dx = to.x() - from.x();
        double const dy = to.y() - from.y();
        double const length = std::sqrt(dx * dx + dy * dy);
        double const divisor = length < kShortest ? 1.0 : length;
        x_ = dx / divisor; // not times the reciprocal: points on the line are decided by last bits
        y_ = dy / divisor;
    }

    bool hasOnItsRight(mg2DPoint_c const &p) const {
        return cross(x_, y_, p.x() - root_.x(), p.y() - root_.y()) < 0.0;
    }

private:
    mg2DPoint_c root_;
    double x_;
    double y_;
};

/// A hull under construction at the end of an array.
class Chain {
public:
    explicit Chain(Points &hull) : hull_(hull), begin_(hull.Count()) {}

    void append(mg2DPoint_c const &p) { hull_.Add(p); }

    /// Drops what p, as the next point, would leave inside or on an edge.
    // QUIRK: goes on below the start of the upper chain, into the lower one. A corner is lost when
    // a point of the first edge passes, by rounding, for one above it; a reader would expect the
    // chains to be kept apart. Outlines were stored as they came. (test: UpperChainMayPopTheLower)
    void makeTurnTo(mg2DPoint_c const &p) {
        while (hull_.Count() - begin_ >= 2 && !turnsLeftAt(p)) {
            amDynamicArrayResize(hull_.Data(), hull_.Count() - 1);
        }
    }

private:
    bool turnsLeftAt(mg2DPoint_c const &p) const {
        mg2DPoint_c const &top = hull_[hull_.Count() - 1];
        mg2DPoint_c const &second = hull_[hull_.Count() - 2];
        return !(cross(top.x() - second.x(), top.y() - second.y(), p.x() - second.x(),
                       p.y() - second.y())
                 <= 0.0);
    }

    Points &hull_;
    int begin_;
};

/// Up to three points, in counter-clockwise order; collinear ones are all kept.
void appendFew(mg2DPoint_c const *p, int n, Points &hull) {
    bool const clockwise =
        n == 3
        && cross(p[1].x() - p[0].x(), p[1].y() - p[0].y(), p[2].x() - p[0].x(), p[2].y() - p[0].y())
               < 0.0;
    hull.Add(p[0]);
    if (n > 1) hull.Add(p[clockwise ? 2 : 1]);
    if (n > 2) hull.Add(p[clockwise ? 1 : 2]);
}

/// Four points or more: the lower chain from left to right, then the upper one back.
// QUIRK: four or more collinear points that differ in x give the first point alone, because the way
// back pops the last one; a reader would expect both ends. (test: CollinearPointsGiveOnePoint)
void appendHull(mg2DPoint_c const *p, int n, Points &hull) {
    int const maxmax = n - 1;
    int minmax = 0; // the last point of lowest x
    while (minmax < maxmax && p[minmax + 1].x() == p[0].x()) ++minmax;
    int maxmin = maxmax; // the first point of highest x
    while (maxmin > 0 && p[maxmin - 1].x() == p[maxmax].x()) --maxmin;
    Line const lowerEdge(p[0], p[maxmin]);
    Line const upperEdge(p[maxmax], p[minmax]);

    Chain chain(hull);
    chain.append(p[0]);
    for (int i = minmax + 1; i <= maxmin; ++i) {
        if (i < maxmin && !lowerEdge.hasOnItsRight(p[i])) continue;
        chain.makeTurnTo(p[i]);
        chain.append(p[i]);
    }
    if (maxmax != maxmin) chain.append(p[maxmax]);
    for (int i = maxmin - 1; i >= minmax; --i) {
        if (i > minmax && !upperEdge.hasOnItsRight(p[i])) continue;
        chain.makeTurnTo(p[i]);
        if (i > 0) chain.append(p[i]);
    }
}

} // namespace

int convexHull(suDynamicArray<mg2DPoint_c> &input, suDynamicArray<mg2DPoint_c> &hull) {
    if (&input == &hull || input.Count() == 0) return 0;
    sortByXThenY(input.Data(), input.Count());
    removeDuplicates(input);
    if (input.Count() < 4) {
        appendFew(input.Data(), input.Count(), hull);
    } else {
        appendHull(input.Data(), input.Count(), hull);
    }
    return 1;
}
