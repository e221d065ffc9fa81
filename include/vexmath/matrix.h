// SPDX-License-Identifier: MIT
// mgMatrix_c: the 3x3 rotation-style matrix.

#ifndef VEXMATH_MATRIX_H
#define VEXMATH_MATRIX_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

#include <vexmath_platform/archive.h>

/// A 3x3 matrix of doubles, nearly always a rotation, with a cached identity flag.
///
/// Points and vectors multiply from the left as row vectors: component j of v * M is the sum over i
/// of v_i M(i, j). So row i is the image of coordinate axis i, and A * B applies A first, then B.
/// Products and inverses are orthonormalised by one pass, see `normalize`. The inverse is the
/// transpose.
///
/// The flag is a cache and not a test of the elements:
/// - Constructors from nine doubles or three rows, products, `inverse`, `restore` and
///   `mg_RotationMatrix` compute it: it is set when every component of every row differs from that
///   of its axis by strictly less than 1e-12.
/// - Copies copy it.
/// - `transpose`, `operator+` and `operator-` set it, whatever the elements are.
/// - Writing elements, `+=`, `zero`, `tensor`, `normalize` and the repair leave it as it was.
///
/// These trust the flag: ==, the repair, and a product when both matrices are flagged; in
/// transforms composition, copying, inverse, saving and the rotation of unit vectors. Products with
/// one flagged matrix, points and vectors go by the elements. To get a flag that fits the elements,
/// build the matrix from them.
class mgMatrix_c {
public:
    constexpr mgMatrix_c() = default; ///< the identity, flag set
    /// Nine elements, row by row. They are orthonormalised when the second argument is not 0.
    VEXMATH_API mgMatrix_c(double const (&elements)[9], int orthonormalise);
    /// Three rows, always orthonormalised.
    VEXMATH_API mgMatrix_c(mgUnitVector_c const &r0, mgUnitVector_c const &r1,
                           mgUnitVector_c const &r2);
    /// Three rows, always orthonormalised; for the order see `normalize`.
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

    // Columns (X, Y, Z), which are the images of the axes under the inverse rotation, and rows (IX,
    // IY, IZ), which are their images under this one. The numbers are copied and not normalised.
    // REQUIRE a pointer that is not null.
    void getXAxis(mgUnitVector_c *axis) const { copyColumn(0, axis); }
    void getYAxis(mgUnitVector_c *axis) const { copyColumn(1, axis); }
    void getZAxis(mgUnitVector_c *axis) const { copyColumn(2, axis); }
    void getIXAxis(mgUnitVector_c *axis) const { axis->set(m_); }
    void getIYAxis(mgUnitVector_c *axis) const { axis->set(m_ + 3); }
    void getIZAxis(mgUnitVector_c *axis) const { axis->set(m_ + 6); }

    // Sum, difference and outer product work element by element, without orthonormalisation.

    VEXMATH_API mgMatrix_c operator+(mgMatrix_c const &b) const; ///< flag set, whatever the result
    /// b - this: the operands are reversed. The flag is set, whatever the result is.
    VEXMATH_API mgMatrix_c operator-(mgMatrix_c const &b) const;
    VEXMATH_API mgMatrix_c &operator+=(mgMatrix_c const &b); ///< flag unchanged
    /// 0 when the flags differ. 1 when both are set, whatever the elements are. Otherwise 1 when
    /// every element differs by strictly less than 1e-12; so a NaN element gives 0.
    VEXMATH_API int operator==(mgMatrix_c const &b) const;

    VEXMATH_API void zero(); ///< nine zeros, flag unchanged
    /// The outer product: element (i, j) becomes a_i b_j. The flag is unchanged.
    VEXMATH_API void tensor(mgVector_c const &a, mgVector_c const &b);
    VEXMATH_API double getDeterminant() const; ///< by cofactors along row 0
    VEXMATH_API mgMatrix_c transpose() const;  ///< flag set, whatever the elements are
    /// The transpose, orthonormalised: the inverse of a rotation only. The flag is computed.
    VEXMATH_API mgMatrix_c inverse() const;

