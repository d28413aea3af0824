// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_FloatReading.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/internal/System_Ascii.h"

#include <array>
#include <cfloat>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <string>
#include <system_error>
#include <type_traits>

namespace Sysutils
{

namespace
{

using System::UInt64;
using System::UnicodeString;
using System::WideChar;
using System::Detail::IsAsciiDigit;

const WideChar* ScanDigits(const WideChar* first, const WideChar* last, UInt64& value)
{
    for (; first != last && IsAsciiDigit(*first); ++first) {
        value = value * 10 + static_cast<UInt64>(*first - u'0');
    }
    return first;
}

std::u16string_view TrimBlanks(std::u16string_view text)
{
    while (text.starts_with(u' ')) {
        text.remove_prefix(1);
    }
    while (text.ends_with(u' ')) {
        text.remove_suffix(1);
    }
    return text;
}

/// Reads a number that is short enough to be exact without a conversion; only a `double` has such a way.
template <class Float>
bool ReadShortWay(std::u16string_view text, WideChar decimalSeparator, Float& value)
{
    if constexpr (std::is_same_v<Float, double>) {
        double read = 0;
        const WideChar* const end = text.data() + text.size();
        if (!text.empty() && ScanShortFloat(text.data(), end, decimalSeparator, read) == end) {
            value = read;
            return true;
        }
    }
    return false;
}

/// Copies a number with a point as its separator and gives the end of the copy, or null if another character
/// than a number's own stands in it or no digit: so no "inf" and no "nan" is read.
char* CopyNumber(std::u16string_view text, WideChar decimalSeparator, char* out)
{
    bool hasDigit = false;
    for (const WideChar c : text) {
        if (IsAsciiDigit(c)) {
            hasDigit = true;
            *out++ = static_cast<char>(c);
        } else if (c == decimalSeparator) {
            *out++ = '.';
        } else if (c == u'e' || c == u'E' || c == u'+' || c == u'-') {
            *out++ = static_cast<char>(c);
        } else {
            return nullptr;
        }
    }
    return hasDigit ? out : nullptr;
}

/// Reads a number beyond the range of the type: too small for it is zero, too large is no number.
template <class Float>
bool ConvertOutOfRange(const std::string& number, Float& value)
{
    static const locale_t plainLocale = newlocale(LC_ALL_MASK, "C", nullptr);
    Float read = 0;
    if constexpr (std::is_same_v<Float, double>) {
        read = strtod_l(number.c_str(), nullptr, plainLocale);
    } else {
        read = strtold_l(number.c_str(), nullptr, plainLocale);
    }
    if (!(std::abs(read) <= 1)) {
        return false;
    }
    value = read;
    return true;
}

template <class Float>
bool ConvertNumber(const char* begin, const char* end, Float& value)
{
    Float read = 0;
    const auto result = std::from_chars(begin, end, read);
    if (result.ptr != end) {
        return false;
    }
    if (result.ec == std::errc::result_out_of_range) {
        return ConvertOutOfRange(std::string(begin, end), value);
    }
    if (result.ec != std::errc()) {
        return false;
    }
    value = read;
    return true;
}

template <class Float>
bool ReadFloat(std::u16string_view text, WideChar decimalSeparator, Float& value)
{
    text = TrimBlanks(text);
    if (text.starts_with(u'+')) {
        text.remove_prefix(1);
        if (text.starts_with(u'-')) {
            return false;
        }
    }
    if (ReadShortWay(text, decimalSeparator, value)) {
        return true;
    }
    constexpr std::size_t shortSize = 64;
    std::array<char, shortSize> shortText;
    std::string longText;
    if (text.size() > shortSize) {
        longText.resize(text.size());
    }
    char* const begin = longText.empty() ? shortText.data() : longText.data();
    const char* const end = CopyNumber(text, decimalSeparator, begin);
    return end != nullptr && ConvertNumber(begin, end, value);
}

} // namespace

double StrToFloat(const UnicodeString& text)
{
    return StrToFloat(text, FormatSettings);
}

double StrToFloat(const UnicodeString& text, const TFormatSettings& settings)
{
    double value = 0;
    if (!TryStrToFloat(text, value, settings)) {
        ThrowNoFloat(text.AsView());
    }
    return value;
}

void ThrowNoFloat(std::u16string_view text)
{
    throw EConvertError(u"'" + UnicodeString(text) + u"' is not a valid floating point value");
}

double StrToFloatDef(const UnicodeString& text, double defaultValue)
{
    TryStrToFloat(text, defaultValue);
    return defaultValue;
}

bool TryStrToFloat(const UnicodeString& text, double& value)
{
    return TryStrToFloat(text, value, FormatSettings);
}

bool TryStrToFloat(const UnicodeString& text, long double& value)
{
    return TryStrToFloat(text, value, FormatSettings);
}

bool TryStrToFloat(const UnicodeString& text, double& value, const TFormatSettings& settings)
{
    return BufferToFloat(text.AsView(), settings.DecimalSeparator, value);
}

bool TryStrToFloat(const UnicodeString& text, long double& value, const TFormatSettings& settings)
{
    return BufferToFloat(text.AsView(), settings.DecimalSeparator, value);
}

bool TextToFloat(const UnicodeString& text, double& value)
{
    return TryStrToFloat(text, value);
}

const WideChar* ScanShortFloat(const WideChar* first, const WideChar* last, WideChar decimalSeparator,
                               double& value)
{
    // The digits and the power of ten behind them are exact as floats: one division then rounds once, as the
    // standard asks for.
    constexpr std::array<double, 20> powers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,
                                               1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19};
    constexpr UInt64 maxExact = UInt64(1) << std::numeric_limits<double>::digits;
    const bool negative = first != last && *first == u'-';
    const WideChar* const digitsBegin = first + (negative ? 1 : 0);
    UInt64 digits = 0;
    const WideChar* end = ScanDigits(digitsBegin, last, digits);
    std::ptrdiff_t count = end - digitsBegin;
    std::ptrdiff_t decimals = 0;
    if (end != last && *end == decimalSeparator) {
        const WideChar* const decimalsBegin = end + 1;
        end = ScanDigits(decimalsBegin, last, digits);
        decimals = end - decimalsBegin;
        count += decimals;
    }
    if (FLT_EVAL_METHOD != 0 || count == 0 || count >= std::ssize(powers) || digits > maxExact) {
        return first;
    }
    const double read = static_cast<double>(digits) / powers[static_cast<std::size_t>(decimals)];
    value = negative ? -read : read;
    return end;
}

bool BufferToFloat(std::u16string_view text, WideChar decimalSeparator, double& value)
{
    return ReadFloat(text, decimalSeparator, value);
}

bool BufferToFloat(std::u16string_view text, WideChar decimalSeparator, long double& value)
{
    return ReadFloat(text, decimalSeparator, value);
}

} // namespace Sysutils
