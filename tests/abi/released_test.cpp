// SPDX-License-Identifier: MIT
// What callers keep: archive records and arrays. The files of each released version are read. A
// stream that fails at any byte changes no object.

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <streambuf>

#include "common/geometry.h"
#include "common/records.h"

namespace {

using namespace common;
namespace fs = std::filesystem;

fs::path const released = VEXMATH_TEST_RELEASED;
fs::path const ownFiles = released / VEXMATH_TEST_VERSION;

/// How an object is written and read.
struct Record {
    std::function<void(su_CArchive &)> write, read;
};

/// Some classes have virtual functions and no virtual destructor: destroy them as members.
template <class T>
struct Held {
    T object;
};

template <class Archive = su_CArchive, class T, class Read = decltype(restore),
          class Write = decltype(save)>
Record record(T const &object, Read read = restore, Write write = save) {
    auto const held = std::make_shared<Held<T>>(Held<T>{object});
    return {[=](Archive &ar) { write(ar, held->object); },
            [=](Archive &ar) { read(ar, held->object); }};
}

/// Every kind of record, of objects made from this number. A later version appends its kinds.
std::vector<Record> records(double n) {
    double const sign = n < 2.0 ? 1.0 : -1.0;
    P const p(n, -0.0, 3e-320 * n);
    U const u(0.6, 0.0, sign * 0.8);
    mgMatrix_c const m({0, sign, 0, -sign, 0, 0, 0, 0, 1}, 0);
    mgXform_c const x = raw(m, {n, 20.0, -30.0}, 2.0);
    mgModelPerspInfo_c model(n, 2.0, 3.0, 4.0);
    model.setModelViewDir(u);
    mgPrimitiveBodyData_c const body(7, p, n, 5.0, 6.0, -2);
    return {record(p, get, put),
            record<CArchive>(p),
            record<CArchive>(P(n, 3.0, 0.0), restore2D, save2D),
            record<CArchive>(V(p), restore, writeXyz),
            record<CArchive>(mg2DPoint_c(n, 3.0), restore, writeUv),
            record(m),
            record<CArchive>(m),
            record(m, restoreAsIs),
            record<CArchive>(m, restoreAsIs),
            record(x),
            record<CArchive>(x),
            record(x, restoreAsIs),
            record<CArchive>(x, restoreAsIs),
            record(x, get, put),
            record(mgBBox_c(p, P(4.0, 5.0, 6.0))),
            record(mgLine_c(p, u)),
            record(mgPlane_c(p, u)),
            record(mgCone_c(p, u, n, 0.5)),
            record(mgPerspInfo_c(model)),
            record(model),
            record(body),
            record<CArchive>(body)};
}

std::string stored(Record const &one) {
    std::stringstream stream;
    su_CArchive archive(stream);
    one.write(archive);
    return stream.str();
}

std::string contents(fs::path const &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Compares with the file of this version if that is released; writes it for ./dev abi --release.
void CheckFile(char const *name, std::string const &bytes) {
    if (std::getenv("VEXMATH_TEST_STORE") != nullptr) {
        fs::create_directories(ownFiles);
        std::ofstream(ownFiles / name, std::ios::binary) << bytes;
    }
    if (!fs::exists(ownFiles)) return;
    EXPECT_TRUE(contents(ownFiles / name) == bytes) << ownFiles / name;
}

TEST(Released, RecordsOfAllVersionsAreRead) {
    std::string all;
    for (Record const &one : records(1.0)) all += stored(one);
    CheckFile("records.bin", all);
    for (fs::path const &version : fs::directory_iterator(released)) {
        std::stringstream stream(contents(version / "records.bin"));
        su_CArchive archive(stream);
        auto const expected = records(1.0), actual = records(2.0);
        std::size_t k = 0;
        for (; k < actual.size() && stream.peek() != EOF; ++k) {
            actual[k].read(archive);
            EXPECT_EQ(stored(expected[k]), stored(actual[k])) << version << ", record " << k;
        }
        EXPECT_LE(std::size_t{22}, k) << version;
    }
}

/// Arrays lie in callers' memory in the byte order of the machine; the files are little-endian.
TEST(Released, ArraysOfAllVersionsAreRead) {
    int const one = 1;
    char first;
    std::memcpy(&first, &one, 1);
    if (first == 0) GTEST_SKIP() << "a big-endian machine has other headers";
    constexpr int kCount = 5, kCapacity = 7, kHeader = sizeof(amDynamicArrayHeader);
    auto const bytesOf = [](void const *array) {
        return std::string(static_cast<char const *>(array) - kHeader,
                           kHeader + kCount * sizeof(P));
    };
    suDynamicArray<P> made;
    made.Adopt(static_cast<P *>(suDynArrayAlloc(kCapacity, 3, 2, sizeof(P))));
    for (int k = 0; k < kCount; ++k) made.Add(P(k, 2.0, -0.0));
    CheckFile("array.bin", bytesOf(made.Data()));
    for (fs::path const &version : fs::directory_iterator(released)) {
        std::string const bytes = contents(version / "array.bin");
        char *const block = static_cast<char *>(std::malloc(kHeader + kCapacity * sizeof(P)));
        ASSERT_EQ(kHeader + kCount * sizeof(P), bytes.size()) << version;
        std::memcpy(block, bytes.data(), bytes.size());
        suDynamicArray<P> list;
        list.Adopt(reinterpret_cast<P *>(block + kHeader));
        EXPECT_EQ(bytesOf(made.Data()), bytesOf(list.Data())) << version;
        for (int k = kCount; k < 20; ++k) EXPECT_EQ(k, list.Add(P(k, 0.0, 0.0)));
        EXPECT_BITS_EQ(P(4.0, 2.0, -0.0), list[4]);
    }
}

/// Has room for `limit` bytes; then the stream ends or throws.
class Limited : public std::streambuf {
public:
    Limited(std::string &bytes, std::size_t limit, bool throwing) : throwing_(throwing) {
        setp(&bytes[0], &bytes[0] + limit);
        setg(&bytes[0], &bytes[0], &bytes[0] + limit);
    }

protected:
    int_type overflow(int_type) override { return underflow(); }
    int_type underflow() override {
        if (throwing_) throw std::runtime_error("no more");
        return traits_type::eof();
    }

private:
    bool throwing_;
};

TEST(Released, AStreamThatFailsAtAnyByteChangesNoObject) {
    auto const first = records(1.0), second = records(2.0);
    for (std::size_t k = 0; k < first.size(); ++k) {
        std::string const whole = stored(first[k]), other = stored(second[k]);
        for (std::size_t limit = 0; limit < 2 * whole.size(); ++limit) {
            std::string bytes = whole;
            Limited buffer(bytes, limit / 2, limit % 2 != 0);
            std::iostream stream(&buffer);
            su_CArchive archive(stream);
            EXPECT_THROW(second[k].read(archive), su_CArchiveError) << k << ", " << limit;
            stream.clear();
            EXPECT_THROW(second[k].write(archive), su_CArchiveError) << k << ", " << limit;
            EXPECT_EQ(other, stored(second[k])) << k << ", " << limit;
            EXPECT_EQ(other.substr(0, limit / 2) + whole.substr(limit / 2), bytes);
        }
    }
}

} // namespace
