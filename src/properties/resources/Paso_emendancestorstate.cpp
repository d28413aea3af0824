// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_emendancestorstate.h"

#include "properties/components/BTL_ComponentMap.h"
#include "properties/components/BTL_Components.h"

namespace PASO
{

void EmendAncestorState(Classes::TComponent* component, Classes::TComponent* ancestor)
{
    if (ancestor == nullptr) {
        return;
    }
    const BTL::CComponentMap known(ancestor, true);
    for (Classes::TComponent* const each : BTL::CComponents(component)) {
        if (known.Find(each) != nullptr) {
            each->SetAncestor(true);
        }
    }
}

} // namespace PASO
