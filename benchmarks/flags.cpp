// SPDX-License-Identifier: MIT
#include "foundation/UTL_Flags.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace
{

using UTL::CFlags;

constexpr int Count = 1'000'000;

using Words = std::vector<std::uint64_t>;

Words SomeWords()
{
    return Words((Count + 63) / 64, 0x5555'5555'5555'5555);
}

CFlags SomeFlags()
{
    CFlags flags(Count);
    for (int i = 0; i < Count; i += 2) {
        flags.setItem(i, true);
    }
    return flags;
}

void AndOurs(benchmark::State& state)
{
    CFlags a = SomeFlags();
    const CFlags b(Count, true);
    for (auto _ : state) {
        a &= b;
        benchmark::ClobberMemory();
    }
}

void AndWords(benchmark::State& state)
{
    Words a = SomeWords();
    const Words b(a.size(), ~std::uint64_t(0));
    for (auto _ : state) {
        for (std::size_t i = 0; i < a.size(); ++i) {
            a[i] &= b[i];
        }
        benchmark::DoNotOptimize(a.data());
        benchmark::ClobberMemory();
    }
}

void AndVectorOfBool(benchmark::State& state)
{
    std::vector<bool> a(Count);
    const std::vector<bool> b(Count, true);
    for (auto _ : state) {
        std::transform(a.begin(), a.end(), b.begin(), a.begin(), std::logical_and<>());
        benchmark::ClobberMemory();
    }
}

void FlipOurs(benchmark::State& state)
{
    CFlags a = SomeFlags();
    for (auto _ : state) {
        ~a;
        benchmark::ClobberMemory();
    }
}

void FlipVectorOfBool(benchmark::State& state)
{
    std::vector<bool> a(Count);
    for (auto _ : state) {
        a.flip();
        benchmark::ClobberMemory();
    }
}

void AllFalseOurs(benchmark::State& state)
{
    const CFlags a(Count);
    for (auto _ : state) {
        benchmark::DoNotOptimize(a.AreAllFlagsFalse());
    }
}

void AllFalseWords(benchmark::State& state)
{
    const Words a((Count + 63) / 64);
    for (auto _ : state) {
        benchmark::DoNotOptimize(a.data());
        benchmark::DoNotOptimize(
            std::all_of(a.begin(), a.end(), [](std::uint64_t word) { return word == 0; }));
    }
}

void AllFalseVectorOfBool(benchmark::State& state)
{
    const std::vector<bool> a(Count);
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::find(a.begin(), a.end(), true) == a.end());
    }
}

void SetEachOurs(benchmark::State& state)
{
    CFlags a(Count);
    for (auto _ : state) {
        for (int i = 0; i < Count; ++i) {
            a.setItem(i, (i & 4) != 0);
        }
        benchmark::ClobberMemory();
    }
}

void SetEachVectorOfBool(benchmark::State& state)
{
    std::vector<bool> a(Count);
    for (auto _ : state) {
        for (std::size_t i = 0; i < a.size(); ++i) {
            a[i] = (i & 4) != 0;
        }
        benchmark::ClobberMemory();
    }
}

void GetEachOurs(benchmark::State& state)
{
    const CFlags a = SomeFlags();
    for (auto _ : state) {
        int count = 0;
        for (int i = 0; i < Count; ++i) {
            count += a.getItem(i) ? 1 : 0;
        }
        benchmark::DoNotOptimize(count);
    }
}

void GetEachVectorOfBool(benchmark::State& state)
{
    const std::vector<bool> a(Count, true);
    for (auto _ : state) {
        int count = 0;
        for (const bool flag : a) {
            count += flag ? 1 : 0;
        }
        benchmark::DoNotOptimize(count);
    }
}

BENCHMARK(AndOurs)->Name("and/ours");
BENCHMARK(AndWords)->Name("and/words");
BENCHMARK(AndVectorOfBool)->Name("and/vector_bool");
BENCHMARK(FlipOurs)->Name("flip/ours");
BENCHMARK(FlipVectorOfBool)->Name("flip/vector_bool");
BENCHMARK(AllFalseOurs)->Name("all_false/ours");
BENCHMARK(AllFalseWords)->Name("all_false/words");
BENCHMARK(AllFalseVectorOfBool)->Name("all_false/vector_bool");
BENCHMARK(SetEachOurs)->Name("set_each/ours");
BENCHMARK(SetEachVectorOfBool)->Name("set_each/vector_bool");
BENCHMARK(GetEachOurs)->Name("get_each/ours");
BENCHMARK(GetEachVectorOfBool)->Name("get_each/vector_bool");

} // namespace
