// SPDX-License-Identifier: MIT
// mgGenXform_c: a placement with a scale of its own for each axis of a body.

#ifndef VEXMATH_GEN_XFORM_H
#define VEXMATH_GEN_XFORM_H

#include <vexmath/xform.h>

#include <type_traits>

/// A body scaled by three factors along the axes of a body frame and then placed by a transform.
///
/// The object is its placing transform, with a body frame and three factors besides. It derives
/// from `mgXform_c` rather than holding one, because every operation that takes or gives a
/// transform is meant to work on the placing part: `g *= x` places further, `g.translation()`,
/// `g.inverse()`, `g.save(ar)` and `mgXform_c x = g` read it, `g = x` fills it and resets the rest.
/// None of those sees the factors: `p * g` places p and no more; **`g * p` is the whole map.**
///
/// Copies follow the rules of `mgXform_c` for both transforms. Nothing is virtual: REQUIRES that a
/// heap object is deleted as what it is, not as a `mgXform_c`.
class mgGenXform_c : public mgXform_c {
public:
    mgGenXform_c() = default; ///< identities and factors 1
    /// Placed by x; the body frame is the world's, the factors are 1.
    mgGenXform_c(mgXform_c const &x) : mgXform_c(x) {}
    /// A new object, to be freed with `delete` by the caller; null when scales is null, a factor is
    /// out of range (see `set`) or memory is exhausted. A null transform means the identity.
    VEXMATH_API static mgGenXform_c *create(mgXform_c const *placing, mgXform_c const *body,
                                            double const *scales);

    /// Three factors and the body frame; a null leaves what it stands for as it is. Returns 1, or 0
    /// and changes nothing when a factor is not in [0.001, 1000], bounds included, or NaN.
    VEXMATH_API int set(mgXform_c const *body, double const *scales);

    mgXform_c getBodyXform() const { return body_; }
    void getScale(double *out) const; ///< REQUIRES three writable doubles.
    /// 1 when each factor is 1 within 1e-08, bound included. The body frame plays no part then.
    VEXMATH_API int isScaleIdentity() const;

    /// The image of p: into the body frame, scaled along its axes, back, and placed. A perspective
    /// is applied with a placing transform that does something else too.
    VEXMATH_API mgPoint_c operator*(mgPoint_c const &p) const;
    // Refused: a vector would be treated as a point.
    template <class V, std::enable_if_t<std::is_base_of_v<mgVector_c, V>, int> = 0>
    mgPoint_c operator*(V const &v) const = delete;
    /// The map as sixteen numbers, laid out as by `mgXform_c::getGLData`. Agrees with `g * p` but
    /// for one case: a body frame that is the identity. The factors then act along the world axes,
    /// after the placing rotation, and leave the translation alone. REQUIRES sixteen writable
    /// numbers.
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
