// SPDX-License-Identifier: MIT
// Boxes of floats, eight at a time, with AVX2 and without. Both make the same comparisons.

#include "eight_boxes.h"

#include "simd/dispatch.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace vexmath::detail {

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// The boxes of a list or of an EightBoxes, from one of them on.
struct Lanes {
    float const *low[3];
    float const *high[3];
};

Lanes lanesOf(EightBoxes const &boxes) {
    return {{boxes.low[0], boxes.low[1], boxes.low[2]},
            {boxes.high[0], boxes.high[1], boxes.high[2]}};
}

Lanes lanesOf(BoxList const &list, int from) {
    return {{list.low[0] + from, list.low[1] + from, list.low[2] + from},
            {list.high[0] + from, list.high[1] + from, list.high[2] + from}};
}

Enclosure unionOf(Lanes const &lanes, int count) {
    Enclosure all = {{kInfinity, kInfinity, kInfinity}, {-kInfinity, -kInfinity, -kInfinity}, 0};
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < count; ++k) {
            // NaN is not less and not greater: a lane without a box changes nothing.
            all.low[i] = lanes.low[i][k] < all.low[i] ? lanes.low[i][k] : all.low[i];
            all.high[i] = lanes.high[i][k] > all.high[i] ? lanes.high[i][k] : all.high[i];
        }
    }
    return all;
}

/// Steps without AVX2.
struct Plain {
    static unsigned whichMeet(Lanes const &lanes, Enclosure const &box) {
        unsigned which = 0;
        for (unsigned k = 0; k < 8; ++k) {
            unsigned meets = 1;
            for (int i = 0; i < 3; ++i)
                meets &= static_cast<unsigned>(lanes.low[i][k] <= box.high[i])
                         & static_cast<unsigned>(box.low[i] <= lanes.high[i][k]);
            which |= meets << k;
        }
        return which;
    }

    static void append(Lanes const &lanes, int const *positions, Enclosure const &box,
                       BoxList &to) {
        unsigned const which = whichMeet(lanes, box);
        for (int k = 0; which >> k != 0; ++k) {
            for (int i = 0; i < 3; ++i) {
                to.low[i][to.count] = lanes.low[i][k];
                to.high[i][to.count] = lanes.high[i][k];
            }
            to.position[to.count] = positions[k];
            to.count += static_cast<int>(which >> k & 1);
        }
    }

    static bool isDeep(BoxList const &list, int k, Enclosure const &box, float depth) {
        for (int i = 0; i < 3; ++i) {
            float const common =
                std::min(list.high[i][k], box.high[i]) - std::max(list.low[i][k], box.low[i]);
            if (!(common > depth)) return false;
        }
        return true;
    }

    static int find(BoxList const &list, int begin, Enclosure const &box, float depth,
                    std::uint32_t *found) {
        int count = 0;
        for (int first = begin; first < list.count; first += 8) {
            unsigned const which = whichMeet(lanesOf(list, first), box);
            for (int k = 0; which >> k != 0; ++k) {
                if ((which >> k & 1) == 0) continue;
                std::uint32_t const mark = isDeep(list, first + k, box, depth) ? kDeep : 0;
                found[count++] = static_cast<std::uint32_t>(first + k) | mark;
            }
        }
        return count;
    }
};

#if defined(VEXMATH_AVX2)

/// For each set of lanes a permutation that moves these lanes to the front: eight bytes, a lane
/// number each.
constexpr std::array<std::uint64_t, 256> makePacking() {
    std::array<std::uint64_t, 256> packing = {};
    for (unsigned which = 0; which < 256; ++which) {
        unsigned place = 0;
        for (std::uint64_t lane = 0; lane < 8; ++lane)
            if ((which >> lane & 1) != 0) packing[which] |= lane << 8 * place++;
    }
    return packing;
}

constexpr std::array<std::uint64_t, 256> kPacking = makePacking();

VEXMATH_AVX2_STEP __m256i packing(unsigned which) {
    return _mm256_cvtepu8_epi32(_mm_cvtsi64_si128(static_cast<long long>(kPacking[which])));
}

VEXMATH_AVX2_STEP void copyPacked(float const *from, __m256i packing, float *to) {
    _mm256_storeu_ps(to, _mm256_permutevar8x32_ps(_mm256_loadu_ps(from), packing));
}

template <class Number>
VEXMATH_AVX2_STEP void storeNumbers(Number *to, __m256i numbers) {
    _mm256_storeu_si256(reinterpret_cast<__m256i *>(to), numbers);
}

/// first, first + 1 ...
VEXMATH_AVX2_STEP __m256i numbersFrom(int first) {
    return _mm256_add_epi32(_mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7), _mm256_set1_epi32(first));
}

/// A box in all lanes of six registers.
struct WideEnclosure {
    VEXMATH_AVX2_STEP explicit WideEnclosure(Enclosure const &box)
        : low{_mm256_set1_ps(box.low[0]), _mm256_set1_ps(box.low[1]), _mm256_set1_ps(box.low[2])},
          high{_mm256_set1_ps(box.high[0]), _mm256_set1_ps(box.high[1]),
               _mm256_set1_ps(box.high[2])} {}

    template <int kAxis>
    VEXMATH_AVX2_STEP __m256 meets(Lanes const &lanes) const {
        return _mm256_and_ps(
            _mm256_cmp_ps(_mm256_loadu_ps(lanes.low[kAxis]), high[kAxis], _CMP_LE_OQ),
            _mm256_cmp_ps(low[kAxis], _mm256_loadu_ps(lanes.high[kAxis]), _CMP_LE_OQ));
    }

