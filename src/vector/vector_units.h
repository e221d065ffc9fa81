// SPDX-License-Identifier: MIT
// Code for vector units that not every processor has.

#ifndef VEXMATH_SRC_VECTOR_VECTOR_UNITS_H
#define VEXMATH_SRC_VECTOR_VECTOR_UNITS_H

#include <atomic>

// Not by GCC for Windows, which keeps these registers on a stack that it does not align for them.
#if defined(__GNUC__) && defined(__x86_64__) && (defined(__clang__) || !defined(_WIN32))
#include <immintrin.h>

/// Marks a function that is compiled for AVX2, whatever the rest of the library is compiled for.
/// Fused multiplication and addition is a feature of its own and stays off.
#define VEXMATH_AVX2 __attribute__((target("avx2")))
/// The same for a step in the middle of a chain.
#define VEXMATH_AVX2_STEP __attribute__((target("avx2"), always_inline)) inline
#endif

namespace vexmath::detail {

/// 1 or 0 as soon as somebody has asked; negative before.
extern std::atomic<int> vectorUnits;

/// Asks processor and environment, and keeps the answer.
int findVectorUnits();

/// May functions marked VEXMATH_AVX2 be called: does the processor have the units, and does the
/// switch of bulk.h allow them?
inline bool hasVectorUnits() {
    int const known = vectorUnits.load(std::memory_order_relaxed);
    return (known >= 0 ? known : findVectorUnits()) != 0;
}

} // namespace vexmath::detail

#endif
