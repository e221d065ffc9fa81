// SPDX-License-Identifier: MIT
// Which vector units the bulk operations may use.

#include <vexmath/bulk.h>

#include "vector/four_points.h"

#include <atomic>
#include <cstdlib>
#include <cstring>

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

bool vexmath::detail::hasVectorUnits() {
    static bool const available = processorHasThem();
    return available && use().load(std::memory_order_relaxed) != 0;
}

int mg_GetUseVectorUnits() { return use().load(std::memory_order_relaxed); }

int mg_SetUseVectorUnits(int value) {
    return use().exchange(value != 0 ? 1 : 0, std::memory_order_relaxed);
}
