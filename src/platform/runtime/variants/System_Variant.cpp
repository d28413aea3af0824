// SPDX-License-Identifier: MIT
#include "platform/runtime/variants/System_Variant.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_DateReading.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/base/internal/System_Ascii.h"
#include "platform/base/numbers/Sysutils_Currency.h"
#include "platform/runtime/variants/Variants.h"
#include "platform/runtime/variants/internal/System_VariantValue.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <ostream>
#include <string>

namespace System
{

namespace Detail
{

namespace
{

using Sysutils::EVariantError;

/// Nothing for what isn't digits alone, with blanks around.
std::optional<UInt64> TryUnsigned(const UnicodeString& text)
{
    constexpr auto belongs = [](WideChar c) { return IsAsciiDigit(c) || c <= 32; };
    if (!std::all_of(text.begin(), text.end(), belongs)) {
        return std::nullopt;
    }
    const std::string digits = ToUtf8(text.Trim());
    UInt64 value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return value;
}

std::optional<TVariantNumber> ReadNumber(const UnicodeString& text)
{
    Int64 whole = 0;
    if (Sysutils::TryStrToInt64(text, whole)) {
        return Int128(whole);
    }
    if (const auto large = TryUnsigned(text)) {
        return Int128(*large);
    }
    double real = 0;
    if (Sysutils::TryStrToFloat(text, real)) {
        return real;
    }
    return std::nullopt;
}

UnicodeString TextOf(const Variant& text)
{
    const auto* wide = std::get_if<UnicodeString>(&text.getValue());
    return wide != nullptr ? *wide : UnicodeString(std::get<AnsiString>(text.getValue()));
}

} // namespace

void ThrowVariantCast(const Variant& value, Word to)
{
    const UnicodeString text = value.IsText() ? u" '" + TextOf(value) + u"'" : UnicodeString();
    throw EVariantError(u"Could not convert variant" + text + u" of type (" +
                        Variants::VarTypeAsText(value.Type()) + u") into type (" +
                        Variants::VarTypeAsText(to) + u")");
}

void ThrowVariantOverflow(Word from, Word to)
{
    throw EVariantError(u"Overflow while converting variant of type (" + Variants::VarTypeAsText(from) +
                        u") into type (" + Variants::VarTypeAsText(to) + u")");
}

void ThrowVariantOperation()
{
    throw EVariantError(UnicodeString(u"Invalid variant operation"));
}

std::optional<TVariantNumber> TryNumber(const Variant& value)
{
    if (value.IsText()) {
        const auto* const wide = std::get_if<UnicodeString>(&value.getValue());
        return wide != nullptr ? ReadNumber(*wide) : ReadNumber(TextOf(value));
    }
    if (value.IsArray() || value.IsNull()) {
        return std::nullopt;
    }
    if (value.IsEmpty()) {
        return Int128(0);
    }
    if (const auto* whole = std::get_if<Int64>(&value.getValue())) {
        return Int128(value.Type() == varBoolean ? -*whole : *whole);
    }
    if (const auto* large = std::get_if<UInt64>(&value.getValue())) {
        return Int128(*large);
    }
    if (const auto* money = std::get_if<Currency>(&value.getValue())) {
        return *money;
    }
    return std::get<double>(value.getValue());
}

double ToDouble(const TVariantNumber& number)
{
    return std::visit([](auto value) { return static_cast<double>(value); }, number);
}

std::optional<bool> TryBool(const Variant& value)
{
    if (value.IsText()) {
        const UnicodeString text = TextOf(value);
        if (text.CompareIC(u"True") == 0) {
            return true;
        }
        if (text.CompareIC(u"False") == 0) {
            return false;
        }
    }
    const auto number = TryNumber(value);
    if (!number) {
        return std::nullopt;
    }
    return ToDouble(*number) != 0;
}

std::optional<double> TryDate(const Variant& value)
{
    if (value.IsText()) {
        TDateTime date;
        return Sysutils::TryStrToDateTime(TextOf(value), date) ? std::optional(date.Val) : std::nullopt;
    }
    const auto number = TryNumber(value);
    return number ? std::optional(ToDouble(*number)) : std::nullopt;
}

} // namespace Detail

using Detail::Int128;
using Detail::ThrowVariantCast;
using Detail::ThrowVariantOverflow;

namespace
{

struct TLimits
{
    Int128 min;
    Int128 max;
};

template <class T>
constexpr TLimits LimitsOf = {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};

/// Only for the codes of integers.
constexpr TLimits LimitsOfCode(Word type)
{
    switch (type) {
    case varShortInt:
        return LimitsOf<signed char>;
    case varSmallint:
        return LimitsOf<short>;
    case varInteger:
        return LimitsOf<int>;
    case varByte:
        return LimitsOf<Byte>;
    case varWord:
        return LimitsOf<Word>;
    case varLongWord:
        return LimitsOf<LongWord>;
    case varInt64:
        return LimitsOf<Int64>;
    default:
        return LimitsOf<UInt64>;
    }
}

Detail::TVariantNumber NumberOf(const Variant& value, Word target)
{
    const auto number = Detail::TryNumber(value);
    if (!number) {
        ThrowVariantCast(value, target);
    }
    return *number;
}

Int128 Rounded(double value, Word from, Word target)
{
    constexpr double tooLarge = 0x1p65;
    // Written so that a value that is no number doesn't pass.
    if (!(std::abs(value) < tooLarge)) {
        ThrowVariantOverflow(from, target);
    }
    return static_cast<Int128>(std::nearbyint(value));
}

Int128 Rounded(Currency value)
{
    Int128 whole = value.Val / Currency::Scale;
    const Int64 rest = value.Val % Currency::Scale;
    const Int64 size = 2 * (rest < 0 ? -rest : rest);
    if (size > Currency::Scale || (size == Currency::Scale && whole % 2 != 0)) {
        whole += rest < 0 ? -1 : 1;
    }
    return whole;
}

/// The value as a whole number in the range of the integer type `target`.
Int128 WholeOf(const Variant& value, Word target)
{
    const auto number = NumberOf(value, target);
    Int128 whole = 0;
    if (const auto* real = std::get_if<double>(&number)) {
        whole = Rounded(*real, value.Type(), target);
    } else if (const auto* money = std::get_if<Currency>(&number)) {
        whole = Rounded(*money);
    } else {
        whole = std::get<Int128>(number);
    }
    const TLimits limits = LimitsOfCode(target);
    if (value.Type() == varBoolean && whole < limits.min) {
        return limits.max;
    }
    if (whole < limits.min || whole > limits.max) {
        ThrowVariantOverflow(value.Type(), target);
    }
    return whole;
}

} // namespace

Variant Variant::AsType(Word type) const
{
    if (type == mType || type == varVariant) {
        return *this;
    }
    switch (type) {
    case varShortInt:
    case varSmallint:
    case varInteger:
    case varInt64:
    case varByte:
    case varWord:
    case varLongWord:
        return {type, static_cast<Int64>(WholeOf(*this, type))};
    case varUInt64:
    case varDecimal:
        return {type, static_cast<UInt64>(WholeOf(*this, type))};
    case varSingle:
    case varDouble:
        return {type, ToFloat(type)};
    case varCurrency:
        return ToCurrency();
    case varDate:
        return ToDateTime();
    case varBoolean:
        return ToBool();
    case varString:
        return ToAnsiText();
    case varUString:
    case varOleStr:
        return {type, ToText()};
    default:
        ThrowVariantCast(*this, type);
    }
}

bool Variant::ToBool() const
{
    const auto value = Detail::TryBool(*this);
    if (!value) {
        ThrowVariantCast(*this, varBoolean);
    }
    return *value;
}

Int64 Variant::ToSigned(Word type) const
{
    if (mType == type) {
        return *std::get_if<Int64>(&mValue);
    }
    return static_cast<Int64>(WholeOf(*this, type));
}

UInt64 Variant::ToUnsigned(Word type) const
{
    return static_cast<UInt64>(WholeOf(*this, type));
}

double Variant::ToFloat(Word type) const
{
    const double value = Detail::ToDouble(NumberOf(*this, type));
    if (type != varSingle) {
        return value;
    }
    const bool fits = !(std::abs(value) > std::numeric_limits<float>::max()) || std::isinf(value);
    if (!fits) {
        ThrowVariantOverflow(mType, type);
    }
    return static_cast<double>(static_cast<float>(value));
}

Currency Variant::ToCurrency() const
{
    Currency money;
    // A text doesn't take the way through a float, which may lack its last digits.
    if (IsText() && Sysutils::TryStrToCurr(Detail::TextOf(*this), money)) {
        return money;
    }
    const auto number = NumberOf(*this, varCurrency);
    if (const auto* exact = std::get_if<Currency>(&number)) {
        return *exact;
    }
    try {
        const auto* whole = std::get_if<Int128>(&number);
        return whole != nullptr ? Currency(static_cast<Extended>(*whole))
                                : Currency(std::get<double>(number));
    } catch (const Sysutils::EIntOverflow&) {
        ThrowVariantOverflow(mType, varCurrency);
    }
}

TDateTime Variant::ToDateTime() const
{
    const auto days = Detail::TryDate(*this);
    if (!days) {
        ThrowVariantCast(*this, varDate);
    }
    return *days;
}

UnicodeString Variant::ToText() const
{
    constexpr int singleDigits = 7;
    switch (mType) {
    case varEmpty:
        return {};
    case varBoolean:
        return std::get<Int64>(mValue) != 0 ? u"True" : u"False";
    case varUInt64:
    case varDecimal:
        return Sysutils::UIntToStr(std::get<UInt64>(mValue));
    case varSingle:
        return Sysutils::FloatToStrF(std::get<double>(mValue), Sysutils::ffGeneral, singleDigits, 0);
    case varDouble:
        return Sysutils::FloatToStr(std::get<double>(mValue));
    case varCurrency:
        return Sysutils::CurrToStr(std::get<Currency>(mValue));
    case varDate:
        return Sysutils::DateTimeToStr(std::get<double>(mValue));
    default:
        break;
    }
    if (IsText()) {
        return Detail::TextOf(*this);
    }
    if (IsArray() || IsNull()) {
        ThrowVariantCast(*this, varUString);
    }
    return Sysutils::IntToStr(std::get<Int64>(mValue));
}

AnsiString Variant::ToAnsiText() const
{
    const auto* narrow = std::get_if<AnsiString>(&mValue);
    return narrow != nullptr && IsText() ? *narrow : AnsiString(ToText());
}

std::ostream& operator<<(std::ostream& stream, const Variant& value)
{
    if (value.IsArray() || value.IsNull() || value.IsEmpty()) {
        return stream << u"(" + Variants::VarTypeAsText(value.Type()) + u")";
    }
    return stream << value.ToText();
}

} // namespace System
