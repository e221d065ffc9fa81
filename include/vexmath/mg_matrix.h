// SPDX-License-Identifier: MIT
// Free functions that build matrices.

#ifndef VEXMATH_MG_MATRIX_H
#define VEXMATH_MG_MATRIX_H

#include <vexmath/matrix.h>

/// Rotation by an angle in radians about an axis through the origin, counter-clockwise seen against
/// the axis: x turned about z by t is (cos t, sin t, 0). Below 1e-12 in absolute value: identity.
///
/// When snapTol > 0, an angle strictly closer than snapTol to a multiple of a quarter turn gets the
/// exact sine and cosine of it. REQUIRES an axis that is not null: nothing defends against one.
VEXMATH_API mgMatrix_c mg_RotationMatrix(double angle, mgVector_c const &axis, double snapTol);

#endif
