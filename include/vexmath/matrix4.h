// SPDX-License-Identifier: MIT
// mgMatrix4_c: a 4x4 affine matrix.

#ifndef VEXMATH_MATRIX4_H
#define VEXMATH_MATRIX4_H

#include <vexmath/matrix.h>
#include <vexmath/vector4.h>

namespace vexmath::detail {

/// For what points alone may call: what converts to a point converts to a vector too.
template <class P>
using IfPoint = std::enable_if_t<std::is_same_v<P, mgPoint_c>, int>;

} // namespace vexmath::detail

/// A 4x4 matrix of doubles, row by row, for code that works with homogeneous matrices. It
/// multiplies column vectors: m * v has the components sum over j of m(i, j) v_j, the translation
/// is column 3, and a * b means b first, then a. An affine matrix has the bottom row (0, 0, 0, 1);
/// nothing checks it. There is no identity flag and no orthonormalisation. A trivially copyable
/// value of 128 bytes.
///
/// Two conventions meet here. `mgMatrix_c` multiplies row vectors, so the matrix of the same turn
/// has its rows and columns exchanged. Conversions copy element (i, j) to element (i, j) and do not
/// transpose: what turns vectors one way here turns them the other way as an `mgMatrix_c`.
/// `mgMatrix_c::getRotationAngle` and `mgQuaternion_c` read an `mgMatrix_c` by columns, as this
/// class does, and so see the angle of a `mg_RotationMatrix` with the opposite sign.
class mgMatrix4_c {
public:
    constexpr mgMatrix4_c() = default; ///< the identity

    static mgMatrix4_c translationMatrix(mgVector_c const &t);
    /// Turns column vectors by the angle in radians about the axis, by the right-hand rule. Of an
    /// axis shorter than 0.0001 and no shorter than the (signed) angle: the identity. Of one
    /// shorter than 1e-08 and than the angle: the cosine times the identity.
    VEXMATH_API static mgMatrix4_c rotationMatrix(mgVector_c const &axis, double angle);
    /// The frame at the origin given with x along xDir and y on the side of yDir: columns 0 to 2
    /// are its right-handed orthonormal axes, column 3 the origin. Null or parallel directions (see
    /// `mgVector_c::isParallelTo`) give the translation alone.
    VEXMATH_API static mgMatrix4_c rigidTransform(mgVector_c const &origin, mgVector_c const &xDir,
                                                  mgVector_c const &yDir);
    /// The outer product of v with itself in the upper left of an identity.
    VEXMATH_API static mgMatrix4_c vvt(mgVector_c const &v);
    /// Between a (t <= 0) and b (t >= 1): translation linearly, scale geometrically, rotation about
    /// the axis of the step from a to b. REQUIRES affine matrices of rotation and positive uniform
    /// scale.
    VEXMATH_API static mgMatrix4_c interpolate(mgMatrix4_c const &a, mgMatrix4_c const &b,
                                               double t);

    void loadIdentity() { *this = mgMatrix4_c(); }

    /// Element of row i and column j. REQUIRES both in 0 to 3.
    double &operator()(int i, int j) { return m_[4 * i + j]; }
    double const &operator()(int i, int j) const { return m_[4 * i + j]; }
    /// The address of the sixteen elements, row by row.
    double *getDataPtr() { return m_; }
    double const *getDataPtr() const { return m_; }

    mgMatrix4_c &setTranslation(mgVector_c const &t);
    mgVector_c getTranslation() const { return {m_[3], m_[7], m_[11]}; }
    double getScale() const; ///< length of row 0, without the translation
    /// The translation zeroed, then all sixteen elements divided by the scale, so that the last one
    /// becomes 1 / scale. A zero scale gives infinities and NaN.
    VEXMATH_API mgMatrix4_c getRotation() const;
    double getDeterminant() const; ///< of the upper left 3x3, by cofactors along row 0
    double trace() const { return m_[0] + m_[5] + m_[10]; } ///< of the upper left 3x3

    /// 1 when all elements are equal, exactly.
    VEXMATH_API int operator==(mgMatrix4_c const &b) const;
    /// Lexicographic over the elements, row by row, exactly.
    VEXMATH_API bool operator<(mgMatrix4_c const &b) const;

    // Sum, difference and scaled matrix are affine: the bottom row is (0, 0, 0, 1) whatever the
    // operands have there. The translation takes part.
    VEXMATH_API mgMatrix4_c operator+(mgMatrix4_c const &b) const;
    /// b - this: the operands the other way round than the sign suggests.
    VEXMATH_API mgMatrix4_c operator-(mgMatrix4_c const &b) const;
    VEXMATH_API mgMatrix4_c scale(double s) const;

