// SPDX-License-Identifier: MIT
// The fields of a transform, which the library reads and writes without the copy rules.

#ifndef VEXMATH_SRC_TRANSFORM_XFORM_PARTS_H
#define VEXMATH_SRC_TRANSFORM_XFORM_PARTS_H

#include <vexmath/xform.h>

#include <cstddef>
#include <utility>

namespace vexmath::detail {

/// Friend of the transform.
struct XformParts {
    /// Do the fields lie in memory as sixteen numbers: nine elements and the flag, three of the
    /// translation, scale, reflection flag and record?
    static constexpr bool kAreSixteenNumbers =
        sizeof(mgXform_c) == 16 * sizeof(double) && offsetof(mgXform_c, translation_) == 80
        && offsetof(mgXform_c, scale_) == 104 && offsetof(mgXform_c, reflection_) == 112
        && offsetof(mgXform_c, perspective_) == 120;

    static mgMatrix_c &rotation(mgXform_c &x) { return x.rotation_; }
    static mgVector_c &translation(mgXform_c &x) { return x.translation_; }
    static double &scale(mgXform_c &x) { return x.scale_; }
    static int &reflection(mgXform_c &x) { return x.reflection_; }

    /// Gives x the value that its copy would have.
    static void followCopyRules(mgXform_c &x) { x.followCopyRules(); }

    /// A transform of exactly these fields; it owns the record.
    static mgXform_c build(mgMatrix_c const &rotation, mgVector_c const &translation, double scale,
                           int reflection, mgPerspInfo_c *record) {
        return mgXform_c(rotation, translation, scale, reflection, record);
    }
    /// A transform of exactly the fields of x. It takes over the record.
    static mgXform_c take(mgXform_c &x) {
        return build(x.rotation_, x.translation_, x.scale_, x.reflection_,
                     std::exchange(x.perspective_, nullptr));
    }
};

/// A transform of exactly these fields, without a perspective record.
inline mgXform_c makeXform(mgMatrix_c const &rotation, mgVector_c const &translation,
                           double scale = 1.0, int reflection = 0) {
    return XformParts::build(rotation, translation, scale, reflection, nullptr);
}

/// The fields of x without its record, which is not copied first: that would allocate.
inline mgXform_c withoutRecord(mgXform_c const &x) {
    return makeXform(x.rotation(), x.translation(), x.scaling(), x.isReflection());
}

} // namespace vexmath::detail

#endif
