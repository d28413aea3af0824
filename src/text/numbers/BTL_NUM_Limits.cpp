// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Limits.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/base/internal/System_TextBuffer.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_Units.h"
#include "text/numbers/internal/BTL_NUM_FindFloat.h"

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

using TView = std::u16string_view;

/// Why a text tells no limits, and the piece of it where that shows. A piece may be empty, but it lies within
/// the text.
struct TFault
{
    const WideChar* why;
    TView piece;
};

/// Notes the fault, for a caller that gives nothing.
std::nullopt_t Refuse(TFault& fault, const WideChar* why, TView piece)
{
    fault = {why, piece};
    return std::nullopt;
}

/// A number with what stands behind it.
struct TQuantity
{
    TView text;
    double value = 0;
    UnicodeString unit;
};

/// False where a number goes on or more limits follow.
bool IsUnitText(TView text)
{
    return text.find_first_of(u"<=>\u2264\u2265\u2026") == TView::npos && text.find(u"..") == TView::npos &&
           (text.empty() || TView(u"0123456789.,+-\u2212").find(text.front()) == TView::npos);
}

/// Nothing for a text that begins with anything but a number, or has more than a unit behind it.
std::optional<TQuantity> ReadQuantity(TView text, TFault& fault)
{
    TQuantity result;
    result.text = System::Detail::WithoutBlanks(text);
    const TView found = Detail::FindFloat(result.text);
    if (found.empty()) {
        return Refuse(fault, u"a number is missing", result.text);
    }
    // From the start of the text, since ".5" is found as 5.
    const auto end = static_cast<std::size_t>(found.data() - result.text.data()) + found.size();
    const TView number = result.text.substr(0, end);
    if (!ToDouble(number, result.value)) {
        return Refuse(fault, u"this is no number, or one that is too large", number);
    }
    const TView unit = System::Detail::WithoutBlanks(result.text.substr(end));
    if (!IsUnitText(unit)) {
        return Refuse(fault, u"more than a unit stands behind the number", unit);
    }
    result.unit = UnicodeString(unit);
    return result;
}

/// `value` times the power of ten `factor`. A fraction is no exact number, but what it divides by is.
double Scaled(double value, double factor)
{
    return factor < 1 ? value / std::round(1 / factor) : value * factor;
}

/// Gives the value in the unit without its prefix; false if it gets too large by that.
bool TakePrefixOff(TQuantity& quantity)
{
    double factor = 1;
    if (FindUnit(quantity.unit, factor, quantity.unit)) {
        quantity.value = Scaled(quantity.value, factor);
    }
    return std::isfinite(quantity.value);
}

/// The ends of a range as they are written; a missing end is nothing.
struct TLimitTexts
{
    std::optional<TView> lower;
    std::optional<TView> upper;
};

/// The first sign of a range in `text`, empty if there is none. Of dots the most are taken that make a sign.
TView FindRangeSign(TView text)
{
    const std::size_t dots = text.find(u"..");
    const std::size_t ellipsis = text.find(u'\u2026');
    if (ellipsis < dots) {
        return text.substr(ellipsis, 1);
    }
    if (dots == TView::npos) {
        return {};
    }
    return text.substr(dots, text.substr(dots).starts_with(u"...") ? 3 : 2);
}

/// A range, one of whose limits may be absent; a unit may still stand in the place of the upper one.
TLimitTexts CutRange(TView text, TView sign)
{
    const auto signBegin = static_cast<std::size_t>(sign.data() - text.data());
    const TView lower = System::Detail::WithoutBlanks(text.substr(0, signBegin));
    const TView upper = System::Detail::WithoutBlanks(text.substr(signBegin + sign.size()));
    if (lower.empty()) {
        return {std::nullopt, upper};
    }
    if (upper.empty()) {
        return {lower, std::nullopt};
    }
    return {lower, upper};
}

std::optional<TLimitTexts> CutLimits(TView text, TFault& fault)
{
    const auto behind = [&](TView sign) { return text.substr(sign.size()); };
    for (const TView sign : {u"<=", u"\u2264"}) {
        if (text.starts_with(sign)) {
            return TLimitTexts{std::nullopt, behind(sign)};
        }
    }
    for (const TView sign : {u">=", u"\u2265"}) {
        if (text.starts_with(sign)) {
            return TLimitTexts{behind(sign), std::nullopt};
        }
    }
    if (text.starts_with(u'=')) {
        return TLimitTexts{behind(u"="), behind(u"=")};
    }
    const TView sign = FindRangeSign(text);
    if (sign.empty()) {
        return Refuse(fault, u"one of <=, >=, = and ... is missing", text);
    }
    return CutRange(text, sign);
}

