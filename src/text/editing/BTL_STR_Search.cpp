// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_Search.h"

#include "foundation/UTL_STR_Words.h"
#include "platform/base/internal/System_Ascii.h"
#include "platform/base/internal/System_LinearSearch.h"
#include "text/editing/internal/BTL_STR_Fold.h"

#include <algorithm>
#include <array>

#include <unicode/uchar.h>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;
using System::Detail::SafeView;

int Place(std::size_t index)
{
    return static_cast<int>(index + 1);
}

template <class S>
int FindFrom(const S& s, const S& sub, int from)
{
    const int start = std::max(from, 1) - 1;
    if (sub.IsEmpty() || start >= s.Length()) {
        return 0;
    }
    return Place(System::Detail::FindText(s.AsView(), sub.AsView(), static_cast<std::size_t>(start)));
}

template <class S>
int FindSingle(const S& s, typename S::CharType c)
{
    const auto text = s.AsView();
    for (auto at = text.find(c); at != S::View::npos; at = text.find(c, at + 2)) {
        if (at + 1 == text.size() || text[at + 1] != c) {
            return Place(at);
        }
    }
    return 0;
}

/// The place of the end that a caller means.
template <class S>
std::size_t EndOf(const S& s, int end)
{
    return static_cast<std::size_t>(end < 0 ? s.Length() : std::min(end, s.Length()));
}

template <class S>
int FindLast(const S& s, typename S::CharType c, int from)
{
    return Place(s.AsView().substr(0, EndOf(s, from)).rfind(c));
}

template <class S>
int FindLast(const S& s, const S& sub, int end)
{
    return sub.IsEmpty()
               ? 0
               : Place(System::Detail::FindLastText(s.AsView().substr(0, EndOf(s, end)), sub.AsView()));
}

/// As `CharUpperW`, but quick for the letters that most texts consist of.
WideChar Folded(WideChar c)
{
    return c < 0x80 ? System::Detail::AsciiUpper(c) : CharUpperW(c);
}

char Folded(char c)
{
    return CharUpperW(c);
}

/// The place of the first `sub` without regard to case.
template <class S>
int FindIgnoringCase(const S& s, const S& sub)
{
    if (sub.IsEmpty()) {
        return 0;
    }
    const auto text = s.AsView();
    const S folded = Detail::UpperByCharacter(sub);
    const auto pattern = folded.AsView();
    const std::size_t at =
        System::Detail::FindLinear([text](std::size_t i) { return Folded(text[i]); }, text.size(),
                                   [pattern](std::size_t i) { return pattern[i]; }, pattern.size());
    return at == text.size() ? 0 : Place(at);
}

/// As `FindLast`, but without regard to case.
template <class S>
int FindLastIgnoringCase(const S& s, const S& sub, int end)
{
    if (sub.IsEmpty()) {
        return 0;
    }
    const auto text = s.AsView().substr(0, EndOf(s, end));
    const S folded = Detail::UpperByCharacter(sub);
    const auto pattern = folded.AsView();
    const std::size_t behind = System::Detail::FindLinear(
        [text](std::size_t i) { return Folded(text[text.size() - 1 - i]); }, text.size(),
        [pattern](std::size_t i) { return pattern[pattern.size() - 1 - i]; }, pattern.size());
    return behind == text.size() ? 0 : Place(text.size() - behind - pattern.size());
}

template <class Char>
int Count(std::basic_string_view<Char> text, Char c)
{
    return c == 0 ? 0 : static_cast<int>(std::count(text.begin(), text.end(), c));
}

template <class S>
bool HasLetter(const S& s)
{
    const unsigned char* const letters = UTL::GetWordCharsA();
    const auto text = s.AsView();
    return std::any_of(text.begin(), text.end(), [letters](auto c) {
        const auto code = static_cast<unsigned char>(c);
        return code != '_' && letters[code] != 0;
    });
}

/// The upper case of the 256 characters of the system's code page.
std::array<char, 256> MakeUpperTable()
{
    std::array<char, 256> table = {};
    for (std::size_t code = 0; code < table.size(); ++code) {
        const char c = static_cast<char>(code);
        const AnsiString upper = UnicodeString(CharUpperW(UnicodeString(c)[1]));
        // A letter whose upper case the code page lacks stays.
        table[code] = upper == AnsiString("?") ? c : upper[1];
    }
    return table;
}

} // namespace

