// SPDX-License-Identifier: MIT
// What open and closed tours share.

#ifndef VEXMATH_SRC_QUERIES_TOUR_H
#define VEXMATH_SRC_QUERIES_TOUR_H

#include <vexmath/forward.h>

#include <vector>

namespace vexmath::detail {

/// No distance between two of the points can be infinite or NaN.
bool distancesAreFinite(mgPoint_c const *points, int n);

/// The closed tour of cheapest insertion, which starts as the last two points. Each step inserts
/// the point of the least detour; of equal detours that at the earlier edge of the tour, then that
/// of the point of the lower index. Throws std::bad_alloc. REQUIRES n >= 2 and finite distances.
std::vector<int> closedInsertionTour(mgPoint_c const *points, int n);

/// Fills `order` with 0 to n - 1 and replaces these by the path that `find` returns, if it returns
/// any and memory is not exhausted.
template <class Find>
void replaceOrder(suDynamicArray<int> &order, int n, Find const &find);

} // namespace vexmath::detail

// -------------------------------------------------------------------------------------------------

#include <vexmath/su_dynamic_array.h>

#include <algorithm>
#include <new>

template <class Find>
void vexmath::detail::replaceOrder(suDynamicArray<int> &order, int n, Find const &find) {
    amDynamicArrayResize(order.Data(), 0);
    order.elementsChanged(0, -1);
    for (int i = 0; i < n; ++i) order.Add(i);
    int *block = nullptr;
    try {
        std::vector<int> const path = find();
        if (!path.empty())
            block =
                static_cast<int *>(suDynArrayAllocSpecial(n, 1, 1, static_cast<int>(sizeof(int))));
        if (block) std::copy(path.begin(), path.end(), block);
    } catch (std::bad_alloc const &) {
        block = nullptr;
    }
    if (block) {
        order.Adopt(block);
    } else if (order.Count() != n) {
        order.Adopt(nullptr); // an index could not be added: none stays
    }
}

#endif
