// SPDX-License-Identifier: MIT
// Boxes and placements with many equal coordinates: the clashes found among them, at once or by an
// index, are those of the loop over the single tests.

#include "fuzz.h"

namespace {

using Pairs = suDynamicArray<mgIndexPair_c>;

/// Are the pairs those of the loop, in its order? Of long lists, only some tests are repeated.
template <class Test>
void checkPairs(Pairs const &pairs, int found, int count, bool bothOrders, Test const &test) {
    int k = 0;
    for (int i = 0; i < count; ++i)
        for (int j = bothOrders ? 0 : i + 1; j < count; ++j) {
            bool const isFound = k < pairs.Count() && pairs[k].first == i && pairs[k].second == j;
            k += isFound;
            if (count < 100 || (31 * i + j) % 97 == 0) CHECK(isFound == (test(i, j) != 0));
        }
    CHECK(k == found && k == pairs.Count());
}

/// Are the indices those of the loop?
template <class Test>
void checkIndices(suDynamicArray<int> const &list, int found, int count, Test const &test) {
    int k = 0;
    for (int i = 0; i < count; ++i)
        if (test(i) != 0) CHECK(k < list.Count() && list[k++] == i);
    CHECK(k == found && k == list.Count());
}

} // namespace

void fuzz(Input &in) {
    mg_SetUseVectorUnits(in.flip());
    bool const isLong = in.byte() < 8, isPlaced = in.flip();
    int const count = isLong ? 1000 : 60; // more than the library tests one by one
    double const tol = in.number();
    P const p = in.triple<P>();
    U const dir = in.direction();
    std::vector<mgBBox_c> all(static_cast<std::size_t>(count) + 1), others = all;
    std::vector<mgXform_c> forms(all.size());
    mgBBox_c *const boxes = all.data();
    mgXform_c *const placements = forms.data();
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i] = in.box(), others[i] = in.flip() ? all[i] : in.box();
        if (isPlaced) forms[i] = in.placement();
    }
    auto const clash = [&](int i, int j) {
        return isPlaced ? mgBBox_c::clash(boxes[i], placements[i], boxes[j], placements[j])
                        : boxes[i].clash(&boxes[j], tol);
    };
    Pairs pairs, some, of;
    int found = timed([&] {
        return isPlaced ? mg_FindClashes(boxes, placements, count, pairs)
                        : mg_FindClashes(boxes, count, tol, pairs);
    });
    checkPairs(pairs, found, count, false, clash);
    found = timed([&] { return mg_FindClashes(boxes, count, others.data(), count, tol, pairs); });
    checkPairs(pairs, found, count, true, [&](int i, int j) {
        return boxes[i].clash(&others[static_cast<std::size_t>(j)], tol);
    });

    mgBoxIndex_c index;
    index.build(boxes, isPlaced ? placements : nullptr, count);
    mgBBox_c const sought = boxes[count];
    index.move(3, sought), index.place(4, placements[5]);
    boxes[3] = sought, placements[4] = placements[5];
    std::vector<mgBBox_c> placed(all);
    for (std::size_t i = 0; i < all.size() && isPlaced; ++i) placed[i] *= forms[i];
    mgBBox_c const *const at = placed.data();
    suDynamicArray<int> which;
    found = timed([&] { return index.clashes(tol, pairs); });
    checkPairs(pairs, found, count, false, clash);
    int const few[] = {3, 4, 5};
    for (int k = 0; k < pairs.Count(); ++k)
        if (std::abs(pairs[k].first - 4) <= 1 || std::abs(pairs[k].second - 4) <= 1)
            some.Add(pairs[k]);
    CHECK(index.clashesOf(few, 3, tol, of) == some.Count());
    for (int k = 0; k < of.Count(); ++k)
        CHECK(of[k].first == some[k].first && of[k].second == some[k].second);
    found = index.clashesWith(sought, tol, which);
    checkIndices(which, found, count, [&](int i) { return at[i].clash(&sought, tol); });
    found = index.around(p, tol, which);
    checkIndices(which, found, count, [&](int i) { return at[i].containsPoint(p, tol); });
    found = index.onLine(p, dir, which);
    checkIndices(which, found, count, [&](int i) { return at[i].isRayHit(p, dir); });
    P hit, own;
    int const first = index.firstOnRay(p, dir, &hit);
    for (int i = 0; i < count; ++i) {
        if (at[i].getFirstRayHit(p, dir, &own) == 0) continue;
        double const near = first < 0 ? -1.0 : (hit - p).len(), length = (own - p).len();
        CHECK(near < length || (near == length && first <= i));
    }
}
