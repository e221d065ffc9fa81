// SPDX-License-Identifier: MIT
// A heap of which one allocation can fail: operator new, and realloc, which makes the dynamic
// arrays. It replaces those of the whole program, so only one file of a test program includes it.

#ifndef VEXMATH_TESTS_SUPPORT_FAILING_HEAP_H
#define VEXMATH_TESTS_SUPPORT_FAILING_HEAP_H

#include <cstdlib>
#include <new>

#include <gtest/gtest.h>

#include <vexmath/export.h>

namespace support {

inline int allocationsUntilFailure = -1; ///< negative: none fails

inline bool allocationFails() {
    return allocationsUntilFailure >= 0 && allocationsUntilFailure-- == 0;
}

/// Calls work() with its first allocation failing, then with its second, and so on until it needs
/// no more.
template <class Work>
void forEachFailingAllocation(Work work) {
    for (int k = 0, unused = -1; unused < 0; ++k) {
        allocationsUntilFailure = k;
        EXPECT_NO_THROW(work()) << "allocation " << k;
        unused = allocationsUntilFailure;
        allocationsUntilFailure = -1;
    }
}

} // namespace support

void *operator new(std::size_t size, std::nothrow_t const &) noexcept {
    return support::allocationFails() ? nullptr : std::malloc(size);
}
void *operator new(std::size_t size) {
    if (void *const block = operator new(size, std::nothrow)) return block;
    throw std::bad_alloc();
}
void *operator new[](std::size_t size) { return operator new(size); }
void *operator new[](std::size_t size, std::nothrow_t const &tag) noexcept {
    return operator new(size, tag);
}
void operator delete(void *block) noexcept { std::free(block); }
void operator delete[](void *block) noexcept { std::free(block); }
void operator delete(void *block, std::size_t) noexcept { std::free(block); }
void operator delete[](void *block, std::size_t) noexcept { std::free(block); }

#if defined(__linux__)
#include <dlfcn.h>
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
// clang links the sanitizer's heap into the program, where no definition may precede it.
#define VEXMATH_TESTS_KEEP_REALLOC
#endif
#endif
#if !defined(VEXMATH_TESTS_KEEP_REALLOC)
extern "C" VEXMATH_SHARED_TEMPLATE void *realloc(void *block, std::size_t size) noexcept {
    static auto const next =
        reinterpret_cast<void *(*)(void *, std::size_t)>(dlsym(RTLD_NEXT, "realloc"));
    return support::allocationFails() ? nullptr : next(block, size);
}
#endif
#endif

#endif
