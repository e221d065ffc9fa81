// SPDX-License-Identifier: MIT
// What the user reads: the report, its names and numbers, and the progress of long work.

#include "report.h"

#include "checks.h"
#include "exchange.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>
#include <utility>

#include <fmt/core.h>

namespace assembly {

namespace {

char const *const kEraseLine = "\r\033[K";

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
            box.isValid() ? "yes" : "no",
            stockSize(part),
            number(part.mesh->stock.angleDegrees)};
}

void printParts(Assembly const &assembly) {
    std::vector<Row> rows{
        {"part", "vertices", "low", "high", "sphere radius", "valid", "stock size", "angle"}};
    for (Part const &part : assembly.parts) rows.push_back(rowOf(part));
    printTable(rows);
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

void printDrilling(std::string const &title, DrillingOrder const &order,
                   std::vector<Part> const &parts) {
    if (order.bolts.empty()) return;
    printHeading(fmt::format("{}, {} long", title, number(order.length)), order.bolts.size());
    for (std::size_t i = 0; i < order.bolts.size(); ++i) {
        fmt::print("  {} at {}\n", parts[order.bolts[i]].name, corner(order.centres[i]));
    }
}

void printPick(Pick const &pick, std::vector<Part> const &parts) {
    printHeading(fmt::format("picked at {} {}", number(pick.at.x), number(pick.at.y)),
                 pick.hits.size());
    fmt::print("  from {} along {}\n", corner(pick.sight.rootPoint()),
               corner(pick.sight.direction()));
    for (Hit const &hit : pick.hits) {
        fmt::print("  {} at {}, distance {}\n", parts[hit.part].name, corner(hit.point),
                   number(hit.distance));
    }
}

void printSection(Section const &section, std::vector<Part> const &parts) {
    printHeading("cut by the section", section.cuts.size());
    for (PartCut const &cut : section.cuts) {
        fmt::print("  {}, its box in a polygon of {} corners{}\n", parts[cut.part].name,
                   cut.boxOutline.size(),
                   cut.outlines.empty()
                       ? ""
                       : fmt::format(", hatched at {} degrees", number(cut.hatchDegrees)));
    }
}

/// Does a control character from U+0080 to U+009F begin here? UTF-8 writes it as two bytes.
bool isUpperControl(std::string const &text, std::size_t i) {
    if (text[i] != '\xc2' || i + 1 == text.size()) return false;
    auto const next = static_cast<unsigned char>(text[i + 1]);
    return next >= 0x80 && next < 0xa0;
}

} // namespace

void printReport(Assembly const &assembly, CheckResult const &result) {
    std::vector<Part> const &parts = assembly.parts;
    printParts(assembly);
    printPairs("clashing pairs", "-", result.contacts.clashing, parts);
    printPairs("touching pairs", "-", result.contacts.touching, parts);
    printPairs("containments", "contains", result.contacts.containing, parts);
    mgBBox_c const &bounds = assembly.bounds;
    fmt::print("\ntotal bounds: {} to {}, sphere radius {}\n", corner(bounds.low()),
               corner(bounds.high()), number(bounds.sphRadius()));
    printDrilling("drilling path", result.drilling.path, parts);
    printDrilling("drilling tour, back to the first bolt", result.drilling.tour, parts);
    if (result.pick) printPick(*result.pick, parts);
    if (result.section) printSection(*result.section, parts);
}

void printChanges(std::string const &document, std::vector<std::string> const &changes) {
    printHeading("changed since " + printable(document), changes.size());
    for (std::string const &change : changes) fmt::print("  {}\n", printable(change));
}

void printLosses(std::string const &file, std::vector<Loss> const &losses) {
    printHeading("not kept by the forms in " + printable(file), losses.size());
    for (Loss const &loss : losses) fmt::print("  {}, {}: {}\n", loss.name, loss.form, loss.what);
}

std::string printable(std::string const &text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const isUpper = isUpperControl(text, i);
        if (isUpper) ++i;
        auto const byte = static_cast<unsigned char>(text[i]);
        bool const isControl = isUpper || byte < 0x20 || byte == 0x7f;
        result += isControl ? fmt::format("\\x{:02x}", byte) : std::string(1, text[i]);
    }
    return result;
}

std::string number(double value) { return fmt::format("{:.6g}", value + 0.0); } // no -0

std::string stockSize(Part const &part) {
    Stock const &stock = part.mesh->stock;
    double const scale = part.placement.scaling();
    return fmt::format("{} x {} x {}", number(scale * stock.length), number(scale * stock.width),
                       number(scale * stock.height));
}

Progress::Progress(std::string task, std::size_t steps)
    : task_(std::move(task)), steps_(steps), visible_(isatty(STDERR_FILENO) != 0) {}

Progress::~Progress() {
    if (!shown_.empty()) std::fputs(kEraseLine, stderr);
}

void Progress::step(std::string const &detail) {
    if (!visible_) return;
    std::string line = fmt::format("{} {} % {}", task_, done_++ * 100 / steps_, detail);
    if (line == shown_) return; // a million quick steps print a hundred lines
    fmt::print(stderr, "{}{}", kEraseLine, line);
    shown_ = std::move(line);
}

} // namespace assembly
