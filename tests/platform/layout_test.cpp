// SPDX-License-Identifier: MIT
// The layouts of the public classes, with pointers of 8 and of 4 bytes. The compiler is the test.

#include <vexmath/vexmath.h>

#include <cstddef>
#include <type_traits>

namespace {

// Callers copy these by memcpy, pass them as arrays and overlay them on their own structures.
template <class... T>
constexpr bool arePlain = (...
                           && (std::is_trivially_copyable_v<T> && std::is_standard_layout_v<T>));
static_assert(
    arePlain<mgVector_c, mgPoint_c, mgUnitVector_c, gcMdiPoint_c, mg2DPoint_c, mgVector4_c,
             mgTessPoint2D_c, mgQuaternion_c, mgMatrix_c, mgMatrix4_c, mgXform_64BitHelper_c,
             mgBBox_c, mgParallelogram_c, mgGeneralBox_c, mgLine_c, mgPlane_c>);
static_assert(std::is_standard_layout_v<mgXform_c> && !std::is_trivially_copyable_v<mgXform_c>);

/// Where a number begins in a class: at a multiple of 8, except on 32-bit Linux on x86.
constexpr std::size_t kStep = alignof(mgVector_c);
static_assert(kStep == 8 || (kStep == 4 && sizeof(void *) == 4));

/// The bytes of numbers, of integers behind them and of the padding behind these.
constexpr std::size_t size(std::size_t numbers, std::size_t rest = 0) {
    return 8 * numbers + (rest + kStep - 1) / kStep * kStep;
}
constexpr std::size_t kPointer = sizeof(void *);
constexpr std::size_t kTable = size(0, kPointer); ///< the pointer in front, to the virtual table

// A class of numbers has no padding.
static_assert(sizeof(mgVector_c) == 24 && sizeof(mgPoint_c) == 24 && sizeof(mgUnitVector_c) == 24);
static_assert(sizeof(gcMdiPoint_c) == 24 && sizeof(mg2DPoint_c) == 16 && sizeof(mgVector4_c) == 32);
static_assert(sizeof(mgQuaternion_c) == 32 && sizeof(mgMatrix4_c) == 128 && sizeof(mgBBox_c) == 80);
static_assert(sizeof(mgLine_c) == 48 && sizeof(mgPlane_c) == 48 && sizeof(mgCircle_c) == 56);
static_assert(sizeof(mgParallelogram_c) == 88 && sizeof(mgGeneralBox_c) == 96);
static_assert(sizeof(mgRect) == 32 && offsetof(mgRect, top) == 8 && offsetof(mgRect, bottom) == 24);
static_assert(sizeof(mgTessPoint2D_c) == 12 && offsetof(mgTessPoint2D_c, z) == 8);
static_assert(sizeof(arcEdgeData) == 56 && offsetof(arcEdgeData, normal) == 24);
static_assert(offsetof(arcEdgeData, radius) == 48);
static_assert(sizeof(ellipseEdgeData) == 136 && offsetof(ellipseEdgeData, minorDir) == 48);
static_assert(offsetof(ellipseEdgeData, majorRadius) == 72
              && offsetof(ellipseEdgeData, end) == 112);
static_assert(sizeof(parabolaEdgeData) == 136 && offsetof(parabolaEdgeData, start) == 64);
static_assert(offsetof(parabolaEdgeData, normal) == 112);

// With integers and pointers.
static_assert(sizeof(mgMatrix_c) == size(9, 4));
static_assert(sizeof(mgXform_c) == sizeof(mgMatrix_c) + size(4, kPointer == 8 ? 16 : 8));
static_assert(sizeof(mgXform_64BitHelper_c) == sizeof(mgXform_c));
static_assert(offsetof(mgXform_64BitHelper_c, translation) == sizeof(mgMatrix_c));
static_assert(offsetof(mgXform_64BitHelper_c, scale) == sizeof(mgMatrix_c) + 24);
static_assert(offsetof(mgXform_64BitHelper_c, reflection) == sizeof(mgMatrix_c) + 32);
static_assert(offsetof(mgXform_64BitHelper_c, perspective) == sizeof(mgMatrix_c) + 32 + kPointer);
static_assert(sizeof(mgGenXform_c) == 2 * sizeof(mgXform_c) + 24);
static_assert(sizeof(mgArc_c) == size(15, 1) + sizeof(mgMatrix_c));
static_assert(sizeof(mgPrimitiveBodyData_c) == size(6, 4) + size(0, 4));
static_assert(offsetof(mgPrimitiveBodyData_c, anchor) == kStep);
static_assert(offsetof(mgPrimitiveBodyData_c, extra) == kStep + 48);
static_assert(sizeof(mgPerspInfo_c) == kTable + 48 && sizeof(mgModelPerspInfo_c) == kTable + 72);
static_assert(sizeof(mgCone_c) == kTable + 64 && sizeof(mgCylinder_c) == sizeof(mgCone_c));
static_assert(sizeof(suDynamicArray<mgPoint_c>) == 2 * kPointer);
static_assert(sizeof(mgBoxIndex_c) == kPointer && sizeof(mgCheckSum_c) == 8);
static_assert(sizeof(mgIndexPair_c) == 8 && offsetof(mgIndexPair_c, second) == 4);
static_assert(sizeof(amDynamicArrayHeader) == 16 && offsetof(amDynamicArrayHeader, capacity) == 4);
static_assert(offsetof(amDynamicArrayHeader, elementSize) == 8);
static_assert(offsetof(amDynamicArrayHeader, keepFlag) == 14);
static_assert(sizeof(uoSelectType_c) == sizeof(su_CDWordArray));

} // namespace
