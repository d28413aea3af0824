// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_Object.h"

#include <cstddef>
#include <vector>

namespace Classes
{

/// What happens to an item of a list: it came, was taken out by `Extract`, or was removed.
enum TListNotification
{
    lnAdded,
    lnExtracted,
    lnDeleted
};

/// Less than 0 if the first item comes before the second one, more than 0 if behind it, 0 if neither.
using TListSortCompare = int (*)(void*, void*);

/// A list of pointers, which it doesn't own. Indexes count from 0; those out of range raise `EListError`.
///
///     Classes::TList sources;
///     sources.Add(source);
///     for (void* item : sources) { static_cast<TSource*>(item)->Stop(); }
class TRS8_BTL_API TList : public System::TObject
{
    TRS8_BTL_CLASS(TList, System::TObject)

public:
    TList() = default;
    TList(const TList&) = delete;
    TList& operator=(const TList&) = delete;
    ~TList() override;

    int getCount() const noexcept { return static_cast<int>(mItems.size()); }
    /// New items are null; those beyond the count are removed, the last one first. `EListError` for a
    /// negative count.
    void setCount(int count);
    int getCapacity() const noexcept { return static_cast<int>(mItems.capacity()); }
    /// Memory for so many items. `EListError` for less than the count.
    void setCapacity(int capacity);
    /// Memory for more items than there are; there always is, so nothing happens. Gives the list.
    TList* Expand() noexcept { return this; }

    void* getItems(int index) const { return mItems[CheckedIndex(index)]; }
    /// Removes the former item.
    void setItems(int index, void* item);
    void* First() const { return getItems(0); }
    void* Last() const { return getItems(getCount() - 1); }

    // The items as a range, valid until one comes, goes or moves.

    void* const* begin() const noexcept { return mItems.data(); }
    void* const* end() const noexcept { return mItems.data() + mItems.size(); }

    /// Appends an item and gives its index.
    int Add(void* item);
    /// Up to the count itself.
    void Insert(int index, void* item);
    void Delete(int index);
    /// Removes the first such item and gives the index that it had; -1 if there is none.
    int Remove(void* item);
    /// Takes the first such item out and gives it; null if there is none.
    void* Extract(void* item);
    /// Removes all items, the last one first.
    void Clear() { setCount(0); }
    /// -1 if there is none.
    int IndexOf(const void* item) const noexcept;
    void Exchange(int first, int second);
    /// Moves an item to the place `to`.
    void Move(int from, int to);
    /// Takes all null items out.
    void Pack();
    /// Equal items keep their order. Any order is safe, one that contradicts itself too.
    void Sort(TListSortCompare compare);
    /// Makes the items those of `source`, which may be null for none.
    void Assign(const TList* source);

protected:
    /// Called when an item, which isn't null, came or went.
    virtual void Notify(void* item, TListNotification action);

private:
    std::size_t CheckedIndex(int index) const;
    void* TakeOut(int index);
    void Tell(void* item, TListNotification action);

    std::vector<void*> mItems;
};

} // namespace Classes
