// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_FloatText.h"

#include "platform/base/internal/System_Ascii.h"
#include "text/numbers/BTL_NUM_SetDecimalSeparator.h"
#include "text/numbers/internal/BTL_NUM_ActiveSeparator.h"

#include <algorithm>
#include <string_view>

namespace BTL
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;
using System::Detail::IsAsciiDigit;

namespace
{

template <class S>
S TrimmedFloat(const S& text)
{
    using Char = typename S::CharType;
    const Char separator = Detail::ActiveSeparator<S>();
    S adapted = AdaptDecimalSeparator(text).Trim();
    if (adapted.Pos(separator) == 0) {
        return adapted;
    }
    std::basic_string_view<Char> number = adapted.AsView();
    while (number.size() > 1 && number[0] == '0' && number[1] != separator) {
        number.remove_prefix(1);
    }
    while (number.size() > 1 && number.back() == '0' && number[number.size() - 2] != separator) {
        number.remove_suffix(1);
    }
    constexpr Char zero = '0';
    S result;
    if (number.front() == separator) {
        result += zero;
    }
    result.Append(number);
    if (number.back() == separator) {
        result += zero;
    }
    return result;
}

template <class S>
bool BeginsNumber(typename S::CharType c)
{
    return IsAsciiDigit(c) || c == Detail::ActiveSeparator<S>();
}

template <class S>
typename S::CharType PrefixOf(const S& text)
{
    const S trimmed = text.TrimLeft();
    return trimmed.IsEmpty() || BeginsNumber<S>(trimmed[1]) ? typename S::CharType() : trimmed[1];
}

template <class S>
S WithoutPrefix(const S& text)
{
    const auto view = text.AsView();
    const auto begin = std::find_if(view.begin(), view.end(), &BeginsNumber<S>);
    return text.SubString(static_cast<int>(begin - view.begin()) + 1);
}

/// How many characters a canonical float has, and how many of them behind its separator.
struct TFloatSize
{
    int precision;
    int digits;
};

template <class S>
TFloatSize SizeOf(const S& text)
{
    const S number = TrimmedFloat(text);
    const int length = number.Length();
    const int separator = number.Pos(Detail::ActiveSeparator<S>());
    return {separator != 0 && length > 1 ? length - 1 : length, separator == 0 ? 0 : length - separator};
}

} // namespace

UnicodeString TrimFloat(const UnicodeString& text)
{
    return TrimmedFloat(text);
}

AnsiString TrimFloat(const AnsiString& text)
{
    return TrimmedFloat(text);
}

WideChar GetPrefix(const UnicodeString& text)
{
    return PrefixOf(text);
}

char GetPrefix(const AnsiString& text)
{
    return PrefixOf(text);
}

UnicodeString ClearPrefix(const UnicodeString& text)
{
    return WithoutPrefix(text);
}

AnsiString ClearPrefix(const AnsiString& text)
{
    return WithoutPrefix(text);
}

int GetPrecision(const UnicodeString& text)
{
    return SizeOf(text).precision;
}

int GetPrecision(const AnsiString& text)
{
    return SizeOf(text).precision;
}

int GetDigits(const UnicodeString& text)
{
    return SizeOf(text).digits;
}

int GetDigits(const AnsiString& text)
{
    return SizeOf(text).digits;
}

void GetFloatFormat(const UnicodeString& text, int& precision, int& digits)
{
    const TFloatSize size = SizeOf(text);
    precision = size.precision;
    digits = size.digits;
}

void GetFloatFormat(const AnsiString& text, int& precision, int& digits)
{
    const TFloatSize size = SizeOf(text);
    precision = size.precision;
    digits = size.digits;
}

} // namespace BTL
