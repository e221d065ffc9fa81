// SPDX-License-Identifier: MIT
// Tests of interop/nlohmann_json.h, where the library is.

#if __has_include(<nlohmann/json.hpp>)
#include <vexmath/interop/nlohmann_json.h>

#include "common/geometry.h"

namespace {

using nlohmann::json;

template <class T>
T throughText(T const &object) {
    return json::parse(json(object).dump()).get<T>();
}

template <class T>
void CheckText(char const *expected, T const &object, Caller = {}) {
    EXPECT_EQ(json::parse(expected), json(object));
}

template <class Error, class T>
void CheckRefused(char const *text, T object, Caller = {}) {
    json const before = object;
    EXPECT_THROW(json::parse(text).get_to(object), Error);
    EXPECT_EQ(before, json(object));
}

} // namespace

TEST(InteropJson, EveryBitComesBack) {
    auto const check = [](auto const &object, Caller = {}) {
        EXPECT_BITS_EQ(object, throughText(object));
    };
    Random random;
    for (int i = 0; i < 100; ++i) {
        P const p(random.ofMagnitude(-100, 100), -0.0, random.uniform(-1, 1));
        U const u = direction(random);
        mgXform_c const x = placement(random);
        check(p), check(V(p)), check(u), check(x.rotation()), check(x);
        check(raw(x.rotation(), V(1e-9, 0, 0), 7e12, 1)); // which a copy would flush
        mgBBox_c const box(p, u), back = throughText(box);
        EXPECT_BITS_EQ(box.low(), back.low());
        EXPECT_BITS_EQ(box.high(), back.high());
        EXPECT_BITS_EQ(box.sphCenter(), back.sphCenter());
        EXPECT_BITS_EQ(box.sphRadius(), back.sphRadius());
    }
}

TEST(InteropJson, WhatIsNothingIsNull) {
    CheckText("null", U());
    CheckText("null", mgBBox_c());
    EXPECT_BITS_EQ(U(), throughText(U()));
    EXPECT_EQ(0, throughText(mgBBox_c()).isSet());
    EXPECT_BITS_EQ(U(0, 0, 1), json::parse("[0, 0, 3]").get<U>());
}

TEST(InteropJson, APerspectiveRecordIsKept) {
    mgPerspInfo_c info(1, 2, 3, 4);
    info.setMinFarClipPlaneDistance(5);
    info.setCameraFOVPlaneDistance(6);
    mgXform_c x;
    x.addPerspectiveInfo(info);
    CheckText(R"({"eye": [1, 2, 3], "plane": 4, "far": 5, "camera": 6})", info);
    mgPerspInfo_c back;
    ASSERT_EQ(1, throughText(x).getPerspectiveInfo(&back));
    EXPECT_TRUE(info == back);
    json(mgXform_c()).get_to(x);
    EXPECT_EQ(0, x.hasPerspective());
}

TEST(InteropJson, ListsAreArrays) {
    suDynamicArray<P> list;
    list.Add(P(1, 2, 3));
    list.Add(P(4, 5, 6));
    CheckText("[[1, 2, 3], [4, 5, 6]]", list);
    EXPECT_EQ(2, throughText(list).Count());
    EXPECT_BITS_EQ(P(4, 5, 6), throughText(list)[1]);
    CheckRefused<json::type_error>("7", list);
    CheckRefused<json::out_of_range>("[[1, 2, 3], [4, 5]]", list);
}

TEST(InteropJson, WhatHasAnotherFormIsRefused) {
    CheckRefused<json::out_of_range>("[1, 2]", P(7, 8, 9));
    CheckRefused<json::type_error>("[1, null, 3]", P(7, 8, 9)); // null is also what NaN becomes
    CheckRefused<json::type_error>("null", V(7, 8, 9));
    CheckRefused<json::out_of_range>(R"({"low": [1, 2, 3]})", mgBBox_c(P(), P(1, 1, 1)));
    CheckRefused<json::out_of_range>(R"({"scale": 3})", mg_ScaleXform(2.0));
}
#endif
