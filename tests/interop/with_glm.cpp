// SPDX-License-Identifier: MIT
// Tests of interop/glm.h.

#include <vexmath/interop/glm.h>

#include "interop/agreement.h"

namespace {

using namespace common;

struct Side {
    template <class T>
    static auto to(T const &object) {
        return vexmath::toGlm(object);
    }
    static P move(glm::dmat4 const &x, P const &p) {
        return vexmath::toPoint(glm::dvec3(x * glm::dvec4(to(p), 1.0)));
    }
    static V rotate(glm::dmat3 const &m, V const &v) { return vexmath::toVector(m * to(v)); }
    static P move4(glm::dmat4 const &m, P const &p) { return move(m, p); }
    static glm::dmat4 then(glm::dmat4 const &a, glm::dmat4 const &b) { return b * a; }
};

} // namespace

TEST(InteropGlm, BothLibrariesAgree) { CheckAgreement<Side>(); }
