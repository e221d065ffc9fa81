// SPDX-License-Identifier: MIT
// Hatch lines against areas and across common edges. Against a scan: fuzz/fuzz_drawing.cpp.

#include "planar.h"

namespace {

using Outline = std::vector<P>;

P const o;

struct Lattice {
    P origin;
    double angle = 0.0, spacing = 1.0;
};

/// The ends of the lines, two for each.
Outline hatch(std::vector<Outline> const &outlines, Lattice const &lattice) {
    std::vector<int> counts;
    Outline all;
    for (Outline const &outline : outlines) {
        counts.push_back(static_cast<int>(outline.size()));
        all.insert(all.end(), outline.begin(), outline.end());
    }
    Watched<P> lines;
    int const count =
        mg_calcHatchLinesPolygon2D(static_cast<int>(counts.size()), counts.data(), all.data(),
                                   lattice.origin, lattice.angle, lattice.spacing, lines);
    EXPECT_EQ(2 * count, lines.Count());
    return lines.list();
}

double lengthOf(Outline const &ends) {
    double sum = 0.0;
    for (std::size_t i = 0; i < ends.size(); i += 2) sum += dist(ends[i], ends[i + 1]);
    return sum;
}

TEST(HatchLines, TheirLengthIsTheAreaBySpacing) {
    Watched<P> lines;
    EXPECT_LT(0, mg_calcHatchLinesRect2D({1, 5, 4, 3}, {1, 2, 0}, 0.7, 0.001, lines));
    EXPECT_NEAR(6.0, lengthOf(lines.list()) * 0.001, 2e-3);
    EXPECT_LT(0, mg_calcHatchLinesCircle2D({5, 6, 9}, 2, {1, 2, 0}, 0.7, 0.001, lines));
    EXPECT_NEAR(4.0 * vexmath::kPi, lengthOf(lines.list()) * 0.001, 2e-3);
    for (P const &end : lines.list()) ASSERT_NEAR(2.0, dist(end, {5, 6, 0}), 1e-12);
}

TEST(HatchLines, ALineOnACornerOrAnEdgeBelongsToTheAreaAbove) {
    auto const check = [](int count, Outline const &outline, double angle = 0.0, Caller = {}) {
        EXPECT_EQ(2 * count, static_cast<int>(hatch({outline}, {o, angle, 1.0}).size()));
    };
    Outline const square{{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}};
    check(2, square); // at the heights 0 and 1, not 2
    for (double const quarter : {vexmath::kHalfPi, std::acos(0.0), -vexmath::kThreeHalfPi})
        check(2, square, quarter);                     // at x = 2 and 1, not 0: the heights are -x
    for (double const angle : {-1e-13, -below(1e-13)}) // the second becomes 0
        check(angle == -1e-13 ? 2 : 1, {{0, 0.5, 0}, {2, 0.5, 0}, {2, 2, 0}, {0, 2, 0}}, angle);
    check(2, {{0, -1, 0}, {1, 0, 0}, {2, -1, 0}, {1, 2, 0}}); // the notch at 0 divides no line
    check(0, {{0, 0, 0}, {5, 5, 0}});
    auto const circle = [](int count, double radius, Caller = {}) {
        Watched<P> lines;
        for (double const angle : {0.0, vexmath::kHalfPi})
            EXPECT_EQ(count, mg_calcHatchLinesCircle2D(o, radius, o, angle, 1.0, lines));
    };
    circle(3, 2.0), circle(3, below(2.0)), circle(5, above(2.0)); // tangents give none
    circle(1, 0.05), circle(1, 1e-9);
    for (double const radius : {0.0, -1.0, kNaN, kInfinity}) circle(0, radius);
}

TEST(HatchLines, TheFirstLineIsFoundInSpiteOfRounding) {
    auto const check = [](double line, double low, Caller = {}) {
        Outline const ends = hatch({{{0, low, 0}, {2, low, 0}, {0, 2, 0}}}, {o, 0, 0.1});
        EXPECT_NEAR(line * 0.1, ends[0].y(), 1e-12);
    };
    check(3, 3 * 0.1), check(10, above(9 * 0.1)); // the quotients round to above 3, and to 9
}

TEST(HatchLines, NeighboursMatchAtTheirCommonEdge) {
    Random random;
    for (int round = 0; round < 500; ++round) {
        bool const onGrid = round % 2 == 0; // corners and edges on lattice lines
        auto const point = [&](double x, double y) {
            return onGrid ? P(x + random.below(3), y + random.below(3), 0)
                          : P(x + random.uniform(0, 3), y + random.uniform(0, 3), 0);
        };
        Outline const q{point(0, 0), point(6, 0), point(6, 6), point(0, 6)};
        Outline const half{q[0], q[1], q[2]}, other{q[0], q[2], q[3]};
        double const angle =
            onGrid ? random.below(8) * vexmath::kHalfPi / 2 : random.uniform(-4, 4);
        Lattice const lattice{point(0, 0), angle, onGrid ? 0.5 : random.uniform(0.2, 1)};
        Outline const whole = hatch({q}, lattice);
        Outline const a = hatch({half}, lattice), b = hatch({other}, lattice);
        ASSERT_EQ(whole.size(), hatch({half, other}, lattice).size());
        ASSERT_NEAR(lengthOf(whole), lengthOf(a) + lengthOf(b), 1e-9);
        auto const holds = [](Outline const &lines, P const &p) {
            return std::any_of(lines.begin(), lines.end(),
                               [&p](P const &end) { return sameBits(end, p); });
        };
        for (P const &p : a) ASSERT_TRUE(holds(whole, p) || holds(b, p));
        for (P const &p : b) ASSERT_TRUE(holds(whole, p) || holds(a, p));
    }
}

TEST(HatchLines, AnUnusableLatticeEmptiesTheList) {
    auto const check = [](int count, double height, double spacing, double angle = 0.0,
                          double low = 0.0, Caller = {}) {
        Watched<P> lines({o});
        EXPECT_EQ(count, mg_calcHatchLinesRect2D({0, height, 2, low}, o, angle, spacing, lines));
        EXPECT_EQ(2 * count, lines.Count());
        EXPECT_EQ(count > 0, lines.Data() != nullptr);
    };
    check(1000000, 1e6, 1.0), check(0, above(1e6), 1.0), check(0, 1e6, below(1.0));
    for (double const spacing : {0.0, -0.0, -1.0, kNaN, kInfinity, -kInfinity, kTiny})
        check(0, 2.0, spacing), check(0, 0.0, spacing);
    for (double const angle : {kNaN, kInfinity}) check(0, 2.0, 1.0, angle);
    check(4, 3.5e-9, 1e-9), check(1, 2.0, 1e300), check(1, 1e150, 1e150),
        check(0, above(1e150), 1e150);
    check(1, 0x1p52, 1.0, 0.0, 0x1p52 - 1), check(0, 0x1p52 + 1, 1.0, 0.0, 0x1p52);
    Watched<P> lines;
    for (double const far : {-0x1p52, 0x1p52}) // with its radius out of reach
        EXPECT_EQ(0, mg_calcHatchLinesCircle2D({0, far, 0}, 2.0, o, 0.0, 1.0, lines));
    for (double const radius : {below(500000.5), 500000.5}) // from -1 on: one line more
        EXPECT_EQ(radius < 500000.5 ? 1000000 : 0,
                  mg_calcHatchLinesCircle2D({0, 499999.5, 0}, radius, o, 0.0, 1.0, lines));
    for (double const far : {1e150, above(1e150)})
        for (int const k : {0, 1, 2, 3}) { // a coordinate of the centre or of the origin
            P at[2];
            at[k / 2][k % 2] = far;
            EXPECT_EQ(far == 1e150,
                      mg_calcHatchLinesCircle2D(at[0], 1e150, at[1], 0.5, 1e149, lines) > 0);
        }
    EXPECT_EQ(0, mg_calcHatchLinesPolygon2D(0, nullptr, nullptr, {}, 0.0, 1.0, lines));
}

} // namespace
