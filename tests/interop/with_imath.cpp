// SPDX-License-Identifier: MIT
// Tests of interop/imath.h.

#include <vexmath/interop/imath.h>

#include "interop/agreement.h"

namespace {

using namespace common;

struct Side {
    template <class T>
    static auto to(T const &object) {
        return vexmath::toImath(object);
    }
    static P move(Imath::M44d const &x, P const &p) { return vexmath::toPoint(to(p) * x); }
    static V rotate(Imath::M33d const &m, V const &v) { return vexmath::toVector(to(v) * m); }
    static P move4(Imath::M44d const &m, P const &p) { return move(m, p); }
    static Imath::M44d then(Imath::M44d const &a, Imath::M44d const &b) { return a * b; }
};

} // namespace

TEST(InteropImath, BothLibrariesAgree) { CheckAgreement<Side>(); }

TEST(InteropImath, BoxesKeepTheirCorners) { CheckBoxes<Side>(); }
