// SPDX-License-Identifier: MIT
// Growable arrays of plain elements: blocks of the C heap with a header in front of element 0.

#include <vexmath/detail/array_header.h>
#include <vexmath/dynamic_array.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

// Other modules lay this header over the same memory.
static_assert(sizeof(amDynamicArrayHeader) == 16);
static_assert(offsetof(amDynamicArrayHeader, count) == 0);
static_assert(offsetof(amDynamicArrayHeader, capacity) == 4);
static_assert(offsetof(amDynamicArrayHeader, elementSize) == 8);
static_assert(offsetof(amDynamicArrayHeader, growStep) == 10);
static_assert(offsetof(amDynamicArrayHeader, growMode) == 12);
static_assert(offsetof(amDynamicArrayHeader, keepFlag) == 14);
static_assert(sizeof(int) == 4, "counts and indices are passed as 32-bit integers");

namespace {

using Header = amDynamicArrayHeader;
using vexmath::detail::headerOf;

enum GrowMode { kLinear = 1, kProportional = 2 };

constexpr std::int64_t kMaxGrowStep = INT16_MAX;
constexpr std::int64_t kMaxElementSize = INT16_MAX;

std::size_t bytesOf(void const *array, std::int64_t elements) {
    return static_cast<std::size_t>(elements * headerOf(array)->elementSize);
}

char *slotOf(void *array, std::int64_t index) {
    return static_cast<char *>(array) + bytesOf(array, index);
}

std::int64_t blockBytes(std::int64_t capacity, std::int64_t elementSize) {
    return static_cast<std::int64_t>(sizeof(Header)) + capacity * elementSize;
}

/// Bytes to request when a block grows to `bytes`. A list that grows by 16 slots and cannot do so
/// in place would move each time, which takes quadratic time in all. If the requests are multiples
/// of a quarter to a half of the block, it moves only a few times, and the heap returns most of the
/// blocks as they are.
std::int64_t roomyBytes(std::int64_t bytes) {
    constexpr std::int64_t kExactBelow = 1024;
    if (bytes < kExactBelow) return bytes;
    std::int64_t grain = kExactBelow / 4; // stays a power of 2
    while (grain < bytes / 4) grain *= 2;
    return (bytes + grain - 1) & -grain;
}

/// `realloc` that refuses what no heap can hold.
Header *reallocBlock(Header *block, std::int64_t bytes) {
    if (bytes > PTRDIFF_MAX) return nullptr;
    return static_cast<Header *>(std::realloc(block, static_cast<std::size_t>(bytes)));
}

/// The array of a new block with a copy of the header, the keep flag cleared and `capacity` slots.
void *allocate(Header header, int capacity) {
    Header *const block = reallocBlock(nullptr, blockBytes(capacity, header.elementSize));
    if (!block) return nullptr;
    header.capacity = capacity;
    header.keepFlag = 0;
    *block = header;
    return block + 1;
}

/// The array with `capacity` slots, or null with the array unchanged.
void *reallocate(void *array, std::int64_t capacity) {
    if (capacity > INT32_MAX) return nullptr;
    Header *const old = headerOf(array);
    std::int64_t const bytes = blockBytes(capacity, old->elementSize);
    Header *block = reallocBlock(old, roomyBytes(bytes));
    if (!block) block = reallocBlock(old, bytes);
    if (!block) return nullptr;
    block->capacity = static_cast<std::int32_t>(capacity);
    block->keepFlag = 0;
    return block + 1;
}

/// Adds `growth` slots. When there is no memory for a large proportional growth, the array becomes
/// linear with the largest step and grows by that, if the `needed` new elements then fit.
/// Null with the array unchanged when that fails too.
void *grow(void *array, std::int64_t growth, std::int64_t needed) {
    Header const old = *headerOf(array);
    if (void *const grown = reallocate(array, old.capacity + growth)) return grown;
    if (old.growMode < kProportional || growth <= kMaxGrowStep) return nullptr;
    if (old.count + needed > old.capacity + kMaxGrowStep) return nullptr;
    void *const grown = reallocate(array, old.capacity + kMaxGrowStep);
    if (!grown) return nullptr;
    headerOf(grown)->growMode = kLinear;
    headerOf(grown)->growStep = static_cast<std::int16_t>(kMaxGrowStep);
    return grown;
}

/// Slots to add: `least`, or a multiple of the count once a proportional array has reached it.
std::int64_t growthAmount(Header const &header, std::int64_t least) {
    if (header.growMode < kProportional || header.count < least) return least;
    return (header.growMode - std::int64_t{1}) * header.count;
}

/// True when n more elements do not fit.
bool isFullFor(Header const &header, std::int64_t n) { return header.count + n > header.capacity; }

/// Offset of `pointer` from element 0, in bytes. For a pointer outside the array's own slots it is
/// not below their total size, because the difference wraps.
std::size_t offsetIn(void const *array, void const *pointer) {
    return reinterpret_cast<std::uintptr_t>(pointer) - reinterpret_cast<std::uintptr_t>(array);
}

bool isOwnSlot(void const *array, std::size_t offset) {
    return offset < bytesOf(array, headerOf(array)->capacity);
}

struct HeapRelease {
    void operator()(void *block) const { std::free(block); }
};

} // namespace

