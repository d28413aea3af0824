// SPDX-License-Identifier: MIT
#include "properties/resources/Pasu_create.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_MetaClass.h"

namespace Pasu_create
{

using Classes::TComponent;
using System::TMetaClass;
using System::TObject;
using System::UnicodeString;

namespace
{

[[noreturn]] void Fail(const TMetaClass& type, const UnicodeString& why)
{
    throw Classes::EInvalidOperation(u"A " + type.getName() + u" can't be made: " + why);
}

/// The class whose size the storage of the object has.
const TMetaClass& NeedStorage(const TObject& object, const TMetaClass& type)
{
    const TMetaClass* const storage = TMetaClass::StorageOf(object);
    if (storage == nullptr) {
        Fail(type, u"the object isn't bare");
    }
    if (type.InstanceSize() > storage->InstanceSize()) {
        Fail(type, u"the storage is that of a " + storage->getName());
    }
    return *storage;
}

/// Makes an object of `type`, which appears as `shown` unless that is null, of the bare one.
template <class Construct>
auto* InPlaceOf(TObject& object, const TMetaClass& type, TMetaClass* shown, Construct construct)
{
    const TMetaClass& storage = NeedStorage(object, type);
    void* const place = dynamic_cast<void*>(&object);
    object.~TObject();
    try {
        auto* const made = construct(place);
        if (made == nullptr) {
            Fail(type, u"it has no such constructor");
        }
        made->SetClassType(shown);
        return made;
    } catch (...) {
        storage.InitInstance(place)->SetClassType(shown);
        throw;
    }
}

TMetaClass* SetClassOf(const TObject& object)
{
    return object.HasSetClass() ? object.ClassType() : nullptr;
}

} // namespace

TObject* NewInstance(TMetaClass* type)
{
    return type == nullptr ? nullptr : type->InitInstance(::operator new(type->InstanceSize()));
}

TObject* Create(TObject* object)
{
    if (object == nullptr) {
        return nullptr;
    }
    const TMetaClass& type = *object->ClassType();
    return InPlaceOf(*object, type, SetClassOf(*object), [&](void* place) { return type.Construct(place); });
}

TComponent* Create(TObject* object, TComponent* owner)
{
    if (object == nullptr) {
        return nullptr;
    }
    const TMetaClass& type = *object->ClassType();
    return InPlaceOf(*object, type, SetClassOf(*object),
                     [&](void* place) { return type.Construct(place, owner); });
}

Forms::TCustomForm* CreateNew(TObject* object, TComponent* owner)
{
    if (object == nullptr) {
        return nullptr;
    }
    TMetaClass* const shown = object->ClassType();
    if (!shown->Inherits(System::ClassOf<Forms::TCustomForm>())) {
        Fail(*shown, u"it is no form");
    }
    const bool isForm = shown->Inherits(System::ClassOf<Forms::TForm>());
    const TMetaClass& type =
        isForm ? *System::ClassOf<Forms::TForm>() : *System::ClassOf<Forms::TCustomForm>();
    TComponent* const form =
        InPlaceOf(*object, type, shown, [&](void* place) { return type.Construct(place, owner); });
    return static_cast<Forms::TCustomForm*>(form);
}

} // namespace Pasu_create
