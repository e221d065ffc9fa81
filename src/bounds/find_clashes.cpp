// SPDX-License-Identifier: MIT
// All clashes of many boxes. A tree of boxes in floats finds the pairs that may clash; the test of
// two boxes decides about them; sorting gives them the order of the loop. So neither the tree nor
// the instructions used have an influence on the result.

#include <vexmath/bulk.h>

#include "box_offsets.h"
#include "clash_bounds.h"
#include "pair_store.h"
#include "placed_verdict.h"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace {

using namespace vexmath::detail;

using Pairs = suDynamicArray<mgIndexPair_c>;

/// The test of each form, for indices of two boxes.
struct LooseTest {
    bool clashes(int i, int j) const { return a[i].clash(&b[j], tol) != 0; }

    mgBBox_c const *a, *b; ///< the same for one array
    double tol;
};

struct PlacedTest {
    bool clashes(int i, int j) const {
        return mgBBox_c::clash(boxes[i], placements[i], boxes[j], placements[j]) != 0;
    }

    mgBBox_c const *boxes;
    mgXform_c const *placements;
};

int exhausted(Pairs &pairs) {
    pairs.Adopt(nullptr);
    return -1;
}

// Loops, for few boxes.

template <class Test>
int loopOverPairs(Test const &test, int count, Pairs &pairs) {
    PairStore store;
    for (int i = 0; i < count; ++i)
        for (int j = i + 1; j < count; ++j)
            if (test.clashes(i, j) && !store.add(i, j)) return exhausted(pairs);
    return store.moveTo(pairs, count);
}

int loopOverBoth(LooseTest const &test, int countA, int countB, Pairs &pairs) {
    PairStore store;
    for (int i = 0; i < countA; ++i)
        for (int j = 0; j < countB; ++j)
            if (test.clashes(i, j) && !store.add(i, j)) return exhausted(pairs);
    return store.moveTo(pairs, countA);
}

/// For fewer boxes the loop is faster.
constexpr int kFewBoxes = 45;
constexpr std::int64_t kFewPairs = kFewBoxes * (kFewBoxes - 1) / 2;

// Boxes that are not placed.

/// Added to the index of a box that is plain; see DeepClash.
constexpr std::uint32_t kPlain = std::uint32_t{1} << 31;

int indexOf(std::uint32_t label) { return static_cast<int>(label & ~kPlain); }

/// Which boxes clash for certain, because their common part is deep.
///
/// A box is plain when its sphere holds its corners, but for 1e-09 of the radius, and is no larger
/// than twice the half diagonal. Let the common part of two plain boxes be wider than d on every
/// axis, and p its middle. On an axis p is at least d / 2 from both ends of a box, so at most
/// f - d / 2 from the sphere's centre when f is the distance of the farther end. Then
/// (f - d / 2)^2 <= f^2 - f d / 2, as f >= d / 2, and the sum of three shows that p is nearer to
/// the centre than the farthest corner by d / 4 or more. That is inside the sphere when d / 4 is
/// above 1e-09 of the radius. So both spheres reach the common part and each other, and it is not a
/// point. With tol >= 0 that is a clash.
///
/// reach is the largest coordinate of a plain box in floats. Rounding to floats and their
/// subtraction err by less than 2.4e-07 reach, the sums with tol by 1e-15 of the coordinates
/// themselves. The depth exceeds these by more than 7e-07 reach, and the radius is at most 4 reach.
class DeepClash {
public:
    DeepClash(FloatFrame const &frame, double tol) : frame_(frame), tol_(tol) {}

    std::uint32_t mark(mgBBox_c const &box, Enclosure const &bounds) {
        if (!isPlain(box)) return 0;
        for (int i = 0; i < 3; ++i)
            reach_ = std::max({reach_, std::fabs(bounds.low[i]), std::fabs(bounds.high[i])});
        return kPlain;
    }

    /// Least depth in floats of a certain clash of plain boxes; strict.
    float depth() const {
        constexpr double kContact = 2e-08; // twice the tolerance for a common part that is a point
        constexpr double kOfReach = 1e-06;
        constexpr double kRounding = 1e-15;
        double const reach = reach_;
        double const size = reach + sumOfOrigin() + tol_;
        double const least = tol_ + kContact + kOfReach * reach + kRounding * size;
        return std::nextafter(static_cast<float>(least), std::numeric_limits<float>::infinity());
    }

private:
    double sumOfOrigin() const {
        return std::fabs(frame_.origin[0]) + std::fabs(frame_.origin[1])
               + std::fabs(frame_.origin[2]);
    }

    bool isPlain(mgBBox_c const &box) const {
        constexpr double kSlack = 1.0 + 2e-09; // of the squared radius
        constexpr double kMost = 1e30;         // of lengths, so that no square overflows
        double const r = box.sphRadius();
        if (!(r < kMost && tol_ >= 0.0 && tol_ < kMost)) return false;
        mgPoint_c const low = box.low(), high = box.high();
        double const farthestSq = farthestOffset(box.sphCenter(), low, high).sqlen();
        return farthestSq <= r * r * kSlack && r * r <= (high - low).sqlen();
    }

