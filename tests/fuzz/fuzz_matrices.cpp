// SPDX-License-Identifier: MIT
// Matrices of any numbers: eigenpairs and null vectors fulfil their equations, and rotations are
// found again from axis and angle, and from a quaternion.

#include "fuzz.h"

namespace {

bool areNear(mgMatrix_c const &a, mgMatrix_c const &b, double tol) {
    for (int k = 0; k < 9; ++k)
        if (!(std::fabs(a[k] - b[k]) < tol)) return false;
    return true;
}

void checkVectors(mgMatrix_c const &m) {
    double size = 1.0, values[3] = {};
    for (int k = 0; k < 9; ++k) size += std::fabs(m[k]);
    U vectors[3];
    CHECK(m.getEigensystem(values, vectors) == 1 || size > 1e3);
    CHECK(std::is_sorted(values, values + 3));
    for (int i = 0; i < 3; ++i) {
        V const twice = V(m * P(vectors[i]) - P()) + V(vectors[i]) * m;
        CHECK((twice * 0.5 - values[i] * vectors[i]).len() < 1e-12 * size);
        CHECK(isUnit(vectors[i]) && std::fabs(vectors[i] % vectors[(i + 1) % 3]) < 1e-12);
    }
    double const d = std::fabs(m.getDeterminant());
    int const count = m.getNullspace(vectors, false);
    CHECK((count == 0) == (d > 1e-8) && (count == 3) == (m.isNearZero() == 1 && d <= 1e-8));
    for (int i = 0; i < count; ++i) CHECK(isUnit(vectors[i]));
    if (count == 2) CHECK((vectors[0] * m).len() < 3e-4 && (vectors[1] * m).len() < 3e-4);
    if (count == 1 && d == 0.0) CHECK((m * P(vectors[0]) - P()).len() < 1e-6 * size);
}

void checkRotation(mgMatrix_c const &m) {
    U const axis = m.getRotationAxis();
    CHECK(areNear(m, mg_RotationMatrix(-m.getRotationAngle(&axis), axis, 0.0), 2e-4));
    mgQuaternion_c q, half;
    mgMatrix_c other, repaired = m;
    q.matrixToQuat(m), q.quatToMatrix(other);
    CHECK(areNear(m, other, 1e-9) && areNear(m, m.inverse().inverse(), 1e-12));
    half.quatSlerp(mgQuaternion_c(), q, 0.5), half.quatToMatrix(other);
    CHECK(q[3] < 0.01 || areNear(m, other * other, 1e-7));
    repaired.iValidateRepairOrthonormality();
    CHECK(areNear(m, repaired, 2e-4) && repaired.iValidateRepairOrthonormality() == 0);
}

} // namespace

void fuzz(Input &in) {
    double elements[9], values[3];
    for (double &element : elements) element = in.number();
    if (in.byte() < 100) std::copy(elements, elements + 3, elements + 3 * in.below(3));
    mgMatrix_c const m(elements, in.flip() ? 0 : 1), rotation = in.rotation();
    U vectors[3];
    m.getEigensystem(values, vectors), m.getNullspace(vectors, true), m.getRotationAngle(nullptr);
    mgMatrix4_c a, b;
    for (int k = 0; k < 12; ++k) a.getDataPtr()[k] = in.number(), b.getDataPtr()[k] = in.number();
    double const t = in.number();
    mgMatrix4_c const between = mgMatrix4_c::interpolate(a, b, t);
    a.inverse().getRotationAngle(a.getRotationAxis());
    if (!in.isTame()) return;
    CHECK((t > 0.0 || between == a) && (t < 1.0 || between == b));
    checkVectors(m);
    if (rotation.getDeterminant() > 0.5) checkRotation(rotation);
}
