// SPDX-License-Identifier: MIT
#include "properties/components/BTL_ComponentList.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Contnrs_ComponentList.h"
#include "properties/classes/BTL_Classes.h"
#include "properties/components/internal/BTL_OwnedWalk.h"

#include <deque>
#include <utility>

namespace BTL
{

using Classes::TComponent;
using System::TMetaClass;

void CComponentList::AddComponents(TComponent* component)
{
    if (component == nullptr) {
        return;
    }
    reserve(SizeWith(static_cast<unsigned>(component->GetComponentCount())));
    WalkOwned(*component, [this](TComponent* owned) {
        push_back(owned);
        return false;
    });
}

void CComponentList::AddComponents(TComponent* component, TMetaClass* type)
{
    if (component == nullptr) {
        return;
    }
    WalkOwned(*component, [this, type](TComponent* owned) {
        if (InheritsFrom(owned, type)) {
            push_back(owned);
        }
        return true;
    });
}

void CComponentList::AddComponents(const Contnrs::TComponentList* list)
{
    if (list == nullptr) {
        return;
    }
    reserve(SizeWith(static_cast<unsigned>(list->getCount())));
    for (int i = 0; i < list->getCount(); ++i) {
        push_back(list->getItems(i));
    }
}

void CComponentList::AddComponents(const Contnrs::TComponentList* list, TMetaClass* type)
{
    AddComponents(CComponentList(list), type);
}

void CComponentList::AddWithBelow(TComponent* component, TMetaClass* type)
{
    if (InheritsFrom(component, type)) {
        push_back(component);
    }
    AddComponents(component, type);
}

void CComponentList::AddComponents(const CComponentList& list, TMetaClass* type)
{
    // By index: the other list may be this one, which grows.
    const unsigned count = list.size();
    for (unsigned i = 0; i < count; ++i) {
        AddWithBelow(list.at(i), type);
    }
}

void CComponentList::DeleteComponents()
{
    const CComponentList doomed = std::exchange(*this, CComponentList());
    std::deque<std::pair<TComponent*, Classes::TComponentWatch>> watched;
    for (TComponent* const component : doomed) {
        if (component != nullptr) {
            watched.emplace_back(std::piecewise_construct, std::forward_as_tuple(component),
                                 std::forward_as_tuple(component));
        }
    }
    for (const auto& [component, watch] : watched) {
        if (watch.IsAlive()) {
            delete component;
        }
    }
}

} // namespace BTL
