// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Numbers.h"

#include "foundation/UTL_Links.h"
#include "platform/base/dates/Sysutils_DateReading.h"
#include "platform/base/internal/System_Ascii.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "text/numbers/Pasu_stringtointeger.h"
#include "text/numbers/internal/BTL_NUM_ActiveSeparator.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>

namespace BTL
{

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

template <class Char>
constexpr bool IsPlusOrMinus(Char c)
{
    return c == '+' || c == '-';
}

/// White space by Unicode; the narrow form knows what of it the code page has.
template <class Char>
constexpr bool IsUnicodeSpace(Char character)
{
    const unsigned c = static_cast<std::make_unsigned_t<Char>>(character);
    if (c < 256) {
        return (c >= 9 && c <= 13) || c == 32 || c == 0xA0 || (c == 0x85 && sizeof(Char) > 1);
    }
    return c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F ||
           c == 0x205F || c == 0x3000;
}

template <class Char>
std::size_t CountDigits(View<Char> text, std::size_t from)
{
    const auto rest = text.substr(std::min(from, text.size()));
    const auto end = std::find_if_not(rest.begin(), rest.end(), &IsAsciiDigit<Char>);
    return static_cast<std::size_t>(end - rest.begin());
}

/// The integer at the start of `text`, held within the limits of `Int`. Nothing if no digit stands there.
template <class Int, class Char>
std::optional<Int> ReadStart(View<Char> text)
{
    text.remove_prefix(static_cast<std::size_t>(
        std::find_if_not(text.begin(), text.end(), &IsUnicodeSpace<Char>) - text.begin()));
    bool negative = false;
    if (std::is_signed_v<Int> && !text.empty() && IsPlusOrMinus(text.front())) {
        negative = text.front() == '-';
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
        std::find_if_not(text.begin(), text.end(), &IsUnicodeSpace<Char>) - text.begin()));
    bool negative = false;
    if (!text.empty() && IsPlusOrMinus(text.front())) {
        negative = text.front() == '-';
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
    Pasu_stringtointeger::StringToInteger(text, value, code);
    return code == 0;
}

template <class Char>
using StringOf = std::conditional_t<std::is_same_v<Char, char>, AnsiString, UnicodeString>;

/// What the run-time library is to read. It is made wide first, where any separator has its place.
template <class S>
UnicodeString WideNumberText(const S& text, WideChar separator = Sysutils::DecimalSeparator)
{
    return SetDecimalSeparator(UnicodeString(text), separator).Trim();
}

/// `separator` is what the run-time library is to take the `.` or `,` for.
template <class Char>
bool DoubleInto(View<Char> text, WideChar separator, double& value)
{
    // Most numbers are short and plain; they need no string.
    std::array<WideChar, 32> plain;
    const auto isPlain = [](Char c) { return c > 32 && c < 127; };
    if (text.size() > plain.size() || !std::all_of(text.begin(), text.end(), isPlain)) {
        const UnicodeString number = WideNumberText(StringOf<Char>(text), separator);
        return Sysutils::BufferToFloat(number.AsView(), separator, value);
    }
    WideChar* const end = std::copy(text.begin(), text.end(), plain.begin());
    WideChar* point = std::find(plain.begin(), end, u'.');
    if (point == end) {
        point = std::find(plain.begin(), end, u',');
    }
    if (point != end) {
        *point = separator;
    }
    return Sysutils::BufferToFloat({plain.data(), text.size()}, separator, value);
}

template <class S>
bool DoubleInto(const S& text, double& value)
{
    return DoubleInto(text.AsView(), Sysutils::DecimalSeparator, value);
}

template <class S>
bool IsDoubleOf(const S& text)
{
    double ignored = 0;
    return DoubleInto(text, ignored);
}

template <class S>
double DoubleOf(const S& text)
{
    return Sysutils::StrToFloat(WideNumberText(text));
}

double DoubleOrTimeOf(const UnicodeString& text)
{
    if (text.Pos(Sysutils::TimeSeparator) != 0) {
        return Sysutils::StrToTime(text.Trim());
    }
    return DoubleOf(text);
}

template <class S>
double DoubleOrDefault(const S& text, double defaultValue)
{
    double value = defaultValue;
    DoubleInto(text, value);
    return value;
}

template <class S>
S TrimmedFloat(const S& text)
{
    using Char = typename S::CharType;
    const Char separator = Detail::ActiveSeparator<S>();
    S adapted = AdaptDecimalSeparator(text).Trim();
    if (adapted.Pos(separator) == 0) {
        return adapted;
    }
    View<Char> number = adapted.AsView();
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

struct TFloatFormat
{
    int precision;
    int digits;
};

template <class S>
TFloatFormat FormatOf(const S& text)
{
    const S number = TrimmedFloat(text);
    const int length = number.Length();
    const int separator = number.Pos(Detail::ActiveSeparator<S>());
    return {separator != 0 && length > 1 ? length - 1 : length, separator == 0 ? 0 : length - separator};
}

/// A piece of a text, 0-based; `length` 0 means none.
struct TPiece
{
    std::size_t start;
    std::size_t length;
};

TPiece FindInteger(std::u16string_view text)
{
    const auto first = std::find_if(text.begin(), text.end(), &IsAsciiDigit<WideChar>);
    const auto start = static_cast<std::size_t>(first - text.begin());
    const std::size_t digits = CountDigits(text, start);
    if (digits != 0 && start > 0 && IsPlusOrMinus(text[start - 1])) {
        return {start - 1, digits + 1};
    }
    return {start, digits};
}

/// The length of a separator with digits at `at`, 0 if there is none.
std::size_t FractionLength(std::u16string_view text, std::size_t at)
{
    if (at >= text.size() || (text[at] != '.' && text[at] != ',' && text[at] != Sysutils::DecimalSeparator)) {
        return 0;
    }
    const std::size_t digits = CountDigits(text, at + 1);
    return digits == 0 ? 0 : digits + 1;
}

/// The length of an `E` with what belongs to it at `at`, 0 if neither a sign nor a digit follows it.
std::size_t ExponentLength(std::u16string_view text, std::size_t at)
{
    if (at >= text.size() || (text[at] != 'E' && text[at] != 'e')) {
        return 0;
    }
    const std::size_t sign = at + 1 < text.size() && IsPlusOrMinus(text[at + 1]) ? 1 : 0;
    const std::size_t digits = CountDigits(text, at + 1 + sign);
    if (sign + digits == 0) {
        return 0;
    }
    const std::size_t length = 1 + sign + digits;
    return digits == 0 ? length : length + FractionLength(text, at + length);
}

TPiece FindFloat(std::u16string_view text)
{
    TPiece piece = FindInteger(text);
    if (piece.length != 0) {
        piece.length += FractionLength(text, piece.start + piece.length);
        piece.length += ExponentLength(text, piece.start + piece.length);
    }
    return piece;
}

bool Give(const TPiece& piece, int& position, int& length)
{
    if (piece.length == 0) {
        return false;
    }
    position = static_cast<int>(piece.start) + 1;
    length = static_cast<int>(piece.length);
    return true;
}

/// What the foundation asks of this unit.
template <class Char>
constexpr UTL::TNumberLinks<Char> NumberLinks{
    .ToInt = [](View<Char> text, int& value) { return ReadStartInto(text, value); },
    .ToInt64 = [](View<Char> text, Int64& value) { return ReadStartInto(text, value); },
    .ToDouble = [](View<Char> text,
                   double& value) { return DoubleInto(text, Sysutils::DecimalSeparator, value); }};

[[maybe_unused]] const bool linked = [] {
    UTL::Links().Narrow = NumberLinks<char>;
    UTL::Links().Wide = NumberLinks<WideChar>;
    UTL::Links().ToDouble = &DoubleInto<WideChar>;
    return true;
}();

} // namespace

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

bool IsDouble(const UnicodeString& text)
{
    return IsDoubleOf(text);
}

bool IsDouble(const AnsiString& text)
{
    return IsDoubleOf(text);
}

bool ToDouble(const UnicodeString& text, double& value)
{
    return DoubleInto(text, value);
}

bool ToDouble(const AnsiString& text, double& value)
{
    return DoubleInto(text, value);
}

double ToDouble(const UnicodeString& text)
{
    return DoubleOf(text);
}

double ToDouble(const AnsiString& text)
{
    return DoubleOf(text);
}

double ToDoubleEx(const UnicodeString& text)
{
    return DoubleOrTimeOf(text);
}

double ToDoubleEx(const AnsiString& text)
{
    return DoubleOrTimeOf(text);
}

double ToDoubleDef(const UnicodeString& text, double defaultValue)
{
    return DoubleOrDefault(text, defaultValue);
}

double ToDoubleDef(const AnsiString& text, double defaultValue)
{
    return DoubleOrDefault(text, defaultValue);
}

double ToDoubleDef(const WideChar* text, double defaultValue)
{
    return DoubleOrDefault(UnicodeString(text), defaultValue);
}

double ToDoubleDef(const char* text, double defaultValue)
{
    return DoubleOrDefault(AnsiString(text), defaultValue);
}

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
    return FormatOf(text).precision;
}

