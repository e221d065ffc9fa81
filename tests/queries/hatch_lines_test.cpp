// SPDX-License-Identifier: MIT
// Hatch lines against a test of points in areas, against areas, and across common edges.

#include "common/geometry.h"

#include <vexmath/mg_planar.h>
#include <vexmath/mg_vector.h>
#include <vexmath/rect.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/tolerances.h>

#include <vector>

namespace {

using support::kInfinity, support::kNaN;
using Outline = std::vector<mgPoint_c>;
using Lines = suDynamicArray<mgPoint_c>;

struct Lattice {
    mgPoint_c origin;
    double angle = 0.0, spacing = 1.0;
};

Lines hatch(std::vector<Outline> const &outlines, Lattice const &lattice) {
    std::vector<int> counts;
    Outline all;
    for (Outline const &outline : outlines) {
        counts.push_back(static_cast<int>(outline.size()));
        all.insert(all.end(), outline.begin(), outline.end());
    }
    Lines lines;
    int const count =
        mg_calcHatchLinesPolygon2D(static_cast<int>(counts.size()), counts.data(), all.data(),
                                   lattice.origin, lattice.angle, lattice.spacing, lines);
    EXPECT_EQ(2 * count, lines.Count());
    return lines;
}

double lengthOf(Lines const &lines) {
    double sum = 0.0;
    for (int i = 0; i < lines.Count(); i += 2) sum += dist(lines[i], lines[i + 1]);
    return sum;
}

/// By a ray along x, which has nothing to do with the lattice.
bool isInside(std::vector<Outline> const &outlines, double x, double y) {
    bool inside = false;
    for (Outline const &o : outlines)
        for (std::size_t i = 0; i < o.size(); ++i) {
            mgPoint_c const &a = o[i], &b = o[(i + 1) % o.size()];
            if ((a.y() > y) == (b.y() > y)) continue;
            if (a.x() + (y - a.y()) / (b.y() - a.y()) * (b.x() - a.x()) > x) inside = !inside;
        }
    return inside;
}

double boundaryDistance(std::vector<Outline> const &outlines, mgPoint_c const &p) {
    double least = kInfinity;
    for (Outline const &o : outlines)
        for (std::size_t i = 0; i < o.size(); ++i) {
            mgPoint_c foot;
            double t = 0.0;
            double const d = p.distToLine(o[i], o[(i + 1) % o.size()], &t, &foot);
            if (t >= 0.0 && t <= 1.0) least = std::min(least, d);
            least = std::min(least, dist(p, o[i]));
        }
    return least;
}

TEST(HatchLines, CoverWhatIsInsideOnEveryLine) {
    support::Random random;
    for (int round = 0; round < 25; ++round) {
        std::vector<Outline> outlines(1 + static_cast<std::size_t>(random.below(3)));
        for (Outline &o : outlines) // any shape: they cross each other and themselves
            for (int i = 3 + random.below(6); i > 0; --i)
                o.emplace_back(random.uniform(-4, 4), random.uniform(-4, 4), kNaN);
        for (Outline &o : outlines)
            for (mgPoint_c &p : o) p.set_z(0.0);
        Lattice const lattice{{random.uniform(-9, 9), random.uniform(-9, 9), 7.0},
                              random.uniform(-7, 7),
                              random.uniform(0.2, 2)};
        Lines const lines = hatch(outlines, lattice);
        mgVector_c const u(std::cos(lattice.angle), std::sin(lattice.angle), 0.0);
        mgVector_c const n(-u.y(), u.x(), 0.0);
        int next = 0;
        for (int k = -100; k <= 100; ++k) {
            double const height = k * lattice.spacing;
            int const first = next;
            while (next < lines.Count()
                   && std::fabs((lines[next] - lattice.origin) % n - height) < 1e-9) {
                ASSERT_EQ(7.0, lines[next].z());
                ASSERT_LT((lines[next] - lines[next + 1]) % u, 0.0);
                next += 2;
            }
            for (double t = -30.0; t < 30.0; t += 0.37) {
                mgPoint_c const p = lattice.origin + height * n + t * u;
                mgPoint_c const flat(p.x(), p.y(), 0.0);
                if (std::hypot(p.x(), p.y()) > 6.0) continue; // no corner is that far out
                if (boundaryDistance(outlines, flat) < 1e-6) continue;
                bool covered = false;
                for (int i = first; i < next; i += 2)
                    covered = covered || ((lines[i] - p) % u < 0 && (lines[i + 1] - p) % u > 0);
                ASSERT_EQ(isInside(outlines, p.x(), p.y()), covered) << "line " << k << " at " << t;
            }
        }
        ASSERT_EQ(lines.Count(), next); // all lie on the lattice, in order
    }
}

TEST(HatchLines, TheirLengthIsTheAreaBySpacing) {
    auto const check = [](double area, Lines const &lines, double spacing, support::Caller = {}) {
        EXPECT_NEAR(area, lengthOf(lines) * spacing, 2e-3 * area);
    };
    Lattice const fine{{1, 2, 0}, 0.7, 0.001};
    Outline const outer{{-1, 0, 0}, {3, -1, 0}, {4, 3, 0}, {0, 2, 0}}; // area 12
    Outline const hole{{0, 0.5, 0}, {1, 1.5, 0}, {2, 0.5, 0}};         // area 1
    check(12.0, hatch({outer}, fine), fine.spacing);
    check(11.0, hatch({outer, hole}, fine), fine.spacing);
    Lines lines;
    EXPECT_LT(0, mg_calcHatchLinesRect2D({1, 5, 4, 3}, fine.origin, 0.7, 0.001, lines));
    check(6.0, lines, 0.001);
    EXPECT_LT(0, mg_calcHatchLinesCircle2D({5, 6, 9}, 2, fine.origin, 0.7, 0.001, lines));
    check(4.0 * vexmath::kPi, lines, 0.001);
    for (int i = 0; i < lines.Count(); ++i) {
        ASSERT_NEAR(2.0, std::hypot(lines[i].x() - 5, lines[i].y() - 6), 1e-12);
        ASSERT_EQ(0.0, lines[i].z());
    }
}

TEST(HatchLines, ALineOnACornerOrAnEdgeBelongsToTheAreaAbove) {
    auto const check = [](int count, Outline const &outline, double angle = 0.0,
                          support::Caller = {}) {
        EXPECT_EQ(count, hatch({outline}, {{0, 0, 0}, angle, 1.0}).Count() / 2);
    };
    Outline const square{{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}};
    check(2, square); // at the heights 0 and 1, not 2
    for (double const quarter : {vexmath::kHalfPi, std::acos(0.0), -vexmath::kThreeHalfPi})
        check(2, square, quarter); // at x = 2 and 1, not 0: the heights are -x
    check(2, {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}, {0, 0, 0}}); // closed by a point
    check(1, {{0, 1, 0}, {1, 0, 0}, {2, 1, 0}, {1, 2, 0}});            // through two corners
    check(2, {{0, -1, 0}, {1, 0, 0}, {2, -1, 0}, {1, 2, 0}}); // the notch at 0 divides no line
    check(0, {{0, 0, 0}, {1, 0, 0}});
    check(0, {{0, 0, 0}, {5, 5, 0}});
    Lines lines;
    mgPoint_c const o;
    EXPECT_EQ(3, mg_calcHatchLinesCircle2D(o, 2.0, o, 0.0, 1.0, lines)); // tangents give none
    EXPECT_EQ(3, mg_calcHatchLinesCircle2D(o, support::below(2.0), o, 0.0, 1.0, lines));
    EXPECT_EQ(5, mg_calcHatchLinesCircle2D(o, support::above(2.0), o, 0.0, 1.0, lines));
    EXPECT_EQ(1, mg_calcHatchLinesCircle2D(mgPoint_c(0, 0.3, 0), 0.3001, o, 0.0, 1.0, lines));
    for (double const radius : {0.0, -1.0, kNaN, kInfinity})
        EXPECT_EQ(0, mg_calcHatchLinesCircle2D(o, radius, o, 0.0, 1.0, lines));
}

