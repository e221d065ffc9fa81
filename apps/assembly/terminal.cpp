// SPDX-License-Identifier: MIT
// What a terminal shows: names without control characters, and the progress of long work.

#include "terminal.h"

#include <cstdio>
#include <unistd.h>
#include <utility>

#include <fmt/core.h>

namespace assembly {

namespace {

char const *const kEraseLine = "\r\033[K";

/// Does a control character from U+0080 to U+009F begin here? UTF-8 writes it as two bytes.
bool isUpperControl(std::string const &text, std::size_t i) {
    if (text[i] != '\xc2' || i + 1 == text.size()) return false;
    auto const next = static_cast<unsigned char>(text[i + 1]);
    return next >= 0x80 && next < 0xa0;
}

} // namespace

std::string printable(std::string const &text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const isUpper = isUpperControl(text, i);
        if (isUpper) ++i;
        auto const byte = static_cast<unsigned char>(text[i]);
        bool const isControl = isUpper || byte < 0x20 || byte == 0x7f;
        result += isControl ? fmt::format("\\x{:02x}", byte) : std::string(1, text[i]);
    }
    return result;
}

Progress::Progress(std::string task, std::size_t steps)
    : task_(std::move(task)), steps_(steps), visible_(isatty(STDERR_FILENO) != 0) {}

Progress::~Progress() {
    if (!shown_.empty()) std::fputs(kEraseLine, stderr);
}

void Progress::step(std::string const &detail) {
    if (!visible_) return;
    std::string line = fmt::format("{} {} % {}", task_, done_++ * 100 / steps_, detail);
    if (line == shown_) return; // a million quick steps print a hundred lines
    fmt::print(stderr, "{}{}", kEraseLine, line);
    shown_ = std::move(line);
}

} // namespace assembly
