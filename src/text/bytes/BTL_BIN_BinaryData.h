// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_DynamicArray.h"
#include "platform/base/System_String.h"

namespace BTL
{

// Text that stands for bytes. Byte strings are `System::AnsiString` values that are never taken for text.
//
//     const auto hex = BTL::BinaryDataToHexW(System::AnsiString("\x01\xFF")); // "01ff"
//     const System::AnsiString bytes = BTL::HexToBinaryData(hex);
//     const auto stored = BTL::BinaryDataToStringW(bytes); // text without control characters

/// Two lower-case digits per byte. A null pointer or a size below 1 gives the empty text.
[[nodiscard]] TRS8_BTL_API System::UnicodeString BinaryDataToHexW(const void* data, int size);
[[nodiscard]] TRS8_BTL_API System::UnicodeString BinaryDataToHexW(const System::AnsiString& bytes);
[[nodiscard]] TRS8_BTL_API System::AnsiString BinaryDataToHexA(const void* data, int size);
[[nodiscard]] TRS8_BTL_API System::AnsiString BinaryDataToHexA(const System::AnsiString& bytes);

/// Writes up to `size` bytes to `buffer`, one per pair of digits of either case. What is no digit counts as
/// 0, a digit without its second is left out, and bytes without a pair stay as they were. A null buffer or a
/// size below 1 takes nothing.
TRS8_BTL_API void HexToBinaryData(const System::UnicodeString& hex, void* buffer, int size);
TRS8_BTL_API void HexToBinaryData(const System::AnsiString& hex, void* buffer, int size);
/// The bytes of all pairs of digits, read as `HexToBinaryData` with a buffer reads them.
[[nodiscard]] TRS8_BTL_API System::AnsiString HexToBinaryData(const System::UnicodeString& hex);
[[nodiscard]] TRS8_BTL_API System::AnsiString HexToBinaryData(const System::AnsiString& hex);

// The text-safe form has no control character but the marker, code 1. A byte from 32 on is the character of
// its code, whatever the code page; a byte below is the marker and the character 33 codes above.

[[nodiscard]] TRS8_BTL_API System::UnicodeString BinaryDataToStringW(const System::AnsiString& bytes);
[[nodiscard]] TRS8_BTL_API System::AnsiString BinaryDataToStringA(const System::AnsiString& bytes);
/// The bytes of a text-safe form. Only the low 8 bits of a character count, and a marker at the end, where a
/// text was cut, is left out.
[[nodiscard]] TRS8_BTL_API System::AnsiString StringToBinaryDataW(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API System::AnsiString StringToBinaryData(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API System::AnsiString StringToBinaryDataA(const System::AnsiString& text);
[[nodiscard]] TRS8_BTL_API System::AnsiString StringToBinaryData(const System::AnsiString& text);

/// The text-safe form in UTF-8.
[[nodiscard]] TRS8_BTL_API System::UTF8String BinaryDataToUTF8(const System::AnsiString& bytes);
[[nodiscard]] TRS8_BTL_API System::AnsiString UTF8ToBinaryData(const System::UTF8String& text);

/// Whether both have the same bytes.
[[nodiscard]] TRS8_BTL_API bool IsEqual(const System::DynamicArray<unsigned char>& a,
                                        const System::DynamicArray<unsigned char>& b);

} // namespace BTL
