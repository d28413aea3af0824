// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_Axis.h"

#include "platform/visual/grids/Grids_Types.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace Grids
{

namespace
{

/// Held within this, so that the sum of two doesn't overflow.
constexpr int MostPixels = std::numeric_limits<int>::max() / 4;

int HoldSize(int size) noexcept
{
    return std::clamp(size, -1, MostPixels);
}

} // namespace

int CGridAxis::MovedIndex(int index, int from, int to) noexcept
{
    if (index == from) {
        return to;
    }
    if (index > from && index <= to) {
        return index - 1;
    }
    return index < from && index >= to ? index + 1 : index;
}

void CGridAxis::CheckIndex(int index) const
{
    if (index < 0 || index >= mCount) {
        throw EInvalidGridOperation(u"Grid index out of range");
    }
}

void CGridAxis::setCount(int count)
{
    mCount = std::max(count, 1);
    mOwnSizes.erase(mOwnSizes.lower_bound(mCount), mOwnSizes.end());
    mOwnTotal = SumOwn();
    if (mFixedCount >= mCount) {
        mFixedCount = mCount - 1;
    }
    mFirst = std::clamp(mFirst, mFixedCount, mCount - 1);
}

void CGridAxis::setDefaultSize(int size)
{
    mDefaultSize = HoldSize(size);
    mOwnSizes.clear();
    mOwnTotal = 0;
}

int CGridAxis::getSize(int index) const
{
    const auto found = mOwnSizes.find(index);
    return found == mOwnSizes.end() ? mDefaultSize : found->second;
}

void CGridAxis::setSize(int index, int size)
{
    size = HoldSize(size);
    const auto found = mOwnSizes.find(index);
    if (found != mOwnSizes.end()) {
        mOwnTotal -= ExtentOf(found->second);
        mOwnSizes.erase(found);
    }
    if (size != mDefaultSize) {
        mOwnSizes.emplace(index, size);
        mOwnTotal += ExtentOf(size);
    }
}

bool CGridAxis::HasSameSizes(const CGridAxis& other) const noexcept
{
    return mDefaultSize == other.mDefaultSize && mOwnSizes == other.mOwnSizes;
}

void CGridAxis::setLineWidth(int width)
{
    mLineWidth = std::clamp(width, 0, MostPixels);
    mOwnTotal = SumOwn();
}

void CGridAxis::Move(int from, int to)
{
    std::map<int, int> moved;
    for (const auto& [index, size] : mOwnSizes) {
        moved.emplace(MovedIndex(index, from, to), size);
    }
    mOwnSizes = std::move(moved);
}

int CGridAxis::ExtentOf(int size) const noexcept
{
    return std::max(size + mLineWidth, 0);
}

System::Int64 CGridAxis::SumOwn() const noexcept
{
    System::Int64 sum = 0;
    for (const auto& [index, size] : mOwnSizes) {
        sum += ExtentOf(size);
    }
    return sum;
}

System::Int64 CGridAxis::GetTotal() const noexcept
{
    const auto usual = mCount - static_cast<System::Int64>(mOwnSizes.size());
    return usual * ExtentOf(mDefaultSize) + mOwnTotal;
}

int CGridAxis::NextSeen(int index) const
{
    // There may be billions without an extent, but of those with a size of their own only as many as were
    // set.
    const bool isUsualSeen = ExtentOf(mDefaultSize) > 0;
    auto own = mOwnSizes.lower_bound(index);
    while (own != mOwnSizes.end() && ExtentOf(own->second) == 0 && (!isUsualSeen || own->first == index)) {
        index = own->first + 1;
        ++own;
    }
    if (isUsualSeen) {
        return std::min(index, mCount);
    }
    return own == mOwnSizes.end() ? mCount : own->first;
}

int CGridAxis::PreviousSeen(int index) const
{
    const bool isUsualSeen = ExtentOf(mDefaultSize) > 0;
    auto own = mOwnSizes.upper_bound(index);
    while (own != mOwnSizes.begin()) {
        --own;
        const bool isOwnSeen = ExtentOf(own->second) > 0;
        if (isUsualSeen && own->first != index) {
            return index;
        }
        if (isOwnSeen) {
            return own->first;
        }
        index = own->first - 1;
    }
    return isUsualSeen ? index : -1;
}

template <class Visit>
void CGridAxis::Walk(int area, Visit visit) const
{
    int place = 0;
    const auto walkTo = [&](int index, int end) {
        for (index = NextSeen(index); index < end && place < area; index = NextSeen(index + 1)) {
            const TSpan span{index, place, place + std::max(getSize(index), 0)};
            place += GetExtent(index);
            if (!visit(span)) {
                return false;
            }
        }
        return true;
    };
    if (walkTo(0, mFixedCount)) {
        walkTo(std::max(mFirst, mFixedCount), mCount);
    }
}

std::vector<CGridAxis::TSpan> CGridAxis::GetVisible(int area) const
{
    std::vector<TSpan> spans;
    Walk(area, [&](const TSpan& span) {
        spans.push_back(span);
        return true;
    });
    return spans;
}

std::optional<CGridAxis::TSpan> CGridAxis::GetSpan(int index, int area) const
{
    std::optional<TSpan> found;
    if (index < mFirst && index >= mFixedCount) {
        return found;
    }
    Walk(area, [&](const TSpan& span) {
        if (span.index == index) {
            found = span;
        }
        return span.index < index;
    });
    return found;
}

int CGridAxis::GetIndexAt(int place, int area) const
{
    int found = -1;
    if (place < 0 || place >= area) {
        return found;
    }
    Walk(area, [&](const TSpan& span) {
        if (place >= span.begin && place < span.begin + GetExtent(span.index)) {
            found = span.index;
        }
        return found < 0;
    });
    return found;
}

std::optional<CGridAxis::TSpan> CGridAxis::GetLineAt(int place, int area) const
{
    constexpr int reach = 3;
    std::optional<TSpan> found;
    Walk(area, [&](const TSpan& span) {
        // Of those at one place the last one is meant: the others can be sized once that is wider.
        if (place >= span.end - reach && place < span.end + mLineWidth + reach) {
            found = span;
        }
        return span.begin <= place + reach;
    });
    return found;
}

int CGridAxis::GetFixedExtent(int area) const
{
    int extent = 0;
    for (int i = NextSeen(0); i < mFixedCount && extent < area; i = NextSeen(i + 1)) {
        extent += GetExtent(i);
    }
    return extent;
}

int CGridAxis::GetLastWhole(int area) const
{
    int last = mFirst;
    Walk(area, [&](const TSpan& span) {
        if (span.index > mFirst && span.end <= area) {
            last = span.index;
        }
        return true;
    });
    return last;
}

int CGridAxis::FirstUpTo(int last, int area) const
{
    // The line behind the last one needn't be seen.
    System::Int64 room = System::Int64{area} - GetFixedExtent(area) + mLineWidth;
    int first = last;
    for (int i = PreviousSeen(last); i >= mFixedCount; i = PreviousSeen(i - 1)) {
        room -= GetExtent(i);
        if (room < 0) {
            break;
        }
        first = i;
    }
    return std::max(first, std::min(mFixedCount, last));
}

int CGridAxis::GetHighestFirst(int area) const
{
    return std::max(FirstUpTo(mCount - 1, area), mFixedCount);
}

int CGridAxis::GetFirstToShow(int index, int area) const
{
    if (index < mFixedCount) {
        return mFirst;
    }
    return index < mFirst ? index : std::max(mFirst, FirstUpTo(index, area));
}

} // namespace Grids
