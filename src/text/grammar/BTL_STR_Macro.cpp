// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Macro.h"

#include "platform/runtime/classes/internal/Classes_DelimitedText.h"
#include "text/editing/BTL_STR_Cut.h"
#include "text/editing/BTL_STR_Replace.h"
#include "text/grammar/BTL_STR_Command.h"
#include "text/grammar/internal/BTL_STR_MacroBody.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;

// The bounds of expansions within text that expansions inserted: far above what any configuration needs, far
// below what hangs a program.
constexpr std::size_t MaxDepth = 100;
constexpr std::size_t MaxNestedExpansions = 10'000;
constexpr std::size_t MaxNestedText = 1 << 20;
constexpr std::size_t MaxBody = 1 << 26;

template <class S>
std::vector<S> ReadCommaText(const S& text)
{
    const UnicodeString wide(text);
    std::vector<Classes::TStringItem> read = Classes::ReadDelimited(wide.AsView(), Classes::CommaForm);
    std::vector<S> items;
    items.reserve(read.size());
    for (Classes::TStringItem& item : read) {
        items.push_back(S(std::move(item.String)));
    }
    return items;
}

/// Expands the calls of one macro with parameters.
template <class S>
class CMacroExpander
{
    using Char = typename S::CharType;
    using View = typename S::View;
    /// Text still to be searched, back to front: its begin, where the work is, is cheap to change.
    using TPending = std::basic_string<Char>;

public:
    CMacroExpander(const S& macro, const S& body)
        : mName(LeftSubStringUntil(macro, Char('('))),
          mParameters(ReadCommaText(DelimSubString2(macro, Char('('), Char(')'), 1))),
          mFiller(mParameters),
          mBody(body),
          mReversedName(mName.AsView().rbegin(), mName.AsView().rend())
    {
    }

    S Expand(const S& text)
    {
        mPending.assign(text.AsView().rbegin(), text.AsView().rend());
        while (ExpandNext()) {
        }
        Take(mPending.size());
        return std::move(mDone);
    }

private:
    /// Expands the first call that is left; false if there is none, or expansion is refused.
    bool ExpandNext()
    {
        const auto name =
            mReversedName.empty() ? TPending::npos : System::Detail::FindLastText(mPending, mReversedName);
        const auto open = Behind(name, Char('('));
        const auto close = Behind(open, Char(')'));
        if (close == TPending::npos) {
            return false;
        }
        const std::size_t callEnd = name + mReversedName.size();
        LeaveInsertedText(callEnd);
        const S values(View(TPending(mPending.rend() - static_cast<std::ptrdiff_t>(open),
                                     mPending.rend() - static_cast<std::ptrdiff_t>(close + 1))));
        const bool isNested = !mInsertedEnds.empty();
        if (isNested && !IsWithinBounds()) {
            return false;
        }
        const std::size_t most =
            isNested ? MaxNestedText - mNestedText : std::max<std::size_t>(MaxBody, mBody.AsView().size());
        const std::optional<S> expanded = FillBody(ReadCommaText(values), most);
        if (!expanded) {
            return false;
        }
        mNestedText += isNested ? static_cast<std::size_t>(expanded->Length()) : 0;
        // The begin of a name may have been finished by what was inserted, so that much is searched again.
        const std::size_t before = mPending.size() - callEnd;
        Take(before - std::min(before, mReversedName.size() - 1));
        const TPending kept = mPending.substr(callEnd);
        mPending.resize(close);
        mInsertedEnds.push_back(close);
        mPending.append(expanded->AsView().rbegin(), expanded->AsView().rend());
        mPending += kept;
        return true;
    }

    /// The index of the next `c` behind another place; both count from the end of the text.
    std::size_t Behind(std::size_t place, Char c) const
    {
        return place == TPending::npos || place == 0 ? TPending::npos : mPending.rfind(c, place - 1);
    }

    /// Moves `count` characters from the begin of the pending text to the result.
    void Take(std::size_t count)
    {
        mTaken.assign(mPending.rbegin(), mPending.rbegin() + static_cast<std::ptrdiff_t>(count));
        mDone.Append(mTaken);
        mPending.resize(mPending.size() - count);
    }

    /// Forgets the insertions that lie wholly in front of the call.
    void LeaveInsertedText(std::size_t callEnd)
    {
        while (!mInsertedEnds.empty() && mInsertedEnds.back() >= callEnd) {
            mInsertedEnds.pop_back();
        }
    }

    /// True if one more expansion within inserted text is allowed.
    bool IsWithinBounds()
    {
        return mInsertedEnds.size() < MaxDepth && ++mNestedExpansions < MaxNestedExpansions;
    }

    /// The body with its values; nothing if it grows beyond `most` on the way.
    std::optional<S> FillBody(const std::vector<S>& values, std::size_t most)
    {
        if (mFiller.CanFill()) {
            return mFiller.Fill(mBody.AsView(), values, most);
        }
        S body = mBody;
        for (std::size_t i = 0; i < std::min(mParameters.size(), values.size()); ++i) {
            const S formal = S("%") + mParameters[i];
            if (ExchangedLength(body, formal, values[i]) > most) {
                return std::nullopt;
            }
            body = ExchangeAll(body, formal, values[i]);
        }
        return static_cast<std::size_t>(body.Length()) > most ? std::nullopt : std::optional<S>(body);
    }

    static std::size_t ExchangedLength(const S& text, const S& formal, const S& value)
    {
        const auto view = text.AsView();
        const auto length = static_cast<std::size_t>(formal.Length());
        std::size_t count = 0;
        for (auto at = System::Detail::FindText(view, formal.AsView()); at != View::npos;
             at = System::Detail::FindText(view, formal.AsView(), at + length)) {
            ++count;
        }
        return view.size() + count * static_cast<std::size_t>(value.Length());
    }

    S mName;
    std::vector<S> mParameters;
    GMacroBody<S> mFiller;
    S mBody;
    TPending mReversedName;
    TPending mPending;
    TPending mTaken;
    S mDone;
    /// Where the insertions end that the search is in, as sizes of the pending text behind them.
    std::vector<std::size_t> mInsertedEnds;
    std::size_t mNestedExpansions = 0;
    std::size_t mNestedText = 0;
};

template <class S>
S Apply(const S& text, const S& macro, const S& body)
{
    if (macro.Pos(typename S::CharType('(')) == 0) {
        return ExchangeAll(text, macro, body);
    }
    return CMacroExpander<S>(macro, body).Expand(text);
}

} // namespace

UnicodeString ApplyMacro(const UnicodeString& text, const UnicodeString& macro, const UnicodeString& body)
{
    return Apply(text, macro, body);
}

AnsiString ApplyMacro(const AnsiString& text, const AnsiString& macro, const AnsiString& body)
{
    return Apply(text, macro, body);
}

} // namespace BTL