    FloatFrame frame_;
    double tol_;
    float reach_ = 0.0f;
};

FloatFrame frameOfBoxes(mgBBox_c const *boxes, int count) {
    return frameOf(count, [boxes](int i, int axis) { return boxes[i].center()[axis]; });
}

/// Builds the tree of the boxes that may clash with any.
bool build(mgBBox_c const *boxes, int count, double tol, FloatFrame const &frame, DeepClash &deep,
           BoxTree &tree) {
    std::unique_ptr<Enclosure[]> const entries(new (std::nothrow)
                                                   Enclosure[static_cast<std::size_t>(count)]);
    if (!entries) return false;
    int kept = 0;
    for (int i = 0; i < count; ++i) {
        Enclosure &entry = entries[kept];
        if (!enclose(boxes[i], tol, frame, entry)) continue;
        entry.label = static_cast<std::uint32_t>(i) | deep.mark(boxes[i], entry);
        ++kept;
    }
    return tree.build(entries.get(), kept);
}

int findLoose(LooseTest const &test, int count, Pairs &pairs) {
    FloatFrame const frame = frameOfBoxes(test.a, count);
    DeepClash deep(frame, test.tol);
    BoxTree tree;
    if (!build(test.a, count, test.tol, frame, deep, tree)) return exhausted(pairs);
    PairStore store;
    bool const done = tree.findPairs(deep.depth(), [&](int p, int q, bool isDeep) {
        std::uint32_t const a = tree.label(p), b = tree.label(q);
        auto const [i, j] = std::minmax({indexOf(a), indexOf(b)});
        bool const isCertain = isDeep && (a & b & kPlain) != 0;
        return !(isCertain || test.clashes(i, j)) || store.add(i, j);
    });
    return done ? store.moveTo(pairs, count) : exhausted(pairs);
}

int findBetween(LooseTest const &test, int countA, int countB, Pairs &pairs) {
    FloatFrame const frame =
        countA > countB ? frameOfBoxes(test.a, countA) : frameOfBoxes(test.b, countB);
    DeepClash deep(frame, test.tol);
    BoxTree treeA, treeB;
    if (!build(test.a, countA, test.tol, frame, deep, treeA)
        || !build(test.b, countB, test.tol, frame, deep, treeB))
        return exhausted(pairs);
    PairStore store;
    bool const done = treeA.findPairs(treeB, deep.depth(), [&](int p, int q, bool isDeep) {
        std::uint32_t const a = treeA.label(p), b = treeB.label(q);
        bool const isCertain = isDeep && (a & b & kPlain) != 0;
        return !(isCertain || test.clashes(indexOf(a), indexOf(b)))
               || store.add(indexOf(a), indexOf(b));
    });
    return done ? store.moveTo(pairs, countA) : exhausted(pairs);
}

// Placed boxes.

/// What decides most pairs of placed boxes that meet in the tree: the bounds in floats, as there,
/// and the sphere.
struct PlacedLimits {
    float low[3], high[3];
    double centre[3], radius;
    bool isAligned;
};

PlacedLimits limitsOf(PlacedBounds const &bounds, FloatFrame const &frame) {
    PlacedLimits limits = {};
    for (int i = 0; i < 3; ++i) {
        limits.low[i] = frame.toFloat(bounds.low[i], i);
        limits.high[i] = frame.toFloat(bounds.high[i], i);
        limits.centre[i] = bounds.centre[i];
    }
    limits.radius = bounds.radius;
    limits.isAligned = bounds.isAligned;
    return limits;
}

bool mayClash(PlacedLimits const &a, PlacedLimits const &b) {
    double distanceSq = 0.0;
    for (int i = 0; i < 3; ++i) {
        double const d = a.centre[i] - b.centre[i];
        distanceSq += d * d;
    }
    double const reach = a.radius + b.radius;
    if (distanceSq > reach * reach) return false;
    if (!a.isAligned && !b.isAligned) return true;
    for (int i = 0; i < 3; ++i)
        if (!(a.low[i] <= b.high[i] && b.low[i] <= a.high[i])) return false;
    return true;
}

/// The bounds of an aligned box, else the cube around the sphere.
Enclosure entryOf(PlacedBounds const &bounds, FloatFrame const &frame) {
    Enclosure entry = {};
    for (int i = 0; i < 3; ++i) {
        double const low = bounds.isAligned ? bounds.low[i] : bounds.centre[i] - bounds.radius;
        double const high = bounds.isAligned ? bounds.high[i] : bounds.centre[i] + bounds.radius;
        entry.low[i] = frame.toFloat(low, i);
        entry.high[i] = frame.toFloat(high, i);
    }
    return entry;
}

/// The boxes that may clash with any. All is in the order of their tree, so that what a pair needs
/// is near in memory.
struct PlacedTree {
    /// False when memory is exhausted.
    bool build(PlacedTest const &test, int count);
    int indexAt(int position) const { return static_cast<int>(tree.label(position)); }

    BoxTree tree;
    std::unique_ptr<PlacedLimits[]> limits;
    std::vector<PlacedBox> boxes;
};

