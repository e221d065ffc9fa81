// SPDX-License-Identifier: MIT
// Dynamic arrays by operations in any order, compared with a vector that has a capacity.

#include "fuzz.h"

namespace {

using Item = std::array<int, 3>;
using Items = std::vector<Item>;

/// An array, and what it must be.
struct Array {
    Array(int slots, int growStep, int growMode, int keepFlag)
        : step(growStep), mode(growMode), keep(keepFlag), capacity(slots),
          data(static_cast<Item *>(suDynArrayAlloc(slots, growStep, 1, sizeof(Item)))) {
        header().growMode = static_cast<std::int16_t>(mode); // 3 is another module's
        header().keepFlag = static_cast<std::uint16_t>(keep);
    }
    Array(Array const &) = delete;
    ~Array() {
        header().keepFlag = 0;
        amDynamicArrayFree(data);
    }

    amDynamicArrayHeader &header() { return reinterpret_cast<amDynamicArrayHeader *>(data)[-1]; }
    int count() const { return static_cast<int>(list.size()); }
    void setCapacity(int slots) { capacity = slots, keep = 0; }
    /// Slots for n more elements, at least `least` of them new; false when the rule refuses them.
    bool makeRoom(int n, int growth, int least = 0) {
        if (count() + n <= capacity) return true;
        if (mode > 1 && count() >= growth) growth = (mode - 1) * count();
        growth = std::max(growth, least);
        if (growth > 0) setCapacity(capacity + growth);
        return growth > 0;
    }
    /// Stores the handle; null must mean that the rule refuses the operation.
    bool take(void *handle, bool isAllowed = true) {
        CHECK((handle != nullptr) == isAllowed);
        if (isAllowed) data = static_cast<Item *>(handle);
        return isAllowed;
    }
    void operate(Input &in, Array const &other);

    int step, mode, keep, capacity;
    Item *data;
    Items list;
};

void Array::operate(Input &in, Array const &other) {
    int const operation = in.below(9), index = in.byte() - 2, n = in.below(20) - 1, old = count();
    Items elements(static_cast<std::size_t>(std::max(n, 1)), Item{n, index, old});
    Item const *source = elements.data();
    for (int i = old; i < capacity; ++i) data[i] = {i, n, index};
    if (n > 0 && n <= capacity && in.flip()) { // its own slots, free ones too
        source = data + in.byte() % (capacity - n + 1);
        elements.assign(source, source + n);
    }
    bool const isPlace = 0 <= index && index <= old && n >= 1,
               isRange = isPlace && n <= old - index;
    auto const at = list.begin() + std::min(std::max(index, 0), old), end = isRange ? at + n : at;
    if (operation == 0 && take(amDynamicArrayAdd(data, source), makeRoom(1, step))) {
        list.push_back(elements[0]);
    } else if (operation == 1 && old + other.count() < 3000) {
        Items const added = n == 3 ? list : other.list;
        int const more = static_cast<int>(added.size());
        take(amDynamicArrayAppend(data, n == 3 ? data : other.data));
        makeRoom(more, std::max(step, more));
        list.insert(list.end(), added.begin(), added.end());
    } else if (operation == 2
               && take(amDynamicArrayInsertAt(data, index, source, n),
                       isPlace && makeRoom(n, step, old + n - capacity))) {
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
        if (capacity * (1.0 - n / 8.0) > count()) setCapacity(count());
    } else if (operation == 7) {
        take(amDynArrayRealloc(data, 2 * index));
        while (step > 0 && capacity < 2 * index) setCapacity(capacity + step);
    } else if (operation == 8) {
        void *const copy = amDynamicArrayCopy(data, n);
        header().keepFlag = 0;
        amDynamicArrayFree(data);
        take(copy);
        setCapacity(n != 0 ? old : capacity);
    }
}

} // namespace

void fuzz(Input &in) {
    int const slots = in.below(20), step = in.below(20);
    Array a(slots, step, 1 + in.below(3), in.below(2)), b(step, slots, 1 + in.below(3), 0);
    while (!in.isUsedUp()) {
        bool const isFirst = in.flip();
        Array &changed = isFirst ? a : b;
        changed.operate(in, isFirst ? b : a);
        amDynamicArrayHeader const &header = changed.header();
        CHECK(header.capacity == changed.capacity && header.count == changed.count());
        CHECK(header.growStep == changed.step && header.growMode == changed.mode);
        CHECK(header.keepFlag == changed.keep);
        CHECK(std::equal(changed.list.begin(), changed.list.end(), changed.data));
    }
    suDynamicArray<Item> owner;
    for (int i = 0; i < a.count(); ++i)
        CHECK(owner.Add(i % 5 == 4 ? owner[i / 2] : a.data[i]) == i);
    suDynamicArray<Item> const copy(owner);
    CHECK(copy.Count() == a.count() && std::equal(copy.begin(), copy.end(), owner.begin()));
}
