// SPDX-License-Identifier: MIT
// The loop over all pairs of boxes, which is the fastest search among few.

#ifndef VEXMATH_SRC_BOUNDS_CLASH_LOOP_H
#define VEXMATH_SRC_BOUNDS_CLASH_LOOP_H

#include "pair_store.h"

namespace vexmath::detail {

/// For fewer boxes the loop is faster than a tree; the test of placed boxes takes longer.
inline constexpr int kFewBoxes = 64;
inline constexpr int kFewPlacedBoxes = 45;

/// Finds the pairs i < j, or all pairs of i < countA and j < countB, with `test(i, j)`.
template <class Test>
int findByLoop(int countA, int countB, bool isSameArray, Test const &test,
               suDynamicArray<mgIndexPair_c> &pairs) {
    PairStore store;
    for (int i = 0; i < countA; ++i)
        for (int j = isSameArray ? i + 1 : 0; j < countB; ++j)
            if (test(i, j) && !store.add(i, j)) return PairStore::giveUp(pairs);
    return store.moveTo(pairs, countA);
}

} // namespace vexmath::detail

#endif
