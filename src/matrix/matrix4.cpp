// SPDX-License-Identifier: MIT
// 4x4 matrices: construction, arithmetic, rotations and their interpolation.

#include <vexmath/matrix4.h>
#include <vexmath/mg_vector.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

/// Sum, difference and scaling work on elements 0 to 11, the first three rows.
constexpr int kAffineElements = 12;

/// The affine matrix of the three columns of its upper left 3x3 and of its translation.
mgMatrix4_c fromColumns(mgVector_c const &x, mgVector_c const &y, mgVector_c const &z,
                        mgVector_c const &origin) {
    mgMatrix4_c m;
    for (int i = 0; i < 3; ++i) {
        m(i, 0) = x.component(i);
        m(i, 1) = y.component(i);
        m(i, 2) = z.component(i);
    }
    return m.setTranslation(origin);
}

} // namespace

mgMatrix4_c mgMatrix4_c::rotationMatrix(mgVector_c const &axis, double angle) {
    /// Length from which an axis is used for every angle; bound included.
    constexpr double kLongEnough = 0.0001;
    double const length = axis.len();
    // QUIRK: matrix4.h, mgMatrix4_c::rotationMatrix: the length of a short axis is compared with
    // the signed angle, and an angle that is not larger gives the identity. Expected: a test of the
    // axis alone. Kept: callers and stored data depend on it. (test:
    // ShortAxisRotatesOnlyByAnAngleAboveItsLength)
    if (!(length < angle || length >= kLongEnough)) return mgMatrix4_c();
    mgVector_c const a = axis / length;
    double const x = a.x();
    double const y = a.y();
    double const z = a.z();
    double const c = std::cos(angle);
    double const s = std::sin(angle);
    double const t = 1.0 - c;
    return fromColumns({t * x * x + c, s * z + t * x * y, t * x * z - s * y},
                       {t * x * y - s * z, t * y * y + c, x * s + t * y * z},
                       {s * y + t * x * z, t * y * z - x * s, t * z * z + c}, {});
}

mgMatrix4_c mgMatrix4_c::rigidTransform(mgVector_c const &origin, mgVector_c const &xDir,
                                        mgVector_c const &yDir) {
    mgUnitVector_c const x = mg_Normalise(xDir);
    mgUnitVector_c const side = mg_Normalise(yDir);
    if (x.isNull() || side.isNull() || x.isParallelTo(side)) return translationMatrix(origin);
    mgUnitVector_c const z = mg_Normalise(x * side);
    return fromColumns(x, z * x, z, origin);
}

mgMatrix4_c mgMatrix4_c::vvt(mgVector_c const &v) {
    return fromColumns(v * v.x(), v * v.y(), v * v.z(), {});
}

mgMatrix4_c mgMatrix4_c::interpolate(mgMatrix4_c const &a, mgMatrix4_c const &b, double t) {
    if (t <= 0.0) return a;
    if (t >= 1.0) return b;
    mgVector_c const translation = (1.0 - t) * a.getTranslation() + t * b.getTranslation();
    double const scale = std::exp((1.0 - t) * std::log(a.getScale()) + t * std::log(b.getScale()));
    mgMatrix4_c const step = a.inverse() * b;
    mgVector_c const axis = step.getRotationAxis();
    mgMatrix4_c const part = rotationMatrix(axis, step.getRotationAngle(axis) * t);
    return (a.getRotation() * part).scale(scale).setTranslation(translation);
}

mgMatrix4_c mgMatrix4_c::getRotation() const {
    mgMatrix4_c rotation = *this;
    rotation.setTranslation({});
    // QUIRK: matrix4.h, mgMatrix4_c::getRotation: the last element is divided too and becomes
    // 1 / scale. Expected: 1. Kept: isRigid() finds a scale by it.
    // (test: RotationOfAScaledMatrixEndsInOneOverTheScale)
    double const scale = getScale();
    for (double &element : rotation.m_) element /= scale;
    return rotation;
}

int mgMatrix4_c::operator==(mgMatrix4_c const &b) const {
    return std::equal(std::begin(m_), std::end(m_), std::begin(b.m_));
}

bool mgMatrix4_c::operator<(mgMatrix4_c const &b) const {
    return std::lexicographical_compare(std::begin(m_), std::end(m_), std::begin(b.m_),
                                        std::end(b.m_));
}

mgMatrix4_c mgMatrix4_c::operator+(mgMatrix4_c const &b) const {
    mgMatrix4_c sum;
    for (int k = 0; k < kAffineElements; ++k) sum.m_[k] = m_[k] + b.m_[k];
    return sum;
}

mgMatrix4_c mgMatrix4_c::operator-(mgMatrix4_c const &b) const {
    // QUIRK: matrix4.h, mgMatrix4_c::operator-: a - b gives b - a. Expected: a - b. Kept: callers
    // and stored data depend on it. (test: DifferenceOfAffineMatricesIsTheArgumentMinusThis)
    mgMatrix4_c difference;
    for (int k = 0; k < kAffineElements; ++k) difference.m_[k] = b.m_[k] - m_[k];
    return difference;
}

