// SPDX-License-Identifier: MIT
// Dynamic arrays by operations in any order, compared with a vector that has a capacity.

#include "fuzz.h"

namespace {

/// An array, and what it must be.
struct Array {
    Array(int slots, int growStep, int growMode)
        : step(growStep), mode(growMode), capacity(slots),
          data(static_cast<int *>(suDynArrayAlloc(slots, growStep, growMode, sizeof(int)))) {}
    Array(Array const &) = delete;
    ~Array() { amDynamicArrayFree(data); }

    void operate(Input &in, Array const &other);
    int count() const { return static_cast<int>(list.size()); }
    int growth(int least) const { return mode == 1 || count() < least ? least : count(); }
    /// Stores the handle; null must mean that the rule refuses the operation.
    bool take(void *handle, bool isAllowed = true) {
        CHECK((handle != nullptr) == isAllowed);
        if (isAllowed) data = static_cast<int *>(handle);
        return isAllowed;
    }

    int step, mode, capacity;
    int *data;
    std::vector<int> list;
};

void Array::operate(Input &in, Array const &other) {
    int const operation = in.below(8), index = in.byte() - 2, n = in.below(20) - 1, old = count();
    std::vector<int> elements(static_cast<std::size_t>(std::max(n, 1)), 1000 * n + index);
    int const *source = elements.data();
    if (n > 0 && n <= old && in.flip()) { // its own elements
        source = data + (old - n) / 2;
        elements.assign(source, source + n);
    }
    bool const isPlace = 0 <= index && index <= old && n >= 1,
               isRange = isPlace && n <= old - index;
    auto const at = list.begin() + std::min(std::max(index, 0), old), end = isRange ? at + n : at;
    if (operation == 0
        && take(amDynamicArrayAdd(data, source), old < capacity || growth(step) > 0)) {
        if (old == capacity) capacity += growth(step);
        list.push_back(elements[0]);
    } else if (operation == 1 && old + other.count() < 3000) {
        std::vector<int> const added = n == 3 ? list : other.list;
        int const more = static_cast<int>(added.size());
        take(amDynamicArrayAppend(data, n == 3 ? data : other.data));
        if (old + more > capacity) capacity += growth(std::max(step, more));
        list.insert(list.end(), added.begin(), added.end());
    } else if (operation == 2 && take(amDynamicArrayInsertAt(data, index, source, n), isPlace)) {
        if (old + n > capacity) capacity += std::max(growth(step), old + n - capacity);
        list.insert(at, elements.begin(), elements.end());
    } else if (operation == 3 && take(amDynamicArraySetAt(data, source, index, n), isRange)) {
        std::copy_n(elements.begin(), n, at);
    } else if (operation == 4) {
        amDynamicArrayRemoveAt(data, index, n);
        list.erase(at, end);
    } else if (operation == 5) {
        CHECK(amDynamicArrayReverseFromTo(data, index, index + n - 1) == (isRange && n >= 2));
        std::reverse(at, end);
    } else if (operation == 6) {
        take(amDynamicArrayResize(data, 3 * index));
        if (3 * index < old) list.resize(static_cast<std::size_t>(std::max(3 * index, 0)));
        take(amDynamicArrayFreeExtra(data, n / 8.0));
        if (capacity * (1.0 - n / 8.0) > count()) capacity = count();
    } else if (operation == 7) {
        take(amDynArrayRealloc(data, 2 * index));
        while (step > 0 && capacity < 2 * index) capacity += step;
    }
}

} // namespace

void fuzz(Input &in) {
    int const slots = in.below(20), step = in.below(20), mode = 1 + in.below(2);
    Array a(slots, step, mode), b(step, slots, mode);
    while (!in.isUsedUp()) {
        bool const isFirst = in.flip();
        Array &changed = isFirst ? a : b;
        changed.operate(in, isFirst ? b : a);
        auto const &header = reinterpret_cast<amDynamicArrayHeader const *>(changed.data)[-1];
        CHECK(header.capacity == changed.capacity && header.count == changed.count());
        CHECK(std::equal(changed.list.begin(), changed.list.end(), changed.data));
    }
    suDynamicArray<int> owner, assigned;
    for (int i = 0; i < a.count(); ++i)
        CHECK(owner.Add(i % 5 == 4 ? owner[i / 2] : a.data[i]) == i);
    suDynamicArray<int> const copy(owner);
    assigned = owner, assigned = copy;
    CHECK(assigned.Count() == a.count() && copy.Count() == a.count());
    for (int i = 0; i < a.count(); ++i) CHECK(copy[i] == owner[i] && assigned[i] == owner[i]);
}
