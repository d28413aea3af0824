// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Character
{

/// What Unicode says of a character. The forms with a text take the character at the 1-based `index`, where
/// a surrogate pair is one character; an `index` outside the text raises
/// `Sysutils::EArgumentOutOfRangeException`. A surrogate without its partner is a surrogate and nothing else.
///
///     TCharacter::IsLetter(u'\u00B5');                            // true
///     TCharacter::ToUpper(u"gr\u00F6\u00DFe");                    // "GR\u00D6SSE"
///     const UnicodeString clef = TCharacter::ConvertFromUtf32(0x1D11E);   // two units, one character
class TRS8_BTL_API TCharacter
{
public:
    TCharacter() = delete;

    /// A letter of any script.
    static bool IsLetter(System::WideChar c);
    static bool IsLetter(const System::UnicodeString& text, int index);
    /// A decimal digit of any script.
    static bool IsDigit(System::WideChar c);
    static bool IsDigit(const System::UnicodeString& text, int index);
    /// A digit or any other number, such as a fraction.
    static bool IsNumber(System::WideChar c);
    static bool IsNumber(const System::UnicodeString& text, int index);
    static bool IsLetterOrDigit(System::WideChar c);
    static bool IsLetterOrDigit(const System::UnicodeString& text, int index);
    static bool IsUpper(System::WideChar c);
    static bool IsUpper(const System::UnicodeString& text, int index);
    static bool IsLower(System::WideChar c);
    static bool IsLower(const System::UnicodeString& text, int index);
    /// A separator, the codes 9 to 13 and 133.
    static bool IsWhiteSpace(System::WideChar c);
    static bool IsWhiteSpace(const System::UnicodeString& text, int index);
    static bool IsPunctuation(System::WideChar c);
    static bool IsPunctuation(const System::UnicodeString& text, int index);
    static bool IsControl(System::WideChar c);
    static bool IsControl(const System::UnicodeString& text, int index);
    static bool IsSymbol(System::WideChar c);
    static bool IsSymbol(const System::UnicodeString& text, int index);
    /// A space, a line or a paragraph separator.
    static bool IsSeparator(System::WideChar c);
    static bool IsSeparator(const System::UnicodeString& text, int index);

    // Surrogates are told by the unit at `index`.
    static bool IsSurrogate(System::WideChar c);
    static bool IsSurrogate(const System::UnicodeString& text, int index);
    static bool IsHighSurrogate(System::WideChar c);
    static bool IsHighSurrogate(const System::UnicodeString& text, int index);
    static bool IsLowSurrogate(System::WideChar c);
    static bool IsLowSurrogate(const System::UnicodeString& text, int index);
    static bool IsSurrogatePair(System::WideChar high, System::WideChar low);
    /// True if a pair begins at `index`.
    static bool IsSurrogatePair(const System::UnicodeString& text, int index);

    /// By the rules of Unicode, whatever the locale. A single character whose other case is no single unit
    /// stays; a text may grow, as U+00DF becomes SS.
    static System::WideChar ToUpper(System::WideChar c);
    static System::UnicodeString ToUpper(const System::UnicodeString& text);
    static System::WideChar ToLower(System::WideChar c);
    static System::UnicodeString ToLower(const System::UnicodeString& text);

    /// The code of the character at `index`, and in `length` the count of its units. A surrogate without its
    /// partner raises `Sysutils::EArgumentException`.
    static char32_t ConvertToUtf32(const System::UnicodeString& text, int index);
    static char32_t ConvertToUtf32(const System::UnicodeString& text, int index, int& length);
    /// `Sysutils::EArgumentOutOfRangeException` if the two are no pair.
    static char32_t ConvertToUtf32(System::WideChar high, System::WideChar low);
    /// One unit or a pair. `Sysutils::EArgumentOutOfRangeException` for a surrogate or a code above 0x10FFFF.
    static System::UnicodeString ConvertFromUtf32(char32_t code);
};

} // namespace Character
