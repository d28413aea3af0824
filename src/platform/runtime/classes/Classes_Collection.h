// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Persistent.h"

#include <vector>

namespace Classes
{

class TCollection;

/// Base of the items of a `TCollection`.
class TRS8_BTL_API TCollectionItem : public TPersistent
{
    TRS8_BTL_CLASS(TCollectionItem, TPersistent)

public:
    /// Appends the item to `collection`, which then owns it; `collection` may be null.
    explicit TCollectionItem(TCollection* collection = nullptr);
    ~TCollectionItem() override;

    TCollection* getCollection() const noexcept { return mCollection; }
    /// Moves the item to the end of another collection, or out of any if that is null. `EInvalidOperation`
    /// if the item isn't of that collection's item class.
    void setCollection(TCollection* collection);
    /// -1 outside a collection.
    int getIndex() const;
    /// Moves the item; the index is held within the collection's count.
    void setIndex(int index);
    /// Unique among all items the collection ever had.
    int getID() const noexcept { return mID; }
    /// What a list of items shows for this one; the class name if a derived class knows nothing better.
    virtual System::UnicodeString GetDisplayName() const;
    TPersistent* GetOwner() const override;
    System::UnicodeString GetNamePath() const override;

protected:
    /// To be called after a change of the item; `allItems` if the others have to be looked at again too.
    void Changed(bool allItems);

private:
    friend class TCollection;

    TCollection* mCollection = nullptr;
    int mID = 0;
};

/// A list of items of one class, which it owns.
///
///     TCollection columns(System::ClassOf<TColumn>());            // a class from TCollectionItem
///     auto* const column = System::CheckedCast<TColumn>(columns.Add());
///     for (TCollectionItem* item : columns) { ... }
///     delete columns.GetItem(0);                                  // leaves the collection
class TRS8_BTL_API TCollection : public TPersistent
{
    TRS8_BTL_CLASS(TCollection, TPersistent)

public:
    /// `itemClass` derives from `TCollectionItem` and can be made without arguments; `EInvalidOperation` if
    /// it doesn't.
    explicit TCollection(System::TMetaClass* itemClass);
    ~TCollection() override;

    System::TMetaClass* getItemClass() const noexcept { return mItemClass; }
    /// The count of items.
    int GetCount() const noexcept { return static_cast<int>(mItems.size()); }
    /// The item at the 0-based `index`, which stays the collection's. `EListError` for one out of range.
    TCollectionItem* GetItem(int index) const;

    // The items as a range, valid until one comes, goes or moves.

    TCollectionItem* const* begin() const noexcept { return mItems.data(); }
    TCollectionItem* const* end() const noexcept { return mItems.data() + mItems.size(); }
    std::size_t size() const noexcept { return mItems.size(); }
    [[nodiscard]] bool empty() const noexcept { return mItems.empty(); }

    /// A new item at the end, which the collection owns. `EInvalidOperation` if its class is abstract or
    /// can't be made without arguments.
    TCollectionItem* Add();
    /// `EListError` for an index outside 0 to the count.
    TCollectionItem* Insert(int index);
    /// Destroys the item. `EListError` for an index out of range.
    void Delete(int index);
    /// Destroys all items, the last one first.
    void Clear();
    /// Null if no item has that id.
    TCollectionItem* FindItemID(int id) const;

    /// Makes items like those of the source, one for one.
    void Assign(TPersistent* source) override;
    /// The owner's path and the name of its published property that holds this collection.
    System::UnicodeString GetNamePath() const override;

    /// Between the two, `Update` isn't called; the last `EndUpdate` calls it once. They may be nested.
    void BeginUpdate() noexcept { ++mUpdateCount; }
    void EndUpdate();

protected:
    /// Called after a change of `item`, or of several or their order if that is null.
    virtual void Update(TCollectionItem* item);
    /// Called when `item` has come, or is about to go.
    virtual void Notify(TCollectionItem* item, TOperation operation);
    void Changed(TCollectionItem* item = nullptr);

private:
    friend class TCollectionItem;

    void InsertItem(TCollectionItem& item);
    void RemoveItem(TCollectionItem& item);
    void CheckIndex(int index, int limit) const;

    System::TMetaClass* mItemClass;
    std::vector<TCollectionItem*> mItems;
    int mUpdateCount = 0;
    int mNextID = 0;
};

/// A collection that is part of an object.
class TRS8_BTL_API TOwnedCollection : public TCollection
{
    TRS8_BTL_CLASS(TOwnedCollection, TCollection)

public:
    TOwnedCollection(TPersistent* owner, System::TMetaClass* itemClass)
        : TCollection(itemClass), mOwner(owner)
    {
    }
    ~TOwnedCollection() override;
    TPersistent* GetOwner() const override { return mOwner; }

private:
    TPersistent* mOwner;
};

} // namespace Classes
