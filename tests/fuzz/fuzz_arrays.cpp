// SPDX-License-Identifier: MIT
// Dynamic arrays by operations in any order, compared with a vector that has a capacity.

#include "fuzz.h"

namespace {

/// An array, and what it must be.
struct Pair {
    Pair(int slots, int growStep, int growMode)
        : step(growStep), mode(growMode), capacity(slots),
          data(static_cast<int *>(suDynArrayAlloc(slots, growStep, growMode, sizeof(int)))) {}
    ~Pair() { amDynamicArrayFree(data); }
    Pair(Pair const &) = delete;
    Pair &operator=(Pair const &) = delete;

    int count() const { return static_cast<int>(list.size()); }
    int growth(int least) const { return mode == 1 || count() < least ? least : count(); }
    /// Stores the handle; a refused operation must be one that the rule refuses.
    bool take(void *handle, bool isAllowed) {
        CHECK((handle != nullptr) == isAllowed);
        if (isAllowed) data = static_cast<int *>(handle);
        return isAllowed;
    }
    void check() const {
        auto const &header = reinterpret_cast<amDynamicArrayHeader const *>(data)[-1];
        CHECK(header.capacity == capacity && header.growStep == step && header.growMode == mode);
        CHECK(amDynamicArrayCount(data) == count() && std::equal(list.begin(), list.end(), data));
    }
    void operate(Input &in, Pair &other);

    int step, mode, capacity;
    int *data;
    std::vector<int> list;
};

void Pair::operate(Input &in, Pair &other) {
    int const operation = in.below(10), index = in.byte() - 2, n = in.below(20) - 1, old = count();
    auto const at = [&](int i) { return list.begin() + i; };
    std::vector<int> elements;
    for (int i = 0; i < n; ++i) elements.push_back(1000 * i + index);
    int const *source = elements.data();
    if (n > 0 && n <= old && operation % 2 == 0) { // its own elements
        source = data + (old - n) / 2;
        elements.assign(source, source + n);
    }
    bool const isRange = index >= 0 && n >= 1 && index + n <= old;
    switch (operation) {
    case 0:
    case 1:
        if (n < 1) break;
        if (!take(amDynamicArrayAdd(data, source), old < capacity || growth(step) >= 1)) break;
        if (old == capacity) capacity += growth(step);
        list.push_back(elements[0]);
        break;
    case 2: {
        Pair &from = index % 3 == 0 ? *this : other;
        std::vector<int> const added = from.list;
        int const more = static_cast<int>(added.size());
        if (old + more > 3000) break;
        take(amDynamicArrayAppend(data, from.data), true);
        if (old + more > capacity) capacity += growth(std::max(step, more));
        list.insert(list.end(), added.begin(), added.end());
        break;
    }
    case 3:
    case 4:
        if (!take(amDynamicArrayInsertAt(data, index, source, n),
                  0 <= index && index <= old && n >= 1))
            break;
        if (old + n > capacity) capacity += std::max(growth(step), old + n - capacity);
        list.insert(at(index), elements.begin(), elements.end());
        break;
    case 5:
        if (take(amDynamicArraySetAt(data, source, index, n), isRange))
            std::copy(elements.begin(), elements.end(), at(index));
        break;
    case 6:
        amDynamicArrayRemoveAt(data, index, n);
        if (isRange) list.erase(at(index), at(index + n));
        break;
    case 7:
        CHECK(amDynamicArrayReverseFromTo(data, index, index + n - 1) == (isRange && n >= 2));
        if (isRange) std::reverse(at(index), at(index + n));
        break;
    case 8:
        take(amDynamicArrayResize(data, 3 * index), true);
        if (3 * index < old) list.resize(static_cast<std::size_t>(std::max(3 * index, 0)));
        take(amDynamicArrayFreeExtra(data, n / 8.0), true);
        if (capacity * (1.0 - n / 8.0) > count()) capacity = count();
        break;
    default:
        take(amDynArrayRealloc(data, 2 * index), true);
        while (step > 0 && capacity < 2 * index) capacity += step;
        void *const copy = amDynamicArrayCopy(data, n % 2);
        amDynamicArrayFree(data);
        take(copy, true);
        if (n % 2 != 0) capacity = old;
    }
}

/// Tells whether it was told of each element.
struct Listener : suDynamicArray<int> {
    void elementsChanged(int first, int last) override { told = {first, last}; }
    std::pair<int, int> told;
};

} // namespace

void fuzzOne(Input &in) {
    Pair a(in.below(20), in.below(20), 1 + in.below(2)),
        b(in.below(20), in.below(20), 1 + in.below(2));
    TimeLimit const limit;
    while (!in.isUsedUp()) {
        bool const isFirst = in.flip();
        (isFirst ? a : b).operate(in, isFirst ? b : a);
        (isFirst ? a : b).check();
    }
    Listener owner;
    for (int const element : a.list) {
        int const index = owner.Add(owner.Count() % 5 == 4 ? owner[index / 2] : element);
        CHECK(owner.told == std::pair(index, index));
    }
    CHECK(owner.Count() == a.count());
    Listener copy(owner), assigned;
    assigned = owner, assigned = static_cast<Listener const &>(assigned);
    CHECK(assigned.told == std::pair(0, a.count() - 1));
    for (int i = 0; i < owner.Count(); ++i) CHECK(copy[i] == owner[i] && assigned[i] == owner[i]);
}
