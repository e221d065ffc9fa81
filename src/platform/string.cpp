// SPDX-License-Identifier: MIT
// The default wide string: formatting without truncation.

#include <vexmath_platform/string.h>

#include <cstdarg>
#include <cwchar>
#include <new>
#include <utility>

void CString::Format(wchar_t const *format, ...) {
    // When the buffer is too small, vswprintf fails or, on Windows, returns the length needed. In
    // both cases double the buffer and try again. It fails in the same way for text that it cannot
    // convert, so there is a limit.
    constexpr std::size_t firstCapacity = 512;
    constexpr std::size_t maxCapacity = std::size_t{1} << 20;

    std::wstring result;
    for (std::size_t capacity = firstCapacity; capacity <= maxCapacity; capacity *= 2) {
        try {
            result.resize(capacity);
        } catch (std::bad_alloc const &) {
            break;
        }
        std::va_list arguments;
        va_start(arguments, format);
        int const length = std::vswprintf(&result[0], capacity, format, arguments);
        va_end(arguments);
        if (length >= 0 && static_cast<std::size_t>(length) < capacity) {
            result.resize(static_cast<std::size_t>(length));
            text_ = std::move(result);
            return;
        }
    }
    text_.clear();
}
