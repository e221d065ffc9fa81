// SPDX-License-Identifier: MIT
// Numbers and names as text, for the table and the picture.

#include "text.h"

#include <algorithm>
#include <sstream>

namespace example {

namespace {

/// Every character of UTF-8 has exactly one byte that is not a continuation of the one before.
bool beginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }

} // namespace

std::string number(double value, int digits) {
    std::ostringstream text;
    text.precision(digits);
    text << value + 0.0; // -0 reads as 0
    return text.str();
}

std::string printable(std::string const &text) {
    constexpr char kHex[] = "0123456789abcdef";
    std::string result;
    unsigned char before = 0;
    for (char const c : text) {
        auto const byte = static_cast<unsigned char>(c);
        bool const isControl = byte < 0x20 || byte == 0x7f;
        bool const isUpper =
            before == 0xc2 && byte >= 0x80 && byte < 0xa0; // the second of two bytes
        before = byte;
        if (!isControl && !isUpper) {
            result += c;
            continue;
        }
        if (isUpper) result.pop_back();
        result += "\\x";
        result += kHex[byte >> 4U];
        result += kHex[byte & 0xfU];
    }
    return result;
}

std::size_t width(std::string const &text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

std::string shortened(std::string const &text, std::size_t most) {
    if (width(text) <= most) return text;
    std::string kept;
    for (char const c : text) {
        if (beginsCharacter(c) && width(kept) == most - 1) break;
        kept += c;
    }
    return kept + "\xE2\x80\xA6"; // an ellipsis
}

} // namespace example
