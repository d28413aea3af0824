// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Component.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/internal/Classes_EndFault.h"
#include "platform/runtime/classes/internal/Classes_ObjectList.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/filer/internal/Classes_Loading.h"
#include "platform/runtime/filer/internal/Classes_Reference.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <utility>
#include <vector>

#include <unicode/uchar.h>

namespace Classes
{

using System::GClassBuilder;
using System::TMetaClass;
using System::UnicodeString;
using System::WideChar;

void (*TellEndFault)() = nullptr;

namespace
{

/// What others raise when they are told of an end, which takes place all the same. It is shown when those who
/// go have left their owners, so that nobody who acts meanwhile finds them.
class CEndFaults
{
public:
    template <class Tell>
    void Gather(Tell tell)
    {
        try {
            tell();
        } catch (...) {
            if (TellEndFault == nullptr) {
                throw;
            }
            mFaults.push_back(std::current_exception());
        }
    }

    void Show() const
    {
        for (const std::exception_ptr& fault : mFaults) {
            try {
                std::rethrow_exception(fault);
            } catch (...) {
                TellEndFault();
            }
        }
    }

private:
    std::vector<std::exception_ptr> mFaults;
};

bool IsIdentifier(const UnicodeString& name)
{
    const auto isLetter = [](WideChar c) { return c == u'_' || u_isalpha(c) != 0; };
    const auto isPart = [&](WideChar c) { return isLetter(c) || u_isdigit(c) != 0; };
    const auto text = name.AsView();
    return !text.empty() && isLetter(text.front()) && std::ranges::all_of(text, isPart);
}

} // namespace

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
    if (mIsTracked) {
        CLiveComponents::Forget(*this);
        ForgetReferences(*this);
    }
    Destroying();
    CEndFaults faults;
    // A component told of the end may drop links of its own, so the list is taken from its end.
    while (!mFreeNotifies.empty()) {
        TComponent* other = mFreeNotifies.back();
        Unlink(*other);
        faults.Gather([&] { other->Notification(this, opRemove); });
    }
    DestroyComponents();
    if (mOwner != nullptr) {
        faults.Gather([this] { mOwner->RemoveComponent(this); });
    }
    if (mOwner != nullptr) {
        UnbindField();
        mOwner->Detach(*this);
    }
    EndWatches();
    faults.Show();
}

void TComponent::EndWatches() noexcept
{
    for (TComponentWatch* watch = mWatches; watch != nullptr; watch = watch->mNext) {
        watch->mComponent = nullptr;
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
    const auto found = mByName.find(name.LowerCase());
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
    component->BindField();
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
        component->UnbindField();
        Detach(*component);
    }
}

void TComponent::DestroyComponents()
{
    CEndFaults faults;
    while (!mComponents.empty()) {
        TComponent* last = mComponents.back();
        if (last->mState.Contains(csFreeNotification)) {
            faults.Gather([&] { RemoveComponent(last); });
        }
        if (last->mOwner == this) {
            last->UnbindField();
            Detach(*last);
        }
        delete last;
    }
    faults.Show();
}

void TComponent::Attach(TComponent& component)
{
    mComponents.push_back(&component);
    component.mOwner = this;
    Listen(component);
    if (!component.mName.IsEmpty()) {
        mByName[component.mName.LowerCase()] = &component;
    }
}

void TComponent::Detach(TComponent& component)
{
    // The one to leave is most often the last: the search begins there.
    const auto remove = [&component](std::vector<TComponent*>& components) {
        const auto found = std::find(components.rbegin(), components.rend(), &component);
        components.erase(std::next(found).base());
    };
    remove(mComponents);
    if (std::exchange(component.mIsListener, false)) {
        remove(mListeners);
    }
    mByName.erase(component.mName.LowerCase());
    component.mOwner = nullptr;
}

void TComponent::BindField()
{
    AssignField(this);
}

void TComponent::UnbindField()
{
    AssignField(nullptr);
}

