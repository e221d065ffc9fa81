// SPDX-License-Identifier: MIT
// Sorting of points: the library against a literal version of its steps.

#include "common/numbers.h"

#include <vexmath/mg_queries.h>
#include <vexmath/point.h>

#include <ctime>
#include <utility>
#include <vector>

namespace {

using List = std::vector<mgPoint_c>;

bool less(mgPoint_c const &a, mgPoint_c const &b) { return a.isLessThan(b, -1.0) != 0; }

/// For finite points: not the same.
bool apart(mgPoint_c const &a, mgPoint_c const &b) {
    return std::fabs(a.x() - b.x()) >= 1e-8 || std::fabs(a.y() - b.y()) >= 1e-8
           || std::fabs(a.z() - b.z()) >= 1e-8;
}

/// The steps, one by one: recursion sorts the left side, and the loop goes on with the right one.
void literalSort(mgPoint_c *p, int first, int last) {
    while (last - first >= 10) {
        int const mid = (first + last) / 2;
        int lo = first, hi = last;
        if (less(p[last], p[first])) std::swap(lo, hi);
        int median = mid;
        if (less(p[mid], p[lo])) median = lo;
        if (less(p[hi], p[median])) median = hi;
        std::swap(p[first], p[median]);
        mgPoint_c const pivot = p[first];
        int i = first + 1, j = last;
        while (i < j) {
            while (i < j && less(p[i], pivot)) ++i;
            while (i < j && !less(p[j], pivot) && apart(p[j], pivot)) --j;
            if (i < j) std::swap(p[i++], p[j--]);
        }
        int const k = less(p[i], pivot) ? i : i - 1;
        std::swap(p[first], p[k]);
        literalSort(p, first, k - 1);
        first = k + 1;
    }
    for (int i = first; i < last; ++i) { // selection
        int least = i;
        for (int j = i + 1; j <= last; ++j)
            if (less(p[j], p[least])) least = j;
        if (least != i) std::swap(p[i], p[least]);
    }
}

/// Sorts by indices from -origin on.
void CheckAgainstTheSteps(List const &list, int origin, support::Caller = {}) {
    List sorted = list, literal = list;
    int const last = static_cast<int>(list.size()) - 1 - origin;
    mg_pointQuickSort(sorted.data() + origin, -origin, last);
    literalSort(literal.data() + origin, -origin, last);
    for (std::size_t i = 0; i < list.size(); ++i) ASSERT_BITS_EQ(literal[i], sorted[i]);
}

TEST(PointSort, AgreesWithItsSteps) {
    support::Random random;
    auto const check = [&random](int n, auto point, support::Caller = {}) {
        List list;
        for (int i = 0; i < n; ++i) list.push_back(point());
        CheckAgainstTheSteps(list, random.below(n));
    };
    auto const wide = [&] { return random.uniform(-1e3, 1e3); };
    auto const tied = [&](int values, double step) { return random.below(values) * step; };
    for (int round = 0; round < 12000 && !::testing::Test::HasFailure(); ++round) {
        // Steps of 0.7 tolerances: "equal" is not transitive here.
        double const step = round % 3 == 0 ? 7e-9 : 1.0;
        check(1 + random.below(60),
              [&] { return mgPoint_c(tied(5, step), tied(3, step), tied(50, 1e-9)); });
        if (round % 24 == 0)
            check(200, [&] { return mgPoint_c(random.hostile(), random.hostile(), wide()); });
        if (round % 300 != 0) continue;
        int const many = round % 600 == 0 ? 3000 : 400;
        // Equal in x or altogether, within tolerance in a run or between neighbours alone, 0 and
        // -0.
        check(many, [&] { return mgPoint_c(tied(50, 1), wide(), wide()); });
        check(many, [&] { return mgPoint_c(tied(50, 1) + tied(3, 9e-9), tied(50, 1), wide()); });
        check(many, [&] { return mgPoint_c(tied(9, 1), tied(9, 1), tied(2, -1) * 0.0); });
        check(many, [&] { return mgPoint_c(5, wide(), random.below(3000) == 0 ? NAN : wide()); });
    }
}

TEST(PointSort, EqualPointsTakeNoLongerWhenTheyHoldNaNOrInfinity) {
    auto const clocksFor = [](mgPoint_c const &p) {
        List list(20000, p);
        std::clock_t const start = std::clock();
        mg_pointQuickSort(list.data(), 0, static_cast<int>(list.size()) - 1);
        return static_cast<double>(std::clock() - start);
    };
    double const finite = clocksFor({1, 0, 0});
    double const slack = 0.01 * CLOCKS_PER_SEC;
    for (double x : {support::kNaN, support::kInfinity, -support::kInfinity})
        EXPECT_LT(clocksFor({x, 0, 0}), 10.0 * finite + slack); // not a thousandfold
}

TEST(PointSort, SortsOnlyTheRangeAndRefusesAnEmptyOne) {
    for (auto const sort : {mg_pointQuickSort, mg_pointSelectionSort}) {
        mgPoint_c list[] = {{9, 0, 0}, {3, 0, 0}, {2, 0, 0}, {1, 0, 0}, {0, 0, 0}};
        sort(list, 3, 1);
        EXPECT_EQ(3, list[1].x());
        sort(list, 1, 3);
        for (int i = 0; i < 5; ++i) EXPECT_EQ(i == 0 ? 9 : i % 4, list[i].x());
    }
}

} // namespace
