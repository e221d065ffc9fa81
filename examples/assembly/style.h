// SPDX-License-Identifier: MIT
// How the picture looks: colours, line styles, the hatch, the arrow head.

#ifndef ASSEMBLY_STYLE_H
#define ASSEMBLY_STYLE_H

#include <cstddef>
#include <string>

namespace example::assembly {

/// CSS of the page. Its class names are what the drawing code gives as styles.
extern char const *const kStyleSheet;
/// Definitions that the style sheet refers to; stands once at the beginning of the page.
extern char const *const kDefinitions;

/// Attributes for what belongs to a part, counted from 0: its CSS class and the part's colour for
/// lines. Colours repeat after a dozen parts, and none is the red of a clash.
std::string partStyle(char const *cssClass, std::size_t part);

} // namespace example::assembly

#endif
