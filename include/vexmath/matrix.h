// SPDX-License-Identifier: MIT
// mgMatrix_c: the 3x3 rotation-style matrix.

#ifndef VEXMATH_MATRIX_H
#define VEXMATH_MATRIX_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

#include <vexmath_platform/archive.h>

namespace vexmath::detail {
struct Rows;
}

/// A 3x3 matrix of doubles, nearly always a rotation, with a cached identity flag.
///
/// Points and vectors multiply from the left as row vectors: component j of v * M is the sum over i
/// of v_i M(i, j), so row i is the image of coordinate axis i and A * B means A first, then B.
/// Products and inverses are orthonormalised once; the inverse is the transpose.
///
/// The flag is a cache with rules of its own, not a test of the elements. Constructors from nine
/// doubles or three rows compute it (each row equal to its axis within 1e-12, strictly); copies
/// carry it along; `transpose`, `operator+` and `operator-` set it whatever the elements; writing
/// elements, `+=`, `zero`, `tensor`, `normalize` and the repair leave it as it was. What trusts the
/// flag: products of two matrices, ==, the repair, and of transforms composition, copies, inverse,
/// saving and the rotation of directions; points and vectors go by the elements. An honest flag
/// comes from building the matrix anew from its elements.
class mgMatrix_c {
public:
    constexpr mgMatrix_c() = default; ///< the identity, flag set
    /// Nine elements, row by row; orthonormalised when the second argument is not 0.
    VEXMATH_API mgMatrix_c(double const (&elements)[9], int orthonormalise);
    /// Rows, always orthonormalised.
    VEXMATH_API mgMatrix_c(mgUnitVector_c const &r0, mgUnitVector_c const &r1,
                           mgUnitVector_c const &r2);
    /// Rows, always orthonormalised; order selects the order in which the error measure is summed,
    /// which only rounding can tell apart.
    VEXMATH_API mgMatrix_c(int order, mgUnitVector_c const &r0, mgUnitVector_c const &r1,
                           mgUnitVector_c const &r2);

    /// Element of row i and column j. REQUIRES both in 0 to 2. Writing leaves the flag as it is.
    double &operator()(int i, int j) { return m_[3 * i + j]; }
    double const &operator()(int i, int j) const { return m_[3 * i + j]; }
    double element(int i, int j) const { return m_[3 * i + j]; }
    /// Element k of the nine, row by row; any other k, negative ones too, means element 0.
    double &operator[](int k) { return m_[inRange(k)]; }
    double const &operator[](int k) const { return m_[inRange(k)]; }

    int isIdentity() const { return identity_; } ///< the flag

    // Columns, the axes as the inverse rotation moves them, and rows, the axes as this one does.
    // The numbers are copied and not normalised.
    void getXAxis(mgUnitVector_c *axis) const { copyColumn(0, axis); }
    void getYAxis(mgUnitVector_c *axis) const { copyColumn(1, axis); }
    void getZAxis(mgUnitVector_c *axis) const { copyColumn(2, axis); }
    void getIXAxis(mgUnitVector_c *axis) const { axis->set(m_); }
    void getIYAxis(mgUnitVector_c *axis) const { axis->set(m_ + 3); }
    void getIZAxis(mgUnitVector_c *axis) const { axis->set(m_ + 6); }

    VEXMATH_API mgMatrix_c operator+(mgMatrix_c const &b) const; ///< flag set
    /// b - this: the operands the other way round than the sign suggests. Flag set.
    VEXMATH_API mgMatrix_c operator-(mgMatrix_c const &b) const;
    VEXMATH_API mgMatrix_c &operator+=(mgMatrix_c const &b);
    /// 0 when the flags differ, 1 when both are set, whatever the elements; otherwise 1 when every
    /// element differs by strictly less than 1e-12.
    VEXMATH_API int operator==(mgMatrix_c const &b) const;

