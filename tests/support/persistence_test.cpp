// SPDX-License-Identifier: MIT
// Archive records: their bytes, every shorter stream refused, and what a reader repairs or keeps.

#include <vexmath/bbox.h>
#include <vexmath/cone.h>
#include <vexmath/line.h>
#include <vexmath/persp_info.h>
#include <vexmath/point2d.h>
#include <vexmath/primitive_body_data.h>

#include <functional>
#include <initializer_list>
#include <sstream>
#include <string>

#include "support/geometry.h"

namespace {

using support::below;
using P = mgPoint_c;
using V = mgVector_c;
using Xform = mgXform_c;
using Numbers = std::initializer_list<double>;

std::string littleEndian(std::uint64_t bits, int size) {
    std::string text;
    for (; size > 0; --size, bits >>= 8) text += static_cast<char>(bits & 0xFF);
    return text;
}

std::string doubles(Numbers values) {
    std::string text;
    for (double const value : values) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        text += littleEndian(bits, 8);
    }
    return text;
}

/// What an object is read from and written to, by the pair of operations under test.
template <class T>
struct Record {
    std::function<void(su_CArchive &, T &)> write, read;

    std::string stored(T &object) const {
        std::stringstream stream;
        su_CArchive ar(stream);
        write(ar, object);
        return stream.str();
    }

    void restore(T &object, std::string const &bytes) const {
        std::stringstream stream(bytes);
        su_CArchive ar(stream);
        read(ar, object);
        EXPECT_EQ(bytes.size(), static_cast<std::size_t>(stream.tellg())) << "bytes were left over";
    }

    /// The object is stored as these bytes and read back from them, over another value, which every
    /// shorter stream leaves as it was.
    void check(std::string const &bytes, T object, T const &other) const {
        T target(other);
        std::string const old = stored(target);
        EXPECT_EQ(bytes, stored(object));
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            EXPECT_THROW(restore(target, bytes.substr(0, length)), su_CArchiveError) << length;
            EXPECT_EQ(old, stored(target)) << length;
        }
        restore(target, bytes);
        EXPECT_EQ(bytes, stored(target));
    }
};

/// The entry points of a class by their names, through either type of archive.
template <class T, class Archive = su_CArchive>
Record<T> const named{[](Archive &ar, T &object) { object.save(ar); },
                      [](Archive &ar, T &object) { object.restore(ar); }};
template <class T, class Archive = su_CArchive>
Record<T> const asIs{[](Archive &ar, T &object) { object.save(ar); },
                     [](Archive &ar, T &object) { object.restoreAsIs(ar); }};
template <class T>
Record<T> const streamed{[](su_CArchive &ar, T &object) { ar << object; },
                         [](su_CArchive &ar, T &object) { ar >> object; }};

TEST(Persistence, PointsAndVectorsAreTheirDoubles) {
    P const p(1.5, -0.0, 3e-320);
    std::string const xyz = doubles({1.5, -0.0, 3e-320});
    streamed<P>.check(xyz, p, P(7.0, 8.0, 9.0));
    named<P, CArchive>.check(xyz, p, P(7.0, 8.0, 9.0));
    Record<V>{[](su_CArchive &ar, V &v) { ar << v.x() << v.y() << v.z(); },
              [](CArchive &ar, V &v) { v.restore(ar); }}
        .check(xyz, p, V(7.0, 8.0, 9.0));
    Record<mg2DPoint_c>{[](su_CArchive &ar, mg2DPoint_c &q) { ar << q.u() << q.v(); },
                        [](CArchive &ar, mg2DPoint_c &q) { q.restore(ar); }}
        .check(doubles({-2.5, 4.0}), mg2DPoint_c(-2.5, 4.0), mg2DPoint_c(7.0, 8.0));

    Record<P> const planar{[](CArchive &ar, P &q) { q.save2D(ar); },
                           [](CArchive &ar, P &q) { q.restore2D(ar); }};
    planar.check(doubles({1.5, -0.0}), p, P(7.0, 8.0, 9.0));
    P target(7.0, 8.0, 5.0);
    EXPECT_THROW(planar.restore(target, doubles({1.0})), su_CArchiveError);
    EXPECT_BITS_EQ(P(7.0, 8.0, 5.0), target);
    planar.restore(target, doubles({1.0, 2.0}));
    EXPECT_BITS_EQ(P(1.0, 2.0, 0.0), target);
}

double const rotated[9] = {0.0, 1.0, 0.0, -1.0, 0.0, 0.0, 0.0, 0.0, 1.0};
double const skewed[9] = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0};
std::string const turn = doubles({0.0, 1.0, 0.0, -1.0, 0.0, 0.0, 0.0, 0.0, 1.0});
std::string const skew = doubles({1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0});

