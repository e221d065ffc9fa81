// SPDX-License-Identifier: MIT
// Which vector units the library may use.

#include <vexmath/bulk.h>

#include "vector/vector_units.h"

#include <cstdlib>
#include <cstring>
#include <mutex>

std::atomic<int> vexmath::detail::vectorUnits{-1};

namespace {

bool processorHasThem() {
#if defined(VEXMATH_AVX2)
    __builtin_cpu_init(); // for calls from constructors that run before those of the compiler
    return __builtin_cpu_supports("avx2") != 0;
#else
    return false;
#endif
}

/// The switch, with what the environment says at the first look.
std::atomic<int> &use() {
    static std::atomic<int> state = [] {
        char const *const text = std::getenv("VEXMATH_USE_VECTOR_UNITS");
        return text == nullptr || std::strcmp(text, "0") != 0 ? 1 : 0;
    }();
    return state;
}

} // namespace

int vexmath::detail::findVectorUnits() {
    static int const available = processorHasThem() ? 1 : 0;
    static std::mutex oneByOne; // the switch and what follows from it change together
    std::lock_guard<std::mutex> const lock(oneByOne);
    int const both = available & use().load(std::memory_order_relaxed);
    vectorUnits.store(both, std::memory_order_relaxed);
    return both;
}

int mg_GetUseVectorUnits() { return use().load(std::memory_order_relaxed); }

int mg_SetUseVectorUnits(int value) {
    int const previous = use().exchange(value != 0 ? 1 : 0, std::memory_order_relaxed);
    vexmath::detail::findVectorUnits();
    return previous;
}
