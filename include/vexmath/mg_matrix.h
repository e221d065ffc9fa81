// SPDX-License-Identifier: MIT
// Free functions that build matrices or find the roots of polynomials.

#ifndef VEXMATH_MG_MATRIX_H
#define VEXMATH_MG_MATRIX_H

#include <vexmath/matrix.h>

/// Rotation by an angle in radians about an axis through the origin, counter-clockwise seen against
/// the axis: x turned about z by t is (cos t, sin t, 0). Below 1e-12 in absolute value: identity.
///
/// When snapTol > 0, an angle strictly closer than snapTol to a multiple of a quarter turn gets the
/// exact sine and cosine of it. REQUIRES an axis that is not null: nothing defends against one.
VEXMATH_API mgMatrix_c mg_RotationMatrix(double angle, mgVector_c const &axis, double snapTol);

// Real roots of polynomials. Every bound is absolute: scale the coefficients to about 1 first, or
// large ones turn a double root into none and small ones vanish. docs/accuracy.md shows how far
// each function can be trusted.

/// Real roots of a x^2 + b x + c: their number is returned and that many entries of roots are
/// written. A coefficient below 1e-13 in absolute value counts as absent (a linear equation, or
/// none), a discriminant in [-1e-13, 1e-13) as a double root, which is given twice; one that is not
/// a number gives 0. Not sorted: (-b - root) / 2a comes first, the larger one for a negative a.
/// REQUIRES room for two.
VEXMATH_API int mg_solveQuadratic(double a, double b, double c, double *roots);

/// The same, older, by other bounds. *disc gets the discriminant, or -1 when a and b are both below
/// 1e-08 in absolute value. The roots are written when there are some: equal for a linear equation
/// (|a| < 1e-08; *disc is then b^2 - 4ac all the same) and for a discriminant in [0, 1e-16),
/// otherwise *root1 < *root2. A negative discriminant leaves them as they were; one that is NaN,
/// which large coefficients give too (1e200 for all three), makes both NaN.
VEXMATH_API void mgSolveQuadratic(double a, double b, double c, double *disc, double *root1,
                                  double *root2);

/// Real roots of a x^3 + b x^2 + c x + d: their number, 1 or 3, is returned and that many entries
/// of roots are written, ascending; a double root appears twice. |a| < 1e-13 gives the roots of the
/// quadratic as `mg_solveQuadratic` does. One root is searched for and the others come from the
/// quadratic that is left when it is divided out, so its error reaches them. Coefficients that are
/// NaN, or so large that values overflow, may give a root that means nothing. REQUIRES room for
/// three.
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
/// symmetric positive matrix: a its trace, b the sum of its principal 2x2 minors, c its
/// determinant. Fails when one of them is not positive (or not a number) or there are no three real
/// roots. REQUIRES room for three.
VEXMATH_API mg_GoodEqu3Status mg_GoodEqu3(double a, double b, double c, double *roots);

#endif
