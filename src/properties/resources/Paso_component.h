// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

// Forms, frames and data modules as their designs say, without the code of their classes: what a form
// designer has of a class.
//
//     Classes::TComponent* const design = PASO::BuildComponent(System::ClassOf<TMainForm>(), true);
//     const System::UnicodeString caption = Typinfo::GetStrProp(design, u"Caption");
//     PASO::DeleteComponent(design);

namespace PASO
{

/// As `TComponent::SetDesigning`; null does nothing.
TRS8_BTL_API void SetDesigning(Classes::TComponent* component, bool value, bool setChildren);

/// A component that the form resources of the class `type` and its parents describe, named as the class
/// without its first letter. It has no owner; `DeleteComponent` is its end. Null for null, for
/// `Forms::TForm`, `Forms::TFrame` and `Classes::TDataModule` themselves, and for classes that derive from
/// none of these.
///
/// Made is one of these three, which at the end appears as a `type`: no constructor or destructor of a
/// derived class runs, published fields and what a derived class defines by `DefineProperties` aren't
/// there, and events do nothing. Published properties of derived classes hold what the resources say, see
/// `System::TObject::SetClassType`. While it is read it appears as what it is and is being designed;
/// at the end it is designed only if `designing` says so. The components on it are whole, frames too.
///
/// Raises as `ReadComponentRes`; nothing is left then. So does a resource with a value that a derived class
/// defines: there is nobody who could read it, and none to be compared with a form that has it.
[[nodiscard]] TRS8_BTL_API Classes::TComponent* BuildComponent(System::TMetaClass* type, bool designing);

/// Destroys `component`, which may be null: it appears as the form, frame or data module that it derives
/// from, its events and those of what it owns are emptied, and it is being designed, so that its end runs no
/// code of the program. The destructors are those of the class that it was made of. An exception on the way
/// is shown in a box; then the component stays, as the class that it was. What those raise who are told of
/// its end by `Notification` is shown too, by the application, and the end takes place; no other exception
/// can leave a destructor.
TRS8_BTL_API void DeleteComponent(Classes::TComponent* component);
/// Destroys `second`, then `first`.
TRS8_BTL_API void DeleteComponent(Classes::TComponent* first, Classes::TComponent* second);

} // namespace PASO
