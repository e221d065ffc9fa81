// SPDX-License-Identifier: MIT
// The index of boxes. A tree of boxes in floats finds those that may pass a test; the test itself
// decides; sorting gives them the order of the loop. So the tree has no influence on an answer.

#include <vexmath/box_index.h>
#include <vexmath/xform.h>

#include "box_parts.h"
#include "clash_bounds.h"
#include "near_line.h"
#include "pair_store.h"
#include "placed_verdict.h"
#include "transform/xform_parts.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <utility>

namespace {

using namespace vexmath::detail;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Sets all fields, without the copy rules. False when memory for the record is exhausted; `to` is
/// then unchanged.
bool copyExactly(mgXform_c const &from, mgXform_c &to) {
    try {
        to.iCopyPerspectiveInfo(from);
    } catch (std::bad_alloc const &) {
        return false;
    }
    XformParts::rotation(to) = from.rotation();
    XformParts::translation(to) = from.translation();
    XformParts::scale(to) = from.scaling();
    XformParts::reflection(to) = from.isReflection();
    return true;
}

/// Indices, collected in any order.
class IndexStore {
public:
    /// False when memory is exhausted.
    bool add(int i) {
        if (count_ == capacity_ && !grow()) return false;
        indices_[count_++] = i;
        return true;
    }

    /// Replaces what the list holds by the sorted indices. Returns their number, or -1, with the
    /// list empty, when memory is exhausted.
    int moveTo(suDynamicArray<int> &list) {
        constexpr int kGrowStep = 16; // as of an array that grows by itself
        constexpr int kLinearGrowth = 1;
        list.Adopt(nullptr);
        if (count_ == 0) return 0;
        auto *const sorted = static_cast<int *>(suDynArrayAllocSpecial(
            count_, kGrowStep, kLinearGrowth, static_cast<int>(sizeof(int))));
        if (!sorted) return -1;
        std::sort(indices_, indices_ + count_);
        std::copy(indices_, indices_ + count_, sorted);
        list.Adopt(sorted);
        return count_;
    }

private:
    bool grow() {
        int const larger = capacity_ > std::numeric_limits<int>::max() / 2
                               ? std::numeric_limits<int>::max()
                               : 2 * capacity_;
        std::unique_ptr<int[]> more(new (std::nothrow) int[static_cast<std::size_t>(larger)]);
        if (!more) return false;
        std::copy(indices_, indices_ + count_, more.get());
        many_ = std::move(more);
        indices_ = many_.get();
        capacity_ = larger;
        return true;
    }

