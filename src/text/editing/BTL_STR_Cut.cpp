// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_Cut.h"

#include <algorithm>
#include <utility>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

template <class S>
S RightPart(const S& s, int n)
{
    return n <= 0 ? S() : s.SubString(std::max(s.Length() - n, 0) + 1);
}

template <class S>
S& CutRight(S& s, int n)
{
    return s.SetLength(s.Length() - std::clamp(n, 0, s.Length()));
}

template <class S>
S& CutRightAt(S& s, int at)
{
    return s.SetLength(std::clamp(at - 1, 0, s.Length()));
}

template <class S>
S UpTo(const S& s, typename S::CharType c)
{
    return S(s.AsView().substr(0, s.AsView().find(c)));
}

template <class S>
void ReduceTo(S& s, int n)
{
    if (n >= 0 && s.Length() > n) {
        s.SetLength(n);
    }
}

template <class S>
bool ReduceTo(S& s, int n, const S& suffix)
{
    if (n < 0 || s.Length() <= n) {
        return false;
    }
    // `suffix` may be `s` itself.
    const S added = suffix; // NOLINT(performance-unnecessary-copy-initialization)
    s.SetLength(n);
    s += added;
    return true;
}

/// What is taken of a text without the delimiter.
enum class EUndivided
{
    Nothing,
    Whole,
};

constexpr EUndivided UndividedIf(bool wholeIfMissing)
{
    return wholeIfMissing ? EUndivided::Whole : EUndivided::Nothing;
}

template <class S, class Delimiter>
S ConsumeLeft(S& s, const Delimiter& delim, int delimLength, EUndivided undivided)
{
    const int at = s.Pos(delim);
    if (at == 0) {
        return undivided == EUndivided::Whole ? std::exchange(s, S()) : S();
    }
    S left = s.SubString(1, at - 1);
    s.Delete(1, at - 1 + delimLength);
    return left;
}

template <class S>
void Split(const S& s, typename S::CharType delim, S& left, S& right)
{
    S rest = s;
    left = ConsumeLeft(rest, delim, 1, EUndivided::Whole);
    right = rest;
}

template <class S>
bool IsQuoted(const S& s, typename S::CharType quote)
{
    return s.Length() >= 2 && s.AsView().front() == quote && s.AsView().back() == quote;
}

template <class S>
S Unquoted(const S& s, typename S::CharType quote)
{
    auto text = s.AsView();
    if (!text.empty() && text.front() == quote) {
        text.remove_prefix(1);
    }
    if (!text.empty() && text.back() == quote) {
        text.remove_suffix(1);
    }
    return S(text);
}

} // namespace

UnicodeString LeftSubString(const UnicodeString& s, int n)
{
    return s.SubString(1, n);
}

AnsiString LeftSubString(const AnsiString& s, int n)
{
    return s.SubString(1, n);
}

UnicodeString LeftSubStringUntil(const UnicodeString& s, WideChar c)
{
    return UpTo(s, c);
}

AnsiString LeftSubStringUntil(const AnsiString& s, char c)
{
    return UpTo(s, c);
}

UnicodeString RightSubString(const UnicodeString& s, int n)
{
    return RightPart(s, n);
}

AnsiString RightSubString(const AnsiString& s, int n)
{
    return RightPart(s, n);
}

UnicodeString RightSubStringAt(const UnicodeString& s, int at)
{
    return s.SubString(at);
}

AnsiString RightSubStringAt(const AnsiString& s, int at)
{
    return s.SubString(at);
}

UnicodeString& DeleteLeft(UnicodeString& s, int n)
{
    return s.Delete(1, n);
}

AnsiString& DeleteLeft(AnsiString& s, int n)
{
    return s.Delete(1, n);
}

UnicodeString& DeleteRight(UnicodeString& s, int n)
{
    return CutRight(s, n);
}

AnsiString& DeleteRight(AnsiString& s, int n)
{
    return CutRight(s, n);
}

UnicodeString& DeleteRightAt(UnicodeString& s, int at)
{
    return CutRightAt(s, std::max(at, 0));
}

AnsiString& DeleteRightAt(AnsiString& s, int at)
{
    return CutRightAt(s, std::max(at, 0));
}

void TrimEnd(UnicodeString& s)
{
    s = s.TrimRight();
}

void TrimEnd(AnsiString& s)
{
    s = s.TrimRight();
}

void ReduceLength(UnicodeString& s, int n)
{
    ReduceTo(s, n);
}

void ReduceLength(AnsiString& s, int n)
{
    ReduceTo(s, n);
}

bool ReduceLength(UnicodeString& s, int n, const UnicodeString& suffix)
{
    return ReduceTo(s, n, suffix);
}

bool ReduceLength(AnsiString& s, int n, const AnsiString& suffix)
{
    return ReduceTo(s, n, suffix);
}

UnicodeString ShrinkString(const UnicodeString& s, int n, const UnicodeString& suffix)
{
    UnicodeString copy = s;
    ReduceTo(copy, n, suffix);
    return copy;
}

UnicodeString ConsumeLeftSubString(UnicodeString& s, WideChar delim, bool wholeIfMissing)
{
    return ConsumeLeft(s, delim, 1, UndividedIf(wholeIfMissing));
}

AnsiString ConsumeLeftSubString(AnsiString& s, char delim, bool wholeIfMissing)
{
    return ConsumeLeft(s, delim, 1, UndividedIf(wholeIfMissing));
}

UnicodeString ConsumeLeftSubString(UnicodeString& s, const UnicodeString& delim, bool wholeIfMissing)
{
    return ConsumeLeft(s, delim, delim.Length(), UndividedIf(wholeIfMissing));
}

AnsiString ConsumeLeftSubString(AnsiString& s, const AnsiString& delim, bool wholeIfMissing)
{
    return ConsumeLeft(s, delim, delim.Length(), UndividedIf(wholeIfMissing));
}

void GetSubStrings(const UnicodeString& s, WideChar delim, UnicodeString& left, UnicodeString& right)
{
    Split(s, delim, left, right);
}

void GetSubStrings(const AnsiString& s, char delim, AnsiString& left, AnsiString& right)
{
    Split(s, delim, left, right);
}

bool IsQuotedStr(const UnicodeString& s, WideChar quote)
{
    return IsQuoted(s, quote);
}

bool IsQuotedStr(const AnsiString& s, char quote)
{
    return IsQuoted(s, quote);
}

UnicodeString ExtractQuotedStr(const UnicodeString& s, WideChar quote)
{
    return Unquoted(s, quote);
}

AnsiString ExtractQuotedStr(const AnsiString& s, char quote)
{
    return Unquoted(s, quote);
}

} // namespace BTL
