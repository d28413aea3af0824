// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_Types.h"

#include <cstdint>

// Who and where this process is: the user, the computer, its memory, the version of the calls.
//
//     System::WideChar name[256];
//     unsigned long size = 256;
//     if (GetUserNameW(name, &size)) { ... }
//     MEMORYSTATUSEX status;
//     if (GlobalMemoryStatusEx(&status)) { ... status.ullAvailPhys ... }

/// Writes the name under which the process works to `buffer`, which has room for `*size` characters, and the
/// room that it took, its zero counted, to `*size`. False with the last error 122, and the room needed in
/// `*size`, for a buffer that is null or too small, with 1317 for a user without a name.
TRS8_BTL_API bool GetUserNameW(System::WideChar* buffer, unsigned long* size);

/// Which name `GetComputerNameExW` gives.
enum COMPUTER_NAME_FORMAT : int
{
    /// At most 15 characters of the host name in capitals.
    ComputerNameNetBIOS,
    /// Up to its first dot.
    ComputerNameDnsHostname,
    /// What is behind the first dot; may be empty.
    ComputerNameDnsDomain,
    ComputerNameDnsFullyQualified
};

/// Writes a name of the computer to `buffer`, which has room for `*size` characters, and the count without
/// the zero to `*size`. False with the last error 234, and the room needed in `*size`, for a buffer that is
/// null or too small, with 87 for an unknown format.
TRS8_BTL_API bool GetComputerNameExW(COMPUTER_NAME_FORMAT format, System::WideChar* buffer,
                                     unsigned long* size);

/// The version of the system that the calls follow.
struct OSVERSIONINFOW
{
    std::uint32_t dwOSVersionInfoSize = 276;
    std::uint32_t dwMajorVersion = 0;
    std::uint32_t dwMinorVersion = 0;
    std::uint32_t dwBuildNumber = 0;
    /// 2 for a system that keeps its programs apart.
    std::uint32_t dwPlatformId = 0;
    System::WideChar szCSDVersion[128] = {};
};

/// Fills the structure, always the same: 10.0 with the platform 2. It isn't the version of the host. False
/// with the last error 122 for another size than 276.
TRS8_BTL_API bool GetVersionExW(OSVERSIONINFOW* info);

/// The memory of the machine and of this process, in bytes.
struct _MEMORYSTATUSEX // NOLINT(bugprone-reserved-identifier): users know it by that name
{
    std::uint32_t dwLength = 64;
    /// What part of the memory is in use, 0 to 100.
    std::uint32_t dwMemoryLoad = 0;
    std::uint64_t ullTotalPhys = 0;
    /// What programs can have without swapping.
    std::uint64_t ullAvailPhys = 0;
    /// Memory and swap space together.
    std::uint64_t ullTotalPageFile = 0;
    std::uint64_t ullAvailPageFile = 0;
    /// The addresses that a process can have.
    std::uint64_t ullTotalVirtual = 0;
    std::uint64_t ullAvailVirtual = 0;
    /// Always 0.
    std::uint64_t ullAvailExtendedVirtual = 0;
};

using MEMORYSTATUSEX = _MEMORYSTATUSEX;

/// False with the last error 87 for another length than 64, with that of the host where it tells nothing.
TRS8_BTL_API bool GlobalMemoryStatusEx(_MEMORYSTATUSEX* status);
