// SPDX-License-Identifier: MIT
// The compiled part of the package vexmath.

#include "classes.h"

namespace {

using namespace bind;

void bindEnumerations(py::module_ &m) {
    enumeration<mgIntersectionType_e>(m, "mgIntersectionType_e",
                                      {"COINCIDENT", "PARALLEL", "POINT", "TWO_POINTS", "NONE"});
    enumeration<mgLinePlaneIntersectionType_e>(m, "mgLinePlaneIntersectionType_e",
                                               {"IN_PLANE", "PARALLEL", "POINT", "FAILED"});
    enumeration<mgPlnPlnIntersectionType_e>(m, "mgPlnPlnIntersectionType_e",
                                            {"COINCIDENT", "PARALLEL", "LINE", "FAILED"});
    enumeration<mgLineCircleIntType_e>(m, "mgLineCircleIntType_e",
                                       {"TANGENT", "THROUGH_CENTRE", "SECANT", "MISS"});
    enumeration<mgClipLine_e>(
        m, "mgClipLine_e",
        {"OUTSIDE", "INSIDE", "CLIPPED_A", "CLIPPED_B", "CLIPPED_BOTH", "TOUCHING"});
    enumeration<mgInsideBox_e>(m, "mgInsideBox_e", {"OUTSIDE", "TOUCHING", "PARTLY", "INSIDE"});
    enumeration<mgPointOnLine_e>(m, "mgPointOnLine_e", {"OFF", "BETWEEN", "AT_A", "AT_B"});
    enumeration<mgPolylineArc_e>(m, "mgPolylineArc_e", {"NONE", "ARC", "CIRCLE", "LINE"});
    enumeration<mg_GoodEqu3Status>(
        m, "mg_GoodEqu3Status",
        {"THREE_ROOTS", "TRIPLE_ROOT", "LOWER_PAIR_EQUAL", "UPPER_PAIR_EQUAL", "FAILED"});
}

/// Points and vectors convert into each other, and three numbers into both.
void bindConversions() {
    py::implicitly_convertible<mgVector_c, mgPoint_c>();
    py::implicitly_convertible<mgPoint_c, mgVector_c>();
    py::implicitly_convertible<py::tuple, mgPoint_c>();
    py::implicitly_convertible<py::tuple, mgVector_c>();
}

} // namespace

PYBIND11_MODULE(_vexmath, m) {
    py::object const ownName = m.attr("__name__");
    m.attr("__name__") = "vexmath"; // where the names are found
    py::setattr(py::register_exception<su_CArchiveError>(m, "ArchiveError", PyExc_ValueError),
                "__doc__", py::str("A record is too short."));
    bindEnumerations(m);
    Classes classes{m};
    bindPart0(classes);
    bindPart1(classes);
    bindPart2(classes);
    bindMembers(classes);
    bindFunctions(m);
    bindArrays(classes);
    bindValues(classes);
    bindConversions();
    m.attr("__version__") = VEXMATH_VERSION;
    m.attr("__name__") = ownName;
}
