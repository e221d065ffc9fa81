// SPDX-License-Identifier: MIT
// General transforms: placements with a scale for each axis of a body.

#include <vexmath/gen_xform.h>

#include "transform/xform_parts.h"

#include <algorithm>
#include <memory>
#include <new>

namespace {

/// Range of a factor; bounds included, NaN not.
constexpr double kSmallestFactor = 0.001;
constexpr double kLargestFactor = 1000.0;

bool allInRange(double const *factors) {
    return std::all_of(factors, factors + 3, [](double factor) {
        return factor >= kSmallestFactor && factor <= kLargestFactor;
    });
}

/// Multiplies row i of a 4x4 matrix, stored column by column, by a factor.
void scaleRow(double *gl, int i, double factor, int columns) {
    for (int j = 0; j < columns; ++j) gl[4 * j + i] *= factor;
}

/// product = m a, all 4x4 matrices column by column.
void multiply(double const *m, double const *a, double *product) {
    for (int j = 0; j < 4; ++j) {
        for (int i = 0; i < 4; ++i) {
            double const *const column = a + 4 * j;
            product[4 * j + i] = m[i] * column[0] + m[4 + i] * column[1] + m[8 + i] * column[2]
                                 + m[12 + i] * column[3];
        }
    }
}

} // namespace

mgGenXform_c *mgGenXform_c::create(mgXform_c const *placing, mgXform_c const *body,
                                   double const *scales) {
    if (scales == nullptr || !allInRange(scales)) return nullptr;
    try {
        auto made = placing != nullptr ? std::make_unique<mgGenXform_c>(*placing)
                                       : std::make_unique<mgGenXform_c>();
        made->set(body, scales);
        return made.release();
    } catch (std::bad_alloc const &) {
        return nullptr;
    }
}

int mgGenXform_c::set(mgXform_c const *body, double const *scales) {
    if (scales != nullptr && !allInRange(scales)) return 0;
    if (body != nullptr) body_ = *body; // may throw, with nothing changed
    if (scales != nullptr) std::copy(scales, scales + 3, scale_);
    return 1;
}

int mgGenXform_c::isScaleIdentity() const {
    /// How far a factor may be from 1; bound included.
    constexpr double kNearOne = 1e-08;
    return std::all_of(scale_, scale_ + 3,
                       [](double factor) { return std::fabs(1.0 - factor) <= kNearOne; });
}

mgPoint_c mgGenXform_c::operator*(mgPoint_c const &p) const {
    mgXform_c const &placing = *this;
    mgPoint_c q = p;
    if (!isScaleIdentity()) {
        bool const hasBody = !body_.isIdentity();
        if (hasBody) q *= body_.inverse();
        q.set(q.x() * scale_[0], q.y() * scale_[1], q.z() * scale_[2]);
        if (hasBody) q *= body_;
    }
    // QUIRK: gen_xform.h, mgGenXform_c::operator*: a placing transform that isIdentity is skipped
    // together with its perspective record. Expected: the perspective division. Kept: callers and
    // stored data depend on it. (test: PerspectiveAloneDoesNotPlace)
    if (!placing.isIdentity()) q *= placing;
    return q;
}

void mgGenXform_c::getGenGLData(double *gl) const {
    mgXform_c const &placing = *this;
    if (isScaleIdentity()) {
        placing.getGLData(gl);
        return;
    }
    if (body_.isIdentity()) {
        // QUIRK: gen_xform.h, mgGenXform_c::getGenGLData: without a body frame the factors act
        // along the world axes, after the placing rotation. Expected: the map of
        // mgGenXform_c::operator*, which scales before placing. Kept: callers and stored data
        // depend on it. (test: WithoutABodyFrameTheArrayScalesInWorldAxes)
        placing.getGLData(gl);
        for (int i = 0; i < 3; ++i) scaleRow(gl, i, scale_[i], 3);
        return;
    }
    double intoBody[16];
    double outOfBody[16];
    body_.inverse().getGLData(intoBody);
    for (int i = 0; i < 3; ++i) scaleRow(intoBody, i, scale_[i], 4);
    using vexmath::detail::withoutRecord;
    (withoutRecord(body_) * withoutRecord(placing)).getGLData(outOfBody);
    multiply(outOfBody, intoBody, gl);
}
