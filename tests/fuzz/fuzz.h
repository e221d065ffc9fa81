// SPDX-License-Identifier: MIT
// Shared by the fuzzers: bytes as hostile numbers and objects, requirements, and a limit of time.

#ifndef VEXMATH_TESTS_FUZZ_FUZZ_H
#define VEXMATH_TESTS_FUZZ_FUZZ_H

#include <vexmath/vexmath.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <ctime>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#ifdef VEXMATH_FUZZ_TEST
#include "common/numbers.h"
#ifdef __GLIBC__
#include <malloc.h>
#endif
#endif

/// Throws when the condition is false, which ends a fuzzer.
#define CHECK(condition) ((condition) ? void() : fail(__FILE__, __LINE__, #condition))

[[noreturn]] inline void fail(std::string const &file, int line, char const *condition) {
    throw std::logic_error(file + ":" + std::to_string(line) + ": false: " + condition);
}

using P = mgPoint_c;
using V = mgVector_c;
using U = mgUnitVector_c;
using Points = std::vector<P>;
using Limits = std::numeric_limits<double>;

inline constexpr double kInfinity = Limits::infinity(), kPi = 3.141592653589793;
inline P const unwritten(1.3e9 / 7, -1.7e8 / 3, 1.9e7 / 11); // which no input hits

/// The bytes of one input. After the last byte they begin again, all changed by the same step, so
/// that few bytes make many objects. A tame input, by its first byte, has finite numbers of
/// everyday sizes only.
class Input {
public:
    Input(std::uint8_t const *data, std::size_t size) : data_(data), size_(size), isTame_(flip()) {}

    bool isTame() const { return isTame_; }
    /// True for one input in 256, also among those that the fuzzer derives from one.
    bool isRare() const {
        unsigned hash = 0;
        for (std::size_t i = 0; i < size_; ++i) hash = 31 * hash + data_[i];
        return hash / 256 % 256 == 1;
    }
    bool isUsedUp() const { return used_ >= size_; }
    std::string rest() const { return {data_ + std::min(used_, size_), data_ + size_}; }
    int byte() {
        std::size_t const i = used_++, length = size_ == 0 ? 1 : size_;
        return static_cast<int>(((size_ == 0 ? 0 : data_[i % length]) + 101 * (i / length)) % 256);
    }
    /// Two bytes, the lower one first.
    int word() {
        int const low = byte();
        return low + 256 * byte();
    }
    int below(int count) { return byte() % count; } ///< REQUIRES a count of at most 256
    bool flip() { return below(2) == 0; }
    /// The length of a list: small, or 1000.
    int count() {
        int const size = byte();
        return size < 250 ? size / 8 : 1000;
    }

    /// On a lattice, on or near a tolerance, anywhere or, when the input is not tame, hostile.
    double number() {
        int const kind = byte();
        if (kind < 160) return plain(kind);
        if (kind < 192 || (isTame_ && kind >= 216)) {
            int const high = byte();
            return (256 * high + byte() - 32768) / 977.0;
        }
        if (kind < 216) {
            double const x = plain(below(160)), off[] = {1e-8, -1e-8, 5e-9, -5e-9};
            return kind % 6 < 4 ? x + off[kind % 6]
                                : std::nextafter(x, kind % 6 == 4 ? kInfinity : -kInfinity);
        }
        if (kind < 248) return kind % 2 == 0 ? hostile[kind / 2 - 108] : -hostile[kind / 2 - 108];
        char any[sizeof(double)];
        for (char &c : any) c = static_cast<char>(byte());
        double value = 0.0;
        std::memcpy(&value, any, sizeof value);
        return value;
    }
    template <class T>
    T triple() {
        return T{number(), number(), number()}; // braces keep the order
    }
    Points points(int n) {
        Points list(static_cast<std::size_t>(n));
        for (P &p : list) p = triple<P>();
        return list;
    }
    /// Small whole coordinates, with which most formulas round nothing.
    P whole(int size) { return P{double(below(size)), double(below(size)), 0.0}; }

