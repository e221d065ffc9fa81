// SPDX-License-Identifier: MIT
// What the program prints about an assembly.

#include "report.h"

#include "terminal.h"

#include <algorithm>

#include <fmt/core.h>

namespace assembly {

namespace {

using Row = std::vector<std::string>;

/// How many characters a text of UTF-8 shows: each has one byte that continues no other.
std::size_t width(std::string const &text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) >> 6U) != 2;
    }));
}

/// Prints rows of one length, the headings among them, in columns: the first to the left, the
/// others to the right.
void printTable(std::vector<Row> const &rows) {
    std::vector<std::size_t> widths(rows.front().size(), 0);
    for (Row const &row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], width(row[i]));
    }
    for (Row const &row : rows) {
        std::string line = row[0] + std::string(widths[0] - width(row[0]), ' ');
        for (std::size_t i = 1; i < row.size(); ++i) {
            line += "  " + std::string(widths[i] - width(row[i]), ' ') + row[i];
        }
        fmt::print("{}\n", line);
    }
}

/// To six significant digits.
std::string number(double value) { return fmt::format("{:.6g}", value + 0.0); } // no -0

std::string corner(mgPoint_c const &p) {
    return fmt::format("({}, {}, {})", number(p.x()), number(p.y()), number(p.z()));
}

Row rowOf(Part const &part) {
    mgBBox_c const &box = part.placed;
    return {part.name,
            std::to_string(part.mesh->vertices.size()),
            corner(box.low()),
            corner(box.high()),
            number(box.sphRadius()),
            box.isValid() ? "yes" : "no"};
}

/// A heading with the number of entries.
void printHeading(std::string const &title, std::size_t count) {
    fmt::print("\n{}: {}\n", title, count == 0 ? "none" : std::to_string(count));
}

void printPairs(std::string const &title, std::string const &between,
                std::vector<PartPair> const &pairs, std::vector<Part> const &parts) {
    printHeading(title, pairs.size());
    for (auto const &[first, second] : pairs) {
        fmt::print("  {} {} {}\n", parts[first].name, between, parts[second].name);
    }
}

} // namespace

void printReport(Assembly const &assembly, Contacts const &contacts) {
    std::vector<Row> rows{{"part", "vertices", "low", "high", "sphere radius", "valid"}};
    for (Part const &part : assembly.parts) rows.push_back(rowOf(part));
    printTable(rows);
    printPairs("clashing pairs", "-", contacts.clashing, assembly.parts);
    printPairs("touching pairs", "-", contacts.touching, assembly.parts);
    printPairs("containments", "contains", contacts.containing, assembly.parts);
    mgBBox_c const &bounds = assembly.bounds;
    fmt::print("\ntotal bounds: {} to {}, sphere radius {}\n", corner(bounds.low()),
               corner(bounds.high()), number(bounds.sphRadius()));
}

void printDrillingPath(std::vector<Part> const &parts, DrillingPath const &path) {
    if (path.bolts.empty()) return;
    printHeading("drilling path, " + number(path.length) + " long", path.bolts.size());
    for (std::size_t i = 0; i < path.bolts.size(); ++i) {
        fmt::print("  {} at {}\n", parts[path.bolts[i]].name, corner(path.centres[i]));
    }
}

void printPick(std::vector<Part> const &parts, Pick const &pick) {
    printHeading(fmt::format("picked at {} {}", number(pick.at.x), number(pick.at.y)),
                 pick.hits.size());
    fmt::print("  from {} along {}\n", corner(pick.sight.rootPoint()),
               corner(pick.sight.direction()));
    for (Hit const &hit : pick.hits) {
        fmt::print("  {} at {}, distance {}\n", parts[hit.part].name, corner(hit.point),
                   number(hit.distance));
    }
}

void printSection(std::vector<Part> const &parts, Section const &section) {
    printHeading("cut by the section", section.cuts.size());
    for (PartCut const &cut : section.cuts) {
        fmt::print("  {}, its box in a polygon of {} corners\n", parts[cut.part].name,
                   cut.boxOutline.size());
    }
}

void printChanges(std::string const &document, std::vector<std::string> const &changes) {
    printHeading("changed since " + printable(document), changes.size());
    for (std::string const &change : changes) fmt::print("  {}\n", printable(change));
}

void printLosses(std::string const &file, std::vector<Loss> const &losses) {
    printHeading("not kept by the forms in " + printable(file), losses.size());
    for (Loss const &loss : losses) fmt::print("  {}, {}: {}\n", loss.name, loss.form, loss.what);
}

} // namespace assembly
