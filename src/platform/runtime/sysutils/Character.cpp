// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Character.h"

#include "platform/base/Sysutils_Exception.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace Character
{

using System::UnicodeString;
using System::WideChar;

namespace
{

bool IsOf(UChar32 code, std::uint32_t categories)
{
    return (U_GET_GC_MASK(code) & categories) != 0;
}

WideChar UnitAt(const UnicodeString& text, int index)
{
    if (index < 1 || index > text.Length()) {
        throw Sysutils::EArgumentOutOfRangeException(u"Index " + UnicodeString(index) + u" is not in 1 to " +
                                                     UnicodeString(text.Length()) + u".");
    }
    return text[index];
}

/// The code of the character at `index`; a surrogate without its partner gives its own.
UChar32 CodeAt(const UnicodeString& text, int index)
{
    const WideChar unit = UnitAt(text, index);
    return TCharacter::IsSurrogatePair(text, index) ? U16_GET_SUPPLEMENTARY(unit, text[index + 1]) : unit;
}

WideChar UnitOr(UChar32 code, WideChar otherwise)
{
    return U_IS_BMP(code) ? static_cast<WideChar>(code) : otherwise;
}

} // namespace

bool TCharacter::IsLetter(WideChar c)
{
    return IsOf(c, U_GC_L_MASK);
}

bool TCharacter::IsLetter(const UnicodeString& text, int index)
{
    return IsOf(CodeAt(text, index), U_GC_L_MASK);
}

bool TCharacter::IsDigit(WideChar c)
{
    return IsOf(c, U_GC_ND_MASK);
}

bool TCharacter::IsDigit(const UnicodeString& text, int index)
{
    return IsOf(CodeAt(text, index), U_GC_ND_MASK);
}

bool TCharacter::IsNumber(WideChar c)
{
    return IsOf(c, U_GC_N_MASK);
}

bool TCharacter::IsNumber(const UnicodeString& text, int index)
{
    return IsOf(CodeAt(text, index), U_GC_N_MASK);
}

bool TCharacter::IsLetterOrDigit(WideChar c)
{
    return IsOf(c, U_GC_L_MASK | U_GC_ND_MASK);
}

bool TCharacter::IsLetterOrDigit(const UnicodeString& text, int index)
{
    return IsOf(CodeAt(text, index), U_GC_L_MASK | U_GC_ND_MASK);
}

bool TCharacter::IsUpper(WideChar c)
{
    return IsOf(c, U_GC_LU_MASK);
}

bool TCharacter::IsUpper(const UnicodeString& text, int index)
{
    return IsOf(CodeAt(text, index), U_GC_LU_MASK);
}

bool TCharacter::IsLower(WideChar c)
{
    return IsOf(c, U_GC_LL_MASK);
}

bool TCharacter::IsLower(const UnicodeString& text, int index)
{
    return IsOf(CodeAt(text, index), U_GC_LL_MASK);
}

bool TCharacter::IsWhiteSpace(WideChar c)
{
    return u_isUWhiteSpace(c) != 0;
}

bool TCharacter::IsWhiteSpace(const UnicodeString& text, int index)
{
    return u_isUWhiteSpace(CodeAt(text, index)) != 0;
}

bool TCharacter::IsPunctuation(WideChar c)
{
    return IsOf(c, U_GC_P_MASK);
}

bool TCharacter::IsPunctuation(const UnicodeString& text, int index)
{
    return IsOf(CodeAt(text, index), U_GC_P_MASK);
}

bool TCharacter::IsControl(WideChar c)
{
    return IsOf(c, U_GC_CC_MASK);
}

bool TCharacter::IsControl(const UnicodeString& text, int index)
{
    return IsOf(CodeAt(text, index), U_GC_CC_MASK);
}

bool TCharacter::IsSymbol(WideChar c)
{
    return IsOf(c, U_GC_S_MASK);
}

bool TCharacter::IsSymbol(const UnicodeString& text, int index)
{
    return IsOf(CodeAt(text, index), U_GC_S_MASK);
}

bool TCharacter::IsSeparator(WideChar c)
{
    return IsOf(c, U_GC_Z_MASK);
}

bool TCharacter::IsSeparator(const UnicodeString& text, int index)
{
    return IsOf(CodeAt(text, index), U_GC_Z_MASK);
}

bool TCharacter::IsSurrogate(WideChar c)
{
    return U16_IS_SURROGATE(c);
}

bool TCharacter::IsSurrogate(const UnicodeString& text, int index)
{
    return IsSurrogate(UnitAt(text, index));
}

bool TCharacter::IsHighSurrogate(WideChar c)
{
    return U16_IS_LEAD(c);
}

bool TCharacter::IsHighSurrogate(const UnicodeString& text, int index)
{
    return IsHighSurrogate(UnitAt(text, index));
}

bool TCharacter::IsLowSurrogate(WideChar c)
{
    return U16_IS_TRAIL(c);
}

bool TCharacter::IsLowSurrogate(const UnicodeString& text, int index)
{
    return IsLowSurrogate(UnitAt(text, index));
}

bool TCharacter::IsSurrogatePair(WideChar high, WideChar low)
{
    return IsHighSurrogate(high) && IsLowSurrogate(low);
}

bool TCharacter::IsSurrogatePair(const UnicodeString& text, int index)
{
    const WideChar unit = UnitAt(text, index);
    return index < text.Length() && IsSurrogatePair(unit, text[index + 1]);
}

WideChar TCharacter::ToUpper(WideChar c)
{
    return UnitOr(u_toupper(c), c);
}

UnicodeString TCharacter::ToUpper(const UnicodeString& text)
{
    return text.UpperCase();
}

WideChar TCharacter::ToLower(WideChar c)
{
    return UnitOr(u_tolower(c), c);
}

UnicodeString TCharacter::ToLower(const UnicodeString& text)
{
    return text.LowerCase();
}

char32_t TCharacter::ConvertToUtf32(const UnicodeString& text, int index)
{
    int ignored = 0;
    return ConvertToUtf32(text, index, ignored);
}

char32_t TCharacter::ConvertToUtf32(const UnicodeString& text, int index, int& length)
{
    const UChar32 code = CodeAt(text, index);
    if (U_IS_SURROGATE(code)) {
        throw Sysutils::EArgumentException(u"A surrogate without its partner stands at " +
                                           UnicodeString(index) + u".");
    }
    length = U16_LENGTH(code);
    return static_cast<char32_t>(code);
}

char32_t TCharacter::ConvertToUtf32(WideChar high, WideChar low)
{
    if (!IsSurrogatePair(high, low)) {
        throw Sysutils::EArgumentOutOfRangeException(u"The characters are no surrogate pair.");
    }
    return static_cast<char32_t>(U16_GET_SUPPLEMENTARY(high, low));
}

UnicodeString TCharacter::ConvertFromUtf32(char32_t code)
{
    if (code > UCHAR_MAX_VALUE || U_IS_SURROGATE(code)) {
        throw Sysutils::EArgumentOutOfRangeException(u"The code is no character of Unicode.");
    }
    if (U_IS_BMP(code)) {
        return static_cast<WideChar>(code);
    }
    const WideChar pair[] = {U16_LEAD(code), U16_TRAIL(code)};
    return {pair, 2};
}

} // namespace Character
