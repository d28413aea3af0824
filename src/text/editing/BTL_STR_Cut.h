// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <concepts>

namespace BTL
{

// Cutting text at its ends. A negative count counts as 0 unless told otherwise. `Split` takes a whole text
// apart.
//
//     UnicodeString name, value;
//     BTL::GetSubStrings(u"port=80", u'=', name, value);       // "port" and "80"
//     const auto stem = BTL::LeftSubStringUntil(u"a.b.c", u'.'); // "a"

/// The first `n` characters.
[[nodiscard]] TRS8_BTL_API System::UnicodeString LeftSubString(const System::UnicodeString& s, int n);
[[nodiscard]] TRS8_BTL_API System::AnsiString LeftSubString(const System::AnsiString& s, int n);

/// What stands before the first `c`; all of `s` if there is none.
[[nodiscard]] TRS8_BTL_API System::UnicodeString LeftSubStringUntil(const System::UnicodeString& s,
                                                                    System::WideChar c);
[[nodiscard]] TRS8_BTL_API System::AnsiString LeftSubStringUntil(const System::AnsiString& s, char c);
/// As `LeftSubStringUntil`, with the character that `c` is in the system's code page.
template <std::same_as<char> Narrow>
[[nodiscard]] System::UnicodeString LeftSubStringUntil(const System::UnicodeString& s, Narrow c)
{
    return LeftSubStringUntil(s, System::UnicodeString(c)[1]);
}

/// The last `n` characters.
[[nodiscard]] TRS8_BTL_API System::UnicodeString RightSubString(const System::UnicodeString& s, int n);
[[nodiscard]] TRS8_BTL_API System::AnsiString RightSubString(const System::AnsiString& s, int n);

/// From position `at` to the end; all of `s` for an `at` of 0 or less.
[[nodiscard]] TRS8_BTL_API System::UnicodeString RightSubStringAt(const System::UnicodeString& s, int at);
[[nodiscard]] TRS8_BTL_API System::AnsiString RightSubStringAt(const System::AnsiString& s, int at);

/// Deletes the first `n` characters of `s`, which is also the result.
TRS8_BTL_API System::UnicodeString& DeleteLeft(System::UnicodeString& s, int n);
TRS8_BTL_API System::AnsiString& DeleteLeft(System::AnsiString& s, int n);

/// Deletes the last `n` characters of `s`, which is also the result.
TRS8_BTL_API System::UnicodeString& DeleteRight(System::UnicodeString& s, int n);
TRS8_BTL_API System::AnsiString& DeleteRight(System::AnsiString& s, int n);

/// Deletes from position `at` to the end, all for an `at` of 0 or less. `s` is also the result.
TRS8_BTL_API System::UnicodeString& DeleteRightAt(System::UnicodeString& s, int at);
TRS8_BTL_API System::AnsiString& DeleteRightAt(System::AnsiString& s, int at);

/// Removes trailing characters up to and including the blank (code 32).
TRS8_BTL_API void TrimEnd(System::UnicodeString& s);
TRS8_BTL_API void TrimEnd(System::AnsiString& s);

/// Cuts `s` to `n` characters if it is longer; a negative `n` cuts nothing.
TRS8_BTL_API void ReduceLength(System::UnicodeString& s, int n);
TRS8_BTL_API void ReduceLength(System::AnsiString& s, int n);
/// Cuts `s` to `n` characters if it is longer, and then appends `suffix`; true if it did. A negative `n` cuts
/// nothing.
TRS8_BTL_API bool ReduceLength(System::UnicodeString& s, int n, const System::UnicodeString& suffix);
TRS8_BTL_API bool ReduceLength(System::AnsiString& s, int n, const System::AnsiString& suffix);
/// As `ReduceLength` on a copy.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ShrinkString(const System::UnicodeString& s, int n,
                                                              const System::UnicodeString& suffix);

/// Takes what stands before the first `delim` out of `s`, together with `delim`. If there is none: all of `s`
/// with `wholeIfMissing`, else nothing.
TRS8_BTL_API System::UnicodeString ConsumeLeftSubString(System::UnicodeString& s, System::WideChar delim,
                                                        bool wholeIfMissing);
TRS8_BTL_API System::AnsiString ConsumeLeftSubString(System::AnsiString& s, char delim, bool wholeIfMissing);
TRS8_BTL_API System::UnicodeString
ConsumeLeftSubString(System::UnicodeString& s, const System::UnicodeString& delim, bool wholeIfMissing);
TRS8_BTL_API System::AnsiString ConsumeLeftSubString(System::AnsiString& s, const System::AnsiString& delim,
                                                     bool wholeIfMissing);

/// What stands before and behind the first `delim`; all is `left` if there is none.
TRS8_BTL_API void GetSubStrings(const System::UnicodeString& s, System::WideChar delim,
                                System::UnicodeString& left, System::UnicodeString& right);
TRS8_BTL_API void GetSubStrings(const System::AnsiString& s, char delim, System::AnsiString& left,
                                System::AnsiString& right);

/// True if `s` has at least two characters and begins and ends with `quote`.
[[nodiscard]] TRS8_BTL_API bool IsQuotedStr(const System::UnicodeString& s, System::WideChar quote);
[[nodiscard]] TRS8_BTL_API bool IsQuotedStr(const System::AnsiString& s, char quote);
/// As `IsQuotedStr`, with the character that `quote` is in the system's code page.
template <std::same_as<char> Narrow>
[[nodiscard]] bool IsQuotedStr(const System::UnicodeString& s, Narrow quote)
{
    return IsQuotedStr(s, System::UnicodeString(quote)[1]);
}

/// Without one `quote` at the start and one at the end, each if it is there.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExtractQuotedStr(const System::UnicodeString& s,
                                                                  System::WideChar quote);
[[nodiscard]] TRS8_BTL_API System::AnsiString ExtractQuotedStr(const System::AnsiString& s, char quote);
/// As `ExtractQuotedStr`, with the character that `quote` is in the system's code page.
template <std::same_as<char> Narrow>
[[nodiscard]] System::UnicodeString ExtractQuotedStr(const System::UnicodeString& s, Narrow quote)
{
    return ExtractQuotedStr(s, System::UnicodeString(quote)[1]);
}

} // namespace BTL