int GetPrecision(const AnsiString& text)
{
    return FormatOf(text).precision;
}

int GetDigits(const UnicodeString& text)
{
    return FormatOf(text).digits;
}

int GetDigits(const AnsiString& text)
{
    return FormatOf(text).digits;
}

void GetFloatFormat(const UnicodeString& text, int& precision, int& digits)
{
    const TFloatFormat format = FormatOf(text);
    precision = format.precision;
    digits = format.digits;
}

void GetFloatFormat(const AnsiString& text, int& precision, int& digits)
{
    const TFloatFormat format = FormatOf(text);
    precision = format.precision;
    digits = format.digits;
}

bool Find1stInt(const UnicodeString& text, int& position, int& length)
{
    return Give(FindInteger(text.AsView()), position, length);
}

bool Find1stFloat(const UnicodeString& text, int& position, int& length)
{
    return Give(FindFloat(text.AsView()), position, length);
}

UnicodeString Cut1stFloat(const UnicodeString& text, int& position)
{
    int length = 0;
    position = 0;
    return Find1stFloat(text, position, length) ? text.SubString(position, length) : UnicodeString();
}

UnicodeString Cut1stFloat(const UnicodeString& text)
{
    int ignored = 0;
    return Cut1stFloat(text, ignored);
}

} // namespace BTL
