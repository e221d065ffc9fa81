// SPDX-License-Identifier: MIT
// Charts over the tolerance.

#ifndef CURVES_CHARTS_H
#define CURVES_CHARTS_H

#include "shapes.h"
#include "svg.h"

#include <vector>

namespace example::curves {

/// Two charts beside each other below `top`: points and error of the shapes that follow the
/// tolerance, from far too coarse to far too fine. Returns where they end.
double drawCharts(SvgPage &page, double top, std::vector<Shape> const &shapes);

} // namespace example::curves

#endif
