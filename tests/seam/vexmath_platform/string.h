// SPDX-License-Identifier: MIT
// A host's string: an instance of a template.

#pragma once

#include <cstdarg>
#include <cstddef>
#include <cwchar>
#include <vector>

namespace host {

template <class Character>
class Text {
public:
    Text() : characters_(1) {}
    Text(Character const *text) : characters_(text, text + std::wcslen(text) + 1) {}

    void Format(Character const *format, ...) {
        std::vector<Character> buffer(4096);
        std::va_list arguments;
        va_start(arguments, format);
        std::vswprintf(buffer.data(), buffer.size(), format, arguments);
        va_end(arguments);
        characters_ = buffer;
    }
    int GetLength() const { return static_cast<int>(std::wcslen(characters_.data())); }
    operator Character const *() const { return characters_.data(); }

private:
    std::vector<Character> characters_;
};

} // namespace host

typedef host::Text<wchar_t> CString;
