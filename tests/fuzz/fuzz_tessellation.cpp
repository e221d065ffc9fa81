// SPDX-License-Identifier: MIT
// Curved edges as polylines: array and list agree, nothing is written for degenerate input, and the
// points of everyday curves are on the curve.

#include "fuzz.h"

namespace {

using Points = std::vector<P>;

/// The points that a tessellator returns in both ways.
template <class Call>
Points pointsOf(Call const &call) {
    P *array = nullptr;
    int count = -1, listed = -1;
    suDynamicArray<P> list;
    call(&array, count, nullptr), call(nullptr, listed, &list);
    CHECK(count == listed && (count > 0) == (array != nullptr) && count >= 0);
    Points const points(array, array == nullptr ? array : array + count + 1);
    CHECK(list.Count() == static_cast<int>(points.size()));
    for (int i = 0; i < list.Count(); ++i)
        CHECK(same(list[i], points[static_cast<std::size_t>(i)]));
    delete[] array;
    return points;
}

/// A frame (u, v, normal) that is right-handed and orthonormal, or null.
struct Frame {
    explicit Frame(U const &direction) : normal(direction) { mg_getBasis(normal, u, v); }
    U normal, u, v;
};

void copy(V const &from, double *to) { from.get(to); }

void checkArc(Input &in, P const &centre, Frame const &f, double radius, double tol) {
    double const from = in.number(), to = in.number();
    auto const at = [&](double t) {
        return centre + radius * std::cos(t) * f.u + radius * std::sin(t) * f.v;
    };
    P const start = in.isTame() ? P(at(from)) : in.triple<P>(),
            end = in.isTame() ? P(at(to)) : in.triple<P>();
    arcEdgeData arc;
    arc.center = centre, arc.radius = radius;
    copy(f.normal, arc.normal);
    Points const points = pointsOf([&](P **array, int &count, suDynamicArray<P> *list) {
        mg_TessArc(&arc, &start, &end, tol, array, count, list);
    });
    if (points.empty()) return;
    CHECK(same(points.front(), start) && same(points.back(), end) && points.size() <= 242);
    for (P const &p : points)
        if (in.isTame() && isUnit(f.normal))
            CHECK(std::fabs(dist(p, centre) - radius) < 1e-9 * (1.0 + radius + dist(centre, P())));
}

void checkEllipse(Input &in, P const &centre, Frame const &f, double radius, double tol) {
    ellipseEdgeData e;
    e.center = centre, e.majorRadius = radius, e.minorRadius = in.number();
    e.start = in.triple<P>(), e.end = in.triple<P>();
    copy(f.u, e.majorDir), copy(f.v, e.minorDir);
    Points const points = pointsOf([&](P **array, int &count, suDynamicArray<P> *list) {
        mg_TessEllipse(&e, nullptr, nullptr, tol, array, count, list);
    });
    CHECK(points.size() <= 241);
    for (P const &p : points) {
        double const x = (p - centre) % f.u / radius, y = (p - centre) % f.v / e.minorRadius;
        if (in.isTame() && radius > 0.01 && e.minorRadius > 0.01 && isUnit(f.u) && isUnit(f.v))
            CHECK(std::fabs(std::hypot(x, y) - 1.0) < 1e-6);
    }
}

/// Parabolas, and conics by their end tangents.
void checkConic(Input &in, P const &vertex, Frame const &f, double tol) {
    parabolaEdgeData c;
    c.vertex = vertex, c.focus = in.triple<P>(), c.start = in.triple<P>(), c.end = in.triple<P>();
    double const share = in.number();
    if (in.flip()) c.focus = interpolate(share, vertex, interpolate(0.5, c.start, c.end));
    copy(f.normal, c.normal);
    double const distance = dist(c.focus, vertex),
                 segments = 12.5 * dist(c.start, c.end) / distance;
    bool const isLong = !(segments < 2e3); // takes too long, or is refused
    double const e = mg_getConicEccentricity(c.focus, vertex, c.start, c.end);
    for (auto const tessellate : {mg_TessParabola, mg_TessBConic, mg_TessParabolaOrBConic}) {
        if (isLong && tessellate != mg_TessBConic) continue;
        Points const points = pointsOf([&](P **array, int &count, suDynamicArray<P> *list) {
            tessellate(&c, tol, array, count, list);
        });
        if (points.empty() || !in.isTame()) continue;
        if (tessellate == mg_TessBConic) {
            CHECK(same(points.front(), c.start) && same(points.back(), c.end));
            // In the triangle, from start to end.
            V const normal = (c.start - vertex) * (c.end - vertex);
            for (P const &p : points)
                for (auto const &[a, b] : {std::pair(c.start, c.end), std::pair(c.end, vertex),
                                           std::pair(vertex, c.start)})
                    CHECK(((b - a) * (p - a)) % normal > -1e-9 * (1.0 + normal.sqlen()));
        } else if (tessellate == mg_TessParabola && distance > 0.01 && std::fabs(e) < 10.0) {
            CHECK(points.size() > 10);
            U const axis = mg_Normalise(c.focus - vertex);
            double const conic = std::max(e, 1.0);
            for (P const &p : points) {
                double const toDirectrix = (p - vertex) % axis + distance / conic,
                             size = 1.0 + dist(p, vertex);
                if (isUnit(f.normal) && std::fabs(axis % f.normal) < 1e-9)
                    CHECK(std::fabs(dist(p, c.focus) - conic * toDirectrix) < 1e-6 * size * size);
            }
        }
    }
}

void checkShape(Input &in) {
    P const start = in.triple<P>(), end = in.triple<P>(), apex = in.triple<P>();
    double const rho = in.isTame() ? (1 + in.below(250)) / 256.0 : in.number(),
                 e = eccByRho(rho, start, end, apex);
    P const shoulder = interpolate(rho, interpolate(0.5, start, end), apex);
    double const again = rhoConic(start, end, apex, shoulder);
    CHECK(e == -1.0 || e >= 0.0);
    CHECK(std::isnan(e) || (again >= 0.0 && again < 1.0) || !in.isTame());
    if (in.isTame() && e >= 0.0)
        CHECK(std::fabs(again - rho) < 1e-6
              && (rho < 0.5   ? e <= 1.0
                  : rho > 0.5 ? e >= 1.0
                              : e == 1.0));
    double const x = xConic(in.number(), in.number(), in.number());
    CHECK(x == -1.0 || x >= 0.0);
    suDynamicArray<P> list;
    int const n = in.below(40) - 2;
    int const isDone = parabolicPoints(start, end, apex, n, list);
    CHECK(list.Count() == (isDone ? n : 0));
    if (isDone) CHECK(same(list[0], start) && same(list[n - 1], end));
    // On the parabola of the control triangle.
    V const a = apex - start, b = end - start;
    double const size = (a * b).sqlen();
    for (int i = 1; i + 1 < list.Count() && in.isTame() && size > 1e-2; ++i) {
        V const p = list[i] - start;
        double const s = (p * b) % (a * b) / size, t = (a * p) % (a * b) / size; // of apex and end
        CHECK(std::fabs(s * s - 4.0 * t * (1.0 - s - t)) < 1e-6);
    }
}

} // namespace

void fuzzOne(Input &in) {
    P const centre = in.triple<P>();
    Frame const frame(in.direction());
    double const radius = in.number(), tol = in.number();
    checkArc(in, centre, frame, radius, tol);
    checkEllipse(in, centre, frame, radius, tol);
    checkConic(in, centre, frame, tol);
    checkShape(in);
}
