// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "text/numbers/BTL_NUM_SetDecimalSeparator.h"

namespace BTL
{

// Numbers as text. Input may use `.` or `,` whatever the active `Sysutils::DecimalSeparator` is; the first of
// them is adapted to it, and there is no thousand separator. Forms with a `bool` result write their target
// only on success.

/// `value` by a format of `Sysutils::FormatFloat`.
TRS8_BTL_API System::UnicodeString FormatInt(const System::UnicodeString& format, int value);
TRS8_BTL_API System::AnsiString FormatInt(const System::AnsiString& format, int value);
TRS8_BTL_API System::UnicodeString FormatInt64(const System::UnicodeString& format, System::Int64 value);
TRS8_BTL_API System::AnsiString FormatInt64(const System::AnsiString& format, System::Int64 value);

/// True if the whole `text` behind leading blanks is a 32-bit integer: an optional sign and decimal digits,
/// or a `$` or `0x` prefix and hexadecimal digits. A leading `x` is refused.
TRS8_BTL_API bool IsInt(const System::UnicodeString& text);
TRS8_BTL_API bool IsInt(const System::AnsiString& text);
/// As `IsInt`, with no blank allowed in front.
TRS8_BTL_API bool IsIntStrong(const System::UnicodeString& text);
TRS8_BTL_API bool IsIntStrong(const System::AnsiString& text);

/// Reads the decimal integer at the start of `text`, behind white space; what follows its digits is ignored.
/// False if no digit stands there, with at most a sign in front. A number beyond the range of the target
/// gives the nearest limit.
TRS8_BTL_API bool ToInt(const System::UnicodeString& text, int& value);
TRS8_BTL_API bool ToInt(const System::AnsiString& text, int& value);
TRS8_BTL_API bool ToInt(const System::UnicodeString& text, System::Int64& value);
TRS8_BTL_API bool ToInt(const System::AnsiString& text, System::Int64& value);
TRS8_BTL_API bool StrToInt64(const System::UnicodeString& text, System::Int64& value);
TRS8_BTL_API bool StrToInt64(const System::AnsiString& text, System::Int64& value);
TRS8_BTL_API System::Int64 StrToInt64Def(const System::UnicodeString& text, System::Int64 defaultValue);
TRS8_BTL_API System::Int64 StrToInt64Def(const System::AnsiString& text, System::Int64 defaultValue);
/// True if `StrToInt64` succeeds, so also for a text that merely begins like a number.
TRS8_BTL_API bool IsIntType(const System::UnicodeString& text);
TRS8_BTL_API bool IsIntType(const System::AnsiString& text);

/// As `ToInt`, without a sign.
TRS8_BTL_API bool StrToUInt(const System::UnicodeString& text, unsigned& value);
TRS8_BTL_API bool StrToUInt64(const System::UnicodeString& text, System::UInt64& value);
TRS8_BTL_API System::UInt64 StrToUInt64Def(const System::UnicodeString& text, System::UInt64 defaultValue);

/// Reads the hexadecimal number at the start of `text`, behind blanks, an optional sign and an optional `0x`;
/// what follows its digits is ignored. False without a digit. `FFFFFFFF` gives -1; what exceeds 32 bits
/// counts as `FFFFFFFF`.
TRS8_BTL_API bool HexToInt(const System::UnicodeString& text, int& value);
TRS8_BTL_API bool HexToInt(const System::AnsiString& text, int& value);
/// 0 if no number can be read.
TRS8_BTL_API int HexToInt(const System::UnicodeString& text);
TRS8_BTL_API int HexToInt(const System::AnsiString& text);

/// 0 and 1 stay, any other value gives 2.
constexpr int ToThreeState(int value)
{
    return value == 0 || value == 1 ? value : 2;
}

/// True if the whole `text`, trimmed, is a number with an optional exponent that a `double` can hold.
TRS8_BTL_API bool IsDouble(const System::UnicodeString& text);
TRS8_BTL_API bool IsDouble(const System::AnsiString& text);
TRS8_BTL_API bool ToDouble(const System::UnicodeString& text, double& value);
TRS8_BTL_API bool ToDouble(const System::AnsiString& text, double& value);
/// `Sysutils::EConvertError` if `text` is no number.
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

/// The canonical text of a number: adapted and trimmed; if it has a separator, without needless zeros at both
/// ends and with a digit on each side of the separator. A sign keeps the zeros behind it.
TRS8_BTL_API System::UnicodeString TrimFloat(const System::UnicodeString& text);
TRS8_BTL_API System::AnsiString TrimFloat(const System::AnsiString& text);

/// The first character behind leading blanks, such as a sign or a comparison character; 0 if the text is
/// empty or begins with a digit or the active separator.
TRS8_BTL_API System::WideChar GetPrefix(const System::UnicodeString& text);
TRS8_BTL_API char GetPrefix(const System::AnsiString& text);
/// `text` from its first digit or active separator on; empty if it has neither.
TRS8_BTL_API System::UnicodeString ClearPrefix(const System::UnicodeString& text);
TRS8_BTL_API System::AnsiString ClearPrefix(const System::AnsiString& text);

/// The count of characters of `TrimFloat(text)` without the separator; a sign counts as a digit.
TRS8_BTL_API int GetPrecision(const System::UnicodeString& text);
TRS8_BTL_API int GetPrecision(const System::AnsiString& text);
/// The count of characters behind the separator of `TrimFloat(text)`.
TRS8_BTL_API int GetDigits(const System::UnicodeString& text);
TRS8_BTL_API int GetDigits(const System::AnsiString& text);
TRS8_BTL_API void GetFloatFormat(const System::UnicodeString& text, int& precision, int& digits);
TRS8_BTL_API void GetFloatFormat(const System::AnsiString& text, int& precision, int& digits);

/// The 1-based position and the length of the first integer in `text`, with the sign in front of it.
TRS8_BTL_API bool Find1stInt(const System::UnicodeString& text, int& position, int& length);
/// The same for the first float: an integer, a fraction behind `.`, `,` or the active separator, and an
/// exponent. An exponent of a bare sign is included, although no conversion accepts it.
TRS8_BTL_API bool Find1stFloat(const System::UnicodeString& text, int& position, int& length);
/// The text of the first float and its 1-based position; an empty text and 0 if there is none.
TRS8_BTL_API System::UnicodeString Cut1stFloat(const System::UnicodeString& text, int& position);
TRS8_BTL_API System::UnicodeString Cut1stFloat(const System::UnicodeString& text);

} // namespace BTL
