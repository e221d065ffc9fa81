// SPDX-License-Identifier: MIT
// Figures in the plane and a box: what is clipped lies in the box, and each result is the one that
// samples of the figure show.

#include "fuzz.h"

namespace {

struct Box {
    /// How deep p is in the box, negative outside; by the nearest side.
    double depth(P const &p) const {
        auto const within = [](double a, double b, double x) {
            return std::min(x - std::min(a, b), std::max(a, b) - x);
        };
        return std::min(within(c1.x(), c2.x(), p.x()), within(c1.y(), c2.y(), p.y()));
    }
    /// Compares a result with samples at(0) to at(1) of a figure, which are `step` apart.
    template <class At>
    void checkSamples(mgInsideBox_e found, double slack, double step, At const &at) const {
        double least = kInfinity, greatest = -kInfinity;
        Points samples;
        for (int i = 0; i <= kSteps; ++i) {
            samples.push_back(at(i * (1.0 / kSteps)));
            double const d = depth(samples.back());
            least = std::min(least, d), greatest = std::max(greatest, d);
        }
        CHECK(found >= mgInsideBox_Partly || greatest < tol + slack);
        CHECK(found != mgInsideBox_Outside || greatest < -tol + slack);
        CHECK(found != mgInsideBox_Inside || least > -tol - slack);
        double const error = step + slack,
                     bounds[] = {std::fabs(greatest - tol), std::fabs(greatest + tol),
                                 std::fabs(least + tol)};
        if (!(*std::min_element(bounds, bounds + 3) > error)) return;
        CHECK(found
              == (greatest < -tol  ? mgInsideBox_Outside
                  : greatest < tol ? mgInsideBox_Touching
                  : least < -tol   ? mgInsideBox_Partly
                                   : mgInsideBox_Inside));
        CHECK(mg_Polyline2DInsideBox(kSteps + 1, samples.data(), c1, c2, tol) == found);
    }

    static constexpr int kSteps = 64;
    P c1, c2;
    double tol;
};

void checkSegment(Input &in, Box const &box, P const &a, P const &b) {
    P const &c1 = box.c1, &c2 = box.c2, ends[] = {a, b};
    P outA = unwritten, outB = unwritten, windowA = unwritten, windowB = unwritten;
    auto const clipped = mg_ClipLine2DToBox(a, b, c1, c2, outA, outB, box.tol);
    mgRect const window(c1.x(), c1.y(), c2.x(), c2.y());
    CHECK(mg_Clip2DLineToWindow(a, b, window, windowA, windowB, box.tol) == clipped);
    CHECK(same(outA, windowA) && same(outB, windowB));
    auto const inside = mg_Line2DInsideBox(a, b, c1, c2, box.tol);
    CHECK((clipped == mgClipLine_Outside) == (inside == mgInsideBox_Outside));
    CHECK((clipped == mgClipLine_Touching) == (inside == mgInsideBox_Touching));
    CHECK(mg_Polyline2DInsideBox(2, ends, c1, c2, box.tol) == inside);
    if (clipped == mgClipLine_Outside) {
        CHECK(same(outA, unwritten) && same(outB, unwritten));
    } else {
        CHECK(box.depth(outA) >= 0.0 && box.depth(outB) >= 0.0);
        CHECK(same(outA.z(), a.z()) && same(outB.z(), b.z()));
    }
    auto const point = mg_Point2DInsideBox(a, c1, c2, box.tol);
    double const t = in.below(257) / 256.0, angle = in.number();
    P end = b;
    auto const leader = mg_ClipLineEndToRotated2DBox(a, end, c1, c2.x(), c2.y(), angle, box.tol);
    CHECK(leader == mgClipLine_ClippedB || same(end, b));
    if (!in.isTame()) return;
    CHECK(mg_Line2DInsideBox(a, a, c1, c2, box.tol) == point);
    box.checkSamples(inside, 1e-9, dist(a, b) / Box::kSteps,
                     [&](double s) { return interpolate(s, a, b); });
    CHECK(mg_PointOnLine2D(interpolate(t, a, b), a, b, 1e-9) != mgPointOnLine_Off);
    CHECK(mg_PointOnLine2D(end, a, b, 1e-6) != mgPointOnLine_Off);
}

void checkArc(Input &in, Box const &box, P const &centre) {
    double const radius = in.number(), start = in.number(), sweep = in.number(),
                 end = start + sweep;
    double angles[11];
    std::fill(angles, angles + 11, 77.0);
    int const count =
        mg_Clip2DArcToBox(centre, radius, start, end, box.c1, box.c2, angles, box.tol);
    auto const inside = mg_Arc2DInsideBox(centre, radius, start, end, box.c1, box.c2, box.tol);
    auto const whole = mg_Circle2DInsideBox(centre, radius, box.c1, box.c2, box.tol);
    CHECK(0 <= count && count <= 5 && angles[2 * count] == 77.0);
    if (!in.isTame() || radius < 0.0 || !(end >= start)) return;
    auto const onCircle = [&](double t) {
        return P(centre.x() + radius * std::cos(t), centre.y() + radius * std::sin(t), 0.0);
    };
    double const slack = 1e-9 * (1.0 + radius + std::fabs(start) + sweep),
                 once = std::min(sweep, 2 * kPi), step = 2 * kPi * radius / Box::kSteps;
    auto const at = [&](double share) { return onCircle(start + share * once); };
    box.checkSamples(inside, slack, step, at);
    box.checkSamples(whole, slack, step, [&](double s) { return onCircle(s * 2 * kPi); });
    double last = start;
    for (int i = 0; i < count; ++i) {
        double const from = angles[2 * i], to = angles[2 * i + 1];
        CHECK(from >= last - 1e-9 && to > from && to <= end + 2 * kPi);
        for (double const s : {0.0, 0.3, 0.5, 1.0})
            CHECK(box.depth(onCircle(from + s * (to - from)))
                  >= -box.tol - 1e-2 * std::sqrt(slack));
        last = to;
    }
    bool const isClear = box.tol <= 1e-8 && radius * sweep > 1e-6; // others may be too short
    for (int k = 1; k < Box::kSteps && isClear; ++k) { // each angle is in one arc or none
        double const angle = start + once * k / Box::kSteps, depth = box.depth(onCircle(angle));
        if (std::fabs(depth) < 1e-6 + slack) continue;
        int found = 0;
        for (int i = 0; i < count; ++i) {
            double const from = angles[2 * i], to = angles[2 * i + 1];
            found += std::fabs(std::remainder(angle - (from + to) / 2, 2 * kPi)) <= (to - from) / 2;
        }
        CHECK(found == (depth > 0.0 ? 1 : 0));
    }
}

} // namespace

void fuzz(Input &in) {
    P const corner1 = in.triple<P>(), corner2 = in.triple<P>(), a = in.triple<P>(),
            b = in.triple<P>();
    double const tol = in.flip() ? 1e-8 : std::fabs(in.number());
    Box const box{corner1, corner2, std::isnan(tol) ? 1e-8 : tol};
    checkSegment(in, box, a, b);
    checkArc(in, box, a);
}
