// SPDX-License-Identifier: MIT
// The dynamic array: its plain functions and its owner.

#include <array>
#include <climits>
#include <tuple>
#include <type_traits>

#include "common/arrays.h"

/// The C program of the same folder: 0, or the line where it found a fault.
extern "C" int runPlainCallers(void);

/// Makes an allocation that is too large fail under the address sanitizer too, instead of aborting.
extern "C" VEXMATH_SHARED_TEMPLATE char const *__asan_default_options();
extern "C" char const *__asan_default_options() { return "allocator_may_return_null=1"; }

namespace {

using namespace common;

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
    EXPECT_FALSE(suDynArrayAlloc1(-1, array));
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
#ifdef _WIN64 // as in ExhaustedMemoryLeavesTheOldArray
            if (capacity == INT_MAX) continue;
#endif
            void *const array = alloc(capacity, step, mode, size);
            EXPECT_EQ(expected, array != nullptr) << capacity << ' ' << step << ' ' << size;
            if (array) amDynamicArrayFree(array);
        }
    }
}

enum Edit { kAdd, kAppend, kInsert };

/// An array by its rules: the elements, and the numbers of the header.
struct Model {
    Items list;
    int capacity, step, mode, keepFlag;

    int count() const { return static_cast<int>(list.size()); }
    void setCapacity(int slots) { capacity = slots, keepFlag = 0; }

    /// Slots for n more elements; false when the rule refuses to make them.
    bool makeRoom(Edit edit, int n) {
        if (count() + n <= capacity) return true;
        int growth = edit == kAppend ? std::max(step, n) : step;
        if (mode >= kProportional && count() >= growth) growth = (mode - 1) * count();
        if (edit == kInsert) growth = std::max(growth, count() + n - capacity);
        if (growth >= 1) setCapacity(capacity + growth);
        return growth >= 1;
    }

    bool insert(Edit edit, int at, Items const &elements) {
        bool const allowed = edit != kInsert || (0 <= at && at <= count() && !elements.empty());
        if (!allowed || !makeRoom(edit, static_cast<int>(elements.size()))) return false;
        list.insert(list.begin() + at, elements.begin(), elements.end());
        return true;
    }
};

void CheckSame(Model const &model, Array const &array, Caller = {}) {
    amDynamicArrayHeader const &header = array.header();
    ASSERT_EQ(model.list, array.list());
    ASSERT_EQ(std::tuple(model.capacity, model.step, model.mode, model.keepFlag),
              std::tuple(header.capacity, header.growStep, header.growMode, header.keepFlag));
}

/// Adds, appends or inserts n elements, at times from the array's own slots, free ones included.
void addSome(Model &model, Array &array, int at, int n, Random &random) {
    int const count = model.count(), from = random.below(std::max(model.capacity - n, 0) + 1);
    bool const own = n <= model.capacity && random.below(3) == 0;
    for (int i = count; i < model.capacity; ++i) array.items()[i] = item(random.below(999));
    Items elements;
    for (int i = 0; i < n; ++i)
        elements.push_back(own ? array.items()[from + i] : item(random.below(999)));
    void const *const source = own ? array.items() + from : elements.data();
    Array other(0, n, 1, kLinear);
    for (Item const &element : elements) other.add(element);
    auto const kind = static_cast<Edit>(n == 1 ? random.below(3) : 1 + random.below(2));
    bool const self = kind == kAppend && n == count; // appended to itself
    bool const done =
        model.insert(kind, kind == kInsert ? at : count, self ? Items(model.list) : elements);
    ASSERT_EQ(done, array.take(kind == kAdd      ? amDynamicArrayAdd(array.data, source)
                               : kind == kInsert ? amDynamicArrayInsertAt(array.data, at, source, n)
                                                 : amDynamicArrayAppend(
                                                     array.data, self ? array.data : other.data)));
}

/// Changes n elements from an index on, if there are so many.
void changeSome(Model &model, void *array, int at, int n, int kind) {
    bool const inside = 0 <= at && 1 <= n && at + n <= model.count();
    auto const first = model.list.begin() + (inside ? at : 0), last = first + (inside ? n : 0);
    if (kind == 0) {
        Items const own(model.list.begin(), model.list.begin() + (last - first));
        ASSERT_EQ(inside ? array : nullptr, amDynamicArraySetAt(array, array, at, n));
        std::copy(own.begin(), own.end(), first);
    } else if (kind == 1) {
        amDynamicArrayRemoveAt(array, at, n);
        model.list.erase(first, last);
    } else if (kind == 2) {
        ASSERT_EQ(inside && n > 1, amDynamicArrayReverseFromTo(array, at, at + n - 1));
        std::reverse(first, last);
    } else {
        ASSERT_EQ(array, amDynamicArrayResize(array, at));
        if (at < model.count()) model.list.resize(static_cast<std::size_t>(std::max(at, 0)));
    }
}

/// Grows by n times 5 slots, trims or copies.
void changeCapacity(Model &model, Array &array, int n, int kind) {
    int const count = model.count();
    if (kind == 0) {
        ASSERT_TRUE(array.take(amDynArrayRealloc(array.data, model.capacity + 5 * n)));
        if (n < 1 || model.step == 0) return;
        model.setCapacity(model.capacity + (5 * n + model.step - 1) / model.step * model.step);
    } else if (kind == 1) {
        double const slack = n / 8.0; // so that products are exact
        ASSERT_TRUE(array.take(amDynamicArrayFreeExtra(array.data, slack)));
        if (model.capacity * (1 - slack) > count) model.setCapacity(count);
    } else {
        void *const copy = amDynamicArrayCopy(array.data, n);
        model.setCapacity(n != 0 ? count : model.capacity);
        array.header().keepFlag = 0;
        amDynamicArrayFree(array.data);
        array.data = copy;
    }
}

TEST(DynamicArray, EditsFollowTheirRules) {
    Random random;
    for (int round = 0; round < 5000; ++round) {
        Model model{{}, random.below(10), random.below(8), 1 + random.below(3), random.below(2)};
        Array array(0, model.capacity, model.step, kLinear);
        array.header().growMode = static_cast<std::int16_t>(model.mode); // 3 is another module's
        array.header().keepFlag = static_cast<std::uint16_t>(model.keepFlag);
        for (int k = 0; k < 20; ++k) {
            int const at = random.below(model.count() + 3) - 1, n = random.below(6);
            int const kind = random.below(12);
            if (kind < 4) changeSome(model, array.data, at, n, kind);
            if (kind >= 4 && kind < 7) changeCapacity(model, array, n, kind - 4);
            if (kind >= 7) addSome(model, array, at, n, random);
            if (!HasFatalFailure()) CheckSame(model, array);
            ASSERT_FALSE(HasFatalFailure()) << round;
        }
    }
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
