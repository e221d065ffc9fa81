// SPDX-License-Identifier: MIT
// Lines, segments, circles and planes: on whole numbers segments meet as exact arithmetic says, and
// for everyday numbers each result is on both operands.

#include "fuzz.h"

namespace {

double cross(P const &o, P const &a, P const &b) {
    return (a.x() - o.x()) * (b.y() - o.y()) - (a.y() - o.y()) * (b.x() - o.x());
}

/// How two segments meet, exactly.
mgIntersectionType_e exactly(P a1, P b1, P a2, P b2) {
    if (dist(a1, b1) == 0.0 || dist(a2, b2) == 0.0) return mgIntersect_None;
    double const a = cross(a1, b1, a2), b = cross(a1, b1, b2);
    if (a == 0.0 && b == 0.0) {
        int const k = a1.x() == b1.x() ? 1 : 0;
        double const from = std::max(std::min(a1[k], b1[k]), std::min(a2[k], b2[k]));
        double const to = std::min(std::max(a1[k], b1[k]), std::max(a2[k], b2[k]));
        return from > to    ? mgIntersect_None
               : from == to ? mgIntersect_Point
                            : mgIntersect_Coincident;
    }
    bool const isCrossed = a * b <= 0.0 && cross(a2, b2, a1) * cross(a2, b2, b1) <= 0.0;
    return isCrossed ? mgIntersect_Point : mgIntersect_None;
}

void checkWhole(Input &in) {
    P const a1 = in.whole(9), b1 = in.whole(9), a2 = in.whole(9), b2 = in.whole(9);
    P flat, out;
    auto const expected = exactly(a1, b1, a2, b2);
    CHECK(mg_LineSegIntLineSeg2D(a1, b1, a2, b2, &flat) == expected);
    auto const inSpace = mg_LineSegIntLineSeg(a1, b1, a2, b2, out, 1e-8);
    bool const isParallel = cross(P(), P(b1 - a1), P(b2 - a2)) == 0.0;
    // In space, rounding decides about a crossing at an end.
    double const ends[] = {cross(a1, b1, a2), cross(a1, b1, b2), cross(a2, b2, a1),
                           cross(a2, b2, b1)};
    if (!isParallel && std::count(ends, ends + 4, 0.0) == 0)
        CHECK(inSpace == expected && (inSpace == mgIntersect_None || isNear(out, flat, 1e-9)));
    bool const meetAtA1 = isNear(a1, a2, 0.0) || isNear(a1, b2, 0.0);
    if (isParallel && expected == mgIntersect_Coincident) CHECK(inSpace == expected);
    if (isParallel && expected == mgIntersect_None)
        CHECK(inSpace == mgIntersect_None || inSpace == mgIntersect_Parallel || meetAtA1);
}

void checkCircles(Input &in, P const &p, U const &dir) {
    double const r1 = in.number(), r2 = in.number();
    P const centre = in.triple<P>(), unwritten(77, 77, 77);
    P out1 = unwritten, out2 = unwritten;
    auto const type = mg_LineIntCircle2D(p, dir, centre, r1, &out1, &out2);
    CHECK(type != mgLineCircle_Miss || (same(out1, unwritten) && same(out2, unwritten)));
    bool const isFlat =
        in.isTame() && r1 > 0.01 && isUnit(dir) && dir.z() == 0.0 && p.z() == centre.z();
    double const bound = 1e-7 * (1.0 + r1 + dist(p, centre));
    for (P const &out : {out1, out2})
        if (isFlat && !same(out, unwritten))
            CHECK(std::fabs(dist(out, centre) - r1) < bound && ((out - p) * dir).len() < bound);
    out1 = out2 = unwritten;
    auto const meet = mg_CircleIntCircle2D(p, r1, centre, r2, &out1, &out2);
    CHECK((meet == mgIntersect_Point || meet == mgIntersect_TwoPoints) == !same(out1, unwritten));
    CHECK((meet == mgIntersect_TwoPoints) == !same(out2, unwritten));
    double const d = std::hypot(p.x() - centre.x(), p.y() - centre.y());
    if (!in.isTame() || d < 1e-3 || meet != mgIntersect_TwoPoints) return;
    for (P const &out : {out1, out2})
        CHECK(std::fabs(std::hypot(out.x() - p.x(), out.y() - p.y()) - std::fabs(r1))
              < 1e-6 * (1 + (r1 * r1 + r2 * r2) / d));
}

void checkPlanes(Input &in, P const &p, U const &dir) {
    mgPlane_c const a(p, dir), b(in.triple<P>(), in.direction());
    P const q = in.triple<P>(), r = in.triple<P>();
    mgLine_c common;
    auto const type = mg_PlaneIntPlane(a, b, &common);
    P out;
    double param = 77;
    auto const crossing = mg_LineSegIntPlane(q, r, a, &out, &param);
    CHECK(crossing <= mgLinePlane_Point && param != 77 && type <= mgPlnPln_Failed);
    P const corners[3] = {p, q, r};
    P centre, from, to;
    U normal;
    int const isArc = mg_Find3PointArcCenter(corners, &centre, &normal);
    CHECK(mg_IsPolylineLine(3, corners, from, to) <= 1);
    if (!in.isTame()) return;
    double const size = 1.0 + dist(p, b.rootPoint()) + dist(p, q) + dist(p, r),
                 sine = (a.normal() * b.normal()).len();
    if (type == mgPlnPln_Line && sine > 1e-3)
        for (mgPlane_c const &plane : {a, b})
            CHECK(plane.isPointOn(common.rootPoint(),
                                  2e-8 * (size + dist(common.rootPoint(), p)) / sine)
                  && std::fabs(plane.normal() % common.direction()) < 2e-8);
    if (crossing == mgLinePlane_Point && std::fabs(mg_Normalise(r - q) % dir) > 1e-4)
        CHECK(a.isPointOn(out, 1e-7 * size));
    double const flatness = (mg_Normalise(q - p) * mg_Normalise(r - p)).len()
                            * (mg_Normalise(q - r) * mg_Normalise(r - p)).len();
    if (isArc && flatness > 1e-2)
        CHECK(std::fabs(dist(centre, p) - dist(centre, q))
                  + std::fabs(dist(centre, p) - dist(centre, r))
              < 1e-7 * size);
    CHECK(isNear(mg_MirrorPoint(p, q - r, mg_MirrorPoint(p, q - r, b.rootPoint())), b.rootPoint(),
                 1e-9 * size));
}

} // namespace