TEST(Persistence, MatricesAreStoredWithoutTheirFlag) {
    mgMatrix_c const quarter(rotated, 0), odd(skewed, 0);
    named<mgMatrix_c>.check(turn, quarter, odd);
    named<mgMatrix_c, CArchive>.check(turn, quarter.transpose().transpose(), odd);
    asIs<mgMatrix_c>.check(skew, odd, quarter);
    asIs<mgMatrix_c, CArchive>.check(skew, odd, quarter);
}

TEST(Persistence, MatricesAreRepairedOrTakenAsTheyAre) {
    auto const restored = [](Record<mgMatrix_c> const &record, Numbers elements) {
        mgMatrix_c target(skewed, 0);
        record.restore(target, doubles(elements));
        return target;
    };
    auto const &repairing = named<mgMatrix_c>, &plain = asIs<mgMatrix_c>;
    double const s = below(1e-08);
    mgMatrix_c const one = restored(repairing, {s, -s, s, 0.0, 0.0, 0.0, s, s, -s}); // null rows
    EXPECT_BITS_EQ(mgMatrix_c(), one);
    EXPECT_EQ(1, one.isIdentity());
    mgMatrix_c const zero = restored(plain, {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0});
    EXPECT_EQ(1, zero.isNearZero() & !zero.isIdentity());
    // With a row that is not null the three go through one pass, as they are: lengths are corrected
    // to first order, and row 2 is rebuilt from the other two.
    mgMatrix_c const m = restored(repairing, {1.1, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1e-08});
    double const corrected = 1.1 * (1.0 + (1.0 - 1.1 * 1.1) / 2.0);
    for (int k = 0; k < 9; ++k)
        EXPECT_BITS_EQ(k == 4 ? 1.0 : k % 4 == 0 ? corrected : 0.0, m[k]) << k;

    for (double const off : {s, 1e-08}) { // rows off their axes, kept as they are
        auto const rows = restored(plain, {1.0, off, 0.0, 0.0, 1.0, -off, off, 0.0, 1.0});
        EXPECT_EQ(off < 1e-08, rows.isIdentity());
        EXPECT_EQ(off, rows[1]);
    }
}

/// A transform of exactly these fields.
Xform raw(mgMatrix_c const &rotation, V const &translation, double scale, int reflection = 0) {
    return vexmath::detail::makeXform(rotation, translation, scale, reflection);
}

std::string const no(1, '\0'), yes(1, '\1');
std::string const rest = doubles({10.0, 20.0, -30.0, 2.0}) + no; // translation, scale, reserved

TEST(Persistence, TransformsAreStoredWithTheRotationTheyHave) {
    V const t(10.0, 20.0, -30.0);
    Xform const turned = raw(mgMatrix_c(rotated, 0), t, 2.0), moved = raw(mgMatrix_c(), t, 2.0);
    Xform const odd = raw(mgMatrix_c(skewed, 0), V(1.0, 2.0, 3.0), 0.5, 1);
    named<Xform>.check(yes + turn + rest, turned, odd);
    named<Xform, CArchive>.check(yes + turn + rest, turned, odd);
    asIs<Xform>.check(yes + skew + rest, raw(mgMatrix_c(skewed, 0), t, 2.0), turned);
    asIs<Xform, CArchive>.check(yes + skew + rest, raw(mgMatrix_c(skewed, 0), t, 2.0), moved);
    named<Xform>.check(no + rest, moved, mgXform_c());
    asIs<Xform>.check(no + rest, moved, mgXform_c());
}

TEST(Persistence, SavingATransformRepairsItFirst) {
    auto const check = [](V const &t, double scale, V const &keptT, double keptScale) {
        Xform x = raw(mgMatrix_c(), t, scale);
        EXPECT_EQ(no + doubles({keptT.x(), keptT.y(), keptT.z(), keptScale}) + no,
                  named<Xform>.stored(x));
        EXPECT_BITS_EQ(raw(mgMatrix_c(), keptT, keptScale), x);
    };
    check(V(2e8, -2e8, 5e8), 1.0, V(0.0, 0.0, 5e8), 1.0);
    check(V(1e8, -1e8, 5e-09), 6e12, V(1e8, -1e8, 5e-09), 6e12);
    check(V(), support::above(6e12), V(), 1.0);
}