    static constexpr int kFew = 256;
    int few_[kFew];
    std::unique_ptr<int[]> many_; ///< when there are more
    int *indices_ = few_;
    int count_ = 0, capacity_ = kFew;
};

int exhausted(suDynamicArray<int> &list) {
    list.Adopt(nullptr);
    return -1;
}

int exhausted(suDynamicArray<mgIndexPair_c> &pairs) {
    pairs.Adopt(nullptr);
    return -1;
}

template <class T>
int none(suDynamicArray<T> &list) {
    list.Adopt(nullptr);
    return 0;
}

/// From low to high in floats; NaN leaves that side open.
void setInterval(double low, double high, FloatFrame const &frame, int axis, Enclosure &to) {
    to.low[axis] = frame.toFloat(std::isnan(low) ? -kInfinity : low, axis);
    to.high[axis] = frame.toFloat(std::isnan(high) ? kInfinity : high, axis);
}

/// More than the sums of two numbers below lose by rounding.
double lossOf(double a, double b) {
    constexpr double kRounding = 1e-15;
    return kRounding * (std::fabs(a) + std::fabs(b));
}

/// What meets every entry of a box that clashes with `box`, which must be set, within tol. By what
/// `enclose` says, low <= fl(high + tol) must hold both ways.
Enclosure aroundBox(mgBBox_c const &box, double tol, FloatFrame const &frame) {
    BoxParts const parts(box);
    Enclosure sought = {};
    for (int i = 0; i < 3; ++i)
        setInterval(parts.low[i] - tol - lossOf(parts.low[i], tol), parts.high[i] + tol, frame, i,
                    sought);
    return sought;
}

/// What meets every entry of a box that contains p within tol. That excludes a box where
/// fl(low - p) > tol or fl(p - high) > tol.
Enclosure aroundPoint(mgPoint_c const &p, double tol, FloatFrame const &frame) {
    Enclosure sought = {};
    for (int i = 0; i < 3; ++i)
        setInterval(p[i] - tol - lossOf(p[i], tol), p[i] + tol + lossOf(p[i], tol), frame, i,
                    sought);
    return sought;
}

/// The corners of a box, whichever is higher.
Enclosure aroundCorners(mgBBox_c const &box, FloatFrame const &frame) {
    BoxParts const parts(box);
    Enclosure entry = {};
    for (int i = 0; i < 3; ++i) {
        double const low = parts.low[i], high = parts.high[i];
        if (low <= high) {
            entry.low[i] = frame.toFloat(low, i);
            entry.high[i] = frame.toFloat(high, i);
        } else { // also NaN
            bool const isInverted = high < low;
            setInterval(isInverted ? high : kNaN, isInverted ? low : kNaN, frame, i, entry);
        }
    }
    return entry;
}

/// The entry of a placed box that is set. It meets that of every box that it clashes with, and
/// holds the box's enclosure in the common frame, also where that is inverted: it is clipped to the
/// cube around the sphere.
Enclosure aroundPlaced(PlacedBounds const &bounds, FloatFrame const &frame) {
    bool const isCube = !bounds.isAligned || bounds.isEmpty();
    Enclosure entry = {};
    for (int i = 0; i < 3; ++i)
        setInterval(isCube ? bounds.centre[i] - bounds.radius : bounds.low[i],
                    isCube ? bounds.centre[i] + bounds.radius : bounds.high[i], frame, i, entry);
    return entry;
}

} // namespace

/// The boxes are kept in the order of the tree, by their positions: near ones are near in memory.
struct vexmath::detail::BoxIndexData {
    /// False when memory is exhausted.
    bool build(mgBBox_c const *sourceBoxes, mgXform_c const *sourcePlacements, int sourceCount);

    int indexAt(int position) const { return static_cast<int>(tree.label(position)); }
    int positionOf(int index) const { return positions.get()[index]; }
    mgBBox_c &boxAt(int position) const { return boxes.get()[position]; }
    mgXform_c &placementAt(int position) const { return placements.get()[position]; }

    /// The result of a test of the box at a position, as it is in the common frame.
    template <class Test>
    auto test(int position, Test const &ofBox) const {
        mgBBox_c const &box = boxAt(position);
        return placements ? ofBox(mgBBox_c(box) *= placementAt(position)) : ofBox(box);
    }

    /// Do the boxes at two positions clash? The one of the lower index must come first.
    bool clashes(int a, int b, double tol) const {
        if (!placements) return boxAt(a).clash(&boxAt(b), tol) != 0;
        return mgBBox_c::clash(boxAt(a), placementAt(a), boxAt(b), placementAt(b)) != 0;
    }

    Enclosure entryOf(mgBBox_c const &box, mgXform_c const *placement) const;
    Enclosure entryAt(int position) const {
        return entryOf(boxAt(position), placements ? &placementAt(position) : nullptr);
    }
    void updateEntry(int position) { tree.replace(position, entryAt(position)); }

    /// Calls `use(position)` for each box with an entry that passes `meets`, until it returns
    /// false. Returns false then. Boxes are used some entries after they are found, when they have
    /// arrived in the cache.
    template <class Meets, class Use>
    bool search(Meets const &meets, Use const &use) const;
    template <class Use>
    bool search(Enclosure const &sought, Use const &use) const {
        return search([&](EightBoxes const &eight) { return whichMeet(eight, sought); }, use);
    }

