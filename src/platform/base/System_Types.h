// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace System
{

/// One unit of wide text: UTF-16 on every host, whatever the width of its `wchar_t`.
using WideChar = char16_t;
using AnsiChar = char;

/// Integers without a sign, of 8, 16 and 32 bits.
using Byte = std::uint8_t;
using Word = std::uint16_t;
using LongWord = std::uint32_t;

/// The 64-bit integer of all signatures: `long long`, a type apart from `long` in every overload set.
using Int64 = long long;
using UInt64 = unsigned long long;
using Extended = long double;
/// As wide as a pointer; the handles of files are of this type.
using NativeInt = std::intptr_t;

/// A code page by its number.
using CodePage = std::uint16_t;

/// The code page of UTF-8.
inline constexpr CodePage CP_UTF8 = 65001;
/// Bytes without a known code page: they pass between 8-bit types untouched.
inline constexpr CodePage CP_RAW = 65535;
/// The code page of `AnsiString`: Western, fixed, so that stored 8-bit text means the same on every machine.
inline constexpr CodePage DefaultSystemCodePage = 1252;

} // namespace System
