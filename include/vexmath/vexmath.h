// SPDX-License-Identifier: MIT
// The whole interface of the library.

#ifndef VEXMATH_VEXMATH_H
#define VEXMATH_VEXMATH_H

#include <vexmath/bbox.h>
#include <vexmath/export.h>
#include <vexmath/forward.h>
#include <vexmath/matrix.h>
#include <vexmath/matrix4.h>
#include <vexmath/mg_matrix.h>
#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>
#include <vexmath/persp_info.h>
#include <vexmath/point.h>
#include <vexmath/point2d.h>
#include <vexmath/quaternion.h>
#include <vexmath/tolerances.h>
#include <vexmath/unit_vector.h>
#include <vexmath/vector.h>
#include <vexmath/vector4.h>
#include <vexmath/xform.h>

#endif
