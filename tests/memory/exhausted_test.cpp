// SPDX-License-Identifier: MIT
// Which operations allocate, and exhausted memory: each request for a block is refused in turn,
// alone or with all later ones. Only copies of perspective records throw, nothing leaks, and the
// outputs are as the headers promise.

#include <climits>
#include <numeric>

#include "common/geometry.h"
#include "golden/golden.h"
#include "memory/heap.h"

#if __has_include(<nlohmann/json.hpp>)
#include <vexmath/interop/nlohmann_json.h>
#endif

namespace {

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
    "a copy; X::operator*=; X * X; X::addPerspectiveInfo; X::iCopyPerspectiveInfo; "
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
    for (golden::Row const &row : golden::allRows()) {
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
        if (asks) (threw ? throwingNow : allocatingNow) += row.name + "; ";
    }
    golden::watch = nullptr;
    EXPECT_EQ(throwing, throwingNow);
    if (VEXMATH_TEST_HAS_C_HEAP) {
        EXPECT_EQ(allocating, allocatingNow);
    }
}

/// What a call returns and leaves.
using State = std::vector<int>;

/// `run` makes the inputs, calls the library by the run() of its argument, and returns the state
/// after it: the one with all memory or, when a request was refused, the neutral one. Runs until no
/// request is refused.
template <class Run>
void Check(State const &neutral, Run const &run, Caller = {}) {
    Trial warmUp{INT_MAX, false};
    State const done = run(warmUp);
    for (bool const lasting : {false, true})
        for (Trial trial{0, lasting}; trial.refused; ++trial.granted) {
            int const before = heap::held;
            State state = run(trial);
            bool const isRight = state == done || (trial.refused && state == neutral);
            ASSERT_TRUE(isRight) << trial.granted << " blocks: " << testing::PrintToString(state);
            state = State();
            EXPECT_EQ(before, heap::held) << trial.granted << " blocks";
            EXPECT_TRUE(trial.refused || trial.granted > 0 || !VEXMATH_TEST_HAS_C_HEAP);
        }
}

using Ints = suDynamicArray<int>;
using Points = suDynamicArray<P>;
using Flat = suDynamicArray<mg2DPoint_c>;
using Pair = mgIndexPair_c;

/// The numbers from `first` on, in a full array.
Ints numbers(int first, int count, int mode = 1) {
    Ints list;
    list.Adopt(static_cast<int *>(suDynArrayAllocSpecial(count, 4, mode, sizeof(int))));
    std::iota(list.Data(), list.Data() + count, first);
    return list;
}

/// The result and the elements.
State stateOf(int result, Ints const &list) {
    State state(list.begin(), list.end());
    state.insert(state.begin(), result);
    return state;
}

/// The state with this result and the numbers from 0 on.
State upTo(int count, int result) { return stateOf(result, numbers(0, count)); }

/// `edit` changes a full array of n numbers. Refused, it returns null and leaves them, or, if it
/// never returns null, leaves them.
void CheckEdit(int n, int mode, bool canFail, void *(*edit)(void *, void const *), Caller = {}) {
    Check(upTo(n, !canFail), [=](Trial &trial) {
        Ints const more = numbers(n, 30000);
        Ints array = numbers(0, n, mode);
        void *old = amDynamicArrayCopy(array.Data(), 0), *result = nullptr;
        trial.run([&] { result = edit(old, more.Data()); });
        array.Adopt(static_cast<int *>(result != nullptr ? result : old));
        return stateOf(result != nullptr, array);
    });
}

/// `ask` returns a number: `neutral` when a request was refused.
template <class Ask>
void CheckAnswer(int neutral, Ask const &ask, Caller = {}) {
    Check({neutral}, [&](Trial &trial) {
        int answer = -2;
        trial.run([&] { answer = ask(); });
        return State{answer};
    });
}

/// Was an array made? It is freed.
bool isMade(void *array) {
    if (array != nullptr) amDynamicArrayFree(array);
    return array != nullptr;
}

/// `find` is given a list of three elements. Refused, it returns `result` and leaves `count`.
template <class T, class Find>
void CheckFound(int result, int count, Find const &find, Caller = {}) {
    Check({result, count}, [&](Trial &trial) {
        suDynamicArray<T> list;
        for (int i = 0; i < 3; ++i) list.Add(T());
        int found = -2;
        trial.run([&] { found = find(list); });
        return State{found, list.Count()};
    });
}

