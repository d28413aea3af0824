// SPDX-License-Identifier: MIT
#include "platform/host/Host_FileHandle.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

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

OpenedFile Failure(int error)
{
    return {-1, System::FromUtf8(std::generic_category().message(error))};
}

} // namespace

OpenedFile OpenFileHandle(const UnicodeString& path, FileAccess access)
{
    std::string name = System::ToUtf8(path);
    if (name.find('\0') != std::string::npos) {
        return Failure(EINVAL);
    }
    std::ranges::replace(name, '\\', '/');
    const int handle = Retry([&] { return open(name.c_str(), OpenFlags(access) | O_CLOEXEC, 0666); });
    if (handle < 0) {
        return Failure(errno);
    }
    struct stat info = {};
    if (fstat(handle, &info) == 0 && S_ISDIR(info.st_mode)) {
        close(handle);
        return Failure(EISDIR);
    }
    return {handle, {}};
}

Int64 ReadFileHandle(std::intptr_t handle, void* buffer, Int64 count)
{
    const auto size = static_cast<std::size_t>(std::max<Int64>(count, 0));
    return Retry([&] { return read(static_cast<int>(handle), buffer, size); });
}

Int64 WriteFileHandle(std::intptr_t handle, const void* buffer, Int64 count)
{
    const auto size = static_cast<std::size_t>(std::max<Int64>(count, 0));
    return Retry([&] { return write(static_cast<int>(handle), buffer, size); });
}

Int64 SeekFileHandle(std::intptr_t handle, Int64 offset, int origin)
{
    constexpr std::array origins{SEEK_SET, SEEK_CUR, SEEK_END};
    if (origin < 0 || origin >= static_cast<int>(origins.size())) {
        return -1;
    }
    return lseek(static_cast<int>(handle), offset, origins[static_cast<std::size_t>(origin)]);
}

bool ResizeFileHandle(std::intptr_t handle, Int64 size)
{
    return Retry([&] { return ftruncate(static_cast<int>(handle), size); }) == 0;
}

void CloseFileHandle(std::intptr_t handle)
{
    close(static_cast<int>(handle));
}

} // namespace Host
