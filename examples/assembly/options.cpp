// SPDX-License-Identifier: MIT
// The command line.

#include "options.h"

#include "failure.h"

#include <cmath>
#include <cstdlib>
#include <vector>

#include <vexmath/mg_vector.h>

namespace example::assembly {

namespace {

Failure usageFailure(std::string const &what) {
    return {"vexmath_assembly", what + " (see --help)"};
}

/// The next arguments as finite numbers; i becomes the last of them.
std::vector<double> readNumbers(int argc, char const *const *argv, int &i, std::size_t count,
                                std::string const &complaint) {
    std::vector<double> numbers;
    while (numbers.size() < count) {
        if (++i == argc) throw usageFailure(complaint);
        char *end = nullptr;
        numbers.push_back(std::strtod(argv[i], &end));
        bool const isNumber = end != argv[i] && *end == '\0' && std::isfinite(numbers.back());
        if (!isNumber) throw usageFailure(complaint + ", not " + argv[i]);
    }
    return numbers;
}

ScreenPoint readPick(int argc, char const *const *argv, int &i) {
    std::string const complaint = "--pick needs two numbers from 0 to 1";
    std::vector<double> const at = readNumbers(argc, argv, i, 2, complaint);
    for (double const share : at) {
        if (share < 0.0 || share > 1.0) throw usageFailure(complaint);
    }
    return {at[0], at[1]};
}

mgPlane_c readSection(int argc, char const *const *argv, int &i) {
    std::string const complaint = "--section needs six numbers, a point and a normal";
    std::vector<double> const numbers = readNumbers(argc, argv, i, 6, complaint);
    mgUnitVector_c const normal(&numbers[3]);
    if (normal.isNull()) throw usageFailure("--section: the normal has no direction");
    return {mgPoint_c(&numbers[0]), normal};
}

} // namespace

Options readOptions(int argc, char const *const *argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        std::string const argument = argv[i];
        if (argument == "--help") {
            options.help = true;
            return options;
        }
        if (argument == "--version") {
            options.version = true;
            return options;
        }
        if (argument == "--out") {
            if (++i == argc) throw usageFailure("--out needs a folder");
            options.outFolder = argv[i];
        } else if (argument == "--pick") {
            options.pick = readPick(argc, argv, i);
        } else if (argument == "--section") {
            options.section = readSection(argc, argv, i);
        } else if (argument.size() > 1 && argument[0] == '-') {
            throw usageFailure("unknown option " + argument);
        } else if (options.assemblyFile.empty()) {
            options.assemblyFile = argument;
        } else {
            throw usageFailure("one assembly file is enough, " + argument + " is another");
        }
    }
    if (options.assemblyFile.empty()) throw usageFailure("no assembly file given");
    return options;
}

std::string helpText() {
    return "usage: vexmath_assembly [--out DIR] [--pick X Y]\n"
           "                        [--section PX PY PZ NX NY NZ] ASSEMBLY.json\n"
           "\n"
           "Reads the parts of an assembly, each a mesh file (.obj, .stl, .ply) with a placement,\n"
           "and checks which of their bounding volumes clash, touch and contain each other.\n"
           "Puts the parts whose names begin with \"bolt\" in order for a drill. Prints a table "
           "and\n"
           "writes two files:\n"
           "  assembly.svg  front, top and side view, clashes marked\n"
           "  assembly.vxa  the bounds and placements, read back and compared\n"
           "\n"
           "  --out DIR     where to write them; made when missing (default: current folder)\n"
           "  --pick X Y    also draw a perspective view and list the parts whose boxes lie under\n"
           "                one of its points, nearest first; X runs from 0 at its left edge to 1\n"
           "                at its right, Y from 0 at the bottom to 1 at the top\n"
           "  --section PX PY PZ NX NY NZ\n"
           "                also cut the boxes and the parts with the plane through the point P,\n"
           "                seen against its normal N\n"
           "  --help        this text\n"
           "  --version     the program's version\n"
           "\n"
           "Exit status: 0 when the assembly was checked, with clashes or without; 2 when\n"
           "something could not be read or written, with one line on standard error.\n";
}

std::string versionText() { return "vexmath_assembly " VEXMATH_ASSEMBLY_VERSION "\n"; }

} // namespace example::assembly
