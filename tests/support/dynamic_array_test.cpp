// SPDX-License-Identifier: MIT
// The dynamic array: its plain functions and its owner.

#include <vexmath/dynamic_array.h>
#include <vexmath/su_dynamic_array.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

/// The C program of the same folder: 0, or the line where it found a fault.
extern "C" int runPlainCallers(void);

/// Lets an allocation that is too large fail under the address sanitizer as it does without.
extern "C" VEXMATH_SHARED_TEMPLATE char const *__asan_default_options();
extern "C" char const *__asan_default_options() { return "allocator_may_return_null=1"; }

namespace {

enum { kLinear = 1, kProportional = 2 };

struct Item {
    int a, b, c;
};
bool operator==(Item const &l, Item const &r) { return l.a == r.a && l.b == r.b && l.c == r.c; }

Item item(int i) { return {i, 10 * i, -i}; }

using Items = std::vector<Item>;

Items items(std::initializer_list<int> numbers) {
    Items result;
    for (int const i : numbers) result.push_back(item(i));
    return result;
}

amDynamicArrayHeader &headerOf(void *array) {
    return static_cast<amDynamicArrayHeader *>(array)[-1];
}

/// An array of items 0 to count - 1, released at the end of its scope.
struct Array {
    Array(int count, int capacity, int step, int mode)
        : data(suDynArrayAlloc(capacity, step, mode, sizeof(Item))) {
        for (int i = 0; i < count; ++i) add(item(i));
    }
    Array(Array const &) = delete;
    Array &operator=(Array const &) = delete;
    ~Array() { amDynamicArrayFree(data); }

    bool add(Item const &element) { return take(amDynamicArrayAdd(data, &element)); }
    /// Stores the handle that an operation returned; false when it refused.
    bool take(void *result) {
        if (result) data = result;
        return result != nullptr;
    }
    Item *items() const { return static_cast<Item *>(data); }
    int count() const { return amDynamicArrayCount(data); }
    int capacity() const { return headerOf(data).capacity; }
    Items list() const { return {items(), items() + count()}; }

