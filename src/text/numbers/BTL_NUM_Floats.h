// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <string_view>

namespace BTL
{

// Floats read from text. Input may use `.` or `,` whatever the active `Sysutils::DecimalSeparator` is; the
// first of them is adapted to it, and there is no thousand separator. The minus sign U+2212 counts as `-`.
// Forms with a `bool` result write their target only on success.
//
//     double volts = 0;
//     if (BTL::ToDouble(edit, volts)) { ... }                  // "1,5" and "1.5" alike
//     const double limit = BTL::ToDoubleDef(text, 10);         // 10 for what is no number
//     const double factor = BTL::ToDouble(text);               // `EConvertError` for what is no number

/// True if the whole `text`, trimmed, is a number with an optional exponent that a `double` can hold.
[[nodiscard]] TRS8_BTL_API bool IsDouble(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API bool IsDouble(const System::AnsiString& text);
TRS8_BTL_API bool ToDouble(const System::UnicodeString& text, double& value);
TRS8_BTL_API bool ToDouble(const System::AnsiString& text, double& value);
/// `Sysutils::EConvertError` if `text` is no number; the message quotes it as it was given.
TRS8_BTL_API double ToDouble(const System::UnicodeString& text);
TRS8_BTL_API double ToDouble(const System::AnsiString& text);
/// A text with `Sysutils::TimeSeparator` is a time, which gives its part of a day; any other one a number as
/// in `ToDouble`. `Sysutils::EConvertError` if it is neither.
TRS8_BTL_API double ToDoubleEx(const System::UnicodeString& text);
TRS8_BTL_API double ToDoubleEx(const System::AnsiString& text);
TRS8_BTL_API double ToDoubleDef(const System::UnicodeString& text, double defaultValue);
TRS8_BTL_API double ToDoubleDef(const System::AnsiString& text, double defaultValue);
/// A null `text` gives `defaultValue`.
TRS8_BTL_API double ToDoubleDef(const System::WideChar* text, double defaultValue);
TRS8_BTL_API double ToDoubleDef(const char* text, double defaultValue);

namespace Detail
{

TRS8_BTL_API bool ReadDouble(std::u16string_view text, double& value);
TRS8_BTL_API bool ReadDouble(std::string_view text, double& value);

} // namespace Detail

// A piece of a text, such as `Split` gives, is read where it stands.

/// As `ToDouble` of a string with a target.
template <class Char>
bool ToDouble(std::basic_string_view<Char> text, double& value)
{
    return Detail::ReadDouble(text, value);
}
/// As `ToDoubleDef` of a string.
template <class Char>
[[nodiscard]] double ToDoubleDef(std::basic_string_view<Char> text, double defaultValue)
{
    Detail::ReadDouble(text, defaultValue);
    return defaultValue;
}

// A literal of 8-bit text. A null `text` is no number.

[[nodiscard]] inline bool IsDouble(const char* text)
{
    return IsDouble(System::AnsiString(text));
}
inline bool ToDouble(const char* text, double& value)
{
    return ToDouble(System::AnsiString(text), value);
}
inline double ToDouble(const char* text)
{
    return ToDouble(System::AnsiString(text));
}
inline double ToDoubleEx(const char* text)
{
    return ToDoubleEx(System::AnsiString(text));
}

} // namespace BTL
