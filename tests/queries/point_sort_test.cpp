// SPDX-License-Identifier: MIT
// Sorting of points: the shipped sort against its steps one by one.

#include "support/numbers.h"

#include <vexmath/mg_queries.h>
#include <vexmath/point.h>

#include <gtest/gtest.h>

#include <cstring>
#include <utility>
#include <vector>

namespace {

using List = std::vector<mgPoint_c>;

void literalSelection(mgPoint_c *p, int first, int last) {
    for (int i = first; i < last; ++i) {
        int least = i;
        for (int j = i + 1; j <= last; ++j) {
            if (p[j].isLessThan(p[least], -1.0)) least = j;
        }
        if (least != i) std::swap(p[i], p[least]);
    }
}

/// The steps, one by one, with the left side by recursion and the right one by the loop.
void literalSort(mgPoint_c *p, int first, int last) {
    while (last - first >= 10) {
        int const mid = (first + last) / 2;
        int lo = first;
        int hi = last;
        if (p[last].isLessThan(p[first], -1.0)) std::swap(lo, hi);
        int median = mid;
        if (p[mid].isLessThan(p[lo], -1.0)) median = lo;
        if (p[hi].isLessThan(p[median], -1.0)) median = hi;
        std::swap(p[first], p[median]);
        mgPoint_c const pivot = p[first];
        int i = first + 1;
        int j = last;
        while (i < j) {
            while (i < j && p[i].isLessThan(pivot, -1.0)) ++i;
            while (i < j && !p[j].isLessThan(pivot, -1.0) && !p[j].isSame(pivot, -1.0)) --j;
            if (i < j) std::swap(p[i++], p[j--]);
        }
        int const k = p[i].isLessThan(pivot, -1.0) ? i : i - 1;
        std::swap(p[first], p[k]);
        literalSort(p, first, k - 1);
        first = k + 1;
    }
    literalSelection(p, first, last);
}

/// With indices from -origin on.
void CheckAgainstTheSteps(List const &list, int origin = 0) {
    List sorted = list;
    List literal = list;
    int const last = static_cast<int>(list.size()) - 1 - origin;
    mg_pointQuickSort(sorted.data() + origin, -origin, last);
    literalSort(literal.data() + origin, -origin, last);
    ASSERT_EQ(std::memcmp(sorted.data(), literal.data(), list.size() * sizeof(mgPoint_c)), 0);
}

} // namespace

TEST(PointSort, AgreesWithItsStepsOnTies) {
    support::Random random;
    for (int round = 0; round < 12000; ++round) {
        // Steps of 0.7 tolerances: "equal" is not transitive here.
        double const step = round % 3 == 0 ? 7e-9 : 1.0;
        List list;
        for (int i = random.below(60); i >= 0; --i) {
            list.emplace_back(random.below(5) * step, random.below(3) * step,
                              random.below(50) * 1e-9);
        }
        int const origin = random.below(static_cast<int>(list.size()));
        ASSERT_NO_FATAL_FAILURE(CheckAgainstTheSteps(list, origin));
    }
}

TEST(PointSort, AgreesWithItsStepsOnManyPoints) {
    support::Random random;
    auto const check = [](auto point) {
        List list;
        for (int i = 0; i < 3000; ++i) list.push_back(point());
        ASSERT_NO_FATAL_FAILURE(CheckAgainstTheSteps(list, 1));
    };
    auto const wide = [&random] { return random.uniform(-1e3, 1e3); };
    auto const tied = [&random](int values, double step) { return random.below(values) * step; };
    for (int round = 0; round < 20; ++round) {
        check([&] { return mgPoint_c(wide(), wide(), wide()); });
        // Equal in x, in x and y, and altogether, to the bit.
        check([&] { return mgPoint_c(tied(50, 1.0), wide(), wide()); });
        check([&] { return mgPoint_c(tied(9, 1.0), tied(9, 1.0), tied(9, 1.0)); });
        // Equal within tolerance: all of a run, neighbours in a run alone, and 0 with -0.
        check([&] { return mgPoint_c(tied(50, 1.0) + tied(2, 9e-9), wide(), wide()); });
        check([&] { return mgPoint_c(tied(50, 1.0) + tied(3, 9e-9), tied(50, 1.0), wide()); });
        check([&] { return mgPoint_c(tied(9, 1.0), tied(9, 1.0), tied(9, 1.0) + tied(2, 1e-9)); });
        check([&] { return mgPoint_c(tied(9, 1.0), tied(9, 1.0), tied(2, -1.0) * 0.0); });
        check([&] { return mgPoint_c(5.0, wide(), random.below(3000) == 0 ? NAN : wide()); });
    }
}

TEST(PointSort, AgreesWithItsStepsOnHostileAndScatteredPoints) {
    support::Random random;
    for (int round = 0; round < 500; ++round) {
        List list;
        for (int i = 0; i < 200; ++i) {
            list.emplace_back(random.hostile(), random.hostile(), random.hostile());
        }
        ASSERT_NO_FATAL_FAILURE(CheckAgainstTheSteps(list));
        for (mgPoint_c &p : list) p = random.triple<mgPoint_c>(-1.0, 1.0);
        ASSERT_NO_FATAL_FAILURE(CheckAgainstTheSteps(list));
    }
}

TEST(PointSort, SortsOnlyTheRangeAndRefusesAnEmptyOne) {
    List const list{{9, 0, 0}, {3, 0, 0}, {2, 0, 0}, {1, 0, 0}, {0, 0, 0}};
    for (auto const sort : {mg_pointQuickSort, mg_pointSelectionSort}) {
        List range = list;
        sort(range.data(), 1, 3);
        EXPECT_EQ(range[0].x(), 9);
        EXPECT_EQ(range[1].x(), 1);
        EXPECT_EQ(range[3].x(), 3);
        EXPECT_EQ(range[4].x(), 0);
        List untouched = list;
        sort(untouched.data(), 3, 3);
        sort(untouched.data(), 3, 1);
        sort(untouched.data(), 0, -1);
        EXPECT_EQ(std::memcmp(untouched.data(), list.data(), list.size() * sizeof(mgPoint_c)), 0);
    }
}

TEST(PointSort, KeepsItsRecursionShallowOnOneSidedInput) {
    // Every median of three is the second least: a recursion into the longer side would be deep.
    int const n = 20000;
    List list;
    for (int i = 0; i < n; ++i) list.emplace_back(i % 2 == 0 ? i : n - i, 0.0, 0.0);
    mg_pointQuickSort(list.data(), 0, n - 1);
    for (std::size_t i = 1; i < list.size(); ++i)
        ASSERT_FALSE(list[i].isLessThan(list[i - 1], -1.0));
}
