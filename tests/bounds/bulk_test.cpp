// SPDX-License-Identifier: MIT
// The box of an array of points, against the loop over the single operation.

#include <vector>

#include "bounds/boxes.h"

namespace {

using namespace common;

/// Lists whose sphere stops growing soon, grows to the end, or becomes invalid on the way.
std::vector<P> anyList(Random &random) {
    int const style = random.below(4);
    std::vector<P> points(static_cast<std::size_t>(random.below(4) == 0 ? 400 : 18));
    points.resize(points.size() - static_cast<std::size_t>(random.below(18)));
    double const size = random.below(4) == 0 ? std::fabs(random.hostile()) : 10.0;
    double const side = random.below(2) == 0 ? 1.0 : -1.0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        P &p = points[i];
        p = random.triple<P>(-1.0, 1.0);
        if (style == 1) p = p * static_cast<double>(i);
        if (style == 2) // zeros of both signs as extremes
            for (int k = 0; k < 3; ++k)
                p[k] = random.below(2) == 0 ? side : std::copysign(0.0, p[k]);
        else
            p = p * size;
        if (style == 3 && random.below(20) == 0) p[random.below(3)] = random.hostile();
    }
    return points;
}

/// Unset, a point, ordinary, huge, invalid, or on one side of the centre of its sphere.
mgBBox_c anyBox(Random &random) {
    P const p = random.triple<P>(-5.0, 5.0);
    mgBBox_c const aside = boxOf(P(), 10, P(1, 1, 1), P(6, 6, 6));
    mgBBox_c const opposite = boxOf(P(), 10, P(-6, -6, -6), P(-1, -1, -1));
    mgBBox_c const boxes[] = {{}, {p, p}, {p, 3}, {p, 1e9}, boxOf(p, 1, P(), p), aside, opposite};
    mgBBox_c const box = boxes[random.below(7)];
    return random.below(4) == 0 ? withDouble(box, random.below(10), random.hostile()) : box;
}

TEST(Bulk, BoundsAreThoseOfTheLoopToTheBit) {
    Random random;
    for (int round = 0; round < 8000; ++round) {
        std::vector<P> const points = anyList(random);
        mgBBox_c box = anyBox(random), expected = box;
        for (P const &p : points) expected |= p;
        mg_SetUseVectorUnits(round % 2);
        mg_BoundPoints(points.data(), static_cast<int>(points.size()), box);
        ASSERT_BITS_EQ(expected, box) << "round " << round;
    }
    mg_SetUseVectorUnits(1);
    mgBBox_c box;
    for (int const none : {0, -3}) mg_BoundPoints(nullptr, none, box);
    EXPECT_BITS_EQ(mgBBox_c(), box);
}

} // namespace
