// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_StringList.h"

#include "platform/base/System_StableSort.h"
#include "platform/base/internal/System_Memory.h"
#include "platform/runtime/classes/internal/Classes_PendingLines.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <numeric>

namespace Classes
{

using System::GClassBuilder;
using System::TMetaClass;
using System::TObject;
using System::UnicodeString;

using Items = std::vector<TStringItem>;

namespace
{

[[noreturn]] void ThrowSorted()
{
    throw EStringListError(u"Operation not allowed on sorted list");
}

[[noreturn]] void ThrowDuplicate()
{
    throw EStringListError(u"String list does not allow duplicates");
}

/// As `std::partition_point`, but has the texts that may be compared next fetched meanwhile: in a long list
/// each comparison would wait for them.
template <class IsLess>
std::size_t PartitionPoint(const Items& items, IsLess isLess)
{
    std::size_t place = 0;
    for (std::size_t count = items.size(); count > 0;) {
        const std::size_t half = count / 2;
        const std::size_t rest = count - half - 1;
        if (rest > 0) {
            __builtin_prefetch(items[place + half / 2].String.c_str());
            __builtin_prefetch(items[place + half + 1 + rest / 2].String.c_str());
        }
        if (isLess(items[place + half])) {
            place += half + 1;
            count = rest;
        } else {
            count = half;
        }
    }
    return place;
}

} // namespace

TMetaClass* TStringList::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TStringList>(u"TStringList").Build();
    return record;
}

TStringList::TStringList(bool ownsObjects) : mOwnsObjects(ownsObjects) {}

TStringList::TStringList(std::initializer_list<UnicodeString> lines) : TStringList()
{
    AddStrings(lines);
}

TStringList::~TStringList()
{
    for (std::size_t i = 0; mOwnsObjects && i < LineCount(); ++i) {
        delete LineAt(i).Object;
    }
}

TStringItem& TStringList::ItemAt(int index)
{
    return const_cast<TStringItem&>(std::as_const(*this).ItemAt(index));
}

const TStringItem& TStringList::ItemAt(int index) const
{
    CheckIndex(index, GetCount());
    return LineAt(static_cast<std::size_t>(index));
}

const TStringItem& TStringList::LineAt(std::size_t index) const
{
    return mPending == nullptr ? mItems[index] : mPending->At(mItems, index);
}

std::size_t TStringList::LineCount() const noexcept
{
    return mItems.size() + (mPending == nullptr ? 0 : mPending->Count());
}

void TStringList::CheckUnsorted() const
{
    if (mSorted) {
        ThrowSorted();
    }
}

int TStringList::Add(const UnicodeString& text)
{
    return AddObject(text, nullptr);
}

int TStringList::AddObject(const UnicodeString& text, TObject* object)
{
    int index = GetCount();
    if (mSorted && Find(text, index)) {
        if (mDuplicates == dupIgnore) {
            return index;
        }
        if (mDuplicates == dupError) {
            ThrowDuplicate();
        }
    }
    InsertItem(index, text, object);
    return index;
}

void TStringList::Insert(int index, const UnicodeString& text)
{
    InsertObject(index, text, nullptr);
}

void TStringList::InsertObject(int index, const UnicodeString& text, TObject* object)
{
    CheckUnsorted();
    CheckIndex(index, GetCount() + 1);
    InsertItem(index, text, object);
}

void TStringList::InsertItem(int index, const UnicodeString& text, TObject* object)
{
    Changing();
    PutItem(std::min(index, GetCount()), {text, object});
    Changed();
}

void TStringList::PutItem(int index, TStringItem&& item)
{
    // So many lines move faster than anything else could be done.
    constexpr int few = 256;
    if (!mSorted || (mPending == nullptr && GetCount() - index <= few)) {
        mItems.insert(mItems.begin() + index, std::move(item));
        return;
    }
    if (mPending == nullptr) {
        mPending = System::MakeOwner<CPendingLines>();
    }
    mPending->Insert(static_cast<std::size_t>(index), std::move(item));
    if (mPending->AreMany(mItems.size())) {
        Settle();
    }
}

