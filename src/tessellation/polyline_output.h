// SPDX-License-Identifier: MIT
// How tessellators count their segments and return their points.

#ifndef VEXMATH_SRC_TESSELLATION_POLYLINE_OUTPUT_H
#define VEXMATH_SRC_TESSELLATION_POLYLINE_OUTPUT_H

#include <vexmath/point.h>
#include <vexmath/su_dynamic_array.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <new>
#include <type_traits>

namespace vexmath::detail {

/// Most segments of one polyline. Only a faulty record asks for more.
inline constexpr int kMostSegments = 10000000;

/// A computed number of segments without its fraction; 0 for NaN and above the limit.
inline int wholeSegments(double segments) {
    return segments < kMostSegments + 1.0 ? static_cast<int>(segments) : 0;
}

/// Number of segments for an angle in steps of about the given one: the quotient rounded down, but
/// at least one, two above 1.5 degrees and three above 3 degrees. 0 when the angles are NaN.
inline int segmentsOfSweep(double sweepRad, double stepRad) {
    /// Step at or below which there is only one segment.
    constexpr double kNoStepRad = 1e-11;
    /// Sweeps above which one segment is not enough, and then two; strict.
    constexpr double kNeedsTwoRad = 0.026179938779915;
    constexpr double kNeedsThreeRad = 0.05235987755983;
    int n = 1;
    if (!(std::fabs(stepRad) <= kNoStepRad)) {
        double const steps = std::fabs(sweepRad / stepRad);
        n = steps < 1.0 ? 1 : wholeSegments(steps);
    }
    if (n == 1 && sweepRad > kNeedsTwoRad) n = 2;
    if (n == 2 && sweepRad > kNeedsThreeRad) n = 3;
    return n;
}

/// Where the points go: to a new array for the caller if outArray is not null, else to a list.
class PolylineOutput {
public:
    PolylineOutput(mgPoint_c **outArray, int &count, suDynamicArray<mgPoint_c> *list)
        : outArray_(outArray), count_(count), list_(list) {
        count_ = 0;
    }

    /// Outputs the segments + 1 points next(0), next(1), ... in this order. Does nothing when there
    /// are no segments.
    template <class Next>
    void append(int segments, Next next) const {
        if (segments < 1) return;
        if (outArray_ == nullptr) {
            for (int i = 0; i <= segments; ++i)
                if (list_->Add(next(i)) < 0) return;
        } else {
            mgPoint_c *const points = roomFor(static_cast<std::size_t>(segments) + 1);
            if (points == nullptr) return;
            for (int i = 0; i <= segments; ++i) ::new (points + i) mgPoint_c(next(i));
            *outArray_ = points;
        }
        count_ = segments;
    }

    /// Outputs the points of a list. A list as output then holds nothing else.
    void assign(suDynamicArray<mgPoint_c> const &points) const {
        if (outArray_ != nullptr) {
            append(points.Count() - 1, [&points](int i) { return points[i]; });
        } else {
            *list_ = points;
            count_ = std::max(list_->Count() - 1, 0);
        }
    }

private:
    /// The storage of `new mgPoint_c[count]` without its zeros; null when there is no memory. The
    /// caller's delete[] releases it all the same: elements without a destructor need nothing else,
    /// and no count is stored before them.
    static mgPoint_c *roomFor(std::size_t count) {
        static_assert(std::is_trivially_destructible_v<mgPoint_c>);
        return static_cast<mgPoint_c *>(::operator new[](count * sizeof(mgPoint_c), std::nothrow));
    }

    mgPoint_c **outArray_;
    int &count_;
    suDynamicArray<mgPoint_c> *list_;
};

} // namespace vexmath::detail

#endif
