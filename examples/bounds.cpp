// SPDX-License-Identifier: MIT
// Bounds: enclose an array of points, then place the points or their box.

#include <cmath>
#include <cstdio>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/bulk.h>
#include <vexmath/mg_transform.h>
#include <vexmath/tolerances.h>

namespace {

/// A coil spring about the z axis: radius 10, height 60, six turns of sixty points each.
std::vector<mgPoint_c> spring() {
    std::vector<mgPoint_c> points;
    for (int i = 0; i <= 360; ++i) {
        double const angle = i * vexmath::kTwoPi / 60.0;
        points.emplace_back(10.0 * std::cos(angle), 10.0 * std::sin(angle), i / 6.0);
    }
    return points;
}

/// One call for all points: the same bits as `box |= point` for each, and faster.
mgBBox_c boundsOf(std::vector<mgPoint_c> const &points) {
    mgBBox_c box; // unset: it encloses nothing yet
    mg_BoundPoints(points.data(), static_cast<int>(points.size()), box);
    return box;
}

void print(char const *what, mgBBox_c const &box) {
    mgPoint_c const low = box.low();
    mgPoint_c const high = box.high();
    std::printf("%-16s x %g to %g, y %g to %g, z %g to %g, sphere radius %g\n", what, low.x(),
                high.x(), low.y(), high.y(), low.z(), high.z(), box.sphRadius());
}

} // namespace

int main() {
    std::vector<mgPoint_c> points = spring();
    mgBBox_c const drawn = boundsOf(points);
    print("as drawn", drawn);

    mgXform_c const placement = mg_RotateXform(vexmath::kPi / 6.0, mgUnitVector_c::xAxis(), 0.0)
                                * mg_TranslateXform(mgVector_c(100.0, 0.0, 0.0));

    // Placing the box is quick. The new box encloses the old one, so it is larger than necessary.
    mgBBox_c placed = drawn;
    placed *= placement;
    print("box placed", placed);

    // Placing every point and bounding them again gives the tight box.
    mg_TransformPoints(points.data(), static_cast<int>(points.size()), placement);
    print("points placed", boundsOf(points));

    // A union encloses both. The default box is unset and adds nothing.
    mgBBox_c both = drawn;
    both |= placed;
    both |= mgBBox_c();
    print("both together", both);
}
