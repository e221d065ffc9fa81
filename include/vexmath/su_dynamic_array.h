// SPDX-License-Identifier: MIT
// The growable array of one element type in which the library returns lists of points.

#ifndef VEXMATH_SU_DYNAMIC_ARRAY_H
#define VEXMATH_SU_DYNAMIC_ARRAY_H

#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>

#include <vexmath/dynamic_array.h>
#include <vexmath/export.h>
#include <vexmath/forward.h>

/// Owner of one dynamic array of T. Its handle is null until the first element is stored. From then
/// on the storage is a block as `dynamic_array.h` describes it, with a capacity of 8 that grows
/// linearly by 16. Copies copy the storage.
/// REQUIRES a trivially copyable T of at most 32767 bytes, aligned as std::max_align_t or less.
///
/// A derived class may override `elementsChanged` to be notified of new elements. That is the only
/// slot of the virtual table, and the handle is the only member: other modules lay out the class
/// likewise. So the destructor is not virtual: never delete a derived object through a pointer to
/// this class.
template <class T>
class VEXMATH_SHARED_TEMPLATE suDynamicArray {
public:
    suDynamicArray(); ///< no elements, null handle
    /// Copies the elements and the capacity, without a notification. Empty, with a null handle,
    /// when memory is exhausted.
    suDynamicArray(suDynamicArray const &other);
    /// Releases the block, unless its keep flag is set.
    ~suDynamicArray();

    /// Releases the present block and copies the elements and the capacity of `other`, which may be
    /// this array. Notifies (0, count - 1), so (0, -1) for an empty array. When memory is exhausted
    /// this array ends up empty.
    suDynamicArray &operator=(suDynamicArray const &other);

    /// Releases the present block and takes over an array made by the plain functions, or null.
    /// Notifies (0, count - 1). The array may be the one that this object owns already.
    /// REQUIRES elements of the size of T, and that nothing else releases the array.
    void Adopt(T *array);

    /// Appends a copy of `element`, which may be an element of this array. Notifies (index, index)
    /// and returns the index. If the array cannot grow, it loses its elements and its block,
    /// notifies (-1, -1) and returns -1.
    int Add(T const &element);

    /// Elements in use.
    int Count() const;

    /// REQUIRES 0 <= index < Count(). Adding elements invalidates the reference.
    T &operator[](int index);
    T const &operator[](int index) const;

    /// The handle: the address of element 0, or null before the first element. This object still
    /// owns the block: pass it only to plain functions that neither move nor release it.
    T *Data();
    T const *Data() const;

    // The elements as a contiguous range, for range-for, algorithms, std::ranges and std::span.
    // Without elements all pointers may be null. Adding elements invalidates them.

    using value_type = T;
    using size_type = std::size_t;
    using iterator = T *;
    using const_iterator = T const *;

    T *begin();
    T const *begin() const;
    T *end();
    T const *end() const;
    T *data(); ///< as `Data`
    T const *data() const;
    std::size_t size() const; ///< as `Count`

    /// Called after the elements first to last were added or replaced. Does nothing here.
    virtual void elementsChanged(int first, int last);

private:
    void release();
    void addSlowly(T const &element);

    T *data_ = nullptr;
};

// -------------------------------------------------------------------------------------------------

#include <vexmath/detail/array_header.h>

template <class T>
inline suDynamicArray<T>::suDynamicArray() = default;

template <class T>
inline suDynamicArray<T>::suDynamicArray(suDynamicArray const &other)
    : data_(static_cast<T *>(amDynamicArrayCopy(other.data_, 0))) {}

template <class T>
inline suDynamicArray<T>::~suDynamicArray() {
    static_assert(std::is_trivially_copyable_v<T>, "elements are moved as raw bytes");
    static_assert(sizeof(T) <= INT16_MAX, "the header holds the element size in 16 bits");
    static_assert(alignof(T) <= alignof(std::max_align_t), "the heap aligns no further");
    release();
}

