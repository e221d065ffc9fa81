// SPDX-License-Identifier: MIT
// Boxes against lines and rays, their range along a line, and the planar extent.

#include <vexmath/bbox.h>
#include <vexmath/general_box.h>
#include <vexmath/mg_bounds.h>
#include <vexmath/mg_transform.h>
#include <vexmath/plane.h>

#include <algorithm>
#include <utility>

#include "support/geometry.h"

namespace {

using support::below;

mgBBox_c const box(mgPoint_c(0.0, 0.0, 0.0), mgPoint_c(1.0, 2.0, 3.0));
mgUnitVector_c const xAxis(1.0, 0.0, 0.0);

/// The box with a negative radius: unset, its corners as they were.
mgBBox_c unsetBySphere(mgBBox_c b) {
    b.setSphereOnly(b.center(), -1.0);
    return b;
}

TEST(SphereHit, SphereToleranceIsAddedToTheSquaredRadius) {
    mgBBox_c const ball(mgPoint_c(0.0, 0.0, 0.0), 3.0);
    mgPoint_c const p(-100.0, 5.0, 0.0); // the line passes at 5
    EXPECT_EQ(ball.sphereHitByRay(p, xAxis), 0);
    EXPECT_EQ(ball.sphereHitByRay2(p, xAxis, 15.9), 0);
    EXPECT_EQ(ball.sphereHitByRay2(p, xAxis, 16.0 - 1.9e-08), 1);
    EXPECT_EQ(ball.sphereHitByRay2(p, xAxis, 16.0 - 2.1e-08), 0);
    EXPECT_EQ(ball.sphereHitByRay(mgPoint_c(100.0, 3.0, 0.0), xAxis), 1); // behind p, too
}

TEST(SphereHit, AnUnsetBoxIsThePointAtTheOrigin) {
    mgBBox_c const unset = unsetBySphere(box);
    EXPECT_EQ(unset.sphereHitByRay(mgPoint_c(5.0, 1.414e-4, 0.0), xAxis), 1);
    EXPECT_EQ(unset.sphereHitByRay(mgPoint_c(5.0, 1.415e-4, 0.0), xAxis), 0);
    EXPECT_EQ(unset.sphereHitByRay(box.center(), xAxis), 0);
    EXPECT_EQ(unset.sphereHitByRay(box.center(), mgUnitVector_c()), 1); // no direction
}

void CheckHit(int expected, mgPoint_c const &p, mgUnitVector_c const &dir) {
    EXPECT_EQ(box.isRayHit(p, dir), expected)
        << '(' << p.x() << ", " << p.y() << ", " << p.z() << ") along (" << dir.x() << ", "
        << dir.y() << ", " << dir.z() << ')';
}

TEST(RayHit, ALineHitsTheInsideOfFacesAlone) {
    CheckHit(1, {-5.0, 1.0, 1.0}, {1.0, 0.0, 0.0});
    CheckHit(1, {0.5, -5.0, 1.0}, {0.0, 1.0, 0.0});
    CheckHit(1, {0.5, 1.0, -5.0}, {0.0, 0.0, 1.0});
    CheckHit(0, {-5.0, 2.0, 1.0}, {1.0, 0.0, 0.0});  // along a face
    CheckHit(0, {-5.0, 0.0, 0.0}, {1.0, 0.0, 0.0});  // along an edge
    CheckHit(0, {-1.0, 1.0, 1.0}, {1.0, -1.0, 0.0}); // through an edge, from outside
    CheckHit(1, {-0.5, 1.0, 1.0}, {1.0, -1.0, 0.0});
    CheckHit(0, {0.5, 1.0, 1.0}, {0.0, 0.0, 0.0}); // no direction
    mgBBox_c const aroundOrigin(mgPoint_c(-1.0, -1.0, -1.0), mgPoint_c(1.0, 1.0, 1.0));
    EXPECT_EQ(unsetBySphere(aroundOrigin).isRayHit(mgPoint_c(), xAxis), 0);
}

TEST(RayHit, ALineHitsBehindItsPointToo) {
    CheckHit(1, {5.0, 1.0, 1.0}, {1.0, 0.0, 0.0});
    CheckHit(1, {0.5, 1.0, 1.0}, {1.0, 0.0, 0.0});
}

TEST(RayHit, ALineAlmostAlongTheFacesPassesBetweenThem) {
    // Only the faces across z can be hit: those across x are too far out.
    mgBBox_c const slab(mgPoint_c(-1e9, -1.0, -1.0), mgPoint_c(1e9, 1.0, 1.0));
    mgUnitVector_c dir;
    dir.set(1.0, 0.0, 1e-08);
    EXPECT_EQ(slab.isRayHit(mgPoint_c(), dir), 1);
    dir.set_z(below(1e-08));
    EXPECT_EQ(slab.isRayHit(mgPoint_c(), dir), 0);
    dir.set_z(-1e-08);
    EXPECT_EQ(slab.isRayHit(mgPoint_c(), dir), 1);
}

void CheckFirstHit(mgBBox_c const &b, mgPoint_c const &p, mgUnitVector_c const &dir,
                   mgPoint_c const &expected) {
    mgPoint_c hit(9.0, 9.0, 9.0);
    EXPECT_EQ(b.getFirstRayHit(p, dir, &hit), 1);
    EXPECT_BITS_EQ(expected, hit);
    hit = p;
    EXPECT_EQ(b.getFirstRayHit(hit, dir, &hit), 1); // the output is the input
    EXPECT_BITS_EQ(expected, hit);
}

void CheckNoHit(mgBBox_c const &b, mgPoint_c const &p, mgUnitVector_c const &dir) {
    mgPoint_c hit(9.0, 9.0, 9.0);
    EXPECT_EQ(b.getFirstRayHit(p, dir, &hit), 0);
    EXPECT_BITS_EQ(mgPoint_c(9.0, 9.0, 9.0), hit);
}

TEST(FirstRayHit, TheRayBeginsAtItsPoint) {
    CheckFirstHit(box, {-5.0, 1.0, 1.0}, xAxis, {0.0, 1.0, 1.0});
    CheckFirstHit(box, {0.25, 1.0, 1.0}, xAxis, {1.0, 1.0, 1.0}); // from inside: the exit
    CheckNoHit(box, {5.0, 1.0, 1.0}, xAxis);
    CheckFirstHit(box, {0.0, 1.0, 1.0}, xAxis, {1.0, 1.0, 1.0}); // on a face, looking in
    CheckNoHit(box, {1.0, 1.0, 1.0}, xAxis);                     // and out
    CheckFirstHit(box, {2.0, 1.0, 1.0}, {-1.0, 0.0, 0.0}, {1.0, 1.0, 1.0});
    CheckFirstHit(box, {0.5, 1.0, 7.0}, {0.0, 0.0, -1.0}, {0.5, 1.0, 3.0});
    CheckNoHit(box, {0.5, 1.0, 1.0}, mgUnitVector_c());
}

TEST(FirstRayHit, FacesAreAToleranceWider) {
    CheckFirstHit(box, {-5.0, 2.0, 1.0}, xAxis, {0.0, 2.0, 1.0}); // along a face
    CheckFirstHit(box, {-5.0, -1e-08, 1.0}, xAxis, {0.0, -1e-08, 1.0});
    CheckNoHit(box, {-5.0, below(-1e-08), 1.0}, xAxis);
}

TEST(FirstRayHit, HitsBeyondTheFarthestDistanceDoNotCount) {
    mgBBox_c const nearer(mgPoint_c(0.9e32, -1.0, -1.0), mgPoint_c(2e32, 1.0, 1.0));
    mgBBox_c const farther(mgPoint_c(1e32, -1.0, -1.0), mgPoint_c(2e32, 1.0, 1.0));
    CheckFirstHit(nearer, mgPoint_c(), xAxis, {0.9e32, 0.0, 0.0});
    CheckNoHit(farther, mgPoint_c(), xAxis);
}

TEST(FirstRayHit, TheSetStateDoesNotMatter) {
    CheckFirstHit(unsetBySphere(box), {-5.0, 1.0, 1.0}, xAxis, {0.0, 1.0, 1.0});
    CheckNoHit(mgBBox_c(), {-5.0, 0.0, 0.0}, xAxis); // the corners of an empty box hold no point
}

/// Parameters between which the line is inside the box, by clipping it at each pair of faces.
std::pair<double, double> insideOf(mgBBox_c const &b, mgPoint_c const &p, mgVector_c const &dir) {
    std::pair<double, double> range(-1e300, 1e300);
    for (int i = 0; i < 3; ++i) {
        auto const [in, out] =
            std::minmax({(b.low()[i] - p[i]) / dir[i], (b.high()[i] - p[i]) / dir[i]});
        range = {std::max(range.first, in), std::min(range.second, out)};
    }
    return range;
}

TEST(RayHit, RandomRaysAgreeWithClipping) {
    constexpr double kRounding = 1e-12; // coordinates are below 20, no direction is near a face
    support::Random random;
    int hits = 0;
    for (int n = 0; n < 20000; ++n) {
        mgBBox_c const b(random.triple<mgPoint_c>(-2.0, 2.0), random.triple<mgPoint_c>(-2.0, 2.0));
        auto const p = random.triple<mgPoint_c>(-5.0, 5.0);
        auto const dir = mg_Normalise(random.triple<mgVector_c>(-2.0, 2.0) - p);
        auto const [in, out] = insideOf(b, p, dir);
        double const steepest =
            std::min({std::fabs(dir.x()), std::fabs(dir.y()), std::fabs(dir.z())});
        if (steepest < 1e-3 || std::fabs(out - in) < 1e-6) continue;

        EXPECT_EQ(b.isRayHit(p, dir), in < out);
        EXPECT_EQ(b.isRayHit(p, -dir), in < out);
        mgPoint_c hit;
        bool const isAhead = in < out && out > 0.0;
        ASSERT_EQ(b.getFirstRayHit(p, dir, &hit), isAhead);
        if (isAhead) {
            EXPECT_LT((hit - (p + (in > 0.0 ? in : out) * dir)).len(), kRounding / steepest);
        }
        hits += isAhead;
    }
    EXPECT_GT(hits, 1000);
}

TEST(LimitRay, TheRangeSpansTheCorners) {
    double tmin = 0.0, tmax = 0.0;
    box.limitRay(mgPoint_c(1.0, 1.0, 1.0), mgUnitVector_c(0.0, 0.6, -0.8), &tmin, &tmax);
    EXPECT_DOUBLE_EQ(tmin, -0.6 - 1.6);
    EXPECT_DOUBLE_EQ(tmax, 0.6 + 0.8);
    mgBBox_c().limitRay(mgPoint_c(0.5, 0.0, 0.0), xAxis, &tmin, &tmax); // corners as they are
    EXPECT_EQ(tmin, -1.5);
    EXPECT_EQ(tmax, 0.5);
}

void CheckExtent(mgXform_c const &x, double grow, std::initializer_list<double> expected) {
    double extent[4];
    mg_FindBBox(mgPoint_c(4.0, 1.0, 9.0), mgPoint_c(2.0, 5.0, -9.0), x, extent, grow);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), extent))
        << extent[0] << ' ' << extent[1] << ' ' << extent[2] << ' ' << extent[3];
}

