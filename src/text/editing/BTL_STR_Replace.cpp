// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_Replace.h"

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "text/editing/BTL_STR_Cut.h"
#include "text/editing/internal/BTL_STR_Fold.h"

#include <algorithm>

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

bool Accept(std::u16string_view& rest, const UnicodeString& text)
{
    if (text.IsEmpty() || !rest.starts_with(text.AsView())) {
        return false;
    }
    rest.remove_prefix(static_cast<std::size_t>(text.Length()));
    return true;
}

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
    for (std::u16string_view rest = s.AsView(); !rest.empty();) {
        const bool quoted = state.Take(rest.front());
        if (!quoted && Accept(rest, oldText)) {
            result += newText;
            continue;
        }
        result += rest.front();
        rest.remove_prefix(1);
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
    for (std::u16string_view rest = s.AsView(); !rest.empty();) {
        const bool quoted = state.Take(rest.front());
        if (!quoted && Accept(rest, open)) {
            ++depth;
            continue;
        }
        if (!quoted && depth > 0 && Accept(rest, close)) {
            --depth;
            continue;
        }
        if (depth == 0) {
            result += rest.front();
        }
        rest.remove_prefix(1);
    }
    return result;
}

} // namespace BTL
