// SPDX-License-Identifier: MIT
// Planar convex hull.

#include <vexmath/mg_queries.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>

#include "inlining.h"
#include "stable_order.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <new>
#include <vector>

namespace {

using vexmath::detail::headerOf;
using Points = suDynamicArray<mg2DPoint_c>;
using List = std::vector<mg2DPoint_c>;

// The loops over all points are in functions that are never inlined: together in one function they
// would have too few registers.

/// Sorts the points by x, then y, NaN last; equal points keep their order. `given` is a copy of
/// them. Throws std::bad_alloc before any point has moved.
VEXMATH_NEVER_INLINE void sortByXThenY(mg2DPoint_c *points, List const &given) {
    using vexmath::detail::OrderKey;
    using vexmath::detail::orderKey;
    auto const n = static_cast<std::uint32_t>(given.size());
    std::vector<OrderKey> keys(n);
    for (std::uint32_t i = 0; i < n; ++i) keys[i] = orderKey(given[i].x(), i);
    sortStably(keys);
    for (std::uint32_t i = 0; i < n; ++i) points[i] = given[keys[i].index];

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

/// Moves every point that differs from the one before it to the front. Returns the index that each
/// of the others has when they are removed one by one, first to last. Throws std::bad_alloc with
/// the points in any order.
VEXMATH_NEVER_INLINE std::vector<int> moveDistinctToFront(mg2DPoint_c *sorted, int count) {
    std::vector<int> removed;
    int kept = 1;
    for (int i = 1; i < count; ++i) {
        mg2DPoint_c const &last = sorted[kept - 1];
        if (sorted[i].x() == last.x() && sorted[i].y() == last.y()) {
            removed.push_back(kept);
        } else {
            sorted[kept++] = sorted[i];
        }
    }
    return removed;
}

/// Lowers the count by one for each removal. A listener is told the range that moved up.
void shrinkByEach(Points &points, std::vector<int> const &removed) {
    for (int const place : removed) {
        int const left = points.Count() - 1;
        amDynamicArrayResize(points.Data(), left);
        points.elementsChanged(place, left - 1);
    }
}

/// Gives an array that was sorted and shrunk its points back.
void restore(Points &points, List const &given) {
    std::copy(given.begin(), given.end(), points.Data());
    headerOf(points.Data())->count = static_cast<std::int32_t>(given.size());
    points.elementsChanged(0, points.Count() - 1);
}

/// a x b, its z component.
double cross(double ax, double ay, double bx, double by) { return ax * by - ay * bx; }

/// A directed line. Its side test uses the direction divided by its length.
class Line {
public:
    Line(mg2DPoint_c const &from, mg2DPoint_c const &to) : root_(from) {
        /// Length below which the direction is left as it is; strict.
        constexpr double kShortest = 1e-08;
        double const dx = to.x() - from.x();
        double const dy = to.y() - from.y();
        double const length = std::sqrt(dx * dx + dy * dy);
        double const divisor = length < kShortest ? 1.0 : length;
        x_ = dx / divisor; // not times the reciprocal: last bits decide about points on the line
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

    /// False when the hull cannot grow. It then holds what it held before the chain.
    bool append(mg2DPoint_c const &p) {
        mg2DPoint_c const *const block = hull_.Data();
        bool const fits = block && headerOf(block)->count < headerOf(block)->capacity;
        return fits ? hull_.Add(p) >= 0 : appendToFull(p);
    }

    /// Removes the last points as long as p, as the next point, leaves them inside or on an edge.
    // QUIRK: mg_queries.h, convexHull: the upper chain can remove corners of the lower one, when
    // rounding puts a point of the first edge above that edge. Expected: the chains stay apart.
    // Kept: callers and stored data depend on it. (test: UpperChainMayPopTheLower)
    void makeTurnTo(mg2DPoint_c const &p) {
        while (hull_.Count() - begin_ >= 2 && !turnsLeftAt(p)) {
            --headerOf(hull_.Data())->count;
        }
    }

private:
    VEXMATH_NEVER_INLINE bool appendToFull(mg2DPoint_c const &p) {
        mg2DPoint_c *const block = hull_.Data();
        if (block == nullptr) return hull_.Add(p) >= 0;
        std::uint16_t const keepFlag = headerOf(block)->keepFlag;
        // An array that cannot grow releases its block, unless that has the keep flag. A block that
        // grows loses the flag.
        headerOf(block)->keepFlag = 1;
        if (hull_.Add(p) >= 0) return true;
        headerOf(block)->keepFlag = keepFlag;
        hull_.Adopt(static_cast<mg2DPoint_c *>(amDynamicArrayResize(block, begin_)));
        return false;
    }

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

/// Up to three points, in counter-clockwise order; collinear ones are all kept. False when the hull
/// cannot grow.
bool appendFew(mg2DPoint_c const *p, int n, Chain hull) {
    bool const clockwise =
        n == 3
        && cross(p[1].x() - p[0].x(), p[1].y() - p[0].y(), p[2].x() - p[0].x(), p[2].y() - p[0].y())
               < 0.0;
    return hull.append(p[0]) && (n < 2 || hull.append(p[clockwise ? 2 : 1]))
           && (n < 3 || hull.append(p[clockwise ? 1 : 2]));
}

/// Four points or more: the lower chain from left to right, then the upper one back. False when the
/// hull cannot grow.
// QUIRK: mg_queries.h, convexHull: four or more collinear points that differ in x give the first
// point alone, because the upper chain removes the last one. Expected: both ends. Kept: callers and
// stored data depend on it. (test: CollinearPointsGiveOnePoint)
VEXMATH_NEVER_INLINE bool appendHull(mg2DPoint_c const *p, int n, Chain hull) {
    int const maxmax = n - 1;
    int minmax = 0; // the last point of lowest x
    while (minmax < maxmax && p[minmax + 1].x() == p[0].x()) ++minmax;
    int maxmin = maxmax; // the first point of highest x
    while (maxmin > 0 && p[maxmin - 1].x() == p[maxmax].x()) --maxmin;
    Line const lowerEdge(p[0], p[maxmin]);
    Line const upperEdge(p[maxmax], p[minmax]);

    if (!hull.append(p[0])) return false;
    for (int i = minmax + 1; i <= maxmin; ++i) {
        if (i < maxmin && !lowerEdge.hasOnItsRight(p[i])) continue;
        hull.makeTurnTo(p[i]);
        if (!hull.append(p[i])) return false;
    }
    if (maxmax != maxmin && !hull.append(p[maxmax])) return false;
    for (int i = maxmin - 1; i >= minmax; --i) {
        if (i > minmax && !upperEdge.hasOnItsRight(p[i])) continue;
        hull.makeTurnTo(p[i]);
        if (i > 0 && !hull.append(p[i])) return false;
    }
    return true;
}

} // namespace

int convexHull(suDynamicArray<mg2DPoint_c> &input, suDynamicArray<mg2DPoint_c> &hull) {
    if (&input == &hull || input.Count() == 0) return 0;
    mg2DPoint_c *const p = input.Data();
    int const n = input.Count();
    List given;
    std::vector<int> removed;
    try {
        given.assign(p, p + n);
        sortByXThenY(p, given);
        removed = moveDistinctToFront(p, n);
    } catch (std::bad_alloc const &) {
        std::copy(given.begin(), given.end(), p);
        return 0;
    }
    shrinkByEach(input, removed);

    Chain const chain(hull);
    int const left = input.Count();
    if (left < 4 ? appendFew(p, left, chain) : appendHull(p, left, chain)) return 1;
    restore(input, given);
    return 0;
}
