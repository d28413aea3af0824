// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/objects/Host_Handle.h"

// How much of the processor processes and threads get, as the host's nice values.
//
//     if (!SetPriorityClass(GetCurrentProcess(), HIGH_PRIORITY_CLASS) && GetLastError() ==
//     ERROR_ACCESS_DENIED) {
//         ...                                             // only some users may rise
//     }

/// nice 19.
inline constexpr unsigned long IDLE_PRIORITY_CLASS = 64;
/// nice 10.
inline constexpr unsigned long BELOW_NORMAL_PRIORITY_CLASS = 16384;
/// nice 0.
inline constexpr unsigned long NORMAL_PRIORITY_CLASS = 32;
/// nice -5.
inline constexpr unsigned long ABOVE_NORMAL_PRIORITY_CLASS = 32768;
/// nice -10.
inline constexpr unsigned long HIGH_PRIORITY_CLASS = 128;
/// nice -20.
inline constexpr unsigned long REALTIME_PRIORITY_CLASS = 256;

inline constexpr int THREAD_PRIORITY_IDLE = -15;
inline constexpr int THREAD_PRIORITY_LOWEST = -2;
inline constexpr int THREAD_PRIORITY_BELOW_NORMAL = -1;
inline constexpr int THREAD_PRIORITY_NORMAL = 0;
inline constexpr int THREAD_PRIORITY_ABOVE_NORMAL = 1;
inline constexpr int THREAD_PRIORITY_HIGHEST = 2;
inline constexpr int THREAD_PRIORITY_TIME_CRITICAL = 15;
inline constexpr int THREAD_PRIORITY_ERROR_RETURN = 0x7FFFFFFF;

/// Gives all threads of the process the class; what they differ by stays. False with the last error 87 for an
/// unknown class or a process that ended, with 5 where the host forbids it, which it mostly does for a rise.
TRS8_BTL_API bool SetPriorityClass(HANDLE process, unsigned long priorityClass);
/// The class that is next to the nice value of the process; 0 on a failure, with the last error 87 if it
/// ended.
TRS8_BTL_API unsigned long GetPriorityClass(HANDLE process);

/// Stands for the calling thread; it isn't closed.
inline HANDLE GetCurrentThread() noexcept
{
    return reinterpret_cast<HANDLE>(-2); // NOLINT(performance-no-int-to-ptr): a number that is no place
}

/// Sets the priority of the calling thread within the class of its process: each step of -2 to 2 is two nice
/// values, -15 and 15 are the least and the most there is. False with the last error 87 for another value,
/// with 5 for a rise that the host forbids, with 6 for another handle than `GetCurrentThread`.
TRS8_BTL_API bool SetThreadPriority(HANDLE thread, int priority);
/// What `SetThreadPriority` set, 0 at first; `THREAD_PRIORITY_ERROR_RETURN` with the last error 6 for another
/// handle than `GetCurrentThread`.
TRS8_BTL_API int GetThreadPriority(HANDLE thread);

namespace Host
{

/// Gives a process that was just started the class in the flags of `CreateProcessW`, if there is one.
TRS8_BTL_API void SetPriorityOfNew(int id, unsigned long flags) noexcept;

/// The class next to a nice value.
[[nodiscard]] TRS8_BTL_API unsigned long PriorityClassOf(int nice) noexcept;

} // namespace Host
