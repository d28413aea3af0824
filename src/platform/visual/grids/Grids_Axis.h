// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"
#include "platform/toolkit/Window.h"

#include <map>
#include <optional>
#include <vector>

namespace Grids
{

/// One direction of a grid: its columns from left to right, or its rows from the top. The fixed ones come
/// first and stay; of the others those from the first one on are shown that isn't scrolled away. Only those
/// with a size of their own take memory.
///
///     CGridAxis columns(5, 1, 64);
///     columns.setSize(2, 100);
///     for (const CGridAxis::TSpan& span : columns.GetVisible(320)) { ... }
class TRS8_BTL_API CGridAxis
{
public:
    /// The pixels that one column or row covers; the line behind it isn't in it.
    struct TSpan
    {
        int index = 0;
        int begin = 0;
        int end = 0;
    };

    CGridAxis(int count, int fixedCount, int defaultSize) noexcept
        : mCount(count), mFixedCount(fixedCount), mFirst(fixedCount), mDefaultSize(defaultSize)
    {
    }

    int getCount() const noexcept { return mCount; }
    /// Raises `EInvalidGridOperation` for one that isn't there.
    void CheckIndex(int index) const;
    /// At least 1. What is beyond is forgotten; at least one stays that isn't fixed, but for a count of 1.
    void setCount(int count);
    int getFixedCount() const noexcept { return mFixedCount; }
    /// From 0 to the count; the first one shown is the one behind them then.
    void setFixedCount(int count) noexcept { mFirst = mFixedCount = count; }
    /// The first one shown of those that aren't fixed.
    int getFirst() const noexcept { return mFirst; }
    void setFirst(int first) noexcept { mFirst = first; }

    int getDefaultSize() const noexcept { return mDefaultSize; }
    /// The size of all from now on, also of those that had one of their own.
    void setDefaultSize(int size);
    /// In pixels; the default size for one that isn't there.
    int getSize(int index) const;
    /// -1 hides it with its line, 0 without; sizes outside of -1 to a quarter of the integers are held there.
    void setSize(int index, int size);
    /// Whether one has a size of its own.
    bool hasOwnSizes() const noexcept { return !mOwnSizes.empty(); }
    /// One behind the last that has a size of its own.
    int GetOwnEnd() const noexcept { return mOwnSizes.empty() ? 0 : mOwnSizes.rbegin()->first + 1; }
    bool HasSameSizes(const CGridAxis& other) const noexcept;
    int getLineWidth() const noexcept { return mLineWidth; }
    void setLineWidth(int width);

    /// Which number one has after the one at `from` was taken out and put back at `to`.
    static int MovedIndex(int index, int from, int to) noexcept;
    /// Takes one out and puts it back at another place; its size goes with it.
    void Move(int from, int to);

    /// The size of all, with their lines.
    System::Int64 GetTotal() const noexcept;
    /// What is seen of it in an area of that size.
    std::vector<TSpan> GetVisible(int area) const;
    /// Where one is seen; nothing for one that isn't.
    std::optional<TSpan> GetSpan(int index, int area) const;
    /// Which one is at a place, its line being a part of it; -1 for none.
    int GetIndexAt(int place, int area) const;
    /// The one whose line is so near to a place that the user means it; nothing if there is none.
    std::optional<TSpan> GetLineAt(int place, int area) const;
    /// The last one that is seen whole, but at least the first one shown.
    int GetLastWhole(int area) const;
    /// The highest first one by which the last one is seen whole.
    int GetHighestFirst(int area) const;
    /// The first one by which `index` is seen whole, as near as possible to the present one.
    int GetFirstToShow(int index, int area) const;

private:
    int ExtentOf(int size) const noexcept;
    int GetExtent(int index) const { return ExtentOf(getSize(index)); }
    int NextSeen(int index) const;
    int PreviousSeen(int index) const;
    System::Int64 SumOwn() const noexcept;
    /// The lowest one from which all up to `last` are seen whole in an area.
    int FirstUpTo(int last, int area) const;
    int GetFixedExtent(int area) const;
    template <class Visit>
    void Walk(int area, Visit visit) const;

    std::map<int, int> mOwnSizes;
    System::Int64 mOwnTotal = 0;
    int mCount;
    int mFixedCount;
    int mFirst;
    int mDefaultSize;
    int mLineWidth = 1;
};

} // namespace Grids
