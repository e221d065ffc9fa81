// SPDX-License-Identifier: MIT
// Interference of boxes with a placement each. A shortcut by inexact numbers answers nearly all
// pairs; the full test answers the others.

#include <vexmath/bbox.h>
#include <vexmath/xform.h>

#include "matrix/rows.h"
#include "simd/wide_vector.h"
#include "transform/xform_parts.h"

#include <algorithm>

namespace {

using namespace vexmath::detail;

/// Result of the shortcut, which works in model space without inverting or composing transforms.
/// Apart and Clash are returned only where the full test is certain to agree; Close means: run it.
///
/// In exact numbers and without tolerances the shortcut and the full test agree. They differ by the
/// errors of the rotations' orthonormality, by rounding, and by what the full test ignores: scales
/// within 1e-08 of 1, translations below 1e-08 in any of the frames, and gaps and overlaps of that
/// size. For ordinary placements the sum is less than 1e-06 of the lengths involved plus 1e-07 of
/// the units of the frames; the margin is a hundred times that. NaN and lengths whose squares may
/// overflow give Close.
enum class Verdict { Apart, Clash, Close };

/// The members of a set box.
struct Parts {
    mgPoint_c const &low, &high, &centre;
    double radius;
};

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
    Reach(Parts const &a, mgXform_c const &xa, Parts const &b, mgXform_c const &xb)
        : radii(xa.scaling() * (a.radius + b.radius)), // the full test does not scale b's
          units(1.0 + xa.scaling() + xb.scaling()) {}

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

/// A box in model space: lengths in model units.
struct WideBox {
    VEXMATH_AVX2_STEP WideBox(Parts const &box, WidePlacement const &x)
        : local((load(&box.low[0]) + load(&box.high[0])) * all(0.5)), middle(x.image(local)),
          half((load(&box.high[0]) - local) * x.scale), centre(x.image(&box.centre[0])),
          fromMiddle((load(&box.centre[0]) - local) * x.scale), radius(all(box.radius) * x.scale) {}

    Wide local;      ///< the middle of the corners before placement
    Wide middle;     ///< the same, placed
    Wide half;       ///< from there to the high corner, along the box's own axes
    Wide centre;     ///< of the sphere
    Wide fromMiddle; ///< from the middle to the centre, along the box's own axes
    Wide radius;
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

VEXMATH_AVX2 Verdict verdictBySimd(Parts const &a, mgXform_c const &xa, Parts const &b,
                                   mgXform_c const &xb) {
    constexpr double kMostLengths = 1e100;
    if (!isOrdinary(xa) || !isOrdinary(xb)) return Verdict::Close;
    WidePlacement const placeA(xa), placeB(xb);
    if (!areBelow(placeA.errors() + placeB.errors(), all(kNearlyOrthonormal)))
        return Verdict::Close;

    Wide const apart = placeB.image(&b.centre[0]) - placeA.image(&a.centre[0]);
    double const distanceSq = sum(apart * apart);
    Reach const reach(a, xa, b, xb);
    Wide lengths = absolute(load(&a.centre[0])) * placeA.scale + absolute(placeA.translation)
                   + absolute(load(&b.centre[0])) * placeB.scale + absolute(placeB.translation);
    if (reach.isPlainlyExceeded(distanceSq, sum(lengths))) return Verdict::Apart;

    lengths = lengths + (absolute(load(&a.low[0])) + absolute(load(&a.high[0]))) * placeA.scale
              + (absolute(load(&b.low[0])) + absolute(load(&b.high[0]))) * placeB.scale;
    // The placed radius of b may be longer than all of these. Then its sphere clips no corner and
    // reaches everything, so that its rounding does not matter.
    double const otherLengths = sum(lengths);
    if (!(reach.radii + otherLengths < kMostLengths)) return Verdict::Close;
    return verdictInFrames(placeA.axes, WideBox(a, placeA), placeB.axes, WideBox(b, placeB),
                           reach.radii, distanceSq, reach.margin(otherLengths));
}

#else // never called

Verdict verdictBySimd(Parts const &, mgXform_c const &, Parts const &, mgXform_c const &) {
    return Verdict::Close;
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
Verdict verdictBySpheres(Parts const &a, mgXform_c const &xa, Parts const &b, mgXform_c const &xb) {
    double const distanceSq = (placed(b.centre, xb) - placed(a.centre, xa)).sqlen();
    double const lengths = sizesOf(a.centre, xa) + sizesOf(b.centre, xb);
    bool const isApart = Reach(a, xa, b, xb).isPlainlyExceeded(distanceSq, lengths)
                         && isOrdinary(xa) && isOrdinary(xb)
                         && error(xa) + error(xb) < kNearlyOrthonormal;
    return isApart ? Verdict::Apart : Verdict::Close;
}

/// From b's frame into a's, without b's record, of which a copy would allocate.
mgXform_c intoFrame(mgXform_c const &xa, mgXform_c const &xb) {
    if (!xb.hasPerspective()) return xb * xa.inverse();
    return vexmath::detail::withoutRecord(xb) * xa.inverse();
}

} // namespace

int mgBBox_c::clash(mgBBox_c const &a, mgXform_c const &xa, mgBBox_c const &b,
                    mgXform_c const &xb) {
    /// Depth by which the spheres must overlap; bound included. Also the tolerance of the box
    /// tests.
    constexpr double kOverlap = 1e-08;
    if (!a.isSet() || !b.isSet()) return 0;
    Parts const partsA = {a.low_, a.high_, a.sphCentre_, a.sphRadius_};
    Parts const partsB = {b.low_, b.high_, b.sphCentre_, b.sphRadius_};
    Verdict const verdict = hasSimd() ? verdictBySimd(partsA, xa, partsB, xb)
                                      : verdictBySpheres(partsA, xa, partsB, xb);
    if (verdict != Verdict::Close) return verdict == Verdict::Clash;
    mgXform_c const intoA = intoFrame(xa, xb);

    // QUIRK: bbox.h, mgBBox_c::clash: of placed boxes, b's radius is not scaled into a's frame.
    // Expected: scaled. Kept: callers and stored data depend on it.
    // (test: PlacedSpheresAreComparedUnscaled)
    mgPoint_c centre = b.sphCentre_ * intoA;
    mgPerspInfo_c info;
    if (xb.getPerspectiveInfo(&info)) info.doScreenPointPerspectiveDivision(centre);
    double const distance = (centre - a.sphCentre_).len();
    if (!(distance + kOverlap <= a.sphRadius_ + b.sphRadius_)) return 0;

    if (!b.movedBy(intoA).clash(&a, kOverlap)) return 0;
    return a.movedBy(intoA.inverse()).clash(&b, kOverlap);
}
