// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_Currency.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/base/numbers/internal/Sysutils_Scaled.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace Sysutils
{

using System::Currency;
using System::Int64;
using System::UInt64;
using System::UnicodeString;
using System::WideChar;

namespace
{

constexpr int Decimals = 4;

/// The ten-thousandths of a text that is known to be a float of `separator` in the range of an `Int64`;
/// nothing if they leave that of a `Currency`.
std::optional<Int64> ReadUnits(std::u16string_view text, WideChar separator)
{
    std::string digits;
    int exponent = Decimals;
    bool afterPoint = false;
    const std::size_t mark = std::min(text.find_first_of(u"eE"), text.size());
    for (const WideChar c : text.substr(0, mark)) {
        if (c == separator) {
            afterPoint = true;
        } else if (System::Detail::IsAsciiDigit(c)) {
            digits += static_cast<char>(c);
            exponent -= afterPoint ? 1 : 0;
        }
    }
    if (mark < text.size()) {
        exponent += StrToInt(UnicodeString(text.substr(mark + 1)).Trim());
    }
    // The units are the digits with `exponent` zeros behind them, or without their last ones.
    const int count = static_cast<int>(digits.size()) + exponent;
    UInt64 units = 0;
    for (int i = 0; i < count; ++i) {
        const bool isDigit = i < static_cast<int>(digits.size());
        const auto digit = static_cast<UInt64>(isDigit ? digits[static_cast<std::size_t>(i)] - '0' : 0);
        if (__builtin_mul_overflow(units, UInt64{10}, &units) ||
            __builtin_add_overflow(units, digit, &units)) {
            return std::nullopt;
        }
    }
    const bool roundsUp = count >= 0 && count < static_cast<int>(digits.size()) &&
                          digits[static_cast<std::size_t>(count)] >= '5';
    units += roundsUp ? 1 : 0;
    const bool negative = text.substr(0, mark).find(u'-') != std::u16string_view::npos;
    constexpr auto max = static_cast<UInt64>(std::numeric_limits<Int64>::max());
    if (units > max + (negative ? 1 : 0)) {
        return std::nullopt;
    }
    return static_cast<Int64>(negative ? 0 - units : units);
}

} // namespace

UnicodeString CurrToStr(Currency value)
{
    return CurrToStr(value, FormatSettings);
}

UnicodeString CurrToStr(Currency value, const TFormatSettings& settings)
{
    return CurrToStrF(value, ffGeneral, 0, settings);
}

UnicodeString CurrToStrF(Currency value, TFloatFormat format, int digits)
{
    return CurrToStrF(value, format, digits, FormatSettings);
}

UnicodeString CurrToStrF(Currency value, TFloatFormat format, int digits, const TFormatSettings& settings)
{
    return ScaledToStrF(value.Val, Decimals, format, digits, settings);
}

UnicodeString FormatCurr(const UnicodeString& format, Currency value)
{
    return FormatCurr(format, value, FormatSettings);
}

UnicodeString FormatCurr(const UnicodeString& format, Currency value, const TFormatSettings& settings)
{
    return FormatScaled(format, value.Val, Decimals, settings);
}

Currency StrToCurr(const UnicodeString& text)
{
    return StrToCurr(text, FormatSettings);
}

Currency StrToCurr(const UnicodeString& text, const TFormatSettings& settings)
{
    Currency value;
    if (!TryStrToCurr(text, value, settings)) {
        ThrowNoFloat(text.AsView());
    }
    return value;
}

Currency StrToCurrDef(const UnicodeString& text, Currency defaultValue)
{
    TryStrToCurr(text, defaultValue);
    return defaultValue;
}

bool TryStrToCurr(const UnicodeString& text, Currency& value)
{
    return TryStrToCurr(text, value, FormatSettings);
}

bool TryStrToCurr(const UnicodeString& text, Currency& value, const TFormatSettings& settings)
{
    double rough = 0;
    if (!BufferToFloat(text.AsView(), settings.DecimalSeparator, rough)) {
        return false;
    }
    // What is far too large or too small ends here, with whatever exponent it has.
    constexpr double tooLarge = 1e16;
    constexpr double tooSmall = 1e-6;
    if (std::abs(rough) > tooLarge) {
        return false;
    }
    const auto units =
        std::abs(rough) < tooSmall ? Int64{0} : ReadUnits(text.AsView(), settings.DecimalSeparator);
    if (units) {
        value = Currency::OfUnits(*units);
    }
    return units.has_value();
}

} // namespace Sysutils