void TStringList::Settle()
{
    if (mPending != nullptr) {
        mPending->MoveInto(mItems);
        mPending = nullptr;
    }
}

int TStringList::GetCount() const
{
    return static_cast<int>(LineCount());
}

void TStringList::Delete(int index)
{
    ItemAt(index);
    Changing();
    Settle();
    const TStringItem item = ItemAt(index);
    mItems.erase(mItems.begin() + index);
    Dispose({item});
    Changed();
}

void TStringList::DeleteRange(int index, int count)
{
    CheckIndex(index, INT_MAX);
    if (count <= 0 || index >= GetCount()) {
        return;
    }
    Changing();
    Settle();
    const int first = std::min(index, GetCount());
    const auto begin = mItems.begin() + first;
    CutItems(begin, begin + std::min(count, GetCount() - first));
    Changed();
}

void TStringList::DeleteAll(const UnicodeString& text)
{
    const auto isOther = [&](const TStringItem& item) { return !EqualStrings(item.String, text); };
    Settle();
    if (std::all_of(mItems.begin(), mItems.end(), isOther)) {
        return;
    }
    Changing();
    Settle();
    CutItems(std::stable_partition(mItems.begin(), mItems.end(), isOther), mItems.end());
    Changed();
}

void TStringList::CutItems(Items::iterator first, Items::iterator last)
{
    const Items items(std::make_move_iterator(first), std::make_move_iterator(last));
    mItems.erase(first, last);
    Dispose(items);
}

void TStringList::Clear()
{
    if (GetCount() == 0) {
        return;
    }
    Changing();
    Settle();
    // Out of the list first: an object may look at it while it goes.
    const Items items = std::exchange(mItems, {});
    Dispose(items);
    Changed();
}

void TStringList::Dispose(const Items& items) const
{
    if (!mOwnsObjects) {
        return;
    }
    for (const TStringItem& item : items) {
        delete item.Object;
    }
}

void TStringList::Exchange(int first, int second)
{
    ItemAt(first);
    ItemAt(second);
    Changing();
    std::swap(ItemAt(first), ItemAt(second));
    Changed();
}

void TStringList::Move(int from, int to)
{
    CheckUnsorted();
    ItemAt(from);
    ItemAt(to);
    if (from == to) {
        return;
    }
    Changing();
    const auto begin = mItems.begin();
    if (from < to) {
        std::rotate(begin + from, begin + from + 1, begin + to + 1);
    } else {
        std::rotate(begin + to, begin + from, begin + from + 1);
    }
    Changed();
}

int TStringList::IndexOf(const UnicodeString& text) const
{
    if (!mSorted) {
        return TStrings::IndexOf(text);
    }
    int index = 0;
    return Find(text, index) ? index : -1;
}

bool TStringList::Find(const UnicodeString& text, int& index) const
{
    if (!mSorted) {
        const int found = TStrings::IndexOf(text);
        index = found < 0 ? GetCount() : found;
        return found >= 0;
    }
    const auto isLess = [&](const TStringItem& item) { return CompareStrings(item.String, text) < 0; };
    const std::size_t place = PartitionPoint(mItems, isLess);
    index = static_cast<int>(mPending == nullptr ? place : mPending->PlaceOf(place, isLess));
    return index < GetCount() && CompareStrings(ItemAt(index).String, text) == 0;
}

void TStringList::Sort()
{
    if (mSorted || mItems.size() < 2) {
        return;
    }
    Changing();
    SortItems();
    Changed();
}

/// The order of the lines. A derived class may have one that contradicts itself.
auto TStringList::ByText() const
{
    return
        [this](const TStringItem& a, const TStringItem& b) { return CompareStrings(a.String, b.String) < 0; };
}

void TStringList::SortItems()
{
    System::StableSort(std::span(mItems), ByText());
}

