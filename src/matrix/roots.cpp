// SPDX-License-Identifier: MIT
// Real roots of quadratics, cubics and characteristic cubics.

#include <vexmath/mg_matrix.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Leading coefficient below which mg_solveQuadratic and mg_solveCubic take an equation for one of
/// lower degree; strict.
constexpr double kNoCoefficient = 1e-13;

} // namespace

int mg_solveQuadratic(double a, double b, double c, double *roots) {
    /// Discriminant from which there are two roots (bound included), and below whose negative there
    /// are none (strict).
    constexpr double kDistinctDiscriminant = 1e-13;
    if (std::fabs(a) >= kNoCoefficient) {
        double const disc = b * b - a * 4.0 * c;
        if (disc >= kDistinctDiscriminant) {
            double const root = std::sqrt(disc);
            double const perTwoA = 0.5 / a;
            roots[0] = (-b - root) * perTwoA;
            roots[1] = (root - b) * perTwoA;
            return 2;
        }
        if (!(disc >= -kDistinctDiscriminant)) return 0;
        roots[0] = roots[1] = (b * -0.5) / a;
        return 2;
    }
    if (!(std::fabs(b) >= kNoCoefficient)) return 0;
    roots[0] = -(c / b);
    return 1;
}

void mgSolveQuadratic(double a, double b, double c, double *disc, double *root1, double *root2) {
    /// Coefficients below this are absent; strict.
    constexpr double kAbsent = 1e-08;
    /// Discriminant below which the root is a double one; strict.
    constexpr double kDistinctDiscriminant = 1e-16;
    *disc = b * b - a * 4.0 * c;
    if (std::fabs(a) < kAbsent) {
        if (std::fabs(b) < kAbsent) {
            *disc = -1.0;
            return;
        }
        *root1 = *root2 = -(c / b);
        return;
    }
    if (!(*disc >= 0.0)) return;
    double minus = -b;
    double plus = minus;
    if (*disc >= kDistinctDiscriminant) {
        double const root = std::sqrt(*disc);
        plus = root - b;
        minus = -b - root;
    }
    *root1 = minus / (a + a);
    *root2 = plus / (a + a);
    if (*root2 < *root1) std::swap(*root1, *root2);
}

namespace {

struct Cubic {
    double a, b, c, d;

    double operator()(double x) const { return ((a * x + b) * x + c) * x + d; }
};

/// Two arguments on either side of a root, with their values.
struct Bracket {
    double low, high;
    double atLow, atHigh;
};

/// Both ends of the interval [-1, 1], tripled until the values differ in sign. That ends: at the
/// latest when the arguments are infinite, where a cubic's values do differ or are not numbers.
Bracket bracketOf(Cubic const &f) {
    Bracket bracket{-1.0, 1.0, f(-1.0), f(1.0)};
    while (bracket.atLow * bracket.atHigh > 0.0) {
        bracket.low *= 3.0;
        bracket.high *= 3.0;
        bracket.atLow = f(bracket.low);
        bracket.atHigh = f(bracket.high);
    }
    return bracket;
}

/// Where step k of the search looks next.
double nextArgument(Bracket const &at, int k) {
    /// Rise over the bracket up to which it is halved; bound included.
    constexpr double kSmallestRise = 1e-13;
    /// A secant keeps this distance from the ends of a bracket of at least that width.
    constexpr double kInset = 1e-10;
    constexpr double kInsetFromWidth = 3e-10;
    double const rise = at.atHigh - at.atLow;
    // QUIRK: the rise is tested with its sign, so a bracket in which the cubic falls is halved at
    // every step; a reader would expect the secant there too. Its roots are multiples of a power of
    // two, and callers compare them. (test: AFallingCubicIsHalvedAtEveryStep)
    if (rise <= kSmallestRise || k % 2 == 0) return (at.low + at.high) / 2.0;
    double const secant = (at.atHigh * at.low - at.atLow * at.high) / rise;
    double low = at.low;
    double high = at.high;
    if (high - low >= kInsetFromWidth) {
        low += kInset;
        high -= kInset;
    }
    // In this order NaN, the secant of values that overflow, becomes the lower bound.
    return std::min(high, std::max(low, secant));
}

/// Method: alternating false position and bisection.
double searchedRoot(Cubic const &f) {
    /// Width of the bracket, and sum of absolute values at its ends, that together end the search;
    /// bounds included.
    constexpr double kWidth = 1e-13;
    constexpr double kValues = 1e-13;
    constexpr int kMostSteps = 101;
    Bracket at = bracketOf(f);
    bool wasIdle = false;
    for (int k = 1; k <= kMostSteps; ++k) {
        if (at.high - at.low <= kWidth && std::fabs(at.atHigh) + std::fabs(at.atLow) <= kValues)
            break;
        double const middle = nextArgument(at, k);
        double const value = f(middle);
        bool idle;
        if (at.atHigh * value > 0.0) {
            idle = middle == at.high;
            at.high = middle;
            at.atHigh = value;
        } else {
            idle = middle == at.low;
            at.low = middle;
            at.atLow = value;
        }
        // After a step of either kind that moved nothing none will: the rest is left out.
        if (idle && wasIdle) break;
        wasIdle = idle;
    }
    return std::fabs(at.atHigh) < std::fabs(at.atLow) ? at.high : at.low;
}

double oneRoot(Cubic const &f) {
    /// Absolute value at a critical point that makes it a double root; bound included.
    constexpr double kTouches = 1e-13;
    double critical[2];
    int const count = mg_solveQuadratic(3.0 * f.a, 2.0 * f.b, f.c, critical);
    for (int i = 0; i < count; ++i) {
        if (std::fabs(f(critical[i])) <= kTouches) return critical[i];
    }
    return searchedRoot(f);
}

/// Ascending, by exchanges: std::sort must not see the NaN that coefficients of 1e308 lead to.
void sortThree(double *roots) {
    for (int i : {0, 1, 0}) {
        if (roots[i + 1] < roots[i]) std::swap(roots[i], roots[i + 1]);
    }
}

} // namespace

