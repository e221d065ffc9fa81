// SPDX-License-Identifier: MIT
// Sets of selection codes by operations in any order, compared with a vector.

#include "fuzz.h"

namespace {

using Codes = std::vector<int>;

bool holds(Codes const &set, int code) {
    return std::find(set.begin(), set.end(), code) != set.end();
}
bool matches(Codes const &set, int code) { return code == 0 ? set.empty() : holds(set, code); }
bool matchesAll(Codes const &set, Codes const &other) {
    return std::all_of(other.begin(), other.end(), [&](int code) { return matches(set, code); });
}
void add(Codes &set, int code) {
    if (!holds(set, code)) set.push_back(code);
}
void remove(Codes &set, int code) {
    auto const at = std::find(set.begin(), set.end(), code);
    if (at != set.end()) set.erase(at);
}

template <class Set>
Codes codesOf(Set const &set) {
    std::vector<long> types(static_cast<std::size_t>(set.getNumOfTypes()));
    set.getTypes(types.data());
    return {types.begin(), types.end()};
}

template <class Set, class Code>
void check(Input &in, bool isMinusOneRefused) {
    Set sets[3];
    Codes models[3];
    while (!in.isUsedUp()) {
        int const i = in.below(3), j = in.below(3), number = in.below(7) - 2;
        auto const code = static_cast<Code>(number);
        Set &a = sets[i];
        Set const &b = sets[j];
        Codes &m = models[i];
        Codes const other = models[j];
        Codes both = m, common;
        for (int const c : other) add(both, c);
        for (int const c : other)
            if (matches(m, c)) common.push_back(c);
        CHECK((a & b) == !common.empty() && (a & code) == matches(m, number));
        CHECK(a.contains(b) == (other.size() <= m.size() && matchesAll(m, other)));
        CHECK((a == b) == (other.size() == m.size() && matchesAll(m, other))
              && (a != b) == !(a == b));
        CHECK(codesOf(a | b) == both && codesOf(a.intersection(b)) == common);
        CHECK(a.getIndex(code)
              == (holds(m, number) ? std::find(m.begin(), m.end(), number) - m.begin() : -1));
        switch (in.below(7)) {
        case 0:
            a.add(code), add(m, number);
            break;
        case 1:
            a = a | code, add(m, number);
            break;
        case 2:
            a |= b, m = both;
            break;
        case 3:
            a.unset(code), remove(m, number);
            break;
        case 4:
            a.unset(b);
            for (int const c : other) remove(m, c);
            break;
        case 5:
            a = a.intersection(b), m = common;
            break;
        default:
            a = Set(code), m.clear();
            if (number != 0 && !(number == -1 && isMinusOneRefused)) m = {number};
        }
        CHECK(codesOf(a) == m);
    }
}

} // namespace

void fuzzOne(Input &in) {
    if (in.flip())
        check<uoSelectType_c, uoSelTypes_e>(in, true);
    else
        check<uoSelectConstraint_c, uoSelConstraint_e>(in, false);
}
