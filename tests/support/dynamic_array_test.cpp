// SPDX-License-Identifier: MIT
// The dynamic array: its plain functions and its owner.

#include <climits>
#include <tuple>

#include "common/arrays.h"

/// The C program of the same folder: 0, or the line where it found a fault.
extern "C" int runPlainCallers(void);

/// Makes an allocation that is too large fail under the address sanitizer too, instead of aborting.
extern "C" VEXMATH_SHARED_TEMPLATE char const *__asan_default_options();
extern "C" char const *__asan_default_options() { return "allocator_may_return_null=1"; }

namespace {

enum { kLinear = 1, kProportional = 2 };

using Item = std::array<int, 3>;
using Items = std::vector<Item>;

Item item(int i) { return {i, 10 * i, -i}; }

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
    ~Array() {
        header().keepFlag = 0;
        amDynamicArrayFree(data);
    }

    bool add(Item const &element) { return take(amDynamicArrayAdd(data, &element)); }
    /// Stores the handle that an operation returned; false when it refused.
    bool take(void *result) {
        if (result) data = result;
        return result != nullptr;
    }
    amDynamicArrayHeader &header() const { return headerOf(data); }
    Item *items() const { return static_cast<Item *>(data); }
    Items list() const { return {items(), items() + amDynamicArrayCount(data)}; }

    void *data;
};

TEST(DynamicArray, HeaderLiesInFrontOfElementZero) {
    void *const array = suDynArrayAllocSpecial(8, 40000, kProportional, 24);
    unsigned char expected[] = {8, 0, 0, 0, 8, 0, 0, 0, 24, 0, 0xFF, 0x7F, 2, 0, 0, 0};
    EXPECT_EQ(0, std::memcmp(expected, &headerOf(array), 16));
    int step = 0, mode = 0, size = 0;
    suDynamicGetStats(array, &step, &mode, &size);
    EXPECT_EQ(std::tuple(32767, 2, 24), std::tuple(step, mode, size));
    headerOf(array).keepFlag = 7;
    void *const like = suDynArrayAlloc1(0, array);
    expected[0] = expected[4] = 0;
    EXPECT_EQ(0, std::memcmp(expected, &headerOf(like), 16));
    headerOf(like).elementSize = 1;
    EXPECT_FALSE(suDynArrayAlloc1(-1, like));
    EXPECT_FALSE(suDynArrayAlloc1(3, nullptr));
    amDynamicArrayFree(array); // kept
    headerOf(array).keepFlag = 0;
    amDynamicArrayFree(array);
    amDynamicArrayFree(like);
}

TEST(DynamicArray, CreationRefusesWhatAHeaderCannotHold) {
    // Capacity, step, mode, element size, and whether there is an array; the last is 64 terabytes.
    int const rows[][5] = {{0, 16, 1, 24, 1},         {8, 0, 2, 1, 1},
                           {8, INT_MAX, 1, 32767, 1}, {8, 16, 3, 24, 0},
                           {8, 16, 0, 24, 0},         {8, -1, 1, 24, 0},
                           {8, 16, 1, 0, 0},          {8, 16, 1, 32768, 0},
                           {-1, 16, 1, 24, 0},        {INT_MAX, 16, 1, 32767, 0}};
    for (auto const alloc : {suDynArrayAlloc, suDynArrayAllocSpecial}) {
        for (auto const &[capacity, step, mode, size, expected] : rows) {
#ifdef _WIN64 // Wine would take memory until the system ends it
            if (capacity == INT_MAX) continue;
#endif
            void *const array = alloc(capacity, step, mode, size);
            EXPECT_EQ(expected, array != nullptr) << capacity << ' ' << step << ' ' << size;
            if (array) amDynamicArrayFree(array);
        }
    }
}

// All edits in any order: fuzz/fuzz_arrays.cpp.
TEST(DynamicArray, EditsFollowTheirRules) {
    for (int const step : {2, 5}) { // of arrays that an insertion would enlarge by their count
        Array array(1, 2, step, kProportional), three(3, 3, 1, kLinear);
        ASSERT_TRUE(array.take(amDynamicArrayAppend(array.data, three.data)));
        EXPECT_EQ(2 + std::max(step, 3), array.header().capacity);
        EXPECT_EQ((Items{item(0), item(0), item(1), item(2)}), array.list());
        ASSERT_TRUE(array.take(amDynArrayRealloc(array.data, 16)));
        EXPECT_EQ(17, array.header().capacity); // by whole steps
    }
    Array full(2, 2, 0, kProportional);
    ASSERT_TRUE(full.take(amDynArrayRealloc(full.data, 9)));
    EXPECT_EQ(2, full.header().capacity);
    Item const other = item(7);
    EXPECT_EQ(full.data, amDynamicArraySetAt(full.data, &other, 1, 1)); // elements, index, number
    EXPECT_EQ((Items{item(0), other}), full.list());
}

