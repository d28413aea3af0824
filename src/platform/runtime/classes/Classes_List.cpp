// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_List.h"

#include "platform/base/System_StableSort.h"
#include "platform/runtime/classes/internal/Classes_ObjectList.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>
#include <utility>

namespace Classes
{

System::TMetaClass* TList::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TList>(u"TList").Build();
    return record;
}

TList::~TList() = default;

std::size_t TList::CheckedIndex(int index) const
{
    if (index < 0 || index >= getCount()) {
        ThrowListIndex(index);
    }
    return static_cast<std::size_t>(index);
}

void TList::Notify(void*, TListNotification) {}

void TList::Tell(void* item, TListNotification action)
{
    if (item != nullptr) {
        Notify(item, action);
    }
}

void TList::setCount(int count)
{
    if (count < 0) {
        throw EListError(u"List count out of bounds (" + System::UnicodeString(count) + u")");
    }
    while (getCount() > count) {
        Delete(getCount() - 1);
    }
    mItems.resize(static_cast<std::size_t>(count));
}

void TList::setCapacity(int capacity)
{
    if (capacity < getCount()) {
        throw EListError(u"List capacity out of bounds (" + System::UnicodeString(capacity) + u")");
    }
    mItems.reserve(static_cast<std::size_t>(capacity));
}

void TList::setItems(int index, void* item)
{
    void*& place = mItems[CheckedIndex(index)];
    if (item == place) {
        return;
    }
    void* const former = std::exchange(place, item);
    Tell(former, lnDeleted);
    Tell(item, lnAdded);
}

int TList::Add(void* item)
{
    mItems.push_back(item);
    const int index = getCount() - 1;
    Tell(item, lnAdded);
    return index;
}

void TList::Insert(int index, void* item)
{
    if (index < 0 || index > getCount()) {
        ThrowListIndex(index);
    }
    mItems.insert(mItems.begin() + index, item);
    Tell(item, lnAdded);
}

void* TList::TakeOut(int index)
{
    void* const item = mItems[CheckedIndex(index)];
    mItems.erase(mItems.begin() + index);
    return item;
}

void TList::Delete(int index)
{
    Tell(TakeOut(index), lnDeleted);
}

int TList::Remove(void* item)
{
    const int index = IndexOf(item);
    if (index >= 0) {
        Delete(index);
    }
    return index;
}

void* TList::Extract(void* item)
{
    const int index = IndexOf(item);
    if (index < 0) {
        return nullptr;
    }
    TakeOut(index);
    Tell(item, lnExtracted);
    return item;
}

int TList::IndexOf(const void* item) const noexcept
{
    const auto found = std::ranges::find(mItems, item);
    return found == mItems.end() ? -1 : static_cast<int>(found - mItems.begin());
}

void TList::Exchange(int first, int second)
{
    std::swap(mItems[CheckedIndex(first)], mItems[CheckedIndex(second)]);
}

void TList::Move(int from, int to)
{
    CheckedIndex(from);
    CheckedIndex(to);
    const auto source = mItems.begin() + from;
    const auto target = mItems.begin() + to;
    if (from < to) {
        std::rotate(source, source + 1, target + 1);
    } else {
        std::rotate(target, source, source + 1);
    }
}

void TList::Pack()
{
    std::erase(mItems, nullptr);
}

void TList::Sort(TListSortCompare compare)
{
    System::StableSort(std::span(mItems), [compare](void* a, void* b) { return compare(a, b) < 0; });
}

void TList::Assign(const TList* source)
{
    if (source == this) {
        return;
    }
    Clear();
    const std::vector<void*> items = source == nullptr ? std::vector<void*>() : source->mItems;
    for (void* item : items) {
        Add(item);
    }
}

} // namespace Classes
