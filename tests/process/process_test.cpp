// SPDX-License-Identifier: MIT
// What a process may be like: threads that share objects, small stacks, other locales.

#include <pthread.h>

#include <atomic>
#include <clocale>
#include <locale>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include "common/operations.h"

namespace {

using namespace common;

/// The results of all operations but the two that need a lock.
std::vector<std::uint64_t> results(Objects const &objects) {
    std::vector<std::uint64_t> all;
    for (std::size_t k = 0; k + 2 < operations.size(); ++k)
        all.push_back(bitsOf(operations[k], objects));
    return all;
}

void CheckResults(char const *what, std::vector<std::uint64_t> const &expected,
                  std::vector<std::uint64_t> const &actual) {
    ASSERT_EQ(expected.size(), actual.size()) << what;
    for (std::size_t k = 0; k < expected.size(); ++k)
        EXPECT_EQ(expected[k], actual[k]) << what << ", " << operations[k].name;
}

/// The sanitizer of threads watches; equal results show that no thread saw half a change. One more
/// thread moves the switch of the vector units, which changes no bit.
TEST(Process, ThreadsShareObjectsAndUseTheirOwn) {
    constexpr int kThreads = 8;
    Objects const shared;
    std::vector<std::uint64_t> ofShared[kThreads], ofOwn[kThreads];
    std::vector<std::thread> threads;
    std::atomic<bool> done{false};
    std::thread toggling([&] {
        for (int use = 0; !done; use = !use) mg_SetUseVectorUnits(use), std::this_thread::yield();
    });
    for (int k = 0; k < kThreads; ++k)
        threads.emplace_back([&, k] {
            ofShared[k] = results(shared);
            ofOwn[k] = results(Objects());
        });
    for (std::thread &thread : threads) thread.join();
    done = true;
    toggling.join();
    mg_SetUseVectorUnits(1);
    auto const expected = results(shared);
    for (int k = 0; k < kThreads; ++k) {
        CheckResults("shared", expected, ofShared[k]);
        CheckResults("own", expected, ofOwn[k]);
    }
}

TEST(Process, AStackOf64KilobytesIsEnough) {
#if defined(VEXMATH_TEST_SANITIZED) || !defined(NDEBUG)
    GTEST_SKIP() << "only of optimised code without sanitizers";
#else
    struct Run {
        Objects const objects;
        std::vector<std::uint64_t> found;
    } run;
    pthread_t thread;
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(0, pthread_attr_setstacksize(&attributes, 64 * 1024));
    auto const start = [](void *data) -> void * {
        auto *const own = static_cast<Run *>(data);
        own->found = results(own->objects);
        return nullptr;
    };
    ASSERT_EQ(0, pthread_create(&thread, &attributes, start, &run));
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    CheckResults("small stack", results(run.objects), run.found);
#endif
}

/// Texts have the decimal comma; `Bits` does not see it.
TEST(Process, ALocaleChangesNothingButTheDecimalPointOfTexts) {
    char const *const german = "de_DE.UTF-8";
    auto const expected = results(Objects());
    if (std::setlocale(LC_ALL, german) == nullptr) GTEST_SKIP() << "no locale with a decimal comma";
    std::locale const before = std::locale::global(std::locale(german));
    auto const found = results(Objects());
    std::locale::global(before);
    std::setlocale(LC_ALL, "C");
    CheckResults("decimal comma", expected, found);
}

} // namespace
