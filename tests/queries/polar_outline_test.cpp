// SPDX-License-Identifier: MIT
// Polar edges: seams, poles, repeated points and steps back. Any edges: fuzz/fuzz_drawing.cpp.

#include "planar.h"

namespace {

using Polar = std::pair<double, double>; // angle, radius
using List = std::vector<Polar>;
using Kept = std::vector<std::pair<double, std::size_t>>; // angle, index in the list given
constexpr double half = kTurn / 2;
using Function = decltype(mg_cleanupPolarEdge);

void CheckEdge(Function function, double tol, List const &given, Kept const &expected) {
    Watched<P> edge;
    for (auto const &[angle, radius] : given) edge.Add(P(angle, radius, edge.Count()));
    EXPECT_EQ(static_cast<int>(expected.size()), function(edge, tol));
    ASSERT_EQ(static_cast<int>(expected.size()), edge.Count());
    P const *p = edge.Data();
    for (auto const &[angle, index] : expected) {
        EXPECT_NEAR(angle, p->x(), 1e-12) << index;
        EXPECT_EQ(Polar(given[index].second, index), Polar(p->y(), p->z()));
        ++p;
    }
}

void CheckClean(List const &given, Kept const &expected, double tol = 0.01, Caller = {}) {
    CheckEdge(mg_cleanupPolarEdge, tol, given, expected);
}

/// In both directions.
void CheckFixed(List given, Kept expected, double tol = 0.01, Caller = {}) {
    for (int way = 0; way < 2; ++way) {
        CheckEdge(mg_fixPolarConvolution, tol, given, expected);
        for (auto &p : given) p.first *= -1;
        for (auto &p : expected) p.first *= -1;
    }
}

TEST(PolarEdge, IsContinuousAcrossTheSeam) {
    CheckClean({{5, 1}, {6, 1}, {0.2, 1}, {1, 1}},
               {{5, 0}, {6, 1}, {0.2 + kTurn, 2}, {1 + kTurn, 3}});
    CheckClean({{1, 1}, {1.5 - 3 * kTurn, 1}}, {{1, 0}, {1.5, 1}});
    CheckClean({{0, 1e150}, {1e150, 0}}, {{0, 0}, {0, 1}}); // the largest numbers
    // Half a turn is no jump, with 13 decimals either; a little more is one.
    for (double const step : {half, -half, vexmath::kPi, -vexmath::kPi, vexmath::kHalfTurnBound})
        CheckClean({{0, 1}, {step, 1}}, {{0, 0}, {step, 1}});
    double const beyond = above(vexmath::kHalfTurnBound);
    CheckClean({{0, 1}, {beyond, 1}}, {{0, 0}, {beyond - kTurn, 1}});
}

TEST(PolarEdge, PointsAtThePoleTakeTheAngleOfTheirNeighbour) {
    CheckClean({{9, 0}, {2, 5}, {7, 0.01}, {1, 5}}, {{2, 0}, {2, 1}, {2, 2}, {1, 3}});
    CheckClean({{7, -0.005}, {8, 0}, {2, 5}}, {{2, 0}, {2, 2}});
    CheckClean({{9, 0}, {7, 0}, {8, 0.01}}, {{9, 0}}); // all at the pole
    CheckClean({{2, 5}, {1, above(0.01)}}, {{2, 0}, {1, 1}});
    CheckClean({{2, 5}, {3, 0.0}, {1, 4}}, {{2, 0}, {2, 1}, {1, 2}}, 0.0);
}

TEST(PolarEdge, RepeatedPointsAreDroppedUpToTheTolerance) {
    double const tol = 0x1p-7; // by radius, and by the arc at the larger radius
    CheckClean({{1, 4}, {1, 4 + tol}, {1 + tol / 8, 4}}, {{1, 0}}, tol);
    CheckClean({{1, 4}, {1, above(4 + tol)}}, {{1, 0}, {1, 1}}, tol);
    CheckClean({{1, 8}, {1 + tol / 8, 8}}, {{1, 0}}, tol);
    CheckClean({{1, 4}, {1 + tol / 4, 4 + tol}}, {{1, 0}, {1 + tol / 4, 1}}, tol);
    CheckClean({{1, 4 + tol}, {1 + tol / 4, 4}}, {{1, 0}, {1 + tol / 4, 1}}, tol);
    CheckClean({{1, 8}, {above(1 + tol / 8), 8}}, {{1, 0}, {above(1 + tol / 8), 1}}, tol);
    CheckClean({{1, 8}, {1 + kTurn, 8}}, {{1, 0}}); // a jump, not a circle
    for (double const negative : {-5.0, kNaN})
        CheckClean({{1, 1}, {1, 1 + 9e-9}, {1, 1 + 2e-8}}, {{1, 0}, {1, 2}}, negative);
}

TEST(PolarEdge, AConvolutionLosesItsStepsBack) {
    CheckFixed({{0, 5}, {1, 6}, {0.5, 7}, {2, 5}, {3, 5}}, {{0, 0}, {1, 1}, {2, 3}, {3, 4}});
    CheckFixed({{0, 5}, {1, 5}, {1, 7}, {2, 7}}, {{0, 0}, {1, 1}, {1, 2}, {2, 3}});
    CheckFixed({{0, 3}, {1, 5}, {2, 5}, {3.5, 5}, {3.2, 5}, {3, 3}}, // beyond the end
               {{0, 0}, {1, 1}, {2, 2}, {3, 5}});
    // Both ends of a closed outline overlap at the seam; the last step crosses it.
    CheckFixed({{0, 5}, {-0.25, 6}, {2, 5}, {4, 5}, {6, 5}, {6.5, 6}, {0, 5}},
               {{0, 0}, {2, 2}, {4, 3}, {6, 4}, {kTurn, 6}});
    // An arc of at most tol at the point's radius: the point stays, at the end of the range.
    double const back = 1 - 0x1p-10;
    CheckFixed({{0, 5}, {1, 5}, {back, 8}, {2, 5}}, {{0, 0}, {1, 1}, {1, 2}, {2, 3}}, 0x1p-7);
    CheckFixed({{0, 5}, {1, 5}, {back, above(8)}, {2, 5}}, {{0, 0}, {1, 1}, {2, 3}}, 0x1p-7);
    CheckFixed({{9, 0}, {0, 5}, {1, 5}, {3, 0}}, {{0, 0}, {0, 1}, {1, 2}, {1, 3}});
    CheckFixed({{0, 5}, {0.3, 6}, {0, 7}, {-0.3, 6}, {0, 5}}, // has no direction
               {{0, 0}, {0.3, 1}, {0, 2}, {-0.3, 3}, {0, 4}});
    double const tol = 0x1p-7; // of the arc between the ends, at the largest radius
    CheckFixed({{0, 5}, {1, 8}, {tol / 8, 5}}, {{0, 0}, {1, 1}, {tol / 8, 2}}, tol);
    CheckFixed({{0, 5}, {1, 8}, {above(tol / 8), 5}}, {{0, 0}}, tol);
}

TEST(PolarEdge, TellsOfItsPointsUnlessItRefusesThem) {
    for (auto *function : {mg_cleanupPolarEdge, mg_fixPolarConvolution})
        for (double const radius : {1e150, above(1e150), kNaN}) {
            Watched<P> edge({{0, 1, 0}, {1, radius, 0}});
            bool const isUsable = radius <= 1e150;
            EXPECT_EQ(isUsable ? 2 : 0, function(edge, 0.01));
            EXPECT_EQ((isUsable ? Changes{{0, 1}} : Changes{}), edge.told);
            EXPECT_EQ(2, edge.Count());
        }
}

} // namespace
