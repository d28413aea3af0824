// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace System
{

namespace Detail
{

/// Runs up to this length are sorted in place.
inline constexpr std::size_t ShortRun = 12;

/// An item that is set aside; a vector of `bool` itself would hold no items.
template <class T>
struct GKeptItem
{
    T item;
};

template <class T>
using GSortRoom = std::vector<GKeptItem<T>>;

/// What a merge has set aside and not yet given back. All of it goes into the gap behind the merged items,
/// also when the order raises: no item is lost.
template <class T>
class GSetAside
{
public:
    GSetAside(std::span<T> items, GSortRoom<T>& room) : mGap(items.data())
    {
        room.clear();
        room.reserve(items.size());
        for (T& item : items) {
            room.push_back({std::move(item)});
        }
        mNext = room.data();
        mEnd = mNext + room.size();
    }
    GSetAside(const GSetAside&) = delete;
    GSetAside& operator=(const GSetAside&) = delete;
    ~GSetAside()
    {
        while (!IsEmpty()) {
            Give();
        }
    }

    bool IsEmpty() const noexcept { return mNext == mEnd; }
    const T& Next() const noexcept { return mNext->item; }
    void Give() { *mGap++ = std::move((mNext++)->item); }
    void Take(T& item) { *mGap++ = std::move(item); }

private:
    T* mGap;
    GKeptItem<T>* mNext;
    GKeptItem<T>* mEnd;
};

template <class T, class Less>
void MergeRuns(std::span<T> items, std::size_t middle, GSortRoom<T>& room, Less& less)
{
    T* right = items.data() + middle;
    T* const end = items.data() + items.size();
    if (middle == 0 || right == end || !less(*right, *(right - 1))) {
        return;
    }
    GSetAside<T> left(items.first(middle), room);
    while (!left.IsEmpty() && right != end) {
        if (less(*right, left.Next())) {
            left.Take(*right++);
        } else {
            left.Give();
        }
    }
}

template <class T, class Less>
void InsertionSort(std::span<T> items, Less& less)
{
    T* const begin = items.data();
    for (std::size_t i = 1; i < items.size(); ++i) {
        T* const item = begin + i;
        if (!less(*item, *(item - 1))) {
            continue;
        }
        T* const place = std::upper_bound(begin, item - 1, *item, less);
        T moved = std::move(*item);
        std::move_backward(place, item, item + 1);
        *place = std::move(moved);
    }
}

template <class T, class Less>
void SortRuns(std::span<T> items, GSortRoom<T>& room, Less& less)
{
    if (items.size() <= ShortRun) {
        InsertionSort(items, less);
        return;
    }
    const std::size_t middle = items.size() / 2;
    SortRuns(items.first(middle), room, less);
    SortRuns(items.subspan(middle), room, less);
    MergeRuns(items, middle, room, less);
}

} // namespace Detail

/// Merges the first `middle` items with those behind them, each part sorted by `less`. Equal items keep their
/// order. Any `less` is safe, as for `StableSort`.
template <class T, class Less>
void StableMerge(std::span<T> items, std::size_t middle, Less less)
{
    Detail::GSortRoom<T> room;
    Detail::MergeRuns(items, middle, room, less);
}

/// Sorts by `less`; equal items keep their order. Other than the standard sorts it is safe with a `less` that
/// contradicts itself, which gives any order, and with one that raises: each item is still there then.
///
///     System::StableSort(std::span(lines), [](const auto& a, const auto& b) { return a.size() < b.size();
///     });
template <class T, class Less>
void StableSort(std::span<T> items, Less less)
{
    Detail::GSortRoom<T> room;
    room.reserve(items.size() / 2);
    Detail::SortRuns(items, room, less);
}

} // namespace System