    /// Replaces the list by the boxes that `search` finds and that pass the test.
    template <class Sought, class Test>
    int list(Sought const &sought, Test const &ofBox, suDynamicArray<int> &which) const;
    /// The same from all boxes.
    template <class Test>
    int listFromAll(Test const &ofBox, suDynamicArray<int> &which) const;

    int findClashes(double tol, suDynamicArray<mgIndexPair_c> &pairs) const;
    int findPlacedClashes(suDynamicArray<mgIndexPair_c> &pairs) const;

    /// Releases boxes that were not made by an array's new, which would set them first.
    struct Release {
        void operator()(mgBBox_c *block) const { ::operator delete(block); }
    };

    int count = 0; ///< first: debuggers read it there, see debugger/
    FloatFrame frame;
    BoxTree tree;                               ///< one entry for each box, with its index as label
    std::unique_ptr<int[]> positions;           ///< by index
    std::unique_ptr<mgBBox_c[], Release> boxes; ///< as given
    std::unique_ptr<mgXform_c[]> placements;    ///< as given; null when the boxes are not placed
};

Enclosure BoxIndexData::entryOf(mgBBox_c const &box, mgXform_c const *placement) const {
    if (placement == nullptr) return aroundCorners(box, frame);
    if (box.isSet()) return aroundPlaced(PlacedBounds(box, *placement), frame);
    return aroundCorners(mgBBox_c(box) *= *placement, frame);
}

bool BoxIndexData::build(mgBBox_c const *sourceBoxes, mgXform_c const *sourcePlacements,
                         int sourceCount) {
    auto const size = static_cast<std::size_t>(sourceCount);
    count = sourceCount;
    boxes.reset(static_cast<mgBBox_c *>(::operator new(size * sizeof(mgBBox_c), std::nothrow)));
    positions.reset(new (std::nothrow) int[size]);
    if (sourcePlacements) placements.reset(new (std::nothrow) mgXform_c[size]);
    std::unique_ptr<Enclosure[]> entries(new (std::nothrow) Enclosure[size]);
    if (!boxes || !positions || !entries || (sourcePlacements && !placements)) return false;

    frame = frameOf(count, [&](int i, int axis) {
        if (sourcePlacements) return PlacedBounds(sourceBoxes[i], sourcePlacements[i]).centre[axis];
        BoxParts const parts(sourceBoxes[i]);
        return 0.5 * parts.low[axis] + 0.5 * parts.high[axis];
    });
    for (int i = 0; i < count; ++i) {
        Enclosure &entry = entries.get()[i];
        entry = entryOf(sourceBoxes[i], sourcePlacements ? sourcePlacements + i : nullptr);
        entry.label = static_cast<std::uint32_t>(i);
    }
    if (!tree.build(entries.get(), count)) return false;

    constexpr int kAhead = 16; // reads from places in no order
    for (int k = 0; k < count; ++k) {
        startLoading(sourceBoxes[indexAt(std::min(k + kAhead, count - 1))]);
        int const i = indexAt(k);
        positions.get()[i] = k;
        ::new (&boxAt(k)) mgBBox_c(sourceBoxes[i]);
        if (placements && !copyExactly(sourcePlacements[i], placementAt(k))) return false;
    }
    return true;
}

template <class Meets, class Use>
bool BoxIndexData::search(Meets const &meets, Use const &use) const {
    constexpr int kMost = 16;
    int waiting[kMost];
    int n = 0;
    auto const useAll = [&] {
        for (int k = 0; k < n; ++k)
            if (!use(waiting[k])) return false;
        n = 0;
        return true;
    };
    bool const done = tree.visit(meets, [&](int position) {
        startLoading(boxAt(position));
        waiting[n++] = position;
        return n < kMost || useAll();
    });
    return done && useAll();
}

template <class Sought, class Test>
int BoxIndexData::list(Sought const &sought, Test const &ofBox, suDynamicArray<int> &which) const {
    IndexStore store;
    bool const done =
        search(sought, [&](int k) { return !test(k, ofBox) || store.add(indexAt(k)); });
    return done ? store.moveTo(which) : exhausted(which);
}

