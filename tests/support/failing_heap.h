// SPDX-License-Identifier: MIT
// A C++ heap of which one allocation can fail. It replaces the heap of the whole program, so one
// file of a test program includes it.

#ifndef VEXMATH_TESTS_SUPPORT_FAILING_HEAP_H
#define VEXMATH_TESTS_SUPPORT_FAILING_HEAP_H

#include <cstdlib>
#include <new>

#include <gtest/gtest.h>

namespace support {

inline int allocationsUntilFailure = -1; ///< negative: none fails

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
    bool const fails = support::allocationsUntilFailure == 0;
    if (support::allocationsUntilFailure >= 0) --support::allocationsUntilFailure;
    return fails ? nullptr : std::malloc(size);
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

#endif
