// SPDX-License-Identifier: MIT
// Pairs of indices, collected in any order and returned in that of a loop over all pairs.

#ifndef VEXMATH_SRC_BOUNDS_PAIR_STORE_H
#define VEXMATH_SRC_BOUNDS_PAIR_STORE_H

#include <vexmath/bulk.h>
#include <vexmath/su_dynamic_array.h>

#include "block.h"

#include <cstdint>

namespace vexmath::detail {

/// Collects pairs in blocks, each twice as large as the one before.
class PairStore {
public:
    // cppcheck-suppress uninitMemberVar // few_ is written before it is read
    PairStore() : next_(few_), end_(few_ + kFew) {}
    PairStore(PairStore const &) = delete;
    PairStore &operator=(PairStore const &) = delete;

    /// False when memory is exhausted or there are more pairs than an array holds.
    bool add(int first, int second) {
        if (next_ == end_ && !addBlock()) return false;
        *next_++ = {first, second};
        return true;
    }

    /// Replaces what `pairs` holds by the collected ones, sorted by first, then second, in an array
    /// of exactly their number. Returns that, or -1, with pairs empty, when memory is exhausted.
    /// REQUIRES 0 <= first < firsts of each pair, and no pair twice.
    int moveTo(suDynamicArray<mgIndexPair_c> &pairs, int firsts);

    /// The result of a search without memory: empties pairs and returns -1.
    static int giveUp(suDynamicArray<mgIndexPair_c> &pairs) {
        pairs.Adopt(nullptr);
        return -1;
    }

private:
    static constexpr int kFew = 256; // two stores fit on a small stack
    static constexpr int kMostBlocks = 23;

    bool addBlock();
    std::int64_t count() const;
    template <class Use>
    void useBlocks(Use const &use) const;
    void sortFew(mgIndexPair_c *sorted) const;
    bool sortMany(mgIndexPair_c *sorted, int firsts) const;

    mgIndexPair_c *next_, *end_;
    int blockCount_ = 0;
    Block<mgIndexPair_c> blocks_[kMostBlocks];
    mgIndexPair_c few_[kFew]; // the first block
};

} // namespace vexmath::detail

#endif
