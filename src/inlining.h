// SPDX-License-Identifier: MIT
// Forces or prevents the inlining of a function where the compiler's estimate is wrong.

#ifndef VEXMATH_SRC_INLINING_H
#define VEXMATH_SRC_INLINING_H

/// For a step in a hot chain that keeps a few dozen numbers in registers. A call would write them
/// all to memory and read them back.
#if defined(__GNUC__)
#define VEXMATH_ALWAYS_INLINE __attribute__((always_inline)) inline
#elif defined(_MSC_VER)
#define VEXMATH_ALWAYS_INLINE __forceinline
#else
#define VEXMATH_ALWAYS_INLINE inline
#endif

/// For the rare, slow path behind a quick one. Inlined, it would make the quick path save
/// registers.
#if defined(__GNUC__)
#define VEXMATH_NEVER_INLINE __attribute__((noinline))
#elif defined(_MSC_VER)
#define VEXMATH_NEVER_INLINE __declspec(noinline)
#else
#define VEXMATH_NEVER_INLINE
#endif

#endif
