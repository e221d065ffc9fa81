// SPDX-License-Identifier: MIT
// Transforms when memory for a perspective record cannot be had.

#include <vexmath/gen_xform.h>

#include "support/geometry.h"

#include <cstdlib>
#include <memory>
#include <new>

namespace {
int untilFailure = -1; ///< allocations before the one that fails; negative: none fails
int live = 0;
} // namespace

void *operator new(std::size_t size) {
    if (untilFailure >= 0 && untilFailure-- == 0) throw std::bad_alloc();
    void *const block = std::malloc(size);
    if (block == nullptr) throw std::bad_alloc();
    ++live;
    return block;
}
void *operator new(std::size_t size, std::nothrow_t const &) noexcept {
    try {
        return operator new(size);
    } catch (std::bad_alloc const &) {
        return nullptr;
    }
}
void operator delete(void *block) noexcept {
    live -= block != nullptr;
    std::free(block);
}
void operator delete(void *block, std::size_t) noexcept { operator delete(block); }
void operator delete(void *block, std::nothrow_t const &) noexcept { operator delete(block); }

namespace {

using support::raw;

/// Does the work throw when the allocation after so many fails? What it leaves behind is freed.
template <class Work>
bool throws(int allocations, Work const &work) {
    untilFailure = allocations;
    bool thrown = false;
    try {
        work();
    } catch (std::bad_alloc const &) {
        thrown = true;
    }
    untilFailure = -1;
    return thrown;
}

mgXform_c const turn = mg_RotateXform(1.0, {1.0, 2.0, 3.0}, 0.0);
mgXform_c const old = raw({}, {1.0, 2.0, 3.0}, 4.0, 1);
double const scales[3] = {2.0, 3.0, 4.0};

mgXform_c viewWithRecord() {
    mgXform_c view = raw(turn.rotation(), {7.0, 8.0, 9.0}, 2.0);
    view.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 4.0));
    return view;
}

TEST(ExhaustedMemory, AGeneralTransformIsNotCreatedAndNothingLeaks) {
    mgXform_c const view = viewWithRecord();
    for (int k = 0; k <= 3; ++k) { // the object and two records
        int const before = live;
        mgGenXform_c *made = nullptr;
        EXPECT_FALSE(throws(k, [&] { made = mgGenXform_c::create(&view, &view, scales); })) << k;
        EXPECT_EQ(k == 3, made != nullptr) << k;
        delete made;
        EXPECT_EQ(before, live) << k;
    }
}

TEST(ExhaustedMemory, WhatARecordIsNotAddedToIsAsItWas) {
    mgXform_c const view = viewWithRecord();
    mgXform_c x = old;
    EXPECT_TRUE(throws(0, [&] { x = view; }));
    EXPECT_TRUE(throws(0, [&] { x *= view; }));
    EXPECT_TRUE(throws(0, [&] { x.addPerspectiveInfo(mgPerspInfo_c()); }));
    EXPECT_BITS_EQ(old, x);
    EXPECT_EQ(0, x.hasPerspective());

    mgGenXform_c g;
    EXPECT_TRUE(throws(0, [&] { g.set(&view, scales); }));
    EXPECT_EQ(1, g.isScaleIdentity());
    EXPECT_EQ(0, g.getBodyXform().rotate());
}

TEST(ExhaustedMemory, AViewingRayNeedsNone) {
    mgXform_c const view = viewWithRecord();
    mgPoint_c p;
    mgUnitVector_c dir;
    int isCamera = -1;
    EXPECT_FALSE(throws(0, [&] {
        mg_getModelSpaceViewRay(view, p, 1, p, dir, isCamera, nullptr);
        p.xformByPerspInverse(view);
        p.xformByPerspInverseVisible(view);
    }));
}

} // namespace
