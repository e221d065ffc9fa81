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
    double const area[] = {cross(a1, b1, a2), cross(a1, b1, b2), cross(a2, b2, a1),
                           cross(a2, b2, b1)};
    auto expected = mgIntersect_None;
    if (area[0] == 0.0 && area[1] == 0.0) {
        int const k = a1.x() == b1.x() ? 1 : 0;
        double const from = std::max(std::min(a1[k], b1[k]), std::min(a2[k], b2[k]));
        double const to = std::min(std::max(a1[k], b1[k]), std::max(a2[k], b2[k]));
        if (from <= to) expected = from == to ? mgIntersect_Point : mgIntersect_Coincident;
    } else if (area[0] * area[1] <= 0.0 && area[2] * area[3] <= 0.0) {
        expected = mgIntersect_Point;
    }
    if (dist(a1, b1) == 0.0 || dist(a2, b2) == 0.0) expected = mgIntersect_None;
    P flat, out;
    CHECK(mg_LineSegIntLineSeg2D(a1, b1, a2, b2, &flat) == expected);
    auto const inSpace = mg_LineSegIntLineSeg(a1, b1, a2, b2, out, 1e-8);
    // There, rounding decides about a crossing at an end.
    if (std::count(area, area + 4, 0.0) > 0 || area[0] == area[1]) return;
    CHECK(inSpace == expected && (inSpace == mgIntersect_None || dist(out, flat) < 1e-9));
}

void checkLines(Input &in, P const &p, P const &q, U const &dir) {
    V const d1 = in.triple<V>(), d2 = in.triple<V>();
    double const tol = in.flip() ? 1e-8 : in.number(), size = 1.0 + dist(p, q);
    mgLine_c const line(p, dir), other(q, in.direction());
    P out, sink;
    auto const type = mg_LineIntLine(p, d1, q, d2, &out, tol);
    for (int const each : {type, mg_LineIntLine2D(p, d1, q, d2, &sink, tol),
                           mg_LineSegIntLineSeg(p, q, P(d1), P(d2), sink, tol),
                           mg_LineSegIntLineSeg2D(p, q, P(d1), P(d2), &sink),
                           mg_LineIntLineSeg(line, q, P(d1), &sink, tol),
                           mg_RayIntLineSeg(line, q, P(d1), &sink, tol)})
        CHECK(0 <= each && each <= mgIntersect_None);
    double t1 = 0.0, t2 = 0.0;
    double const gap = line.distToLine(other, &t1, &t2);
    if (!in.isTame() || tol <= 0.0 || tol > 1e-6) return;
    U const u1 = mg_Normalise(d1), u2 = mg_Normalise(d2), &v = other.direction();
    double const sine = (u1 * u2).len();
    if ((type == mgIntersect_Point || type == mgIntersect_None) && sine > 1e-3) {
        V const off = (out - q) - ((out - q) % u2) * u2; // from the nearest point of the other line
        CHECK(((out - p) * u1).len() < 1e-9 * size / sine
              && std::fabs(off % u1) < 1e-9 * size / sine);
        CHECK((type == mgIntersect_Point) == (off.len() < tol)
              || std::fabs(off.len() - tol) < 2e-6 * size);
    }
    if (!dir.isParallelTo(v)) CHECK(std::fabs(dist(p + t1 * dir, q + t2 * v) - gap) < 1e-5 * size);
}

void checkCircles(Input &in, P const &p, P const &centre, U const &dir) {
    double const r1 = in.number(), r2 = in.number(), size = 1.0 + dist(p, centre) + std::fabs(r1);
    P out1 = unwritten, out2 = unwritten;
    auto const type = mg_LineIntCircle2D(p, dir, centre, r1, &out1, &out2);
    CHECK(type <= mgLineCircle_Miss);
    CHECK(type != mgLineCircle_Miss || (same(out1, unwritten) && same(out2, unwritten)));
    bool const isPlanar = r1 > 0.01 && isUnit(dir) && dir.z() == 0.0 && p.z() == centre.z();
    for (P const &out : {out1, out2})
        if (in.isTame() && isPlanar && !same(out, unwritten))
            CHECK(std::fabs(dist(out, centre) - r1) + ((out - p) * dir).len() < 2e-7 * size);
    out1 = out2 = unwritten;
    auto const meet = mg_CircleIntCircle2D(p, r1, centre, r2, &out1, &out2);
    CHECK((meet == mgIntersect_Point || meet == mgIntersect_TwoPoints) == !same(out1, unwritten));
    CHECK((meet == mgIntersect_TwoPoints) == !same(out2, unwritten));
    double const d = std::hypot(p.x() - centre.x(), p.y() - centre.y());
    if (!in.isTame() || d < 1e-3 || meet != mgIntersect_TwoPoints) return;
    double const found = std::hypot(out1.x() - p.x(), out1.y() - p.y());
    CHECK(std::fabs(found - std::fabs(r1)) < 1e-6 * (1 + (r1 * r1 + r2 * r2) / d));
}

void checkPlanes(Input &in, P const &p, P const &q, U const &dir) {
    mgPlane_c const a(p, dir), b(q, in.direction());
    P const corners[3] = {p, q, in.triple<P>()};
    mgLine_c common;
    P centre, from, to;
    U normal;
    double param = 77;
    auto const type = mg_PlaneIntPlane(a, b, &common);
    CHECK(mg_LineSegIntPlane(q, corners[2], a, &from, &param) <= mgLinePlane_Point && param != 77);
    CHECK(mg_LineIntPlane({q, dir}, b, &from, nullptr) <= mgLinePlane_Point);
    for (int const k : {0, 1})
        CHECK(b.projectToPlane(in.placement(), &from, k) <= mgLinePlane_Point);
    CHECK(b.projectToPlaneOnViewLine(in.placement(), &from, 0) <= mgLinePlane_Point);
    mg_Find3PointArcCenter(corners, &centre, &normal), mg_IsPolylineLine(3, corners, from, to);
    P const root = common.rootPoint(), mirrored = mg_MirrorPoint(p, q - corners[2], from);
    double const sine = (a.normal() * b.normal()).len(), size = 1.0 + dist(p, q) + dist(p, from);
    if (!in.isTame()) return;
    CHECK(dist(mg_MirrorPoint(p, q - corners[2], mirrored), from) < 1e-9 * size);
    CHECK(type <= mgPlnPln_Failed);
    if (type == mgPlnPln_Line && sine > 1e-3)
        CHECK((common.direction() * mg_Normalise(a.normal() * b.normal())).len() < 1e-7 / sine);
    if (type == mgPlnPln_Line && sine > 1e-3)
        for (mgPlane_c const &plane : {a, b})
            CHECK(plane.isPointOn(root, 2e-8 * (size + dist(root, p)) / sine));
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
