// SPDX-License-Identifier: MIT
// The default wide string: formatting that never cuts.

#include <vexmath_platform/string.h>

#include <cstdarg>
#include <cwchar>
#include <new>
#include <utility>

void CString::Format(wchar_t const *format, ...) {
    // vswprintf tells that the buffer was too small, never by how much: try again with twice the
    // room. It fails in the same way on text it cannot convert, hence the bound.
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
        if (length >= 0) {
            result.resize(static_cast<std::size_t>(length));
            text_ = std::move(result);
            return;
        }
    }
    text_.clear();
}
