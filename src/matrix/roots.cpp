// SPDX-License-Identifier: MIT
// Real roots of quadratics, cubics and characteristic cubics.

#include <vexmath/mg_matrix.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace {

/// Absolute leading coefficient below which mg_solveQuadratic and mg_solveCubic treat an equation
/// as one of lower degree; strict.
constexpr double kNoCoefficient = 1e-13;

} // namespace

int mg_solveQuadratic(double a, double b, double c, double *roots) {
    /// From this discriminant on there are two roots (bound included); below its negative there are
    /// none (strict).
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
    /// Coefficients below this in absolute value count as absent; strict.
    constexpr double kAbsent = 1e-08;
    /// Discriminant below which there is a double root; strict.
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
    if (*disc < 0.0) return;
    double minus = -b;
    double plus = minus;
    if (!(*disc < kDistinctDiscriminant)) { // NaN too, which makes both roots NaN
        double const root = std::sqrt(*disc);
        plus = root - b;
        minus = -b - root;
    }
    *root1 = minus / (a + a);
    *root2 = plus / (a + a);
    if (*root2 < *root1) std::swap(*root1, *root2);
}

namespace {

/// Width of the bracket, and sum of absolute values at its ends, that together end the search;
/// bounds included.
constexpr double kFoundWidth = 1e-13;
constexpr double kFoundValues = 1e-13;
constexpr int kMostSteps = 101;
/// The bracket is halved when the cubic rises over it by at most this; bound included.
constexpr double kSmallestRise = 1e-13;
/// A secant keeps the first distance from the ends of a bracket of at least the second width.
constexpr double kInset = 1e-10;
constexpr double kInsetFromWidth = 3e-10;

struct Cubic {
    double a, b, c, d;

    double operator()(double x) const { return ((a * x + b) * x + c) * x + d; }
    double slope(double x) const { return (3.0 * a * x + 2.0 * b) * x + c; }
};

/// Two arguments on either side of a root, with their values.
struct Bracket {
    double low, high;
    double atLow, atHigh;

    double width() const { return high - low; }
    double rise() const { return atHigh - atLow; }
    double middle() const { return (low + high) / 2.0; }
    double secant() const { return (atHigh * low - atLow * high) / rise(); }
    bool isFound() const {
        return width() <= kFoundWidth && std::fabs(atHigh) + std::fabs(atLow) <= kFoundValues;
    }

