// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_Integer.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/internal/System_Ascii.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>

namespace Sysutils
{

namespace
{

using System::Int64;
using System::UInt64;
using System::UnicodeString;
using System::WideChar;
using System::Detail::AsciiHexValue;

/// The text of an integer, read as far as it fits.
template <class Integer>
struct TReading
{
    Integer value = 0;
    /// 0-based; the length of the text if all of it fits.
    std::size_t end = 0;
    bool complete = false;
};

/// The length of a prefix that announces hexadecimal digits.
std::size_t HexPrefix(std::u16string_view text)
{
    const auto isX = [](WideChar c) { return c == u'x' || c == u'X'; };
    if (!text.empty() && (text[0] == u'$' || isX(text[0]))) {
        return 1;
    }
    return text.size() > 1 && text[0] == u'0' && isX(text[1]) ? 2 : 0;
}

template <class Integer>
TReading<Integer> ReadInteger(std::u16string_view text)
{
    using Unsigned = std::make_unsigned_t<Integer>;
    std::size_t at = std::min(text.find_first_not_of(u' '), text.size());
    const bool negative = at < text.size() && text[at] == u'-';
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) {
        ++at;
    }
    const std::size_t prefix = HexPrefix(text.substr(at));
    at += prefix;
    const Unsigned base = prefix > 0 ? 16 : 10;
    // A hexadecimal number may fill all bits, a decimal one must leave room for the sign.
    const Unsigned limit =
        prefix > 0 ? std::numeric_limits<Unsigned>::max()
                   : static_cast<Unsigned>(std::numeric_limits<Integer>::max()) + (negative ? 1U : 0U);
    const std::size_t first = at;
    Unsigned value = 0;
    for (; at < text.size(); ++at) {
        const int digit = AsciiHexValue(text[at]);
        if (digit < 0 || digit >= static_cast<int>(base)) {
            break;
        }
        const auto added = static_cast<Unsigned>(digit);
        if (value > (limit - added) / base) {
            break;
        }
        value = value * base + added;
    }
    return {static_cast<Integer>(negative ? Unsigned(0) - value : value), at,
            at == text.size() && at > first};
}

template <class Integer>
void ValOf(const UnicodeString& text, Integer& value, int& code)
{
    const TReading<Integer> reading = ReadInteger<Integer>(text.AsView());
    value = reading.value;
    code = reading.complete ? 0 : static_cast<int>(reading.end) + 1;
}

template <class Integer>
std::optional<Integer> ToInteger(const UnicodeString& text)
{
    const TReading<Integer> reading = ReadInteger<Integer>(text.AsView());
    return reading.complete ? std::optional(reading.value) : std::nullopt;
}

template <class Integer>
bool TryInto(const UnicodeString& text, Integer& value)
{
    const std::optional<Integer> read = ToInteger<Integer>(text);
    value = read.value_or(value);
    return read.has_value();
}

template <class Integer>
Integer IntegerOrThrow(const UnicodeString& text)
{
    if (const std::optional<Integer> value = ToInteger<Integer>(text)) {
        return *value;
    }
    throw EConvertError(u"'" + text + u"' is not a valid integer value");
}

UnicodeString HexText(UInt64 value, int digits)
{
    constexpr int maxDigits = 64;
    const int used = (64 - std::countl_zero(value | 1) + 3) / 4;
    UnicodeString text(System::GSharedText<WideChar>::Uninitialized(
        static_cast<std::size_t>(std::max(std::clamp(digits, 0, maxDigits), used))));
    WideChar* const begin = text.UniqueData();
    for (WideChar* out = begin + text.Length(); out != begin; value /= 16) {
        *--out = static_cast<WideChar>("0123456789ABCDEF"[value % 16]);
    }
    return text;
}

} // namespace

UnicodeString IntToStr(Int64 value)
{
    return UnicodeString(value);
}

UnicodeString UIntToStr(UInt64 value)
{
    return UnicodeString(value);
}

UnicodeString IntToHex(int value, int digits)
{
    return HexText(static_cast<unsigned>(value), digits);
}

UnicodeString IntToHex(Int64 value, int digits)
{
    return HexText(static_cast<UInt64>(value), digits);
}

int StrToInt(const UnicodeString& text)
{
    return IntegerOrThrow<int>(text);
}

int StrToIntDef(const UnicodeString& text, int defaultValue)
{
    return ToInteger<int>(text).value_or(defaultValue);
}

bool TryStrToInt(const UnicodeString& text, int& value)
{
    return TryInto(text, value);
}

Int64 StrToInt64(const UnicodeString& text)
{
    return IntegerOrThrow<Int64>(text);
}

Int64 StrToInt64Def(const UnicodeString& text, Int64 defaultValue)
{
    return ToInteger<Int64>(text).value_or(defaultValue);
}

bool TryStrToInt64(const UnicodeString& text, Int64& value)
{
    return TryInto(text, value);
}

} // namespace Sysutils

namespace System
{

void Val(const UnicodeString& text, int& value, int& code)
{
    Sysutils::ValOf(text, value, code);
}

void Val(const UnicodeString& text, Int64& value, int& code)
{
    Sysutils::ValOf(text, value, code);
}

} // namespace System
