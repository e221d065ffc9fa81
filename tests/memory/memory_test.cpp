// SPDX-License-Identifier: MIT
// Which operations allocate, and what every operation does when it gets no memory. complete.sh
// checks that these are all exported operations.

#include <climits>

#include "common/geometry.h"
#include "common/operations.h"
#include "memory/heap.h"

namespace {

using namespace common;

/// Those that copy a perspective record.
std::string const throwing =
    "&X::operator*= &X::addPerspectiveInfo &X::iCopyPerspectiveInfo copiesOfViews ";

/// The others that need memory, some of them for the test's own list. What is called for every
/// vertex, placement or pair is not among them.
std::string const allocating =
    "&P::Dump &B::dump convexHull mg_OpenTSP mg_calcHatchLinesRect2D mg_cleanupPolarEdge "
    "mg_fixPolarConvolution mg_ClosedTSP parabolicPoints generalTransform allClashes searchIndex "
    "makeIndex tessellate outlines arrays list<int> list<double> list<P> list<V> "
    "list<mgIndexPair_c> selection<uoSelectType_c> selection<uoSelectConstraint_c> texts "
    "randomDirection ";

/// Does the run throw? The library gets `granted` blocks; then one request is refused or, when
/// `lasting`, all are.
bool throws(Operation const &operation, Objects const &objects, int granted, bool lasting) {
    Bits out;
    heap::refuseAfter(granted, lasting);
    try {
        operation.run(objects, out);
    } catch (std::bad_alloc const &) {
        return true;
    }
    return false;
}

TEST(Memory, OnlyCopiesOfPerspectivesThrowAndNothingLeaks) {
    Objects const objects;
    std::string allocatingNow, throwingNow;
    for (Operation const &operation : operations) {
        int const asked = heap::asked, held = heap::held;
        std::uint64_t const expected = bitsOf(operation, objects);
        bool const asks = heap::asked > asked;
        bool threw = false;
        for (bool const lasting : {false, true})
            for (int granted = 0, refused = 1; refused > 0; ++granted) {
                threw |= throws(operation, objects, granted, lasting);
                refused = heap::grantAll();
            }
        EXPECT_EQ(held, heap::held) << operation.name;
        EXPECT_EQ(expected, bitsOf(operation, objects)) << operation.name;
        if (asks) (threw ? throwingNow : allocatingNow) += operation.name + ' ';
    }
    EXPECT_EQ(throwing, throwingNow);
    if (VEXMATH_TEST_HAS_C_HEAP) {
        EXPECT_EQ(allocating, allocatingNow);
    }
}

TEST(Memory, APolylineIsAllocatedOnceOrNotAtAll) {
    arcEdgeData const arc{P(), {0.0, 0.0, 1.0}, 5.0};
    P const start(5.0, 0.0, 0.0);
    P *made = nullptr;
    int count = 0;
    int before = heap::asked;
    mg_TessArc(&arc, &start, &start, 0.001, &made, count, nullptr);
    EXPECT_EQ(before + 1, heap::asked);
    delete[] made;

    suDynamicArray<P> list;
    list.Adopt(static_cast<P *>(suDynArrayAlloc(count + 1, 1, 1, sizeof(P))));
    P const *const room = list.Data();
    before = heap::asked;
    mg_TessArc(&arc, &start, &start, 0.001, nullptr, count, &list);
    EXPECT_EQ(before, heap::asked);
    EXPECT_EQ(room, list.Data());
    EXPECT_EQ(count + 1, list.Count());
}

} // namespace
