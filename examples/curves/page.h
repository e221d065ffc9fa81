// SPDX-License-Identifier: MIT
// How the page looks: measures, colours, lines.

#ifndef CURVES_PAGE_H
#define CURVES_PAGE_H

#include <cstddef>
#include <string>

namespace example::curves {

constexpr double kPageMargin = 40.0; // pixels

/// CSS of the page. Its class names are what the drawing code gives as styles.
extern char const *const kStyleSheet;

/// Attributes for what belongs to a shape, counted from 0: its CSS class and the shape's colour.
std::string shapeStyle(char const *cssClass, std::size_t shape);

} // namespace example::curves

#endif
