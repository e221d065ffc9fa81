// SPDX-License-Identifier: MIT
// Building the tree of boxes.

#include "box_tree.h"

#include <array>
#include <utility>

namespace vexmath::detail {

namespace {

constexpr int kAxisBits = 10; ///< of a cell's number on an axis
constexpr float kCells = static_cast<float>(1 << kAxisBits);

/// What a sample of the entries tells: where most of them are and how large they are.
struct Layout {
    float low[3] = {0.0f, 0.0f, 0.0f};
    float cellsPerUnit = 0.0f;
    float typicalSize = 0.0f;
};

float middle(Enclosure const &e, int axis) { return 0.5f * e.low[axis] + 0.5f * e.high[axis]; }

float largestExtent(Enclosure const &e) {
    return std::max({e.high[0] - e.low[0], e.high[1] - e.low[1], e.high[2] - e.low[2]});
}

/// Drops what is not finite and sorts the rest. Returns its number.
int sortFinite(float *values, int count) {
    float *const end =
        std::remove_if(values, values + count, [](float v) { return !std::isfinite(v); });
    std::sort(values, end);
    return static_cast<int>(end - values);
}

/// The cells are cubes, and cover the entries but for outliers: one part that is far away must not
/// leave all others in one cell. What lies outside counts as on the border.
Layout layoutOf(Enclosure const *entries, int count) {
    constexpr int kSample = 255;
    float sample[kSample];
    auto const draw = [&](auto const &value) {
        int const size = std::min(kSample, count);
        for (int k = 0; k < size; ++k) sample[k] = value(entries[sampleIndex(k, count)]);
        return sortFinite(sample, size);
    };
    Layout layout;
    float widest = 0.0f;
    for (int axis = 0; axis < 3; ++axis) {
        int const size = draw([axis](Enclosure const &e) { return middle(e, axis); });
        if (size == 0) return layout;
        float const low = sample[size / 20], high = sample[size - 1 - size / 20];
        float const margin = 0.25f * (high - low);
        layout.low[axis] = low - margin;
        widest = std::max(widest, high - low + 2.0f * margin);
    }
    float const perUnit = kCells / widest;
    layout.cellsPerUnit = std::isfinite(perUnit) ? perUnit : 0.0f;
    int const size = draw(largestExtent);
    layout.typicalSize = size > 0 ? sample[size / 2] : 0.0f;
    return layout;
}

/// A step into one of the eight parts of a cube: the number of the part along the Hilbert curve,
/// and the state of the curve in it: 8 times a direction, plus the corner at which the curve
/// enters. Method: C. Hamilton, "Compact Hilbert indices", 2006.
struct CurveStep {
    unsigned state, number;
};

constexpr unsigned rotated(unsigned bits, unsigned by) { // to the left, by 0 to 3
    return (bits << by | bits >> (3 - by)) & 7;
}

/// Bit i of a corner is set for the upper half of axis i.
constexpr CurveStep curveStep(unsigned state, unsigned corner) {
    constexpr unsigned kEntries[8] = {0, 0, 0, 3, 3, 6, 6, 5};
    constexpr unsigned kDirections[8] = {0, 1, 1, 2, 2, 1, 1, 0};
    unsigned const entry = state % 8, direction = state / 8;
    unsigned const gray = rotated(corner ^ entry, 2 - direction);
    unsigned const number = gray ^ gray >> 1 ^ gray >> 2;
    return {(direction + kDirections[number] + 1) % 3 * 8
                + (entry ^ rotated(kEntries[number], direction + 1)),
            number};
}

constexpr unsigned kStates = 24;

/// Two steps at once, by state and two corners: the number, above 64 times the next state.
constexpr auto kCurve = [] {
    std::array<std::uint32_t, kStates * 64> table = {};
    for (unsigned state = 0; state < kStates; ++state)
        for (unsigned corners = 0; corners < 64; ++corners) {
            CurveStep const outer = curveStep(state, corners / 8);
            CurveStep const inner = curveStep(outer.state, corners % 8);
            unsigned const number = 8 * outer.number + inner.number;
            table[64 * state + corners] = number << 16 | 64 * inner.state;
        }
    return table;
}();

/// Bit i becomes bit 3 i.
std::uint32_t spread(std::uint32_t v) {
    v = (v | v << 16) & 0x030000ffu;
    v = (v | v << 8) & 0x0300f00fu;
    v = (v | v << 4) & 0x030c30c3u;
    return (v | v << 2) & 0x09249249u;
}

/// The number of a cell on the curve.
std::uint32_t numberOf(std::uint32_t const (&cell)[3]) {
    std::uint32_t const corners = spread(cell[0]) | spread(cell[1]) << 1 | spread(cell[2]) << 2;
    std::uint32_t number = 0;
    std::uint32_t state = 0;
    for (int shift = 3 * kAxisBits - 6; shift >= 0; shift -= 6) {
        std::uint32_t const step = kCurve[state + (corners >> shift & 63)];
        number = number << 6 | step >> 16;
        state = step & 0xffff;
    }
    return number;
}

/// 0 for most entries; up to 3 for those that are much larger. NaN and infinite extents give 3.
std::uint32_t sizeClass(Enclosure const &e, Layout const &layout) {
    float const extent = largestExtent(e);
    return static_cast<std::uint32_t>(!(extent <= 4.0f * layout.typicalSize))
           + static_cast<std::uint32_t>(!(extent <= 16.0f * layout.typicalSize))
           + static_cast<std::uint32_t>(!(extent <= 64.0f * layout.typicalSize));
}

/// 1 to 3 for a rod along an axis, 4 to 6 for a plate across one, 0 for all others. Rods that are
/// near each other have narrow bounds only if they are parallel; so have plates.
std::uint32_t shapeClass(Enclosure const &e) {
    constexpr float kSlender = 8.0f;
    for (std::uint32_t i = 0; i < 3; ++i) {
        auto const extent = [&](std::uint32_t axis) { return e.high[axis] - e.low[axis]; };
        auto const [lesser, greater] = std::minmax({extent((i + 1) % 3), extent((i + 2) % 3)});
        if (extent(i) > kSlender * greater) return 1 + i;
        if (kSlender * extent(i) < lesser) return 4 + i;
    }
    return 0;
}

std::uint32_t cellOf(Enclosure const &e, int axis, Layout const &layout) {
    float const cell = (middle(e, axis) - layout.low[axis]) * layout.cellsPerUnit;
    return static_cast<std::uint32_t>(cell > 0.0f ? std::min(cell, kCells - 1.0f) : 0.0f);
}

/// The key of each entry, above its index: the kind, then the number of the cell.
void findKeys(Enclosure const *entries, int count, std::uint64_t *keys) {
    Layout const layout = layoutOf(entries, count);
    for (int i = 0; i < count; ++i) {
        Enclosure const &e = entries[i];
        std::uint32_t const cell[3] = {cellOf(e, 0, layout), cellOf(e, 1, layout),
                                       cellOf(e, 2, layout)};
        std::uint32_t const kind = sizeClass(e, layout) * 8 + shapeClass(e);
        std::uint32_t const key = kind << 27 | numberOf(cell) >> 3; // five bits of 32, and the rest
        keys[i] = std::uint64_t{key} << 32 | static_cast<std::uint32_t>(i);
    }
}

/// Sorts by the upper 32 bits. Returns the one of the two arrays that has the result.
std::uint64_t *sortByKey(std::uint64_t *keys, std::uint64_t *spare, int count) {
    constexpr int kDigits = 4;
    std::uint32_t places[kDigits][256] = {};
    auto const digit = [](std::uint64_t key, int d) { return key >> (32 + 8 * d) & 0xff; };
    for (int i = 0; i < count; ++i)
        for (int d = 0; d < kDigits; ++d) ++places[d][digit(keys[i], d)];
    for (int d = 0; d < kDigits; ++d) {
        if (places[d][digit(keys[0], d)] == static_cast<std::uint32_t>(count)) continue;
        std::uint32_t place = 0;
        for (std::uint32_t &p : places[d]) place += std::exchange(p, place);
        for (int i = 0; i < count; ++i) spare[places[d][digit(keys[i], d)]++] = keys[i];
        std::swap(keys, spare);
    }
    return keys;
}

} // namespace

bool BoxTree::allocate(int count) {
    constexpr int kMost = std::numeric_limits<int>::max() - 64; // the lanes of a block are numbered
    if (count > kMost) return false;
    int begin = 0;
    int levels = 0;
    // At least two levels: a block of entries finds its bounds in the second.
    for (std::int64_t lanes = count; levels < 2 || lanes > 1; ++levels) {
        lanes = (lanes + 7) / 8;
        begins_[levels] = begin;
        begin += static_cast<int>(lanes);
    }
    begins_[levels] = begin;
    groups_ = Block<EightBoxes>(begin);
    labels_ = Block<std::uint32_t>(count);
    if (!groups_ || !labels_) {
        *this = BoxTree();
        return false;
    }
    levels_ = levels;
    count_ = count;
    return true;
}

void BoxTree::setLane(int level, int position, Enclosure const &box) {
    EightBoxes &boxes = groups_[begins_[level] + position / 8];
    for (int i = 0; i < 3; ++i) {
        boxes.low[i][position % 8] = box.low[i];
        boxes.high[i][position % 8] = box.high[i];
    }
}

void BoxTree::fillEntries(Enclosure const *entries, std::uint64_t const *order) {
    for (int i = 0; i < count_; ++i) {
        Enclosure const &entry = entries[static_cast<std::uint32_t>(order[i])];
        setLane(0, i, entry);
        labels_[i] = entry.label;
    }
}

namespace {
constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
constexpr Enclosure kNothing = {{kNone, kNone, kNone}, {kNone, kNone, kNone}, 0};
} // namespace

void BoxTree::fillBounds() {
    int filled = count_;
    for (int level = 0; level < levels_; ++level) {
        int const groups = groupsAt(level);
        for (int lane = filled; lane < 8 * groups; ++lane) setLane(level, lane, kNothing);
        if (level + 1 < levels_)
            for (int g = 0; g < groups; ++g) setLane(level + 1, g, unionOf(group(level, g)));
        filled = groups;
    }
}

bool BoxTree::build(Enclosure const *entries, int count) {
    *this = BoxTree();
    if (count <= 0) return true;
    if (!allocate(count)) return false;
    Block<std::uint64_t> keys(count), spare(count);
    if (!keys || !spare) {
        *this = BoxTree();
        return false;
    }
    findKeys(entries, count, keys.get());
    fillEntries(entries, sortByKey(keys.get(), spare.get(), count));
    fillBounds();
    return true;
}

void BoxTree::replace(int position, Enclosure const &entry) {
    setLane(0, position, entry);
    for (int level = 1, g = position / 8; level < levels_; ++level, g /= 8)
        setLane(level, g, unionOf(group(level - 1, g)));
}

/// Collects the entries of eight groups. Returns their bounds.
Enclosure BoxTree::collectBlock(int firstGroup, BoxList &block) const {
    Enclosure const bounds = unionOf(group(1, firstGroup / 8));
    int const end = std::min(firstGroup + 8, groupsAt(0));
    for (int g = firstGroup; g < end; ++g) appendMeeting(group(0, g), 8 * g, bounds, block);
    return bounds;
}

} // namespace vexmath::detail