TEST(HatchLines, NeighboursMatchAtTheirCommonEdge) {
    support::Random random;
    for (int round = 0; round < 3000; ++round) {
        bool const onGrid = round % 2 == 0; // corners and edges on lattice lines
        auto const point = [&](double x, double y) {
            return onGrid ? mgPoint_c(x + random.below(3), y + random.below(3), 0)
                          : mgPoint_c(x + random.uniform(0, 3), y + random.uniform(0, 3), 0);
        };
        Outline const q{point(0, 0), point(6, 0), point(6, 6), point(0, 6)};
        Lattice const lattice{onGrid ? mgPoint_c(3, 1, 0) : point(0, 0),
                              onGrid ? random.below(8) * vexmath::kHalfPi / 2
                                     : random.uniform(-4, 4),
                              onGrid ? 0.5 : random.uniform(0.2, 1)};
        Lines const whole = hatch({q}, lattice), a = hatch({{q[0], q[1], q[2]}}, lattice),
                    b = hatch({{q[0], q[2], q[3]}}, lattice);
        ASSERT_EQ(whole.Count(), hatch({{q[0], q[1], q[2]}, {q[0], q[2], q[3]}}, lattice).Count());
        // Each end of a half is an end of the whole, or on the common edge and in the other half.
        auto const holds = [](Lines const &lines, mgPoint_c const &p) {
            for (int i = 0; i < lines.Count(); ++i)
                if (lines[i].x() == p.x() && lines[i].y() == p.y()) return true;
            return false;
        };
        for (int i = 0; i < a.Count(); ++i) ASSERT_TRUE(holds(whole, a[i]) || holds(b, a[i]));
        for (int i = 0; i < b.Count(); ++i) ASSERT_TRUE(holds(whole, b[i]) || holds(a, b[i]));
        ASSERT_NEAR(lengthOf(whole), lengthOf(a) + lengthOf(b), 1e-9);
    }
}

