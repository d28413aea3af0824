// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Any text in one line, and back: where `ApplyEscapeSequences` reads what people write, these bring each text
// back as it was.
//
//     const auto line = BTL::EscapeText(u"C:\\new\nline");             // C:\\new\nline in one line
//     const auto text = BTL::UnescapeText(line);                       // as it was

/// Writes a backslash as two, line feed, carriage return and tab as `\n`, `\r` and `\t`, and any other
/// control character up to code 31 as `\x` with two hexadecimal digits. All else stays.
[[nodiscard]] TRS8_BTL_API System::UnicodeString EscapeText(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API System::AnsiString EscapeText(const System::AnsiString& text);
/// Reads what `EscapeText` writes, in one pass: a backslash that was read begins no other escape. The digits
/// behind `\x` may be of either case. A backslash in front of anything else stays, as does one at the end.
[[nodiscard]] TRS8_BTL_API System::UnicodeString UnescapeText(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API System::AnsiString UnescapeText(const System::AnsiString& text);

} // namespace BTL
