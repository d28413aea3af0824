// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Floats.h"

#include "foundation/UTL_Links.h"
#include "platform/base/Sysutils_Locale.h"
#include "platform/base/dates/Sysutils_DateReading.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "text/numbers/BTL_NUM_SetDecimalSeparator.h"
#include "text/numbers/internal/BTL_NUM_Sign.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <type_traits>

namespace BTL
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

namespace
{

template <class Char>
using View = std::basic_string_view<Char>;

template <class Char>
using StringOf = std::conditional_t<std::is_same_v<Char, char>, AnsiString, UnicodeString>;

/// What the run-time library is to read. It is made wide first, where any separator has its place.
template <class S>
UnicodeString WideNumberText(const S& text, WideChar separator)
{
    return Detail::WithHyphens(SetDecimalSeparator(UnicodeString(text), separator).Trim());
}

/// What is no blank and has no meaning to a number but the one that it is given.
template <class Char>
constexpr bool IsPlain(Char c)
{
    return c > 32 && c < 127;
}

/// A character of 8 bits beyond ASCII is in no number, so it needs no code page to stay in none.
template <class Char>
constexpr WideChar NumberCharacter(Char c)
{
    return Detail::IsMinus(c) ? u'-' : static_cast<WideChar>(static_cast<std::make_unsigned_t<Char>>(c));
}

/// `separator` is what the run-time library is to take the `.` or `,` for.
template <class Char>
bool DoubleInto(View<Char> text, WideChar separator, double& value)
{
    // Most numbers are short; they need no string.
    std::array<WideChar, 32> number;
    const View<Char> trimmed = System::Detail::WithoutBlanks(text);
    if (trimmed.size() > number.size() || !IsPlain(separator)) {
        const UnicodeString whole = WideNumberText(StringOf<Char>(text), separator);
        return Sysutils::BufferToFloat(whole.AsView(), separator, value);
    }
    WideChar* const end =
        std::transform(trimmed.begin(), trimmed.end(), number.begin(), &NumberCharacter<Char>);
    // A text with both is no number, whichever of them is taken.
    const auto isPoint = [](WideChar c) { return c == u'.' || c == u','; };
    if (WideChar* const point = std::find_if(number.begin(), end, isPoint); point != end) {
        *point = separator;
    }
    return Sysutils::BufferToFloat({number.data(), trimmed.size()}, separator, value);
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

/// The fault quotes what was given, not what the run-time library would have read.
template <class S>
double DoubleOf(const S& text)
{
    double value = 0;
    if (!DoubleInto(text, value)) {
        Sysutils::ThrowNoFloat(UnicodeString(text).AsView());
    }
    return value;
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

/// What the foundation asks of this unit.
template <class Char>
void LinkTo(UTL::TNumberLinks<Char>& links)
{
    links.ToDouble = [](View<Char> text, double& value) { return Detail::ReadDouble(text, value); };
}

[[maybe_unused]] const bool linked = [] {
    LinkTo(UTL::Links().Narrow);
    LinkTo(UTL::Links().Wide);
    UTL::Links().ToDouble = &DoubleInto<WideChar>;
    return true;
}();

} // namespace

bool Detail::ReadDouble(std::u16string_view text, double& value)
{
    return DoubleInto(text, Sysutils::DecimalSeparator, value);
}

bool Detail::ReadDouble(std::string_view text, double& value)
{
    return DoubleInto(text, Sysutils::DecimalSeparator, value);
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

} // namespace BTL
