// SPDX-License-Identifier: MIT
// Which of eight boxes of floats may be met by a line.
//
// A box is missed when the line, seen along its own direction, passes outside the outline of the
// box. The outline is a hexagon with sides along the axes, so that three comparisons decide: with
// the cross products of the line's direction and the axes.

#include "near_line.h"

#include "simd/dispatch.h"

#include <cmath>
#include <limits>

namespace vexmath::detail {

namespace {

/// Slack per length of the coordinates in the frame.
constexpr float kOfSizes = 4e-06f;

template <class Triple>
double sumOfSizes(Triple const &v) {
    return std::fabs(v[0]) + std::fabs(v[1]) + std::fabs(v[2]);
}

} // namespace

bool NearLine::isOrdinary(mgPoint_c const &p, mgUnitVector_c const &dir) {
    constexpr double kFarthest = 1e30;
    constexpr double kShortestSq = 1e-12, kLongestSq = 1e12;
    double const lengthSq = dir.sqlen();
    return sumOfSizes(p) < kFarthest && lengthSq > kShortestSq && lengthSq < kLongestSq;
}

NearLine::NearLine(mgPoint_c const &p, mgUnitVector_c const &dir, FloatFrame const &frame)
    : begin(-std::numeric_limits<float>::infinity()), end(-begin) {
    constexpr double kSlack = 3e-08; // of the tests, with their 1e-08
    constexpr double kOfCoordinates = 1e-14;
    mgVector_c const unit = dir * (1.0 / dir.len());
    mgVector_c const own(p.x() - frame.origin[0], p.y() - frame.origin[1], p.z() - frame.origin[2]);
    from_ = own % unit;
    mgVector_c const nearest = own - unit * from_;
    for (int i = 0; i < 3; ++i) {
        at[i] = static_cast<float>(nearest[i]);
        direction[i] = static_cast<float>(unit[i]);
    }
    double const sizes = sumOfSizes(p) + sumOfSizes(frame.origin);
    slack = static_cast<float>(kSlack + kOfCoordinates * sizes)
            + kOfSizes * static_cast<float>(sumOfSizes(nearest));
}

void NearLine::limit(double distance) {
    constexpr double kOfDistance = 1e-06; // of what floats lose here
    double const last = from_ + distance;
    begin = static_cast<float>(from_ - kOfDistance * std::fabs(from_));
    end = static_cast<float>(last + kOfDistance * (std::fabs(from_) + distance));
}

namespace {

unsigned whichPlainly(EightBoxes const &boxes, NearLine const &line) {
    float const d[] = {std::fabs(line.direction[0]), std::fabs(line.direction[1]),
                       std::fabs(line.direction[2])};
    unsigned which = 0;
    for (unsigned k = 0; k < 8; ++k) {
        float m[3], half[3]; // from the line's point to the middle; half the extents
        float slack = line.slack, along = 0.0f, reach = 0.0f;
        bool isBox = true;
        for (int i = 0; i < 3; ++i) {
            float const low = 0.5f * boxes.low[i][k], high = 0.5f * boxes.high[i][k];
            isBox &= low <= high;
            half[i] = high - low;
            m[i] = (high + low) - line.at[i];
            slack += kOfSizes * (std::fabs(high + low) + half[i]);
            along += m[i] * line.direction[i];
            reach += half[i] * d[i];
        }
        reach += slack;
        // Infinite boxes give NaN, which is not beyond any bound.
        bool isMissed = along + reach < line.begin || along - reach > line.end;
        for (int i = 0; i < 3; ++i) {
            int const j = (i + 1) % 3, n = (i + 2) % 3;
            float const distance = m[j] * line.direction[n] - m[n] * line.direction[j];
            isMissed |= std::fabs(distance) > half[j] * d[n] + half[n] * d[j] + slack;
        }
        which |= static_cast<unsigned>(isBox && !isMissed) << k;
    }
    return which;
}

#if defined(VEXMATH_AVX2)

/// One number of eight boxes. The operators act on each lane.
using Eight = __m256;

VEXMATH_AVX2_STEP Eight size(Eight v) { return _mm256_andnot_ps(_mm256_set1_ps(-0.0f), v); }

VEXMATH_AVX2_STEP Eight isBeyond(Eight v, Eight bound) {
    return _mm256_cmp_ps(v, bound, _CMP_GT_OQ);
}

VEXMATH_AVX2 unsigned whichBySimd(EightBoxes const &boxes, NearLine const &line) {
    Eight m[3], half[3], d[3], size_d[3];
    Eight slack = _mm256_set1_ps(line.slack), along = _mm256_setzero_ps(), reach = along;
    Eight isBox = _mm256_cmp_ps(along, along, _CMP_EQ_OQ);
    Eight const ofSizes = _mm256_set1_ps(kOfSizes), oneHalf = _mm256_set1_ps(0.5f);
    for (int i = 0; i < 3; ++i) {
        Eight const low = _mm256_loadu_ps(boxes.low[i]) * oneHalf;
        Eight const high = _mm256_loadu_ps(boxes.high[i]) * oneHalf;
        isBox = _mm256_and_ps(isBox, _mm256_cmp_ps(low, high, _CMP_LE_OQ));
        d[i] = _mm256_set1_ps(line.direction[i]);
        size_d[i] = size(d[i]);
        half[i] = high - low;
        m[i] = (high + low) - _mm256_set1_ps(line.at[i]);
        slack = slack + ofSizes * (size(high + low) + half[i]);
        along = along + m[i] * d[i];
        reach = reach + half[i] * size_d[i];
    }
    reach = reach + slack;
    Eight isMissed = _mm256_or_ps(isBeyond(_mm256_set1_ps(line.begin), along + reach),
                                  isBeyond(along - reach, _mm256_set1_ps(line.end)));
    for (int i = 0; i < 3; ++i) {
        int const j = (i + 1) % 3, n = (i + 2) % 3;
        Eight const distance = size(m[j] * d[n] - m[n] * d[j]);
        Eight const bound = half[j] * size_d[n] + half[n] * size_d[j] + slack;
        isMissed = _mm256_or_ps(isMissed, isBeyond(distance, bound));
    }
    return static_cast<unsigned>(_mm256_movemask_ps(_mm256_andnot_ps(isMissed, isBox)));
}

#else // never called

unsigned whichBySimd(EightBoxes const &, NearLine const &) { return 0; }

#endif

} // namespace

unsigned whichMayMeet(EightBoxes const &boxes, NearLine const &line) {
    return hasSimd() ? whichBySimd(boxes, line) : whichPlainly(boxes, line);
}

} // namespace vexmath::detail
