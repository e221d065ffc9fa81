// SPDX-License-Identifier: MIT
// Sorting of points: the library against a literal version of its steps.

#include <ctime>
#include <utility>
#include <vector>

#include "common/geometry.h"

namespace {

using namespace common;

using List = std::vector<P>;

bool less(P const &a, P const &b) { return a.isLessThan(b, -1.0) != 0; }

/// For finite points: not the same.
bool apart(P const &a, P const &b) { return gap(a, b) >= 1e-8; }

/// The steps, one by one: recursion sorts the left side, and the loop goes on with the right one.
void literalSort(P *p, int first, int last) {
    while (last - first >= 10) {
        int const mid = (first + last) / 2;
        int lo = first, hi = last;
        if (less(p[last], p[first])) std::swap(lo, hi);
        int median = mid;
        if (less(p[mid], p[lo])) median = lo;
        if (less(p[hi], p[median])) median = hi;
        std::swap(p[first], p[median]);
        P const pivot = p[first];
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
    for (int i = first; i < last; ++i) // selection
        std::swap(p[i], *std::min_element(p + i, p + last + 1, less));
}

/// Sorts by indices from -origin on.
void CheckAgainstTheSteps(List const &list, int origin, Caller = {}) {
    List sorted = list, literal = list;
    int const last = static_cast<int>(list.size()) - 1 - origin;
    mg_pointQuickSort(sorted.data() + origin, -origin, last);
    literalSort(literal.data() + origin, -origin, last);
    for (std::size_t i = 0; i < list.size(); ++i) ASSERT_BITS_EQ(literal[i], sorted[i]);
}

TEST(PointSort, AgreesWithItsSteps) {
    Random random;
    auto const check = [&random](int n, auto point, Caller = {}) {
        List list;
        for (int i = 0; i < n; ++i) list.push_back(point());
        CheckAgainstTheSteps(list, random.below(n));
    };
    auto const wide = [&] { return random.uniform(-1e3, 1e3); };
    auto const tied = [&](int values, double step) { return random.below(values) * step; };
    for (int round = 0; round < 3000 && !::testing::Test::HasFailure(); ++round) {
        // Steps of 0.7 tolerances: "equal" is not transitive here.
        double const step = round % 3 == 0 ? 7e-9 : 1.0;
        check(1 + random.below(60),
              [&] { return P(tied(5, step), tied(3, step), tied(50, 1e-9)); });
        if (round % 8 == 0)
            check(200, [&] { return P(random.hostile(), random.hostile(), wide()); });
        if (round % 150 != 0) continue;
        int const many = round % 600 == 0 ? 3000 : 400;
        // Equal in x or altogether, within tolerance in a run or of neighbours alone, 0 and -0.
        check(many, [&] { return P(tied(50, 1), wide(), wide()); });
        check(many, [&] { return P(tied(50, 1) + tied(3, 9e-9), tied(50, 1), wide()); });
        check(400, [&] { return P(tied(50, 1) + tied(2, 9e-9), tied(9, 1), tied(2, 1)); });
        check(many, [&] { return P(tied(9, 1), tied(9, 1), tied(2, -1) * 0.0); });
        check(many, [&] { return P(5, wide(), random.below(3000) == 0 ? NAN : wide()); });
    }
}

TEST(PointSort, EqualPointsTakeNoLongerWhenTheyHoldNaNOrInfinity) {
    auto const clocksFor = [](P const &p) {
        List list(20000, p);
        std::clock_t const start = std::clock();
        mg_pointQuickSort(list.data(), 0, static_cast<int>(list.size()) - 1);
        return static_cast<double>(std::clock() - start);
    };
    double const finite = clocksFor({1, 0, 0});
    double const slack = 0.01 * CLOCKS_PER_SEC;
    for (double x : {kNaN, kInfinity, -kInfinity})
        EXPECT_LT(clocksFor({x, 0, 0}), 10.0 * finite + slack); // not a thousandfold
}

TEST(PointSort, SortsOnlyTheRangeAndRefusesAnEmptyOne) {
    for (auto const sort : {mg_pointQuickSort, mg_pointSelectionSort}) {
        P list[] = {{9, 0, 0}, {3, 0, 0}, {2, 0, 0}, {1, 0, 0}, {0, 0, 0}};
        sort(list, 3, 1);
        EXPECT_EQ(3, list[1].x());
        sort(list, 1, 3);
        for (int i = 0; i < 5; ++i) EXPECT_EQ(i == 0 ? 9 : i % 4, list[i].x());
    }
}

} // namespace
