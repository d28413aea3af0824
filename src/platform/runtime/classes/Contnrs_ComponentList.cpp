// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Contnrs_ComponentList.h"

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

namespace Contnrs
{

using Classes::TComponent;

/// A component, since only components are told.
class TComponentList::CNexus : public TComponent
{
public:
    explicit CNexus(TComponentList& list) : mList(list) {}

    void Notification(TComponent* component, Classes::TOperation operation) override
    {
        if (operation == Classes::opRemove) {
            // Once for each place; by then it counts no longer as in here, and isn't destroyed.
            while (mList.TList::Extract(static_cast<System::TObject*>(component)) != nullptr) {
            }
        }
        TComponent::Notification(component, operation);
    }

private:
    TComponentList& mList;
};

System::TMetaClass* TComponentList::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TComponentList>(u"TComponentList").Build();
    return record;
}

TComponentList::TComponentList(bool ownsObjects)
    : TObjectList(ownsObjects), mNexus(System::MakeOwner<CNexus>(*this))
{
}

TComponentList::~TComponentList()
{
    Clear();
}

TComponent* TComponentList::ToComponent(System::TObject* object) noexcept
{
    return static_cast<TComponent*>(object);
}

void TComponentList::setItems(int index, TComponent* component)
{
    TObjectList::setItems(index, component);
}

int TComponentList::Add(TComponent* component)
{
    return TObjectList::Add(component);
}

void TComponentList::Insert(int index, TComponent* component)
{
    TObjectList::Insert(index, component);
}

int TComponentList::Remove(TComponent* component)
{
    return TObjectList::Remove(component);
}

TComponent* TComponentList::Extract(TComponent* component)
{
    return ToComponent(TObjectList::Extract(component));
}

int TComponentList::IndexOf(const TComponent* component) const noexcept
{
    return TObjectList::IndexOf(component);
}

void TComponentList::Notify(void* item, Classes::TListNotification action)
{
    TComponent* const component = ToComponent(ToObject(item));
    if (action == Classes::lnAdded) {
        mNexus->FreeNotification(component);
    } else if (IndexOf(component) < 0) {
        mNexus->RemoveFreeNotification(component);
    }
    TObjectList::Notify(item, action);
}

} // namespace Contnrs
