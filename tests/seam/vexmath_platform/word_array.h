// SPDX-License-Identifier: MIT
// A host's word array: an instance of a template over a list of unsigned int.

#pragma once

#include <cstddef>
#include <deque>

namespace host {

template <class T>
class Array {
public:
    int Add(T value) {
        values_.push_back(value);
        return GetSize() - 1;
    }
    int GetSize() const { return static_cast<int>(values_.size()); }
    T &operator[](int index) { return values_[static_cast<std::size_t>(index)]; }
    T operator[](int index) const { return values_[static_cast<std::size_t>(index)]; }
    void RemoveAt(int index, int count = 1) {
        values_.erase(values_.begin() + index, values_.begin() + index + count);
    }
    void RemoveAll() { values_.clear(); }
    void Copy(Array const &source) { values_ = source.values_; }

private:
    std::deque<T> values_;
};

} // namespace host

using su_CDWordArray = host::Array<unsigned int>;
