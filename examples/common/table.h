// SPDX-License-Identifier: MIT
// Tables of text.

#ifndef EXAMPLE_TABLE_H
#define EXAMPLE_TABLE_H

#include <ostream>
#include <string>
#include <vector>

namespace example {

using Row = std::vector<std::string>;

/// Prints rows of one length, the headings among them. The first column stands to the left, the
/// others to the right.
void printTable(std::ostream &out, std::vector<Row> const &rows);

} // namespace example

#endif
