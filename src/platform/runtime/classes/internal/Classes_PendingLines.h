// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Classes
{

/// Lines that were inserted into a list but not yet moved into its array, which would move all behind them
/// each time. Once there are so many that finding one's way among them costs as much, they go in together.
class CPendingLines
{
public:
    std::size_t Count() const { return mLines.size(); }

    /// Whether an array of `count` lines takes them in now.
    bool AreMany(std::size_t count) const
    {
        constexpr std::size_t few = 64;
        return mLines.size() > few && (mLines.size() - few) * (mLines.size() - few) > count;
    }

    /// The line at the `index` of the list, which is one of these or of `items`.
    const TStringItem& At(const std::vector<TStringItem>& items, std::size_t index) const
    {
        const std::size_t before = CountBefore(index);
        if (before < mLines.size() && mLines[before].place + before == index) {
            return mItems[mLines[before].number];
        }
        return items[index - before];
    }

    /// The index in the list of the first line that isn't less than another, where `place` is its index in
    /// the array, if there were none but those.
    template <class IsLess>
    std::size_t PlaceOf(std::size_t place, IsLess isLess) const
    {
        const auto begin = std::ranges::lower_bound(mLines, place, {}, &TLine::place);
        const auto end = std::ranges::upper_bound(begin, mLines.end(), place, {}, &TLine::place);
        const auto first =
            std::partition_point(begin, end, [&](const TLine& line) { return isLess(mItems[line.number]); });
        return place + static_cast<std::size_t>(first - mLines.begin());
    }

    void Insert(std::size_t index, TStringItem item)
    {
        const std::size_t before = CountBefore(index);
        mItems.push_back(std::move(item));
        mLines.insert(
            mLines.begin() + static_cast<std::ptrdiff_t>(before),
            {static_cast<std::uint32_t>(index - before), static_cast<std::uint32_t>(mItems.size() - 1)});
    }

    /// Moves them into the array. Nothing changes if there is no memory for it.
    void MoveInto(std::vector<TStringItem>& items)
    {
        auto end = static_cast<std::ptrdiff_t>(items.size());
        items.resize(items.size() + mLines.size());
        const auto begin = items.begin();
        for (auto before = static_cast<std::ptrdiff_t>(mLines.size()); before-- > 0;) {
            const TLine& line = mLines[static_cast<std::size_t>(before)];
            const auto place = static_cast<std::ptrdiff_t>(line.place);
            std::move_backward(begin + place, begin + end, begin + end + before + 1);
            begin[place + before] = std::move(mItems[line.number]);
            end = place;
        }
        mLines.clear();
        mItems.clear();
    }

private:
    struct TLine
    {
        /// The index in the array of the line that it stands in front of.
        std::uint32_t place;
        /// Its number in the order of arrival.
        std::uint32_t number;
    };

    /// How many of them stand in front of an index of the list.
    std::size_t CountBefore(std::size_t index) const
    {
        const auto isBefore = [&](const TLine& line) {
            return line.place + static_cast<std::size_t>(&line - mLines.data()) < index;
        };
        return static_cast<std::size_t>(std::partition_point(mLines.begin(), mLines.end(), isBefore) -
                                        mLines.begin());
    }

    /// In the order of the list. They are small, so that inserting one moves little.
    std::vector<TLine> mLines;
    std::vector<TStringItem> mItems;
};

} // namespace Classes