template <class T>
suDynamicArray<T> &suDynamicArray<T>::operator=(suDynamicArray const &other) {
    Adopt(static_cast<T *>(amDynamicArrayCopy(other.data_, 0)));
    return *this;
}

template <class T>
void suDynamicArray<T>::Adopt(T *array) {
    if (array != data_) release();
    data_ = array;
    elementsChanged(0, Count() - 1);
}

template <class T>
inline int suDynamicArray<T>::Add(T const &element) {
    if (Count() < (data_ ? vexmath::detail::headerOf(data_)->capacity : 0)) {
        std::int32_t &count = vexmath::detail::headerOf(data_)->count;
        ::new (data_ + count) T(element);
        ++count;
    } else {
        T const copy(element); // so that the caller's own may stay in registers
        addSlowly(copy);
    }
    int const index = Count() - 1;
    elementsChanged(index, index);
    return index;
}

template <class T>
inline int suDynamicArray<T>::Count() const {
    return data_ ? vexmath::detail::headerOf(data_)->count : 0;
}

template <class T>
inline T &suDynamicArray<T>::operator[](int index) {
    return data_[index];
}

template <class T>
inline T const &suDynamicArray<T>::operator[](int index) const {
    return data_[index];
}

template <class T>
inline T *suDynamicArray<T>::Data() {
    return data_;
}

template <class T>
inline T const *suDynamicArray<T>::Data() const {
    return data_;
}

template <class T>
inline T *suDynamicArray<T>::begin() {
    return data_;
}

template <class T>
inline T const *suDynamicArray<T>::begin() const {
    return data_;
}

template <class T>
inline T *suDynamicArray<T>::end() {
    return data_ + Count();
}

template <class T>
inline T const *suDynamicArray<T>::end() const {
    return data_ + Count();
}

template <class T>
inline T *suDynamicArray<T>::data() {
    return data_;
}

template <class T>
inline T const *suDynamicArray<T>::data() const {
    return data_;
}

template <class T>
inline std::size_t suDynamicArray<T>::size() const {
    return static_cast<std::size_t>(Count());
}

template <class T>
void suDynamicArray<T>::elementsChanged(int, int) {}

template <class T>
void suDynamicArray<T>::release() {
    if (data_) amDynamicArrayFree(data_);
    data_ = nullptr;
}

/// The rare half of `Add`: the array has no free slot, or no storage yet.
template <class T>
void suDynamicArray<T>::addSlowly(T const &element) {
    constexpr int kInitialCapacity = 8;
    constexpr int kGrowStep = 16;
    constexpr int kLinearGrowth = 1;
    if (!data_)
        data_ = static_cast<T *>(suDynArrayAlloc(kInitialCapacity, kGrowStep, kLinearGrowth,
                                                 static_cast<int>(sizeof(T))));
    if (!data_) return;
    T *const grown = static_cast<T *>(amDynamicArrayAdd(data_, &element));
    // QUIRK: su_dynamic_array.h, suDynamicArray::Add: an array that cannot grow loses all its
    // elements. Expected: it keeps them. Kept: callers and stored data depend on it.
    // (test: AFailingAddLosesTheElements)
    if (!grown) release();
    data_ = grown;
}

// The lists that the library itself returns. All modules share one virtual table and one run-time
// type for each, which are in the library; except on Windows, where each module has its own, since
// GCC does not export the inline functions of a template there.
#if !defined(_WIN32)
extern template class VEXMATH_API suDynamicArray<int>;
extern template class VEXMATH_API suDynamicArray<double>;
extern template class VEXMATH_API suDynamicArray<mgPoint_c>;
extern template class VEXMATH_API suDynamicArray<mgVector_c>;
extern template class VEXMATH_API suDynamicArray<mgIndexPair_c>; // in bulk.h
#endif

#endif
