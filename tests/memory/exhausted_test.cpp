// SPDX-License-Identifier: MIT
// Which operations allocate, and exhausted memory: each request for a block is refused in turn,
// alone or with all later ones. Only copies of perspective records throw, nothing leaks, and the
// outputs are as the headers promise.

#include <algorithm>
#include <climits>
#include <memory>
#include <numeric>
#include <sstream>
#include <vector>

#include "common/geometry.h"
#include "golden/golden.h"
#include "memory/heap.h"

#if __has_include(<nlohmann/json.hpp>)
#include <vexmath/interop/nlohmann_json.h>
#endif

namespace {

using namespace common;

/// One run of a case. The library gets `granted` blocks; then one request is refused or, when
/// `lasting`, all are.
struct Trial {
    int granted;
    bool lasting;
    bool refused = true; ///< was a request refused?

    template <class Exception = std::bad_alloc, class Calls>
    bool throws(Calls const &calls) {
        bool threw = false;
        heap::refuseAfter(granted, lasting);
        try {
            calls();
        } catch (Exception const &) {
            threw = true;
        }
        refused = heap::grantAll() > 0;
        return threw;
    }

    template <class Calls>
    void run(Calls const &calls) {
        EXPECT_FALSE(throws(calls));
    }
};

// The rows of the golden file by their names.

/// Those that copy a perspective record.
char const *const throwing =
    "a copy; &X::operator*=; X * X; &X::addPerspectiveInfo; &X::iCopyPerspectiveInfo; "
    "mg_ScaleXform(X, double); mg_ZoomToPosition; mg_ZoomBoxToBox; "
    "mg_MultiplyXforms(X *, int, X const &); mg_MultiplyXforms(X *, int, X const *); "
    "mgGenXform_c::create; ";

/// The others that need memory. What is called for every vertex, placement or pair is not among
/// them.
char const *const allocating =
    "mg_FindClashes(Box const *, int, double, Pairs &); "
    "mg_FindClashes(Box const *, X const *, int, Pairs &); convexHull; mg_OpenTSP; mg_ClosedTSP; "
    "mg_MergeLines2D(List const &, List &, double); mg_calcHatchLinesCircle2D; "
    "mg_calcHatchLinesRect2D; mg_calcHatchLinesPolygon2D; parabolicPoints; "
    "(ellipse<mg_TessArc, arcEdgeData>); (ellipse<mg_TessEllipse, ellipseEdgeData>); "
    "(conic<mg_TessParabola, parabolaEdgeData>); "
    "(conic<mg_TessParabolaOrBConic, parabolaEdgeData>); ";

/// Calls every exported function, without the test's own requests.
TEST(Exhausted, OnlyCopiesOfPerspectivesThrowAndNothingLeaks) {
    static Trial trial{0, false};
    static int asked = 0;
    std::string allocatingNow, throwingNow;
    golden::watch = [](bool isBefore) {
        if (isBefore) heap::refuseAfter(trial.granted, trial.lasting);
        asked += isBefore ? -heap::asked : heap::asked;
        if (!isBefore) trial.refused |= heap::grantAll() > 0;
    };
    auto const check = [&](golden::Row const &row) {
        auto const bits = [&row] {
            golden::Stream in(golden::Numbers::ordinary);
            golden::Bits out;
            asked = 0;
            for (int k = 0; k < 12; ++k) row.run(in, out);
            return out.value();
        };
        trial = {INT_MAX, false};
        std::uint64_t const expected = bits();
        bool const asks = asked > 0;
        bool threw = false;
        int const held = heap::held;
        for (bool const lasting : {false, true})
            for (trial = {0, lasting}; trial.refused; ++trial.granted) {
                try {
                    trial.refused = false;
                    bits();
                } catch (std::bad_alloc const &) {
                    trial.refused |= heap::grantAll() > 0;
                    threw = true;
                }
            }
        EXPECT_EQ(held, heap::held) << row.name;
        trial = {INT_MAX, false};
        EXPECT_EQ(expected, bits()) << row.name;
        if (asks) (threw ? throwingNow : allocatingNow) += std::string(row.name) + "; ";
    };
    for (golden::Rows const &rows : {golden::transformRows(), golden::boundsRows(),
                                     golden::queryRows(), golden::supportRows()}) {
        for (golden::Row const &row : rows.exact) check(row);
        for (golden::Row const &row : rows.trigonometric) check(row);
    }
    golden::watch = nullptr;
    EXPECT_STREQ(throwing, throwingNow.c_str());
    if (VEXMATH_TEST_HAS_C_HEAP) {
        EXPECT_STREQ(allocating, allocatingNow.c_str());
    }
}

/// Runs a case until no request is refused. `body` makes the inputs, calls the library through its
/// argument and checks the outputs.
template <class Body>
void CheckEach(char const *what, Body const &body) {
    auto const *const result = testing::UnitTest::GetInstance()->current_test_info()->result();
    int const failures = result->total_part_count();
    Trial warmUp{INT_MAX, false};
    body(warmUp);
    for (bool const lasting : {false, true})
        for (Trial trial{0, lasting}; trial.refused; ++trial.granted) {
            SCOPED_TRACE(testing::Message() << what << ", " << trial.granted << " blocks");
            int const before = heap::held;
            body(trial);
            int const leaked = heap::held - before;
            EXPECT_TRUE(trial.refused || trial.granted > 0 || !VEXMATH_TEST_HAS_C_HEAP);
            if (result->total_part_count() > failures) return;
            EXPECT_EQ(0, leaked);
        }
}

using Ints = suDynamicArray<int>;
using Points = suDynamicArray<P>;
using Pair = mgIndexPair_c;

bool isUpTo(int count, Ints const &list) {
    for (int i = 0; i < list.Count(); ++i)
        if (list[i] != i) return false;
    return list.Count() == count;
}

/// The numbers from `first` on, in a full array.
Ints numbers(int first, int count, int mode = 1) {
    Ints list;
    list.Adopt(static_cast<int *>(suDynArrayAllocSpecial(count, 4, mode, sizeof(int))));
    std::iota(list.Data(), list.Data() + count, first);
    return list;
}

/// `edit` adds n numbers at the end, or returns null and leaves the array. With n = 0 it never
/// returns null.
void CheckEdit(char const *what, int count, int mode, int n, void *(*edit)(void *, void const *)) {
    CheckEach(what, [=](Trial &trial) {
        Ints const more = numbers(count, n);
        Ints array = numbers(0, count, mode);
        void *old = amDynamicArrayCopy(array.Data(), 0);
        void *result = nullptr;
        trial.run([&] { result = edit(old, more.Data()); });
        EXPECT_TRUE(result != nullptr || (n > 0 && trial.refused));
        array.Adopt(static_cast<int *>(result != nullptr ? result : old));
        EXPECT_TRUE(isUpTo(result != nullptr ? count + n : count, array));
    });
}

/// `make` returns the owner of a new object, or of null when a request was refused.
template <class Make>
void CheckMade(char const *what, Make const &make) {
    CheckEach(what, [&](Trial &trial) {
        decltype(make()) made;
        trial.run([&] { made = make(); });
        EXPECT_TRUE(made != nullptr || trial.refused);
    });
}

struct FreeArray {
    void operator()(void *array) const { amDynamicArrayFree(array); }
};
using Array = std::unique_ptr<void, FreeArray>;

/// What a function returns, and how many elements its list then holds.
struct Outcome {
    int result, count;
};

/// `find` is given a list of three elements.
template <class T, class Find>
void CheckFound(char const *what, Outcome done, Outcome refused, Find const &find) {
    CheckEach(what, [&](Trial &trial) {
        suDynamicArray<T> list;
        for (int i = 0; i < 3; ++i) list.Add(T());
        int result = -2;
        trial.run([&] { result = find(list); });
        bool const isDone = result == done.result;
        EXPECT_TRUE(isDone || (result == refused.result && trial.refused));
        EXPECT_EQ((isDone ? done : refused).count, list.Count());
        if constexpr (std::is_same_v<T, int>) {
            EXPECT_TRUE(isUpTo(list.Count(), list));
        }
    });
}

TEST(Exhausted, AnArrayIsNotMadeOrIsUntouched) {
    Ints const model = numbers(0, 9);
    CheckMade("alloc", [] { return Array(suDynArrayAlloc(9, 4, 1, 4)); });
    CheckMade("special", [] { return Array(suDynArrayAllocSpecial(9, 4, 1, 4)); });
    CheckMade("like", [&] { return Array(suDynArrayAlloc1(9, model.Data())); });
    CheckMade("copy", [&] { return Array(amDynamicArrayCopy(model.Data(), 1)); });
    CheckEdit("add", 9, 1, 1, amDynamicArrayAdd);
    CheckEdit("add to many", 40000, 2, 1, amDynamicArrayAdd);
    CheckEdit("append", 40000, 2, 30000, amDynamicArrayAppend);
    using In = void const *;
    CheckEdit("insert", 2000, 1, 3000,
              [](void *to, In more) { return amDynamicArrayInsertAt(to, 2000, more, 3000); });
    CheckEdit("grow", 40000, 2, 0, [](void *to, In) { return amDynArrayRealloc(to, 90000); });
    CheckEdit("trim", 9, 1, 0, [](void *to, In) { return amDynamicArrayFreeExtra(to, -1.0); });
}

TEST(Exhausted, ElementsOfAnArrayItselfAreInsertedOrNot) {
    CheckEach("insert own", [](Trial &trial) {
        Ints list = numbers(0, 9);
        amDynamicArrayResize(list.Data(), 6);
        void *result = nullptr;
        trial.run([&] { result = amDynamicArrayInsertAt(list.Data(), 6, &list[6], 3); });
        EXPECT_TRUE(result == list.Data() || (result == nullptr && trial.refused));
        EXPECT_TRUE(isUpTo(result != nullptr ? 9 : 6, list));
    });
}

TEST(Exhausted, AListIsEmpty) {
    for (int const count : {0, 8, 24})
        CheckEach("add", [count](Trial &trial) {
            Ints list;
            for (int i = 0; i < count; ++i) list.Add(i);
            int index = 0;
            trial.run([&] { index = list.Add(count); });
            EXPECT_TRUE(index == count || (index == -1 && trial.refused && !list.Data()));
            EXPECT_TRUE(isUpTo(index + 1, list));
        });
    CheckEach("copy and assign", [](Trial &trial) {
        Ints const list = numbers(0, 9);
        Ints other = numbers(0, 20);
        trial.run([&] {
            Ints const copy(list);
            EXPECT_TRUE(isUpTo(copy.Data() ? 9 : 0, copy));
            other = list;
        });
        EXPECT_TRUE(isUpTo(9, other) || (trial.refused && !other.Data()));
    });
}

#ifdef VEXMATH_INTEROP_NLOHMANN_JSON_H
TEST(Exhausted, AListFromJsonThrows) {
    nlohmann::json const written = std::vector<int>(30, 7);
    CheckEach("read a list", [&](Trial &trial) {
        Ints list = numbers(0, 3);
        bool const threw = trial.throws([&] { written.get_to(list); });
        EXPECT_TRUE(trial.refused || !threw);
        EXPECT_TRUE(threw ? list.Count() == 3 || list.Count() == 0 : list.Count() == 30);
    });
}
#endif

/// `tessellate` keeps the given number of the three points in a list. With count 0 there is no
/// array, and the list stays or, when it could not grow, is empty.
template <class Tessellate>
void CheckPolyline(char const *what, int kept, Tessellate const &tessellate) {
    for (bool const toList : {false, true})
        CheckEach(what, [&](Trial &trial) {
            Points list;
            for (int i = 0; i < 3; ++i) list.Add(P());
            P *made = nullptr;
            int count = -1;
            trial.run([&] { tessellate(toList ? nullptr : &made, count, &list); });
            bool const done = count > 0;
            EXPECT_TRUE(done || (count == 0 && trial.refused));
            EXPECT_EQ(done && !toList, made != nullptr);
            delete[] made;
            int const expected = !toList ? 3 : done ? kept + count + 1 : list.Count() ? 3 : 0;
            EXPECT_EQ(expected, list.Count());
        });
}

TEST(Exhausted, APolylineHasCountZero) {
    P const o, p(2.0, -2.0, 0.0), q(2.0, 2.0, 0.0);
    arcEdgeData const arc{o, {0.0, 0.0, 1.0}, 2.0};
    ellipseEdgeData const ellipse{o, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, 2.0, 1.0, p, p};
    parabolaEdgeData const conic{o, P(1.0, 0.0, 0.0), {}, p, q, {0.0, 0.0, 1.0}};
    CheckPolyline("arc", 3, [&](auto &&...out) { mg_TessArc(&arc, &p, &p, 1e-3, out...); });
    CheckPolyline("ellipse", 3,
                  [&](auto &&...out) { mg_TessEllipse(&ellipse, &p, &p, 1e-3, out...); });
    CheckPolyline("parabola", 3, [&](auto &&...out) { mg_TessParabola(&conic, 1e-3, out...); });
    CheckPolyline("conic", 0, [&](auto &&...out) { mg_TessBConic(&conic, 1e-3, out...); });
    CheckPolyline("either", 0,
                  [&](auto &&...out) { mg_TessParabolaOrBConic(&conic, 1e-3, out...); });
}

template <class Point>
bool areSame(Point const *a, Point const *b, int count) {
    return std::memcmp(a, b, static_cast<std::size_t>(count) * sizeof(Point)) == 0;
}

TEST(Exhausted, PointsAreSorted) {
    for (int const n : {300, 3000})
        CheckEach("sort", [n](Trial &trial) {
            Random random;
            std::vector<P> points(static_cast<std::size_t>(n));
            for (P &p : points) p = random.triple<P>(0.0, 1e6);
            std::vector<P> sorted = points;
            std::sort(sorted.begin(), sorted.end(),
                      [](P const &p, P const &q) { return p.x() < q.x(); });
            trial.run([&] { mg_pointQuickSort(points.data(), 0, n - 1); });
            EXPECT_TRUE(areSame(points.data(), sorted.data(), n));
        });
}

/// A tour of n points, one of them at the given x. When memory is exhausted the order is the
/// identity, or empty when it has no room for that.
void CheckTour(char const *what, int n, double x, bool hasRoom, void (*tour)(Points &, Ints &),
               bool isSorted = false) {
    CheckEach(what, [=](Trial &trial) {
        Random random;
        Points points;
        for (int i = 0; i < n; ++i) points.Add(random.triple<P>(0.0, 9.0));
        points[0].set_x(x);
        Ints order;
        if (hasRoom) order = numbers(0, n);
        trial.run([&] { tour(points, order); });
        if (trial.refused && (isUpTo(n, order) || (!hasRoom && order.Count() == 0))) return;
        ASSERT_EQ(n, order.Count());
        EXPECT_EQ(isSorted, isUpTo(n, order));
        std::sort(order.Data(), order.Data() + n);
        EXPECT_TRUE(isUpTo(n, order));
    });
}

TEST(Exhausted, ATourIsTheIdentity) {
    for (auto *const tour : {mg_OpenTSP, mg_ClosedTSP}) {
        CheckTour("room", 20, 1.0, true, tour);
        CheckTour("no room", 20, 1.0, false, tour);
        CheckTour("not finite", 20, std::nan(""), tour == mg_OpenTSP, tour, tour == mg_ClosedTSP);
        CheckTour("two points", 2, 1.0, false, tour, true);
    }
}

TEST(Exhausted, PointsAreNotFoundAndTheListIsEmptyOrStays) {
    mgPoint_c const o, corners[] = {o, {3.0, 0.0, 0.0}, {0.0, 3.0, 0.0}};
    mgRect const rect(0.0, 3.0, 3.0, 0.0);
    int const three = 3;
    Points lines;
    for (int i = 0; i < 40; ++i) lines.Add(mgPoint_c(i % 2, i / 4, 0.0));
    CheckFound<P>("hatched circle", {5, 10}, {0, 0},
                  [&](auto &to) { return mg_calcHatchLinesCircle2D(o, 3.0, o, 0.1, 1.0, to); });
    CheckFound<P>("hatched rectangle", {3, 6}, {0, 0},
                  [&](auto &to) { return mg_calcHatchLinesRect2D(rect, o, 0.0, 1.0, to); });
    CheckFound<P>("hatched polygon", {3, 6}, {0, 0}, [&](auto &to) {
        return mg_calcHatchLinesPolygon2D(1, &three, corners, o, 0.0, 1.0, to);
    });
    CheckFound<P>("parabolic points", {1, 23}, {0, 0},
                  [&](auto &to) { return parabolicPoints(corners[1], corners[2], o, 20, to); });
    CheckFound<P>("merged lines", {10, 20}, {0, 3},
                  [&](auto &to) { return mg_MergeLines2D(lines, to, 1e-8); });
}

TEST(Exhausted, AHullIsNotMade) {
    for (int const n : {6, 30, 2100})
        CheckEach("hull", [n](Trial &trial) {
            Random random;
            suDynamicArray<mg2DPoint_c> input, hull;
            for (int i = 0; i < n; ++i) {
                U const u = direction(random);
                input.Add(i % 2 == 0 || i > 20 ? mg2DPoint_c(u.x(), u.y()) : input[i - 1]);
            }
            for (int i = 0; i < 7; ++i) hull.Add(mg2DPoint_c());
            suDynamicArray<mg2DPoint_c> const given = input, held = hull;
            int result = -1;
            trial.run([&] { result = convexHull(input, hull); });
            EXPECT_TRUE(result == 1 || (result == 0 && trial.refused));
            EXPECT_EQ(result == 1, hull.Count() > 9);
            if (result == 1) return;
            ASSERT_EQ(n, input.Count());
            ASSERT_EQ(7, hull.Count());
            EXPECT_TRUE(areSame(input.Data(), given.Data(), n));
            EXPECT_TRUE(areSame(hull.Data(), held.Data(), 7));
        });
}

mgXform_c viewWithARecord() {
    mgMatrix_c const turn = mg_RotationMatrix(1.0, {1.0, 2.0, 3.0}, 0.0);
    mgXform_c view = raw(turn, {1.0, 2.0, 3.0}, 2.0);
    view.addPerspectiveInfo(mgPerspInfo_c(0.0, 0.0, -9.0, 1.0));
    return view;
}

TEST(Exhausted, ClashesAreNotFound) {
    for (int const n : {20, 110}) {
        auto const size = static_cast<std::size_t>(n);
        std::vector<mgBBox_c> const boxes(size, mgBBox_c(mgPoint_c(1.0, 2.0, 3.0), 2.0));
        std::vector<mgXform_c> const placements(size);
        mgBBox_c const *const all = boxes.data();
        Outcome const pairs{n * (n - 1) / 2, n * (n - 1) / 2}, none{-1, 0};
        CheckFound<Pair>("all", pairs, none,
                         [&](auto &to) { return mg_FindClashes(all, n, 0.0, to); });
        CheckFound<Pair>("placed", pairs, none,
                         [&](auto &to) { return mg_FindClashes(all, placements.data(), n, to); });
        CheckFound<Pair>("both", {n * n, n * n}, none,
                         [&](auto &to) { return mg_FindClashes(all, n, all, n, 0.0, to); });
    }
}

/// The index of 300 boxes at one place, the last one placed by a view.
TEST(Exhausted, AnIndexIsEmptyAndItsListsToo) {
    std::vector<mgBBox_c> const boxes(300, mgBBox_c(mgPoint_c(1.0, 2.0, 3.0), 2.0));
    mgXform_c placements[300];
    for (bool const isPlaced : {false, true})
        CheckEach("build", [&](Trial &trial) {
            mgBoxIndex_c index;
            index.build(boxes.data(), nullptr, 20);
            placements[299].SetHelper(viewWithARecord().GetHelper());
            placements[299].addPerspectiveInfo(mgPerspInfo_c());
            int built = -1;
            trial.run(
                [&] { built = index.build(boxes.data(), isPlaced ? placements : nullptr, 300); });
            EXPECT_TRUE(built == 1 || (built == 0 && trial.refused));
            Ints which;
            EXPECT_EQ(built * (300 - isPlaced), index.around({1.0, 2.0, 3.0}, 0.0, which));
        });
    mgBoxIndex_c index;
    index.build(boxes.data(), nullptr, 300);
    int const some[] = {0, 1}, n = 300;
    mgPoint_c const p(1.0, 2.0, 3.0);
    Outcome const none{-1, 0}, every{n, n}, all{n * (n - 1) / 2, n * (n - 1) / 2};
    CheckFound<Pair>("clashes", all, none, [&](auto &to) { return index.clashes(0.0, to); });
    CheckFound<Pair>("of", {2 * n - 3, 2 * n - 3}, none,
                     [&](auto &to) { return index.clashesOf(some, 2, 0.0, to); });
    CheckFound<int>("with", every, none,
                    [&](auto &to) { return index.clashesWith(boxes[0], 0.0, to); });
    CheckFound<int>("around", every, none, [&](auto &to) { return index.around(p, 0.0, to); });
    CheckFound<int>("line", every, none, [&](auto &to) {
        return index.onLine({}, {1.0, 2.0, 3.0}, to);
    });
    CheckEach("place", [&](Trial &trial) {
        mgXform_c const view = viewWithARecord();
        mgBoxIndex_c one;
        one.build(boxes.data(), placements, 1);
        mgPoint_c hit;
        trial.run([&] {
            one.place(0, view);
            one.move(0, boxes[1]);
            EXPECT_EQ(trial.refused ? 0 : -1, one.firstOnRay({}, {1.0, 2.0, 3.0}, &hit));
        });
        Ints which; // the box stays, or is where the view shows it
        EXPECT_EQ(trial.refused, one.around({1.0, 2.0, 3.0}, 0.0, which) == 1);
    });
}

TEST(Exhausted, OnlyTheCopyOfARecordThrows) {
    P const o;
    CheckEach("record", [&](Trial &trial) {
        mgXform_c const view = viewWithARecord();
        mgXform_c const old = raw({}, {7.0, 8.0, 9.0}, 4.0, 1);
        mgXform_c made[12] = {old, old, old, old, old, old, old, old, old, old, old, old};
        bool const threw = trial.throws([&] {
            mgXform_c const copy(view), before = copy * view, behind = view * before;
            made[0] = view;
            made[1] *= view;
            made[2].addPerspectiveInfo(mgPerspInfo_c());
            made[3].iCopyPerspectiveInfo(view);
            made[4] = mg_ZoomToPosition(o, o, o, mg_ScaleXform(view, 3.0), 2.0);
            made[5] = mg_ZoomBoxToBox({}, {}, o, o, mgGenXform_c(mgGenXform_c(view)), 2.0);
            mg_MultiplyXforms(made + 6, 5, view);
            mg_MultiplyXforms(made + 11, 1, &view);
        });
        EXPECT_EQ(threw, trial.refused);
        for (mgXform_c const &x : made) { // done or untouched
            if (x.hasPerspective() != 0) continue;
            EXPECT_TRUE(threw);
            EXPECT_BITS_EQ(old, x);
        }
    });
}

TEST(Exhausted, AGeneralTransformIsMadeOrSetWholeOrNotAtAll) {
    double const factors[] = {2.0, 3.0, 4.0};
    mgXform_c const view = viewWithARecord();
    CheckMade("create", [&] {
        return std::unique_ptr<mgGenXform_c>(mgGenXform_c::create(&view, &view, factors));
    });
    CheckEach("set", [&](Trial &trial) {
        mgGenXform_c general;
        bool done = false;
        trial.throws([&] { done = general.set(&view, factors) != 0; });
        EXPECT_TRUE(done || trial.refused);
        EXPECT_EQ(done, general.isScaleIdentity() == 0);
        EXPECT_EQ(done, general.getBodyXform().hasPerspective() != 0);
    });
    CheckMade("direction", [] { return std::unique_ptr<U>(U::random()); });
}

TEST(Exhausted, ATextIsEmptyAndAnArchiveThrows) {
    CheckEach("text", [](Trial &trial) {
        CString texts[] = {L"a text that needs a block", L"", L""};
        std::wostringstream stream(std::wstring(99, L' ')); // has room and allocates nothing
        CDumpContext context(stream);
        mgXform_c x;
        trial.run([&] {
            texts[0].Format(L"%600d", 1);
            x.saveStringRep(texts[1]);
            x.restoreStringRep(texts[1]);
            mgBBox_c().saveStringRep(texts[2]);
            mgBBox_c().dump();
            P().Dump(context);
        });
        for (int i = 0; i < 3; ++i) {
            int const length = texts[i].GetLength(), whole[] = {600, 31, 11};
            EXPECT_TRUE(length == whole[i] || (length == 0 && trial.refused));
        }
    });
    CheckEach("archive that ends", [](Trial &trial) {
        mgXform_c view = viewWithARecord();
        std::stringstream stream(std::string(9, '\0'));
        su_CArchive archive(stream);
        // su_CArchiveError, or std::bad_alloc when there is no memory for its text.
        EXPECT_TRUE(trial.throws<std::exception>([&] { view.restore(archive); }));
        EXPECT_EQ(1, view.hasPerspective());
        EXPECT_EQ(1.0, view.translation().x());
    });
}

template <class Set, class Code>
void CheckSets() {
    CheckEach("sets", [](Trial &trial) {
        Set all;
        for (int i = 1; i <= 5; ++i) all.add(Code(i));
        int count = 0, isPart = 0;
        trial.run([&] {
            Set made = Set(Code(1)) | Code(2) | (Code(2) | Code(3));
            made.add(Code(4));
            made = (made |= Set(Code(5))).intersection(all);
            count = made.getNumOfTypes();
            isPart = all.contains(made);
        });
        EXPECT_TRUE(isPart == 1 && (count == 5 || trial.refused));
    });
}

TEST(Exhausted, SetsLackCodes) {
    CheckSets<uoSelectType_c, uoSelTypes_e>();
    CheckSets<uoSelectConstraint_c, uoSelConstraint_e>();
}

TEST(Memory, APolylineIsAllocatedOnceOrNotAtAll) {
    arcEdgeData const arc{P(), {0.0, 0.0, 1.0}, 5.0};
    P const start(5.0, 0.0, 0.0);
    P *made = nullptr;
    int count = 0;
    int before = heap::asked;
    mg_TessArc(&arc, &start, &start, 0.001, &made, count, nullptr);
    EXPECT_EQ(before + 1, heap::asked);
    delete[] made;

    suDynamicArray<P> list;
    list.Adopt(static_cast<P *>(suDynArrayAlloc(count + 1, 1, 1, sizeof(P))));
    P const *const room = list.Data();
    before = heap::asked;
    mg_TessArc(&arc, &start, &start, 0.001, nullptr, count, &list);
    EXPECT_EQ(before, heap::asked);
    EXPECT_EQ(room, list.Data());
    EXPECT_EQ(count + 1, list.Count());
}

} // namespace
