// SPDX-License-Identifier: MIT
// The default dump sink: writes text to a wide stream.

#include <vexmath_platform/dump_context.h>

#include <ostream>

CDumpContext &CDumpContext::operator<<(wchar_t const *text) {
    if (text != nullptr) stream_ << text;
    return *this;
}
