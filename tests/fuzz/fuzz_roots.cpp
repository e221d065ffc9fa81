// SPDX-License-Identifier: MIT
// Polynomials of any coefficients: the number of roots is the one that the discriminant gives, and
// for everyday numbers each root is one.

#include "fuzz.h"

namespace {

/// Is a r^2 + b r + c zero, up to rounding of the root and the bound of double roots?
bool isRoot(long double a, long double b, long double c, long double r) {
    long double const bound = 1e-12L + 1e-14L * (b * b + std::fabs(4 * a * c));
    return std::fabs(4 * a * ((a * r + b) * r + c)) <= bound;
}

void checkQuadratic(bool isTame, double a, double b, double c) {
    double roots[] = {77, 77, 77}, disc = 77, low = 77, high = 77;
    int const count = mg_solveQuadratic(a, b, c, roots);
    double const d = b * b - 4.0 * a * c;
    bool const isLinear = !(std::fabs(a) >= 1e-13);
    CHECK(count == (isLinear ? std::fabs(b) >= 1e-13 : d >= -1e-13 ? 2 : 0) && roots[2] == 77);
    for (int i = 0; i < count && isTame && !isLinear; ++i) CHECK(isRoot(a, b, c, roots[i]));
    mgSolveQuadratic(a, b, c, &disc, &low, &high);
    CHECK(same(disc, std::fabs(a) < 1e-8 && std::fabs(b) < 1e-8 ? -1.0 : d) && !(low > high));
    if (isTame && d >= 0.0 && std::fabs(a) >= 1e-8)
        CHECK(isRoot(a, b, c, low) && isRoot(a, b, c, high));
}

void checkCubic(bool isTame, double a, double b, double c, double d) {
    double roots[] = {77, 77, 77, 77}, least = kInfinity;
    int const count = mg_solveCubic(a, b, c, d, roots);
    CHECK(0 <= count && count <= 3 && (count == 3 || roots[count] == 77) && roots[3] == 77);
    // Where a product of two values underflows, the roots mean nothing.
    auto const isTiny = [](double x) { return x != 0.0 && std::fabs(x) < 1e-150; };
    if (!isTame || std::fabs(a) < 1e-3 || isTiny(b) || isTiny(c) || isTiny(d)) return;
    CHECK((count == 1 || count == 3) && std::is_sorted(roots, roots + count));
    for (double const r : {roots[0], roots[count / 2], roots[count - 1]}) {
        double const x = a * r * r * r, y = b * r * r, z = c * r;
        double const size = 1.0 + std::fabs(x) + std::fabs(y) + std::fabs(z) + std::fabs(d);
        least = std::min(least, std::fabs(x + y + z + d) / size);
    }
    CHECK(least < 1e-9); // one root was searched for, and gives the others
}

} // namespace

void fuzz(Input &in) {
    double const a = in.number(), b = in.number(), c = in.number(), d = in.number();
    checkQuadratic(in.isTame(), a, b, c);
    checkCubic(in.isTame(), a, b, c, d);
    double roots[] = {77, 77, 77, 77};
    auto const status = mg_GoodEqu3(a, b, c, roots);
    CHECK((status == mgGoodEqu3_Failed) == (roots[0] == 77 && roots[2] == 77) && roots[3] == 77);
    if (!in.isTame() || status == mgGoodEqu3_Failed) return;
    CHECK(roots[0] >= roots[1] && roots[1] >= roots[2]);
    CHECK(std::fabs(roots[0] + roots[1] + roots[2] - a) < 1e-9 * a);
}
