// SPDX-License-Identifier: MIT
// All clashes of many placed boxes, found as those of boxes in one frame are.

#include <vexmath/bulk.h>

#include "clash_bounds.h"
#include "clash_loop.h"
#include "deep_clash.h"
#include "placed_verdict.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <vector>

namespace {

using namespace vexmath::detail;

/// What decides most pairs of placed boxes that meet in the tree: the bounds in floats, as there,
/// and the sphere.
struct PlacedLimits {
    float low[3], high[3];
    double centre[3], radius;
    double scale;
    bool isAligned;
    bool isPlain; ///< and aligned
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
    double const x = a.centre[0] - b.centre[0];
    double const y = a.centre[1] - b.centre[1];
    double const z = a.centre[2] - b.centre[2];
    double const reach = a.radius + b.radius;
    if (x * x + y * y + z * z > reach * reach) return false;
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

using Pairs = suDynamicArray<mgIndexPair_c>;

/// The boxes that may clash with any, in the order of their tree, so that what a pair needs is near
/// in memory.
class PlacedTree {
public:
    PlacedTree(mgBBox_c const *boxes, mgXform_c const *placements)
        : boxes_(boxes), placements_(placements) {}

    /// False when memory is exhausted.
    bool build(int count);
    /// Stores the pairs that clash. False when memory is exhausted.
    bool findPairs(PairStore &store);

private:
    /// A pair on its way to the test. It waits until others have come, while memory answers.
    struct Waiting {
        int p, q;
    };
    static constexpr std::uint64_t kQueue = 16;

    int indexAt(int position) const { return static_cast<int>(tree_.label(position)); }
    bool add(int i, FloatFrame const &frame, PlacedLimits &limits, Enclosure &entry);
    bool addIfClash(Waiting pair, PairStore &store);
    void startLoadingBox(int position) const;
    PlacedBox const &prepared(int position);

    mgBBox_c const *boxes_;
    mgXform_c const *placements_;
    BoxTree tree_;
    Block<PlacedLimits> limits_;
    std::vector<PlacedBox> prepared_; ///< in the order of their first test; never reallocated
    Block<int> slots_;                ///< there, or -1, by position
    FloatDepth floats_;
    double margin_ = 0.0; ///< the largest of plain boxes
};

/// False when the box clashes with nothing.
bool PlacedTree::add(int i, FloatFrame const &frame, PlacedLimits &limits, Enclosure &entry) {
    if (!boxes_[i].isSet()) return false;
    PlacedBounds const bounds(boxes_[i], placements_[i]);
    if (bounds.isEmpty()) return false;
    limits = limitsOf(bounds, frame);
    entry = entryOf(bounds, frame);
    entry.label = static_cast<std::uint32_t>(i);
    limits.scale = placements_[i].scaling();
    limits.isPlain = bounds.isAligned && isPlain(boxes_[i]);
    if (limits.isPlain) {
        floats_.add(entry);
        margin_ = std::max(margin_, bounds.margin);
    }
    return true;
}

bool PlacedTree::build(int count) {
    Block<Enclosure> entries(count);
    Block<PlacedLimits> unsorted(count);
    limits_ = Block<PlacedLimits>(count);
    slots_ = Block<int>(count);
    if (!entries || !unsorted || !limits_ || !slots_) return false;
    FloatFrame const frame = frameOf(count, [this](int i, int axis) {
        return PlacedBounds(boxes_[i], placements_[i]).centre[axis];
    });
    int kept = 0;
    for (int i = 0; i < count; ++i)
        if (add(i, frame, unsorted[i], entries[kept])) ++kept;
    if (!tree_.build(entries.get(), kept)) return false;
    for (int p = 0; p < kept; ++p) {
        constexpr int kAhead = 16;
        startLoading(unsorted[indexAt(std::min(p + kAhead, kept - 1))]);
        limits_[p] = unsorted[indexAt(p)];
        slots_[p] = -1;
    }
    try {
        prepared_.reserve(static_cast<std::size_t>(kept));
    } catch (std::exception const &) { // bad_alloc, or length_error for a size out of range
        return false;
    }
    return true;
}

/// Two plain boxes whose frames have the same axes and scale: what holds of plain boxes holds here,
/// in the common frame. Each bound lies a margin outside, and the sum of the margins of two boxes
/// is more than twice the error of anything that the test computes of them. So a part that is
/// deeper than eight margins is deeper than four for the test, and d / 4 is above its errors.
bool clashForCertain(PlacedLimits const &a, PlacedLimits const &b, bool isDeep) {
    return isDeep && a.isPlain && b.isPlain && a.scale == b.scale;
}

PlacedBox const &PlacedTree::prepared(int position) {
    int &slot = slots_[position];
    if (slot < 0) {
        int const i = indexAt(position);
        slot = static_cast<int>(prepared_.size());
        prepared_.push_back(prepare(boxes_[i], placements_[i]));
    }
    return prepared_[static_cast<std::size_t>(slot)];
}

void PlacedTree::startLoadingBox(int position) const {
    int const slot = slots_[position], i = indexAt(position);
    startLoading(placements_[i]);
    if (slot < 0) {
        startLoading(boxes_[i]);
    } else {
        startLoading(prepared_[static_cast<std::size_t>(slot)]);
    }
}

bool PlacedTree::addIfClash(Waiting pair, PairStore &store) {
    int const i = indexAt(pair.p), j = indexAt(pair.q);
    PlacedBox const &a = prepared(pair.p), &b = prepared(pair.q);
    return i < j ? !clash(a, b) || store.add(i, j) : !clash(b, a) || store.add(j, i);
}

bool PlacedTree::findPairs(PairStore &store) {
    Waiting queue[kQueue];
    std::uint64_t taken = 0; // more than 2^32 pairs may meet
    float const depth = floats_.of(8.0 * margin_);
    bool const done = tree_.findPairs(depth, [&](int p, int q, bool isDeep) {
        if (clashForCertain(limits_[p], limits_[q], isDeep)) {
            auto const [i, j] = std::minmax({indexAt(p), indexAt(q)});
            return store.add(i, j);
        }
        if (!mayClash(limits_[p], limits_[q])) return true;
        startLoadingBox(p);
        startLoadingBox(q);
        Waiting &place = queue[taken++ % kQueue];
        if (taken > kQueue && !addIfClash(place, store)) return false;
        place = {p, q};
        return true;
    });
    std::uint64_t const left = std::min(taken, kQueue);
    for (std::uint64_t k = 0; done && k < left; ++k)
        if (!addIfClash(queue[k], store)) return false;
    return done;
}

} // namespace

int mg_FindClashes(mgBBox_c const *boxes, mgXform_c const *placements, int count, Pairs &pairs) {
    if (count < kFewPlacedBoxes) {
        return findByLoop(
            count, count, true,
            [=](int i, int j) {
                return mgBBox_c::clash(boxes[i], placements[i], boxes[j], placements[j]) != 0;
            },
            pairs);
    }
    PlacedTree tree(boxes, placements);
    PairStore store;
    if (!tree.build(count) || !tree.findPairs(store)) return PairStore::giveUp(pairs);
    return store.moveTo(pairs, count);
}
