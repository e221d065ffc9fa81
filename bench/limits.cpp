// SPDX-License-Identifier: MIT
// What the machine allows. Some loops read and write as many bytes as a work does and compute
// nothing: no program is faster on the same data. Others only compute; they are the ceilings of the
// roofline plot.

#include <algorithm>

#include "works.h"

#if defined(__GNUC__) && defined(__x86_64__)
#define AS_WIDE_AS_THE_MACHINE __attribute__((target_clones("avx2", "default")))
#else
#define AS_WIDE_AS_THE_MACHINE
#endif

namespace {

/// The bytes of one item; of a work in place, the bytes read are written again.
struct Traffic {
    char const *work;
    std::size_t items, read, written;
    bool inPlace;
};

constexpr Traffic works_[] = {
    {"transform points", 1000000, 24, 24, true},
    {"transform points in cache", 10000, 24, 24, true},
    {"transform array", 1000000, 24, 24, true},
    {"transform array in cache", 10000, 24, 24, true},
    {"bounds", 1000000, 24, 0, false},
    {"bounds in cache", 10000, 24, 0, false},
    {"bounds of array", 1000000, 24, 0, false},
    {"bounds of array in cache", 10000, 24, 0, false},
    {"compose", 1000, 128, 128, false},
    {"inverse", 1000, 128, 128, false},
    {"placed clash", 1000, 416, 0, false},
    {"line plane", 256, 96, 24, false},
    {"clip segments", 1000000, 48, 48, false},
    {"least rectangle", 100000, 16, 0, false},
    {"uniform clashes of 1000000", 1000000, 80, 20, false},
    {"assembly clashes of 1000000", 1000000, 80, 16, false},
    {"grid clashes of 1000000", 1000000, 80, 102, false},
    {"sort of 1000000", 1000000, 24, 24, true},
    {"hull of 1000000", 1000000, 16, 0, false},
    {"arc", 241, 0, 24, false},
    {"eigensystem 3x3", works::kInputs, 80, 96, false},
    {"cubic roots", works::kInputs, 32, 24, false},
    {"append points", 1000000, 0, 24, false},
    {"float point by matrix", works::kInputs, 12, 12, false},
    {"float matrix product", works::kInputs, 128, 64, false},
};

using Words = std::vector<std::uint64_t>;

AS_WIDE_AS_THE_MACHINE void change(std::uint64_t *data, std::size_t count, std::uint64_t mask) {
    for (std::size_t i = 0; i < count; ++i) data[i] ^= mask;
}

AS_WIDE_AS_THE_MACHINE std::uint64_t sum(std::uint64_t const *data, std::size_t count) {
    std::uint64_t result = 0;
    for (std::size_t i = 0; i < count; ++i) result += data[i];
    return result;
}

void measure(benchmark::State &state, Traffic const &traffic) {
    Words in(traffic.items * traffic.read / sizeof(std::uint64_t), 1);
    Words out(traffic.items * traffic.written / sizeof(std::uint64_t), 2);
    std::size_t const both = std::min(in.size(), out.size());
    for (auto _ : state) {
        if (traffic.inPlace) {
            change(in.data(), in.size(), 3);
        } else {
            std::copy_n(in.data(), both, out.data());
            std::fill(out.begin() + static_cast<std::ptrdiff_t>(both), out.end(), both);
            benchmark::DoNotOptimize(sum(in.data() + both, in.size() - both));
        }
        benchmark::ClobberMemory();
    }
    works::countItems(state, traffic.items);
}

#if defined(__GNUC__) && defined(__x86_64__)

constexpr int kRounds = 1000;
/// With so many independent numbers no operation waits: while one is computed, the others are too.
constexpr int kEnough = 12;

/// Multiplies numbers and adds to them in turn. A macro: what a function without SIMD does
/// to four at a time is not done in one instruction, even where it is inlined.
#define COMPUTE(Number, count, factor, keep)                                                       \
    for (auto _ : state) {                                                                         \
        Number numbers[count] = {};                                                                \
        benchmark::DoNotOptimize(numbers);                                                         \
        for (int round = 0; round < kRounds; ++round) {                                            \
            for (Number & number : numbers) {                                                      \
                number = number * (factor) + (factor);                                             \
                keep(number);                                                                      \
            }                                                                                      \
        }                                                                                          \
        benchmark::DoNotOptimize(numbers);                                                         \
    }                                                                                              \
    works::countItems(state, 2 * (count)*kRounds * sizeof(Number) / sizeof(double))

/// Keeps the compiler from taking several numbers together.
#define BY_ITSELF(number) asm volatile("" : "+x"(number))
#define AS_IT_IS(number)

void computeInTurn(benchmark::State &state) { COMPUTE(double, 1, 0.5, BY_ITSELF); }
void computeSideBySide(benchmark::State &state) { COMPUTE(double, kEnough, 0.5, BY_ITSELF); }

using Four = double __attribute__((vector_size(32)));

__attribute__((target("avx2"))) void computeFourAtATime(benchmark::State &state) {
    Four const factor = {0.5, 0.5, 0.5, 0.5};
    COMPUTE(Four, kEnough, factor, AS_IT_IS);
}

#endif

[[maybe_unused]] bool const registered = [] {
    for (Traffic const &traffic : works_)
        works::add(traffic.work, "limit", [&traffic](benchmark::State &s) { measure(s, traffic); });
#if defined(__GNUC__) && defined(__x86_64__)
    works::add("operations", "one after another", computeInTurn);
    works::add("operations", "side by side", computeSideBySide);
    if (__builtin_cpu_supports("avx2"))
        works::add("operations", "four at a time", computeFourAtATime);
#endif
    return true;
}();

} // namespace
