// SPDX-License-Identifier: MIT
#include "platform/Version.h"

namespace System
{

const char* LibraryVersion() noexcept
{
    return TRS8_BTL_VERSION;
}

} // namespace System