TEST(FindBBox, ThePlanarExtentIsTransformedAndGrown) {
    mgXform_c const turn = mg_RotateXform(1.5707963267949, mgVector_c(0.0, 0.0, 1.0), 1e-9);
    mgXform_c const placed = turn * mg_TranslateXform(mgVector_c(10.0, 0.0, 0.0));
    CheckExtent(mgXform_c(), 0.0, {2.0, 1.0, 4.0, 5.0});
    CheckExtent(placed, 0.0, {5.0, 2.0, 9.0, 4.0});
    CheckExtent(placed, 0.5, {4.5, 1.5, 9.5, 4.5});
    CheckExtent(placed, -1.5, {6.5, 3.0, 7.5, 3.0}); // too narrow in y: closed in the middle
    CheckExtent(placed, -100.0, {1.0, 1.0, -1.0, -1.0});
}

TEST(Hostile, NoInputTrapsOrLeavesTheRangeOfResults) {
    support::Random random;
    auto const triple = [&] {
        double const x = random.hostile(), y = random.hostile(), z = random.hostile();
        return mgVector_c(x, y, z);
    };
    auto const direction = [&] { // normalised, or as restored from a document
        mgUnitVector_c dir(triple(), 0);
        if (random.below(2) != 0) dir.set(triple());
        return dir;
    };
    for (int n = 0; n < 30000; ++n) {
        mgPoint_c const a = triple(), b = triple();
        mgUnitVector_c const dir = direction(), dir2 = direction();
        double const tol = random.hostile(), size = random.hostile();
        mgBBox_c hostile(a, b);
        if (random.below(2) != 0) hostile.setCornersOnly(triple(), triple());
        if (random.below(2) != 0) hostile.setSphereOnly(triple(), size);
        mgPlane_c plane(triple(), direction());
        mgPoint_c hit;
        int const results[] = {hostile.clash(plane, tol),      hostile.clashLine(&a, &b),
                               hostile.clashLine(&a, &b, tol), hostile.sphereHitByRay(a, dir),
                               hostile.isRayHit(a, dir),       hostile.sphereHitByRay2(a, dir, tol),
                               box.isRayHit(a, dir),           hostile.getFirstRayHit(a, dir, &hit),
                               box.clash(plane, tol),          box.getFirstRayHit(a, dir, &hit)};
        for (int const result : results) ASSERT_TRUE(result == 0 || result == 1);

        double extent[4];
        hostile.limitRay(a, dir, &extent[0], &extent[1]);
        mg_FindBBox(a, b, mgXform_c(dir, dir2, triple()), extent, tol);
        mgParallelogram_c plate(a, dir, dir2, tol, size);
        plate.isPointInside(b);
        plate.getExtremPts(dir, hit, hit);
        mgGeneralBox_c const block(a, dir, dir2, tol, size, random.hostile());
        mgXform_c placing;
        block.getBBoxAndXform(hostile, placing);
        block.projectToPlane(plane, plate);
    }
}

} // namespace