void TStringList::CustomSort(const TStringListSortCompare& compare)
{
    if (mSorted || mItems.size() < 2 || !compare) {
        return;
    }
    Changing();
    // The order is found on numbers, so that the lines stand still while the caller compares them.
    std::vector<int> order(mItems.size());
    std::iota(order.begin(), order.end(), 0);
    System::StableSort(std::span(order), [&](int a, int b) { return compare(this, a, b) < 0; });
    Items sorted;
    sorted.reserve(order.size());
    for (const int index : order) {
        sorted.push_back(ItemAt(index));
    }
    mItems = std::move(sorted);
    Changed();
}

void TStringList::setSorted(bool sorted)
{
    if (sorted) {
        Sort();
    } else {
        Settle();
    }
    mSorted = sorted;
}

void TStringList::setCaseSensitive(bool caseSensitive)
{
    if (mCaseSensitive == caseSensitive) {
        return;
    }
    mCaseSensitive = caseSensitive;
    if (mSorted) {
        Changing();
        Settle();
        SortItems();
        Changed();
    }
}

UnicodeString TStringList::Get(int index) const
{
    return At(index);
}

TObject* TStringList::GetObject(int index) const
{
    return ItemAt(index).Object;
}

void TStringList::Put(int index, const UnicodeString& text)
{
    CheckUnsorted();
    ItemAt(index);
    Changing();
    ItemAt(index).String = text;
    Changed();
}

void TStringList::PutObject(int index, TObject* object)
{
    ItemAt(index);
    Changing();
    ItemAt(index).Object = object;
    Changed();
}

int TStringList::GetCapacity() const
{
    const std::size_t capacity = mItems.capacity() + (mPending == nullptr ? 0 : mPending->Count());
    return static_cast<int>(std::min<std::size_t>(capacity, INT_MAX));
}

void TStringList::SetCapacity(int capacity)
{
    if (capacity < GetCount()) {
        throw EStringListError(u"List capacity out of bounds (" + UnicodeString(capacity) + u")");
    }
    System::WithMemory(u"There is no memory for the lines of a list.",
                       [&] { mItems.reserve(static_cast<std::size_t>(capacity)); });
}

void TStringList::SetUpdateState(bool updating)
{
    if (updating) {
        Changing();
    } else {
        Changed();
    }
}

void TStringList::AppendItems(Items&& items)
{
    if (items.empty()) {
        return;
    }
    Changing();
    Settle();
    if (mSorted) {
        MergeItems(std::move(items));
    } else if (mItems.empty()) {
        mItems = std::move(items);
    } else {
        mItems.insert(mItems.end(), std::make_move_iterator(items.begin()),
                      std::make_move_iterator(items.end()));
    }
    Changed();
}

void TStringList::MergeItems(Items&& items)
{
    const auto less = ByText();
    const std::size_t count = items.size();
    System::StableSort(std::span(items), less);
    if (mDuplicates != dupAccept) {
        const auto isSame = [&](const TStringItem& a, const TStringItem& b) { return !less(a, b); };
        items.erase(std::unique(items.begin(), items.end(), isSame), items.end());
        auto old = mItems.cbegin();
        std::erase_if(items, [&](const TStringItem& item) {
            old = std::lower_bound(old, mItems.cend(), item, less);
            return old != mItems.cend() && !less(item, *old);
        });
    }
    const bool hasDuplicates = items.size() != count;
    const std::size_t middle = mItems.size();
    mItems.insert(mItems.end(), std::make_move_iterator(items.begin()), std::make_move_iterator(items.end()));
    System::StableMerge(std::span(mItems), middle, less);
    if (hasDuplicates && mDuplicates == dupError) {
        ThrowDuplicate();
    }
}

int TStringList::CompareStrings(const UnicodeString& a, const UnicodeString& b) const
{
    return mCaseSensitive ? Sysutils::AnsiCompareStr(a, b) : Sysutils::AnsiCompareText(a, b);
}

bool TStringList::EqualStrings(const UnicodeString& a, const UnicodeString& b) const
{
    return mCaseSensitive ? a == b : TStrings::EqualStrings(a, b);
}

void TStringList::Changing()
{
    if (!IsUpdating() && mOnChanging) {
        mOnChanging(this);
    }
}

void TStringList::Changed()
{
    if (!IsUpdating() && mOnChange) {
        mOnChange(this);
    }
}

} // namespace Classes
