// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Escape.h"

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

namespace
{

using System::UnicodeString;

/// A line of a log, and 1 MB of them.
void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(60)->Arg(1'000'000);
}

constexpr std::u16string_view Line = u"C:\\data\\run 7\tchannel \"left\"\tdone, 12.5 V measured at 20\r\n";

/// Texts of as many characters as the case asks for, about.
UnicodeString Plain(const benchmark::State& state)
{
    std::u16string text;
    while (text.size() + Line.size() <= static_cast<std::size_t>(state.range(0))) {
        text += Line;
    }
    return UnicodeString(std::u16string_view(text));
}

/// What one would write by hand.
std::u16string PlainInsert(std::u16string_view text)
{
    std::u16string result;
    for (const char16_t c : text) {
        const char16_t escape = c == u'\\'   ? c
                                : c == u'\n' ? u'n'
                                : c == u'\r' ? u'r'
                                : c == u'\t' ? u't'
                                             : u'\0';
        if (escape != 0) {
            result += u'\\';
        }
        result += escape != 0 ? escape : c;
    }
    return result;
}

std::u16string PlainApply(std::u16string_view text)
{
    std::u16string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const char16_t c = text[++i];
        result += c == u'n' ? u'\n' : c == u'r' ? u'\r' : c == u't' ? u'\t' : c;
    }
    return result;
}

void InsertOurs(benchmark::State& state)
{
    const UnicodeString text = Plain(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(BTL::InsertEscapeSequences(text));
    }
}
BENCHMARK(InsertOurs)->Name("insert_escapes/ours")->Apply(Sizes);

void InsertPlain(benchmark::State& state)
{
    const UnicodeString text = Plain(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlainInsert(text.AsView()));
    }
}
BENCHMARK(InsertPlain)->Name("insert_escapes/plain_loop")->Apply(Sizes);

void ApplyOurs(benchmark::State& state)
{
    const UnicodeString text = BTL::InsertEscapeSequences(Plain(state));
    for (auto _ : state) {
        benchmark::DoNotOptimize(BTL::ApplyEscapeSequences(text));
    }
}
BENCHMARK(ApplyOurs)->Name("apply_escapes/ours")->Apply(Sizes);

void ApplyPlain(benchmark::State& state)
{
    const UnicodeString text = BTL::InsertEscapeSequences(Plain(state));
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlainApply(text.AsView()));
    }
}
BENCHMARK(ApplyPlain)->Name("apply_escapes/plain_loop")->Apply(Sizes);

} // namespace
