// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <climits>
#include <cstddef>
#include <functional>
#include <numeric>
#include <optional>
#include <queue>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace BTL
{

/// Puts values in the place of the parameters in the body of a macro, as if each parameter were replaced in
/// all of the body before the next: so what one value brings is found by the parameters behind it. The time
/// goes with what is replaced, not with the count of parameters times the length of the body.
///
/// The body is a chain of pieces, cut in front of each `%`. A piece that begins with one knows the first
/// parameter that is still to come and whose name stands there, through whatever pieces follow it.
template <class S>
class GMacroBody
{
    using Char = typename S::CharType;
    using View = typename S::View;

    static constexpr Char Mark = Char('%');
    static constexpr std::size_t None = static_cast<std::size_t>(-1);
    /// The piece in front of the first and behind the last.
    static constexpr std::size_t End = 0;

    struct TPiece
    {
        View text;
        std::size_t before;
        std::size_t behind;
        /// The parameter to be replaced at the mark that the piece begins with.
        std::size_t due;
    };

public:
    /// `parameters` must outlive this.
    explicit GMacroBody(const std::vector<S>& parameters) : mParameters(parameters), mOrder(parameters.size())
    {
        std::iota(mOrder.begin(), mOrder.end(), std::size_t{0});
        std::ranges::sort(mOrder, {}, [this](std::size_t i) { return std::pair(Name(i), i); });
        mNames.reserve(mOrder.size());
        for (std::size_t begin = 0; begin < mOrder.size();
             begin = static_cast<std::size_t>(mNames.back().end)) {
            AddName(begin);
        }
    }

    /// False where the name of a parameter has a `%` of its own, which a piece ends at.
    bool CanFill() const { return !mHasMarks; }

    /// Nothing if the body grows beyond `most` characters on the way.
    std::optional<S> Fill(View body, const std::vector<S>& values, std::size_t most)
    {
        if (body.size() > most) {
            return std::nullopt;
        }
        mCount = std::min(mParameters.size(), values.size());
        mSize = body.size();
        // Mostly each parameter stands there once, between two texts.
        mPieces.reserve(4 * mCount + 2);
        mPieces.assign(1, {View(), End, End, None});
        if (!mDue.empty()) {
            // Left from a body that grew too much. Its memory is used again otherwise.
            mDue = {};
        }
        Insert(End, body, 0);
        while (!mDue.empty()) {
            const std::size_t parameter = mDue.top().first;
            TakeDue(parameter);
            if (mSize + mTurn.size() * values[parameter].size() > most) {
                return std::nullopt;
            }
            for (const std::size_t piece : mTurn) {
                Replace(piece, parameter, values[parameter].AsView());
            }
        }
        return Joined();
    }

private:
    /// One name, however many parameters have it.
    struct TName
    {
        View name;
        // Where its parameters stand in the order.
        std::ptrdiff_t begin;
        std::ptrdiff_t end;
        /// The number, from 1 on, of the longest other name that this one begins with; 0 if there is none.
        std::size_t shorter;
    };

    /// Adds the name of the parameter at a place of the order.
    void AddName(std::size_t begin)
    {
        const View name = Name(mOrder[begin]);
        std::size_t end = begin;
        while (end < mOrder.size() && Name(mOrder[end]) == name) {
            ++end;
        }
        std::size_t shorter = mNames.size();
        while (shorter != 0 && !name.starts_with(mNames[shorter - 1].name)) {
            shorter = mNames[shorter - 1].shorter;
        }
        mNames.push_back(
            {name, static_cast<std::ptrdiff_t>(begin), static_cast<std::ptrdiff_t>(end), shorter});
        mLongest = std::max(mLongest, name.size());
        mHasMarks = mHasMarks || name.find(Mark) != View::npos;
    }

    View Name(std::size_t parameter) const { return mParameters[parameter].AsView(); }

    /// Collects the pieces whose turn it is. Those that have found an earlier parameter since are passed
    /// over.
    void TakeDue(std::size_t parameter)
    {
        mTurn.clear();
        for (; !mDue.empty() && mDue.top().first == parameter; mDue.pop()) {
            const std::size_t piece = mDue.top().second;
            if (mPieces[piece].due == parameter) {
                mTurn.push_back(piece);
            }
        }
    }

    void Replace(std::size_t piece, std::size_t parameter, View value)
    {
        const std::size_t length = Name(parameter).size() + 1;
        mPieces[piece].due = None;
        const std::size_t behind = Cut(piece, length);
        mSize = mSize - length + value.size();
        Insert(behind, value, parameter + 1);
    }

    /// Cuts characters from the begin of a piece on. The piece that stands behind them.
    std::size_t Cut(std::size_t piece, std::size_t length)
    {
        while (length > 0) {
            TPiece& cut = mPieces[piece];
            const std::size_t part = std::min(length, cut.text.size());
            cut.text.remove_prefix(part);
            length -= part;
            if (cut.text.empty()) {
                mPieces[cut.before].behind = cut.behind;
                mPieces[cut.behind].before = cut.before;
                piece = cut.behind;
            }
        }
        return piece;
    }

    /// Puts a text in front of a piece, for the parameters from `parameter` on.
    void Insert(std::size_t piece, View text, std::size_t parameter)
    {
        const std::size_t before = mPieces[piece].before;
        for (View rest = text; !rest.empty();) {
            const View part = rest.substr(0, rest.find(Mark, 1));
            rest.remove_prefix(part.size());
            const std::size_t last = mPieces[piece].before;
            mPieces.push_back({part, last, piece, None});
            mPieces[last].behind = mPieces.size() - 1;
            mPieces[piece].before = mPieces.size() - 1;
        }
        for (std::size_t at = mPieces[before].behind; at != piece; at = mPieces[at].behind) {
            SetDue(at, parameter);
        }
        SetDueInFront(before, parameter);
    }

    /// The last mark in front of what was inserted may have got the rest of a name.
    void SetDueInFront(std::size_t piece, std::size_t parameter)
    {
        for (std::size_t length = 0; piece != End && length <= mLongest; piece = mPieces[piece].before) {
            if (mPieces[piece].text.front() == Mark) {
                SetDue(piece, parameter);
                return;
            }
            length += mPieces[piece].text.size();
        }
    }

    void SetDue(std::size_t piece, std::size_t parameter)
    {
        if (mPieces[piece].text.front() != Mark) {
            return;
        }
        if (const std::size_t due = FindParameter(piece, parameter); due < mPieces[piece].due) {
            mPieces[piece].due = due;
            mDue.emplace(due, piece);
        }
    }

    /// The first parameter from `parameter` on whose name stands behind the mark of a piece.
    std::size_t FindParameter(std::size_t piece, std::size_t parameter)
    {
        const View text = TextBehindMark(piece);
        std::size_t found = None;
        // The names that the text begins with are the last one that isn't greater, or begin that one.
        const auto greater = std::ranges::upper_bound(mNames, text, {}, &TName::name);
        for (auto name = static_cast<std::size_t>(greater - mNames.begin()); name != 0;
             name = mNames[name - 1].shorter) {
            const TName& candidate = mNames[name - 1];
            if (text.starts_with(candidate.name)) {
                const auto end = mOrder.begin() + candidate.end;
                const auto place = std::lower_bound(mOrder.begin() + candidate.begin, end, parameter);
                found = place == end ? found : std::min(found, *place);
            }
        }
        return found < mCount ? found : None;
    }

    /// As much of the text behind the mark of a piece as a name can have; up to the next mark at most.
    View TextBehindMark(std::size_t piece)
    {
        const View own = mPieces[piece].text.substr(1);
        piece = mPieces[piece].behind;
        if (own.size() >= mLongest || piece == End || mPieces[piece].text.front() == Mark) {
            return own.substr(0, mLongest);
        }
        mGathered = own;
        for (; mGathered.size() < mLongest && piece != End && mPieces[piece].text.front() != Mark;
             piece = mPieces[piece].behind) {
            mGathered += mPieces[piece].text.substr(0, mLongest - mGathered.size());
        }
        return mGathered;
    }

    S Joined() const
    {
        if (mSize > INT_MAX) {
            System::ThrowStringMemory();
        }
        S result;
        result.SetLength(static_cast<int>(mSize));
        Char* out = result.UniqueData();
        for (std::size_t piece = mPieces[End].behind; piece != End; piece = mPieces[piece].behind) {
            out = std::ranges::copy(mPieces[piece].text, out).out;
        }
        return result;
    }

    const std::vector<S>& mParameters;
    /// The parameters by their names, those of one name by their place.
    std::vector<std::size_t> mOrder;
    std::vector<TName> mNames;
    std::size_t mLongest = 0;
    bool mHasMarks = false;

    // One body: how many parameters have a value, its length, and what is due, the first parameter first.

    std::size_t mCount = 0;
    std::size_t mSize = 0;
    std::vector<TPiece> mPieces;
    using TDue = std::pair<std::size_t, std::size_t>;
    std::priority_queue<TDue, std::vector<TDue>, std::greater<>> mDue;
    std::vector<std::size_t> mTurn;
    std::basic_string<Char> mGathered;
};

} // namespace BTL
