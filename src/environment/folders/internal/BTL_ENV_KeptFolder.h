// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL::Detail
{

/// A folder that is worked out once. Never destroyed: global objects of programs and add-ins ask for folders
/// in their destructors too.
inline const System::UnicodeString& KeptFolder(const System::UnicodeString& folder)
{
    return *new System::UnicodeString(folder);
}

} // namespace BTL::Detail
