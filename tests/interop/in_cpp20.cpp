// SPDX-License-Identifier: MIT
// Tests of interop/span.h, of lists as ranges, and of std::format where the standard library has
// it.

#include <vexmath/format.h>
#include <vexmath/interop/span.h>

#include <ranges>

#include "common/geometry.h"

namespace {

static_assert(std::ranges::contiguous_range<suDynamicArray<P>>);
static_assert(std::ranges::sized_range<suDynamicArray<P> const>);

} // namespace

TEST(InteropSpan, ListsAreRanges) {
    suDynamicArray<int> list;
    EXPECT_TRUE(std::ranges::empty(list));
    for (int const i : {5, 3, 8}) list.Add(i);
    std::ranges::sort(list);
    for (int &i : list) ++i;
    suDynamicArray<int> const &constant = list;
    EXPECT_EQ((std::vector{4, 6, 9}), std::vector(std::begin(constant), std::end(constant)));
    EXPECT_EQ(3u, std::size(constant));
    EXPECT_EQ(9, std::span(constant).back());
    EXPECT_EQ(list.Data(), std::data(list));
}

TEST(InteropSpan, PointsAreDoublesWithoutACopy) {
    suDynamicArray<P> list;
    list.Add(P(1, 2, 3));
    list.Add(P(4, 5, 6));
    std::span<double> const numbers = vexmath::asDoubles(std::span(list));
    ASSERT_EQ(6u, numbers.size());
    numbers[4] = 7.0;
    EXPECT_BITS_EQ(P(4, 7, 6), list[1]);
    U const directions[] = {{0, 0, 1}};
    std::span<double const> const constant = vexmath::asDoubles(std::span(directions));
    EXPECT_EQ(1.0, constant[2]);

    std::vector<double> eight{1, 2, 3, 4, 5, 6, 7, 8};
    std::span<P> const points = vexmath::asPoints(std::span(eight));
    ASSERT_EQ(2u, points.size());
    points[0] += V(10, 0, 0);
    EXPECT_EQ(11.0, eight[0]);
    EXPECT_TRUE(vexmath::asPoints(std::span<double const>()).empty());
}

#ifdef __cpp_lib_format
TEST(Format, StandardFormatGivesTheSameText) {
    P const p(1, -2.34567, 1000);
    EXPECT_EQ("(1, -2.34567, 1000)", std::format("{}", p));
    EXPECT_EQ("(   1.00,   -2.35, 1000.00)", std::format("{:7.2f}", p));
    EXPECT_EQ("(   1.00,   -2.35, 1000.00)", std::format("{:{}.{}f}", p, 7, 2));
    EXPECT_EQ("no direction", std::format("{}", U()));
    EXPECT_EQ("scale 2, translation (1, 2, 3)", std::format("{}", raw({}, V(1, 2, 3), 2.0)));
#ifdef __cpp_lib_format_ranges
    suDynamicArray<P> list;
    list.Add(p);
    EXPECT_EQ("[(1, -2.34567, 1000)]", std::format("{}", list));
#endif
}
#endif