void TComponent::AssignField(TComponent* target)
{
    const System::TFieldInfo* field =
        mOwner == nullptr || mName.IsEmpty() ? nullptr : mOwner->ClassType()->FindField(mName);
    if (field != nullptr) {
        field->Assign(mOwner, target);
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
    mState << csFreeNotification;
    component->mState << csFreeNotification;
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

void TComponent::Listen(TComponent& component)
{
    TComponent* listener = &component;
    for (TComponent* owner = this; owner != nullptr && !listener->mIsListener; owner = owner->mOwner) {
        owner->mListeners.push_back(listener);
        listener->mIsListener = true;
        listener = owner;
    }
}

bool TComponent::NeedsInsertions() const
{
    // A class speaks for itself alone, not for what a program derives from it, with or without a record. No
    // class that ignores insertions has a constructor that causes one at its owner, so that the object is
    // seen as what it will be.
    const TMetaClass* const type = ClassType();
    return !mListeners.empty() || type->HearsInsertions() || !type->IsExactly(*this);
}

void TComponent::TellOfInsertion(TComponent* component)
{
    // What it is shows only when it is made completely, thus not where it comes.
    std::erase_if(mListeners, [](TComponent* listener) {
        listener->mIsListener = listener->NeedsInsertions();
        return !listener->mIsListener;
    });
    // From the end, and by index: a handler may remove the one that it looks at.
    for (std::size_t i = mListeners.size(); i > 0; --i) {
        if (i <= mListeners.size()) {
            mListeners[i - 1]->Notification(component, opInsert);
        }
    }
}

void TComponent::Notification(TComponent* component, TOperation operation)
{
    if (operation == opInsert) {
        TellOfInsertion(component);
        return;
    }
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
    UnbindField();
    ChangeName(name);
    BindField();
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
        mOwner->mByName.erase(mName.LowerCase());
        if (!name.IsEmpty()) {
            mOwner->mByName[name.LowerCase()] = this;
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
    mState << csDestroying;
    for (TComponent* component : mComponents) {
        component->Destroying();
    }
}

void TComponent::Loaded()
{
    mState >> csLoading;
}

bool TComponent::HasParent() const
{
    return false;
}

TComponent* TComponent::GetParentComponent() const
{
    return nullptr;
}

void TComponent::ReadState(TReader& reader)
{
    reader.ReadData(this);
}

void TComponent::WriteState(TWriter& writer)
{
    writer.WriteData(this);
}

void TComponent::GetChildren(const TGetChildProc&, TComponent*) {}

TComponent* TComponent::GetChildOwner()
{
    return nullptr;
}

TComponent* TComponent::GetChildParent()
{
    return this;
}

void TComponent::SetChildOrder(TComponent*, int) {}

void TComponent::SetParentComponent(TComponent*) {}

void TComponent::ValidateContainer(TComponent* component)
{
    if (component != nullptr) {
        component->ValidateInsert(this);
    }
}

void TComponent::ValidateInsert(TComponent*) {}

void TComponent::Updating()
{
    mState << csUpdating;
}

void TComponent::Updated()
{
    mState >> csUpdating;
}

namespace
{

// The two halves of the design info.

int LowHalf(int info)
{
    return static_cast<std::int16_t>(info);
}

int HighHalf(int info)
{
    return info >> 16;
}

int Joined(int low, int high)
{
    const auto held = [](int value) { return std::clamp<int>(value, INT16_MIN, INT16_MAX); };
    return held(high) * 0x10000 + (held(low) & 0xFFFF);
}

} // namespace

void TComponent::DefineProperties(TFiler& filer)
{
    TPersistent::DefineProperties(filer);
    const auto* const ancestor = dynamic_cast<const TComponent*>(filer.getAncestor());
    const int known = ancestor == nullptr ? 0 : ancestor->mDesignInfo;
    filer.DefineProperty(
        u"Left",
        [this](TReader& reader) { mDesignInfo = Joined(reader.ReadInteger(), HighHalf(mDesignInfo)); },
        [this](TWriter& writer) { writer.WriteInteger(LowHalf(mDesignInfo)); },
        LowHalf(mDesignInfo) != LowHalf(known));
    filer.DefineProperty(
        u"Top", [this](TReader& reader) { mDesignInfo = Joined(LowHalf(mDesignInfo), reader.ReadInteger()); },
        [this](TWriter& writer) { writer.WriteInteger(HighHalf(mDesignInfo)); },
        HighHalf(mDesignInfo) != HighHalf(known));
}

} // namespace Classes
