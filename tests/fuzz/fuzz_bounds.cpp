// SPDX-License-Identifier: MIT
// Boxes of any numbers, grown, placed and compared: nothing loops, traps or reads out of bounds.

#include "numbers_from_bytes.h"

#include <vexmath/bbox.h>
#include <vexmath/general_box.h>
#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>
#include <vexmath/plane.h>
#include <vexmath/xform.h>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size) {
    NumbersFromBytes in(data, size);

    double angle = in.next();
    mg_PutAngleInRange(&angle, nullptr);
    double parameter = in.next(), end = in.next();
    mg_PutParamInRange(&parameter, in.next(), &end);

    auto const zDir = in.triple<mgUnitVector_c>(), xDir = in.triple<mgUnitVector_c>();
    auto const move = in.triple<mgVector_c>();
    mgXform_c const frame(zDir, xDir, move);
    mgXform_c const placement = mg_RestoreXform(frame.rotation(), move, in.next());

    mgBBox_c box, other(in.triple<mgPoint_c>(), in.next());
    while (!in.empty()) {
        box |= in.triple<mgPoint_c>();
        if (box.isValid()) other |= box;
    }
    mgBBox_c::clash(box, placement, other, frame);
    box.clash(&other, in.next());
    box.containsBBox(&other, 0.01);

    mgPoint_c hit = move;
    mgPlane_c const plane(hit, zDir);
    box.clash(plane, parameter);
    box.clashLine(&hit, &hit, parameter);
    box.isRayHit(hit, xDir);
    box.getFirstRayHit(hit, xDir, &hit);
    mgParallelogram_c outline;
    mgGeneralBox_c const block(hit, xDir, zDir, angle, parameter, end);
    block.projectToPlane(plane, outline);
    outline.isPointInside(hit);

    box *= placement.inverse() * frame;
    box += parameter;
    box &= other;
    return 0;
}
