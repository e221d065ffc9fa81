// SPDX-License-Identifier: MIT
// Curved edges as polylines: array and list agree, nothing is written for degenerate input, and the
// points of everyday curves are on the curve.

#include "fuzz.h"

namespace {

/// The points that a tessellator returns, in both ways.
template <class Call>
Points pointsOf(Call const &call) {
    P *array = nullptr;
    int count = -1, listed = -1;
    suDynamicArray<P> list;
    timed([&] { return call(&array, count, nullptr), count; }), call(nullptr, listed, &list);
    CHECK(count == listed && (count > 0) == (array != nullptr) && count >= 0);
    Points const points(array, array == nullptr ? array : array + count + 1);
    CHECK(list.Count() == static_cast<int>(points.size()));
    for (int i = 0; i < list.Count(); ++i) CHECK(same(list[i], array[i]));
    delete[] array;
    return points;
}

/// An arc and an ellipse in the frame of a direction.
void checkArcs(Input &in, P const &centre, U const &normal) {
    double const r = in.number(), minor = in.number(), tol = in.number();
    V const angles = in.triple<V>();
    U u, v;
    mg_getBasis(normal, u, v);
    bool const isCurve = in.isTame() && isUnit(normal) && r > 0.01;
    auto const at = [&](double t) {
        return isCurve ? P(centre + r * std::cos(t) * u + r * std::sin(t) * v) : in.triple<P>();
    };
    P const start = at(angles.x()), end = at(angles.y());
    arcEdgeData arc;
    arc.center = centre, arc.radius = r, normal.get(arc.normal);
    Points const onArc =
        pointsOf([&](auto &&...out) { mg_TessArc(&arc, &start, &end, tol, out...); });
    CHECK(onArc.empty() || (same(onArc.front(), start) && same(onArc.back(), end)));
    double const bound = 1e-9 * (1.0 + r + dist(centre, P()));
    for (P const &p : onArc) CHECK(!isCurve || std::fabs(dist(p, centre) - r) < bound);
    double const turns = (angles.y() - angles.x()) / (2 * kPi), sweep = turns - std::floor(turns);
    for (std::size_t i = 0; i < onArc.size() && isCurve && 1e-6 < sweep && sweep < 1 - 1e-6; ++i)
        CHECK(
            dist(onArc[i], at(angles.x() + 2 * kPi * sweep * double(i) / double(onArc.size() - 1)))
            < 10 * bound); // equal steps, counter-clockwise

    ellipseEdgeData e;
    e.center = centre, e.majorRadius = r, e.minorRadius = minor, e.start = start, e.end = end;
    u.get(e.majorDir), v.get(e.minorDir);
    Points const onEllipse =
        pointsOf([&](auto &&...out) { mg_TessEllipse(&e, nullptr, nullptr, tol, out...); });
    CHECK((onArc.empty() && onEllipse.empty())
          || !(hasNaN(centre) || hasNaN(start) || hasNaN(end)));
    CHECK(onEllipse.size() <= 241 && onArc.size() <= 242);
    for (P const &p : onEllipse) {
        double const share = std::hypot((p - centre) % u / r, (p - centre) % v / minor);
        CHECK(!isCurve || minor < 0.01 || std::fabs(share - 1.0) < 1e-6);
    }
}

/// Parabolas, and conics by their end tangents.
void checkConic(Input &in, P const &vertex, U const &normal) {
    parabolaEdgeData c;
    c.vertex = vertex, c.focus = in.triple<P>(), c.start = in.triple<P>(), c.end = in.triple<P>();
    normal.get(c.normal);
    double const share = in.number();
    if (in.flip()) c.focus = interpolate(share, vertex, interpolate(0.5, c.start, c.end));
    double const f = dist(c.focus, vertex),
                 given = mg_getConicEccentricity(c.focus, vertex, c.start, c.end);
    double const e = std::max(given, 1.0);
    U const axis = mg_Normalise(c.focus - vertex);
    bool const isShort = 12.5 * dist(c.start, c.end) < 2e3 * f; // others have up to 1e7 points
    bool const isExact = in.isTame() && f > 0.01 && std::fabs(given) < 10.0 && isUnit(normal)
                         && std::fabs(axis % normal) < 1e-9;
    for (auto const tessellate : {mg_TessParabola, mg_TessBConic, mg_TessParabolaOrBConic}) {
        bool const isParabola = tessellate == mg_TessParabola;
        if (!isShort && tessellate != mg_TessBConic) continue;
        Points const points = pointsOf([&](auto &&...out) { tessellate(&c, 0.01, out...); });
        CHECK(points.empty()
              || !(hasNaN(vertex) || hasNaN(c.focus) || hasNaN(c.start) || hasNaN(c.end)));
        if (tessellate == mg_TessBConic && !points.empty())
            CHECK(same(points.front(), c.start) && same(points.back(), c.end));
        for (P const &p : points) { // as far from the directrix as from the focus
            double const toDirectrix = (p - vertex) % axis + f / e, size = 1.0 + dist(p, vertex);
            CHECK(!isParabola || !isExact
                  || std::fabs(dist(p, c.focus) - e * toDirectrix) < 1e-6 * size * size);
        }
    }
}

void checkShape(Input &in) {
    P const start = in.triple<P>(), end = in.triple<P>(), apex = in.triple<P>();
    double const rho = in.isTame() ? (1 + in.below(250)) / 256.0 : in.number();
    double const e = eccByRho(rho, start, end, apex), x = xConic(rho, in.number(), in.number());
    P const shoulder = interpolate(rho, interpolate(0.5, start, end), apex);
    double const again = rhoConic(start, end, apex, shoulder);
    CHECK((e == -1.0 || e >= 0.0) && 0.0 <= again && again < 1.0 && (x == -1.0 || x >= 0.0));
    if (in.isTame() && e >= 0.0 && dist(apex, shoulder) > 1e-3)
        CHECK(std::fabs(again - rho) < 1e-6 && (rho < 0.5 ? e <= 1.0 : e >= 1.0));
    // The side of 1/2 tells the kind, also of a flat triangle.
    double const off = std::pow(10.0, -1 - in.below(15)), few = in.below(256) / 64.0 - 1;
    P const flat = interpolate(few, start, end) + off * V(in.below(9) - 4, in.below(9) - 4, 1);
    for (int const side : {-1, 0, 1})
        if (double const kind = eccByRho(0.5 + side * off, start, end, flat);
            in.isTame() && kind >= 0.0)
            CHECK(side < 0 ? kind <= 1.0 : side == 0 ? kind == 1.0 : kind >= 1.0);
    suDynamicArray<P> list;
    int const n = in.below(40) - 2, isDone = parabolicPoints(start, end, apex, n, list);
    CHECK(list.Count() == (isDone ? n : 0));
    CHECK(!isDone || (same(list[0], start) && same(list[n - 1], end)));
}

} // namespace

void fuzz(Input &in) {
    P const p = in.triple<P>();
    U const normal = in.direction();
    checkArcs(in, p, normal);
    checkConic(in, p, normal);
    checkShape(in);
}
