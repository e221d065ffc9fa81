// SPDX-License-Identifier: MIT
// All clashes of many boxes. A tree of boxes in floats finds the pairs that may clash; the test of
// two boxes decides about them; sorting gives them the order of the loop. So neither the tree nor
// the instructions used have an influence on the result.

#include <vexmath/bulk.h>

#include "clash_bounds.h"
#include "clash_loop.h"
#include "deep_clash.h"

#include <algorithm>
#include <utility>

namespace {

using namespace vexmath::detail;

using Pairs = suDynamicArray<mgIndexPair_c>;

/// Added to the index of a plain box: the bit that no index has.
constexpr std::uint32_t kPlain = 0x80000000u;

int indexOf(std::uint32_t label) { return static_cast<int>(label & ~kPlain); }

/// A search in one array or in two, with what the trees of both share.
class Search {
public:
    Search(mgBBox_c const *boxes, int count, double tol)
        : frame_(frameOf(count, [boxes](int i, int k) { return boxes[i].center()[k]; })),
          tol_(tol) {}

    /// Builds the tree of the boxes that may clash with any. False when memory is exhausted.
    bool build(mgBBox_c const *boxes, int count, BoxTree &tree);

    /// Least depth in floats of a certain clash of plain boxes, after building; strict.
    float depth() const;

    /// Stores a pair of boxes that meet, when they clash. False when memory is exhausted.
    bool addIfClash(mgBBox_c const *a, std::uint32_t i, mgBBox_c const *b, std::uint32_t j,
                    bool isDeep, PairStore &store) const {
        bool const isCertain = isDeep && (i & j & kPlain) != 0;
        bool const clashes = isCertain || a[indexOf(i)].clash(&b[indexOf(j)], tol_) != 0;
        return !clashes || store.add(indexOf(i), indexOf(j));
    }

private:
    FloatFrame frame_;
    double tol_;
    FloatDepth floats_;
};

bool Search::build(mgBBox_c const *boxes, int count, BoxTree &tree) {
    constexpr double kMostTol = 1e30; // strict
    bool const mayBePlain = tol_ >= 0.0 && tol_ < kMostTol;
    Block<Enclosure> entries(count);
    if (!entries) return false;
    int kept = 0;
    for (int i = 0; i < count; ++i) {
        Enclosure &entry = entries[kept];
        if (!enclose(boxes[i], tol_, frame_, entry)) continue;
        entry.label = static_cast<std::uint32_t>(i);
        if (mayBePlain && isPlain(boxes[i])) {
            entry.label |= kPlain;
            floats_.add(entry);
        }
        ++kept;
    }
    return tree.build(entries.get(), kept);
}

float Search::depth() const {
    /// Twice the tolerance within which a common part is a point.
    constexpr double kContact = 2e-08;
    /// Of the coordinates themselves, for the rounding of the sums with tol.
    constexpr double kRounding = 1e-15;
    double size = floats_.reach() + tol_;
    for (double const coordinate : frame_.origin) size += std::fabs(coordinate);
    return floats_.of(tol_ + kContact + kRounding * size);
}

int findInOne(mgBBox_c const *boxes, int count, double tol, Pairs &pairs) {
    Search search(boxes, count, tol);
    BoxTree tree;
    if (!search.build(boxes, count, tree)) return PairStore::giveUp(pairs);
    PairStore store;
    bool const done = tree.findPairs(search.depth(), [&](int p, int q, bool isDeep) {
        std::uint32_t i = tree.label(p), j = tree.label(q);
        if (indexOf(i) > indexOf(j)) std::swap(i, j);
        return search.addIfClash(boxes, i, boxes, j, isDeep, store);
    });
    return done ? store.moveTo(pairs, count) : PairStore::giveUp(pairs);
}

int findInTwo(mgBBox_c const *a, int countA, mgBBox_c const *b, int countB, double tol,
              Pairs &pairs) {
    Search search(countA > countB ? a : b, std::max(countA, countB), tol);
    BoxTree treeA, treeB;
    if (!search.build(a, countA, treeA) || !search.build(b, countB, treeB))
        return PairStore::giveUp(pairs);
    PairStore store;
    bool const done = treeA.findPairs(treeB, search.depth(), [&](int p, int q, bool isDeep) {
        return search.addIfClash(a, treeA.label(p), b, treeB.label(q), isDeep, store);
    });
    return done ? store.moveTo(pairs, countA) : PairStore::giveUp(pairs);
}

} // namespace

int mg_FindClashes(mgBBox_c const *boxes, int count, double tol, Pairs &pairs) {
    if (count >= kFewBoxes) return findInOne(boxes, count, tol, pairs);
    auto const test = [=](int i, int j) { return boxes[i].clash(&boxes[j], tol) != 0; };
    return findByLoop(count, count, true, test, pairs);
}

int mg_FindClashes(mgBBox_c const *a, int countA, mgBBox_c const *b, int countB, double tol,
                   Pairs &pairs) {
    /// Building the tree of a box takes as long as testing it against this many.
    constexpr int kFewOthers = 8;
    constexpr std::int64_t kFewPairs = kFewBoxes * (kFewBoxes - 1) / 2;
    std::int64_t const all = std::int64_t{std::max(countA, 0)} * std::max(countB, 0);
    if (all >= kFewPairs && std::min(countA, countB) >= kFewOthers)
        return findInTwo(a, countA, b, countB, tol, pairs);
    auto const test = [=](int i, int j) { return a[i].clash(&b[j], tol) != 0; };
    return findByLoop(countA, countB, false, test, pairs);
}
