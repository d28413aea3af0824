// SPDX-License-Identifier: MIT
#include "os/Win_sys_facts.h"

#include "os/WIN_LastError.h"

namespace WIN
{

namespace
{

constexpr std::uint32_t SeparatePrograms = 2;

OSVERSIONINFOW GetVersion()
{
    OSVERSIONINFOW info;
    ::GetVersionExW(&info);
    return info;
}

} // namespace

bool IsNT()
{
    return GetVersion().dwPlatformId == SeparatePrograms;
}

bool IsVista()
{
    constexpr std::uint32_t vista = 6;
    return IsNT() && GetVersion().dwMajorVersion >= vista;
}

void GlobalMemoryStatus(_MEMORYSTATUSEX& status)
{
    status.dwLength = sizeof status;
    if (!::GlobalMemoryStatusEx(&status)) {
        ThrowLastError();
    }
}

} // namespace WIN
