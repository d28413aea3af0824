// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Persistent.h"

#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>
#include <mutex>

#include <unicode/uchar.h>

namespace Classes
{

using System::GClassBuilder;
using System::TMetaClass;
using System::UnicodeString;
using System::WideChar;

namespace
{

UnicodeString Fold(const UnicodeString& name)
{
    return name.LowerCase();
}

bool IsIdentifier(const UnicodeString& name)
{
    const auto isLetter = [](WideChar c) { return c == u'_' || u_isalpha(c) != 0; };
    const auto isPart = [&](WideChar c) { return isLetter(c) || u_isdigit(c) != 0; };
    const auto text = name.AsView();
    return !text.empty() && isLetter(text.front()) && std::ranges::all_of(text, isPart);
}

template <class T>
int IndexIn(const std::vector<T*>& list, const T* item)
{
    const auto found = std::ranges::find(list, item);
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

/// Moves the item at `from` to `to`, which is held within the list.
template <class T>
void MoveItem(std::vector<T*>& list, int from, int to)
{
    to = std::clamp(to, 0, static_cast<int>(list.size()) - 1);
    const auto begin = list.begin();
    if (from < to) {
        std::rotate(begin + from, begin + from + 1, begin + to + 1);
    } else {
        std::rotate(begin + to, begin + from, begin + from + 1);
    }
}

[[noreturn]] void ThrowListIndex(int index)
{
    throw EListError(u"List index out of bounds (" + UnicodeString(index) + u")");
}

} // namespace

// TPersistent

TMetaClass* TPersistent::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TPersistent>(u"TPersistent").Build();
    return record;
}

TPersistent::~TPersistent() = default;

void TPersistent::Assign(TPersistent* source)
{
    if (source == nullptr) {
        AssignError(nullptr);
    }
    source->AssignTo(this);
}

void TPersistent::AssignTo(TPersistent* target) const
{
    if (target == nullptr) {
        throw Sysutils::EConvertError(u"Cannot assign a " + ClassName() + u" to nil");
    }
    target->AssignError(this);
}

void TPersistent::AssignError(const TPersistent* source) const
{
    const UnicodeString sourceName = source == nullptr ? UnicodeString(u"nil") : source->ClassName();
    throw Sysutils::EConvertError(u"Cannot assign a " + sourceName + u" to a " + ClassName());
}

UnicodeString TPersistent::GetNamePath() const
{
    const TPersistent* owner = GetOwner();
    const UnicodeString path = owner == nullptr ? UnicodeString() : owner->GetNamePath();
    return path.IsEmpty() ? ClassName() : path + u"." + ClassName();
}

TPersistent* TPersistent::GetOwner() const
{
    return nullptr;
}

// TComponent

TMetaClass* TComponent::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TComponent>(u"TComponent")
            .Property(u"Name", &TComponent::getName, &TComponent::setName,
                      {.stored = [](const System::TObject*) { return false; }})
            .Property(u"Tag", &TComponent::getTag, &TComponent::setTag, {.defaultValue = 0})
            .Build();
    return record;
}

TComponent::TComponent(TComponent* owner)
{
    if (owner == nullptr) {
        return;
    }
    try {
        owner->InsertComponent(this);
    } catch (...) {
        // No destructor will run to take the component from the owner again.
        if (mOwner != nullptr) {
            mOwner->Detach(*this);
        }
        throw;
    }
}

TComponent::~TComponent()
{
    Destroying();
    // A component told of the end may drop links of its own, so the list is taken from its end.
    while (!mFreeNotifies.empty()) {
        TComponent* other = mFreeNotifies.back();
        Unlink(*other);
        other->Notification(this, opRemove);
    }
    DestroyComponents();
    if (mOwner != nullptr) {
        mOwner->RemoveComponent(this);
    }
}

UnicodeString TComponent::GetNamePath() const
{
    return mName;
}

TComponent* TComponent::GetComponent(int index) const
{
    if (index < 0 || index >= GetComponentCount()) {
        ThrowListIndex(index);
    }
    return mComponents[static_cast<std::size_t>(index)];
}

int TComponent::GetComponentIndex() const
{
    return mOwner == nullptr ? -1 : IndexIn(mOwner->mComponents, this);
}

void TComponent::SetComponentIndex(int index)
{
    if (mOwner != nullptr) {
        MoveItem(mOwner->mComponents, GetComponentIndex(), index);
    }
}

TComponent* TComponent::FindComponent(const UnicodeString& name) const
{
    const auto found = mByName.find(Fold(name));
    return found == mByName.end() ? nullptr : found->second;
}

void TComponent::InsertComponent(TComponent* component)
{
    if (component == nullptr || component->mOwner == this) {
        return;
    }
    for (const TComponent* outer = this; outer != nullptr; outer = outer->mOwner) {
        if (outer == component) {
            throw EComponentError(u"A component cannot own itself");
        }
    }
    ValidateRename(component, {}, component->mName);
    if (component->mOwner != nullptr) {
        component->mOwner->RemoveComponent(component);
    }
    Attach(*component);
    component->SetReference(true);
    if (mState.Contains(csDesigning)) {
        component->SetDesigning(true);
    }
    Notification(component, opInsert);
}

void TComponent::RemoveComponent(TComponent* component)
{
    if (component == nullptr || component->mOwner != this) {
        return;
    }
    // In the destructor only this class is left to be told, and no more is meant.
    Notification(component, opRemove); // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall)
    // A handler of the notification may have removed it already.
    if (component->mOwner == this) {
        component->SetReference(false);
        Detach(*component);
    }
}

