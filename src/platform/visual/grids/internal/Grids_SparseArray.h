// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <utility>
#include <vector>

namespace Grids
{

/// Items by numbers from 0, of which only those take memory that lie near to one that was set: in pages of
/// up to `PageSize`. An item that wasn't set is as `T{}`.
template <class T, int PageSize>
class GSparseArray
{
public:
    /// Null for an item that has no memory.
    const T* Find(int index) const
    {
        const TPage* const page = FindPage(index / PageSize);
        const auto place = static_cast<std::size_t>(index % PageSize);
        return page == nullptr || place >= page->items.size() ? nullptr : &page->items[place];
    }
    T* Find(int index) { return const_cast<T*>(std::as_const(*this).Find(index)); }

    /// Items that lie beside each other in memory.
    struct TRun
    {
        int begin;
        std::span<T> items;
    };

    /// The item, which gets memory. `count` is how many there will be as far as one knows, so that they get
    /// no more than they need.
    T& Need(int index, int count)
    {
        const TRun run = NeedRun(index, count);
        return run.items[static_cast<std::size_t>(index - run.begin)];
    }
    /// As `Need`, but with all items of its page that have memory. They stay where they are until another
    /// call that isn't const for the same page.
    TRun NeedRun(int index, int count)
    {
        const int number = index / PageSize;
        const auto place = static_cast<std::size_t>(index % PageSize);
        TPage& page = NeedPage(number);
        if (place >= page.items.size()) {
            Grow(page.items, place + 1, static_cast<std::size_t>(std::max(count - number * PageSize, 0)));
        }
        return {number * PageSize, page.items};
    }

    /// Calls `visit(index, item)` for each item with memory, the lowest first.
    template <class Visit>
    void ForEach(Visit visit)
    {
        for (TPage& page : mPages) {
            int index = page.number * PageSize;
            for (T& item : page.items) {
                visit(index++, item);
            }
        }
    }

    /// Takes an item out and puts it back at another place; those between move by one.
    void Move(int from, int to, int count)
    {
        T moved = Take(from);
        if (from < to) {
            for (int i = NextIndex(from); i >= 0 && i <= to; i = NextIndex(i)) {
                Shift(i, i - 1, count);
            }
        } else {
            for (int i = PreviousIndex(from); i >= to; i = PreviousIndex(i)) {
                Shift(i, i + 1, count);
            }
        }
        Put(to, std::move(moved), count);
    }

    bool IsBlank() const noexcept { return mPages.empty(); }

private:
    struct TPage
    {
        int number;
        std::vector<T> items;
    };
    using CPages = std::vector<TPage>;

    static void Grow(std::vector<T>& items, std::size_t least, std::size_t known)
    {
        constexpr auto most = static_cast<std::size_t>(PageSize);
        const std::size_t size =
            least <= known ? std::min(known, most) : std::min(std::max(least, items.size() * 2), most);
        // One by one a vector would take up to twice as much as this.
        std::vector<T> grown;
        grown.reserve(size);
        std::move(items.begin(), items.end(), std::back_inserter(grown));
        grown.resize(size);
        items.swap(grown);
    }

    auto LowerBound(int number) const
    {
        // Where all pages up to it are there, it is where its number says.
        const auto guess = static_cast<std::size_t>(number);
        if (guess < mPages.size() && mPages[guess].number == number) {
            return mPages.begin() + number;
        }
        if (!mPages.empty() && mPages.back().number < number) {
            return mPages.end();
        }
        return std::ranges::lower_bound(mPages, number, {}, &TPage::number);
    }
    const TPage* FindPage(int number) const
    {
        const auto page = LowerBound(number);
        return page == mPages.end() || page->number != number ? nullptr : &*page;
    }
    TPage& NeedPage(int number)
    {
        const auto place = mPages.begin() + (LowerBound(number) - mPages.cbegin());
        const bool isThere = place != mPages.end() && place->number == number;
        return isThere ? *place : *mPages.insert(place, TPage{number, {}});
    }
    /// The next item with memory behind, or in front of, another place; -1 for none.
    int NextIndex(int index) const
    {
        const int next = index + 1;
        auto page = LowerBound(next / PageSize);
        if (page != mPages.end() && page->number == next / PageSize) {
            if (static_cast<std::size_t>(next % PageSize) < page->items.size()) {
                return next;
            }
            ++page;
        }
        return page == mPages.end() ? -1 : page->number * PageSize;
    }
    int PreviousIndex(int index) const
    {
        if (index == 0) {
            return -1;
        }
        const int previous = index - 1;
        const auto page = LowerBound(previous / PageSize);
        if (page != mPages.end() && page->number == previous / PageSize) {
            return std::min(previous, LastOf(*page));
        }
        return page == mPages.begin() ? -1 : LastOf(*std::prev(page));
    }
    static bool IsBlankItem(const T& item) noexcept
    {
        if constexpr (requires { item.IsBlank(); }) {
            return item.IsBlank();
        } else {
            return item == T{};
        }
    }
    static int LastOf(const TPage& page)
    {
        return page.number * PageSize + static_cast<int>(page.items.size()) - 1;
    }
    T Take(int index)
    {
        T* const item = Find(index);
        return item == nullptr ? T{} : std::exchange(*item, T{});
    }
    void Put(int index, T&& item, int count)
    {
        T* const place = Find(index);
        if (place != nullptr) {
            *place = std::move(item);
        } else if (!IsBlankItem(item)) {
            Need(index, count) = std::move(item);
        }
    }
    void Shift(int from, int to, int count) { Put(to, Take(from), count); }

    CPages mPages;
};

} // namespace Grids
