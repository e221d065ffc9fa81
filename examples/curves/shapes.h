// SPDX-License-Identifier: MIT
// The curves of the gallery.

#ifndef CURVES_SHAPES_H
#define CURVES_SHAPES_H

#include <functional>
#include <string>
#include <vector>

#include <vexmath/point.h>

namespace example::curves {

/// A curved edge in the plane z = 0, in millimetres.
struct Shape {
    std::string name;
    std::string measures;
    std::string source; ///< the library's function
    /// Whether the tolerance decides on the number of points.
    bool followsTolerance;
    /// The points that the library makes of it.
    std::function<std::vector<mgPoint_c>(double tolerance)> polyline;
    /// The curve itself, from 0 at its start to 1 at its end, by another way than the library's.
    std::function<mgPoint_c(double)> exact;
};

std::vector<Shape> allShapes();

} // namespace example::curves

#endif
