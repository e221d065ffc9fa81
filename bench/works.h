// SPDX-License-Identifier: MIT
// What the benchmarks share. A name is "<work>/<who>": bench/report.py compares those who do the
// same work. "<work> of <n>" is measured for several n, and its growth is shown.

#ifndef VEXMATH_BENCH_WORKS_H
#define VEXMATH_BENCH_WORKS_H

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "common/generator.h"

namespace works {

/// The same numbers for everybody; each library's own types are made from them before the clock
/// starts.
struct Triple {
    double x, y, z;
};

class Numbers {
public:
    double operator()(double low, double high) { return generator_.uniform(low, high); }
    Triple triple(double reach) {
        double const x = (*this)(-reach, reach), y = (*this)(-reach, reach);
        return {x, y, (*this)(-reach, reach)};
    }

private:
    common::Generator generator_{7};
};

/// Enough different inputs that branch predictors do not learn them all, and little enough to stay
/// in the first cache levels.
constexpr std::size_t kInputs = 2000;

template <class Make>
auto inputs(Make const &make, std::size_t count = kInputs) {
    Numbers random;
    std::vector<decltype(make(random))> all;
    for (std::size_t i = 0; i < count; ++i) all.push_back(make(random));
    return all;
}

inline void countItems(benchmark::State &state, std::size_t perIteration) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(perIteration));
}

/// One result for each input.
template <class Input, class Work>
void measure(benchmark::State &state, std::vector<Input> const &all, Work const &work) {
    for (auto _ : state) {
        for (Input const &input : all) {
            auto result = work(input);
            benchmark::DoNotOptimize(result);
        }
    }
    countItems(state, all.size());
}

template <class Work>
benchmark::internal::Benchmark *add(std::string const &work, char const *who, Work const &run) {
    return benchmark::RegisterBenchmark((work + "/" + who).c_str(), run);
}

/// What this program has used so far, however busy the machine is.
inline double processorSeconds() {
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) * 1e-9;
}

/// Times `run` on what `prepare` makes for each iteration, outside the clock.
template <class Prepare, class Run>
benchmark::internal::Benchmark *addPrepared(std::string const &work, char const *who,
                                            std::size_t items, Prepare const &prepare,
                                            Run const &run) {
    auto const measured = [items, prepare, run](benchmark::State &state) {
        for (auto _ : state) {
            auto input = prepare();
            double const start = processorSeconds();
            run(input);
            state.SetIterationTime(processorSeconds() - start);
        }
        countItems(state, items);
    };
    return add(work, who, measured)->UseManualTime();
}

} // namespace works

#endif
