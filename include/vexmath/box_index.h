// SPDX-License-Identifier: MIT
// mgBoxIndex_c: many boxes kept so that those near a box, a point or a line are found fast.

#ifndef VEXMATH_BOX_INDEX_H
#define VEXMATH_BOX_INDEX_H

#include <vexmath/bbox.h>
#include <vexmath/bulk.h>
#include <vexmath/su_dynamic_array.h>

/// An index of boxes, and perhaps of their placements. It copies what it is given, to the bit.
///
/// **Every answer is that of a loop over all boxes** with the single test that each function names,
/// in index order: for every box, placement, point and tolerance, NaN and infinite ones included.
/// How the boxes are kept changes only the time. The time grows with the logarithm of the number of
/// boxes and with the number of boxes near what is asked. Boxes with NaN or infinite corners,
/// placements that are no similarities of a scale between 0.001 and 1000, and lines with NaN,
/// infinite or huge numbers or with a dir far from unit length take longer, up to the time of the
/// loop.
///
/// In the comments below, box i is the box as it was given. When the index has placements, it is
/// its enclosure in the common frame, `mgBBox_c(boxes[i]) *= placements[i]`; the boxes, points and
/// lines that are searched for are in that frame. Only `clashes` and `clashesOf` use the placements
/// themselves.
///
/// Functions that find a list replace what the list holds, and return the number of its elements. A
/// list `which` gets the indices of the boxes. The list gets exactly the capacity that it needs, or
/// a null handle when it is empty. When memory is exhausted they return -1 and leave the list
/// empty. Nothing throws. Arguments must not lie in the block of the list.
///
/// The index keeps about 120 bytes for each box and 130 for each placement. While they run, `build`
/// needs 45 more for each box, and `clashes` about 80, or 320 when they are placed, and up to 40
/// for each pair, those of the result included.
///
/// An index can be moved but not copied. One that was moved from is empty, as a new one. Const
/// functions may run at the same time in several threads; all others need the index for themselves.
class mgBoxIndex_c {
public:
    mgBoxIndex_c() = default; ///< empty
    VEXMATH_API mgBoxIndex_c(mgBoxIndex_c &&source) noexcept;
    VEXMATH_API mgBoxIndex_c &operator=(mgBoxIndex_c &&source) noexcept; ///< source may be *this
    VEXMATH_API ~mgBoxIndex_c();

    /// Replaces what the index holds. placements is an array of the same count, or null for boxes
    /// that are not placed. Returns 1, or 0 when memory is exhausted; the index is then empty. A
    /// count of 0 or less makes the index empty; boxes may then be null.
    VEXMATH_API int build(mgBBox_c const *boxes, mgXform_c const *placements, int count);
    /// Replaces box i; its placement stays. An i that is out of range is ignored. When more than
    /// about a quarter of the boxes move, `build` is faster. Boxes that move far make all searches
    /// slower, until `build`.
    VEXMATH_API void move(int i, mgBBox_c const &box);
    /// Replaces placement i. Ignored when i is out of range or the index has no placements. The
    /// copy of a perspective record needs memory; when it is exhausted, placement i stays.
    VEXMATH_API void place(int i, mgXform_c const &x);

    /// The pairs i < j that clash, sorted by first, then second, as from `mg_FindClashes`: by
    /// `boxes[i].clash(&boxes[j], tol)`; or, when the index has placements, by
    /// `mgBBox_c::clash(boxes[i], placements[i], boxes[j], placements[j])`, and tol is ignored. -1
    /// also when there are more than 2147483647 pairs.
    VEXMATH_API int clashes(double tol, suDynamicArray<mgIndexPair_c> &pairs) const;
    /// The same pairs, but only those with at least one of the n indices in `some`. Each pair is
    /// found once. Indices may repeat; those out of range are ignored. An n of 0 or less finds
    /// none; some may then be null.
    VEXMATH_API int clashesOf(int const *some, int n, double tol,
                              suDynamicArray<mgIndexPair_c> &pairs) const;
    /// The boxes with a `clash(&box, tol)` of 1.
    VEXMATH_API int clashesWith(mgBBox_c const &box, double tol, suDynamicArray<int> &which) const;
    /// The boxes with a `containsPoint(p, tol)` of 1. That test ignores the set state: a box that
    /// is unset by its radius is found by its corners.
    VEXMATH_API int around(mgPoint_c const &p, double tol, suDynamicArray<int> &which) const;
    /// The boxes with an `isRayHit(p, dir)` of 1.
    VEXMATH_API int onLine(mgPoint_c const &p, mgUnitVector_c const &dir,
                           suDynamicArray<int> &which) const;
    /// The index of the box with the nearest hit of `getFirstRayHit(p, dir, hit)`, and that hit;
    /// the lowest index of those with equal (*hit - p).len(). The set state is ignored. -1, and
    /// *hit unchanged, when no box is hit. hit may be &p. Needs no memory. REQUIRES hit not null.
    VEXMATH_API int firstOnRay(mgPoint_c const &p, mgUnitVector_c const &dir, mgPoint_c *hit) const;

private:
    vexmath::detail::BoxIndexData *data_ = nullptr; // owned; null when empty
};

#endif
