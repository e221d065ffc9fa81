// SPDX-License-Identifier: MIT
// In-place sorting of points.

#include <vexmath/mg_queries.h>
#include <vexmath/point.h>

#include "stable_order.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <new>
#include <utility>
#include <vector>

namespace {

bool isLess(mgPoint_c const &a, mgPoint_c const &b) { return a.isLessThan(b, -1.0) != 0; }

/// Some coordinate differs by the tolerance or more. As in `isLess`, a difference of NaN is none.
bool isApart(mgPoint_c const &a, mgPoint_c const &b) {
    for (int k = 0; k < 3; ++k) {
        if (std::fabs(a[k] - b[k]) >= vexmath::kLengthTolerance) return true;
    }
    return false;
}

bool isGreater(mgPoint_c const &a, mgPoint_c const &b) { return !isLess(a, b) && isApart(a, b); }

/// Index of the median of the first, middle and last point.
int medianOfThree(mgPoint_c const *points, int first, int last) {
    int const middle = static_cast<int>((std::int64_t{first} + last) / 2);
    int low = first;
    int high = last;
    if (isLess(points[high], points[low])) std::swap(low, high);
    int median = middle;
    if (isLess(points[median], points[low])) median = low;
    if (isLess(points[high], points[median])) median = high;
    return median;
}

/// Moves the points that are less than a pivot before it and the greater ones behind it; returns
/// its place. Both scans stop at points that are the same as the pivot, so that many of these are
/// divided evenly. Both also stop at each other: the order is not transitive within its tolerance,
/// so that no point is certain to stop a scan.
int partition(mgPoint_c *points, int first, int last) {
    std::swap(points[first], points[medianOfThree(points, first, last)]);
    mgPoint_c const pivot = points[first];
    int up = first + 1;
    int down = last;
    while (up < down) {
        while (up < down && isLess(points[up], pivot)) ++up;
        while (up < down && isGreater(points[down], pivot)) --down;
        if (up < down) std::swap(points[up++], points[down--]);
    }
    int const place = isLess(points[up], pivot) ? up : up - 1;
    std::swap(points[first], points[place]);
    return place;
}

void quickSort(mgPoint_c *points, int first, int last) {
    /// Ranges of fewer points than this, last - first below it, are left to the selection sort.
    constexpr int kSmallestSpan = 10;
    while (first < last && last - first >= kSmallestSpan) {
        int const place = partition(points, first, last);
        // Recursion sorts the shorter side, so that its depth is logarithmic; the loop goes on with
        // the longer one. The sides are independent: their order does not matter.
        if (place - first < last - place) {
            quickSort(points, first, place - 1);
            first = place + 1;
        } else {
            quickSort(points, place + 1, last);
            last = place - 1;
        }
    }
    mg_pointSelectionSort(points, first, last);
}

/// Finite points that no operation can tell apart: -0 is not 0.
bool areIdentical(mgPoint_c const &a, mgPoint_c const &b) {
    for (int k = 0; k < 3; ++k) {
        if (a[k] != b[k] || std::signbit(a[k]) != std::signbit(b[k])) return false;
    }
    return true;
}

/// Sorts points that ascend along an axis: each run in which neighbours along that axis are within
/// tolerance is sorted by the next axes. True if `isLess` then orders any two points that are not
/// identical, without a cycle; otherwise false, with the points in any order.
bool sortRuns(mgPoint_c *first, mgPoint_c *last, int axis) {
    auto const within = [axis](mgPoint_c const &a, mgPoint_c const &b) {
        return b[axis] - a[axis] <= vexmath::kLengthTolerance;
    };
    for (mgPoint_c *end = first; first != last; first = end) {
        do ++end;
        while (end != last && within(end[-1], *end));
        if (end - first == 1) continue;
        // Within tolerance of neighbours, but not of all: equality is not transitive here.
        if (!within(*first, end[-1])) return false;
        int const next = axis + 1;
        if (next == 3) {
            auto const same = [first](mgPoint_c const &p) { return areIdentical(*first, p); };
            if (!std::all_of(first, end, same)) return false;
        } else {
            std::sort(first, end,
                      [next](mgPoint_c const &a, mgPoint_c const &b) { return a[next] < b[next]; });
            if (!sortRuns(first, end, next)) return false;
        }
    }
    return true;
}

/// True if the points are finite and spread so far along x that three of them in a row are unlikely
/// to be within tolerance of their neighbours.
bool areSpread(mgPoint_c const *points, std::size_t n) {
    double low = points[0].x();
    double high = low;
    for (std::size_t i = 0; i < n; ++i) {
        mgPoint_c const &p = points[i];
        if (!std::isfinite(p.x()) || !std::isfinite(p.y()) || !std::isfinite(p.z())) return false;
        low = std::min(low, p.x());
        high = std::max(high, p.x());
    }
    double const count = static_cast<double>(n);
    double const chance = count * vexmath::kLengthTolerance / (high - low); // of one neighbour
    return count * chance * chance < 1.0;
}

/// Sorts the points if only one order of them agrees with `isLess`: every sort gives that order,
/// the quick sort too. Takes linear time when few points agree in x. False, with the points as they
/// were, if several orders may agree or memory is exhausted.
bool sortIfUnique(mgPoint_c *points, std::size_t n) try {
    if (!areSpread(points, n)) return false;
    std::vector<vexmath::detail::OrderKey> keys(n);
    for (std::size_t i = 0; i < n; ++i)
        keys[i] = vexmath::detail::orderKey(points[i].x(), static_cast<std::uint32_t>(i));
    sortStably(keys);
    std::vector<mgPoint_c> sorted(n);
    for (std::size_t i = 0; i < n; ++i) sorted[i] = points[keys[i].index];
    if (!sortRuns(sorted.data(), sorted.data() + n, 0)) return false;
    std::copy(sorted.begin(), sorted.end(), points);
    return true;
} catch (std::bad_alloc const &) {
    return false;
}

} // namespace

void mg_pointSelectionSort(mgPoint_c *points, int first, int last) {
    for (int i = first; i < last; ++i) {
        int least = i;
        for (int j = i + 1; j <= last; ++j) {
            if (isLess(points[j], points[least])) least = j;
        }
        if (least != i) std::swap(points[i], points[least]);
    }
}

void mg_pointQuickSort(mgPoint_c *points, int first, int last) {
    /// The other sort is faster for this many points or more.
    constexpr std::int64_t kMany = 30;
    std::int64_t const n = std::int64_t{last} - first + 1;
    if (n >= kMany && sortIfUnique(points + first, static_cast<std::size_t>(n))) return;
    quickSort(points, first, last);
}
