// SPDX-License-Identifier: MIT
// The one way in which a program gives up: a line for the user that names the file and the place.

#include "failure.h"

#include "text.h"

#include <exception>
#include <iostream>

namespace example {

int runProgram(std::function<void()> const &work) {
    try {
        work();
        if (!std::cout.flush()) throw Failure("standard output", "cannot be written");
        return 0;
    } catch (std::exception const &error) {
        std::cerr << printable(error.what()) << '\n';
        return 2;
    }
}

} // namespace example
