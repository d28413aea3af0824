// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/objects/Host_Handle.h"

#include <cstddef>

// The memory of other processes.
//
//     _PROCESS_MEMORY_COUNTERS counters;
//     if (GetProcessMemoryInfo(process, &counters, counters.cb)) {
//         ShowBytes(counters.WorkingSetSize);
//     }

/// What memory a process takes, in bytes. What the host doesn't count is 0.
struct _PROCESS_MEMORY_COUNTERS
{
    unsigned long cb = 72;
    /// How often a page wasn't there, also one that was in memory.
    unsigned long PageFaultCount = 0;
    std::size_t PeakWorkingSetSize = 0;
    /// What lies in memory.
    std::size_t WorkingSetSize = 0;
    std::size_t QuotaPeakPagedPoolUsage = 0;
    std::size_t QuotaPagedPoolUsage = 0;
    std::size_t QuotaPeakNonPagedPoolUsage = 0;
    std::size_t QuotaNonPagedPoolUsage = 0;
    /// What is the process's own, in memory or swapped out.
    std::size_t PagefileUsage = 0;
    std::size_t PeakPagefileUsage = 0;
};

using PROCESS_MEMORY_COUNTERS = _PROCESS_MEMORY_COUNTERS;

/// Fills the structure; `size` is not looked at. False with the last error 87 for a process that ended, with
/// 5 where the host forbids it.
TRS8_BTL_API bool GetProcessMemoryInfo(HANDLE process, _PROCESS_MEMORY_COUNTERS* counters,
                                       unsigned long size);

/// Copies `size` bytes from `address` in the process to `buffer`. False with the last error 299 if not all of
/// them can be read, with 5 where the host forbids it, with 87 for a process that ended. `done`, if it isn't
/// null, gets the count of bytes that were copied.
TRS8_BTL_API bool ReadProcessMemory(HANDLE process, const void* address, void* buffer, std::size_t size,
                                    unsigned long* done);
/// As `ReadProcessMemory`, but copies from `buffer` to the process.
TRS8_BTL_API bool WriteProcessMemory(HANDLE process, void* address, const void* buffer, std::size_t size,
                                     unsigned long* done);
