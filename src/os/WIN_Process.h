// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/Host_Error.h"
#include "platform/host/processes/Host_CreateProcess.h"
#include "platform/host/processes/Host_Process.h"
#include "platform/host/processes/Host_ProcessMemory.h"
#include "platform/host/processes/Host_ProcessPriority.h"

namespace WIN
{

/// A program that is started, or a process that runs, with its handle. The process outlives the object. A
/// failed call goes to `ThrowLastError`; a call that needs a process and finds none is an internal fault.
///
///     WIN::CProcess sort(u"\\usr\\bin\\sort", 0);
///     sort.Create(u"data.txt", 0, 0);
///     if (sort.WaitForSingleObject(5000) == WAIT_TIMEOUT) {
///         sort.Terminate(1);
///     }
class TRS8_BTL_API CProcess
{
public:
    /// The file is that of the running program.
    CProcess();
    /// The program to `Create`, and the number of the process to `Open`. A file with blanks stands in double
    /// quotes.
    CProcess(const System::UnicodeString& file, unsigned long id);
    CProcess(const CProcess&) = delete;
    CProcess& operator=(const CProcess&) = delete;
    /// Closes the handles; the process runs on.
    virtual ~CProcess();

    /// Closes the handles, if there are any.
    void CloseHandle();

    /// Lets go of a former process and starts the file with `parameters`, as `CreateProcessW` does.
    void Create(const System::UnicodeString& parameters, unsigned short showWindow,
                unsigned long creationFlags);
    /// Lets go of a former process and opens that of the number.
    void Open(unsigned long access, int inherit);

    /// Waits for the end of the process, 0xFFFFFFFF milliseconds without end: `WAIT_OBJECT_0` or
    /// `WAIT_TIMEOUT`. Needs a process.
    unsigned long WaitForSingleObject(unsigned long timeout) const;
    /// As the platform's call: 259 while the process runs. False on a failure, without an exception. Needs a
    /// process.
    bool GetExitCodeProcess(unsigned long& code) const;
    /// 259 while the process runs. Needs a process.
    unsigned long GetExitCodeProcess() const;
    /// Ends the process at once, with this exit code for who waits here. Needs a process.
    void Terminate(unsigned exitCode);

    /// As `::SetPriorityClass`.
    void SetPriorityClass(unsigned long priorityClass);
    /// As `::GetPriorityClass`.
    unsigned long GetPriorityClass() const;

    void GetProcessMemoryInfo(_PROCESS_MEMORY_COUNTERS& counters) const;
    /// The size of the working set in bytes; 0 on a failure that raises nothing.
    std::size_t GetProcessMemoryInfo() const;
    /// Copies from the process; `done` may be null.
    void ReadProcessMemory(const void* address, void* buffer, unsigned long size, unsigned long* done);
    /// Copies to the process; `done` may be null.
    void WriteProcessMemory(void* address, const void* buffer, unsigned long size, unsigned long* done);

    const System::UnicodeString& getFile() const noexcept { return mFile; }
    /// Those of the last `Create`.
    const System::UnicodeString& getParameters() const noexcept { return mParameters; }
    const STARTUPINFOW& getStartInfo() const noexcept { return mStartInfo; }
    const PROCESS_INFORMATION& getProcessInfo() const noexcept { return mProcessInfo; }
    /// Null if there is none; it belongs to this object.
    HANDLE getProcess() const noexcept { return mProcess; }
    /// As given, or that of the started program.
    unsigned long getProcessId() const noexcept { return mProcessId; }

private:
    bool HasProcess(int line) const;

    System::UnicodeString mFile;
    System::UnicodeString mParameters;
    STARTUPINFOW mStartInfo;
    PROCESS_INFORMATION mProcessInfo;
    HANDLE mProcess = nullptr;
    unsigned long mProcessId = 0;
};

} // namespace WIN
