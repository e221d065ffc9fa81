// SPDX-License-Identifier: MIT
// Placements: put a part into an assembly, and go back to the part's own coordinates.

#include <cmath>
#include <cstdio>

#include <vexmath/mg_transform.h>
#include <vexmath/tolerances.h>

namespace {

/// Angles this close to a quarter turn, in radians, give a matrix of exact zeros and ones.
constexpr double kSnap = 1e-9;

void print(char const *what, mgVector_c const &v) {
    auto const rounded = [](double value) { return std::round(value * 1e6) / 1e6 + 0.0; };
    std::printf("%-34s (%g, %g, %g)\n", what, rounded(v.x()), rounded(v.y()), rounded(v.z()));
}

} // namespace

int main() {
    mgPoint_c const tip(2.0, 0.0, 0.0);
    mgVector_c const edge(2.0, 0.0, 0.0);
    mgUnitVector_c const normal = mgUnitVector_c::xAxis();

    // `a * b` means a first, then b: the product reads in the order of the steps.
    mgXform_c const scale = mg_ScaleXform(25.4); // inches to millimetres
    mgXform_c const rotation = mg_RotateXform(vexmath::kHalfPi, mgUnitVector_c::zAxis(), kSnap);
    mgXform_c const translation = mg_TranslateXform(mgVector_c(100.0, 0.0, 0.0));
    mgXform_c const placement = scale * rotation * translation;

    print("point: scaled, rotated, moved", tip * placement);
    print("vector: scaled and rotated", edge * placement);
    mgUnitVector_c direction = normal;
    direction *= placement;
    print("direction: rotated", direction);
    print("the other order of the steps", tip * (translation * rotation * scale));

    // The inverse takes a point of the assembly back into the part.
    print("there and back", tip * placement * placement.inverse());

    // A mirrored part: the x coordinate changes its sign. The transform remembers the mirror.
    mgXform_c const mirrored = mg_XReflectionXform() * placement;
    print("mirrored first", tip * mirrored);
    std::printf("%-34s %d\n", "flagged as a mirror", mirrored.isReflection());

    // Lay one face onto another: the plane z = 0 of the part onto the plane x = 50, facing x.
    mgXform_c const onFace = mg_PlaneToPlane(mgPoint_c(0, 0, 0), mgVector_c(0, 0, 1),
                                             mgPoint_c(50, 0, 0), mgVector_c(1, 0, 0));
    print("3 above the face, after the mate", mgPoint_c(0, 0, 3) * onFace);
}
