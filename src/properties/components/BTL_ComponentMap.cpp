// SPDX-License-Identifier: MIT
#include "properties/components/BTL_ComponentMap.h"

#include "properties/classes/BTL_Classes.h"
#include "properties/components/BTL_ComponentUtilities.h"
#include "properties/components/internal/BTL_OwnedWalk.h"

namespace BTL
{

using Classes::TComponent;
using System::UnicodeString;

CComponentMap::CComponentMap(TComponent* component, bool useNamePath) : CComponentMap(useNamePath)
{
    AddComponents(component);
}

void CComponentMap::AddComponents(TComponent* component)
{
    AddComponents(component, System::ClassOf<TComponent>());
}

void CComponentMap::AddComponents(TComponent* component, System::TMetaClass* type)
{
    if (component == nullptr) {
        return;
    }
    if (InheritsFrom(component, type)) {
        insert_or_assign(GetNameOf(component), component);
    }
    WalkOwned(*component, [this](TComponent* owned) {
        insert_or_assign(GetNameOf(owned), owned);
        return true;
    });
}

TComponent* CComponentMap::Find(const UnicodeString& name) const
{
    const auto found = find(name);
    return found == end() ? nullptr : found->second;
}

TComponent* CComponentMap::Find(TComponent* component) const
{
    return component == nullptr ? nullptr : Find(GetNameOf(component));
}

UnicodeString CComponentMap::GetNameOf(TComponent* component) const
{
    if (mUseNamePath || component == nullptr) {
        return GetNamePath(component);
    }
    return component->getName();
}

} // namespace BTL
