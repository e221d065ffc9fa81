// SPDX-License-Identifier: MIT
// A tree of boxes in floats that finds those that may meet. It compares closed intervals of floats
// and knows nothing of the boxes behind them: the exact test is its user's.
//
// The user rounds the coordinates of both sides of a comparison to float by one map that does not
// decrease, such as FloatFrame. Then low <= high in doubles implies low <= high in floats, so that
// nothing is missed.
//
// The entries are sorted along a Hilbert curve, the large ones behind the small ones, and stand in
// groups of eight. Level 0 has the entries; a lane of level k + 1 has the bounds of a group of
// level k. The top level is one group. So the parent of group g is lane g % 8 of group g / 8 above.

#ifndef VEXMATH_SRC_BOUNDS_BOX_TREE_H
#define VEXMATH_SRC_BOUNDS_BOX_TREE_H

#include "block.h"
#include "eight_boxes.h"

#include <algorithm>
#include <cmath>

namespace vexmath::detail {

/// Begins to load an object from memory.
template <class T>
void startLoading([[maybe_unused]] T const &object) {
#if defined(__GNUC__)
    constexpr std::size_t kLine = 64;
    auto const *const bytes = reinterpret_cast<char const *>(&object);
    for (std::size_t at = 0; at < sizeof object; at += kLine) __builtin_prefetch(bytes + at);
    __builtin_prefetch(bytes + sizeof object - 1); // it may end in another line
#endif
}

/// Doubles as floats. A difference of doubles and its rounding do not decrease when the double
/// grows. REQUIRES a finite origin.
struct FloatFrame {
    float toFloat(double coordinate, int axis) const {
        return static_cast<float>(coordinate - origin[axis]);
    }
    double origin[3] = {0.0, 0.0, 0.0};
};

/// The median of the middles of some of `count` things, as origin. `middle(i, axis)` may be NaN or
/// infinite.
template <class Middle>
FloatFrame frameOf(int count, Middle const &middle);

class BoxTree {
public:
    /// Replaces what the tree holds. An entry with NaN on all axes keeps its place and meets
    /// nothing. Returns false when memory is exhausted; the tree is then empty. REQUIRES low <=
    /// high of all others; infinite ones are allowed.
    bool build(Enclosure const *entries, int count);

    /// Entries are at the positions 0 to count() - 1. Near ones have near positions: data that are
    /// read for pairs are best kept in this order.
    int count() const { return count_; }
    std::uint32_t label(int position) const { return labels_[position]; }
    /// Replaces the entry at a position, all but its label, and the bounds of the groups above it.
    void replace(int position, Enclosure const &entry);

    /// Calls `found(position)` for every entry that passes `meets(boxes)`, which returns a bit for
    /// each lane of an EightBoxes: 1 where a box meets what is searched, and perhaps where it does
    /// not, and 0 where a lane holds NaN. A box that is met must be met by every larger one.
    /// `[&](EightBoxes const &boxes) { return whichMeet(boxes, box); }` finds what meets a box.
    /// Stops when found returns false, and then returns false.
    template <class Meets, class Found>
    bool visit(Meets const &meets, Found const &found) const;

    /// Calls `found(position, position, isDeep)` once for every two entries that meet. isDeep: is
    /// the common part wider than `depth` on every axis? It is never wider than infinity. Stops
    /// when found returns false, and then returns false.
    template <class Found>
    bool findPairs(float depth, Found const &found) const;
    /// The same for all pairs of an entry of this tree, given first, and one of the other.
    template <class Found>
    bool findPairs(BoxTree const &other, float depth, Found const &found) const;

private:
    static constexpr int kMostLevels = 12; // 8^11 is above the largest count

    int groupsAt(int level) const { return begins_[level + 1] - begins_[level]; }
    EightBoxes const &group(int level, int g) const { return groups_[begins_[level] + g]; }

    bool allocate(int count);
    void fillEntries(Enclosure const *entries, std::uint64_t const *order);
    void fillBounds();
    void setLane(int level, int position, Enclosure const &box);

    template <class Meets, class Found>
    bool visitGroups(int level, int const *groups, int count, Meets const &meets,
                     Found const &found) const;
    template <class Meets, class Leaf>
    bool visitLeaves(Meets const &meets, int from, Leaf const &leaf) const;
    template <class Meets, class Leaf>
    bool descend(int level, int g, Meets const &meets, int from, Leaf const &leaf) const;
    Enclosure collectBlock(int firstGroup, BoxList &block) const;
    template <class Found>
    bool findPairsOfBlock(int firstGroup, BoxTree const &other, float depth,
                          Found const &found) const;

