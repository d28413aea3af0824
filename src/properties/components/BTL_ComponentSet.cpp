// SPDX-License-Identifier: MIT
#include "properties/components/BTL_ComponentSet.h"

#include "platform/runtime/classes/Contnrs_ComponentList.h"
#include "properties/classes/BTL_Classes.h"
#include "properties/components/internal/BTL_OwnedWalk.h"

#include <algorithm>
#include <iterator>

namespace BTL
{

using Classes::TComponent;
using System::TMetaClass;

void CComponentSet::AddComponents(TComponent* component)
{
    AddComponents(component, System::ClassOf<TComponent>());
}

void CComponentSet::AddComponents(const CComponentSet& other, TMetaClass* type)
{
    std::copy_if(other.begin(), other.end(), std::inserter(*this, end()),
                 [type](TComponent* component) { return InheritsFrom(component, type); });
}

void CComponentSet::AddComponents(TComponent* component, TMetaClass* type)
{
    if (component == nullptr) {
        return;
    }
    WalkOwned(*component, [this, type](TComponent* owned) {
        if (InheritsFrom(owned, type)) {
            insert(owned);
        }
        return false;
    });
}

void CComponentSet::AddComponents(const Contnrs::TComponentList* list)
{
    AddComponents(list, System::ClassOf<TComponent>());
}

void CComponentSet::AddComponents(const Contnrs::TComponentList* list, TMetaClass* type)
{
    const int count = list == nullptr ? 0 : list->getCount();
    for (int i = 0; i < count; ++i) {
        if (InheritsFrom(list->getItems(i), type)) {
            insert(list->getItems(i));
        }
    }
}

} // namespace BTL
