// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/processes/Host_ProcessMemory.h"
#include "platform/host/processes/Host_ProcessSnapshot.h"
#include "platform/runtime/typinfo/System_Closure.h"

// The processes of the machine. A program is named by its file name or path, of which the name counts, in any
// case. Failures go to `ThrowLastError`.
//
//     WIN::ForEachProcess([](const tagPROCESSENTRY32W& entry) {
//         std::cout << entry.th32ProcessID << ' ' << UnicodeString(entry.szExeFile) << '\n';
//         return true;
//     });
//     if (WIN::IsExeRunning(u"station")) { ... }

namespace WIN
{

/// As `::OpenProcess`; the caller closes the handle. A failure that raises nothing gives null.
TRS8_BTL_API HANDLE OpenProcess(unsigned long access, int inherit, unsigned long id);

/// As `::GetProcessMemoryInfo`.
TRS8_BTL_API void GetProcessMemoryInfo(void* process, _PROCESS_MEMORY_COUNTERS& counters);
/// The size of the working set in bytes, 0 on a failure that raises nothing.
TRS8_BTL_API std::size_t GetProcessMemoryInfo(void* process);
/// As `GetProcessMemoryInfo` of a handle, for the process of this number.
TRS8_BTL_API std::size_t GetProcessMemoryInfo(unsigned long id);
/// As `GetProcessMemoryInfo`, but 0 on each failure.
TRS8_BTL_API std::size_t GetProcessMemoryInfoWithoutException(unsigned long id);

/// As `::CreateToolhelp32Snapshot`; the caller closes the handle.
TRS8_BTL_API HANDLE CreateToolhelp32Snapshot(unsigned long flags, unsigned long id);

/// What is done for a process; false ends the walk.
using TProcessAction = System::TClosure<bool(const tagPROCESSENTRY32W&)>;

/// Calls `action` for each process that runs now. An empty one is an internal fault.
TRS8_BTL_API void ForEachProcess(const TProcessAction& action);
/// As `ForEachProcess`, for the processes of one program.
TRS8_BTL_API void ForEachProcess(const System::UnicodeString& exe, const TProcessAction& action);

/// Whether a process of the program runs.
[[nodiscard]] TRS8_BTL_API bool IsExeRunning(const System::UnicodeString& exe);
/// How many processes of the program run.
[[nodiscard]] TRS8_BTL_API int CountProcesses(const System::UnicodeString& exe);

/// Ends the first process of the program that lets itself be ended, or all, with exit code 0. Gives whether
/// the last attempt succeeded, false if there is no such process. One that can't be opened raises
/// `XLastError`.
TRS8_BTL_API bool KillProcess(const System::UnicodeString& exe, bool all);

} // namespace WIN
