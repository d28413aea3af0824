// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Pasu_stringtointeger
{

/// Reads `text` as a 32-bit integer by the rules of the run-time library's `Val`: leading blanks, an optional
/// sign, then decimal digits, or a `$` or `0x` prefix and hexadecimal digits. `code` becomes 0, or the
/// 1-based position of the first bad character; `value` is then of no use.
///
///     int value = 0;
///     int code = 0;
///     Pasu_stringtointeger::StringToInteger(u"12x", value, code); // code is 3, the place of the x
TRS8_BTL_API void StringToInteger(const System::UnicodeString& text, int& value, int& code);

} // namespace Pasu_stringtointeger
