// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace System
{

/// Reads the whole of `text` as an integer: leading blanks, a sign, decimal digits, or `$`, `0x` or `x` and
/// hexadecimal digits. `code` is 0, or the 1-based place of the first character that doesn't fit, which is
/// also where the number leaves the range; `value` then is what was read before.
TRS8_BTL_API void Val(const UnicodeString& text, int& value, int& code);
TRS8_BTL_API void Val(const UnicodeString& text, Int64& value, int& code);

} // namespace System

namespace Sysutils
{

/// Decimal digits, behind a `-` if the value is negative.
TRS8_BTL_API System::UnicodeString IntToStr(System::Int64 value);
TRS8_BTL_API System::UnicodeString UIntToStr(System::UInt64 value);
/// At least `digits` upper-case hexadecimal digits; a negative value as its two's complement.
TRS8_BTL_API System::UnicodeString IntToHex(int value, int digits);
TRS8_BTL_API System::UnicodeString IntToHex(System::Int64 value, int digits);

/// The forms of an integer that `System::Val` reads. `EConvertError` for any other text or a number out of
/// range; the other forms give false and leave `value` alone, or the default.
///
///     int count = 0;
///     if (TryStrToInt(text, count)) { ... }                       // "42", "-1", "$FF"
///     const int port = StrToIntDef(text, 80);
TRS8_BTL_API int StrToInt(const System::UnicodeString& text);
TRS8_BTL_API int StrToIntDef(const System::UnicodeString& text, int defaultValue);
TRS8_BTL_API bool TryStrToInt(const System::UnicodeString& text, int& value);
TRS8_BTL_API System::Int64 StrToInt64(const System::UnicodeString& text);
TRS8_BTL_API System::Int64 StrToInt64Def(const System::UnicodeString& text, System::Int64 defaultValue);
TRS8_BTL_API bool TryStrToInt64(const System::UnicodeString& text, System::Int64& value);

} // namespace Sysutils
