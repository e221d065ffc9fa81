// SPDX-License-Identifier: MIT
// Shared by the tests of archives: the ways to write and to read a record.

#ifndef VEXMATH_TESTS_COMMON_RECORDS_H
#define VEXMATH_TESTS_COMMON_RECORDS_H

#include <vexmath/vexmath.h>

namespace common {

inline constexpr auto save = [](auto &ar, auto &object) { object.save(ar); };
inline constexpr auto restore = [](auto &ar, auto &object) { object.restore(ar); };
inline constexpr auto restoreAsIs = [](auto &ar, auto &object) { object.restoreAsIs(ar); };
inline constexpr auto put = [](auto &ar, auto &object) { ar << object; };
inline constexpr auto get = [](auto &ar, auto &object) { ar >> object; };
inline constexpr auto save2D = [](auto &ar, auto &p) { p.save2D(ar); };
inline constexpr auto restore2D = [](auto &ar, auto &p) { p.restore2D(ar); };
// Of classes that are only read.
inline constexpr auto writeXyz = [](auto &ar, auto &v) { mgPoint_c(v).save(ar); };
inline constexpr auto writeUv = [](auto &ar, auto &uv) {
    mgPoint_c(uv.u(), uv.v(), 0.0).save2D(ar);
};

} // namespace common

#endif
