// SPDX-License-Identifier: MIT
// An index of boxes: what it finds is what the loop finds, also after moves.

#include "fuzz.h"

namespace {

constexpr int kBoxes = 24; // three groups of the tree

/// Does the list hold the indices of the boxes that pass?
template <class Test>
void check(suDynamicArray<int> const &list, int found, Test const &test) {
    int k = 0;
    for (int i = 0; i < kBoxes; ++i)
        if (test(i) != 0) CHECK(k < list.Count() && list[k++] == i);
    CHECK(k == found && k == list.Count());
}

} // namespace

void fuzzOne(Input &in) {
    mg_SetUseVectorUnits(in.flip());
    bool const isPlaced = in.below(3) == 0;
    P const p = in.triple<P>();
    U const dir = in.direction();
    double const tol = in.number();
    mgBBox_c const sought = in.box();
    mgBBox_c boxes[kBoxes], placed[kBoxes];
    mgXform_c placements[kBoxes];
    for (int i = 0; i < kBoxes; ++i) {
        boxes[i] = in.box();
        if (isPlaced) placements[i] = in.placement();
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
    P hit;
    int const first = index.firstOnRay(p, dir, &hit);
    for (int i = 0; i < kBoxes; ++i) {
        P own;
        if (placed[i].getFirstRayHit(p, dir, &own) == 0) continue;
        double const near = first < 0 ? -1.0 : (hit - p).len(), length = (own - p).len();
        CHECK(near < length || (near == length && first <= i));
    }
    int const some[] = {3, 4, 5};
    suDynamicArray<mgIndexPair_c> all, of;
    index.clashes(tol, all);
    index.clashesOf(some, 3, tol, of);
    int k = 0;
    for (int n = 0; n < all.Count(); ++n) {
        int const i = all[n].first, j = all[n].second;
        CHECK(isPlaced ? mgBBox_c::clash(boxes[i], placements[i], boxes[j], placements[j])
                       : boxes[i].clash(&boxes[j], tol));
        if ((i < 3 || i > 5) && (j < 3 || j > 5)) continue;
        CHECK(k < of.Count() && of[k].first == i && of[k].second == j);
        ++k;
    }
    CHECK(k == of.Count());
}