TEST(HatchLines, AnUnusableLatticeEmptiesTheList) {
    auto const check = [](int count, double height, double spacing, double angle = 0.0,
                          support::Caller = {}) {
        Lines lines;
        lines.Add(mgPoint_c());
        mgPoint_c const o;
        EXPECT_EQ(count, mg_calcHatchLinesRect2D({0, height, 2, 0}, o, angle, spacing, lines));
        EXPECT_EQ(2 * count, lines.Count());
        EXPECT_EQ(count > 0, lines.Data() != nullptr);
    };
    check(1000000, 1e6, 1.0);
    check(0, support::above(1e6), 1.0);
    check(0, 1e6, support::below(1.0));
    for (double const spacing : {0.0, -0.0, -1.0, kNaN, kInfinity, -kInfinity, support::kTiny})
        check(0, 2.0, spacing);
    for (double const angle : {kNaN, kInfinity}) check(0, 2.0, 1.0, angle);
    check(1, 2.0, 1e300);
    check(1, 1e150, 1e150), check(0, support::above(1e150), 1e150);
    for (double const far : {4503599627370496.0, 4503599627370498.0}) { // 2^52 and above
        Lines lines;
        EXPECT_EQ(far > 0x1p52 ? 0 : 1,
                  mg_calcHatchLinesRect2D({0, far, 1, far - 1}, mgPoint_c(), 0.0, 1.0, lines));
    }
    Lines lines;
    mgPoint_c const o, centre(0, 499999.5, 0);
    for (double const radius : {support::below(500000.5), 500000.5}) // from -1 on: one line more
        EXPECT_EQ(radius < 500000.5 ? 1000000 : 0,
                  mg_calcHatchLinesCircle2D(centre, radius, o, 0.0, 1.0, lines));
    EXPECT_EQ(0, mg_calcHatchLinesPolygon2D(0, nullptr, nullptr, {}, 0.0, 1.0, lines));
}

TEST(HatchLines, EndOnHostileValues) {
    support::Random random;
    for (int round = 0; round < 20000; ++round) {
        auto const value = [&random] { return random.hostile(); };
        Outline outline;
        for (int i = 0; i < 4; ++i)
            outline.emplace_back(value(), random.below(3) ? random.uniform(-1, 1) : value(), 0);
        Lattice const lattice{{value(), 0, value()}, value(), value()};
        Lines lines = hatch({outline}, lattice);
        double const radius = value();
        mg_calcHatchLinesCircle2D(outline[0], radius, lattice.origin, lattice.angle,
                                  lattice.spacing, lines);
        ASSERT_LE(lines.Count(), 2000000);
        for (int i = 0; i < std::min(lines.Count(), 100); ++i)
            ASSERT_TRUE(std::isfinite(lines[i].x()) && std::isfinite(lines[i].y()));
    }
}

} // namespace
