// SPDX-License-Identifier: MIT
// Every comparison of the public classes, in both directions. Since C++20 a compiler also considers
// each == with its operands exchanged, and makes != of it: neither may be ambiguous.

#ifndef VEXMATH_TESTS_HEADERS_COMPARISONS_H
#define VEXMATH_TESTS_HEADERS_COMPARISONS_H

#include <vexmath/vexmath.h>

template <class A, class B>
bool compare(A const &a, B const &b) {
    return a == b || b == a;
}

template <class A, class B>
bool differ(A const &a, B const &b) {
    return a != b || b != a;
}

template bool compare(mgBBox_c const &, mgBBox_c const &);
template bool compare(mgMatrix_c const &, mgMatrix_c const &);
template bool compare(mgMatrix4_c const &, mgMatrix4_c const &);
template bool compare(mgModelPerspInfo_c const &, mgModelPerspInfo_c const &);
template bool compare(mgPerspInfo_c const &, mgPerspInfo_c const &);
template bool compare(mgPoint_c const &, mgPoint_c const &);
template bool compare(mgPoint_c const &, mgVector_c const &);
template bool compare(mgQuaternion_c const &, mgQuaternion_c const &);
template bool compare(mgUnitVector_c const &, mgUnitVector_c const &);
template bool compare(mgUnitVector_c const &, mgVector_c const &);
template bool compare(mgVector_c const &, mgVector_c const &);
template bool compare(uoSelectConstraint_c const &, uoSelectConstraint_c const &);
template bool compare(uoSelectType_c const &, uoSelectType_c const &);

template bool differ(mgPoint_c const &, mgPoint_c const &);
template bool differ(mgPoint_c const &, mgVector_c const &);
template bool differ(mgUnitVector_c const &, mgUnitVector_c const &);
template bool differ(mgUnitVector_c const &, mgVector_c const &);
template bool differ(mgVector_c const &, mgVector_c const &);
template bool differ(uoSelectConstraint_c const &, uoSelectConstraint_c const &);
template bool differ(uoSelectType_c const &, uoSelectType_c const &);

#endif
