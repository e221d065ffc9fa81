// SPDX-License-Identifier: MIT
// Progress of long work, for somebody who sits in front of it.

#include "progress.h"

#include <iostream>
#include <unistd.h>
#include <utility>

namespace example::assembly {

namespace {

char const *const kBackAndWipe = "\r\033[K"; // to the start of the line, then wipe it

} // namespace

Progress::Progress(std::string task, std::size_t steps)
    : task_(std::move(task)), steps_(steps), visible_(isatty(STDERR_FILENO) != 0) {}

Progress::~Progress() {
    if (!shown_.empty()) std::cerr << kBackAndWipe << std::flush;
}

void Progress::step(std::string const &detail) {
    if (!visible_) return;
    std::size_t const percent = done_++ * 100 / steps_;
    std::string const line = task_ + " " + std::to_string(percent) + " % " + detail;
    if (line == shown_) return; // a million quick steps print a hundred lines
    std::cerr << kBackAndWipe << line << std::flush;
    shown_ = line;
}

} // namespace example::assembly
