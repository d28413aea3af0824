// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_Types.h"

namespace UTL
{

// Words of zero-terminated text in both widths, whatever the locale of the process. Narrow letters and digits
// are those of ASCII or of a table, wide ones all of Unicode's basic plane. A null text counts as empty.
//
//     unsigned offset = 0;
//     unsigned length = 0;
//     if (UTL::GetWord("= u_1 + 2", offset, length)) { ... } // 2 and 3: "u_1"

/// 256 bytes, 1 for each character that can begin a word: `A` to `Z`, `a` to `z`, `_` and the letters of the
/// Western code page from code 142 up.
[[nodiscard]] TRS8_BTL_API const unsigned char* GetWordCharsA();
[[nodiscard]] TRS8_BTL_API const unsigned char* GetWordCharsW();
/// As `GetWordCharsA`, but 1 for each character that can continue a word: those that begin one and `0` to
/// `9`.
[[nodiscard]] TRS8_BTL_API const unsigned char* GetWordChars2A();
[[nodiscard]] TRS8_BTL_API const unsigned char* GetWordChars2W();

/// Finds the first word by the tables above: its 0-based `offset` and its `length`. Without one the result is
/// false, `offset` the length of `text` and `length` 0.
TRS8_BTL_API bool GetWord(const char* text, unsigned& offset, unsigned& length);
/// The wide form takes no table: a word begins with a letter and goes on with letters and digits, and `_` is
/// neither. A character outside the basic plane is no letter.
TRS8_BTL_API bool GetWord(const System::WideChar* text, unsigned& offset, unsigned& length);
/// A word is made of the characters of `table`, 256 bytes; a null table is empty.
TRS8_BTL_API bool GetWord(const char* text, unsigned& offset, unsigned& length, const unsigned char* table);
/// A word begins with a character of `first` and goes on with those of `following`.
TRS8_BTL_API bool GetWord(const char* text, unsigned& offset, unsigned& length,
                          const unsigned char* following, const unsigned char* first);

/// Finds up to `count` words, at least one; `offset` and `length` span them with what lies between. The
/// result is the number found.
TRS8_BTL_API int GetWords(const char* text, int count, unsigned& offset, unsigned& length);
TRS8_BTL_API int GetWords(const System::WideChar* text, int count, unsigned& offset, unsigned& length);

/// Finds the first colon and the name behind it, made of letters and digits of ASCII and `_`. `position`
/// becomes the index of the colon, `length` the count of characters with the colon. False if the name is
/// empty; also if there is no colon, which gives the position -1 and the length 0. Later colons are not
/// tried.
TRS8_BTL_API bool FindSQLParam(const char* text, int& position, int& length);
TRS8_BTL_API bool FindSQLParam(const System::WideChar* text, int& position, int& length);

} // namespace UTL
