// SPDX-License-Identifier: MIT
// Free functions that build matrices or find the roots of polynomials.

#ifndef VEXMATH_MG_MATRIX_H
#define VEXMATH_MG_MATRIX_H

#include <vexmath/matrix.h>

/// Rotation by an angle in radians about an axis through the origin, by the right-hand rule:
/// (1, 0, 0) times the rotation about z by t is (cos t, sin t, 0). An angle strictly below 1e-12 in
/// absolute value gives the identity.
///
/// When snapTol > 0, an angle strictly closer than snapTol to a multiple of a quarter turn gets the
/// exact sine and cosine of that multiple.
///
/// REQUIRES an axis with a length from 3.2e-09 to 1e150. A shorter, longer or NaN axis has no
/// direction: the result is the identity, its negative when the cosine of the angle is negative, or
/// nine zeros when the cosine is below 3.2e-09 in absolute value. A NaN or infinite angle, or an
/// infinite axis, gives nine zeros.
VEXMATH_API mgMatrix_c mg_RotationMatrix(double angle, mgVector_c const &axis, double snapTol);

// Real roots of polynomials. Every bound is absolute, so scale the coefficients to about 1 first:
// with large ones rounding may lose a double root, and small ones count as absent.
// docs/accuracy.md shows how far each function can be trusted.

/// Real roots of a x^2 + b x + c. Returns their number and writes that many entries of roots.
/// REQUIRES room for two. With the discriminant D = b^2 - 4ac:
/// - |a| < 1e-13, or a is NaN: the equation is linear. One root -c / b, or none when |b| < 1e-13 or
///   b is NaN.
/// - D >= 1e-13: two roots, not sorted. (-b - sqrt(D)) / (2 a) comes first, which is the larger one
///   for a negative a.
/// - -1e-13 <= D < 1e-13: the double root -b / (2 a) is written twice; returns 2.
/// - D < -1e-13, or D is NaN: none.
///
/// Roots may be infinite or NaN when values overflow (coefficients above 1e150). The root of a
/// linear equation is NaN when c is NaN.
VEXMATH_API int mg_solveQuadratic(double a, double b, double c, double *roots);

/// The same in an older form with other bounds. *disc becomes D = b^2 - 4ac.
/// - |a| < 1e-08 and |b| < 1e-08: *disc becomes -1. The roots are not written.
/// - |a| < 1e-08 otherwise: the equation is linear. Both roots become -c / b, whatever D is.
/// - D < 0: the roots are not written.
/// - 0 <= D < 1e-16: both roots become -b / 2a.
/// - D >= 1e-16: *root1 is the smaller root and *root2 the larger one. When b^2 or 4ac overflows,
///   they are -infinity and infinity.
/// - D is NaN, for example when b^2 and 4ac both overflow (1e200 for all coefficients): both roots
///   become NaN.
VEXMATH_API void mgSolveQuadratic(double a, double b, double c, double *disc, double *root1,
                                  double *root2);

/// Real roots of a x^3 + b x^2 + c x + d. Returns their number and writes that many entries of
/// roots. REQUIRES room for three. |a| < 1e-13 gives what `mg_solveQuadratic` gives for b, c and d.
/// Otherwise there are 1 or 3 roots, ascending; a double root appears twice.
///
/// One root r is searched for. A critical point with a value of at most 1e-13 in absolute value is
/// a double root and becomes r. Otherwise an interval with values of different sign at its ends is
/// narrowed. Each step halves it while the cubic falls over it; while the cubic rises, every other
/// step is a secant. So a cubic and its negative may differ in the last bits of their roots. The
/// search ends when the interval is at most 1e-13 wide and the absolute values at its ends sum to
/// at most 1e-13, at the latest after 101 steps.
///
/// The other roots are those that `mg_solveQuadratic` finds for the quadratic that remains, so the
/// error of r reaches them. They count as a double root when a^2 (r2 - r3)^2 is in [-1e-13, 1e-13),
/// also when they are complex. A small a brings every pair into that range: (1e-13, 1, 1, 1) gives
/// three roots, although only one is real. The roots mean nothing when a coefficient is NaN, when
/// values overflow, and when the product of two values that are not 0 underflows, as it may for
/// d = 1e-300.
VEXMATH_API int mg_solveCubic(double a, double b, double c, double d, double *roots);

/// What `mg_GoodEqu3` found.
enum mg_GoodEqu3Status : int {
    mgGoodEqu3_ThreeRoots = 0,     ///< three distinct roots
    mgGoodEqu3_TripleRoot = 1,     ///< one triple root
    mgGoodEqu3_LowerPairEqual = 2, ///< a simple largest root and a double smaller one
    mgGoodEqu3_UpperPairEqual = 3, ///< a double larger root and a simple smallest one
    mgGoodEqu3_Failed = 4          ///< no result, nothing written
};

/// The three real roots, descending, of x^3 - a x^2 + b x - c, the characteristic polynomial of a
/// symmetric positive matrix: a is its trace, b the sum of its principal 2x2 minors, c its
/// determinant. REQUIRES room for three: unless it fails, all three are written, an equal pair
/// twice, a triple root three times. With P = 3 - 9b/a^2 and Q = 27c/a^3 - 9b/a^2 + 2:
/// - Fails when a, b or c is not positive or is NaN.
/// - |P| < 1e-08: a triple root a / 3 when |Q| <= 1e-08, otherwise fails.
/// - P < 0: fails.
/// - Otherwise the cosine C = 4Q / R^3 with R = sqrt(4P/3) decides. |C| < 0.999999999999: three
///   roots. Up to |C| = 1.1, included: a pair that counts as equal, the lower one for C > 0.
///   Beyond: fails.
///
/// Beyond |C| = 1 only one root is real. The allowance of 1.1 still gives three values, which are
/// approximate: (3, 2.25, 0.52) gives 2, 0.5 and 0.5. For a above 1e100 or below 1e-100 its powers
/// overflow or underflow, and the status and the values mean nothing.
VEXMATH_API mg_GoodEqu3Status mg_GoodEqu3(double a, double b, double c, double *roots);

#endif
