// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

// Who may open an object by its name.
//
//     SECURITY_DESCRIPTOR everybody;
//     InitializeSecurityDescriptor(&everybody, SECURITY_DESCRIPTOR_REVISION);
//     SetSecurityDescriptorDacl(&everybody, true, nullptr, false);
//     const SECURITY_ATTRIBUTES attributes{12, &everybody, false};
//     const HANDLE mutex = CreateMutexW(&attributes, false, u"station");

/// The one revision that there is.
inline constexpr unsigned long SECURITY_DESCRIPTOR_REVISION = 1;

/// Has an access list or not. With one that is null everybody has full access; otherwise an object is for the
/// user who makes it.
struct SECURITY_DESCRIPTOR
{
    unsigned long Revision = 0;
    bool IsDaclPresent = false;
    const void* Dacl = nullptr;
};

/// How an object is made; a null descriptor counts as one without an access list. Handles are never
/// inherited.
struct SECURITY_ATTRIBUTES
{
    unsigned long nLength = 12;
    const SECURITY_DESCRIPTOR* lpSecurityDescriptor = nullptr;
    bool bInheritHandle = false;
};

/// Makes a descriptor without an access list. False with 1305 for another revision, with 87 for null.
TRS8_BTL_API bool InitializeSecurityDescriptor(SECURITY_DESCRIPTOR* descriptor, unsigned long revision);

/// Gives the descriptor the access list `dacl`, or takes it away. False with 1305 for a descriptor that isn't
/// initialised, with 87 for null. `defaulted` is not looked at.
TRS8_BTL_API bool SetSecurityDescriptorDacl(SECURITY_DESCRIPTOR* descriptor, bool present, const void* dacl,
                                            bool defaulted);

namespace Host
{

/// Whether an object of these attributes, which may be null, is for everybody.
[[nodiscard]] TRS8_BTL_API bool IsForEverybody(const SECURITY_ATTRIBUTES* attributes) noexcept;

} // namespace Host
