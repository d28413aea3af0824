// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/sysutils/Sysutils.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <unicode/ucol.h>

#ifdef TRS8_BTL_BENCHMARK_QT
#include <QString>
#include <QStringList>
#endif

namespace
{

using Classes::TStringList;
using System::UnicodeString;

constexpr int Count = 20'000;

/// Names of channels in no order, each once.
const std::vector<std::u16string>& Names()
{
    static const std::vector<std::u16string> names = [] {
        constexpr std::u16string_view kinds[] = {u"Druck", u"Temperatur", u"Kühlung", u"Änderung",
                                                 u"ölstand"};
        std::vector<std::u16string> result;
        for (int i = 0; i < Count; ++i) {
            const UnicodeString number(i);
            result.push_back(std::u16string(kinds[i % 5]) + u" links " + std::u16string(number.AsView()));
        }
        std::shuffle(result.begin(), result.end(), std::mt19937(1));
        return result;
    }();
    return names;
}

class CCollator
{
public:
    CCollator()
    {
        UErrorCode status = U_ZERO_ERROR;
        mCollator = ucol_open("", &status);
        ucol_setStrength(mCollator, UCOL_TERTIARY);
    }
    CCollator(const CCollator&) = delete;
    CCollator& operator=(const CCollator&) = delete;
    ~CCollator() { ucol_close(mCollator); }

    static int LengthOf(std::u16string_view text) { return static_cast<int>(text.size()); }

    bool IsLess(std::u16string_view a, std::u16string_view b) const
    {
        return ucol_strcoll(mCollator, a.data(), LengthOf(a), b.data(), LengthOf(b)) == UCOL_LESS;
    }
    std::string KeyOf(std::u16string_view text) const
    {
        std::uint8_t key[256];
        const int length = ucol_getSortKey(mCollator, text.data(), LengthOf(text), key, sizeof key);
        return {reinterpret_cast<const char*>(key), static_cast<std::size_t>(length)};
    }

private:
    UCollator* mCollator = nullptr;
};

void SetItems(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * Count);
}

template <class Sort>
void SortOurs(benchmark::State& state, Sort sort)
{
    TStringList names;
    for (const std::u16string& name : Names()) {
        names.Add(UnicodeString(std::u16string_view(name)));
    }
    for (auto _ : state) {
        TStringList list;
        list.Assign(&names);
        sort(list);
        benchmark::DoNotOptimize(list.getCount());
    }
    SetItems(state);
}
BENCHMARK_CAPTURE(SortOurs, ordinal, [](TStringList& list) {
    list.CustomSort(
        [](TStringList* lines, int a, int b) { return Sysutils::CompareStr(lines->At(a), lines->At(b)); });
})->Name("sort_ordinal/ours");
BENCHMARK_CAPTURE(SortOurs, language, [](TStringList& list) { list.Sort(); })->Name("sort_by_language/ours");

void SortStd(benchmark::State& state)
{
    for (auto _ : state) {
        std::vector<std::u16string> list = Names();
        std::stable_sort(list.begin(), list.end());
        benchmark::DoNotOptimize(list.data());
    }
    SetItems(state);
}
BENCHMARK(SortStd)->Name("sort_ordinal/std_stable_sort");

void SortKeys(benchmark::State& state)
{
    const CCollator collator;
    for (auto _ : state) {
        std::vector<std::pair<std::string, std::u16string>> list;
        list.reserve(Names().size());
        for (const std::u16string& name : Names()) {
            list.emplace_back(collator.KeyOf(name), name);
        }
        std::sort(list.begin(), list.end());
        benchmark::DoNotOptimize(list.data());
    }
    SetItems(state);
}
BENCHMARK(SortKeys)->Name("sort_by_language/icu_sort_keys");

void AddSortedOurs(benchmark::State& state)
{
    for (auto _ : state) {
        TStringList list;
        list.setSorted(true);
        for (const std::u16string& name : Names()) {
            list.Add(UnicodeString(std::u16string_view(name)));
        }
        benchmark::DoNotOptimize(list.getCount());
    }
    SetItems(state);
}
BENCHMARK(AddSortedOurs)->Name("add_to_sorted_list/ours");

void AddSortedStd(benchmark::State& state)
{
    const CCollator collator;
    const auto isLess = [&](const std::u16string& a, const std::u16string& b) {
        return collator.IsLess(a, b);
    };
    for (auto _ : state) {
        std::set<std::u16string, decltype(isLess)> list(isLess);
        for (const std::u16string& name : Names()) {
            list.insert(name);
        }
        benchmark::DoNotOptimize(list.size());
    }
    SetItems(state);
}
BENCHMARK(AddSortedStd)->Name("add_to_sorted_list/set_with_icu");

#ifdef TRS8_BTL_BENCHMARK_QT

void SortQt(benchmark::State& state)
{
    QStringList names;
    for (const std::u16string& name : Names()) {
        names.append(QString::fromStdU16String(name));
    }
    for (auto _ : state) {
        QStringList list = names;
        list.sort();
        benchmark::DoNotOptimize(list.size());
    }
    SetItems(state);
}
BENCHMARK(SortQt)->Name("sort_ordinal/qstringlist");

#endif

} // namespace
