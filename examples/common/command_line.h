// SPDX-License-Identifier: MIT
// The command line: what every program understands, and main() but for its work.

#ifndef EXAMPLE_COMMAND_LINE_H
#define EXAMPLE_COMMAND_LINE_H

#include "failure.h"

#include <cstddef>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace example {

/// What a program says about itself.
struct Program {
    std::string name;
    std::string version;
    std::string help; ///< the text of `--help`
};

/// The options of every program; it derives its own from them.
struct CommonOptions {
    std::filesystem::path outFolder = ".";
    bool help = false;
    bool version = false;
};

/// The arguments of a program, taken one after the other.
class CommandLine {
public:
    CommandLine(std::string programName, int argc, char const *const *argv);

    bool atEnd() const { return next_ == arguments_.size(); }
    /// The next argument. REQUIRES not atEnd().
    std::string take() { return arguments_[next_++]; }
    /// The next argument; throws failure(complaint) when there is none or it is empty.
    std::string takeValue(std::string const &complaint);
    /// The next arguments as finite numbers; throws failure with the complaint on anything else.
    std::vector<double> takeNumbers(std::size_t count, std::string const &complaint);
    /// Handles an argument just taken when it is one of the common options, and says so. After
    /// `--help` and `--version` nothing is left to take.
    bool isCommon(std::string const &argument, CommonOptions &options);

    Failure failure(std::string const &what) const;

private:
    std::string const programName_;
    std::vector<std::string> arguments_;
    std::size_t next_ = 0;
};

/// What main() does and returns: reads the options and does the work, or shows help or version.
template <typename Options>
int runProgram(Program const &program, int argc, char const *const *argv,
               Options (*readOptions)(CommandLine &), void (*work)(Options const &)) {
    return runProgram([&] {
        CommandLine line(program.name, argc, argv);
        Options const options = readOptions(line);
        if (options.help) {
            std::cout << program.help;
        } else if (options.version) {
            std::cout << program.name << ' ' << program.version << '\n';
        } else {
            work(options);
        }
    });
}

} // namespace example

#endif
