// SPDX-License-Identifier: MIT
// Whether the library may use AVX2.

#include <vexmath/bulk.h>

#include "simd/dispatch.h"

#include <cstdlib>
#include <cstring>
#include <mutex>

std::atomic<int> vexmath::detail::simdState{-1};

namespace {

bool processorHasAvx2() {
#if defined(VEXMATH_AVX2)
    __builtin_cpu_init(); // for calls from static constructors that run before the compiler's
    return __builtin_cpu_supports("avx2") != 0;
#else
    return false;
#endif
}

/// The switch. The environment gives its first value.
std::atomic<int> &use() {
    static std::atomic<int> state = [] {
        char const *const text = std::getenv("VEXMATH_USE_VECTOR_UNITS");
        return text == nullptr || std::strcmp(text, "0") != 0 ? 1 : 0;
    }();
    return state;
}

} // namespace

int vexmath::detail::findSimd() {
    static int const available = processorHasAvx2() ? 1 : 0;
    static std::mutex together; // the switch and the flag made from it must agree
    std::lock_guard<std::mutex> const lock(together);
    int const both = available & use().load(std::memory_order_relaxed);
    simdState.store(both, std::memory_order_relaxed);
    return both;
}

int mg_GetUseVectorUnits() { return use().load(std::memory_order_relaxed); }

int mg_SetUseVectorUnits(int value) {
    int const previous = use().exchange(value != 0 ? 1 : 0, std::memory_order_relaxed);
    vexmath::detail::findSimd();
    return previous;
}
