// SPDX-License-Identifier: MIT
// The one way in which a program gives up: a line for the user that names the file and the place.

#ifndef EXAMPLE_FAILURE_H
#define EXAMPLE_FAILURE_H

#include <functional>
#include <stdexcept>
#include <string>

namespace example {

/// Bad input or an output that cannot be written. what() is the line that `runProgram` prints, with
/// control characters from names and arguments spelled out.
class Failure : public std::runtime_error {
public:
    Failure(std::string const &file, std::string const &what)
        : std::runtime_error(file + ": " + what) {}
    Failure(std::string const &file, std::string const &place, std::string const &what)
        : std::runtime_error(file + ": " + place + ": " + what) {}
};

/// The status with which main() ends: 0 when the work is done and its output is out, 2 when it
/// failed, after one line on standard error.
int runProgram(std::function<void()> const &work);

} // namespace example

#endif
