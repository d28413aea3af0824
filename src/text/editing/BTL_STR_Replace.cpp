// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_Replace.h"

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "text/editing/BTL_STR_Cut.h"
#include "text/editing/internal/BTL_STR_Fold.h"

#include <algorithm>
#include <vector>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

template <class S>
S WithoutChar(const S& s, typename S::CharType c)
{
    S result = s;
    auto* const text = result.UniqueData();
    return result.SetLength(static_cast<int>(std::remove(text, text + s.Length(), c) - text));
}

template <class S>
S WithChar(const S& s, typename S::CharType from, typename S::CharType to)
{
    S result = s;
    auto* const text = result.UniqueData();
    std::replace(text, text + s.Length(), from, to);
    return result;
}

/// Replaces the `length` characters at `at`, unless that is 0, and cuts.
template <class S>
S ExchangeAt(S s, int at, int length, const S& newText, int maxLen)
{
    if (at != 0) {
        s.Delete(at, length).Insert(newText, at);
    }
    if (maxLen > 0) {
        ReduceLength(s, maxLen);
    }
    return s;
}

template <class S>
S ExchangeFirst(const S& s, const S& oldText, const S& newText, int maxLen)
{
    return ExchangeAt(s, s.Pos(oldText), oldText.Length(), newText, maxLen);
}

template <class S>
void ExchangeFirstOfEach(Classes::TStrings* strings, const S& oldText, const S& newText, int maxLen)
{
    const int count = strings == nullptr ? 0 : strings->getCount();
    for (int i = 0; i < count; ++i) {
        strings->setStrings(i, ExchangeFirst(S(strings->getStrings(i)), oldText, newText, maxLen));
    }
}

template <class S>
S ExchangeChar(const S& s, typename S::CharType c, const S& newText)
{
    S result;
    auto rest = s.AsView();
    for (auto at = rest.find(c); at != S::View::npos; at = rest.find(c)) {
        result.Append(rest.substr(0, at));
        result += newText;
        rest.remove_prefix(at + 1);
    }
    result.Append(rest);
    return result;
}

template <class S>
S DeleteBetween(const S& s, typename S::CharType open, typename S::CharType close)
{
    S result;
    std::size_t depth = 0;
    int outerLength = 0;
    for (const auto c : s.AsView()) {
        result += c;
        if (depth > 0 && c == close) {
            if (--depth == 0) {
                result.SetLength(outerLength);
                result += c;
            }
        } else if (c == open) {
            if (++depth == 1) {
                outerLength = result.Length();
            }
        }
    }
    return result;
}

/// Follows the quotes of a text: no doubling, no escape.
class CQuoteState
{
public:
    explicit CQuoteState(const UnicodeString& quotes) : mQuotes(quotes.AsView()) {}

    /// True if `c` belongs to a quote, as its content or as its mark.
    bool Take(WideChar c)
    {
        if (mOpen) {
            mOpen = c != mQuote;
            return true;
        }
        mOpen = mQuotes.find(c) != std::u16string_view::npos;
        mQuote = c;
        return mOpen;
    }

private:
    std::u16string_view mQuotes;
    WideChar mQuote = 0;
    bool mOpen = false;
};

/// Tells of one place after the other whether a pattern stands there, in time with the length of the text.
class COccurrences
{
public:
    COccurrences(std::u16string_view text, std::u16string_view pattern)
        : mText(text), mPattern(pattern), mBorders(pattern.size())
    {
        for (std::size_t i = 1; i < pattern.size(); ++i) {
            mBorders[i] = Step(mBorders[i - 1], pattern[i]);
        }
    }

    /// `at` is never less than in the call before. An empty pattern is nowhere.
    bool IsAt(std::size_t at)
    {
        const std::size_t end = std::min(at + mPattern.size(), mText.size());
        for (; mRead < end && !mPattern.empty(); ++mRead) {
            mMatched = Step(mMatched, mText[mRead]);
        }
        return !mPattern.empty() && mMatched == mPattern.size() && mRead == at + mPattern.size();
    }
    std::size_t Length() const { return mPattern.size(); }

private:
    /// How much of the pattern matches with one more character behind `matched` of it.
    std::size_t Step(std::size_t matched, WideChar c) const
    {
        while (matched > 0 && (matched == mPattern.size() || mPattern[matched] != c)) {
            matched = mBorders[matched - 1];
        }
        return mPattern[matched] == c ? matched + 1 : 0;
    }

    std::u16string_view mText;
    std::u16string_view mPattern;
    /// For each beginning of the pattern, the length of the longest shorter one that also ends it.
    std::vector<std::size_t> mBorders;
    std::size_t mRead = 0;
    std::size_t mMatched = 0;
};

} // namespace

