// SPDX-License-Identifier: MIT
// Interference of boxes with a placement each. A shortcut by inexact numbers answers nearly all
// pairs; the full test answers the others, in registers where that gives the same answer.

#include <vexmath/bbox.h>
#include <vexmath/xform.h>

#include "box_parts.h"
#include "inlining.h"
#include "matrix/rows.h"
#include "placed_verdict.h"
#include "transform/xform_parts.h"
#include "wide_moved.h"

#include <algorithm>
#include <limits>

namespace {

using namespace vexmath::detail;

/// Result of the shortcut, which works in model space without inverting or composing transforms.
/// Apart and Clash are returned only where the full test is certain to agree; Close and Unusual
/// mean: run it. It may run in registers for Close, which says that the placements are ordinary and
/// the numbers finite.
///
/// In exact numbers and without tolerances the shortcut and the full test agree. They differ by the
/// errors of the rotations' orthonormality, by rounding, and by what the full test ignores: scales
/// within 1e-08 of 1, translations below 1e-08 in any of the frames, and gaps and overlaps of that
/// size. For ordinary placements the sum is less than 1e-06 of the lengths involved plus 1e-07 of
/// the units of the frames; the margin is a hundred times that. NaN and lengths whose squares may
/// overflow give Unusual.
enum class Verdict { Apart, Clash, Close, Unusual };

/// Depth by which the spheres must overlap in the full test; bound included. Also the tolerance of
/// its box tests.
constexpr double kOverlap = 1e-08;

/// True if the identity flag is not stale, the scale is between 0.001 and 1000, bounds excluded,
/// and there is no perspective record.
bool isOrdinary(mgXform_c const &x) {
    constexpr double kLeastScale = 1e-03;
    constexpr double kMostScale = 1e03;
    return x.scaling() > kLeastScale && x.scaling() < kMostScale && !x.hasPerspective()
           && (x.rotate() || isExactIdentity(x.rotation()));
}

/// Bound on the sum of the orthonormality errors of both rotations; strict.
constexpr double kNearlyOrthonormal = 1e-09;

/// The largest distance of the centres at which the placed spheres clash.
struct Reach {
    Reach(double radiusA, double scaleA, double radiusB, double scaleB)
        : radii(scaleA * (radiusA + radiusB)), // the full test does not scale b's
          units(1.0 + scaleA + scaleB) {}

    /// By how much a comparison must be decided. otherLengths are those besides the radii.
    double margin(double otherLengths) const {
        constexpr double kPerLength = 1e-04;
        constexpr double kPerUnit = 1e-05;
        return kPerLength * (radii + otherLengths) + kPerUnit * units;
    }
    bool isPlainlyExceeded(double distanceSq, double otherLengths) const {
        double const tooFar = radii + margin(otherLengths);
        return distanceSq > tooFar * tooFar;
    }

    double radii, units;
};

#if defined(VEXMATH_AVX2)

VEXMATH_AVX2_STEP Wide loadFour(double const (&from)[4]) { return _mm256_loadu_pd(from); }
VEXMATH_AVX2_STEP void store(Wide v, double (&to)[4]) { _mm256_storeu_pd(to, v); }

/// A placement in SIMD registers.
struct WidePlacement {
    VEXMATH_AVX2_STEP explicit WidePlacement(mgXform_c const &x)
        : axes(loadRows(x.rotation())), translation(load(&x.translation()[0])),
          scale(all(x.scaling())) {}

    template <class Point>
    VEXMATH_AVX2_STEP Wide image(Point const &p) const {
        return times(p, axes) * scale + translation;
    }

    /// The orthonormality errors of the columns, in three sums.
    VEXMATH_AVX2_STEP Wide errors() const {
        WideRows const next = {turned(axes.r0), turned(axes.r1), turned(axes.r2)};
        return absolute(dots(axes, axes) - all(1.0)) + absolute(dots(axes, next));
    }

    WideRows axes;
    Wide translation, scale;
};

/// A box in model space: lengths in model units. The members are those of `PlacedBox`.
struct WideBox {
    VEXMATH_AVX2_STEP WideBox(WideBounds const &box, WidePlacement const &x)
        : WideBox(box, x, box.middle()) {}
    VEXMATH_AVX2_STEP WideBox(WideBounds const &box, WidePlacement const &x, Wide local)
        : middle(x.image(local)), half((box.high - local) * x.scale), centre(x.image(box.centre)),
          fromMiddle((box.centre - local) * x.scale), radius(all(box.radius) * x.scale) {}
    VEXMATH_AVX2_STEP explicit WideBox(PlacedBox::InModelSpace const &box)
        : middle(loadFour(box.middle)), half(loadFour(box.half)), centre(loadFour(box.centre)),
          fromMiddle(loadFour(box.fromMiddle)), radius(all(box.radius * box.scale)) {}