/// The unit of "10 ... kV", which has no upper limit.
std::optional<TView> UnitOfAbsentLimit(const TLimitTexts& texts)
{
    const bool isUnit = texts.lower && texts.upper && IsUnitText(*texts.upper) &&
                        texts.upper->find_first_of(u"0123456789") == TView::npos;
    return isUnit ? texts.upper : std::nullopt;
}

struct TLimitsWithUnit
{
    TLimits limits;
    UnicodeString unit;
};

/// Gives both limits one unit, that of an absent limit, or of one of them, for the other.
void ShareUnit(TQuantity& lower, TQuantity& upper, const std::optional<TView>& unit)
{
    if (unit) {
        lower.unit = upper.unit = UnicodeString(*unit);
    } else if (lower.unit.IsEmpty()) {
        lower.unit = upper.unit;
    } else if (upper.unit.IsEmpty()) {
        upper.unit = lower.unit;
    }
}

/// Nothing for a text that tells no limits.
std::optional<TLimitsWithUnit> ReadLimits(TView text, TFault& fault)
{
    const TView trimmed = System::Detail::WithoutBlanks(text);
    if (trimmed.empty()) {
        return TLimitsWithUnit();
    }
    std::optional<TLimitTexts> texts = CutLimits(trimmed, fault);
    if (!texts) {
        return std::nullopt;
    }
    const auto unit = UnitOfAbsentLimit(*texts);
    if (unit) {
        texts->upper = std::nullopt;
    }
    // An absent limit stands for the other one until the units are settled.
    auto lower = ReadQuantity(texts->lower ? *texts->lower : *texts->upper, fault);
    auto upper = lower && texts->lower && texts->upper ? ReadQuantity(*texts->upper, fault) : lower;
    if (!lower || !upper) {
        return std::nullopt;
    }
    if (unit && !lower->unit.IsEmpty()) {
        return Refuse(fault, u"a number is missing", *unit);
    }
    ShareUnit(*lower, *upper, unit);
    for (TQuantity* const quantity : {&*lower, &*upper}) {
        if (!TakePrefixOff(*quantity)) {
            return Refuse(fault, u"the number is too large", quantity->text);
        }
    }
    if (lower->unit != upper->unit) {
        return Refuse(fault, u"the limits differ in their units", upper->text);
    }
    if (lower->value > upper->value) {
        return Refuse(fault, u"the lower limit is above the upper one", lower->text);
    }
    TLimitsWithUnit result{{}, lower->unit};
    result.limits.lower = texts->lower ? std::optional(lower->value) : std::nullopt;
    result.limits.upper = texts->upper ? std::optional(upper->value) : std::nullopt;
    return result;
}

} // namespace

bool IsWithin(double value, const TLimits& limits) noexcept
{
    return (!limits.lower || value >= *limits.lower) && (!limits.upper || value <= *limits.upper);
}

bool ParseLimits(TView text, TLimits& limits, UnicodeString& unit)
{
    TFault ignored{};
    const auto read = ReadLimits(text, ignored);
    if (read) {
        limits = read->limits;
        unit = read->unit;
    }
    return read.has_value();
}

bool ParseLimits(TView text, TLimits& limits)
{
    UnicodeString ignored;
    return ParseLimits(text, limits, ignored);
}

TLimits ParseLimits(TView text)
{
    UnicodeString ignored;
    return ParseLimits(text, ignored);
}

TLimits ParseLimits(TView text, UnicodeString& unit)
{
    TFault fault{};
    if (const auto read = ReadLimits(text, fault)) {
        unit = read->unit;
        return read->limits;
    }
    const auto place = static_cast<System::Int64>(fault.piece.data() - text.data()) + 1;
    throw Sysutils::EConvertError(u"'" + UnicodeString(text) + u"' tells no limits: " +
                                  UnicodeString(fault.why) + u" (character " + UnicodeString(place) + u")");
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
