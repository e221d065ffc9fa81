// SPDX-License-Identifier: MIT
// Segments and arcs clipped to boxes. Arcs against sampled points: fuzz/fuzz_planar.cpp.

#include "planar.h"

namespace {

constexpr auto Outside = mgClipLine_Outside, Inside = mgClipLine_Inside,
               ClippedA = mgClipLine_ClippedA, ClippedB = mgClipLine_ClippedB,
               ClippedBoth = mgClipLine_ClippedBoth, Touching = mgClipLine_Touching;

P const corner(3, -5, 0), opposite(9, -1, 0);

/// The part of the segment from a to a + d in the grown box, from samples: a segment whose d is a
/// power of two or 0 meets sides at multiples of an eighth of it.
struct Part {
    P first, last;
    bool isEmpty = true, isDeep = false;

    Part(P const &a, V const &d, double grow) {
        for (int i = 0; i <= 16; ++i) {
            P const p = a + (i / 16.0) * d;
            double const depth = depthIn(corner, opposite, p) + grow;
            if (depth > 0) isDeep = true;
            if (depth < 0) continue;
            if (isEmpty) first = p;
            last = p;
            isEmpty = false;
        }
    }
};

void CheckSegment(P const &a, V const &d, double tol) {
    P const b = a + d + V(0, 0, 1);
    Part const outer(a, d, tol), box(a, d, 0);
    bool const isDeep = Part(a, d, -tol).isDeep;
    bool const keepsA = isDeep && gap(box.first, a) == 0;
    bool const keepsB = isDeep && gap(box.last, a + d) == 0;
    auto const clip = outer.isEmpty      ? Outside
                      : !isDeep          ? Touching
                      : keepsA && keepsB ? Inside
                      : keepsA           ? ClippedB
                      : keepsB           ? ClippedA
                                         : ClippedBoth;
    bool const isWithin = gap(outer.first, a) + gap(outer.last, a + d) == 0;
    ASSERT_EQ(outer.isEmpty ? mgInsideBox_Outside
              : !isDeep     ? mgInsideBox_Touching
              : isWithin    ? mgInsideBox_Inside
                            : mgInsideBox_Partly,
              mg_Line2DInsideBox(a, b, opposite, corner, tol));
    P p = untouched, q = untouched;
    ASSERT_EQ(clip, mg_ClipLine2DToBox(a, b, opposite, corner, p, q, tol));
    auto const check = [&](P const &end, double z, bool isKept, P const &out) {
        P const nearest(std::clamp(end.x(), corner.x(), opposite.x()),
                        std::clamp(end.y(), corner.y(), opposite.y()), z);
        ASSERT_LT(gap(clip == Outside ? untouched : nearest, out), 1e-14);
        ASSERT_TRUE(!isDeep
                    || (isKept ? gap(end, out) == std::fabs(z - end.z())
                               : depthIn(corner, opposite, out) == 0));
    };
    check(isDeep ? box.first : outer.first, a.z(), keepsA, p);
    check(isDeep ? box.last : outer.last, b.z(), keepsB, q);
    for (double k : {0x1p1018, 0x1p600, 0x1p-600, 0x1p-1000}) { // to the bit
        P u = k * b, v = k * a; // the outputs are the inputs, exchanged
        mgRect const window(k * opposite.x(), k * corner.y(), k * corner.x(), k * opposite.y());
        ASSERT_EQ(clip, mg_Clip2DLineToWindow(v, u, window, u, v, k * tol));
        ASSERT_EQ(0, gap(clip == Outside ? b : p, (1 / k) * u));
        ASSERT_EQ(0, gap(clip == Outside ? a : q, (1 / k) * v));
    }
}

TEST(ClipLine, AgreesWithSamples) {
    double const steps[] = {-8, -4, -2, -1, 0, 1, 2, 4, 8};
    for (double tol : {0, 1, 2})
        for (double x : {0, 2, 3, 4, 6, 9, 10, 11})
            for (double y : {-8, -6, -5, -4, -3, -1, 0, 1})
                for (double dx : steps)
                    for (double dy : steps) {
                        CheckSegment({x, y, 5}, {dx, dy, 0}, tol);
                        ASSERT_FALSE(HasFatalFailure())
                            << x << ' ' << y << ' ' << dx << ' ' << dy << ' ' << tol;
                    }
}

TEST(ClipLine, ThresholdsAreExactForSegmentsAlongASide) {
    auto const check = [](mgClipLine_e expected, double y, double tol, Caller = {}) {
        P const low(0.1, 0.2, 0), high(3.1, 5.7, 0);
        P p, q;
        EXPECT_EQ(expected, mg_ClipLine2DToBox({-1, y, 0}, {9, y, 0}, high, low, p, q, tol));
        EXPECT_EQ(expected, mg_ClipLine2DToBox({y, 9, 0}, {y, -1, 0}, {5.7, 0.1, 0}, {0.2, 3.1, 0},
                                               p, q, tol));
    };
    double const tol = 0.3, top = 5.7 + tol, bottom = 0.2 - tol;
    check(Touching, top, tol), check(Outside, above(top), tol);
    check(Touching, bottom, tol), check(Outside, below(bottom), tol);
    check(Touching, 5.7 - tol, tol), check(ClippedBoth, below(5.7 - tol), tol);
    check(Touching, 0.2 + tol, tol), check(ClippedBoth, above(0.2 + tol), tol);
    for (double const none : {-1.0, kNaN}) // which means 1e-08
        check(Touching, 5.7 + 1e-8, none), check(Outside, above(5.7 + 1e-8), none);
    check(Touching, 1.0, kInfinity), check(ClippedBoth, 1.0, 0.0);
    P p, q; // a box without a width
    EXPECT_EQ(Touching, mg_ClipLine2DToBox({-1, 0, 0}, {1, 0, 0}, {0, -1, 0}, {0, 1, 0}, p, q, 0));
}

TEST(ClipLine, LargeNumbersLoseNeitherACornerNorASlope) {
    P p, q;
    P const far(-1e20, -1e20, 0); // the box is nearly a quadrant
    EXPECT_EQ(Outside, mg_ClipLine2DToBox({1, -0.5, 0}, {-0.5, 1, 0}, far, {}, p, q, 1e-8));
    EXPECT_EQ(ClippedBoth, mg_ClipLine2DToBox({1, -1.5, 0}, {-1.5, 1, 0}, far, {}, p, q, 1e-8));
    EXPECT_LT(gap(P(0, -0.5, 0), p), 1e-14);
    // From the nearer end: the far one would give an error of its own size.
    P const close(2, 0, 0), remote(-0x1p40, 0x1p39, 0);
    EXPECT_EQ(ClippedBoth, mg_ClipLine2DToBox(close, remote, {-1, -1, 0}, {1, 1, 0}, p, q, 0));
    EXPECT_LT(gap(P(1, 0.5, 0), p), 1e-11);
    EXPECT_EQ(ClippedBoth, mg_ClipLine2DToBox(remote, close, {-1, -1, 0}, {1, 1, 0}, p, q, 0));
    EXPECT_LT(gap(P(1, 0.5, 0), q), 1e-11);
    for (int k = 0; k < 16; ++k) { // a coordinate that is not finite
        double n[] = {-1, 0.5, 2, 0.5, 0, 0, 1, 1};
        n[k / 2] = k % 2 == 0 ? kNaN : kInfinity;
        P const a(n[0], n[1], 0), b(n[2], n[3], 0), c(n[4], n[5], 0), d(n[6], n[7], 0);
        EXPECT_EQ(Outside, mg_ClipLine2DToBox(a, b, c, d, p, q, 0)) << k;
    }
    P const below(0, -1e-300, 0), right(1, -1e-300, 0), end(1e200, 1, 0);
    EXPECT_EQ(mgInsideBox_Outside, mg_Line2DInsideBox(below, right, {}, end, 0));
    EXPECT_EQ(Outside, mg_ClipLine2DToBox(below, right, {}, end, p, q, 0));
    // The difference of x overflows.
    P const low(-0x1p1023, -0x1p1023, 0), high(0x1p1022, 0x1p1022, 0);
    EXPECT_EQ(ClippedB,
              mg_ClipLine2DToBox({-0x1p1022, 0, 0}, {0x3p1022, 0x1p1022, 0}, low, high, p, q, 0));
    EXPECT_EQ(0x1p1022, q.x());
    EXPECT_NEAR(1.0, q.y() / 0x1p1021, 1e-14);
}

TEST(ClipLineEnd, ALeaderEndsAtTheOutlineFromEitherSide) {
    Random random;
    for (int i = 0; i < 2000; ++i) {
        // The frame is made of the lattice's box.
        double const angle = random.uniform(-7, 7), c = std::cos(angle), s = std::sin(angle);
        P const root = planar(random, -9, 9, 3);
        auto const place = [&](double u, double v, double z) {
            return P(root.x() + c * u - s * v, root.y() + s * u + c * v, z);
        };
        auto const number = [&](int high) { return random.uniform(-4, high + 4); };
        double const au = number(6), av = number(4), bu = number(6), bv = number(4);
        P p(1, 1, 0), q;
        auto const expected = mg_ClipLine2DToBox({au, av, 0}, {bu, bv, 0}, {}, {6, 4, 0}, p, q, 0);
        P end = place(bu, bv, 8);
        P const given = end;
        bool const isNegative = random.below(2) != 0; // the frame from its other corner
        auto const result =
            mg_ClipLineEndToRotated2DBox(place(au, av, 7), end, isNegative ? place(6, 4, 0) : root,
                                         isNegative ? -6 : 6, isNegative ? -4 : 4, angle, 0.0);
        bool const isMoved = expected != Outside && expected != Inside;
        P const &met = expected == ClippedB ? q : p;
        double const off = (V(bu - au, bv - av, 0) * (met - P(au, av, 0))).z();
        EXPECT_EQ(isMoved, depthIn({}, {6, 4, 0}, met) == 0);
        EXPECT_LT(std::fabs(isMoved ? off : 0), 1e-13);
        EXPECT_EQ(isMoved ? ClippedB : expected, result);
        EXPECT_LT(gap(isMoved ? place(met.x(), met.y(), 8) : given, end), isMoved ? 1e-12 : 1e-300);
    }
    P end(0, 2, 1);
    EXPECT_EQ(Touching, mg_ClipLineEndToRotated2DBox({-3, 2, 0}, end, {0, 0, 0}, 6, 4, 0.0, 1e-6));
    EXPECT_BITS_EQ(P(0, 2, 1), end);
    EXPECT_EQ(Outside, mg_ClipLineEndToRotated2DBox({}, end, {-1, -1, 0}, 2, 2, kNaN, 1e-6));
    end = {1e308, 5e307, 1};
    P const far(-1e308, 5e307, 0);
    EXPECT_EQ(ClippedB, mg_ClipLineEndToRotated2DBox(far, end, {}, 7e307, 9e307, 0.0, 1.0));
    EXPECT_BITS_EQ(P(0, 5e307, 1), end);
}

TEST(ClipArc, CountsAngleBitsAndThresholds) {
    P const low(-4, -4, 0), high(4, 4, 0);
    double const turn = kTurn;
    auto const check = [&](int count, double first, double last, double radius, double start,
                           double end, double tol, P const &centre = {}, Caller = {}) {
        double angles[10];
        std::fill_n(angles, 10, 77.0);
        ASSERT_EQ(count, mg_Clip2DArcToBox(centre, radius, start, end, high, low, angles, tol));
        EXPECT_NEAR(first, angles[0], 4e-15);
        EXPECT_NEAR(last, count > 0 ? angles[2 * count - 1] : 77.0, 4e-15);
        for (int i = 2 * count; i < 10; ++i) EXPECT_EQ(77.0, angles[i]);
    };
    double const a = std::acos(0.8); // of the crossings of the circle of radius 5
    check(4, a, turn - a, 5, 0, turn, 0);
    check(4, turn + a, 2 * turn - a, 5, turn - 0.1, 2 * turn - 0.1, 0);
    check(5, 0.7, turn + 0.69, 5, 0.7, turn + 0.69, 0); // the start divides an arc
    check(1, 0.7, 0.8, 5, 0.7, 0.8, 0), check(0, 77, 77, 5, -0.1, 0.1, 0);
    check(1, 0.25, 0.25 + turn, 3, 0.25, 0.25 + turn, 0); // unchanged
    check(1, 1, 9, 3, 1, 9, 0);
    check(1, 0, turn, 4.5, 0, turn, 0.5); // beyond all sides by tol
    check(4, std::acos(4 / above(4.5)), turn - std::acos(4 / above(4.5)), above(4.5), 0, turn, 0.5);
    check(0, 77, 77, 2.5, 0, turn, 0.5, {6, 0, 0});                    // touches from outside
    check(1, turn / 12, 5 * turn / 12, 2, 0, turn / 2, 0, {0, -5, 0}); // starts within a cut
    check(1, turn / 4, 3 * turn / 4, 2, turn / 4, 5 * turn / 4, 0, {4, 0, 0}); // where a cut ends
    check(1, turn / 2 - std::acos(2 / above(2.5)), turn / 2 + std::acos(2 / above(2.5)), above(2.5),
          0, turn, 0.5, {6, 0, 0});
    check(1, 0, 0.25, 2, 0, 0.25, below(0.5)); // as long as tol, or longer
    check(0, 77, 77, 2, 0, 0.25, 0.5), check(0, 77, 77, 2, 1, 1, 0);
    check(0, 77, 77, 2, 1, 0.9, 0), check(0, 77, 77, -2, 0, 1, 0);
    check(0, 77, 77, 2, 0, above(1e6), 0), check(1, 1e6 - 1, 1e6, 2, 1e6 - 1, 1e6, 0);
    check(0, 77, 77, kNaN, 0, 1, 0), check(0, 77, 77, 2, 0, 1, 0, {kInfinity, 0, 0});
    check(4, a, turn - a, 5, 0, turn - 1e-11, 0); // full
    check(5, 0.7, 0.7 + turn - 1.1e-11, 5, 0.7, 0.7 + turn - 1.1e-11, 0);
}

} // namespace