    VEXMATH_API mgMatrix4_c operator*(mgMatrix4_c const &b) const; ///< b first, then this
    mgMatrix4_c &operator*=(mgMatrix4_c const &b);                 ///< this * b
    VEXMATH_API mgMatrix4_c transpose() const;
    /// The inverse of an affine matrix; the bottom row is not looked at. The identity when the
    /// determinant is below 1e-13 in absolute value.
    VEXMATH_API mgMatrix4_c inverse() const;

    /// The linear part applied to a vector, w = 0. A point does not compile, since its translation
    /// would get lost: use `mult`.
    mgVector_c operator*(mgVector_c const &v) const;
    template <class P, vexmath::detail::IfPoint<P> = 0>
    mgVector_c operator*(P const &p) const = delete;
    /// The affine map of a point, w = 1; never divided by the resulting w. Of an `mgPoint_c` it is
    /// an `mgPoint_c`.
    mgVector_c mult(mgVector_c const &p) const;
    template <class P, vexmath::detail::IfPoint<P> = 0>
    mgPoint_c mult(P const &p) const;
    /// The first three rows applied to (x, y, z, w); never divided by the resulting w.
    mgVector_c mult(mgVector4_c const &q) const;
    mgVector4_c mult4(mgVector4_c const &q) const; ///< all four rows

    /// Unit axis of the rotation; the x axis when there is none to be found.
    VEXMATH_API mgVector_c getRotationAxis() const;
    /// Signed angle in radians about an axis of any length, see `mgMatrix_c::getRotationAngle`.
    VEXMATH_API double getRotationAngle(mgVector_c axis) const;
    /// 1 for a rotation with a translation: bottom row exactly (0, 0, 0, 1), and `getRotation()`
    /// times its transpose within 0.0001 (included) of the identity by `distTo`. That counts the
    /// last element too, so a scale other than 1 is not rigid.
    VEXMATH_API int isRigid() const;
    /// Root of the sum of the squared differences of all elements.
    VEXMATH_API double distTo(mgMatrix4_c const &b) const;
    /// The upper left 3x3, element by element, orthonormalised, with an honest flag.
    VEXMATH_API mgMatrix_c convertToMatrix() const;

private:
    double m_[16] = {1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, //
                     0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0};
};

// -------------------------------------------------------------------------------------------------

inline mgMatrix4_c mgMatrix4_c::translationMatrix(mgVector_c const &t) {
    return mgMatrix4_c().setTranslation(t);
}

inline mgMatrix4_c &mgMatrix4_c::setTranslation(mgVector_c const &t) {
    m_[3] = t.x();
    m_[7] = t.y();
    m_[11] = t.z();
    return *this;
}

inline double mgMatrix4_c::getScale() const { return mgVector_c(m_).len(); }

inline double mgMatrix4_c::getDeterminant() const {
    return m_[0] * (m_[5] * m_[10] - m_[9] * m_[6]) - m_[1] * (m_[4] * m_[10] - m_[8] * m_[6])
           + m_[2] * (m_[9] * m_[4] - m_[8] * m_[5]);
}

inline mgMatrix4_c &mgMatrix4_c::operator*=(mgMatrix4_c const &b) { return *this = *this * b; }

inline mgVector_c mgMatrix4_c::operator*(mgVector_c const &v) const {
    return {m_[0] * v.x() + m_[1] * v.y() + m_[2] * v.z(),
            m_[4] * v.x() + m_[5] * v.y() + m_[6] * v.z(),
            m_[8] * v.x() + m_[9] * v.y() + m_[10] * v.z()};
}

inline mgVector_c mgMatrix4_c::mult(mgVector_c const &p) const {
    return *this * p + getTranslation();
}

template <class P, vexmath::detail::IfPoint<P>>
inline mgPoint_c mgMatrix4_c::mult(P const &p) const {
    return mult(mgVector_c(p));
}

inline mgVector_c mgMatrix4_c::mult(mgVector4_c const &q) const {
    mgVector_c const xyz(q[0], q[1], q[2]);
    return *this * xyz + q[3] * getTranslation();
}

inline mgVector4_c mgMatrix4_c::mult4(mgVector4_c const &q) const {
    mgVector_c const xyz = mult(q);
    return {xyz.x(), xyz.y(), xyz.z(),
            m_[12] * q[0] + m_[13] * q[1] + m_[14] * q[2] + m_[15] * q[3]};
}

#endif
