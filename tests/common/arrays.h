// SPDX-License-Identifier: MIT
// Shared by the tests: the library's arrays, filled from and read into standard lists.

#ifndef VEXMATH_TESTS_COMMON_ARRAYS_H
#define VEXMATH_TESTS_COMMON_ARRAYS_H

#include "common/geometry.h"

namespace common {

/// Ranges of changed elements: the first and the last of each.
using Changes = std::vector<std::pair<int, int>>;

/// An array that keeps what it was told of its changes since it was made.
template <class T>
struct Watched : suDynamicArray<T> {
    Watched(std::vector<T> const &elements = {}) {
        for (T const &element : elements) this->Add(element);
        told.clear();
    }
    std::vector<T> list() const { return {this->Data(), this->Data() + this->Count()}; }
    void elementsChanged(int first, int last) override {
        EXPECT_EQ(this->Count() - 1, last); // all elements that are told of exist
        told.emplace_back(first, last);
    }

    Changes told;
};

/// Equal to the bit, element by element.
template <class T>
::testing::AssertionResult bitsEqual(char const *aText, char const *bText, std::vector<T> const &a,
                                     std::vector<T> const &b) {
    if (a.size() != b.size())
        return ::testing::AssertionFailure()
               << aText << " has " << a.size() << " elements, " << bText << " has " << b.size();
    auto result = ::testing::AssertionSuccess();
    for (std::size_t i = 0; i < a.size() && result; ++i)
        result = bitsEqual(aText, bText, a[i], b[i]);
    return result;
}

} // namespace common

#endif
