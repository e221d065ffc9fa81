// SPDX-License-Identifier: MIT
// What a terminal shows: names without control characters, and the progress of long work.

#ifndef ASSEMBLY_TERMINAL_H
#define ASSEMBLY_TERMINAL_H

#include <cstddef>
#include <string>

namespace assembly {

/// The text with its control characters spelled out, such as \\x1b: a name from a file cannot break
/// the line or steer the terminal.
std::string printable(std::string const &text);

/// One line on standard error, which is overwritten as the work goes on and erased at its end. It
/// is shown only when standard error is a terminal.
class Progress {
public:
    Progress(std::string task, std::size_t steps);
    ~Progress();
    Progress(Progress const &) = delete;
    Progress &operator=(Progress const &) = delete;

    /// Begins the next step; `detail` names what it works on.
    void step(std::string const &detail = {});

private:
    std::string const task_;
    std::size_t const steps_;
    bool const visible_;
    std::size_t done_ = 0;
    std::string shown_;
};

} // namespace assembly

#endif
