// SPDX-License-Identifier: MIT
// Forward declarations of the library's classes and of its records of curved edges.

#ifndef VEXMATH_FORWARD_H
#define VEXMATH_FORWARD_H

// Vectors and points.
class mgVector_c;
class mgPoint_c;
class gcMdiPoint_c;
class mg2DPoint_c;
class mgTessPoint2D_c;
class mgVector4_c;
class mgUnitVector_c;

// Matrices.
class mgMatrix_c;
class mgMatrix4_c;
class mgQuaternion_c;

// Transforms.
class mgXform_c;
class mgXform_64BitHelper_c;
class mgGenXform_c;
class mgPerspInfo_c;
class mgModelPerspInfo_c;

// Bounding volumes.
class mgBBox_c;
class mgBoxIndex_c;
class mgParallelogram_c;
class mgGeneralBox_c;

// Analytic primitives.
class mgLine_c;
class mgPlane_c;
class mgArc_c;
class mgCircle_c;
class mgCone_c;
class mgCylinder_c;
class mgPrimitiveBodyData_c;

// Records of curved edges.
struct arcEdgeData;
struct ellipseEdgeData;
struct parabolaEdgeData;

// Support.
template <class T>
class suDynamicArray;
struct mgIndexPair_c;
class mgCheckSum_c;
class mgRect;

// Selection.
class uoSelectType_c;
class uoSelectConstraint_c;

// Friends and representations inside the library.
namespace vexmath::detail {
struct BoxIndexData;
struct BoxParts;
struct Rows;
struct XformParts;
} // namespace vexmath::detail

#endif
