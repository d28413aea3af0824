// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_Object.h"

#include <unordered_map>
#include <vector>

namespace Classes
{

class TCollection;
class TComponent;

/// Base of all objects whose state can be copied and whose properties can be stored.
class TRS8_BTL_API TPersistent : public System::TObject
{
    TRS8_BTL_CLASS(TPersistent, System::TObject)

public:
    ~TPersistent() override;

    /// Takes over the state of `source`. A class that doesn't know the source's class asks the source by
    /// `AssignTo`; `Sysutils::EConvertError` if neither can, or for null.
    virtual void Assign(TPersistent* source);
    /// The path of names from the outermost owner down to this object.
    virtual System::UnicodeString GetNamePath() const;

    /// Copies the state of this object to `target`, which doesn't know this class.
    virtual void AssignTo(TPersistent* target) const;
    virtual TPersistent* GetOwner() const;

protected:
    /// Raises `Sysutils::EConvertError`: `source`, which may be null, can't be assigned to this.
    [[noreturn]] void AssignError(const TPersistent* source) const;
};

enum TOperation
{
    opInsert,
    opRemove
};

enum TComponentStateFlag
{
    csLoading,
    csReading,
    csWriting,
    csDestroying,
    csDesigning,
    csAncestor,
    csUpdating,
    csFixups,
    csFreeNotification,
    csInline,
    csDesignInstance
};

using TComponentState = System::Set<TComponentStateFlag, csLoading, csDesignInstance>;

/// An object with a name that may own other components and destroys them, the last one first, when it goes
/// itself. Components are made by `new`; one without an owner belongs to its maker. Names are unique within
/// an owner, case aside.
class TRS8_BTL_API TComponent : public TPersistent
{
    TRS8_BTL_CLASS(TComponent, TPersistent)

public:
    /// `owner` may be null.
    explicit TComponent(TComponent* owner = nullptr);
    ~TComponent() override;

    const System::UnicodeString& getName() const noexcept { return mName; }
    void setName(const System::UnicodeString& name) { SetName(name); }
    /// Free for the use of the program.
    System::Int64 getTag() const noexcept { return mTag; }
    void setTag(System::Int64 tag) noexcept { mTag = tag; }

    TComponent* getOwner() const noexcept { return mOwner; }
    TPersistent* GetOwner() const override { return mOwner; }
    /// The bare name: a component's path begins with itself.
    System::UnicodeString GetNamePath() const override;

    int GetComponentCount() const noexcept { return static_cast<int>(mComponents.size()); }
    /// In the order of their insertion; `EListError` for an index out of range.
    TComponent* GetComponent(int index) const;
    /// The place among the owner's components; -1 without an owner.
    int GetComponentIndex() const;
    /// Moves the component among its owner's components; the index is held within their count.
    void SetComponentIndex(int index);
    /// The owned component of that name, case aside; null if there is none, or for an empty name.
    TComponent* FindComponent(const System::UnicodeString& name) const;

    /// Takes ownership of `component`, which leaves its former owner. `EComponentError` if its name is taken
    /// here, or if `component` is this component or one of its owners. Null changes nothing.
    void InsertComponent(TComponent* component);
    /// Gives up ownership of `component`; nothing happens if it isn't owned here.
    void RemoveComponent(TComponent* component);
    /// Destroys all owned components, the last one first.
    void DestroyComponents();

    /// `component` will tell this one, by `Notification`, when it is destroyed. Either may be destroyed
    /// first.
    void FreeNotification(TComponent* component);
    void RemoveFreeNotification(TComponent* component);

    const TComponentState& getComponentState() const noexcept { return mState; }
    /// `EComponentError` for a name that is no identifier, or that another component of the owner has. The
    /// empty name is allowed.
    virtual void SetName(const System::UnicodeString& name);
    void SetDesigning(bool value, bool setChildren = true);
    /// Marks this component and what it owns as inherited from an ancestor form, or not.
    void SetAncestor(bool value);
    void SetInline(bool value) { SetState(csInline, value); }
    /// Sets or clears the flag that a reader raises while it reads the component.
    void SetLoading(bool value) { SetState(csLoading, value); }
    /// Marks this component and what it owns as being destroyed. Called by the destructor; a derived class
    /// whose own destructor must know calls it earlier.
    void Destroying();
    /// Called when the component has been read completely.
    virtual void Loaded();

    /// Told of each component that comes or goes, among the owned ones or by `FreeNotification`. On
    /// `opRemove` the component may be in its destructor: only its address is of use. Passes the news to all
    /// owned components.
    virtual void Notification(TComponent* component, TOperation operation);

protected:
    /// Raises `EComponentError` if `component`, which may be null, can't change its name from `current` to
    /// `name` within this owner.
    virtual void ValidateRename(TComponent* component, const System::UnicodeString& current,
                                const System::UnicodeString& name);
    /// Sets the name without a test.
    void ChangeName(const System::UnicodeString& name);

private:
    void SetState(TComponentStateFlag flag, bool value);
    void Attach(TComponent& component);
    void Detach(TComponent& component);
    void Link(TComponent& component);
    void Unlink(TComponent& component);
    /// Lets the owner's published field of the component's name point to it, or to null.
    void SetReference(bool enable);

    TComponent* mOwner = nullptr;
    System::UnicodeString mName;
    System::Int64 mTag = 0;
    TComponentState mState;
    std::vector<TComponent*> mComponents;
    std::unordered_map<System::UnicodeString, TComponent*> mByName;
    std::vector<TComponent*> mFreeNotifies;
};

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
class TRS8_BTL_API TCollection : public TPersistent
{
    TRS8_BTL_CLASS(TCollection, TPersistent)

public:
    /// `itemClass` derives from `TCollectionItem` and can be made without arguments; `EInvalidOperation` if
    /// it doesn't.
    explicit TCollection(System::TMetaClass* itemClass);
    ~TCollection() override;

    System::TMetaClass* getItemClass() const noexcept { return mItemClass; }
    int GetCount() const noexcept { return static_cast<int>(mItems.size()); }
    /// `EListError` for an index out of range.
    TCollectionItem* GetItem(int index) const;
    TCollectionItem* Add();
    /// `EListError` for an index outside 0 to the count.
    TCollectionItem* Insert(int index);
    void Delete(int index);
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

// The process-wide register of classes by name. It may be used from any thread.

/// `EFilerError` if another class of that name, case aside, is registered; null is ignored.
TRS8_BTL_API void RegisterClass(System::TMetaClass* type);
TRS8_BTL_API void UnRegisterClass(System::TMetaClass* type);
/// The registered class of that name, case aside; null if there is none.
TRS8_BTL_API System::TMetaClass* GetClass(const System::UnicodeString& name);
/// As `GetClass`, but raises `EClassNotFound`.
TRS8_BTL_API System::TMetaClass* FindClass(const System::UnicodeString& name);

} // namespace Classes
