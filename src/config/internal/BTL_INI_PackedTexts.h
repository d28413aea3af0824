// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace BTL::Detail
{

/// Many short texts in one block of memory, one behind the other, so that they cost no block each and lie
/// together. Their owner keeps a slice for each. What a text leaves behind is thrown away in bulk, once it is
/// more than what is in use.
///
///     CPackedTexts texts;
///     CPackedTexts::TSlice slice = texts.Add(u"12");
///     texts.Replace(slice, u"a longer one");
///     texts.Of(slice);                                            // "a longer one"
///     if (texts.MustPack()) { texts.Pack([&](auto move) { move(slice); }); }
class CPackedTexts
{
public:
    struct TSlice
    {
        std::size_t begin = 0;
        std::size_t length = 0;
    };

    /// Until the next change.
    std::u16string_view Of(const TSlice& slice) const
    {
        return std::u16string_view(mTexts).substr(slice.begin, slice.length);
    }
    /// Of all texts with what they left behind, in characters.
    std::size_t size() const noexcept { return mTexts.size(); }

    TSlice Add(std::u16string_view text)
    {
        const TSlice slice{mTexts.size(), text.size()};
        mTexts.append(text);
        return slice;
    }
    void Replace(TSlice& slice, std::u16string_view text)
    {
        if (text.size() > slice.length) {
            const TSlice longer = Add(text);
            Remove(slice);
            slice = longer;
            return;
        }
        std::char_traits<char16_t>::move(mTexts.data() + slice.begin, text.data(), text.size());
        mWaste += slice.length - text.size();
        slice.length = text.size();
    }
    /// The slice isn't to be used any more.
    void Remove(const TSlice& slice) noexcept { mWaste += slice.length; }

    bool MustPack() const noexcept
    {
        constexpr std::size_t few = 256;
        return mWaste > mTexts.size() / 2 + few;
    }
    /// `forEachSlice(move)` calls `move(slice)` for each slice in use.
    template <class ForEachSlice>
    void Pack(ForEachSlice forEachSlice)
    {
        std::u16string packed;
        packed.reserve(mTexts.size() - mWaste);
        forEachSlice([&](TSlice& slice) {
            const std::size_t begin = packed.size();
            packed.append(Of(slice));
            slice.begin = begin;
        });
        mTexts.swap(packed);
        mWaste = 0;
    }

private:
    std::u16string mTexts;
    std::size_t mWaste = 0;
};

} // namespace BTL::Detail