    VEXMATH_API void zero();
    /// The outer product: element (i, j) becomes a_i b_j.
    VEXMATH_API void tensor(mgVector_c const &a, mgVector_c const &b);
    VEXMATH_API double getDeterminant() const; ///< by cofactors along row 0
    VEXMATH_API mgMatrix_c transpose() const;  ///< flag set, whatever the elements
    /// The transpose, orthonormalised, with an honest flag: the inverse of a rotation only.
    VEXMATH_API mgMatrix_c inverse() const;

    VEXMATH_API int isNearZero() const; ///< every element strictly below 1e-08; not for NaN
    /// A rotation of less than about 0.03 degrees: diagonal in [0.999999863, 1.000000137], the rest
    /// in [-0.000523599, 0.000523599], bounds included.
    VEXMATH_API int isNearIdentity() const;

    /// One orthonormalisation pass; the flag is not computed again. The first argument plays no
    /// part, the second selects the order in which the error measure is summed.
    ///
    /// The pass keeps the direction of row 0, turns row 1 perpendicular to it and rebuilds row 2
    /// with the handedness that it had. Lengths are corrected to first order only, r to
    /// r (3 - r^2) / 2: a row longer than the root of 3 is turned round.
    VEXMATH_API void normalize(int unused, int order);
    /// Snaps the rows that lie along an axis within 1e-08 to exact ones. 1 when something changed;
    /// a row that is along an axis but not clean elsewhere refuses the repair as a whole. Trusts
    /// the identity flag: 0 at once when it is set.
    VEXMATH_API int iValidateRepairOrthonormality();

    /// Axis of the rotation, of either sense; never null for a rotation.
    VEXMATH_API mgUnitVector_c getRotationAxis() const;
    /// Signed angle in radians about *axis, or about `getRotationAxis()` when null. The sense is
    /// that of column vectors: the angle of `mg_RotationMatrix(t, n, 0)` about n is -t.
    VEXMATH_API double getRotationAngle(mgUnitVector_c const *axis) const;

    /// Eigenvalues, ascending, and unit eigenvectors of the symmetric part (M + transpose) / 2,
    /// three of each; either pointer may be null. The vectors are perpendicular to each other
    /// within rounding, also where eigenvalues coincide; their signs are arbitrary.
    ///
    /// 1 when the iteration converged, 0 when it stopped at its limit; the state it stopped in is
    /// written all the same. Its bounds are absolute: the elements off the diagonal count as gone
    /// when they sum to at most 1e-20, or when the largest is below 5e-14 between diagonal elements
    /// closer than 1e-13. So it stops at its limit for large elements that equal ones on the
    /// diagonal still swallow (1 beside 1e17), where the state is right to the last bits. Of NaN
    /// and infinite elements neither the result nor the values tell anything.
    VEXMATH_API int getEigensystem(double *values, mgUnitVector_c *vectors) const;
    /// The matrix whose rows are the three vectors, orthonormalised. The values play no part and
    /// are not read.
    VEXMATH_API static mgMatrix_c getMatrixFromEigs(double const *values,
                                                    mgVector_c const *vectors);
    /// Unit vectors that the matrix takes to zero; their number is returned and that many entries
    /// of basis are written. REQUIRES room for three.
    ///
    /// 0 when |determinant| > 1e-08 or not a number, unless forced; 3, the axes, when `isNearZero`;
    /// 1 when two columns span a plane (squared length of their cross product at least 1e-16), with
    /// M n = 0 for n as a column vector; else 2, perpendicular to the columns and right-handed with
    /// the longest of them. Of a singular matrix |M n| is at most a few roundings of the longest
    /// column, also near these bounds; n itself loses a digit for each digit by which the columns
    /// approach each other: docs/accuracy.md. Forced, a regular matrix gives the least-squares
    /// solution for its widest pair of columns.
    VEXMATH_API int getNullspace(mgUnitVector_c *basis, bool force) const;

