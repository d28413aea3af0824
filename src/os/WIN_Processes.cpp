// SPDX-License-Identifier: MIT
#include "os/WIN_Processes.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "os/WIN_LastError.h"
#include "platform/host/processes/Host_Process.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"

namespace WIN
{

namespace
{

using System::UnicodeString;

constexpr UTL::CFaultPlace NoAction{"WIN_ForEachProcess", 1};

/// Closes a handle at the end of its block.
class CHandleGuard
{
public:
    explicit CHandleGuard(HANDLE handle) : mHandle(handle) {}
    CHandleGuard(const CHandleGuard&) = delete;
    CHandleGuard& operator=(const CHandleGuard&) = delete;
    ~CHandleGuard() { ::CloseHandle(mHandle); }

private:
    HANDLE mHandle;
};

/// `action` is anything that takes an entry and tells whether to go on.
template <class Action>
void Walk(Action action)
{
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) {
        return;
    }
    const CHandleGuard guard(snapshot);
    tagPROCESSENTRY32W entry;
    for (bool more = Process32FirstW(snapshot, &entry); more; more = Process32NextW(snapshot, &entry)) {
        if (!action(entry)) {
            return;
        }
    }
}

template <class Action>
void WalkExe(const UnicodeString& exe, Action action)
{
    const UnicodeString name = Sysutils::AnsiLowerCase(Sysutils::ExtractFileName(exe));
    Walk([&](const tagPROCESSENTRY32W& entry) {
        return Sysutils::AnsiLowerCase(entry.szExeFile) != name || action(entry);
    });
}

} // namespace

HANDLE OpenProcess(unsigned long access, int inherit, unsigned long id)
{
    const HANDLE process = ::OpenProcess(access, inherit != 0, id);
    if (process == nullptr) {
        ThrowLastError();
    }
    return process;
}

void GetProcessMemoryInfo(void* process, _PROCESS_MEMORY_COUNTERS& counters)
{
    if (!::GetProcessMemoryInfo(process, &counters, counters.cb)) {
        ThrowLastError();
    }
}

std::size_t GetProcessMemoryInfo(void* process)
{
    _PROCESS_MEMORY_COUNTERS counters;
    GetProcessMemoryInfo(process, counters);
    return counters.WorkingSetSize;
}

std::size_t GetProcessMemoryInfo(unsigned long id)
{
    const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, false, id);
    if (process == nullptr) {
        return 0;
    }
    const CHandleGuard guard(process);
    return GetProcessMemoryInfo(process);
}

std::size_t GetProcessMemoryInfoWithoutException(unsigned long id)
{
    const HANDLE process = ::OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, false, id);
    if (process == nullptr) {
        return 0;
    }
    const CHandleGuard guard(process);
    _PROCESS_MEMORY_COUNTERS counters;
    return ::GetProcessMemoryInfo(process, &counters, counters.cb) ? counters.WorkingSetSize : 0;
}

HANDLE CreateToolhelp32Snapshot(unsigned long flags, unsigned long id)
{
    const HANDLE snapshot = ::CreateToolhelp32Snapshot(flags, id);
    if (snapshot == INVALID_HANDLE_VALUE) {
        ThrowLastError();
    }
    return snapshot;
}

void ForEachProcess(const TProcessAction& action)
{
    if (!action) {
        UTL::THROW_XAssert(NoAction);
        return;
    }
    Walk([&](const tagPROCESSENTRY32W& entry) { return action(entry); });
}

void ForEachProcess(const UnicodeString& exe, const TProcessAction& action)
{
    if (!action) {
        UTL::THROW_XAssert(NoAction);
        return;
    }
    WalkExe(exe, [&](const tagPROCESSENTRY32W& entry) { return action(entry); });
}

bool IsExeRunning(const UnicodeString& exe)
{
    bool found = false;
    WalkExe(exe, [&](const tagPROCESSENTRY32W&) {
        found = true;
        return false;
    });
    return found;
}

int CountProcesses(const UnicodeString& exe)
{
    int count = 0;
    WalkExe(exe, [&](const tagPROCESSENTRY32W&) {
        ++count;
        return true;
    });
    return count;
}

bool KillProcess(const UnicodeString& exe, bool all)
{
    bool isKilled = false;
    WalkExe(exe, [&](const tagPROCESSENTRY32W& entry) {
        const HANDLE process = OpenProcess(PROCESS_TERMINATE, false, entry.th32ProcessID);
        const CHandleGuard guard(process);
        isKilled = ::TerminateProcess(process, 0);
        return all || !isKilled;
    });
    return isKilled;
}

} // namespace WIN
