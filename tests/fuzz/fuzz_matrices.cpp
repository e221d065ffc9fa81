// SPDX-License-Identifier: MIT
// Matrices of any numbers: eigenpairs and null vectors fulfil their equations, and rotations are
// found again from axis and angle, quaternion and 4x4 matrix.

#include "fuzz.h"

namespace {

void checkEigensystem(mgMatrix_c const &m, double size) {
    double values[3] = {};
    U vectors[3];
    CHECK(m.getEigensystem(values, vectors) == 1 || size > 1e3);
    CHECK(values[0] <= values[1] && values[1] <= values[2]);
    for (int i = 0; i < 3; ++i) {
        V const twice = V(m * P(vectors[i]) - P()) + (V(vectors[i]) * m);
        CHECK((twice * 0.5 - values[i] * vectors[i]).len() < 1e-12 * size);
        CHECK(isUnit(vectors[i]) && std::fabs(vectors[i] % vectors[(i + 1) % 3]) < 1e-12);
    }
}

void checkNullspace(mgMatrix_c const &m, double size) {
    U basis[3];
    int const count = m.getNullspace(basis, false);
    double const d = m.getDeterminant();
    CHECK(0 <= count && count <= 3
          && (count == 3) == (m.isNearZero() == 1 && std::fabs(d) <= 1e-8));
    CHECK((count == 0) == (std::fabs(d) > 1e-8));
    for (int i = 0; i < count; ++i) CHECK(isUnit(basis[i]));
    if (count == 2) CHECK((basis[0] * m).len() < 3e-4 && (basis[1] * m).len() < 3e-4);
    if (count == 1 && std::fabs(d) == 0.0) CHECK(V(m * P(basis[0]) - P()).len() < 1e-6 * size);
}

void checkRotation(mgMatrix_c const &m) {
    auto const isSame = [&m](mgMatrix_c const &other, double tol) {
        for (int k = 0; k < 9; ++k)
            if (!(std::fabs(m[k] - other[k]) < tol)) return false;
        return true;
    };
    U const axis = m.getRotationAxis();
    double const angle = m.getRotationAngle(&axis);
    CHECK(isUnit(axis) && std::fabs(angle) <= 2 * kPi);
    CHECK(isSame(mg_RotationMatrix(-angle, axis, 0.0), 2e-4));
    mgQuaternion_c q, half;
    q.matrixToQuat(m);
    mgMatrix_c fromQuaternion;
    q.quatToMatrix(fromQuaternion);
    CHECK(isSame(fromQuaternion, 1e-9) && isSame(m.inverse().inverse(), 1e-12));
    half.quatSlerp(mgQuaternion_c(), q, 0.5), half.quatToMatrix(fromQuaternion);
    if (q[3] > 0.01) CHECK(isSame(fromQuaternion * fromQuaternion, 1e-7));
    mgMatrix_c repaired = m;
    repaired.iValidateRepairOrthonormality();
    CHECK(isSame(repaired, 2e-4) && repaired.iValidateRepairOrthonormality() == 0);
}

void checkMatrix4(Input &in) {
    mgMatrix4_c a, b;
    for (int k = 0; k < 12; ++k) a.getDataPtr()[k] = in.number(), b.getDataPtr()[k] = in.number();
    double const t = in.number();
    mgMatrix4_c const between = mgMatrix4_c::interpolate(a, b, t), product = a * a.inverse();
    if (in.isTame()) CHECK((t > 0.0 || between == a) && (t < 1.0 || between == b) && !(a < a));
    P const p = in.triple<P>();
    double size = 1.0;
    for (int k = 0; k < 12; ++k) size += std::fabs(a.getDataPtr()[k]);
    if (in.isTame() && std::fabs(a.getDeterminant()) > 1e-3)
        CHECK(isNear(product.mult(p), p, 1e-10 * size * size * size * (1.0 + dist(p, P()))));
    a.isRigid(), a.getRotationAxis(), a.getRotationAngle(V(p)), a.convertToMatrix();
    mgMatrix4_c::rotationMatrix(V(p), t),
        mgMatrix4_c::rigidTransform(V(p), b.getTranslation(), V(p));
}

} // namespace

void fuzzOne(Input &in) {
    double elements[9], size = 1.0;
    for (double &element : elements) size += std::fabs(element = in.number());
    if (in.byte() < 100) std::copy(elements, elements + 3, elements + 3 * in.below(3));
    mgMatrix_c const m(elements, in.flip() ? 0 : 1);
    mgMatrix_c repaired = m;
    repaired.iValidateRepairOrthonormality(), m.inverse(), m.transpose().isNearIdentity();
    checkMatrix4(in);
    if (in.isTame()) {
        size = 1.0;
        for (int k = 0; k < 9; ++k) size += std::fabs(m[k]);
        checkEigensystem(m, size);
        checkNullspace(m, size);
        mgMatrix_c const rotation = in.rotation();
        if (rotation.getDeterminant() > 0.5) checkRotation(rotation);
    } else {
        U vectors[3];
        double values[3];
        m.getEigensystem(values, vectors), m.getNullspace(vectors, in.flip());
        m.getRotationAngle(nullptr);
    }
}
