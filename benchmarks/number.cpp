// SPDX-License-Identifier: MIT
#include "support/Each.h"

#include "foundation/UTL_Flags.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/sysutils/System_Printf.h"
#include "platform/runtime/sysutils/Sysutils_Format.h"
#include "text/numbers/BTL_NUM_Limits.h"
#include "text/numbers/BTL_NUM_Units.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using System::UnicodeString;

// Units.

const std::vector<std::u16string> UnitTexts = {u"mV",  u"kV", u"V",   u"\u00B5A", u"Ohm",     u"ms", u"GHz",
                                               u"daN", u"cm", u"rad", u"bar",     u"\u00B0C", u"MW", u"K"};

std::vector<UnicodeString> OurTexts(const std::vector<std::u16string>& texts)
{
    std::vector<UnicodeString> result;
    result.reserve(texts.size());
    for (const std::u16string& text : texts) {
        result.emplace_back(std::u16string_view(text));
    }
    return result;
}

double PlainFactor(std::u16string_view unit)
{
    struct TFactor
    {
        char16_t sign;
        double factor;
    };
    constexpr TFactor factors[] = {
        {u'a', 1e-18}, {u'f', 1e-15}, {u'p', 1e-12}, {u'n', 1e-9}, {u'\u00B5', 1e-6}, {u'\u03BC', 1e-6},
        {u'm', 1e-3},  {u'c', 1e-2},  {u'd', 1e-1},  {u'h', 1e2},  {u'k', 1e3},       {u'K', 1e3},
        {u'M', 1e6},   {u'G', 1e9},   {u'T', 1e12},  {u'P', 1e15}, {u'E', 1e18}};
    while (!unit.empty() && unit.front() <= 32) {
        unit.remove_prefix(1);
    }
    if (unit.starts_with(u"da")) {
        return 10;
    }
    for (const auto& [sign, factor] : factors) {
        if (!unit.empty() && unit.front() == sign) {
            return factor;
        }
    }
    return 1;
}

void UnitFactorOurs(benchmark::State& state)
{
    Each(state, OurTexts(UnitTexts),
         [](const UnicodeString& unit) { return BTL::GetUnitPrefixFactor(unit); });
}
BENCHMARK(UnitFactorOurs)->Name("unit_factor/ours");

void UnitFactorPlain(benchmark::State& state)
{
    Each(state, UnitTexts, [](const std::u16string& unit) { return PlainFactor(unit); });
}
BENCHMARK(UnitFactorPlain)->Name("unit_factor/plain_loop");

/// Numbers as one reads them from an instrument, with each of the units.
std::vector<std::u16string> Measurements()
{
    std::vector<std::u16string> result;
    std::mt19937 random(1);
    for (const std::u16string& unit : UnitTexts) {
        const std::string number =
            std::to_string(random() % 1000) + '.' + std::to_string(random() % 1000) + ' ';
        result.push_back(std::u16string(number.begin(), number.end()) + unit);
    }
    return result;
}

void ValueWithUnitOurs(benchmark::State& state)
{
    Each(state, OurTexts(Measurements()),
         [](const UnicodeString& text) { return BTL::ValueWithUnitToDoubleDef(text, 0); });
}
BENCHMARK(ValueWithUnitOurs)->Name("value_with_unit/ours");

void ValueWithUnitChars(benchmark::State& state)
{
    Each(state, Measurements(), [](std::u16string_view text) {
        char narrow[32];
        const std::size_t length = std::min(text.size(), sizeof narrow);
        for (std::size_t i = 0; i < length; ++i) {
            narrow[i] = static_cast<char>(text[i]);
        }
        double value = 0;
        const char* const end = std::from_chars(narrow, narrow + length, value).ptr;
        return value * PlainFactor(text.substr(static_cast<std::size_t>(end - narrow)));
    });
}
BENCHMARK(ValueWithUnitChars)->Name("value_with_unit/from_chars");

// Texts of measured values.

std::vector<double> Values()
{
    std::mt19937 random(4711);
    std::uniform_real_distribution<double> wide(-1000, 1000);
    std::vector<double> result(1000);
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] = i % 2 == 0 ? static_cast<double>(i) / 8 : wide(random);
    }
    return result;
}

char* PlainMeasure(double value, char* begin, char* end)
{
    char* const behind = std::to_chars(begin, end, value, std::chars_format::general, 6).ptr;
    if (std::string_view(begin, static_cast<std::size_t>(behind - begin)).find_first_of(".e") !=
        std::string_view::npos) {
        return behind;
    }
    behind[0] = '.';
    behind[1] = '0';
    return behind + 2;
}

void MeasureOurs(benchmark::State& state)
{
    Each(state, Values(), [](double value) { return BTL::MeasureFloatToStrW(value, -1, -1); });
}
BENCHMARK(MeasureOurs)->Name("measure_text/ours");