void *suDynArrayAlloc(int initialCapacity, int growStep, int growMode, int elementSize) {
    if (elementSize < 1 || elementSize > kMaxElementSize) return nullptr;
    if (initialCapacity < 0 || growStep < 0) return nullptr;
    if (growMode != kLinear && growMode != kProportional) return nullptr;
    Header header = {};
    header.elementSize = static_cast<std::int16_t>(elementSize);
    header.growStep = static_cast<std::int16_t>(std::min<std::int64_t>(growStep, kMaxGrowStep));
    header.growMode = static_cast<std::int16_t>(growMode);
    return allocate(header, initialCapacity);
}

void *suDynArrayAllocSpecial(int initialCapacity, int growStep, int growMode, int elementSize) {
    void *const array = suDynArrayAlloc(initialCapacity, growStep, growMode, elementSize);
    if (array) headerOf(array)->count = initialCapacity;
    return array;
}

void *suDynArrayAlloc1(int initialCapacity, void const *model) {
    if (initialCapacity < 0 || !model) return nullptr;
    Header header = *headerOf(model);
    header.count = 0;
    return allocate(header, initialCapacity);
}

void *amDynamicArrayCopy(void const *array, int trim) {
    if (!array) return nullptr;
    Header const &header = *headerOf(array);
    void *const copy = allocate(header, trim ? header.count : header.capacity);
    if (copy) std::memcpy(copy, array, bytesOf(array, header.count));
    return copy;
}

void amDynamicArrayFree(void *array) {
    if (headerOf(array)->keepFlag == 0) std::free(headerOf(array));
}

int amDynamicArrayCount(void const *array) { return headerOf(array)->count; }

void suDynamicGetStats(void const *array, int *growStep, int *growMode, int *elementSize) {
    Header const &header = *headerOf(array);
    *growStep = header.growStep;
    *growMode = header.growMode;
    *elementSize = header.elementSize;
}

void *amDynamicArrayAdd(void *array, void const *element) {
    if (isFullFor(*headerOf(array), 1)) {
        std::int64_t const growth = growthAmount(*headerOf(array), headerOf(array)->growStep);
        if (growth < 1) return nullptr;
        std::size_t const offset = offsetIn(array, element);
        bool const own = isOwnSlot(array, offset);
        array = grow(array, growth, 1);
        if (!array) return nullptr;
        if (own) element = static_cast<char *>(array) + offset;
    }
    std::int32_t &count = headerOf(array)->count;
    std::memmove(slotOf(array, count), element, bytesOf(array, 1)); // may be that very slot
    ++count;
    return array;
}

void *amDynamicArrayAppend(void *array, void const *source) {
    if (!source || headerOf(source)->elementSize != headerOf(array)->elementSize) return array;
    bool const own = source == array;
    std::int32_t const n = headerOf(source)->count;
    if (isFullFor(*headerOf(array), n)) {
        // QUIRK: dynamic_array.h, amDynamicArrayAppend: a proportional array with fewer elements
        // than are appended, or than its step, grows by the larger of these two numbers. Expected:
        // by its count, as in an insertion. Kept: callers and stored data depend on it.
        // (test: EditsFollowTheirRules)
        std::int32_t const least = std::max<std::int32_t>(headerOf(array)->growStep, n);
        array = grow(array, growthAmount(*headerOf(array), least), n);
        if (!array) return nullptr;
    }
    std::int32_t &count = headerOf(array)->count;
    std::memcpy(slotOf(array, count), own ? array : source, bytesOf(array, n));
    count += n;
    return array;
}

