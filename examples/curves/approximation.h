// SPDX-License-Identifier: MIT
// How well a polyline follows its curve.

#ifndef CURVES_APPROXIMATION_H
#define CURVES_APPROXIMATION_H

#include "shapes.h"

#include <vector>

#include <vexmath/point.h>

namespace example::curves {

struct Approximation {
    std::vector<mgPoint_c> points; ///< none when the tolerance refuses the shape
    double error;                  ///< largest distance from the curve to the polyline, measured
    mgPoint_c whereWorst;          ///< a point that far off; of several the rightmost
};

Approximation approximate(Shape const &shape, double tolerance);

/// Points of the exact curve, close enough together to stand for it.
std::vector<mgPoint_c> sampled(Shape const &shape, int count);

} // namespace example::curves

#endif
