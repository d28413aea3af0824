// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

namespace Classes
{

class TStrings;

// References from one form to components of another one, which may come later. A name as in a form resource
// is a path: "Main.Panel1" is the component `Panel1` of the form `Main`. The forms and data modules that
// `Forms::Screen` has are found; others by who registers a function for them.
//
//     RegisterFindGlobalComponentProc(FindForm);           // whoever knows all forms, once
//     GlobalFixupReferences();                             // a form was made without a reader
//
// They may be used from any thread; the components belong to theirs.

/// Gives the form, frame or module of that name; null if there is none.
using TFindGlobalComponent = TComponent* (*)(const System::UnicodeString& name);

/// Null, and a function that is there already, are ignored.
TRS8_BTL_API void RegisterFindGlobalComponentProc(TFindGlobalComponent find);
TRS8_BTL_API void UnregisterFindGlobalComponentProc(TFindGlobalComponent find);
/// What the registered functions, the last one first, know by the name; null if none does.
TRS8_BTL_API TComponent* FindGlobalComponent(const System::UnicodeString& name);
/// The component that a path of names leads to from `root`, by the components' owners; "Owner" stands for
/// `root` itself where it has no component of that name. Null if there is none.
TRS8_BTL_API TComponent* FindNestedComponent(TComponent* root, const System::UnicodeString& path);

/// Sets all references that wait for a component which is there by now. A `TReader` does so at the end of
/// each form. What a setter raises passes; that reference is gone then. Until then the property is null; it
/// stays so if the component never comes. The end of a component, or of the form in which the reference was
/// read, gives its references up.
TRS8_BTL_API void GlobalFixupReferences();
/// Adds to `names` the names of forms that references of `root`, or of all forms if that is null, wait for;
/// each once.
TRS8_BTL_API void GetFixupReferenceNames(TComponent* root, TStrings* names);
/// Adds to `names` the paths within the form `rootName` that references of `root`, or of all forms if that is
/// null, wait for; each once. The form itself has none.
TRS8_BTL_API void GetFixupInstanceNames(TComponent* root, const System::UnicodeString& rootName,
                                        TStrings* names);
/// Lets the references of `root`, or of all forms if that is null, that wait for the form `oldName` wait for
/// the form `newName`, and sets those that find it.
TRS8_BTL_API void RedirectFixupReferences(TComponent* root, const System::UnicodeString& oldName,
                                          const System::UnicodeString& newName);
/// Gives up the references that `instance` waits for: a component, with its parts, or a part of one. Null
/// has none.
TRS8_BTL_API void RemoveFixups(TPersistent* instance);
/// Gives up the references of `root`, or of all forms if that is null, that wait for the form `rootName`, or
/// for any if that is empty.
TRS8_BTL_API void RemoveFixupReferences(TComponent* root, const System::UnicodeString& rootName);

} // namespace Classes
