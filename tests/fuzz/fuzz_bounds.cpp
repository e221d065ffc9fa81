// SPDX-License-Identifier: MIT
// Boxes of any numbers, grown, placed and compared: nothing loops, traps or reads out of bounds.

#include <vexmath/vexmath.h>

#include <fuzzer/FuzzedDataProvider.h>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    // The bytes are the numbers, so that NaN, infinity and subnormals occur. After the last byte
    // come zeros.
    auto const number = [&in] {
        double value = 0.0;
        in.ConsumeData(&value, sizeof value);
        return value;
    };
    auto const vector = [&in] {
        mgVector_c v;
        in.ConsumeData(&v, sizeof v);
        return v;
    };

    double angle = number();
    mg_PutAngleInRange(&angle, nullptr);
    double parameter = number(), end = number();
    mg_PutParamInRange(&parameter, number(), &end);

    mgUnitVector_c const zDir = mg_Normalise(vector()), xDir = mg_Normalise(vector());
    mgVector_c const move = vector();
    mgXform_c const frame(zDir, xDir, move);
    mgXform_c const placement = mg_RestoreXform(frame.rotation(), move, number());

    mgBBox_c box, other(vector(), number());
    while (in.remaining_bytes() > 0) {
        box |= mgPoint_c(vector());
        if (box.isValid()) other |= box;
    }
    mgBBox_c::clash(box, placement, other, frame);
    box.clash(&other, number());
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
