// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <concepts>

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

// Deleting and replacing in text. An empty text to be replaced occurs nowhere.
//
//     const auto plain = BTL::ExchangeAll(text, u"%unit", u"kV");
//     const auto path = BTL::CharReplace(u"a\\b", u'\\', u'/'); // "a/b"
//     const auto digits = BTL::DeleteChars(u"1 000", u' ');    // "1000"

/// `s` without any `c`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString DeleteChars(const System::UnicodeString& s,
                                                             System::WideChar c);
[[nodiscard]] TRS8_BTL_API System::AnsiString DeleteChars(const System::AnsiString& s, char c);
/// As `DeleteChars`, with the character that `c` is in the system's code page.
template <std::same_as<char> Narrow>
[[nodiscard]] System::UnicodeString DeleteChars(const System::UnicodeString& s, Narrow c)
{
    return DeleteChars(s, System::UnicodeString(c)[1]);
}

/// `s` trimmed and without its space characters.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ClearBlanks(const System::UnicodeString& s);
[[nodiscard]] TRS8_BTL_API System::AnsiString ClearBlanks(const System::AnsiString& s);

/// `s` with every `from` as `to`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString CharReplace(const System::UnicodeString& s,
                                                             System::WideChar from, System::WideChar to);
[[nodiscard]] TRS8_BTL_API System::AnsiString CharReplace(const System::AnsiString& s, char from, char to);
/// As `CharReplace`, with the characters that `from` and `to` are in the system's code page.
template <std::same_as<char> Narrow>
[[nodiscard]] System::UnicodeString CharReplace(const System::UnicodeString& s, Narrow from, Narrow to)
{
    return CharReplace(s, System::UnicodeString(from)[1], System::UnicodeString(to)[1]);
}

/// Removes the first `sub` from `s`; gives the new `s`.
TRS8_BTL_API System::UnicodeString Delete1stSubString(System::UnicodeString& s,
                                                      const System::UnicodeString& sub);

/// Replaces the first `oldText`, if there is one, and then cuts the text to `maxLen` if that is above 0.
[[nodiscard]] TRS8_BTL_API System::UnicodeString Exchange1stSubStr(const System::UnicodeString& s,
                                                                   const System::UnicodeString& oldText,
                                                                   const System::UnicodeString& newText,
                                                                   int maxLen);
[[nodiscard]] TRS8_BTL_API System::AnsiString Exchange1stSubStr(const System::AnsiString& s,
                                                                const System::AnsiString& oldText,
                                                                const System::AnsiString& newText,
                                                                int maxLen);
/// As `Exchange1stSubStr`, but the search doesn't regard case.
[[nodiscard]] TRS8_BTL_API System::UnicodeString Exchange1stSubStrIC(const System::UnicodeString& s,
                                                                     const System::UnicodeString& oldText,
                                                                     const System::UnicodeString& newText,
                                                                     int maxLen);
/// `Exchange1stSubStr` on every line; nothing for a null list.
TRS8_BTL_API void Exchange1stSubStrs(Classes::TStrings* strings, const System::UnicodeString& oldText,
                                     const System::UnicodeString& newText, int maxLen);
TRS8_BTL_API void Exchange1stSubStrs(Classes::TStrings* strings, const System::AnsiString& oldText,
                                     const System::AnsiString& newText, int maxLen);

/// Replaces every `oldText`, from left to right.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExchangeAll(const System::UnicodeString& s,
                                                             const System::UnicodeString& oldText,
                                                             const System::UnicodeString& newText);
[[nodiscard]] TRS8_BTL_API System::AnsiString ExchangeAll(const System::AnsiString& s,
                                                          const System::AnsiString& oldText,
                                                          const System::AnsiString& newText);
/// Replaces every character `c` by a text.
[[nodiscard]] TRS8_BTL_API System::UnicodeString
ExchangeAll(const System::UnicodeString& s, System::WideChar c, const System::UnicodeString& newText);
[[nodiscard]] TRS8_BTL_API System::AnsiString ExchangeAll(const System::AnsiString& s, char c,
                                                          const System::AnsiString& newText);
/// Replaces every `oldText` that stands outside quotes. `quotes` holds the characters that open a quote; the
/// same character closes it.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExchangeAll(const System::UnicodeString& s,
                                                             const System::UnicodeString& oldText,
                                                             const System::UnicodeString& newText,
                                                             const System::UnicodeString& quotes);

/// Removes what stands between the delimiters, with all delimiters nested inside; the outer ones stay. What
/// follows an `open` without its `close` stays.
[[nodiscard]] TRS8_BTL_API System::UnicodeString
DeleteSubStrings(const System::UnicodeString& s, System::WideChar open, System::WideChar close);
[[nodiscard]] TRS8_BTL_API System::AnsiString DeleteSubStrings(const System::AnsiString& s, char open,
                                                               char close);

/// Removes pieces together with their delimiters, which may be nested; delimiters in quotes don't count. What
/// follows an `open` without its `close` is removed. A `close` alone is plain text. An empty `open` removes
/// nothing.
[[nodiscard]] TRS8_BTL_API System::UnicodeString DelDelimitedSubStrings(const System::UnicodeString& s,
                                                                        const System::UnicodeString& open,
                                                                        const System::UnicodeString& close,
                                                                        const System::UnicodeString& quotes);

} // namespace BTL
