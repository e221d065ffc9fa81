// SPDX-License-Identifier: MIT
// The bookkeeping in front of element 0 of a dynamic array.

#ifndef VEXMATH_DETAIL_ARRAY_HEADER_H
#define VEXMATH_DETAIL_ARRAY_HEADER_H

#include <vexmath/dynamic_array.h>

namespace vexmath::detail {

inline amDynamicArrayHeader *headerOf(void *array) {
    return static_cast<amDynamicArrayHeader *>(array) - 1;
}

inline amDynamicArrayHeader const *headerOf(void const *array) {
    return static_cast<amDynamicArrayHeader const *>(array) - 1;
}

} // namespace vexmath::detail

#endif
