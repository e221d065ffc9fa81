// SPDX-License-Identifier: MIT
// Archive records: what a reader repairs and keeps. The members of each record, shorter streams:
// abi/released_test.cpp; any bytes: fuzz/fuzz_archive.cpp.

#include "common/geometry.h"
#include "common/records.h"

namespace {

using Xform = mgXform_c;

/// An archive in memory.
struct Memory {
    explicit Memory(std::string const &text = {}) : stream(text) {}
    std::stringstream stream;
    su_CArchive ar{stream};
};

/// The items one after the other, each as the archive writes it.
template <class... Items>
std::string bytes(Items... items) {
    Memory memory;
    (memory.ar << ... << items);
    return memory.stream.str();
}

template <class Archive = su_CArchive, class T, class Write>
std::string stored(T &object, Write write) {
    Memory memory;
    write(static_cast<Archive &>(memory.ar), object);
    return memory.stream.str();
}

template <class Archive = su_CArchive, class T, class Read>
void load(T &object, std::string const &record, Read read) {
    Memory memory(record);
    read(static_cast<Archive &>(memory.ar), object);
    EXPECT_EQ(record.size(), static_cast<std::size_t>(memory.stream.tellg()));
}

/// The object is stored as this record and read from it.
template <class Archive = su_CArchive, class T, class Read = decltype(restore),
          class Write = decltype(save)>
void CheckRecord(std::string const &record, T object, T target, Read read = restore,
                 Write write = save, Caller = {}) {
    load<Archive>(target, record, read);
    EXPECT_EQ(record, stored<Archive>(object, write));
    EXPECT_EQ(record, stored<Archive>(target, write));
}

TEST(Persistence, APointOfThePlaneHasZeroZ) {
    P flat(7.0, 8.0, 9.0);
    load(flat, bytes(1.5, -0.0), restore2D);
    EXPECT_BITS_EQ(P(1.5, -0.0, 0.0), flat);
}

mgMatrix_c const quarter({0, 1, 0, -1, 0, 0, 0, 0, 1}, 0), odd({1, 2, 3, 4, 5, 6, 7, 8, 9}, 0);
std::string const turn = bytes(0.0, 1.0, 0.0, -1.0, 0.0, 0.0, 0.0, 0.0, 1.0);
std::string const skew = bytes(1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0);

TEST(Persistence, MatricesAreRepairedOrTakenAsTheyAre) {
    CheckRecord(turn, quarter, odd);
    CheckRecord<CArchive>(turn, quarter.transpose().transpose(), odd); // the flag is not stored
    CheckRecord(skew, odd, quarter, restoreAsIs);
    CheckRecord<CArchive>(skew, odd, quarter, restoreAsIs);
    auto const check = [](auto read, mgMatrix_c const &expected, auto... elements) {
        mgMatrix_c target = odd;
        load(target, bytes(static_cast<double>(elements)...), read);
        EXPECT_BITS_EQ(expected, target);
        EXPECT_EQ(expected.isIdentity(), target.isIdentity());
    };
    double const s = below(1e-08), off = 1e-08;
    mgMatrix_c nearly; // flagged within 1e-08 of the axes
    nearly[1] = s;
    check(restore, {}, s, -s, s, 0, 0, 0, s, s, -s); // null rows
    check(restore, mgMatrix_c({1.1, 0, 0, 0, 1, 0, 0, 0, off}, 1), 1.1, 0, 0, 0, 1, 0, 0, 0, off);
    for (double const y : {0, 1}) // fewer null rows
        check(restore, mgMatrix_c({0, 0, 0, 0, y, 0, 0, 0, 1}, 1), 0, 0, 0, 0, y, 0, 0, 0, 1);
    check(restoreAsIs, nearly, 1, s, 0, 0, 1, 0, 0, 0, 1);
    check(restoreAsIs, mgMatrix_c({1, 0, 0, 0, 1, 0, off, 0, 1}, 0), 1, 0, 0, 0, 1, 0, off, 0, 1);
}

unsigned char const no = 0, yes = 1;
std::string const rest = bytes(10.0, 20.0, -30.0, 2.0, no); // translation, scale, reserved
V const t(10.0, 20.0, -30.0);
Xform const turned = raw(quarter, t, 2.0);
mgPerspInfo_c const perspective(1.0, 2.0, 3.0, 4.0);

TEST(Persistence, TransformsAreRepairedAndStoredWithTheRotationTheyHave) {
    Xform const other = raw(odd, {1.0, 2.0, 3.0}, 0.5, 1);
    CheckRecord(bytes(yes) + turn + rest, turned, other);
    CheckRecord<CArchive>(bytes(yes) + turn + rest, turned, other);
    CheckRecord(bytes(yes) + skew + rest, raw(odd, t, 2.0), turned, restoreAsIs);
    CheckRecord<CArchive>(bytes(no) + rest, raw({}, t, 2.0), Xform(), restoreAsIs);
    Xform beyond = raw({}, {2e8, -2e8, 5e8}, 7e12);
    EXPECT_EQ(bytes(no, 0.0, 0.0, 5e8, 1.0, no), stored(beyond, save));
    EXPECT_BITS_EQ(raw({}, {0.0, 0.0, 5e8}), beyond);
}

TEST(Persistence, RestoringATransformKeepsWhatTheRecordDoesNotHold) {
    Xform x = raw(quarter, {1.0, 2.0, 3.0}, 0.5, 1), y;
    x.addPerspectiveInfo(perspective);
    // No rotation: the old one stays. Numbers are not checked, and the reserved byte is ignored.
    load(x, bytes(no, 5e-09, 2e8, 0.0, -7e12, yes), restore);
    EXPECT_BITS_EQ(raw(quarter, {5e-09, 2e8, 0.0}, -7e12, 1), x);
    EXPECT_EQ(1, x.hasPerspective());
    load(y, "\xFE" + turn + rest, restoreAsIs); // any byte but 0 announces a rotation
    EXPECT_BITS_EQ(turned, y);
}

TEST(Persistence, TheRawFormDropsThePerspective) {
    Xform object = raw(odd.transpose().transpose(), {10.0, -0.0, 5e-09}, 7e12, -1), target;
    std::string const fields = bytes(10.0, -0.0, 5e-09, 7e12, 0xFFFFFFFFul);
    CheckRecord(turn + bytes(0ul, 0ul, 10.0, 20.0, -30.0, 2.0, 2ul, 0ul), raw(quarter, t, 2.0, 2),
                Xform(), get, put);
    object.addPerspectiveInfo(perspective);
    EXPECT_EQ(skew + bytes(1ul, 0ul) + fields + bytes(0ul), stored(object, put));
    EXPECT_EQ(0, object.hasPerspective());

    // Read: any flag but 0 is set; the padding and the word of the perspective are ignored.
    target.addPerspectiveInfo(perspective);
    load(target, skew + bytes(64ul, 0xDEADul) + fields + bytes(0xDEADul), get);
    EXPECT_BITS_EQ(object, target);
    EXPECT_EQ(0, target.hasPerspective());
}

TEST(Persistence, DefaultObjectsAreStoredAsTheyAre) {
    auto const check = [](auto object, auto... items) {
        EXPECT_EQ(bytes(static_cast<double>(items)...), stored(object, save));
    };
    check(mgBBox_c(), 0, 0, 0, -1, -1, -1, 1, 1, 1, -2), check(mgPerspInfo_c(), 0, 0, 0, 0, 0, -1);
    check(mgModelPerspInfo_c(), 0, 0, 0, 0, 0, -1, 0, 0, 1), check(mgLine_c(), 0, 0, 0, 0, 0, 0);
    check(mgCone_c(), 0, 0, 0, 0, 0, 1, -2, -2);
    check(mgPrimitiveBodyData_c(), 0, 0, 0, 0, 0, 0, 0); // the first and last half are integers
}

} // namespace
