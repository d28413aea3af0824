// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/objects/Host_Security.h"

namespace WIN
{

/// The attributes of an object that each user has full access to.
class CEverybody
{
public:
    /// A failure goes to `ThrowLastError`.
    CEverybody();
    CEverybody(const CEverybody&) = delete;
    CEverybody& operator=(const CEverybody&) = delete;

    const SECURITY_ATTRIBUTES* getAttributes() const noexcept { return &mAttributes; }

private:
    SECURITY_DESCRIPTOR mDescriptor;
    SECURITY_ATTRIBUTES mAttributes{12, &mDescriptor, false};
};

} // namespace WIN
