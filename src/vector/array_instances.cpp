// SPDX-License-Identifier: MIT
// The lists that the library returns, each with its virtual table and run-time type.

#include <vexmath/point.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/vector.h>

template class suDynamicArray<int>;
template class suDynamicArray<double>;
template class suDynamicArray<mgPoint_c>;
template class suDynamicArray<mgVector_c>;
