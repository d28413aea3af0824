// SPDX-License-Identifier: MIT
#include "properties/values/PROP_Utilities.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/visual/controls/Controls_WinControl.h"
#include "properties/components/BTL_ComponentUtilities.h"
#include "properties/components/BTL_Components.h"

namespace PROP
{

using Classes::TComponent;
using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoArgument{"PROP_Utilities", 1};
constexpr UTL::CFaultPlace NoComponent{"PROP_Utilities", 2};

} // namespace

void GetChildNames(TComponent* owner, System::TMetaClass* type, Classes::TStrings* list)
{
    if (owner == nullptr || type == nullptr || list == nullptr) {
        UTL::THROW_XAssert(NoArgument);
        return;
    }
    for (TComponent* const component : BTL::CComponents(owner, System::ClassOf<Controls::TWinControl>())) {
        if (component->InheritsFrom(type)) {
            list->AddObject(component->getName(), component);
        }
    }
}

UnicodeString GetComponentName(TComponent* component)
{
    if (component == nullptr) {
        UTL::THROW_XAssert(NoComponent);
        return {};
    }
    const TComponent* const owner = component->getOwner();
    const TComponent* const upper = owner == nullptr ? nullptr : owner->getOwner();
    const bool hasPath = upper != nullptr && !upper->getName().IsEmpty() && !owner->getName().IsEmpty();
    return hasPath ? BTL::GetNamePath(component) : component->getName();
}

} // namespace PROP
