// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Units.h"

#include "platform/base/numbers/Sysutils_FloatText.h"
#include "platform/base/numbers/internal/Sysutils_DecimalText.h"
#include "text/numbers/BTL_NUM_FindNumber.h"
#include "text/numbers/BTL_NUM_Floats.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace BTL
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

namespace
{

// `da` stands in front of `d`, which it begins with. Micro is both a sign of its own and the Greek letter.
constexpr std::array Prefixes = {
    TUnitPrefix{u"a", 1e-18}, TUnitPrefix{u"f", 1e-15},     TUnitPrefix{u"p", 1e-12},
    TUnitPrefix{u"n", 1e-9},  TUnitPrefix{u"\u00B5", 1e-6}, TUnitPrefix{u"\u03BC", 1e-6},
    TUnitPrefix{u"m", 1e-3},  TUnitPrefix{u"c", 1e-2},      TUnitPrefix{u"da", 10},
    TUnitPrefix{u"d", 1e-1},  TUnitPrefix{u"h", 100},       TUnitPrefix{u"k", 1000},
    TUnitPrefix{u"K", 1000},  TUnitPrefix{u"M", 1e6},       TUnitPrefix{u"G", 1e9},
    TUnitPrefix{u"T", 1e12},  TUnitPrefix{u"P", 1e15},      TUnitPrefix{u"E", 1e18},
};

constexpr std::array Units = {
    TUnit{u"m", u"metre", true},
    TUnit{u"g", u"gram", true},
    TUnit{u"s", u"second", true},
    TUnit{u"A", u"ampere", true},
    TUnit{u"K", u"kelvin", true},
    TUnit{u"mol", u"mole", true},
    TUnit{u"cd", u"candela", true},
    TUnit{u"rad", u"radian", true},
    TUnit{u"sr", u"steradian", true},
    TUnit{u"Hz", u"hertz", true},
    TUnit{u"N", u"newton", true},
    TUnit{u"Pa", u"pascal", true},
    TUnit{u"J", u"joule", true},
    TUnit{u"W", u"watt", true},
    TUnit{u"C", u"coulomb", true},
    TUnit{u"V", u"volt", true},
    TUnit{u"F", u"farad", true},
    TUnit{u"\u03A9", u"ohm", true},
    TUnit{u"\u2126", u"ohm", true},
    TUnit{u"Ohm", u"ohm", true},
    TUnit{u"S", u"siemens", true},
    TUnit{u"Wb", u"weber", true},
    TUnit{u"T", u"tesla", true},
    TUnit{u"H", u"henry", true},
    TUnit{u"\u00B0C", u"degree Celsius", false},
    TUnit{u"lm", u"lumen", true},
    TUnit{u"lx", u"lux", true},
    TUnit{u"Bq", u"becquerel", true},
    TUnit{u"Gy", u"gray", true},
    TUnit{u"Sv", u"sievert", true},
    TUnit{u"kat", u"katal", true},
    TUnit{u"min", u"minute", false},
    TUnit{u"h", u"hour", false},
    TUnit{u"d", u"day", false},
    TUnit{u"\u00B0", u"degree", false},
    TUnit{u"l", u"litre", true},
    TUnit{u"L", u"litre", true},
    TUnit{u"t", u"tonne", true},
    TUnit{u"bar", u"bar", true},
    TUnit{u"eV", u"electronvolt", true},
    TUnit{u"VA", u"volt-ampere", true},
    TUnit{u"var", u"var", true},
    TUnit{u"Ah", u"ampere-hour", true},
    TUnit{u"Wh", u"watt-hour", true},
    TUnit{u"B", u"byte", true},
    TUnit{u"bit", u"bit", true},
    TUnit{u"dB", u"decibel", false},
    TUnit{u"%", u"percent", false},
    TUnit{u"\u2030", u"per mille", false},
    TUnit{u"ppm", u"parts per million", false},
};

constexpr auto UnitsBySymbol = [] {
    auto units = Units;
    std::ranges::sort(units, {}, &TUnit::symbol);
    return units;
}();

const TUnit* UnitOf(std::u16string_view symbol)
{
    const auto* const found = std::ranges::lower_bound(UnitsBySymbol, symbol, {}, &TUnit::symbol);
    return found == UnitsBySymbol.end() || found->symbol != symbol ? nullptr : found;
}

/// For each ASCII character the first prefix that begins with it, or behind the last one.
constexpr auto FirstPrefixes = [] {
    std::array<std::uint8_t, 128> first{};
    first.fill(Prefixes.size());
    for (std::size_t i = Prefixes.size(); i-- > 0;) {
        if (const char16_t c = Prefixes[i].symbol.front(); c < first.size()) {
            first[c] = static_cast<std::uint8_t>(i);
        }
    }
    return first;
}();

// The prefixes that a value is shown with, each 1000 times the one in front of it.
constexpr std::array<std::u16string_view, 13> Steps = {u"a", u"f", u"p", u"n", u"\u00B5", u"m", u"",
                                                       u"k", u"M", u"G", u"T", u"P",      u"E"};
constexpr int WithoutPrefix = 6;
constexpr int DigitsOfStep = 3;

/// The step that leaves one to three digits in front of the separator; the one without a prefix if none does.
int StepFor(const Sysutils::Detail::TDecimal& value)
{
    const int belowOne = value.exponent < 1 ? DigitsOfStep - 1 : 0;
    const int step = (value.exponent - 1 - belowOne) / DigitsOfStep + WithoutPrefix;
    return value.count > 0 && step >= 0 && step < std::ssize(Steps) ? step : WithoutPrefix;
}

/// The prefix that `unit`, which has no blanks in front, begins with; one without a symbol if it has none.
const TUnitPrefix& PrefixOf(std::u16string_view unit)
{
    static constexpr TUnitPrefix none{u"", 1.0};
    if (unit.empty()) {
        return none;
    }
    const std::size_t first = unit.front() < FirstPrefixes.size() ? FirstPrefixes[unit.front()] : 0;
    for (std::size_t i = first; i < Prefixes.size(); ++i) {
        if (unit.starts_with(Prefixes[i].symbol)) {
            return Prefixes[i];
        }
    }
    return none;
}

/// A number in front of a piece of a text.
struct TValueWithRest
{
    double value;
    std::u16string_view rest;
};

std::optional<TValueWithRest> ReadValue(const UnicodeString& text)
{
    int position = 0;
    int length = 0;
    double value = 0;
    if (!Find1stFloat(text, position, length)) {
        return std::nullopt;
    }
    const std::u16string_view found = text.AsView().substr(static_cast<std::size_t>(position) - 1);
    if (!ToDouble(found.substr(0, static_cast<std::size_t>(length)), value)) {
        return std::nullopt;
    }
    const auto rest = System::Detail::WithoutBlanksInFront(found.substr(static_cast<std::size_t>(length)));
    return TValueWithRest{value * PrefixOf(rest).factor, rest};
}

} // namespace

