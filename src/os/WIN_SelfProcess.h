// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace WIN
{

/// The running process. Failures raise `XLastError`, also while the application ends.
///
///     WIN::CSelfProcess::SetPriorityClass(BELOW_NORMAL_PRIORITY_CLASS);
///     WIN::CSelfProcess::SetPriority(THREAD_PRIORITY_HIGHEST);           // of the calling thread
class TRS8_BTL_API CSelfProcess
{
public:
    CSelfProcess() = delete;

    /// As `::SetPriorityClass` for this process.
    static void SetPriorityClass(unsigned long priorityClass);
    /// As `::GetPriorityClass` for this process.
    static unsigned long GetPriorityClass();
    /// As `::SetThreadPriority` for the calling thread.
    static void SetPriority(int priority);
    /// As `::GetThreadPriority` for the calling thread.
    static int GetPriority();
    static unsigned long GetProcessId();
    /// The full path of the running program.
    static System::UnicodeString GetProcessFileName();
};

} // namespace WIN