    Block<EightBoxes> groups_; ///< of all levels, from the entries up
    Block<std::uint32_t> labels_;
    int begins_[kMostLevels + 1] = {}; ///< first group of each level
    int levels_ = 0;
    int count_ = 0;
};

// -------------------------------------------------------------------------------------------------

/// The k-th index of a sample of `count` things. Successive ones are spread by the golden ratio, so
/// that things in regular rows give no biased sample.
inline int sampleIndex(int k, int count) {
    constexpr std::uint32_t kGolden = 0x9e3779b9u;
    std::uint64_t const fraction = static_cast<std::uint32_t>(k) * kGolden;
    return static_cast<int>(fraction * static_cast<std::uint64_t>(count) >> 32);
}

template <class Middle>
FloatFrame frameOf(int count, Middle const &middle) {
    constexpr int kSample = 63;
    FloatFrame frame;
    for (int axis = 0; axis < 3; ++axis) {
        double sample[kSample];
        int size = 0;
        for (int k = 0; k < std::min(kSample, count); ++k) {
            double const m = middle(sampleIndex(k, count), axis);
            if (std::isfinite(m)) sample[size++] = m;
        }
        if (size == 0) continue;
        std::nth_element(sample, sample + size / 2, sample + size);
        frame.origin[axis] = sample[size / 2];
    }
    return frame;
}

/// Calls `leaf(g)` for the groups of entries, from number `from` on, with bounds that pass `meets`.
template <class Meets, class Leaf>
bool BoxTree::visitLeaves(Meets const &meets, int from, Leaf const &leaf) const {
    return levels_ == 0 || descend(levels_ - 1, 0, meets, from, leaf);
}

template <class Meets, class Leaf>
bool BoxTree::descend(int level, int g, Meets const &meets, int from, Leaf const &leaf) const {
    int const firstChild = std::max(0, (from >> 3 * (level - 1)) - 8 * g);
    if (firstChild > 7) return true;
    unsigned which = meets(group(level, g)) & ~0u << firstChild;
    for (int k = 0; level == 1 && which >> k != 0; ++k)
        if ((which >> k & 1) != 0) startLoading(group(0, 8 * g + k));
    for (int child = 8 * g; which != 0; which >>= 1, ++child) {
        if ((which & 1) == 0) continue;
        if (!(level == 1 ? leaf(child) : descend(level - 1, child, meets, from, leaf)))
            return false;
    }
    return true;
}

/// Goes down level by level with as many groups as there is room for: few loops end at a place that
/// cannot be predicted.
template <class Meets, class Found>
bool BoxTree::visitGroups(int level, int const *groups, int count, Meets const &meets,
                          Found const &found) const {
    constexpr int kMost = 64;
    int met[kMost + 8]; // groups of the level below, or entries
    int size = 0;
    for (int k = 0; k < count; ++k) {
        unsigned const which = meets(group(level, groups[k]));
        for (int lane = 0; lane < 8; ++lane) {
            met[size] = 8 * groups[k] + lane;
            size += static_cast<int>(which >> lane & 1);
        }
        if (size <= kMost - 8 && k + 1 < count) continue;
        for (int i = 0; level > 0 && i < size; ++i) startLoading(group(level - 1, met[i]));
        if (level > 0 && size > 0 && !visitGroups(level - 1, met, size, meets, found)) return false;
        for (int i = 0; level == 0 && i < size; ++i)
            if (!found(met[i])) return false;
        size = 0;
    }
    return true;
}

template <class Meets, class Found>
bool BoxTree::visit(Meets const &meets, Found const &found) const {
    constexpr int kTop = 0;
    return levels_ == 0 || visitGroups(levels_ - 1, &kTop, 1, meets, found);
}

/// Tests the first `own` boxes of a list against the others in it. With `amongOwn` also against
/// each other, each two once.
template <class Found>
bool findPairsInList(BoxList &list, int own, bool amongOwn, float depth, Found const &found) {
    BoxList nearby; // of eight boxes
    std::uint32_t indices[BoxList::kMost + 8];
    list.close();
    for (int first = 0; first < own; first += 8) {
        int const end = std::min(first + 8, own);
        nearby.clear();
        appendMeeting(list, amongOwn ? first : own, unionOf(list, first, end), nearby);
        nearby.close();
        // With amongOwn the list begins with the eight boxes themselves: they meet their union.
        for (int k = first; k < end; ++k) {
            int const begin = amongOwn ? k - first + 1 : 0;
            int const n = findMeeting(nearby, begin, list[k], depth, indices);
            for (int i = 0; i < n; ++i) {
                bool const isDeep = (indices[i] & kDeep) != 0;
                int const other = nearby.position[indices[i] & ~kDeep];
                if (!found(list.position[k], other, isDeep)) return false;
            }
        }
    }
    return true;
}

/// The pairs of the entries of eight groups with those of the other tree. In the same tree, with
/// each other and with the entries behind them.
template <class Found>
bool BoxTree::findPairsOfBlock(int firstGroup, BoxTree const &other, float depth,
                               Found const &found) const {
    BoxList list;
    Enclosure const bounds = collectBlock(firstGroup, list);
    int const own = list.count;
    bool amongOwn = this == &other;
    bool const goesOn =
        other.visitLeaves([&](EightBoxes const &boxes) { return whichMeet(boxes, bounds); },
                          amongOwn ? firstGroup + 8 : 0,
                          [&](int g) {
                              if (!list.hasRoom()) {
                                  if (!findPairsInList(list, own, amongOwn, depth, found))
                                      return false;
                                  amongOwn = false;
                                  list.count = own;
                              }
                              appendMeeting(other.group(0, g), 8 * g, bounds, list);
                              return true;
                          });
    return goesOn && findPairsInList(list, own, amongOwn, depth, found);
}

template <class Found>
bool BoxTree::findPairs(BoxTree const &other, float depth, Found const &found) const {
    for (int g = 0; 8 * std::int64_t{g} < count_; g += 8)
        if (!findPairsOfBlock(g, other, depth, found)) return false;
    return true;
}

template <class Found>
bool BoxTree::findPairs(float depth, Found const &found) const {
    return findPairs(*this, depth, found);
}

} // namespace vexmath::detail

#endif