std::span<const TUnitPrefix> GetUnitPrefixes() noexcept
{
    return Prefixes;
}

std::span<const TUnit> GetUnits() noexcept
{
    return Units;
}

bool FindUnit(std::u16string_view text, double& factor, UnicodeString& unit)
{
    const std::u16string_view trimmed = System::Detail::WithoutBlanks(text);
    if (UnitOf(trimmed) != nullptr) {
        factor = 1;
        unit = UnicodeString(trimmed);
        return true;
    }
    // Of `da` and `d`, either may be meant.
    for (const TUnitPrefix& prefix : Prefixes) {
        if (!trimmed.starts_with(prefix.symbol)) {
            continue;
        }
        const std::u16string_view rest = trimmed.substr(prefix.symbol.size());
        if (const TUnit* const found = UnitOf(rest); found != nullptr && found->takesPrefix) {
            factor = prefix.factor;
            unit = UnicodeString(rest);
            return true;
        }
    }
    return false;
}

double GetUnitPrefixFactor(const UnicodeString& unit)
{
    return PrefixOf(System::Detail::WithoutBlanksInFront(unit.AsView())).factor;
}

double GetUnitPrefixFactor(const AnsiString& unit)
{
    return GetUnitPrefixFactor(UnicodeString(unit));
}

double GetUnitFactor(const UnicodeString& from, const UnicodeString& to)
{
    return GetUnitPrefixFactor(from) / GetUnitPrefixFactor(to);
}

UnicodeString CutUnitPrefix(const UnicodeString& unit)
{
    const UnicodeString trimmed = unit.Trim();
    const auto length = static_cast<int>(PrefixOf(trimmed.AsView()).symbol.size());
    return length < trimmed.Length() ? trimmed.SubString(length + 1) : trimmed;
}

bool ValueWithUnitToDouble(const UnicodeString& text, double& value)
{
    const auto read = ReadValue(text);
    value = read ? read->value : value;
    return read.has_value();
}

bool ValueWithUnitToDouble(const UnicodeString& text, double& value, UnicodeString& unit)
{
    const auto read = ReadValue(text);
    if (!read) {
        return false;
    }
    unit = UnicodeString(read->rest).TrimRight();
    value = read->value;
    return true;
}

bool ValueWithUnitToDouble(const AnsiString& text, double& value)
{
    return ValueWithUnitToDouble(UnicodeString(text), value);
}

bool ValueWithUnitToDoble(const UnicodeString& text, double& value)
{
    return ValueWithUnitToDouble(text, value);
}

bool ValueWithUnitToDoble(const AnsiString& text, double& value)
{
    return ValueWithUnitToDouble(text, value);
}

UnicodeString ValueWithUnitToStr(double value, const UnicodeString& unit, int precision)
{
    UnicodeString symbol = unit.Trim();
    double factor = 1;
    const bool isKnown = FindUnit(symbol, factor, symbol);
    const UnicodeString blank = symbol.IsEmpty() ? u"" : u" ";
    if (!std::isfinite(value)) {
        return Sysutils::FloatToStr(value) + blank + symbol;
    }
    const int digits = std::clamp(precision, 1, Sysutils::Detail::DoubleDigits);
    Sysutils::Detail::TDecimal number = Sysutils::Detail::ToDecimal(value);
    number.Round(digits);
    if (!isKnown || !UnitOf(symbol.AsView())->takesPrefix) {
        return Sysutils::Detail::GeneralText(number, digits, 0, Sysutils::FormatSettings) + blank + symbol;
    }
    // Powers of ten move the separator alone, so that no digit changes.
    number.exponent += number.count > 0 ? static_cast<int>(std::lround(std::log10(factor))) : 0;
    const int step = StepFor(number);
    number.exponent -= (step - WithoutPrefix) * DigitsOfStep;
    return Sysutils::Detail::GeneralText(number, std::max(digits, DigitsOfStep), 0,
                                         Sysutils::FormatSettings) +
           blank + Steps[static_cast<std::size_t>(step)] + symbol;
}

double ValueWithUnitToDoubleDef(const UnicodeString& text, double defaultValue)
{
    double value = defaultValue;
    ValueWithUnitToDouble(text, value);
    return value;
}

} // namespace BTL
