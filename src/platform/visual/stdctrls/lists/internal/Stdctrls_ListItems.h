// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/WindowItems.h"

namespace Stdctrls
{

class CListItems;

/// What a list has beside the text of an item. It moves with the item.
class CListItem : public System::TObject
{
public:
    CListItem(CListItems& list, System::TObject* object) : data(object), mList(list) {}
    CListItem(const CListItem&) = delete;
    CListItem& operator=(const CListItem&) = delete;
    ~CListItem() override;

    /// The object that the program gave the item.
    System::TObject* data;
    Toolkits::ECheck check = Toolkits::ECheck::Unchecked;
    bool isSelected = false;
    bool isEnabled = true;
    bool isHeader = false;
    /// As it was measured; 0 before that.
    int height = 0;

private:
    CListItems& mList;
};

/// The items of a list box or combo box. The current one, wherever it moves, stays the current one.
class CListItems final : public Classes::TStringList
{
public:
    CListItems();
    ~CListItems() override;

    CListItem& ItemAt(int index) const { return *static_cast<CListItem*>(TStringList::GetObject(index)); }
    /// -1 for none, and for an index that isn't there.
    int getCurrent() const;
    void setCurrent(int index);
    /// The first item from `start` on, and round to it, that begins with `prefix`, case aside; -1 for none.
    int FindPrefix(const System::UnicodeString& prefix, int start) const;
    /// The first item of exactly that text; -1 for none.
    int FindExact(const System::UnicodeString& text) const;
    /// The item of exactly that text, or else of that but for its case; -1 for none.
    int FindText(const System::UnicodeString& text) const;

    int AddObject(const System::UnicodeString& text, System::TObject* object) override;
    /// Goes to its place in a sorted list.
    void InsertObject(int index, const System::UnicodeString& text, System::TObject* object) override;

protected:
    System::TObject* GetObject(int index) const override { return ItemAt(index).data; }
    void PutObject(int index, System::TObject* object) override { ItemAt(index).data = object; }
    /// Goes to its new place in a sorted list.
    void Put(int index, const System::UnicodeString& text) override;
    void AppendItems(std::vector<Classes::TStringItem>&& items) override;

private:
    friend class CListItem;

    CListItem* mCurrent = nullptr;
    /// Where the current one was last.
    mutable int mCurrentPlace = 0;
};

/// The height of an item, which is measured once: `measure(height)` finds `usual`, and may change the items.
/// It must raise if they are gone.
template <class Measure>
int MeasuredHeight(CListItems& items, int index, int usual, Measure measure)
{
    if (const int known = items.ItemAt(index).height; known > 0) {
        return known;
    }
    int height = usual;
    measure(height);
    if (index >= items.getCount()) {
        return usual;
    }
    return items.ItemAt(index).height = height > 1 ? height : 1;
}

/// Whether `text` begins with `prefix`, case aside.
bool BeginsWith(const System::UnicodeString& text, const System::UnicodeString& prefix);

/// The place of the first of `count` texts from `start` on, and round to it, for which `fits` holds; -1 for
/// none.
template <class Fits>
int FindRound(int count, int start, Fits fits)
{
    for (int i = 0; i < count; ++i) {
        const int index = static_cast<int>((static_cast<long long>(start < 0 ? 0 : start) + i) % count);
        if (fits(index)) {
            return index;
        }
    }
    return -1;
}

} // namespace Stdctrls
