// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_SQL_Text.h"

#include <benchmark/benchmark.h>

#include <cctype>
#include <string>
#include <string_view>

namespace
{

using System::UnicodeString;

/// Each case runs on 100 KB and on 1 MB: ten times the text must not take much more than ten times as long.
void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(102'400)->Arg(1'048'576)->Unit(benchmark::kMillisecond);
}

/// A statement of the bytes that the case asks for.
UnicodeString Statement(const benchmark::State& state)
{
    std::u16string result = u"select ";
    while (result.size() * 2 < static_cast<std::size_t>(state.range(0))) {
        result += u"t.channel_1, [a name], 'it''s a text', 12.5e-3 + 7, count(*) as \"n\", ";
    }
    return UnicodeString(std::u16string_view(result));
}

void Report(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void TokensOurs(benchmark::State& state)
{
    const UnicodeString statement = Statement(state);
    for (auto _ : state) {
        int index = 1;
        for (UnicodeString token; !(token = BTL::GetNextSqlToken(statement, index)).IsEmpty();
             index += token.Length()) {
            benchmark::DoNotOptimize(token);
        }
    }
    Report(state);
}
BENCHMARK(TokensOurs)->Name("sql_tokens/ours")->Apply(Sizes);

/// What one would write by hand for a statement in ASCII.
std::size_t PlainLength(std::u16string_view text)
{
    const auto isOf = [](char16_t c, std::u16string_view more, auto isClass) {
        return more.find(c) != std::u16string_view::npos || (c < 128 && isClass(c) != 0);
    };
    const auto run = [&](std::u16string_view more, auto isClass) {
        std::size_t length = 1;
        while (length < text.size() && isOf(text[length], more, isClass)) {
            ++length;
        }
        return length;
    };
    const auto alnum = [](int c) { return std::isalnum(c); };
    const auto digit = [](int c) { return std::isdigit(c); };
    const char16_t first = text.front();
    if (isOf(first, u"", [](int c) { return std::isalpha(c); })) {
        return run(u"$._", alnum);
    }
    if (isOf(first, u"+-.", digit)) {
        return run(u"+-.Ee", digit);
    }
    if (first == u'"' || first == u'[') {
        return text.find_first_of(u"\"]", 1) + 1;
    }
    std::size_t length = 1;
    if (first == u'\'') {
        for (; length < text.size(); ++length) {
            if (text[length] == u'\'' && (length + 1 == text.size() || text[++length] != u'\'')) {
                break;
            }
        }
        return length;
    }
    while (length < text.size() && !isOf(text[length], u"$_.['\"", alnum)) {
        ++length;
    }
    return length;
}

void TokensPlain(benchmark::State& state)
{
    const UnicodeString statement = Statement(state);
    for (auto _ : state) {
        std::u16string_view rest = statement.AsView();
        while (!rest.empty()) {
            if (rest.front() == u' ') {
                rest.remove_prefix(1);
                continue;
            }
            const std::u16string token(rest.substr(0, PlainLength(rest)));
            benchmark::DoNotOptimize(token.data());
            rest.remove_prefix(token.size());
        }
    }
    Report(state);
}
BENCHMARK(TokensPlain)->Name("sql_tokens/plain_scan")->Apply(Sizes);

} // namespace
