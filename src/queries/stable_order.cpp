// SPDX-License-Identifier: MIT
// Sorts of order keys: radix sort of many, buckets for fewer.
// Methods: H. H. Seward, "Information sorting in the application of electronic digital computers to
// business operations", 1954 (counting sort by digits, lowest first); E. J. Isaac and
// R. C. Singleton, "Sorting by address calculation", 1956.

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

/// For fewer keys than this, buckets are faster than digits.
constexpr std::size_t kMany = 2000;

/// For fewer keys than this, comparing is faster than buckets.
constexpr std::size_t kFew = 20;

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

/// Sorts keys that are nearly in order: the time grows with the number of pairs that are not.
void sortByInsertion(OrderKey *first, OrderKey *last) {
    for (OrderKey *next = first + 1; next < last; ++next) {
        OrderKey const moved = *next;
        OrderKey *place = next;
        for (; place > first && moved.key < place[-1].key; --place) *place = place[-1];
        *place = moved;
    }
}

/// Buckets of equal width, as many as keys. The bucket never falls from one value to a higher one,
/// because each rounding keeps the order. The highest value is in the last: a relative error of a
/// few roundings does not reach the next whole number.
class Buckets {
public:
    explicit Buckets(std::vector<OrderKey> const &keys) {
        auto const ends =
            std::minmax_element(keys.begin(), keys.end(),
                                [](OrderKey const &a, OrderKey const &b) { return a.key < b.key; });
        low_ = valueOf(ends.first->key);
        perUnit_ = static_cast<double>(keys.size() - 1) / (valueOf(ends.second->key) - low_);
    }
    /// False when values are not finite, all the same, or too far apart or too close.
    bool areUsable() const { return perUnit_ > 0.0 && std::isfinite(perUnit_); }
    std::size_t operator()(OrderKey const &key) const {
        return static_cast<std::size_t>((valueOf(key.key) - low_) * perUnit_);
    }

private:
    double low_;
    double perUnit_;
};

/// Sorts fewer than kMany keys whose values spread over their range. False, with the keys as they
/// were, when they do not.
bool sortByBuckets(std::vector<OrderKey> &keys) {
    /// Pairs in the same bucket for each key; above this, comparing is faster.
    constexpr std::size_t kCrowded = 4;
    std::size_t const n = keys.size();
    Buckets const bucketOf(keys);
    if (!bucketOf.areUsable()) return false;

    std::array<std::uint16_t, kMany> bucket;
    std::array<std::uint16_t, kMany> counts;
    std::fill_n(counts.begin(), n, std::uint16_t{0});
    std::size_t pairs = 0;
    for (std::size_t i = 0; i < n; ++i) {
        bucket[i] = static_cast<std::uint16_t>(bucketOf(keys[i]));
        pairs += counts[bucket[i]]++;
    }
    if (pairs > kCrowded * n) return false;

    std::size_t place = 0;
    for (std::size_t i = 0; i < n; ++i) {
        std::size_t const next = place + counts[i];
        counts[i] = static_cast<std::uint16_t>(place);
        place = next;
    }
    std::vector<OrderKey> const given = keys;
    for (std::size_t i = 0; i < n; ++i) keys[counts[bucket[i]]++] = given[i];
    sortByInsertion(keys.data(), keys.data() + n);
    return true;
}

/// Sorts the runs of keys that agree in all digits.
void sortRuns(std::vector<OrderKey> &keys) {
    OrderKey *const last = keys.data() + keys.size();
    for (OrderKey *first = keys.data(); first != last;) {
        std::uint64_t const digits = first->key >> kLowBits;
        OrderKey *const end = std::find_if(
            first, last, [digits](OrderKey const &k) { return k.key >> kLowBits != digits; });
        if (end - first > 1) sortByComparison(first, end);
        first = end;
    }
}

} // namespace

void sortStably(std::vector<OrderKey> &keys) {
    if (keys.size() < kMany) {
        if (keys.size() >= kFew && sortByBuckets(keys)) return;
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
