// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_STR_Compare.h" // IsEqual, IsIEqual, IsLess
#include "foundation/UTL_STR_Find.h"    // find_first_of and its kin
#include "foundation/UTL_STR_Numbers.h" // GetLong, ToInt, IsDigitString, IntToString and their kin
#include "foundation/UTL_STR_Print.h"   // SPrintf, VSPrintf
#include "foundation/UTL_STR_Words.h"   // GetWord, GetWords, their tables of characters, FindSQLParam
#include "platform/base/System_String.h"

// All functions on plain text: the parts above, and here what belongs to none of them.

namespace UTL
{

/// A copy of `text` in an array of at least `minimum` characters, the rest of which is zero. The caller frees
/// it with `delete[]`. `Sysutils::EOutOfMemory` if the memory isn't there.
///
///     const std::unique_ptr<char[]> copy(UTL::strnewdup("abc", 10));
[[nodiscard]] TRS8_BTL_API char* strnewdup(const char* text, unsigned minimum = 0);
[[nodiscard]] TRS8_BTL_API System::WideChar* strnewdup(const System::WideChar* text, unsigned minimum = 0);

/// As `Sysutils::FileExists`.
[[nodiscard]] TRS8_BTL_API bool FileExists(const System::UnicodeString& file);

} // namespace UTL
