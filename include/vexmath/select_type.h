// SPDX-License-Identifier: MIT
// Sets of selection-type codes and of selection-constraint codes.

#ifndef VEXMATH_SELECT_TYPE_H
#define VEXMATH_SELECT_TYPE_H

#include <vexmath/export.h>
#include <vexmath/forward.h>
#include <vexmath_platform/word_array.h>

// The codes are the application's: it completes these enumerations with its own names. Only 0,
// "nothing", and -1, which `uoSelectType_c` refuses, mean something here.
enum uoSelTypes_e : int;
enum uoSelConstraint_e : int;
enum cvSelectType_e : int;

namespace vexmath::detail {

/// What the two set classes have in common: an array of codes in the order they were added. `Set`
/// is the class that derives from it, `Code` its enumeration.
///
/// No operation stores a code twice, but a set that came by a duplicate keeps it through copies,
/// and the operations that compare numbers of elements count it.
///
/// No operation throws. When memory is exhausted, a set lacks the codes that it could not store; an
/// assignment that cannot store them leaves the set as it was.
///
/// An element of another set is *matched* by this set when this set holds it; the element 0,
/// "nothing", is matched only by the empty set.
template <class Set, class Code>
class SelectSet {
public:
    /// Appends the code unless it is present; 0 and -1 are codes like any other here.
    void add(Code const &code);

    /// Removes the first occurrence of the code, if there is one.
    void unset(Code const &code);

    /// Removes the first occurrence of each element of `other`, which may be this set.
    void unset(Set const &other);

    /// The elements of this set without duplicates, then what is absent.
    Set operator|(Code code) const;
    Set operator|(Set const &other) const;
    Set &operator|=(Set const &other);

    /// 1 when an element of `other` is matched, else 0. So the empty set meets {0}, while nothing
    /// meets an empty `other`, not even the empty set.
    int operator&(Set const &other) const;

    /// 1 when the code is present, or the code is 0 and the set is empty, else 0.
    int operator&(Code const &code) const;

    /// 1 when the numbers of elements agree and each element of `other` is matched, else 0. Two
    /// empty sets are equal.
    int operator==(Set const &other) const;

    /// 1 when `other` has no more elements than this set and each is matched, else 0. An empty
    /// `other` is contained in every set.
    int contains(Set const &other) const;

    /// The elements of `other` that are matched, in its order and without duplicates.
    Set intersection(Set const &other) const;

    int getNumOfTypes() const;

    /// Position of the first occurrence, or -1.
    int getIndex(Code const &code) const;

    /// Copies the elements in order, sign-extended where `long` is wider than 32 bits.
    /// REQUIRES room for getNumOfTypes() entries.
    void getTypes(long *types) const;

    /// The same number as the application interface calls it.
    static cvSelectType_e uoTypeToAuType(Code const &code);

protected:
    SelectSet();
    SelectSet(SelectSet const &other);
    SelectSet &operator=(SelectSet const &other);
    ~SelectSet();

    su_CDWordArray words_;
};

extern template class VEXMATH_API SelectSet<uoSelectType_c, uoSelTypes_e>;
extern template class VEXMATH_API SelectSet<uoSelectConstraint_c, uoSelConstraint_e>;

} // namespace vexmath::detail

/// The types of object that may be selected. Copies are exact: order and duplicates stay.
class uoSelectType_c : public vexmath::detail::SelectSet<uoSelectType_c, uoSelTypes_e> {
public:
    uoSelectType_c() = default;

    /// The set of one code; empty for 0 and -1.
    VEXMATH_API uoSelectType_c(uoSelTypes_e const &code);

    // Of the class itself, so that both operands have one type: C++20 also exchanges them.
    int operator==(uoSelectType_c const &other) const;
    int operator!=(uoSelectType_c const &other) const;
};

/// The constraints under which objects may be selected. Works like `uoSelectType_c`, except that
/// -1 makes a set of one code here too.
class uoSelectConstraint_c
    : public vexmath::detail::SelectSet<uoSelectConstraint_c, uoSelConstraint_e> {
public:
    uoSelectConstraint_c() = default;

    /// The set of one code; empty for 0.
    VEXMATH_API uoSelectConstraint_c(uoSelConstraint_e const &code);

    int operator==(uoSelectConstraint_c const &other) const;
    int operator!=(uoSelectConstraint_c const &other) const;
};

/// The set of both codes; 0 and -1 are taken as they are.
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
