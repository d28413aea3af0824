// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Limits.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/base/internal/System_TextBuffer.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "text/numbers/BTL_NUM_FindNumber.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_Units.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <string_view>

namespace BTL
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

namespace
{

constexpr long double LargestMeasure = 999999.0L;
constexpr int DefaultPrecision = 6;

UnicodeString WholeNumber(long double value)
{
    constexpr long double int64Range = 0x1p63L;
    if (std::fabs(value) < int64Range) {
        return UnicodeString(static_cast<System::Int64>(value));
    }
    return Sysutils::FloatToStr(value);
}

/// The pieces one behind the other, in a text that is made but once.
template <class S>
S Joined(std::initializer_list<typename S::View> pieces)
{
    System::Detail::GTextBuffer<S> text;
    for (const auto piece : pieces) {
        text.Add(piece);
    }
    return text.Take();
}

/// `text` without the zeros at the end of its fraction, but with at least one decimal.
UnicodeString WithShortFraction(UnicodeString text)
{
    const std::u16string_view view = text.AsView();
    const std::size_t separator = view.find(Sysutils::DecimalSeparator);
    const std::size_t exponent = std::min(view.find(u'E'), view.size());
    if (separator >= exponent) {
        return exponent == view.size() ? Joined<UnicodeString>({view, {&Sysutils::DecimalSeparator, 1}, u"0"})
                                       : text;
    }
    const std::u16string_view number = view.substr(0, view.find_last_not_of(u'0', exponent - 1) + 1);
    const bool isBare = number.back() == Sysutils::DecimalSeparator;
    if (!isBare && number.size() == exponent) {
        return text;
    }
    return Joined<UnicodeString>({number, isBare ? u"0" : u"", view.substr(exponent)});
}

/// A range with its `unit`, each piece taken as it is.
template <class S, class TextOf>
S RangeWithUnit(double upper, double lower, const S* unit, TextOf textOf)
{
    using Char = typename S::CharType;
    static constexpr Char equal[] = {' ', '=', ' '};
    static constexpr Char atLeast[] = {' ', '>', '=', ' '};
    static constexpr Char atMost[] = {' ', '<', '=', ' '};
    static constexpr Char until[] = {' ', '.', '.', '.', ' '};
    static constexpr Char blank[] = {' '};
    using View = typename S::View;
    const View behind = unit == nullptr ? View() : View(blank, 1);
    const View unitText = unit == nullptr ? View() : unit->AsView();
    const auto oneSided = [&](View sign, double limit) {
        return Joined<S>({sign, textOf(limit).AsView(), behind, unitText});
    };
    if (upper == 0.0 && lower == 0.0) {
        return S();
    }
    if (upper == lower) {
        return oneSided({equal, std::size(equal)}, upper);
    }
    if (upper == 0.0) {
        return oneSided({atLeast, std::size(atLeast)}, lower);
    }
    if (lower == 0.0) {
        return oneSided({atMost, std::size(atMost)}, upper);
    }
    return Joined<S>({textOf(std::min(upper, lower)).AsView(), View(until, std::size(until)),
                      textOf(std::max(upper, lower)).AsView(), behind, unitText});
}

template <class S>
S RangeOfTexts(const S& upper, const S& lower)
{
    const auto isBad = [](const S& limit) { return !limit.IsEmpty() && !IsDouble(limit); };
    if (isBad(upper) || isBad(lower) || (upper.IsEmpty() && lower.IsEmpty())) {
        return S();
    }
    if (lower.IsEmpty()) {
        return S("<= ") + upper;
    }
    if (upper.IsEmpty()) {
        return S(">= ") + lower;
    }
    const S none("0");
    return upper == none && lower == none ? S() : lower + S(" ... ") + upper;
}

// Limits with optional ends.

/// A number with what stands behind it.
struct TQuantity
{
    double value = 0;
    UnicodeString unit;
};

/// False where a number goes on or more limits follow.
bool IsUnitText(std::u16string_view text)
{
    using View = std::u16string_view;
    return text.find_first_of(u"<=>\u2264\u2265\u2026") == View::npos && text.find(u"..") == View::npos &&
           (text.empty() || View(u"0123456789.,+-\u2212").find(text.front()) == View::npos);
}

/// Nothing for a text that begins with anything but a number, or has more than a unit behind it.
std::optional<TQuantity> ReadQuantity(std::u16string_view text)
{
    const UnicodeString trimmed = UnicodeString(text).Trim();
    int position = 0;
    int length = 0;
    if (!Find1stFloat(trimmed, position, length)) {
        return std::nullopt;
    }
    // From the start of the text, since ".5" is found as 5.
    const int end = position + length;
    TQuantity result;
    if (!ToDouble(trimmed.SubString(1, end - 1), result.value) || !std::isfinite(result.value)) {
        return std::nullopt;
    }
    result.unit = trimmed.SubString(end).Trim();
    return IsUnitText(result.unit.AsView()) ? std::optional(result) : std::nullopt;
}

/// `value` times the power of ten `factor`. A fraction is no exact number, but what it divides by is.
double Scaled(double value, double factor)
{
    return factor < 1 ? value / std::round(1 / factor) : value * factor;
}

/// Gives the value in the unit without its prefix.
void TakePrefixOff(TQuantity& quantity)
{
    double factor = 1;
    if (FindUnit(quantity.unit, factor, quantity.unit)) {
        quantity.value = Scaled(quantity.value, factor);
    }
}

/// The ends of a range as they are written; a missing end is nothing.
struct TLimitTexts
{
    std::optional<std::u16string_view> lower;
    std::optional<std::u16string_view> upper;
};

std::optional<TLimitTexts> CutLimits(std::u16string_view text)
{
    const auto behind = [&](std::u16string_view sign) { return text.substr(sign.size()); };
    for (const std::u16string_view sign : {u"<=", u"\u2264"}) {
        if (text.starts_with(sign)) {
            return TLimitTexts{std::nullopt, behind(sign)};
        }
    }
    for (const std::u16string_view sign : {u">=", u"\u2265"}) {
        if (text.starts_with(sign)) {
            return TLimitTexts{behind(sign), std::nullopt};
        }
    }
    if (text.starts_with(u'=')) {
        return TLimitTexts{behind(u"="), behind(u"=")};
    }
    for (const std::u16string_view sign : {u"...", u"\u2026"}) {
        if (const std::size_t at = text.find(sign); at != std::u16string_view::npos) {
            return TLimitTexts{text.substr(0, at), text.substr(at + sign.size())};
        }
    }
    return std::nullopt;
}

} // namespace

