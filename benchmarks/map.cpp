// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_IntSet.h"
#include "text/lists/BTL_STR_StrStrMap.h"

#include <benchmark/benchmark.h>

#include <map>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using System::UnicodeString;

constexpr int Count = 10'000;

/// Keys and values as they stand in configurations, in no order.
std::vector<std::u16string> SampleKeys()
{
    std::vector<std::u16string> keys;
    for (int i = 0; i < Count; ++i) {
        const std::string number = std::to_string(i);
        keys.push_back(u"channel_name_" + std::u16string(number.begin(), number.end()));
    }
    std::shuffle(keys.begin(), keys.end(), std::mt19937(1));
    return keys;
}

std::vector<UnicodeString> OurKeys()
{
    std::vector<UnicodeString> keys;
    for (const std::u16string& key : SampleKeys()) {
        keys.emplace_back(std::u16string_view(key));
    }
    return keys;
}

std::vector<int> SampleNumbers()
{
    std::vector<int> numbers;
    numbers.reserve(Count);
    std::mt19937 random(2);
    for (int i = 0; i < Count; ++i) {
        numbers.push_back(static_cast<int>(random()));
    }
    return numbers;
}

BTL::CStrStrMap Filled(const std::vector<UnicodeString>& keys)
{
    BTL::CStrStrMap map;
    for (const UnicodeString& key : keys) {
        map.Add(key, key);
    }
    return map;
}

std::map<std::u16string, std::u16string> Filled(const std::vector<std::u16string>& keys)
{
    std::map<std::u16string, std::u16string> map;
    for (const std::u16string& key : keys) {
        map.insert_or_assign(key, key);
    }
    return map;
}

template <class Set>
Set FilledSet(const std::vector<int>& numbers)
{
    Set set;
    for (const int number : numbers) {
        set.insert(number);
    }
    return set;
}

template <class Keys>
void MapInsert(benchmark::State& state, const Keys& keys)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(Filled(keys).size());
    }
}

void MapFindOurs(benchmark::State& state)
{
    const auto keys = OurKeys();
    const auto map = Filled(keys);
    for (auto _ : state) {
        for (const UnicodeString& key : keys) {
            benchmark::DoNotOptimize(map.GetValue(key).Length());
        }
    }
}

void MapFindStd(benchmark::State& state)
{
    const auto keys = SampleKeys();
    const auto map = Filled(keys);
    for (auto _ : state) {
        for (const std::u16string& key : keys) {
            const auto found = map.find(key);
            benchmark::DoNotOptimize(found == map.end() ? std::u16string().size() : found->second.size());
        }
    }
}

template <class Keys>
void MapIterate(benchmark::State& state, const Keys& keys)
{
    const auto map = Filled(keys);
    for (auto _ : state) {
        for (const auto& entry : map) {
            benchmark::DoNotOptimize(&entry.second);
        }
    }
}

template <class Set>
void SetInsert(benchmark::State& state)
{
    const auto numbers = SampleNumbers();
    for (auto _ : state) {
        benchmark::DoNotOptimize(FilledSet<Set>(numbers).size());
    }
}

template <class Set>
void SetFind(benchmark::State& state)
{
    const auto numbers = SampleNumbers();
    const Set set = FilledSet<Set>(numbers);
    for (auto _ : state) {
        for (const int number : numbers) {
            benchmark::DoNotOptimize(set.contains(number ^ 1));
        }
    }
}

template <class Set>
void SetIterate(benchmark::State& state)
{
    const Set set = FilledSet<Set>(SampleNumbers());
    for (auto _ : state) {
        for (const int number : set) {
            benchmark::DoNotOptimize(number);
        }
    }
}

BENCHMARK_CAPTURE(MapInsert, ours, OurKeys())->Name("map_insert/ours");
BENCHMARK_CAPTURE(MapInsert, std, SampleKeys())->Name("map_insert/std_map");
BENCHMARK(MapFindOurs)->Name("map_find/ours");
BENCHMARK(MapFindStd)->Name("map_find/std_map");
BENCHMARK_CAPTURE(MapIterate, ours, OurKeys())->Name("map_iterate/ours");
BENCHMARK_CAPTURE(MapIterate, std, SampleKeys())->Name("map_iterate/std_map");
BENCHMARK_TEMPLATE(SetInsert, BTL::CIntSet)->Name("set_insert/ours");
BENCHMARK_TEMPLATE(SetInsert, std::set<int>)->Name("set_insert/std_set");
BENCHMARK_TEMPLATE(SetFind, BTL::CIntSet)->Name("set_find/ours");
BENCHMARK_TEMPLATE(SetFind, std::set<int>)->Name("set_find/std_set");
BENCHMARK_TEMPLATE(SetIterate, BTL::CIntSet)->Name("set_iterate/ours");
BENCHMARK_TEMPLATE(SetIterate, std::set<int>)->Name("set_iterate/std_set");

} // namespace
