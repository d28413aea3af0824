// SPDX-License-Identifier: MIT
#include "os/WIN_Process.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "os/WIN_LastError.h"
#include "os/WIN_Processes.h"
#include "platform/host/Host_Module.h"

#include <utility>

namespace WIN
{

namespace
{

// Where a process is needed; the numbers are known to users.
constexpr int WaitPlace = 1;
constexpr int TryExitCodePlace = 2;
constexpr int ExitCodePlace = 3;
constexpr int TerminatePlace = 4;

void Check(bool succeeded)
{
    if (!succeeded) {
        ThrowLastError();
    }
}

} // namespace

CProcess::CProcess() : CProcess(Host::ProgramPath(), 0) {}

CProcess::CProcess(const System::UnicodeString& file, unsigned long id) : mFile(file), mProcessId(id) {}

CProcess::~CProcess()
{
    CProcess::CloseHandle();
}

void CProcess::CloseHandle()
{
    if (mProcess == nullptr) {
        return;
    }
    ::CloseHandle(std::exchange(mProcess, nullptr));
    if (mProcessInfo.hThread != nullptr) {
        ::CloseHandle(mProcessInfo.hThread);
    }
    mProcessInfo.hProcess = nullptr;
    mProcessInfo.hThread = nullptr;
}

void CProcess::Create(const System::UnicodeString& parameters, unsigned short showWindow,
                      unsigned long creationFlags)
{
    mParameters = parameters;
    CloseHandle();
    mStartInfo = STARTUPINFOW();
    mStartInfo.cb = 68;
    mStartInfo.wShowWindow = showWindow;
    const System::UnicodeString command = mFile + u' ' + mParameters;
    if (!::CreateProcessW(nullptr, command.c_str(), nullptr, nullptr, false, creationFlags, nullptr, nullptr,
                          &mStartInfo, &mProcessInfo)) {
        ThrowLastError();
        return;
    }
    mProcess = mProcessInfo.hProcess;
    mProcessId = mProcessInfo.dwProcessId;
}

void CProcess::Open(unsigned long access, int inherit)
{
    CloseHandle();
    mProcess = OpenProcess(access, inherit, mProcessId);
}

unsigned long CProcess::WaitForSingleObject(unsigned long timeout) const
{
    if (!HasProcess(WaitPlace)) {
        return WAIT_FAILED;
    }
    const unsigned long result = ::WaitForSingleObject(mProcess, timeout);
    Check(result != WAIT_FAILED);
    return result;
}

bool CProcess::GetExitCodeProcess(unsigned long& code) const
{
    return HasProcess(TryExitCodePlace) && ::GetExitCodeProcess(mProcess, &code);
}

unsigned long CProcess::GetExitCodeProcess() const
{
    unsigned long code = 0;
    if (HasProcess(ExitCodePlace)) {
        Check(::GetExitCodeProcess(mProcess, &code));
    }
    return code;
}

void CProcess::Terminate(unsigned exitCode)
{
    if (HasProcess(TerminatePlace)) {
        Check(::TerminateProcess(mProcess, exitCode));
    }
}

void CProcess::SetPriorityClass(unsigned long priorityClass)
{
    Check(::SetPriorityClass(mProcess, priorityClass));
}

unsigned long CProcess::GetPriorityClass() const
{
    const unsigned long priorityClass = ::GetPriorityClass(mProcess);
    Check(priorityClass != 0);
    return priorityClass;
}

void CProcess::GetProcessMemoryInfo(_PROCESS_MEMORY_COUNTERS& counters) const
{
    WIN::GetProcessMemoryInfo(mProcess, counters);
}

std::size_t CProcess::GetProcessMemoryInfo() const
{
    return WIN::GetProcessMemoryInfo(mProcess);
}

void CProcess::ReadProcessMemory(const void* address, void* buffer, unsigned long size, unsigned long* done)
{
    Check(::ReadProcessMemory(mProcess, address, buffer, size, done));
}

void CProcess::WriteProcessMemory(void* address, const void* buffer, unsigned long size, unsigned long* done)
{
    Check(::WriteProcessMemory(mProcess, address, buffer, size, done));
}

bool CProcess::HasProcess(int line) const
{
    if (mProcess == nullptr) {
        UTL::THROW_XAssert(UTL::CFaultPlace{"WIN_CProcess", line});
        return false;
    }
    return true;
}

} // namespace WIN
