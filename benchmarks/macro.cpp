// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Macro.h"

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

namespace
{

using System::UnicodeString;

/// A text with as many calls as the case asks for.
std::u16string Calls(const benchmark::State& state)
{
    std::u16string text;
    for (int i = 0; i < state.range(0); ++i) {
        text += u"channel = SCALE(raw_1,12.5,-3); unit = V; name = left; ";
    }
    return text;
}

constexpr std::u16string_view Name = u"SCALE";
constexpr std::u16string_view Body = u"(%x * %factor + %offset)";

/// What one would write by hand where no value holds a call or a parameter.
std::u16string PlainBody(const std::vector<std::u16string_view>& values)
{
    constexpr std::u16string_view names[] = {u"%x", u"%factor", u"%offset"};
    std::u16string result(Body);
    for (std::size_t i = 0; i < values.size(); ++i) {
        for (auto at = result.find(names[i]); at != std::u16string::npos; at = result.find(names[i], at)) {
            result.replace(at, names[i].size(), values[i]);
            at += values[i].size();
        }
    }
    return result;
}

std::u16string PlainMacro(std::u16string_view text)
{
    std::u16string result;
    for (auto at = text.find(Name); at != std::u16string_view::npos; at = text.find(Name)) {
        result += text.substr(0, at);
        text.remove_prefix(at + Name.size() + 1);
        std::vector<std::u16string_view> values;
        for (char16_t end = u','; end == u',';) {
            const auto length = text.find_first_of(u",)");
            values.push_back(text.substr(0, length));
            end = text[length];
            text.remove_prefix(length + 1);
        }
        result += PlainBody(values);
    }
    return result += text;
}

void MacroOurs(benchmark::State& state)
{
    const UnicodeString text{std::u16string_view(Calls(state))};
    const UnicodeString macro = u"SCALE(x,factor,offset)";
    const UnicodeString body{Body};
    for (auto _ : state) {
        benchmark::DoNotOptimize(BTL::ApplyMacro(text, macro, body));
    }
}
BENCHMARK(MacroOurs)->Name("apply_macro/ours")->Arg(1)->Arg(1000);

void MacroPlain(benchmark::State& state)
{
    const std::u16string text = Calls(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlainMacro(text));
    }
}
BENCHMARK(MacroPlain)->Name("apply_macro/plain_loop")->Arg(1)->Arg(1000);

} // namespace
