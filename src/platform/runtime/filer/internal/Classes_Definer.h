// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Persistent.h"

namespace Classes
{

/// Lets others than readers and writers ask what an object defines.
class CDefiner
{
public:
    static void DefineProperties(TPersistent& object, TFiler& filer) { object.DefineProperties(filer); }
};

} // namespace Classes
