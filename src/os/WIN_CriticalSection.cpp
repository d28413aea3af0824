// SPDX-License-Identifier: MIT
#include "os/WIN_CriticalSection.h"

WIN::CCriticalSectionObject& WIN::GlobalCriticalSection() noexcept
{
    // Never destroyed: the destructors of global objects may still enter it.
    static auto* const section = new CCriticalSectionObject;
    return *section;
}
