// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>

#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace Host
{

/// Whether the device is one end of a pair that a program made.
[[nodiscard]] inline bool IsPseudoTerminal(const struct stat& status)
{
    constexpr unsigned firstMajor = 136;
    constexpr unsigned lastMajor = 143;
    return S_ISCHR(status.st_mode) && major(status.st_rdev) >= firstMajor &&
           major(status.st_rdev) <= lastMajor;
}

[[nodiscard]] inline bool IsPseudoTerminal(int device)
{
    struct stat status;
    return fstat(device, &status) == 0 && IsPseudoTerminal(status);
}

/// Whether a failed call on an open device tells by its `errno` that the device is gone.
[[nodiscard]] inline bool TellsLoss(int hostError)
{
    return hostError == EIO || hostError == ENODEV || hostError == ENXIO;
}

} // namespace Host