    /// 1 when every element is strictly below 1e-08 in absolute value; 0 for NaN.
    VEXMATH_API int isNearZero() const;
    /// 1 when the diagonal lies in [0.999999863, 1.000000137] and the rest in [-0.000523599,
    /// 0.000523599], bounds included: a rotation of at most about 0.03 degrees. 0 for NaN.
    VEXMATH_API int isNearIdentity() const;

    /// One orthonormalisation pass over the rows. The first argument is ignored. The flag is not
    /// computed again.
    ///
    /// The error measure is the sum of |1 - r . r| over the rows r and of the absolute dot products
    /// of two rows. When it is strictly below 1e-15 nothing changes. Otherwise:
    /// - Row 0 keeps its direction.
    /// - Row 1 loses its component along row 0.
    /// - Row 2 becomes the cross product of the new rows 0 and 1, negated when its dot product with
    ///   the old row 2 is negative. So a mirror stays a mirror.
    ///
    /// The pass is of first order. A row 0 of length r gets the length |r (3 - r^2) / 2|, so it is
    /// reversed when r is above the root of 3. Row 1 becomes perpendicular to row 0 only when both
    /// had about unit length. A null row 0 or 1 stays null and makes row 2 null. NaN in row 0 or 1
    /// spreads. A null row 2 and NaN in row 2 are replaced.
    ///
    /// An order that is not 0 sums the error measure in another order, which changes its rounding
    /// and nothing else.
    VEXMATH_API void normalize(int unused, int order);
    /// Makes rows that lie along an axis exact. Returns 1 when an element changed and otherwise 0.
    /// A NaN element that is left alone counts as changed.
    ///
    /// In each row the first element strictly above 0.99999999 in absolute value, however large,
    /// becomes 1 or -1. All other elements of its row and column must then be strictly below 1e-08
    /// in absolute value, and become 0. If one is not, the whole repair is refused: 0, and no
    /// element changes. Rows without such an element are left alone. The flag is trusted: when it
    /// is set, the result is 0 and nothing changes.
    VEXMATH_API int iValidateRepairOrthonormality();

    /// Unit axis of the rotation. Its component of largest absolute value is positive, so the angle
    /// about it may be negative. REQUIRES a rotation.
    ///
    /// A rotation by less than about 1e-4 radians (1.0e-4 to 1.3e-4, depending on the axis) does
    /// not tell its axis. The result is then the normalised column of the coordinate axis that
    /// moves least, which is nearly that axis; for the identity the x axis.
    VEXMATH_API mgUnitVector_c getRotationAxis() const;
    /// Signed angle in radians about *axis, or about `getRotationAxis()` when the pointer is null.
    /// REQUIRES that the matrix rotates about that axis. The sense is that of column vectors: the
    /// angle of `mg_RotationMatrix(t, n, 0)` about n is -t. About (0, 0, 0) it is 0.
    ///
    /// The angle is measured between one coordinate axis and its image: the one along which *axis
    /// has its smallest component, by signed value. So about (-1, 0, 0), (0, -1, 0) or (0, 0, -1)
    /// exactly it is 0 however far the matrix rotates. When the matrix does not rotate about that
    /// axis, it may also be pi. Close to these axes a small error of *axis makes the angle inexact.
    VEXMATH_API double getRotationAngle(mgUnitVector_c const *axis) const;

