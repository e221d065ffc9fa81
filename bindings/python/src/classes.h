// SPDX-License-Identifier: MIT
// All classes of the module. They exist before the first member, so that signatures name them.

#ifndef VEXMATH_PYTHON_CLASSES_H
#define VEXMATH_PYTHON_CLASSES_H

#include "bind.h"

namespace bind {

#include "classes.inc"

void bindPart0(Classes &classes); // these are generated
void bindPart1(Classes &classes);
void bindPart2(Classes &classes);
void bindMembers(Classes &classes); // what no declaration tells
void bindValues(Classes &classes);  // equality, repr, copy, pickle
void bindFunctions(py::module_ &m); // with outputs of a fixed size
void bindArrays(Classes &classes);

} // namespace bind

#endif
