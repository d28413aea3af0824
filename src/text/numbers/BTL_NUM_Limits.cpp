// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Limits.h"

#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "text/numbers/BTL_NUM_Floats.h"

#include <algorithm>
#include <cmath>
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

/// `text` without the zeros at the end of its fraction, but with at least one decimal.
UnicodeString WithShortFraction(const UnicodeString& text)
{
    const std::u16string_view view = text.AsView();
    const std::size_t separator = view.find(Sysutils::DecimalSeparator);
    const std::size_t exponent = std::min(view.find(u'E'), view.size());
    if (separator >= exponent) {
        return exponent == view.size() ? text + Sysutils::DecimalSeparator + u'0' : text;
    }
    std::u16string_view number = view.substr(0, exponent);
    number = number.substr(0, number.find_last_not_of(u'0') + 1);
    UnicodeString result(number);
    if (number.back() == Sysutils::DecimalSeparator) {
        result += u'0';
    }
    return result.Append(view.substr(exponent));
}

template <class S, class TextOf>
S Range(double upper, double lower, TextOf textOf)
{
    if (upper == lower) {
        return S(" = ") + textOf(upper);
    }
    if (upper == 0.0) {
        return S(" >= ") + textOf(lower);
    }
    if (lower == 0.0) {
        return S(" <= ") + textOf(upper);
    }
    return textOf(std::min(upper, lower)) + S(" ... ") + textOf(std::max(upper, lower));
}

template <class S, class TextOf>
S RangeWithUnit(double upper, double lower, const S* unit, TextOf textOf)
{
    if (upper == 0.0 && lower == 0.0) {
        return S();
    }
    const S range = Range<S>(upper, lower, textOf);
    return unit == nullptr ? range : range + S(" ") + *unit;
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

} // namespace

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
