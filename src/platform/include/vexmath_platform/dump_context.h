// SPDX-License-Identifier: MIT
// The sink of debug dumps: the portable default of a host type.

#ifndef VEXMATH_PLATFORM_DUMP_CONTEXT_H
#define VEXMATH_PLATFORM_DUMP_CONTEXT_H

#include <iosfwd>

#include <vexmath/export.h>

/// Writes debug text to a caller's stream. The stream must outlive it.
class CDumpContext {
public:
    explicit CDumpContext(std::wostream &stream) : stream_(stream) {}

    /// A null pointer writes nothing.
    VEXMATH_API CDumpContext &operator<<(wchar_t const *text);

private:
    std::wostream &stream_;
};

#endif
