// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// The text of a float and its parts. Input may use `.` or `,` whatever the active
// `Sysutils::DecimalSeparator` is; the first of them is adapted to it, and there is no thousand separator.
//
//     const auto text = BTL::TrimFloat(u"0012.3400");         // "12.34"
//     const int decimals = BTL::GetDigits(text);              // 2
//     const auto number = BTL::ClearPrefix(u">= 5");          // "5", where `GetPrefix` gives '>'

/// The canonical text of a number: adapted and trimmed; if it has a separator, without needless zeros at both
/// ends and with a digit on each side of the separator. A sign keeps the zeros behind it.
[[nodiscard]] TRS8_BTL_API System::UnicodeString TrimFloat(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API System::AnsiString TrimFloat(const System::AnsiString& text);

/// The first character behind leading blanks, such as a sign or a comparison character; 0 if the text is
/// empty or begins with a digit or the active separator.
[[nodiscard]] TRS8_BTL_API System::WideChar GetPrefix(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API char GetPrefix(const System::AnsiString& text);
/// `text` from its first digit or active separator on; empty if it has neither.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ClearPrefix(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API System::AnsiString ClearPrefix(const System::AnsiString& text);

/// The count of characters of `TrimFloat(text)` without the separator; a sign counts as a digit.
[[nodiscard]] TRS8_BTL_API int GetPrecision(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API int GetPrecision(const System::AnsiString& text);
/// The count of characters behind the separator of `TrimFloat(text)`.
[[nodiscard]] TRS8_BTL_API int GetDigits(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API int GetDigits(const System::AnsiString& text);
/// Both at once: the count of `GetPrecision` and that of `GetDigits`.
TRS8_BTL_API void GetFloatFormat(const System::UnicodeString& text, int& precision, int& digits);
TRS8_BTL_API void GetFloatFormat(const System::AnsiString& text, int& precision, int& digits);

// A literal of 8-bit text.

[[nodiscard]] inline System::AnsiString TrimFloat(const char* text)
{
    return TrimFloat(System::AnsiString(text));
}
[[nodiscard]] inline char GetPrefix(const char* text)
{
    return GetPrefix(System::AnsiString(text));
}
[[nodiscard]] inline System::AnsiString ClearPrefix(const char* text)
{
    return ClearPrefix(System::AnsiString(text));
}
[[nodiscard]] inline int GetPrecision(const char* text)
{
    return GetPrecision(System::AnsiString(text));
}
[[nodiscard]] inline int GetDigits(const char* text)
{
    return GetDigits(System::AnsiString(text));
}
/// As `GetFloatFormat` of a `System::AnsiString`, for a literal.
inline void GetFloatFormat(const char* text, int& precision, int& digits)
{
    GetFloatFormat(System::AnsiString(text), precision, digits);
}

} // namespace BTL