TEST(Exhausted, AnArrayIsNotMadeOrIsUntouched) {
    Ints const model = numbers(0, 9);
    CheckAnswer(0, [] { return isMade(suDynArrayAlloc(9, 4, 1, 4)); });
    CheckAnswer(0, [] { return isMade(suDynArrayAllocSpecial(9, 4, 1, 4)); });
    CheckAnswer(0, [&] { return isMade(suDynArrayAlloc1(9, model.Data())); });
    CheckAnswer(0, [&] { return isMade(amDynamicArrayCopy(model.Data(), 1)); });
    CheckEdit(9, 1, true, amDynamicArrayAdd);
    CheckEdit(40000, 2, true, amDynamicArrayAdd);
    CheckEdit(40000, 2, true, amDynamicArrayAppend);
    using In = void const *;
    CheckEdit(2000, 1, true,
              [](void *to, In more) { return amDynamicArrayInsertAt(to, 2000, more, 3000); });
    CheckEdit(40000, 2, false, [](void *to, In) { return amDynArrayRealloc(to, 90000); });
    CheckEdit(9, 1, false, [](void *to, In) { return amDynamicArrayFreeExtra(to, -1.0); });
}

/// Its elements 6 to 8 are behind its end.
TEST(Exhausted, ElementsOfAnArrayItselfAreInsertedOrNot) {
    Check(upTo(6, 0), [](Trial &trial) {
        Ints list = numbers(0, 9);
        amDynamicArrayResize(list.Data(), 6);
        void *result = nullptr;
        trial.run([&] { result = amDynamicArrayInsertAt(list.Data(), 6, &list[6], 3); });
        return stateOf(result == list.Data(), list);
    });
}

TEST(Exhausted, AListIsEmpty) {
    for (int const count : {0, 8, 24})
        Check({-1}, [count](Trial &trial) {
            Ints list;
            for (int i = 0; i < count; ++i) list.Add(i);
            int index = 0;
            trial.run([&] { index = list.Add(count); });
            return stateOf(index, list);
        });
    Ints const list = numbers(0, 9);
    CheckAnswer(0, [&] { return Ints(list).Count(); });
    Check({0}, [&](Trial &trial) {
        Ints other = numbers(0, 20);
        trial.run([&] { other = list; });
        return stateOf(0, other);
    });
    CheckAnswer(-2, [] { // -1, and no words
        // Without a pointer to the list, clang does not allocate.
        [[maybe_unused]] static su_CDWordArray *volatile seen;
        su_CDWordArray words;
        seen = &words;
        int const index = words.Add(1);
        return 2 * index + words.GetSize();
    });
}

#ifdef VEXMATH_INTEROP_NLOHMANN_JSON_H
TEST(Exhausted, AListFromJsonThrows) {
    nlohmann::json const written = std::vector<int>(30, 7);
    Check({true}, [&](Trial &trial) {
        Ints list = numbers(0, 3);
        bool const threw = trial.throws([&] { written.get_to(list); });
        EXPECT_TRUE(!threw || list.Count() == 3 || list.Count() == 0);
        return threw ? State{true} : stateOf(false, list);
    });
}
#endif

/// `tessellate` returns an array, or adds to a list of three points. Refused, there is no array,
/// and the list stays or, when it could not grow, is empty.
template <class Tessellate>
void CheckPolyline(Tessellate const &tessellate, Caller = {}) {
    for (bool const toList : {false, true})
        Check({0, false, 3}, [&](Trial &trial) {
            Points list;
            for (int i = 0; i < 3; ++i) list.Add(P());
            P *array = nullptr;
            int count = -1;
            trial.run([&] { tessellate(toList ? nullptr : &array, count, &list); });
            bool const isMade = array != nullptr, isEmptied = toList && list.Count() == 0;
            delete[] array;
            return State{count, isMade, isEmptied && count == 0 ? 3 : list.Count()};
        });
}

TEST(Exhausted, APolylineHasCountZero) {
    P const o, p(2.0, -2.0, 0.0), q(2.0, 2.0, 0.0);
    arcEdgeData const arc{o, {0.0, 0.0, 1.0}, 2.0};
    ellipseEdgeData const ellipse{o, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, 2.0, 1.0, p, p};
    parabolaEdgeData const conic{o, P(1.0, 0.0, 0.0), {}, p, q, {0.0, 0.0, 1.0}};
    CheckPolyline([&](auto &&...out) { mg_TessArc(&arc, &p, &p, 1e-3, out...); });
    CheckPolyline([&](auto &&...out) { mg_TessEllipse(&ellipse, &p, &p, 1e-3, out...); });
    for (auto *const tessellate : {mg_TessParabola, mg_TessBConic, mg_TessParabolaOrBConic})
        CheckPolyline([&](auto &&...out) { tessellate(&conic, 1e-3, out...); });
}

template <class List>
bool areSame(List const &a, List const &b) {
    return std::size(a) == std::size(b)
           && std::memcmp(std::data(a), std::data(b), std::size(a) * sizeof *std::data(a)) == 0;
}