    /// Archive record: nine doubles, row by row, without the flag. A failing read leaves the matrix
    /// as it was.
    VEXMATH_API void save(su_CArchive &ar) const;
    /// Reads and orthonormalises; three null rows give the identity.
    VEXMATH_API void restore(su_CArchive &ar);
    /// Reads the elements as they are; the flag becomes 1 when every row is its axis within 1e-08.
    VEXMATH_API void restoreAsIs(su_CArchive &ar);
    // The same for callers that hold a CArchive, which must be a su_CArchive.
    VEXMATH_API void save(CArchive &ar) const;
    VEXMATH_API void restore(CArchive &ar);
    VEXMATH_API void restoreAsIs(CArchive &ar);

private:
    friend class mgXform_c;
    VEXMATH_API friend mgMatrix_c operator*(mgMatrix_c const &a, mgMatrix_c const &b);

    explicit mgMatrix_c(vexmath::detail::Rows const &rows); ///< as they are, with an honest flag

    static int inRange(int k) { return k >= 0 && k <= 8 ? k : 0; }
    void copyColumn(int j, mgUnitVector_c *axis) const;
    bool rowsAreAxes(double tol) const;

    double m_[9] = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};
    int identity_ = 1;
};

/// A first, then B, orthonormalised, with an honest flag. Two matrices flagged as the identity give
/// the identity, whatever their elements.
VEXMATH_API mgMatrix_c operator*(mgMatrix_c const &a, mgMatrix_c const &b);

/// Row vector times matrix. An exact identity (by its elements, not by its flag) returns v itself,
/// and an exactly zero vector returns zero.
mgVector_c operator*(mgVector_c const &v, mgMatrix_c const &m);
/// Row vector times matrix, without short cuts.
mgPoint_c operator*(mgPoint_c const &p, mgMatrix_c const &m);
/// Matrix times column vector.
mgPoint_c operator*(mgMatrix_c const &m, mgPoint_c const &p);

// -------------------------------------------------------------------------------------------------

namespace vexmath::detail {

/// Are the elements but the first exactly those of the identity?
VEXMATH_API VEXMATH_PURE bool endsLikeIdentity(mgMatrix_c const &m) noexcept;

/// Are the elements exactly those of the identity? A rotation fails at the first.
inline bool isExactIdentity(mgMatrix_c const &m) {
    return m.element(0, 0) == 1.0 && endsLikeIdentity(m);
}

/// The elements of a matrix as values. A loop that turns many points can keep them in registers,
/// where elements in memory might change with every point that it writes.
struct Elements {
    Elements(mgMatrix_c const &m)
        : xx(m.element(0, 0)), xy(m.element(0, 1)), xz(m.element(0, 2)), yx(m.element(1, 0)),
          yy(m.element(1, 1)), yz(m.element(1, 2)), zx(m.element(2, 0)), zy(m.element(2, 1)),
          zz(m.element(2, 2)) {}

    double xx, xy, xz, yx, yy, yz, zx, zy, zz;
};

/// (x, y, z) as a row vector times m, each component summed from x to z.
inline mgVector_c rowTimes(double x, double y, double z, Elements const &m) {
    return {x * m.xx + y * m.yx + z * m.zx, x * m.xy + y * m.yy + z * m.zy,
            x * m.xz + y * m.yz + z * m.zz};
}

} // namespace vexmath::detail

inline void mgMatrix_c::copyColumn(int j, mgUnitVector_c *axis) const {
    axis->set(m_[j], m_[3 + j], m_[6 + j]);
}

inline mgVector_c operator*(mgVector_c const &v, mgMatrix_c const &m) {
    if (vexmath::detail::isExactIdentity(m)) return v;
    if (v.null()) return {};
    return vexmath::detail::rowTimes(v.x(), v.y(), v.z(), m);
}

inline mgPoint_c operator*(mgPoint_c const &p, mgMatrix_c const &m) {
    return vexmath::detail::rowTimes(p.x(), p.y(), p.z(), m);
}

inline mgPoint_c operator*(mgMatrix_c const &m, mgPoint_c const &p) {
    return {m(0, 0) * p.x() + m(0, 1) * p.y() + m(0, 2) * p.z(),
            m(1, 0) * p.x() + m(1, 1) * p.y() + m(1, 2) * p.z(),
            m(2, 0) * p.x() + m(2, 1) * p.y() + m(2, 2) * p.z()};
}

#endif