int mg_solveCubic(double a, double b, double c, double d, double *roots) {
    if (std::fabs(a) < kNoCoefficient) return mg_solveQuadratic(b, c, d, roots);
    double const r = oneRoot({a, b, c, d});
    double const linear = b + r * a;
    roots[0] = r;
    int const others = mg_solveQuadratic(a, linear, c + r * linear, roots + 1);
    if (others > 0) sortThree(roots); // none or two: a is no less than before
    return others + 1;
}

// Roots (a / 3) (1 + y): the substitution leaves y^3 - P y - Q = 0 with Q the difference below, and
// y = R cos(phi) turns that into 4 cos^3 - 3 cos = cos(3 phi).
// Method: F. Viete, De aequationum recognitione et emendatione, 1615.
mg_GoodEqu3Status mg_GoodEqu3(double a, double b, double c, double *roots) {
    constexpr double kThird = 0.3333333333333333;
    constexpr double kTwoThirdsPi = 2.0943951023932;
    /// P below which only a triple root will do (strict), and Q up to which it is one (included).
    constexpr double kTripleP = 1e-08;
    constexpr double kTripleQ = 1e-08;
    /// |cos 3 phi| from which a pair of roots is equal (included).
    constexpr double kEqualPairCos = 0.999999999999;
    // QUIRK: up to this (included) |cos 3 phi| > 1 is taken for the rounding of an equal pair,
    // where a reader would expect a bound of a few roundings. Tensors read from drawings are that
    // rough. (test: CosineOfUpToElevenTenthsIsAnEqualPair)
    constexpr double kRoundedCos = 1.1;
    if (!(a > 0.0 && b > 0.0 && c > 0.0)) return mgGoodEqu3_Failed;
    double const minors = 9.0 * b / (a * a);
    double const p = 3.0 - minors;
    double const q = 27.0 * c / (a * a * a) - minors + 2.0;
    if (std::fabs(p) < kTripleP) {
        if (!(std::fabs(q) <= kTripleQ)) return mgGoodEqu3_Failed;
        roots[0] = roots[1] = roots[2] = a * kThird;
        return mgGoodEqu3_TripleRoot;
    }
    if (p < 0.0) return mgGoodEqu3_Failed;
    double const r = std::sqrt(p * 4.0 * kThird);
    double const cosine = 4.0 * q / (r * r * r);
    if (!(std::fabs(cosine) <= kRoundedCos)) return mgGoodEqu3_Failed;

    double k[3] = {1.0, -0.5, -0.5};
    mg_GoodEqu3Status status = mgGoodEqu3_LowerPairEqual;
    if (std::fabs(cosine) < kEqualPairCos) {
        double const phi = std::acos(cosine) * kThird;
        k[0] = std::cos(phi);
        k[1] = std::cos(phi - kTwoThirdsPi);
        k[2] = std::cos(phi + kTwoThirdsPi);
        status = mgGoodEqu3_ThreeRoots;
    } else if (!(cosine > 0.0)) {
        k[0] = k[1] = 0.5;
        k[2] = -1.0;
        status = mgGoodEqu3_UpperPairEqual;
    }
    for (int i = 0; i < 3; ++i) roots[i] = (k[i] * r + 1.0) * (a * kThird);
    return status;
}
