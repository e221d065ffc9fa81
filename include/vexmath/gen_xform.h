// SPDX-License-Identifier: MIT
// mgGenXform_c: a placement with a scale of its own for each axis of a body.

#ifndef VEXMATH_GEN_XFORM_H
#define VEXMATH_GEN_XFORM_H

#include <vexmath/detail/operand_traits.h>
#include <vexmath/xform.h>

/// A body scaled by three factors along the axes of a body frame and then placed by a transform.
///
/// The object is the placing transform; a body frame and the three factors are added. It derives
/// from `mgXform_c` instead of holding one, because every operation that takes or gives a transform
/// is meant to work on the placing part: `g *= x` places further, `g.translation()`, `g.inverse()`,
/// `g.save(ar)` and `mgXform_c x = g` read it, `g = x` replaces it and resets the rest. None of
/// those uses the factors: `p * g` only places p; **`g * p` is the whole map.**
///
/// Copies follow the copy rules of `mgXform_c` for both transforms. When memory for a record is
/// exhausted, they throw `std::bad_alloc`; an assignment may then have replaced the placing
/// transform alone. Nothing is virtual: REQUIRES that a heap object is deleted through its own
/// type, not through `mgXform_c`.
class mgGenXform_c : public mgXform_c {
public:
    mgGenXform_c() = default; ///< identities and factors 1
    /// Placed by a copy of x. The body frame is the world's, the factors are 1.
    mgGenXform_c(mgXform_c const &x) : mgXform_c(x) {}
    /// A new object with copies of the two transforms, to be freed with `delete` by the caller. A
    /// null transform means the identity. Null when scales is null, a factor is out of range (see
    /// `set`) or memory is exhausted.
    VEXMATH_API static mgGenXform_c *create(mgXform_c const *placing, mgXform_c const *body,
                                            double const *scales);

    /// Sets the body frame to a copy of *body and the factors to the three scales; a null pointer
    /// leaves its part unchanged. Returns 1, or 0 and changes nothing when a factor is not in
    /// [0.001, 1000], bounds included, or is NaN. Exhausted memory for the body's perspective
    /// record throws `std::bad_alloc` and changes nothing.
    VEXMATH_API int set(mgXform_c const *body, double const *scales);

    mgXform_c getBodyXform() const { return body_; }
    void getScale(double *out) const; ///< REQUIRES three writable doubles.
    /// 1 when |1 - factor| <= 1e-08 for each factor. The body frame is then ignored.
    VEXMATH_API int isScaleIdentity() const;

    /// The image of p: into the body frame, scaled along its axes, back, and placed. A body frame
    /// or a placing transform that `isIdentity` is skipped, together with its perspective record.
    /// Otherwise the placing transform's record divides at the end, and the body frame's divides
    /// when the point leaves the body frame, not when it enters it.
    VEXMATH_API mgPoint_c operator*(mgPoint_c const &p) const;
    // Refused: a vector would be treated as a point.
    template <class V, vexmath::detail::IfVector<V> = 0>
    mgPoint_c operator*(V const &v) const = delete;
    /// The map as sixteen numbers, laid out as by `mgXform_c::getGLData`. REQUIRES sixteen writable
    /// numbers. It differs from `g * p` in three cases:
    /// - A perspective record is ignored.
    /// - When the body frame `isIdentity` and a factor is not 1, the factors act along the world
    ///   axes, after the placing rotation, and do not scale the translation.
    /// - Otherwise the array uses the product `body * placing`. It is orthonormalised, and follows
    ///   the copy rules: a scale out of range becomes 1.
    VEXMATH_API void getGenGLData(double *gl) const;

private:
    mgXform_c body_;
    double scale_[3] = {1.0, 1.0, 1.0};
};

// -------------------------------------------------------------------------------------------------

inline void mgGenXform_c::getScale(double *out) const {
    for (int i = 0; i < 3; ++i) out[i] = scale_[i];
}

#endif
