// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <string_view>

namespace BTL
{

// Integers as text. The minus sign U+2212 counts as `-`. Forms with a `bool` result write their target only
// on success.
//
//     int count = 0;
//     if (BTL::IsInt(text) && BTL::ToInt(text, count)) { ... } // the whole text; `ToInt` alone takes "12abc"
//     const auto id = BTL::StrToInt64Def(text, -1);
//     const auto name = BTL::FormatInt(u"0000", 42);           // "0042"

/// `value` by a format of `Sysutils::FormatFloat`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString FormatInt(const System::UnicodeString& format, int value);
[[nodiscard]] TRS8_BTL_API System::AnsiString FormatInt(const System::AnsiString& format, int value);
[[nodiscard]] TRS8_BTL_API System::UnicodeString FormatInt64(const System::UnicodeString& format,
                                                             System::Int64 value);
[[nodiscard]] TRS8_BTL_API System::AnsiString FormatInt64(const System::AnsiString& format,
                                                          System::Int64 value);

/// True if the whole `text` behind leading blanks is a 32-bit integer: an optional sign and decimal digits,
/// or a `$` or `0x` prefix and hexadecimal digits. A leading `x` is refused.
[[nodiscard]] TRS8_BTL_API bool IsInt(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API bool IsInt(const System::AnsiString& text);
/// As `IsInt`, with no blank allowed in front.
[[nodiscard]] TRS8_BTL_API bool IsIntStrong(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API bool IsIntStrong(const System::AnsiString& text);

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
[[nodiscard]] TRS8_BTL_API bool IsIntType(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API bool IsIntType(const System::AnsiString& text);

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
[[nodiscard]] TRS8_BTL_API int HexToInt(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API int HexToInt(const System::AnsiString& text);

namespace Detail
{

TRS8_BTL_API bool ReadInt(std::u16string_view text, int& value);
TRS8_BTL_API bool ReadInt(std::string_view text, int& value);
TRS8_BTL_API bool ReadInt(std::u16string_view text, System::Int64& value);
TRS8_BTL_API bool ReadInt(std::string_view text, System::Int64& value);

} // namespace Detail

// A piece of a text, such as `Split` gives, is read where it stands.

/// As `ToInt` of a string.
template <class Char>
bool ToInt(std::basic_string_view<Char> text, int& value)
{
    return Detail::ReadInt(text, value);
}
/// As `ToInt` of a string.
template <class Char>
bool ToInt(std::basic_string_view<Char> text, System::Int64& value)
{
    return Detail::ReadInt(text, value);
}

// A literal of 8-bit text. A null `text` is no number.

[[nodiscard]] inline bool IsInt(const char* text)
{
    return IsInt(System::AnsiString(text));
}
[[nodiscard]] inline bool IsIntStrong(const char* text)
{
    return IsIntStrong(System::AnsiString(text));
}
inline bool ToInt(const char* text, int& value)
{
    return ToInt(System::AnsiString(text), value);
}
inline bool ToInt(const char* text, System::Int64& value)
{
    return ToInt(System::AnsiString(text), value);
}
/// As `StrToInt64` of a `System::AnsiString`, for a literal.
inline bool StrToInt64(const char* text, System::Int64& value)
{
    return StrToInt64(System::AnsiString(text), value);
}
/// As `StrToInt64Def` of a `System::AnsiString`, for a literal.
inline System::Int64 StrToInt64Def(const char* text, System::Int64 defaultValue)
{
    return StrToInt64Def(System::AnsiString(text), defaultValue);
}
[[nodiscard]] inline bool IsIntType(const char* text)
{
    return IsIntType(System::AnsiString(text));
}
inline bool HexToInt(const char* text, int& value)
{
    return HexToInt(System::AnsiString(text), value);
}
[[nodiscard]] inline int HexToInt(const char* text)
{
    return HexToInt(System::AnsiString(text));
}
[[nodiscard]] inline System::AnsiString FormatInt(const char* format, int value)
{
    return FormatInt(System::AnsiString(format), value);
}
/// As `FormatInt64` of a `System::AnsiString`, for a literal.
[[nodiscard]] inline System::AnsiString FormatInt64(const char* format, System::Int64 value)
{
    return FormatInt64(System::AnsiString(format), value);
}

/// 0 and 1 stay, any other value gives 2.
constexpr int ToThreeState(int value)
{
    return value == 0 || value == 1 ? value : 2;
}

} // namespace BTL
