// SPDX-License-Identifier: MIT
// Tables of text.

#include "table.h"

#include "text.h"

#include <algorithm>
#include <cstddef>

namespace example {

void printTable(std::ostream &out, std::vector<Row> const &rows) {
    constexpr std::size_t kGap = 2; // blanks between columns
    std::vector<std::size_t> widths(rows.front().size(), 0);
    for (Row const &row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], width(row[i]));
    }
    for (Row const &row : rows) {
        out << row[0] << std::string(widths[0] - width(row[0]), ' ');
        for (std::size_t i = 1; i < row.size(); ++i) {
            out << std::string(kGap + widths[i] - width(row[i]), ' ') << row[i];
        }
        out << '\n';
    }
}

} // namespace example