bool PlacedTree::build(PlacedTest const &test, int count) {
    constexpr int kAhead = 8; // while so many boxes are prepared, memory answers
    auto const size = static_cast<std::size_t>(count);
    std::unique_ptr<Enclosure[]> entries(new (std::nothrow) Enclosure[size]);
    std::unique_ptr<PlacedLimits[]> const unsorted(new (std::nothrow) PlacedLimits[size]);
    limits.reset(new (std::nothrow) PlacedLimits[size]);
    if (!entries || !unsorted || !limits) return false;
    FloatFrame const frame = frameOf(count, [&test](int i, int axis) {
        return PlacedBounds(test.boxes[i], test.placements[i]).centre[axis];
    });
    int kept = 0;
    for (int i = 0; i < count; ++i) {
        if (!test.boxes[i].isSet()) continue;
        PlacedBounds const bounds(test.boxes[i], test.placements[i]);
        if (bounds.isEmpty()) continue;
        unsorted[i] = limitsOf(bounds, frame);
        entries[kept] = entryOf(bounds, frame);
        entries[kept++].label = static_cast<std::uint32_t>(i);
    }
    if (!tree.build(entries.get(), kept)) return false;
    entries.reset();
    try {
        boxes.reserve(static_cast<std::size_t>(kept));
    } catch (std::bad_alloc const &) {
        return false;
    }
    for (int p = 0; p < kept; ++p) {
        int const i = indexAt(p), later = indexAt(std::min(p + kAhead, kept - 1));
        startLoading(test.boxes[later]);
        startLoading(test.placements[later]);
        startLoading(unsorted[later]);
        limits[p] = unsorted[i];
        boxes.push_back(prepare(test.boxes[i], test.placements[i]));
    }
    return true;
}

/// Pairs on their way to the test. Each waits until some others have come, while memory answers.
class PlacedQueue {
public:
    PlacedQueue(PlacedTest const &test, PlacedTree const &all) : test_(test), all_(all) {}

    /// Takes the pair at two positions. False when memory is exhausted.
    bool take(int p, int q, PairStore &store) {
        startLoading(all_.boxes[static_cast<std::size_t>(q)]);
        startLoading(test_.placements[all_.indexAt(q)]);
        Waiting &place = waiting_[taken_ % kLength];
        bool const done = taken_ < kLength || addIfClash(place, store);
        place = {p, q};
        ++taken_;
        return done;
    }

    bool finish(PairStore &store) {
        std::size_t const left = std::min(taken_, kLength);
        for (std::size_t k = 0; k < left; ++k)
            if (!addIfClash(waiting_[(taken_ - left + k) % kLength], store)) return false;
        return true;
    }

private:
    struct Waiting {
        int p, q;
    };

    bool addIfClash(Waiting pair, PairStore &store) const {
        auto [p, q] = pair;
        if (all_.indexAt(p) > all_.indexAt(q)) std::swap(p, q);
        return !clash(all_.boxes[static_cast<std::size_t>(p)],
                      all_.boxes[static_cast<std::size_t>(q)])
               || store.add(all_.indexAt(p), all_.indexAt(q));
    }

    static constexpr std::size_t kLength = 16;
    PlacedTest const &test_;
    PlacedTree const &all_;
    Waiting waiting_[kLength];
    std::size_t taken_ = 0;
};

int findPlaced(PlacedTest const &test, int count, Pairs &pairs) {
    constexpr float kNever = std::numeric_limits<float>::infinity();
    PlacedTree all;
    if (!all.build(test, count)) return exhausted(pairs);
    PairStore store;
    PlacedQueue queue(test, all);
    bool const done = all.tree.findPairs(kNever, [&](int p, int q, bool) {
        return !mayClash(all.limits[p], all.limits[q]) || queue.take(p, q, store);
    });
    return done && queue.finish(store) ? store.moveTo(pairs, count) : exhausted(pairs);
}

} // namespace

int mg_FindClashes(mgBBox_c const *boxes, int count, double tol, Pairs &pairs) {
    LooseTest const test = {boxes, boxes, tol};
    return count < kFewBoxes ? loopOverPairs(test, count, pairs) : findLoose(test, count, pairs);
}

int mg_FindClashes(mgBBox_c const *boxes, mgXform_c const *placements, int count, Pairs &pairs) {
    PlacedTest const test = {boxes, placements};
    return count < kFewBoxes ? loopOverPairs(test, count, pairs) : findPlaced(test, count, pairs);
}

int mg_FindClashes(mgBBox_c const *a, int countA, mgBBox_c const *b, int countB, double tol,
                   Pairs &pairs) {
    /// Building the tree of a box takes as long as testing it against this many.
    constexpr int kFewOthers = 8;
    LooseTest const test = {a, b, tol};
    std::int64_t const all = std::int64_t{std::max(countA, 0)} * std::max(countB, 0);
    bool const areFew = all < kFewPairs || std::min(countA, countB) < kFewOthers;
    return areFew ? loopOverBoth(test, countA, countB, pairs)
                  : findBetween(test, countA, countB, pairs);
}
