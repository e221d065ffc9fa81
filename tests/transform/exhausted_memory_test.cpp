// SPDX-License-Identifier: MIT
// Transforms when memory for a perspective record is exhausted.

#include "common/geometry.h"

#include <cstdlib>
#include <new>

namespace {
bool isExhausted = false;
} // namespace

void *operator new(std::size_t size) {
    if (isExhausted) throw std::bad_alloc();
    void *const block = std::malloc(size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}
void *operator new(std::size_t size, std::nothrow_t const &) noexcept {
    try {
        return operator new(size);
    } catch (std::bad_alloc const &) {
        return nullptr;
    }
}
void operator delete(void *block) noexcept { std::free(block); }
void operator delete(void *block, std::size_t) noexcept { operator delete(block); }
void operator delete(void *block, std::nothrow_t const &) noexcept { operator delete(block); }

namespace {

using support::raw;

/// Does the work throw when no memory is left?
template <class Work>
bool throws(Work const &work) {
    isExhausted = true;
    bool thrown = false;
    try {
        work();
    } catch (std::bad_alloc const &) {
        thrown = true;
    }
    isExhausted = false;
    return thrown;
}

mgXform_c const turn = mg_RotateXform(1.0, {1.0, 2.0, 3.0}, 0.0);
mgXform_c const old = raw({}, {1.0, 2.0, 3.0}, 4.0, 1);

mgXform_c viewWithRecord() {
    mgXform_c view = raw(turn.rotation(), {7.0, 8.0, 9.0}, 2.0);
    view.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 4.0));
    return view;
}

TEST(ExhaustedMemory, ATransformThatGetsNoRecordIsUnchanged) {
    mgXform_c const view = viewWithRecord();
    mgXform_c x = old;
    EXPECT_TRUE(throws([&] { x = view; }));
    EXPECT_TRUE(throws([&] { x *= view; }));
    EXPECT_TRUE(throws([&] { x.addPerspectiveInfo(mgPerspInfo_c()); }));
    EXPECT_BITS_EQ(old, x);
    EXPECT_EQ(0, x.hasPerspective());
}

TEST(ExhaustedMemory, AViewingRayAllocatesNothing) {
    mgXform_c const view = viewWithRecord();
    mgPoint_c p;
    mgUnitVector_c dir;
    int isCamera = -1;
    EXPECT_FALSE(throws([&] {
        mg_getModelSpaceViewRay(view, p, 1, p, dir, isCamera, nullptr);
        p.xformByPerspInverse(view);
        p.xformByPerspInverseVisible(view);
    }));
}

} // namespace
