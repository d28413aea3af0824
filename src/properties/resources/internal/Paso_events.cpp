// SPDX-License-Identifier: MIT
#include "properties/resources/internal/Paso_events.h"

#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "properties/components/BTL_Components.h"

namespace PASO
{

namespace
{

void ClearOwnEvents(Classes::TComponent& component)
{
    for (const Typinfo::TPropInfo* const info : component.ClassType()->Properties()) {
        if (info->getKind() == Typinfo::tkMethod && info->CanWrite()) {
            Typinfo::SetMethodProp(&component, info, {});
        }
    }
}

} // namespace

void ClearEvents(Classes::TComponent& component)
{
    for (Classes::TComponent* const each : BTL::CComponents(&component, true)) {
        ClearOwnEvents(*each);
    }
}

} // namespace PASO
