// SPDX-License-Identifier: MIT
// Tests of interop/eigen.h.

#include <vexmath/interop/eigen.h>

#include "interop/agreement.h"

namespace {

using namespace common;

struct Side {
    template <class T>
    static auto to(T const &object) {
        return vexmath::toEigen(object);
    }
    static P move(Eigen::Affine3d const &x, P const &p) { return vexmath::toPoint(x * to(p)); }
    static V rotate(Eigen::Matrix3d const &m, V const &v) { return vexmath::toVector(m * to(v)); }
    static P move4(Eigen::Matrix4d const &m, P const &p) {
        return vexmath::toPoint((m * to(p).homogeneous()).hnormalized());
    }
    static Eigen::Affine3d then(Eigen::Affine3d const &a, Eigen::Affine3d const &b) {
        return b * a;
    }
};

} // namespace

TEST(InteropEigen, BothLibrariesAgree) { CheckAgreement<Side>(); }

TEST(InteropEigen, BoxesKeepTheirCorners) { CheckBoxes<Side>(); }

TEST(InteropEigen, AnArrayIsSeenWhereItIs) {
    P points[] = {{1, 2, 3}, {4, 5, 6}};
    auto view = vexmath::asEigen(points, 2);
    view.row(1).array() += 10.0;
    EXPECT_BITS_EQ(P(4, 15, 6), points[1]);
    U const directions[] = {{0, 0, 1}, {1, 0, 0}};
    EXPECT_EQ(1.0, vexmath::asEigen(directions, 2)(0, 1));
    EXPECT_EQ(0, vexmath::asEigen(static_cast<V const *>(nullptr), 0).size());
}
