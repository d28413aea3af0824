// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_STR_String.h"
#include "platform/base/System_String.h"
#include "platform/runtime/sysutils/System_Printf.h"

namespace UTL
{

// Functions on plain zero-terminated text in both widths. They follow the rules of the C library in its "C"
// locale, whatever the locale of the process: white space, digits and the case of letters are those of ASCII,
// and the decimal point is `.`. Only `iswalpha` and `iswalnum`, where the wide forms ask them, know all
// letters and digits of Unicode's basic plane. A null text counts as empty unless told otherwise.

/// Reads the whole `text` as a decimal number. An empty text gives false and leaves `value` alone; any other
/// writes what could be read, 0 at worst and the nearest limit on an overflow. True if nothing was left over;
/// white space is accepted in front only.
TRS8_BTL_API bool GetLong(const char* text, long& value);
TRS8_BTL_API bool GetLong(const System::WideChar* text, long& value);

/// As `GetLong`, for a float in any form that `strtod` reads; an overflow gives infinity.
TRS8_BTL_API bool GetDouble(const char* text, double& value);
TRS8_BTL_API bool GetDouble(const System::WideChar* text, double& value);

/// The number at the start of `text`, behind white space, as the operator `>>` of a stream reads it: 0 if
/// there is none, the nearest limit on an overflow.
TRS8_BTL_API int ToInt(const char* text);
TRS8_BTL_API int ToInt(const System::WideChar* text);

/// As `ToInt`; the largest float of the sign on an overflow.
TRS8_BTL_API float ToFloat(const char* text);
TRS8_BTL_API float ToFloat(const System::WideChar* text);

/// True if `text` is not empty and holds nothing but digits, with `sign` also one `+` or `-` in front of
/// them, with `blanks` also white space at both ends. No digit is required.
TRS8_BTL_API bool IsDigitString(const char* text, bool sign, bool blanks);
TRS8_BTL_API bool IsDigitString(const System::WideChar* text, bool sign, bool blanks);

/// Exact equality. A null text equals only another null.
TRS8_BTL_API bool IsEqual(const char* a, const char* b);
TRS8_BTL_API bool IsEqual(const System::WideChar* a, const System::WideChar* b);

/// Compares the first `count` characters; a negative `count` compares all.
TRS8_BTL_API bool IsEqual(const char* a, const char* b, int count);
TRS8_BTL_API bool IsEqual(const System::WideChar* a, const System::WideChar* b, int count);

/// As `IsEqual` of the first `count` characters, with `A` to `Z` equal to `a` to `z`.
TRS8_BTL_API bool IsIEqual(const char* a, const char* b, int count);
TRS8_BTL_API bool IsIEqual(const System::WideChar* a, const System::WideChar* b, int count);

/// The order of the unsigned character codes. If one text is null, true exactly when `a` is: a null is less
/// than a null.
TRS8_BTL_API bool IsLess(const char* a, const char* b);
TRS8_BTL_API bool IsLess(const System::WideChar* a, const System::WideChar* b);

/// Compares the first `count` characters; a negative `count` compares all.
TRS8_BTL_API bool IsLess(const char* a, const char* b, int count);
TRS8_BTL_API bool IsLess(const System::WideChar* a, const System::WideChar* b, int count);

/// The 0-based index of the first `c` at or behind `start`, -1 if there is none. A negative `start` raises an
/// assertion, and gives -1 if that returns.
TRS8_BTL_API int find_first_of(char c, const char* text, int start);
TRS8_BTL_API int find_first_of(System::WideChar c, const System::WideChar* text, int start);

/// As `find_first_of`, for the first character that is not `c`.
TRS8_BTL_API int find_first_not_of(char c, const char* text, int start);
TRS8_BTL_API int find_first_not_of(System::WideChar c, const System::WideChar* text, int start);

/// As `find_first_of`, for the first character that is `c1` or `c2`.
TRS8_BTL_API int find_first_of2(char c1, char c2, const char* text, int start);
TRS8_BTL_API int find_first_of2(System::WideChar c1, System::WideChar c2, const System::WideChar* text,
                                int start);

/// Finds the first colon and the name behind it, made of letters, digits and `_`. `position` becomes the
/// index of the colon, `length` the count of characters with the colon. False if the name is empty; also if
/// there is no colon, which gives the position -1 and the length 0. Later colons are not tried.
TRS8_BTL_API bool FindSQLParam(const char* text, int& position, int& length);
TRS8_BTL_API bool FindSQLParam(const System::WideChar* text, int& position, int& length);

/// A copy of `text` in an array of at least `minimum` characters, the rest of which is zero. The caller frees
/// it with `delete[]`.
TRS8_BTL_API char* strnewdup(const char* text, unsigned minimum = 0);
TRS8_BTL_API System::WideChar* strnewdup(const System::WideChar* text, unsigned minimum = 0);

/// 256 bytes, 1 for each character that can begin a word: `A` to `Z`, `a` to `z`, `_` and the letters of the
/// Western code page from code 142 up.
TRS8_BTL_API const unsigned char* GetWordCharsA();
TRS8_BTL_API const unsigned char* GetWordCharsW();
/// As `GetWordCharsA`, but 1 for each character that can continue a word: those that begin one and `0` to
/// `9`.
TRS8_BTL_API const unsigned char* GetWordChars2A();
TRS8_BTL_API const unsigned char* GetWordChars2W();

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

/// The decimal text of `value`.
TRS8_BTL_API CString IntToString(int value);
/// `value` with up to 6 significant digits, as a stream writes it.
TRS8_BTL_API CString FloatToString(float value);

/// As `Sysutils::FileExists`.
TRS8_BTL_API bool FileExists(const System::UnicodeString& file);

/// Formats by the rules of `System::PrintfA`, which raises `Sysutils::EConvertError` where the arguments
/// don't fit. A result of more than 511 characters is cut there. The result of a wide format is narrowed.
TRS8_BTL_API CString VSPrintf(const char* format, System::TVarArgs arguments);
TRS8_BTL_API CString VSPrintf(const System::WideChar* format, System::TVarArgs arguments);

template <class... Arguments>
CString SPrintf(const char* format, const Arguments&... arguments)
{
    return VSPrintf(format, System::TVarArgs{System::TVarRec(arguments)...});
}

template <class... Arguments>
CString SPrintf(const System::WideChar* format, const Arguments&... arguments)
{
    return VSPrintf(format, System::TVarArgs{System::TVarRec(arguments)...});
}

} // namespace UTL
