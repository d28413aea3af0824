// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

// Handles of the host's objects: processes, mutexes, mappings, devices.
//
//     const HANDLE process = OpenProcess(SYNCHRONIZE, false, id);
//     if (WaitForSingleObject(process, 500) == WAIT_TIMEOUT) { ... }  // still running
//     CloseHandle(process);

/// Stands for an open object, or is null. Numbers of closed handles don't come again, so that a handle that
/// is used too long is found out.
using HANDLE = void*;

/// What the calls that open a device or file give in place of a handle when they fail.
// NOLINTNEXTLINE(performance-no-int-to-ptr): a number that is no place
inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(-1);

/// A wait without end, in milliseconds.
inline constexpr unsigned long INFINITE = 0xFFFFFFFF;

// What a wait ends with; `WAIT_TIMEOUT` stands among the error codes.

/// The object is signaled, and a mutex is the caller's now.
inline constexpr unsigned long WAIT_OBJECT_0 = 0;
/// The mutex is the caller's now, since its former owner ended without giving it back.
inline constexpr unsigned long WAIT_ABANDONED = 128;
/// The last error tells why.
inline constexpr unsigned long WAIT_FAILED = 0xFFFFFFFF;

/// Gives the handle back; its object ends with the last handle on it. False and `ERROR_INVALID_HANDLE` for
/// what is no open handle, one that is closed already among it.
TRS8_BTL_API bool CloseHandle(HANDLE handle);

/// Waits until the object is signaled, at most `milliseconds`; 0 only looks. `WAIT_OBJECT_0`,
/// `WAIT_ABANDONED`, `WAIT_TIMEOUT`, or `WAIT_FAILED` with `ERROR_INVALID_HANDLE` for what is no open handle
/// or no object to wait for. A handle that another thread closes meanwhile stays good for the wait.
TRS8_BTL_API unsigned long WaitForSingleObject(HANDLE handle, unsigned long milliseconds);
