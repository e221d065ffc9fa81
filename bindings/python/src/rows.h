// SPDX-License-Identifier: MIT
// NumPy arrays used where they lie, and lists of the library handed to NumPy without a copy.

#ifndef VEXMATH_PYTHON_ROWS_H
#define VEXMATH_PYTHON_ROWS_H

#include "bind.h"

#include <climits>
#include <memory>
#include <type_traits>
#include <vector>

namespace bind {

/// Refuses everything but an aligned, C-contiguous array of float64 rows of that many columns.
py::array requireRows(py::handle object, int columns, bool isWritten);

struct ArrayArgument {};

/// Rows of doubles as an array of T, which consists of as many.
template <class T, bool isWritten = false>
struct Rows : ArrayArgument {
    static constexpr auto kName = py::detail::const_name("numpy.ndarray[numpy.float64]");
    static constexpr int kColumns = sizeof(T) / sizeof(double);
    static_assert(std::is_trivially_copyable_v<
                      T> && std::is_standard_layout_v<T> && sizeof(T) % sizeof(double) == 0);

    Rows() = default;
    explicit Rows(py::handle object) : array(requireRows(object, kColumns, isWritten)) {}

    py::ssize_t count() const { return array.shape(0); }
    T const *data() const { return static_cast<T const *>(array.data()); }
    T *mutableData() { return static_cast<T *>(array.mutable_data()); }

    py::array array;
};

inline int intCount(py::ssize_t count) {
    if (count > INT_MAX) throw py::value_error("more than 2147483647 rows");
    return static_cast<int>(count);
}

/// Boxes: rows, or a sequence of boxes, which is copied.
struct Boxes : Rows<mgBBox_c> {
    static constexpr auto kName = py::detail::const_name("BoxesLike"); // as the stubs call it
    Boxes() = default;
    explicit Boxes(py::handle object);
    int count() const { return intCount(Rows::count()); }
};

/// Placements: rows of nine elements, translation and scale, or a sequence of transforms. Either is
/// copied with its fields as they are.
struct Placements : ArrayArgument {
    static constexpr auto kName = py::detail::const_name("PlacementsLike");
    Placements() = default;
    explicit Placements(py::handle object);

    std::vector<mgXform_c> transforms;
};

inline constexpr int kPlacementColumns = 13;

/// A new array of rows.
inline py::array_t<double> newRows(py::ssize_t count, int columns) {
    return py::array_t<double>(std::vector<py::ssize_t>{count, columns});
}

/// What the elements of a list of the library consist of.
template <class T>
using NumberOf =
    std::conditional_t<std::is_same_v<T, int> || std::is_same_v<T, mgIndexPair_c>, int, double>;

/// Calls a function that fills a list, without Python's lock. The array that it returns owns the
/// list. A negative result of the function: no memory.
template <class T, class F>
py::array_t<NumberOf<T>>
filled(F fill, std::unique_ptr<suDynamicArray<T>> list = std::make_unique<suDynamicArray<T>>()) {
    bool isExhausted = false;
    {
        py::gil_scoped_release const released;
        if constexpr (std::is_void_v<decltype(fill(*list))>)
            fill(*list);
        else
            isExhausted = fill(*list) < 0;
    }
    if (isExhausted) throw std::bad_alloc();
    std::vector<py::ssize_t> shape{list->Count()};
    if (sizeof(T) > sizeof(NumberOf<T>)) shape.push_back(sizeof(T) / sizeof(NumberOf<T>));
    auto *const elements = reinterpret_cast<NumberOf<T> *>(list->Data());
    py::capsule const owner(list.release(), [](void *p) {
        std::default_delete<suDynamicArray<T>>()(static_cast<suDynamicArray<T> *>(p));
    });
    return py::array_t<NumberOf<T>>(shape, elements, owner);
}

/// A list that holds a copy of the rows.
template <class T>
std::unique_ptr<suDynamicArray<T>> listOf(Rows<T> const &rows) {
    auto list = std::make_unique<suDynamicArray<T>>();
    int const count = intCount(rows.count());
    for (int i = 0; i < count; ++i)
        if (list->Add(rows.data()[i]) < 0) throw std::bad_alloc();
    return list;
}

} // namespace bind

template <class T>
struct pybind11::detail::type_caster<T,
                                     std::enable_if_t<std::is_base_of_v<bind::ArrayArgument, T>>> {
    PYBIND11_TYPE_CASTER(T, T::kName);
    bool load(handle source, bool) {
        value = T(source);
        return true;
    }
};

#endif
