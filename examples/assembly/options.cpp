// SPDX-License-Identifier: MIT
// The command line.

#include "options.h"

#include <vector>

namespace example::assembly {

namespace {

ScreenPoint takePick(CommandLine &line) {
    std::string const complaint = "--pick needs two numbers from 0 to 1";
    std::vector<double> const at = line.takeNumbers(2, complaint);
    for (double const share : at) {
        if (share < 0.0 || share > 1.0) throw line.failure(complaint);
    }
    return {at[0], at[1]};
}

mgPlane_c takeSection(CommandLine &line) {
    std::string const complaint = "--section needs six numbers, a point and a normal";
    std::vector<double> const numbers = line.takeNumbers(6, complaint);
    mgUnitVector_c const normal(&numbers[3]);
    if (normal.isNull()) throw line.failure("--section: the normal has no direction");
    return {mgPoint_c(&numbers[0]), normal};
}

} // namespace

Options readOptions(CommandLine &line) {
    Options options;
    while (!line.atEnd()) {
        std::string const argument = line.take();
        if (line.isCommon(argument, options)) {
            if (options.help || options.version) return options;
        } else if (argument == "--pick") {
            options.pick = takePick(line);
        } else if (argument == "--section") {
            options.section = takeSection(line);
        } else if (argument == "--export") {
            options.exportFile = line.takeValue("--export needs a file");
        } else if (argument == "--import") {
            options.importFile = line.takeValue("--import needs a file");
        } else if (argument == "--since") {
            options.earlierDocument = line.takeValue("--since needs a document");
        } else if (argument.size() > 1 && argument[0] == '-') {
            throw line.failure("unknown option " + argument);
        } else if (options.assemblyFile.empty()) {
            options.assemblyFile = argument;
        } else {
            throw line.failure("one assembly file is enough, " + argument + " is another");
        }
    }
    if (options.assemblyFile.empty()) throw line.failure("no assembly file given");
    return options;
}

Program aboutProgram() {
    return {
        "vexmath_assembly", VEXMATH_ASSEMBLY_VERSION,
        "usage: vexmath_assembly [--out DIR] [--pick X Y]\n"
        "                        [--section PX PY PZ NX NY NZ]\n"
        "                        [--export FILE] [--import FILE] [--since DOCUMENT]\n"
        "                        ASSEMBLY.json\n"
        "\n"
        "Reads the parts of an assembly, each a mesh file (.obj, .stl, .ply) with a placement,\n"
        "and checks which of their bounding volumes clash, touch and contain each other.\n"
        "Puts the parts whose names begin with \"bolt\" in order for a drill. Prints a table and\n"
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
        "  --export FILE also write the placements and the perspective view for other programs,\n"
        "                each as a text and as an array of sixteen numbers\n"
        "  --import FILE also read such a file of this assembly back and list what each form\n"
        "                does not keep; nothing is placed by it\n"
        "  --since DOCUMENT\n"
        "                also list the parts that changed since an earlier assembly.vxa\n"
        "  --help        this text\n"
        "  --version     the program's version\n"
        "\n"
        "Exit status: 0 when the assembly was checked, with clashes or without; 2 when\n"
        "something could not be read or written, with one line on standard error.\n"};
}

} // namespace example::assembly
