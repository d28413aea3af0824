// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_readcomponentres.h"

#include "platform/runtime/typinfo/System_MetaClass.h"
#include "properties/resources/Paso_creader.h"
#include "properties/resources/internal/Paso_designbase.h"

namespace PASO
{

Classes::TComponent* ReadComponentRes(Classes::TComponent* component, System::TMetaClass* type)
{
    if (type == nullptr || type == DesignBaseOf(type)) {
        return component;
    }
    Classes::TComponent* const root = ReadComponentRes(component, type->getParent());
    return CReader(type).ReadComponentRes(root);
}

} // namespace PASO
