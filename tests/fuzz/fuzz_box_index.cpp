// SPDX-License-Identifier: MIT
// An index of boxes made of a few numbers: what it finds is what the loop finds, also after moves.

#include "numbers_from_bytes.h"

#include <vexmath/box_index.h>
#include <vexmath/xform.h>

#include <cstdlib>

namespace {

constexpr int kBoxes = 24; // three groups of the tree

mgBBox_c nextBox(NumbersFromBytes &in) {
    auto const low = in.triple<mgPoint_c>(), high = in.triple<mgPoint_c>();
    mgBBox_c box(low, high);
    double const r = in.next();
    if (r < 0.0) box.setSphereOnly(low, -r);
    if (r > 1e9) box.setCornersOnly(low, high);
    return box;
}

mgXform_c nextPlacement(NumbersFromBytes &in) {
    auto const z = in.triple<mgUnitVector_c>(), x = in.triple<mgUnitVector_c>();
    return {z, x, in.triple<mgVector_c>()};
}

/// Does the list hold the indices of the boxes that pass?
template <class Test>
void check(suDynamicArray<int> const &list, int found, Test const &test) {
    int k = 0;
    for (int i = 0; i < kBoxes; ++i) {
        if (test(i) == 0) continue;
        if (k == list.Count() || list[k] != i) std::abort();
        ++k;
    }
    if (k != found || k != list.Count()) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size) {
    NumbersFromBytes in(data, size);
    bool const isPlaced = size % 3 == 0;
    mg_SetUseVectorUnits(static_cast<int>(size % 2));
    auto const p = in.triple<mgPoint_c>();
    auto const dir = in.triple<mgUnitVector_c>();
    double const tol = in.next();
    mgBBox_c const sought = nextBox(in);
    mgBBox_c boxes[kBoxes], placed[kBoxes];
    mgXform_c placements[kBoxes];
    for (int i = 0; i < kBoxes; ++i) {
        boxes[i] = in.empty() && i > 0 ? boxes[i / 2] : nextBox(in);
        if (isPlaced) placements[i] = nextPlacement(in);
    }
    mgBoxIndex_c index;
    index.build(boxes, isPlaced ? placements : nullptr, kBoxes);
    index.move(3, sought);
    boxes[3] = sought;
    index.place(4, placements[5]);
    placements[4] = placements[5];
    for (int i = 0; i < kBoxes; ++i) {
        placed[i] = boxes[i];
        if (isPlaced) placed[i] *= placements[i];
    }

    suDynamicArray<int> which;
    int found = index.clashesWith(sought, tol, which);
    check(which, found, [&](int i) { return placed[i].clash(&sought, tol); });
    found = index.around(p, tol, which);
    check(which, found, [&](int i) { return placed[i].containsPoint(p, tol); });
    found = index.onLine(p, dir, which);
    check(which, found, [&](int i) { return placed[i].isRayHit(p, dir); });
    mgPoint_c hit;
    int const first = index.firstOnRay(p, dir, &hit);
    for (int i = 0; i < kBoxes; ++i) {
        mgPoint_c own;
        if (placed[i].getFirstRayHit(p, dir, &own) == 0) continue;
        double const near = first < 0 ? -1.0 : (hit - p).len(), length = (own - p).len();
        if (!(near < length || (near == length && first <= i))) std::abort();
    }
    int const some[] = {3, 4, 5};
    suDynamicArray<mgIndexPair_c> all, of;
    index.clashes(tol, all);
    index.clashesOf(some, 3, tol, of);
    int k = 0;
    for (int n = 0; n < all.Count(); ++n) {
        int const i = all[n].first, j = all[n].second;
        if ((i < 3 || i > 5) && (j < 3 || j > 5)) continue;
        if (k == of.Count() || of[k].first != i || of[k].second != j) std::abort();
        ++k;
    }
    if (k != of.Count()) std::abort();
    return 0;
}
