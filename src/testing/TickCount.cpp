// SPDX-License-Identifier: MIT
#include "testing/TickCount.h"

#include "platform/host/Host_TickCount.h"

void Testing::SetTickCount(std::uint32_t now) noexcept
{
    Host::SetTickCount(now);
}