TEST(Exhausted, PointsAreSorted) {
    for (int const n : {300, 3000})
        Check({true}, [n](Trial &trial) {
            Random random;
            std::vector<P> points(static_cast<std::size_t>(n));
            for (P &p : points) p = random.triple<P>(0.0, 1e6);
            std::vector<P> sorted = points;
            auto const isLess = [](P const &p, P const &q) { return p.x() < q.x(); };
            std::sort(sorted.begin(), sorted.end(), isLess);
            trial.run([&] { mg_pointQuickSort(points.data(), 0, n - 1); });
            return State{areSame(points, sorted)};
        });
}

/// A tour of n points, one of them at the given x. Refused, the order is the identity, or empty
/// when it has no room for that.
void CheckTour(int n, double x, bool hasRoom, Caller = {}) {
    for (auto *const tour : {mg_OpenTSP, mg_ClosedTSP})
        Check(upTo(n, 0), [=](Trial &trial) {
            Random random;
            Points points;
            for (int i = 0; i < n; ++i) points.Add(random.triple<P>(0.0, 9.0));
            points[0].set_x(x);
            Ints order;
            if (hasRoom) order = numbers(0, n);
            trial.run([&] { tour(points, order); });
            return !hasRoom && order.Count() == 0 ? upTo(n, 0) : stateOf(0, order);
        });
}

TEST(Exhausted, ATourIsTheIdentity) {
    CheckTour(20, 1.0, true);
    CheckTour(20, 1.0, false);
    CheckTour(20, std::nan(""), false);
    CheckTour(2, 1.0, false);
}

TEST(Exhausted, PointsAreNotFoundAndTheListIsEmptyOrStays) {
    mgPoint_c const o, corners[] = {o, {3.0, 0.0, 0.0}, {0.0, 3.0, 0.0}};
    mgRect const rect(0.0, 3.0, 3.0, 0.0);
    int const three = 3;
    Points lines;
    for (int i = 0; i < 40; ++i) lines.Add(mgPoint_c(i % 2, i / 4, 0.0));
    CheckFound<P>(0, 0,
                  [&](auto &to) { return mg_calcHatchLinesCircle2D(o, 3.0, o, 0.1, 1.0, to); });
    CheckFound<P>(0, 0, [&](auto &to) { return mg_calcHatchLinesRect2D(rect, o, 0.0, 1.0, to); });
    CheckFound<P>(0, 0, [&](auto &to) {
        return mg_calcHatchLinesPolygon2D(1, &three, corners, o, 0.0, 1.0, to);
    });
    CheckFound<P>(0, 0,
                  [&](auto &to) { return parabolicPoints(corners[1], corners[2], o, 20, to); });
    CheckFound<P>(0, 3, [&](auto &to) { return mg_MergeLines2D(lines, to, 1e-8); });
}

