// SPDX-License-Identifier: MIT
#pragma once

// Components, lists and streams, all at once:
// - `Classes_Strings.h`: `TStrings`, what every list of lines can; `Classes_StringList.h`: `TStringList`
// - `Classes_List.h`: `TList`, a list of pointers; `Contnrs_ObjectList.h`, `Contnrs_ComponentList.h`: of
// objects
// - `Classes_Stream.h`: streams of files, memory, texts and resources
// - `Classes_Persistent.h`: objects that can be assigned; `Classes_Component.h`: `TComponent`, which owns
// others
// - `Classes_Collection.h`: `TCollection`, a list of items of one class
// - `Classes_ClassRegister.h`: classes by their names
// - `Classes_Thread.h`: threads; `Classes_Synchronize.h`: what they hand over to the main thread
// - `Classes_Update.h`: the scope of a change; `Classes_Exceptions.h`: what all of them throw

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_List.h"
#include "platform/runtime/classes/Classes_Persistent.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/classes/Classes_Synchronize.h"
#include "platform/runtime/classes/Classes_Thread.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/classes/Contnrs_ComponentList.h"
#include "platform/runtime/classes/Contnrs_ObjectList.h"
