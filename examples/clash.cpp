// SPDX-License-Identifier: MIT
// Clash: which placed parts are clear of each other, as far as their boxes tell.

#include <cstdio>
#include <iterator>

#include <vexmath/bbox.h>
#include <vexmath/mg_transform.h>
#include <vexmath/tolerances.h>

namespace {

/// A part: its box in its own coordinates, and where it stands.
struct Part {
    char const *name;
    mgBBox_c box;
    mgXform_c placement;
};

/// The box in the assembly, with sides along the axes: wider where the part is tilted.
mgBBox_c inAssembly(Part const &part) {
    mgBBox_c box = part.box;
    box *= part.placement;
    return box;
}

/// Grows both boxes by half the tolerance and tests them in each other's frame.
bool clash(Part const &a, Part const &b, double tolerance) {
    mgBBox_c boxA = a.box;
    mgBBox_c boxB = b.box;
    boxA += 0.5 * tolerance;
    boxB += 0.5 * tolerance;
    return mgBBox_c::clash(boxA, a.placement, boxB, b.placement) != 0;
}

void print(Part const &a, Part const &b) {
    mgBBox_c const boxA = inAssembly(a);
    mgBBox_c const boxB = inAssembly(b);
    std::printf("%-5s %-5s  boxes along the axes %-5s  boxes as placed %-5s  within 0.5 %s\n",
                a.name, b.name, boxA.clash(&boxB, 0.0) ? "clash" : "clear",
                clash(a, b, 0.0) ? "clash" : "clear", clash(a, b, 0.5) ? "clash" : "clear");
}

} // namespace

int main() {
    mgXform_c const tilt = mg_RotateXform(-0.25 * vexmath::kPi, mgUnitVector_c::xAxis(), 0.0);
    Part const parts[] = {
        {"gear", {mgPoint_c(-8, -32, -32), mgPoint_c(8, 32, 32)}, {}},
        {"lever",
         {mgPoint_c(-6, -6, -33), mgPoint_c(6, 6, 33)},
         tilt * mg_TranslateXform(mgVector_c(0, -40, 40))},
        {"key", {mgPoint_c(-7, -2, 0), mgPoint_c(7, 2, 5)}, mg_TranslateXform({0, 0, 8})},
        {"cover", {mgPoint_c(-40, -40, 0), mgPoint_c(40, 40, 4)}, mg_TranslateXform({0, 0, 32.2})}};

    for (std::size_t i = 0; i < std::size(parts); ++i) {
        for (std::size_t j = i + 1; j < std::size(parts); ++j) print(parts[i], parts[j]);
    }

    // Containment: is the second box, at its full size, strictly inside the first?
    mgBBox_c const key = inAssembly(parts[2]);
    std::printf("the gear's box contains the key's: %d\n", parts[0].box.containsBBox(&key, 0.0));
}
