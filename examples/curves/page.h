// SPDX-License-Identifier: MIT
// How the page looks: measures, colours, lines.

#ifndef CURVES_PAGE_H
#define CURVES_PAGE_H

#include <cstddef>
#include <string>
#include <vector>

#include <vexmath/point.h>

namespace example::curves {

constexpr double kPageMargin = 40.0; // pixels

/// CSS of the page. Its class names are what the drawing code gives as styles.
extern char const *const kStyleSheet;

/// Attributes for what belongs to a shape, counted from 0: its CSS class and the shape's colour.
std::string shapeStyle(char const *cssClass, std::size_t shape);

/// Commands of a path through points of the page.
std::string pathThrough(std::vector<mgPoint_c> const &points);

} // namespace example::curves

#endif
