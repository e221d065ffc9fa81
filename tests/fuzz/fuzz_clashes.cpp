// SPDX-License-Identifier: MIT
// Boxes and placements with many equal coordinates: the clashes found among them are those of the
// loop over the single tests.

#include "fuzz.h"

namespace {

using Pairs = suDynamicArray<mgIndexPair_c>;

/// Are the pairs those of the loop, in its order? Of long lists, only some tests are repeated.
template <class Test>
void check(Pairs const &pairs, int found, int count, bool bothOrders, Test const &test) {
    int k = 0;
    for (int i = 0; i < count; ++i)
        for (int j = bothOrders ? 0 : i + 1; j < count; ++j) {
            bool const isFound = k < pairs.Count() && pairs[k].first == i && pairs[k].second == j;
            k += isFound;
            if (count < 100 || (31 * i + j) % 97 == 0) CHECK(isFound == (test(i, j) != 0));
        }
    CHECK(k == found && k == pairs.Count());
}

} // namespace

void fuzzOne(Input &in) {
    mg_SetUseVectorUnits(in.flip());
    int const count = in.byte() < 8 ? 1000 : 60; // more than the library tests one by one
    double const tol = in.number();
    std::vector<mgBBox_c> boxes, others;
    std::vector<mgXform_c> placements;
    for (int i = 0; i < count; ++i) {
        boxes.push_back(in.box()), others.push_back(in.box());
        placements.push_back(in.placement());
    }
    Pairs pairs, placedPairs, crossPairs;
    int found = 0, placedFound = 0, crossFound = 0;
    {
        TimeLimit const limit;
        found = mg_FindClashes(boxes.data(), count, tol, pairs);
    }
    {
        TimeLimit const limit;
        placedFound = mg_FindClashes(boxes.data(), placements.data(), count, placedPairs);
    }
    {
        TimeLimit const limit;
        crossFound = mg_FindClashes(boxes.data(), count, others.data(), count, tol, crossPairs);
    }
    auto const at = [](int i) { return static_cast<std::size_t>(i); };
    check(pairs, found, count, false,
          [&](int i, int j) { return boxes[at(i)].clash(&boxes[at(j)], tol); });
    check(placedPairs, placedFound, count, false, [&](int i, int j) {
        return mgBBox_c::clash(boxes[at(i)], placements[at(i)], boxes[at(j)], placements[at(j)]);
    });
    check(crossPairs, crossFound, count, true,
          [&](int i, int j) { return boxes[at(i)].clash(&others[at(j)], tol); });
}