mgMatrix4_c mgMatrix4_c::scale(double s) const {
    mgMatrix4_c scaled;
    for (int k = 0; k < kAffineElements; ++k) scaled.m_[k] = m_[k] * s;
    return scaled;
}

mgMatrix4_c mgMatrix4_c::operator*(mgMatrix4_c const &b) const {
    mgMatrix4_c product;
    for (int i = 0; i < 4; ++i) {
        double const *row = m_ + 4 * i;
        for (int j = 0; j < 4; ++j) {
            product.m_[4 * i + j] = row[0] * b.m_[j] + row[1] * b.m_[4 + j] + row[2] * b.m_[8 + j]
                                    + row[3] * b.m_[12 + j];
        }
    }
    return product;
}

mgMatrix4_c mgMatrix4_c::transpose() const {
    mgMatrix4_c transposed;
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) transposed.m_[4 * i + j] = m_[4 * j + i];
    }
    return transposed;
}

mgMatrix4_c mgMatrix4_c::inverse() const {
    /// Absolute determinant below which there is no inverse; strict.
    constexpr double kSmallestDeterminant = 1e-13;
    double const determinant = getDeterminant();
    if (std::fabs(determinant) < kSmallestDeterminant) return mgMatrix4_c();
    double const *m = m_;
    double const reciprocal = 1.0 / determinant;
    mgMatrix4_c inverse;
    inverse.m_[0] = (m[5] * m[10] - m[6] * m[9]) * reciprocal;
    inverse.m_[1] = (m[2] * m[9] - m[1] * m[10]) * reciprocal;
    inverse.m_[2] = (m[1] * m[6] - m[2] * m[5]) * reciprocal;
    inverse.m_[4] = (m[6] * m[8] - m[4] * m[10]) * reciprocal;
    inverse.m_[5] = (m[0] * m[10] - m[2] * m[8]) * reciprocal;
    inverse.m_[6] = (m[2] * m[4] - m[0] * m[6]) * reciprocal;
    inverse.m_[8] = (m[4] * m[9] - m[5] * m[8]) * reciprocal;
    inverse.m_[9] = (m[1] * m[8] - m[0] * m[9]) * reciprocal;
    inverse.m_[10] = (m[0] * m[5] - m[1] * m[4]) * reciprocal;
    return inverse.setTranslation(-(inverse * getTranslation()));
}

mgVector_c mgMatrix4_c::getRotationAxis() const {
    mgVector_c moved[3]; // the images of the coordinate axes minus the axes
    bool known[3];
    for (int c = 0; c < 3; ++c) {
        mgVector_c column(m_[c], m_[4 + c], m_[8 + c]);
        known[c] = column.normalise() != 0;
        double *const along = column;
        if (known[c]) along[c] -= 1.0;
        moved[c] = column;
    }
    for (int c = 0; c < 3; ++c) {
        int const d = (c + 1) % 3;
        if (!known[c] || !known[d]) continue;
        mgVector_c axis = moved[c] * moved[d];
        if (axis.normalise()) return axis;
    }
    // QUIRK: matrix4.h, mgMatrix4_c::getRotationAxis, mgMatrix4_c::interpolate: a rotation by less
    // than about 1e-4 radians gives the x axis, so a step of that size about y or z is left out.
    // Expected: the axis of the rotation. Kept: callers and stored data depend on it.
    // (test: AStepTooSmallToTellItsAxisRotatesAboutX)
    return mgUnitVector_c::xAxis();
}

double mgMatrix4_c::getRotationAngle(mgVector_c axis) const {
    mgUnitVector_c const unit = mg_Normalise(axis);
    return getRotation().convertToMatrix().getRotationAngle(&unit);
}

int mgMatrix4_c::isRigid() const {
    /// Distance of R times its transpose from the identity; bound included.
    constexpr double kRigidDistance = 0.0001;
    if (!(m_[12] == 0.0 && m_[13] == 0.0 && m_[14] == 0.0 && m_[15] == 1.0)) return 0;
    mgMatrix4_c const rotation = getRotation();
    return (rotation * rotation.transpose()).distTo(mgMatrix4_c()) <= kRigidDistance;
}

double mgMatrix4_c::distTo(mgMatrix4_c const &b) const {
    double sum = 0.0;
    for (int k = 0; k < 16; ++k) sum += (m_[k] - b.m_[k]) * (m_[k] - b.m_[k]);
    return std::sqrt(sum);
}

mgMatrix_c mgMatrix4_c::convertToMatrix() const {
    double const upperLeft[9] = {m_[0], m_[1], m_[2], m_[4], m_[5], m_[6], m_[8], m_[9], m_[10]};
    return mgMatrix_c(upperLeft, 1);
}
