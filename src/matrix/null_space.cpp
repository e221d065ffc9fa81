// SPDX-License-Identifier: MIT
// Null space of a 3x3 matrix.

#include <vexmath/mg_vector.h>

#include "columns.h"

#include <utility>

using vexmath::detail::column;
using vexmath::detail::largestOf;

namespace {

/// Two columns and the third, which is to be expressed by them.
struct Choice {
    int first, second, rest;
};

/// The null vector of three dependent columns, from c[rest] = s c[first] + t c[second] by least
/// squares.
///
/// Method: A. Bjorck, Solving linear least squares problems by Gram-Schmidt orthogonalization,
/// 1967. The normal equations would square the condition of the columns. This way M n is a few
/// roundings of the longest column, however close the columns are to parallel.
mgUnitVector_c relationBetween(mgVector_c const (&c)[3], Choice choice) {
    auto [first, second, rest] = choice;
    if (c[second].sqlen() > c[first].sqlen()) std::swap(first, second); // divide by the longer one
    mgVector_c const &along = c[first];
    double const sq = along.sqlen();
    double const secondAlong = along % c[second] / sq;
    double const restAlong = along % c[rest] / sq;
    mgVector_c const secondAcross = c[second] - secondAlong * along;
    mgVector_c const restAcross = c[rest] - restAlong * along;
    double const acrossSq = secondAcross.sqlen();

    double n[3] = {};
    if (acrossSq == 0.0) { // large and parallel: the cross product was a rounding
        n[first] = secondAlong;
        n[second] = -1.0;
    } else {
        n[second] = secondAcross % restAcross / acrossSq;
        n[first] = restAlong - n[second] * secondAlong;
        n[rest] = -1.0;
    }
    return mgUnitVector_c(n);
}

} // namespace

int mgMatrix_c::getNullspace(mgUnitVector_c *basis, bool force) const {
    /// Absolute determinant up to which a matrix is singular; bound included.
    constexpr double kSingularDeterminant = 1e-08;
    /// Squared length of the cross product from which two columns span a plane; bound included.
    constexpr double kSpanPlaneSq = 1.0000000000000001e-16;
    if (!force && !(std::fabs(getDeterminant()) <= kSingularDeterminant)) return 0;
    if (isNearZero()) {
        basis[0] = mgUnitVector_c::xAxis();
        basis[1] = mgUnitVector_c::yAxis();
        basis[2] = mgUnitVector_c::zAxis();
        return 3;
    }

    mgVector_c const c[3] = {column(*this, 0), column(*this, 1), column(*this, 2)};
    constexpr Choice choices[3] = {{0, 1, 2}, {0, 2, 1}, {1, 2, 0}};
    double spanSq[3];
    for (int i = 0; i < 3; ++i) spanSq[i] = (c[choices[i].first] * c[choices[i].second]).sqlen();
    int const widest = largestOf(spanSq[0], spanSq[1], spanSq[2]);
    if (spanSq[widest] >= kSpanPlaneSq) {
        basis[0] = relationBetween(c, choices[widest]);
        return 1;
    }

    // QUIRK: matrix.h, mgMatrix_c::getNullspace: of a matrix of rank 1 the vectors n are
    // perpendicular to the columns, n M = 0. Expected: M n = 0, as for rank 2. Kept: callers and
    // stored data depend on it. (test: NullVectorsOfARankOneMatrixArePerpendicularToItsColumns)
    int const longest = largestOf(c[0].sqlen(), c[1].sqlen(), c[2].sqlen());
    mg_getBasis(mg_Normalise(c[longest]), basis[0], basis[1]);
    return 2;
}
