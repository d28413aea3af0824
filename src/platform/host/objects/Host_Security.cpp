// SPDX-License-Identifier: MIT
#include "platform/host/objects/Host_Security.h"

#include "platform/host/Host_Error.h"

bool InitializeSecurityDescriptor(SECURITY_DESCRIPTOR* descriptor, unsigned long revision)
{
    if (descriptor == nullptr) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    if (revision != SECURITY_DESCRIPTOR_REVISION) {
        return Host::Fail(ERROR_UNKNOWN_REVISION);
    }
    *descriptor = {revision, false, nullptr};
    return true;
}

bool SetSecurityDescriptorDacl(SECURITY_DESCRIPTOR* descriptor, bool present, const void* dacl,
                               bool /*defaulted*/)
{
    if (descriptor == nullptr) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    if (descriptor->Revision != SECURITY_DESCRIPTOR_REVISION) {
        return Host::Fail(ERROR_UNKNOWN_REVISION);
    }
    descriptor->IsDaclPresent = present;
    descriptor->Dacl = present ? dacl : nullptr;
    return true;
}

bool Host::IsForEverybody(const SECURITY_ATTRIBUTES* attributes) noexcept
{
    if (attributes == nullptr || attributes->lpSecurityDescriptor == nullptr) {
        return false;
    }
    const SECURITY_DESCRIPTOR& descriptor = *attributes->lpSecurityDescriptor;
    return descriptor.IsDaclPresent && descriptor.Dacl == nullptr;
}
