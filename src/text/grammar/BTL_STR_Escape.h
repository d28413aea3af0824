// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Escapes of line breaks in values that stand in one line.
//
//     const auto line = BTL::InsertEscapeSequences(u"a\nb");           // a, a backslash, n, b
//     const auto text = BTL::ApplyEscapeSequences(line);               // as it was
//
// A text with a backslash of its own may come back as another one ("C:\new" does). `EscapeText` and
// `UnescapeText` bring back every text; they are what a file is written with.

/// Replaces "\n", "\r", "\t" and "\\" one after the other, each in the whole text: a backslash and an n
/// behind another backslash are a line feed too.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ApplyEscapeSequences(const System::UnicodeString& s);
[[nodiscard]] TRS8_BTL_API System::AnsiString ApplyEscapeSequences(const System::AnsiString& s);
/// As `ApplyEscapeSequences`, and then the escaped double quote and apostrophe.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ApplyEscapeSequences2(const System::UnicodeString& s);
[[nodiscard]] TRS8_BTL_API System::AnsiString ApplyEscapeSequences2(const System::AnsiString& s);

/// Writes backslash, line feed, carriage return and tab as escapes.
[[nodiscard]] TRS8_BTL_API System::UnicodeString InsertEscapeSequences(const System::UnicodeString& s);
[[nodiscard]] TRS8_BTL_API System::AnsiString InsertEscapeSequences(const System::AnsiString& s);
/// As `InsertEscapeSequences`, and then puts a backslash in front of each apostrophe and double quote.
[[nodiscard]] TRS8_BTL_API System::UnicodeString InsertEscapeSequences2(const System::UnicodeString& s);
[[nodiscard]] TRS8_BTL_API System::AnsiString InsertEscapeSequences2(const System::AnsiString& s);

} // namespace BTL
