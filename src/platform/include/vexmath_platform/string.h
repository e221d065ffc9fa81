// SPDX-License-Identifier: MIT
// The wide string of the text forms: the portable default of a host type.

#ifndef VEXMATH_PLATFORM_STRING_H
#define VEXMATH_PLATFORM_STRING_H

#include <string>

#include <vexmath/export.h>

/// A wide string. A value: copies are independent. When memory is exhausted, construction from text
/// and copies throw std::bad_alloc; `Format` does not.
class CString {
public:
    CString() = default;
    /// A null pointer gives the empty text.
    CString(wchar_t const *text);

    /// Replaces the text by the arguments, formatted as by wprintf. The arguments may point into
    /// this text. The result is stored whole or not at all: a format that fails, a result of
    /// 1048576 characters or more, or exhausted memory leaves the empty text.
    VEXMATH_API void Format(wchar_t const *format, ...);

    /// Number of characters, without the terminating null.
    int GetLength() const;

    /// Null terminated; valid until the text changes.
    operator wchar_t const *() const;

private:
    std::wstring text_;
};

//-------------------------------------------------------------------------------------------------

inline CString::CString(wchar_t const *text) : text_(text != nullptr ? text : L"") {}

inline int CString::GetLength() const { return static_cast<int>(text_.size()); }

inline CString::operator wchar_t const *() const { return text_.c_str(); }

#endif
