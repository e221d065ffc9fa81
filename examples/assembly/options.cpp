// SPDX-License-Identifier: MIT
// The command line.

#include "options.h"

#include "failure.h"

namespace assembly {

namespace {

Failure usageFailure(std::string const &what) {
    return {"vexmath_assembly", what + " (see --help)"};
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
    return "usage: vexmath_assembly [--out DIR] ASSEMBLY.json\n"
           "\n"
           "Reads the parts of an assembly, each a mesh file (.obj, .stl, .ply) with a placement,\n"
           "and checks which of their bounding volumes clash, touch and contain each other.\n"
           "Prints a table and writes two files:\n"
           "  assembly.svg  front, top and side view, clashes marked\n"
           "  assembly.vxa  the bounds and placements, read back and compared\n"
           "\n"
           "  --out DIR     where to write them; made when missing (default: current folder)\n"
           "  --help        this text\n"
           "  --version     the program's version\n"
           "\n"
           "Exit status: 0 when the assembly was checked, with clashes or without; 2 when\n"
           "something could not be read or written, with one line on standard error.\n";
}

std::string versionText() { return "vexmath_assembly " VEXMATH_ASSEMBLY_VERSION "\n"; }

} // namespace assembly