    /// Eigenvalues, ascending, and unit eigenvectors of the symmetric part (M + transpose) / 2,
    /// three of each. Either pointer may be null. The vectors are perpendicular to each other
    /// within rounding, also where eigenvalues coincide; their signs are arbitrary.
    ///
    /// Returns 1 when the iteration converged and 0 when it stopped after 51 rotations. The values
    /// and vectors reached are written in both cases. The bounds are absolute: the iteration
    /// converges when the absolute elements off the diagonal sum to at most 1e-20, or when the
    /// largest of them is strictly below 5e-14 and its two diagonal elements differ by strictly
    /// less than 1e-13. So it may stop at its limit when equal diagonal elements are so large that
    /// they absorb the others (1e17 beside 1); the result is then right to the last bits. For NaN
    /// or infinite elements the return value, the values and the vectors mean nothing.
    VEXMATH_API int getEigensystem(double *values, mgUnitVector_c *vectors) const;
    /// The matrix whose rows are the three vectors, orthonormalised twice; the flag is computed.
    /// The values are ignored: the pointer is not read and may be null.
    VEXMATH_API static mgMatrix_c getMatrixFromEigs(double const *values,
                                                    mgVector_c const *vectors);
    /// Unit vectors of the null space. Returns their number and writes that many entries of basis;
    /// further entries are not written. REQUIRES room for three.
    /// - 0 when |determinant| > 1e-08 (strict) or NaN, unless forced.
    /// - 3, the coordinate axes, when `isNearZero`.
    /// - 1 when two columns span a plane: the largest squared length of a cross product of two
    ///   columns is at least 1.0000000000000001e-16. The vector n fulfils M n = 0 as a column
    ///   vector.
    /// - 2 otherwise. Both vectors are perpendicular to the longest column and form a right-handed
    ///   frame with it in the order (first, second, column). So they fulfil n M = 0 as row vectors,
    ///   and M n = 0 only when the matrix is symmetric.
    ///
    /// Of a singular matrix |M n| is at most a few roundings of the longest column, also near these
    /// bounds; n itself loses a digit for each digit by which the columns approach each other, see
    /// docs/accuracy.md. Forced, a regular matrix gives the n that expresses one column by the
    /// other two, by least squares; those two have the largest cross product. With NaN or infinite
    /// elements, or elements above 1e150, the vectors mean nothing and may be null.
    VEXMATH_API int getNullspace(mgUnitVector_c *basis, bool force) const;

    /// Archive record: nine doubles, row by row, without the flag.
    VEXMATH_API void save(su_CArchive &ar) const;
    /// Reads nine doubles and orthonormalises them; the flag is computed. Nine elements strictly
    /// below 1e-08 in absolute value give the identity. A failing read leaves the matrix as it was.
    VEXMATH_API void restore(su_CArchive &ar);
    /// Reads nine doubles as they are. The flag is set when every component of every row differs
    /// from that of its axis by strictly less than 1e-08. A failing read leaves the matrix as it
    /// was.
    VEXMATH_API void restoreAsIs(su_CArchive &ar);
    // The same for callers that hold a CArchive, which must be a su_CArchive.
    VEXMATH_API void save(CArchive &ar) const;
    VEXMATH_API void restore(CArchive &ar);
    VEXMATH_API void restoreAsIs(CArchive &ar);

private:
    friend struct vexmath::detail::Rows;

    explicit mgMatrix_c(vexmath::detail::Rows const &rows); ///< as they are, the flag computed

    // QUIRK: matrix.h, mgMatrix_c::operator[]: an index out of range means element 0. Expected: a
    // requirement, or a failure. Kept: callers and stored data depend on it.
    // (test: AnIndexOutOfRangeMeansElementZero)
    static int inRange(int k) { return k >= 0 && k <= 8 ? k : 0; }
    void copyColumn(int j, mgUnitVector_c *axis) const;
    bool rowsAreAxes(double tol) const;

    double m_[9] = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};
    int identity_ = 1;
};

/// a first, then b, orthonormalised; the flag is computed. Two matrices flagged as the identity
/// give the identity, whatever their elements are.
VEXMATH_API mgMatrix_c operator*(mgMatrix_c const &a, mgMatrix_c const &b);

/// Row vector times matrix. A matrix with exactly the elements of the identity, whatever its flag,
/// returns v itself. An exactly zero vector returns (0, 0, 0).
mgVector_c operator*(mgVector_c const &v, mgMatrix_c const &m);
/// Row vector times matrix, always by the elements.
mgPoint_c operator*(mgPoint_c const &p, mgMatrix_c const &m);
/// Matrix times column vector, always by the elements. A vector on the right converts to a point.
mgPoint_c operator*(mgMatrix_c const &m, mgPoint_c const &p);

// -------------------------------------------------------------------------------------------------

#include <vexmath/detail/row_times_matrix.h>

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