TEST(DynamicArray, RefusedEditsChangeNothing) {
    Array array(4, 6, 16, kLinear);
    Items const before = array.list();
    void *const other = suDynArrayAllocSpecial(4, 16, kLinear, sizeof(Item) + 1);
    for (void *const refused : {other, static_cast<void *>(nullptr)})
        EXPECT_EQ(array.data, amDynamicArrayAppend(array.data, refused));
    amDynamicArrayFree(other);
    amDynamicArrayRemoveAt(array.data, 2, INT_MAX);
    EXPECT_FALSE(amDynamicArraySetAt(array.data, before.data(), 2, INT_MAX));
    EXPECT_EQ(0, amDynamicArrayReverseFromTo(array.data, 2, 2)); // one element
    EXPECT_EQ(array.data, amDynamicArrayResize(array.data, 5));
    EXPECT_EQ(array.data, amDynamicArrayFreeExtra(array.data, std::nan("")));
    EXPECT_FALSE(amDynamicArrayResize(nullptr, 0));
    EXPECT_FALSE(amDynamicArrayCopy(nullptr, 0));
    amDynamicArrayRangeError();
    array.header().elementSize = 1; // two gigabytes, but one slot more than the largest capacity
    EXPECT_EQ(array.data, amDynArrayRealloc(array.data, INT_MAX));
    array.header().elementSize = sizeof(Item);
    EXPECT_EQ(before, array.list());
}

TEST(DynamicArray, LargeProportionalGrowthFallsBackToTheLargestStep) {
    // By another module's mode, 70000 elements would grow by 32766 times as many.
    Array array(0, 70000, 4, kProportional);
    array.header().count = 70000;
    array.header().growMode = 32767;
    ASSERT_TRUE(array.add(item(1)));
    amDynamicArrayHeader &header = array.header();
    EXPECT_EQ(std::tuple(70000 + 32767, kLinear, 32767),
              std::tuple(header.capacity, header.growMode, header.growStep));
    EXPECT_EQ(item(1), array.items()[70000]);
    // 40000 more would not fit then: refused.
    header.growMode = 32767;
    header.count = header.capacity;
    Items const many(40000, item(2));
    EXPECT_FALSE(amDynamicArrayInsertAt(array.data, 0, many.data(), 40000));
}

TEST(DynamicArray, ServesPlainCCallers) { EXPECT_EQ(0, runPlainCallers()); }

static_assert(std::is_polymorphic_v<suDynamicArray<int>>);
static_assert(!std::has_virtual_destructor_v<suDynamicArray<int>>);

TEST(DynamicArrayOwner, AddCreatesGrowsAndNotifies) {
    Watched<Item> list;
    for (int i = 0; i < 1000; ++i) { // from 8 on the elements of the list itself
        EXPECT_EQ(i, list.Add(i < 8 ? item(i) : list[i - 8]));
        EXPECT_EQ(std::pair(i, i), list.told.back());
        EXPECT_EQ(i < 8 ? 8 : (i + 8) / 16 * 16 + 8, headerOf(list.Data()).capacity);
    }
    EXPECT_EQ(kLinear, headerOf(list.Data()).growMode);
    suDynamicArray<Item> const &constant = list;
    for (int i = 0; i < 1000; ++i) EXPECT_EQ(item(i % 8), constant[i]);
    suDynamicArray<std::max_align_t> aligned; // as far as the heap aligns
    EXPECT_EQ(0, aligned.Add({}));
}

TEST(DynamicArrayOwner, CopiesOwnTheirStorage) {
    Watched<Item> list(Items(9, item(5)));
    suDynamicArray<Item> const copy(list);
    suDynamicArray<Item> &base = list;
    list[0] = item(77);
    base = static_cast<Watched<Item> const &>(list); // itself
    EXPECT_EQ(item(77), list[0]);
    EXPECT_EQ(item(5), copy[0]);
    base = copy;
    EXPECT_EQ(Items(9, item(5)), list.list());
    EXPECT_NE(copy.Data(), list.Data());
    base = suDynamicArray<Item>();
    EXPECT_EQ((Changes{{0, 8}, {0, 8}, {0, -1}}), list.told);
    EXPECT_FALSE(list.Data());
    EXPECT_FALSE(suDynamicArray<Item>(base).Data());
}

TEST(DynamicArrayOwner, AFailingAddLosesTheElements) {
    Watched<Item> list({item(5)});
    list.Adopt(static_cast<Item *>(suDynArrayAllocSpecial(3, 0, kLinear, sizeof(Item))));
    list.Adopt(list.Data());
    EXPECT_EQ(-1, list.Add(item(1)));
    EXPECT_EQ(0, list.Count());
    EXPECT_EQ(0, list.Add(item(1)));
    EXPECT_EQ((Changes{{0, 2}, {0, 2}, {-1, -1}, {0, 0}}), list.told);
    EXPECT_EQ(8, headerOf(list.Data()).capacity);
}

} // namespace
