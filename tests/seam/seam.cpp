// SPDX-License-Identifier: MIT
// Uses the host's types through the library; the exit status is the number of the first failure.

#include <vexmath/vexmath.h>

#include <vexmath_platform/dump_context.h>
#include <vexmath_platform/point.h>

int main() {
    mgPoint_c point(1, 2, 3);
    CDumpContext trace;
    point.Dump(trace);
    if (trace.text != L"(1.0000,2.0000,3.0000)") return 1;

    mgBBox_c box(mgPoint_c(0, 0, 0), point);
    CString text;
    box.saveStringRep(text);
    if (std::wcscmp(text, L"0 0 0 1 2 3") != 0) return 2;
    if (!box.restoreStringRep(text)) return 3;

    su_CArchive document;
    mgXform_c placement = mg_RotateXform(1.0, mgVector_c(0, 0, 1), 0.0);
    box.save(document), placement.save(document), document << point;
    mgBBox_c boxBack;
    mgXform_c placementBack;
    mgPoint_c pointBack;
    boxBack.restore(document), placementBack.restore(document), document >> pointBack;
    if (!(boxBack == box) || !placementBack.equals(placement) || !(pointBack == point)) return 4;
    if (document.readPosition != document.bytes.size()) return 5;

    if (uo_GenSelSOLIDBODIESFIRST.getIndex(uoSelTypes_e(76)) != 1) return 6;

    CPoint const topLeft = {0, 10}, bottomRight = {20, 40};
    mgXform_c const zoom = mg_ZoomBoxToBox(topLeft, bottomRight, point, point, mgXform_c(), 1.0);
    if (!(point * zoom == mgPoint_c(10, 25, 0))) return 7;

    // The same object under the name without operations.
    CArchive &plain = document;
    point.save(plain);
    pointBack.set(0, 0, 0);
    pointBack.restore(plain);
    return pointBack == point ? 0 : 8;
}
