// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

#include <cstddef>

// The form resources of classes. A form class reads its own at the end of its constructor, since only there
// it is an object of the class; that of its parent class did so before. `trs8_btl_forms` of the CMake package
// makes the resource of a text NAME.form.
//
//     TMainForm::TMainForm(TComponent* owner) : TForm(owner)
//     {
//         ReadDesign();                                           // of TCustomForm; calls ReadOwnDesign
//     }

namespace Classes
{

/// Reads into `instance` the form resources of its class and of the classes between that and `rootAncestor`,
/// which is not one of them; the outermost parent's first. Classes without a resource are passed over; false
/// if none had one. `Loaded` is called at the end, or by the form that `instance` is made for. Raises as
/// `TReader::ReadRootComponent`; `EReadError` also for designs in designs of more than 64 levels, as of one
/// that has its own class in it. Of a class whose parent's constructor has read its resource already, the
/// parent is the `rootAncestor`.
TRS8_BTL_API bool InitInheritedComponent(TComponent* instance, System::TMetaClass* rootAncestor);

/// As `InitInheritedComponent`, for the class alone whose constructor calls it.
TRS8_BTL_API bool ReadOwnDesign(TComponent& instance);

/// Reads the form in the raw resource `name` into `instance`, or into a new component without an owner if
/// that is null, and gives it. `EResNotFound` if there is no such resource; else as
/// `TReader::ReadRootComponent`.
TRS8_BTL_API TComponent* ReadComponentRes(const System::UnicodeString& name, TComponent* instance);
/// As `ReadComponentRes` of a name, for the form resource of `type` alone, as `TResourceStream` finds it.
TRS8_BTL_API TComponent* ReadComponentRes(const System::TMetaClass* type, TComponent* instance);

namespace Detail
{

// What the sources call that `trs8_btl_forms` makes; the name is in UTF-8.

TRS8_BTL_API void RegisterForm(const char* className, const void* bytes, std::size_t size);
TRS8_BTL_API void UnregisterForm(const char* className, const void* bytes, std::size_t size);

} // namespace Detail

} // namespace Classes
