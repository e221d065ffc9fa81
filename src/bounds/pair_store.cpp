// SPDX-License-Identifier: MIT
// Collecting and sorting pairs of indices.

#include "pair_store.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <new>
#include <utility>

template class suDynamicArray<mgIndexPair_c>;

namespace vexmath::detail {

namespace {

constexpr std::size_t kMostPairs = std::numeric_limits<std::int32_t>::max();

struct Before {
    bool operator()(mgIndexPair_c const &a, mgIndexPair_c const &b) const {
        return a.first != b.first ? a.first < b.first : a.second < b.second;
    }
};

/// Replaces the number of elements in each bin by the place of the first one. Behind the last bin
/// stands the place behind the last element.
void toPlaces(std::uint32_t *counts, std::size_t bins) {
    std::uint32_t place = 0;
    for (std::size_t i = 0; i <= bins; ++i) place += std::exchange(counts[i], place);
}

} // namespace

bool PairStore::addBlock() {
    std::size_t const held = count();
    std::size_t const size = std::min(std::size_t{kFew} << (blockCount_ + 1), kMostPairs - held);
    if (size == 0) return false;
    mgIndexPair_c *const block = new (std::nothrow) mgIndexPair_c[size];
    if (!block) return false;
    blocks_[blockCount_++].reset(block);
    next_ = block;
    end_ = block + size;
    return true;
}

std::size_t PairStore::count() const {
    // All blocks but the last are full: together kFew * (2^blockCount - 1).
    mgIndexPair_c const *const last = blockCount_ == 0 ? few_ : blocks_[blockCount_ - 1].get();
    std::size_t const before = std::size_t{kFew} * ((std::size_t{1} << blockCount_) - 1);
    return before + static_cast<std::size_t>(next_ - last);
}

/// Calls `use(begin, end)` for each block.
template <class Use>
void PairStore::useBlocks(Use const &use) {
    for (int b = 0; b <= blockCount_; ++b) {
        mgIndexPair_c const *const begin = b == 0 ? few_ : blocks_[b - 1].get();
        use(begin, b == blockCount_ ? next_ : begin + (std::size_t{kFew} << b));
    }
}

void PairStore::sortFew(mgIndexPair_c *sorted) {
    mgIndexPair_c *end = sorted;
    useBlocks([&](auto const *first, auto const *last) { end = std::copy(first, last, end); });
    if (!std::is_sorted(sorted, end, Before())) std::sort(sorted, end, Before());
}

/// Counts twice: the upper bits of first choose one of at most 1024 bins, each of which fits into
/// the cache, and the lower bits a place in it. What is left are short runs of one first. Returns
/// false when memory is exhausted.
bool PairStore::sortMany(mgIndexPair_c *sorted, int firsts) {
    constexpr std::size_t kBins = 1024;
    unsigned lowerBits = 8;
    while (static_cast<std::size_t>(firsts - 1) >> lowerBits >= kBins) ++lowerBits;
    std::size_t const width = std::size_t{1} << lowerBits;
    auto const binOf = [lowerBits](mgIndexPair_c const &p) {
        return static_cast<std::uint32_t>(p.first) >> lowerBits;
    };

    std::uint32_t bins[kBins + 1] = {};
    useBlocks([&](auto const *first, auto const *last) {
        for (; first != last; ++first) ++bins[binOf(*first)];
    });
    std::uint32_t const most = *std::max_element(bins, bins + kBins);
    std::unique_ptr<mgIndexPair_c[]> const spare(new (std::nothrow) mgIndexPair_c[most]);
    std::unique_ptr<std::uint32_t[]> const places(new (std::nothrow) std::uint32_t[width + 1]);
    if (!spare || !places) return false;
    toPlaces(bins, kBins);
    std::uint32_t next[kBins];
    std::copy(bins, bins + kBins, next);
    useBlocks([&](auto const *first, auto const *last) {
        for (; first != last; ++first) sorted[next[binOf(*first)]++] = *first;
    });

    for (std::size_t bin = 0; bin < kBins; ++bin) {
        mgIndexPair_c *const begin = sorted + bins[bin];
        mgIndexPair_c const *const end = std::copy(begin, sorted + bins[bin + 1], spare.get());
        if (end == spare.get()) continue;
        std::fill_n(places.get(), width + 1, 0u);
        auto const placeOf = [&](mgIndexPair_c const &p) -> std::uint32_t & {
            return places[static_cast<std::uint32_t>(p.first) & (width - 1)];
        };
        for (auto const *p = spare.get(); p != end; ++p) ++placeOf(*p);
        toPlaces(places.get(), width);
        for (auto const *p = spare.get(); p != end; ++p) begin[placeOf(*p)++] = *p;
        for (std::size_t i = 0, first = 0; i < width; first = places[i++]) // now ends of the runs
            std::sort(begin + first, begin + places[i], Before());
    }
    return true;
}

int PairStore::moveTo(suDynamicArray<mgIndexPair_c> &pairs, int firsts) {
    constexpr int kGrowStep = 16; // as of an array that grows by itself
    constexpr int kLinearGrowth = 1;
    constexpr std::size_t kManyPairs = 2000;
    pairs.Adopt(nullptr);
    std::size_t const n = count();
    if (n == 0) return 0;
    auto *const sorted = static_cast<mgIndexPair_c *>(suDynArrayAllocSpecial(
        static_cast<int>(n), kGrowStep, kLinearGrowth, static_cast<int>(sizeof(mgIndexPair_c))));
    if (!sorted) return -1;
    if (n < kManyPairs) {
        sortFew(sorted);
    } else if (!sortMany(sorted, firsts)) {
        amDynamicArrayFree(sorted);
        return -1;
    }
    pairs.Adopt(sorted);
    return static_cast<int>(n);
}

} // namespace vexmath::detail
