// SPDX-License-Identifier: MIT
#include "platform/host/Host_FileHandle.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host
{

using System::Int64;
using System::UnicodeString;

namespace
{

template <class Call>
auto Retry(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

int OpenFlags(FileAccess access)
{
    switch (access) {
    case FileAccess::Read:
        return O_RDONLY;
    case FileAccess::Write:
        return O_WRONLY;
    case FileAccess::ReadWrite:
        return O_RDWR;
    case FileAccess::Create:
        break;
    }
    return O_RDWR | O_CREAT | O_TRUNC;
}

/// `result`, with the last error set if it tells of a failure.
Int64 Checked(Int64 result)
{
    if (result < 0) {
        FailErrno();
    }
    return result;
}

} // namespace

std::intptr_t OpenFileHandle(const UnicodeString& path, FileAccess access)
{
    const std::string name = Sysutils::HostPath(path);
    if (name.empty()) {
        return -1;
    }
    const int handle = Retry([&] { return open(name.c_str(), OpenFlags(access) | O_CLOEXEC, 0666); });
    struct stat info = {};
    if (handle >= 0 && fstat(handle, &info) == 0 && S_ISDIR(info.st_mode)) {
        close(handle);
        Fail(ERROR_ACCESS_DENIED);
        return -1;
    }
    return Checked(handle);
}

Int64 ReadFileHandle(std::intptr_t handle, void* buffer, Int64 count)
{
    const auto size = static_cast<std::size_t>(std::max<Int64>(count, 0));
    return Checked(Retry([&] { return read(static_cast<int>(handle), buffer, size); }));
}

Int64 WriteFileHandle(std::intptr_t handle, const void* buffer, Int64 count)
{
    const auto size = static_cast<std::size_t>(std::max<Int64>(count, 0));
    return Checked(Retry([&] { return write(static_cast<int>(handle), buffer, size); }));
}

Int64 SeekFileHandle(std::intptr_t handle, Int64 offset, int origin)
{
    constexpr std::array origins{SEEK_SET, SEEK_CUR, SEEK_END};
    if (origin < 0 || origin >= static_cast<int>(origins.size())) {
        Fail(ERROR_INVALID_PARAMETER);
        return -1;
    }
    return Checked(lseek(static_cast<int>(handle), offset, origins[static_cast<std::size_t>(origin)]));
}

bool ResizeFileHandle(std::intptr_t handle, Int64 size)
{
    return Checked(Retry([&] { return ftruncate(static_cast<int>(handle), size); })) == 0;
}

void CloseFileHandle(std::intptr_t handle)
{
    close(static_cast<int>(handle));
}

} // namespace Host
