// SPDX-License-Identifier: MIT
// What the tests of the tessellators share.

#ifndef VEXMATH_TESTS_TESSELLATION_POLYLINE_H
#define VEXMATH_TESTS_TESSELLATION_POLYLINE_H

#include "common/arrays.h"

namespace common {

using Polyline = std::vector<P>;

/// The points that call(outArray, count, list) returns, checked in both kinds of output.
template <class Call>
Polyline outputOf(Call call) {
    P *array = nullptr;
    int count = -1, listed = -2;
    call(&array, count, nullptr);
    suDynamicArray<P> list;
    list.Add({7, 8, 9});
    call(nullptr, listed, &list);
    EXPECT_EQ(count, listed);
    EXPECT_EQ(count > 0, array != nullptr);
    if (array == nullptr) {
        EXPECT_EQ(count, 0);
        EXPECT_EQ(list.Count(), 1);
        return {};
    }
    Polyline const points(array, array + count + 1);
    delete[] array;
    P const *const end = list.Data() + list.Count();
    EXPECT_BITS_EQ(points, Polyline(end - count - 1, end));
    return points;
}

inline int segmentsOf(Polyline const &points) { return std::max(0, int(points.size()) - 1); }

inline parabolaEdgeData placed(parabolaEdgeData const &conic, mgXform_c const &x) {
    V const normal = V(conic.normal[0], conic.normal[1], conic.normal[2]) * x;
    return {conic.vertex * x, conic.focus * x, {},
            conic.start * x,  conic.end * x,   {normal.x(), normal.y(), normal.z()}};
}

/// Compares each point with at(share), where the shares are equally spaced from 0 to 1.
template <class At>
void CheckNear(Polyline const &points, double bound, At at, Caller = {}) {
    double const n = segmentsOf(points);
    for (std::size_t i = 0; i < points.size(); ++i)
        ASSERT_LT(dist(points[i], at(static_cast<double>(i) / n)), bound) << i;
}

} // namespace common

#endif
