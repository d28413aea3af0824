// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_create.h"

#include "properties/resources/Paso_setclasstype.h"
#include "properties/resources/Pasu_create.h"

#include <memory>

namespace PASO
{

using Classes::TComponent;
using System::TMetaClass;
using System::TObject;

namespace
{

/// What `create` makes of a bare object.
template <class Create>
auto* Created(TMetaClass* type, TMetaClass* creationClass, Create create)
{
    std::unique_ptr<TObject> bare(Pasu_create::NewInstance(type));
    if (bare != nullptr && creationClass != nullptr) {
        SetClassType(bare.get(), creationClass);
    }
    auto* const made = create(bare.get());
    static_cast<void>(bare.release());
    return made;
}

} // namespace

TObject* CreateObject(TMetaClass* type, TMetaClass* creationClass)
{
    return Created(type, creationClass, [](TObject* bare) { return Pasu_create::Create(bare); });
}

TComponent* CreateComponent(TMetaClass* type, TMetaClass* creationClass, TComponent* owner)
{
    return Created(type, creationClass, [owner](TObject* bare) { return Pasu_create::Create(bare, owner); });
}

TComponent* CreateComponent(TMetaClass* type, TComponent* owner)
{
    return CreateComponent(type, nullptr, owner);
}

} // namespace PASO
