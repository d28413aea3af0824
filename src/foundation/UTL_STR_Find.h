// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_Types.h"

namespace UTL
{

// Where a character stands in zero-terminated text, in both widths. A null text counts as empty.
//
//     UTL::find_first_of(',', "a,b,c", 2);           // 3
//     UTL::find_first_not_of(' ', "  a", 0);         // 2
//     UTL::find_first_of2(u';', u',', u"a,b;c", 0);  // 1

/// The 0-based index of the first `c` at or behind `start`, -1 if there is none. A negative `start` raises an
/// assertion, and gives -1 if that returns.
[[nodiscard]] TRS8_BTL_API int find_first_of(char c, const char* text, int start);
[[nodiscard]] TRS8_BTL_API int find_first_of(System::WideChar c, const System::WideChar* text, int start);

/// As `find_first_of`, for the first character that is not `c`.
[[nodiscard]] TRS8_BTL_API int find_first_not_of(char c, const char* text, int start);
[[nodiscard]] TRS8_BTL_API int find_first_not_of(System::WideChar c, const System::WideChar* text, int start);

/// As `find_first_of`, for the first character that is `c1` or `c2`.
[[nodiscard]] TRS8_BTL_API int find_first_of2(char c1, char c2, const char* text, int start);
[[nodiscard]] TRS8_BTL_API int find_first_of2(System::WideChar c1, System::WideChar c2,
                                              const System::WideChar* text, int start);

} // namespace UTL
