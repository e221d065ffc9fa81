// SPDX-License-Identifier: MIT
// Radix sort of order keys.
// Method: H. H. Seward, "Information sorting in the application of electronic digital computers to
// business operations", 1954 (counting sort by digits, lowest first).

#include "stable_order.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <utility>

namespace vexmath::detail {

namespace {

constexpr std::size_t kDigitBits = 11; // 2048 counters fit in the first-level cache
constexpr std::size_t kDigits = 4;
constexpr std::size_t kDigitValues = std::size_t{1} << kDigitBits;

/// Lower bits, which are not counted: few keys agree in all other bits, and these are compared.
constexpr std::size_t kLowBits = 64 - kDigits * kDigitBits;

/// For fewer keys than this, comparing is faster than counting.
constexpr std::size_t kSmallest = 2000;

using Counts = std::array<std::size_t, kDigitValues>;

std::size_t digit(std::uint64_t key, std::size_t place) {
    return static_cast<std::size_t>(key >> (kLowBits + place * kDigitBits)) & (kDigitValues - 1);
}

/// Replaces the count of each digit by the place of the first key with that digit.
void toPlaces(Counts &counts) {
    std::size_t place = 0;
    for (std::size_t &count : counts) {
        std::size_t const next = place + count;
        count = place;
        place = next;
    }
}

void sortByComparison(OrderKey *first, OrderKey *last) {
    std::stable_sort(first, last,
                     [](OrderKey const &a, OrderKey const &b) { return a.key < b.key; });
}

/// Sorts the runs of keys that agree in all digits.
void sortRuns(std::vector<OrderKey> &keys) {
    std::size_t const n = keys.size();
    for (std::size_t i = 0; i < n;) {
        std::size_t end = i + 1;
        while (end < n && keys[end].key >> kLowBits == keys[i].key >> kLowBits) ++end;
        if (end - i > 1) sortByComparison(&keys[i], keys.data() + end);
        i = end;
    }
}

} // namespace

void sortStably(std::vector<OrderKey> &keys) {
    if (keys.size() < kSmallest) {
        sortByComparison(keys.data(), keys.data() + keys.size());
        return;
    }
    std::vector<Counts> counts(kDigits, Counts{});
    for (OrderKey const &k : keys) {
        for (std::size_t place = 0; place < kDigits; ++place) ++counts[place][digit(k.key, place)];
    }
    std::unique_ptr<OrderKey[]> const spare(new OrderKey[keys.size()]); // written before it is read
    OrderKey *from = keys.data();
    OrderKey *to = spare.get();
    for (std::size_t place = 0; place < kDigits; ++place) {
        Counts &places = counts[place];
        bool const allSame = places[digit(keys.front().key, place)] == keys.size();
        if (allSame) continue;
        toPlaces(places);
        for (std::size_t i = 0; i < keys.size(); ++i)
            to[places[digit(from[i].key, place)]++] = from[i];
        std::swap(from, to);
    }
    if (from != keys.data()) std::copy(from, from + keys.size(), keys.data());
    sortRuns(keys);
}

} // namespace vexmath::detail
