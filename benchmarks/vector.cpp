// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_DoubleVector.h"
#include "foundation/vectors/UTL_SV_IntVector.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using System::UnicodeString;
using UTL::CDoubleVector;
using UTL::CIntVector;

constexpr int Many = 1'000'000;
constexpr int Sorted = 100'000;

std::vector<int> Shuffled(int count)
{
    std::vector<int> result(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        result[static_cast<std::size_t>(i)] = 7 * i;
    }
    std::shuffle(result.begin(), result.end(), std::mt19937(4711));
    return result;
}

/// Values as an instrument gives them: a few with few digits, most with many.
const std::vector<double>& SampleDoubles()
{
    static const std::vector<double> values = [] {
        std::mt19937 random(4711);
        std::uniform_real_distribution<double> wide(-1000, 1000);
        std::vector<double> result(Many);
        for (std::size_t i = 0; i < result.size(); ++i) {
            result[i] = i % 4 == 0 ? static_cast<double>(i) / 8 : wide(random);
        }
        return result;
    }();
    return values;
}

const std::vector<int>& SampleInts()
{
    static const std::vector<int> values = Shuffled(Many);
    return values;
}

template <class Vector>
void PushBack(benchmark::State& state)
{
    for (auto _ : state) {
        Vector v;
        for (int i = 0; i < Many; ++i) {
            v.push_back(i);
        }
        benchmark::DoNotOptimize(v.begin());
    }
}
BENCHMARK(PushBack<CIntVector>)->Name("push_back/ours");
BENCHMARK(PushBack<std::vector<int>>)->Name("push_back/std_vector");

void AddSortedOurs(benchmark::State& state)
{
    const std::vector<int> values = Shuffled(Sorted);
    for (auto _ : state) {
        CIntVector v;
        for (const int value : values) {
            v.AddSorted(value, false);
        }
        benchmark::DoNotOptimize(v.begin());
    }
}
BENCHMARK(AddSortedOurs)->Name("add_sorted/ours")->Unit(benchmark::kMillisecond);

void AddSortedPlain(benchmark::State& state)
{
    const std::vector<int> values = Shuffled(Sorted);
    for (auto _ : state) {
        std::vector<int> v;
        for (const int value : values) {
            const auto at = std::lower_bound(v.begin(), v.end(), value);
            if (at == v.end() || *at != value) {
                v.insert(at, value);
            }
        }
        benchmark::DoNotOptimize(v.data());
    }
}
BENCHMARK(AddSortedPlain)->Name("add_sorted/std_vector")->Unit(benchmark::kMillisecond);

/// Looks each of the numbers up, and as many that aren't there.
template <class Vector, class Contains>
void LookUp(benchmark::State& state, Contains contains)
{
    const std::vector<int> values = Shuffled(Sorted);
    Vector v;
    v.assign(values.data(), values.data() + values.size());
    std::sort(v.begin(), v.end());
    for (auto _ : state) {
        int found = 0;
        for (const int value : values) {
            found += contains(v, value) ? 1 : 0;
            found += contains(v, value + 3) ? 1 : 0;
        }
        benchmark::DoNotOptimize(found);
    }
}

void ContainsOurs(benchmark::State& state)
{
    LookUp<CIntVector>(state, [](const CIntVector& v, int value) { return v.Contains(value); });
}
BENCHMARK(ContainsOurs)->Name("contains/ours");

void ContainsPlain(benchmark::State& state)
{
    LookUp<std::vector<int>>(state, [](const std::vector<int>& v, int value) {
        return std::binary_search(v.begin(), v.end(), value);
    });
}
BENCHMARK(ContainsPlain)->Name("contains/std_vector");

/// What one would write for numbers alone, in 8-bit text.
template <class T>
std::string PlainJoin(const std::vector<T>& values)
{
    std::string result;
    char buffer[40];
    for (const T value : values) {
        if (!result.empty()) {
            result += ',';
        }
        result.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
    }
    return result;
}

template <class T>
std::vector<T> PlainSplit(std::string_view text)
{
    std::vector<T> result;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        T value{};
        at = std::from_chars(at, end, value).ptr;
        result.push_back(value);
        at += at == end ? 0 : 1;
    }
    return result;
}

struct Doubles
{
    using Value = double;
    using Vector = CDoubleVector;
    static const std::vector<double>& Values() { return SampleDoubles(); }
};

struct Ints
{
    using Value = int;
    using Vector = CIntVector;
    static const std::vector<int>& Values() { return SampleInts(); }
};

template <class Sample>
typename Sample::Vector Filled()
{
    typename Sample::Vector v;
    v.assign(Sample::Values().data(), Sample::Values().data() + Sample::Values().size());
    return v;
}

template <class Sample>
void WriteOurs(benchmark::State& state)
{
    const auto v = Filled<Sample>();
    for (auto _ : state) {
        benchmark::DoNotOptimize(v.getCommaText());
    }
}
BENCHMARK(WriteOurs<Doubles>)->Name("write_doubles/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(WriteOurs<Ints>)->Name("write_ints/ours")->Unit(benchmark::kMillisecond);

template <class Sample>
void WritePlain(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlainJoin(Sample::Values()));
    }
}
BENCHMARK(WritePlain<Doubles>)->Name("write_doubles/to_chars")->Unit(benchmark::kMillisecond);
BENCHMARK(WritePlain<Ints>)->Name("write_ints/to_chars")->Unit(benchmark::kMillisecond);

template <class Sample>
void ReadOurs(benchmark::State& state)
{
    const UnicodeString text = Filled<Sample>().getCommaText();
    for (auto _ : state) {
        typename Sample::Vector v;
        v.setCommaText(text);
        benchmark::DoNotOptimize(v.begin());
    }
}
BENCHMARK(ReadOurs<Doubles>)->Name("read_doubles/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadOurs<Ints>)->Name("read_ints/ours")->Unit(benchmark::kMillisecond);

/// Reads the same text as ours does.
template <class Sample>
void ReadPlain(benchmark::State& state)
{
    const System::AnsiString text(Filled<Sample>().getCommaText());
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlainSplit<typename Sample::Value>(text.AsView()));
    }
}
BENCHMARK(ReadPlain<Doubles>)->Name("read_doubles/from_chars")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadPlain<Ints>)->Name("read_ints/from_chars")->Unit(benchmark::kMillisecond);

} // namespace
