// SPDX-License-Identifier: MIT
// The command line.

#ifndef CURVES_OPTIONS_H
#define CURVES_OPTIONS_H

#include "command_line.h"

#include <vector>

namespace example::curves {

struct Options : CommonOptions {
    std::vector<double> tolerances; ///< coarse to fine
};

/// Throws Failure on an unknown option, a missing value, or a tolerance that is not a number
/// greater than 0. After `--help` or `--version` nothing else is asked for.
Options readOptions(CommandLine &line);

Program aboutProgram();

} // namespace example::curves

#endif