namespace Detail
{

UnicodeString UpperByCharacter(UnicodeString s)
{
    WideChar* const text = s.UniqueData();
    std::transform(text, text + s.Length(), text, [](WideChar c) { return CharUpperW(c); });
    return s;
}

AnsiString UpperByCharacter(AnsiString s)
{
    char* const text = s.UniqueData();
    std::transform(text, text + s.Length(), text, [](char c) { return CharUpperW(c); });
    return s;
}

UnicodeString LowerByCharacter(UnicodeString s)
{
    WideChar* const text = s.UniqueData();
    std::transform(text, text + s.Length(), text, [](WideChar c) {
        const UChar32 lower = u_tolower(c);
        return lower < 0x10000 ? static_cast<WideChar>(lower) : c;
    });
    return s;
}

} // namespace Detail

int CharPos(const WideChar* text, WideChar c)
{
    return Place(SafeView(text).find(c));
}

int CharPos(const char* text, char c)
{
    return Place(SafeView(text).find(c));
}

int Pos(const UnicodeString& s, WideChar c)
{
    return s.Pos(c);
}

int Pos(const AnsiString& s, char c)
{
    return s.Pos(c);
}

int Pos(const UnicodeString& s, const UnicodeString& sub, int from)
{
    return FindFrom(s, sub, from);
}

int Pos(const AnsiString& s, const AnsiString& sub, int from)
{
    return FindFrom(s, sub, from);
}

int Pos_N2(const UnicodeString& s, WideChar c)
{
    return FindSingle(s, c);
}

int Pos_N2(const AnsiString& s, char c)
{
    return FindSingle(s, c);
}

int PosIC(const UnicodeString& s, const UnicodeString& sub)
{
    return FindIgnoringCase(s, sub);
}

int PosIC(const AnsiString& s, const AnsiString& sub)
{
    return FindIgnoringCase(s, sub);
}

int CharRPos(const UnicodeString& s, WideChar c, int from)
{
    return FindLast(s, c, from);
}

int CharRPos(const AnsiString& s, char c, int from)
{
    return FindLast(s, c, from);
}

int RPos(const UnicodeString& s, const UnicodeString& sub, int end)
{
    return FindLast(s, sub, end);
}

int RPos(const AnsiString& s, const AnsiString& sub, int end)
{
    return FindLast(s, sub, end);
}

int RIPos(const UnicodeString& s, const UnicodeString& sub, int end)
{
    return FindLastIgnoringCase(s, sub, end);
}

int RIPos(const AnsiString& s, const AnsiString& sub, int end)
{
    return FindLastIgnoringCase(s, sub, end);
}

bool BeginsWith(const UnicodeString& s, const UnicodeString& sub, int at)
{
    if (at < 1 || at > s.Length() + 1) {
        return false;
    }
    return s.AsView().substr(static_cast<std::size_t>(at) - 1).starts_with(sub.AsView());
}

bool EndsWith(const UnicodeString& s, const UnicodeString& sub)
{
    return !sub.IsEmpty() && s.AsView().ends_with(sub.AsView());
}

bool IEndsWith(const UnicodeString& s, const UnicodeString& sub)
{
    const auto upper = [](WideChar c) { return CharUpperW(c); };
    const auto end = sub.AsView();
    return !end.empty() && end.size() <= s.size() &&
           std::ranges::equal(s.AsView().substr(s.size() - end.size()), end, {}, upper, upper);
}

int CountChar(const WideChar* text, WideChar c)
{
    return Count(SafeView(text), c);
}

int CountChar(const char* text, char c)
{
    return Count(SafeView(text), c);
}

int CountChar(const UnicodeString& s, char c)
{
    return Count(s.AsView(), UnicodeString(c)[1]);
}

bool IsText(const UnicodeString& s)
{
    return HasLetter(s);
}

bool IsText(const AnsiString& s)
{
    return HasLetter(s);
}

WideChar CharUpperW(WideChar c)
{
    const UChar32 upper = u_toupper(c);
    return upper < 0x10000 ? static_cast<WideChar>(upper) : c;
}

char CharUpperW(char c)
{
    static const std::array<char, 256> table = MakeUpperTable();
    return table[static_cast<unsigned char>(c)];
}

} // namespace BTL
