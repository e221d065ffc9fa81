// SPDX-License-Identifier: MIT
// Figures in the plane and a box: what is clipped lies in the box, and each result is the one that
// samples of the figure show.

#include "fuzz.h"

namespace {

/// A box and its bounds.
struct Box {
    Box(P const &a, P const &b, double tolerance)
        : corner1(a), corner2(b), tol(tolerance >= 0.0 ? tolerance : 1e-8) {}
    bool contains(P const &p, double slack) const {
        for (int k = 0; k < 2; ++k)
            if (!(std::min(corner1[k], corner2[k]) - slack <= p[k]
                  && p[k] <= std::max(corner1[k], corner2[k]) + slack))
                return false;
        return true;
    }
    P corner1, corner2;
    double tol;
};

/// Compares a result with the samples at(0) to at(1) of the figure.
template <class At>
void checkSamples(mgInsideBox_e found, Box const &box, double slack, At const &at) {
    bool isInner = false, isOuter = false, isBeyond = false;
    for (int i = 0; i <= 32; ++i) {
        P const p = at(i / 32.0);
        isInner = isInner || box.contains(p, -box.tol - slack);
        isOuter = isOuter || box.contains(p, box.tol - slack);
        isBeyond = isBeyond || !box.contains(p, box.tol + slack);
    }
    CHECK(!isInner || found >= mgInsideBox_Partly);
    CHECK(!isOuter || found != mgInsideBox_Outside);
    CHECK(!isBeyond || found != mgInsideBox_Inside);
}

void checkSegment(Input &in, Box const &box, P const &a, P const &b) {
    P const unwritten(77, 77, 77), &c1 = box.corner1, &c2 = box.corner2;
    P outA = unwritten, outB = unwritten, windowA = unwritten, windowB = unwritten;
    auto const clipped = mg_ClipLine2DToBox(a, b, c1, c2, outA, outB, box.tol);
    mgRect const window(c1.x(), c1.y(), c2.x(), c2.y());
    CHECK(mg_Clip2DLineToWindow(a, b, window, windowA, windowB, box.tol) == clipped);
    CHECK(same(outA, windowA) && same(outB, windowB));
    auto const inside = mg_Line2DInsideBox(a, b, c1, c2, box.tol);
    CHECK((clipped == mgClipLine_Outside) == (inside == mgInsideBox_Outside));
    CHECK((clipped == mgClipLine_Touching) == (inside == mgInsideBox_Touching));
    P const ends[] = {a, b};
    CHECK(mg_Polyline2DInsideBox(2, ends, c1, c2, box.tol) == inside);
    if (clipped == mgClipLine_Outside) {
        CHECK(same(outA, unwritten) && same(outB, unwritten));
    } else {
        CHECK(box.contains(outA, 0.0) && box.contains(outB, 0.0) && same(outA.z(), a.z())
              && same(outB.z(), b.z()));
        CHECK(
            clipped == mgClipLine_Touching
            || (same(outA, a) == (clipped == mgClipLine_Inside || clipped == mgClipLine_ClippedB)));
    }
    auto const point = mg_Point2DInsideBox(a, c1, c2, box.tol);
    bool const isInner = box.contains(a, 0.0) && point == mgInsideBox_Inside;
    CHECK(!in.isTame() || mg_Line2DInsideBox(a, a, c1, c2, box.tol) == point);
    CHECK((point != mgInsideBox_Inside || isInner));
    double const t = in.below(257) / 256.0;
    if (!in.isTame()) return;
    checkSamples(inside, box, 1e-9, [&](double s) { return interpolate(s, a, b); });
    CHECK(mg_PointOnLine2D(interpolate(t, a, b), a, b, 1e-9) != mgPointOnLine_Off);
    P end = b;
    double const angle = in.number();
    auto const leader = mg_ClipLineEndToRotated2DBox(a, end, c1, c2.x(), c2.y(), angle, box.tol);
    CHECK(leader == mgClipLine_ClippedB || same(end, b));
    CHECK(mg_PointOnLine2D(end, a, b, 1e-6) != mgPointOnLine_Off);
}

void checkArc(Input &in, Box const &box, P const &centre) {
    double const radius = in.number(), start = in.number(), sweep = in.number(),
                 end = start + sweep;
    double angles[11];
    std::fill(angles, angles + 11, 77.0);
    P const &c1 = box.corner1, &c2 = box.corner2;
    int const count = mg_Clip2DArcToBox(centre, radius, start, end, c1, c2, angles, box.tol);
    auto const inside = mg_Arc2DInsideBox(centre, radius, start, end, c1, c2, box.tol);
    auto const whole = mg_Circle2DInsideBox(centre, radius, c1, c2, box.tol);
    CHECK(0 <= count && count <= 5 && angles[2 * count] == 77.0);
    if (!in.isTame() || radius < 0.0 || !(end >= start)) return;
    auto const at = [&](double t) {
        return P(centre.x() + radius * std::cos(t), centre.y() + radius * std::sin(t), 0.0);
    };
    double const slack = 1e-9 * (1.0 + radius + std::fabs(start) + sweep);
    checkSamples(inside, box, slack, [&](double s) { return at(start + s * sweep); });
    checkSamples(whole, box, slack, [&](double s) { return at(s * 2 * kPi); });
    double last = start, sum = 0.0;
    for (int i = 0; i < count; ++i) {
        double const from = angles[2 * i], to = angles[2 * i + 1];
        CHECK(from >= last - 1e-9 && to > from);
        for (double const s : {0.0, 0.3, 0.5, 1.0})
            CHECK(box.contains(at(from + s * (to - from)), box.tol + std::sqrt(slack) * 1e-2));
        last = to, sum += to - from;
    }
    CHECK(sum <= std::min(sweep, std::max(2 * kPi, sum * 0)) + 1e-9 || count == 1);
}

} // namespace

void fuzzOne(Input &in) {
    P const corner1 = in.triple<P>(), corner2 = in.triple<P>(), a = in.triple<P>(),
            b = in.triple<P>();
    Box const box(corner1, corner2, in.flip() ? 1e-8 : std::fabs(in.number()));
    checkSegment(in, box, a, b);
    checkArc(in, box, a);
}
