// SPDX-License-Identifier: MIT
#pragma once

// A search for a pattern in a text, both of which are functions from an index to a character: so it runs
// backwards, or over folded characters, without a copy.
//
//     const auto text = [&](std::size_t i) { return AsciiLower(line[i]); };
//     const auto pattern = [&](std::size_t i) { return name[i]; };
//     const std::size_t at = FindLinear(text, line.size(), pattern, name.size()); // `line.size()`: none

#include <algorithm>
#include <cstddef>
#include <utility>

namespace System::Detail
{

/// The comparisons that a plain search may have made by the time it has come to `at`. Beyond that the text
/// and the pattern repeat themselves, and the plain search would take the product of their lengths.
constexpr std::size_t PlainSearchBudget(std::size_t at)
{
    return 8 * at + 1024;
}

/// Searches by a pattern that is cut in two at a place where no shift shorter than its period fits both
/// sides. Takes at most two comparisons a character, and no memory.
template <class Pattern>
class GTwoWaySearch
{
public:
    /// `pattern` has `length` characters, at least 1.
    GTwoWaySearch(Pattern pattern, std::size_t length) : mPattern(pattern), mLength(length)
    {
        const auto [less, lessPeriod] = MaximalSuffix([](auto a, auto b) { return a < b; });
        const auto [greater, greaterPeriod] = MaximalSuffix([](auto a, auto b) { return b < a; });
        mCut = std::max(less, greater);
        mPeriod = less > greater ? lessPeriod : greaterPeriod;
        mRepeats = IsRepeated();
        if (!mRepeats) {
            mPeriod = std::max(mCut, mLength - mCut) + 1;
        }
    }

    /// The first place at or behind `at` in a text of `count` characters; `count` if there is none.
    template <class Text>
    std::size_t Find(Text text, std::size_t count, std::size_t at) const
    {
        // So many characters from `at` on are known to match.
        std::size_t known = 0;
        while (at <= count && mLength <= count - at) {
            std::size_t right = std::max(mCut, known);
            while (right < mLength && mPattern(right) == text(at + right)) {
                ++right;
            }
            if (right < mLength) {
                at += right - mCut + 1;
                known = 0;
                continue;
            }
            std::size_t left = mCut;
            while (left > known && mPattern(left - 1) == text(at + left - 1)) {
                --left;
            }
            if (left <= known) {
                return at;
            }
            at += mPeriod;
            known = mRepeats ? mLength - mPeriod : 0;
        }
        return count;
    }

private:
    /// The begin of the suffix that comes last in an order, and its period.
    template <class Less>
    std::pair<std::size_t, std::size_t> MaximalSuffix(Less less) const
    {
        std::size_t begin = 0;
        std::size_t rival = 1;
        std::size_t equal = 0;
        std::size_t period = 1;
        while (rival + equal < mLength) {
            const auto ours = mPattern(begin + equal);
            const auto theirs = mPattern(rival + equal);
            if (ours == theirs) {
                if (++equal == period) {
                    rival += period;
                    equal = 0;
                }
            } else if (less(theirs, ours)) {
                rival += equal + 1;
                equal = 0;
                period = rival - begin;
            } else {
                begin = rival;
                rival = begin + 1;
                equal = 0;
                period = 1;
            }
        }
        return {begin, period};
    }

    /// Whether the period of what stands behind the cut is that of the whole pattern.
    bool IsRepeated() const
    {
        for (std::size_t i = 0; i < mCut; ++i) {
            if (mPattern(i) != mPattern(i + mPeriod)) {
                return false;
            }
        }
        return true;
    }

    Pattern mPattern;
    std::size_t mLength;
    std::size_t mCut = 0;
    std::size_t mPeriod = 0;
    bool mRepeats = false;
};

/// The first place at or behind `at` where `pattern`, of `length` characters and at least 1, stands in
/// `text`, of `count` characters; `count` if there is none.
template <class Text, class Pattern>
std::size_t FindLinear(Text text, std::size_t count, Pattern pattern, std::size_t length, std::size_t at = 0)
{
    const auto first = pattern(0);
    const auto last = pattern(length - 1);
    std::size_t compared = 0;
    for (const std::size_t begin = at; at <= count && length <= count - at; ++at) {
        if (text(at) != first || text(at + length - 1) != last) {
            continue;
        }
        std::size_t equal = 1;
        while (equal < length && text(at + equal) == pattern(equal)) {
            ++equal;
        }
        if (equal >= length) {
            return at;
        }
        compared += equal;
        if (compared > PlainSearchBudget(at - begin)) {
            return GTwoWaySearch(pattern, length).Find(text, count, at + 1);
        }
    }
    return count;
}

} // namespace System::Detail
