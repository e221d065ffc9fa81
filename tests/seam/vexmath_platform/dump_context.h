// SPDX-License-Identifier: MIT
// A host's dump sink: collects the text.

#pragma once

#include <string>

struct HostTrace {
    std::wstring text;
    HostTrace &operator<<(wchar_t const *piece) {
        text += piece;
        return *this;
    }
};
using CDumpContext = HostTrace;