    /// One step of the search: `x` replaces the end whose value has the same sign as its own.
    /// Returns true if that moved nothing.
    bool narrow(double x, double atX) {
        bool idle;
        if (atHigh * atX > 0.0) {
            idle = x == high;
            high = x;
            atHigh = atX;
        } else {
            idle = x == low;
            low = x;
            atLow = atX;
        }
        return idle;
    }
};

/// The interval [-1, 1], tripled until the values at its ends differ in sign. The loop ends at the
/// latest when the arguments are infinite: there the values of a cubic differ in sign or are NaN.
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

/// The argument that step k of the search evaluates.
double nextArgument(Bracket const &at, int k) {
    // QUIRK: mg_matrix.h, mg_solveCubic: the rise is tested with its sign, so a bracket over which
    // the cubic falls is halved at every step. Expected: secants there too. Kept: callers and
    // stored data depend on it. (test: AFallingCubicIsHalvedAtEveryStep)
    if (at.rise() <= kSmallestRise || k % 2 == 0) return at.middle();
    double low = at.low;
    double high = at.high;
    if (at.width() >= kInsetFromWidth) {
        low += kInset;
        high -= kInset;
    }
    double const secant = at.secant();
    // Nearly always true; then the value there does not wait for the two selections below.
    if (low < secant && secant < high) return secant;
    // In this order NaN, the secant of overflowed values, becomes the lower bound.
    return std::min(high, std::max(low, secant));
}

// Each step depends on the one before: a secant on the value at the last middle, a middle on the
// side of the last secant. The functions below predict steps, so that the processor computes about
// a dozen at a time. They take exactly the steps of the search, and leave the rest to it as soon as
// a value differs from the prediction.

/// True when the search ends at the lower end of the bracket, where the value is 0. It does when
/// each secant leads to that end again, where it moves nothing, and the value at each middle
/// replaces the upper end: no absolute value is smaller than 0, and of equal ones the lower end is
/// chosen.
bool endsAtLow(Cubic const &f, Bracket at) {
    if (!(at.width() < kInsetFromWidth)) return false;
    for (int k = 0; k < kMostSteps && !at.isFound(); ++k) {
        if (at.secant() > at.low) return false;
        double const middle = at.middle();
        if (middle == at.high) return true; // neither kind of step moves anything
        double const value = f(middle);
        if (!(at.atHigh * value > 0.0)) return false;
        at.high = middle;
        at.atHigh = value;
    }
    return true;
}

/// Absolute value above which the product of two has a sign; strict.
constexpr double kSureValue = 1e-150;

bool surelyFalls(Bracket const &at) { return at.atLow > kSureValue && at.atHigh < -kSureValue; }

/// Halves the bracket towards a guess at the root as long as the values confirm it. Returns the
/// number of halvings. `at` is a bracket as halveFalling describes it, before and after.
int followGuess(Cubic const &f, double guess, Bracket &at) {
    constexpr int kMost = 40;
    constexpr std::int64_t kCells = std::int64_t{1} << kMost;
    /// The sign of the value at the middle of a cell when the guess lies in its lower, or upper,
    /// half.
    constexpr double kSigns[] = {-1.0, 1.0};
    if (!(at.low < guess && guess < at.high)) return 0;
    double const start = at.low;
    double width = at.width();
    auto const cell =
        std::min(static_cast<std::int64_t>((guess - start) / width * static_cast<double>(kCells)),
                 kCells - 1);
    int taken = 0;
    for (; taken < kMost; ++taken) {
        std::int64_t const half = cell >> (kMost - 1 - taken); // odd: an upper one
        double const value = f(start + static_cast<double>(half | 1) * (width / 2.0));
        if (!(kSigns[half & 1] * value > kSureValue)) break;
        width /= 2.0;
    }
    at.low = start + static_cast<double>(cell >> (kMost - taken)) * width;
    at.high = at.low + width;
    at.atLow = f(at.low);
    at.atHigh = f(at.high);
    return taken;
}

/// Makes the first steps of a search that halves, up to 44. Returns the number of the next step.
/// All ends of brackets, and sums of ends, are multiples of 2^-43 below 2^9, so none is rounded, in
/// whichever order it is computed. While the cubic surely falls, each step is a halving and none
/// ends the search: the last bracket to be halved is at least 2^-42 wide, above kFoundWidth.
int halveFalling(Cubic const &f, Bracket &at) {
    /// Upper end of the largest bracket to begin with; bound included.
    constexpr double kMostHigh = 243.0;
    /// This many steps of the search, and then of Newton's method, give the root to the last few
    /// bits for nineteen cubics in twenty.
    constexpr int kBeforeGuess = 4;
    constexpr int kImprovements = 4;
    int k = 1;
    if (at.high > kMostHigh) return k;
    for (; k <= kBeforeGuess && surelyFalls(at); ++k) at.narrow(at.middle(), f(at.middle()));
    if (!surelyFalls(at)) return k;
    double guess = at.secant();
    for (int i = 0; i < kImprovements; ++i) guess -= f(guess) / f.slope(guess);
    return k + followGuess(f, guess, at);
}

/// Method: alternating false position and bisection.
double searchedRoot(Cubic const &f) {
    Bracket at = bracketOf(f);
    int k = surelyFalls(at) ? halveFalling(f, at) : 1;
    bool wasIdle = false;
    for (; k <= kMostSteps && !at.isFound(); ++k) {
        double const x = nextArgument(at, k);
        bool const idle = at.narrow(x, f(x));
        // After one step of each kind that moved nothing, no further step moves anything.
        if (idle && wasIdle) break;
        wasIdle = idle;
        if (at.atLow == 0.0 && endsAtLow(f, at)) return at.low;
    }
    return std::fabs(at.atHigh) < std::fabs(at.atLow) ? at.high : at.low;
}

double oneRoot(Cubic const &f) {
    /// Absolute value at a critical point up to which it is a double root; bound included.
    constexpr double kTouches = 1e-13;
    double critical[2];
    int const count = mg_solveQuadratic(3.0 * f.a, 2.0 * f.b, f.c, critical);
    for (int i = 0; i < count; ++i) {
        if (std::fabs(f(critical[i])) <= kTouches) return critical[i];
    }
    return searchedRoot(f);
}

/// Sorts ascending by exchanges: std::sort must not get the NaN that coefficients of 1e308 give.
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
    if (others > 0) sortThree(roots); // others is 0 or 2, since |a| is not below the bound
    return others + 1;
}

// Roots (a / 3) (1 + y): the substitution leaves y^3 - P y - Q = 0 with Q the difference below, and
// y = R cos(phi) turns that into 4 cos^3 - 3 cos = cos(3 phi).
// Method: F. Viete, De aequationum recognitione et emendatione, 1615.
mg_GoodEqu3Status mg_GoodEqu3(double a, double b, double c, double *roots) {
    constexpr double kThird = 0.3333333333333333;
    constexpr double kTwoThirdsPi = 2.0943951023932;
    /// |P| below which there can only be a triple root (strict), and |Q| up to which there is one
    /// (included).
    constexpr double kTripleP = 1e-08;
    constexpr double kTripleQ = 1e-08;
    /// |cos 3 phi| from which two roots count as equal (included).
    constexpr double kEqualPairCos = 0.999999999999;
    /// |cos 3 phi| up to which that holds (included).
    // QUIRK: mg_matrix.h, mg_GoodEqu3: a cosine of absolute value from 1 to 1.1 gives an equal
    // pair, where only one root is real. Expected: a bound of a few roundings. Kept: callers and
    // stored data depend on it. (test: CosineOfUpToElevenTenthsIsAnEqualPair)
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