    Wide middle, half, centre, fromMiddle, radius;
};

/// The tests in one frame, with the other box transformed into it.
struct FrameResult {
    Wide depth;      ///< extents of the common part of the corners; negative for a gap
    Wide ownGapSq;   ///< squared offsets of the common part from the centre of the own sphere
    Wide otherGapSq; ///< and from the centre of the other sphere
};

VEXMATH_AVX2_STEP Wide squaredGap(Wide p, Wide low, Wide high) {
    Wide const gap = larger(larger(low - p, p - high), all(0.0));
    return gap * gap;
}

/// columns are those of the own rotation; reach holds the half extents of the other box along the
/// own axes.
VEXMATH_AVX2_STEP FrameResult inFrame(WideRows const &columns, WideBox const &own,
                                      WideBox const &other, Wide reach) {
    Wide const middle = times(other.middle - own.middle, columns);
    Wide const centre = times(other.centre - own.middle, columns);
    Wide const low = larger(larger(opposite(own.half), middle - reach), centre - other.radius);
    Wide const high = smaller(smaller(own.half, middle + reach), centre + other.radius);
    return {high - low, squaredGap(own.fromMiddle, low, high), squaredGap(centre, low, high)};
}

/// Is a distance, given as its square, smaller than the radius by more than the margin?
bool isWithin(double radius, double distanceSq, double margin) {
    return radius > margin && distanceSq < (radius - margin) * (radius - margin);
}

/// The verdict of both frames. distanceSq is the squared distance of the sphere centres, which must
/// be within reach.
VEXMATH_AVX2 Verdict verdictInFrames(WideRows const &axesA, WideBox const &a, WideRows const &axesB,
                                     WideBox const &b, double reach, double distanceSq,
                                     double margin) {
    WideRows const columnsA = transposed(axesA), columnsB = transposed(axesB);
    // Absolute cosines: a row for each axis of b, a column for each axis of a.
    WideRows const cosines = {absolute(times(axesB.r0, columnsA)),
                              absolute(times(axesB.r1, columnsA)),
                              absolute(times(axesB.r2, columnsA))};
    FrameResult const inA = inFrame(columnsA, a, b, times(b.half, cosines));
    FrameResult const inB = inFrame(columnsB, b, a, times(a.half, transposed(cosines)));
    Wide const depth = smaller(inA.depth, inB.depth);
    if (isAnyBelow(depth, all(-margin))) return Verdict::Apart;
    double const ra = lane0(a.radius), rb = lane0(b.radius);
    bool const clashes =
        areBelow(all(margin), depth) && isWithin(std::min(reach, ra + rb), distanceSq, margin)
        && isWithin(ra, sum(inA.ownGapSq), margin) && isWithin(rb, sum(inA.otherGapSq), margin)
        && isWithin(rb, sum(inB.ownGapSq), margin) && isWithin(ra, sum(inB.otherGapSq), margin);
    return clashes ? Verdict::Clash : Verdict::Close;
}

constexpr double kMostLengths = 1e100; ///< strict

VEXMATH_AVX2_STEP Wide centreLengths(WideBounds const &box, WidePlacement const &x) {
    return absolute(box.centre) * x.scale + absolute(x.translation);
}

VEXMATH_AVX2_STEP Wide cornerLengths(WideBounds const &box, WidePlacement const &x) {
    return (absolute(box.low) + absolute(box.high)) * x.scale;
}

VEXMATH_AVX2 Verdict verdictBySimd(mgBBox_c const &boxA, mgXform_c const &xa, mgBBox_c const &boxB,
                                   mgXform_c const &xb) {
    if (!isOrdinary(xa) || !isOrdinary(xb)) return Verdict::Unusual;
    WidePlacement const placeA(xa), placeB(xb);
    if (!areBelow(placeA.errors() + placeB.errors(), all(kNearlyOrthonormal)))
        return Verdict::Unusual;

    WideBounds const a = WideBounds::of(boxA), b = WideBounds::of(boxB);
    Wide const apart = placeB.image(b.centre) - placeA.image(a.centre);
    double const distanceSq = sum(apart * apart);
    Reach const reach(a.radius, xa.scaling(), b.radius, xb.scaling());
    Wide const lengths = centreLengths(a, placeA) + centreLengths(b, placeB);
    if (reach.isPlainlyExceeded(distanceSq, sum(lengths))) return Verdict::Apart;

    // The placed radius of b may be longer than all of these. Then its sphere clips no corner and
    // reaches everything, so that its rounding does not matter.
    double const otherLengths = sum(lengths + cornerLengths(a, placeA) + cornerLengths(b, placeB));
    if (!(reach.radii + otherLengths < kMostLengths)) return Verdict::Unusual;
    return verdictInFrames(placeA.axes, WideBox(a, placeA), placeB.axes, WideBox(b, placeB),
                           reach.radii, distanceSq, reach.margin(otherLengths));
}

/// The same for prepared boxes.
VEXMATH_AVX2 Verdict verdictBySimd(PlacedBox const &boxA, PlacedBox const &boxB) {
    PlacedBox::InModelSpace const &a = boxA.placed, &b = boxB.placed;
    if (!(a.error + b.error < kNearlyOrthonormal)) return Verdict::Unusual;

    Wide const apart = loadFour(b.centre) - loadFour(a.centre);
    double const distanceSq = sum(apart * apart);
    Reach const reach(a.radius, a.scale, b.radius, b.scale);
    if (reach.isPlainlyExceeded(distanceSq, a.centreLengths + b.centreLengths))
        return Verdict::Apart;

    double const otherLengths = a.lengths + b.lengths;
    if (!(reach.radii + otherLengths < kMostLengths)) return Verdict::Unusual;
    return verdictInFrames(loadRows(boxA.placement->rotation()), WideBox(a),
                           loadRows(boxB.placement->rotation()), WideBox(b), reach.radii,
                           distanceSq, reach.margin(otherLengths));
}

VEXMATH_AVX2 void prepareBySimd(PlacedBox &to) {
    if (!isOrdinary(*to.placement)) return;
    WideBounds const bounds = WideBounds::of(*to.box);
    WidePlacement const x(*to.placement);
    WideBox const box(bounds, x);
    Wide const lengths = centreLengths(bounds, x);
    to.placed.error = sum(x.errors()); // at least each of the three
    to.placed.scale = to.placement->scaling();
    to.placed.radius = bounds.radius;
    to.placed.centreLengths = sum(lengths);
    to.placed.lengths = sum(lengths + cornerLengths(bounds, x));
    store(box.middle, to.placed.middle);
    store(box.half, to.placed.half);
    store(box.centre, to.placed.centre);
    store(box.fromMiddle, to.placed.fromMiddle);
}

/// The full test, for placements and boxes that the shortcut found close: their scales are far
/// inside the range of the copy rules, and lengths below kMostLengths stay below 1e110 in both
/// frames.
VEXMATH_AVX2 bool clashBySimd(mgBBox_c const &boxA, mgXform_c const &inverseA, mgBBox_c const &boxB,
                              mgXform_c const &xb) {
    WideXform const intoA = WideXform::ofProduct(xb, inverseA);
    WideBounds const a = WideBounds::of(boxA), b = WideBounds::of(boxB);
    WideBounds const bInA = moved(b, intoA);
    Wide const apart = bInA.centre - a.centre;
    if (!(std::sqrt(sum(apart * apart)) + kOverlap <= a.radius + b.radius)) return false;
    return clashes(bInA, a, kOverlap) && clashes(moved(a, intoA.inverse()), b, kOverlap);
}

#else // never called

Verdict verdictBySimd(mgBBox_c const &, mgXform_c const &, mgBBox_c const &, mgXform_c const &) {
    return Verdict::Unusual;
}
Verdict verdictBySimd(PlacedBox const &, PlacedBox const &) { return Verdict::Unusual; }
void prepareBySimd(PlacedBox &) {}
bool clashBySimd(mgBBox_c const &, mgXform_c const &, mgBBox_c const &, mgXform_c const &) {
    return false;
}

#endif

mgVector_c placed(mgPoint_c const &p, mgXform_c const &x) {
    return x.scaling() * rowTimes(p.x(), p.y(), p.z(), x.rotation()) + x.translation();
}

/// The sum of the lengths involved in `placed`.
double sizesOf(mgPoint_c const &p, mgXform_c const &x) {
    mgVector_c const &t = x.translation();
    return x.scaling() * (std::fabs(p.x()) + std::fabs(p.y()) + std::fabs(p.z())) + std::fabs(t.x())
           + std::fabs(t.y()) + std::fabs(t.z());
}

double error(mgXform_c const &x) { return Rows::of(&x.rotation()[0]).error(); }

/// The verdict without SIMD. There only the sphere test is worth its cost.
VEXMATH_ALWAYS_INLINE Verdict verdictBySpheres(mgBBox_c const &boxA, mgXform_c const &xa,
                                               mgBBox_c const &boxB, mgXform_c const &xb) {
    BoxParts const a(boxA), b(boxB);
    double const distanceSq = (placed(b.centre, xb) - placed(a.centre, xa)).sqlen();
    double const lengths = sizesOf(a.centre, xa) + sizesOf(b.centre, xb);
    Reach const reach(a.radius, xa.scaling(), b.radius, xb.scaling());
    bool const isApart = reach.isPlainlyExceeded(distanceSq, lengths) && isOrdinary(xa)
                         && isOrdinary(xb) && error(xa) + error(xb) < kNearlyOrthonormal;
    return isApart ? Verdict::Apart : Verdict::Unusual;
}

/// The full test.
bool clashInFrames(mgBBox_c const &boxA, mgXform_c const &inverseA, mgBBox_c const &boxB,
                   mgXform_c const &xb) {
    // Without b's record, of which a copy would allocate.
    mgXform_c const intoA = xb.hasPerspective() ? withoutRecord(xb) * inverseA : xb * inverseA;
    BoxParts const a(boxA), b(boxB);

    // QUIRK: bbox.h, mgBBox_c::clash: of placed boxes, b's radius is not scaled into a's frame.
    // Expected: scaled. Kept: callers and stored data depend on it.
    // (test: PlacedSpheresAreComparedUnscaled)
    mgPoint_c centre = b.centre * intoA;
    mgPerspInfo_c info;
    if (xb.getPerspectiveInfo(&info)) info.doScreenPointPerspectiveDivision(centre);
    double const distance = (centre - a.centre).len();
    if (!(distance + kOverlap <= a.radius + b.radius)) return false;

    if (!BoxParts::moved(boxB, intoA).clash(&boxA, kOverlap)) return false;
    return BoxParts::moved(boxA, intoA.inverse()).clash(&boxB, kOverlap);
}

/// Follows the shortcut's verdict, or runs the full test with the inverse of a's placement.
template <class Inverse>
bool follow(Verdict verdict, mgBBox_c const &a, Inverse const &inverseA, mgBBox_c const &b,
            mgXform_c const &xb) {
    if (verdict == Verdict::Apart || verdict == Verdict::Clash) return verdict == Verdict::Clash;
    return verdict == Verdict::Close ? clashBySimd(a, inverseA(), b, xb)
                                     : clashInFrames(a, inverseA(), b, xb);
}

} // namespace

PlacedBox vexmath::detail::prepare(mgBBox_c const &box, mgXform_c const &placement) {
    PlacedBox prepared{&box, &placement, placement.inverse(), box.isSet() != 0, {}};
    prepared.placed.error = std::numeric_limits<double>::infinity();
    if (hasSimd() && prepared.isSet) prepareBySimd(prepared);
    return prepared;
}

bool vexmath::detail::clash(PlacedBox const &a, PlacedBox const &b) {
    if (!a.isSet || !b.isSet) return false;
    Verdict const verdict = hasSimd()
                                ? verdictBySimd(a, b)
                                : verdictBySpheres(*a.box, *a.placement, *b.box, *b.placement);
    return follow(
        verdict, *a.box, [&]() -> mgXform_c const & { return a.inverse; }, *b.box, *b.placement);
}

int mgBBox_c::clash(mgBBox_c const &a, mgXform_c const &xa, mgBBox_c const &b,
                    mgXform_c const &xb) {
    if (!a.isSet() || !b.isSet()) return 0;
    Verdict const verdict =
        hasSimd() ? verdictBySimd(a, xa, b, xb) : verdictBySpheres(a, xa, b, xb);
    return follow(
        verdict, a, [&] { return xa.inverse(); }, b, xb);
}
