// SPDX-License-Identifier: MIT
// A view without its perspective record, which is not copied first: that would allocate.

#ifndef VEXMATH_SRC_TRANSFORM_WITHOUT_RECORD_H
#define VEXMATH_SRC_TRANSFORM_WITHOUT_RECORD_H

#include <vexmath/xform.h>

namespace vexmath::detail {

/// The other fields as they are: the copy rules do not apply.
inline mgXform_c withoutRecord(mgXform_c const &x) {
    return makeXform(x.rotation(), x.translation(), x.scaling(), x.isReflection());
}

} // namespace vexmath::detail

#endif
