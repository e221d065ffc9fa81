// SPDX-License-Identifier: MIT
// What a process may be like: threads that share objects, small stacks, other locales.

#include <pthread.h>

#include <atomic>
#include <clocale>
#include <locale>
#include <memory>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "golden/golden.h"

#if defined(VEXMATH_TEST_SANITIZED)
/// The C library keeps the search path of locales.
extern "C" __attribute__((visibility("default"))) char const *__lsan_default_suppressions() {
    return "leak:argz_add_sep";
}
#endif

namespace {

using namespace golden;

/// Many objects, which nothing changes.
struct Many {
    static constexpr int kBoxes = 400, kPoints = 2200; // from about 2000 on, sorts go another way
    Many() {
        Stream in(Numbers::ordinary);
        for (int k = 0; k < kBoxes; ++k) {
            boxes.emplace_back(in.point(), 1.0);
            placements.push_back(in.placement());
        }
        for (int k = 0; k < kPoints; ++k) points.Add(in.point()), plane.Add({in.next(), in.next()});
        index.build(boxes.data(), nullptr, kBoxes);
        placed.build(boxes.data(), placements.data(), kBoxes);
    }
    std::vector<mgBBox_c> boxes;
    std::vector<mgXform_c> placements;
    List points;
    suDynamicArray<mg2DPoint_c> plane;
    mgBoxIndex_c index, placed;
};

void search(Many const &many, Bits &out) {
    addClashes(out, many.boxes.data(), many.placements.data(), Many::kBoxes);
    for (mgBoxIndex_c const *const index : {&many.index, &many.placed}) {
        Pairs pairs;
        out.add(index->clashes(0.1, pairs));
        out.add(pairs);
        addSearches(out, *index, many.boxes[0], many.points[0], mgUnitVector_c(1.0, 2.0, 3.0));
    }
    List sorted = many.points;
    suDynamicArray<mg2DPoint_c> plane = many.plane, hull;
    mg_pointQuickSort(sorted.Data(), 0, sorted.Count() - 1);
    out.add(convexHull(plane, hull), uo_GenSelSOLIDBODIESFIRST.contains(uo_GenSelSOLIDBODIES));
    out.add(sorted, hull);
}

/// A name, and the bits of its results.
using Results = std::vector<std::pair<std::string, std::uint64_t>>;

/// Of every exported function, but for those that need a lock: the random direction, which has no
/// row, and the row that moves the switch of mgBBox_c.
Results results(Many const &many, bool shares = true) {
    Bits found;
    search(many, found);
    Results all(1, {"many", found.value()});
    for (Row const &row : allRows()) {
        if (row.name == "without the sphere") continue;
        Stream in(Numbers::ordinary);
        if (shares) in.share();
        Bits out;
        for (int k = 0; k < 12; ++k) row.run(in, out);
        all.emplace_back(row.name, out.value());
    }
    return all;
}

void CheckResults(char const *what, Results const &expected, Results const &actual) {
    ASSERT_EQ(expected.size(), actual.size()) << what;
    for (std::size_t k = 0; k < expected.size(); ++k)
        EXPECT_EQ(expected[k], actual[k]) << what << ", " << expected[k].first;
}

/// The sanitizer of threads watches; equal results show that no thread saw half a change. One more
/// thread moves the switch of the vector units, which changes no bit.
TEST(Process, ThreadsShareObjectsAndUseTheirOwn) {
    constexpr int kThreads = 8;
    Many const shared;
    Results ofShared[kThreads], ofOwn[kThreads];
    std::vector<std::thread> threads;
    std::atomic<bool> done{false};
    std::thread toggling([&] {
        for (int use = 0; !done; use = !use) mg_SetUseVectorUnits(use), std::this_thread::yield();
    });
    for (int k = 0; k < kThreads; ++k)
        threads.emplace_back([&, k] {
            ofShared[k] = results(shared);
            ofOwn[k] = results(Many(), false);
        });
    for (std::thread &thread : threads) thread.join();
    done = true;
    toggling.join();
    mg_SetUseVectorUnits(1);
    Results const expected = results(shared), own = results(shared, false);
    for (int k = 0; k < kThreads; ++k) {
        CheckResults("shared", expected, ofShared[k]);
        CheckResults("own", own, ofOwn[k]);
    }
}

TEST(Process, TheEnvironmentChoosesVectorUnits) {
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // begins a program, in which nothing was chosen
    auto const check = [](char const *text, int use) {
        setenv("VEXMATH_USE_VECTOR_UNITS", text, 1);
        EXPECT_EXIT(std::exit(mg_GetUseVectorUnits()), testing::ExitedWithCode(use), "") << text;
        unsetenv("VEXMATH_USE_VECTOR_UNITS");
    };
    check("0", 0), check("1", 1), check("", 1);
}

TEST(Process, AStackOf64KilobytesIsEnough) {
#if defined(VEXMATH_TEST_SANITIZED) || !defined(NDEBUG)
    GTEST_SKIP() << "only of optimised code without sanitizers";
#else
    struct Run {
        Many const many;
        Results found;
    } run;
    pthread_t thread;
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(0, pthread_attr_setstacksize(&attributes, 64 * 1024));
    auto const start = [](void *data) -> void * {
        auto *const own = static_cast<Run *>(data);
        own->found = results(own->many);
        return nullptr;
    };
    ASSERT_EQ(0, pthread_create(&thread, &attributes, start, &run));
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    CheckResults("small stack", results(run.many), run.found);
#endif
}

TEST(Process, ALocaleChangesTextsAlone) {
    char const *const german = "de_DE.UTF-8";
    Many const many;
    Results const expected = results(many);
    if (std::setlocale(LC_ALL, german) == nullptr) GTEST_SKIP() << "no locale with a decimal comma";
    std::locale const before = std::locale::global(std::locale(german));
    Results const found = results(many);
    std::locale::global(before);
    std::setlocale(LC_ALL, "C");
    std::string changed;
    for (std::size_t k = 0; k < found.size(); ++k)
        if (found[k] != expected[k]) changed += found[k].first + "; ";
    EXPECT_EQ("text of mgBBox_c; text of mgXform_c; CString::Format; dump; ", changed);
}

} // namespace
