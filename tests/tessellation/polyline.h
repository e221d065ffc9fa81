// SPDX-License-Identifier: MIT
// What the tests of the tessellators share.

#ifndef VEXMATH_TESTS_TESSELLATION_POLYLINE_H
#define VEXMATH_TESTS_TESSELLATION_POLYLINE_H

#include "support/numbers.h"

#include <vexmath/edge_data.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>

#include <algorithm>
#include <vector>

namespace support {

using Polyline = std::vector<mgPoint_c>;

/// The points that call(outArray, count, list) hands out, after a look at both ways: the array is
/// filled without a list, or left alone; the list ends with the same points, or stays as it was.
template <class Call>
Polyline handedOut(Call call) {
    mgPoint_c *array = nullptr;
    int count = -1;
    call(&array, count, nullptr);
    suDynamicArray<mgPoint_c> list;
    list.Add({7, 8, 9});
    int listed = -1;
    call(nullptr, listed, &list);
    EXPECT_EQ(count, listed);
    EXPECT_GE(count, 0);
    EXPECT_EQ(count == 0, array == nullptr);
    if (array == nullptr) {
        EXPECT_EQ(list.Count(), 1);
        return {};
    }
    Polyline const points(array, array + count + 1);
    delete[] array;
    for (int i = 0; i <= count; ++i)
        EXPECT_BITS_EQ(points[static_cast<std::size_t>(i)], list[list.Count() - 1 - count + i]);
    return points;
}

inline int segmentsOf(Polyline const &points) { return std::max(0, int(points.size()) - 1); }

inline void expectSame(Polyline const &a, Polyline const &b) {
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) ASSERT_BITS_EQ(a[i], b[i]);
}

} // namespace support

#endif
