// SPDX-License-Identifier: MIT
// What the sets of selection types and of selection constraints share.

#ifndef VEXMATH_DETAIL_SELECT_SET_H
#define VEXMATH_DETAIL_SELECT_SET_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

#include <vexmath_platform/word_array.h>

// The codes are those of the application.
enum uoSelTypes_e : int;
enum uoSelConstraint_e : int;
enum cvSelectType_e : int;

namespace vexmath::detail {

/// An array of codes in the order they were added. `Set` is the class that derives from it, `Code`
/// its enumeration. The comments of `uoSelectType_c` describe the members.
template <class Set, class Code>
class SelectSet {
public:
    void add(Code const &code);
    void unset(Code const &code);
    void unset(Set const &other);

    Set operator|(Code code) const;
    Set operator|(Set const &other) const;
    Set &operator|=(Set const &other);
    int operator&(Set const &other) const;
    int operator&(Code const &code) const;
    int operator==(Set const &other) const;
    int contains(Set const &other) const;
    Set intersection(Set const &other) const;

    int getNumOfTypes() const;
    int getIndex(Code const &code) const;
    void getTypes(long *types) const;
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

#endif
