// SPDX-License-Identifier: MIT
// A gallery of curves turned into polylines, to choose a tolerance by.
//
// What the library does is in shapes.cpp: records of edges go in, points come out. The rest
// measures and draws.

#include "approximation.h"
#include "command_line.h"
#include "gallery.h"
#include "options.h"
#include "output.h"
#include "shapes.h"
#include "table.h"
#include "text.h"

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace example::curves {

namespace {

std::vector<GalleryRow> rowsFor(std::vector<double> const &tolerances) {
    std::vector<GalleryRow> rows;
    for (Shape const &shape : allShapes()) {
        GalleryRow row{shape, {}};
        for (double const tolerance : tolerances)
            row.cells.push_back(approximate(shape, tolerance));
        rows.push_back(row);
    }
    return rows;
}

void printRows(std::vector<double> const &tolerances, std::vector<GalleryRow> const &rows) {
    std::vector<Row> table{{"curve", "tolerance", "points", "error"}};
    for (GalleryRow const &row : rows) {
        for (std::size_t i = 0; i < tolerances.size(); ++i) {
            Approximation const &cell = row.cells[i];
            table.push_back({row.shape.name, number(tolerances[i]),
                             std::to_string(cell.points.size()), number(cell.error, 3)});
        }
    }
    printTable(std::cout, table);
}

void run(Options const &options) {
    std::vector<GalleryRow> const rows = rowsFor(options.tolerances);
    makeFolder(options.outFolder);
    OutputFiles output;
    output.stage(options.outFolder / "curves.svg", drawGallery(options.tolerances, rows));
    std::vector<std::filesystem::path> const written = output.commit();
    printRows(options.tolerances, rows);
    std::cout << "\nwritten: " << written.front().string() << '\n';
}

} // namespace

} // namespace example::curves

int main(int argc, char **argv) {
    using namespace example::curves;
    return example::runProgram(aboutProgram(), argc, argv, readOptions, run);
}
