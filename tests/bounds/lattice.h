// SPDX-License-Identifier: MIT
// Boxes and placements that often touch, or miss each other by what decides; lists of clashes.

#ifndef VEXMATH_TESTS_BOUNDS_LATTICE_H
#define VEXMATH_TESTS_BOUNDS_LATTICE_H

#include <vexmath/bulk.h>
#include <vexmath/su_dynamic_array.h>

#include <vector>

#include "bounds/boxes.h"

namespace common {

/// A corner coordinate on a small lattice, or off it by what rounding and tolerances decide.
inline double latticeNumber(Random &random) {
    double const offsets[] = {1e-8, -1e-8, 5e-9, -5e-9, 1.1e-8, 0.125, -0.125};
    if (random.below(100) == 0) return random.hostile();
    double const x = random.below(4);
    int const kind = random.below(14);
    return kind < 7 ? x + offsets[kind] : kind == 7 ? below(x) : kind == 8 ? above(x) : x;
}

inline P latticePoint(Random &random) {
    return {latticeNumber(random), latticeNumber(random), latticeNumber(random)};
}

inline constexpr double tolerances[] = {
    0,     -0.0, 1e-8,  -1e-8, 5e-324, -1e-300, 1e-9,      -1e-3,      0.1, -0.1, 0.25,
    -0.25, 0.5,  -0.5,  0.999, 1,      -1,      -1.001,    2,          -2,  1e3,  1e8,
    1e30,  1e39, 1e155, 1e300, kMax,   -kMax,   kInfinity, -kInfinity, kNaN};
inline double anyTolerance(Random &random) {
    return tolerances[random.below(static_cast<int>(std::size(tolerances)))];
}

/// A box that often touches others, often with a sphere of another place or size.
inline mgBBox_c latticeBox(Random &random) {
    mgBBox_c box(latticePoint(random), latticePoint(random));
    double const radii[] = {0.0, 0.5, 1.0, 2.0, box.sphRadius(), box.sphRadius(), random.hostile()};
    if (random.below(2) == 0) box.setSphereOnly(latticePoint(random), radii[random.below(7)]);
    if (random.below(20) == 0) box.setCornersOnly(latticePoint(random), latticePoint(random));
    return box;
}

/// Quarter turns, some off by what copies and orthonormalisation decide, in a common frame.
inline mgXform_c matingPlacement(Random &random, mgXform_c const &frame) {
    U const axes[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    double const angle = 1.5707963267948966 * random.below(4)
                         + (random.below(3) == 0 ? random.ofMagnitude(-16, -6) : 0.0);
    double const scales[] = {1, 1, 1, 1, 1 + 5e-9, 1 + 2e-8, 5e-4};
    V const shift(0.5 * latticePoint(random)); // sometimes infinite or NaN
    mgMatrix_c const turn = mg_RotationMatrix(angle, axes[random.below(3)], 0.0);
    return raw((mg_RestoreXform(turn, V(), 1) * frame).rotation(), shift * frame,
               scales[random.below(7)]);
}

/// By quarters within 1e-09 and beyond, by an eighth, mirrored, or any.
inline mgMatrix_c anyRotation(Random &random) {
    U const axis =
        random.below(2) == 0 ? U(random.below(2), random.below(2), 1.0) : direction(random);
    double const quarter = std::acos(0.0);
    double const angles[] = {0.0, random.below(4) * quarter, 0.5 * quarter,
                             quarter + random.uniform(-2e-9, 2e-9), random.uniform(-3.0, 3.0)};
    mgMatrix_c const turn = mg_RotationMatrix(angles[random.below(5)], axis, 0.0);
    if (random.below(4) != 0) return turn;
    double mirrored[9];
    for (int k = 0; k < 9; ++k) mirrored[k] = k < 3 ? -turn[k] : turn[k];
    return {mirrored, 0};
}

/// One of `oddity` placements is no plain similarity.
inline void place(Random &random, double size, int oddity, mgXform_c &x) {
    mgMatrix_c turn = anyRotation(random);
    V shift = random.triple<V>(-2.0, 2.0) * size;
    double scale = 1.0;
    if (random.below(3) == 0) shift = V(random.below(5), random.below(5), 0.0) * (0.5 * size);
    if (random.below(6) == 0) shift = random.triple<V>(-2e-8, 2e-8);
    if (random.below(4) == 0) scale += random.uniform(-2e-8, 2e-8);
    if (random.below(4) == 0) scale *= 3.0;
    int const kind = random.below(oddity);
    if (kind == 0) scale = random.ofMagnitude(-3.5, 3.5);
    if (kind == 1) scale = random.hostile();
    if (kind == 2) turn[random.below(9)] += random.ofMagnitude(-9.5, -1.0);
    if (kind == 3) turn = mgMatrix_c(), turn[1] = 0.5; // flagged as identity
    if (kind == 4) shift = V(random.hostile(), 1.0, 2.0);
    x.SetHelper({turn, shift, scale, random.below(2), nullptr});
    if (random.below(4 * oddity) == 0) x.addPerspectiveInfo(mgPerspInfo_c(0.0, 0.0, -9.0, 2.0));
}

/// Boxes of size 1 whose corners are all whole numbers from 0 to count, in any order.
inline std::vector<mgBBox_c> shuffledGrid(Random &random, int count) {
    std::vector<mgBBox_c> boxes;
    for (int k = 0; k < count * count * count; ++k) {
        P const low(k % count, k / count % count, k / (count * count));
        boxes.emplace_back(low, low + V(1, 1, 1));
        std::swap(boxes.back(), boxes.data()[random.below(k + 1)]);
    }
    return boxes;
}

/// Rods along x and y by turns, one above the other, each rotated by an eighth about itself. To
/// each frame the other rod is a wide box: they clash up to half their length apart.
inline mgBBox_c rod(int k) {
    P const half = k % 2 == 0 ? P(2, 0.1, 0.1) : P(0.1, 2, 0.1);
    return {P(V(half) * -1.0), half};
}
inline mgXform_c rodPlacement(int k) {
    mgMatrix_c const eighth = mg_RotationMatrix(std::atan(1.0), U(1 - k % 2, k % 2, 0), 0.0);
    return mg_RestoreXform(eighth, V(0, 0, 0.9 * k), 1);
}

/// The pairs that pass the test, in the order of a loop over them.
template <class Test>
std::vector<mgIndexPair_c> pairsOf(int countA, int countB, bool isSame, Test const &test) {
    std::vector<mgIndexPair_c> list;
    for (int i = 0; i < countA; ++i)
        for (int j = isSame ? i + 1 : 0; j < countB; ++j)
            if (test(i, j) != 0) list.push_back({i, j});
    return list;
}

/// `find` must give the expected list, in an array of that capacity.
template <class T, class Find>
void CheckList(std::vector<T> const &expected, Find const &find, Caller = {}) {
    suDynamicArray<T> list;
    list.Add(T());
    auto const count = static_cast<int>(expected.size());
    ASSERT_EQ(count, find(list));
    ASSERT_EQ(count, list.Count());
    ASSERT_EQ(count == 0, list.Data() == nullptr);
    if (count == 0) return;
    EXPECT_EQ(0, std::memcmp(expected.data(), list.Data(), expected.size() * sizeof(T)));
}

} // namespace common

#endif
