// SPDX-License-Identifier: MIT
// Progress of long work, for somebody who sits in front of it.

#ifndef ASSEMBLY_PROGRESS_H
#define ASSEMBLY_PROGRESS_H

#include <cstddef>
#include <string>

namespace example::assembly {

/// One line on standard error that is written over as the work goes on and wiped when it is done.
/// Silent when standard error is not a terminal.
class Progress {
public:
    Progress(std::string task, std::size_t steps);
    ~Progress();
    Progress(Progress const &) = delete;
    Progress &operator=(Progress const &) = delete;

    /// Begins the next step; `detail` says what it works on.
    void step(std::string const &detail = {});

private:
    std::string const task_;
    std::size_t const steps_;
    bool const visible_;
    std::size_t done_ = 0;
    std::string shown_;
};

} // namespace example::assembly

#endif