TEST(Exhausted, AHullIsNotMade) {
    for (int const n : {6, 30, 2100})
        Check({0, true, true}, [n](Trial &trial) {
            Random random;
            Flat input, hull;
            for (int i = 0; i < n; ++i) {
                U const u = direction(random);
                input.Add(i % 2 == 0 || i > 20 ? mg2DPoint_c(u.x(), u.y()) : input[i - 1]);
            }
            for (int i = 0; i < 7; ++i) hull.Add(mg2DPoint_c());
            Flat const given = input, held = hull;
            int result = -1;
            trial.run([&] { result = convexHull(input, hull); });
            return State{result, areSame(input, given), areSame(hull, held)};
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
        std::vector<mgXform_c> apart; // but for the last four
        for (int i = 0; i < n; ++i)
            apart.push_back(mg_RotateXform(1.0, {1, 2, 3}, 0.0)
                            * mg_TranslateXform(V(100.0 * std::min(i, n - 4), 0, 0)));
        mgBBox_c const *const all = boxes.data();
        CheckFound<Pair>(-1, 0, [&](auto &to) { return mg_FindClashes(all, n, 0.0, to); });
        CheckFound<Pair>(-1, 0,
                         [&](auto &to) { return mg_FindClashes(all, placements.data(), n, to); });
        CheckFound<Pair>(-1, 0, [&](auto &to) { return mg_FindClashes(all, apart.data(), n, to); });
        CheckFound<Pair>(-1, 0, [&](auto &to) { return mg_FindClashes(all, n, all, n, 0.0, to); });
    }
}

/// The index of 300 boxes at one place, the last one placed by a view.
TEST(Exhausted, AnIndexIsEmptyAndItsListsToo) {
    std::vector<mgBBox_c> const boxes(300, mgBBox_c(mgPoint_c(1.0, 2.0, 3.0), 2.0));
    mgPoint_c const p(1.0, 2.0, 3.0);
    mgUnitVector_c const dir(1.0, 2.0, 3.0);
    mgXform_c placements[300];
    mgXform_c const *const choices[] = {nullptr, placements};
    for (mgXform_c const *const placed : choices)
        Check({0, 0}, [&](Trial &trial) {
            mgBoxIndex_c index;
            index.build(boxes.data(), nullptr, 20);
            placements[299].SetHelper(viewWithARecord().GetHelper());
            placements[299].addPerspectiveInfo(mgPerspInfo_c());
            int built = -1;
            trial.run([&] { built = index.build(boxes.data(), placed, 300); });
            Ints which;
            return State{built, index.around(p, 0.0, which)};
        });
    mgBoxIndex_c index;
    index.build(boxes.data(), nullptr, 300);
    int const some[] = {0, 1};
    CheckFound<Pair>(-1, 0, [&](auto &to) { return index.clashes(0.0, to); });
    CheckFound<Pair>(-1, 0, [&](auto &to) { return index.clashesOf(some, 2, 0.0, to); });
    CheckFound<int>(-1, 0, [&](auto &to) { return index.clashesWith(boxes[0], 0.0, to); });
    CheckFound<int>(-1, 0, [&](auto &to) { return index.around(p, 0.0, to); });
    CheckFound<int>(-1, 0, [&](auto &to) { return index.onLine({}, dir, to); });
    Check({0, 1}, [&](Trial &trial) { // the box stays, or is where the view shows it
        mgXform_c const view = viewWithARecord();
        mgBoxIndex_c one;
        one.build(boxes.data(), placements, 1);
        mgPoint_c hit;
        int first = -2;
        trial.run([&] {
            one.place(0, view);
            one.move(0, boxes[1]);
            first = one.firstOnRay({}, dir, &hit);
        });
        Ints which;
        return State{first, one.around(p, 0.0, which)};
    });
}

TEST(Exhausted, OnlyTheCopyOfARecordThrows) {
    P const o;
    Check({true, true}, [&](Trial &trial) {
        mgXform_c const view = viewWithARecord();
        mgXform_c const old = raw({}, {7.0, 8.0, 9.0}, 4.0, 1);
        std::vector<mgXform_c> made(12, old);
        bool const threw = trial.throws([&] {
            mgXform_c const copy(view), before = copy * view, behind = view * before;
            made[0] = view;
            made[1] *= view;
            made[2].addPerspectiveInfo(mgPerspInfo_c());
            made[3].iCopyPerspectiveInfo(view);
            made[4] = mg_ZoomToPosition(o, o, o, mg_ScaleXform(view, 3.0), 2.0);
            made[5] = mg_ZoomBoxToBox({}, {}, o, o, mgGenXform_c(mgGenXform_c(view)), 2.0);
            mg_MultiplyXforms(&made[6], 5, view);
            mg_MultiplyXforms(&made[11], 1, &view);
        });
        bool const areDoneOrUntouched = std::all_of(made.begin(), made.end(), [&](auto &x) {
            return x.hasPerspective() != 0 || (threw && bitsEqual("", "", old, x));
        });
        return State{threw == trial.refused, areDoneOrUntouched};
    });
}

TEST(Exhausted, AGeneralTransformIsMadeOrSetWholeOrNotAtAll) {
    double const factors[] = {2.0, 3.0, 4.0};
    mgXform_c const view = viewWithARecord();
    using General = std::unique_ptr<mgGenXform_c>;
    CheckAnswer(0, [&] { return General(mgGenXform_c::create(&view, &view, factors)) != nullptr; });
    Check({false, 1, 0}, [&](Trial &trial) {
        mgGenXform_c general;
        bool done = false;
        trial.throws([&] { done = general.set(&view, factors) != 0; });
        return State{done, general.isScaleIdentity(), general.getBodyXform().hasPerspective()};
    });
    CheckAnswer(0, [] { return std::unique_ptr<U>(U::random()) != nullptr; });
}

TEST(Exhausted, ATextIsEmptyAndAnArchiveThrows) {
    Check({0}, [](Trial &trial) {
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
        int wrong = 0;
        for (int i = 0; i < 3; ++i) {
            int const length = texts[i].GetLength(), whole[] = {600, 31, 11};
            wrong += length != whole[i] && !(length == 0 && trial.refused);
        }
        return State{wrong};
    });
    Check({true, 1, 1}, [](Trial &trial) {
        mgXform_c view = viewWithARecord();
        std::stringstream stream(std::string(9, '\0'));
        su_CArchive archive(stream);
        // su_CArchiveError, or std::bad_alloc when there is no memory for its text.
        bool const threw = trial.throws<std::exception>([&] { view.restore(archive); });
        return State{threw, view.hasPerspective(), view.translation().x() == 1.0};
    });
}

template <class Set, class Code>
void CheckSets() {
    Check({true, 5}, [](Trial &trial) {
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
        return State{isPart, trial.refused ? 5 : count};
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
