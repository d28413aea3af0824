// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_STR_String.h"
#include "platform/Export.h"
#include "platform/base/System_Types.h"

namespace UTL
{

// Numbers and zero-terminated text in both widths. The rules are those of the C library in its "C" locale,
// whatever the locale of the process: the decimal point is `.`, white space and digits are those of ASCII. A
// null text counts as empty.
//
//     long count = 0;
//     if (UTL::GetLong("42", count)) { ... }         // the whole text is a number
//     const int number = UTL::ToInt("42 V");         // 42: what the text begins with
//     const UTL::CString text = UTL::IntToString(7);

/// Reads the whole `text` as a decimal number. An empty text gives false and leaves `value` alone; any other
/// writes what could be read, 0 at worst and the nearest limit on an overflow. True if nothing was left over;
/// white space is accepted in front only.
TRS8_BTL_API bool GetLong(const char* text, long& value);
TRS8_BTL_API bool GetLong(const System::WideChar* text, long& value);

/// As `GetLong`, for a float in any form that `strtod` reads; an overflow gives infinity.
TRS8_BTL_API bool GetDouble(const char* text, double& value);
TRS8_BTL_API bool GetDouble(const System::WideChar* text, double& value);

/// The number at the start of `text`, behind white space, as the operator `>>` of a stream reads it: 0 if
/// there is none, the nearest limit on an overflow.
TRS8_BTL_API int ToInt(const char* text);
TRS8_BTL_API int ToInt(const System::WideChar* text);

/// As `ToInt`; the largest float of the sign on an overflow.
TRS8_BTL_API float ToFloat(const char* text);
TRS8_BTL_API float ToFloat(const System::WideChar* text);

/// True if `text` is not empty and holds nothing but digits, with `sign` also one `+` or `-` in front of
/// them, with `blanks` also white space at both ends. No digit is required.
[[nodiscard]] TRS8_BTL_API bool IsDigitString(const char* text, bool sign, bool blanks);
[[nodiscard]] TRS8_BTL_API bool IsDigitString(const System::WideChar* text, bool sign, bool blanks);

/// The decimal text of `value`.
[[nodiscard]] TRS8_BTL_API CString IntToString(int value);
/// `value` with up to 6 significant digits, as a stream writes it.
[[nodiscard]] TRS8_BTL_API CString FloatToString(float value);

} // namespace UTL
