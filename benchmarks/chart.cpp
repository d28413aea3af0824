// SPDX-License-Identifier: MIT
#include "charts/BTL_CD_CChartData.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

namespace
{

constexpr int Many = 1'000'000;

void AddOurs(benchmark::State& state)
{
    for (auto _ : state) {
        BTL::CChartSeries series;
        for (int i = 0; i < Many; ++i) {
            series.AddXY(i, i);
        }
        benchmark::DoNotOptimize(series.getXValues().begin());
    }
}
BENCHMARK(AddOurs)->Name("add_xy/ours")->Unit(benchmark::kMillisecond);

void AddVector(benchmark::State& state)
{
    for (auto _ : state) {
        std::vector<double> x;
        std::vector<double> y;
        for (int i = 0; i < Many; ++i) {
            x.push_back(i);
            y.push_back(i);
        }
        benchmark::DoNotOptimize(x.data());
        benchmark::DoNotOptimize(y.data());
    }
}
BENCHMARK(AddVector)->Name("add_xy/std_vector")->Unit(benchmark::kMillisecond);

/// Values of which the extremes are somewhere in the middle.
std::vector<double> SampleValues()
{
    std::vector<double> values(Many);
    std::ranges::generate(values, [i = 0]() mutable { return (i++ * 7919L) % 1'000'003; });
    return values;
}

void ExtremesOurs(benchmark::State& state)
{
    BTL::CChartSeries series;
    for (const double value : SampleValues()) {
        series.AddXY(value, -value);
    }
    for (auto _ : state) {
        // A copy keeps what was seen, so that one has to be asked for its values by another.
        const BTL::CChartSeries other;
        benchmark::DoNotOptimize(other.GetMinValue(0, series.getXValues()));
        benchmark::DoNotOptimize(other.GetMinValue(1, series.getYValues()));
    }
}
BENCHMARK(ExtremesOurs)->Name("extremes/ours")->Unit(benchmark::kMillisecond);

void ExtremesStd(benchmark::State& state)
{
    const std::vector<double> x = SampleValues();
    const std::vector<double> y = SampleValues();
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::minmax_element(x.begin(), x.end()));
        benchmark::DoNotOptimize(std::minmax_element(y.begin(), y.end()));
    }
}
BENCHMARK(ExtremesStd)->Name("extremes/std_minmax")->Unit(benchmark::kMillisecond);

} // namespace
