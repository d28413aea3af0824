// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Integers.h"

#include "foundation/UTL_Links.h"
#include "platform/base/internal/System_Ascii.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "text/numbers/Pasu_stringtointeger.h"
#include "text/numbers/internal/BTL_NUM_Sign.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>

namespace BTL
{

using Detail::IsMinus;
using Detail::IsPlusOrMinus;
using System::AnsiString;
using System::Int64;
using System::UInt64;
using System::UnicodeString;
using System::WideChar;
using System::Detail::AsciiHexValue;
using System::Detail::IsAsciiDigit;

namespace
{

template <class Char>
using View = std::basic_string_view<Char>;

/// White space of the encoding: by Unicode if wide, and if narrow what of it the code page has.
template <class Char>
constexpr bool IsSpaceInEncoding(Char character)
{
    const unsigned c = static_cast<std::make_unsigned_t<Char>>(character);
    if (c < 256) {
        return (c >= 9 && c <= 13) || c == 32 || c == 0xA0 || (c == 0x85 && sizeof(Char) > 1);
    }
    return c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F ||
           c == 0x205F || c == 0x3000;
}

/// The integer at the start of `text`, held within the limits of `Int`. Nothing if no digit stands there.
template <class Int, class Char>
std::optional<Int> ReadStart(View<Char> text)
{
    text.remove_prefix(static_cast<std::size_t>(
        std::find_if_not(text.begin(), text.end(), &IsSpaceInEncoding<Char>) - text.begin()));
    bool negative = false;
    if (std::is_signed_v<Int> && !text.empty() && IsPlusOrMinus(text.front())) {
        negative = IsMinus(text.front());
        text.remove_prefix(1);
    }
    if (text.empty() || !IsAsciiDigit(text.front())) {
        return std::nullopt;
    }
    Int value = 0;
    for (const Char c : text) {
        if (!IsAsciiDigit(c)) {
            break;
        }
        const auto digit = static_cast<Int>(c - '0');
        if (__builtin_mul_overflow(value, Int{10}, &value) ||
            (negative ? __builtin_sub_overflow(value, digit, &value)
                      : __builtin_add_overflow(value, digit, &value))) {
            return negative ? std::numeric_limits<Int>::min() : std::numeric_limits<Int>::max();
        }
    }
    return value;
}

template <class Int, class Char>
bool ReadStartInto(View<Char> text, Int& value)
{
    const auto read = ReadStart<Int>(text);
    if (read) {
        value = *read;
    }
    return read.has_value();
}

template <class Char>
std::optional<int> ReadHex(View<Char> text)
{
    text.remove_prefix(static_cast<std::size_t>(
        std::find_if_not(text.begin(), text.end(), &IsSpaceInEncoding<Char>) - text.begin()));
    bool negative = false;
    if (!text.empty() && IsPlusOrMinus(text.front())) {
        negative = IsMinus(text.front());
        text.remove_prefix(1);
    }
    if (text.size() >= 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        text.remove_prefix(2);
    }
    if (text.empty() || AsciiHexValue(text.front()) < 0) {
        return std::nullopt;
    }
    constexpr UInt64 limit = std::numeric_limits<unsigned>::max();
    UInt64 value = 0;
    for (const Char c : text) {
        const int digit = AsciiHexValue(c);
        if (digit < 0) {
            break;
        }
        value = std::min(limit, value * 16 + static_cast<UInt64>(digit));
    }
    const auto bits = static_cast<unsigned>(value);
    return static_cast<int>(negative ? 0U - bits : bits);
}

template <class S>
bool HexInto(const S& text, int& value)
{
    const auto read = ReadHex(text.TrimLeft().AsView());
    if (read) {
        value = *read;
    }
    return read.has_value();
}

template <class S>
bool IsIntegerOf(const S& text)
{
    if (text.IsEmpty() || text[1] == ' ' || text[1] == 'x' || text[1] == 'X') {
        return false;
    }
    int value = 0;
    int code = 0;
    Pasu_stringtointeger::StringToInteger(Detail::WithHyphens(text), value, code);
    return code == 0;
}

/// What the foundation asks of this unit.
template <class Char>
void LinkTo(UTL::TNumberLinks<Char>& links)
{
    links.ToInt = [](View<Char> text, int& value) { return ReadStartInto(text, value); };
    links.ToInt64 = [](View<Char> text, Int64& value) { return ReadStartInto(text, value); };
}

[[maybe_unused]] const bool linked = [] {
    LinkTo(UTL::Links().Narrow);
    LinkTo(UTL::Links().Wide);
    return true;
}();

} // namespace

bool Detail::ReadInt(std::u16string_view text, int& value)
{
    return ReadStartInto(text, value);
}

bool Detail::ReadInt(std::string_view text, int& value)
{
    return ReadStartInto(text, value);
}

bool Detail::ReadInt(std::u16string_view text, Int64& value)
{
    return ReadStartInto(text, value);
}

bool Detail::ReadInt(std::string_view text, Int64& value)
{
    return ReadStartInto(text, value);
}

UnicodeString FormatInt(const UnicodeString& format, int value)
{
    return Sysutils::FormatFloat(format, static_cast<double>(value));
}

AnsiString FormatInt(const AnsiString& format, int value)
{
    return FormatInt(UnicodeString(format), value);
}

UnicodeString FormatInt64(const UnicodeString& format, Int64 value)
{
    return Sysutils::FormatFloat(format, static_cast<System::Extended>(value));
}

AnsiString FormatInt64(const AnsiString& format, Int64 value)
{
    return FormatInt64(UnicodeString(format), value);
}

bool IsInt(const UnicodeString& text)
{
    return IsIntegerOf(text.TrimLeft());
}

bool IsInt(const AnsiString& text)
{
    return IsIntegerOf(text.TrimLeft());
}

bool IsIntStrong(const UnicodeString& text)
{
    return IsIntegerOf(text);
}

bool IsIntStrong(const AnsiString& text)
{
    return IsIntegerOf(text);
}

bool ToInt(const UnicodeString& text, int& value)
{
    return ReadStartInto(text.AsView(), value);
}

bool ToInt(const AnsiString& text, int& value)
{
    return ReadStartInto(text.AsView(), value);
}

bool ToInt(const UnicodeString& text, Int64& value)
{
    return ReadStartInto(text.AsView(), value);
}

bool ToInt(const AnsiString& text, Int64& value)
{
    return ReadStartInto(text.AsView(), value);
}

bool StrToInt64(const UnicodeString& text, Int64& value)
{
    return ReadStartInto(text.AsView(), value);
}

bool StrToInt64(const AnsiString& text, Int64& value)
{
    return ReadStartInto(text.AsView(), value);
}

Int64 StrToInt64Def(const UnicodeString& text, Int64 defaultValue)
{
    return ReadStart<Int64>(text.AsView()).value_or(defaultValue);
}

Int64 StrToInt64Def(const AnsiString& text, Int64 defaultValue)
{
    return ReadStart<Int64>(text.AsView()).value_or(defaultValue);
}

bool IsIntType(const UnicodeString& text)
{
    return ReadStart<Int64>(text.AsView()).has_value();
}

bool IsIntType(const AnsiString& text)
{
    return ReadStart<Int64>(text.AsView()).has_value();
}

bool StrToUInt(const UnicodeString& text, unsigned& value)
{
    return ReadStartInto(text.AsView(), value);
}

bool StrToUInt64(const UnicodeString& text, UInt64& value)
{
    return ReadStartInto(text.AsView(), value);
}

UInt64 StrToUInt64Def(const UnicodeString& text, UInt64 defaultValue)
{
    return ReadStart<UInt64>(text.AsView()).value_or(defaultValue);
}

bool HexToInt(const UnicodeString& text, int& value)
{
    return HexInto(text, value);
}

bool HexToInt(const AnsiString& text, int& value)
{
    return HexInto(text, value);
}

int HexToInt(const UnicodeString& text)
{
    return ReadHex(text.TrimLeft().AsView()).value_or(0);
}

int HexToInt(const AnsiString& text)
{
    return ReadHex(text.TrimLeft().AsView()).value_or(0);
}

} // namespace BTL
