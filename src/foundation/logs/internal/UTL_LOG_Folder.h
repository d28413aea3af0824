// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_Links.h"
#include "platform/base/System_String.h"

namespace UTL::Detail
{

/// `name` in the folder of the program, where the logs lie by default; `name` alone if nothing tells the
/// folder.
[[nodiscard]] inline System::UnicodeString InProgramFolder(const System::UnicodeString& name)
{
    const auto folder = Links().BinPath;
    return folder == nullptr ? name : folder() + name;
}

} // namespace UTL::Detail
