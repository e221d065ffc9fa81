// SPDX-License-Identifier: MIT
// The compiled part of the package vexmath.

#include "classes.h"

namespace {

using namespace bind;

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
