// SPDX-License-Identifier: MIT
// The storage that lines and planes share.

#ifndef VEXMATH_DETAIL_ROOTED_DIRECTION_H
#define VEXMATH_DETAIL_ROOTED_DIRECTION_H

#include <vexmath/xform.h>

#include <vexmath_platform/archive.h>

namespace vexmath::detail {

/// A root point and a unit vector, in this order: what lines and planes have in common. Nothing
/// checks that the unit vector has unit length.
class RootedDirection {
public:
    /// Archive record: root point, then unit vector: six doubles. Reading does not normalise the
    /// unit vector. A failing read leaves the object as it was.
    VEXMATH_API void save(su_CArchive &ar) const;
    VEXMATH_API void restore(su_CArchive &ar);

protected:
    RootedDirection() = default;
    RootedDirection(mgPoint_c const &root, mgUnitVector_c const &unit) : root_(root), unit_(unit) {}

    void move(mgXform_c const &x) {
        root_ *= x;
        unit_ *= x;
    }

    mgPoint_c root_;
    mgUnitVector_c unit_;
};

} // namespace vexmath::detail

#endif
