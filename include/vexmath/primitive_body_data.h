// SPDX-License-Identifier: MIT
// mgPrimitiveBodyData_c: the stored data of a primitive body.

#ifndef VEXMATH_PRIMITIVE_BODY_DATA_H
#define VEXMATH_PRIMITIVE_BODY_DATA_H

#include <vexmath/point.h>

#include <vexmath_platform/archive.h>

/// A primitive body's kind, anchor point and three dimensions, and one more number: a plain,
/// trivially copyable value. The library stores them and never interprets or checks them; their
/// meaning is the caller's.
class mgPrimitiveBodyData_c {
public:
    mgPrimitiveBodyData_c() = default; ///< all zero
    mgPrimitiveBodyData_c(int kindCode, mgPoint_c const &at, double d1, double d2, double d3,
                          int extraCode);

    /// Archive record: kind, anchor, the three dimensions, extra: an INT, six doubles, an INT. A
    /// failing read leaves the object as it was.
    VEXMATH_API void save(su_CArchive &ar) const;
    VEXMATH_API void restore(su_CArchive &ar);
    // The same for callers that hold a CArchive. REQUIRES that ar is a su_CArchive.
    VEXMATH_API void save(CArchive &ar) const;
    VEXMATH_API void restore(CArchive &ar);

    int kind = 0;
    mgPoint_c anchor;
    double first = 0.0;
    double second = 0.0;
    double third = 0.0;
    int extra = 0;
};

// -------------------------------------------------------------------------------------------------

inline mgPrimitiveBodyData_c::mgPrimitiveBodyData_c(int kindCode, mgPoint_c const &at, double d1,
                                                    double d2, double d3, int extraCode)
    : kind(kindCode), anchor(at), first(d1), second(d2), third(d3), extra(extraCode) {}

#endif
