// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

namespace Classes
{
class TStream;
} // namespace Classes

// A component written as what differs from the design of its class's parent, or from another component: the
// form resource that makes it of that one. As text it has the form of `NAME.form`.
//
//     PASO::SaveComponentToFile(form, u"MainForm.form", true);
//
// An inherited component that is no longer there can't be told of: it comes back when the form is read. A
// form that can't be seen is written with that, whatever its parent's design says. Frames on the form are
// compared with the frames of its parent, or new ones with a new frame of their class.

namespace PASO
{

/// Writes what differs from the design of the parent of the class, as `BuildComponent` makes it; whole if
/// that has none, as `Forms::TForm`. `Classes::EWriteError` if `component` is null or can't be written; what
/// `BuildComponent` and getters raise passes. `Classes::EStreamError` for a null stream.
TRS8_BTL_API void SaveComponentToStream(Classes::TComponent* component, Classes::TStream* stream,
                                        bool asText);
/// Writes what differs from `ancestor`, or all if that is null. If `ancestor` is a control, it is made
/// visible. What both have by their names is marked as inherited, as by `EmendAncestorState`. Nothing is
/// written to `stream` before all of it is there.
TRS8_BTL_API void SaveComponentToStream(Classes::TComponent* component, Classes::TComponent* ancestor,
                                        Classes::TStream* stream, bool asText);

/// As `SaveComponentToStream` of these arguments, to a file, which is made, or replaced once all is there.
TRS8_BTL_API void SaveComponentToFile(Classes::TComponent* component, const System::UnicodeString& fileName,
                                      bool asText);
TRS8_BTL_API void SaveComponentToFile(Classes::TComponent* component, Classes::TComponent* ancestor,
                                      const System::UnicodeString& fileName, bool asText);

} // namespace PASO
