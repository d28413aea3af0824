// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_List.h"

namespace System
{
class TMetaClass;
} // namespace System

namespace Contnrs
{

/// A list of objects, which it destroys when they are removed and at its end; unless it owns none, or they
/// are taken out by `Extract`.
///
///     Contnrs::TObjectList parts;                                 // owns them
///     parts.Add(new TPart);
///     parts.Delete(0);                                            // destroys it
class TRS8_BTL_API TObjectList : public Classes::TList
{
    TRS8_BTL_CLASS(TObjectList, Classes::TList)

public:
    explicit TObjectList(bool ownsObjects = true) noexcept : mOwnsObjects(ownsObjects) {}
    ~TObjectList() override;

    /// Whether the list destroys what is removed.
    bool getOwnsObjects() const noexcept { return mOwnsObjects; }
    void setOwnsObjects(bool isOn) noexcept { mOwnsObjects = isOn; }

    // As those of `TList`.

    System::TObject* getItems(int index) const { return ToObject(TList::getItems(index)); }
    void setItems(int index, System::TObject* object) { TList::setItems(index, object); }
    System::TObject* First() const { return ToObject(TList::First()); }
    System::TObject* Last() const { return ToObject(TList::Last()); }
    int Add(System::TObject* object) { return TList::Add(object); }
    void Insert(int index, System::TObject* object) { TList::Insert(index, object); }
    int Remove(System::TObject* object) { return TList::Remove(object); }
    System::TObject* Extract(System::TObject* object) { return ToObject(TList::Extract(object)); }
    int IndexOf(const System::TObject* object) const noexcept { return TList::IndexOf(object); }
    /// The first object of that class, or unless `isExact` of one derived from it, from the index on; -1 if
    /// there is none.
    int FindInstanceOf(const System::TMetaClass* type, bool isExact = true, int start = 0) const;

protected:
    void Notify(void* item, Classes::TListNotification action) override;

    /// The object that an item of `TList` is.
    static System::TObject* ToObject(void* item) noexcept { return static_cast<System::TObject*>(item); }

private:
    bool mOwnsObjects;
};

} // namespace Contnrs
