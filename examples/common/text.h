// SPDX-License-Identifier: MIT
// Numbers and names as text, for the table and the picture.

#ifndef EXAMPLE_TEXT_H
#define EXAMPLE_TEXT_H

#include <cstddef>
#include <string>

namespace example {

/// To so many significant digits, no trailing zeros: 12.5, 0.333333, 1.5e+09.
std::string number(double value, int digits = 6);

/// The text with its control characters spelled out, such as \\x1b, so that a name from a file
/// cannot break the line or steer a terminal.
std::string printable(std::string const &text);

/// How many characters a text of UTF-8 shows.
std::size_t width(std::string const &text);

/// The text, or its beginning and an ellipsis when it shows more than `most` characters.
std::string shortened(std::string const &text, std::size_t most);

} // namespace example

#endif