    VEXMATH_AVX2_STEP unsigned whichMeet(Lanes const &lanes) const {
        __m256 const all =
            _mm256_and_ps(_mm256_and_ps(meets<0>(lanes), meets<1>(lanes)), meets<2>(lanes));
        return static_cast<unsigned>(_mm256_movemask_ps(all));
    }

    template <int kAxis>
    VEXMATH_AVX2_STEP __m256 isWider(Lanes const &lanes, __m256 depth) const {
        __m256 const end = _mm256_min_ps(_mm256_loadu_ps(lanes.high[kAxis]), high[kAxis]);
        __m256 const begin = _mm256_max_ps(_mm256_loadu_ps(lanes.low[kAxis]), low[kAxis]);
        return _mm256_cmp_ps(_mm256_sub_ps(end, begin), depth, _CMP_GT_OQ);
    }

    /// kDeep in the lanes of boxes with a common part that is wider than `depth`.
    VEXMATH_AVX2_STEP __m256i deepMarks(Lanes const &lanes, __m256 depth) const {
        __m256 const all =
            _mm256_and_ps(_mm256_and_ps(isWider<0>(lanes, depth), isWider<1>(lanes, depth)),
                          isWider<2>(lanes, depth));
        return _mm256_and_si256(_mm256_castps_si256(all),
                                _mm256_set1_epi32(std::numeric_limits<int>::min()));
    }

    __m256 low[3], high[3];
};

VEXMATH_AVX2_STEP void appendStep(Lanes const &lanes, __m256i positions, WideEnclosure const &box,
                                  BoxList &to) {
    unsigned const which = box.whichMeet(lanes);
    __m256i const packed = packing(which);
    for (int i = 0; i < 3; ++i) {
        copyPacked(lanes.low[i], packed, to.low[i] + to.count);
        copyPacked(lanes.high[i], packed, to.high[i] + to.count);
    }
    storeNumbers(to.position + to.count, _mm256_permutevar8x32_epi32(positions, packed));
    to.count += __builtin_popcount(which);
}

/// The same steps with AVX2.
struct Simd {
    VEXMATH_AVX2 static unsigned whichMeet(Lanes const &lanes, Enclosure const &box) {
        return WideEnclosure(box).whichMeet(lanes);
    }

    VEXMATH_AVX2 static void append(EightBoxes const &boxes, int position, Enclosure const &box,
                                    BoxList &to) {
        appendStep(lanesOf(boxes), numbersFrom(position), WideEnclosure(box), to);
    }

    VEXMATH_AVX2 static void append(BoxList const &list, int begin, Enclosure const &box,
                                    BoxList &to) {
        WideEnclosure const wide(box);
        for (int first = begin; first < list.count; first += 8)
            appendStep(lanesOf(list, first),
                       _mm256_loadu_si256(reinterpret_cast<__m256i const *>(list.position + first)),
                       wide, to);
    }

    VEXMATH_AVX2 static int find(BoxList const &list, int begin, Enclosure const &box, float depth,
                                 std::uint32_t *found) {
        WideEnclosure const wide(box);
        __m256 const depths = _mm256_set1_ps(depth);
        __m256i indices =
            _mm256_add_epi32(_mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7), _mm256_set1_epi32(begin));
        int count = 0;
        for (int first = begin; first < list.count; first += 8) {
            Lanes const lanes = lanesOf(list, first);
            unsigned const which = wide.whichMeet(lanes);
            __m256i const marked = _mm256_or_si256(indices, wide.deepMarks(lanes, depths));
            storeNumbers(found + count, _mm256_permutevar8x32_epi32(marked, packing(which)));
            count += __builtin_popcount(which);
            indices = _mm256_add_epi32(indices, _mm256_set1_epi32(8));
        }
        return count;
    }
};

#endif

} // namespace

Enclosure unionOf(EightBoxes const &boxes) { return unionOf(lanesOf(boxes), 8); }

Enclosure unionOf(BoxList const &list, int begin, int end) {
    return unionOf(lanesOf(list, begin), end - begin);
}

unsigned whichMeet(EightBoxes const &boxes, Enclosure const &box) {
#if defined(VEXMATH_AVX2)
    if (hasSimd()) return Simd::whichMeet(lanesOf(boxes), box);
#endif
    return Plain::whichMeet(lanesOf(boxes), box);
}

void appendMeeting(EightBoxes const &boxes, int position, Enclosure const &box, BoxList &to) {
#if defined(VEXMATH_AVX2)
    if (hasSimd()) return Simd::append(boxes, position, box, to);
#endif
    int positions[8];
    std::iota(positions, positions + 8, position);
    Plain::append(lanesOf(boxes), positions, box, to);
}

void appendMeeting(BoxList const &list, int begin, Enclosure const &box, BoxList &to) {
#if defined(VEXMATH_AVX2)
    if (hasSimd()) return Simd::append(list, begin, box, to);
#endif
    for (int first = begin; first < list.count; first += 8)
        Plain::append(lanesOf(list, first), list.position + first, box, to);
}

int findMeeting(BoxList const &list, int begin, Enclosure const &box, float depth,
                std::uint32_t *found) {
#if defined(VEXMATH_AVX2)
    if (hasSimd()) return Simd::find(list, begin, box, depth, found);
#endif
    return Plain::find(list, begin, box, depth, found);
}

} // namespace vexmath::detail
