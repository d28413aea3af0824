// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>

/// Does the work on each of the inputs, and counts them.
template <class Inputs, class Work>
void Each(benchmark::State& state, const Inputs& inputs, Work work)
{
    for (auto _ : state) {
        for (const auto& input : inputs) {
            benchmark::DoNotOptimize(work(input));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(inputs.size()));
}
