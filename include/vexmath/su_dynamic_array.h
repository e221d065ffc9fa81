// SPDX-License-Identifier: MIT
// The growable array of one element type in which the library hands out lists of points.

#ifndef VEXMATH_SU_DYNAMIC_ARRAY_H
#define VEXMATH_SU_DYNAMIC_ARRAY_H

#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>

#include <vexmath/dynamic_array.h>
#include <vexmath/export.h>
#include <vexmath/forward.h>

namespace vexmath::detail {

inline amDynamicArrayHeader *headerOf(void *array) {
    return static_cast<amDynamicArrayHeader *>(array) - 1;
}

inline amDynamicArrayHeader const *headerOf(void const *array) {
    return static_cast<amDynamicArrayHeader const *>(array) - 1;
}

} // namespace vexmath::detail

/// Owner of one dynamic array of T. Its handle is null until the first element is stored; from then
/// on the storage is a block as `dynamic_array.h` describes it, of capacity 8 at first and growing
/// linearly by 16. Copies copy the storage.
///
/// A derived class may override `elementsChanged` to learn of new elements. That is the only slot
/// of the virtual table, and the handle the only member: other modules lay out the class likewise.
/// So the destructor is not virtual: never delete a derived object through a pointer to this class.
template <class T>
class VEXMATH_SHARED_TEMPLATE suDynamicArray {
public:
    suDynamicArray();
    suDynamicArray(suDynamicArray const &other);
    ~suDynamicArray();

    /// Keeps the capacity of `other`. Notifies (0, count - 1), so (0, -1) for an empty array. When
    /// memory is exhausted this array ends up empty.
    suDynamicArray &operator=(suDynamicArray const &other);

    /// Takes over an array made by the plain functions, or null, in place of the present one, which
    /// is released. Notifies (0, count - 1).
    /// REQUIRES the array's element size to be that of T, and nobody else to release it.
    void Adopt(T *array);

    /// Appends a copy of `element`, which may be an element of this array. Notifies
    /// (index, index) and returns the index. When the array cannot grow it loses its elements,
    /// notifies (-1, -1) and returns -1.
    int Add(T const &element);

    int Count() const;

    /// REQUIRES 0 <= index < Count(). Adding elements invalidates the reference.
    T &operator[](int index);
    T const &operator[](int index) const;

    /// The handle: element 0, or null before the first element. It is still owned by this object,
    /// so pass it only to plain functions that leave it in place.
    T *Data();
    T const *Data() const;

    /// Called after the elements first to last were added or replaced. Does nothing here.
    virtual void elementsChanged(int first, int last);

private:
    void release();
    void addSlowly(T const &element);

    T *data_ = nullptr;
};

// -------------------------------------------------------------------------------------------------

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
    // QUIRK: an array that cannot grow loses the elements it has. Callers go by the -1 that follows
    // and by a null handle. (test: AFailingAddLosesTheElements)
    if (!grown) release();
    data_ = grown;
}

// The lists that the library itself hands out: one virtual table and one run-time type each, the
// library's, for all modules.
extern template class VEXMATH_API suDynamicArray<int>;
extern template class VEXMATH_API suDynamicArray<double>;
extern template class VEXMATH_API suDynamicArray<mgPoint_c>;
extern template class VEXMATH_API suDynamicArray<mgVector_c>;

#endif
