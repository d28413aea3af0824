// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <concepts>

namespace BTL
{

// Searching in text. Places are 1-based and 0 means not found; an empty text is found nowhere.
//
//     const int first = BTL::Pos(line, u"<b>");                // 0 if there is none
//     const int next = BTL::Pos(line, u"<b>", first + 1);
//     const bool isSource = BTL::IEndsWith(name, u".cpp");     // also ".CPP"

/// The first `c`; 0 for a null pointer.
[[nodiscard]] TRS8_BTL_API int CharPos(const System::WideChar* text, System::WideChar c);
[[nodiscard]] TRS8_BTL_API int CharPos(const char* text, char c);
[[nodiscard]] TRS8_BTL_API int Pos(const System::UnicodeString& s, System::WideChar c);
[[nodiscard]] TRS8_BTL_API int Pos(const System::AnsiString& s, char c);
/// The first character that `c` is in the system's code page.
template <std::same_as<char> Narrow>
[[nodiscard]] int Pos(const System::UnicodeString& s, Narrow c)
{
    return Pos(s, System::UnicodeString(c)[1]);
}

/// The first `sub` at or after `from`, which counts as 1 if it is less.
[[nodiscard]] TRS8_BTL_API int Pos(const System::UnicodeString& s, const System::UnicodeString& sub,
                                   int from = 1);
[[nodiscard]] TRS8_BTL_API int Pos(const System::AnsiString& s, const System::AnsiString& sub, int from = 1);

/// The first `c` that isn't one of a pair.
[[nodiscard]] TRS8_BTL_API int Pos_N2(const System::UnicodeString& s, System::WideChar c);
[[nodiscard]] TRS8_BTL_API int Pos_N2(const System::AnsiString& s, char c);
/// As `Pos_N2`, but for the character that `c` is in the system's code page.
template <std::same_as<char> Narrow>
[[nodiscard]] int Pos_N2(const System::UnicodeString& s, Narrow c)
{
    return Pos_N2(s, System::UnicodeString(c)[1]);
}

/// The first `sub` without regard to case.
[[nodiscard]] TRS8_BTL_API int PosIC(const System::UnicodeString& s, const System::UnicodeString& sub);
[[nodiscard]] TRS8_BTL_API int PosIC(const System::AnsiString& s, const System::AnsiString& sub);

/// The last `c` at or before `from`; a negative `from`, or one past the end, means the end.
[[nodiscard]] TRS8_BTL_API int CharRPos(const System::UnicodeString& s, System::WideChar c, int from);
[[nodiscard]] TRS8_BTL_API int CharRPos(const System::AnsiString& s, char c, int from);
/// As `CharRPos`, but for the character that `c` is in the system's code page.
template <std::same_as<char> Narrow>
[[nodiscard]] int CharRPos(const System::UnicodeString& s, Narrow c, int from)
{
    return CharRPos(s, System::UnicodeString(c)[1], from);
}

/// The place of the last `sub` that lies wholly at or before `end`; a negative `end`, or one past the end,
/// means the end.
[[nodiscard]] TRS8_BTL_API int RPos(const System::UnicodeString& s, const System::UnicodeString& sub,
                                    int end);
[[nodiscard]] TRS8_BTL_API int RPos(const System::AnsiString& s, const System::AnsiString& sub, int end);
/// As `RPos`, but without regard to case.
[[nodiscard]] TRS8_BTL_API int RIPos(const System::UnicodeString& s, const System::UnicodeString& sub,
                                     int end);
[[nodiscard]] TRS8_BTL_API int RIPos(const System::AnsiString& s, const System::AnsiString& sub, int end);

/// True if `sub` stands at `at`; an empty `sub` stands everywhere from 1 to one past the end.
[[nodiscard]] TRS8_BTL_API bool BeginsWith(const System::UnicodeString& s, const System::UnicodeString& sub,
                                           int at);
/// Whether `sub` stands at the end; false for an empty `sub`.
[[nodiscard]] TRS8_BTL_API bool EndsWith(const System::UnicodeString& s, const System::UnicodeString& sub);
/// As `EndsWith`, but without regard to case.
[[nodiscard]] TRS8_BTL_API bool IEndsWith(const System::UnicodeString& s, const System::UnicodeString& sub);

/// How often `c` occurs; 0 for a null pointer or a zero `c`.
[[nodiscard]] TRS8_BTL_API int CountChar(const System::WideChar* text, System::WideChar c);
[[nodiscard]] TRS8_BTL_API int CountChar(const char* text, char c);
/// How often the character occurs that `c` is in the system's code page; 0 for a zero `c`.
[[nodiscard]] TRS8_BTL_API int CountChar(const System::UnicodeString& s, char c);

/// True if the low 8 bits of any character are the code of a letter of the Western code page.
[[nodiscard]] TRS8_BTL_API bool IsText(const System::UnicodeString& s);
[[nodiscard]] TRS8_BTL_API bool IsText(const System::AnsiString& s);

/// The upper case of one character. A character whose upper case takes more than one stays.
[[nodiscard]] TRS8_BTL_API System::WideChar CharUpperW(System::WideChar c);
[[nodiscard]] TRS8_BTL_API char CharUpperW(char c);

} // namespace BTL
