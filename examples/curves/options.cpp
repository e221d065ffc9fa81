// SPDX-License-Identifier: MIT
// The command line.

#include "options.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <sstream>

namespace example::curves {

namespace {

constexpr std::size_t kMostTolerances = 6; // as columns of a page

double toleranceIn(std::string const &text, CommandLine const &line) {
    std::istringstream stream(text);
    double value = 0.0;
    if (stream >> value && stream.eof() && std::isfinite(value) && value > 0.0) return value;
    throw line.failure(text + " is no tolerance");
}

} // namespace

Options readOptions(CommandLine &line) {
    Options options;
    while (!line.atEnd()) {
        std::string const argument = line.take();
        if (line.isCommon(argument, options)) continue;
        if (argument.rfind("--", 0) == 0) throw line.failure("unknown option " + argument);
        options.tolerances.push_back(toleranceIn(argument, line));
    }
    std::vector<double> &tolerances = options.tolerances;
    if (tolerances.empty()) tolerances = {5.0, 0.5, 0.05, 0.005};
    if (tolerances.size() > kMostTolerances) throw line.failure("more than six tolerances");
    std::sort(tolerances.begin(), tolerances.end(), std::greater<>());
    return options;
}

Program aboutProgram() {
    return {"vexmath_curves", VEXMATH_CURVES_VERSION,
            "usage: vexmath_curves [--out DIR] [TOLERANCE...]\n"
            "\n"
            "Turns curves of some centimetres into polylines, once for each tolerance in\n"
            "millimetres (up to six; default: 5 0.5 0.05 0.005). Prints how many points each has\n"
            "and how far it is off its curve, and writes one file to choose a tolerance by:\n"
            "  curves.svg   every curve at every tolerance, with what it costs and gives\n"
            "\n"
            "  --out DIR    where to write it; made when missing (default: current folder)\n"
            "  --help       this text\n"
            "  --version    the program's version\n"
            "\n"
            "Exit status: 0 when the page was written; 2 when it could not be, or on bad\n"
            "arguments, with one line on standard error.\n"};
}

} // namespace example::curves
