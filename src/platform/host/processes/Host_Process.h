// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/objects/Host_Handle.h"

// Processes by their handles.
//
//     const HANDLE process = OpenProcess(PROCESS_TERMINATE, false, id);
//     if (TerminateProcess(process, 3) && WaitForSingleObject(process, 1000) == WAIT_OBJECT_0) { ... }
//     CloseHandle(process);

inline constexpr unsigned long PROCESS_TERMINATE = 1;
inline constexpr unsigned long PROCESS_VM_READ = 0x10;
inline constexpr unsigned long PROCESS_VM_WRITE = 0x20;
inline constexpr unsigned long PROCESS_QUERY_INFORMATION = 0x400;
inline constexpr unsigned long SYNCHRONIZE = 0x100000;
inline constexpr unsigned long PROCESS_ALL_ACCESS = 0x1FFFFF;

/// The exit code of a process that runs.
inline constexpr unsigned long STILL_ACTIVE = 259;

/// Stands for this process in the calls on processes; it isn't closed.
inline HANDLE GetCurrentProcess() noexcept
{
    return INVALID_HANDLE_VALUE;
}

/// A handle on the process of this number, which the caller closes; a process that gets the number later is
/// another one. Null, with the last error 87 if there is no such process, or 5 if `access` has
/// `PROCESS_TERMINATE` and the host forbids it. `inherit` is not looked at.
TRS8_BTL_API HANDLE OpenProcess(unsigned long access, bool inherit, unsigned long id);

/// Ends the process at once. Waits and handles of this process see it end with `exitCode`, others with 137.
/// False with the last error 5 for a process that ended or that the host protects.
TRS8_BTL_API bool TerminateProcess(HANDLE process, unsigned exitCode);

/// `STILL_ACTIVE` while the process runs, then 0 to 255 as it tells, or 128 + n if signal n ended it. False
/// with the last error 5 for a process that isn't a child of this one: the host tells nobody else.
TRS8_BTL_API bool GetExitCodeProcess(HANDLE process, unsigned long* exitCode);
