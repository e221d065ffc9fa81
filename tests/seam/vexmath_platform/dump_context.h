// SPDX-License-Identifier: MIT
// A host's dump sink: collects the text.

#ifndef SEAM_PLATFORM_DUMP_CONTEXT_H
#define SEAM_PLATFORM_DUMP_CONTEXT_H

#include <string>

struct HostTrace {
    std::wstring text;
    HostTrace &operator<<(wchar_t const *piece) {
        text += piece;
        return *this;
    }
};
using CDumpContext = HostTrace;

#endif
