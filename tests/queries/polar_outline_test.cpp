// SPDX-License-Identifier: MIT
// Polar edges: seams, poles, repeated points and steps back.

#include "common/geometry.h"

#include <vexmath/mg_planar.h>
#include <vexmath/point.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/tolerances.h>

#include <utility>
#include <vector>

namespace {

using support::above, support::kNaN;
using Polar = std::pair<double, double>; // angle, radius
using List = std::vector<Polar>;
using Edge = suDynamicArray<mgPoint_c>;
constexpr double turn = vexmath::kTwoPiExact, half = turn / 2;

Edge edgeOf(List const &list) {
    Edge edge;
    for (auto const &[angle, radius] : list) edge.Add(mgPoint_c(angle, radius, edge.Count()));
    return edge;
}

/// The z of a point is its index in the given list.
void CheckEdge(List const &expected, std::vector<int> const &kept, List const &given,
               int (*function)(Edge &, double) = mg_cleanupPolarEdge, double tol = 0.01,
               support::Caller = {}) {
    Edge edge = edgeOf(given);
    EXPECT_EQ(static_cast<int>(expected.size()), function(edge, tol));
    ASSERT_EQ(static_cast<int>(expected.size()), edge.Count());
    for (int i = 0; i < edge.Count(); ++i) {
        auto const &[angle, radius] = expected[static_cast<std::size_t>(i)];
        EXPECT_NEAR(angle, edge[i].x(), 1e-12) << i;
        EXPECT_EQ(radius, edge[i].y()) << i;
        EXPECT_EQ(kept[static_cast<std::size_t>(i)], edge[i].z());
    }
}

TEST(PolarEdge, IsContinuousAcrossTheSeam) {
    CheckEdge({{5, 1}, {6, 1}, {0.2 + turn, 1}, {1 + turn, 1}}, {0, 1, 2, 3},
              {{5, 1}, {6, 1}, {0.2, 1}, {1, 1}});
    CheckEdge({{0.5, 1}, {-0.3, 1}, {-1, 1}}, {0, 1, 2}, {{0.5, 1}, {turn - 0.3, 1}, {-1, 1}});
    CheckEdge({{1, 1}, {1.5, 1}}, {0, 1}, {{1, 1}, {1.5 - 3 * turn, 1}});
    // Half a turn is no jump, with 13 decimals either; a little more is one.
    for (double const step : {half, -half, vexmath::kPi, -vexmath::kPi, vexmath::kHalfTurnBound})
        CheckEdge({{0, 1}, {step, 1}}, {0, 1}, {{0, 1}, {step, 1}});
    double const beyond = above(vexmath::kHalfTurnBound);
    CheckEdge({{0, 1}, {beyond - turn, 1}}, {0, 1}, {{0, 1}, {beyond, 1}});
}

TEST(PolarEdge, PointsAtThePoleTakeTheAngleOfTheirNeighbour) {
    CheckEdge({{2, 0}, {2, 5}, {2, 0.01}, {1, 5}}, {0, 1, 2, 3},
              {{9, 0}, {2, 5}, {7, 0.01}, {1, 5}});
    CheckEdge({{2, -0.005}, {2, 5}}, {0, 2}, {{7, -0.005}, {8, 0}, {2, 5}});
    CheckEdge({{9, 0}}, {0}, {{9, 0}, {7, 0}, {8, 0.01}}); // all at the pole
    double const off = above(0.01);
    CheckEdge({{2, 5}, {1, off}}, {0, 1}, {{2, 5}, {1, off}});
    CheckEdge({{2, 5}, {2, 0.0}, {1, 4}}, {0, 1, 2}, {{2, 5}, {1, 0}, {1, 4}}, mg_cleanupPolarEdge,
              0.0);
}

TEST(PolarEdge, RepeatedPointsAreDroppedUpToTheTolerance) {
    // 2^-7 = 0.0078125: by radius, and by the arc at the larger radius.
    double const tol = 0.0078125;
    CheckEdge({{1, 4}}, {0}, {{1, 4}, {1, 4 + tol}, {1 + tol / 8, 4}}, mg_cleanupPolarEdge, tol);
    CheckEdge({{1, 4}, {1, above(4 + tol)}}, {0, 1}, {{1, 4}, {1, above(4 + tol)}},
              mg_cleanupPolarEdge, tol);
    CheckEdge({{1, 8}}, {0}, {{1, 8}, {1 + tol / 8, 8}}, mg_cleanupPolarEdge, tol);
    CheckEdge({{1, 8}, {above(1 + tol / 8), 8}}, {0, 1}, {{1, 8}, {above(1 + tol / 8), 8}},
              mg_cleanupPolarEdge, tol);
    CheckEdge({{1, 8}}, {0}, {{1, 8}, {1 + turn, 8}}); // a jump, not a circle
    for (double const negative : {-5.0, kNaN}) {
        CheckEdge({{1, 1}}, {0}, {{1, 1}, {1, 1 + 9e-9}}, mg_cleanupPolarEdge, negative);
        CheckEdge({{1, 1}, {1, 1 + 2e-8}}, {0, 1}, {{1, 1}, {1, 1 + 2e-8}}, mg_cleanupPolarEdge,
                  negative);
    }
}

TEST(PolarEdge, AConvolutionLosesItsStepsBack) {
    auto *const fix = mg_fixPolarConvolution;
    for (double const way : {1.0, -1.0}) { // both directions
        auto const check = [&](List expected, std::vector<int> const &kept, List given,
                               double tol = 0.01, support::Caller = {}) {
            for (List *list : {&expected, &given})
                for (Polar &p : *list) p.first *= way;
            CheckEdge(expected, kept, given, fix, tol);
        };
        check({{0, 5}, {1, 6}, {2, 5}, {3, 5}}, {0, 1, 3, 4},
              {{0, 5}, {1, 6}, {0.5, 7}, {2, 5}, {3, 5}});
        check({{0, 5}, {1, 5}, {1, 7}, {2, 7}}, {0, 1, 2, 3}, {{0, 5}, {1, 5}, {1, 7}, {2, 7}});
        check({{0, 3}, {1, 5}, {2, 5}, {3, 3}}, {0, 1, 2, 5}, // beyond the end
              {{0, 3}, {1, 5}, {2, 5}, {3.5, 5}, {3.2, 5}, {3, 3}});
        check({{0, 5}, {2, 5}}, {0, 3}, {{0, 5}, {-0.5, 5}, {-0.2, 6}, {2, 5}}); // before the start
        // Both ends of a closed outline overlap at the seam; the last step crosses it.
        check({{0, 5}, {2, 5}, {4, 5}, {6, 5}, {turn, 5}}, {0, 2, 3, 4, 6},
              {{0, 5}, {-0.25, 6}, {2, 5}, {4, 5}, {6, 5}, {6.5, 6}, {0, 5}});
        // An arc of at most tol at the point's radius: the point stays, at the end of the range.
        check({{0, 5}, {1, 5}, {1, 8}, {2, 5}}, {0, 1, 2, 3},
              {{0, 5}, {1, 5}, {0.9990234375, 8}, {2, 5}}, 0.0078125);
        check({{0, 5}, {1, 5}, {2, 5}}, {0, 1, 3},
              {{0, 5}, {1, 5}, {0.9990234375, above(8)}, {2, 5}}, 0.0078125);
        check({{0, 0}, {0, 5}, {1, 5}, {1, 0}}, {0, 1, 2, 3}, {{9, 0}, {0, 5}, {1, 5}, {3, 0}});
        List const beside{{0, 5}, {0.3, 6}, {0, 7}, {-0.3, 6}, {0, 5}}; // has no direction
        check(beside, {0, 1, 2, 3, 4}, beside);
    }
}

TEST(PolarEdge, ResultsHoldForAllEdges) {
    support::Random random;
    for (int round = 0; round < 5000; ++round) {
        List list, shifted;
        double angle = random.uniform(-3, 3);
        for (int i = 1 + random.below(20); i > 0; --i) {
            double const radius = random.below(5) ? random.uniform(0.5, 9) : 0.0;
            list.emplace_back(angle, radius);
            shifted.emplace_back(angle + turn * random.below(5), radius);
            angle += random.uniform(-0.5, 1.5);
        }
        Edge edge = edgeOf(list), other = edgeOf(shifted);
        mg_cleanupPolarEdge(edge, 1e-6);
        mg_cleanupPolarEdge(other, 1e-6);
        ASSERT_EQ(edge.Count(), other.Count()); // whole turns do not matter
        for (int i = 0; i < edge.Count(); ++i)
            ASSERT_NEAR(edge[i].x() - edge[0].x(), other[i].x() - other[0].x(), 1e-12);
        Edge fixed = edge;
        int const count = mg_fixPolarConvolution(fixed, 1e-6);
        ASSERT_EQ(edge[0].z(), fixed[0].z());
        double const way = fixed[count - 1].x() - fixed[0].x();
        for (int i = 1; i < count && count < edge.Count(); ++i)
            ASSERT_GE((fixed[i].x() - fixed[i - 1].x()) * way, 0.0);
        for (auto *function : {mg_cleanupPolarEdge, mg_fixPolarConvolution}) {
            Edge again = fixed;
            ASSERT_EQ(count, function(again, 1e-6)); // nothing is left to do
            for (int i = 0; i < count; ++i) ASSERT_BITS_EQ(fixed[i], again[i]);
        }
    }
}

TEST(PolarEdge, TellsOfItsPointsAndRefusesHostileOnes) {
    struct Listening : Edge {
        void elementsChanged(int first, int last) override { told.emplace_back(first, last); }
        std::vector<std::pair<int, int>> told;
    };
    for (auto *function : {mg_cleanupPolarEdge, mg_fixPolarConvolution}) {
        Listening edge;
        EXPECT_EQ(0, function(edge, 0.1));
        for (double const angle : {0.0, 1.0, 1.0}) edge.Add(mgPoint_c(angle, 1, 0));
        edge.told.clear();
        EXPECT_EQ(2, function(edge, 0.1));
        EXPECT_EQ((decltype(edge.told){{0, 1}}), edge.told);

        support::Random random;
        for (int round = 0; round < 3000; ++round) {
            Listening hostile;
            bool isUsable = true;
            for (int i = 0; i < 5; ++i) {
                mgPoint_c const p(random.hostile(), random.hostile(), kNaN);
                hostile.Add(p);
                isUsable = isUsable && std::fabs(p.x()) <= 1e150 && std::fabs(p.y()) <= 1e150;
            }
            Edge const given = hostile;
            int const count = function(hostile, random.hostile());
            ASSERT_EQ(isUsable, count > 0);
            ASSERT_EQ(isUsable ? count : 5, hostile.Count());
            for (int i = 0; i < 5 && !isUsable; ++i) ASSERT_BITS_EQ(given[i], hostile[i]);
        }
    }
}

} // namespace
