// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Numbers within a text. The forms with a `bool` result write their targets only on success. A sign is `+`,
// `-` or the minus sign U+2212.
//
//     int position = 0;
//     const auto number = BTL::Cut1stFloat(u"U=-3.5E-2V", position); // "-3.5E-2" at 3
//     const double value = BTL::ToDoubleDef(number, 0);

/// The 1-based position and the length of the first integer in `text`, with the sign in front of it.
TRS8_BTL_API bool Find1stInt(const System::UnicodeString& text, int& position, int& length);
/// As `Find1stInt`, but for the first float: an integer, a fraction behind `.`, `,` or the active separator,
/// and an exponent. An exponent of a bare sign is included, although no conversion accepts it.
TRS8_BTL_API bool Find1stFloat(const System::UnicodeString& text, int& position, int& length);
/// The text of the first float and its 1-based position; an empty text and 0 if there is none.
TRS8_BTL_API System::UnicodeString Cut1stFloat(const System::UnicodeString& text, int& position);
[[nodiscard]] TRS8_BTL_API System::UnicodeString Cut1stFloat(const System::UnicodeString& text);

} // namespace BTL
