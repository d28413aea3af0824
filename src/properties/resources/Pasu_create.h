// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/forms/Forms_Form.h"

// Allocation and construction of an object as two steps, so that what is constructed may be another class
// than the one whose size the storage has.
//
//     System::TObject* object = Pasu_create::NewInstance(System::ClassOf<TMainForm>());
//     object->SetClassType(System::ClassOf<Forms::TForm>());
//     Classes::TComponent* const form = Pasu_create::Create(object, nullptr);    // a TForm
//     delete form;

namespace Pasu_create
{

/// Storage for an object of the class `type`, filled with 0, and in it a bare object, which has its class and
/// nothing else. It belongs to the caller. Null for null.
[[nodiscard]] TRS8_BTL_API System::TObject* NewInstance(System::TMetaClass* type);

/// Makes of the bare object an object of the class that it appears as, in the same storage. The pointer that
/// is given takes the place of `object`, which must not be used any more. An object whose class was set
/// keeps it set. Null for null. `Classes::EInvalidOperation` if the class can't be made without arguments,
/// needs more storage than there is, or the object isn't bare; then, and if the constructor raises, the bare
/// object stays the caller's.
TRS8_BTL_API System::TObject* Create(System::TObject* object);
/// As `Create` of an object alone, but for a component, which then belongs to `owner`, or to the caller if
/// that is null. `Classes::EInvalidOperation` also for a class that is none of components.
TRS8_BTL_API Classes::TComponent* Create(System::TObject* object, Classes::TComponent* owner);
/// As `Create` of a component, but for a form without a design: made is the library's class of forms, which
/// appears as the class that the bare object appeared as. No constructor of a derived class runs.
/// `Classes::EInvalidOperation` also for a class that is none of forms.
TRS8_BTL_API Forms::TCustomForm* CreateNew(System::TObject* object, Classes::TComponent* owner);

} // namespace Pasu_create
