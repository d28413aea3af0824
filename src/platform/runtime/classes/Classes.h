// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_Persistent.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/classes/Classes_Update.h"
