// SPDX-License-Identifier: MIT
#include "platform/host/processes/Host_ProcessMemory.h"

#include "platform/host/processes/internal/Host_ProcessFiles.h"
#include "platform/host/processes/internal/Host_ProcessObject.h"

#include <charconv>

#include <fcntl.h>
#include <sys/uio.h>

namespace
{

/// The bytes in a line such as "VmRSS:	  123 kB"; 0 if there is none.
std::size_t BytesOf(std::string_view status, std::string_view field)
{
    constexpr std::size_t kilo = 1024;
    const std::size_t at = status.find(field);
    const std::size_t begin =
        at == std::string_view::npos ? at : status.find_first_of("0123456789", at + field.size());
    if (begin == std::string_view::npos) {
        return 0;
    }
    std::size_t value = 0;
    std::from_chars(status.data() + begin, status.data() + status.size(), value);
    return value * kilo;
}

bool FailProcess()
{
    return errno == ENOENT || errno == ESRCH ? Host::Fail(ERROR_INVALID_PARAMETER) : Host::FailErrno();
}

using FCopy = ssize_t (*)(pid_t, const iovec*, unsigned long, const iovec*, unsigned long, unsigned long);

bool CopyMemory(FCopy copy, HANDLE handle, void* address, void* buffer, std::size_t size, unsigned long* done)
{
    if (done != nullptr) {
        *done = 0;
    }
    const auto process = Host::ProcessOf(handle);
    if (process == nullptr) {
        return false;
    }
    // Its number may be that of another process by now.
    if (!process->IsRunning()) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    const iovec here{buffer, size};
    const iovec there{address, size};
    const ssize_t count = copy(process->getId(), &here, 1, &there, 1, 0);
    if (count < 0) {
        return errno == EFAULT ? Host::Fail(ERROR_PARTIAL_COPY) : FailProcess();
    }
    if (done != nullptr) {
        *done = static_cast<unsigned long>(count);
    }
    return static_cast<std::size_t>(count) == size || Host::Fail(ERROR_PARTIAL_COPY);
}

} // namespace

bool GetProcessMemoryInfo(HANDLE handle, _PROCESS_MEMORY_COUNTERS* counters, unsigned long /*size*/)
{
    const auto process = Host::ProcessOf(handle);
    if (process == nullptr) {
        return false;
    }
    const Host::Descriptor folder(open("/proc", O_PATH | O_DIRECTORY | O_CLOEXEC));
    const auto status = Host::ReadProcessFile(folder.Get(), process->getId(), "status");
    const auto text = Host::ReadProcessFile(folder.Get(), process->getId(), "stat");
    if (!status || !text) {
        return FailProcess();
    }
    // What was read may be of another process that has its number by now.
    if (!process->IsRunning()) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    const auto stat = Host::ParseProcessStat(*text);
    counters->PageFaultCount = stat ? stat->pageFaults : 0;
    counters->PeakWorkingSetSize = BytesOf(*status, "\nVmHWM:");
    counters->WorkingSetSize = BytesOf(*status, "\nVmRSS:");
    counters->PagefileUsage = BytesOf(*status, "\nRssAnon:") + BytesOf(*status, "\nVmSwap:");
    counters->PeakPagefileUsage = counters->PagefileUsage;
    return true;
}

bool ReadProcessMemory(HANDLE process, const void* address, void* buffer, std::size_t size,
                       unsigned long* done)
{
    return CopyMemory(process_vm_readv, process, const_cast<void*>(address), buffer, size, done);
}

bool WriteProcessMemory(HANDLE process, void* address, const void* buffer, std::size_t size,
                        unsigned long* done)
{
    return CopyMemory(process_vm_writev, process, address, const_cast<void*>(buffer), size, done);
}
