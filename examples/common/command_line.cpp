// SPDX-License-Identifier: MIT
// The command line: what every program understands.

#include "command_line.h"

#include <cmath>
#include <cstdlib>
#include <utility>

namespace example {

CommandLine::CommandLine(std::string programName, int argc, char const *const *argv)
    : programName_(std::move(programName)) {
    for (int i = 1; i < argc; ++i) arguments_.emplace_back(argv[i]);
}

std::string CommandLine::takeValue(std::string const &complaint) {
    if (atEnd() || arguments_[next_].empty()) throw failure(complaint);
    return take();
}

std::vector<double> CommandLine::takeNumbers(std::size_t count, std::string const &complaint) {
    std::vector<double> numbers;
    while (numbers.size() < count) {
        std::string const text = takeValue(complaint);
        char *end = nullptr;
        numbers.push_back(std::strtod(text.c_str(), &end));
        bool const isNumber = end == text.c_str() + text.size() && std::isfinite(numbers.back());
        if (!isNumber) throw failure(std::string(complaint).append(", not ").append(text));
    }
    return numbers;
}

bool CommandLine::isCommon(std::string const &argument, CommonOptions &options) {
    if (argument == "--out") {
        options.outFolder = takeValue("--out needs a folder");
        return true;
    }
    options.help = argument == "--help";
    options.version = argument == "--version";
    if (!options.help && !options.version) return false;
    next_ = arguments_.size();
    return true;
}

Failure CommandLine::failure(std::string const &what) const {
    return {programName_, what + " (see --help)"};
}

} // namespace example