    void *data;
};

TEST(DynamicArray, HeaderLiesInFrontOfElementZero) {
    void *array = suDynArrayAllocSpecial(8, 40000, kProportional, 24);
    unsigned char const expected[16] = {8, 0, 0, 0, 8, 0, 0, 0, 24, 0, 0xFF, 0x7F, 2, 0, 0, 0};
    EXPECT_EQ(0, std::memcmp(expected, static_cast<char *>(array) - 16, 16));
    int step = 0, mode = 0, size = 0;
    suDynamicGetStats(array, &step, &mode, &size);
    EXPECT_EQ(32767, step);
    EXPECT_EQ(2, mode);
    EXPECT_EQ(24, size);
    headerOf(array).keepFlag = 7;
    void *const like = suDynArrayAlloc1(0, array);
    unsigned char const likeHeader[16] = {0, 0, 0, 0, 0, 0, 0, 0, 24, 0, 0xFF, 0x7F, 2, 0, 0, 0};
    EXPECT_EQ(0, std::memcmp(likeHeader, static_cast<char *>(like) - 16, 16));
    EXPECT_EQ(nullptr, suDynArrayAlloc1(-1, array));
    EXPECT_EQ(nullptr, suDynArrayAlloc1(3, nullptr));
    amDynamicArrayFree(array); // kept
    headerOf(array).keepFlag = 0;
    amDynamicArrayFree(array);
    amDynamicArrayFree(like);
}

void CheckAlloc(bool expected, int capacity, int step, int mode, int size) {
    for (auto alloc : {suDynArrayAlloc, suDynArrayAllocSpecial}) {
        void *const array = alloc(capacity, step, mode, size);
        EXPECT_EQ(expected, array != nullptr)
            << capacity << " " << step << " " << mode << " " << size;
        if (array) amDynamicArrayFree(array);
    }
}

TEST(DynamicArray, CreationRefusesWhatAHeaderCannotHold) {
    CheckAlloc(true, 0, 16, 1, 24);
    CheckAlloc(true, 8, 0, 2, 1);
    CheckAlloc(true, 8, INT_MAX, 1, 32767);
    CheckAlloc(false, 8, 16, 3, 24);
    CheckAlloc(false, 8, 16, 0, 24);
    CheckAlloc(false, 8, -1, 1, 24);
    CheckAlloc(false, 8, 16, 1, 0);
    CheckAlloc(false, 8, 16, 1, 32768);
    CheckAlloc(false, -1, 16, 1, 24);
    CheckAlloc(false, INT_MAX, 16, 1, 32767); // 64 terabytes
}

enum Edit { kAdd, kAppend, kInsert };

/// Capacity after n elements have been added to `count`, or -1 when that is refused.
void CheckCapacity(int expected, Edit edit, int count, int capacity, int step, int mode, int n) {
    Array array(count, capacity, step, mode), source(n, n + 1, 1, kLinear);
    headerOf(array.data).keepFlag = 1;
    void *const result = edit == kAdd      ? amDynamicArrayAdd(array.data, source.data)
                         : edit == kAppend ? amDynamicArrayAppend(array.data, source.data)
                                           : amDynamicArrayInsertAt(array.data, 0, source.data, n);
    bool const done = array.take(result);
    EXPECT_EQ(expected, done ? array.capacity() : -1) << count << " " << capacity << " " << step;
    EXPECT_EQ(done ? count + n : count, array.count());
    EXPECT_EQ(done && expected != capacity ? 0 : 1, headerOf(array.data).keepFlag);
    headerOf(array.data).keepFlag = 0;
}

TEST(DynamicArray, AddGrowsByTheStepOrDoubles) {
    CheckCapacity(8, kAdd, 7, 8, 16, kLinear, 1);
    CheckCapacity(24, kAdd, 8, 8, 16, kLinear, 1);
    CheckCapacity(16, kAdd, 8, 8, 4, kProportional, 1);
    CheckCapacity(16, kAdd, 8, 8, 8, kProportional, 1);
    CheckCapacity(17, kAdd, 8, 8, 9, kProportional, 1); // the step is not reached yet
    CheckCapacity(-1, kAdd, 1, 1, 0, kLinear, 1);
    CheckCapacity(-1, kAdd, 0, 0, 0, kProportional, 1);
    CheckCapacity(2, kAdd, 1, 1, 0, kProportional, 1);
}

TEST(DynamicArray, AppendGrowsByItsNumberWhenThatIsMoreThanTheStep) {
    CheckCapacity(8, kAppend, 3, 8, 16, kLinear, 5);
    CheckCapacity(24, kAppend, 4, 8, 16, kLinear, 5);
    CheckCapacity(28, kAppend, 8, 8, 16, kLinear, 20);
    CheckCapacity(16, kAppend, 8, 8, 4, kProportional, 8); // the count has reached n
    CheckCapacity(17, kAppend, 8, 8, 4, kProportional, 9); // and has not
    CheckCapacity(2, kAppend, 0, 0, 0, kLinear, 2);
    CheckCapacity(0, kAppend, 0, 0, 0, kLinear, 0);
}

TEST(DynamicArray, InsertGrowsByAtLeastWhatIsMissing) {
    CheckCapacity(8, kInsert, 3, 8, 16, kLinear, 5);
    CheckCapacity(30, kInsert, 10, 12, 4, kLinear, 20);
    CheckCapacity(16, kInsert, 8, 8, 4, kProportional, 1);
    CheckCapacity(18, kInsert, 8, 8, 4, kProportional, 10);
    CheckCapacity(14, kInsert, 6, 8, 4, kProportional, 3); // by the count, not the capacity
    CheckCapacity(13, kInsert, 3, 8, 5, kProportional, 6);
    CheckCapacity(3, kInsert, 2, 2, 0, kLinear, 1); // where Add is refused
}

TEST(DynamicArray, EditsMoveTheRightElements) {
    Array array(5, 5, 1, kLinear);
    Item const pair[] = {item(8), item(9)};
    array.take(amDynamicArrayInsertAt(array.data, 2, pair, 2));
    EXPECT_EQ(items({0, 1, 8, 9, 2, 3, 4}), array.list());
    array.take(amDynamicArrayInsertAt(array.data, 7, pair, 2));
    amDynamicArrayRemoveAt(array.data, 1, 3);
    EXPECT_EQ(items({0, 2, 3, 4, 8, 9}), array.list());
    EXPECT_EQ(1, amDynamicArrayReverseFromTo(array.data, 1, 4));
    EXPECT_EQ(items({0, 8, 4, 3, 2, 9}), array.list());
    EXPECT_EQ(1, amDynamicArrayReverseFromTo(array.data, 3, 5));
    amDynamicArrayRemoveAt(array.data, 0, 2);
    EXPECT_EQ(items({4, 9, 2, 3}), array.list());
    EXPECT_EQ(array.data, amDynamicArraySetAt(array.data, pair, 2, 2));
    amDynamicArrayRemoveAt(array.data, 3, 1);
    EXPECT_EQ(array.data, amDynamicArraySetAt(array.data, pair + 1, 0, 1));
    EXPECT_EQ(items({9, 9, 8}), array.list());
    EXPECT_EQ(array.data, amDynamicArrayResize(array.data, 2));
    EXPECT_EQ(items({9, 9}), array.list());
    EXPECT_EQ(array.data, amDynamicArrayResize(array.data, -2));
    EXPECT_EQ(0, array.count());
    EXPECT_EQ(9, array.capacity());
}

TEST(DynamicArray, RefusedEditsChangeNothing) {
    Array array(4, 6, 16, kLinear);
    Item const one = item(9);
    void *const other = suDynArrayAllocSpecial(4, 16, kLinear, sizeof(Item) + 1);
    EXPECT_EQ(array.data, amDynamicArrayAppend(array.data, other));
    EXPECT_EQ(array.data, amDynamicArrayAppend(array.data, nullptr));
    amDynamicArrayFree(other);
    EXPECT_FALSE(amDynamicArrayInsertAt(array.data, 5, &one, 1));
    EXPECT_FALSE(amDynamicArrayInsertAt(array.data, -1, &one, 1));
    EXPECT_FALSE(amDynamicArrayInsertAt(array.data, 0, &one, 0));
    EXPECT_FALSE(amDynamicArraySetAt(array.data, &one, -1, 1));
    EXPECT_FALSE(amDynamicArraySetAt(array.data, &one, 4, 1));
    EXPECT_FALSE(amDynamicArraySetAt(array.data, &one, 0, 0));
    EXPECT_FALSE(amDynamicArraySetAt(array.data, &one, 2, INT_MAX));
    amDynamicArrayRemoveAt(array.data, -1, 1);
    amDynamicArrayRemoveAt(array.data, 3, 2);
    amDynamicArrayRemoveAt(array.data, 0, 0);
    amDynamicArrayRemoveAt(array.data, 2, INT_MAX);
    for (auto const &[first, last] : {std::pair(0, 4), {2, 1}, {-1, 2}, {2, 2}})
        EXPECT_EQ(0, amDynamicArrayReverseFromTo(array.data, first, last)) << first << " " << last;
    EXPECT_EQ(array.data, amDynamicArrayResize(array.data, 5));
    EXPECT_EQ(nullptr, amDynamicArrayResize(nullptr, 0));
    EXPECT_EQ(array.data, amDynArrayRealloc(array.data, 6));
    amDynamicArrayRangeError();
    EXPECT_EQ(items({0, 1, 2, 3}), array.list());
    EXPECT_EQ(6, array.capacity());
}

TEST(DynamicArray, OwnElementsAreTakenByValue) {
    Array array(4, 4, 1, kLinear);
    ASSERT_TRUE(array.take(amDynamicArrayAdd(array.data, array.items() + 2))); // moves the block
    ASSERT_TRUE(array.take(amDynamicArrayAppend(array.data, array.data)));
    EXPECT_EQ(items({0, 1, 2, 3, 2, 0, 1, 2, 3, 2}), array.list());
    ASSERT_TRUE(array.take(amDynamicArraySetAt(array.data, array.items(), 1, 4)));
    EXPECT_EQ(items({0, 0, 1, 2, 3, 0, 1, 2, 3, 2}), array.list());
}

/// Inserts n of the items 0 to 4 among them, with and without moving the block.
void CheckInsertOwn(int index, int from, int n, Items const &expected) {
    for (int const capacity : {5, 20}) {
        Array array(5, capacity, 1, kLinear);
        array.take(amDynamicArrayInsertAt(array.data, index, array.items() + from, n));
        EXPECT_EQ(expected, array.list()) << index << " " << from << " " << n;
    }
}

TEST(DynamicArray, OwnElementsAreInsertedByValueFromAnywhere) {
    CheckInsertOwn(3, 0, 2, items({0, 1, 2, 0, 1, 3, 4}));
    CheckInsertOwn(2, 0, 2, items({0, 1, 0, 1, 2, 3, 4}));
    CheckInsertOwn(2, 1, 3, items({0, 1, 1, 2, 3, 2, 3, 4})); // across the gap
    CheckInsertOwn(1, 1, 2, items({0, 1, 2, 1, 2, 3, 4}));
    CheckInsertOwn(1, 3, 2, items({0, 3, 4, 1, 2, 3, 4}));
    CheckInsertOwn(5, 4, 1, items({0, 1, 2, 3, 4, 4}));
}

void CheckRealloc(int expected, int capacity, int step, int mode, int minimum) {
    Array array(2, capacity, step, mode);
    array.take(amDynArrayRealloc(array.data, minimum));
    EXPECT_EQ(expected, array.capacity()) << capacity << " " << step << " " << minimum;
    EXPECT_EQ(items({0, 1}), array.list());
}

TEST(DynamicArray, ReallocAddsWholeStepsWhateverTheMode) {
    CheckRealloc(40, 8, 16, kLinear, 30);
    CheckRealloc(24, 8, 16, kLinear, 24);
    CheckRealloc(9, 8, 1, kLinear, 9);
    CheckRealloc(40, 8, 16, kProportional, 25);
    CheckRealloc(8, 8, 16, kLinear, -5);
    CheckRealloc(8, 8, 0, kLinear, 30);
    CheckRealloc(8, 8, 16, kLinear, INT_MAX); // whole steps would pass the largest capacity
}

void CheckFreeExtra(int expected, double slack) {
    Array array(10, 16, 4, kLinear);
    void *const before = array.data;
    array.take(amDynamicArrayFreeExtra(array.data, slack));
    EXPECT_EQ(expected, array.capacity()) << slack;
    EXPECT_EQ(expected == 16, before == array.data) << slack;
    EXPECT_EQ(10, array.count());
    EXPECT_EQ(item(9), array.items()[9]);
}

TEST(DynamicArray, FreeExtraToleratesItsFractionOfFreeSlots) {
    double const atTheCount = 0.375, inf = std::numeric_limits<double>::infinity();
    CheckFreeExtra(16, 0.5);
    CheckFreeExtra(10, 0.25);
    CheckFreeExtra(16, atTheCount);
    CheckFreeExtra(10, 1.0 - std::nextafter(0.625, 1.0));
    CheckFreeExtra(10, -inf);
    CheckFreeExtra(16, std::numeric_limits<double>::quiet_NaN());
}

TEST(DynamicArray, CopyKeepsOrTrimsTheCapacity) {
    Array array(3, 8, 5, kProportional);
    headerOf(array.data).keepFlag = 1;
    for (int const trim : {0, 1, -1}) {
        void *const copy = amDynamicArrayCopy(array.data, trim);
        amDynamicArrayHeader const header = headerOf(copy);
        EXPECT_EQ(trim ? 3 : 8, header.capacity);
        EXPECT_EQ(3, header.count);
        EXPECT_EQ(5, header.growStep);
        EXPECT_EQ(2, header.growMode);
        EXPECT_EQ(0, header.keepFlag);
        EXPECT_EQ(0, std::memcmp(copy, array.data, 3 * sizeof(Item)));
        amDynamicArrayFree(copy);
    }
    EXPECT_EQ(nullptr, amDynamicArrayCopy(nullptr, 0));
    headerOf(array.data).keepFlag = 0;
}

TEST(DynamicArray, LargeProportionalGrowthFallsBackToTheLargestStep) {
    // Another module's growth mode: 70000 elements would grow by 32766 times their number, beyond
    // what a capacity can say.
    Array array(0, 70000, 4, kProportional);
    headerOf(array.data).count = 70000;
    headerOf(array.data).growMode = 32767;
    ASSERT_TRUE(array.add(item(1)));
    EXPECT_EQ(70000 + 32767, array.capacity());
    EXPECT_EQ(kLinear, headerOf(array.data).growMode);
    EXPECT_EQ(32767, headerOf(array.data).growStep);
    EXPECT_EQ(item(1), array.items()[70000]);

    // 40000 more would not fit then: refused, nothing changed.
    headerOf(array.data).growMode = 32767;
    headerOf(array.data).count = array.capacity();
    Items const many(40000, item(2));
    EXPECT_FALSE(amDynamicArrayInsertAt(array.data, 0, many.data(), 40000));
    EXPECT_EQ(32767, headerOf(array.data).growMode);
    EXPECT_EQ(70000 + 32767, array.capacity());
}

TEST(DynamicArray, ExhaustedMemoryLeavesTheOldArray) {
    Array array(2, 2, 4, kLinear);
    headerOf(array.data).elementSize = 32767; // so that two billion slots are 64 terabytes
    headerOf(array.data).count = 0;
    EXPECT_EQ(array.data, amDynArrayRealloc(array.data, 2000000000));
    EXPECT_EQ(nullptr, amDynamicArrayInsertAt(array.data, 0, array.data, 2000000000));
    EXPECT_EQ(nullptr, suDynArrayAlloc1(2000000000, array.data));
    headerOf(array.data).growMode = kProportional;
    headerOf(array.data).count = headerOf(array.data).capacity = 2000000000;
    EXPECT_EQ(nullptr, amDynamicArrayAdd(array.data, array.data)); // nor by the largest step
    EXPECT_EQ(nullptr, amDynamicArrayAppend(array.data, array.data));
    EXPECT_EQ(array.data, amDynamicArrayFreeExtra(array.data, -1.0));
    headerOf(array.data).growMode = kLinear;
    headerOf(array.data).count = headerOf(array.data).capacity = 2;
    headerOf(array.data).elementSize = 1; // two billion slots are two gigabytes, but one too many
    EXPECT_EQ(array.data, amDynArrayRealloc(array.data, INT_MAX));
    headerOf(array.data).elementSize = sizeof(Item);
    EXPECT_EQ(2, array.capacity());
    EXPECT_EQ(items({0, 1}), array.list());
}

TEST(DynamicArray, ServesPlainCCallers) { EXPECT_EQ(0, runPlainCallers()); }

/// Keeps the last notification.
struct Watched : suDynamicArray<Item> {
    void elementsChanged(int first, int last) override { change = {first, last}; }
    std::pair<int, int> change{-7, -7};
};

using Change = std::pair<int, int>;

// One slot in the virtual table, no virtual destructor, and the handle behind the table's pointer.
static_assert(std::is_polymorphic_v<suDynamicArray<int>>);
static_assert(!std::has_virtual_destructor_v<suDynamicArray<int>>);
static_assert(sizeof(suDynamicArray<int>) == 2 * sizeof(void *));

TEST(DynamicArrayOwner, AddCreatesGrowsAndNotifies) {
    Watched list;
    EXPECT_EQ(0, list.Count());
    EXPECT_EQ(nullptr, list.Data());
    for (int i = 0; i < 1000; ++i) {
        EXPECT_EQ(i, list.Add(i < 8 ? item(i) : list[i - 8])); // of its own storage from 8 on
        EXPECT_EQ(Change(i, i), list.change);
        EXPECT_EQ(i < 8 ? 8 : (i + 8) / 16 * 16 + 8, headerOf(list.Data()).capacity);
    }
    int step = 0, mode = 0, size = 0;
    suDynamicGetStats(list.Data(), &step, &mode, &size);
    EXPECT_EQ(16, step);
    EXPECT_EQ(kLinear, mode);
    EXPECT_EQ(12, size);
    void *second = nullptr;
    std::memcpy(&second, reinterpret_cast<char const *>(&list) + sizeof(void *), sizeof(void *));
    EXPECT_EQ(list.Data(), second);
    suDynamicArray<Item> const &constant = list;
    for (int i = 0; i < 1000; ++i) EXPECT_EQ(item(i % 8), constant[i]);
    EXPECT_EQ(constant.Data(), list.Data());
}

TEST(DynamicArrayOwner, CopiesOwnTheirStorage) {
    Watched list;
    for (int i = 0; i < 9; ++i) list.Add(item(i));
    suDynamicArray<Item> const copy(list);
    list[0] = item(77);
    EXPECT_EQ(item(0), copy[0]);
    EXPECT_EQ(24, headerOf(const_cast<Item *>(copy.Data())).capacity);

    list = static_cast<Watched const &>(list);
    EXPECT_EQ(Change(0, 8), list.change);
    EXPECT_EQ(item(77), list[0]);
    suDynamicArray<Item> &base = list;
    base = copy;
    EXPECT_EQ(item(0), list[0]);
    EXPECT_NE(copy.Data(), list.Data());
    EXPECT_EQ(24, headerOf(list.Data()).capacity);
    base = suDynamicArray<Item>();
    EXPECT_EQ(Change(0, -1), list.change);
    EXPECT_EQ(nullptr, list.Data());
    EXPECT_EQ(nullptr, suDynamicArray<Item>(base).Data());
}

TEST(DynamicArrayOwner, AFailingAddLosesTheElements) {
    Watched list;
    list.Add(item(5));
    list.Adopt(static_cast<Item *>(suDynArrayAllocSpecial(3, 0, kLinear, sizeof(Item))));
    EXPECT_EQ(Change(0, 2), list.change);
    list.Adopt(list.Data());
    EXPECT_EQ(3, list.Count());
    EXPECT_EQ(-1, list.Add(item(1)));
    EXPECT_EQ(Change(-1, -1), list.change);
    EXPECT_EQ(0, list.Count());
    EXPECT_EQ(0, list.Add(item(1)));
    EXPECT_EQ(8, headerOf(list.Data()).capacity);
}

} // namespace
