// SPDX-License-Identifier: MIT
// What the user reads: the report, its names and numbers, and the progress of long work.

#include "report.h"

#include "checks.h"
#include "exchange.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include <fmt/core.h>

#ifdef _WIN32
#define NOMINMAX 1
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace assembly {

namespace {

char const *const kEraseLine = "\r\033[K";

/// Whether standard error is a terminal that obeys kEraseLine, which a console of Windows must be
/// told to do.
bool showsProgress() {
#ifdef _WIN32
    HANDLE const console = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) != 0
           && SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

using Row = std::vector<std::string>;

/// How many characters a text of UTF-8 shows: each has one byte that continues no other.
std::size_t width(std::string const &text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) >> 6U) != 2;
    }));
}

/// Prints rows of one length in columns: the first to the left, the others to the right. `rowAt`
/// makes row i; row 0 is the headings. It is called twice for each row, so that no table of many
/// parts is kept.
template <class RowAt>
void printTable(std::size_t count, RowAt rowAt) {
    std::vector<std::size_t> widths(rowAt(0).size(), 0);
    for (std::size_t i = 0; i < count; ++i) {
        Row const row = rowAt(i);
        for (std::size_t k = 0; k < row.size(); ++k) widths[k] = std::max(widths[k], width(row[k]));
    }
    for (std::size_t i = 0; i < count; ++i) {
        Row const row = rowAt(i);
        std::string line = row[0] + std::string(widths[0] - width(row[0]), ' ');
        for (std::size_t k = 1; k < row.size(); ++k) {
            line += "  " + std::string(widths[k] - width(row[k]), ' ') + row[k];
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

void printParts(std::vector<Part> const &parts) {
    Row const headings = {"part",          "vertices", "low",        "high",
                          "sphere radius", "valid",    "stock size", "angle"};
    printTable(parts.size() + 1,
               [&](std::size_t i) { return i == 0 ? headings : rowOf(parts[i - 1]); });
}

/// A heading with the number of entries.
void printHeading(std::string const &title, std::size_t count) {
    fmt::print("\n{}: {}\n", title, count == 0 ? "none" : std::to_string(count));
}

std::string const &nameOf(Part const &part) { return part.name; }
std::string const &nameOf(std::string const &name) { return name; }

/// Of parts, or of their names.
template <class Named>
void printPairs(std::string const &title, std::string const &between,
                std::vector<PartPair> const &pairs, std::vector<Named> const &parts) {
    printHeading(title, pairs.size());
    for (auto const &[first, second] : pairs) {
        fmt::print("  {} {} {}\n", printable(nameOf(parts[first])), between,
                   printable(nameOf(parts[second])));
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
    printParts(parts);
    printPairs("clashing pairs", "-", result.contacts.clashing, parts);
    printPairs("touching pairs", "-", result.contacts.touching, parts);
    printPairs("containments", "contains", result.contacts.containing, parts);
    mgBBox_c const &bounds = assembly.bounds;
    fmt::print("\ntotal bounds: {} to {}, sphere radius {}\n", corner(bounds.low()),
               corner(bounds.high()), number(bounds.sphRadius()));
    Drilling const &drilling = result.drilling;
    printDrilling("drilling path", drilling.path, parts);
    printDrilling("drilling tour, back to the first bolt", drilling.tour, parts);
    if (drilling.bolts > Drilling::kMostBolts) {
        fmt::print("\ndrilling: left out, {} bolts are more than {}\n", drilling.bolts,
                   Drilling::kMostBolts);
    }
}

void printChanges(std::string const &document, std::vector<std::string> const &changes,
                  ContactUpdate const &update) {
    printHeading("changed since " + printable(document), changes.size());
    for (std::string const &change : changes) fmt::print("  {}\n", printable(change));
    printPairs("new clashing pairs", "-", update.added.clashing, update.names);
    printPairs("gone clashing pairs", "-", update.gone.clashing, update.names);
    printPairs("new touching pairs", "-", update.added.touching, update.names);
    printPairs("gone touching pairs", "-", update.gone.touching, update.names);
    printPairs("new containments", "contains", update.added.containing, update.names);
    printPairs("gone containments", "contained", update.gone.containing, update.names);
}

void printViews(Assembly const &assembly, CheckResult const &result) {
    if (result.pick) printPick(*result.pick, assembly.parts);
    if (result.section) printSection(*result.section, assembly.parts);
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
    : task_(std::move(task)), steps_(steps), visible_(showsProgress()) {}

Progress::~Progress() {
    if (isShown_) std::fputs(kEraseLine, stderr);
}

void Progress::step(std::string const &detail) {
    if (!visible_) return;
    std::size_t const percent = done_++ * 100 / steps_;
    if (isShown_ && percent == percent_) return; // a million steps print a hundred lines
    fmt::print(stderr, "{}{} {} % {}", kEraseLine, task_, percent, detail);
    percent_ = percent;
    isShown_ = true;
}

} // namespace assembly
