// SPDX-License-Identifier: MIT
// Contacts: which parts clash, touch and contain each other, and what changed of that since an
// earlier document.

#ifndef ASSEMBLY_CONTACTS_H
#define ASSEMBLY_CONTACTS_H

#include "assembly.h"

#include <cstddef>
#include <string>
#include <vector>

namespace assembly {

struct Document;

/// Two parts, as indices into the list of parts.
struct PartPair {
    std::size_t first = 0;
    std::size_t second = 0;
};

/// Bounding volumes enclose their parts: two parts of no pair do not overlap, although their boxes
/// may share a corner. An exact test of the bodies is needed for the clashing pairs alone. With a
/// tolerance of 0 there is no touching: parts that meet clash, except for boxes that share a single
/// corner.
///
/// Each list is sorted by the lower index of a pair, then by the higher.
struct Contacts {
    std::vector<PartPair> clashing;   ///< overlapping by more than the tolerance
    std::vector<PartPair> touching;   ///< within the tolerance of touching
    std::vector<PartPair> containing; ///< the first contains the second
};

/// Finds them in near-linear time.
Contacts findContacts(Assembly const &assembly);

/// The contacts of an assembly, and how they differ from those of an earlier document of it.
struct ContactUpdate {
    Contacts now;
    // The pairs of these two lists are indices into `names`.
    Contacts added;
    Contacts gone;
    std::vector<std::string> names; ///< of the parts, then of parts that are there no longer
};

/// Tests only the parts that differ from those of the document by any bit; all parts, when the
/// tolerances differ. The other contacts are those of the document. In a document of layout 1,
/// which has none, they are found first.
ContactUpdate updateContacts(Document const &earlier, Assembly const &assembly);

} // namespace assembly

#endif
