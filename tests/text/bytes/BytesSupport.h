// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Support
{

/// Each of the 256 bytes once, in order.
inline System::AnsiString AllBytes()
{
    System::AnsiString bytes;
    for (int i = 0; i < 256; ++i) {
        bytes += static_cast<char>(i);
    }
    return bytes;
}

} // namespace Support
