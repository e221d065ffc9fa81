// SPDX-License-Identifier: MIT
// The index of boxes, against loops over the single tests.

#include <vexmath/box_index.h>

#include "bounds/lattice.h"

namespace {

using namespace common;
using Indices = std::vector<int>;

/// Boxes, perhaps placed, beside their index.
struct Scene {
    Scene(std::vector<mgBBox_c> given, bool isPlaced)
        : boxes(std::move(given)), placements(isPlaced ? boxes.size() : 0) {}

    int count() const { return static_cast<int>(boxes.size()); }
    void build() { ASSERT_EQ(1, index.build(box, placement, count())); }
    mgBBox_c inCommonFrame(int i) const {
        mgBBox_c placed = box[i];
        return placement ? placed *= placement[i] : placed;
    }
    int clashes(int i, int j, double tol) const {
        return placement ? mgBBox_c::clash(box[i], placement[i], box[j], placement[j])
                         : box[i].clash(&box[j], tol);
    }

    std::vector<mgBBox_c> boxes;
    std::vector<mgXform_c> placements;
    mgBBox_c *const box = boxes.data();
    mgXform_c *const placement = placements.empty() ? nullptr : placements.data();
    mgBoxIndex_c index;
};

template <class Test>
Indices loop(Scene const &scene, Test const &test) {
    Indices found;
    for (int i = 0; i < scene.count(); ++i)
        if (test(scene.inCommonFrame(i)) != 0) found.push_back(i);
    return found;
}

void CheckClashes(Scene const &scene, double tol, Indices const &some) {
    int const count = scene.count(), n = static_cast<int>(some.size());
    auto const all =
        pairsOf(count, count, true, [&](int i, int j) { return scene.clashes(i, j, tol); });
    std::vector<mgIndexPair_c> ofSome;
    auto const has = [&](int k) { return std::count(some.begin(), some.end(), k) > 0; };
    for (mgIndexPair_c const &pair : all)
        if (has(pair.first) || has(pair.second)) ofSome.push_back(pair);
    CheckList(all, [&](auto &to) { return scene.index.clashes(tol, to); });
    CheckList(ofSome, [&](auto &to) { return scene.index.clashesOf(some.data(), n, tol, to); });
}

void CheckNear(Scene const &scene, mgBBox_c const &box, P const &p, double tol) {
    CheckList(loop(scene, [&](auto const &own) { return own.clash(&box, tol); }),
              [&](auto &to) { return scene.index.clashesWith(box, tol, to); });
    CheckList(loop(scene, [&](auto const &own) { return own.containsPoint(p, tol); }),
              [&](auto &to) { return scene.index.around(p, tol, to); });
}

void CheckLine(Scene const &scene, P const &p, U const &dir) {
    CheckList(loop(scene, [&](auto const &own) { return own.isRayHit(p, dir); }),
              [&](auto &to) { return scene.index.onLine(p, dir, to); });
    int first = -1;
    P nearest(9, 9, 9), hit = nearest, same = p;
    for (int i = 0; i < scene.count(); ++i) {
        P at;
        if (scene.inCommonFrame(i).getFirstRayHit(p, dir, &at) == 0) continue;
        if (first >= 0 && (at - p).len() >= (nearest - p).len()) continue;
        first = i, nearest = at;
    }
    ASSERT_EQ(first, scene.index.firstOnRay(p, dir, &hit));
    EXPECT_BITS_EQ(nearest, hit);
    ASSERT_EQ(first, scene.index.firstOnRay(same, dir, &same));
    EXPECT_BITS_EQ(first >= 0 ? nearest : p, same);
}

/// Along an axis, nearly along it, towards a lattice point, or any; or hostile.
U anyDirection(Random &random, P const &from) {
    U dir;
    P const to = latticePoint(random);
    int const kind = random.below(8);
    if (kind == 0) return random.hostile<U>();
    if (kind == 4) return direction(random);
    if (kind > 4) return {to.x() - from.x(), to.y() - from.y(), to.z() - from.z()};
    if (kind == 1) dir.set(1e-8, above(-1e-8), 1);
    if (kind > 1) dir[random.below(3)] = random.below(3) - 1;
    return dir;
}

/// Fields as they are, which a copy would change.
void place(mgXform_c const &at, mgXform_c &x) { x.SetHelper(at.GetHelper()); }

mgXform_c anyPlacement(Random &random) {
    mgXform_c const frame = raw(random.below(2) == 0 ? mgMatrix_c() : placement(random).rotation());
    mgXform_c const x = matingPlacement(random, frame);
    double const scale = random.below(12) == 0 ? random.hostile() : x.scaling();
    return raw(x.rotation(), x.translation(), scale);
}

void CheckAll(Scene const &scene, Random &random) {
    Indices some;
    for (int k = random.below(6); k > 0; --k) some.push_back(random.below(scene.count() + 2) - 1);
    CheckClashes(scene, anyTolerance(random), some);
    for (int k = 0; k < 4; ++k) {
        P const p = latticePoint(random);
        U const dir = anyDirection(random, p);
        CheckNear(scene, latticeBox(random), p, anyTolerance(random));
        CheckLine(scene, p, dir), CheckLine(scene, p - 1e6 * dir, dir);
    }
}

TEST(BoxIndex, AnswersAsTheLoopsAlsoAfterMoves) {
    Random random;
    for (int round = 0; round < 250 && !::testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE(round);
        mg_SetUseVectorUnits(round % 3 != 0);
        int const counts[] = {0, 1, 7, 8, 9, 50, 80};
        std::vector<mgBBox_c> boxes(static_cast<std::size_t>(counts[random.below(7)]));
        for (mgBBox_c &box : boxes) box = latticeBox(random);
        Scene scene(boxes, round % 2 == 0);
        if (scene.placement)
            for (int i = 0; i < scene.count(); ++i) place(anyPlacement(random), scene.placement[i]);
        scene.build();
        CheckAll(scene, random);
        for (int k = scene.count() / 5; k > 0; --k) {
            int const i = random.below(scene.count());
            scene.box[i] = latticeBox(random);
            scene.index.move(i, scene.box[i]);
            if (!scene.placement) continue;
            int const j = random.below(scene.count());
            place(anyPlacement(random), scene.placement[j]);
            scene.index.place(j, scene.placement[j]);
        }
        CheckAll(scene, random);
    }
    mg_SetUseVectorUnits(1);
}

TEST(BoxIndex, ManyBoxesGiveLongLists) {
    Random random;
    Scene scene(shuffledGrid(random, 10), false);
    scene.build();
    for (int const simd : {0, 1}) {
        mg_SetUseVectorUnits(simd);
        CheckClashes(scene, 0, {3, 999, 3, 500});
        CheckNear(scene, cube(2, 8), P(4, 5, 6), 3);
        CheckLine(scene, P(-1, -1, -1), U(1, 1, 1)); // enters through a corner
        CheckLine(scene, P(5.5, 5.5, 20), U(0.1, 0, -1));
        CheckLine(scene, P(5, 5, 5), U(1, 0, 0)); // four boxes at the same distance
    }
}

TEST(BoxIndex, RoundingFarFromTheOriginLosesNothing) {
    Random random;
    for (double const offset : {1e3, 1e9, -1e15, 1e30}) {
        std::vector<mgBBox_c> boxes;
        for (int k = 0; k < 100; ++k) {
            P low = random.triple<P>(-4, 4);
            low.set_x(low.x() + offset);
            boxes.emplace_back(low, low + V(0, 1, 1) + V(offset * 1e-15, 0, 0));
        }
        Scene scene(boxes, false);
        scene.build();
        for (int k = 0; k < 100; ++k) {
            mgBBox_c const box = scene.box[k];
            CheckNear(scene, box, box.high(), k % 2 * 1e-8);
            CheckLine(scene, P(box.center().x(), -1e5, box.center().z()), U(0, 1, 1e-5));
            CheckLine(scene, P(-offset, 0, 0), U(offset, random.unit(), random.unit()));
        }
    }
}

TEST(BoxIndex, CrossedRodsThatAreApartInTheWorldsAxesAreFound) {
    Scene scene({rod(0), rod(1)}, true);
    for (int const k : {0, 1}) place(rodPlacement(k), scene.placement[k]);
    scene.build();
    EXPECT_TRUE(scene.clashes(0, 1, 0));
    CheckClashes(scene, kNaN, {1}); // the tolerance is ignored
}

TEST(BoxIndex, TheIndexOwnsItsBoxesAndIsMoved) {
    std::vector<mgBBox_c> const boxes(9, cube(0, 1));
    mgBoxIndex_c first;
    suDynamicArray<int> which;
    auto const numberAt = [&](mgBoxIndex_c const &index, double at) {
        return index.around(P(at, at, at), 0, which);
    };
    P hit;
    EXPECT_EQ(0, numberAt(first, 0));
    EXPECT_EQ(-1, first.firstOnRay(P(), U(1, 0, 0), &hit));
    EXPECT_EQ(1, first.build(boxes.data(), nullptr, 9));
    for (int const i : {-1, 9, std::numeric_limits<int>::min()}) first.move(i, cube(5, 6));
    first.place(0, mg_TranslateXform(V(5, 5, 5))); // without placements: ignored
    EXPECT_EQ(9, numberAt(first, 0.5));
    first.move(8, cube(5, 6));
    EXPECT_EQ(1, numberAt(first, 5.5));
    EXPECT_EQ(8, which[0]);

    mgBoxIndex_c second = std::move(first);
    EXPECT_EQ(0, numberAt(first, 0.5)); // NOLINT: empty and usable
    EXPECT_EQ(8, numberAt(second, 0.5));
    first = std::move(second);
    first = std::move(static_cast<mgBoxIndex_c &>(first)); // itself
    EXPECT_EQ(8, numberAt(first, 0.5));
    EXPECT_EQ(1, first.build(nullptr, nullptr, -1));
    EXPECT_EQ(0, numberAt(first, 0.5));
}

} // namespace
