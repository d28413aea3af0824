// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Ident.h"

#include "platform/base/internal/System_Ascii.h"
#include "text/editing/BTL_STR_Search.h"

#include <atomic>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

constexpr bool StartsIdent(std::uint32_t c)
{
    return System::Detail::IsAsciiLetter(c) || c == '_';
}

constexpr bool ContinuesIdent(std::uint32_t c)
{
    return StartsIdent(c) || System::Detail::IsAsciiDigit(c);
}

template <class S>
S ToIdent(const S& s, typename S::CharType replacement)
{
    S result;
    bool first = true;
    for (const auto c : s.AsView()) {
        const auto code = static_cast<std::make_unsigned_t<typename S::CharType>>(c);
        if (first ? StartsIdent(code) : ContinuesIdent(code)) {
            result += c;
        } else if (replacement != 0) {
            result += replacement;
        }
        first = false;
    }
    return result;
}

/// The next number of the process; both widths count together.
int NextNumber()
{
    static std::atomic<int> counter = 0;
    return ++counter;
}

template <class S>
S NumberedIfEmpty(const S& ident, const S& prefix)
{
    return ident.IsEmpty() ? prefix + S(NextNumber()) : ident;
}

template <class S>
int FindShortCut(const S& s, typename S::CharType marker)
{
    const int place = Pos_N2(s, marker);
    return place == s.Length() ? 0 : place;
}

template <class S>
S WithoutShortCuts(const S& s, typename S::CharType marker)
{
    S result;
    for (auto rest = s.AsView(); !rest.empty();) {
        const bool isPair = rest.size() > 1 && rest[0] == marker && rest[1] == marker;
        const std::size_t length = isPair ? 2 : 1;
        if (isPair || rest[0] != marker) {
            result.Append(rest.substr(0, length));
        }
        rest.remove_prefix(length);
    }
    return result;
}

} // namespace

UnicodeString TransformToValidIdent(const UnicodeString& s, WideChar replacement)
{
    return ToIdent(s, replacement);
}

AnsiString TransformToValidIdent(const AnsiString& s, char replacement)
{
    return ToIdent(s, replacement);
}

UnicodeString TransformToValidIdent(const UnicodeString& s, WideChar replacement, const UnicodeString& prefix)
{
    return NumberedIfEmpty(ToIdent(s, replacement), prefix);
}

AnsiString TransformToValidIdent(const AnsiString& s, char replacement, const AnsiString& prefix)
{
    return NumberedIfEmpty(ToIdent(s, replacement), prefix);
}

int ShortCutPos(const UnicodeString& s, WideChar marker)
{
    return FindShortCut(s, marker);
}

int ShortCutPos(const AnsiString& s, char marker)
{
    return FindShortCut(s, marker);
}

UnicodeString ClearShortCut(const UnicodeString& s, WideChar marker)
{
    return WithoutShortCuts(s, marker);
}

AnsiString ClearShortCut(const AnsiString& s, char marker)
{
    return WithoutShortCuts(s, marker);
}

} // namespace BTL
