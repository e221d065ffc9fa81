// SPDX-License-Identifier: MIT
// Heaps that count and refuse requests. They serve the whole program, the library too.

#ifndef VEXMATH_TESTS_MEMORY_HEAP_H
#define VEXMATH_TESTS_MEMORY_HEAP_H

#include <cstdlib>

/// Is the C heap replaced too? A sanitizer has one of its own; other C libraries are not known
/// here.
#if defined(__GLIBC__) && !defined(VEXMATH_TEST_SANITIZED)
#define VEXMATH_TEST_HAS_C_HEAP 1
#else
#define VEXMATH_TEST_HAS_C_HEAP 0
#endif

namespace heap {

extern int asked; ///< requests for a block so far
extern int held;  ///< blocks that are not released yet

/// Grants `granted` requests from now on, then refuses one or, when `lasting`, all.
void refuseAfter(int granted, bool lasting);
/// Grants all requests again. Returns the number of refused ones.
int grantAll();

} // namespace heap

#endif
