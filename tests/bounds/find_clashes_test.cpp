// SPDX-License-Identifier: MIT
// All clashes of many boxes, against the loop over the single tests.

#include "bounds/lattice.h"

namespace {

using namespace common;

/// With AVX2 and without it.
template <class Find>
void CheckBoth(std::vector<mgIndexPair_c> const &expected, Find const &find, Caller = {}) {
    for (int const simd : {0, 1}) {
        mg_SetUseVectorUnits(simd);
        CheckList(expected, find);
    }
}

/// On a lattice, or off it by one unit in the last place, by the tolerance or by 1e-08.
double coordinate(Random &random, double tol) {
    double const at = random.below(6) * 0.5, by = std::fabs(tol) < 1e3 ? tol : 0.0;
    double const near[] = {at + by, at - by, at + 1e-8, at - 1e-8, -at * 0.0};
    int const kind = random.below(15);
    double const c = kind < 5 ? near[kind] : at;
    return kind < 7 ? std::nextafter(c, random.below(2) == 0 ? 9.0 : -9.0) : c;
}

/// One of `oddity` boxes is unset, a point, or has a sphere or numbers that do not fit.
mgBBox_c anyBox(Random &random, double tol, double size, double offset, int oddity) {
    P corners[2];
    for (P &p : corners)
        for (int i = 0; i < 3; ++i) p[i] = coordinate(random, tol) * size + offset;
    mgBBox_c box(corners[0], corners[1]);
    double const r = box.sphRadius(), away = random.ofMagnitude(5.0, 11.0) * size;
    int const kind = random.below(oddity);
    if (kind == 0) return withDouble(box, random.below(10), random.hostile());
    if (kind == 1) box.setSphereOnly(corners[1], random.uniform(0.0, 1.5) * size);
    if (kind == 2) box.setSphereOnly(box.sphCenter(), r * (1.0 + random.uniform(-3e-9, 3e-9)));
    if (kind == 3) return {corners[0], corners[0]};
    if (kind == 4) return {};
    if (kind == 5) { // barely reaches the farthest corner, or not
        P const from = box.low() - V(away, away, away), to = away > 0.0 ? box.high() : box.low();
        box.setSphereOnly(from, (to - from).len() * (1.0 - random.uniform(0.0, 2e-9)));
    }
    return box;
}

std::vector<mgBBox_c> anyBoxes(Random &random, int count, double tol) {
    bool const isOdd = random.below(2) == 0;
    double const size = random.below(4) == 0 ? random.ofMagnitude(-9.0, 9.0) : 1.0;
    double const offset = random.below(3) == 0 ? random.ofMagnitude(0.0, 10.0) : 0.0;
    std::vector<mgBBox_c> boxes;
    for (int i = 0; i < count; ++i)
        boxes.push_back(anyBox(random, tol, size, offset, isOdd ? 8 : 1000));
    return boxes;
}

/// Around the number of boxes from which a tree is built, and enough for three levels of it.
int anyCount(Random &random) {
    int const counts[] = {0, 1, 44, 45, 63, 64, 65, 100, 200, 650};
    return counts[random.below(10)];
}

TEST(FindClashes, GivesThePairsOfTheLoopInItsOrder) {
    Random random;
    for (double const tol : tolerances) {
        SCOPED_TRACE(tol);
        int const n = anyCount(random), m = anyCount(random);
        std::vector<mgBBox_c> const all = anyBoxes(random, n, tol), more = anyBoxes(random, m, tol);
        mgBBox_c const *const a = all.data(), *const b = more.data();
        mg_SetUseVectorUnits(0); // which are used for the second list
        CheckBoth(pairsOf(n, n, true, [=](int i, int j) { return a[i].clash(&a[j], tol); }),
                  [=](auto &to) { return mg_FindClashes(a, n, tol, to); });
        CheckBoth(pairsOf(n, m, false, [=](int i, int j) { return a[i].clash(&b[j], tol); }),
                  [=](auto &to) { return mg_FindClashes(a, n, b, m, tol, to); });
    }
}

void CheckPlaced(std::vector<mgBBox_c> const &boxes, std::vector<mgXform_c> const &placements) {
    auto const n = static_cast<int>(boxes.size());
    mgBBox_c const *const a = boxes.data();
    mgXform_c const *const x = placements.data();
    CheckBoth(
        pairsOf(n, n, true, [=](int i, int j) { return mgBBox_c::clash(a[i], x[i], a[j], x[j]); }),
        [=](auto &to) { return mg_FindClashes(a, x, n, to); });
}

TEST(FindClashes, GivesThePlacedPairsOfTheLoopInItsOrder) {
    Random random;
    for (int round = 0; round < 90; ++round) {
        SCOPED_TRACE(round);
        int const count = anyCount(random) % 300, oddity = random.below(2) == 0 ? 8 : 1000;
        double const size = random.below(3) == 0 ? random.ofMagnitude(-6.0, 6.0) : 1.0;
        std::vector<mgBBox_c> boxes;
        std::vector<mgXform_c> placements(static_cast<std::size_t>(count));
        for (mgXform_c &x : placements) {
            boxes.push_back(anyBox(random, 1e-8, size, 0.0, 8));
            place(random, size, oddity, x);
        }
        CheckPlaced(boxes, placements);
    }
}

TEST(FindClashes, FindsCrossedRodsThatAreApartInTheWorldsAxes) {
    std::vector<mgBBox_c> boxes;
    std::vector<mgXform_c> placements;
    for (int k = 0; k < 50; ++k) boxes.push_back(rod(k)), placements.push_back(rodPlacement(k));
    EXPECT_EQ(1, mgBBox_c::clash(boxes[0], placements[0], boxes[1], placements[1]));
    CheckPlaced(boxes, placements);
}

/// Grids whose boxes touch 26 others, with plates through them.
TEST(FindClashes, ManyPairsAreSorted) {
    Random random;
    std::vector<mgBBox_c> boxes = shuffledGrid(random, 12);
    for (int k = 0; k < 12; ++k) boxes.emplace_back(P(k, 0.0, 0.0), P(k + 0.01, 12.0, 12.0));
    mgBBox_c const *const a = boxes.data();
    CheckBoth(pairsOf(1740, 1740, true, [=](int i, int j) { return a[i].clash(&a[j], 0.0); }),
              [=](auto &to) { return mg_FindClashes(a, 1740, 0.0, to); });
}

TEST(FindClashes, NothingIsFoundAmongNoBoxes) {
    mgBBox_c const box = cube(0.0, 1.0);
    for (int const none : {0, -1, std::numeric_limits<int>::min()}) {
        using To = suDynamicArray<mgIndexPair_c>;
        CheckBoth({}, [=](To &to) { return mg_FindClashes(nullptr, none, 0.0, to); });
        CheckBoth({}, [=](To &to) { return mg_FindClashes(nullptr, nullptr, none, to); });
        CheckBoth({}, [&](To &to) { return mg_FindClashes(&box, 1, nullptr, none, 0.0, to); });
        CheckBoth({}, [&](To &to) { return mg_FindClashes(nullptr, none, &box, 1, 0.0, to); });
    }
}

} // namespace
