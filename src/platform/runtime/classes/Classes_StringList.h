// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/typinfo/System_Closure.h"

#include <vector>

namespace Classes
{

class CPendingLines;
class TStringList;

/// What a sorted list does with a line that it has already.
enum TDuplicates
{
    dupIgnore,
    dupAccept,
    dupError
};

/// Negative, 0 or positive for the lines at two places of the list.
using TStringListSortCompare = System::TClosure<int(TStringList* list, int first, int second)>;

/// A list of lines in memory, which can keep itself sorted.
///
///     TStringList names;
///     names.setSorted(true);                                      // each line goes to its place, once
///     names.Add(u"pear");
///     int place = 0;
///     if (names.Find(u"PEAR", place)) { ... }                     // log n
///     Show(names.At(place));                                      // no copy
class TRS8_BTL_API TStringList : public TStrings
{
    TRS8_BTL_CLASS(TStringList, TStrings)

public:
    explicit TStringList(bool ownsObjects = false);
    TStringList(std::initializer_list<System::UnicodeString> lines);
    ~TStringList() override;

    /// In a sorted list the line goes to its place. If it is there already, `Duplicates` decides: `dupIgnore`
    /// adds nothing and gives its place, `dupError` raises `EStringListError`.
    int Add(const System::UnicodeString& text) override;
    /// An object that comes with an ignored line stays the caller's.
    int AddObject(const System::UnicodeString& text, System::TObject* object) override;
    /// As of `TStrings`; `EStringListError` in a sorted list, which finds the places itself.
    void Insert(int index, const System::UnicodeString& text) override;
    void InsertObject(int index, const System::UnicodeString& text, System::TObject* object) override;
    void Delete(int index) override;
    /// Deletes up to `count` lines from `index` on. `EStringListError` for a negative `index`.
    void DeleteRange(int index, int count);
    /// Deletes every line equal to `text`, by the list's way to compare.
    void DeleteAll(const System::UnicodeString& text);
    void Clear() override;
    void Exchange(int first, int second) override;
    /// As of `TStrings`; `EStringListError` in a sorted list.
    void Move(int from, int to) override;
    int IndexOf(const System::UnicodeString& text) const override;
    /// Whether the list has the line; `index` is the first such place. If not, it is the place where a sorted
    /// list would put it, and the count in any other list.
    virtual bool Find(const System::UnicodeString& text, int& index) const;
    /// Sorts once. Equal lines keep their order.
    void Sort();
    /// Sorts by another order. Equal lines keep their order; if the order contradicts itself, the lines come
    /// in any. Nothing happens in a sorted list.
    virtual void CustomSort(const TStringListSortCompare& compare);

    /// The line as the list holds it, to look at without a copy, also where a derived class overrides `Get`.
    /// Valid until the list is changed or gone. `EStringListError` for a place that it doesn't have.
    const System::UnicodeString& At(int index) const
    {
        const auto place = static_cast<std::size_t>(index);
        return (mPending == nullptr && place < mItems.size() ? mItems[place] : ItemAt(index)).String;
    }

    bool getSorted() const noexcept { return mSorted; }
    /// Sorts the list and keeps it sorted. Duplicates that it has stay.
    void setSorted(bool sorted);
    TDuplicates getDuplicates() const noexcept { return mDuplicates; }
    /// Matters only while the list is sorted. By default duplicates are ignored.
    void setDuplicates(TDuplicates duplicates) noexcept { mDuplicates = duplicates; }
    bool getCaseSensitive() const noexcept { return mCaseSensitive; }
    /// Whether upper and lower case are different lines to `IndexOf`, `Find` and sorting; they aren't at
    /// first. A sorted list is sorted anew.
    void setCaseSensitive(bool caseSensitive);
    bool getOwnsObjects() const noexcept { return mOwnsObjects; }
    /// Whether the list destroys an object when its line is deleted or the list is.
    void setOwnsObjects(bool ownsObjects) noexcept { mOwnsObjects = ownsObjects; }

    const TNotifyEvent& getOnChange() const noexcept { return mOnChange; }
    /// Called after each change, or after the last of an update.
    void setOnChange(const TNotifyEvent& event) { mOnChange = event; }
    const TNotifyEvent& getOnChanging() const noexcept { return mOnChanging; }
    /// Called before each change, or before the first of an update.
    void setOnChanging(const TNotifyEvent& event) { mOnChanging = event; }

protected:
    System::UnicodeString Get(int index) const override;
    int GetCount() const override;
    System::TObject* GetObject(int index) const override;
    void Put(int index, const System::UnicodeString& text) override;
    void PutObject(int index, System::TObject* object) override;
    int GetCapacity() const override;
    void SetCapacity(int capacity) override;
    void SetUpdateState(bool updating) override;
    void AppendItems(std::vector<TStringItem>&& items) override;
    int CompareStrings(const System::UnicodeString& a, const System::UnicodeString& b) const override;
    bool EqualStrings(const System::UnicodeString& a, const System::UnicodeString& b) const override;

    /// Called before and after each change, for the events of these names.
    virtual void Changing();
    virtual void Changed();

private:
    TStringItem& ItemAt(int index);
    const TStringItem& ItemAt(int index) const;
    /// `index` is below `LineCount`.
    const TStringItem& LineAt(std::size_t index) const;
    std::size_t LineCount() const noexcept;
    void InsertItem(int index, const System::UnicodeString& text, System::TObject* object);
    void PutItem(int index, TStringItem&& item);
    /// Brings all lines into `mItems`.
    void Settle();
    void MergeItems(std::vector<TStringItem>&& items);
    auto ByText() const;
    void SortItems();
    void CheckUnsorted() const;
    /// Takes lines out and destroys their objects.
    void CutItems(std::vector<TStringItem>::iterator first, std::vector<TStringItem>::iterator last);
    /// Destroys the objects of lines that have left the list.
    void Dispose(const std::vector<TStringItem>& items) const;

    std::vector<TStringItem> mItems;
    /// Lines of a sorted list that aren't in `mItems` yet; null while there are none.
    System::GOwner<CPendingLines> mPending;
    TNotifyEvent mOnChange;
    TNotifyEvent mOnChanging;
    TDuplicates mDuplicates = dupIgnore;
    bool mSorted = false;
    bool mCaseSensitive = false;
    bool mOwnsObjects;
};

} // namespace Classes