void fuzzOne(Input &in) {
    checkWhole(in);
    P const p = in.triple<P>(), q = in.triple<P>(), a = in.triple<P>();
    U const dir = in.direction(), other = in.direction();
    V const d1 = in.triple<V>(), d2 = in.triple<V>();
    double const tol = in.flip() ? 1e-8 : in.number();
    P out, flat, sink;
    auto const type = mg_LineIntLine(p, d1, q, d2, &out, tol);
    auto const type2D = mg_LineIntLine2D(p, d1, q, d2, &flat, tol);
    mgLine_c const line(p, dir);
    int const most = std::max({mg_LineIntLineSeg(line, q, a, &sink, tol),
                               mg_RayIntLineSeg(line, q, a, &sink, tol),
                               mg_LineSegIntLineSeg2D(p, q, a, P(d1), &sink)});
    CHECK(0 <= type && type <= mgIntersect_None && type2D <= mgIntersect_None
          && most <= mgIntersect_None);
    checkCircles(in, p, dir);
    checkPlanes(in, p, dir);
    if (!in.isTame() || tol <= 0.0 || tol > 1e-6) return;

    U const u1 = mg_Normalise(d1), u2 = mg_Normalise(d2);
    double const size = 1.0 + dist(p, q), sine = (u1 * u2).len();
    if (type == mgIntersect_Point && sine > 1e-3)
        CHECK(((out - p) * u1).len() < 1e-9 * size / sine && ((out - q) * u2).len() < 2e-6 * size);
    if (type2D == mgIntersect_Point && d1.z() == 0.0 && d2.z() == 0.0 && sine > 1e-3)
        CHECK(std::fabs(cross(p, P(p + d1), flat)) + std::fabs(cross(q, P(q + d2), flat))
              < 1e-6 * size * (1 + d1.len() + d2.len()) / sine);
    double t1 = 0.0, t2 = 0.0;
    mgLine_c const second(q, other);
    double const gap = line.distToLine(second, &t1, &t2);
    if (!dir.isParallelTo(other))
        CHECK(std::fabs(dist(p + t1 * dir, q + t2 * other) - gap) < 1e-5 * size
              && gap <= dist(p, q) + 1e-9);
}