void TComponent::DestroyComponents()
{
    while (!mComponents.empty()) {
        TComponent* last = mComponents.back();
        if (last->mState.Contains(csFreeNotification)) {
            RemoveComponent(last);
        } else {
            last->SetReference(false);
            Detach(*last);
        }
        delete last;
    }
}

void TComponent::Attach(TComponent& component)
{
    mComponents.push_back(&component);
    component.mOwner = this;
    if (!component.mName.IsEmpty()) {
        mByName[Fold(component.mName)] = &component;
    }
}

void TComponent::Detach(TComponent& component)
{
    // The one to leave is most often the last: the search begins there.
    const auto found = std::find(mComponents.rbegin(), mComponents.rend(), &component);
    mComponents.erase(std::next(found).base());
    mByName.erase(Fold(component.mName));
    component.mOwner = nullptr;
}

void TComponent::SetReference(bool enable)
{
    const System::TFieldInfo* field =
        mOwner == nullptr || mName.IsEmpty() ? nullptr : mOwner->ClassType()->FindField(mName);
    if (field != nullptr) {
        field->Assign(mOwner, enable ? this : nullptr);
    }
}

void TComponent::FreeNotification(TComponent* component)
{
    if (component == nullptr || component == this) {
        return;
    }
    if (mOwner == nullptr || component->mOwner != mOwner) {
        Link(*component);
        component->Link(*this);
    }
    SetState(csFreeNotification, true);
    component->SetState(csFreeNotification, true);
}

void TComponent::RemoveFreeNotification(TComponent* component)
{
    if (component != nullptr) {
        Unlink(*component);
    }
}

void TComponent::Link(TComponent& component)
{
    if (IndexIn(mFreeNotifies, &component) < 0) {
        mFreeNotifies.push_back(&component);
    }
}

void TComponent::Unlink(TComponent& component)
{
    std::erase(mFreeNotifies, &component);
    std::erase(component.mFreeNotifies, this);
}

void TComponent::Notification(TComponent* component, TOperation operation)
{
    // From the end, and by index: a handler may remove the one that it looks at.
    for (int i = GetComponentCount() - 1; i >= 0; --i) {
        if (i < GetComponentCount()) {
            mComponents[static_cast<std::size_t>(i)]->Notification(component, operation);
        }
    }
}

void TComponent::SetName(const UnicodeString& name)
{
    if (mName == name) {
        return;
    }
    if (!name.IsEmpty() && !IsIdentifier(name)) {
        throw EComponentError(u"'" + name + u"' is not a valid component name");
    }
    if (mOwner != nullptr) {
        mOwner->ValidateRename(this, mName, name);
    } else {
        ValidateRename(nullptr, mName, name);
    }
    SetReference(false);
    ChangeName(name);
    SetReference(true);
}

void TComponent::ValidateRename(TComponent* component, const UnicodeString& current,
                                const UnicodeString& name)
{
    if (component == nullptr || name.IsEmpty() || current.CompareIC(name) == 0) {
        return;
    }
    TComponent* holder = FindComponent(name);
    if (holder != nullptr && holder != component) {
        throw EComponentError(u"A component named " + name + u" already exists");
    }
}

void TComponent::ChangeName(const UnicodeString& name)
{
    if (mOwner != nullptr) {
        mOwner->mByName.erase(Fold(mName));
        if (!name.IsEmpty()) {
            mOwner->mByName[Fold(name)] = this;
        }
    }
    mName = name;
}

void TComponent::SetState(TComponentStateFlag flag, bool value)
{
    if (value) {
        mState << flag;
    } else {
        mState >> flag;
    }
}

void TComponent::SetDesigning(bool value, bool setChildren)
{
    SetState(csDesigning, value);
    if (setChildren) {
        for (TComponent* component : mComponents) {
            component->SetDesigning(value, true);
        }
    }
}

void TComponent::SetAncestor(bool value)
{
    SetState(csAncestor, value);
    for (TComponent* component : mComponents) {
        component->SetAncestor(value);
    }
}

void TComponent::Destroying()
{
    if (mState.Contains(csDestroying)) {
        return;
    }
    SetState(csDestroying, true);
    for (TComponent* component : mComponents) {
        component->Destroying();
    }
}

void TComponent::Loaded()
{
    SetState(csLoading, false);
}

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

// The register of classes

namespace
{

struct ClassRegister
{
    std::mutex mutex;
    std::unordered_map<UnicodeString, TMetaClass*> classes;
};

/// Never destroyed: a module that ends late may still ask.
ClassRegister& Register()
{
    static auto* const instance = new ClassRegister;
    return *instance;
}

} // namespace

void RegisterClass(TMetaClass* type)
{
    if (type == nullptr) {
        return;
    }
    const std::scoped_lock lock(Register().mutex);
    const auto [entry, added] = Register().classes.try_emplace(Fold(type->getName()), type);
    if (!added && entry->second != type) {
        throw EFilerError(u"A class named " + type->getName() + u" already exists");
    }
}

void UnRegisterClass(TMetaClass* type)
{
    const std::scoped_lock lock(Register().mutex);
    std::erase_if(Register().classes, [type](const auto& entry) { return entry.second == type; });
}

TMetaClass* GetClass(const UnicodeString& name)
{
    const std::scoped_lock lock(Register().mutex);
    const auto found = Register().classes.find(Fold(name));
    return found == Register().classes.end() ? nullptr : found->second;
}

TMetaClass* FindClass(const UnicodeString& name)
{
    TMetaClass* type = GetClass(name);
    if (type == nullptr) {
        throw EClassNotFound(u"Class " + name + u" not found");
    }
    return type;
}

} // namespace Classes
