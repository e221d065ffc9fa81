// SPDX-License-Identifier: MIT
// mgMatrix4_c: a 4x4 affine matrix.

#ifndef VEXMATH_MATRIX4_H
#define VEXMATH_MATRIX4_H

#include <vexmath/detail/operand_traits.h>
#include <vexmath/matrix.h>
#include <vexmath/vector4.h>

/// A 4x4 matrix of doubles, row by row, for code that works with homogeneous matrices. It
/// multiplies column vectors: component i of m * v is the sum over j of m(i, j) v_j. The
/// translation is column 3, and a * b applies b first, then a. An affine matrix has the bottom row
/// (0, 0, 0, 1); nothing checks it. There is no identity flag and no orthonormalisation. A
/// trivially copyable value of 128 bytes.
///
/// `mgMatrix_c` has the other convention: it multiplies row vectors, so the matrix of the same
/// rotation has its rows and columns exchanged. Conversions copy element (i, j) to element (i, j)
/// and do not transpose: a matrix that rotates vectors one way here rotates them the other way as
/// an `mgMatrix_c`. `mgMatrix_c::getRotationAngle` and `mgQuaternion_c` read an `mgMatrix_c` by
/// columns, as this class does. So they see the angle of a `mg_RotationMatrix` with the opposite
/// sign.
class mgMatrix4_c {
public:
    constexpr mgMatrix4_c() = default; ///< the identity

    static mgMatrix4_c translationMatrix(mgVector_c const &t);
    /// Rotates column vectors by the angle in radians about the axis, by the right-hand rule.
    ///
    /// For an axis shorter than 0.0001 the signed angle is compared with the length of the axis:
    /// only a strictly larger angle rotates; any other one, such as every negative angle, gives the
    /// identity. Even then an axis shorter than 1e-08 has no direction left, and the upper left
    /// becomes the cosine times the identity; an axis longer than 1e154 gives the same. A NaN axis
    /// gives the identity. An infinite axis gives NaN elements, and so does a NaN or infinite
    /// angle; about a short axis NaN and -infinity give the identity.
    VEXMATH_API static mgMatrix4_c rotationMatrix(mgVector_c const &axis, double angle);
    /// The frame at the origin given with x along xDir and y on the side of yDir: columns 0 to 2
    /// are its right-handed orthonormal axes, column 3 the origin.
    ///
    /// Gives the translation alone when xDir or yDir is null, or when they are parallel or opposite
    /// (||cosine| - 1| < 1e-08). Null means a squared length strictly below 1e-17 (a length of
    /// about 3.2e-09), a length above 1e154, or a NaN component. An infinite component of a
    /// direction makes columns null or NaN.
    VEXMATH_API static mgMatrix4_c rigidTransform(mgVector_c const &origin, mgVector_c const &xDir,
                                                  mgVector_c const &yDir);
    /// The outer product of v with itself in the upper left of an identity.
    VEXMATH_API static mgMatrix4_c vvt(mgVector_c const &v);
    /// Between a and b: translation linearly, scale geometrically, rotation by the part t of the
    /// angle from a to b. Exactly a for t <= 0 and exactly b for t >= 1; NaN for a NaN t. REQUIRES
    /// affine matrices of rotation and uniform scale, with the scale above 4.7e-05 (see `inverse`).
    ///
    /// Axis and angle are those that `getRotationAxis` and `getRotationAngle` find for the step
    /// `a.inverse() * b`. Where they are wrong, the rotation does not lead to b, and the result
    /// jumps to b at t = 1:
    /// - A step of less than about 1e-4 radians rotates about x alone, by the x component of its
    ///   rotation vector. A step about y or z does not rotate.
    /// - When the axis found is close to -x or -y, the angle is inexact: off by about 1e-7 radians
    ///   when the axis is 0.01 radians away, 2e-4 at 1e-4 and 0.05 at 1e-6. Closer than 1e-7 it
    ///   means nothing.
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
    double getScale() const; ///< length of row 0 without the translation
    /// A copy with a zero translation and then all sixteen elements divided by `getScale()`, so
    /// that the last one becomes 1 / scale. A zero scale gives infinities and NaN.
    VEXMATH_API mgMatrix4_c getRotation() const;
    double getDeterminant() const; ///< of the upper left 3x3, by cofactors along row 0
    double trace() const { return m_[0] + m_[5] + m_[10]; } ///< of the upper left 3x3

    /// 1 when all elements are exactly equal; 0 for NaN.
    VEXMATH_API int operator==(mgMatrix4_c const &b) const;
    /// Lexicographic over the elements, row by row, by exact comparisons. NaN counts as equal to
    /// everything.
    VEXMATH_API bool operator<(mgMatrix4_c const &b) const;

    // Sum, difference and scaled matrix are affine: the bottom row is (0, 0, 0, 1) whatever the
    // operands have there. The translation is added, subtracted and scaled too.
    VEXMATH_API mgMatrix4_c operator+(mgMatrix4_c const &b) const;
    /// b - this: the operands are reversed.
    VEXMATH_API mgMatrix4_c operator-(mgMatrix4_c const &b) const;
    VEXMATH_API mgMatrix4_c scale(double s) const;

    VEXMATH_API mgMatrix4_c operator*(mgMatrix4_c const &b) const; ///< b first, then this
    mgMatrix4_c &operator*=(mgMatrix4_c const &b);                 ///< this * b
    VEXMATH_API mgMatrix4_c transpose() const;
    /// The inverse of an affine matrix; the bottom row is ignored. The identity when
    /// |determinant| is strictly below 1e-13, which a uniform scale below 4.6e-05 has. NaN spreads.
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

    /// Unit axis of the rotation, right within 1e-07 radians; a uniform scale from 2e-08 to 1e154
    /// does not matter. Its z component is positive; when z is too small to tell, its x component
    /// is, and then y. So the angle about it may be negative. A rotation by less than about 1e-4
    /// radians (1.0e-4 to 1.8e-4, depending on the axis) does not tell its axis: the result is the
    /// x axis. It also is when two columns are null. For NaN elements the axis means nothing.
    VEXMATH_API mgVector_c getRotationAxis() const;
    /// Signed angle in radians, by the right-hand rule, about an axis of any length; see
    /// `mgMatrix_c::getRotationAngle`. A uniform scale does not matter. 0 about an axis shorter
    /// than 3.2e-09, and about -x, -y and -z exactly, however far the matrix rotates.
    VEXMATH_API double getRotationAngle(mgVector_c axis) const;
    /// 1 for a rotation or mirror with a translation: the bottom row is exactly (0, 0, 0, 1), and
    /// `getRotation()` times its transpose is at most 0.0001 from the identity by `distTo`. That
    /// counts the last element too, so a scale that differs from 1 by more than about 5e-05 is not
    /// rigid. 0 for NaN.
    VEXMATH_API int isRigid() const;
    /// Root of the sum of the squared differences of all elements.
    VEXMATH_API double distTo(mgMatrix4_c const &b) const;
    /// The upper left 3x3, element by element, orthonormalised by the one pass of
    /// `mgMatrix_c::normalize`; the flag is computed. REQUIRES no scale, which that pass does not
    /// remove (a scale of 2 negates rows 0 and 1): call `getRotation()` first.
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
