// SPDX-License-Identifier: MIT
// Uses every host type through the library; the exit status is the number of the first failure.

#include <vexmath/point.h>
#include <vexmath_platform/dump_context.h>

int main() {
    mgPoint_c const point(1, 2, 3);

    CDumpContext trace;
    point.Dump(trace);
    if (trace.text != L"(1.0000,2.0000,3.0000)") return 1;

    return 0;
}