    /// Along an axis or anywhere; when the input is not tame, at times without unit length.
    U direction() {
        int const kind = byte(), axis = kind % 8;
        U const along(axis == 0, axis == 1, axis == 2);
        if (axis < 3) return kind < 128 ? along : -along;
        V const v = triple<V>();
        U u = mg_Normalise(v);
        if (!isTame_ && axis == 3) u.set(v.x(), v.y(), v.z());
        return u;
    }
    mgMatrix_c rotation() {
        double const angle = number();
        mgMatrix_c m = mg_RotationMatrix(angle, direction(), flip() ? 1e-6 : 0.0);
        if (!isTame_ && byte() < 16) m[below(9)] = number();
        return m;
    }
    /// A transform of exactly these fields; when the input is not tame, at times with perspective.
    mgXform_c placement() {
        int const kind = byte();
        V const shift = triple<V>();
        double const scale = kind % 2 == 0 ? 1.0 : number();
        mgXform_c x;
        x.SetHelper(
            {kind % 8 < 2 ? mgMatrix_c() : rotation(), shift, scale, kind / 8 % 2, nullptr});
        if (isTame_ || kind < 240) return x;
        mgPerspInfo_c info(shift.y(), shift.z(), shift.x(), number());
        info.setCameraFOVPlaneDistance(number());
        x.addPerspectiveInfo(info);
        return x;
    }
    /// The box of two points, at times with another sphere or with corners not in order.
    mgBBox_c box() {
        P const a = triple<P>(), b = triple<P>();
        int const kind = byte();
        mgBBox_c box(a, b);
        if (kind % 4 == 0) box.setSphereOnly(kind % 8 == 0 ? a : box.center(), number());
        if (kind % 16 == 1) box.setCornersOnly(a, b);
        return box;
    }

private:
    static constexpr double everyday[] = {
        1.0 / 3.0, 1.0,   7.0,   1e3,   kPi / 2, vexmath::kHalfPi, kPi, 0.1, 2 * kPi, 1e-4, 2e-8,
        1e-08,     5e-09, 1e-11, 1e-12, 1e-13};
    /// Numbers for which a careless formula overflows, loops for ever or is wrong.
    static constexpr double hostile[] = {
        kInfinity, 1e18,  1e155, 1.3e154, 1e100,  1e70,   1e308,  Limits::quiet_NaN(),
        3e9,       1e-17, 1e-70, 1e-145,  1e-162, 1e-300, 1e-308, Limits::max()};

    static double plain(int kind) {
        if (kind < 128) return 0.25 * (kind % 32 - 16);
        return kind % 2 == 0 ? everyday[kind / 2 - 64] : -everyday[kind / 2 - 64];
    }

    std::uint8_t const *data_;
    std::size_t size_, used_ = 0;
    bool isTame_;
};

/// The same bits of all doubles that an object is made of; any NaN equals any NaN.
template <class T>
bool same(T const &a, T const &b) {
    static_assert(sizeof(T) % sizeof(double) == 0 && std::is_trivially_copyable_v<T>);
    double x[sizeof(T) / sizeof(double)], y[sizeof(T) / sizeof(double)];
    std::memcpy(x, &a, sizeof x), std::memcpy(y, &b, sizeof y);
    return std::equal(x, std::end(x), y, [](double u, double v) {
        return std::memcmp(&u, &v, sizeof u) == 0 || (std::isnan(u) && std::isnan(v));
    });
}
inline bool same(mgXform_c const &a, mgXform_c const &b) {
    std::array<double, 16> x, y;
    a.getGLData(x.data()), b.getGLData(y.data());
    return same(x, y) && same(a.scaling(), b.scaling()) && a.isReflection() == b.isReflection()
           && a.rotate() == b.rotate() && a.hasPerspective() == b.hasPerspective();
}
inline bool hasNaN(P const &p) {
    return std::isnan(p.x()) || std::isnan(p.y()) || std::isnan(p.z());
}
inline bool isUnit(V const &u) { return std::fabs(u.len() - 1.0) < 1e-12; }

/// Calls `work`, which returns the size of its result, and ends the program when it takes more CPU
/// time than 1000 elements may take: 100 ms, and 1 microsecond for each element of the result. Both
/// are multiplied by VEXMATH_FUZZ_SLOWDOWN, as the sanitizers make the library slower.
template <class Work>
int timed(Work const &work) {
    std::clock_t const start = std::clock();
    int const size = work();
    double const seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    CHECK(seconds <= (0.1 + 1e-6 * size) * VEXMATH_FUZZ_SLOWDOWN);
    return size;
}

/// What a fuzzer does with one input.
static void fuzz(Input &in);

#ifdef VEXMATH_FUZZ_TEST // among the tests: random inputs, for half a second at most
TEST(Fuzz, VEXMATH_FUZZ_TEST) {
#ifdef __GLIBC__
    mallopt(M_PERTURB, 0x5A); // fills new and released blocks
#endif
    common::Random random;
    std::clock_t const start = std::clock();
    for (int i = 0; i < 4000 && std::clock() - start < CLOCKS_PER_SEC / 2; ++i) {
        std::vector<std::uint8_t> bytes(static_cast<std::size_t>(1 + random.below(300)));
        for (std::uint8_t &byte : bytes) byte = static_cast<std::uint8_t>(random.below(256));
        Input in(bytes.data(), bytes.size());
        fuzz(in);
    }
}
#else
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size) {
    Input in(data, size);
    fuzz(in);
    return 0;
}
#endif

#endif
