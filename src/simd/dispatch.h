// SPDX-License-Identifier: MIT
// Whether AVX2 code may run, and the marks of such code.

#ifndef VEXMATH_SRC_SIMD_DISPATCH_H
#define VEXMATH_SRC_SIMD_DISPATCH_H

#include <atomic>

// Not with GCC for Windows: it stores these registers on a stack that it does not align for them.
#if defined(__GNUC__) && defined(__x86_64__) && (defined(__clang__) || !defined(_WIN32))
#include <immintrin.h>

/// Marks a function that is compiled for AVX2, whatever the rest of the library is compiled for.
/// Fused multiply-add is a separate feature and stays off.
#define VEXMATH_AVX2 __attribute__((target("avx2")))
/// The same for a small function that must be inlined into such functions.
#define VEXMATH_AVX2_STEP __attribute__((target("avx2"), always_inline)) inline
#endif

namespace vexmath::detail {

/// 1 or 0 after the first call of findSimd; negative before.
extern std::atomic<int> simdState;

/// Sets and returns simdState, from the processor and the switch.
int findSimd();

/// May functions marked VEXMATH_AVX2 be called? The processor must have AVX2, and the switch of
/// bulk.h must allow it.
inline bool hasSimd() {
    int const known = simdState.load(std::memory_order_relaxed);
    return (known >= 0 ? known : findSimd()) != 0;
}

} // namespace vexmath::detail

#endif