template <class Test>
int BoxIndexData::listFromAll(Test const &ofBox, suDynamicArray<int> &which) const {
    IndexStore store;
    for (int k = 0; k < count; ++k)
        if (test(k, ofBox) && !store.add(indexAt(k))) return exhausted(which);
    return store.moveTo(which);
}

int BoxIndexData::findClashes(double tol, suDynamicArray<mgIndexPair_c> &pairs) const {
    // Of positions, which have another order: this test gives the same for a and b as for b and a.
    suDynamicArray<mgIndexPair_c> found;
    if (mg_FindClashes(boxes.get(), count, tol, found) < 0) return exhausted(pairs);
    PairStore store;
    for (int k = 0; k < found.Count(); ++k) {
        int const i = indexAt(found[k].first), j = indexAt(found[k].second);
        if (!store.add(std::min(i, j), std::max(i, j))) return exhausted(pairs);
    }
    return store.moveTo(pairs, count);
}

int BoxIndexData::findPlacedClashes(suDynamicArray<mgIndexPair_c> &pairs) const {
    constexpr float kNever = std::numeric_limits<float>::infinity();
    Block<PlacedBox> prepared(count);
    if (!prepared) return exhausted(pairs);
    for (int k = 0; k < count; ++k) prepared[k] = prepare(boxAt(k), placementAt(k));
    PairStore store;
    bool const done = tree.findPairs(kNever, [&](int a, int b, bool) {
        if (indexAt(b) < indexAt(a)) std::swap(a, b); // the test depends on the order
        return !clash(prepared[a], prepared[b]) || store.add(indexAt(a), indexAt(b));
    });
    return done ? store.moveTo(pairs, count) : exhausted(pairs);
}

mgBoxIndex_c::mgBoxIndex_c(mgBoxIndex_c &&source) noexcept
    : data_(std::exchange(source.data_, nullptr)) {}

mgBoxIndex_c &mgBoxIndex_c::operator=(mgBoxIndex_c &&source) noexcept {
    BoxIndexData *const taken = std::exchange(source.data_, nullptr);
    delete std::exchange(data_, taken);
    return *this;
}

mgBoxIndex_c::~mgBoxIndex_c() { delete data_; }

int mgBoxIndex_c::build(mgBBox_c const *boxes, mgXform_c const *placements, int count) {
    delete std::exchange(data_, nullptr);
    if (count <= 0) return 1;
    std::unique_ptr<BoxIndexData> made(new (std::nothrow) BoxIndexData);
    if (!made || !made->build(boxes, placements, count)) return 0;
    data_ = made.release();
    return 1;
}

namespace {

bool has(BoxIndexData const *data, int i) { return data != nullptr && i >= 0 && i < data->count; }

} // namespace

void mgBoxIndex_c::move(int i, mgBBox_c const &box) {
    if (!has(data_, i)) return;
    int const position = data_->positionOf(i);
    data_->boxAt(position) = box;
    data_->updateEntry(position);
}

void mgBoxIndex_c::place(int i, mgXform_c const &x) {
    if (!has(data_, i) || !data_->placements) return;
    int const position = data_->positionOf(i);
    if (copyExactly(x, data_->placementAt(position))) data_->updateEntry(position);
}

int mgBoxIndex_c::clashes(double tol, suDynamicArray<mgIndexPair_c> &pairs) const {
    if (data_ == nullptr) return none(pairs);
    return data_->placements ? data_->findPlacedClashes(pairs) : data_->findClashes(tol, pairs);
}

