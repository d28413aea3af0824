// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_FloatText.h"

#include "platform/base/numbers/internal/Sysutils_DecimalText.h"
#include "platform/base/numbers/internal/Sysutils_Scaled.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

namespace Sysutils
{

namespace
{

using System::Int64;
using System::UnicodeString;
using System::WideChar;
using namespace Detail;

constexpr int Int64Digits = 19;
constexpr int MaxDecimals = 18;

/// The digits in front of the separator, with thousand separators unless `thousand` is 0.
void AddInteger(CStringText& out, const TDecimal& value, WideChar thousand)
{
    const int places = std::max(value.exponent, 1);
    for (int i = 0; i < places; ++i) {
        if (thousand != 0 && i > 0 && (places - i) % 3 == 0) {
            out.Add(thousand);
        }
        out.Add(value.exponent > 0 ? value.At(i) : '0');
    }
}

void AddFixed(CStringText& out, const TDecimal& value, int decimals, WideChar separator, WideChar thousand)
{
    AddInteger(out, value, thousand);
    if (decimals > 0) {
        out.Add(separator);
    }
    for (int i = 0; i < decimals; ++i) {
        out.Add(value.At(value.exponent + i));
    }
}

UnicodeString ExponentText(TDecimal value, int precision, int exponentDigits, const TFormatSettings& settings)
{
    value.Round(precision);
    CStringText out;
    if (value.negative) {
        out.Add(u'-');
    }
    out.Add(value.At(0));
    out.Add(settings.DecimalSeparator);
    for (int i = 1; i < precision; ++i) {
        out.Add(value.At(i));
    }
    out.Add(u'E');
    AddExponent(out, value.count == 0 ? 0 : value.exponent - 1, EPlusSign::Write, exponentDigits);
    return out.Take();
}

/// Where the currency (`$`), the sign and the amount (`1`) of a negative amount stand.
constexpr std::array<const char16_t*, 16> NegativeMoney = {
    u"($1)", u"-$1",  u"$-1",  u"$1-",  u"(1$)", u"-1$",  u"1-$",   u"1$-",
    u"-1 $", u"-$ 1", u"1 $-", u"$ 1-", u"$ -1", u"1- $", u"($ 1)", u"(1 $)"};
constexpr std::array<const char16_t*, 4> PositiveMoney = {u"$1", u"1$", u"$ 1", u"1 $"};

UnicodeString MoneyText(const UnicodeString& amount, bool negative, const TFormatSettings& settings)
{
    const std::u16string_view pattern = negative
                                            ? NegativeMoney[settings.NegCurrFormat % NegativeMoney.size()]
                                            : PositiveMoney[settings.CurrencyFormat % PositiveMoney.size()];
    UnicodeString result;
    for (const WideChar c : pattern) {
        if (c == u'$') {
            result += settings.CurrencyString;
        } else if (c == u'1') {
            result += amount;
        } else {
            result += c;
        }
    }
    return result;
}

UnicodeString DecimalToStrF(TDecimal value, TFloatFormat format, int precision, int digits,
                            const TFormatSettings& settings)
{
    if (format == ffGeneral) {
        return GeneralText(value, precision, std::clamp(digits, 0, 4), settings);
    }
    if (format == ffExponent) {
        return ExponentText(value, precision, std::clamp(digits, 0, 4), settings);
    }
    const int decimals = std::clamp(digits, 0, MaxDecimals);
    TDecimal rounded = value;
    rounded.Round(std::min(precision, value.exponent + decimals));
    if (rounded.exponent > precision) {
        return GeneralText(value, precision, 0, settings);
    }
    CStringText out;
    const bool negative = std::exchange(rounded.negative, false);
    if (negative && format != ffCurrency) {
        out.Add(u'-');
    }
    AddFixed(out, rounded, decimals, settings.DecimalSeparator,
             format == ffFixed ? WideChar(0) : settings.ThousandSeparator);
    return format == ffCurrency ? MoneyText(out.Take(), negative, settings) : out.Take();
}

/// Whether rounding to `wanted` digits drops a 5 alone: the digits are then half way to the next ones, which
/// the value that they stand for need not be.
bool IsHalfWay(const TDecimal& value, int wanted)
{
    return value.count == wanted + 1 && wanted >= 0 && value.At(wanted) == '5';
}

/// The shortest digits of a value that a `double` holds, which come far faster than those of the wide type.
/// The value and its shortest digits lie on one side of every number of up to 16 digits but themselves, so
/// that they round alike to 15 digits and less. Where they are themselves half way to the next digits, or
/// where more digits count, nothing.
std::optional<TDecimal> QuickDigits(long double value, TFloatFormat format, int precision, int decimals)
{
    const auto narrow = static_cast<double>(value);
    const bool isNormal = std::isnormal(narrow) || narrow == 0;
    if (precision > DoubleDigits || !isNormal || static_cast<long double>(narrow) != value) {
        return std::nullopt;
    }
    const TDecimal result = ShortestDigits(narrow);
    const bool isFloating = format == ffGeneral || format == ffExponent;
    if (IsHalfWay(result, precision) || (!isFloating && IsHalfWay(result, result.exponent + decimals))) {
        return std::nullopt;
    }
    return result;
}

std::optional<TDecimal> QuickDigits(double, TFloatFormat, int, int)
{
    return std::nullopt;
}

template <class Float>
UnicodeString ToStrF(Float value, TFloatFormat format, int precision, int digits,
                     const TFormatSettings& settings)
{
    if (!std::isfinite(value)) {
        return FromAscii(SpecialText(value));
    }
    const int usedPrecision = std::clamp(precision, 2, DigitsOf<Float>);
    const auto quick = QuickDigits(value, format, usedPrecision, std::clamp(digits, 0, MaxDecimals));
    return DecimalToStrF(quick ? *quick : ToDecimal(value), format, usedPrecision, digits, settings);
}

template <class Char>
std::size_t WriteFloat(double value, Char decimalSeparator, Char* out)
{
    if (!std::isfinite(value)) {
        const std::string_view text = SpecialText(value);
        std::copy(text.begin(), text.end(), out);
        return text.size();
    }
    GNumberText<Char> text(out);
    AddGeneral(text, ToDecimal(value), GeneralPrecision, 0, decimalSeparator);
    return text.Length();
}

} // namespace

UnicodeString FloatToStr(double value)
{
    return FloatToStr(value, FormatSettings);
}

UnicodeString FloatToStr(long double value)
{
    return FloatToStr(value, FormatSettings);
}

UnicodeString FloatToStr(double value, const TFormatSettings& settings)
{
    std::array<WideChar, FloatBufferSize> buffer;
    const std::size_t length = FloatToBuffer(value, settings.DecimalSeparator, buffer.data());
    return UnicodeString(std::u16string_view(buffer.data(), length));
}

UnicodeString FloatToStr(long double value, const TFormatSettings& settings)
{
    return ToStrF(value, ffGeneral, GeneralPrecision, 0, settings);
}

UnicodeString FloatToStrF(double value, TFloatFormat format, int precision, int digits)
{
    return ToStrF(value, format, precision, digits, FormatSettings);
}

UnicodeString FloatToStrF(long double value, TFloatFormat format, int precision, int digits)
{
    return ToStrF(value, format, precision, digits, FormatSettings);
}

UnicodeString FloatToStrF(double value, TFloatFormat format, int precision, int digits,
                          const TFormatSettings& settings)
{
    return ToStrF(value, format, precision, digits, settings);
}

UnicodeString FloatToStrF(long double value, TFloatFormat format, int precision, int digits,
                          const TFormatSettings& settings)
{
    return ToStrF(value, format, precision, digits, settings);
}

UnicodeString ScaledToStrF(Int64 units, int decimals, TFloatFormat format, int digits,
                           const TFormatSettings& settings)
{
    return DecimalToStrF(ScaledToDecimal(units, decimals), format, Int64Digits, digits, settings);
}

std::size_t FloatToBuffer(double value, WideChar decimalSeparator, WideChar* out)
{
    return WriteFloat(value, decimalSeparator, out);
}

std::size_t FloatToBuffer(double value, char decimalSeparator, char* out)
{
    return WriteFloat(value, decimalSeparator, out);
}

} // namespace Sysutils

namespace System::Detail
{

GSharedText<WideChar> FloatText(long double value)
{
    return GSharedText<WideChar>(Sysutils::FloatToStr(value).AsView());
}

} // namespace System::Detail