void MeasureChars(benchmark::State& state)
{
    Each(state, Values(), [](double value) {
        char text[48];
        return std::u16string(text, PlainMeasure(value, text, text + sizeof text - 2));
    });
}
BENCHMARK(MeasureChars)->Name("measure_text/to_chars");

void LimitOurs(benchmark::State& state)
{
    const UnicodeString unit = u"kV";
    Each(state, Values(), [&](double value) { return BTL::GetLimitTextW(value, -value - 1, &unit); });
}
BENCHMARK(LimitOurs)->Name("limit_text/ours");

void LimitChars(benchmark::State& state)
{
    Each(state, Values(), [](double value) {
        char text[128];
        char* out = PlainMeasure(std::min(value, -value - 1), text, text + sizeof text);
        out = std::copy_n(" ... ", 5, out);
        out = PlainMeasure(std::max(value, -value - 1), out, text + sizeof text);
        out = std::copy_n(" kV", 3, out);
        return std::u16string(text, out);
    });
}
BENCHMARK(LimitChars)->Name("limit_text/to_chars");

// Integers.

std::vector<int> Integers()
{
    std::mt19937 random(1);
    std::vector<int> result(1000);
    for (int& number : result) {
        number = static_cast<int>(random() >> (random() % 32));
    }
    return result;
}

void IntegerOurs(benchmark::State& state)
{
    Each(state, Integers(), [](int value) { return Sysutils::IntToStr(value); });
}
BENCHMARK(IntegerOurs)->Name("integer_text/ours");

void IntegerToString(benchmark::State& state)
{
    Each(state, Integers(), [](int value) { return std::to_string(value); });
}
BENCHMARK(IntegerToString)->Name("integer_text/to_string");

void HexOurs(benchmark::State& state)
{
    Each(state, Integers(), [](int value) { return Sysutils::IntToHex(value, 8); });
}
BENCHMARK(HexOurs)->Name("hexadecimal/ours");

void HexChars(benchmark::State& state)
{
    Each(state, Integers(), [](int value) {
        char text[8];
        const char* const end = std::to_chars(text, text + sizeof text, static_cast<unsigned>(value), 16).ptr;
        std::u16string result(8, u'0');
        std::transform(static_cast<const char*>(text), end, result.end() - (end - text),
                       [](char c) { return static_cast<char16_t>(c >= 'a' ? c - 32 : c); });
        return result;
    });
}
BENCHMARK(HexChars)->Name("hexadecimal/to_chars");

// Formats.

template <class Format>
void FormatEach(benchmark::State& state, Format formatted)
{
    const UnicodeString format = u"%s: %d of %d, %.2f %s";
    const UnicodeString name = u"channel";
    const UnicodeString unit = u"mV";
    Each(state, Values(), [&](double value) {
        return formatted(format, {name, static_cast<int>(value), 1000, value, unit});
    });
}

void PrintfOurs(benchmark::State& state)
{
    FormatEach(state, [](const UnicodeString& format, System::TVarArgs arguments) {
        return System::Printf(format, arguments);
    });
}
BENCHMARK(PrintfOurs)->Name("printf/ours");

void FormatOurs(benchmark::State& state)
{
    FormatEach(state, [](const UnicodeString& format, System::TVarArgs arguments) {
        return Sysutils::Format(format, arguments);
    });
}
BENCHMARK(FormatOurs)->Name("format/ours");

void PrintfHost(benchmark::State& state)
{
    const std::string name = "channel";
    const std::string unit = "mV";
    Each(state, Values(), [&](double value) {
        char text[128];
        const int length = std::snprintf(text, sizeof text, "%s: %d of %d, %.2f %s", name.c_str(),
                                         static_cast<int>(value), 1000, value, unit.c_str());
        return std::u16string(text, text + length);
    });
}
BENCHMARK(PrintfHost)->Name("printf/snprintf");
BENCHMARK(PrintfHost)->Name("format/snprintf");

// Flags.

std::u16string FlagsText()
{
    std::mt19937 random(1);
    std::u16string result;
    for (int i = 0; i < 1000; ++i) {
        result += random() % 2 == 0 ? u"0," : u"1,";
    }
    result.pop_back();
    return result;
}

void FlagsOurs(benchmark::State& state)
{
    const UnicodeString text{std::u16string_view(FlagsText())};
    for (auto _ : state) {
        UTL::CFlags flags;
        flags.setCommaText(text);
        benchmark::DoNotOptimize(flags);
    }
}
BENCHMARK(FlagsOurs)->Name("flags_from_text/ours");

void FlagsChars(benchmark::State& state)
{
    const std::u16string wide = FlagsText();
    const std::string text(wide.begin(), wide.end());
    for (auto _ : state) {
        std::vector<bool> flags;
        const char* const end = text.data() + text.size();
        for (const char* at = text.data(); at < end; ++at) {
            int value = 0;
            at = std::from_chars(at, end, value).ptr;
            flags.push_back(value != 0);
        }
        benchmark::DoNotOptimize(flags);
    }
}
BENCHMARK(FlagsChars)->Name("flags_from_text/from_chars");

} // namespace
