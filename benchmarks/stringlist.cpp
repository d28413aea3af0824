// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes.h"

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

#ifdef TRS8_BTL_BENCHMARK_QT
#include <QString>
#include <QStringList>
#endif

namespace
{

using Classes::TStringList;
using System::UnicodeString;

constexpr std::size_t TextLength = 5'000'000;

/// About 10 MB of items, every fourth of them in quotes.
const UnicodeString& SampleText()
{
    static const UnicodeString text = [] {
        std::u16string result;
        for (int i = 0; result.size() < TextLength; ++i) {
            result += i % 4 == 0 ? u"\"channel, \"\"left\"\"\"," : u"channel_name,";
        }
        result += u"end";
        return UnicodeString(std::u16string_view(result));
    }();
    return text;
}

/// What one would write for this text alone: quotes, doubled quotes and commas, and nothing else.
std::vector<std::u16string> PlainSplit(std::u16string_view text)
{
    std::vector<std::u16string> items(1);
    bool inQuotes = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'"') {
            if (inQuotes && i + 1 < text.size() && text[i + 1] == u'"') {
                items.back() += text[i++];
            } else {
                inQuotes = !inQuotes;
            }
        } else if (text[i] == u',' && !inQuotes) {
            items.emplace_back();
        } else {
            items.back() += text[i];
        }
    }
    return items;
}

std::u16string PlainJoin(const std::vector<std::u16string>& items)
{
    std::u16string result;
    for (const std::u16string& item : items) {
        if (!result.empty()) {
            result += u',';
        }
        if (item.find_first_of(u", \"") == std::u16string::npos) {
            result += item;
            continue;
        }
        result += u'"';
        for (const char16_t c : item) {
            if (c == u'"') {
                result += c;
            }
            result += c;
        }
        result += u'"';
    }
    return result;
}

void Report(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(TextLength * 2));
}

void ReadOurs(benchmark::State& state, void (TStringList::*set)(const UnicodeString&))
{
    for (auto _ : state) {
        TStringList list;
        (list.*set)(SampleText());
        benchmark::DoNotOptimize(list.getCount());
    }
    Report(state);
}

void ReadPlain(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlainSplit(SampleText().AsView()));
    }
    Report(state);
}

void WriteOurs(benchmark::State& state, UnicodeString (TStringList::*get)() const)
{
    TStringList list;
    list.setCommaText(SampleText());
    for (auto _ : state) {
        benchmark::DoNotOptimize((list.*get)());
    }
    Report(state);
}

void WritePlain(benchmark::State& state)
{
    const auto items = PlainSplit(SampleText().AsView());
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlainJoin(items));
    }
    Report(state);
}

// Looking at each of as many lines as the argument tells.

std::u16string LineOf(std::int64_t number)
{
    return number % 4 == 0 ? u"channel, left" : u"channel_name";
}

void Counts(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1'000)->Arg(300'000);
}

template <class Look>
void LookOurs(benchmark::State& state, Look look)
{
    TStringList list;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        list.Add(UnicodeString(LineOf(i)));
    }
    for (auto _ : state) {
        std::size_t sum = 0;
        for (int i = 0; i < list.getCount(); ++i) {
            sum += look(list, i).size();
        }
        benchmark::DoNotOptimize(sum);
    }
}

constexpr auto Look = [](const TStringList& list, int index) -> const UnicodeString& {
    return list.At(index);
};
constexpr auto Get = [](const TStringList& list, int index) { return list.getStrings(index); };

BENCHMARK_CAPTURE(LookOurs, at, Look)->Name("look_at_lines/ours")->Apply(Counts);
BENCHMARK_CAPTURE(LookOurs, get, Get)->Name("get_lines/ours")->Apply(Counts);

void LookVector(benchmark::State& state)
{
    std::vector<std::u16string> items;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        items.push_back(LineOf(i));
    }
    for (auto _ : state) {
        std::size_t sum = 0;
        for (std::size_t i = 0; i < items.size(); ++i) {
            sum += items.at(i).size();
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(LookVector)->Name("look_at_lines/std_vector")->Apply(Counts);
BENCHMARK(LookVector)->Name("get_lines/std_vector")->Apply(Counts);

#ifdef TRS8_BTL_BENCHMARK_QT

void LookQt(benchmark::State& state)
{
    QStringList list;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        list.append(QString::fromStdU16String(LineOf(i)));
    }
    for (auto _ : state) {
        qsizetype sum = 0;
        for (qsizetype i = 0; i < list.size(); ++i) {
            sum += list.at(i).size();
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(LookQt)->Name("look_at_lines/qstringlist")->Apply(Counts);
BENCHMARK(LookQt)->Name("get_lines/qstringlist")->Apply(Counts);

#endif

BENCHMARK_CAPTURE(ReadOurs, comma, &TStringList::setCommaText)->Name("read_comma_text/ours");
BENCHMARK(ReadPlain)->Name("read_comma_text/plain_loop");
BENCHMARK_CAPTURE(WriteOurs, comma, &TStringList::getCommaText)->Name("write_comma_text/ours");
BENCHMARK(WritePlain)->Name("write_comma_text/plain_loop");
BENCHMARK_CAPTURE(ReadOurs, delimited, &TStringList::setDelimitedText)->Name("read_delimited_text/ours");
BENCHMARK(ReadPlain)->Name("read_delimited_text/plain_loop");
BENCHMARK_CAPTURE(WriteOurs, delimited, &TStringList::getDelimitedText)->Name("write_delimited_text/ours");
BENCHMARK(WritePlain)->Name("write_delimited_text/plain_loop");

} // namespace
