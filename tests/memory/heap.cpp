// SPDX-License-Identifier: MIT
// Replaces the C++ heap of the program and, where it can, the C heap.

#include "memory/heap.h"

#include <climits>
#include <new>

int heap::asked = 0;
int heap::held = 0;

#if VEXMATH_TEST_HAS_C_HEAP // glibc's heap, whose other names are replaced below
extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *block, std::size_t size);
void __libc_free(void *block);
}
#define VEXMATH_TEST_HEAP(function) __libc_##function
#else
#define VEXMATH_TEST_HEAP(function) std::function
#endif

namespace {

int stillGranted = INT_MAX;
bool refusesAll = false;
int refused = 0;

bool grants() {
    ++heap::asked;
    if (stillGranted-- > 0) return true;
    stillGranted = refusesAll ? 0 : INT_MAX;
    ++refused;
    return false;
}

void *handOut(void *block) {
    heap::held += block != nullptr;
    return block;
}

void *take(std::size_t size) {
    return grants() ? handOut(VEXMATH_TEST_HEAP(malloc)(size)) : nullptr;
}

void giveBack(void *block) {
    heap::held -= block != nullptr;
    VEXMATH_TEST_HEAP(free)(block);
}

} // namespace

void heap::refuseAfter(int granted, bool lasting) {
    stillGranted = granted;
    refusesAll = lasting;
    refused = 0;
}

int heap::grantAll() {
    stillGranted = INT_MAX;
    return refused;
}

void *operator new(std::size_t size) {
    if (void *const block = take(size)) return block;
    throw std::bad_alloc();
}
void *operator new[](std::size_t size) { return operator new(size); }
void *operator new(std::size_t size, std::nothrow_t const &) noexcept { return take(size); }
void *operator new[](std::size_t size, std::nothrow_t const &) noexcept { return take(size); }
void operator delete(void *block) noexcept { giveBack(block); }
void operator delete[](void *block) noexcept { giveBack(block); }
void operator delete(void *block, std::size_t) noexcept { giveBack(block); }
void operator delete[](void *block, std::size_t) noexcept { giveBack(block); }
void operator delete(void *block, std::nothrow_t const &) noexcept { giveBack(block); }
void operator delete[](void *block, std::nothrow_t const &) noexcept { giveBack(block); }

#if VEXMATH_TEST_HAS_C_HEAP
// Visible, so that the libraries of the program use them.
#pragma GCC visibility push(default)
extern "C" {
void *malloc(std::size_t size) { return take(size); }
void free(void *block) { giveBack(block); }
void *calloc(std::size_t count, std::size_t size) {
    return grants() ? handOut(__libc_calloc(count, size)) : nullptr;
}
void *realloc(void *old, std::size_t size) {
    if (old == nullptr) return take(size);
    return grants() ? __libc_realloc(old, size) : nullptr;
}
}
#pragma GCC visibility pop
#endif
