// SPDX-License-Identifier: MIT
// Tests of interop/eigen.h, glm.h and imath.h, each where its library is: both libraries move the
// same points to the same places, and what goes there and comes back is the same.

#if __has_include(<Eigen/Geometry>)
#include <vexmath/interop/eigen.h>
#endif
#if __has_include(<glm/glm.hpp>)
#include <vexmath/interop/glm.h>
#endif
#if __has_include(<ImathMatrix.h>)
#include <vexmath/interop/imath.h>
#endif

#include "common/geometry.h"

namespace {

using namespace vexmath;

/// The other library by `to(object)`, `move(matrix, p)` of a transform or a mgMatrix4_c,
/// `rotate(matrix, v)` and `then(first, second)`.
template <class To, class Move, class Rotate, class Then>
void CheckAgreement(To const &to, Move const &move, Rotate const &rotate, Then const &then) {
    /// Coordinates reach 1000; a few of their roundings.
    constexpr double kFewUlp = 1e-12;
    Random random;
    for (int i = 0; i < 200; ++i) {
        mgXform_c x = placement(random);
        if (i % 2 != 0) x *= mg_ReflectionXform(direction(random));
        mgXform_c const y = placement(random);
        auto const p = random.triple<P>(-10.0, 10.0);
        V const v = p;
        U const u = direction(random);
        mgMatrix4_c m = mgMatrix4_c::rotationMatrix(direction(random), random.uniform(-3.0, 3.0));
        m.setTranslation(v);
        EXPECT_LE(gap(move(to(x), p), p * x), kFewUlp);
        EXPECT_LE(gap(move(then(to(x), to(y)), p), p * x * y), 10 * kFewUlp);
        EXPECT_LE(gap(rotate(to(x.rotation()), v), v * x.rotation()), kFewUlp);
        EXPECT_LE(gap(move(to(m), p), m.mult(p)), kFewUlp);

        auto const back = toXform(to(x));
        ASSERT_TRUE(back.has_value());
        EXPECT_LE(gap(p * *back, p * x), kFewUlp);
        EXPECT_EQ(x.isReflection(), back->isReflection());
        mgXform_c const rigid = raw(y.rotation(), random.triple<V>(-5e-9, 5e-9)); // no copy's value
        EXPECT_BITS_EQ(rigid, *toXform(to(rigid)));
        EXPECT_BITS_EQ(x.rotation(), toMatrix(to(x.rotation())));
        EXPECT_EQ(1, m == toMatrix4(to(m)));
        EXPECT_BITS_EQ(p, toPoint(to(p)));
        EXPECT_BITS_EQ(v, toVector(to(v)));
        EXPECT_BITS_EQ(u, toDirection(to(u)));
    }
    EXPECT_BITS_EQ(U(), toDirection(to(U())));
}

template <class To>
void CheckBoxes(To const &to) {
    mgBBox_c const box(P(1, -2, 3), P(4, 5, 6));
    EXPECT_TRUE(box == toBox(to(box)));
    EXPECT_TRUE(to(mgBBox_c()).isEmpty());
    EXPECT_EQ(0, toBox(to(mgBBox_c())).isSet());
}

} // namespace

#if __has_include(<Eigen/Geometry>)
TEST(InteropEigen, BothLibrariesAgree) {
    auto const to = [](auto const &object) { return toEigen(object); };
    CheckAgreement(
        to,
        [](auto const &x, P const &p) {
            return toPoint((x.matrix() * toEigen(p).homogeneous()).hnormalized());
        },
        [](auto const &m, V const &v) { return toVector(m * toEigen(v)); },
        [](auto const &a, auto const &b) { return b * a; });
    CheckBoxes(to);
}

TEST(InteropEigen, AnArrayIsSeenWhereItIs) {
    P points[] = {{1, 2, 3}, {4, 5, 6}};
    auto view = asEigen(points, 2);
    view.row(1).array() += 10.0;
    EXPECT_BITS_EQ(P(4, 15, 6), points[1]);
    U const directions[] = {{0, 0, 1}, {1, 0, 0}};
    EXPECT_EQ(1.0, asEigen(directions, 2)(0, 1));
    EXPECT_EQ(0, asEigen(static_cast<V const *>(nullptr), 0).size());
}
#endif

#if __has_include(<glm/glm.hpp>)
TEST(InteropGlm, BothLibrariesAgree) {
    CheckAgreement([](auto const &object) { return toGlm(object); },
                   [](glm::dmat4 const &x, P const &p) {
                       return toPoint(glm::dvec3(x * glm::dvec4(toGlm(p), 1.0)));
                   },
                   [](glm::dmat3 const &m, V const &v) { return toVector(m * toGlm(v)); },
                   [](glm::dmat4 const &a, glm::dmat4 const &b) { return b * a; });
}
#endif

#if __has_include(<ImathMatrix.h>)
TEST(InteropImath, BothLibrariesAgree) {
    auto const to = [](auto const &object) { return toImath(object); };
    CheckAgreement(
        to, [](Imath::M44d const &x, P const &p) { return toPoint(toImath(p) * x); },
        [](Imath::M33d const &m, V const &v) { return toVector(toImath(v) * m); },
        [](Imath::M44d const &a, Imath::M44d const &b) { return a * b; });
    CheckBoxes(to);
}
#endif
