// SPDX-License-Identifier: MIT
// Sets of selection codes by operations in any order, compared with a vector.

#include "fuzz.h"

namespace {

using Codes = std::vector<int>;

bool holds(Codes const &set, int code) { return std::count(set.begin(), set.end(), code) > 0; }
bool matches(Codes const &set, int code) { return code == 0 ? set.empty() : holds(set, code); }
void add(Codes &set, int code) {
    if (!holds(set, code)) set.push_back(code);
}
void unset(Codes &set, int code) {
    set.erase(std::remove(set.begin(), set.end(), code), set.end());
}

template <class Set>
Codes codesOf(Set const &set) {
    std::vector<long> types(static_cast<std::size_t>(set.getNumOfTypes()));
    set.getTypes(types.data());
    return {types.begin(), types.end()};
}

template <class Set, class Code>
void check(Input &in, int refused) {
    Set sets[3];
    Codes models[3];
    while (!in.isUsedUp()) {
        int const i = in.below(3), j = in.below(3), number = in.below(7) - 2;
        auto const code = static_cast<Code>(number);
        Set &a = sets[i], &b = sets[j];
        Codes &m = models[i], both = m, common;
        Codes const other = models[j];
        for (int const c : other) {
            add(both, c);
            if (matches(m, c)) common.push_back(c);
        }
        bool const containsAll = common.size() == other.size() && other.size() <= m.size();
        CHECK((a & b) == !common.empty() && (a & code) == matches(m, number));
        CHECK(a.contains(b) == containsAll
              && (a == b) == (containsAll && m.size() == other.size()));
        CHECK(codesOf(a | b) == both && codesOf(a.intersection(b)) == common);
        auto const place = std::find(m.begin(), m.end(), number) - m.begin();
        CHECK(a.getIndex(code) == (holds(m, number) ? place : -1));
        int const operation = in.below(7);
        if (operation == 0) a.add(code), add(m, number);
        if (operation == 1) a = a | code, add(m, number);
        if (operation == 2) a |= b, m = both;
        if (operation == 3) a.unset(code), unset(m, number);
        if (operation == 4) a = a.intersection(b), m = common;
        if (operation == 5) a = Set(code), m = {number}, unset(m, 0), unset(m, refused);
        for (int const c : other)
            if (operation == 6) unset(m, c);
        if (operation == 6) a.unset(b);
        CHECK(codesOf(a) == m);
    }
}

} // namespace

void fuzz(Input &in) {
    if (in.flip()) return check<uoSelectType_c, uoSelTypes_e>(in, -1);
    check<uoSelectConstraint_c, uoSelConstraint_e>(in, 0);
}