int mgBoxIndex_c::clashesOf(int const *some, int n, double tol,
                            suDynamicArray<mgIndexPair_c> &pairs) const {
    if (data_ == nullptr || n <= 0) return none(pairs);
    std::unique_ptr<int[]> const sorted(new (std::nothrow) int[static_cast<std::size_t>(n)]);
    if (!sorted) return exhausted(pairs);
    int *end = std::copy_if(some, some + n, sorted.get(), [this](int i) { return has(data_, i); });
    std::sort(sorted.get(), end);
    end = std::unique(sorted.get(), end);

    BoxIndexData const &data = *data_;
    PairStore store;
    for (int const *s = sorted.get(); s != end; ++s) {
        int const own = data.positionOf(*s);
        mgBBox_c const &box = data.boxAt(own);
        if (!box.isSet()) continue;
        auto const addIfNew = [&](int other) {
            if (other == own) return true;
            int const i = data.indexAt(other);
            bool const clashes =
                *s < i ? data.clashes(own, other, tol) : data.clashes(other, own, tol);
            bool const isKnown = clashes && std::binary_search<int const *>(sorted.get(), s, i);
            return !clashes || isKnown || store.add(std::min(i, *s), std::max(i, *s));
        };
        Enclosure const sought =
            data.placements ? data.entryAt(own) : aroundBox(box, tol, data.frame);
        if (!data.search(sought, addIfNew)) return exhausted(pairs);
    }
    return store.moveTo(pairs, data.count);
}

int mgBoxIndex_c::clashesWith(mgBBox_c const &box, double tol, suDynamicArray<int> &which) const {
    if (data_ == nullptr || !box.isSet()) return none(which);
    return data_->list(
        aroundBox(box, tol, data_->frame),
        [&](mgBBox_c const &own) { return own.clash(&box, tol) != 0; }, which);
}

int mgBoxIndex_c::around(mgPoint_c const &p, double tol, suDynamicArray<int> &which) const {
    if (data_ == nullptr) return none(which);
    return data_->list(
        aroundPoint(p, tol, data_->frame),
        [&](mgBBox_c const &own) { return own.containsPoint(p, tol) != 0; }, which);
}

int mgBoxIndex_c::onLine(mgPoint_c const &p, mgUnitVector_c const &dir,
                         suDynamicArray<int> &which) const {
    if (data_ == nullptr) return none(which);
    auto const isHit = [&](mgBBox_c const &own) { return own.isRayHit(p, dir) != 0; };
    if (!NearLine::isOrdinary(p, dir)) return data_->listFromAll(isHit, which);
    NearLine const line(p, dir, data_->frame);
    return data_->list([&](EightBoxes const &eight) { return whichMayMeet(eight, line); }, isHit,
                       which);
}

namespace {

/// The nearest hit so far.
struct FirstHit {
    /// Takes the hit of box i when it is nearer. True when it did.
    bool take(mgBBox_c const &box, int i, mgPoint_c const &p, mgUnitVector_c const &dir) {
        mgPoint_c point;
        if (!box.getFirstRayHit(p, dir, &point)) return false;
        double const length = (point - p).len();
        if (!(length < distance || (length == distance && i < index))) return false;
        index = i;
        distance = length;
        hit = point;
        return true;
    }

    int index = -1;
    double distance = kInfinity;
    mgPoint_c hit;
};

} // namespace

int mgBoxIndex_c::firstOnRay(mgPoint_c const &p, mgUnitVector_c const &dir, mgPoint_c *hit) const {
    /// No box is hit at this distance or beyond.
    constexpr double kFarthest = 1e32;
    if (data_ == nullptr) return -1;
    FirstHit first;
    auto const take = [&](int k) {
        return data_->test(
            k, [&](mgBBox_c const &box) { return first.take(box, data_->indexAt(k), p, dir); });
    };
    if (NearLine::isOrdinary(p, dir)) {
        NearLine ray(p, dir, data_->frame);
        ray.limit(kFarthest);
        data_->search([&](EightBoxes const &eight) { return whichMayMeet(eight, ray); },
                      [&](int k) {
                          if (take(k)) ray.limit(first.distance);
                          return true;
                      });
    } else {
        for (int k = 0; k < data_->count; ++k) take(k);
    }
    if (first.index >= 0) *hit = first.hit;
    return first.index;
}
