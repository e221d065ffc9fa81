// SPDX-License-Identifier: MIT
// Lines, segments, circles and planes: on whole numbers segments meet as exact arithmetic says, and
// for everyday numbers each result is on both operands.

#include "fuzz.h"

namespace {

double cross(P const &o, P const &a, P const &b) {
    return (a.x() - o.x()) * (b.y() - o.y()) - (a.y() - o.y()) * (b.x() - o.x());
}

void checkWhole(Input &in) {
    P const a1 = in.whole(9), b1 = in.whole(9), a2 = in.whole(9), b2 = in.whole(9);
    // Signed areas, which are exact: the ends of a segment and the line of the other.
    double const areas[] = {cross(a1, b1, a2), cross(a1, b1, b2), cross(a2, b2, a1),
                            cross(a2, b2, b1)};
    auto expected = mgIntersect_None;
    if (dist(a1, b1) == 0.0 || dist(a2, b2) == 0.0) {
    } else if (areas[0] == 0.0 && areas[1] == 0.0) {
        int const k = a1.x() == b1.x() ? 1 : 0;
        double const from = std::max(std::min(a1[k], b1[k]), std::min(a2[k], b2[k]));
        double const to = std::min(std::max(a1[k], b1[k]), std::max(a2[k], b2[k]));
        if (from <= to) expected = from == to ? mgIntersect_Point : mgIntersect_Coincident;
    } else if (areas[0] * areas[1] <= 0.0 && areas[2] * areas[3] <= 0.0) {
        expected = mgIntersect_Point;
    }
    P flat, out;
    CHECK(mg_LineSegIntLineSeg2D(a1, b1, a2, b2, &flat) == expected);
    auto const inSpace = mg_LineSegIntLineSeg(a1, b1, a2, b2, out, 1e-8);
    // There, rounding decides about a crossing at an end.
    if (std::count(areas, areas + 4, 0.0) > 0 || areas[0] == areas[1]) return;
    CHECK(inSpace == expected && (inSpace == mgIntersect_None || dist(out, flat) < 1e-9));
}

void checkLines(Input &in, P const &p, P const &q, U const &dir) {
    V const d1 = in.triple<V>(), d2 = in.triple<V>();
    double const tol = in.flip() ? 1e-8 : in.number();
    mgLine_c const line(p, dir), other(q, in.direction());
    P out, flat, sink;
    auto const type = mg_LineIntLine(p, d1, q, d2, &out, tol);
    auto const type2D = mg_LineIntLine2D(p, d1, q, d2, &flat, tol);
    int const most = std::max({mg_LineIntLineSeg(line, q, P(d1), &sink, tol),
                               mg_RayIntLineSeg(line, q, P(d1), &sink, tol),
                               mg_LineSegIntLineSeg2D(p, q, P(d1), P(d2), &sink)});
    double t1 = 0.0, t2 = 0.0;
    double const gap = line.distToLine(other, &t1, &t2);
    CHECK(std::max({type, type2D, mgIntersectionType_e(most)}) <= mgIntersect_None);
    if (!in.isTame() || tol <= 0.0 || tol > 1e-6) return;
    U const u1 = mg_Normalise(d1), u2 = mg_Normalise(d2);
    double const size = 1.0 + dist(p, q), sine = (u1 * u2).len();
    if (type == mgIntersect_Point && sine > 1e-3)
        CHECK(((out - p) * u1).len() < 1e-9 * size / sine && ((out - q) * u2).len() < 2e-6 * size);
    if (type2D == mgIntersect_Point && d1.z() == 0.0 && d2.z() == 0.0 && sine > 1e-3)
        CHECK(std::fabs(cross(p, P(p + u1), flat)) + std::fabs(cross(q, P(q + u2), flat))
              < 1e-6 * size / sine);
    if (!dir.isParallelTo(other.direction()))
        CHECK(std::fabs(dist(p + t1 * dir, q + t2 * other.direction()) - gap) < 1e-5 * size
              && gap <= dist(p, q) + 1e-9);
}

void checkCircles(Input &in, P const &p, P const &centre, U const &dir) {
    double const r1 = in.number(), r2 = in.number();
    P out1 = unwritten, out2 = unwritten;
    auto const type = mg_LineIntCircle2D(p, dir, centre, r1, &out1, &out2);
    CHECK(type != mgLineCircle_Miss || (same(out1, unwritten) && same(out2, unwritten)));
    double const size = 1.0 + dist(p, centre) + std::fabs(r1);
    bool const isPlanar =
        in.isTame() && r1 > 0.01 && isUnit(dir) && dir.z() == 0.0 && p.z() == centre.z();
    for (P const &out : {out1, out2})
        if (isPlanar && !same(out, unwritten))
            CHECK(std::fabs(dist(out, centre) - r1) + ((out - p) * dir).len() < 2e-7 * size);
    out1 = out2 = unwritten;
    auto const meet = mg_CircleIntCircle2D(p, r1, centre, r2, &out1, &out2);
    CHECK((meet == mgIntersect_Point || meet == mgIntersect_TwoPoints) == !same(out1, unwritten));
    CHECK((meet == mgIntersect_TwoPoints) == !same(out2, unwritten));
    double const d = std::hypot(p.x() - centre.x(), p.y() - centre.y());
    for (P const &out : {out1, out2})
        if (in.isTame() && d > 1e-3 && meet == mgIntersect_TwoPoints)
            CHECK(std::fabs(std::hypot(out.x() - p.x(), out.y() - p.y()) - std::fabs(r1))
                  < 1e-6 * (1 + (r1 * r1 + r2 * r2) / d));
}

void checkPlanes(Input &in, P const &p, P const &q, U const &dir) {
    mgPlane_c const a(p, dir), b(q, in.direction());
    P const corners[3] = {p, q, in.triple<P>()}, &r = corners[2];
    mgLine_c common;
    P out, centre, mirrored;
    U normal;
    double param = 77;
    auto const type = mg_PlaneIntPlane(a, b, &common);
    auto const crossing = mg_LineSegIntPlane(q, r, a, &out, &param);
    int const isArc = mg_Find3PointArcCenter(corners, &centre, &normal);
    CHECK(crossing <= mgLinePlane_Point && param != 77 && type <= mgPlnPln_Failed);
    CHECK(mg_IsPolylineLine(3, corners, out, mirrored) <= 1);
    mirrored = mg_MirrorPoint(p, q - r, out);
    if (!in.isTame()) return;
    double const size = 1.0 + dist(p, q) + dist(p, r), sine = (a.normal() * b.normal()).len();
    P const root = common.rootPoint();
    for (mgPlane_c const &plane : {a, b})
        if (type == mgPlnPln_Line && sine > 1e-3)
            CHECK(plane.isPointOn(root, 2e-8 * (size + dist(root, p)) / sine)
                  && std::fabs(plane.normal() % common.direction()) < 2e-8);
    U const pq = mg_Normalise(q - p), qr = mg_Normalise(r - q), rp = mg_Normalise(p - r);
    if (isArc && (pq * qr).len() * (qr * rp).len() * (rp * pq).len() > 1e-2)
        CHECK(std::fabs(dist(centre, p) - dist(centre, q))
                  + std::fabs(dist(centre, p) - dist(centre, r))
              < 1e-7 * size);
    CHECK(dist(mg_MirrorPoint(p, q - r, mirrored), out) < 1e-9 * (size + dist(p, out)));
}

} // namespace

void fuzz(Input &in) {
    P const p = in.triple<P>(), q = in.triple<P>();
    U const dir = in.direction();
    checkWhole(in);
    checkLines(in, p, q, dir);
    checkCircles(in, p, q, dir);
    checkPlanes(in, p, q, dir);
}
