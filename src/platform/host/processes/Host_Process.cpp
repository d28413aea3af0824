// SPDX-License-Identifier: MIT
#include "platform/host/processes/Host_Process.h"

#include "platform/host/processes/internal/Host_ProcessObject.h"

#include <climits>
#include <csignal>

HANDLE OpenProcess(unsigned long access, bool /*inherit*/, unsigned long id)
{
    auto process = Host::CProcessObject::Open(id > INT_MAX ? 0 : static_cast<pid_t>(id));
    if (process == nullptr) {
        return nullptr;
    }
    if ((access & PROCESS_TERMINATE) != 0 && kill(process->getId(), 0) != 0 && errno == EPERM) {
        Host::FailErrno();
        return nullptr;
    }
    return Host::OpenHandle(std::move(process));
}

bool TerminateProcess(HANDLE handle, unsigned exitCode)
{
    const auto process = Host::ProcessOf(handle);
    return process != nullptr && process->Terminate(exitCode);
}

bool GetExitCodeProcess(HANDLE handle, unsigned long* exitCode)
{
    const auto process = Host::ProcessOf(handle);
    return process != nullptr && process->GetExitCode(*exitCode);
}
