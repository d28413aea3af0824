// SPDX-License-Identifier: MIT
#include "properties/objects/PROP_Event.h"

#include "platform/runtime/typinfo/System_MetaClass.h"
#include "properties/components/BTL_Components.h"
#include "properties/values/PROP_CPropList.h"

#include <exception>

namespace PROP
{

using Classes::TComponent;
using Typinfo::TPropInfo;

namespace
{

/// Calls `use` with each event of the component itself.
template <class Use>
void ForEachEvent(TComponent* component, Use use)
{
    for (TPropInfo* const info : CPropList(component, CTypeKinds() << Typinfo::tkMethod)) {
        if (info->CanRead() && info->CanWrite()) {
            use(info);
        }
    }
}

/// By the class of the record: one derived from it may publish the event again under a record of its own.
bool HasRecord(const TComponent* component, const TPropInfo* info)
{
    return component != nullptr && info != nullptr && component->ClassType()->Inherits(info->getClass());
}

void TryBind(const CEvent& event) noexcept
{
    try {
        event.SetMethodProp();
    } catch (const std::exception&) {
        // The others are to be bound whatever one of them does.
    }
}

} // namespace

CEvent::CEvent(TComponent* component, TPropInfo* propInfo)
{
    if (component == nullptr || propInfo == nullptr) {
        return;
    }
    mMethod = Typinfo::GetMethodProp(component, propInfo);
    mComponent = component;
    mPropInfo = propInfo;
}

void CEvent::SetMethodProp() const
{
    if (mComponent != nullptr) {
        Typinfo::SetMethodProp(mComponent, mPropInfo, mMethod);
    }
}

void CEvent::SetMethodProp(TComponent* component) const
{
    if (HasRecord(component, mPropInfo)) {
        Typinfo::SetMethodProp(component, mPropInfo, mMethod);
    }
}

void CEvent::ClearMethodProp() const
{
    if (mComponent != nullptr) {
        Typinfo::SetMethodProp(mComponent, mPropInfo, {});
    }
}

CEvents::CEvents(TComponent* component)
{
    SetEvents(component);
}

void CEvents::SetEvents(TComponent* component)
{
    Clear();
    for (TComponent* const owned : BTL::CComponents(component, true)) {
        ForEachEvent(owned, [&](TPropInfo* info) { mEvents.emplace_back(owned, info); });
    }
}

void CEvents::SetMethodProp() const
{
    for (const CEvent& event : mEvents) {
        event.SetMethodProp();
    }
}

void CEvents::SetMethodProp(TComponent* component) const
{
    for (const CEvent& event : mEvents) {
        event.SetMethodProp(component);
    }
}

void CEvents::ClearMethodProp() const
{
    for (const CEvent& event : mEvents) {
        event.ClearMethodProp();
    }
}

CClearEvents::CClearEvents(TComponent* component) : CEvents(component)
{
    try {
        ClearMethodProp();
    } catch (...) {
        for (const CEvent& event : *this) {
            TryBind(event);
        }
        throw;
    }
}

CClearEvents::~CClearEvents()
{
    for (const CEvent& event : *this) {
        TryBind(event);
    }
}

void ClearEvents(TComponent* component, bool recursive)
{
    if (component == nullptr) {
        return;
    }
    const BTL::CComponents below(recursive ? component : nullptr);
    const auto clear = [](TComponent* one) {
        ForEachEvent(one, [&](TPropInfo* info) { Typinfo::SetMethodProp(one, info, {}); });
    };
    clear(component);
    for (TComponent* const owned : below) {
        clear(owned);
    }
}

void CopyEvents(TComponent* first, TComponent* second)
{
    CEvents events(second);
    events.SetEvents(first);
}

} // namespace PROP