bool IsWithin(double value, const TLimits& limits) noexcept
{
    return (!limits.lower || value >= *limits.lower) && (!limits.upper || value <= *limits.upper);
}

bool ParseLimits(const UnicodeString& text, TLimits& limits, UnicodeString& unit)
{
    const UnicodeString trimmed = text.Trim();
    if (trimmed.IsEmpty()) {
        limits = TLimits();
        unit = UnicodeString();
        return true;
    }
    const auto texts = CutLimits(trimmed.AsView());
    if (!texts) {
        return false;
    }
    // An absent limit stands for the other one until the units are settled.
    auto lower = ReadQuantity(texts->lower ? *texts->lower : *texts->upper);
    auto upper = ReadQuantity(texts->upper ? *texts->upper : *texts->lower);
    if (!lower || !upper) {
        return false;
    }
    if (lower->unit.IsEmpty()) {
        lower->unit = upper->unit;
    } else if (upper->unit.IsEmpty()) {
        upper->unit = lower->unit;
    }
    TakePrefixOff(*lower);
    TakePrefixOff(*upper);
    if (lower->unit != upper->unit || lower->value > upper->value || !std::isfinite(lower->value) ||
        !std::isfinite(upper->value)) {
        return false;
    }
    limits.lower = texts->lower ? std::optional(lower->value) : std::nullopt;
    limits.upper = texts->upper ? std::optional(upper->value) : std::nullopt;
    unit = lower->unit;
    return true;
}

bool ParseLimits(const UnicodeString& text, TLimits& limits)
{
    UnicodeString ignored;
    return ParseLimits(text, limits, ignored);
}

TLimits ParseLimits(const UnicodeString& text)
{
    TLimits limits;
    if (!ParseLimits(text, limits)) {
        throw Sysutils::EConvertError(u"'" + text + u"' tells no limits");
    }
    return limits;
}

UnicodeString LimitsToStr(const TLimits& limits, const UnicodeString& unit)
{
    if (!limits.lower && !limits.upper) {
        return UnicodeString();
    }
    double factor = 1;
    UnicodeString ignored;
    FindUnit(unit, factor, ignored);
    const auto textOf = [&](double value) { return Sysutils::FloatToStr(Scaled(value, 1 / factor)); };
    const std::u16string_view blank = unit.IsEmpty() ? u"" : u" ";
    if (limits.lower && limits.upper && *limits.lower != *limits.upper) {
        return Joined<UnicodeString>(
            {textOf(*limits.lower).AsView(), u" ... ", textOf(*limits.upper).AsView(), blank, unit.AsView()});
    }
    const std::u16string_view sign = !limits.upper ? u">= " : !limits.lower ? u"<= " : u"= ";
    const double limit = limits.upper ? *limits.upper : *limits.lower;
    return Joined<UnicodeString>({sign, textOf(limit).AsView(), blank, unit.AsView()});
}

UnicodeString MeasureFloatToStrW(long double value, int precision, int digits)
{
    if (!(std::fabs(value) <= LargestMeasure)) {
        return WholeNumber(value);
    }
    const int usedPrecision = precision < 0 ? DefaultPrecision : precision;
    const UnicodeString text = digits < 0
                                   ? Sysutils::FloatToStrF(value, Sysutils::ffGeneral, usedPrecision, 0)
                                   : Sysutils::FloatToStrF(value, Sysutils::ffFixed, usedPrecision, digits);
    return digits == 0 ? text : WithShortFraction(text);
}

AnsiString MeasureFloatToStrA(long double value, int precision, int digits)
{
    return MeasureFloatToStrW(value, precision, digits);
}

UnicodeString GetLimitTextW(double upper, double lower, const UnicodeString* unit)
{
    return RangeWithUnit(upper, lower, unit, [](double value) { return MeasureFloatToStrW(value, -1, -1); });
}

AnsiString GetLimitTextA(double upper, double lower, const AnsiString* unit)
{
    return RangeWithUnit(upper, lower, unit, [](double value) { return MeasureFloatToStrA(value, -1, -1); });
}

UnicodeString GetDateTimeLimitTextW(double upper, double lower, const UnicodeString* unit)
{
    return RangeWithUnit(upper, lower, unit, [](double value) { return Sysutils::TimeToStr(value); });
}

AnsiString GetDateTimeLimitTextA(double upper, double lower, const AnsiString* unit)
{
    return RangeWithUnit(upper, lower, unit,
                         [](double value) { return AnsiString(Sysutils::TimeToStr(value)); });
}

UnicodeString GetLimitText(const UnicodeString& upper, const UnicodeString& lower)
{
    return RangeOfTexts(upper.Trim(), lower.Trim());
}

AnsiString GetLimitText(const AnsiString& upper, const AnsiString& lower)
{
    return RangeOfTexts(upper.Trim(), lower.Trim());
}

} // namespace BTL
