// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// The text of a float and its parts. Input may use `.` or `,` whatever the active
// `Sysutils::DecimalSeparator` is; the first of them is adapted to it, and there is no thousand separator.

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
TRS8_BTL_API void GetFloatFormat(const System::UnicodeString& text, int& precision, int& digits);
TRS8_BTL_API void GetFloatFormat(const System::AnsiString& text, int& precision, int& digits);

} // namespace BTL
