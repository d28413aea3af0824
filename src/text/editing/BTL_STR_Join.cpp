// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_Join.h"

#include "platform/base/numbers/Sysutils_Number.h"

#include <algorithm>
#include <cstdlib>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

template <class S>
S& Add(S& s, const S& add, const S& delim)
{
    if (s.IsEmpty()) {
        s = add;
        return s;
    }
    const S tail = delim + add;
    return s += tail;
}

template <class S>
S Concatenate(const S& a, const S& b, int maxLen, const S& filler)
{
    if (a.Length() + b.Length() <= maxLen) {
        return a + b;
    }
    return a.SubString(1, std::max(maxLen, 0) - filler.Length() - b.Length()) + filler + b;
}

template <class S>
S PadRight(const S& s, int width, typename S::CharType c)
{
    return s.Length() >= width ? s : s + S::StringOfChar(c, width - s.Length());
}

template <class S>
S PadLeft(const S& s, int width, typename S::CharType c)
{
    return s.Length() >= width ? s : S::StringOfChar(c, width - s.Length()) + s;
}

template <class S>
S NumberLike(int value, int maxValue)
{
    const int width = maxValue < 1 ? 0 : S(maxValue).Length();
    const S digits = PadLeft(S(std::llabs(value)), width, '0');
    return value < 0 ? S("-") + digits : digits;
}

template <class S>
S Number(const S& s, const S& placeholder, int n)
{
    const int at = s.Pos(placeholder);
    if (at == 0) {
        return s + S(n);
    }
    S picture = s;
    picture.Delete(at, placeholder.Length()).Insert(S::StringOfChar('0', placeholder.Length()), at);
    return Sysutils::FormatFloat(picture, static_cast<double>(n));
}

} // namespace

UnicodeString& AddString(UnicodeString& s, const UnicodeString& add, const UnicodeString& delim)
{
    return Add(s, add, delim);
}

AnsiString& AddString(AnsiString& s, const AnsiString& add, const AnsiString& delim)
{
    return Add(s, add, delim);
}

UnicodeString StrCat(const UnicodeString& a, const UnicodeString& b, const UnicodeString& delim)
{
    if (a.IsEmpty()) {
        return b;
    }
    return b.IsEmpty() ? a : a + delim + b;
}

UnicodeString ConcatenateStrings(const UnicodeString& a, const UnicodeString& b, int maxLen,
                                 const UnicodeString& filler)
{
    return Concatenate(a, b, maxLen, filler);
}

AnsiString ConcatenateStrings(const AnsiString& a, const AnsiString& b, int maxLen, const AnsiString& filler)
{
    return Concatenate(a, b, maxLen, filler);
}

UnicodeString FillString(const UnicodeString& s, int width, WideChar c)
{
    return PadRight(s, width, c);
}

AnsiString FillString(const AnsiString& s, int width, char c)
{
    return PadRight(s, width, c);
}

UnicodeString FillStringLeft(const UnicodeString& s, int width, WideChar c)
{
    return PadLeft(s, width, c);
}

AnsiString FillStringLeft(const AnsiString& s, int width, char c)
{
    return PadLeft(s, width, c);
}

UnicodeString FillNumberLeftW(int value, int maxValue)
{
    return NumberLike<UnicodeString>(value, maxValue);
}

AnsiString FillNumberLeftA(int value, int maxValue)
{
    return NumberLike<AnsiString>(value, maxValue);
}

UnicodeString InsertNumber(const UnicodeString& s, const UnicodeString& placeholder, int n)
{
    return Number(s, placeholder, n);
}

AnsiString InsertNumber(const AnsiString& s, const AnsiString& placeholder, int n)
{
    return Number(s, placeholder, n);
}

} // namespace BTL
