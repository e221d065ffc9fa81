// SPDX-License-Identifier: MIT
// How a function is inlined that the compiler's estimate would leave out of line, and the other way
// round.

#ifndef VEXMATH_SRC_INLINING_H
#define VEXMATH_SRC_INLINING_H

/// For a step in the middle of a hot chain of a few dozen numbers: called, it would have them all
/// written to memory and read back.
#if defined(__GNUC__)
#define VEXMATH_ALWAYS_INLINE __attribute__((always_inline)) inline
#elif defined(_MSC_VER)
#define VEXMATH_ALWAYS_INLINE __forceinline
#else
#define VEXMATH_ALWAYS_INLINE inline
#endif

/// For the rare or the slow way behind a quick one, which would save registers for it.
#if defined(__GNUC__)
#define VEXMATH_NEVER_INLINE __attribute__((noinline))
#elif defined(_MSC_VER)
#define VEXMATH_NEVER_INLINE __declspec(noinline)
#else
#define VEXMATH_NEVER_INLINE
#endif

#endif
