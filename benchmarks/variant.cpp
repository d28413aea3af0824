// SPDX-License-Identifier: MIT
#include "support/Each.h"

#include "foundation/UTL_CVariant.h"
#include "platform/runtime/variants/System_Variant.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace
{

using System::Int64;
using System::UnicodeString;
using UTL::CVariant;

constexpr std::size_t Count = 1'000'000;

/// What a user would take instead.
using Plain = std::variant<std::monostate, bool, int, Int64, double, std::string, std::u16string>;

Plain MakePlain(std::mt19937& random)
{
    const int number = static_cast<int>(random() % 100'000);
    const std::string text = std::to_string(number);
    switch (random() % 7) {
    case 0:
        return {};
    case 1:
        return number % 2 == 0;
    case 2:
        return number;
    case 3:
        return Int64{number} * number;
    case 4:
        return number * 0.25;
    case 5:
        return text + ".5";
    default:
        return std::u16string(text.begin(), text.end());
    }
}

CVariant MakeOurs(const Plain& plain)
{
    return std::visit(
        [](const auto& value) -> CVariant {
            using T = std::remove_cvref_t<decltype(value)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                return nullptr;
            } else if constexpr (std::is_arithmetic_v<T>) {
                return value;
            } else {
                return value.c_str();
            }
        },
        plain);
}

const std::vector<Plain>& PlainValues()
{
    static const std::vector<Plain> values = [] {
        std::mt19937 random(1);
        std::vector<Plain> result;
        result.reserve(Count);
        for (std::size_t i = 0; i < Count; ++i) {
            result.push_back(MakePlain(random));
        }
        return result;
    }();
    return values;
}

const std::vector<CVariant>& OurValues()
{
    static const std::vector<CVariant> values = [] {
        std::vector<CVariant> result;
        result.reserve(Count);
        for (const Plain& value : PlainValues()) {
            result.push_back(MakeOurs(value));
        }
        return result;
    }();
    return values;
}

template <class T>
T Parsed(std::string_view text)
{
    T value = T();
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// The number of a value; wide text is narrowed first.
template <class T>
struct ToNumber
{
    T operator()(std::monostate) const { return T(); }
    T operator()(const std::string& text) const { return Parsed<T>(text); }
    T operator()(const std::u16string& text) const
    {
        std::string narrow(text.size(), ' ');
        for (std::size_t i = 0; i < text.size(); ++i) {
            narrow[i] = static_cast<char>(text[i]);
        }
        return Parsed<T>(narrow);
    }
    template <class Number>
    T operator()(Number value) const
    {
        return static_cast<T>(value);
    }
};

/// The wide text of a value.
struct ToText
{
    std::u16string operator()(std::monostate) const { return {}; }
    std::u16string operator()(const std::string& text) const { return {text.begin(), text.end()}; }
    std::u16string operator()(const std::u16string& text) const { return text; }
    std::u16string operator()(bool value) const { return value ? u"1" : u"0"; }
    template <class Number>
    std::u16string operator()(Number value) const
    {
        char text[32];
        return {text, std::to_chars(text, text + sizeof(text), value).ptr};
    }
};

void IntOurs(benchmark::State& state)
{
    Each(state, OurValues(), [](const CVariant& value) { return value.ToIntDef(0); });
}
BENCHMARK(IntOurs)->Name("variant_to_int/ours")->Unit(benchmark::kMillisecond);

void IntVisit(benchmark::State& state)
{
    Each(state, PlainValues(), [](const Plain& value) { return std::visit(ToNumber<int>(), value); });
}
BENCHMARK(IntVisit)->Name("variant_to_int/visit")->Unit(benchmark::kMillisecond);

void DoubleOurs(benchmark::State& state)
{
    Each(state, OurValues(), [](const CVariant& value) { return value.ToDouble(); });
}
BENCHMARK(DoubleOurs)->Name("variant_to_double/ours")->Unit(benchmark::kMillisecond);

void DoubleVisit(benchmark::State& state)
{
    Each(state, PlainValues(), [](const Plain& value) { return std::visit(ToNumber<double>(), value); });
}
BENCHMARK(DoubleVisit)->Name("variant_to_double/visit")->Unit(benchmark::kMillisecond);

void TextOurs(benchmark::State& state)
{
    Each(state, OurValues(), [](const CVariant& value) { return value.ToString(); });
}
BENCHMARK(TextOurs)->Name("variant_to_text/ours")->Unit(benchmark::kMillisecond);

void TextVisit(benchmark::State& state)
{
    Each(state, PlainValues(), [](const Plain& value) { return std::visit(ToText(), value); });
}
BENCHMARK(TextVisit)->Name("variant_to_text/visit")->Unit(benchmark::kMillisecond);

// The variant of the run-time library, by pairs.

using System::Variant;
using PlainNumber = std::variant<std::monostate, int, double, std::u16string>;

constexpr int PairCount = 10'000;

/// Integers and floats in turn at random.
template <class Value>
std::vector<Value> Numbers(unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<Value> values;
    for (int i = 0; i < PairCount; ++i) {
        const int number = static_cast<int>(random() % 100'000);
        if (random() % 2 == 0) {
            values.emplace_back(number);
        } else {
            values.emplace_back(number * 0.25);
        }
    }
    return values;
}

/// The texts of `Numbers`.
template <class Value, class Text>
std::vector<Value> NumberTexts()
{
    std::vector<Value> values;
    for (const PlainNumber& number : Numbers<PlainNumber>(1)) {
        const auto* const whole = std::get_if<int>(&number);
        const UnicodeString text =
            whole != nullptr ? UnicodeString(*whole) : UnicodeString(std::get<double>(number));
        values.emplace_back(Text(text.c_str()));
    }
    return values;
}

template <class Value, class Combine>
void RunPairs(benchmark::State& state, Combine combine)
{
    const auto first = Numbers<Value>(1);
    const auto second = Numbers<Value>(2);
    for (auto _ : state) {
        for (std::size_t i = 0; i < first.size(); ++i) {
            benchmark::DoNotOptimize(combine(first[i], second[i]));
        }
    }
    state.SetItemsProcessed(state.iterations() * PairCount);
}

void AddOurs(benchmark::State& state)
{
    RunPairs<Variant>(state, [](const Variant& a, const Variant& b) { return a + b; });
}
BENCHMARK(AddOurs)->Name("variant_add/ours");

void AddVisit(benchmark::State& state)
{
    RunPairs<PlainNumber>(state, [](const PlainNumber& a, const PlainNumber& b) {
        return std::visit(
            [](const auto& x, const auto& y) -> PlainNumber {
                if constexpr (requires { x + y; }) {
                    return x + y;
                } else {
                    return {};
                }
            },
            a, b);
    });
}
BENCHMARK(AddVisit)->Name("variant_add/visit");

void CompareOurs(benchmark::State& state)
{
    RunPairs<Variant>(state, [](const Variant& a, const Variant& b) { return a < b; });
}
BENCHMARK(CompareOurs)->Name("variant_compare/ours");

void CompareVisit(benchmark::State& state)
{
    RunPairs<PlainNumber>(state, [](const PlainNumber& a, const PlainNumber& b) {
        return std::visit(
            [](const auto& x, const auto& y) {
                if constexpr (std::is_arithmetic_v<std::remove_cvref_t<decltype(x)>> &&
                              std::is_arithmetic_v<std::remove_cvref_t<decltype(y)>>) {
                    return static_cast<double>(x) < static_cast<double>(y);
                } else {
                    return false;
                }
            },
            a, b);
    });
}
BENCHMARK(CompareVisit)->Name("variant_compare/visit");

void NumberToTextOurs(benchmark::State& state)
{
    Each(state, Numbers<Variant>(1), [](const Variant& value) { return value.As<UnicodeString>(); });
}
BENCHMARK(NumberToTextOurs)->Name("variant_number_to_text/ours");

void NumberToTextVisit(benchmark::State& state)
{
    Each(state, Numbers<PlainNumber>(1),
         [](const PlainNumber& value) { return std::visit(ToText(), value); });
}
BENCHMARK(NumberToTextVisit)->Name("variant_number_to_text/visit");

void TextToNumberOurs(benchmark::State& state)
{
    Each(state, NumberTexts<Variant, UnicodeString>(),
         [](const Variant& value) { return value.As<double>(); });
}
BENCHMARK(TextToNumberOurs)->Name("variant_text_to_number/ours");

void TextToNumberVisit(benchmark::State& state)
{
    Each(state, NumberTexts<PlainNumber, std::u16string>(),
         [](const PlainNumber& value) { return std::visit(ToNumber<double>(), value); });
}
BENCHMARK(TextToNumberVisit)->Name("variant_text_to_number/visit");

} // namespace
