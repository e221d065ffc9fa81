// SPDX-License-Identifier: MIT
// Triangles in the plane.

#include <vexmath/mg_primitives.h>

namespace {

struct Vector2 {
    double x;
    double y;

    double sqlen() const { return x * x + y * y; }
};

Vector2 from(double const *a, double const *b) { return {b[0] - a[0], b[1] - a[1]}; }

void setWeights(double *out, double w0, double w1, double w2) {
    out[0] = w0;
    out[1] = w1;
    out[2] = w2;
}

} // namespace

void getBaricentricCoordinates(double tol, double const *p, double const (*tri)[2], double *out,
                               int &degenerate) {
    Vector2 const e1 = from(tri[0], tri[1]);
    Vector2 const e2 = from(tri[0], tri[2]);
    Vector2 const d = from(tri[0], p);
    double const twiceArea = e2.y * e1.x - e1.y * e2.x;
    bool const flat = twiceArea == 0.0 || twiceArea * twiceArea < e1.sqlen() * tol * e2.sqlen();
    degenerate = flat;
    if (flat) {
        setWeights(out, -1.0, -1.0, -1.0);
        return;
    }
    // One reciprocal, two multiplications; dividing each weight changes last bits.
    double const reciprocal = 1.0 / twiceArea;
    double const w1 = (e2.y * d.x - e2.x * d.y) * reciprocal;
    double const w2 = (e1.x * d.y - e1.y * d.x) * reciprocal;
    setWeights(out, 1.0 - (w2 + w1), w1, w2);
}