TEST(Persistence, RestoringATransformKeepsWhatTheRecordDoesNotHold) {
    mgMatrix_c const quarter(rotated, 0);
    for (auto const &record : {named<Xform>, asIs<Xform>}) {
        Xform x = raw(quarter, V(1.0, 2.0, 3.0), 0.5, 1);
        x.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 4.0));
        EXPECT_THROW(record.restore(x, yes + skew + rest.substr(1)), su_CArchiveError);
        EXPECT_BITS_EQ(raw(quarter, V(1.0, 2.0, 3.0), 0.5, 1), x);
        // No rotation: the old one stays. Numbers are not checked, the reserved byte not looked at.
        record.restore(x, no + doubles({5e-09, 2e8, 0.0, -7e12}) + "\xFF");
        EXPECT_BITS_EQ(raw(quarter, V(5e-09, 2e8, 0.0), -7e12, 1), x);
        EXPECT_EQ(1, x.hasPerspective());
        Xform y;
        record.restore(y, "\xFE" + turn + rest); // any byte but 0 announces a rotation
        EXPECT_BITS_EQ(raw(quarter, V(10.0, 20.0, -30.0), 2.0), y);
    }
}

TEST(Persistence, TheRawFormDropsThePerspective) {
    mgMatrix_c stale = mgMatrix_c(skewed, 0).transpose().transpose(); // under the identity's flag
    Xform object = raw(stale, V(10.0, -0.0, 5e-09), 7e12, -1);
    std::string const bytes = skew + littleEndian(1, 8) + doubles({10.0, -0.0, 5e-09, 7e12})
                              + littleEndian(0xFFFFFFFF, 4) + littleEndian(0, 4);
    ASSERT_EQ(120u, bytes.size());
    EXPECT_EQ(bytes, streamed<Xform>.stored(object));
    streamed<Xform>.check(turn + littleEndian(0, 8) + rest.substr(0, 32) + littleEndian(2, 8),
                          raw(mgMatrix_c(rotated, 0), V(10.0, 20.0, -30.0), 2.0, 2), Xform());

    object.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 4.0));
    EXPECT_EQ(bytes, streamed<Xform>.stored(object));
    EXPECT_EQ(0, object.hasPerspective());

    // Read: any flag but 0 is set, padding and the perspective's word carry no meaning.
    Xform target;
    target.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 4.0));
    EXPECT_THROW(streamed<Xform>.restore(target, bytes.substr(1)), su_CArchiveError);
    EXPECT_EQ(1, target.hasPerspective());
    streamed<Xform>.restore(target, skew + littleEndian(0xDEADBEEF00000040, 8)
                                        + bytes.substr(80, 36) + littleEndian(0xDEADBEEF, 4));
    EXPECT_BITS_EQ(object, target);
    EXPECT_EQ(0, target.hasPerspective());
}

TEST(Persistence, OtherRecordsAreTheirMembersAsTheyAre) {
    mgBBox_c box; // unset and inverted
    box.setSphereOnly(P(1.0, 2.0, 3.0), support::kNaN);
    box.setCornersOnly(P(7.0, 8.0, 9.0), P(4.0, 5.0, 6.0));
    std::string const ten = doubles({1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, support::kNaN});
    named<mgBBox_c>.check(ten, box, mgBBox_c(P(1.0, 1.0, 1.0), 1.0));

    mgPerspInfo_c info(1.0, 2.0, 3.0, 4.0);
    info.setMinFarClipPlaneDistance(5.0);
    info.setCameraFOVPlaneDistance(6.0);
    named<mgPerspInfo_c>.check(ten.substr(0, 48), info, mgPerspInfo_c());

    mgUnitVector_c longer; // not normalised either way
    longer.set(7.0, 8.0, 9.0);
    mgModelPerspInfo_c model(1.0, 2.0, 3.0, 4.0);
    model.setMinFarClipPlaneDistance(5.0);
    model.setCameraFOVPlaneDistance(6.0);
    model.setModelViewDir(longer);
    named<mgModelPerspInfo_c>.check(ten.substr(0, 72), model, mgModelPerspInfo_c());
    named<mgLine_c>.check(ten.substr(24, 48), mgLine_c(P(4.0, 5.0, 6.0), longer),
                          mgLine_c(P(), mgUnitVector_c::xAxis()));
    named<mgCone_c>.check(ten.substr(24, 48) + doubles({-0.0, 0.25}),
                          mgCone_c(P(4.0, 5.0, 6.0), longer, -0.0, 0.25), mgCone_c());

    mgPrimitiveBodyData_c const body(0x01020304, P(1.0, 2.0, 3.0), 4.0, 5.0, 6.0, -2);
    std::string const bytes = "\x04\x03\x02\x01" + ten.substr(0, 48) + "\xFE\xFF\xFF\xFF";
    named<mgPrimitiveBodyData_c>.check(bytes, body, mgPrimitiveBodyData_c());
    named<mgPrimitiveBodyData_c, CArchive>.check(bytes, body, mgPrimitiveBodyData_c());
}

} // namespace
