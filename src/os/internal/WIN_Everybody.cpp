// SPDX-License-Identifier: MIT
#include "os/internal/WIN_Everybody.h"

#include "os/WIN_LastError.h"

WIN::CEverybody::CEverybody()
{
    if (!InitializeSecurityDescriptor(&mDescriptor, SECURITY_DESCRIPTOR_REVISION) ||
        !SetSecurityDescriptorDacl(&mDescriptor, true, nullptr, false)) {
        ThrowLastError();
    }
}
