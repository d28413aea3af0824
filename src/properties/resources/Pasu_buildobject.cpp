// SPDX-License-Identifier: MIT
#include "properties/resources/Pasu_buildobject.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/visual/Forms.h"

namespace Pasu_buildobject
{

using Classes::TComponent;

namespace
{

void EndConstruction(TComponent& component)
{
    if (auto* const form = dynamic_cast<Forms::TCustomForm*>(&component); form != nullptr) {
        form->AfterConstruction();
    } else if (auto* const module = dynamic_cast<Classes::TDataModule*>(&component); module != nullptr) {
        module->AfterConstruction();
    }
}

} // namespace

TComponent* BuildObject(System::TMetaClass* type, TComponent* owner)
{
    TComponent* const made = type == nullptr ? nullptr : type->Create(owner);
    if (made == nullptr) {
        return nullptr;
    }
    const Classes::TComponentWatch watch(made);
    try {
        EndConstruction(*made);
    } catch (...) {
        if (watch.IsAlive()) {
            delete made;
        }
        throw;
    }
    return watch.IsAlive() ? made : nullptr;
}

} // namespace Pasu_buildobject
