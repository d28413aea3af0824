// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <array>
#include <cstddef>
#include <string>
#include <utility>

namespace System::Detail
{

/// Gathers a text that is mostly short where it costs no memory of its own, and gives it as a string.
///
///     GTextBuffer<UnicodeString> out;
///     out.Add(u'a');
///     out.Add(text.AsView());
///     return out.Take();
template <class S>
class GTextBuffer
{
public:
    using Char = typename S::CharType;
    using View = typename S::View;

    static constexpr std::size_t MaxPiece = 120;

    // The characters stay as they are: each is written before it is read.
    GTextBuffer() noexcept = default;

    void Add(Char c)
    {
        if (mCount == mChars.size()) {
            Spill();
        }
        mChars[mCount++] = c;
    }
    void Add(View text)
    {
        if (text.size() > mChars.size() - mCount) {
            Spill();
            if (text.size() > mChars.size()) {
                mSpilled.Append(text);
                return;
            }
        }
        std::char_traits<Char>::copy(mChars.data() + mCount, text.data(), text.size());
        mCount += text.size();
    }
    void Add(std::size_t count, Char c)
    {
        for (; count > 0; --count) {
            Add(c);
        }
    }

    /// Where the caller writes the next `count` characters, at most `MaxPiece`.
    Char* AddPlaces(std::size_t count)
    {
        if (count > mChars.size() - mCount) {
            Spill();
        }
        mCount += count;
        return mChars.data() + mCount - count;
    }

    /// The text; the buffer is then of no more use.
    S Take()
    {
        if (mSpilled.IsEmpty()) {
            return S(View(mChars.data(), mCount));
        }
        Spill();
        return std::move(mSpilled);
    }

private:
    void Spill()
    {
        mSpilled.Append(View(mChars.data(), mCount));
        mCount = 0;
    }

    S mSpilled;
    std::size_t mCount = 0;
    std::array<Char, MaxPiece> mChars;
};

} // namespace System::Detail
