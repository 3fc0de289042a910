#pragma once

#include <benchmark/benchmark.h>

#include <chrono>

namespace bench {

/// Runs both sides of each iteration and reports ours as the time, with the ratio beside it.
template <typename Bare, typename Ours>
void sideBySide(benchmark::State& state, Bare bare, Ours ours) {
    using Clock = std::chrono::steady_clock;
    std::chrono::duration<double> bareTime{}, ourTime{};
    for (auto _ : state) {
        const auto start = Clock::now();
        bare();
        const auto middle = Clock::now();
        ours();
        const std::chrono::duration<double> mine = Clock::now() - middle;
        bareTime += middle - start;
        ourTime += mine;
        state.SetIterationTime(mine.count());
    }
    state.counters["ratio"] = ourTime / bareTime;
}

}  // namespace bench
