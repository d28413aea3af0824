// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Texts of SQL.
//
//     const auto literal = u"'" + BTL::SQLValueDelim(u"it's") + u"'";   // 'it''s'
//     int at = 1;
//     const auto token = BTL::GetNextSqlToken(u"select a.b", at);       // "select", at stays 1
//     at += token.Length();

/// `text` with every apostrophe doubled, for a literal; the quotes around it are the caller's.
[[nodiscard]] TRS8_BTL_API System::UnicodeString SQLValueDelim(const System::UnicodeString& text);

/// The token of `statement` at the 1-based `index` or behind the white space there; `index` then stands on
/// its first character, and adding the length of the token leads behind it. Empty at the end; an `index`
/// below 1 counts as 1. Tokens are:
/// - a name, which may be qualified: a letter, then letters, digits, `$`, `.` and `_`;
/// - a quoted name from `"` or `[` to the next `"` or `]`; if none comes, it stops before the last character
///   of the text, but has its opener at least;
/// - a number: a digit or one of `+-.`, then digits and `+-.Ee`, so that `1+2` is one token;
/// - a literal in apostrophes, which are doubled within; one that isn't closed goes to the end;
/// - anything else up to a letter, a digit or one of `$_.['"`, with the blanks between.
TRS8_BTL_API System::UnicodeString GetNextSqlToken(const System::UnicodeString& statement, int& index);

} // namespace BTL
