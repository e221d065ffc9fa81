// SPDX-License-Identifier: MIT
// Sets of selection-type codes and of selection-constraint codes.

#ifndef VEXMATH_SELECT_TYPE_H
#define VEXMATH_SELECT_TYPE_H

#include <vexmath/export.h>
#include <vexmath/forward.h>
#include <vexmath_platform/word_array.h>

// The application defines the codes: it completes these enumerations with its own names. Only two
// have a meaning here: 0, "nothing", and -1, which the constructor of `uoSelectType_c` refuses.
enum uoSelTypes_e : int;
enum uoSelConstraint_e : int;
enum cvSelectType_e : int;

namespace vexmath::detail {

/// What the two set classes share: an array of codes in the order they were added. `Set` is the
/// class that derives from it, `Code` its enumeration.
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
template <class Set, class Code>
class SelectSet {
public:
    /// Appends the code unless it is present. 0 and -1 are codes like any other here.
    void add(Code const &code);

    /// Removes the first occurrence of the code, if there is one.
    void unset(Code const &code);

    /// For each element of `other` in order, removes its first occurrence here: {1, 1, 1} without
    /// {1, 1} leaves {1}. If `other` is this set, it becomes empty.
    void unset(Set const &other);

    /// The elements of this set, then the code or the elements of `other`, each only once.
    Set operator|(Code code) const;
    Set operator|(Set const &other) const;

    /// Appends the elements of `other` that are absent here. A duplicate in this set stays.
    Set &operator|=(Set const &other);

    /// 1 when an element of `other` is matched, else 0. So the empty set meets {0}, but nothing
    /// meets an empty `other`, not even the empty set.
    int operator&(Set const &other) const;

    /// 1 when the code is not 0 and present, or is 0 and the set is empty; else 0.
    int operator&(Code const &code) const;

    /// 1 when the numbers of elements are equal and each element of `other` is matched, else 0. So
    /// two empty sets are equal, a set that holds 0 does not even equal itself, and {1, 2} == {1,
    /// 1} but not the other way round. `!=` is 1 where this is 0, and 0 where this is 1.
    int operator==(Set const &other) const;

    /// 1 when `other` has no more elements than this set and each is matched, else 0. Duplicates
    /// count: {1} does not contain {1, 1}. An empty `other` is contained in every set.
    int contains(Set const &other) const;

    /// The elements of `other` that are matched, in its order, each only once.
    Set intersection(Set const &other) const;

    /// Number of elements, duplicates included.
    int getNumOfTypes() const;

    /// Position of the first occurrence, from 0 on, or -1 when there is none.
    int getIndex(Code const &code) const;

    /// Copies the elements in order to `types`, sign-extended where `long` is wider than 32 bits.
    /// REQUIRES room for getNumOfTypes() entries.
    void getTypes(long *types) const;

    /// The same number, as the enumeration of the application interface.
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

/// The types of object that may be selected. Copies keep order and duplicates. All other operations
/// are those of the base.
class uoSelectType_c : public vexmath::detail::SelectSet<uoSelectType_c, uoSelTypes_e> {
public:
    uoSelectType_c() = default; ///< the empty set

    /// The set of one code; empty for 0 and -1.
    VEXMATH_API uoSelectType_c(uoSelTypes_e const &code);

    // As in the base. Both operands have this type, because C++20 also tries them exchanged.
    int operator==(uoSelectType_c const &other) const;
    int operator!=(uoSelectType_c const &other) const;
};

/// The constraints under which objects may be selected. Works like `uoSelectType_c`, except that
/// the constructor accepts -1.
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
