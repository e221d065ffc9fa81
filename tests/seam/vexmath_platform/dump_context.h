// SPDX-License-Identifier: MIT
// A host's dump sink: collects the text.

#ifndef SEAM_PLATFORM_DUMP_CONTEXT_H
#define SEAM_PLATFORM_DUMP_CONTEXT_H

#include <string>

namespace host {

struct Trace {
    std::wstring text;
    Trace &operator<<(wchar_t const *piece) {
        text += piece;
        return *this;
    }
};

} // namespace host

using CDumpContext = host::Trace;

#endif
