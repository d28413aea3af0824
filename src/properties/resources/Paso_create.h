// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

// Objects whose storage is that of one class and whose constructor is that of another, a parent of it: so no
// constructor of the derived class runs, and its fields stay 0.
//
//     Classes::TComponent* const form = PASO::CreateComponent(System::ClassOf<TMainForm>(),
//                                                             System::ClassOf<Forms::TForm>(), nullptr);
//     PASO::SetClassType(form, System::ClassOf<TMainForm>());     // now it appears as a main form

namespace PASO
{

/// A new object, which belongs to the caller, in storage for one of the class `type`: one of `creationClass`,
/// whose class is set to that, or of `type` if that is null. Null for a null `type`.
/// `Classes::EInvalidOperation` if the class can't be made without arguments or needs more storage; what its
/// constructor raises passes.
[[nodiscard]] TRS8_BTL_API System::TObject* CreateObject(System::TMetaClass* type,
                                                         System::TMetaClass* creationClass);

/// As `CreateObject`, but for a component, which belongs to `owner` or, if that is null, to the caller.
/// `Classes::EInvalidOperation` also for classes that are none of components.
TRS8_BTL_API Classes::TComponent* CreateComponent(System::TMetaClass* type, System::TMetaClass* creationClass,
                                                  Classes::TComponent* owner);
/// A component of the class `type` itself.
TRS8_BTL_API Classes::TComponent* CreateComponent(System::TMetaClass* type, Classes::TComponent* owner);

} // namespace PASO
