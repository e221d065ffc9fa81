// SPDX-License-Identifier: MIT
// Boxes of floats, eight at a time: which of them meet a box.

#ifndef VEXMATH_SRC_BOUNDS_EIGHT_BOXES_H
#define VEXMATH_SRC_BOUNDS_EIGHT_BOXES_H

#include <cstdint>
#include <limits>

namespace vexmath::detail {

/// Closed intervals on the three axes. One with NaN meets nothing.
struct Enclosure {
    float low[3];
    float high[3];
    std::uint32_t label; ///< whatever its owner wants to know of it
};

/// Eight enclosures. A lane without one holds NaN.
struct EightBoxes {
    float low[3][8];
    float high[3][8];
};

/// A list of enclosures by their positions, with room for a few hundred, axis by axis.
struct BoxList {
    static constexpr int kMost = 512;

    void clear() { count = 0; }
    bool hasRoom() const { return count <= kMost - 8; } ///< for eight more
    /// Puts NaN behind the last one, so that the list can be read in steps of eight.
    void close() {
        for (int k = 0; k < 8; ++k) low[0][count + k] = std::numeric_limits<float>::quiet_NaN();
    }
    Enclosure operator[](int k) const {
        return {{low[0][k], low[1][k], low[2][k]}, {high[0][k], high[1][k], high[2][k]}, 0};
    }

    int count = 0;
    // A step of eight may write and read beyond the last one.
    float low[3][kMost + 8];
    float high[3][kMost + 8];
    int position[kMost + 8];
};

/// The smallest box around the enclosures. low > high when there are none.
Enclosure unionOf(EightBoxes const &boxes);
Enclosure unionOf(BoxList const &list, int begin, int end);

/// Bit k is set when the box in lane k meets `box`.
unsigned whichMeet(EightBoxes const &boxes, Enclosure const &box);

/// Appends those that meet `box`, in their order; the first has the given position. REQUIRES room
/// for eight.
void appendMeeting(EightBoxes const &boxes, int position, Enclosure const &box, BoxList &to);
/// The same for all of a closed list from `begin` on. REQUIRES an empty `to`.
void appendMeeting(BoxList const &list, int begin, Enclosure const &box, BoxList &to);

/// The mark of a deep meeting in `findMeeting`.
inline constexpr std::uint32_t kDeep = std::uint32_t{1} << 31;

/// Writes to `found` the indices of those boxes of a closed list, from `begin` on, that meet `box`.
/// kDeep is added to an index when the common part is wider than `depth` on every axis. Returns
/// their number. REQUIRES room for BoxList::kMost + 8 indices.
int findMeeting(BoxList const &list, int begin, Enclosure const &box, float depth,
                std::uint32_t *found);

} // namespace vexmath::detail

#endif
