// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Classes
{
class TComponent;
class TStrings;
} // namespace Classes

namespace System
{
class TMetaClass;
} // namespace System

// Components by the names that documents know.
//
//     PROP::GetComponentName(button);                             // "BtnStart", directly on the form
//     PROP::GetComponentName(edit);                               // "FormMain.FrameData.EditName"
//     PROP::GetChildNames(form, System::ClassOf<Stdctrls::TEdit>(), list);

namespace PROP
{

/// Adds to `list` a line for each component of the class `type` that `owner` owns, or that windowed controls
/// below it own: the name, with the component as the line's object. A null argument is an internal fault and
/// adds nothing if the user lets that pass.
TRS8_BTL_API void GetChildNames(Classes::TComponent* owner, System::TMetaClass* type,
                                Classes::TStrings* list);

/// The name by which a document knows the component: `BTL::GetNamePath` if its owner has an owner and both of
/// these have names, else the bare name. So what stands directly on a form of the application, which has no
/// name, has its bare one. Null is an internal fault and gives the empty text if the user lets that pass.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetComponentName(Classes::TComponent* component);

} // namespace PROP
