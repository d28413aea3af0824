// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_Types.h"

namespace UTL
{

// Comparisons of zero-terminated text in both widths, whatever the locale of the process.
//
//     UTL::IsEqual("abc", "abcd", 3);                // true
//     UTL::IsIEqual(u"Abc", u"aBC", 3);              // true
//     UTL::IsLess("a", "b");                         // true

/// Exact equality. A null text equals only another null.
[[nodiscard]] TRS8_BTL_API bool IsEqual(const char* a, const char* b);
[[nodiscard]] TRS8_BTL_API bool IsEqual(const System::WideChar* a, const System::WideChar* b);

/// Compares the first `count` characters; a negative `count` compares all.
[[nodiscard]] TRS8_BTL_API bool IsEqual(const char* a, const char* b, int count);
[[nodiscard]] TRS8_BTL_API bool IsEqual(const System::WideChar* a, const System::WideChar* b, int count);

/// As `IsEqual` of the first `count` characters, with `A` to `Z` equal to `a` to `z`.
[[nodiscard]] TRS8_BTL_API bool IsIEqual(const char* a, const char* b, int count);
[[nodiscard]] TRS8_BTL_API bool IsIEqual(const System::WideChar* a, const System::WideChar* b, int count);

/// The order of the unsigned character codes. If one text is null, true exactly when `a` is: a null is less
/// than a null.
[[nodiscard]] TRS8_BTL_API bool IsLess(const char* a, const char* b);
[[nodiscard]] TRS8_BTL_API bool IsLess(const System::WideChar* a, const System::WideChar* b);

/// Compares the first `count` characters; a negative `count` compares all.
[[nodiscard]] TRS8_BTL_API bool IsLess(const char* a, const char* b, int count);
[[nodiscard]] TRS8_BTL_API bool IsLess(const System::WideChar* a, const System::WideChar* b, int count);

} // namespace UTL
