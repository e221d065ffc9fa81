// SPDX-License-Identifier: MIT
// Points: parameters and distances on lines, collinearity, markers, dump.

#include <vexmath/mg_vector.h>
#include <vexmath/point.h>

#include <vexmath_platform/string.h>

using vexmath::kLengthTolerance;

double mgPoint_c::getParamOnLine(mgPoint_c const &a, mgPoint_c const &b) const {
    mgVector_c const d = b - a;
    int longest = std::fabs(d.x()) < std::fabs(d.y()) ? 1 : 0;
    if (std::fabs(d.z()) > std::fabs(d.component(longest))) longest = 2;
    return (*this - a).component(longest) / d.component(longest);
}

mgPoint_c mgPoint_c::mirror(mgPoint_c const &p, mgVector_c const &n) const {
    double const t = (*this - p) % n;
    return *this + (-2.0 * t) * n;
}

// QUIRK: point.h, mgPoint_c::distToRay: the distance is that to the whole line. Expected: to the
// part in front of the root, as the name says. Kept: callers and stored data depend on it. (test:
// ParametersAndFeetLieWhereTheyShould)
double mgPoint_c::distToRay(mgPoint_c const &root, mgVector_c const &unitDir, double *param) const {
    mgVector_c const v = *this - root;
    double const t = v % unitDir;
    if (param != nullptr) *param = t;
    return (v - t * unitDir).len();
}

double mgPoint_c::distToLine(mgPoint_c const &a, mgPoint_c const &b, double *param,
                             mgPoint_c *foot) const {
    mgVector_c const d = b - a;
    double t = 0.0;
    mgPoint_c f = a;
    if (!(d.len() < kLengthTolerance)) {
        t = ((*this - a) % d) / (d % d);
        f = a + t * d;
    }
    double const distance = dist(*this, f);
    if (param != nullptr) *param = t;
    if (foot != nullptr) *foot = f;
    return distance;
}

int mgPoint_c::checkCollinear(mgPoint_c const pts[3], mgPoint_c &point, mgVector_c &normal) {
    mgPoint_c const p0 = pts[0];
    mgPoint_c const p1 = pts[1];
    mgPoint_c const p2 = pts[2];
    int const same01 = p0 == p1;
    int const same02 = p0 == p2;
    int const same12 = p1 == p2;
    point = p0;

    if (!same01 && !same02 && !same12) {
        mgVector_c const across = (p2 - p0) * (p1 - p0);
        int const collinear = across.isNull();
        normal = collinear ? (p1 - p0).anyUnitNormal(0) : across;
        return collinear;
    }
    if (same01 && same02) {
        normal = mgVector_c();
    } else if (same01) {
        normal = (p2 - p0).anyUnitNormal(0);
    } else if (same02) {
        normal = (p1 - p0).anyUnitNormal(0);
    }
    // QUIRK: point.h, mgPoint_c::checkCollinear: when only the last two points are equal, the
    // normal is not written. Expected: a normal, as in the cases above. Kept: callers and stored
    // data depend on it. (test: LastTwoPointsEqualLeaveTheNormal)
    return 1;
}

namespace {

// QUIRK: point.h, mgPoint_c::getPLUSrep,mgPoint_c::getXrep: the arms towards the origin are shorter
// than the others. Expected: equal arms. Kept: callers and stored data depend on it.
// (test: MarkerArmsAreUnequal)
/// Lengths of a marker's arms in sizes: towards the origin, and away from it.
constexpr double kInnerArmSizes = 3.0;
constexpr double kOuterArmSizes = 4.0;

double awayFromOrigin(double coordinate) { return coordinate < 0.0 ? -1.0 : 1.0; }

} // namespace

void mgPoint_c::getPLUSrep(mgPoint_c &p1, mgPoint_c &p2, mgPoint_c &p3, mgPoint_c &p4,
                           double size) const {
    mgPoint_c const c = *this;
    double const sx = awayFromOrigin(c.c_[0]);
    double const sy = awayFromOrigin(c.c_[1]);
    double const inner = kInnerArmSizes * size;
    double const outer = kOuterArmSizes * size;
    p1.set(c.c_[0] - sx * inner, c.c_[1], 0.0);
    p2.set(c.c_[0] + sx * outer, c.c_[1], 0.0);
    p3.set(c.c_[0], c.c_[1] - sy * inner, 0.0);
    p4.set(c.c_[0], c.c_[1] + sy * outer, 0.0);
}

void mgPoint_c::getXrep(mgPoint_c &p1, mgPoint_c &p2, mgPoint_c &p3, mgPoint_c &p4,
                        double size) const {
    mgPoint_c const c = *this;
    double const sx = awayFromOrigin(c.c_[0]);
    double const sy = awayFromOrigin(c.c_[1]);
    double const inner = kInnerArmSizes * size;
    double const outer = kOuterArmSizes * size;
    p1.set(c.c_[0] - sx * inner, c.c_[1] - sy * inner, 0.0);
    p2.set(c.c_[0] + sx * outer, c.c_[1] + sy * outer, 0.0);
    p3.set(c.c_[0] + sx * inner, c.c_[1] - sy * inner, 0.0);
    p4.set(c.c_[0] - sx * outer, c.c_[1] + sy * outer, 0.0);
}

void mgPoint_c::Dump(CDumpContext &dc) const {
    CString text;
    text.Format(L"(%.4f", c_[0]);
    dc << static_cast<wchar_t const *>(text);
    text.Format(L",%.4f", c_[1]);
    dc << static_cast<wchar_t const *>(text);
    text.Format(L",%.4f)", c_[2]);
    dc << static_cast<wchar_t const *>(text);
}
