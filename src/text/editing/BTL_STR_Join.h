// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <concepts>

namespace BTL
{

// Joining and padding text.
//
//     UnicodeString names;
//     BTL::AddString(names, u"a", u", ");                      // "a"
//     BTL::AddString(names, u"b", u", ");                      // "a, b"
//     const auto cell = BTL::FillStringLeft(u"7", 3, u' ');    // "  7"

/// `s` becomes `add` if it is empty, else `s`, `delim`, `add`. `s` is also the result.
TRS8_BTL_API System::UnicodeString& AddString(System::UnicodeString& s, const System::UnicodeString& add,
                                              const System::UnicodeString& delim);
TRS8_BTL_API System::AnsiString& AddString(System::AnsiString& s, const System::AnsiString& add,
                                           const System::AnsiString& delim);

/// Both texts with `delim` between; the other one alone if one is empty.
[[nodiscard]] TRS8_BTL_API System::UnicodeString
StrCat(const System::UnicodeString& a, const System::UnicodeString& b, const System::UnicodeString& delim);

/// `a` and `b`. If that is longer than `maxLen`, the end of `a` gives way to `filler`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ConcatenateStrings(const System::UnicodeString& a,
                                                                    const System::UnicodeString& b,
                                                                    int maxLen,
                                                                    const System::UnicodeString& filler);
[[nodiscard]] TRS8_BTL_API System::AnsiString ConcatenateStrings(const System::AnsiString& a,
                                                                 const System::AnsiString& b, int maxLen,
                                                                 const System::AnsiString& filler);

/// Pads with `c` on the right up to `width`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString FillString(const System::UnicodeString& s, int width,
                                                            System::WideChar c);
[[nodiscard]] TRS8_BTL_API System::AnsiString FillString(const System::AnsiString& s, int width, char c);
/// As `FillString`, with the character that `c` is in the system's code page.
template <std::same_as<char> Narrow>
[[nodiscard]] System::UnicodeString FillString(const System::UnicodeString& s, int width, Narrow c)
{
    return FillString(s, width, System::UnicodeString(c)[1]);
}
/// Pads with `c` on the left up to `width`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString FillStringLeft(const System::UnicodeString& s, int width,
                                                                System::WideChar c);
[[nodiscard]] TRS8_BTL_API System::AnsiString FillStringLeft(const System::AnsiString& s, int width, char c);
/// As `FillStringLeft`, with the character that `c` is in the system's code page.
template <std::same_as<char> Narrow>
[[nodiscard]] System::UnicodeString FillStringLeft(const System::UnicodeString& s, int width, Narrow c)
{
    return FillStringLeft(s, width, System::UnicodeString(c)[1]);
}

/// `value` in decimal, its digits padded with zeros to as many as `maxValue` has, behind a minus sign if
/// there is one. No padding for a `maxValue` below 1.
[[nodiscard]] TRS8_BTL_API System::UnicodeString FillNumberLeftW(int value, int maxValue);
[[nodiscard]] TRS8_BTL_API System::AnsiString FillNumberLeftA(int value, int maxValue);

/// Puts `n` in place of the first `placeholder`, with at least as many digits as that has characters; the
/// rest of `s` is taken as the picture of a number too, see `Sysutils::FormatFloat`. Without a placeholder
/// `n` is appended.
[[nodiscard]] TRS8_BTL_API System::UnicodeString
InsertNumber(const System::UnicodeString& s, const System::UnicodeString& placeholder, int n);
[[nodiscard]] TRS8_BTL_API System::AnsiString InsertNumber(const System::AnsiString& s,
                                                           const System::AnsiString& placeholder, int n);

} // namespace BTL
