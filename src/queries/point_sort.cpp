// SPDX-License-Identifier: MIT
// In-place sorting of points.

#include <vexmath/mg_queries.h>
#include <vexmath/point.h>

#include <utility>

namespace {

bool isLess(mgPoint_c const &a, mgPoint_c const &b) { return a.isLessThan(b, -1.0) != 0; }

bool isGreater(mgPoint_c const &a, mgPoint_c const &b) {
    return !isLess(a, b) && !a.isSame(b, -1.0);
}

/// Index of the median of the first, middle and last point.
int medianOfThree(mgPoint_c const *points, int first, int last) {
    int const middle = first + (last - first) / 2;
    int low = first;
    int high = last;
    if (isLess(points[high], points[low])) std::swap(low, high);
    int median = middle;
    if (isLess(points[median], points[low])) median = low;
    if (isLess(points[high], points[median])) median = high;
    return median;
}

/// Moves what is less than a pivot before it and what is greater behind it; returns its place. Both
/// scans stop at each other as well: the order is not transitive within its tolerance, and NaN is
/// less than nothing, so that no point can be trusted to stop a scan.
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
    /// Ranges of fewer points than this, last - first below it, are left to the selection sort.
    constexpr int kSmallestSpan = 10;
    while (first < last && last - first >= kSmallestSpan) {
        int const place = partition(points, first, last);
        // The shorter side by recursion, the longer one by the loop: the sides do not meet, so the
        // result is the same, and the depth stays logarithmic.
        if (place - first < last - place) {
            mg_pointQuickSort(points, first, place - 1);
            first = place + 1;
        } else {
            mg_pointQuickSort(points, place + 1, last);
            last = place - 1;
        }
    }
    mg_pointSelectionSort(points, first, last);
}
