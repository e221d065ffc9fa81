// SPDX-License-Identifier: MIT
// Includes every public header except the opt-in ones: format.h, hash.h and those in interop/.

#ifndef VEXMATH_VEXMATH_H
#define VEXMATH_VEXMATH_H

#include <vexmath/arc.h>
#include <vexmath/bbox.h>
#include <vexmath/box_index.h>
#include <vexmath/bulk.h>
#include <vexmath/checksum.h>
#include <vexmath/circle.h>
#include <vexmath/cone.h>
#include <vexmath/dynamic_array.h>
#include <vexmath/edge_data.h>
#include <vexmath/export.h>
#include <vexmath/forward.h>
#include <vexmath/gen_xform.h>
#include <vexmath/general_box.h>
#include <vexmath/gfxmath.h>
#include <vexmath/intersection_types.h>
#include <vexmath/line.h>
#include <vexmath/matrix.h>
#include <vexmath/matrix4.h>
#include <vexmath/mg_bounds.h>
#include <vexmath/mg_conic.h>
#include <vexmath/mg_matrix.h>
#include <vexmath/mg_planar.h>
#include <vexmath/mg_primitives.h>
#include <vexmath/mg_queries.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>
#include <vexmath/persp_info.h>
#include <vexmath/plane.h>
#include <vexmath/point.h>
#include <vexmath/point2d.h>
#include <vexmath/primitive_body_data.h>
#include <vexmath/quaternion.h>
#include <vexmath/rect.h>
#include <vexmath/select_type.h>
#include <vexmath/selection_sets.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/tolerances.h>
#include <vexmath/unit_vector.h>
#include <vexmath/vector.h>
#include <vexmath/vector4.h>
#include <vexmath/xform.h>

#endif
