// SPDX-License-Identifier: MIT
// Collecting and sorting pairs of indices.

#include "pair_store.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

template class suDynamicArray<mgIndexPair_c>;

namespace vexmath::detail {

namespace {

constexpr std::int64_t kMostPairs = std::numeric_limits<std::int32_t>::max();

struct Before {
    bool operator()(mgIndexPair_c const &a, mgIndexPair_c const &b) const {
        return a.first != b.first ? a.first < b.first : a.second < b.second;
    }
};

/// Replaces the number of pairs in each bin by the place of the first one. The number behind the
/// last bin, 0 before, becomes the place behind the last pair.
void toPlaces(std::uint32_t *counts, std::ptrdiff_t bins) {
    std::uint32_t place = 0;
    for (std::ptrdiff_t i = 0; i <= bins; ++i) place += std::exchange(counts[i], place);
}

/// Sorts pairs whose firsts are equal but for the bits of `width - 1`. There is room for all in
/// spare, and for width + 1 numbers in places.
void sortBin(mgIndexPair_c *begin, mgIndexPair_c *end, std::ptrdiff_t width, mgIndexPair_c *spare,
             std::uint32_t *places) {
    std::fill_n(places, width + 1, 0u);
    auto const placeOf = [=](mgIndexPair_c const &p) -> std::uint32_t & {
        return places[p.first & (width - 1)];
    };
    mgIndexPair_c const *const spareEnd = std::copy(begin, end, spare);
    for (auto const *p = spare; p != spareEnd; ++p) ++placeOf(*p);
    toPlaces(places, width);
    for (auto const *p = spare; p != spareEnd; ++p) begin[placeOf(*p)++] = *p;
    mgIndexPair_c *run = begin; // of one first
    for (std::ptrdiff_t i = 0; i < width; ++i) {
        mgIndexPair_c *const runEnd = begin + places[i];
        std::sort(run, runEnd, Before());
        run = runEnd;
    }
}

} // namespace

bool PairStore::addBlock() {
    std::int64_t const held = count();
    std::int64_t const size = std::min(std::int64_t{kFew} << (blockCount_ + 1), kMostPairs - held);
    if (size == 0) return false;
    Block<mgIndexPair_c> &block = blocks_[blockCount_];
    block = Block<mgIndexPair_c>(static_cast<std::ptrdiff_t>(size));
    if (!block) return false;
    ++blockCount_;
    next_ = block.get();
    end_ = next_ + size;
    return true;
}

std::int64_t PairStore::count() const {
    // All blocks but the last are full: together kFew * (2^blockCount - 1).
    mgIndexPair_c const *const last = blockCount_ == 0 ? few_ : blocks_[blockCount_ - 1].get();
    return kFew * ((std::int64_t{1} << blockCount_) - 1) + (next_ - last);
}

/// Calls `use(begin, end)` for each block.
template <class Use>
void PairStore::useBlocks(Use const &use) const {
    for (int b = 0; b <= blockCount_; ++b) {
        mgIndexPair_c const *const begin = b == 0 ? few_ : blocks_[b - 1].get();
        use(begin, b == blockCount_ ? next_ : begin + (std::ptrdiff_t{kFew} << b));
    }
}

void PairStore::sortFew(mgIndexPair_c *sorted) const {
    mgIndexPair_c *end = sorted;
    useBlocks([&](auto const *first, auto const *last) { end = std::copy(first, last, end); });
    if (!std::is_sorted(sorted, end, Before())) std::sort(sorted, end, Before());
}

/// Counts twice: the upper bits of first choose one of at most 1024 bins, each of which fits into
/// the cache, and the lower bits a place in it. What is left are short runs of one first. Returns
/// false when memory is exhausted.
bool PairStore::sortMany(mgIndexPair_c *sorted, int firsts) const {
    constexpr int kBins = 1024;
    int lowerBits = 8;
    while ((firsts - 1) >> lowerBits >= kBins) ++lowerBits;
    std::ptrdiff_t const width = std::ptrdiff_t{1} << lowerBits;

    std::uint32_t bins[kBins + 1] = {};
    useBlocks([&](auto const *first, auto const *last) {
        for (; first != last; ++first) ++bins[first->first >> lowerBits];
    });
    auto const most = static_cast<std::ptrdiff_t>(*std::max_element(bins, bins + kBins));
    Block<mgIndexPair_c> spare(most);
    Block<std::uint32_t> places(width + 1);
    if (!spare || !places) return false;

    toPlaces(bins, kBins);
    std::uint32_t next[kBins];
    std::copy(bins, bins + kBins, next);
    useBlocks([&](auto const *first, auto const *last) {
        for (; first != last; ++first) sorted[next[first->first >> lowerBits]++] = *first;
    });
    for (int bin = 0; bin < kBins; ++bin)
        if (bins[bin] != bins[bin + 1])
            sortBin(sorted + bins[bin], sorted + bins[bin + 1], width, spare.get(), places.get());
    return true;
}

int PairStore::moveTo(suDynamicArray<mgIndexPair_c> &pairs, int firsts) {
    constexpr int kGrowStep = 16; // as of an array that grows by itself
    constexpr int kLinearGrowth = 1;
    constexpr int kManyPairs = 2000;
    pairs.Adopt(nullptr);
    auto const n = static_cast<int>(count());
    if (n == 0) return 0;
    auto *const sorted = static_cast<mgIndexPair_c *>(suDynArrayAllocSpecial(
        n, kGrowStep, kLinearGrowth, static_cast<int>(sizeof(mgIndexPair_c))));
    if (!sorted) return -1;
    if (n < kManyPairs) {
        sortFew(sorted);
    } else if (!sortMany(sorted, firsts)) {
        amDynamicArrayFree(sorted);
        return -1;
    }
    pairs.Adopt(sorted);
    return n;
}

} // namespace vexmath::detail
