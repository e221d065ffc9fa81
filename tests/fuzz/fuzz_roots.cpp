// SPDX-License-Identifier: MIT
// Polynomials of any coefficients: the number of roots is the one that the discriminant gives, and
// for everyday numbers each root is one.

#include "fuzz.h"

namespace {

/// a r^2 + b r + c, times 4 a, and what rounding of the roots may make of it.
bool isRoot(long double a, long double b, long double c, long double r, long double tol) {
    long double const value = 4 * a * ((a * r + b) * r + c);
    return std::fabs(value) <= tol + 1e-14L * (b * b + std::fabs(4 * a * c));
}

void checkQuadratic(bool isTame, double a, double b, double c) {
    double roots[3] = {77, 77, 77}, disc = 77, low = 77, high = 77;
    int const count = mg_solveQuadratic(a, b, c, roots);
    double const d = b * b - 4.0 * a * c;
    bool const isLinear = !(std::fabs(a) >= 1e-13);
    CHECK(count == (isLinear ? std::fabs(b) >= 1e-13 : d >= -1e-13 ? 2 : 0));
    CHECK(count == 2 || same(roots[1], 77.0));
    for (int i = 0; i < count && isTame && !isLinear; ++i) CHECK(isRoot(a, b, c, roots[i], 1e-12L));

    mgSolveQuadratic(a, b, c, &disc, &low, &high);
    bool const isConstant = std::fabs(a) < 1e-8 && std::fabs(b) < 1e-8;
    CHECK(same(disc, isConstant ? -1.0 : d));
    CHECK(low <= high || std::isnan(low) || std::isnan(high));
    if (isTame && d >= 0.0 && std::fabs(a) >= 1e-8)
        CHECK(isRoot(a, b, c, low, 1e-12L) && isRoot(a, b, c, high, 1e-12L));
}

void checkCubic(bool isTame, double a, double b, double c, double d) {
    double roots[4] = {77, 77, 77, 77};
    int const count = mg_solveCubic(a, b, c, d, roots);
    CHECK(0 <= count && count <= 3 && roots[3] == 77 && (count == 3 || roots[2] == 77));
    if (!isTame || std::fabs(a) < 1e-3) return;
    CHECK(count == 1 || count == 3);
    long double least = kInfinity;
    for (int i = 0; i < count; ++i) {
        long double const r = roots[i];
        long double const size = std::fabs(r * r * r * a) + std::fabs(r * r * b) + std::fabs(r * c);
        least =
            std::min(least, std::fabs(((a * r + b) * r + c) * r + d) / (1 + size + std::fabs(d)));
        CHECK(i == 0 || roots[i - 1] <= roots[i]);
    }
    CHECK(least < 1e-9L);
}

} // namespace

void fuzzOne(Input &in) {
    double const a = in.number(), b = in.number(), c = in.number(), d = in.number();
    checkQuadratic(in.isTame(), a, b, c);
    checkCubic(in.isTame(), a, b, c, d);

    double roots[4] = {77, 77, 77, 77};
    auto const status = mg_GoodEqu3(a, b, c, roots);
    CHECK(mgGoodEqu3_ThreeRoots <= status && status <= mgGoodEqu3_Failed && roots[3] == 77);
    CHECK((status == mgGoodEqu3_Failed) == (roots[0] == 77 && roots[1] == 77 && roots[2] == 77));
    if (!in.isTame() || status == mgGoodEqu3_Failed) return;
    CHECK(roots[0] >= roots[1] && roots[1] >= roots[2]);
    CHECK(std::fabs(roots[0] + roots[1] + roots[2] - a) < 1e-9 * a);
    if (status == mgGoodEqu3_ThreeRoots)
        CHECK(std::fabs(roots[0] * roots[1] * roots[2] - c) < 1e-6 * a * a * a);
}
