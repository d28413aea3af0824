// SPDX-License-Identifier: MIT
#include "os/WIN_SelfProcess.h"

#include "os/WIN_LastError.h"
#include "platform/host/Host_Module.h"
#include "platform/host/processes/Host_Process.h"
#include "platform/host/processes/Host_ProcessPriority.h"

namespace WIN
{

namespace
{

void Check(bool succeeded)
{
    if (!succeeded) {
        throw XLastError();
    }
}

} // namespace

void CSelfProcess::SetPriorityClass(unsigned long priorityClass)
{
    Check(::SetPriorityClass(GetCurrentProcess(), priorityClass));
}

unsigned long CSelfProcess::GetPriorityClass()
{
    const unsigned long priorityClass = ::GetPriorityClass(GetCurrentProcess());
    Check(priorityClass != 0);
    return priorityClass;
}

void CSelfProcess::SetPriority(int priority)
{
    Check(::SetThreadPriority(GetCurrentThread(), priority));
}

int CSelfProcess::GetPriority()
{
    const int priority = ::GetThreadPriority(GetCurrentThread());
    Check(priority != THREAD_PRIORITY_ERROR_RETURN);
    return priority;
}

unsigned long CSelfProcess::GetProcessId()
{
    return ::GetCurrentProcessId();
}

System::UnicodeString CSelfProcess::GetProcessFileName()
{
    return Host::ProgramPath();
}

} // namespace WIN
