// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"
#include "platform/host/objects/Host_Handle.h"
#include "platform/host/objects/Host_Security.h"

/// How a program begins. Windows are the program's own affair: nothing of it reaches the program.
struct STARTUPINFOW
{
    unsigned long cb = 0;
    unsigned long dwFlags = 0;
    unsigned short wShowWindow = 0;
};

/// A started program. Both handles, which stand for the process, are the caller's to close.
struct PROCESS_INFORMATION
{
    HANDLE hProcess = nullptr;
    HANDLE hThread = nullptr;
    unsigned long dwProcessId = 0;
    unsigned long dwThreadId = 0;
};

// NOLINTNEXTLINE(bugprone-reserved-identifier): users know it by that name
using _PROCESS_INFORMATION = PROCESS_INFORMATION;

/// The program doesn't get what the terminal sends to this one.
inline constexpr unsigned long CREATE_NEW_PROCESS_GROUP = 512;

/// Starts a program, without a shell. `command` is its name or path, in double quotes if it has blanks, and
/// the arguments, parted as `Host::SplitArguments` does; `application`, if it isn't null, is the program in
/// place of that name. A path becomes one of the host; a name alone is searched for on the search path, never
/// in the current folder. The arguments stay as they are. The program runs in `folder`, the current one for
/// null, and outlives its handles.
///
/// The priority class in `flags` (see `SetPriorityClass`) is set as far as the host allows. Without `inherit`
/// the program gets the standard streams alone. `environment` must be null: it is that of this process; what
/// a bundle added to search paths stays in the bundle. The other arguments are not looked at.
///
/// False on a failure: the last error is 2 for a missing program, 3 for a missing folder on the way to it, 5
/// for one that may not be started, 11 for one that the host can't start, 267 for a missing `folder`.
///
///     STARTUPINFOW start;
///     PROCESS_INFORMATION info;
///     if (CreateProcessW(nullptr, u"sort \"my data.txt\"", nullptr, nullptr, false, 0, nullptr, nullptr,
///     &start,
///                        &info)) { ... }
TRS8_BTL_API bool CreateProcessW(const System::WideChar* application, const System::WideChar* command,
                                 const SECURITY_ATTRIBUTES* process, const SECURITY_ATTRIBUTES* thread,
                                 bool inherit, unsigned long flags, const void* environment,
                                 const System::WideChar* folder, const STARTUPINFOW* start,
                                 PROCESS_INFORMATION* info);