UnicodeString DeleteChars(const UnicodeString& s, WideChar c)
{
    return WithoutChar(s, c);
}

AnsiString DeleteChars(const AnsiString& s, char c)
{
    return WithoutChar(s, c);
}

UnicodeString ClearBlanks(const UnicodeString& s)
{
    return WithoutChar(s.Trim(), u' ');
}

AnsiString ClearBlanks(const AnsiString& s)
{
    return WithoutChar(s.Trim(), ' ');
}

UnicodeString CharReplace(const UnicodeString& s, WideChar from, WideChar to)
{
    return WithChar(s, from, to);
}

AnsiString CharReplace(const AnsiString& s, char from, char to)
{
    return WithChar(s, from, to);
}

UnicodeString Delete1stSubString(UnicodeString& s, const UnicodeString& sub)
{
    const int length = sub.Length();
    return s.Delete(s.Pos(sub), length);
}

UnicodeString Exchange1stSubStr(const UnicodeString& s, const UnicodeString& oldText,
                                const UnicodeString& newText, int maxLen)
{
    return ExchangeFirst(s, oldText, newText, maxLen);
}

AnsiString Exchange1stSubStr(const AnsiString& s, const AnsiString& oldText, const AnsiString& newText,
                             int maxLen)
{
    return ExchangeFirst(s, oldText, newText, maxLen);
}

UnicodeString Exchange1stSubStrIC(const UnicodeString& s, const UnicodeString& oldText,
                                  const UnicodeString& newText, int maxLen)
{
    const int at = Detail::LowerByCharacter(s).Pos(Detail::LowerByCharacter(oldText));
    return ExchangeAt(s, at, oldText.Length(), newText, maxLen);
}

void Exchange1stSubStrs(Classes::TStrings* strings, const UnicodeString& oldText,
                        const UnicodeString& newText, int maxLen)
{
    ExchangeFirstOfEach(strings, oldText, newText, maxLen);
}

void Exchange1stSubStrs(Classes::TStrings* strings, const AnsiString& oldText, const AnsiString& newText,
                        int maxLen)
{
    ExchangeFirstOfEach(strings, oldText, newText, maxLen);
}

UnicodeString ExchangeAll(const UnicodeString& s, const UnicodeString& oldText, const UnicodeString& newText)
{
    return Sysutils::StringReplace(s, oldText, newText, Sysutils::TReplaceFlags() << Sysutils::rfReplaceAll);
}

AnsiString ExchangeAll(const AnsiString& s, const AnsiString& oldText, const AnsiString& newText)
{
    return Sysutils::StringReplace(s, oldText, newText, Sysutils::TReplaceFlags() << Sysutils::rfReplaceAll);
}

UnicodeString ExchangeAll(const UnicodeString& s, WideChar c, const UnicodeString& newText)
{
    return ExchangeChar(s, c, newText);
}

AnsiString ExchangeAll(const AnsiString& s, char c, const AnsiString& newText)
{
    return ExchangeChar(s, c, newText);
}

UnicodeString ExchangeAll(const UnicodeString& s, const UnicodeString& oldText, const UnicodeString& newText,
                          const UnicodeString& quotes)
{
    UnicodeString result;
    CQuoteState state(quotes);
    const std::u16string_view text = s.AsView();
    COccurrences olds(text, oldText.AsView());
    for (std::size_t at = 0; at < text.size();) {
        const bool quoted = state.Take(text[at]);
        if (!quoted && olds.IsAt(at)) {
            result += newText;
            at += olds.Length();
        } else {
            result += text[at++];
        }
    }
    return result;
}

UnicodeString DeleteSubStrings(const UnicodeString& s, WideChar open, WideChar close)
{
    return DeleteBetween(s, open, close);
}

AnsiString DeleteSubStrings(const AnsiString& s, char open, char close)
{
    return DeleteBetween(s, open, close);
}

UnicodeString DelDelimitedSubStrings(const UnicodeString& s, const UnicodeString& open,
                                     const UnicodeString& close, const UnicodeString& quotes)
{
    UnicodeString result;
    CQuoteState state(quotes);
    std::size_t depth = 0;
    const std::u16string_view text = s.AsView();
    COccurrences opens(text, open.AsView());
    COccurrences closes(text, close.AsView());
    for (std::size_t at = 0; at < text.size();) {
        const bool quoted = state.Take(text[at]);
        if (!quoted && opens.IsAt(at)) {
            ++depth;
            at += opens.Length();
        } else if (!quoted && depth > 0 && closes.IsAt(at)) {
            --depth;
            at += closes.Length();
        } else {
            if (depth == 0) {
                result += text[at];
            }
            ++at;
        }
    }
    return result;
}

} // namespace BTL
