// SPDX-License-Identifier: MIT
// The growable array of 32-bit words: the portable default of a host type.

#ifndef VEXMATH_PLATFORM_WORD_ARRAY_H
#define VEXMATH_PLATFORM_WORD_ARRAY_H

#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

/// 32-bit words in the order they were added. A value: it owns its words and copies them. When
/// memory is exhausted, `Add` and `Copy` leave the array as it was and do not throw. The copy
/// constructor and `=` throw std::bad_alloc.
class su_CDWordArray {
public:
    /// Appends the word and returns its index, or -1 when memory is exhausted.
    int Add(std::uint32_t word);

    int GetSize() const;

    /// REQUIRES 0 <= index < GetSize().
    std::uint32_t &operator[](int index);
    std::uint32_t operator[](int index) const;

    /// Removes one word. The words behind it move forward by one.
    /// REQUIRES 0 <= index < GetSize().
    void RemoveAt(int index);

    void RemoveAll();

    /// Makes this array equal to the source, which may be this array.
    void Copy(su_CDWordArray const &source);

private:
    std::vector<std::uint32_t> words_;
};

//-------------------------------------------------------------------------------------------------

inline int su_CDWordArray::Add(std::uint32_t word) {
    try {
        words_.push_back(word);
    } catch (std::bad_alloc const &) {
        return -1;
    }
    return GetSize() - 1;
}

inline int su_CDWordArray::GetSize() const { return static_cast<int>(words_.size()); }

inline std::uint32_t &su_CDWordArray::operator[](int index) {
    return words_[static_cast<std::size_t>(index)];
}

inline std::uint32_t su_CDWordArray::operator[](int index) const {
    return words_[static_cast<std::size_t>(index)];
}

inline void su_CDWordArray::RemoveAt(int index) { words_.erase(words_.begin() + index); }

inline void su_CDWordArray::RemoveAll() { words_.clear(); }

inline void su_CDWordArray::Copy(su_CDWordArray const &source) {
    try {
        words_ = source.words_;
    } catch (std::bad_alloc const &) { // nothing has changed
    }
}

#endif
