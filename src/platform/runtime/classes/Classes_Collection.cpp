// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Collection.h"

#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/classes/internal/Classes_ObjectList.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>
#include <memory>

namespace Classes
{

using System::GClassBuilder;
using System::TMetaClass;
using System::UnicodeString;

// TCollectionItem

TMetaClass* TCollectionItem::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TCollectionItem>(u"TCollectionItem").Build();
    return record;
}

TCollectionItem::TCollectionItem(TCollection* collection)
{
    if (collection != nullptr) {
        collection->InsertItem(*this);
    }
}

TCollectionItem::~TCollectionItem()
{
    if (mCollection != nullptr) {
        mCollection->RemoveItem(*this);
    }
}

void TCollectionItem::setCollection(TCollection* collection)
{
    if (collection == mCollection) {
        return;
    }
    if (collection != nullptr && !InheritsFrom(collection->getItemClass())) {
        throw EInvalidOperation(u"A " + ClassName() + u" is no item of this collection");
    }
    if (mCollection != nullptr) {
        mCollection->RemoveItem(*this);
    }
    if (collection != nullptr) {
        collection->InsertItem(*this);
    }
}

int TCollectionItem::getIndex() const
{
    return mCollection == nullptr ? -1 : IndexIn(mCollection->mItems, this);
}

void TCollectionItem::setIndex(int index)
{
    const int current = getIndex();
    if (current >= 0 && current != index) {
        MoveItem(mCollection->mItems, current, index);
        mCollection->Changed();
    }
}

UnicodeString TCollectionItem::GetDisplayName() const
{
    return ClassName();
}

TPersistent* TCollectionItem::GetOwner() const
{
    return mCollection;
}

UnicodeString TCollectionItem::GetNamePath() const
{
    return mCollection == nullptr ? ClassName()
                                  : mCollection->GetNamePath() + u"[" + UnicodeString(getIndex()) + u"]";
}

void TCollectionItem::Changed(bool allItems)
{
    if (mCollection != nullptr) {
        mCollection->Changed(allItems ? nullptr : this);
    }
}

// TCollection

TMetaClass* TCollection::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TCollection>(u"TCollection").Build();
    return record;
}

TCollection::TCollection(TMetaClass* itemClass) : mItemClass(itemClass)
{
    if (itemClass == nullptr || !itemClass->Inherits(System::ClassOf<TCollectionItem>())) {
        throw EInvalidOperation(u"The class is no class of collection items");
    }
}

TCollection::~TCollection()
{
    ++mUpdateCount;
    while (!mItems.empty()) {
        delete mItems.back();
    }
}

void TCollection::CheckIndex(int index, int limit) const
{
    if (index < 0 || index >= limit) {
        ThrowListIndex(index);
    }
}

TCollectionItem* TCollection::GetItem(int index) const
{
    CheckIndex(index, GetCount());
    return mItems[static_cast<std::size_t>(index)];
}

TCollectionItem* TCollection::Add()
{
    std::unique_ptr<System::TObject> object = mItemClass->Create();
    if (object == nullptr) {
        throw EInvalidOperation(u"A " + mItemClass->getName() + u" cannot be made");
    }
    auto* item = System::CheckedCast<TCollectionItem>(object.get());
    InsertItem(*item);
    static_cast<void>(object.release());
    return item;
}

TCollectionItem* TCollection::Insert(int index)
{
    CheckIndex(index, GetCount() + 1);
    const GUpdateScope scope(*this);
    TCollectionItem* item = Add();
    item->setIndex(index);
    return item;
}

void TCollection::Delete(int index)
{
    delete GetItem(index);
}

void TCollection::Clear()
{
    if (mItems.empty()) {
        return;
    }
    const GUpdateScope scope(*this);
    while (!mItems.empty()) {
        delete mItems.back();
    }
}

TCollectionItem* TCollection::FindItemID(int id) const
{
    const auto found =
        std::ranges::find_if(mItems, [id](const TCollectionItem* item) { return item->getID() == id; });
    return found == mItems.end() ? nullptr : *found;
}

void TCollection::Assign(TPersistent* source)
{
    const auto* collection = dynamic_cast<const TCollection*>(source);
    if (collection == nullptr) {
        TPersistent::Assign(source);
        return;
    }
    if (collection == this) {
        return;
    }
    const GUpdateScope scope(*this);
    Clear();
    for (TCollectionItem* item : collection->mItems) {
        Add()->Assign(item);
    }
}

UnicodeString TCollection::GetNamePath() const
{
    const TPersistent* owner = GetOwner();
    for (const Typinfo::TPropInfo* info : Typinfo::GetPropList(owner)) {
        if (info->getKind() == Typinfo::tkClass && Typinfo::GetObjectProp(owner, info) == this) {
            const UnicodeString path = owner->GetNamePath();
            return path.IsEmpty() ? info->getName() : path + u"." + info->getName();
        }
    }
    return TPersistent::GetNamePath();
}

void TCollection::EndUpdate()
{
    if (mUpdateCount > 0 && --mUpdateCount == 0) {
        Update(nullptr);
    }
}

void TCollection::Update(TCollectionItem*) {}

void TCollection::Notify(TCollectionItem*, TOperation) {}

void TCollection::Changed(TCollectionItem* item)
{
    if (mUpdateCount == 0) {
        Update(item);
    }
}

void TCollection::InsertItem(TCollectionItem& item)
{
    mItems.push_back(&item);
    item.mCollection = this;
    item.mID = mNextID++;
    Notify(&item, opInsert);
    Changed();
}

void TCollection::RemoveItem(TCollectionItem& item)
{
    Notify(&item, opRemove);
    const auto found = std::find(mItems.rbegin(), mItems.rend(), &item);
    mItems.erase(std::next(found).base());
    item.mCollection = nullptr;
    Changed();
}

TMetaClass* TOwnedCollection::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TOwnedCollection>(u"TOwnedCollection").Build();
    return record;
}

TOwnedCollection::~TOwnedCollection() = default;

} // namespace Classes
