// SPDX-License-Identifier: MIT
// What the program prints.

#include "report.h"

#include "table.h"
#include "text.h"

#include <string>

namespace example::assembly {

namespace {

std::string cornerText(mgPoint_c const &p) {
    return "(" + number(p.x()) + ", " + number(p.y()) + ", " + number(p.z()) + ")";
}

Row rowOf(Part const &part) {
    mgBBox_c const &box = part.placed;
    return {part.name,
            std::to_string(part.mesh->vertices.size()),
            cornerText(box.low()),
            cornerText(box.high()),
            number(box.sphRadius()),
            box.isValid() ? "yes" : "no"};
}

void printPairs(std::ostream &out, std::string const &title, std::string const &verb,
                std::vector<PartPair> const &pairs, std::vector<Part> const &parts) {
    out << '\n' << title << ": " << (pairs.empty() ? "none" : std::to_string(pairs.size())) << '\n';
    for (PartPair const &pair : pairs) {
        out << "  " << parts[pair.first].name << verb << parts[pair.second].name << '\n';
    }
}

} // namespace

void printReport(std::ostream &out, std::vector<Part> const &parts, CheckResult const &result) {
    std::vector<Row> rows{{"part", "vertices", "low", "high", "sphere radius", "valid"}};
    for (Part const &part : parts) rows.push_back(rowOf(part));
    printTable(out, rows);

    printPairs(out, "clashing pairs", " - ", result.clashing, parts);
    printPairs(out, "touching pairs", " - ", result.touching, parts);
    printPairs(out, "containments", " contains ", result.containing, parts);

    out << "\ntotal bounds: " << cornerText(result.total.low()) << " to "
        << cornerText(result.total.high()) << ", sphere radius " << number(result.total.sphRadius())
        << '\n';
}

void printDrillingPath(std::ostream &out, std::vector<Part> const &parts,
                       DrillingPath const &path) {
    if (path.bolts.empty()) return;
    out << "\ndrilling path, " << number(path.length) << " long: " << path.bolts.size() << '\n';
    for (std::size_t i = 0; i < path.bolts.size(); ++i) {
        out << "  " << parts[path.bolts[i]].name << " at " << cornerText(path.centres[i]) << '\n';
    }
}

void printPick(std::ostream &out, std::vector<Part> const &parts, Pick const &pick) {
    out << "\npicked at " << number(pick.at.x) << ' ' << number(pick.at.y) << ": "
        << (pick.hits.empty() ? "none" : std::to_string(pick.hits.size())) << '\n';
    out << "  from " << cornerText(pick.sight.rootPoint()) << " along "
        << cornerText(pick.sight.direction()) << '\n';
    for (Hit const &hit : pick.hits) {
        out << "  " << parts[hit.part].name << " at " << cornerText(hit.point) << ", distance "
            << number(hit.distance) << '\n';
    }
}

void printSection(std::ostream &out, std::vector<Part> const &parts, Section const &section) {
    out << "\ncut by the section: "
        << (section.cuts.empty() ? "none" : std::to_string(section.cuts.size())) << '\n';
    for (PartCut const &cut : section.cuts) {
        out << "  " << parts[cut.part].name << ", its box in a polygon of " << cut.boxOutline.size()
            << " corners\n";
    }
}

void printLosses(std::ostream &out, std::string const &file, std::vector<Loss> const &losses) {
    out << "\nnot kept by the forms in " << printable(file) << ": "
        << (losses.empty() ? "none" : std::to_string(losses.size())) << '\n';
    for (Loss const &loss : losses) {
        out << "  " << loss.name << ", " << loss.form << ": " << loss.what << '\n';
    }
}

void printChanges(std::ostream &out, std::string const &document,
                  std::vector<std::string> const &changes) {
    out << "\nchanged since " << printable(document) << ": "
        << (changes.empty() ? "none" : std::to_string(changes.size())) << '\n';
    for (std::string const &change : changes) out << "  " << printable(change) << '\n';
}

} // namespace example::assembly
