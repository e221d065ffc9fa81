// SPDX-License-Identifier: MIT
// The one way in which the program gives up: a line for the user that names the file and the place.

#ifndef ASSEMBLY_FAILURE_H
#define ASSEMBLY_FAILURE_H

#include <stdexcept>
#include <string>

namespace assembly {

/// Bad input or an output that cannot be written. what() is the line that main() prints before it
/// ends with status 2.
class Failure : public std::runtime_error {
public:
    Failure(std::string const &file, std::string const &what)
        : std::runtime_error(file + ": " + what) {}
    Failure(std::string const &file, std::string const &place, std::string const &what)
        : std::runtime_error(file + ": " + place + ": " + what) {}
};

} // namespace assembly

#endif