void *amDynamicArrayInsertAt(void *array, int index, void const *elements, int n) {
    Header const header = *headerOf(array);
    if (index < 0 || index > header.count || n < 1) return nullptr;
    std::size_t const bytes = bytesOf(array, n);
    // Elements in the array's own slots, free ones included, are copied before anything moves.
    std::unique_ptr<void, HeapRelease> copy;
    if (isOwnSlot(array, offsetIn(array, elements))) {
        copy.reset(std::malloc(bytes));
        if (!copy) return nullptr;
        elements = std::memcpy(copy.get(), elements, bytes);
    }
    if (isFullFor(header, n)) {
        std::int64_t const missing = std::int64_t{header.count} + n - header.capacity;
        std::int64_t const growth = std::max(growthAmount(header, header.growStep), missing);
        array = grow(array, growth, n);
        if (!array) return nullptr;
    }
    char *const gap = slotOf(array, index);
    std::memmove(gap + bytes, gap, bytesOf(array, header.count - index));
    std::memcpy(gap, elements, bytes);
    headerOf(array)->count += n;
    return array;
}

// QUIRK: dynamic_array.h, amDynamicArraySetAt: the elements come before the index. Expected: the
// index first, as in an insertion. Kept: callers and stored data depend on it.
// (test: EditsFollowTheirRules)
void *amDynamicArraySetAt(void *array, void const *elements, int index, int n) {
    if (index < 0 || n < 1 || std::int64_t{index} + n > headerOf(array)->count) return nullptr;
    std::memmove(slotOf(array, index), elements, bytesOf(array, n));
    return array;
}

void amDynamicArrayRemoveAt(void *array, int index, int n) {
    std::int32_t &count = headerOf(array)->count;
    if (index < 0 || n < 1 || std::int64_t{index} + n > count) return;
    std::memmove(slotOf(array, index), slotOf(array, std::int64_t{index} + n),
                 bytesOf(array, count - index - n));
    count -= n;
}

void *amDynamicArrayResize(void *array, int newCount) {
    if (!array) return nullptr;
    // QUIRK: dynamic_array.h, amDynamicArrayResize: a count above the present one is ignored.
    // Expected: new elements. Kept: callers and stored data depend on it.
    // (test: RefusedEditsChangeNothing)
    std::int32_t &count = headerOf(array)->count;
    count = std::min(count, std::max(newCount, 0));
    return array;
}

int amDynamicArrayReverseFromTo(void *array, int first, int last) {
    // QUIRK: dynamic_array.h, amDynamicArrayReverseFromTo: a range of one element gives 0.
    // Expected: 1. Kept: callers and stored data depend on it. (test: RefusedEditsChangeNothing)
    if (first < 0 || last <= first || last >= headerOf(array)->count) return 0;
    for (; first < last; ++first, --last)
        std::swap_ranges(slotOf(array, first), slotOf(array, first + 1), slotOf(array, last));
    return 1;
}

void *amDynArrayRealloc(void *array, int minimumCapacity) {
    Header const &header = *headerOf(array);
    if (minimumCapacity <= header.capacity || header.growStep == 0) return array;
    // QUIRK: dynamic_array.h, amDynArrayRealloc: a proportional array grows by whole steps too, and
    // not at all when its step is 0. Expected: it grows by its count. Kept: callers and stored data
    // depend on it. (test: EditsFollowTheirRules)
    double const missing = static_cast<double>(std::int64_t{minimumCapacity} - header.capacity);
    auto const steps = static_cast<std::int64_t>(std::ceil(missing / header.growStep));
    void *const grown = grow(array, header.growStep * steps, 0);
    return grown ? grown : array;
}

void *amDynamicArrayFreeExtra(void *array, double slackFraction) {
    Header const &header = *headerOf(array);
    if (!(header.capacity * (1.0 - slackFraction) > header.count)) return array;
    void *const trimmed = amDynamicArrayCopy(array, 1);
    if (!trimmed) return array;
    std::free(headerOf(array));
    return trimmed;
}

void amDynamicArrayRangeError() {}
