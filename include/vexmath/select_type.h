// SPDX-License-Identifier: MIT
// Sets of selection-type codes and of selection-constraint codes.

#ifndef VEXMATH_SELECT_TYPE_H
#define VEXMATH_SELECT_TYPE_H

#include <vexmath/detail/select_set.h>
#include <vexmath/export.h>

// The application defines the codes: it completes these enumerations with its own names. Only two
// have a meaning here: 0, "nothing", and -1, which the constructor of `uoSelectType_c` refuses.
enum uoSelTypes_e : int;
enum uoSelConstraint_e : int;
enum cvSelectType_e : int;

/// The types of object that may be selected: an array of codes in the order they were added. Copies
/// keep order and duplicates.
///
/// No operation stores a code twice. But a set that came by a duplicate in another way keeps it in
/// copies, and the operations that compare numbers of elements count it.
///
/// An element of another set is *matched* by this set when this set holds it. The element 0,
/// "nothing", is matched only by the empty set, not even by a set that holds 0. So a set that holds
/// 0 does not equal itself.
///
/// Nothing throws. When memory is exhausted, a code that cannot be stored is left out, a copy is
/// empty, and an assignment leaves the set as it was.
class uoSelectType_c : public vexmath::detail::SelectSet<uoSelectType_c, uoSelTypes_e> {
public:
    uoSelectType_c() = default; ///< the empty set

    /// The set of one code; empty for 0 and -1.
    VEXMATH_API uoSelectType_c(uoSelTypes_e const &code);

    // Members of the base, where Code is uoSelTypes_e and Set this class.

    /// void add(Code const &code): appends the code unless it is present. 0 and -1 are codes like
    /// any other here.
    using SelectSet::add;
    /// void unset(Code const &code): removes the first occurrence of the code, if there is one.
    ///
    /// void unset(Set const &other): for each element of `other` in order, removes its first
    /// occurrence here: {1, 1, 1} without {1, 1} leaves {1}. If `other` is this set, it becomes
    /// empty.
    using SelectSet::unset;

    /// Set operator|(Code code) const, Set operator|(Set const &other) const: the elements of this
    /// set, then the code or the elements of `other`, each only once.
    using SelectSet::operator|;
    /// Set &operator|=(Set const &other): appends the elements of `other` that are absent here. A
    /// duplicate in this set stays.
    using SelectSet::operator|=;
    /// int operator&(Set const &other) const: 1 when an element of `other` is matched, else 0. So
    /// the empty set meets {0}, but nothing meets an empty `other`, not even the empty set.
    ///
    /// int operator&(Code const &code) const: 1 when the code is not 0 and present, or is 0 and the
    /// set is empty; else 0.
    using SelectSet::operator&;
    /// int contains(Set const &other) const: 1 when `other` has no more elements than this set and
    /// each is matched, else 0. Duplicates count: {1} does not contain {1, 1}. An empty `other` is
    /// contained in every set.
    using SelectSet::contains;
    /// Set intersection(Set const &other) const: the elements of `other` that are matched, in its
    /// order, each only once.
    using SelectSet::intersection;

    /// int getNumOfTypes() const: the number of elements, duplicates included.
    using SelectSet::getNumOfTypes;
    /// int getIndex(Code const &code) const: the position of the first occurrence, from 0 on, or -1
    /// when there is none.
    using SelectSet::getIndex;
    /// void getTypes(long *types) const: copies the elements in order to `types`, sign-extended
    /// where `long` is wider than 32 bits. REQUIRES room for getNumOfTypes() entries.
    using SelectSet::getTypes;
    /// static cvSelectType_e uoTypeToAuType(Code const &code): the same number, as the enumeration
    /// of the application interface.
    using SelectSet::uoTypeToAuType;

    /// 1 when the numbers of elements are equal and each element of `other` is matched, else 0. So
    /// two empty sets are equal, a set that holds 0 does not even equal itself, and {1, 2} == {1,
    /// 1} but not the other way round. Both operands have this type, because C++20 also tries them
    /// exchanged.
    int operator==(uoSelectType_c const &other) const;
    int operator!=(uoSelectType_c const &other) const; ///< 1 where == is 0, and 0 where it is 1
};

/// The constraints under which objects may be selected. Has the members of `uoSelectType_c`, for
/// codes of `uoSelConstraint_e`, and works like it, except that the constructor accepts -1.
class uoSelectConstraint_c
    : public vexmath::detail::SelectSet<uoSelectConstraint_c, uoSelConstraint_e> {
public:
    uoSelectConstraint_c() = default; ///< the empty set

    /// The set of one code; empty for 0.
    VEXMATH_API uoSelectConstraint_c(uoSelConstraint_e const &code);

    int operator==(uoSelectConstraint_c const &other) const;
    int operator!=(uoSelectConstraint_c const &other) const;
};

/// The set of both codes, or of one if they are equal. 0 and -1 are added like any code.
VEXMATH_API uoSelectType_c operator|(uoSelTypes_e a, uoSelTypes_e b);
VEXMATH_API uoSelectConstraint_c operator|(uoSelConstraint_e a, uoSelConstraint_e b);

// -------------------------------------------------------------------------------------------------

inline int uoSelectType_c::operator==(uoSelectType_c const &other) const {
    return SelectSet::operator==(other);
}

inline int uoSelectType_c::operator!=(uoSelectType_c const &other) const {
    return !(*this == other);
}

inline int uoSelectConstraint_c::operator==(uoSelectConstraint_c const &other) const {
    return SelectSet::operator==(other);
}

inline int uoSelectConstraint_c::operator!=(uoSelectConstraint_c const &other) const {
    return !(*this == other);
}

#endif
