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
    call(&array, count, nullptr), call(nullptr, listed, &list);
    CHECK(count == listed && (count > 0) == (array != nullptr) && count >= 0);
    Points const points(array, array == nullptr ? array : array + count + 1);
    CHECK(list.Count() == static_cast<int>(points.size()));
    for (int i = 0; i < list.Count(); ++i) CHECK(same(list[i], array[i]));
    delete[] array;
    return points;
}

/// An arc and an ellipse in the frame of a direction.
void checkArcs(Input &in, P const &centre, U const &normal) {
    double const radius = in.number(), minor = in.number(), tol = in.number(), from = in.number(),
                 to = in.number();
    U u, v;
    mg_getBasis(normal, u, v);
    bool const isCurve = in.isTame() && isUnit(normal) && radius > 0.01;
    auto const at = [&](double t) {
        return P(centre + radius * std::cos(t) * u + radius * std::sin(t) * v);
    };
    P const start = isCurve ? at(from) : in.triple<P>(), end = isCurve ? at(to) : in.triple<P>();
    arcEdgeData arc;
    arc.center = centre, arc.radius = radius, normal.get(arc.normal);
    Points const onArc = pointsOf([&](P **array, int &n, suDynamicArray<P> *list) {
        mg_TessArc(&arc, &start, &end, tol, array, n, list);
    });
    CHECK(onArc.empty()
          || (same(onArc.front(), start) && same(onArc.back(), end) && onArc.size() <= 242));
    for (P const &p : onArc)
        CHECK(!isCurve
              || std::fabs(dist(p, centre) - radius) < 1e-9 * (1.0 + radius + dist(centre, P())));

    ellipseEdgeData ellipse;
    ellipse.center = centre, ellipse.majorRadius = radius, ellipse.minorRadius = minor;
    ellipse.start = start, ellipse.end = in.triple<P>();
    u.get(ellipse.majorDir), v.get(ellipse.minorDir);
    Points const onEllipse = pointsOf([&](P **array, int &n, suDynamicArray<P> *list) {
        mg_TessEllipse(&ellipse, nullptr, nullptr, tol, array, n, list);
    });
    CHECK(onEllipse.size() <= 241);
    for (P const &p : onEllipse)
        CHECK(!isCurve || minor < 0.01
              || std::fabs(std::hypot((p - centre) % u / radius, (p - centre) % v / minor) - 1.0)
                     < 1e-6);
}

/// Parabolas, and conics by their end tangents.
void checkConic(Input &in, P const &vertex, U const &normal) {
    parabolaEdgeData c;
    c.vertex = vertex, c.focus = in.triple<P>(), c.start = in.triple<P>(), c.end = in.triple<P>(),
    normal.get(c.normal);
    double const share = in.number();
    if (in.flip()) c.focus = interpolate(share, vertex, interpolate(0.5, c.start, c.end));
    double const f = dist(c.focus, vertex),
                 e = mg_getConicEccentricity(c.focus, vertex, c.start, c.end),
                 used = std::max(e, 1.0);
    bool const isLong = !(12.5 * dist(c.start, c.end) < 2e3 * f);
    U const axis = mg_Normalise(c.focus - vertex);
    V const area = (c.start - vertex) * (c.end - vertex);
    for (auto const tessellate : {mg_TessParabola, mg_TessBConic, mg_TessParabolaOrBConic}) {
        if (isLong && tessellate != mg_TessBConic) continue;
        Points const points = pointsOf([&](P **array, int &n, suDynamicArray<P> *list) {
            tessellate(&c, 0.01, array, n, list);
        });
        if (points.empty() || !in.isTame()) continue;
        if (tessellate == mg_TessBConic) {
            CHECK(same(points.front(), c.start) && same(points.back(), c.end));
            for (P const &p : points) // in the triangle
                for (auto const &[a, b] :
                     {std::pair(c.start, c.end), {c.end, vertex}, {vertex, c.start}})
                    CHECK(((b - a) * (p - a)) % area > -1e-9 * (1.0 + area.sqlen()));
        }
        bool const isExact = tessellate == mg_TessParabola && f > 0.01 && std::fabs(e) < 10.0
                             && isUnit(normal) && std::fabs(axis % normal) < 1e-9;
        for (P const &p : points) { // as far from the directrix as from the focus
            double const toDirectrix = (p - vertex) % axis + f / used, size = 1.0 + dist(p, vertex);
            CHECK(!isExact
                  || std::fabs(dist(p, c.focus) - used * toDirectrix) < 1e-6 * size * size);
        }
    }
}

void checkShape(Input &in) {
    P const start = in.triple<P>(), end = in.triple<P>(), apex = in.triple<P>();
    double const rho = in.isTame() ? (1 + in.below(250)) / 256.0 : in.number(),
                 e = eccByRho(rho, start, end, apex);
    double const again =
        rhoConic(start, end, apex, interpolate(rho, interpolate(0.5, start, end), apex));
    V const xs = in.triple<V>();
    double const x = xConic(xs[0], xs[1], xs[2]);
    CHECK((e == -1.0 || e >= 0.0) && 0.0 <= again && again < 1.0 && (x == -1.0 || x >= 0.0));
    CHECK(!in.isTame() || e < 0.0
          || (std::fabs(again - rho) < 1e-6 && (rho < 0.5 ? e <= 1.0 : e >= 1.0)));
    suDynamicArray<P> list;
    int const n = in.below(40) - 2, isDone = parabolicPoints(start, end, apex, n, list);
    CHECK(list.Count() == (isDone ? n : 0)
          && (!isDone || (same(list[0], start) && same(list[n - 1], end))));
    V const a = apex - start, b = end - start;
    double const size = (a * b).sqlen();
    for (int i = 0; i < list.Count() && in.isTame() && size > 1e-2; ++i) {
        V const p = list[i] - start; // its weights of apex and end are those of a parabola
        double const s = (p * b) % (a * b) / size, t = (a * p) % (a * b) / size;
        CHECK(std::fabs(s * s - 4.0 * t * (1.0 - s - t)) < 1e-6);
    }
}

} // namespace

void fuzz(Input &in) {
    P const p = in.triple<P>();
    U const normal = in.direction();
    checkArcs(in, p, normal);
    checkConic(in, p, normal);
    checkShape(in);
}
