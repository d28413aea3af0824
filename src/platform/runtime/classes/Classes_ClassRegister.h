// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_Object.h"

namespace Classes
{

// The process-wide register of classes by name. It may be used from any thread.
//
//     RegisterClass(System::ClassOf<TGauge>());
//     const std::unique_ptr<System::TObject> gauge = FindClass(u"TGauge")->Create();

/// `EFilerError` if another class of that name, case aside, is registered; null is ignored.
TRS8_BTL_API void RegisterClass(System::TMetaClass* type);
TRS8_BTL_API void UnRegisterClass(System::TMetaClass* type);
/// The registered class of that name, case aside, or else the library's own of controls, menus, dialogs,
/// timers and data sets; null if there is none.
TRS8_BTL_API System::TMetaClass* GetClass(const System::UnicodeString& name);
/// As `GetClass`, but raises `EClassNotFound`.
TRS8_BTL_API System::TMetaClass* FindClass(const System::UnicodeString& name);

/// Gives the library's own component class of a name in small letters, null if there is none. The room of
/// controls fills it in.
TRS8_BTL_API extern System::TMetaClass* (*FindOwnClass)(const System::UnicodeString& name);

} // namespace Classes
